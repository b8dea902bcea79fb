// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "shownframes.h"

#include <algorithm>

#include <zokit/filesettings.h>
#include <zokit/trackplan.h>

namespace zoeditor {

namespace {

constexpr int restTime = 100; // Milliseconds without a change: then nothing moves any more.
constexpr QSize largestOnTheWay(960, 540);

/// The settings that a frame without crop and watermarks depends on.
zokit::Settings ofWhole(zokit::Settings settings)
{
    if (zokit::TypeSettings* crop = settings.find(QStringLiteral("Crop"))) {
        const QVariant turns = crop->values.value(QStringLiteral("player_map_flag"));
        crop->values = {{QStringLiteral("player_map_flag"), turns}};
    }
    if (zokit::TypeSettings* watermarks = settings.find(QStringLiteral("Watermark")))
        watermarks->items.clear();
    settings.output.remove(QStringLiteral("size"));
    return settings;
}

/// The settings that the clip itself depends on.
zokit::Settings ofBefore(const zokit::Settings& settings)
{
    zokit::Settings bare;
    bare.media = settings.media;
    return bare;
}

} // namespace

ShownFrames::ShownFrames(const zokit::Tools& tools, QObject* parent) : QObject(parent), m_tools(tools)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(restTime);
    connect(&m_rest, &QTimer::timeout, this, &ShownFrames::askNext);
}

void ShownFrames::setFile(const zokit::FileSettings* file, const zokit::MediaInfo* media)
{
    if (m_file)
        m_file->disconnect(this);
    const bool isSame = file == m_file && m_media.has_value() == (media != nullptr);
    m_file = file;
    m_media = media ? std::make_optional(*media) : std::nullopt;
    if (file)
        connect(file, &zokit::FileSettings::changed, this, &ShownFrames::noteChange);
    if (isSame)
        return;
    if (m_frames)
        m_frames->cancel();
    if (m_scrubber)
        m_scrubber->close();
    m_scrubbed.reset();
    m_onTheWay = QImage();
    for (Shot* shot : {&m_whole, &m_before, &m_output})
        shot->forget();
    m_error = zokit::Message();
    m_warnings.clear();
    constexpr double goodPlace = 0.3; // Not black, as the first frame often is.
    m_seconds = media ? media->seconds * goodPlace : 0;
    askNext();
    emit secondsChanged(m_seconds);
    emit changed();
}

void ShownFrames::setSeconds(double seconds)
{
    const double within = std::max(seconds, 0.0);
    const double moment = m_media && m_media->seconds > 0 ? std::min(within, m_media->seconds) : within;
    if (moment == m_seconds)
        return;
    m_seconds = moment;
    const bool isDragged = m_rest.isActive();
    if (isDragged)
        drag();
    else if (!isAsking())
        askNext();
    m_rest.start();
    emit secondsChanged(moment);
    emit changed();
}

/// The true frames wait until the moment has come to rest.
void ShownFrames::drag()
{
    if (!m_file || !m_media || !m_media->picture())
        return;
    if (m_frames)
        m_frames->cancel();
    if (!m_scrubber) {
        m_scrubber = std::make_unique<zokit::Scrubber>(m_tools);
        connect(m_scrubber.get(), &zokit::Scrubber::shown, this, [this](const QImage& picture) {
            if (output().isNull()) {
                m_onTheWay = picture;
                emit changed();
            }
        });
    }
    const zokit::Settings settings = ofWhole(m_file->settings());
    if (!m_scrubbed || !(*m_scrubbed == settings)) {
        m_scrubber->open(question(zokit::FrameKind::Whole, m_file->settings()), largestOnTheWay);
        m_scrubbed = settings;
    }
    m_scrubber->want(m_seconds);
}

void ShownFrames::setBeforeWanted(bool isWanted)
{
    m_beforeWanted = isWanted;
    if (!isAsking())
        askNext();
}

QImage ShownFrames::output() const
{
    return m_file && m_output.isOf(m_file->settings(), m_seconds) ? m_output.image : QImage();
}

void ShownFrames::noteChange()
{
    m_rest.start();
    emit changed();
}

/// What is missing most: what comes out, then what a stand-in takes, then what there was before.
void ShownFrames::askNext()
{
    if (!m_file || !m_media || !m_media->picture() || m_rest.isActive())
        return;
    const zokit::Settings settings = m_file->settings();
    if (!m_output.isOf(settings, m_seconds))
        ask(zokit::FrameKind::After, settings);
    else if (!m_whole.isOf(ofWhole(settings), m_seconds))
        ask(zokit::FrameKind::Whole, settings);
    else if (m_beforeWanted && !m_before.isOf(ofBefore(settings), m_seconds))
        ask(zokit::FrameKind::Before, settings);
}

zokit::FrameQuestion ShownFrames::question(zokit::FrameKind kind, const zokit::Settings& settings) const
{
    const zokit::TracksPlan plan =
        zokit::planTracks(settings, *m_media, {}, zokit::containerFor(settings, m_media->file));
    zokit::FrameQuestion question = zokit::plannedFrame(settings, *m_media, plan);
    question.seconds = m_seconds;
    question.kind = kind;
    question.isKept = true;
    return question;
}

void ShownFrames::ask(zokit::FrameKind kind, const zokit::Settings& settings)
{
    m_askedKind = kind;
    m_askedSeconds = m_seconds;
    m_askedSettings = kind == zokit::FrameKind::After   ? settings
                      : kind == zokit::FrameKind::Whole ? ofWhole(settings)
                                                        : ofBefore(settings);
    if (!m_frames) {
        m_frames = std::make_unique<zokit::Frames>(m_tools);
        connect(m_frames.get(), &zokit::Frames::answered, this, &ShownFrames::take);
    }
    m_frames->ask(question(kind, settings));
}

ShownFrames::Shot& ShownFrames::shot(zokit::FrameKind kind)
{
    switch (kind) {
    case zokit::FrameKind::After:
        return m_output;
    case zokit::FrameKind::Whole:
        return m_whole;
    case zokit::FrameKind::Before:
        break;
    }
    return m_before;
}

void ShownFrames::take(const zokit::FrameAnswer& answer)
{
    m_error = answer.error;
    if (m_askedKind == zokit::FrameKind::After)
        m_warnings = answer.warnings;
    if (m_askedKind != zokit::FrameKind::Before && m_askedSeconds == m_seconds)
        m_onTheWay = QImage();
    // Also after an error: the same question would end the same way.
    shot(m_askedKind) = {answer.frame.image().convertToFormat(QImage::Format_RGB32), m_askedSettings, m_askedSeconds};
    askNext();
    emit changed();
}

} // namespace zoeditor
