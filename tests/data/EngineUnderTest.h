// SPDX-License-Identifier: MIT
#pragma once

#include "data/StoreRegistry.h"
#include "data/engine/Engine.h"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace tol::test {

/// A storage engine that the conformance suite runs over.
struct EngineUnderTest {
    std::string name;
    std::unique_ptr<data::Engine> (*make)();
};

/// All of them: a new engine joins with a line here.
const std::vector<EngineUnderTest>& enginesUnderTest();
const EngineUnderTest& engineNamed(const std::string& name);

inline std::ostream& operator<<(std::ostream& out, const EngineUnderTest& engine) {
    return out << engine.name;
}

/// Makes one engine the only one of the process for as long as it lives.
class EngineScope {
  public:
    explicit EngineScope(std::unique_ptr<data::Engine> engine);
    EngineScope(const EngineScope&) = delete;
    EngineScope& operator=(const EngineScope&) = delete;
    ~EngineScope();

  private:
    data::StoreRegistry::Engines m_before;
};

} // namespace tol::test
