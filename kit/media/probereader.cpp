// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/probe.h>

#include <algorithm>
#include <cmath>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace zokit {

namespace {

constexpr int longestSide = 65535;
constexpr int mostCounted = 1000000000; // Products of two stay in the range of 64 bits.
constexpr double longest = 1e8;         // Seconds, three years: a file that tells more lies.

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

/// A number that ffprobe writes as one or as a text; 0 for everything else.
double number(const QJsonObject& object, const char* key)
{
    const QJsonValue value = object.value(QLatin1String(key));
    const double result = value.isString() ? value.toString().toDouble() : value.toDouble();
    return std::isfinite(result) ? result : 0;
}

/// A whole number from 0 to \a highest; 0 for everything else.
qint64 count(const QJsonObject& object, const char* key, qint64 highest)
{
    const double value = number(object, key);
    return value >= 0 && value <= static_cast<double>(highest) ? static_cast<qint64>(value) : 0;
}

int smallCount(const QJsonObject& object, const char* key)
{
    return static_cast<int>(count(object, key, mostCounted));
}

double length(double seconds)
{
    return seconds > 0 && seconds < longest ? seconds : 0;
}

double time(const QJsonObject& object, const char* key)
{
    const double seconds = number(object, key);
    return std::abs(seconds) < longest ? seconds : 0;
}

/// "a/b" or "a:b"; \a otherwise where it is none above 0.
Rational rational(const QString& said, Rational otherwise)
{
    const QStringList parts = QString(said).replace(QLatin1Char(':'), QLatin1Char('/')).split(QLatin1Char('/'));
    const Rational result{parts.value(0).toLongLong(), parts.value(1).toLongLong()};
    const auto fits = [](qint64 part) { return part > 0 && part <= mostCounted; };
    return parts.size() == 2 && fits(result.numerator) && fits(result.denominator) ? result : otherwise;
}

QMap<QString, QString> tagsOf(const QJsonObject& object)
{
    QMap<QString, QString> tags;
    const QJsonObject told = object.value(QLatin1String("tags")).toObject();
    for (auto tag = told.begin(); tag != told.end(); ++tag)
        tags.insert(tag.key(), tag.value().toString());
    return tags;
}

TrackKind kindOf(const QString& type)
{
    if (type == QLatin1String("video"))
        return TrackKind::Video;
    if (type == QLatin1String("audio"))
        return TrackKind::Audio;
    if (type == QLatin1String("subtitle"))
        return TrackKind::Subtitle;
    return type == QLatin1String("attachment") ? TrackKind::Attachment : TrackKind::Data;
}

/// ffprobe counts counter-clockwise, from -180 to 180. What is no quarter turn leaves the frame as it is.
void readTurn(const QJsonObject& told, MediaStream& stream)
{
    constexpr int whole = 360;
    constexpr int quarter = 90;
    constexpr int downOfY = 6; // "00000000: 65536 0 0 00000001: 0 -65536 0 ..."
    const QJsonArray beside = told.value(QLatin1String("side_data_list")).toArray();
    for (const QJsonValue& data : beside) {
        const QJsonObject turn = data.toObject();
        if (!turn.contains(QLatin1String("rotation")))
            continue;
        const double degrees = number(turn, "rotation");
        if (std::abs(degrees) > whole)
            return;
        const int clockwise = (whole - static_cast<int>(std::lround(degrees))) % whole;
        const QStringList matrix = text(turn, "displaymatrix").simplified().split(QLatin1Char(' '));
        stream.isTurned = clockwise != 0 || matrix.value(downOfY).toInt() < 0;
        stream.rotation = clockwise % quarter == 0 ? clockwise : 0;
        return;
    }
}

/// "DURATION": "00:01:02.500000000", which Matroska keeps of each track: not how long it lasts, but where it ends.
double endTag(const QMap<QString, QString>& tags)
{
    constexpr int perUnit = 60;
    const QStringList parts = tags.value(QStringLiteral("DURATION")).split(QLatin1Char(':'));
    if (parts.size() != 3)
        return 0;
    const double seconds = (parts[0].toDouble() * perUnit + parts[1].toDouble()) * perUnit + parts[2].toDouble();
    return length(seconds);
}

QString matrixOf(const QString& colorSpace, const QSize& coded)
{
    constexpr int linesOfHd = 720;
    constexpr int columnsOfHd = 1280;
    if (colorSpace == QLatin1String("bt2020nc") || colorSpace == QLatin1String("bt2020c"))
        return QStringLiteral("bt2020");
    if (colorSpace == QLatin1String("smpte170m") || colorSpace == QLatin1String("bt470bg"))
        return QStringLiteral("bt601");
    for (const char* same : {"bt709", "fcc", "smpte240m"}) {
        if (colorSpace == QLatin1String(same))
            return colorSpace;
    }
    const bool isHd = coded.height() >= linesOfHd || coded.width() >= columnsOfHd;
    return isHd ? QStringLiteral("bt709") : QStringLiteral("bt601");
}

/// The stored width times the aspect, down to the next even number, as the filter chain makes it; then turned.
QSize shownSize(MediaStream& stream)
{
    QSize shown = stream.coded;
    if (stream.sampleAspect.numerator != stream.sampleAspect.denominator) {
        const double half = shown.width() * stream.sampleAspect.value() / 2;
        const double pixels = 2 * half * shown.height();
        if (half >= 1 && 2 * half <= longestSide && pixels <= static_cast<double>(mostPixels))
            shown.setWidth(static_cast<int>(half) * 2);
        else
            stream.sampleAspect = Rational{1, 1}; // Nobody has such pixels.
    }
    constexpr int halfTurn = 180;
    return stream.rotation % halfTurn == 0 ? shown : shown.transposed();
}

void readPicture(const QJsonObject& told, MediaStream& stream)
{
    const QSize coded(static_cast<int>(count(told, "width", longestSide)),
                      static_cast<int>(count(told, "height", longestSide)));
    if (!coded.isEmpty() && qint64(coded.width()) * coded.height() <= mostPixels)
        stream.coded = coded;
    stream.sampleAspect = rational(text(told, "sample_aspect_ratio"), Rational{1, 1});
    readTurn(told, stream);
    if (!stream.coded.isEmpty())
        stream.shown = shownSize(stream);
    stream.pixelFormat = text(told, "pix_fmt");
    stream.colorSpace = text(told, "color_space");
    stream.primaries = text(told, "color_primaries");
    stream.transfer = text(told, "color_transfer");
    stream.range = text(told, "color_range");
    if (stream.range != QLatin1String("tv") && stream.range != QLatin1String("pc"))
        stream.range =
            stream.pixelFormat.startsWith(QLatin1String("yuvj")) ? QStringLiteral("pc") : QStringLiteral("tv");
    stream.isHdr = stream.transfer == QLatin1String("smpte2084") || stream.transfer == QLatin1String("arib-std-b67");
    const bool isOnlyHdr = stream.isHdr && stream.colorSpace.isEmpty(); // There is none without the wide colours.
    stream.matrix = isOnlyHdr ? QStringLiteral("bt2020") : matrixOf(stream.colorSpace, stream.coded);
    stream.fieldOrder = text(told, "field_order");
    const QStringList fields{QStringLiteral("tt"), QStringLiteral("bb"), QStringLiteral("tb"), QStringLiteral("bt")};
    stream.isInterlaced = fields.contains(stream.fieldOrder);
    stream.frameRate = rational(text(told, "r_frame_rate"), Rational{0, 1});
    stream.timeBase = rational(text(told, "time_base"), Rational{0, 1});
    stream.averageRate = rational(text(told, "avg_frame_rate"), Rational{0, 1});
    const Rational& a = stream.frameRate;
    const Rational& b = stream.averageRate;
    stream.hasVariableRate =
        a.numerator > 0 && b.numerator > 0 && a.numerator * b.denominator != b.numerator * a.denominator;
    constexpr qint64 mostFrames = 1000000000000;
    stream.frames = count(told, "nb_frames", mostFrames);
}

MediaStream readStream(const QJsonObject& told)
{
    MediaStream stream;
    stream.tags = tagsOf(told);
    const QJsonObject dispositions = told.value(QLatin1String("disposition")).toObject();
    for (auto entry = dispositions.begin(); entry != dispositions.end(); ++entry)
        stream.dispositions.insert(entry.key(), entry.value().toInt() != 0);
    stream.isCover = stream.dispositions.value(QStringLiteral("attached_pic"));
    stream.track.index = smallCount(told, "index");
    stream.track.kind = kindOf(text(told, "codec_type"));
    stream.track.codec = text(told, "codec_name");
    stream.track.language = stream.tags.value(QStringLiteral("language"));
    if (stream.track.language == QLatin1String("und"))
        stream.track.language.clear();
    stream.track.title = stream.tags.value(QStringLiteral("title"));
    stream.track.isDefault = stream.dispositions.value(QStringLiteral("default"));
    stream.track.forced = stream.dispositions.value(QStringLiteral("forced"));
    stream.start = time(told, "start_time");
    stream.seconds = length(number(told, "duration"));
    if (stream.seconds <= 0)
        stream.seconds = length(endTag(stream.tags) - stream.start);
    if (stream.track.kind == TrackKind::Video)
        readPicture(told, stream);
    stream.sampleRate = smallCount(told, "sample_rate");
    stream.channels = smallCount(told, "channels");
    stream.channelLayout = text(told, "channel_layout");
    stream.sampleFormat = text(told, "sample_fmt");
    stream.fileName = stream.tags.value(QStringLiteral("filename"));
    stream.mimeType = stream.tags.value(QStringLiteral("mimetype"));
    return stream;
}

/// mov and mp4 differ by their brand; mkv and webm, which ffprobe does not tell apart, by the file's ending.
QString containerOf(const MediaInfo& media)
{
    const QStringList names = media.demuxer.split(QLatin1Char(','));
    if (names.contains(QStringLiteral("mp4"))) {
        const QString brand = media.tags.value(QStringLiteral("major_brand"));
        return brand.trimmed() == QLatin1String("qt") ? QStringLiteral("mov") : QStringLiteral("mp4");
    }
    if (names.contains(QStringLiteral("matroska"))) {
        const QString suffix = QFileInfo(media.file).suffix();
        return suffix.compare(QLatin1String("webm"), Qt::CaseInsensitive) == 0 ? QStringLiteral("webm")
                                                                               : QStringLiteral("mkv");
    }
    if (names.first() == QLatin1String("mpegts"))
        return QStringLiteral("ts");
    return QString(names.first()).remove(QLatin1String("_pipe"));
}

/// How long picture and sound last, where each of them tells; a last subtitle may be without an end, which the file's
/// own length, \a told, then takes for the longest there can be.
double lengthOf(const MediaInfo& media, double told)
{
    double end = 0;
    for (const MediaStream& stream : media.streams) {
        const bool counts = stream.track.kind == TrackKind::Audio || stream.track.kind == TrackKind::Video;
        if (!counts || stream.isCover)
            continue;
        if (stream.seconds <= 0)
            return told;
        end = std::max(end, stream.start + stream.seconds - media.start);
    }
    return end > 0 && (told <= 0 || end < told) ? end : told;
}

/// A part of a mastering display's numbers, which ffprobe writes as fractions, in units of 1/\a unit.
QString inUnits(const QJsonObject& data, const char* key, int unit)
{
    const Rational told = rational(text(data, key), Rational{0, 1});
    return QString::number(std::llround(told.value() * unit));
}

/// Whether it tells its colours and its light; ffmpeg leaves out what the file leaves out.
bool isWhole(const QJsonObject& data)
{
    const auto isThere = [&data](const char* key) { return rational(text(data, key), Rational{0, 1}).numerator > 0; };
    const auto keys = {"red_x",  "red_y",         "green_x",       "green_y",      "blue_x",
                       "blue_y", "white_point_x", "white_point_y", "max_luminance"};
    return std::all_of(keys.begin(), keys.end(), isThere);
}

QString point(const QJsonObject& data, const char* x, const char* y)
{
    constexpr int unit = 50000;
    return QStringLiteral("(%1,%2)").arg(inUnits(data, x, unit), inUnits(data, y, unit));
}

} // namespace

