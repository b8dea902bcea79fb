// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <utility>

#include <QObject>
#include <QStringList>

namespace zoeditor {

class Session;
class Window;

/// The editor as a program: one session and its window, which is made anew in another language.
class Editor : public QObject {
    Q_OBJECT

public:
    /// Nothing is shown yet. The journal lies in \a journalFolder, or where the kit keeps them.
    explicit Editor(const QString& journalFolder = {});
    ~Editor() override;

    /// Shows the window, offers what a session that died has left, and opens \a files.
    void start(const QStringList& files);

    /// Opens \a files that another start of the program hands over, and brings the window to the front. While a
    /// question or a dialog is open they wait: what is answered there means the files that were shown.
    void openHandedOver(const QStringList& files);
    /// Those that still wait, for whoever opens them instead.
    QStringList takeWaiting() { return std::exchange(m_handedOver, {}); }

    Session& session() const { return *m_session; }
    Window& window() const { return *m_window; }

private:
    void makeWindow();
    void openWaiting();
    /// Settings files that were chosen instead of what is left.
    QStringList offerLeft();

    std::unique_ptr<Session> m_session;
    std::unique_ptr<Window> m_window;
    QStringList m_handedOver; ///< They wait.
};

} // namespace zoeditor
