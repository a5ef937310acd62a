// SPDX-License-Identifier: MIT
#include "forms/windows/Form.h"

#include "forms/events/ErrorGuard.h"
#include "forms/events/EventProcedure.h"
#include "forms/windows/LoadedForms.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QScrollArea>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace tol::forms {
namespace {

constexpr int longestWaitForScreen = 200; // milliseconds

} // namespace

Form::Form(const QString& name) {
    setObjectName(name);
    setScaleSize(4800, 3600);
}

Form::~Form() {
    if (m_loaded)
        LoadedForms::remove(*this);
}

void Form::load() {
    if (m_loaded)
        return;
    m_loaded = true;
    m_away = false;
    m_focus = nullptr;
    LoadedForms::add(*this);
    const Busy busy(*this);
    onLoad();
}

void Form::showModeless() {
    const Hold hold(this);
    load();
    if (!m_loaded) // its Load can unload it
        return;
    if (!m_sizable)
        setFixedSize(m_size);
    if (outer().isMinimized())
        outer().showNormal();
    outer().show();
    outer().raise();
    if (m_frame != nullptr)
        m_frame->mdiArea()->setActiveSubWindow(m_frame);
    else
        activateWindow();
}

void Form::showModal(QWidget* owner) {
    setParent(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setWindowModality(Qt::ApplicationModal);
    QEventLoop untilUnloaded;
    m_modalLoop = &untilUnloaded;
    const Hold hold(this);
    load(); // which may set the size
    if (owner != nullptr)
        fitBefore(*owner->window());
    if (m_loaded)
        showModeless();
    if (m_loaded)
        untilUnloaded.exec();
    m_modalLoop = nullptr;
    if (owner != nullptr)
        activateBelow(*owner);
}

void Form::unload() {
    m_unloadWaits = m_loaded && isBusy();
    if (!m_loaded || m_unloadWaits)
        return;
    const Hold hold(this);
    m_loaded = false;
    onUnload();
    outer().hide();
    LoadedForms::remove(*this);
    if (m_modalLoop != nullptr)
        m_modalLoop->quit();
}

void Form::refresh() {
    QElapsedTimer waited;
    waited.start();
    const QWindow* window = windowHandle();
    while (window != nullptr && !window->isExposed() && !waited.hasExpired(longestWaitForScreen))
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    repaint();
}

void Form::setScaleSize(int width, int height) {
    m_size = QSize(toPixels(width), toPixels(height));
    resize(m_size);
}

Form* Form::of(QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget())
        if (auto* form = dynamic_cast<Form*>(widget))
            return form;
    return nullptr;
}

// The form behind a box or an opened menu is no form of its keys, and one that is out of use takes none.
Form* Form::typedOn(QWidget& receiver) {
    Form* form = of(&receiver);
    const bool typed = form != nullptr && receiver.window() == form->window() && form->m_loaded &&
                       !form->m_away && form->isEnabled();
    return typed ? form : nullptr;
}

bool Form::previewKey(QWidget& receiver, const QKeyEvent& event) {
    Form* form = typedOn(receiver);
    if (form == nullptr)
        return false;
    KeyPress key = keyPressOf(event);
    const int code = key.code;
    const Hold hold(form);
    const bool unused = form == &receiver; // by the control that had the focus
    if (form->m_keyPreview || unused)
        runEvent(*form, [&] { form->onKeyDown(key); });
    if (key.code != code || !form->m_loaded)
        return key.code != code;
    if (code == keyEscape)
        return pressButton(form->m_cancelButton);
    QAbstractButton* button = form->mnemonicButton(event);
    if (button != nullptr)
        button->setFocus(Qt::ShortcutFocusReason);
    return pressButton(button);
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (keyPressOf(*event).code != keyReturn || !pressButton(m_defaultButton))
        QWidget::keyPressEvent(event);
}

bool Form::hasMnemonic(QWidget& receiver, const QKeyEvent& event) {
    const Form* form = typedOn(receiver);
    return form != nullptr && form->mnemonicButton(event) != nullptr;
}

QAbstractButton* Form::mnemonicButton(const QKeyEvent& event) const {
    if (!event.modifiers().testFlag(Qt::AltModifier))
        return nullptr;
    const QKeySequence pressed(event.keyCombination());
    for (QAbstractButton* button : findChildren<QAbstractButton*>())
        if (button->isVisible() && button->isEnabled() && QKeySequence::mnemonic(button->text()) == pressed)
            return button;
    return nullptr;
}

bool Form::pressButton(QAbstractButton* button) {
    if (button == nullptr || !button->isVisible() || !button->isEnabled())
        return false;
    button->click();
    return true;
}

void Form::closeEvent(QCloseEvent* event) {
    if (m_loaded && !mayClose())
        return event->ignore();
    runEvent(*this, [this] { unload(); });
    event->setAccepted(!m_loaded); // a busy form stays in sight until then
}

