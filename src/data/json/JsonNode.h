// SPDX-License-Identifier: MIT
#pragma once

#include "data/json/JsonScalar.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace tol::data::json {

/// What is expected at one place of a JSON text, told what stands there while it is read. Whatever a
/// node does not expect it refuses with a RuntimeError; JsonStream adds the line. A node that begins an
/// object or array names the node for its content, which lives at least as long as itself.
class JsonNode {
  public:
    JsonNode() = default;
    JsonNode(const JsonNode&) = delete;
    JsonNode& operator=(const JsonNode&) = delete;
    virtual ~JsonNode() = default;

    virtual JsonNode& beginObject();
    virtual JsonNode& beginArray();
    virtual void key(std::string_view name);
    virtual void scalar(JsonScalar&& scalar);
    /// The object or array that this node was named for is complete.
    virtual void end() {}
};

/// An object with known keys, each at most once, in any order.
class JsonObjectNode : public JsonNode {
  public:
    void key(std::string_view name) final;

  protected:
    /// The keys by position; those that an object must have come first.
    JsonObjectNode(std::string_view what, std::span<const std::string_view> keys, std::size_t required)
        : m_what(what), m_keys(keys), m_required(required) {}

    /// To be called when the object begins.
    void reset() { m_seen = 0; }
    /// Position of the key whose value comes now.
    [[nodiscard]] std::size_t currentKey() const { return m_current; }
    [[nodiscard]] bool seen(std::size_t key) const { return (m_seen >> key & 1U) != 0; }
    /// Raises an error unless the object had all the keys that it must have.
    void requireKeys() const;

  private:
    std::string_view m_what;
    std::span<const std::string_view> m_keys;
    std::size_t m_required;
    std::size_t m_current = 0;
    unsigned m_seen = 0;
};

/// An array of objects of one kind.
template <typename Element>
class JsonObjectsNode : public JsonNode {
  public:
    explicit JsonObjectsNode(auto&... arguments) : m_element(arguments...) {}
    JsonNode& beginObject() override {
        m_element.begin();
        return m_element;
    }

  private:
    Element m_element;
};

} // namespace tol::data::json
