// SPDX-License-Identifier: MIT
#include "data/Definition.h"
