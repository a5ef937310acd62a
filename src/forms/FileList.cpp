// SPDX-License-Identifier: MIT
#include "forms/FileList.h"

#include "forms/Pictures.h"
#include "platform/Folders.h"
#include "platform/Paths.h"
#include "runtime/RuntimeError.h"

namespace tol::forms {
namespace {

std::vector<std::string> readableFiles(const std::string& path, const std::string& pattern) {
    try {
        return platform::filesIn(path, pattern);
    } catch (const runtime::RuntimeError&) {
        return {};
    }
}

} // namespace

FileList& FileList::add(QWidget& parent, const QString& name, const std::string& pattern, Place where) {
    auto& list = *new FileList(parent, pattern);
    list.setObjectName(name);
    place(list, where);
    return list;
}

FileList::FileList(QWidget& parent, std::string pattern) : ListBox(parent), m_pattern(std::move(pattern)) {
    Path(platform::currentFolder());
}

void FileList::Path(const std::string& path) {
    if (path == m_path)
        return;
    m_path = path;
    Refresh();
}

void FileList::Refresh() {
    Clear();
    for (const std::string& name : readableFiles(m_path, m_pattern))
        addItem(new QListWidgetItem(picture(Picture::File), QString::fromStdString(name)));
}

} // namespace tol::forms
