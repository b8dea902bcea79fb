// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QScrollArea>
#include <QTimer>

#include <zokit/changes.h>
#include <zokit/message.h>

class QGridLayout;
class QLabel;
class QToolButton;

namespace zoeditor {

class Session;
class ValueControl;

/// The values of the effect type or item that is chosen: a row a value with its mark and what takes it back, in groups,
/// all made from the kit's table.
class Panel : public QScrollArea {
    Q_OBJECT

public:
    explicit Panel(Session* session, QWidget* parent = nullptr);

    /// Moves the focus to the field of \a key of the chosen thing; nothing when it has none.
    void focusOn(const QString& key);
    /// Sets what is typed in a field and was not set yet, and ends the gesture that is open: what an action does comes
    /// after it. False when what was typed was refused.
    bool finishTyping();

private:
    struct Row {
        ValueControl* control;
        QLabel* mark;
        QToolButton* revert;
    };

    void rebuild();
    void update();
    void addHead(QGridLayout* grid, const QModelIndex& chosen, bool isEmpty) const;
    void addGroup(QGridLayout* grid, const QString& name) const;
    void addRow(QGridLayout* grid, const QString& key, const QString& label, ValueControl* control);
    zokit::Message stepOf(const QString& key) const;
    void set(const QString& key, const QVariant& value);

    Session* m_session;
    zokit::Identity m_thing = 0;
    QHash<QString, Row> m_rows; ///< By key.
    QTimer m_rebuilding;
    bool m_isTaken = true; ///< What was set last was not refused.
    QString m_wanted;      ///< The key whose field gets the focus once it is there.
};

} // namespace zoeditor
