// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>

namespace tol::rights {

/// A field of a table and the member that holds its value.
template <typename Row, typename Type>
struct RowField {
    std::string_view name;
    Type Row::*member;
};
template <typename Row, typename Type>
RowField(std::string_view, Type Row::*) -> RowField<Row, Type>;

// The rows of the network database, under the names of its fields. Null is 0, False or "". Each type tells
// its table, the index in whose order the windows list it, and its fields.

struct Module {
    static constexpr const char* table = "MODULES";
    static constexpr const char* order = "MODULES";
    std::string MODULEID, MODULENAME;
    static constexpr auto fields() {
        return std::tuple{RowField{"MODULEID", &Module::MODULEID},
                          RowField{"MODULENAME", &Module::MODULENAME}};
    }
};

struct AccessItem {
    static constexpr const char* table = "USERACCESSITEMS";
    static constexpr const char* order = "USERACCESSITEMS";
    std::int32_t UAITAG = 0;
    std::string MODULEID, UAICODE, Desc, FORMNAME;
    static constexpr auto fields() {
        return std::tuple{RowField{"UAITAG", &AccessItem::UAITAG},
                          RowField{"MODULEID", &AccessItem::MODULEID},
                          RowField{"UAICODE", &AccessItem::UAICODE}, RowField{"Desc", &AccessItem::Desc},
                          RowField{"FORMNAME", &AccessItem::FORMNAME}};
    }
};

struct Template {
    static constexpr const char* table = "URTEMPLATES";
    static constexpr const char* order = "URTCODE";
    std::int32_t URTTAG = 0;
    std::string URTCODE, URTNAME;
    static constexpr auto fields() {
        return std::tuple{RowField{"URTTAG", &Template::URTTAG}, RowField{"URTCODE", &Template::URTCODE},
                          RowField{"URTNAME", &Template::URTNAME}};
    }
};

struct TemplateItem {
    static constexpr const char* table = "URTITEMS";
    static constexpr const char* order = "URTITEMS";
    std::int32_t URTTAG = 0, UAITAG = 0;
    bool ALLOWED = false;
    static constexpr auto fields() {
        return std::tuple{RowField{"URTTAG", &TemplateItem::URTTAG},
                          RowField{"UAITAG", &TemplateItem::UAITAG},
                          RowField{"ALLOWED", &TemplateItem::ALLOWED}};
    }
};

struct User {
    static constexpr const char* table = "USERLIST";
    static constexpr const char* order = "USERNAME";
    std::int32_t USERTAG = 0;
    std::string UserName, REMARKS;
    bool ADMIN = false;
    static constexpr auto fields() {
        return std::tuple{RowField{"USERTAG", &User::USERTAG}, RowField{"UserName", &User::UserName},
                          RowField{"REMARKS", &User::REMARKS}, RowField{"ADMIN", &User::ADMIN}};
    }
};

struct Right {
    static constexpr const char* table = "USERRIGHTS";
    static constexpr const char* order = "USERRIGHTS";
    std::int32_t USERTAG = 0, UAITAG = 0;
    bool ALLOWED = false;
    std::int32_t URTTAG = 0; ///< 0 for a row that was entered by hand
    static constexpr auto fields() {
        return std::tuple{RowField{"USERTAG", &Right::USERTAG}, RowField{"UAITAG", &Right::UAITAG},
                          RowField{"ALLOWED", &Right::ALLOWED}, RowField{"URTTAG", &Right::URTTAG}};
    }
};

/// The next free tags.
struct TagCounters {
    static constexpr const char* table = "NETTAGS";
    static constexpr const char* order = "";
    std::int32_t UAITAG = 0, URTTAG = 0, USERTAG = 0;
    static constexpr auto fields() {
        return std::tuple{RowField{"UAITAG", &TagCounters::UAITAG}, RowField{"URTTAG", &TagCounters::URTTAG},
                          RowField{"USERTAG", &TagCounters::USERTAG}};
    }
};

/// The module that was selected last.
struct NetSettings {
    static constexpr const char* table = "NETSETTINGS";
    static constexpr const char* order = "";
    std::string MODULEID;
    static constexpr auto fields() { return std::tuple{RowField{"MODULEID", &NetSettings::MODULEID}}; }
};

/// Who holds a Record Lock.
struct LockHolder {
    static constexpr const char* table = "RECORDLOCKS";
    static constexpr const char* order = "";
    std::int32_t USERTAG = 0;
    static constexpr auto fields() { return std::tuple{RowField{"USERTAG", &LockHolder::USERTAG}}; }
};

} // namespace tol::rights
