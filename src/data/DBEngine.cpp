// SPDX-License-Identifier: MIT
#include "data/DBEngine.h"
