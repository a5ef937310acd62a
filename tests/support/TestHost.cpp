// SPDX-License-Identifier: MIT
#include "support/TestHost.h"

namespace tol::test {

using runtime::MsgButtons;
using runtime::MsgResult;

std::vector<std::string> TestHost::texts() const {
    std::vector<std::string> all;
    for (const Box& box : boxes)
        all.push_back(box.text);
    return all;
}

MsgResult TestHost::showMsgBox(const std::string& text, runtime::MsgStyle style, const std::string& title) {
    boxes.push_back({title, text, style});
    if (onBox)
        onBox(boxes.back());
    if (answers.empty())
        return style.buttons == MsgButtons::YesNo ? MsgResult::Yes : MsgResult::Ok;
    const MsgResult answer = answers.front();
    answers.pop_front();
    return answer;
}

void TestHost::processEvents() {
    ++yields;
    if (onYield)
        onYield();
}

} // namespace tol::test
