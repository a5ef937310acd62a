// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"

#include <string>

namespace tol::shell {

/// Opens SITEINFO, the company's name and address, in a database of a folder: in MAIN.MDB when none is named.
data::OpenTable openSiteInformation(const std::string& folder, const std::string& database);

/// Goes to the table's only record, which an empty table gains.
void moveToSiteInformation(data::Recordset& SITEINFO);

} // namespace tol::shell
