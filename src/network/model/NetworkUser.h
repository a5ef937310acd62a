// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tol::network {

/// The network database, found by NETPATH.MDB of the current folder; `netPath` is the folder to look in
/// without that file. Nothing, after a box, when it can't be reached.
std::optional<std::string> networkDatabase(const std::string& netPath);

/// The number under which the database lists a user; nothing for one whom it does not list.
std::optional<std::int32_t> userNumber(const std::string& database, const std::string& name);

enum class UserAddition { Added, NameIsBlank, NameIsTaken };

/// What came of adding a user.
struct AddedUser {
    UserAddition outcome;
    std::string name;        ///< in lower case, as it is stored
    std::int32_t number = 0; ///< of one who was added
};

/// Adds a user to the list of the database, under the next number; not one whose name is blank or, in
/// whatever case, in the list already. The number is taken first and is lost when the user can't be stored.
AddedUser addUser(const std::string& database, const std::string& name);

/// Tells the person, in a box.
void tell(const AddedUser& user);

} // namespace tol::network
