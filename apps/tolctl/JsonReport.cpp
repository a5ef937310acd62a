// SPDX-License-Identifier: MIT
#include "tolctl/JsonReport.h"

#include "tolctl/ActivityRows.h"

#include <nlohmann/json.hpp>

#include <initializer_list>
#include <iostream>
#include <utility>

namespace tol::ctl {
namespace {

/// Prints elements of an array, one a line.
class JsonArray {
  public:
    JsonArray() { std::cout << '['; }
    JsonArray(const JsonArray&) = delete;
    JsonArray& operator=(const JsonArray&) = delete;
    ~JsonArray() { std::cout << (m_empty ? "]" : "\n]"); }

    /// Begins the next element.
    void next() {
        std::cout << (m_empty ? "\n  " : ",\n  ");
        m_empty = false;
    }

  private:
    bool m_empty = true;
};

using Member = std::pair<std::string_view, std::string_view>;

template <typename Members>
void printObject(const Members& members) {
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

} // namespace

void printJsonText(std::string_view text) {
    std::cout << nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void printJsonActivity() {
    JsonArray array;
    forEachActivity([&](const update::ActivityRow& row) {
        std::vector<Member> members;
        for (const ActivityColumn& column : activityColumns())
            members.emplace_back(column.name, row.*column.member);
        array.next();
        printObject(members);
    });
}

void printJsonMessages(const MessageLog& messages) {
    JsonArray array;
    for (std::size_t i = 0; i < messages.size(); ++i) {
        const Message& message = messages[i];
        array.next();
        printObject(std::initializer_list<Member>{
            {"title", message.title}, {"text", message.text}, {"answer", message.answer}});
    }
}

void printJsonNotes(const std::vector<update::DefinitionNote>& notes) {
    JsonArray array;
    for (const update::DefinitionNote& note : notes) {
        const std::string what = data::kindWord(note.note.kind);
        array.next();
        printObject(std::initializer_list<Member>{{"site", note.PATHNAME},
                                                  {"database", note.DBNAME},
                                                  {"table", note.note.table},
                                                  {"what", what},
                                                  {"name", note.note.name}});
    }
}

} // namespace tol::ctl
