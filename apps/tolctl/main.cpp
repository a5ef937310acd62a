// SPDX-License-Identifier: MIT
#include "tolctl/Program.h"

int main(int count, char** words) {
    return static_cast<int>(tol::ctl::Program().run(count, words));
}
