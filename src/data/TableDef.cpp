// SPDX-License-Identifier: MIT
#include "data/TableDef.h"
