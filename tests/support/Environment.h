// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace tol::test {

/// An environment variable with another value (or none: null) while the object lives.
class Environment {
  public:
    Environment(const char* name, const char* value) : m_name(name) {
        if (const char* before = std::getenv(name))
            m_before = before;
        set(value);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { set(m_before ? m_before->c_str() : nullptr); }

  private:
    void set(const char* value) {
        if (value != nullptr)
            setenv(m_name.c_str(), value, 1);
        else
            unsetenv(m_name.c_str());
    }

    std::string m_name;
    std::optional<std::string> m_before;
};

} // namespace tol::test
