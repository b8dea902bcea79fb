// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "graphsupport.h"

#include <QProcess>
#include <QtDebug>

#include <zokit/filesettings.h>

namespace graphsupport {

zokit::Settings plain(const QSize& frame)
{
    zokit::Settings bare;
    bare.media = {QStringLiteral("/clips/clip.mkv"), frame, 5.0};
    zokit::Settings settings = zokit::FileSettings(bare).settings();
    for (zokit::TypeSettings& type : settings.effects) {
        type.selected = false;
        for (zokit::Item& item : type.items)
            item.selected = false;
    }
    return settings;
}

void set(zokit::Settings& settings, const char* type, const char* key, const QVariant& value)
{
    zokit::TypeSettings* found = settings.find(QString::fromLatin1(type));
    found->selected = true;
    found->values.insert(QString::fromLatin1(key), value);
}

void useEffect(zokit::Settings& settings, const QString& name)
{
    zokit::TypeSettings* effects = settings.find(QStringLiteral("Effect"));
    effects->selected = true;
    for (zokit::Item& item : effects->items)
        item.selected = item.selected || item.name == name;
}

void append(zokit::Settings& settings, const char* type, const zokit::Values& values)
{
    zokit::TypeSettings* found = settings.find(QString::fromLatin1(type));
    found->selected = true;
    zokit::Item item;
    item.values = values;
    found->items.append(item);
}

zokit::MediaInfo clip(const QSize& size, const QString& pixelFormat)
{
    zokit::MediaStream stream;
    stream.track.kind = zokit::TrackKind::Video;
    stream.coded = size;
    stream.shown = size;
    stream.pixelFormat = pixelFormat;
    stream.matrix = QStringLiteral("bt709");
    stream.range = QStringLiteral("tv");
    zokit::MediaInfo media;
    media.container = QStringLiteral("mkv");
    media.streams = {stream};
    return media;
}

QByteArray ffmpeg(const QStringList& arguments, const QByteArray& input)
{
    constexpr int patience = 60000;
    QProcess process;
    process.start(QStringLiteral("ffmpeg"),
                  QStringList{QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y")} + arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished(patience);
    if (!ended || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        qWarning().noquote() << "ffmpeg" << arguments << process.readAllStandardError();
        process.kill();
        process.waitForFinished();
        return QByteArray();
    }
    return process.readAllStandardOutput();
}

int Frame::depth() const
{
    return format.contains(QLatin1String("10")) ? 10 : 8;
}

QSize Frame::planeSize(int plane) const
{
    const bool isColour = plane > 0;
    const bool halfAcross = isColour && !format.contains(QLatin1String("444"));
    const bool halfDown = isColour && format.contains(QLatin1String("420"));
    return {halfAcross ? (size.width() + 1) / 2 : size.width(), halfDown ? (size.height() + 1) / 2 : size.height()};
}

namespace {

int offsetOf(const Frame& frame, int plane, int x, int y)
{
    int offset = 0;
    for (int before = 0; before < plane; ++before)
        offset += frame.planeSize(before).width() * frame.planeSize(before).height();
    const int sampleBytes = frame.depth() > 8 ? 2 : 1;
    return (offset + y * frame.planeSize(plane).width() + x) * sampleBytes;
}

} // namespace

int Frame::at(int plane, int x, int y) const
{
    const int offset = offsetOf(*this, plane, x, y);
    if (offset < 0 || offset + depth() / 9 >= bytes.size())
        return -1;
    const int low = static_cast<uchar>(bytes.at(offset));
    return depth() > 8 ? low + 256 * static_cast<uchar>(bytes.at(offset + 1)) : low;
}

void Frame::put(int plane, int x, int y, int value)
{
    const int offset = offsetOf(*this, plane, x, y);
    bytes[offset] = static_cast<char>(value & 0xff);
    if (depth() > 8)
        bytes[offset + 1] = static_cast<char>(value >> 8);
}

void Frame::fill(int plane, int value)
{
    const QSize within = planeSize(plane);
    for (int y = 0; y < within.height(); ++y) {
        for (int x = 0; x < within.width(); ++x)
            put(plane, x, y, value);
    }
}

Frame frame(const QSize& size, const QString& format)
{
    Frame result{size, format, QByteArray()};
    const QSize last = result.planeSize(2);
    result.bytes.resize(offsetOf(result, 2, 0, 0) + last.width() * last.height() * (result.depth() > 8 ? 2 : 1));
    const int unit = result.depth() > 8 ? 4 : 1;
    result.fill(0, 16 * unit);
    result.fill(1, 128 * unit);
    result.fill(2, 128 * unit);
    return result;
}

Frame pattern(const QSize& size, const QString& format)
{
    Frame result = frame(size, format);
    const int unit = result.depth() > 8 ? 4 : 1;
    for (int plane = 0; plane < 3; ++plane) {
        const QSize within = result.planeSize(plane);
        for (int y = 0; y < within.height(); ++y) {
            for (int x = 0; x < within.width(); ++x)
                result.put(plane, x, y, (16 + (x * 7 + y * 13 + plane * 50 + (x * y) % 31) % 200) * unit);
        }
    }
    return result;
}

Frame filtered(const zokit::PictureGraph& graph, const Frame& source, const QString& format, const QStringList& inputs)
{
    QStringList arguments{
        QStringLiteral("-f"),       QStringLiteral("rawvideo"),
        QStringLiteral("-pix_fmt"), source.format,
        QStringLiteral("-s"),       QStringLiteral("%1x%2").arg(source.size.width()).arg(source.size.height()),
        QStringLiteral("-r"),       QStringLiteral("25"),
        QStringLiteral("-i"),       QStringLiteral("pipe:0")};
    arguments += inputs;
    arguments +=
        {QStringLiteral("-filter_complex"), graph.text,          QStringLiteral("-map"), QStringLiteral("[picture]"),
         QStringLiteral("-frames:v"),       QStringLiteral("1"), QStringLiteral("-f"),   QStringLiteral("rawvideo"),
         QStringLiteral("pipe:1")};
    return {graph.size, format, ffmpeg(arguments, source.bytes)};
}

Frame filtered(const zokit::Settings& settings, const zokit::MediaInfo& media, const Frame& source,
               zokit::GraphParts parts, const QStringList& inputs)
{
    parts.rawInput = true;
    const QString format = parts.pixelFormat.isEmpty() ? source.format : parts.pixelFormat;
    return filtered(zokit::pictureGraph(settings, media, parts), source, format, inputs);
}

} // namespace graphsupport
