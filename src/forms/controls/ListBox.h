// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/EventProcedure.h"
#include "forms/look/Twips.h"

#include <QListWidget>

#include <string>

namespace tol::forms {

/// A list of lines of which at most one is selected. Positions count from 0; -1 stands for none. The
/// procedures run guarded.
class ListBox : public QListWidget {
  public:
    /// Put on the parent, which owns it.
    static ListBox& add(QWidget& parent, const QString& name, Place where);

    void AddItem(const std::string& line);
    void Clear();
    [[nodiscard]] int ListCount() const { return count(); }
    [[nodiscard]] std::string List(int position) const;
    [[nodiscard]] int ListIndex() const;
    void ListIndex(int position);
    /// The selected line, "" when there is none.
    [[nodiscard]] std::string Text() const;

    /// A line has been selected by key or click.
    void onClick(EventProcedure procedure) { m_click = std::move(procedure); }
    /// A line has been clicked; not told of one that is selected by key.
    void onMouseClick(EventProcedure procedure) { m_mouseClick = std::move(procedure); }
    void onDblClick(EventProcedure procedure) { m_doubleClick = std::move(procedure); }
    /// Enter was pressed. Without a procedure it is the window's.
    void onEnter(EventProcedure procedure) { m_enter = std::move(procedure); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

    explicit ListBox(QWidget& parent);

  private:
    bool selectFirst(int key);

    EventProcedure m_click, m_mouseClick, m_doubleClick, m_enter;
    bool m_byProgram = false;
};

} // namespace tol::forms
