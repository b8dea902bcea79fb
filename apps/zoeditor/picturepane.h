// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QLabel;

namespace zokit {
class ShownFrames;
}

namespace zoeditor {

class Actions;
class PictureView;
class Session;

/// The picture of the current file with its row of tools, and what is to be said of it.
class PicturePane : public QWidget {
    Q_OBJECT

public:
    /// Connects \a actions of "show" and "zoom". All outlive it.
    PicturePane(Session& session, const Actions& actions, QWidget* parent = nullptr);

    PictureView& view() const { return *m_view; }
    zokit::ShownFrames& frames() const { return *m_frames; }

private:
    void makeTools(const Actions& actions);
    void showFile();
    void showNotes();

    Session& m_session;
    zokit::ShownFrames* m_frames;
    PictureView* m_view;
    QLabel* m_zoom;
    QLabel* m_notes;
};

} // namespace zoeditor
