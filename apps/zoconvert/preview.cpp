// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert preview: one frame of a clip as it is, and as a conversion would have it.

#include <QBuffer>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>

#include <zokit/frames.h>
#include <zokit/graph.h>
#include <zokit/outputoptions.h>
#include <zokit/settingsfile.h>
#include <zokit/trackplan.h>

#include "console.h"
#include "existing.h"
#include "input.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

namespace {

/// What the pictures are made of.
struct Scene {
    zokit::Settings settings;
    zokit::FrameQuestion question;
    QString error; ///< Names the file.
    int code = Done;
};

Scene refused(const QString& error, int code)
{
    Scene scene;
    scene.error = error;
    scene.code = code;
    return scene;
}

/// Sets what the command line says of the output; the sentence says what is refused.
QString setOutput(zokit::FileSettings& file, const Invocation& invocation)
{
    for (auto it = invocation.output.cbegin(); it != invocation.output.cend(); ++it) {
        const zokit::OutputOption* option = zokit::outputOption(it.key());
        if (!option || !option->inSettings)
            continue;
        const zokit::Message error = file.setValue(file.output(), it.key(), it.value());
        if (!error.isEmpty())
            return error.text();
    }
    return QString();
}

Scene sceneOf(const QString& word, const Invocation& invocation)
{
    Input input = loadInput(word, invocation);
    if (input.settings && !input.media) {
        const zokit::Settings settings = input.settings->settings();
        const ProbedInput probed = probeInput(settings.media.file, invocation);
        if (!probed.media)
            return refused(named(word, probed.error), Failed);
        const QStringList missing = input.warnings;
        input = inputOf(word, settings, *probed.media);
        input.warnings = missing + input.warnings;
    }
    if (input.settings)
        edit(input, invocation);
    for (const QString& warning : std::as_const(input.warnings))
        console::warning(warning, word);
    if (!input.error.isEmpty())
        return refused(input.error, input.code);
    if (const QString error = setOutput(*input.settings, invocation); !error.isEmpty())
        return refused(named(word, error), Usage);

    Scene scene;
    scene.settings = input.settings->settings();
    if (!input.media->picture())
        return refused(zokit::Message(zokit::Message::Code::NoPicture, {word}).text(), Failed);

    QMap<QString, zokit::MediaInfo> files;
    for (const QString& file : zokit::namedTrackFiles(scene.settings)) {
        const ProbedInput probed = probeInput(file, invocation);
        if (!probed.media)
            return refused(named(word, probed.error), Usage);
        files.insert(file, *probed.media);
    }
    const QString container = zokit::containerFor(scene.settings, input.media->file);
    const zokit::TracksPlan plan = zokit::planTracks(scene.settings, *input.media, files, container);
    if (!plan.error.isEmpty())
        return refused(named(word, plan.error.text()), Usage);
    scene.question = zokit::plannedFrame(scene.settings, *input.media, plan);
    return scene;
}

/// What is wrong with the moment that is asked for; empty: nothing, or none is.
QString wrongTime(const Invocation& invocation)
{
    constexpr double tooLarge = 1e9;
    bool isNumber = false;
    const double seconds = invocation.value("time").toDouble(&isNumber);
    return !invocation.has("time") || (isNumber && seconds >= 0 && seconds < tooLarge)
               ? QString()
               : say(Say::TimeForm, {invocation.value("time")});
}

/// The picture of each kind at the question's time, by two children at a time: one gets what comes out, the other keeps
/// the clip's frame for what does not.
QMap<zokit::FrameKind, zokit::FrameAnswer> frames(zokit::FrameQuestion question)
{
    using zokit::FrameKind;
    const zokit::Tools tools = zokit::findTools();
    zokit::Frames converted(tools);
    zokit::Frames kept(tools);
    QMap<FrameKind, zokit::FrameAnswer> answers;
    QEventLoop loop;
    const auto take = [&](FrameKind kind, const zokit::FrameAnswer& answer) {
        answers.insert(kind, answer);
        if (answers.size() == 3 || !answer.error.isEmpty())
            loop.quit();
    };
    QObject::connect(&converted, &zokit::Frames::answered, &loop,
                     [&](const zokit::FrameAnswer& answer) { take(FrameKind::After, answer); });
    QObject::connect(&kept, &zokit::Frames::answered, &loop, [&](const zokit::FrameAnswer& answer) {
        take(question.kind, answer);
        if (question.kind == FrameKind::Before && answer.error.isEmpty()) {
            question.kind = FrameKind::Whole;
            kept.ask(question);
        }
    });
    question.kind = FrameKind::After;
    converted.ask(question);
    question.kind = FrameKind::Before;
    question.isKept = true;
    kept.ask(question);
    loop.exec();
    return answers;
}

/// Where the pictures go: before, after, preview and watermark. The \a error says which one would take the place of
/// what is shown.
QStringList picturePaths(const QDir& folder, const QStringList& sources, QString* error)
{
    QStringList paths;
    for (const char* name : {"before.png", "after.png", "preview.png", "watermark.png"}) {
        paths.append(QDir::cleanPath(folder.filePath(QString::fromLatin1(name))));
        if (error->isEmpty())
            *error = refusedAsSource(paths.last(), sources);
    }
    return paths;
}

/// Writes \a picture whole or not at all; the sentence says why not.
QString write(const QImage& picture, const QString& path)
{
    constexpr int quick = 70; // Of 100: sooner there, for files that are a fifth larger.
    QByteArray png;
    QBuffer buffer(&png);
    QSaveFile file(path);
    if (picture.save(&buffer, "PNG", quick) && file.open(QIODevice::WriteOnly) && file.write(png) == png.size()
        && file.flush() && file.commit())
        return QString();
    return zokit::Message(zokit::Message::Code::FileUnwritable, {path, file.errorString()}).text();
}

} // namespace

