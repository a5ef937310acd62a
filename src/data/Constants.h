// SPDX-License-Identifier: MIT
#pragma once

namespace tol::data {

// Option values under the names that callers of such an interface know.
inline constexpr int dbUseJet = 2;        ///< kind of a workspace
inline constexpr int dbOpenTable = 1;     ///< kind of a recordset
inline constexpr int dbSeeChanges = 512;  ///< option of OpenRecordset
inline constexpr int dbPessimistic = 2;   ///< lock of OpenRecordset
inline constexpr int dbForceOSFlush = 1;  ///< option of CommitTrans
inline constexpr int dbUpdateRegular = 1; ///< type of Update

} // namespace tol::data
