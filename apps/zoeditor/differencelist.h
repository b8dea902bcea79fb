// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTreeWidget>
#include <QVector>

#include <zokit/differences.h>

namespace zoeditor {

/// Differences of settings for people: what, the old value, the new one. Rows above them may stand for files.
class DifferenceList : public QTreeWidget {
    Q_OBJECT

public:
    explicit DifferenceList(QWidget* parent = nullptr);

    /// Puts \a differences below \a above, or at the top without; that there is none, in words.
    void add(const QVector<zokit::Difference>& differences, QTreeWidgetItem* above = nullptr);
};

} // namespace zoeditor
