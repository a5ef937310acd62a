// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/Timer.h"
#include "forms/windows/Form.h"
#include "forms/windows/MdiForm.h"
#include "shell/MainMenu.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace tol::shell {

class frmTOLMAIN;
class frmTOLSplash;

/// Makes a window that the menu opens, and gives it what it needs from the main window.
using WindowFactory = std::function<std::unique_ptr<forms::Form>(frmTOLMAIN& main)>;

/// The main window, and the start of the program: its Load makes the start-up checks and finds out where
/// the network database lies; all other windows are opened from its menu. Which windows there are, the
/// program tells it with addWindow(); an item whose window is not there says so.
class frmTOLMAIN : public forms::MdiForm {
  public:
    frmTOLMAIN();
    ~frmTOLMAIN() override;

    /// To be called before load().
    void addWindow(const std::string& name, WindowFactory factory);

    /// Folder of the network database as NETPATH.MDB has it, without a trailing backslash. The program's
    /// only global location.
    std::string sNetPath;
    const std::string sVersion = "Version 1.1.1";

  protected:
    void onLoad() override;
    void onClick() override;

    /// Shows the main window.
    virtual void appear();

  private:
    void buildMenu();
    void choose(const MenuItem& item);
    void openWindow(const MenuItem& item);

    void startSplash();
    void checkDatabases();
    void checkUserDatabase();
    void appendIfMissing(const std::string& file);
    [[noreturn]] void endStartup();
    void CloseSplash();
    void unloadSplash();

    void Timer1_Timer();
    void countTick();
    void finishSplash();

    std::map<std::string, WindowFactory> m_factories;
    std::unique_ptr<frmTOLSplash> m_splash;
    forms::Timer Timer1;
    bool bMainVisible = false;
    std::int16_t nSplashTicks = 0;
    std::int16_t nSplashLimit = 3;
    std::string sStartupErrors;
    std::string sMsgText;
    std::string sMsgTitle;
};

} // namespace tol::shell
