// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>
#include <QVector>

#include <zokit/zokit_export.h>

namespace zokit {

class FileSettings;
class Project;

/// The files of a project as rows for item views, QML, or a list of a host's own. It follows the project.
class ZOKIT_EXPORT FilesModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// Qt::DisplayRole is the name of the clip's file without its folder, Qt::ToolTipRole its path.
    enum Role {
        FileRole = Qt::UserRole ///< Identity of the file.
    };
    Q_ENUM(Role)

    /// Of \a project, which outlives it.
    explicit FilesModel(Project& project, QObject* parent = nullptr);

    FileSettings* file(const QModelIndex& index) const;                     ///< Null where there is no row.
    QModelIndex indexOf(const FileSettings* file) const;                    ///< Invalid where there is no such file.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override; ///< One a file, in the project's order.
    /// As the roles say; what a row does not have is invalid.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override; ///< For QML: "display", "toolTip", "file".

private:
    QVector<FileSettings*> m_files;
};

} // namespace zokit
