// SPDX-License-Identifier: MIT
#include "jobsites/model/UserSettings.h"

#include "data/OpenTable.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdTexts.h"

#include <string>

namespace tol::jobsites {
namespace {

constexpr const char* userFolder = R"(C:\ZOVUSER)";
constexpr const char* tagField = "DBTAG";

bool hasField(data::Recordset& rows, const std::string& name) {
    for (int i = 0; i < rows.Fields().Count(); ++i)
        if (rows.Fields(i).Name() == name)
            return true;
    return false;
}

/// What both have under one name, to a record that is being edited. `field` is the one in work.
void copyFields(data::Recordset& from, data::Recordset& to, std::string& field) {
    for (int i = 0; i < from.Fields().Count(); ++i) {
        const std::string name = from.Fields(i).Name();
        if (name == tagField || !hasField(to, name))
            continue;
        field = name;
        to.Fields(name).Value(from.Fields(i).Value());
    }
}

/// The settings in force, on their first row, and those of the Job Sites.
struct SettingsTables {
    data::OpenTable inForce{"wksUSER", shell::userDatabase, "SETTINGS"};
    data::Recordset ofSites = inForce.database.OpenRecordset("DBSETTINGS");

    bool find(std::int32_t tag) {
        ofSites.Index("DBSETTINGS");
        ofSites.Seek("=", {tag});
        return !ofSites.NoMatch();
    }
    void beginRow(std::int32_t tag) {
        ofSites.AddNew();
        ofSites.Fields(tagField).Value(tag);
    }
};

void save(std::int32_t tag) {
    SettingsTables tables;
    if (tables.find(tag))
        tables.ofSites.Edit();
    else
        tables.beginRow(tag);
    std::string field;
    copyFields(tables.inForce.rows, tables.ofSites, field);
    tables.ofSites.Update();
    tables.inForce.Close();
}

void load(std::int32_t tag, std::string& field) {
    SettingsTables tables;
    if (!tables.find(tag)) {
        tables.beginRow(tag);
        tables.ofSites.Update();
        tables.ofSites.Bookmark(tables.ofSites.LastModified());
    }
    tables.inForce.rows.MoveFirst();
    tables.inForce.rows.Edit();
    copyFields(tables.ofSites, tables.inForce.rows, field);
    tables.inForce.rows.Update();
    tables.inForce.Close();
}

} // namespace

bool vdSaveUserSettings(std::string_view /*folder*/, std::int32_t tag) {
    try {
        save(tag);
        return true;
    } catch (const runtime::RuntimeError&) {
        runtime::host().msgBox("Could not Save User Settings for Job Site", {}, "Error");
        return false;
    }
}

bool vdLoadUserSettings(std::string_view /*folder*/, std::int32_t tag) {
    std::string field;
    try {
        load(tag, field);
        return true;
    } catch (const runtime::RuntimeError&) {
        runtime::host().msgBox("Could not Load User Settings for Job Site Selected. Field Name: " + field, {},
                               "Error");
        return false;
    }
}

bool changeUserSettings(std::int32_t from, std::int32_t to) {
    return vdSaveUserSettings(userFolder, from) && vdLoadUserSettings(userFolder, to);
}

std::optional<std::int32_t> siteInForce() {
    if (shell::vdIsBlank(shell::vdDir(shell::userDatabase)))
        return std::nullopt;
    data::OpenTable settings("wksUSER", shell::userDatabase, "SETTINGS");
    std::optional<std::int32_t> tag;
    if (hasField(settings.rows, tagField) && settings.rows.RecordCount() > 0)
        if (const runtime::Value value = settings.rows.Fields(tagField).Value(); !value.isNull())
            tag = runtime::toLong(value);
    settings.Close();
    return tag;
}

void noteSiteInForce(std::int32_t tag) {
    data::OpenTable settings("wksUSER", shell::userDatabase, "SETTINGS");
    if (hasField(settings.rows, tagField)) {
        settings.rows.Edit();
        settings.rows.Fields(tagField).Value(tag);
        settings.rows.Update();
    }
    settings.Close();
}

} // namespace tol::jobsites
