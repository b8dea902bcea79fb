// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QTreeWidget>
#include <QVector>

#include <zokit/differences.h>
#include <zokit/filesettings.h>

namespace zoeditor {

/// What will change in files, for people: a row a file, below it what, the old value, the new one.
class DifferenceList : public QTreeWidget {
    Q_OBJECT

public:
    explicit DifferenceList(QWidget* parent = nullptr);

    using Find = std::function<QVector<zokit::Difference>(const zokit::Settings& before)>;

    /// A row for each of \a files, which outlive this. \a find is asked what changes in one when its row is opened, as
    /// the first one is; that nothing does is said, too.
    void show(const QVector<zokit::FileSettings*>& files, Find find);

private:
    void fill(QTreeWidgetItem* row);

    QVector<zokit::FileSettings*> m_files;
    Find m_find;
};

} // namespace zoeditor
