// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QLabel;

namespace zoeditor {

class Session;

/// The page that says what is missing, and the one line that installs it. Hidden while nothing is.
class MissingTools : public QWidget {
    Q_OBJECT

public:
    explicit MissingTools(Session* session, QWidget* parent = nullptr);

private:
    void update();

    Session* m_session;
    QLabel* m_reason;
};

} // namespace zoeditor
