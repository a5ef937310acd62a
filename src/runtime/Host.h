// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tol::runtime {

enum class MsgIcon { None = 0, Critical = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class MsgButtons { Ok = 0, OkCancel = 1, YesNo = 4 };
enum class MsgResult { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

struct MsgStyle {
    MsgIcon icon = MsgIcon::None;
    MsgButtons buttons = MsgButtons::Ok;
    bool operator==(const MsgStyle&) const = default;
};

/// The three things that a routine may ask of whatever runs it: show a message box, give way to
/// pending events, end the program. Exactly one host is installed at a time; the window program, the
/// terminal program and the tests each bring their own. Routines that hold work back (writes not yet
/// committed) register a flusher, which runs before every wait and before the end.
class Host {
  public:
    Host() = default;
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    virtual ~Host() = default;

    /// Shows a modal box and returns the button pressed. Everything is stored before somebody waits; what
    /// can't be is deferred, not raised.
    MsgResult msgBox(const std::string& text, MsgStyle style = {}, const std::string& title = {});
    /// Handles pending events, if any, and returns. Cheap enough to be called once per row.
    void doEvents() { processEvents(); }
    /// Ends the program at once: open windows are not asked and nothing is unloaded.
    [[noreturn]] void end();

  protected:
    /// Whether the box waits for a person.
    [[nodiscard]] virtual bool waitsForAnswer(MsgStyle /*style*/) const { return true; }
    virtual MsgResult showMsgBox(const std::string& text, MsgStyle style, const std::string& title) = 0;
    virtual void processEvents() = 0;
    [[noreturn]] virtual void endProgram() = 0;
};

/// The host in force; throws std::logic_error when none is installed.
Host& host();

/// Installs a host for as long as it lives and brings the one before it back.
class HostScope {
  public:
    explicit HostScope(Host& host);
    HostScope(const HostScope&) = delete;
    HostScope& operator=(const HostScope&) = delete;
    ~HostScope();

  private:
    Host* m_before;
};

/// Registers what must be done before the program waits for a person, for events, or ends.
void addFlusher(std::function<void()> flusher);
/// Runs every flusher, then raises the oldest failure that is deferred; hosts call it before they wait.
void flush();

} // namespace tol::runtime
