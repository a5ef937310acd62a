// SPDX-License-Identifier: MIT
#include "data/json/JsonStream.h"

#include "data/json/LineCountingBuffer.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace tol::data::json {
namespace {

using runtime::RuntimeError;

constexpr std::size_t longestComplaint = 160;

/// What the parser says, without the tags and the position that stand in front of it; the last token,
/// which may be a whole book, is cut.
std::string complaintOf(const nlohmann::detail::exception& error) {
    const std::string_view whole = error.what();
    const auto tag = whole.find("] ");
    std::string_view text = tag == std::string_view::npos ? whole : whole.substr(tag + 2);
    if (const auto place = text.find(": ");
        text.starts_with("parse error") && place != std::string_view::npos)
        text.remove_prefix(place + 2);
    std::string result(text.substr(0, longestComplaint));
    // The cut must not leave half a character.
    while (!result.empty() && result.size() < text.size() && (text[result.size()] & 0xC0) == 0x80)
        result.pop_back();
    return result + (result.size() < text.size() ? "..." : "");
}

/// Hands the parser's events to the node at the top.
class NodeStack : public nlohmann::json_sax<nlohmann::json> {
  public:
    explicit NodeStack(JsonNode& root) : m_nodes{&root} {}

    bool null() override { return tell(nullptr); }
    bool boolean(bool value) override { return tell(value); }
    bool number_integer(number_integer_t value) override { return tell(std::int64_t{value}); }
    bool number_unsigned(number_unsigned_t value) override {
        if (std::in_range<std::int64_t>(value))
            return tell(static_cast<std::int64_t>(value));
        return tell(std::uint64_t{value});
    }
    bool number_float(number_float_t value, const string_t& spelled) override {
        return tell(JsonReal{value, spelled});
    }
    bool string(string_t& value) override { return tell(std::move(value)); }
    bool binary(binary_t& /*value*/) override { return false; } // no part of a JSON text

    bool start_object(std::size_t /*count*/) override { return push(top().beginObject()); }
    bool key(string_t& name) override {
        top().key(name);
        return true;
    }
    bool end_object() override { return pop(); }
    bool start_array(std::size_t /*count*/) override { return push(top().beginArray()); }
    bool end_array() override { return pop(); }

    bool parse_error(std::size_t /*position*/, const std::string& /*lastToken*/,
                     const nlohmann::detail::exception& error) override {
        throw RuntimeError(runtime::errUnrecognisedFormat, "Not valid JSON: " + complaintOf(error));
    }

  private:
    JsonNode& top() { return *m_nodes.back(); }
    bool tell(JsonScalar scalar) {
        top().scalar(std::move(scalar));
        return true;
    }
    bool push(JsonNode& node) {
        m_nodes.push_back(&node);
        return true;
    }
    bool pop() {
        JsonNode& complete = top();
        m_nodes.pop_back();
        complete.end();
        return true;
    }

    std::vector<JsonNode*> m_nodes;
};

} // namespace

void readJson(std::istream& in, JsonNode& root) {
    LineCountingBuffer lines(in);
    std::istream counted(&lines);
    NodeStack nodes(root);
    try {
        nlohmann::json::sax_parse(counted, &nodes);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), fmt::format("Line {}: {}", lines.line(), error.description()),
                           error.engineText());
    }
}

} // namespace tol::data::json
