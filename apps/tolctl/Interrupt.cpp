// SPDX-License-Identifier: MIT
#include "tolctl/Interrupt.h"

#include "tolctl/ExitStatus.h"

#include <csignal>
#include <initializer_list>

#include <signal.h>

namespace tol::ctl {
namespace {

volatile std::sig_atomic_t asked = 0;

void noteSignal(int /*number*/) {
    asked = 1;
}

} // namespace

void watchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = noteSignal;
    // Without SA_RESTART, so that a question that waits for its answer is broken off as well.
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before = {};
        sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_IGN)
            sigaction(number, &action, nullptr);
    }
}

bool interrupted() {
    return asked != 0;
}

void stopIfInterrupted() {
    if (interrupted())
        throw Stopped{};
}

} // namespace tol::ctl
