// SPDX-License-Identifier: MIT
#include "definition_update/engine/DefinitionUpdate.h"
