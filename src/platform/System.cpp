// SPDX-License-Identifier: MIT
#include "platform/System.h"
