// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <zokit/child.h>
#include <zokit/message.h>
#include <zokit/probe.h>
#include <zokit/settings.h>
#include <zokit/settingsfile.h>
#include <zokit/tools.h>
#include <zokit/trackplan.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// One file to convert: all that has to be known, as data.
struct ZOKIT_EXPORT Job {
    QString input;     ///< Absolute path of the clip.
    QString output;    ///< Absolute path of the result; its ending says the container.
    Settings settings; ///< With the output options. Rescaled where the clip has another frame.
    /// Makes the settings where they depend on the clip; \a settings is not read then. An error fails the job.
    std::function<ReadSettings(const MediaInfo&)> makeSettings;
    std::optional<MediaInfo> media; ///< What is known of the clip; without it, it is probed.
    bool replaces = false;          ///< A result that is there is replaced at the end; else the job fails.
    bool skips = false;             ///< Instead, with a result that is there, at the end too, the job is Skipped.
    int threads = 0;                ///< Of the encoders and filters; 0: as many as ffmpeg likes.
    // NOLINTNEXTLINE(readability-magic-numbers): what the option has when it is not given.
    int stallSeconds = 30; ///< Without progress for so long, the conversion is ended.
};

/// Files that a conversion needs beside the clip, made before it.
struct ZOKIT_EXPORT HelperFiles {
    QString watermark;             ///< watermarkPicture() as PNG; empty: none.
    QString subtitleScript;        ///< Own script of the subtitle that is burned in; empty: none.
    bool subtitleInColour = false; ///< OwnSubtitles::inColour of it.
    QString subtitleFonts;         ///< Folder of the fonts that the clip brings for it; empty: none.
    QMap<int, QString> scripts;    ///< Of tracks that are written anew, by place in TracksPlan::tracks.
    QString chapters;              ///< Where the clip's own do not fit: as ffmpeg's metadata; empty: the clip's own.
    QMap<int, QString> covers;     ///< By stream number.
    QMap<int, double> gains;       ///< Decibels by place in TracksPlan::tracks.
};

/// \name What is started, as data
/// @{

/// Writes the subtitle of \a plan to standard output as ASS, and the fonts that are attached to the clip into the
/// folder \a fonts, where one is named. Of the clip all is read up to \a end seconds, where it is not 0, and from
/// \a begin on: times count from there.
ZOKIT_EXPORT Command extractCommand(const Tools& tools, const MediaInfo& media, const SubtitlePlan& plan,
                                    const QString& fonts = QString(), double begin = 0, double end = 0);
/// Writes a cover to \a file as it is.
ZOKIT_EXPORT Command coverCommand(const Tools& tools, const MediaInfo& media, int stream, const QString& file);
/// Measures the peak of a track: its words are for measuredPeak().
ZOKIT_EXPORT Command measureCommand(const Tools& tools, const Job& job, const MediaInfo& media,
                                    const QMap<QString, MediaInfo>& files, const TrackPlan& track);
/// Converts to \a target.
ZOKIT_EXPORT Command convertCommand(const Tools& tools, const Job& job, const MediaInfo& media,
                                    const QMap<QString, MediaInfo>& files, const TracksPlan& plan,
                                    const HelperFiles& helpers, const QString& target);
/// The chapters of \a media as they stand in what comes out, in the form of ffmpeg's metadata.
ZOKIT_EXPORT QByteArray chaptersText(const Settings& settings, const MediaInfo& media);
/// @}

/// What is wrong with a result that was to be \a plan's, \a wanted seconds long; empty: nothing. \a isShort, which has
/// to be given, says whether only the length lacks.
ZOKIT_EXPORT Message checkResult(const MediaInfo& result, const TracksPlan& plan, double wanted, bool* isShort);

/// What became of a job.
enum class Outcome {
    Done,
    Failed,
    Cancelled,
    Skipped ///< Its result is there, and Job::skips; or not begun, in a queue that stops at the first failure.
};

/// Whether trying again may help.
enum class FailureKind {
    None,
    Lasting,   ///< The file or the settings are the reason.
    Temporary, ///< Disk or memory were full, or a child was killed or did not get on.
    Setup      ///< A program, an encoder or a needed file is missing.
};

/// How a conversion ended.
struct ZOKIT_EXPORT ConversionResult {
    Outcome outcome = Outcome::Failed;    ///< What became of it.
    FailureKind kind = FailureKind::None; ///< Of a failure.
    Message reason;                       ///< Why it failed; empty for a success.
    Messages warnings;                    ///< All, those told before included.
};

/// Converts one file. The result has its name only when it is whole: until then it is a part file in its folder, which
/// is gone however this ends. To be used on the main thread.
class ZOKIT_EXPORT Conversion : public QObject {
    Q_OBJECT

public:
    /// Does nothing before start(); \a tools are what findTools() gave.
    explicit Conversion(const Tools& tools, QObject* parent = nullptr);
    /// What runs is ended, and leaves nothing.
    ~Conversion() override;

    /// Starts \a job; once for each object. The end is told by finished(), whatever it is.
    void start(const Job& job);
    /// Does all but the conversion itself, and keeps the helper files in \a folder: afterwards commands() are there.
    void prepare(const Job& job, const QString& folder);
    /// Ends it at once. The state is Cancelled before finished() is sent.
    void cancel();
    /// Stops what runs, and lets it go on; no time counts meanwhile.
    void pause();
    void resume(); ///< See pause().
    /// From start() or prepare() on until it has ended.
    bool isRunning() const;

    /// With the settings that were made for the clip, once planned() was sent.
    const Job& job() const;
    /// Once planned() was sent.
    const MediaInfo& media() const;
    const TracksPlan& plan() const; ///< Once planned() was sent.
    /// What was run or, after prepare(), is to be run: measuring, extracting, converting.
    QVector<Command> commands() const;

Q_SIGNALS:
    /// All is decided: plan() tells what becomes of each track.
    void planned();
    /// \a fraction from 0 to 1 never falls; \a secondsLeft and \a speed, seconds of output a second, are 0 while they
    /// are unknown.
    void progressed(double fraction, double secondsLeft, double speed);
    /// What comes out otherwise than one may think; each once.
    void warned(const zokit::Message& warning);
    /// Exactly once, never from within start().
    void finished(const zokit::ConversionResult& result);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit

Q_DECLARE_METATYPE(zokit::ConversionResult)
