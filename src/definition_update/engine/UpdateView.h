// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/SchemaNote.h"

#include <compare>
#include <string>
#include <string_view>

namespace tol::update {

/// What a run did or met: each has its row in the log.
enum class ActivityKind {
    DevelopmentDatabase,  ///< a shared database on a developer's machine is left alone
    DevelopmentDatabases, ///< so is a developer's own database, or copy of a site
    WNDPATHEmpty,         ///< a path database names no folder
    NETPATHEmpty,
    DatabaseNotFound,
    NoChanges,          ///< nothing was wrong with a database, or nothing that counts
    DatabaseIncomplete, ///< or not all of it was done
    OLDDEFInUse,        ///< a capture table can't be emptied
    OLDINDEXESInUse,
    TableAdded,
    FieldOfNewTable, ///< a field of a table just added
    FieldAdded,
    TableExists,     ///< a table to be added is there already
    TableNotDefined, ///< or has no field to be made
    TypeChanged,
    SizeChanged,
    FieldRemoved,
    TableRemoved,
    IndexCreated,
    IndexKeysChanged,
    IndexKeyAdded, ///< a field of the key of an index just created or changed
    IndexRemoved,
};

struct Activity {
    ActivityKind kind;
    std::string table = " ", index = " ", field = " "; ///< " " where none applies
    bool dataMayBeLost = false;                        ///< by a change of type or size
};

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

/// What the operator is asked about a value that can't convert.
enum class QuestionKind {
    LoseValue, ///< whether to go on without it; No ends the run
    WarnAgain, ///< whether to ask again in this field
};

struct Question {
    QuestionKind kind;
    std::string PATHNAME, DBNAME, TABLENAME, FIELDNAME; ///< where the value stands
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

/// How a run came out.
enum class RunOutcome {
    NotBegun,  ///< no database was touched
    BrokenOff, ///< an error that no procedure trapped ended it
    Stopped,   ///< it ended by a stop or the operator's No
    Finished,
};

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
    /// `row` tells it in texts, as it was stored.
    virtual void showActivity(const Activity& activity, const ActivityRow& row) = 0;
    /// The run has ended and the log was reopened: fill the activity list from its first row.
    virtual void fillActivity() = 0;
    /// Told of each database when its changes are done.
    virtual void showNote(const DefinitionNote& /*note*/) {}

    /// Asks the operator; true for Yes. As it is, by a box.
    virtual bool ask(const Question& question);

    // What a person at a window sees by the boxes and the activity list.
    virtual void showError(const ReportedError& /*error*/) {}
    virtual void showLeft(const LeftDatabase& /*database*/) {}
    /// May be told more than once.
    virtual void showMissing(const MissingFolder& /*folder*/) {}
};

/// What a refresh of the wanted definition shows while it works.
enum class RefreshLabel { DBNAME, DBDESC, TNAME, FNAME, INAME };

/// How far a refresh came.
enum class RefreshOutcome {
    NotBegun,     ///< nothing was emptied; the definition is the old one
    Incomplete,   ///< an error left a part of the definition
    Canceled,     ///< so did the operator
    WithoutLists, ///< the definition is whole, the network's lists may not be
    Finished,
};

class RefreshView {
  public:
    virtual ~RefreshView() = default;
    virtual void showLabel(RefreshLabel label, const std::string& text) = 0;
    /// The Cancel button may be pressed from now on.
    virtual void enableCancel() = 0;
};

} // namespace tol::update
