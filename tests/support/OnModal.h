// SPDX-License-Identifier: MIT
#pragma once

#include "support/ModalPerson.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <functional>
#include <utility>

namespace tol::test {

/// A person before the one modal window of that name that comes up while the object lives: acts in it, and
/// closes it if that has left it open, so that whoever shows it goes on.
class OnModal {
  public:
    OnModal(QString name, std::function<void(const WindowDriver&)> acts)
        : m_person(std::move(name), [acts = std::move(acts)](const WindowDriver& desk) {
              QWidget* window = QApplication::activeModalWidget();
              acts(desk);
              if (window->isVisible())
                  window->close();
          }) {}
    OnModal(const OnModal&) = delete;
    OnModal& operator=(const OnModal&) = delete;
    ~OnModal() { EXPECT_EQ(m_person.windows, 1); }

  private:
    ModalPerson m_person;
};

} // namespace tol::test
