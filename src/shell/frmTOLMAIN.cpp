// SPDX-License-Identifier: MIT
#include "shell/frmTOLMAIN.h"

#include "forms/events/Application.h"
#include "forms/events/EventProcedure.h"
#include "forms/windows/LoadedForms.h"
#include "forms/windows/MenuBar.h"
#include "platform/Paths.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/ProgramIcon.h"
#include "shell/frmTOLSplash.h"
#include "shell/vdfunctions/vdBoxes.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QIcon>

#include <cstdlib>
#include <fmt/format.h>

namespace tol::shell {
namespace {

using runtime::MsgButtons;
using runtime::MsgIcon;

constexpr runtime::MsgStyle critical{MsgIcon::Critical, MsgButtons::Ok};
constexpr runtime::MsgStyle information{MsgIcon::Information, MsgButtons::Ok};

constexpr int timerInterval = 500;

} // namespace

frmTOLMAIN::frmTOLMAIN() : MdiForm("frmTOLMAIN"), Timer1(*this, "Timer1", [this] { Timer1_Timer(); }) {
    setWindowTitle("Zovarin Series - Tolvane Module");
    forms::Application::setWindowIcon(programIcon()); // of the boxes, too
    buildMenu();
}

frmTOLMAIN::~frmTOLMAIN() = default;

void frmTOLMAIN::addWindow(const std::string& name, WindowFactory factory) {
    m_factories[name] = std::move(factory);
}

void frmTOLMAIN::appear() {
    showNormal();
    raise();
    activateWindow();
}

void frmTOLMAIN::onClick() {
    arrange(forms::Arrangement::Cascade);
}

// The menu.

void frmTOLMAIN::buildMenu() {
    auto& bar = *new forms::MenuBar(this);
    setMenuBar(&bar);
    for (const Menu& menu : mainMenu()) {
        QMenu& shown = *bar.addMenu(menu.caption);
        shown.setObjectName(menu.name);
        for (const MenuItem& item : menu.items) {
            QAction& action = *shown.addAction(item.caption);
            action.setObjectName(item.name);
            connect(&action, &QAction::triggered, this,
                    [this, &item] { forms::runEvent(*this, [&] { choose(item); }); });
        }
    }
}

void frmTOLMAIN::choose(const MenuItem& item) {
    switch (item.action) {
    case MenuAction::OpenWindow:
        return openWindow(item);
    case MenuAction::EndProgram:
        runtime::host().end();
    case MenuAction::TileHorizontally:
        return arrange(forms::Arrangement::TileHorizontally);
    case MenuAction::TileVertically:
        return arrange(forms::Arrangement::TileVertically);
    case MenuAction::Cascade:
        return arrange(forms::Arrangement::Cascade);
    case MenuAction::NotReady:
        return vdNotReady();
    }
}

void frmTOLMAIN::openWindow(const MenuItem& item) {
    const auto factory = m_factories.find(item.window);
    if (factory == m_factories.end())
        return vdNotReady();
    auto* open = dynamic_cast<forms::Form*>(forms::LoadedForms::find(item.window));
    if (item.instance == Instance::Single && open != nullptr)
        return open->showModeless();
    std::unique_ptr<forms::Form> form = factory->second(*this);
    if (item.shown == Shown::Modal)
        form->showModal(this);
    else
        showChild(std::move(form));
}

// Start-up.

void frmTOLMAIN::onLoad() {
    setSize(11985, 9090);
    hide();
    bMainVisible = false;
    sStartupErrors.clear();
    startSplash();
    try {
        checkDatabases();
        checkUserDatabase();
        sNetPath = vdNetworkFolder();
    } catch (const runtime::RuntimeError& error) {
        CloseSplash();
        sMsgTitle = "Error Loading Tolvane Module";
        sMsgText = fmt::format("Error Loading Tolvane Module.\n\nError Number: {}\nError Description: {}",
                               error.number(), error.description());
        runtime::host().msgBox(sMsgText, information, sMsgTitle);
    }
    if (bMainVisible)
        appear();
}

void frmTOLMAIN::startSplash() {
    Timer1.setInterval(timerInterval);
    Timer1.setEnabled(true);
    nSplashTicks = 0;
    nSplashLimit = 3;
    m_splash = std::make_unique<frmTOLSplash>();
    m_splash->setVersion(QString::fromStdString(sVersion));
    m_splash->showModeless();
    m_splash->refresh();
}

void frmTOLMAIN::checkDatabases() {
    appendIfMissing("NETPATH.MDB");
    appendIfMissing("DBPATHS.MDB");
    if (vdIsBlank(sStartupErrors))
        return;
    sMsgTitle = "Startup Error";
    sMsgText = sStartupErrors;
    endStartup();
}

void frmTOLMAIN::appendIfMissing(const std::string& file) {
    if (vdIsBlank(vdDir(file)))
        sStartupErrors += fmt::format("The database file {} is missing.\n",
                                      platform::below(platform::currentFolder(), file));
}

void frmTOLMAIN::checkUserDatabase() {
    if (vdNotBlank(vdDir(userDatabase)))
        return;
    sMsgTitle = "A Required Database is Missing.";
    sMsgText = "This application requires the database file: ZOVUSER.MDB.\n"
               "The database must be on the local C Drive under the folder: C:\\ZOVUSER";
    endStartup();
}

void frmTOLMAIN::endStartup() {
    CloseSplash();
    runtime::host().msgBox(sMsgText, critical, sMsgTitle);
    forms::Application::setExitStatus(EXIT_FAILURE);
    runtime::host().end();
}

void frmTOLMAIN::CloseSplash() {
    unloadSplash();
    Timer1.setEnabled(false);
    bMainVisible = true;
}

void frmTOLMAIN::unloadSplash() {
    if (m_splash == nullptr)
        return;
    m_splash->unload();
    m_splash.reset();
}

// The splash's time.

void frmTOLMAIN::Timer1_Timer() {
    try {
        if (nSplashTicks < nSplashLimit)
            countTick();
        else if (nSplashTicks == nSplashLimit)
            finishSplash();
    } catch (const runtime::RuntimeError& error) {
        Timer1.setEnabled(false); // it would tick, and fail, again under the box
        runtime::host().msgBox(fmt::format("Timer Error\n{}\n{}", error.number(), error.description()));
        finishSplash();
    }
}

void frmTOLMAIN::countTick() {
    ++nSplashTicks;
    bool splashStands = false;
    // Capitals that no window's name has: the search never finds the splash, so that the limit is
    // reached at the first tick and the splash stands for two ticks, whether a person takes it away or not.
    for (int i = 0; i < forms::LoadedForms::Count(); ++i)
        if (forms::LoadedForms::Item(i).objectName() == "frmTOLSPLASH")
            splashStands = true;
    if (!splashStands)
        nSplashTicks = nSplashLimit;
}

void frmTOLMAIN::finishSplash() {
    unloadSplash();
    appear();
    Timer1.setEnabled(false);
}

} // namespace tol::shell
