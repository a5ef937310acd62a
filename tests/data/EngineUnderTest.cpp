// SPDX-License-Identifier: MIT
#include "EngineUnderTest.h"

#include "data/sqlite/SqliteEngine.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tol::test {
namespace {

template <typename Engine>
std::unique_ptr<data::Engine> make() {
    return std::make_unique<Engine>();
}

} // namespace

const std::vector<EngineUnderTest>& enginesUnderTest() {
    static const std::vector<EngineUnderTest> engines{
        {"Sqlite", make<data::sqlite::SqliteEngine>},
    };
    return engines;
}

const EngineUnderTest& engineNamed(const std::string& name) {
    const auto& all = enginesUnderTest();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const EngineUnderTest& engine) { return engine.name == name; });
    if (found == all.end())
        throw std::invalid_argument("no engine is called " + name);
    return *found;
}

EngineScope::EngineScope(std::unique_ptr<data::Engine> engine) {
    data::StoreRegistry::Engines engines;
    engines.push_back(std::move(engine));
    m_before = data::StoreRegistry::instance().exchangeEngines(std::move(engines));
}

EngineScope::~EngineScope() {
    data::StoreRegistry::instance().exchangeEngines(std::move(m_before));
}

} // namespace tol::test
