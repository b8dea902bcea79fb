// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QAbstractListModel>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <zokit/changes.h>
#include <zokit/message.h>
#include <zokit/probe.h>
#include <zokit/settings.h>

namespace zoeditor {

/// What stands in one row of the list of files.
struct FileRow {
    QString path;                          ///< Of the clip, absolute.
    zokit::Identity file = 0;              ///< Of its settings; 0 until it was read, and when it cannot be.
    bool isAsked = false;                  ///< Whether it waits for being read, or is.
    zokit::Message problem;                ///< Why it cannot be read or converted.
    std::optional<zokit::MediaInfo> media; ///< Once it was read.
    std::optional<zokit::Settings> loaded; ///< What a settings file had, until the clip was read.
    QString settingsFile;                  ///< Where its settings are kept; empty: nowhere yet.
    std::optional<zokit::Settings> onDisk; ///< The settings as they were opened or saved last.
    bool isEdited = false;                 ///< They are others now.
    QString work;                          ///< What the queue does with it, in words; empty: nothing.
    QPixmap thumbnail;                     ///< Null until it is there.
};

/// The files that are open, one a row, in the order in which they came. The texts are for people: name,
/// state, and size and length, a line each; a list that is narrow cuts off none of the words for a state.
class FilesModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        PathRole = Qt::UserRole, ///< Of the clip.
        FileRole,                ///< Identity of its settings; 0 when it has none.
        SizeRole,                ///< Pixels of the picture, as a number.
        LengthRole,              ///< Seconds.
        StateRole,               ///< In words: "untouched", "edited", "saved", "running", why it cannot be read.
    };

    explicit FilesModel(QObject* parent = nullptr);

    const QVector<FileRow>& rows() const { return m_rows; }
    /// Of the file with that path or identity; -1 when there is none.
    int rowOf(const QString& path) const;
    int rowOf(zokit::Identity file) const;

    void append(const FileRow& row);
    /// Puts another row there; \a index is in the list.
    void replace(int index, const FileRow& row);
    void remove(int index);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// What stands between two things that are said in one line.
    static QString separator() { return QStringLiteral(" \u00b7 "); }

    /// The sorts that are offered: a name for people and the role.
    static QVector<QPair<QString, int>> orders();

private:
    QVector<FileRow> m_rows;
};

} // namespace zoeditor
