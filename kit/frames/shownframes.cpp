// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/shownframes.h>

#include <algorithm>
#include <optional>

#include <QPointer>
#include <QTimer>

#include <zokit/filesettings.h>
#include <zokit/frames.h>
#include <zokit/scrubber.h>
#include <zokit/trackplan.h>

namespace zokit {

namespace {

// Milliseconds without a change: then nothing moves any more.
constexpr int valueRest = 40;
constexpr int momentRest = 100;            // A clip that plays on a busy machine does not rest between two pictures.
constexpr QSize largestOnTheWay(640, 360); // Ninety of them are kept.

/// The settings that a frame without crop and watermarks depends on.
Settings ofWhole(Settings settings)
{
    if (TypeSettings* crop = settings.find(QStringLiteral("Crop"))) {
        const QVariant turns = crop->values.value(QStringLiteral("player_map_flag"));
        crop->values = {{QStringLiteral("player_map_flag"), turns}};
    }
    if (TypeSettings* watermarks = settings.find(QStringLiteral("Watermark")))
        watermarks->items.clear();
    settings.output.remove(QStringLiteral("size"));
    return settings;
}

/// The settings that the clip itself depends on.
Settings ofBefore(const Settings& settings)
{
    Settings bare;
    bare.media = settings.media;
    return bare;
}

/// A frame, and what it was asked with.
struct Shot {
    QImage image;
    std::optional<Settings> settings;
    double seconds = 0;
    Message error; ///< Why there is no image.

    bool isOf(const Settings& now, double moment) const { return settings && seconds == moment && *settings == now; }
};

} // namespace

class ShownFrames::Private {
public:
    Private(ShownFrames* shown, const Tools& ofTools) : q(shown), tools(ofTools) {}

    bool isAsking() const { return frames && frames->isRunning(); }
    Shot& shot(FrameKind kind);
    void askNext();
    void drag();
    FrameQuestion question(FrameKind kind, const Settings& settings) const;
    void ask(FrameKind kind, const Settings& settings);
    void take(const FrameAnswer& answer);

    ShownFrames* q;
    const Tools& tools;
    QPointer<const FileSettings> file;
    std::optional<MediaInfo> media;
    std::unique_ptr<Frames> frames;     ///< Null until a frame is asked for.
    std::unique_ptr<Scrubber> scrubber; ///< Null until somebody drags.
    std::optional<Settings> scrubbed;   ///< With which it is open.
    QImage onTheWay;
    QTimer rest;
    double seconds = 0;
    bool beforeWanted = false;
    Shot whole;
    Shot before;
    Shot output;
    FrameKind askedKind = FrameKind::After;
    Shot asked; ///< Without its image.
    Messages warnings;
};

Shot& ShownFrames::Private::shot(FrameKind kind)
{
    switch (kind) {
    case FrameKind::After:
        return output;
    case FrameKind::Whole:
        return whole;
    case FrameKind::Before:
        break;
    }
    return before;
}

/// What is missing most: what comes out, then what a stand-in takes, then what there was before.
void ShownFrames::Private::askNext()
{
    if (!file || !media || !media->picture() || rest.isActive())
        return;
    const Settings settings = file->settings();
    if (!output.isOf(settings, seconds))
        ask(FrameKind::After, settings);
    else if (!whole.isOf(ofWhole(settings), seconds))
        ask(FrameKind::Whole, settings);
    else if (beforeWanted && !before.isOf(ofBefore(settings), seconds))
        ask(FrameKind::Before, settings);
    else if (frames)
        frames->expectMore();
}

/// The true frames wait until the moment has come to rest.
void ShownFrames::Private::drag()
{
    if (!file || !media || !media->picture())
        return;
    if (frames)
        frames->cancel();
    if (!scrubber) {
        scrubber = std::make_unique<Scrubber>(tools);
        QObject::connect(scrubber.get(), &Scrubber::shown, q, [this](const QImage& picture) {
            if (q->output().isNull()) {
                onTheWay = picture;
                emit q->changed();
            }
        });
    }
    const Settings settings = ofWhole(file->settings());
    if (!scrubbed || !(*scrubbed == settings)) {
        scrubber->open(question(FrameKind::Whole, file->settings()), largestOnTheWay);
        scrubbed = settings;
    }
    scrubber->want(seconds);
}

FrameQuestion ShownFrames::Private::question(FrameKind kind, const Settings& settings) const
{
    const TracksPlan plan = planTracks(settings, *media, {}, containerFor(settings, media->file));
    FrameQuestion asks = plannedFrame(settings, *media, plan);
    asks.seconds = seconds;
    asks.kind = kind;
    asks.isKept = true;
    return asks;
}

void ShownFrames::Private::ask(FrameKind kind, const Settings& settings)
{
    askedKind = kind;
    asked.seconds = seconds;
    asked.settings = kind == FrameKind::After   ? settings
                     : kind == FrameKind::Whole ? ofWhole(settings)
                                                : ofBefore(settings);
    if (!frames) {
        frames = std::make_unique<Frames>(tools);
        QObject::connect(frames.get(), &Frames::answered, q, [this](const FrameAnswer& answer) { take(answer); });
    }
    frames->ask(question(kind, settings));
}

void ShownFrames::Private::take(const FrameAnswer& answer)
{
    if (askedKind == FrameKind::After)
        warnings = answer.warnings;
    if (askedKind != FrameKind::Before && asked.seconds == seconds)
        onTheWay = QImage();
    // Also after an error: the same question would end the same way.
    shot(askedKind) = {answer.frame.image(), asked.settings, asked.seconds, answer.error};
    askNext();
    emit q->changed();
}

ShownFrames::ShownFrames(const Tools& tools, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, tools))
{
    d->rest.setSingleShot(true);
    connect(&d->rest, &QTimer::timeout, this, [this] { d->askNext(); });
}

