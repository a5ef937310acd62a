// SPDX-License-Identifier: MIT
#include "runtime/Host.h"

#include "runtime/OwedErrors.h"

#include <cstdlib>
#include <stdexcept>

namespace tol::runtime {
namespace {

Host* currentHost = nullptr;

std::vector<std::function<void()>>& settlers() {
    static std::vector<std::function<void()>> list;
    return list;
}

void runSettlers() {
    for (const auto& settler : settlers()) {
        try {
            settler();
        } catch (...) {
            owe(std::current_exception());
        }
    }
}

} // namespace

MsgResult Host::msgBox(const std::string& text, MsgStyle style, const std::string& title) {
    runSettlers();
    return showMsgBox(text, style, title);
}

void Host::end() {
    settle();
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

void addSettler(std::function<void()> settler) {
    settlers().push_back(std::move(settler));
}

void settle() {
    runSettlers();
    raiseOwed();
}

} // namespace tol::runtime
