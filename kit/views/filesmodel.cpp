// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/filesmodel.h>

#include <QFileInfo>

#include <zokit/project.h>

namespace zokit {

FilesModel::FilesModel(Project& project, QObject* parent) : QAbstractListModel(parent), m_files(project.files())
{
    connect(&project, &Project::fileAdded, this, [this, &project](FileSettings* file) {
        const int row = static_cast<int>(project.files().indexOf(file)); // Undo puts it back where it was.
        beginInsertRows(QModelIndex(), row, row);
        m_files.insert(row, file);
        endInsertRows();
    });
    connect(&project, &Project::fileAboutToBeRemoved, this, [this](FileSettings* file) {
        const int row = static_cast<int>(m_files.indexOf(file));
        beginRemoveRows(QModelIndex(), row, row);
        m_files.remove(row);
        endRemoveRows();
    });
}

FileSettings* FilesModel::file(const QModelIndex& index) const
{
    return index.isValid() ? m_files.value(index.row()) : nullptr;
}

QModelIndex FilesModel::indexOf(const FileSettings* file) const
{
    for (int row = 0; row < m_files.size(); ++row) {
        if (m_files.at(row) == file)
            return index(row);
    }
    return QModelIndex();
}

int FilesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_files.size());
}

QVariant FilesModel::data(const QModelIndex& index, int role) const
{
    const FileSettings* of = file(index);
    if (!of)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return QFileInfo(of->media().file).fileName();
    case Qt::ToolTipRole:
        return of->media().file;
    case FileRole:
        return QVariant::fromValue(of->file());
    default:
        return QVariant();
    }
}

QHash<int, QByteArray> FilesModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(FileRole, "file");
    return names;
}

} // namespace zokit
