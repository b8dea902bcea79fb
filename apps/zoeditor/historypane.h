// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListWidget>

namespace zoeditor {

class Session;

/// The steps of the history, the oldest first; choosing one goes there. What was undone is dimmed.
class HistoryPane : public QListWidget {
    Q_OBJECT

public:
    explicit HistoryPane(Session* session, QWidget* parent = nullptr);

private:
    void update();

    Session* m_session;
};

} // namespace zoeditor
