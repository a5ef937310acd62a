// SPDX-License-Identifier: MIT
#include "forms/MdiForm.h"

#include "forms/Form.h"
#include "forms/LoadedForms.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QScreen>

#include <algorithm>

namespace tol::forms {
namespace {

Form* formIn(const QMdiSubWindow* frame) {
    return frame == nullptr ? nullptr : Form::of(frame->widget());
}

Qt::WindowFlags frameFlags(bool sizable) {
    const Qt::WindowFlags fixed = Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                  Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                                  Qt::WindowCloseButtonHint;
    return sizable ? fixed | Qt::WindowMaximizeButtonHint : fixed;
}

} // namespace

MdiForm::MdiForm(const QString& name) : m_area(*new MdiArea(*this, [this] { onClick(); })) {
    setObjectName(name);
    setCentralWidget(&m_area);
    connect(&m_area, &QMdiArea::subWindowActivated, this, [](QMdiSubWindow* frame) {
        if (Form* form = formIn(frame); form != nullptr && form->isLoaded())
            runEvent(*form, [form] { form->onActivate(); });
    });
}

MdiForm::~MdiForm() {
    if (m_loaded)
        LoadedForms::remove(*this);
}

void MdiForm::load() {
    if (m_loaded)
        return;
    m_loaded = true;
    LoadedForms::add(*this);
    onLoad();
}

void MdiForm::unload() {
    if (!m_loaded)
        return;
    unloadChildren();
    m_loaded = false;
    onUnload();
    hide();
    LoadedForms::remove(*this);
}

bool MdiForm::childrenMayClose() const {
    const QList<QMdiSubWindow*> frames = m_area.subWindowList();
    return std::ranges::all_of(frames, [](const QMdiSubWindow* frame) {
        const Form* form = formIn(frame);
        return form == nullptr || !form->isLoaded() || (form->mayClose() && !form->isBusy());
    });
}

void MdiForm::unloadChildren() {
    for (QMdiSubWindow* frame : m_area.subWindowList())
        if (Form* form = formIn(frame))
            form->unload();
}

void MdiForm::showChild(std::unique_ptr<Form> child) {
    Form& form = *child;
    const Form::Hold hold(&form);
    QMdiSubWindow* frame = m_area.addSubWindow(child.release(), frameFlags(form.isSizable()));
    frame->setAttribute(Qt::WA_DeleteOnClose, false); // the form says when it is done
    frame->setObjectName(form.objectName() + "Frame");
    form.m_frame = frame;
    form.load();
    if (!form.isLoaded())
        return;
    frame->adjustSize();
    if (!form.isSizable())
        frame->setFixedSize(frame->sizeHint());
    frame->move((m_area.viewport()->width() - frame->width()) / 2,
                (m_area.viewport()->height() - frame->height()) / 2);
    form.showModeless();
}

void MdiForm::setSize(int width, int height) {
    resize(QSize(toPixels(width), toPixels(height)).boundedTo(screen()->availableSize()));
}

int MdiForm::scaleWidth() const {
    return toTwips(m_area.viewport()->width());
}

int MdiForm::scaleHeight() const {
    return toTwips(m_area.viewport()->height());
}

void MdiForm::closeEvent(QCloseEvent* event) {
    if (m_loaded && !childrenMayClose())
        return event->ignore();
    runEvent(*this, [this] { unload(); });
    event->accept();
}

} // namespace tol::forms
