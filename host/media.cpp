// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "media.h"

#include "console.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace {

/// The file as ffmpeg's own file protocol takes it: nothing in the name is an option or another protocol.
QString fileUrl(const QString& path)
{
    return "file:" + QFileInfo(path).absoluteFilePath();
}

/// ffmpeg's last word on \a path, without the name that it puts in front.
QString reasonIn(const QByteArray& messages, const QString& path)
{
    QString reason = QString::fromLocal8Bit(messages).trimmed().section('\n', -1);
    reason.remove(fileUrl(path) + ": ");
    return reason.isEmpty() ? QString("it gave no reason") : reason;
}

/// What \a program prints about the file at \a path.
QByteArray outputOf(const QString& program, const QStringList& arguments, const QString& path, int patience)
{
    constexpr int second = 1000;
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted())
        throw Failure{program + " cannot be started; it comes with the package ffmpeg"};
    if (!process.waitForFinished(patience * second)) {
        process.kill();
        process.waitForFinished();
        throw Failure{QString("%1: %2 gave no answer within %3 s").arg(path, program, QString::number(patience))};
    }
    if (process.exitStatus() != QProcess::NormalExit)
        throw Failure{QString("%1: %2 crashed").arg(path, program)};
    if (process.exitCode() != 0) {
        const QString reason = reasonIn(process.readAllStandardError(), path);
        throw Failure{QString("%1: %2 cannot read it: %3").arg(path, program, reason)};
    }
    return process.readAllStandardOutput();
}

Track trackFrom(const QJsonObject& stream)
{
    Track track;
    track.id = stream["index"].toInt();
    track.language = stream["tags"].toObject()["language"].toString("und");
    track.codec = stream["codec_name"].toString("unknown");
    return track;
}

bool isLyingOnItsSide(const QJsonObject& stream)
{
    constexpr int halfTurn = 180;
    const QJsonArray sideData = stream["side_data_list"].toArray();
    for (const QJsonValue& entry : sideData) {
        if (entry.toObject()["rotation"].toInt() % halfTurn != 0)
            return true;
    }
    return false;
}

} // namespace

Media probe(const QString& path, int patience)
{
    const QFileInfo file(path);
    if (!file.exists())
        throw Failure{path + ": there is no such file"};
    if (!file.isFile()) // A pipe or device might never answer.
        throw Failure{path + ": this is not a regular file"};

    const QByteArray answer =
        outputOf("ffprobe", {"-v", "error", "-print_format", "json", "-show_format", "-show_streams", fileUrl(path)},
                 path, patience);
    const QJsonObject json = QJsonDocument::fromJson(answer).object();

    Media media;
    media.path = path;
    media.seconds = json["format"].toObject()["duration"].toString().toDouble();
    const QJsonArray streams = json["streams"].toArray();
    for (const QJsonValue& entry : streams) {
        const QJsonObject stream = entry.toObject();
        const QString kind = stream["codec_type"].toString();
        const bool isCover = stream["disposition"].toObject()["attached_pic"].toInt() == 1;
        if (kind == "audio") {
            media.audioTracks << trackFrom(stream);
        } else if (kind == "subtitle") {
            media.subtitleTracks << trackFrom(stream);
        } else if (kind == "video" && !isCover && media.videoStream == -1) {
            media.videoStream = stream["index"].toInt();
            media.pictureSize = QSize(stream["width"].toInt(), stream["height"].toInt());
            if (isLyingOnItsSide(stream))
                media.pictureSize.transpose();
        }
    }
    return media;
}

QImage frameAt(const Media& media, double seconds, QSize size, int patience)
{
    constexpr int bytesPerPixel = 4;
    const QByteArray pixels = outputOf(
        "ffmpeg",
        {"-v", "error", "-nostdin", "-ss", QString::number(seconds, 'f', 3), "-i", fileUrl(media.path), "-map",
         QString("0:%1").arg(media.videoStream), "-frames:v", "1", "-vf",
         QString("scale=%1:%2").arg(size.width()).arg(size.height()), "-pix_fmt", "rgba", "-f", "rawvideo", "-"},
        media.path, patience);
    if (pixels.size() != qint64(size.width()) * size.height() * bytesPerPixel)
        return {};
    const auto* bytes = reinterpret_cast<const uchar*>(pixels.constData());
    return QImage(bytes, size.width(), size.height(), QImage::Format_RGBA8888).convertToFormat(QImage::Format_RGB32);
}
