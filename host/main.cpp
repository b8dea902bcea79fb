// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zopreview: what a host does with libzoeffect, from the first call to the picture. Reading order: this file,
// effecttable.cpp (which effects there are), edits.cpp (changing the settings), pictures.cpp (showing them),
// report.cpp (asking about them, and listening). request.cpp reads the command line, media.cpp asks ffmpeg.

#include "console.h"
#include "edits.h"
#include "effecttable.h"
#include "media.h"
#include "pictures.h"
#include "report.h"
#include "request.h"

#include <QDir>
#include <QGuiApplication>
#include <QTextStream>

#include <cstdio>

#include <unistd.h>

namespace {

/// No window is shown, so no display is needed. And what a bare system does not set would make Qt complain.
void prepareEnvironment()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(QString("%1/runtime-%2").arg(QDir::tempPath()).arg(getuid())));
    QByteArray locale;
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (locale.isEmpty())
            locale = qgetenv(variable);
    }
    if (locale.isEmpty() || locale == "C" || locale == "POSIX") // No file names beyond ASCII there.
        qputenv("LC_ALL", "C.UTF-8");
}

/// Any frame that is asked for must exist; one that this program chooses may be the first.
QImage frameFor(const Request& request, const Media& media)
{
    constexpr double goodPlace = 0.3;
    const QSize size = request.size.isEmpty() ? media.pictureSize : request.size;
    const bool isAsked = request.seconds >= 0;
    QImage frame = frameAt(media, isAsked ? request.seconds : media.seconds * goodPlace, size, request.patience);
    if (frame.isNull() && !isAsked)
        frame = frameAt(media, 0, size, request.patience);
    if (frame.isNull())
        throw Failure{
            media.path
            + QString(": stream %1 has no picture at %2 s").arg(media.videoStream).arg(isAsked ? request.seconds : 0)};
    return frame;
}

void preview(const Request& request)
{
    // First of all, and once: which effects there are. The user's saved defaults are loaded for these types.
    ZoEffectModel::InitEffectModel(effectTable());
    for (const QString& type : request.defaultsToForget)
        forgetDefault(type);

    const Media media = probe(request.clip, request.patience);
    if (media.videoStream == -1)
        throw Failure{media.path + ": this file has no video stream"};
    if (!isPossible(media.pictureSize))
        throw Failure{media.path + QString(": stream %1 has no size that can be shown").arg(media.videoStream)};
    const QImage frame = frameFor(request, media);
    printMedia(media);

    // The settings of this file, filled with the defaults. All positions and sizes are pixels of the video
    // size, so that comes before any watermark.
    FileSettings settings;
    if (request.trace) {
        trace(settings.picture);
        trace(settings.sound);
    }
    settings.picture.setVideoSize(media.pictureSize.width(), media.pictureSize.height());
    addEmbeddedTracks(settings, media);

    for (const auto& edit : request.edits)
        edit(settings);
    measureTexts(settings);

    const Pictures pictures = render(settings.picture, frame);
    const QString folder = save(pictures, request.folder);
    printAnswers(settings);
    say(QString("pictures: %1/preview.png and %1/watermark.png").arg(folder));
}

} // namespace

int main(int argc, char** argv)
{
    prepareEnvironment();
    const QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName("zopreview"); // The saved defaults lie in a folder of this name.
    try {
        const Request request = requestFrom(QGuiApplication::arguments());
        if (request.helpWanted)
            QTextStream(stdout) << helpText();
        else
            preview(request);
        return 0;
    } catch (const Failure& failure) {
        complain(failure);
        return failure.exitCode;
    }
}
