// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "qtcompat_p.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>

#include <QByteArray>
#include <QDateTime>
#include <QPixmap>
#include <QStringList>

namespace {

bool isFloating(int type)
{
    return type == QMetaType::Double || type == QMetaType::Float;
}

bool isFloating(const QVariant& value)
{
    return isFloating(value.userType());
}

bool isNumber(int type)
{
    switch (type) {
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

bool sameNumber(double left, double right)
{
    return left == right || (std::isfinite(left) && std::isfinite(right) && qFuzzyCompare(left, right));
}

// What the processor's own conversion gives: the lowest integer for all that does not fit, NaN included.
qint64 wholePart(double value)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    return value >= -limit && value < limit ? static_cast<qint64>(value) : std::numeric_limits<qint64>::min();
}

// Deliberate: halves go up below zero too, and the sum wraps around, so that -1e30 and NaN are 0. A float is
// rounded in float, so that 8388609 becomes 8388610.
template <typename Real>
qint64 rounded(Real value)
{
    constexpr auto half = static_cast<Real>(0.5);
    if (value >= 0)
        return wholePart(value + half);
    const qint64 below = wholePart(value - 1);
    const qint64 rest = wholePart(value - static_cast<Real>(below) + half);
    return static_cast<qint64>(static_cast<quint64>(below) + static_cast<quint64>(rest));
}

qint64 roundedNumber(const QVariant& value)
{
    return value.userType() == QMetaType::Float ? rounded(value.value<float>()) : rounded(value.toDouble());
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

bool equalValues(const QVariant& left, const QVariant& right)
{
    return left == right;
}

int wholeNumber(const QVariant& value)
{
    return value.toInt();
}

double realNumber(const QVariant& value, bool* ok)
{
    return value.toDouble(ok);
}

QString textOf(const QVariant& value)
{
    return value.toString();
}

template <typename T>
T valueAs(const QVariant& value)
{
    return value.value<T>();
}

#else

// Qt 6 takes the exponent as soon as that is shorter: 1e+05, 1e-04.
QVariant numberToString(const QVariant& value)
{
    const QString text = QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    if (text.endsWith(QLatin1String("e+05")) || text.endsWith(QLatin1String("e-04")))
        return QString::number(value.toDouble(), 'f', QLocale::FloatingPointShortest);
    return text;
}

QVariant numberToBytes(const QVariant& value)
{
    return numberToString(value).toString().toLatin1();
}

// Fails where a float overflows or becomes 0.
QVariant textToFloat(const QVariant& value)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    const double size = std::abs(number);
    const bool overflows = size > double(std::numeric_limits<float>::max()) && !std::isinf(number);
    if (!ok || overflows || (size > 0.0 && static_cast<float>(size) == 0.0F))
        return QVariant();
    return static_cast<float>(number);
}

QVariant charToBytes(const QVariant& value)
{
    return QByteArray(1, static_cast<char>(value.toInt()));
}

// Ends at a null byte.
QVariant bytesToString(const QVariant& value)
{
    return QString::fromUtf8(value.toByteArray().constData());
}

// The invalid colour is no failure.
QVariant bytesToColor(const QVariant& value)
{
    return QColor(QLatin1String(value.toByteArray()));
}

// Ten fields, eleven with a style name; the weights of 100, 200 to 900 are 0, 12 to 87.
QVariant fontToString(const QVariant& value)
{
    static constexpr std::array<int, 10> weights{0, 0, 12, 25, 50, 57, 63, 75, 81, 87};
    constexpr int step = 100;
    const auto font = value.value<QFont>();
    const int hundreds = std::clamp(font.weight() / step, 0, int(weights.size()) - 1);
    QStringList fields{font.family(), QString::number(font.pointSizeF())};
    for (const int field : {font.pixelSize(), int(font.styleHint()), weights.at(std::size_t(hundreds)),
                            int(font.style()), int(font.underline()), int(font.strikeOut()), int(font.fixedPitch()), 0})
        fields << QString::number(field);
    if (!font.styleName().isEmpty())
        fields << font.styleName();
    return fields.join(QLatin1Char(','));
}

// Up to eleven fields, the nine of old without pixel size. What is not told comes from a plain font of 12 points,
// whatever the platform's font. Other texts give the default font.
QVariant stringToFont(const QVariant& value)
{
    constexpr int fieldsOfOld = 9;
    constexpr int mostFields = 11;
    QStringList fields = value.toString().split(QLatin1Char(','));
    if (fields.size() == fieldsOfOld)
        fields.insert(2, QStringLiteral("-1"));
    QFont font(fields.constFirst());
    return fields.size() <= mostFields && font.fromString(fields.join(QLatin1Char(','))) ? font : QFont();
}

// Whatever follows the seconds is ignored, but for a fraction; hours alone fail.
QVariant stringToTime(const QVariant& value)
{
    constexpr int withMinutes = 5; // "12:34"
    constexpr int withSeconds = 8; // "12:34:56"
    const QString text = value.toString();
    const QString rest = text.mid(withSeconds, 1);
    const bool fraction = rest == QLatin1String(".") || rest == QLatin1String(",");
    const QTime time =
        text.size() < withMinutes ? QTime() : QTime::fromString(fraction ? text : text.left(withSeconds), Qt::ISODate);
    return time.isValid() ? QVariant(time) : QVariant();
}

template <typename From, typename To>
QVariant ifValid(const QVariant& value)
{
    return value.value<From>().isValid() ? QVariant(value.value<To>()) : QVariant();
}

QVariant listToStrings(const QVariant& value)
{
    QStringList texts;
    for (const QVariant& entry : value.toList())
        texts << qtcompat::toText(entry);
    return texts;
}

// A conversion that Qt 5 does in another way than Qt 6; an invalid result is a failure. Without a function: a
// conversion that Qt 5 does not have.
struct Conversion {
    int from;
    int to;
    QVariant (*convert)(const QVariant& value);
};

// clang-format off
constexpr Conversion conversions[] = {
    {QMetaType::Double,       QMetaType::QString,      numberToString},
    {QMetaType::Double,       QMetaType::QByteArray,   numberToBytes},
    {QMetaType::Float,        QMetaType::QString,      numberToString},
    {QMetaType::Float,        QMetaType::QByteArray,   numberToBytes},
    {QMetaType::Float,        QMetaType::QChar,        nullptr},
    {QMetaType::Char,         QMetaType::QByteArray,   charToBytes},
    {QMetaType::SChar,        QMetaType::QByteArray,   charToBytes},
    {QMetaType::UChar,        QMetaType::QByteArray,   nullptr},
    {QMetaType::UChar,        QMetaType::QString,      nullptr},
    {QMetaType::UChar,        QMetaType::QChar,        nullptr},
    {QMetaType::Long,         QMetaType::QByteArray,   nullptr},
    {QMetaType::Long,         QMetaType::QString,      nullptr},
    {QMetaType::Long,         QMetaType::QChar,        nullptr},
    {QMetaType::ULong,        QMetaType::QByteArray,   nullptr},
    {QMetaType::ULong,        QMetaType::QString,      nullptr},
    {QMetaType::ULong,        QMetaType::QChar,        nullptr},
    {QMetaType::QString,      QMetaType::Float,        textToFloat},
    {QMetaType::QString,      QMetaType::QFont,        stringToFont},
    {QMetaType::QString,      QMetaType::QTime,        stringToTime},
    {QMetaType::QString,      QMetaType::QVariantList, nullptr},
    {QMetaType::QByteArray,   QMetaType::Float,        textToFloat},
    {QMetaType::QByteArray,   QMetaType::QString,      bytesToString},
    {QMetaType::QByteArray,   QMetaType::QColor,       bytesToColor},
    {QMetaType::QByteArray,   QMetaType::QVariantList, nullptr},
    {QMetaType::QFont,        QMetaType::QString,      fontToString},
    {QMetaType::QDate,        QMetaType::QDateTime,    ifValid<QDate, QDateTime>},
    {QMetaType::QDateTime,    QMetaType::QDate,        ifValid<QDateTime, QDate>},
    {QMetaType::QDateTime,    QMetaType::QTime,        ifValid<QDateTime, QTime>},
    {QMetaType::QVariantList, QMetaType::QStringList,  listToStrings},
};
// clang-format on

const Conversion* ownConversion(const QVariant& value, int to)
{
    const auto* found = std::find_if(std::begin(conversions), std::end(conversions), [&](const Conversion& candidate) {
        return candidate.from == value.userType() && candidate.to == to;
    });
    return found == std::end(conversions) ? nullptr : found;
}

bool canConvert(const QVariant& value, QMetaType type)
{
    const Conversion* own = ownConversion(value, type.id());
    return own ? own->convert != nullptr : value.canConvert(type);
}

// Qt 5 reads a whole number also between Unicode's white space and after the sign U+2212, and none before a null
// character.
QVariant withPlainNumber(const QVariant& value)
{
    if (value.userType() != QMetaType::QString)
        return value;
    constexpr QChar minusSign(0x2212);
    QString text = value.toString().trimmed();
    if (text.contains(QChar::Null))
        return QString();
    if (text.startsWith(minusSign))
        text[0] = QLatin1Char('-');
    return text;
}

// Invalid when that fails, as it does for a null value.
QVariant converted(const QVariant& value, QMetaType type)
{
    if (const Conversion* own = ownConversion(value, type.id()))
        return own->convert && !value.isNull() ? own->convert(value) : QVariant();
    const bool toWholeNumber = isNumber(type.id()) && type.id() != QMetaType::Bool;
    QVariant result = toWholeNumber ? withPlainNumber(value) : value;
    return result.convert(type) ? result : QVariant();
}

// A value that only shares its data with another equals it, whatever is in it.
bool equalLists(const QVariantList& left, const QVariantList& right)
{
    return left.isSharedWith(right)
           || std::equal(left.cbegin(), left.cend(), right.cbegin(), right.cend(), qtcompat::equal);
}

bool equalMaps(const QVariantMap& left, const QVariantMap& right)
{
    return left.isSharedWith(right) || (left.keys() == right.keys() && equalLists(left.values(), right.values()));
}

// Deliberate: equal in either order is enough here, unlike in lists and maps.
bool equalHashes(const QVariantHash& left, const QVariantHash& right) // NOLINT(misc-no-recursion): values nest
{
    if (left.isSharedWith(right) || left.size() != right.size())
        return left.size() == right.size();
    for (auto it = left.cbegin(); it != left.cend(); ++it) {
        const auto other = right.constFind(it.key());
        if (other == right.cend()
            || !(qtcompat::equal(it.value(), other.value()) || qtcompat::equal(other.value(), it.value())))
            return false;
    }
    return true;
}

// Qt 5 compares the bytes of a type that has no comparison of its own.
bool equalBytes(const QVariant& left, const QVariant& right)
{
    const QMetaType type = left.metaType();
    return type.isValid() && !type.isEqualityComparable()
           && std::memcmp(left.constData(), right.constData(), static_cast<std::size_t>(type.sizeOf())) == 0;
}

bool equalOfOneType(const QVariant& left, const QVariant& right) // NOLINT(misc-no-recursion): values nest
{
    switch (left.userType()) {
    case QMetaType::QVariantList:
        return equalLists(left.toList(), right.toList());
    case QMetaType::QVariantMap:
        return equalMaps(left.toMap(), right.toMap());
    case QMetaType::QVariantHash:
        return equalHashes(left.toHash(), right.toHash());
    case QMetaType::QPixmap:
    case QMetaType::QBitmap:
        return left.value<QPixmap>().cacheKey() == right.value<QPixmap>().cacheKey();
    default:
        return left == right || equalBytes(left, right);
    }
}

bool equalValues(const QVariant& left, const QVariant& right) // NOLINT(misc-no-recursion): values nest
{
    if (left.userType() == right.userType() || (isNumber(left.userType()) && isNumber(right.userType())))
        return equalOfOneType(left, right);
    const bool toLeft = canConvert(right, left.metaType());
    const QVariant& kept = toLeft ? left : right;
    const QVariant match = converted(toLeft ? right : left, kept.metaType());
    return match.isValid() && equalOfOneType(kept, match);
}

int wholeNumber(const QVariant& value)
{
    return withPlainNumber(value).toInt();
}

// Bytes of a number too large are infinite to Qt 5, as texts are to both; the conversion counts as failed.
double realNumber(const QVariant& value, bool* ok)
{
    bool converts = false;
    double number = value.toDouble(&converts);
    if (!converts && value.userType() == QMetaType::QByteArray)
        number = QString::fromLatin1(value.toByteArray()).toDouble();
    if (ok)
        *ok = converts;
    return number;
}

template <typename T>
T valueAs(const QVariant& value)
{
    const Conversion* own = ownConversion(value, QMetaType::fromType<T>().id());
    return qvariant_cast<T>(own && own->convert ? own->convert(value) : value);
}

QString textOf(const QVariant& value)
{
    return valueAs<QString>(value);
}

#endif

} // namespace

namespace qtcompat {

bool equal(const QVariant& left, const QVariant& right) // NOLINT(misc-no-recursion): values nest
{
    const int leftType = left.userType();
    const int rightType = right.userType();
    if (leftType == QMetaType::Int && rightType == QMetaType::Int)
        return *static_cast<const int*>(left.constData()) == *static_cast<const int*>(right.constData());
    if (leftType == QMetaType::UnknownType || rightType == QMetaType::UnknownType)
        return leftType == rightType;
    if ((isFloating(leftType) || isFloating(rightType)) && isNumber(leftType) && isNumber(rightType))
        return sameNumber(left.toDouble(), right.toDouble());
    return equalValues(left, right);
}

bool toBool(const QVariant& value)
{
    return isFloating(value) ? roundedNumber(value) != 0 : value.toBool();
}

int toInt(const QVariant& value)
{
    if (value.userType() == QMetaType::Int)
        return *static_cast<const int*>(value.constData());
    return isFloating(value) ? static_cast<int>(roundedNumber(value)) : wholeNumber(value);
}

double toDouble(const QVariant& value, bool* ok)
{
    return realNumber(value, ok);
}

QString toText(const QVariant& value)
{
    return textOf(value);
}

QFont fontFrom(const QVariant& value)
{
    return valueAs<QFont>(value);
}

QColor colorFrom(const QVariant& value)
{
    return valueAs<QColor>(value);
}

} // namespace qtcompat
