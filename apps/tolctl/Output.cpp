// SPDX-License-Identifier: MIT
#include "tolctl/Output.h"

#include <nlohmann/json.hpp>

#include <csignal>
#include <iostream>

namespace tol::ctl {

bool finishOutput() {
    if (std::cout.flush())
        return true;
    std::cerr << "tolctl: standard output can't be written.\n";
    return false;
}

void outliveReader() {
    std::signal(SIGPIPE, SIG_IGN);
}

void printJsonText(std::string_view text) {
    std::cout << nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void JsonArray::add(const std::vector<Member>& members) {
    std::cout << (m_empty ? "[\n  " : ",\n  ");
    m_empty = false;
    const char* separator = "{";
    for (const auto& [name, text] : members) {
        std::cout << separator;
        printJsonText(name);
        std::cout << ": ";
        printJsonText(text);
        separator = ", ";
    }
    std::cout << '}';
}

void JsonArray::end() {
    std::cout << (m_empty ? "[]" : "\n]");
}

} // namespace tol::ctl
