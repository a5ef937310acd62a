// SPDX-License-Identifier: MIT
#include "support/SecondProcess.h"

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <exception>
#include <stdexcept>

namespace tol::test {

namespace {

constexpr int failed = 99;
constexpr char step = '.';

bool sendStep(int channel) {
    return send(channel, &step, 1, MSG_NOSIGNAL) == 1;
}

bool receiveStep(int channel) {
    char received = 0;
    return recv(channel, &received, 1, 0) == 1;
}

} // namespace

void SecondProcess::Steps::done() const {
    if (!sendStep(m_channel))
        _exit(failed);
}

void SecondProcess::Steps::wait() const {
    if (!receiveStep(m_channel))
        _exit(failed);
}

SecondProcess::SecondProcess(const std::function<void(const Steps&)>& function) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error("no channel to a second process");
    std::fflush(nullptr); // or both processes write what waits
    m_process = fork();
    if (m_process < 0)
        throw std::runtime_error("no second process");
    close(ends[m_process > 0 ? 1 : 0]);
    if (m_process > 0) {
        m_channel = ends[0];
        return;
    }
    int status = 0;
    try {
        function(Steps(ends[1]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "second process: %s\n", error.what());
        status = failed;
    }
    std::fflush(nullptr);
    _exit(status);
}

SecondProcess::~SecondProcess() {
    if (m_process > 0)
        kill();
    close(m_channel);
}

int SecondProcess::kill() {
    ::kill(m_process, SIGKILL);
    return finish();
}

bool SecondProcess::await() const {
    return receiveStep(m_channel);
}

void SecondProcess::next() const {
    sendStep(m_channel);
}

int SecondProcess::finish() {
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace tol::test
