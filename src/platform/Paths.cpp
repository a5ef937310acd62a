// SPDX-License-Identifier: MIT
#include "platform/Paths.h"
