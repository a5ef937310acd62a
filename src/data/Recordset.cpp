// SPDX-License-Identifier: MIT
#include "data/Recordset.h"
