// SPDX-License-Identifier: MIT
#include "forms/DriveList.h"

#include "forms/Pictures.h"
#include "platform/Folders.h"
#include "platform/Paths.h"

#include <QSignalBlocker>

namespace tol::forms {

DriveList& DriveList::add(QWidget& parent, const QString& name, Place where) {
    auto& list = *new DriveList(parent);
    list.setObjectName(name);
    place(list, where);
    return list;
}

DriveList::DriveList(QWidget& parent) : QComboBox(&parent) {
    for (const std::string& drive : platform::drives())
        addItem(picture(Picture::Drive), QString::fromStdString(drive));
    Drive(platform::driveOf(platform::currentFolder()));
    connect(this, &QComboBox::currentIndexChanged, this, [this] {
        if (m_change)
            runEvent(*this, m_change);
    });
}

void DriveList::Drive(const std::string& drive) {
    const QSignalBlocker silence(this);
    if (const int position = findText(QString::fromStdString(drive)); position >= 0)
        setCurrentIndex(position);
}

} // namespace tol::forms
