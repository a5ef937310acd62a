// SPDX-License-Identifier: MIT
#include "definition_update/windows/JobSiteList.h"

#include "runtime/Host.h"

#include <algorithm>

namespace tol::update {
namespace {

constexpr int tickColumn = 2;
constexpr const char* tick = "\u2713";
constexpr const char* noTick = " ";

} // namespace

JobSiteList::JobSiteList(forms::Form& form, int left, int top, forms::EventProcedure tag)
    : m_panel(form, description(), {left, top, "hsbMAIN", "cmdVDB", "Job Sites"}), m_tag(std::move(tag)) {
    m_panel.setAction("Tag/Untag a Job Site", m_tag);
}

screens::BrowseDescription JobSiteList::description() const {
    return {.index = "DBPATHS",
            .columns = {{"lblPATHNAME", "lblHPATHNAME", "Job Site", 2100, "PATHNAME"},
                        {"lblPATHTEXT", "lblHPATHTEXT", " Location of Database Files", 4350, "PathText",
                         nullptr, screens::TextCut::Middle},
                        {"lblTAG", "lblHTAG", "Tag", 600, "",
                         [this](data::Recordset& site) { return tickOf(site); }}},
            .descriptionColumn = 1,
            .rows = 8,
            .endText = "End of List",
            .emptyText = "List is Empty"};
}

std::string JobSiteList::tickOf(const data::Recordset& site) const {
    const std::int32_t DBTAG = siteOf(site).DBTAG;
    const bool tagged = DBTAG != 0 && std::ranges::find(m_update->tagList(), DBTAG, &TaggedSite::DBTAG) !=
                                          m_update->tagList().end();
    return tagged ? tick : noTick;
}

void JobSiteList::open(DefinitionUpdate& update) {
    m_update = &update;
    m_list = std::make_unique<screens::BrowseList>(
        m_panel, description(), update.DBPATHS(), [this] { return m_update->openDBPATHS(); },
        screens::BrowseActions{});
    m_panel.connectTo(*m_list, [this](int) { takeFocus(); });
    m_list->BrowseLoad();
}

void JobSiteList::close() {
    m_panel.disconnect();
    m_list.reset();
    m_update = nullptr;
}

void JobSiteList::retire() {
    m_list->rows().BrowseRowOff(m_list->row());
    m_panel.disconnect();
    setInUse(false);
}

bool JobSiteList::isEmpty() const {
    return m_list->recordset().RecordCount() == 0;
}

std::string JobSiteList::currentMark() const {
    return m_list->currentMark();
}

void JobSiteList::toggleTag() {
    if (!isEmpty() && m_list->goToCurrent()) {
        setTick(toggle(siteOf(m_list->recordset())));
        m_list->BrowseMove(forms::keyDown);
    }
    takeFocus();
}

/// Whether the site is tagged now. The box names the highest index, which is one less than the places.
bool JobSiteList::toggle(const TaggedSite& site) {
    TagList& tags = m_update->tagList();
    const auto tagged = std::ranges::find(tags, site.DBTAG, &TaggedSite::DBTAG);
    if (tagged != tags.end()) {
        *tagged = {};
        return false;
    }
    const auto free = std::ranges::find(tags, 0, &TaggedSite::DBTAG);
    if (free != tags.end()) {
        *free = site;
        return true;
    }
    runtime::host().msgBox(
        "The Maximum Number of Tagged Items has Been Reached. \nMaximum Number of Tagged Items is " +
            std::to_string(maxTaggedItems - 1),
        {runtime::MsgIcon::Exclamation}, "To Many Tagged Items");
    return false;
}

void JobSiteList::tagAll() {
    if (!isEmpty()) {
        data::Recordset& sites = m_list->recordset();
        m_update->tagList().fill({});
        sites.MoveFirst();
        for (TaggedSite& place : m_update->tagList()) {
            if (!m_list->BrowseRowValid())
                break;
            place = siteOf(sites);
            sites.MoveNext();
        }
        m_list->BrowseFillPage();
    }
    takeFocus();
}

void JobSiteList::clearTags() {
    if (!isEmpty()) {
        m_update->tagList().fill({});
        m_list->BrowseFillPage();
    }
    takeFocus();
}

void JobSiteList::tickCurrent() {
    setTick(true);
}

void JobSiteList::setTick(bool tagged) {
    m_list->rows().setCaption(m_list->row(), tickColumn, tagged ? tick : noTick);
}

void JobSiteList::keyDown(forms::KeyPress& key) {
    if (m_list == nullptr || !m_panel.isInUse())
        return;
    m_list->BrowseKeyDown(key.code, key.shift);
    if (key.code != 'T')
        return;
    key.code = forms::keyNone;
    m_tag();
}

} // namespace tol::update
