// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <zokit/frames.h>
#include <zokit/probe.h>
#include <zokit/scrubber.h>
#include <zokit/settings.h>

namespace zokit {
class FileSettings;
}

namespace zoeditor {

/// The frames of a clip at one moment that a picture pane shows. It asks for them one after the other, soon after
/// settings and moment have come to rest; meanwhile output() is null, and a stand-in can be painted on whole(). While
/// somebody drags through the clip, a decoder that runs on brings small pictures for whole().
class ShownFrames : public QObject {
    Q_OBJECT

public:
    /// Without a clip. \a tools outlives it; looked at when the first frame is asked for.
    explicit ShownFrames(const zokit::Tools& tools, QObject* parent = nullptr);

    /// Shows \a file, of which \a media tells the clip; null: none. Both stay their owner's.
    void setFile(const zokit::FileSettings* file, const zokit::MediaInfo* media);
    /// The moment, from the clip's beginning; within the clip's length, where that is known.
    void setSeconds(double seconds);
    double seconds() const { return m_seconds; }
    /// Whether before() is asked for, too.
    void setBeforeWanted(bool isWanted);

    /// FrameKind::Whole, or a small stand-in for it on the way; the last one until the next is there.
    QImage whole() const { return m_onTheWay.isNull() ? m_whole.image : m_onTheWay; }
    QImage before() const { return m_before.image; } ///< FrameKind::Before; as above.
    QImage output() const; ///< FrameKind::After of settings and moment as they are; else null.
    /// Why there is no frame; empty when nothing is wrong.
    zokit::Message error() const { return m_error; }
    /// What comes out otherwise than one may think.
    zokit::Messages warnings() const { return m_warnings; }

signals:
    /// A frame came, or output() does not hold any more.
    void changed();
    /// The moment is another one.
    void secondsChanged(double seconds);

private:
    /// A frame, and what it was asked with.
    struct Shot {
        QImage image;
        std::optional<zokit::Settings> settings;
        double seconds = 0;

        bool isOf(const zokit::Settings& now, double moment) const
        {
            return settings && seconds == moment && *settings == now;
        }
        void forget() { *this = Shot(); }
    };

    bool isAsking() const { return m_frames && m_frames->isRunning(); }
    void noteChange();
    void drag();
    void askNext();
    zokit::FrameQuestion question(zokit::FrameKind kind, const zokit::Settings& settings) const;
    void ask(zokit::FrameKind kind, const zokit::Settings& settings);
    void take(const zokit::FrameAnswer& answer);
    Shot& shot(zokit::FrameKind kind);

    QPointer<const zokit::FileSettings> m_file;
    std::optional<zokit::MediaInfo> m_media;
    const zokit::Tools& m_tools;
    std::unique_ptr<zokit::Frames> m_frames;     ///< Null until then.
    std::unique_ptr<zokit::Scrubber> m_scrubber; ///< Null until somebody drags.
    std::optional<zokit::Settings> m_scrubbed;   ///< With which it is open.
    QImage m_onTheWay;
    QTimer m_rest;
    double m_seconds = 0;
    bool m_beforeWanted = false;
    Shot m_whole;
    Shot m_before;
    Shot m_output;
    zokit::FrameKind m_askedKind = zokit::FrameKind::After;
    std::optional<zokit::Settings> m_askedSettings;
    double m_askedSeconds = 0;
    zokit::Message m_error;
    zokit::Messages m_warnings;
};

} // namespace zoeditor
