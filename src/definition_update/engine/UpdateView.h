// SPDX-License-Identifier: MIT
#pragma once

#include "data/SchemaNote.h"

#include <compare>
#include <string>
#include <string_view>

namespace tol::update {

/// One row of ACTIVITYLOG, as it is stored and shown.
struct ActivityRow {
    std::string PATHNAME, DBNAME, TABLENAME, INDEXNAME, FIELDNAME, Action, FDATE, PTIME;
};

/// What a change could not keep of what another program had declared in its file.
struct DefinitionNote {
    std::string PATHNAME, DBNAME;
    data::SchemaNote note;
    bool operator==(const DefinitionNote&) const = default;
};

/// An error that ended one of a run's procedures, after the box that told of it.
struct ReportedError {
    std::string_view procedure;
    int number;                                         ///< of the run-time error
    std::string PATHNAME, DBNAME, TABLENAME, FIELDNAME; ///< what was in work
    std::string box;                                    ///< its text
    auto operator<=>(const ReportedError&) const = default;
};

/// A database that was left before its update had come to an end.
struct LeftDatabase {
    std::string PATHNAME, DBNAME;
    std::string box; ///< text of the box that tells why
};

/// A folder, or a whole drive ("S:"), in which a database was looked for and which is not there.
struct MissingFolder {
    std::string PATHNAME, folder;
    bool operator==(const MissingFolder&) const = default;
};

/// The labels that a run writes to.
enum class RunLabel {
    NPPATHNAME, ///< Job Site, at the end "Finished" or "STOPPED"
    NPPATHTEXT, ///< location, at the end the closing sentence
    NPDBNAME,   ///< database
    NP2,        ///< table
    NP4,        ///< number of the record in work
    NP6,        ///< number of records
};

enum class RunState { Running, Ended };

/// What a run of the update shows while it works: the window, the terminal program and the tests each
/// implement it. Every call is made on the caller's thread; none may throw.
class UpdateView {
  public:
    virtual ~UpdateView() = default;

    /// Shows or enables what belongs to the state. `Ended` is not told when the run broke off with an error.
    virtual void showState(RunState state) = 0;
    /// The site at that place of the tag list is now shown as tagged.
    virtual void showTagged(int index) = 0;
    virtual void showLabel(RunLabel label, const std::string& text) = 0;
    /// The record labels ("Record: n of m") appear and disappear together.
    virtual void showRecordLabels(bool visible) = 0;
    /// The activity list's row pointer goes back to the first row; its rows stay until others take their
    /// places.
    virtual void resetActivity() = 0;
    virtual void showActivity(const ActivityRow& row) = 0;
    /// The run has ended and the log was reopened: fill the activity list from its first row.
    virtual void fillActivity() = 0;
    /// Told of each database when its changes are done.
    virtual void showNote(const DefinitionNote& /*note*/) {}

    // What a person at a window sees by the boxes and the activity list.
    virtual void showError(const ReportedError& /*error*/) {}
    virtual void showLeft(const LeftDatabase& /*database*/) {}
    /// May be told more than once.
    virtual void showMissing(const MissingFolder& /*folder*/) {}
};

/// What a refresh of the wanted definition shows while it works.
enum class RefreshLabel { DBNAME, DBDESC, TNAME, FNAME, INAME };

class RefreshView {
  public:
    virtual ~RefreshView() = default;
    virtual void showLabel(RefreshLabel label, const std::string& text) = 0;
    /// The Cancel button may be pressed from now on.
    virtual void enableCancel() = 0;
};

} // namespace tol::update
