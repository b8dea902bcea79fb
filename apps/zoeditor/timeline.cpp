// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "timeline.h"

#include <algorithm>
#include <cmath>

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QVBoxLayout>

#include <zokit/filesettings.h>
#include <zokit/shownframes.h>

#include "actions.h"
#include "buttons.h"
#include "listening.h"
#include "names.h"
#include "session.h"
#include "subtitletimes.h"

namespace zoeditor {

namespace {

constexpr int tick = 40; // Milliseconds between two looks at the clock while it plays.
constexpr double usualFrame = 0.04;
const QString trimKey = QStringLiteral("trim");

int milliseconds(double seconds)
{
    return qRound(seconds * 1000);
}

/// "1:02:03.45", "2:03.45".
QString timeText(double seconds)
{
    const qint64 hundredths = std::llround(seconds * 100);
    return clockText(hundredths / 100) + QStringLiteral(".%1").arg(hundredths % 100, 2, 10, QLatin1Char('0'));
}

/// How long a frame of the clip is shown.
double frameTime(const zokit::MediaInfo* media)
{
    const zokit::MediaStream* picture = media ? media->picture() : nullptr;
    const double rate = picture ? picture->frameRate.value() : 0;
    return rate > 0 ? 1 / rate : usualFrame;
}

} // namespace

TimeBar::TimeBar(QWidget* parent) : QSlider(Qt::Horizontal, parent)
{
    setObjectName(QStringLiteral("time"));
    setAccessibleName(tr("Time"));
    setSingleStep(100);
    setPageStep(1000);
}

void TimeBar::setPart(int from, int to)
{
    m_from = from;
    m_to = to;
    update();
}

void TimeBar::setCues(const QVector<zokit::SubtitleCue>& cues)
{
    m_cues = cues;
    update();
}

QRect TimeBar::groove() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect area = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect knob = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    return area.adjusted(knob.width() / 2, 0, -knob.width() / 2, 0);
}

void TimeBar::paintEvent(QPaintEvent* event)
{
    QSlider::paintEvent(event);
    const QRect area = groove();
    const auto at = [&](int value) {
        const int offset = QStyle::sliderPositionFromValue(minimum(), maximum(), value, area.width());
        return layoutDirection() == Qt::RightToLeft ? area.right() - offset : area.left() + offset;
    };
    QPainter painter(this);
    constexpr int thick = 4;
    for (const zokit::SubtitleCue& cue : std::as_const(m_cues)) {
        const auto [left, right] = std::minmax({at(milliseconds(cue.from)), at(milliseconds(cue.to))});
        painter.fillRect(QRect(left, 0, std::max(right - left, 2), thick), palette().color(QPalette::Text));
    }
    if (m_from == m_to)
        return;
    const int begin = at(m_from);
    const int end = at(m_to);
    const QColor colour = palette().color(QPalette::Highlight);
    painter.fillRect(QRect(std::min(begin, end), height() - thick, std::abs(end - begin) + 1, thick), colour);
    for (const int edge : {begin, end})
        painter.fillRect(QRect(edge - 1, height() - 3 * thick, 2, 3 * thick), colour);
}

void TimeBar::goTo(const QMouseEvent& event)
{
    const QRect area = groove();
    setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), event.pos().x() - area.left(), area.width(),
                                             layoutDirection() == Qt::RightToLeft));
}

void TimeBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        goTo(*event);
}

void TimeBar::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        goTo(*event);
}

