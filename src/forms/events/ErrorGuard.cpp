// SPDX-License-Identifier: MIT
#include "forms/events/ErrorGuard.h"

#include "forms/events/Application.h"
#include "forms/windows/MessageBox.h"
#include "runtime/DeferredErrors.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"

#include <cstdlib>
#include <exception>
#include <fmt/format.h>
#include <string>

namespace tol::forms {
namespace {

constexpr runtime::MsgStyle errorStyle{runtime::MsgIcon::Critical, runtime::MsgButtons::Ok};

bool ending = false;

std::string textOf(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const runtime::RuntimeError& error) {
        return fmt::format("Run-time error '{}':\n\n{}", error.number(), error.description());
    } catch (const std::exception& error) {
        return fmt::format("Internal error:\n\n{}", error.what());
    } catch (...) {
        return "Internal error.";
    }
}

/// With what else could not be told before: nobody comes back to it.
std::string errorText() {
    std::string text = textOf(std::current_exception());
    while (const std::exception_ptr deferred = runtime::takeDeferred())
        text += "\n\n" + textOf(deferred);
    return text;
}

void showError(const std::string& text) {
    try {
        runtime::host().msgBox(text, errorStyle, Application::title());
    } catch (...) { // there may be no host yet
        showMessageBox(text, errorStyle, Application::title());
    }
}

} // namespace

bool endingOnError() {
    return ending;
}

void endOnError() noexcept {
    if (ending)
        return;
    ending = true;
    Application::setExitStatus(EXIT_FAILURE);
    try {
        showError(errorText());
        runtime::host().end();
    } catch (...) { // the end flushes waiting writes, too
        Application::leave();
    }
}

} // namespace tol::forms
