// SPDX-License-Identifier: MIT
#include "support/Program.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <thread>

namespace tol::test {

namespace {

/// A nameless file in memory, so that a program that writes much never waits for its reader.
int memoryFile() {
    const int file = memfd_create("output", MFD_CLOEXEC);
    if (file < 0)
        throw std::runtime_error("no memory for a program's output");
    return file;
}

std::string contentOf(int file) {
    std::string content;
    std::array<char, 4096> part{};
    for (;;) {
        const ssize_t count = pread(file, part.data(), part.size(), static_cast<off_t>(content.size()));
        if (count <= 0)
            return content;
        content.append(part.data(), static_cast<std::size_t>(count));
    }
}

} // namespace

Program::Program(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                 const std::filesystem::path& folder, const std::function<void()>& prepare)
    : m_out(memoryFile()), m_err(memoryFile()) {
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    m_process = fork();
    if (m_process < 0)
        throw std::runtime_error("no new process");
    if (m_process > 0)
        return;
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    dup2(nothing, STDIN_FILENO);
    dup2(m_out, STDOUT_FILENO);
    dup2(m_err, STDERR_FILENO);
    if (chdir(folder.c_str()) == 0) {
        if (prepare)
            prepare();
        execv(program.c_str(), words.data());
    }
    _exit(127);
}

Program::~Program() {
    if (m_process > 0)
        kill();
    close(m_out);
    close(m_err);
}

int Program::wait() {
    if (m_process > 0) {
        int status = 0;
        waitpid(m_process, &status, 0);
        keep(status);
    }
    return m_status;
}

bool Program::waitFor(std::chrono::milliseconds atMost) {
    const auto until = std::chrono::steady_clock::now() + atMost;
    for (int status = 0; m_process > 0; std::this_thread::sleep_for(std::chrono::milliseconds(10))) {
        if (waitpid(m_process, &status, WNOHANG) > 0)
            keep(status);
        else if (std::chrono::steady_clock::now() >= until)
            return false;
    }
    return true;
}

void Program::keep(int status) {
    m_process = -1;
    m_status = WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

void Program::end() {
    if (m_process > 0)
        ::kill(m_process, SIGTERM);
    if (!waitFor(std::chrono::seconds(5)))
        kill();
}

int Program::kill() {
    if (m_process > 0)
        ::kill(m_process, SIGKILL);
    return wait();
}

void Program::signal(int number) const {
    if (m_process > 0)
        ::kill(m_process, number);
}

std::string Program::out() const {
    return contentOf(m_out);
}

std::string Program::err() const {
    return contentOf(m_err);
}

} // namespace tol::test
