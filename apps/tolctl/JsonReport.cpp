// SPDX-License-Identifier: MIT
#include "tolctl/JsonReport.h"

#include "tolctl/ActivityRows.h"
#include "tolctl/Output.h"

namespace tol::ctl {

// What can't be read leaves nothing behind that looks like an answer.
void printJsonActivity() {
    JsonArray array;
    forEachActivity([&](const update::ActivityRow& row) {
        std::vector<JsonArray::Member> members;
        for (const ActivityColumn& column : activityColumns())
            members.emplace_back(column.name, row.*column.member);
        array.add(members);
    });
    array.end();
}

void printJsonMessages(const MessageLog& messages) {
    JsonArray array;
    for (std::size_t i = 0; i < messages.size(); ++i) {
        const Message& message = messages[i];
        array.add({{"title", message.title}, {"text", message.text}, {"answer", message.answer}});
    }
    array.end();
}

void printJsonLeft(const std::vector<update::LeftDatabase>& databases) {
    JsonArray array;
    for (const update::LeftDatabase& left : databases)
        array.add({{"site", left.PATHNAME}, {"database", left.DBNAME}, {"box", left.box}});
    array.end();
}

void printJsonMissing(const std::vector<update::MissingFolder>& folders) {
    JsonArray array;
    for (const update::MissingFolder& missing : folders)
        array.add({{"site", missing.PATHNAME}, {"folder", missing.folder}});
    array.end();
}

void printJsonNotes(const std::vector<update::DefinitionNote>& notes) {
    JsonArray array;
    for (const update::DefinitionNote& note : notes) {
        const std::string what = data::kindWord(note.note.kind);
        array.add({{"site", note.PATHNAME},
                   {"database", note.DBNAME},
                   {"table", note.note.table},
                   {"what", what},
                   {"name", note.note.name}});
    }
    array.end();
}

} // namespace tol::ctl
