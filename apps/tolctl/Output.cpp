// SPDX-License-Identifier: MIT
#include "tolctl/Output.h"

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

} // namespace tol::ctl
