// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>

#include <zokit/message.h>
#include <zokit/probe.h>
#include <zokit/settings.h>
#include <zokit/tools.h>
#include <zokit/trackplan.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// Which picture of a clip.
enum class FrameKind {
    Before, ///< As the clip has it: upright, deinterlaced, of square pixels.
    After,  ///< As the encoder gets it.
    Whole   ///< As After, but neither cropped nor scaled, and without watermarks: what they are placed on.
};

/// The frame that is shown at a time.
struct ZOKIT_EXPORT FrameQuestion {
    Settings settings;                 ///< With the output options; for the frame of the clip.
    MediaInfo media;                   ///< The clip.
    double seconds = 0;                ///< From the clip's beginning. After the end: the last frame; before: the first.
    FrameKind kind = FrameKind::After; ///< Which picture of it.
    QString pixelFormat;               ///< What the encoder gets; empty: the clip's own.
    bool forScreen = true;             ///< Converted to RGB by the picture's own matrix and range.
    bool isKept = false; ///< The clip's frame is kept, so that what is asked next of this time takes no decoding.
};
/// A question for what a conversion by \a plan hands to its encoder. The settings are \a settings, apart from what the
/// plan has decided.
ZOKIT_EXPORT FrameQuestion plannedFrame(const Settings& settings, const MediaInfo& media, const TracksPlan& plan);

/// A frame as it comes out.
struct ZOKIT_EXPORT ClipFrame {
    QSize size;       ///< In pixels.
    QByteArray bytes; ///< Its planes one after the other, rows without padding; for the screen four bytes a pixel.

    /// A frame for the screen as a picture that shares nothing with it; null for another one.
    QImage image() const;
};

/// The answer to a question.
struct ZOKIT_EXPORT FrameAnswer {
    int number = 0;    ///< As Frames::ask() gave it.
    ClipFrame frame;   ///< Empty with an error.
    Messages warnings; ///< What comes out otherwise than one may think.
    Message error;     ///< Why there is no frame.
};

/// What an editor shows, drawn on a FrameKind::Whole of \a settings: the crop outlined, the rest of the frame dimmed,
/// the watermarks on top. Null for a null picture. Takes a QGuiApplication.
ZOKIT_EXPORT QImage previewPicture(const Settings& settings, const QImage& whole);

/// Gets frames out of clips: exactly those that a conversion hands to its encoder, by the same graph. One child works
/// at a time. To be used on the main thread, with a QGuiApplication.
class ZOKIT_EXPORT Frames : public QObject {
    Q_OBJECT

public:
    /// Starts nothing; \a tools says which ffmpeg is asked.
    explicit Frames(const Tools& tools, QObject* parent = nullptr);
    /// What runs is ended; answered() is not sent.
    ~Frames() override;

    /// Asks; a question that is open is dropped and gets no answer. The number of the question, from 1.
    int ask(const FrameQuestion& question);
    /// Drops the open question, and what was loaded ahead.
    void cancel();
    /// Loads ffmpeg ahead for the next question of the frame that was kept last: in an editor the same one with other
    /// values, which is answered sooner then. A child waits until it comes. Nothing happens while a question is open,
    /// or where no frame of FrameKind::After was kept.
    void expectMore();
    /// Whether a question is open.
    bool isRunning() const;

Q_SIGNALS:
    /// The answer to the last question; exactly one, never from within ask(). A slot may ask the next one.
    void answered(const zokit::FrameAnswer& answer);

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// Asks and waits: for command lines and tests. \a frames keeps what it keeps for the next question.
ZOKIT_EXPORT FrameAnswer frame(Frames& frames, const FrameQuestion& question);

} // namespace zokit

Q_DECLARE_METATYPE(zokit::FrameAnswer)