double Rational::value() const
{
    return denominator == 0 ? 0 : static_cast<double>(numerator) / static_cast<double>(denominator);
}

const MediaStream* MediaInfo::picture() const
{
    const MediaStream* first = nullptr;
    for (const MediaStream& stream : streams) {
        if (stream.track.kind != TrackKind::Video || stream.isCover)
            continue;
        if (stream.track.isDefault)
            return &stream;
        if (!first)
            first = &stream;
    }
    return first;
}

const MediaStream* MediaInfo::stream(int index) const
{
    const auto found = std::find_if(streams.begin(), streams.end(),
                                    [index](const MediaStream& stream) { return stream.track.index == index; });
    return found == streams.end() ? nullptr : &*found;
}

QVector<Track> MediaInfo::tracks() const
{
    QVector<Track> result;
    for (const MediaStream& stream : streams)
        result.append(stream.track);
    return result;
}

bool MediaInfo::mayChangeSize() const
{
    return container == QLatin1String("ts") || container == QLatin1String("mpeg") || container == QLatin1String("flv");
}

ReadMedia readProbe(const QByteArray& json, const QString& file)
{
    const QJsonObject told = QJsonDocument::fromJson(json).object();
    const QJsonObject format = told.value(QLatin1String("format")).toObject();
    MediaInfo media;
    media.file = file;
    media.tags = tagsOf(format);
    media.demuxer = text(format, "format_name");
    media.container = containerOf(media);
    media.start = time(format, "start_time");
    constexpr qint64 mostBytes = qint64(1) << 53;
    media.bytes = count(format, "size", mostBytes);
    const QJsonArray streams = told.value(QLatin1String("streams")).toArray();
    for (const QJsonValue& stream : streams)
        media.streams.append(readStream(stream.toObject()));
    media.seconds = lengthOf(media, length(number(format, "duration")));
    const QJsonArray chapters = told.value(QLatin1String("chapters")).toArray();
    for (const QJsonValue& value : chapters) {
        const QJsonObject chapter = value.toObject();
        media.chapters.append({time(chapter, "start_time"), time(chapter, "end_time"), tagsOf(chapter)});
    }
    if (media.streams.isEmpty())
        return {std::nullopt, Message(Message::Code::NoTracks, {file})};
    const MediaStream* const picture = media.picture();
    if (picture && picture->coded.isEmpty())
        return {std::nullopt, Message(Message::Code::PictureRefused, {file, QString::number(picture->track.index)})};
    return {media, Message()};
}