TimeLine::TimeLine(Session& session, zokit::ShownFrames& frames, const Actions& actions, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_frames(frames)
    , m_bar(new TimeBar(this))
    , m_time(new QLabel(this))
    , m_listening(new Listening(session.tools(), makeSoundDevice(), this))
    , m_subtitles(new SubtitleTimes(session, this))
{
    setObjectName(QStringLiteral("timeline"));
    setAccessibleName(tr("Time line"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_bar);
    auto* row = new QHBoxLayout;
    constexpr int between = 2; // Pixels: in the smallest window words need the room.
    row->setSpacing(between);
    rows->addLayout(row);
    addToolButton(row, connectAction(actions, "stepBack", [this] { step(-1); }), QStringLiteral("<"), this);
    // NOLINTNEXTLINE(cppcoreguidelines-prefer-member-initializer): connected where its button is made
    m_playAction = connectAction(actions, "play", [this](bool isChecked) { setPlaying(isChecked); });
    addToolButton(row, m_playAction, tr("Play"), this);
    addToolButton(row, connectAction(actions, "stepForward", [this] { step(1); }), QStringLiteral(">"), this);
    m_time->setObjectName(QStringLiteral("timeText"));
    m_time->setAccessibleName(tr("Time and length"));
    row->addWidget(m_time);
    row->addStretch(1);
    makeListening(actions, row);
    addToolButton(row, connectAction(actions, "setIn", [this] { setPart(true); }), tr("In"), this);
    addToolButton(row, connectAction(actions, "setOut", [this] { setPart(false); }), tr("Out"), this);
    QAction* all = connectAction(actions, "wholeClip", [this] {
        if (zokit::FileSettings* file = m_session.current())
            m_session.take(file->reset(file->output(), trimKey, this));
    });
    addToolButton(row, all, tr("All"), this);
    m_play.setInterval(tick);
    connect(&m_play, &QTimer::timeout, this, &TimeLine::playOn);
    connect(m_bar, &QSlider::valueChanged, this, [this](int value) {
        setPlaying(false);
        m_frames.setSeconds(value / 1000.0);
    });
    connect(&frames, &zokit::ShownFrames::secondsChanged, this, &TimeLine::showMoment);
    connect(&session, &Session::currentChanged, this, &TimeLine::showFile);
    connect(&session, &Session::fileStateChanged, this, &TimeLine::showFile);
    connect(&session.project(), &zokit::Project::changed, this, &TimeLine::showPart);
    connect(m_subtitles, &SubtitleTimes::changed, this, [this] { m_bar->setCues(m_subtitles->cues()); });
    showFile();
}

template <typename Slot>
QAction* TimeLine::connectAction(const Actions& actions, const char* name, Slot slot)
{
    QAction* action = actions.action(name);
    connect(action, action->isCheckable() ? &QAction::toggled : &QAction::triggered, this, slot);
    m_actions.append(action);
    return action;
}

void TimeLine::makeListening(const Actions& actions, QHBoxLayout* row)
{
    QAction* effects = actions.action("listen");
    QAction* plain = actions.action("listenPlain");
    const auto hear = [this](QAction* action, QAction* other, bool withEffects) {
        return [this, action, other, withEffects](bool isOn) {
            if (isOn) {
                listen(withEffects);
                other->setChecked(false); // One of them at a time.
                action->setChecked(m_listening->isActive());
            } else if (!other->isChecked()) {
                m_listening->stop();
            }
        };
    };
    connectAction(actions, "listen", hear(effects, plain, true));
    connectAction(actions, "listenPlain", hear(plain, effects, false));
    addToolButton(row, effects, tr("Listen"), this);
    connect(m_listening, &Listening::failed, &m_session, &Session::message);
    connect(m_listening, &Listening::activeChanged, this, [effects, plain](bool isActive) {
        if (isActive)
            return;
        effects->setChecked(false);
        plain->setChecked(false);
    });
}

/// From the play head on: the track that is shown in the list, also that of a file beside the clip, else the first
/// selected one.
void TimeLine::listen(bool withEffects)
{
    const zokit::FileSettings* file = m_session.current();
    const zokit::MediaInfo* media = file ? m_session.mediaOf(file) : nullptr;
    if (!media)
        return;
    zokit::SoundQuestion question;
    question.settings = file->settings();
    question.media = *media;
    question.from = m_frames.seconds();
    question.withEffects = withEffects;
    const QVector<zokit::Identity> tracks = file->items(QStringLiteral("Audio"));
    const auto isChosen = [this](zokit::Identity track) { return track == m_session.thing(); };
    const auto isSelected = [file](zokit::Identity track) {
        return file->value(track, QStringLiteral("selected")).toBool();
    };
    auto heard = std::find_if(tracks.cbegin(), tracks.cend(), isChosen); // So that tracks can be compared.
    if (heard == tracks.cend())
        heard = std::find_if(tracks.cbegin(), tracks.cend(), isSelected);
    QString beside;
    if (heard != tracks.cend() && file->value(*heard, QStringLiteral("audio_isfile")).toBool())
        beside = file->value(*heard, QStringLiteral("file")).toString();
    else if (heard != tracks.cend())
        question.stream = file->value(*heard, QStringLiteral("trackid")).toInt();
    m_listening->start(question, beside);
}

double TimeLine::length() const
{
    const zokit::FileSettings* file = m_session.current();
    const zokit::MediaInfo* media = file ? m_session.mediaOf(file) : nullptr;
    return media ? media->seconds : 0;
}

void TimeLine::showFile()
{
    const zokit::FileSettings* file = m_session.current();
    const zokit::Identity shown = file ? file->file() : 0;
    if (shown != m_shown) {
        setPlaying(false);
        m_listening->stop();
    }
    m_shown = shown;
    const bool isSeen = length() > 0;
    m_bar->setEnabled(isSeen);
    for (QAction* action : std::as_const(m_actions))
        action->setEnabled(isSeen);
    showMoment();
    showPart();
}

void TimeLine::showMoment()
{
    const QSignalBlocker quiet(m_bar); // What is rounded for the slider is no other moment.
    m_bar->setRange(0, milliseconds(length()));
    m_bar->setValue(milliseconds(m_frames.seconds()));
    m_time->setText(timeText(m_frames.seconds()) + QStringLiteral(" / ") + timeText(length()));
}

void TimeLine::showPart()
{
    const zokit::FileSettings* file = m_session.current();
    const QVariantList part = file ? file->value(file->output(), trimKey).toList() : QVariantList();
    m_bar->setPart(milliseconds(part.value(0).toDouble()), milliseconds(part.value(1).toDouble()));
}

void TimeLine::step(int frames)
{
    setPlaying(false);
    const zokit::FileSettings* file = m_session.current();
    if (file)
        m_frames.setSeconds(m_frames.seconds() + frames * frameTime(m_session.mediaOf(file)));
}

void TimeLine::setPlaying(bool isPlaying)
{
    if (isPlaying && m_frames.seconds() >= length())
        m_frames.setSeconds(0); // Once more from the beginning.
    m_playFrom = m_frames.seconds();
    m_playTime.start();
    if (isPlaying && length() > 0)
        m_play.start();
    else
        m_play.stop();
    m_playAction->setChecked(m_play.isActive());
}

/// By the clock: frames that take too long are passed over.
void TimeLine::playOn()
{
    const double moment = m_playFrom + double(m_playTime.elapsed()) / 1000;
    m_frames.setSeconds(std::min(moment, length()));
    if (moment >= length())
        setPlaying(false);
}

void TimeLine::setPart(bool isBegin)
{
    zokit::FileSettings* file = m_session.current();
    if (!file)
        return;
    const QVariantList part = file->value(file->output(), trimKey).toList();
    const double now = m_frames.seconds();
    double from = isBegin ? now : part.value(0).toDouble();
    double to = isBegin ? part.value(1, length()).toDouble() : now;
    if (to <= from)
        (isBegin ? to : from) = isBegin ? length() : 0;
    m_session.take(file->setValue(file->output(), trimKey, QVariantList{from, to}, this));
}

} // namespace zoeditor
