// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/MdiArea.h"

#include <QMainWindow>

#include <memory>

namespace tol::forms {

class Form;

/// A main window with a menu and an area of child windows. It is loaded once and stays hidden until it is
/// shown. Closing it unloads its children first; then its own Unload runs. It can't be closed while one of
/// them is busy or may not be closed. It belongs to its maker, the children belong to it.
class MdiForm : public QMainWindow {
  public:
    explicit MdiForm(const QString& name);
    MdiForm(const MdiForm&) = delete;
    MdiForm& operator=(const MdiForm&) = delete;
    ~MdiForm() override;

    void load();
    [[nodiscard]] bool isLoaded() const { return m_loaded; }
    void unload();

    /// Loads the form, puts it in the middle of the area and shows it. What the area has no room for can be
    /// scrolled to.
    void showChild(std::unique_ptr<Form> child);
    void arrange(Arrangement style) { m_area.arrange(style); }

    /// Size of the window with its frame in twips, as far as the screen has room for it.
    void setSize(int width, int height);
    /// Size of the area that children lie in, in twips.
    [[nodiscard]] int scaleWidth() const;
    [[nodiscard]] int scaleHeight() const;

  protected:
    virtual void onLoad() {}
    virtual void onUnload() {}
    /// A click on the area where no child lies.
    virtual void onClick() {}

    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    [[nodiscard]] bool childrenMayClose() const;
    void unloadChildren();
    void takeSize();

    MdiArea& m_area;   // the window's central widget
    QSize m_wholeSize; // with the frame, in pixels
    bool m_loaded = false;
    bool m_shownBefore = false;
};

} // namespace tol::forms
