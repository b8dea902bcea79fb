// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QStringList>
#include <QWidget>

#include <zokit/queue.h>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace zoeditor {

/// The queue: a row a file with its result, its state in words, progress and time left, and the log of the one that is
/// chosen.
class QueuePane : public QWidget {
    Q_OBJECT

public:
    /// Shows \a queue, which outlives it.
    explicit QueuePane(zokit::Queue* queue, QWidget* parent = nullptr);

private:
    QTreeWidgetItem* item(int row) const;
    int chosen() const;
    QVector<int> selected() const;
    void remove(const QVector<int>& rows);
    int place() const;
    void makeButtons();
    void makeRows();
    void showState(int row);
    void showProgress(int row, double fraction, double secondsLeft);
    void showLog();
    void note(int row, const QString& line);
    void updateButtons();

    zokit::Queue* m_queue;
    QTreeWidget* m_list;
    QPlainTextEdit* m_log;
    QLabel* m_summary;
    QVector<QPushButton*> m_buttons;
    bool m_isRemoving = false;      ///< Many rows: the list is made once for them.
    QHash<int, QStringList> m_logs; ///< What became of each row in this session, a line each.
};

} // namespace zoeditor
