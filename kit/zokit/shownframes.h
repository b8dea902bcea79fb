// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QImage>
#include <QObject>

#include <zokit/message.h>
#include <zokit/probe.h>
#include <zokit/tools.h>
#include <zokit/zokit_export.h>

namespace zokit {

class FileSettings;

/// The frames of a clip at one moment that a view shows while its settings are edited. It asks Frames for them one
/// after the other, as soon as settings and moment have come to rest; meanwhile output() is null, and paintPreview()
/// makes a stand-in out of whole(). While somebody drags through the clip, a decoder that runs on brings small pictures
/// for whole(). One child works on a frame, one on the way, and one waits, loaded for the next change of a value. To be
/// used on the main thread, with a QGuiApplication.
class ZOKIT_EXPORT ShownFrames : public QObject {
    Q_OBJECT

public:
    /// Without a clip. \a tools outlives it; looked at when the first frame is asked for.
    explicit ShownFrames(const Tools& tools, QObject* parent = nullptr);
    /// What runs is ended.
    ~ShownFrames() override;

    /// Shows \a file, of which \a media tells the clip; null: none. The file stays its owner's, and may be deleted;
    /// \a media is copied. A new file is shown some way into the clip, where it is seldom black.
    void setFile(const FileSettings* file, const MediaInfo* media);
    /// The moment, from the clip's beginning; taken to the nearest one within the clip's length, where that is known.
    void setSeconds(double seconds);
    /// The same, as a part of the clip: 0 is its beginning, 1 its end. Nothing happens where its length is not known.
    void setPart(double part);
    double part() const;    ///< The moment as a part; 0 where the length is not known.
    double seconds() const; ///< The moment.
    /// Whether before() is asked for, too; not so at first.
    void setBeforeWanted(bool isWanted);

    /// FrameKind::Whole, or a small stand-in for it on the way; the last one until the next is there.
    QImage whole() const;
    QImage before() const; ///< FrameKind::Before; as above.
    QImage output() const; ///< FrameKind::After of settings and moment as they are; else null.
    /// Why there is no frame; empty when nothing is wrong.
    Message error() const;
    /// What comes out otherwise than one may think.
    Messages warnings() const;

Q_SIGNALS:
    /// A frame came, or output() does not hold any more.
    void changed();
    /// The moment is another one.
    void secondsChanged(double seconds);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
