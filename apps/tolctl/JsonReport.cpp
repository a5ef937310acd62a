// SPDX-License-Identifier: MIT
#include "tolctl/JsonReport.h"

#include "tolctl/ActivityRows.h"

#include <nlohmann/json.hpp>

#include <initializer_list>
#include <iostream>
#include <span>
#include <utility>

namespace tol::ctl {
namespace {

/// Prints elements of an array, one a line.
class JsonArray {
  public:
    /// Begins the next element.
    void next() {
        std::cout << (m_empty ? "[\n  " : ",\n  ");
        m_empty = false;
    }
    void end() { std::cout << (m_empty ? "[]" : "\n]"); }

  private:
    bool m_empty = true;
};

using Member = std::pair<std::string_view, std::string_view>;

void printObject(std::span<const Member> members) {
    const char* separator = "{";
    for (const Member& member : members) {
        std::cout << separator;
        printJsonText(member.first);
        std::cout << ": ";
        printJsonText(member.second);
        separator = ", ";
    }
    std::cout << '}';
}

void printMembers(std::initializer_list<Member> members) {
    printObject({members.begin(), members.size()});
}

} // namespace

void printJsonText(std::string_view text) {
    std::cout << nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// What can't be read leaves nothing behind that looks like an answer.
void printJsonActivity() {
    JsonArray array;
    forEachActivity([&](const update::ActivityRow& row) {
        std::vector<Member> members;
        for (const ActivityColumn& column : activityColumns())
            members.emplace_back(column.name, row.*column.member);
        array.next();
        printObject(members);
    });
    array.end();
}

void printJsonMessages(const MessageLog& messages) {
    JsonArray array;
    for (std::size_t i = 0; i < messages.size(); ++i) {
        const Message& message = messages[i];
        array.next();
        printMembers({{"title", message.title}, {"text", message.text}, {"answer", message.answer}});
    }
    array.end();
}

void printJsonLeft(const std::vector<update::LeftDatabase>& databases) {
    JsonArray array;
    for (const update::LeftDatabase& left : databases) {
        array.next();
        printMembers({{"site", left.PATHNAME}, {"database", left.DBNAME}, {"box", left.box}});
    }
    array.end();
}

void printJsonMissing(const std::vector<update::MissingFolder>& folders) {
    JsonArray array;
    for (const update::MissingFolder& missing : folders) {
        array.next();
        printMembers({{"site", missing.PATHNAME}, {"folder", missing.folder}});
    }
    array.end();
}

void printJsonNotes(const std::vector<update::DefinitionNote>& notes) {
    JsonArray array;
    for (const update::DefinitionNote& note : notes) {
        const std::string what = data::kindWord(note.note.kind);
        array.next();
        printMembers({{"site", note.PATHNAME},
                      {"database", note.DBNAME},
                      {"table", note.note.table},
                      {"what", what},
                      {"name", note.note.name}});
    }
    array.end();
}

} // namespace tol::ctl