bool Form::event(QEvent* event) {
    // A child of the MDI area also gets this when the main window comes to the front.
    if (event->type() == QEvent::WindowActivate && isWindow())
        activate();
    return QWidget::event(event);
}

// It comes more than once, and behind the first the focus wanders.
void Form::hideEvent(QHideEvent* event) {
    m_away = true;
    QWidget::hideEvent(event);
}

// It comes before a frame that is hidden meanwhile, too.
void Form::showEvent(QShowEvent* event) {
    m_away = !isVisible();
    if (m_focus != nullptr && !m_focus->hasFocus())
        restoreFocus();
    QWidget::showEvent(event);
}

// A child has been given a focus while it was still behind: some control's, and nobody was told.
void Form::comeToFront() {
    if (QWidget* given = focusWidget(); given != nullptr && given->hasFocus()) {
        if (m_focus == nullptr)
            m_focus = given;
        given->clearFocus();
    }
    restoreFocus();
    activate();
}

void Form::activate() {
    runEvent(*this, [this] { onActivate(); });
}

// To the child of a main window, the platform does not tell that a modal window above it is gone.
void Form::activateBelow(const QWidget& owner) {
    const auto* area = owner.window()->findChild<QMdiArea*>();
    const QMdiSubWindow* frame = area != nullptr ? area->currentSubWindow() : nullptr;
    if (Form* form = in(frame))
        form->activate();
}

Form* Form::in(const QMdiSubWindow* frame) {
    if (frame == nullptr)
        return nullptr;
    const auto* view = qobject_cast<QScrollArea*>(frame->widget());
    return of(view != nullptr ? view->widget() : frame->widget());
}

bool Form::isInFront() const {
    return m_loaded && !m_away && (m_frame == nullptr || m_frame->mdiArea()->currentSubWindow() == m_frame);
}

void Form::focusOn(QWidget& control) {
    m_focus = &control;
    m_focusReason = Qt::OtherFocusReason;
    restoreFocus();
}

void Form::restoreFocus() {
    if (m_focus != nullptr && isInFront())
        m_focus->setFocus(m_focusReason);
}

void Form::takeFocusFromFrame() {
    restoreFocus();
    QWidget* control = nextInFocusChain();
    while (m_frame->hasFocus() && isAncestorOf(control)) {
        if (control->isVisible() && (control->focusPolicy() & Qt::TabFocus) != 0)
            control->setFocus(); // unless it is out of use
        control = control->nextInFocusChain();
    }
}

// A click on a control behind another window brings the window to the front: it is what the person means.
void Form::noteFocus(QWidget& control, Qt::FocusReason reason) {
    Form* form = of(&control);
    const bool isClick = reason == Qt::MouseFocusReason;
    if (form == nullptr || form->m_away || !(form->isInFront() || isClick))
        return;
    form->m_focus = &control;
    form->m_focusReason = isClick ? reason : Qt::OtherFocusReason;
}

bool Form::takesEventsOf(const QWidget& widget) const {
    return m_loaded && (&widget == this || !m_away);
}

QWidget& Form::outer() {
    return m_frame != nullptr ? static_cast<QWidget&>(*m_frame) : *this;
}

// The frame will be as wide as that of the owner, which has its own already.
void Form::fitBefore(const QWidget& owner) {
    const QRect screenArea = owner.screen()->availableGeometry();
    const QMargins frame =
        owner.windowHandle() != nullptr ? owner.windowHandle()->frameMargins() : QMargins();
    const QSize room = screenArea.size().shrunkBy(frame);
    if (m_sizable) {
        setMinimumSize(minimumSize().boundedTo(room));
        resize(size().boundedTo(room));
    }
    QRect whole(QPoint(), size().grownBy(frame));
    whole.moveCenter(owner.frameGeometry().center());
    const QPoint last = screenArea.bottomRight() - whole.bottomRight() + whole.topLeft();
    move(std::max(screenArea.left(), std::min(whole.left(), last.x())),
         std::max(screenArea.top(), std::min(whole.top(), last.y())));
}

void Form::discardIfDone() {
    if (m_frame != nullptr && !m_loaded && m_running == 0)
        m_frame->deleteLater();
}

Form::Busy::Busy(Form& form) : m_form(form), m_hold(&form) {
    ++m_form.m_busy;
}

Form::Busy::~Busy() {
    --m_form.m_busy;
    if (!m_form.isBusy() && m_form.m_unloadWaits)
        guarded([this] { m_form.unload(); });
}

Form::Hold::Hold(Form* form) : m_form(form) {
    if (m_form != nullptr)
        ++m_form->m_running;
}

Form::Hold::~Hold() {
    if (m_form == nullptr)
        return;
    --m_form->m_running;
    m_form->discardIfDone();
}

} // namespace tol::forms
