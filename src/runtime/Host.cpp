// SPDX-License-Identifier: MIT
#include "runtime/Host.h"

#include "runtime/DeferredErrors.h"

#include <cstdlib>
#include <stdexcept>

namespace tol::runtime {
namespace {

Host* currentHost = nullptr;

std::vector<std::function<void()>>& flushers() {
    static std::vector<std::function<void()>> list;
    return list;
}

void runFlushers() {
    for (const auto& flusher : flushers()) {
        try {
            flusher();
        } catch (...) {
            deferError(std::current_exception());
        }
    }
}

} // namespace

MsgResult Host::msgBox(const std::string& text, MsgStyle style, const std::string& title) {
    if (waitsForAnswer(style))
        runFlushers();
    return showMsgBox(text, style, title);
}

void Host::end() {
    flush();
    endProgram();
    std::abort(); // no host may return from it
}

Host& host() {
    if (currentHost == nullptr)
        throw std::logic_error("no host is installed");
    return *currentHost;
}

HostScope::HostScope(Host& host) : m_before(currentHost) {
    currentHost = &host;
}

HostScope::~HostScope() {
    currentHost = m_before;
}

void addFlusher(std::function<void()> flusher) {
    flushers().push_back(std::move(flusher));
}

void flush() {
    runFlushers();
    raiseDeferred();
}

} // namespace tol::runtime
