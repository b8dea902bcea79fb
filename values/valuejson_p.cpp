// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "valuejson_p.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include <QColor>
#include <QDataStream>
#include <QDateTime>
#include <QFont>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonObject>
#include <QMetaType>
#include <QtEndian>

namespace valuejson {

namespace {

/// The default of a key whose number depends on the video.
bool isSourceWord(const QVariant& value)
{
    return value.userType() == QMetaType::QString && value.toString() == QLatin1String("source_val");
}

// --- Streams

QByteArray streamed(const QVariant& value)
{
    QByteArray bytes;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (value.userType() == QMetaType::QFont && value.value<QFont>().families().isEmpty())
        return bytes; // Qt would stream the first of them without a look.
#endif
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << value;
    return bytes;
}

constexpr int headerSize = 5; // Number of the type, whether the value is null.

QByteArray payload(const QVariant& value)
{
    return streamed(value).mid(headerSize);
}

/// Types that hold no values of further types: none of their streams can exhaust the stack.
constexpr std::array flatTypes{
    QMetaType::QString,    QMetaType::Double,     QMetaType::QColor,    QMetaType::QFont,
    QMetaType::UInt,       QMetaType::LongLong,   QMetaType::ULongLong, QMetaType::Long,
    QMetaType::ULong,      QMetaType::Short,      QMetaType::UShort,    QMetaType::Char,
    QMetaType::SChar,      QMetaType::UChar,      QMetaType::Float,     QMetaType::QByteArray,
    QMetaType::QChar,      QMetaType::QUuid,      QMetaType::QUrl,      QMetaType::QDate,
    QMetaType::QTime,      QMetaType::QDateTime,  QMetaType::QLocale,   QMetaType::QRegularExpression,
    QMetaType::QBitArray,  QMetaType::QSize,      QMetaType::QSizeF,    QMetaType::QPoint,
    QMetaType::QPointF,    QMetaType::QLine,      QMetaType::QLineF,    QMetaType::QRect,
    QMetaType::QRectF,     QMetaType::QPolygon,   QMetaType::QPolygonF, QMetaType::QKeySequence,
    QMetaType::QTransform, QMetaType::QMatrix4x4, QMetaType::QVector2D, QMetaType::QVector3D,
    QMetaType::QVector4D,  QMetaType::QQuaternion};

/// Some value of a type.
QVariant anyOf(int type)
{
    if (type == QMetaType::QFont)
        return QFont(QStringLiteral("any"));
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QVariant(QMetaType(type));
#else
    return QVariant(type, nullptr);
#endif
}

/// Whether Qt can decode \a bytes: it reserves memory for as many elements as a stream claims to hold, takes any
/// number for a colour's model, and opens a file of the name of a time zone.
bool mayBeDecoded(int type, const QByteArray& bytes)
{
    const auto count = [&bytes](int offset) {
        return bytes.size() < offset + 4 ? -1 : qint64(qFromBigEndian<quint32>(bytes.constData() + offset));
    };
    const auto isIn = [&bytes](int offset, int least, int most) {
        return bytes.size() > offset && bytes.at(offset) >= least && bytes.at(offset) <= most;
    };
    if (type == QMetaType::QFont) {
        QDataStream stream(bytes);
        QString text;
        stream >> text >> text;
        const int families = int(stream.device()->pos()) + 31; // After numbers of fixed length.
        return families < bytes.size() && count(families) <= bytes.size() / 4;
    }
    constexpr int bitsOfByte = 8;
    constexpr int zone = 12; // Behind date and time.
    const bool isPolygon = type == QMetaType::QPolygon || type == QMetaType::QPolygonF;
    return (type != QMetaType::QBitArray || bytes.size() == 4 + (count(0) + bitsOfByte - 1) / bitsOfByte)
           && (!isPolygon || bytes.size() == 4 + count(0) * (type == QMetaType::QPolygon ? 8 : 16))
           && (type != QMetaType::QKeySequence
               || ((count(0) == 1 || count(0) == 4) && bytes.size() == 4 + count(0) * 4))
           && (type != QMetaType::QColor || isIn(0, QColor::Invalid, QColor::ExtendedRgb))
           && (type != QMetaType::QDateTime || isIn(zone, Qt::LocalTime, Qt::OffsetFromUTC));
}

std::optional<QVariant> fromPayload(int type, const QByteArray& bytes)
{
    if (!mayBeDecoded(type, bytes))
        return std::nullopt;
    QByteArray whole = streamed(anyOf(type)).left(headerSize) + bytes;
    whole[headerSize - 1] = 0;
    QDataStream stream(whole);
    stream.setVersion(QDataStream::Qt_5_15);
    QVariant value;
    stream >> value;
    const bool isThis = stream.status() == QDataStream::Ok && value.userType() == type && payload(value) == bytes;
    return isThis ? std::make_optional(value) : std::nullopt;
}

// --- Fonts

/// Qt 5's numbers of the weights that Qt 6 calls 100, 200 to 900.
constexpr std::array namedWeights{0, 12, 25, 50, 57, 63, 75, 81, 87};
constexpr bool isQt6 = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);

/// Qt 5's number of a weight.
int numberOf(int weight)
{
    if constexpr (isQt6)
        return namedWeights.at(std::size_t(qBound(1, weight / 100, int(namedWeights.size()))) - 1);
    return weight;
}

QFont::Weight weightOf(int number)
{
    if constexpr (isQt6) {
        const auto named = std::lower_bound(namedWeights.begin(), namedWeights.end() - 1, number);
        return QFont::Weight(100 * int(named - namedWeights.begin() + 1));
    }
    return QFont::Weight(number);
}

QJsonObject described(const QFont& font)
{
    const bool inPixels = font.pixelSize() >= 0;
    return {{QStringLiteral("family"), font.family()},
            {inPixels ? QStringLiteral("pixels") : QStringLiteral("points"),
             inPixels ? font.pixelSize() : font.pointSizeF()},
            {QStringLiteral("weight"), numberOf(font.weight())},
            {QStringLiteral("italic"), font.italic()},
            {QStringLiteral("underline"), font.underline()},
            {QStringLiteral("strikeout"), font.strikeOut()}};
}

QFont fontOf(const QJsonObject& members)
{
    QFont font(members.value(QLatin1String("family")).toString());
    const double points = members.value(QLatin1String("points")).toDouble();
    const int pixels = members.value(QLatin1String("pixels")).toInt();
    const int weight = qBound(0, members.value(QLatin1String("weight")).toInt(50), 99);
    font.setPointSizeF(points > 0 ? points : font.pointSizeF());
    if (pixels > 0)
        font.setPixelSize(pixels);
    font.setWeight(weightOf(weight));
    font.setItalic(members.value(QLatin1String("italic")).toBool());
    font.setUnderline(members.value(QLatin1String("underline")).toBool());
    font.setStrikeOut(members.value(QLatin1String("strikeout")).toBool());
    return font;
}

/// Qt takes a font without a style's name for equal to one with it.
bool isSame(const QFont& a, const QFont& b)
{
    return a == b && a.styleName() == b.styleName();
}

/// Nothing when a member is none of a font's, or out of bounds.
std::optional<QVariant> fontFrom(const QJsonValue& json)
{
    const QJsonObject members = json.isString() ? QJsonObject{{QStringLiteral("family"), json}} : json.toObject();
    const QFont font = fontOf(members);
    const QJsonObject all = described(font);
    for (auto it = members.begin(); it != members.end(); ++it) {
        if (all.value(it.key()) != it.value())
            return std::nullopt;
    }
    return members.contains(QLatin1String("family")) ? std::make_optional<QVariant>(font) : std::nullopt;
}

std::optional<QJsonValue> plainFont(const QFont& font)
{
    QJsonObject members = described(font);
    const QJsonObject usual = described(fontOf({{QStringLiteral("family"), font.family()}}));
    for (auto it = usual.begin(); it != usual.end(); ++it) {
        if (it.key() != QLatin1String("family") && members.value(it.key()) == it.value())
            members.remove(it.key());
    }
    if (!font.family().isValidUtf16() || !std::isfinite(font.pointSizeF()) || !isSame(fontOf(members), font))
        return std::nullopt;
    return members.size() == 1 ? QJsonValue(font.family()) : QJsonValue(members);
}

// --- Plain values

struct Word {
    const char* word;
    int type;
};

constexpr std::array words{Word{"bool", QMetaType::Bool},     Word{"int", QMetaType::Int},
                           Word{"double", QMetaType::Double}, Word{"string", QMetaType::QString},
                           Word{"color", QMetaType::QColor},  Word{"font", QMetaType::QFont}};

/// Nothing when the value has no plain form that holds it exactly.
std::optional<QJsonValue> plain(const QVariant& value)
{
    const int type = value.userType();
    const double number = type == QMetaType::Double ? value.toDouble() : 0;
    const QString text = type == QMetaType::QString ? value.toString() : QString(QLatin1String(""));
    const QColor color = type == QMetaType::QColor ? value.value<QColor>() : QColor(Qt::black);
    const bool isNegativeZero = number == 0 && std::signbit(number);
    constexpr int opaque = 255;
    const bool isExact = std::isfinite(number) && !isNegativeZero && !text.isNull() && text.isValidUtf16()
                         && color == QColor::fromRgba(color.rgba());
    if (!isExact)
        return std::nullopt;
    switch (type) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::Double:
        return number;
    case QMetaType::QString:
        return text;
    case QMetaType::QColor:
        return color.name(color.alpha() == opaque ? QColor::HexRgb : QColor::HexArgb);
    case QMetaType::QFont:
        return plainFont(value.value<QFont>());
    default:
        return std::nullopt;
    }
}

