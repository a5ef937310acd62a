// SPDX-License-Identifier: MIT
#include "data/Field.h"
