// SPDX-License-Identifier: MIT
#include "Pty.h"

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

namespace tol::test {

Pty::Pty(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    winsize size{};
    size.ws_row = 24;
    size.ws_col = width;
    m_process = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_process < 0)
        throw std::runtime_error("no terminal");
    if (m_process == 0) {
        execv(program.c_str(), words.data());
        _exit(127);
    }
}

Pty::~Pty() {
    if (m_process > 0) {
        ::kill(m_process, SIGKILL);
        wait();
    }
    close(m_terminal);
}

bool Pty::readUntil(const std::string& text, int times) {
    for (;;) {
        std::size_t at = 0;
        int found = 0;
        while (found < times && (at = m_shown.find(text, at)) != std::string::npos) {
            ++found;
            at += text.size();
        }
        if (found == times)
            return true;
        if (!readSome())
            return false;
    }
}

void Pty::type(const std::string& text) const {
    if (write(m_terminal, text.data(), text.size()) < 0)
        throw std::runtime_error("nobody reads");
}

int Pty::wait() {
    while (readSome()) {
    }
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

bool Pty::readSome() {
    std::array<char, 4096> part{};
    const ssize_t count = read(m_terminal, part.data(), part.size());
    if (count <= 0)
        return false;
    m_shown.append(part.data(), static_cast<std::size_t>(count));
    return true;
}

} // namespace tol::test
