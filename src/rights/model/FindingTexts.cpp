// SPDX-License-Identifier: MIT
#include "rights/model/RightsCheck.h"

#include "runtime/Overloaded.h"
#include "runtime/Text.h"

#include <fmt/format.h>

#include <array>

namespace tol::rights {
namespace {

struct KindTexts {
    FindingKind kind;
    const char* word;
    const char* sentence; ///< of what the row's tags refer to
};

constexpr std::array<KindTexts, 10> kinds = {{
    {FindingKind::RightWithoutItem, "right-without-item",
     "User {user} has a right to item {item}, which does not exist."},
    {FindingKind::RightWithoutUser, "right-without-user",
     "A right to item {item} is kept for user {user}, who does not exist."},
    {FindingKind::RightWithDeadTemplate, "right-with-dead-template",
     "User {user} has a right to item {item} from template {template}, which does not exist."},
    {FindingKind::TemplateItemWithoutItem, "template-item-without-item",
     "Template {template} names item {item}, which does not exist."},
    {FindingKind::TemplateItemWithoutTemplate, "template-item-without-template",
     "Item {item} is kept for template {template}, which does not exist."},
    {FindingKind::ItemWithoutModule, "item-without-module",
     "Item {item} belongs to module \"{module}\", which does not exist."},
    {FindingKind::DoubledRight, "doubled-right",
     "User {user} has a right to item {item} {times} times {source}."},
    {FindingKind::DoubledTemplateItem, "doubled-template-item",
     "Template {template} names item {item} {times} times."},
    {FindingKind::CounterTooLow, "counter-too-low",
     "The next {counter} to be given out is {next}, but {highest} is in use already."},
    {FindingKind::UnknownModuleSelected, "unknown-module-selected",
     "Module \"{module}\" is selected, but does not exist."},
}};

const KindTexts& textsOf(FindingKind kind) {
    return kinds[static_cast<std::size_t>(kind)];
}

/// The name behind a tag, and the tag itself.
template <typename Row>
std::string named(const Row* row, std::string Row::*name, std::int32_t tag) {
    return row == nullptr ? fmt::format("{}", tag) : fmt::format("{} ({})", runtime::trim(row->*name), tag);
}

} // namespace

const char* wordFor(FindingKind kind) {
    return textsOf(kind).word;
}

std::string textOf(const Finding& finding, const References& references) {
    const std::string_view sentence = textsOf(finding.kind).sentence;
    const auto user = [&](std::int32_t tag) {
        return named(references.users.find(tag), &User::UserName, tag);
    };
    const auto item = [&](std::int32_t tag) {
        return named(references.items.find(tag), &AccessItem::UAICODE, tag);
    };
    const auto urt = [&](std::int32_t tag) {
        return named(references.templates.find(tag), &Template::URTCODE, tag);
    };
    return std::visit(
        runtime::Overloaded{
            [&](const Right& row) {
                return fmt::format(
                    fmt::runtime(sentence), fmt::arg("user", user(row.USERTAG)),
                    fmt::arg("item", item(row.UAITAG)), fmt::arg("template", urt(row.URTTAG)),
                    fmt::arg("source", row.URTTAG == 0 ? "by hand" : "from template " + urt(row.URTTAG)),
                    fmt::arg("times", finding.times));
            },
            [&](const TemplateItem& row) {
                return fmt::format(fmt::runtime(sentence), fmt::arg("template", urt(row.URTTAG)),
                                   fmt::arg("item", item(row.UAITAG)), fmt::arg("times", finding.times));
            },
            [&](const AccessItem& row) {
                return fmt::format(fmt::runtime(sentence),
                                   fmt::arg("item", named(&row, &AccessItem::UAICODE, row.UAITAG)),
                                   fmt::arg("module", row.MODULEID));
            },
            [&](const LowCounter& row) {
                return fmt::format(fmt::runtime(sentence), fmt::arg("counter", row.name),
                                   fmt::arg("next", row.next), fmt::arg("highest", row.highest));
            },
            [&](const NetSettings& row) {
                return fmt::format(fmt::runtime(sentence), fmt::arg("module", row.MODULEID));
            }},
        finding.row);
}

} // namespace tol::rights
