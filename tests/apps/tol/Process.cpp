// SPDX-License-Identifier: MIT
#include "Process.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tol::test {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace {

constexpr int notStarted = 127;

[[noreturn]] void become(const std::vector<char*>& arguments, const Process::Environment& environment,
                         int output) {
    for (const auto& [name, value] : environment)
        setenv(name.c_str(), value.c_str(), 1);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    execvp(arguments.front(), arguments.data());
    _exit(notStarted);
}

} // namespace

Process::Process(std::vector<std::string> command, const Environment& environment,
                 const std::filesystem::path& output) {
    std::vector<char*> arguments;
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    const int file = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0)
        throw std::runtime_error("can't write " + output.string());
    m_process = fork();
    if (m_process == 0)
        become(arguments, environment, file);
    close(file);
    if (m_process < 0)
        throw std::runtime_error("can't start " + command.front());
}

Process::~Process() {
    end();
}

bool Process::isRunning() {
    return !collect();
}

std::optional<int> Process::wait(std::chrono::seconds atMost) {
    const auto until = steady_clock::now() + atMost;
    while (!collect() && steady_clock::now() < until)
        std::this_thread::sleep_for(10ms);
    if (!m_over || !WIFEXITED(m_status))
        return {};
    return WEXITSTATUS(m_status);
}

void Process::end() {
    if (collect())
        return;
    kill(m_process, SIGTERM);
    wait(5s);
    if (collect())
        return;
    kill(m_process, SIGKILL);
    waitpid(m_process, &m_status, 0);
    m_over = true;
}

bool Process::collect() {
    m_over = m_over || waitpid(m_process, &m_status, WNOHANG) == m_process;
    return m_over;
}

} // namespace tol::test
