// SPDX-License-Identifier: MIT
#include "network/model/NetworkUser.h"

#include "data/OpenTable.h"
#include "platform/System.h"
#include "rights/model/NextTag.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <fmt/format.h>

#include <cmath>

namespace tol::network {
namespace {

/// USERLIST in the order of names, and the counters.
struct UserTables {
    explicit UserTables(const std::string& file) : users("wksNET", file, "USERLIST") {
        users.rows.Index("USERNAME");
    }
    bool find(const std::string& name) {
        users.rows.Seek("=", {name});
        return !users.rows.NoMatch();
    }

    data::OpenTable users;
    data::Recordset tags = users.database.OpenRecordset("NETTAGS");
};

std::string today() {
    return runtime::toText(runtime::Date{std::floor(platform::now().serial)});
}

void add(data::Recordset& users, const AddedUser& user) {
    users.AddNew();
    users.Fields("USERTAG").Value(user.number);
    users.Fields("UserName").Value(user.name);
    users.Fields("REMARKS").Value("Added on: " + today());
    users.Fields("ADMIN").Value(false);
    users.Update();
}

} // namespace

std::optional<std::string> networkDatabase(const std::string& netPath) {
    std::string file = shell::vdNetPath(netPath, false);
    return file == "ERROR" ? std::nullopt : std::optional(std::move(file));
}

std::optional<std::int32_t> userNumber(const std::string& database, const std::string& name) {
    UserTables tables(database);
    std::optional<std::int32_t> number;
    if (tables.find(name))
        number = runtime::toLong(shell::vdNullCheck(tables.users.rows.Fields("USERTAG")));
    tables.users.Close();
    return number;
}

AddedUser addUser(const std::string& database, const std::string& name) {
    AddedUser user{UserAddition::NameIsBlank, runtime::lowerCase(name)};
    if (shell::vdIsBlank(name))
        return user;
    UserTables tables(database);
    user.outcome = tables.find(user.name) ? UserAddition::NameIsTaken : UserAddition::Added;
    if (user.outcome == UserAddition::Added) {
        user.number = rights::NextTag(tables.tags, "USERTAG");
        add(tables.users.rows, user);
    }
    tables.users.Close();
    return user;
}

void tell(const AddedUser& user) {
    using enum runtime::MsgIcon;
    const auto box = [](runtime::MsgIcon icon, const std::string& text, const char* title) {
        runtime::host().msgBox(text, {icon, runtime::MsgButtons::Ok}, title);
    };
    switch (user.outcome) {
    case UserAddition::NameIsBlank:
        return box(Critical, "Empty User Name Detected", "Cannot Update Record");
    case UserAddition::NameIsTaken:
        return box(Critical, "Duplicate User Name Detected.\nThe User Name you have entered already exists.",
                   "Cannot Update Record");
    case UserAddition::Added:
        return box(Information,
                   fmt::format("The User Name: {}\nhas been added to the list of users.", user.name),
                   "User List Updated");
    }
}

} // namespace tol::network
