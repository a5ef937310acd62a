// SPDX-License-Identifier: MIT
#pragma once

#include "CaseFolder.h"

namespace tol::test {

/// A case with one Job Site, "NORTH YARD" in C:\NORTH, whose one database WORK has the table CREW. The
/// wanted definition makes texts of CREW longer, adds a field, and may ask for more.
class WorkCase : public CaseFolder {
  public:
    WorkCase();

    /// Adds a field of CREW with a value for each of three rows, and the type in which it is wanted.
    void addField(const std::string& name, int type, const Json& values, int wantedType, int wantedSize);
    /// Makes all databases.
    void finish();

    [[nodiscard]] Json crew() const { return rows("drives/c/NORTH/WORK.MDB", "CREW"); }

  private:
    Json m_fields;
    Json m_rows;
};

/// Actions of the log rows of one report, in order.
std::vector<std::string> actionsOf(const Json& report);

} // namespace tol::test