std::optional<QVariant> fromPlain(int type, const QJsonValue& json)
{
    constexpr double behindInt = 2147483648.0;
    const double number = json.toDouble(0.5); // Which is no whole number.
    const QString text = json.toString();
    const bool isHex = text.startsWith(QLatin1Char('#')) && (text.size() == 7 || text.size() == 9);
    if (type == QMetaType::Bool && json.isBool())
        return json.toBool();
    if (type == QMetaType::Int && std::fabs(number) <= behindInt && number == double(qint64(number)))
        return number == behindInt ? std::nullopt : std::make_optional<QVariant>(int(number));
    if (type == QMetaType::Double && json.isDouble())
        return number;
    if (type == QMetaType::QString && json.isString())
        return text;
    if (type == QMetaType::QColor && isHex && QColor(text).isValid())
        return QColor(text);
    return type == QMetaType::QFont ? fontFrom(json) : std::nullopt;
}

bool isPlain(const QVariant& value, const QVariant& defaultValue)
{
    if (isSourceWord(defaultValue))
        return value.userType() == QMetaType::Int || isSourceWord(value);
    return value.userType() == defaultValue.userType();
}

// --- Values of any type; depth counts the maps and lists around the value

// NOLINTBEGIN(misc-no-recursion): no deeper than maxDepth

