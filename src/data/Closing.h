// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/DeferredErrors.h"

#include <exception>
#include <memory>

namespace tol::data {

/// Closes what a handle that goes away stood for. It can't raise an error then, so that the error is
/// deferred.
template <typename Core>
void closeOrDefer(const std::shared_ptr<Core>& core) noexcept {
    try {
        if (core)
            core->close();
    } catch (...) {
        runtime::deferError(std::current_exception());
    }
}

/// Runs steps that must all be tried, and raises the first error of them at the end. Further ones are
/// deferred.
class FirstError {
  public:
    template <typename Step>
    void attempt(Step&& step) {
        try {
            step();
        } catch (...) {
            if (m_error)
                runtime::deferError(std::current_exception());
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
