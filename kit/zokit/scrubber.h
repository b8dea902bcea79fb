// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QImage>
#include <QObject>
#include <QSize>

#include <zokit/frames.h>
#include <zokit/tools.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// Small pictures of a clip for a person who drags through it: a decoder that runs on, 25 pictures a second of the
/// clip, and waits when it is far enough ahead. They are stand-ins, of the right colours and effects, without crop,
/// watermarks and subtitles, and up to a 25th of a second off; Frames has the true ones. One child. For the main
/// thread.
class ZOKIT_EXPORT Scrubber : public QObject {
    Q_OBJECT

public:
    /// Starts nothing; \a tools says which ffmpeg decodes.
    explicit Scrubber(const Tools& tools, QObject* parent = nullptr);
    /// What runs is ended; nothing more is sent.
    ~Scrubber() override;

    /// Takes the clip and the settings of \a question, whose time does not count, as FrameKind::Before or
    /// FrameKind::Whole; pictures fit into \a most. What ran before is ended, and nothing starts before want().
    void open(const FrameQuestion& question, const QSize& most);
    /// Ends the decoder and forgets its pictures; want() does nothing then.
    void close();
    /// Wants the picture at \a seconds from the clip's beginning; a later wish takes the place of this one.
    void want(double seconds);

Q_SIGNALS:
    /// \a picture, of \a seconds, is the nearest one to the wish so far; never sent from within want(). Nothing is sent
    /// of a clip that cannot be decoded.
    void shown(const QImage& picture, double seconds);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
