// SPDX-License-Identifier: MIT
#include "EngineTest.h"

namespace tol::test {

using namespace data;
using runtime::Value;

runtime::RuntimeError errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const runtime::RuntimeError& error) {
        return error;
    }
    return {0, ""};
}

EngineTest::EngineTest() : store(engine.create(file())) {}

void EngineTest::makeTable(const std::string& name) {
    store->createTable({.name = name,
                        .fields = {{.name = "Id", .type = dbLong, .size = 4},
                                   {.name = "Name", .type = dbText, .size = 20},
                                   {.name = "Note", .type = dbMemo}},
                        .indexes = {{.name = "ById", .fields = {"Id"}, .unique = true},
                                    {.name = "ByName", .fields = {"Name"}}}});
}

void EngineTest::addRows(const std::string& table, int from, int to) {
    const auto cursor = store->openCursor(table);
    for (int id = from; id <= to; ++id) {
        const Assignment row[] = {{0, id}, {1, "n" + std::to_string(id)}};
        cursor->insert(row);
    }
    store->settle();
}

std::vector<Value> EngineTest::column(const std::string& table, std::size_t field, const std::string& index) {
    const auto cursor = store->openCursor(table);
    cursor->setIndex(index);
    std::vector<Value> values;
    for (bool row = cursor->first(); row; row = cursor->next())
        values.push_back(cursor->value(field));
    return values;
}

void EngineTest::reopen() {
    store->settle();
    store.reset();
    store = engine.open(file(), false);
}

} // namespace tol::test
