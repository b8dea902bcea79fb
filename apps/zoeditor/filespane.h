// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <QVector>
#include <QWidget>

class QComboBox;
class QListView;
class QMimeData;
class QSortFilterProxyModel;

namespace zoeditor {

class Session;
class Thumbnails;

/// The list of files: filter, order, several chosen at once. Files are dropped on the whole window.
class FilesPane : public QWidget {
    Q_OBJECT

public:
    explicit FilesPane(Session* session, QWidget* parent = nullptr);

    /// Rows of Session::files() that are chosen, also those that cannot be read.
    QVector<int> chosenRows() const;

    /// The three lines of a row as they are drawn in \a width pixels: a name loses its middle, what is said of it its
    /// end. Where one of the lower two is too long, the other takes of it what it has room for.
    static QStringList fitted(const QStringList& lines, const QFontMetrics& metrics, int width);

    /// Names of the local files in what is dragged or was copied; none where \a data is null.
    static QStringList localFiles(const QMimeData* data);

signals:
    /// The chosen rows are to be taken off the list.
    void removalWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QComboBox* makeOrder();
    void setUpView();
    void showSelection();
    void takeSelection();
    void askForSeen();

    Session* m_session;
    QSortFilterProxyModel* m_order;
    QListView* m_view;
    Thumbnails* m_thumbnails;
    QTimer m_soon;
    bool m_isShowing = false; ///< The selection of the view follows the session just now.
};

} // namespace zoeditor
