// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace tol::test {

/// A second process that runs a function of the test, in step with it: what another machine does to
/// the same files. Made before this process has any database open, since both would share the locks of an
/// open file. An exception in the function ends it with status 99 and its text on standard error.
class SecondProcess {
  public:
    /// How the function keeps step with the test.
    class Steps {
      public:
        explicit Steps(int channel) : m_channel(channel) {}
        /// Tells the test that a step is done; the test's await() returns.
        void done() const;
        /// Waits for the test's next().
        void wait() const;

      private:
        int m_channel;
    };

    explicit SecondProcess(const std::function<void(const Steps&)>& function);
    SecondProcess(const SecondProcess&) = delete;
    SecondProcess& operator=(const SecondProcess&) = delete;
    ~SecondProcess();

    /// Waits until the function has called done(); false when the process ended instead.
    bool await() const;
    /// Lets the function go on behind its wait().
    void next() const;
    /// Waits for the end; the exit status, 0 when the function returned.
    int finish();
    /// Ends it as a power cut would; its status, or minus the number of the signal.
    int kill();

  private:
    int m_process = -1;
    int m_channel = -1;
};

} // namespace tol::test
