// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QSlider>
#include <QTimer>
#include <QWidget>

#include <zokit/subtitlescript.h>

class QAction;
class QHBoxLayout;
class QLabel;

namespace zokit {
class ShownFrames;
}

namespace zoeditor {

class Actions;
class Listening;
class Session;
class SubtitleTimes;

/// A slider of milliseconds that shows which part of the clip is converted, and where subtitles are. A click goes to
/// its place.
class TimeBar : public QSlider {
    Q_OBJECT

public:
    explicit TimeBar(QWidget* parent = nullptr);

    /// The part that is converted, in milliseconds; nothing is marked when they are equal.
    void setPart(int from, int to);
    int partBegin() const { return m_from; }
    int partEnd() const { return m_to; }
    /// When subtitles are shown.
    void setCues(const QVector<zokit::SubtitleCue>& cues);
    QVector<zokit::SubtitleCue> cues() const { return m_cues; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void goTo(const QMouseEvent& event);
    QRect groove() const;

    int m_from = 0;
    int m_to = 0;
    QVector<zokit::SubtitleCue> m_cues;
};

/// Where in the clip the picture is taken from: to look for a place, step, play,
/// listen, and mark the part that is converted.
class TimeLine : public QWidget {
    Q_OBJECT

public:
    /// Moves \a frames, and connects the actions of the menu "time". All outlive it.
    TimeLine(Session& session, zokit::ShownFrames& frames, const Actions& actions, QWidget* parent = nullptr);

    /// Whether the moment goes on by itself.
    bool isPlaying() const { return m_play.isActive(); }

private:
    template <typename Slot>
    QAction* connectAction(const Actions& actions, const char* name, Slot slot);
    void makeListening(const Actions& actions, QHBoxLayout* row);
    void listen(bool withEffects);
    void showFile();
    void showMoment();
    void showPart();
    void step(int frames);
    void setPlaying(bool isPlaying);
    void playOn();
    void setPart(bool isBegin);
    double length() const;

    Session& m_session;
    zokit::ShownFrames& m_frames;
    TimeBar* m_bar;
    QLabel* m_time;
    QVector<QAction*> m_actions;
    QAction* m_playAction = nullptr;
    Listening* m_listening;
    SubtitleTimes* m_subtitles;
    QTimer m_play;
    QElapsedTimer m_playTime;
    double m_playFrom = 0;
    quint64 m_shown = 0; ///< The file whose time is shown.
};

} // namespace zoeditor
