// SPDX-License-Identifier: MIT
#include "Drawn.h"

#include "runtime/Overloaded.h"

#include <fmt/format.h>

namespace tol::test {

using search_print::Box;
using search_print::Line;
using search_print::Page;
using search_print::Primitive;
using search_print::Text;
using search_print::VSPrinter;

namespace {

const Page& pageOf(const VSPrinter& printer, int page) {
    return printer.document().pages.at(static_cast<std::size_t>(page) - 1);
}

} // namespace

std::vector<std::string> drawn(const VSPrinter& printer, int page) {
    const runtime::Overloaded tell{[](const Line& line) {
                                       return fmt::format("line {:g} {:g} {:g} {:g} pen {:g}", line.x1,
                                                          line.y1, line.x2, line.y2, line.penWidth);
                                   },
                                   [](const Box& box) {
                                       std::string text = fmt::format("box {:g} {:g} {:g} {:g}", box.left,
                                                                      box.top, box.right, box.bottom);
                                       if (box.penWidth != search_print::noPen)
                                           text += fmt::format(" pen {:g}", box.penWidth);
                                       if (box.fill != search_print::noFill)
                                           text += fmt::format(" fill {:06x}", box.fill & 0xFFFFFFU);
                                       return text;
                                   },
                                   [&](const Text& text) {
                                       const auto& font = printer.document().font(text.font).spec();
                                       return fmt::format("text {:g} {:g} {} {:g}{}: {}", text.x, text.y,
                                                          font.name, font.size, font.bold ? " bold" : "",
                                                          text.text.toStdString());
                                   }};
    std::vector<std::string> lines;
    for (const Primitive& primitive : pageOf(printer, page).primitives)
        lines.push_back(std::visit(tell, primitive));
    return lines;
}

std::vector<std::string> textsOf(const VSPrinter& printer, int page) {
    std::vector<std::string> texts;
    for (const Primitive& primitive : pageOf(printer, page).primitives)
        if (const auto* text = std::get_if<Text>(&primitive))
            texts.push_back(text->text.toStdString());
    return texts;
}

Document::Document(search_print::Paper paper) : VSPrinter(paper) {
    MarginLeft(500);
    MarginRight(500);
    MarginTop(500);
    MarginBottom(500);
    StartDoc();
}

} // namespace tol::test
