// SPDX-License-Identifier: MIT
#include "definition_update/windows/NowProcessing.h"

#include "forms/controls/Controls.h"
#include "screens/RowLabel.h"

#include <QGroupBox>
#include <QLabel>

namespace tol::update {
namespace {

constexpr int firstLine = 315;
constexpr int lineHeight = 270;
constexpr int margin = 150;
constexpr int headingWidth = 1050;
constexpr int secondColumn = 7500;
constexpr int countWidth = 1050;
constexpr int ofWidth = 300;

} // namespace

NowProcessing::NowProcessing(QWidget& parent, forms::Place where)
    : m_frame(forms::addCaptionedFrame(parent, "fraNOWPROCESSING", "Now Processing", where)) {
    const int second = firstLine + lineHeight;
    const int third = second + lineHeight;
    const int width = secondColumn - margin;
    addLine("lblHNPPATHNAME", "Job Site:", RunLabel::NPPATHNAME, "lblNPPATHNAME",
            {margin, firstLine, width, lineHeight});
    addLine("lblHNPPATHTEXT", "Location:", RunLabel::NPPATHTEXT, "lblNPPATHTEXT",
            {margin, second, width, lineHeight});
    addLine("lblHNPDBNAME", "Database:", RunLabel::NPDBNAME, "lblNPDBNAME",
            {margin, third, width, lineHeight});
    addLine("lblNP1", "Table:", RunLabel::NP2, "lblNP2",
            {secondColumn, firstLine, where.width - margin - secondColumn, lineHeight});
    addRecordLine(secondColumn, second);
}

// A location can be longer than any label.
void NowProcessing::addLine(const char* headingName, const char* heading, RunLabel label, const char* name,
                            forms::Place where) {
    forms::addLabel(m_frame, headingName, heading, {where.left, where.top, headingWidth, where.height});
    auto& text = *new screens::RowLabel(m_frame, name, screens::TextCut::Middle);
    text.setTransparent();
    forms::place(text, {where.left + headingWidth, where.top, where.width - headingWidth, where.height});
    m_labels.at(static_cast<std::size_t>(label)) = &text;
}

void NowProcessing::addRecordLine(int left, int top) {
    int x = left;
    const auto add = [&](const char* name, const char* caption, int width) {
        QLabel& label = forms::addLabel(m_frame, name, caption, {x, top, width, lineHeight});
        x += width;
        return &label;
    };
    m_recordLabels[0] = add("lblNP3", "Record:", headingWidth);
    m_recordLabels[1] = add("lblNP4", " ", countWidth);
    m_recordLabels[2] = add("lblNP5", "of", ofWidth);
    m_recordLabels[3] = add("lblNP6", " ", countWidth);
    m_recordLabels[1]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_recordLabels[2]->setAlignment(Qt::AlignCenter);
    m_labels.at(static_cast<std::size_t>(RunLabel::NP4)) = m_recordLabels[1];
    m_labels.at(static_cast<std::size_t>(RunLabel::NP6)) = m_recordLabels[3];
}

void NowProcessing::setVisible(bool visible) {
    m_frame.setVisible(visible);
}

void NowProcessing::showLabel(RunLabel label, const std::string& text) {
    m_labels.at(static_cast<std::size_t>(label))->setText(QString::fromStdString(text));
}

void NowProcessing::showRecordLabels(bool visible) {
    for (QLabel* label : m_recordLabels)
        label->setVisible(visible);
}

} // namespace tol::update
