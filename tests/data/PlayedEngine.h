// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Engine.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tol::test {

/// What a played engine was asked, call by call, and what it is to do at a call: a test's `onCall` may
/// raise an error.
struct PlayedCalls {
    std::vector<std::string> calls;
    std::function<void(const std::string&)> onCall;

    void tell(const std::string& call) {
        calls.push_back(call);
        if (onCall)
            onCall(call);
    }
    /// The calls since the last take().
    std::vector<std::string> take() { return std::exchange(calls, {}); }
};

/// An engine without storage, to see what the interface asks of one and when. It takes files that begin
/// with its mark; each has the one table "T" with a Long field "A", the indexes told, and no rows.
class PlayedEngine : public data::Engine {
  public:
    PlayedEngine(std::string mark, std::shared_ptr<PlayedCalls> calls,
                 std::vector<data::IndexDef> indexes = {})
        : m_mark(std::move(mark)), m_calls(std::move(calls)), m_indexes(std::move(indexes)) {}

    [[nodiscard]] bool recognises(std::string_view firstBytes) const override;
    std::shared_ptr<data::Store> open(const std::filesystem::path& file, bool readOnly) override;
    std::shared_ptr<data::Store> create(const std::filesystem::path& file) override;
    void compact(const std::filesystem::path& file) override;

  private:
    std::string m_mark;
    std::shared_ptr<PlayedCalls> m_calls;
    std::vector<data::IndexDef> m_indexes;
};

} // namespace tol::test
