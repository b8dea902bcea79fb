// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QVector>

class QAction;
class QMainWindow;

namespace zoeditor {

/// Everything that can be done, as one table: menus, tool bar, shortcuts and their list are made from it. A pane
/// connects the actions that are its own.
class Actions : public QObject {
    Q_OBJECT

public:
    /// Makes menus and tool bar of \a window, which owns this and the actions.
    explicit Actions(QMainWindow* window);

    /// The action of that object name. It must be in the table.
    QAction* action(const char* name) const;
    /// All of them, in the order of the menus. The data() of each is what it does, in words.
    QVector<QAction*> all() const { return m_actions; }

private:
    QVector<QAction*> m_actions;
};

} // namespace zoeditor
