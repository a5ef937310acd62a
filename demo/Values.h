// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Suite.h"
#include "runtime/Value.h"

#include <cstdint>
#include <string>

namespace tol::demo {

/// Named lists of words.
using WordLists = std::map<std::string, std::vector<std::string>, std::less<>>;
WordLists readLists();

/// The values of the rows of one place (a Job Site, the network, a workstation). A value depends on
/// nothing but the place, the table, the field and the number of the row: it is the same in every
/// demo, and what a reference refers to can be worked out without looking anything up.
class Values {
  public:
    /// `wanted` says what references refer to, whatever release the place stands at.
    Values(const Suite& wanted, const WordLists& lists, std::string place, int percent);

    /// How many rows the table has here.
    [[nodiscard]] int rows(const TableRecipe& table) const;
    /// The value of a field in a row (from 1), such that it converts to the field's type and fits in.
    [[nodiscard]] runtime::Value value(const TableRecipe& table, const FieldRecipe& field, int row) const;

  private:
    class Chance;
    runtime::Value made(const TableRecipe& table, const FieldRecipe& field, int row, Chance& chance) const;
    runtime::Value referred(const std::string& target, Chance& chance) const;
    std::string picked(const std::vector<std::string>& names, Chance& chance) const;

    const Suite& m_wanted;
    const WordLists& m_lists;
    std::string m_place;
    int m_percent;
};

} // namespace tol::demo
