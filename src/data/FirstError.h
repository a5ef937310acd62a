// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/OwedErrors.h"

#include <exception>

namespace tol::data {

/// Runs steps that must all be tried, and raises the first error of them at the end. Further ones are owed.
class FirstError {
  public:
    template <typename Step>
    void attempt(Step&& step) {
        try {
            step();
        } catch (...) {
            if (m_error)
                runtime::owe(std::current_exception());
            else
                m_error = std::current_exception();
        }
    }

    void raise() const {
        if (m_error)
            std::rethrow_exception(m_error);
    }

  private:
    std::exception_ptr m_error;
};

} // namespace tol::data
