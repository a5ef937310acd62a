// SPDX-License-Identifier: MIT
#include "tolctl/Output.h"

#include <csignal>
#include <iostream>

#include <poll.h>
#include <unistd.h>

namespace tol::ctl {

bool finishOutput() {
    if (std::cout.flush())
        return true;
    std::cerr << "tolctl: standard output can't be written.\n";
    return false;
}

bool readerIsGone() {
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    return poll(&output, 1, 0) > 0 && (output.revents & POLLERR) != 0;
}

void outliveReader() {
    std::signal(SIGPIPE, SIG_IGN);
}

void printJsonValue(const nlohmann::ordered_json& value) {
    std::cout << value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void JsonArray::add(const std::vector<Member>& members) {
    std::cout << (m_empty ? "[\n  " : ",\n  ");
    m_empty = false;
    const char* separator = "{";
    for (const auto& [name, value] : members) {
        std::cout << separator;
        printJsonValue(name);
        std::cout << ": ";
        printJsonValue(value);
        separator = ", ";
    }
    std::cout << '}';
}

void JsonArray::end() {
    std::cout << (m_empty ? "[]" : "\n]");
}

} // namespace tol::ctl
