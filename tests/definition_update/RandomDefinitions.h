// SPDX-License-Identifier: MIT
#pragma once

#include "JsonDatabase.h"

#include <random>
#include <string>

namespace tol::test {

/// Random definitions of one or two tables, and older ones of them with rows. Values are chosen so that no
/// conversion between the two raises an error.
class RandomDefinitions {
  public:
    explicit RandomDefinitions(std::uint32_t seed) : m_random(seed) {}

    /// Tables whose names begin with the prefix.
    Json wanted(const std::string& prefix);
    /// What an older release may have had in their place: a change of them, or something else altogether.
    Json older(const std::string& prefix, const Json& wanted);

  private:
    int below(std::size_t bound) { return static_cast<int>(m_random() % bound); }
    bool oneIn(int chances) { return below(chances) == 0; }

    Json table();
    Json field(const std::string& name);
    Json indexes(const Json& fields);
    Json changed(const Json& table);
    void addRows(Json& older, const Json& wanted);
    Json value(const Json& field, const Json& wantedField);
    Json number(int type, int characters);
    std::string text(int characters, bool becomesNumber);
    std::string dateText(int characters);

    std::mt19937 m_random;
};

} // namespace tol::test
