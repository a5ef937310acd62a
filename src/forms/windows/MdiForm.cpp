// SPDX-License-Identifier: MIT
#include "forms/windows/MdiForm.h"

#include "forms/windows/Form.h"
#include "forms/windows/LoadedForms.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QScreen>
#include <QScrollArea>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace tol::forms {
namespace {

/// The view of a form for which the area has no room. It follows the focus.
class ScrolledForm : public QScrollArea {
  public:
    explicit ScrolledForm(Form& form) {
        setFrameShape(NoFrame);
        setFocusPolicy(Qt::NoFocus); // its keys are the form's
        setWindowTitle(form.windowTitle());
        setWidget(&form);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now != nullptr && isAncestorOf(now))
                ensureWidgetVisible(now, aroundFocus, aroundFocus);
        });
    }

  protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(widget()->close()); }

  private:
    static constexpr int aroundFocus = 8; // pixels
};

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
        if (Form* form = Form::in(frame))
            form->comeToFront();
    });
    // Behind Qt's own handling of the focus.
    connect(
        qApp, &QApplication::focusChanged, this,
        [] {
            const auto* frame = qobject_cast<QMdiSubWindow*>(QApplication::focusWidget());
            if (Form* form = Form::in(frame))
                form->takeFocusFromFrame();
        },
        Qt::QueuedConnection);
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
        const Form* form = Form::in(frame);
        return form == nullptr || !form->isLoaded() || (form->mayClose() && !form->isBusy());
    });
}

void MdiForm::unloadChildren() {
    for (QMdiSubWindow* frame : m_area.subWindowList())
        if (Form* form = Form::in(frame))
            form->unload();
}

void MdiForm::showChild(std::unique_ptr<Form> child) {
    Form& form = *child;
    const Form::Hold hold(&form);
    const QSize area = m_area.viewport()->size();
    const QSize whole = form.sizeHint() + m_area.frameSize();
    const bool fits = whole == whole.boundedTo(area);
    QWidget* content = fits ? static_cast<QWidget*>(child.release()) : new ScrolledForm(*child.release());
    QMdiSubWindow* frame = m_area.addSubWindow(content, frameFlags(form.isSizable() || !fits));
    frame->setAttribute(Qt::WA_DeleteOnClose, false); // the form says when it is done
    frame->setObjectName(form.objectName() + "Frame");
    form.m_frame = frame;
    form.load();
    if (!form.isLoaded())
        return;
    frame->resize(whole.boundedTo(area));
    if (!form.isSizable())
        frame->setMaximumSize(whole);
    if (!form.isSizable() && fits)
        frame->setMinimumSize(whole);
    frame->move((area.width() - frame->width()) / 2, (area.height() - frame->height()) / 2);
    form.showModeless();
}

void MdiForm::setSize(int width, int height) {
    m_wholeSize = QSize(toPixels(width), toPixels(height));
    takeSize();
}

void MdiForm::takeSize() {
    const QMargins frame = windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
    resize(m_wholeSize.boundedTo(screen()->availableSize()).shrunkBy(frame));
}

void MdiForm::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!std::exchange(m_shownBefore, true))
        windowHandle()->installEventFilter(this);
}

// The frame is there, and its size known, only when the window comes to the screen for the first time.
bool MdiForm::eventFilter(QObject* receiver, QEvent* event) {
    if (receiver == windowHandle() && event->type() == QEvent::Expose && windowHandle()->isExposed()) {
        receiver->removeEventFilter(this);
        if (m_wholeSize.isValid() && !isMaximized())
            takeSize();
    }
    return QMainWindow::eventFilter(receiver, event);
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
