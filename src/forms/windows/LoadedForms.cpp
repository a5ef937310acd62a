// SPDX-License-Identifier: MIT
#include "forms/windows/LoadedForms.h"

#include <QCoreApplication>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace tol::forms {
namespace {

std::vector<QWidget*> loaded;

} // namespace

int LoadedForms::Count() {
    return static_cast<int>(loaded.size());
}

QWidget& LoadedForms::Item(int position) {
    return *loaded.at(static_cast<std::size_t>(position));
}

QWidget* LoadedForms::find(const QString& name) {
    const auto found = std::ranges::find(loaded, name, &QWidget::objectName);
    return found == loaded.end() ? nullptr : *found;
}

void LoadedForms::add(QWidget& form) {
    loaded.push_back(&form);
}

void LoadedForms::remove(QWidget& form) {
    std::erase(loaded, &form);
    if (loaded.empty())
        QCoreApplication::quit();
}

} // namespace tol::forms