std::optional<QJsonValue> write(const QVariant& value, const QVariant& defaultValue, int depth, qint64& room);

std::optional<QJsonValue> writeMap(const QVariantMap& map, int depth, qint64& room)
{
    QJsonObject members;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        room -= it.key().size();
        const std::optional<QJsonValue> member = write(it.value(), QVariant(), depth + 1, room);
        if (!member || !it.key().isValidUtf16())
            return std::nullopt;
        members.insert(it.key(), *member);
    }
    if (members.size() != map.size()) // With Qt 5 a key may stand twice.
        return std::nullopt;
    return QJsonObject{{QStringLiteral("map"), members}};
}

std::optional<QJsonValue> writeList(const QVariantList& list, bool areStrings, int depth, qint64& room)
{
    QJsonArray elements;
    for (const QVariant& each : list) {
        const auto element = write(each, areStrings ? QVariant(QString()) : QVariant(), depth + 1, room);
        if (!element)
            return std::nullopt;
        elements.append(*element);
    }
    return QJsonObject{{areStrings ? QStringLiteral("strings") : QStringLiteral("list"), elements}};
}

std::optional<QJsonValue> writeStream(const QVariant& value, qint64& room)
{
    const int type = value.userType();
    if (std::find(flatTypes.begin(), flatTypes.end(), type) == flatTypes.end())
        return std::nullopt;
    const QByteArray bytes = payload(value);
    room -= bytes.size();
    const std::optional<QVariant> back = room >= 0 ? fromPayload(type, bytes) : std::nullopt;
    if (!back || (type == QMetaType::QFont && !isSame(back->value<QFont>(), value.value<QFont>())))
        return std::nullopt;
    return QJsonObject{{QLatin1String(value.typeName()), QString::fromLatin1(bytes.toBase64())}};
}

