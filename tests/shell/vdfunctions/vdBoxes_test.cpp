// SPDX-License-Identifier: MIT
#include "SharedRoutineTest.h"
#include "shell/vdfunctions/vdBoxes.h"

namespace tol::test {
namespace {

using namespace shell;
using runtime::MsgIcon;

class ErrorBoxes : public SharedRoutineTest {};

TEST_F(ErrorBoxes, FormLoadError) {
    vdFormLoadErrorBox("frmDBUDDU", "3024", "Could not find file 'ERROR'.");
    expectBox(MsgIcon::Critical, "Error Displaying Form",
              "Error Loading Form: frmDBUDDU\n\nError Number: 3024\n\nError Description: Could not find file "
              "'ERROR'.");
}

TEST_F(ErrorBoxes, ProcessError) {
    vdProcessError("frmDBUDDU ", "3021 ConvertFieldType", "No current record.");
    expectBox(MsgIcon::Critical, "Error During Processing",
              "Error Encountered In Form: frmDBUDDU \nError: 3021 ConvertFieldType\nNo current record.");
}

TEST_F(ErrorBoxes, NotReady) {
    vdNotReady();
    expectBox(MsgIcon::Information, "Option Not Ready", "Development is Pending on this Option.");
}

} // namespace
} // namespace tol::test