ShownFrames::~ShownFrames() = default;

void ShownFrames::setFile(const FileSettings* file, const MediaInfo* media)
{
    const bool isSame = file == d->file && d->media.has_value() == (media != nullptr);
    d->media = media ? std::make_optional(*media) : std::nullopt;
    if (isSame)
        return; // Connected still, also while a change is told: it would be missed.
    if (d->file)
        d->file->disconnect(this);
    d->file = file;
    if (file) {
        connect(file, &FileSettings::changed, this, [this] {
            d->rest.start(valueRest);
            emit changed();
        });
    }
    if (d->frames)
        d->frames->cancel();
    if (d->scrubber)
        d->scrubber->close();
    d->scrubbed.reset();
    d->onTheWay = QImage();
    for (Shot* shot : {&d->whole, &d->before, &d->output})
        *shot = Shot();
    d->warnings.clear();
    constexpr double goodPlace = 0.3; // Not black, as the first frame often is.
    d->seconds = media ? media->seconds * goodPlace : 0;
    d->askNext();
    emit secondsChanged(d->seconds);
    emit changed();
}

void ShownFrames::setSeconds(double seconds)
{
    const double within = std::max(seconds, 0.0);
    const double moment = d->media && d->media->seconds > 0 ? std::min(within, d->media->seconds) : within;
    if (moment == d->seconds)
        return;
    d->seconds = moment;
    const bool isDragged = d->rest.isActive();
    if (isDragged)
        d->drag();
    else if (!d->isAsking())
        d->askNext();
    d->rest.start(momentRest);
    emit secondsChanged(moment);
    emit changed();
}

void ShownFrames::setPart(double part)
{
    if (d->media && d->media->seconds > 0)
        setSeconds(d->media->seconds * part);
}

double ShownFrames::part() const
{
    return d->media && d->media->seconds > 0 ? d->seconds / d->media->seconds : 0;
}

double ShownFrames::seconds() const
{
    return d->seconds;
}

void ShownFrames::setBeforeWanted(bool isWanted)
{
    d->beforeWanted = isWanted;
    if (!d->isAsking())
        d->askNext();
}

QImage ShownFrames::whole() const
{
    return d->onTheWay.isNull() ? d->whole.image : d->onTheWay;
}

QImage ShownFrames::before() const
{
    return d->before.image;
}

QImage ShownFrames::output() const
{
    return d->file && d->output.isOf(d->file->settings(), d->seconds) ? d->output.image : QImage();
}

Message ShownFrames::error() const
{
    for (const Shot* shot : {&d->output, &d->whole, &d->before}) {
        if (!shot->error.isEmpty())
            return shot->error;
    }
    return Message();
}

Messages ShownFrames::warnings() const
{
    return d->warnings;
}

} // namespace zokit
