// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/Keys.h"
#include "forms/look/Twips.h"

#include <QPointer>
#include <QWidget>

class QAbstractButton;
class QEventLoop;
class QKeyEvent;
class QMdiSubWindow;

namespace tol::forms {

/// A window of the program: loaded once, then shown, as a window of its own, modal, or as a child of the
/// MDI area, and unloaded when it is closed. Its object name is the window's name, its title the
/// caption. A derived class makes its controls in the constructor and overrides the event procedures.
/// Unloading hides the window; the object itself is its maker's, except for a child of the MDI area,
/// which goes when its last running event procedure has returned.
class Form : public QWidget {
  public:
    explicit Form(const QString& name);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    ~Form() override;

    /// Enters the form among the loaded ones and runs its Load, unless it is loaded already.
    void load();
    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    /// Loads and shows the form, in front and no longer minimised, and returns at once.
    void showModeless();
    /// Loads the form, shows it in front of the middle of its owner and returns when it has been unloaded.
    /// A sizable one is no larger than the screen.
    void showModal(QWidget* owner);
    /// Runs Unload and takes the form off the screen, unless it is not loaded; as soon as it is no longer
    /// busy.
    void unload();
    /// Brings what the window shows to the screen now, without handling what a person does meanwhile.
    void refresh();

    /// The size of the window's inside, in twips.
    void setScaleSize(int width, int height);
    /// Whether a person may change the window's size; fixed at first.
    void setSizable(bool sizable) { m_sizable = sizable; }
    [[nodiscard]] bool isSizable() const { return m_sizable; }
    /// Whether the form sees keys before the control that has the focus.
    void setKeyPreview(bool preview) { m_keyPreview = preview; }
    [[nodiscard]] bool keyPreview() const { return m_keyPreview; }
    /// The buttons that Esc presses wherever the focus is, and Enter where the focused control has no use
    /// for it, while they are visible and enabled; null for none. A form that previews keys sees the key
    /// first.
    void setCancelButton(QAbstractButton* button) { m_cancelButton = button; }
    void setDefaultButton(QAbstractButton* button) { m_defaultButton = button; }

    /// Moves the focus to a control of the form. A form that is behind another one or out of sight stays
    /// there and takes no keyboard from anybody: its control gets the focus when it comes to the front.
    void focusOn(QWidget& control);
    /// Whether the form is loaded, in sight, and before the other children of the MDI area. While it is not,
    /// the focus may wander over its controls, of which nobody is to be told.
    [[nodiscard]] bool isInFront() const;
    /// Whether events of a widget on the form, or of the form itself, may reach it: not before Load and
    /// after Unload, and those of its controls not while it is minimised or hidden.
    [[nodiscard]] bool takesEventsOf(const QWidget& widget) const;
    /// To be told whenever a control gets the focus.
    static void noteFocus(QWidget& control, Qt::FocusReason reason);

    QSize sizeHint() const override { return m_size; }

    /// The form that a widget is on, or is; null when there is none.
    static Form* of(QWidget* widget);
    /// The form in a frame of the MDI area, which may lie in a view that scrolls; null for none.
    static Form* in(const QMdiSubWindow* frame);
    /// Lets the form that the receiver lies on see a key first; not that of the window behind a box. True
    /// when the form swallowed it.
    static bool previewKey(QWidget& receiver, const QKeyEvent& event);
    /// Whether the key is Alt and the letter of a button on the receiver's form that can be pressed.
    static bool hasMnemonic(QWidget& receiver, const QKeyEvent& event);

    /// Keeps a form's object alive while one of its event procedures runs.
    class Hold {
      public:
        explicit Hold(Form* form);
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
        ~Hold();

      private:
        QPointer<Form> m_form;
    };

    /// Puts off an unload of the form while it lives: for a procedure that yields while it uses what Unload
    /// closes. A form is busy while its Load runs.
    class Busy {
      public:
        explicit Busy(Form& form);
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;
        ~Busy();

      private:
        Form& m_form;
        Hold m_hold;
    };
    [[nodiscard]] bool isBusy() const { return m_busy > 0; }
    /// Whether an unload was asked for and waits until the form is no longer busy.
    [[nodiscard]] bool unloadWaits() const { return m_unloadWaits; }

  protected:
    /// Whether a person may close the window now with the close button of its frame.
    [[nodiscard]] virtual bool mayClose() const { return true; }
    virtual void onLoad() {}
    virtual void onActivate() {}
    virtual void onUnload() {}
    virtual void onKeyDown(KeyPress&) {}

    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    friend class MdiForm;

    /// The window that moves, hides and closes: the frame in the MDI area, or the form itself.
    [[nodiscard]] QWidget& outer();
    void fitBefore(const QWidget& owner);
    void discardIfDone();
    void restoreFocus();
    /// The frame itself has the focus and shows nothing of it, as after a click on a label: a control takes
    /// it.
    void takeFocusFromFrame();
    /// A child has come to the front of the MDI area.
    void comeToFront();
    void activate();
    static void activateBelow(const QWidget& owner);
    static Form* typedOn(QWidget& receiver);
    static bool pressButton(QAbstractButton* button);
    [[nodiscard]] QAbstractButton* mnemonicButton(const QKeyEvent& event) const;

    QSize m_size;
    QEventLoop* m_modalLoop = nullptr;
    QMdiSubWindow* m_frame = nullptr; ///< in the MDI area, which then owns the form
    QAbstractButton* m_cancelButton = nullptr;
    QAbstractButton* m_defaultButton = nullptr;
    QPointer<QWidget> m_focus; ///< the control that has the focus, or gets it when the form is in front
    Qt::FocusReason m_focusReason = Qt::OtherFocusReason; ///< how the control came by it
    int m_running = 0;
    int m_busy = 0;
    bool m_unloadWaits = false; ///< until the form is no longer busy
    bool m_loaded = false;
    bool m_away = false; ///< hidden or minimised after it was shown
    bool m_sizable = false;
    bool m_keyPreview = false;
};

} // namespace tol::forms
