// SPDX-License-Identifier: MIT
#include "screens/TextBoxInput.h"

#include "forms/Focus.h"
#include "forms/Keys.h"
#include "forms/TextBox.h"

namespace tol::screens {

int vdEnterKey(int key, bool upper, bool keepEnter) {
    if (key == keyReturn && keepEnter)
        return key;
    if (key == keyReturn) {
        forms::pressTab();
        return keyNone;
    }
    return upper && key >= 'a' && key <= 'z' ? key - 'a' + 'A' : key;
}

void vdSelectAll(forms::TextBox& box) {
    box.selectAllText();
}

} // namespace tol::screens
