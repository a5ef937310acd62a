// SPDX-License-Identifier: MIT
#include "screens/browse/BrowseList.h"

#include "runtime/Host.h"
#include "runtime/KeyCodes.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdRecords.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>
#include <utility>

namespace tol::screens {

using data::Recordset;
using enum runtime::KeyCode;
using runtime::RuntimeError;
using shell::vdIsBlank;
using shell::vdNotBlank;

namespace {

constexpr const char* noMark = " ";

/// Whether the error tells that a mark is blank, or that its record is gone.
bool tellsOfMark(const RuntimeError& error) {
    return error.number() == runtime::errInvalidBookmark || error.number() == runtime::errRecordDeleted ||
           error.number() == runtime::errNoCurrentRecord;
}

struct Key {
    int code;
    int move;                                     ///< what BrowseMove is told, or keyNone
    std::function<void()> BrowseActions::*action; ///< of a key that doesn't move
};

constexpr Key keys[] = {
    {keyDown, keyDown, nullptr},
    {keyRight, keyDown, nullptr},
    {keyUp, keyUp, nullptr},
    {keyLeft, keyUp, nullptr},
    {keyPageDown, keyPageDown, nullptr},
    {keyPageUp, keyPageUp, nullptr},
    {keyHome, keyHome, nullptr},
    {keyEnd, keyEnd, nullptr},
    {keyReturn, keyNone, &BrowseActions::edit},
    {keyDelete, keyNone, &BrowseActions::remove},
    {'A', keyNone, &BrowseActions::add},
    {'E', keyNone, &BrowseActions::edit},
    {'D', keyNone, &BrowseActions::remove},
    {'X', keyNone, &BrowseActions::exit},
};

/// The action may end the list's life, so it must not be the list's own copy that runs.
void run(std::function<void()> action) { // NOLINT(performance-unnecessary-value-param)
    if (action)
        action();
}

} // namespace

BrowseList::BrowseList(BrowsePage& page, BrowseDescription description, Recordset& recordset,
                       std::function<Recordset()> reopen, BrowseActions actions)
    : m_page(page),
      m_description(std::move(description)),
      m_rows(page, m_description),
      m_recordset(recordset),
      m_reopen(std::move(reopen)),
      m_actions(std::move(actions)),
      mLastRow(static_cast<std::int16_t>(m_description.rows - 1)) {}

bool BrowseList::isWithoutParent() const {
    return m_description.subset.parentIsBlank && m_description.subset.parentIsBlank();
}

bool BrowseList::BrowseRowValid() {
    return isSubset() ? shell::vdRecordOK(m_recordset, m_description.subset.keys(m_recordset))
                      : shell::vdRecordOK(m_recordset);
}

// ---------------------------------------------------------------- loading

void BrowseList::BrowseLoad() {
    try {
        load();
    } catch (const RuntimeError& error) {
        if (!tellsOfMark(error))
            throw;
        load(); // somebody deleted a record that it leans on
    }
}

void BrowseList::load() {
    m_rows.clear();
    mRow = 0;
    mTopMark = mCurMark = mFirstMark = mLastMark = noMark;
    if (isWithoutParent()) {
        m_rows.BrowseShowWithoutParent(mRow);
        return m_rows.BrowseRowOn(mRow);
    }
    if (!findEnds())
        return showEmptyList();
    mTopMark = mCurMark = mFirstMark;
    fillPage();
}

bool BrowseList::findEnds() {
    m_endsAsOf.reset();
    const std::uint64_t asOf = m_recordset.Changes();
    if (!goToFirst())
        return false;
    mFirstMark = m_recordset.Bookmark();
    findLast();
    m_endsAsOf = asOf;
    return true;
}

bool BrowseList::goToFirst() {
    m_recordset.CacheSize(m_description.rows); // most moves go on to the rows around
    if (isSubset())
        return vdNotBlank(
            shell::vdFindFirst(m_recordset, m_description.index, m_description.subset.keys(m_recordset)));
    m_recordset.Index(m_description.index);
    return !m_recordset.AtEOF();
}

/// Looked for from the end, so that it costs the same however many records there are.
void BrowseList::findLast() {
    if (isSubset()) {
        std::vector<runtime::Value> keys;
        for (const shell::KeyPair& pair : m_description.subset.keys(m_recordset))
            keys.push_back(pair.key);
        m_recordset.Seek("<=", keys);
        if (m_recordset.NoMatch() || !BrowseRowValid())
            runtime::raise(runtime::errRecordDeleted); // the first one has gone, and no other was there
    } else {
        m_recordset.MoveLast();
    }
    mLastMark = m_recordset.Bookmark();
}

void BrowseList::BrowseReload() {
    try {
        reload();
    } catch (const RuntimeError&) {
        if (!m_recordset.isOpen())
            throw;
        if (m_page.isShown())
            startOver();
    }
}

void BrowseList::reload() {
    if (isWithoutParent())
        return;
    mTopMark = mFirstMark = mLastMark = noMark;
    if (m_reopen)
        reopen();
    if (findEnds())
        placeCurrent();
    if (vdIsBlank(mFirstMark))
        showEmptyList();
    else
        fillPage();
}

/// Opens before it closes: nobody can take the table in between, and should it fail there still is one.
void BrowseList::reopen() {
    Recordset afresh = m_reopen();
    if (m_recordset.isOpen())
        m_recordset.Close();
    m_recordset = std::move(afresh);
}

/// Chooses the top record so that the highlighted one keeps its row, or moves up with the list's begin.
void BrowseList::placeCurrent() {
    mTopMark = mCurMark;
    const bool isRecord = vdNotBlank(mCurMark);
    auto count = static_cast<std::int16_t>(isRecord ? mRow : mRow - 1);
    m_recordset.Bookmark(isRecord ? mCurMark : mLastMark);
    if (!BrowseRowValid())
        runtime::raise(runtime::errRecordDeleted); // it has become another parent's
    for (; count >= 0 && BrowseRowValid(); --count) {
        mTopMark = m_recordset.Bookmark();
        if (count > 0)
            m_recordset.MovePrevious();
    }
    if (count >= 0)
        mRow = static_cast<std::int16_t>(mRow - (count + 1));
}

void BrowseList::setOrder(std::string index, std::optional<int> descriptionColumn) {
    m_description.index = std::move(index);
    m_description.descriptionColumn = descriptionColumn;
}

void BrowseList::showFrom(const std::string& mark) {
    orAfresh([&] {
        if (m_endsAsOf != m_recordset.Changes() && !findEnds())
            return showEmptyList();
        moveTo(mark);
    });
}

void BrowseList::startOver() {
    mRow = 0;
    if (goToFirst())
        mFirstMark = mCurMark = mTopMark = m_recordset.Bookmark();
    else
        mFirstMark = mLastMark = mCurMark = mTopMark = noMark;
    fillPage();
    m_page.takeFocus();
}

void BrowseList::BrowseFollow() {
    try {
        follow();
    } catch (const RuntimeError& error) {
        if (!tellsOfMark(error))
            throw;
        BrowseLoad(); // a record has gone meanwhile
    }
}

void BrowseList::follow() {
    if (!goToFirst()) {
        mTopMark = mFirstMark = mLastMark = noMark;
        return showEmptyList();
    }
    if (vdIsBlank(mFirstMark))
        return load(); // the list was empty
    const bool fromFirst = mTopMark == mFirstMark;
    mFirstMark = m_recordset.Bookmark();
    findLast();
    if (fromFirst || !isThere(mTopMark))
        mTopMark = mFirstMark;
    if (vdIsBlank(mCurMark) || isThere(mCurMark))
        findOrPlaceCurrent();
    else
        takeRecordOfRow();
    fillPage();
}

bool BrowseList::isThere(const std::string& mark) {
    try {
        m_recordset.Bookmark(mark);
        return BrowseRowValid();
    } catch (const RuntimeError& error) {
        if (!tellsOfMark(error))
            throw;
        return false;
    }
}

/// The page stays where it is if the highlighted record, or the end of the list, is on it.
void BrowseList::findOrPlaceCurrent() {
    const std::int16_t row = mRow;
    if (findRow())
        return;
    mRow = row;
    placeCurrent();
}

/// Highlights what stands in the highlighted row now; behind the last record, the end of the list.
void BrowseList::takeRecordOfRow() {
    m_recordset.Bookmark(mTopMark);
    for (mCount = 0; BrowseRowValid() && mCount < mRow; ++mCount)
        m_recordset.MoveNext();
    mRow = mCount;
    mCurMark = BrowseRowValid() ? m_recordset.Bookmark() : noMark;
}

void BrowseList::showEmptyList() {
    mRow = 0;
    mCurMark = noMark;
    m_rows.BrowseShowEmpty(mRow);
    for (int row = 1; row <= mLastRow; ++row) {
        m_rows.BrowseClearRow(row);
        m_rows.BrowseRowOff(row);
    }
    m_rows.BrowseRowOn(mRow);
}

/// A key or click meets a list of which nothing is known as an empty one that has got its first record.
void BrowseList::showAfresh() {
    mRow = std::clamp<std::int16_t>(mRow, 0, mLastRow);
    if (vdIsBlank(mFirstMark))
        BrowseLoad();
    else
        BrowseReload();
}

template <typename Work>
void BrowseList::orAfresh(const Work& work) {
    try {
        work();
    } catch (const RuntimeError& error) {
        if (!tellsOfMark(error))
            throw;
        showAfresh();
    }
}

template <typename Work>
void BrowseList::orFailed(const Work& work) {
    try {
        work();
    } catch (const RuntimeError&) {
        if (!m_actions.failed)
            throw;
        run(m_actions.failed);
    }
}

// ---------------------------------------------------------------- the page

void BrowseList::BrowseFillPage() {
    orAfresh([this] { fillPage(); });
}

void BrowseList::fillPage() {
    if (vdIsBlank(mTopMark)) {
        m_rows.clear();
        if (vdIsBlank(mFirstMark))
            m_rows.BrowseShowEmpty(0);
        else
            m_rows.BrowseShowEnd(0);
        return m_rows.BrowseRowOn(mRow);
    }
    bool isRecord = true, endIsDue = true;
    m_recordset.Bookmark(mTopMark);
    for (int row = 0; row <= mLastRow; ++row) {
        if (row > 0 && isRecord)
            m_recordset.MoveNext();
        isRecord = isRecord && BrowseRowValid();
        if (isRecord) {
            m_rows.BrowseFillRow(row, m_recordset);
        } else if (endIsDue) {
            m_rows.BrowseShowEnd(row);
            endIsDue = false;
        } else {
            m_rows.BrowseClearRow(row);
        }
        if (row != mRow)
            m_rows.BrowseRowOff(row);
    }
    m_rows.BrowseRowOn(mRow);
}

// ---------------------------------------------------------------- moving

void BrowseList::BrowseMove(int key) {
    orFailed([&] {
        if (!(isSubset() ? isWithoutParent() : m_recordset.IsEmpty()))
            orAfresh([&] { move(key); });
    });
}

void BrowseList::move(int key) {
    switch (key) {
    case keyDown:
        return moveDown();
    case keyUp:
        return moveUp();
    case keyHome:
        return moveTo(mFirstMark);
    case keyEnd:
        return moveTo(mLastMark);
    case keyPageDown:
        return pageDown();
    case keyPageUp:
        return pageUp();
    default:
        return;
    }
}

void BrowseList::moveDown() {
    if (vdIsBlank(mCurMark))
        return;
    m_rows.BrowseRowOff(mRow);
    m_recordset.Bookmark(mCurMark);
    m_recordset.MoveNext();
    const bool isRecord = BrowseRowValid();
    mCurMark = isRecord ? m_recordset.Bookmark() : noMark;
    if (++mRow > mLastRow) {
        scrollOn();
        if (isRecord)
            m_recordset.Bookmark(mCurMark);
    }
    if (isRecord) {
        m_rows.BrowseFillRow(mRow, m_recordset);
    } else {
        m_rows.BrowseShowEnd(mRow);
    }
    m_rows.BrowseRowOn(mRow);
}

/// Lets the page begin one record further on; the last row is to be filled.
void BrowseList::scrollOn() {
    mRow = mLastRow;
    topToNext();
    m_rows.BrowseScrollUp();
}

void BrowseList::topToNext() {
    m_recordset.Bookmark(mTopMark);
    m_recordset.MoveNext();
    mTopMark = m_recordset.Bookmark();
}

void BrowseList::moveUp() {
    if (vdIsBlank(mCurMark))
        return moveUpFromEnd();
    m_rows.BrowseRowOff(mRow);
    m_recordset.Bookmark(mCurMark);
    m_recordset.MovePrevious();
    if (!BrowseRowValid()) {
        mTopMark = mCurMark; // only the first record of all has none before it, and it stands in row 0
        return m_rows.BrowseRowOn(mRow);
    }
    mCurMark = m_recordset.Bookmark();
    if (--mRow < 0) {
        mRow = 0;
        mTopMark = mCurMark;
        m_rows.BrowseScrollDown();
    }
    m_rows.BrowseFillRow(mRow, m_recordset);
    m_rows.BrowseRowOn(mRow);
}

/// The record above the End of List row is the last one. It comes in at row 0 when there is no row above.
void BrowseList::moveUpFromEnd() {
    m_recordset.Bookmark(mLastMark);
    mCurMark = mLastMark;
    m_rows.BrowseRowOff(mRow);
    if (--mRow >= 0)
        return m_rows.BrowseRowOn(mRow);
    mRow = 0;
    mTopMark = mCurMark;
    fillPage();
}

void BrowseList::moveTo(const std::string& mark) {
    m_recordset.Bookmark(mark);
    mTopMark = mCurMark = mark;
    mRow = 0;
    fillPage();
}

void BrowseList::pageDown() {
    if (vdIsBlank(mCurMark))
        return;
    shiftPage(&Recordset::MoveNext);
}

void BrowseList::pageUp() {
    if (vdIsBlank(mCurMark)) {
        m_recordset.Bookmark(mLastMark);
        --mRow;
        mCurMark = mLastMark;
    }
    shiftPage(&Recordset::MovePrevious);
}

/// Moves the highlighted and the top record by a page, each at most to the end of the list, so that the
/// highlight keeps its row unless an end stops one of the two.
void BrowseList::shiftPage(void (Recordset::*step)()) {
    const std::int16_t row = mRow;
    shift(mCurMark, step);
    shift(mTopMark, step);
    if (findRow())
        return fillPage();
    mRow = row; // others have put so much between the two that they don't fit on one page
    showAfresh();
}

void BrowseList::shift(std::string& mark, void (Recordset::*step)()) {
    m_recordset.Bookmark(mark);
    for (mCount = 0; BrowseRowValid() && mCount <= mLastRow; ++mCount) {
        mark = m_recordset.Bookmark();
        (m_recordset.*step)();
    }
}

/// Counts the highlighted row from the top record; false when it is not on the page.
bool BrowseList::findRow() {
    m_recordset.Bookmark(mTopMark);
    mRow = 0;
    for (mCount = 0; BrowseRowValid() && mCount <= mLastRow; ++mCount, ++mRow) {
        mTempMark = m_recordset.Bookmark();
        if (mTempMark == mCurMark)
            return true;
        m_recordset.MoveNext();
    }
    return vdIsBlank(mCurMark) && mRow <= mLastRow; // the End of List row
}

// ---------------------------------------------------------------- clicks and keys

void BrowseList::BrowseRowClick(int row) {
    orFailed([&] {
        if (m_rows.isBlank(row) || m_recordset.IsEmpty())
            return m_page.takeFocus();
        if (row == mRow)
            return act();
        orAfresh([&] { highlight(row); });
    });
}

/// Others may have left fewer records than the page shows; then nothing but the page changes.
void BrowseList::highlight(int row) {
    m_recordset.Bookmark(mTopMark);
    for (mCount = 0; BrowseRowValid(); ++mCount) {
        if (mCount == row) {
            m_rows.BrowseRowOff(mRow);
            mRow = static_cast<std::int16_t>(row);
            m_rows.BrowseRowOn(mRow);
            mCurMark = m_recordset.Bookmark();
            return;
        }
        m_recordset.MoveNext();
    }
    showAfresh();
}

void BrowseList::BrowseKeyDown(int& key, int /*shift*/) {
    const auto* const found = std::ranges::find(keys, key, &Key::code);
    if (found == std::end(keys) || (found->action != nullptr && !(m_actions.*found->action)))
        return;
    const int code = std::exchange(key, keyNone);
    if (found->move != keyNone)
        BrowseMove(found->move);
    else if (code == keyReturn)
        act();
    else if (code != keyDelete || vdNotBlank(mCurMark))
        run(m_actions.*found->action);
}

void BrowseList::act() {
    run(vdIsBlank(mCurMark) ? m_actions.add : m_actions.edit);
}

// ---------------------------------------------------------------- for adding, editing and deleting

void BrowseList::setCurrent(std::string mark, int row) {
    mCurMark = std::move(mark);
    mRow = static_cast<std::int16_t>(row);
}

bool BrowseList::goToCurrent() {
    if (vdIsBlank(mCurMark))
        return false;
    bool isThere = false;
    orAfresh([&] {
        m_recordset.Bookmark(mCurMark);
        isThere = true;
    });
    return isThere;
}

int BrowseList::rowForAdd(bool byCaption) {
    const auto find = [&] { return byCaption ? firstBlankRow() : rowBehindLastRecord(); };
    try {
        return scrolledIfFull(find());
    } catch (const RuntimeError& error) {
        if (!tellsOfMark(error))
            throw;
    }
    showAfresh();
    return scrolledIfFull(find());
}

/// mLastRow + 1 when the page is full.
int BrowseList::firstBlankRow() const {
    int row = 0;
    while (row <= mLastRow && !m_rows.isBlank(row))
        ++row;
    return row;
}

/// mLastRow + 1 when the page is full.
int BrowseList::rowBehindLastRecord() {
    if (vdIsBlank(mCurMark))
        return mRow;
    m_recordset.Bookmark(mTopMark);
    for (mCount = 0; BrowseRowValid() && mCount <= mLastRow; ++mCount)
        m_recordset.MoveNext();
    return mCount;
}

/// The highlight stays in its row, so it is on the next record, or on End of List, when the page has
/// scrolled.
int BrowseList::scrolledIfFull(int row) {
    if (row <= mLastRow)
        return row;
    topToNext();
    if (vdNotBlank(mCurMark)) {
        m_recordset.Bookmark(mCurMark);
        m_recordset.MoveNext();
        mCurMark = BrowseRowValid() ? m_recordset.Bookmark() : noMark;
    }
    m_rows.BrowseScrollUp();
    m_rows.BrowseShowEnd(mLastRow);
    return mLastRow;
}

} // namespace tol::screens
