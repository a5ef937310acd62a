// SPDX-License-Identifier: MIT
#include "tolctl/Interrupt.h"

#include <cerrno>
#include <csignal>

#include <signal.h>
#include <sys/select.h>
#include <unistd.h>

namespace tol::ctl {
namespace {

volatile std::sig_atomic_t asked = 0;

constexpr int watched[] = {SIGINT, SIGTERM, SIGHUP};

void noteSignal(int /*number*/) {
    asked = 1;
}

/// Keeps the watched signals waiting while it lives.
class SignalsHeld {
  public:
    SignalsHeld() {
        sigset_t held{};
        sigemptyset(&held);
        for (const int number : watched)
            sigaddset(&held, number);
        pthread_sigmask(SIG_BLOCK, &held, &m_before);
    }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;
    ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

    [[nodiscard]] const sigset_t& before() const { return m_before; }

  private:
    sigset_t m_before{};
};

/// Waits for input; false when a stop is asked for. The signals are let in by the wait itself: one that came
/// between a look at the flag and the wait would be missed otherwise.
bool waitForInput() {
    const SignalsHeld signals;
    while (!interrupted()) {
        fd_set input;
        FD_ZERO(&input);
        FD_SET(STDIN_FILENO, &input);
        if (pselect(STDIN_FILENO + 1, &input, nullptr, nullptr, nullptr, &signals.before()) > 0)
            return true;
        if (errno != EINTR)
            return false;
    }
    return false;
}

} // namespace

void watchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = noteSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int number : watched) {
        struct sigaction before = {};
        sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_IGN)
            sigaction(number, &action, nullptr);
    }
}

bool interrupted() {
    return asked != 0;
}

std::optional<std::string> readLine() {
    std::string line;
    while (waitForInput()) {
        char next = 0;
        if (read(STDIN_FILENO, &next, 1) != 1)
            return line.empty() ? std::nullopt : std::optional(line);
        if (next == '\n')
            return line;
        line += next;
    }
    return std::nullopt;
}

Failure stopped() {
    return {ExitStatus::Stopped, "stopped."};
}

void stopIfInterrupted() {
    if (interrupted())
        throw stopped();
}

} // namespace tol::ctl
