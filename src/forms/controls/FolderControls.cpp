// SPDX-License-Identifier: MIT
#include "forms/controls/FolderControls.h"

#include "forms/look/Pictures.h"
#include "platform/Folders.h"
#include "platform/Paths.h"
#include "runtime/RuntimeError.h"

#include <QApplication>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

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

namespace {

constexpr int pathRole = Qt::UserRole, depthRole = Qt::UserRole + 1;
constexpr int indentation = 180;

/// Moves a folder to the right, the deeper it lies.
class IndentedRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem indented(option);
        indented.rect.adjust(shift(index), 0, 0, 0);
        QStyledItemDelegate::paint(painter, indented, index);
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(shift(index), 0);
    }

  private:
    static int shift(const QModelIndex& index) {
        return index.data(depthRole).toInt() * toPixels(indentation);
    }
};

} // namespace

FolderList& FolderList::add(QWidget& parent, const QString& name, Place where) {
    auto& list = *new FolderList(parent);
    list.setObjectName(name);
    place(list, where);
    return list;
}

FolderList::FolderList(QWidget& parent) : ListBox(parent) {
    setItemDelegate(new IndentedRows(this));
    onDblClick([this] { openSelected(); });
    onEnter([this] { openSelected(); });
    show(platform::currentFolder());
}

void FolderList::Path(const std::string& path) {
    const std::string before = m_path;
    show(path);
    if (m_path != before && m_change)
        runEvent(*this, m_change);
}

void FolderList::show(const std::string& path) {
    const std::vector<std::string> chain = platform::folderChain(path);
    const std::vector<std::string> names = platform::foldersIn(chain.back()); // before anything changes
    m_path = chain.back();
    Clear();
    int depth = 0;
    for (const std::string& folder : chain)
        addFolder(folder, depth++, true);
    for (const std::string& name : names)
        addFolder(platform::inFolder(m_path, name), depth, false);
    ListIndex(static_cast<int>(chain.size()) - 1);
}

void FolderList::addFolder(const std::string& path, int depth, bool open) {
    auto* row = new QListWidgetItem(picture(open ? Picture::OpenFolder : Picture::Folder),
                                    QString::fromStdString(platform::folderName(path)), this);
    row->setData(pathRole, QString::fromStdString(path));
    row->setData(depthRole, depth);
}

// A folder that is gone or closed to this person leaves the list as it is.
void FolderList::openSelected() {
    if (ListIndex() < 0)
        return;
    try {
        Path(item(ListIndex())->data(pathRole).toString().toStdString());
    } catch (const runtime::RuntimeError&) {
        QApplication::beep();
    }
}

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