/// Takes what it writes off \a room.
std::optional<QJsonValue> write(const QVariant& value, const QVariant& defaultValue, int depth, qint64& room)
{
    const int type = value.userType();
    const bool isMap = type == QMetaType::QVariantMap;
    const bool isList = type == QMetaType::QVariantList || type == QMetaType::QStringList;
    room -= 1 + (type == QMetaType::QString ? value.toString().size() : 0);
    if (room < 0 || (depth == maxDepth && (isMap || isList)))
        return std::nullopt;
    if (!value.isValid())
        return QJsonValue();

    for (const Word& word : words) {
        const std::optional<QJsonValue> json = word.type == type ? plain(value) : std::nullopt;
        if (json)
            return isPlain(value, defaultValue) ? *json : QJsonObject{{QLatin1String(word.word), *json}};
    }
    if (isMap)
        return writeMap(value.toMap(), depth, room);
    if (isList)
        return writeList(value.toList(), type == QMetaType::QStringList, depth, room);
    return writeStream(value, room);
}

std::optional<QVariant> read(const QJsonValue& json, const QVariant& defaultValue, int depth);

std::optional<QVariant> readMap(const QJsonObject& members, int depth)
{
    QVariantMap map;
    for (auto it = members.begin(); it != members.end(); ++it) {
        const std::optional<QVariant> member = read(it.value(), QVariant(), depth + 1);
        if (!member)
            return std::nullopt;
        map.insert(it.key(), *member);
    }
    return map;
}

std::optional<QVariant> readList(const QJsonArray& elements, bool areStrings, int depth)
{
    QVariantList list;
    for (const QJsonValue& each : elements) {
        const auto element = read(each, areStrings ? QVariant(QString()) : QVariant(), depth + 1);
        if (!element || (areStrings && element->userType() != QMetaType::QString))
            return std::nullopt;
        list.append(*element);
    }
    return areStrings ? QVariant(QVariant(list).toStringList()) : QVariant(list);
}

/// Of the type \a name, in Base64.
std::optional<QVariant> readStream(const QString& name, const QString& text)
{
    const auto bytes = QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    for (const int type : flatTypes) {
        if (bytes && name == QLatin1String(anyOf(type).typeName()))
            return fromPayload(type, *bytes);
    }
    return std::nullopt;
}

std::optional<QVariant> read(const QJsonValue& json, const QVariant& defaultValue, int depth)
{
    if (json.isNull())
        return QVariant();
    const bool isNumber = isSourceWord(defaultValue) && json.isDouble();
    std::optional<QVariant> value = fromPlain(isNumber ? int(QMetaType::Int) : defaultValue.userType(), json);
    if (value && isPlain(*value, defaultValue))
        return value;

    const QJsonObject object = json.toObject();
    if (object.size() != 1)
        return std::nullopt;
    const QString name = object.begin().key();
    const QJsonValue content = object.begin().value();
    for (const Word& word : words) {
        value = name == QLatin1String(word.word) ? fromPlain(word.type, content) : std::nullopt;
        if (value)
            return value;
    }
    if (name == QLatin1String("map") && content.isObject() && depth < maxDepth)
        return readMap(content.toObject(), depth);
    const bool areStrings = name == QLatin1String("strings");
    if ((areStrings || name == QLatin1String("list")) && content.isArray() && depth < maxDepth)
        return readList(content.toArray(), areStrings, depth);
    return content.isString() ? readStream(name, content.toString()) : std::nullopt;
}

// NOLINTEND(misc-no-recursion)

} // namespace

std::optional<QJsonValue> toJson(const QVariant& value, const QVariant& defaultValue)
{
    qint64 room = maxSize;
    return write(value, defaultValue, 0, room);
}

std::optional<QVariant> fromJson(const QJsonValue& json, const QVariant& defaultValue)
{
    return read(json, defaultValue, 0);
}

} // namespace valuejson
