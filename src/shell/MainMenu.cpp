// SPDX-License-Identifier: MIT
#include "shell/MainMenu.h"

namespace tol::shell {
namespace {

using enum MenuAction;

constexpr MenuItem fileItems[] = {
    {"miPath", "&1 - Enter Location of ZOVNET Database", OpenWindow, "frmNETPATH", Instance::Single,
     Shown::Modal},
    {"miDBBrowse", "&2 - Browse Job Sites", OpenWindow, "frmDBPBrowse"},
    {"miExit", "E&xit", EndProgram},
};

constexpr MenuItem rightsItems[] = {
    {"miTOLURL01", "&1 - User List (Assign User Rights)", OpenWindow, "frmTOLURL01"},
    {"miTOLURT01", "&2 - User Rights Templates", OpenWindow, "frmTOLURT01"},
};

constexpr MenuItem accessItems[] = {
    {"miTOLUAI01", "&1 - User Access Items", OpenWindow, "frmTOLUAI01"},
    {"miTOLMOD01", "&2 - Modules", OpenWindow, "frmTOLMOD01"},
};

constexpr MenuItem utilityItems[] = {
    {"miDBUDDU", "&1 - Database Definition Update", OpenWindow, "frmDBUDDU", Instance::Single, Shown::Child},
    {"miTOLUTL01", "&2 - Update User Access Items List", OpenWindow, "frmTOLUTL01", Instance::Single,
     Shown::Modal},
    {"miTOLRLKS01", "&3 - View/Delete Record Locks", OpenWindow, "frmTOLRLKS01"},
    {"miNETSET", "&4 - Network Settings", OpenWindow, "frmNETSET", Instance::Single, Shown::Modal},
};

constexpr MenuItem windowItems[] = {
    {"miHorizontally", "Tile &Horizontally", TileHorizontally},
    {"miVertical", "Tile &Vertically", TileVertically},
    {"miCascade", "&Cascade", Cascade},
};

constexpr MenuItem helpItems[] = {
    {"miHelpContents", "&Contents", NotReady},
    {"miHelpIndex", "&Index", NotReady},
    {"miHelpSearch", "&Search", NotReady},
    {"miHelpAbout", "&About Tolvane Module", OpenWindow, "frmAboutView", Instance::New, Shown::Modal},
};

constexpr Menu menus[] = {
    {"mnuFile", "&File", fileItems},
    {"mnuUserRights", "User &Rights", rightsItems},
    {"mnuUserAccessItems", "User &Access Items", accessItems},
    {"mnuUtilities", "&Utilities", utilityItems},
    {"mnuWindow", "&Window", windowItems},
    {"mnuHelp", "&Help", helpItems},
};

} // namespace

std::span<const Menu> mainMenu() {
    return menus;
}

} // namespace tol::shell
