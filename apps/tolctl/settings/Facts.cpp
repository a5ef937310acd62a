// SPDX-License-Identifier: MIT
#include "tolctl/settings/Facts.h"

#include "runtime/Text.h"
#include "tolctl/Output.h"

#include <fmt/format.h>

#include <algorithm>
#include <iostream>
#include <string_view>

namespace tol::ctl {
namespace {

void printJson(const std::vector<Fact>& facts) {
    nlohmann::ordered_json object;
    for (const Fact& fact : facts)
        object[fact.name] = fact.cell.value;
    printJsonValue(object);
    std::cout << '\n';
}

void printLines(const std::vector<Fact>& facts) {
    std::size_t width = 0;
    for (const Fact& fact : facts)
        width = std::max(width, std::string_view(fact.title).size());
    for (const Fact& fact : facts)
        std::cout << fmt::format("{:<{}}  {}\n", fact.title, width,
                                 fact.cell.text.value_or(fact.cell.value.is_string()
                                                             ? fact.cell.value.get<std::string>()
                                                             : fact.cell.value.dump()));
}

} // namespace

ExitStatus answer(const std::vector<Fact>& facts, bool json, ExitStatus status) {
    (json ? printJson : printLines)(facts);
    return finishOutput() ? status : ExitStatus::CouldNotStart;
}

Fact locationFact(const std::string& location) {
    return {"networkLocation", "Network location", {location}};
}

Fact jobSiteFact(const jobsites::JobSite& site) {
    const std::string name(runtime::trim(site.name));
    return {"jobSite",
            "Job Site in force",
            {{{"number", site.tag}, {"name", name}, {"folder", runtime::trim(site.folder)}}, name}};
}

} // namespace tol::ctl