/// Lines "TIME,LENGTH", each of them a number or "N/A". Packets of raw streams have no time, but a length.
double readLength(const QByteArray& output, double start)
{
    double end = 0;
    double sum = 0;
    for (const QByteArray& line : output.split('\n')) {
        const QList<QByteArray> parts = line.trimmed().split(',');
        bool hasTime = false;
        const double at = parts.value(0).toDouble(&hasTime);
        const double lasts = length(parts.value(1).toDouble());
        sum += lasts;
        if (hasTime && std::isfinite(at))
            end = std::max(end, at + lasts - start);
    }
    return length(end > 0 ? end : sum);
}

QMap<QString, QString> readHdr(const QByteArray& json)
{
    constexpr int unitOfLight = 10000;
    QMap<QString, QString> result;
    const QJsonArray frames = QJsonDocument::fromJson(json).object().value(QLatin1String("frames")).toArray();
    const QJsonArray beside = frames.first().toObject().value(QLatin1String("side_data_list")).toArray();
    for (const QJsonValue& value : beside) {
        const QJsonObject data = value.toObject();
        const QString type = text(data, "side_data_type");
        if (type == QLatin1String("Mastering display metadata") && isWhole(data))
            result.insert(QStringLiteral("master-display"),
                          QStringLiteral("G%1B%2R%3WP%4L(%5,%6)")
                              .arg(point(data, "green_x", "green_y"), point(data, "blue_x", "blue_y"),
                                   point(data, "red_x", "red_y"), point(data, "white_point_x", "white_point_y"),
                                   inUnits(data, "max_luminance", unitOfLight),
                                   inUnits(data, "min_luminance", unitOfLight)));
        else if (type == QLatin1String("Content light level metadata"))
            result.insert(
                QStringLiteral("max-cll"),
                QStringLiteral("%1,%2").arg(smallCount(data, "max_content")).arg(smallCount(data, "max_average")));
    }
    return result;
}

} // namespace zokit
