// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <zokit/child.h>
#include <zokit/message.h>
#include <zokit/tools.h>
#include <zokit/tracks.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// A fraction, as files tell rates and shapes.
struct ZOKIT_EXPORT Rational {
    qint64 numerator = 0;   ///< Above the line.
    qint64 denominator = 1; ///< Below it.

    /// 0 where there is no such number, as of "0/0".
    double value() const;
};

/// One stream of a file, as ffprobe found it. What is not told is empty or 0.
struct ZOKIT_EXPORT MediaStream {
    Track track;          ///< Stream number, kind, codec, language ("und" is empty), title, default, forced.
    bool isCover = false; ///< A picture of the kind that a player shows for a song: no video.
    QMap<QString, bool> dispositions; ///< By ffmpeg's names: "comment", "hearing_impaired", ...
    QMap<QString, QString> tags;      ///< As the file says them.
    double start = 0;                 ///< Seconds.
    double seconds = 0;               ///< 0: unknown.

    // Picture
    QSize coded;                 ///< As it is stored. Empty only where the picture cannot be decoded.
    Rational sampleAspect{1, 1}; ///< Width of a stored pixel to its height.
    int rotation = 0;            ///< Degrees clockwise, 0, 90, 180 or 270, by which it is turned to be upright.
    bool isTurned = false;       ///< It is turned, by whatever angle, or mirrored to be upright.
    QSize shown;                 ///< Upright and with square pixels: the frame in which all geometry is measured.
    QString pixelFormat;         ///< "yuv420p".
    QString matrix;     ///< "bt709", "bt601", "bt2020", ...: as told, else by the size. As filter scale takes it.
    QString range;      ///< "tv" or "pc": as told, else by the pixel format.
    QString colorSpace; ///< As told: "bt709", "smpte170m", "bt2020nc", ...
    QString primaries;  ///< As told.
    QString transfer;   ///< As told.
    bool isHdr = false; ///< The transfer is that of PQ or HLG.
    QMap<QString, QString> hdr;   ///< Of HDR, as x265's options take them: "master-display", "max-cll".
    QString fieldOrder;           ///< "progressive", "tt", "bb", "tb", "bt".
    bool isInterlaced = false;    ///< Only where it is told.
    Rational frameRate{0, 1};     ///< The lowest at which each frame has a time of its own.
    Rational averageRate{0, 1};   ///< Frames by time.
    bool hasVariableRate = false; ///< The two differ.
    Rational timeBase{0, 1};      ///< Seconds in which its times are counted.
    qint64 frames = 0;            ///< 0: unknown.

    // Sound
    int sampleRate = 0;    ///< Samples a second.
    int channels = 0;      ///< How many.
    QString channelLayout; ///< By ffmpeg's name: "stereo", "5.1".
    QString sampleFormat;  ///< By ffmpeg's name: "fltp", "s16".

    // Attachment
    QString fileName; ///< Of what is attached.
    QString mimeType; ///< Of what is attached.
};

/// A chapter of a file.
struct ZOKIT_EXPORT Chapter {
    double from = 0;             ///< Seconds.
    double to = 0;               ///< Seconds.
    QMap<QString, QString> tags; ///< Its title, for example.
};

/// A media file, as ffprobe found it.
struct ZOKIT_EXPORT MediaInfo {
    QString file;                 ///< As it was asked for.
    QString container;            ///< One word: "mp4", "mov", "mkv", "webm", "ts", "mpeg", "avi", "ogg", ...
    QString demuxer;              ///< ffmpeg's names for it.
    double start = 0;             ///< Seconds; not 0 in transport streams and cut files.
    double seconds = 0;           ///< Length; 0: unknown.
    qint64 bytes = 0;             ///< Size of the file.
    QMap<QString, QString> tags;  ///< Of the whole file.
    QVector<MediaStream> streams; ///< In their order; the stream numbers are those of the tracks.
    QVector<Chapter> chapters;    ///< In their order.

    /// The video that is meant: the one marked as default, else the first, covers aside; null without. Belongs to this.
    const MediaStream* picture() const;
    /// The stream of that number; null when there is none.
    const MediaStream* stream(int index) const;
    /// One for each stream, in their order.
    QVector<Track> tracks() const;
    /// Whether the picture may change its size in the middle: in ts, mpeg and flv.
    bool mayChangeSize() const;
};

/// Either a medium or what is wrong with the file.
struct ZOKIT_EXPORT ReadMedia {
    std::optional<MediaInfo> media; ///< Nothing with an error.
    Message error;                  ///< What is wrong with the file.
};

/// Whether \a path can be handed to a child: a file that is there, ordinary, readable, not empty, with a name in UTF-8.
/// Empty when it can. Starts nothing and never waits.
ZOKIT_EXPORT Message checkInput(const QString& path);
/// The most pixels that a frame may have, as it is read and as it is written: 8192 times 8192.
constexpr qint64 mostPixels = 67108864;

/// What stands before and with each "-i" of ffmpeg and ffprobe: \a file is only ever a local file, read by one of the
/// known demuxers, within bounds; nothing in its name is an option, a pattern or a protocol.
ZOKIT_EXPORT QStringList guardedInput(const QString& file);

/// Asks ffprobe all about \a file.
ZOKIT_EXPORT Command probeCommand(const Tools& tools, const QString& file);
/// What ffprobe wrote to standard output for it. An error: no JSON, no stream, no size of the picture.
ZOKIT_EXPORT ReadMedia readProbe(const QByteArray& json, const QString& file);

/// Asks for the times of all packets of the picture, else of the first sound: where the file does not tell its length.
ZOKIT_EXPORT Command lengthCommand(const Tools& tools, const MediaInfo& media);
/// Where the last packet ends, in seconds; 0 when that is unknown. \a start is the file's own.
ZOKIT_EXPORT double readLength(const QByteArray& output, double start);
/// Asks for the first frame of the picture, which tells more of HDR than the stream.
ZOKIT_EXPORT Command hdrCommand(const Tools& tools, const MediaInfo& media);
/// MediaStream::hdr; empty where the frame tells nothing.
ZOKIT_EXPORT QMap<QString, QString> readHdr(const QByteArray& json);

/// Finds out about files, one at a time: what readProbe() tells, the length where it takes reading the packets, and
/// what a picture says of HDR. To be used on the main thread.
class ZOKIT_EXPORT Prober : public QObject {
    Q_OBJECT

public:
    /// Asks nothing yet; \a tools says which ffprobe is asked.
    explicit Prober(const Tools& tools, QObject* parent = nullptr);
    /// What runs is ended; finished() is not sent.
    ~Prober() override;

    /// Asks about \a file. A question that is open is dropped: it gets no answer.
    void probe(const QString& file);
    /// Drops the open question.
    void cancel();
    /// Whether a question is open.
    bool isRunning() const;

Q_SIGNALS:
    /// The answer to the last question; exactly one, never from within probe(). A slot may ask the next one.
    void finished(const zokit::ReadMedia& result);

private:
    void readAnswer(const ChildResult& result);
    void askOn();
    void answer();

    enum class Step { Streams, Length, Hdr };

    Tools m_tools;
    std::unique_ptr<Child> m_child;
    QString m_file;
    ReadMedia m_result;
    QVector<Step> m_steps; ///< Still to be asked, the one that is being asked first.
    int m_question = 0;    ///< Number of the open question, to which the answer must belong.
    bool m_isRunning = false;
};

/// Finds out about \a file and waits: for command lines and tests.
ZOKIT_EXPORT ReadMedia probe(const Tools& tools, const QString& file);

} // namespace zokit
