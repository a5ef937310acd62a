// SPDX-License-Identifier: MIT
#include "Desk.h"

#include <thread>

namespace tol::test {

using namespace std::chrono_literals;
using nlohmann::json;

void Desk::SetUp() {
    tol = display.start(TOL_PROGRAM);
    ASSERT_TRUE(display.waitForWindow(mainTitle)) << tol->err();
}

std::string Desk::printedBy(const std::filesystem::path& program,
                            const std::vector<std::string>& arguments) const {
    Program process(program, arguments, work);
    process.wait();
    return process.out();
}

json Desk::rows(const std::string& file, const std::string& table) const {
    const json database = json::parse(printedBy(TOL_CTL_PROGRAM, {"dump", file}));
    for (const json& candidate : database.at("tables"))
        if (candidate.at("name") == table)
            return candidate.at("rows");
    return {};
}

bool Desk::comes(const std::string& file, const std::string& table,
                 const std::function<bool(const json&)>& isThere) const {
    return waitFor([&] { return isThere(rows(file, table)); });
}

void Desk::open(const std::vector<std::string>& keys) const {
    display.press(keys);
    std::this_thread::sleep_for(500ms);
}

void Desk::answer(const std::string& box, const std::string& key) const {
    ASSERT_TRUE(display.waitForWindow(box)) << tol->err();
    display.press({key});
    ASSERT_TRUE(waitFor([&] { return !display.hasWindow(box); }));
}

void Desk::saveAsPdf(const std::string& file) const {
    display.press({"p"});
    ASSERT_TRUE(display.waitForWindow("Print"));
    display.press({"alt+f"});
    display.type((work / file).string());
    display.press({"Return"});
    ASSERT_TRUE(waitFor([&] { return std::filesystem::exists(work / file); }));
}

std::string Desk::textOf(const std::string& pdf) const {
    return printedBy("/usr/bin/pdftotext", {"-layout", pdf, "-"});
}

void Desk::leave() const {
    display.press({"alt+f", "x"});
    EXPECT_TRUE(tol->waitFor(20s)) << tol->err();
}

} // namespace tol::test
