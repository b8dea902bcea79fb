// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTreeWidget>

namespace zokit {
class FileSettings;
}

namespace zoeditor {

/// What of a file's settings is meant: its types, their items and the values that were changed, each with a check box.
/// What was changed is checked at first.
class WhatTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit WhatTree(QWidget* parent = nullptr);

    /// Shows \a file; null: nothing.
    void setFile(zokit::FileSettings* file);
    /// Checks exactly \a type; empty: nothing.
    void checkOnly(const QString& type);
    /// What is checked, as zokit::CarryOver::what takes it.
    QStringList what() const;

signals:
    /// what() answers anew; once, however much was checked.
    void whatChanged();

private:
    bool m_isTelling = false;
};

} // namespace zoeditor