int preview(const Invocation& invocation)
{
    const QString word = invocation.words.first();
    const QString wrong = wrongTime(invocation);
    Scene scene = wrong.isEmpty() ? sceneOf(word, invocation) : refused(wrong, Usage);
    if (!scene.error.isEmpty()) {
        console::error(scene.error);
        return scene.code;
    }
    constexpr double goodPlace = 0.3; // Some way into the clip.
    scene.question.seconds =
        invocation.has("time") ? invocation.value("time").toDouble() : scene.question.media.seconds * goodPlace;

    const QDir folder(invocation.has("output") ? invocation.value("output") : QStringLiteral("."));
    QString error;
    const QStringList paths = picturePaths(folder, zokit::namedFiles(scene.settings), &error);
    if (!error.isEmpty()) {
        console::error(error);
        return Failed;
    }
    QMap<zokit::FrameKind, QImage> images;
    const QMap<zokit::FrameKind, zokit::FrameAnswer> answers = frames(scene.question);
    for (auto it = answers.cbegin(); it != answers.cend(); ++it) {
        const zokit::Message& unseen = it.value().error;
        if (!unseen.isEmpty()) {
            console::error(unseen.text(), unseen.arguments().contains(word) ? QString() : word);
            return Failed;
        }
        images.insert(it.key(), it.value().frame.image());
    }
    if (const double end = scene.question.media.seconds; end > 0 && scene.question.seconds > end)
        console::warning(say(Say::TimeBehindEnd, {invocation.value("time"), QString::number(end)}), word);
    for (const zokit::Message& warning : answers.value(zokit::FrameKind::After).warnings)
        console::warning(warning.text(), word);
    QImage watermark = zokit::watermarkPicture(scene.settings);
    if (watermark.isNull()) {
        watermark = QImage(zokit::baseFrame(scene.settings), QImage::Format_RGBA8888);
        watermark.fill(Qt::transparent);
    }

    QDir().mkpath(folder.path()); // Where it cannot be made, writing says so.
    const QImage pictures[] = {images.value(zokit::FrameKind::Before), images.value(zokit::FrameKind::After),
                               zokit::previewPicture(scene.settings, images.value(zokit::FrameKind::Whole)), watermark};
    for (int i = 0; i < paths.size(); ++i) {
        if (const QString unwritten = write(pictures[i], paths.at(i)); !unwritten.isEmpty()) {
            console::error(unwritten);
            return Failed;
        }
        console::printLine(paths.at(i));
    }
    return Done;
}

} // namespace zoconvert
