// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "wordtypes_p.h"

#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

#include <QBitArray>
#include <QByteArray>
#include <QColor>
#include <QDataStream>
#include <QDateTime>
#include <QIODevice>
#include <QKeySequence>
#include <QLine>
#include <QLineF>
#include <QLocale>
#include <QMatrix4x4>
#include <QPoint>
#include <QPointF>
#include <QPolygon>
#include <QPolygonF>
#include <QQuaternion>
#include <QRect>
#include <QRectF>
#include <QRegularExpression>
#include <QSize>
#include <QSizeF>
#include <QTransform>
#include <QUrl>
#include <QUuid>
#include <QVector2D>
#include <QVector3D>
#include <QVector4D>
#include <QtEndian>

namespace wordtypes {

namespace {

// --- Numbers

QString wordFromBool(const QVariant& value)
{
    return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
}

QVariant boolFromWord(const QString& word)
{
    if (word == QLatin1String("true"))
        return true;
    return word == QLatin1String("false") ? QVariant(false) : QVariant();
}

template <typename T>
QString wordFromInteger(const QVariant& value)
{
    return QString::number(value.value<T>());
}

template <typename T>
QVariant integerFromWord(const QString& word)
{
    using Widest = std::conditional_t<std::is_signed_v<T>, qlonglong, qulonglong>;
    using Limits = std::numeric_limits<T>;
    bool ok = false;
    Widest number = 0;
    if constexpr (std::is_signed_v<T>)
        number = word.toLongLong(&ok);
    else
        number = word.toULongLong(&ok);
    const bool fits = ok && number >= Widest(Limits::min()) && number <= Widest(Limits::max());
    return fits ? QVariant::fromValue(static_cast<T>(number)) : QVariant();
}

/// The shortest digits that give back exactly this number.
template <typename T>
QString wordFromReal(const QVariant& value)
{
    const auto number = value.value<T>();
    if (number == 0 && std::signbit(number))
        return QStringLiteral("-0"); // QString::number() drops the sign.
    return QString::number(double(number), 'g', QLocale::FloatingPointShortest);
}

template <typename T>
QVariant realFromWord(const QString& word)
{
    bool ok = false;
    const double number = word.toDouble(&ok);
    const bool fits = !std::isfinite(number) || std::fabs(number) <= double(std::numeric_limits<T>::max());
    return ok && fits ? QVariant::fromValue(static_cast<T>(number)) : QVariant();
}

// --- Streams

/// Larger ones take seconds to write out, only to be given up then.
constexpr int maxBytes = 1024 * 1024;

/// The version that Qt 5.15 and every Qt 6 write and read alike.
constexpr int streamVersion = QDataStream::Qt_5_15;

template <typename T>
QByteArray streamed(const T& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << value;
    return bytes;
}

template <typename T>
std::optional<T> unstreamed(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(streamVersion);
    T value;
    stream >> value;
    return stream.status() == QDataStream::Ok && stream.atEnd() ? std::make_optional(value) : std::nullopt;
}

/// Empty when \a bytes are too many.
QString wordFromBytes(const QByteArray& bytes)
{
    return bytes.size() <= maxBytes ? QString::fromLatin1(bytes.toHex()) : QString();
}

std::optional<QByteArray> bytesFromWord(const QString& word)
{
    const QByteArray bytes = QByteArray::fromHex(word.toLatin1());
    return wordFromBytes(bytes) == word ? std::make_optional(bytes) : std::nullopt;
}

template <typename T>
QString wordFromStreamed(const QVariant& value)
{
    return wordFromBytes(streamed(value.value<T>()));
}

template <typename T, bool (*mayBeDecoded)(const QByteArray&)>
QVariant streamedFromWord(const QString& word)
{
    const std::optional<QByteArray> bytes = bytesFromWord(word);
    if (!bytes || !mayBeDecoded(*bytes))
        return QVariant();
    const std::optional<T> value = unstreamed<T>(*bytes);
    return value ? QVariant::fromValue(*value) : QVariant();
}

/// For types that hold texts or byte arrays: Qt reads these piece by piece, up to the end of the stream.
bool always(const QByteArray& /*bytes*/)
{
    return true;
}

template <int size>
bool hasSize(const QByteArray& bytes)
{
    return bytes.size() == size;
}

std::optional<qint64> leadingCount(const QByteArray& bytes)
{
    return bytes.size() < 4 ? std::nullopt : std::make_optional<qint64>(qFromBigEndian<quint32>(bytes.constData()));
}

template <int elementSize>
bool isCounted(const QByteArray& bytes)
{
    const std::optional<qint64> count = leadingCount(bytes);
    return count && bytes.size() == 4 + *count * elementSize;
}

bool isBits(const QByteArray& bytes)
{
    const std::optional<qint64> count = leadingCount(bytes);
    constexpr int bitsOfByte = 8;
    return count && bytes.size() == 4 + (*count + bitsOfByte - 1) / bitsOfByte;
}

/// Four keys, or one: the empty sequence.
bool isKeySequence(const QByteArray& bytes)
{
    const std::optional<qint64> count = leadingCount(bytes);
    const bool isOneOrFour = count && (*count == 1 || *count == 4);
    return isOneOrFour && isCounted<4>(bytes);
}

bool isColor(const QByteArray& bytes)
{
    constexpr int size = 11; // The model and five numbers of two bytes.
    return bytes.size() == size && bytes.at(0) >= QColor::Invalid && bytes.at(0) <= QColor::ExtendedRgb;
}

/// Moments of a named time zone are neither written nor read: Qt would open a file of the zone's name.
bool isDateTime(const QByteArray& bytes)
{
    constexpr int specOffset = 12; // After eight bytes of date and four of time.
    return bytes.size() > specOffset && bytes.at(specOffset) >= Qt::LocalTime
           && bytes.at(specOffset) <= Qt::OffsetFromUTC;
}

QString wordFromDateTime(const QVariant& value)
{
    const QDateTime moment = value.toDateTime();
    return moment.timeSpec() == Qt::TimeZone ? QString() : wordFromBytes(streamed(moment));
}

bool isFont(const QByteArray& bytes)
{
    constexpr int sizeOfNumbers = 31; // Point size, weight and so on, of fixed length.
    QDataStream stream(bytes);
    stream.setVersion(streamVersion);
    QString family;
    QString styleName;
    stream >> family >> styleName;
    if (stream.skipRawData(sizeOfNumbers) != sizeOfNumbers)
        return false;
    quint32 families = 0;
    stream >> families;
    const qint64 smallestFamily = 4; // Its length.
    return stream.status() == QDataStream::Ok && families <= stream.device()->bytesAvailable() / smallestFamily;
}

// --- Types with a form of their own

/// With a mark before it, so that there is a word for the empty array too.
QString wordFromByteArray(const QVariant& value)
{
    const QByteArray bytes = value.toByteArray();
    return bytes.size() <= maxBytes ? QLatin1Char('x') + wordFromBytes(bytes) : QString();
}

QVariant byteArrayFromWord(const QString& word)
{
    const std::optional<QByteArray> bytes = bytesFromWord(word.mid(1));
    return word.startsWith(QLatin1Char('x')) && bytes ? QVariant(*bytes) : QVariant();
}

/// "#aarrggbb" where that says it all; colours of other models, or of 16 bits per component, as a stream.
QString wordFromColor(const QVariant& value)
{
    const auto color = value.value<QColor>();
    return color == QColor::fromRgba(color.rgba()) ? color.name(QColor::HexArgb) : wordFromStreamed<QColor>(value);
}

QVariant colorFromWord(const QString& word)
{
    if (!word.startsWith(QLatin1Char('#')))
        return streamedFromWord<QColor, isColor>(word);
    constexpr int digits = 8;
    bool ok = false;
    const uint rgba = QStringView(word).mid(1).toUInt(&ok, 16);
    return ok && word.size() == 1 + digits ? QVariant(QColor::fromRgba(rgba)) : QVariant();
}

// --- The table

template <typename T>
WordType integer(const char* name)
{
    return {QLatin1String(name), qMetaTypeId<T>(), wordFromInteger<T>, integerFromWord<T>};
}

template <typename T>
WordType real(const char* name)
{
    return {QLatin1String(name), qMetaTypeId<T>(), wordFromReal<T>, realFromWord<T>};
}

template <typename T, bool (*mayBeDecoded)(const QByteArray&)>
WordType stream(const char* name)
{
    return {QLatin1String(name), qMetaTypeId<T>(), wordFromStreamed<T>, streamedFromWord<T, mayBeDecoded>};
}

const WordType* find(bool (*matches)(const WordType&, int, const QString&), int id, const QString& name)
{
    // clang-format off
    static const WordType types[] = {
        {QLatin1String("bool"), QMetaType::Bool, wordFromBool, boolFromWord},
        integer<int>("int"),
        integer<uint>("uint"),
        integer<qlonglong>("qlonglong"),
        integer<qulonglong>("qulonglong"),
        integer<long>("long"),
        integer<ulong>("ulong"),
        integer<short>("short"),
        integer<ushort>("ushort"),
        integer<char>("char"),
        integer<signed char>("schar"),
        integer<uchar>("uchar"),
        real<double>("double"),
        real<float>("float"),
        {QLatin1String("QByteArray"), QMetaType::QByteArray, wordFromByteArray, byteArrayFromWord},
        {QLatin1String("QColor"), QMetaType::QColor, wordFromColor, colorFromWord},
        stream<QChar, hasSize<2>>("QChar"),
        stream<QUuid, hasSize<16>>("QUuid"),
        stream<QUrl, always>("QUrl"),
        stream<QDate, hasSize<8>>("QDate"),
        stream<QTime, hasSize<4>>("QTime"),
        {QLatin1String("QDateTime"), QMetaType::QDateTime, wordFromDateTime, streamedFromWord<QDateTime, isDateTime>},
        stream<QLocale, always>("QLocale"),
        stream<QRegularExpression, always>("QRegularExpression"),
        stream<QBitArray, isBits>("QBitArray"),
        stream<QSize, hasSize<8>>("QSize"),
        stream<QSizeF, hasSize<16>>("QSizeF"),
        stream<QPoint, hasSize<8>>("QPoint"),
        stream<QPointF, hasSize<16>>("QPointF"),
        stream<QLine, hasSize<16>>("QLine"),
        stream<QLineF, hasSize<32>>("QLineF"),
        stream<QRect, hasSize<16>>("QRect"),
        stream<QRectF, hasSize<32>>("QRectF"),
        stream<QPolygon, isCounted<8>>("QPolygon"),
        stream<QPolygonF, isCounted<16>>("QPolygonF"),
        stream<QKeySequence, isKeySequence>("QKeySequence"),
        stream<QTransform, hasSize<72>>("QTransform"),
        stream<QMatrix4x4, hasSize<128>>("QMatrix4x4"),
        stream<QVector2D, hasSize<16>>("QVector2D"),
        stream<QVector3D, hasSize<24>>("QVector3D"),
        stream<QVector4D, hasSize<32>>("QVector4D"),
        stream<QQuaternion, hasSize<32>>("QQuaternion"),
    };
    // clang-format on
    for (const WordType& type : types) {
        if (matches(type, id, name))
            return &type;
    }
    return nullptr;
}

} // namespace

const WordType* withId(int id)
{
    return find([](const WordType& type, int wanted, const QString&) { return type.id == wanted; }, id, QString());
}

const WordType* withName(const QString& name)
{
    return find([](const WordType& type, int, const QString& wanted) { return type.name == wanted; }, 0, name);
}

QString wordFromFont(const QFont& font)
{
    return wordFromBytes(streamed(font));
}

bool fontFromWord(const QString& word, QFont* font)
{
    const std::optional<QByteArray> bytes = bytesFromWord(word);
    if (!bytes || !isFont(*bytes))
        return false;
    const std::optional<QFont> decoded = unstreamed<QFont>(*bytes);
    if (decoded)
        *font = *decoded;
    return decoded.has_value();
}

} // namespace wordtypes
