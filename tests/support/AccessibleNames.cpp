// SPDX-License-Identifier: MIT
#include "support/AccessibleNames.h"

#include <QAccessible>
#include <QLabel>

#include <algorithm>
#include <iterator>

namespace tol::test {
namespace {

constexpr QAccessible::Role namedRoles[] = {
    QAccessible::Button,   QAccessible::CheckBox, QAccessible::RadioButton, QAccessible::EditableText,
    QAccessible::ComboBox, QAccessible::List,     QAccessible::ListItem,    QAccessible::Graphic,
    QAccessible::MenuItem, QAccessible::Slider,   QAccessible::PageTab,
};

bool needsName(const QAccessibleInterface& control) {
    if (control.parent() != nullptr && control.role() == QAccessible::ScrollBar)
        return control.state().focusable; // the others belong to a list that scrolls
    const auto* label = qobject_cast<QLabel*>(control.object());
    return std::ranges::find(namedRoles, control.role()) != std::end(namedRoles) ||
           (label != nullptr && !label->pixmap().isNull());
}

std::string describe(const QAccessibleInterface& control) {
    const QString name = control.object() != nullptr ? control.object()->objectName() : QString();
    return std::to_string(control.role()) + " " + name.toStdString();
}

void collect(const QAccessibleInterface& control, std::vector<std::string>& nameless) {
    if (!control.isValid() || control.state().invisible)
        return;
    if (needsName(control) && control.text(QAccessible::Name).trimmed().isEmpty())
        nameless.push_back(describe(control));
    for (int i = 0; i < control.childCount(); ++i)
        if (const QAccessibleInterface* child = control.child(i))
            collect(*child, nameless);
}

} // namespace

std::vector<std::string> controlsWithoutName(QWidget& window) {
    std::vector<std::string> nameless;
    collect(*QAccessible::queryAccessibleInterface(&window), nameless);
    return nameless;
}

} // namespace tol::test
