// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "filesmodel.h"

#include <algorithm>
#include <cmath>

#include <QFileInfo>
#include <QIcon>

#include "names.h"

namespace zoeditor {

namespace {

constexpr int thumbnailWidth = 128;
constexpr int thumbnailHeight = 72;

/// What stands where the picture is still to come, of the same size.
QPixmap emptyThumbnail()
{
    QPixmap empty(thumbnailWidth, thumbnailHeight);
    empty.fill(QColor(128, 128, 128, 60));
    return empty;
}

QSize frameOf(const FileRow& row)
{
    const zokit::MediaStream* picture = row.media ? row.media->picture() : nullptr;
    return picture ? picture->shown : QSize();
}

QString lengthText(double seconds)
{
    return clockText(static_cast<qint64>(std::min(std::round(seconds), 1e9)));
}

/// In words; what is most important is the first.
QStringList statesOf(const FileRow& row)
{
    const QString problem = row.problem.text();
    if (!problem.isEmpty()) {
        for (const QString& where : {row.path + QLatin1String(": "), row.path + QLatin1Char(' ')}) {
            if (problem.startsWith(where)) // The name stands in the line above.
                return {problem.mid(where.size())};
        }
        return {problem};
    }
    if (row.isAsked)
        return {FilesModel::tr("is being read")};
    QStringList states;
    if (!row.work.isEmpty())
        states.append(row.work);
    if (row.isEdited)
        states.append(FilesModel::tr("edited"));
    if (states.isEmpty())
        states.append(row.settingsFile.isEmpty() ? FilesModel::tr("untouched") : FilesModel::tr("saved"));
    return states;
}

} // namespace

FilesModel::FilesModel(QObject* parent) : QAbstractListModel(parent) {}

int FilesModel::rowOf(const QString& path) const
{
    const auto found =
        std::find_if(m_rows.cbegin(), m_rows.cend(), [&](const FileRow& row) { return row.path == path; });
    return found == m_rows.cend() ? -1 : static_cast<int>(found - m_rows.cbegin());
}

int FilesModel::rowOf(zokit::Identity file) const
{
    const auto found =
        std::find_if(m_rows.cbegin(), m_rows.cend(), [&](const FileRow& row) { return file != 0 && row.file == file; });
    return found == m_rows.cend() ? -1 : static_cast<int>(found - m_rows.cbegin());
}

void FilesModel::append(const FileRow& row)
{
    beginInsertRows({}, rowCount(), rowCount());
    m_rows.append(row);
    endInsertRows();
}

void FilesModel::replace(int index, const FileRow& row)
{
    m_rows[index] = row;
    emit dataChanged(this->index(index), this->index(index));
}

void FilesModel::remove(int index)
{
    beginRemoveRows({}, index, index);
    m_rows.remove(index);
    endRemoveRows();
}

int FilesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant FilesModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FileRow& row = m_rows.at(index.row());
    const QSize frame = frameOf(row);
    const double seconds = row.media ? row.media->seconds : 0;
    const QStringList states = statesOf(row);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole: {
        QStringList about = states.mid(1);
        if (!frame.isEmpty())
            about.append(tr("%1 x %2").arg(frame.width()).arg(frame.height()));
        if (seconds > 0)
            about.append(lengthText(seconds));
        // Each row has as many lines: the list measures one.
        return QStringList{shownName(row.path), states.first(), about.join(separator())}.join(QLatin1Char('\n'));
    }
    case Qt::ToolTipRole: {
        QStringList lines{row.path, states.join(separator())};
        if (!row.settingsFile.isEmpty())
            lines.append(row.settingsFile);
        return lines.join(QLatin1Char('\n'));
    }
    case Qt::DecorationRole:
        return QIcon(row.thumbnail.isNull() ? emptyThumbnail() : row.thumbnail); // The view says how large.
    case PathRole:
        return row.path;
    case FileRole:
        return row.file;
    case SizeRole:
        return frame.isEmpty() ? 0 : frame.width() * frame.height();
    case LengthRole:
        return seconds;
    case StateRole:
        return states.join(separator());
    default:
        return {};
    }
}

Qt::ItemFlags FilesModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

QVector<QPair<QString, int>> FilesModel::orders()
{
    return {{tr("as added"), -1},
            {tr("by name"), Qt::DisplayRole},
            {tr("by size"), SizeRole},
            {tr("by length"), LengthRole},
            {tr("by state"), StateRole}};
}

} // namespace zoeditor
