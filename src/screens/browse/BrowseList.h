// SPDX-License-Identifier: MIT
#pragma once

#include "screens/browse/BrowseDescription.h"
#include "screens/browse/BrowsePage.h"
#include "screens/browse/BrowseRows.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tol::screens {

/// What the keys and clicks of a list lead to. A key whose action is left out is none of the list's.
struct BrowseActions {
    std::function<void()> add = {}, edit = {}, remove = {}, exit = {};
    /// A move or a click whose record could not be read leads to this; without it the error is raised.
    std::function<void()> failed = {};
};

/// A list window's page over a table: a fixed number of rows, one of them highlighted, and a
/// recordset that is never loaded into memory. It knows only bookmarks: of the record in row 0, of the
/// highlighted one (" " on the End of List row and in an empty list), of the first and the last one. It
/// knows nothing of widgets. The recordset is the window's and is opened and closed by it, but
/// BrowseReload closes it and opens it again with `reopen`, if there is such.
///
/// Others may change the table at any time. A move that meets a blank mark, or one whose record is gone,
/// makes the list show itself afresh; it raises nothing.
class BrowseList {
  public:
    BrowseList(BrowsePage& page, BrowseDescription description, data::Recordset& recordset,
               std::function<data::Recordset()> reopen, BrowseActions actions);
    BrowseList(const BrowseList&) = delete;
    BrowseList& operator=(const BrowseList&) = delete;
    ~BrowseList() = default;

    /// First fill, when the window opens. A list without a parent is blank, with row 0 highlighted.
    void BrowseLoad();
    /// Opens the table afresh and finds the position again: the highlighted record keeps its row where the
    /// table allows it. Errors lead to the first record and show no message.
    void BrowseReload();
    /// Another index, and another column for the texts of a row without record; to be followed by BrowseLoad.
    void setOrder(std::string index, std::optional<int> descriptionColumn);
    /// Puts that record in row 0 and highlights it, after a look at where the list begins and ends now.
    void showFrom(const std::string& mark);
    /// Shows what others have changed, where the window itself has opened the table afresh. The highlight
    /// stays on its record, and on its row when the record is gone; a page that began with the first record
    /// still does where the highlight allows it. Unchanged rows are not painted again.
    void BrowseFollow();
    /// Repaints the page from the record in row 0.
    void BrowseFillPage();
    /// Moves the highlight: keyDown, keyUp, keyPageDown, keyPageUp, keyHome or keyEnd.
    void BrowseMove(int key);
    void BrowseRowClick(int row);
    /// A key of the window in browse state; sets the code to 0 when the list has used it.
    void BrowseKeyDown(int& key, int shift);
    /// Enter on the highlighted row: edit it, or add where there is none.
    void act();

    /// Sets the order and goes to the first record of the list; false when it has none.
    bool goToFirst();
    /// Whether the recordset stands on a record of this list.
    bool BrowseRowValid();
    /// What is on the page.
    [[nodiscard]] BrowseRows& rows() { return m_rows; }

    [[nodiscard]] const std::string& currentMark() const { return mCurMark; }
    [[nodiscard]] const std::string& topMark() const { return mTopMark; }
    [[nodiscard]] int row() const { return mRow; }
    /// For what an edit or a delete leads to; to be followed by BrowseReload.
    void setCurrent(std::string mark, int row);
    /// Goes to the highlighted record. False when there is none, or when somebody has deleted it; then
    /// the list shows itself afresh.
    bool goToCurrent();
    /// The row for a record to be added: the one behind the last record on the page, which scrolls up by
    /// one when it is full. `byCaption` takes the first row whose key caption is blank, else the
    /// rows are counted from the top record.
    int rowForAdd(bool byCaption);
    [[nodiscard]] const BrowseDescription& description() const { return m_description; }
    [[nodiscard]] data::Recordset& recordset() { return m_recordset; }

  private:
    void load();
    void reload();
    void reopen();
    void startOver();
    /// False when the list has no record.
    bool findEnds();
    void findLast();
    void placeCurrent();
    void follow();
    bool isThere(const std::string& mark);
    void findOrPlaceCurrent();
    void takeRecordOfRow();
    void fillPage();

    void move(int key);
    void moveDown();
    void moveUp();
    void moveUpFromEnd();
    void moveTo(const std::string& mark);
    void pageDown();
    void pageUp();
    void shiftPage(void (data::Recordset::*step)());
    void shift(std::string& mark, void (data::Recordset::*step)());
    bool findRow();
    void scrollOn();
    void topToNext();
    void highlight(int row);
    [[nodiscard]] int firstBlankRow() const;
    int rowBehindLastRecord();
    int scrolledIfFull(int row);

    void showEmptyList();
    void showAfresh();
    template <typename Work>
    void orAfresh(const Work& work);
    template <typename Work>
    void orFailed(const Work& work);
    [[nodiscard]] bool isSubset() const { return m_description.subset.keys != nullptr; }
    [[nodiscard]] bool isWithoutParent() const;

    BrowsePage& m_page;
    BrowseDescription m_description;
    BrowseRows m_rows;
    data::Recordset& m_recordset;
    std::function<data::Recordset()> m_reopen;
    BrowseActions m_actions;

    std::string mTopMark = " ", mCurMark = " ", mFirstMark = " ", mLastMark = " ", mTempMark = " ";
    std::optional<std::uint64_t>
        m_endsAsOf; ///< changes of the table when mFirstMark and mLastMark were found
    std::int16_t mRow = 0, mLastRow = 0, mCount = 0;
};

} // namespace tol::screens
