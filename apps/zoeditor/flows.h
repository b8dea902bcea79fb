// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QDockWidget;

namespace zoeditor {

class Session;
class SleepGuard;
class Window;

/// What is done to many files at once, and for long: applying, presets, tracks, converting with its queue.
/// Connects their actions in the table to dialogs and panes of a window.
class Flows : public QObject {
    Q_OBJECT

public:
    /// Adds to \a window, which owns it; \a session outlives both.
    Flows(Session* session, Window* window);

    /// Whether the window may be closed: where something is being converted, it asks first.
    bool mayClose();

private:
    double seconds() const;
    void makeQueue();
    void update();

    Session* m_session;
    Window* m_window;
    QDockWidget* m_queue = nullptr;
    SleepGuard* m_sleep;
};

} // namespace zoeditor
