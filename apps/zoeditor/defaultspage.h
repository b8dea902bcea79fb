// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <zokit/changes.h>

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace zoeditor {

class Session;

/// The defaults of each effect type, and where each comes from: saved by the user, or the catalogue's.
class DefaultsPage : public QWidget {
    Q_OBJECT

public:
    explicit DefaultsPage(Session* session, QWidget* parent = nullptr);

private:
    QString type() const;
    zokit::Identity source() const;
    void update();

    Session* m_session;
    QComboBox* m_type;
    QTreeWidget* m_values;
    QLabel* m_state;
    QPushButton* m_save;
    QPushButton* m_forget;
};

} // namespace zoeditor
