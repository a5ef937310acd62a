// SPDX-License-Identifier: MIT
#include "rights/model/FillFromTemplate.h"

#include "runtime/Host.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdRecords.h"

namespace tol::rights {
namespace {

// Without a yield, at which the person could begin something else with half of the rows.
void deleteFilledBefore(data::Recordset& rights, const TemplateFill& fill) {
    const auto seek = [&] { rights.Seek("=", {fill.userTag, fill.urtTag}); };
    rights.Index("URTTAG");
    for (seek(); !rights.NoMatch(); seek())
        rights.Delete();
}

void addRight(data::Recordset& rights, data::Recordset& item, const TemplateFill& fill) {
    rights.AddNew();
    rights.Fields("USERTAG").Value(fill.userTag);
    rights.Fields("UAITAG").Value(shell::vdNullCheck(item.Fields("UAITAG")));
    rights.Fields("ALLOWED").Value(shell::vdNullCheck(item.Fields("ALLOWED")));
    rights.Fields("URTTAG").Value(fill.urtTag);
    rights.Update();
}

} // namespace

std::int64_t FillFromTemplate(data::Recordset& rights, data::Recordset& items, const TemplateFill& fill,
                              const std::function<bool()>& goesOn) {
    deleteFilledBefore(rights, fill);
    const shell::KeyPairs ofTemplate{{fill.urtTag, items.Fields("URTTAG")}};
    items.Index("URTITEMS");
    items.Seek("=", {fill.urtTag});
    std::int64_t written = 0;
    while (shell::vdRecordOK(items, ofTemplate)) {
        addRight(rights, items, fill);
        ++written;
        runtime::host().doEvents();
        if (!goesOn())
            break;
        items.MoveNext();
    }
    return written;
}

} // namespace tol::rights
