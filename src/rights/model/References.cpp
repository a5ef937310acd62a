// SPDX-License-Identifier: MIT
#include "rights/model/References.h"

#include "runtime/Text.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>

namespace tol::rights {
namespace {

std::string unknownCode() {
    return shell::vdRepeat("?", 8);
}

std::string unknownDescription() {
    return shell::vdRepeat("?", 30);
}

} // namespace

References::References(const RightsTables& tables)
    : items(tables.items, &AccessItem::UAITAG),
      templates(tables.templates, &Template::URTTAG),
      users(tables.users, &User::USERTAG) {}

AccessItem References::shownItem(std::int32_t UAITAG) const {
    if (const AccessItem* item = items.find(UAITAG))
        return *item;
    return {UAITAG, {}, unknownCode(), unknownDescription(), {}};
}

std::string References::shownTemplate(std::int32_t URTTAG) const {
    if (URTTAG == 0)
        return {};
    const Template* found = templates.find(URTTAG);
    return found != nullptr ? found->URTCODE : unknownCode();
}

bool sameName(std::string_view left, std::string_view right) {
    return runtime::sameText(runtime::trim(left), runtime::trim(right));
}

std::string nameKey(std::string_view name) {
    return runtime::foldCase(runtime::trim(name));
}

const User* findUser(const std::vector<User>& users, std::string_view name) {
    const auto found =
        std::ranges::find_if(users, [&](const User& user) { return sameName(user.UserName, name); });
    return found == users.end() ? nullptr : &*found;
}

const Template* findTemplate(const std::vector<Template>& templates, std::string_view code) {
    const auto found =
        std::ranges::find_if(templates, [&](const Template& entry) { return sameName(entry.URTCODE, code); });
    return found == templates.end() ? nullptr : &*found;
}

std::vector<const AccessItem*> findItems(const std::vector<AccessItem>& items, std::string_view code,
                                         std::string_view module) {
    std::vector<const AccessItem*> found;
    for (const AccessItem& item : items)
        if (sameName(item.UAICODE, code) && (shell::vdIsBlank(module) || sameName(item.MODULEID, module)))
            found.push_back(&item);
    return found;
}

} // namespace tol::rights
