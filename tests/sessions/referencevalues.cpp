// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// How values convert and compare, and how large pictures and texts are.

#include "referencemodel.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QLocale>
#include <QPainter>
#include <QPixmap>

namespace reference {

namespace {

bool isNumeric(const QVariant& value)
{
    const int type = value.userType();
    return type == QMetaType::Int || type == QMetaType::Bool || type == QMetaType::Double;
}

/// Doubles count as equal when they differ by less than a relative 1e-12; 0 equals only 0.
bool closeEnough(double one, double other)
{
    return std::fabs(one - other) * 1e12 <= std::fmin(std::fabs(one), std::fabs(other));
}

std::optional<int> wholeNumber(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    char* end = nullptr;
    const long number = std::strtol(bytes.constData(), &end, 10);
    return bytes.isEmpty() || *end != '\0' ? std::nullopt : std::optional<int>(static_cast<int>(number));
}

std::optional<double> number(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    char* end = nullptr;
    const double parsed = std::strtod(bytes.constData(), &end);
    return bytes.isEmpty() || *end != '\0' ? std::nullopt : std::optional<double>(parsed);
}

/// The same keys, and values that agree.
template <typename Agree>
bool mapsAgree(const QVariant& one, const QVariant& other, Agree agree)
{
    const Properties left = one.toMap();
    const Properties right = other.toMap();
    return std::equal(left.keyBegin(), left.keyEnd(), right.keyBegin(), right.keyEnd())
           && std::equal(left.cbegin(), left.cend(), right.cbegin(), agree);
}

template <typename Type>
bool same(const QVariant& one, const QVariant& other)
{
    return one.value<Type>() == other.value<Type>();
}

/// A text is brought to the type of the present value.
bool equalText(const QVariant& present, const QString& text)
{
    switch (present.userType()) {
    case QMetaType::QString:
        return present.toString() == text;
    case QMetaType::Int:
        return wholeNumber(text) == toInt(present);
    case QMetaType::Bool:
        return toBool(text) == present.toBool();
    case QMetaType::Double: // No tolerance for a text.
        return number(text) && sameNumber(present.toDouble(), *number(text));
    case QMetaType::QColor:
        return QColor(text).isValid() && QColor(text) == present.value<QColor>();
    case QMetaType::QFont: // A text is taken for a family.
        return !text.isEmpty() && present.value<QFont>() == QFont(text);
    default:
        return false;
    }
}

} // namespace

bool toBool(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
        return value.toInt() != 0;
    case QMetaType::Double: // Rounded first: 0.3 is false. No number is false, too.
        return !std::isnan(value.toDouble()) && std::floor(value.toDouble() + 0.5) != 0.0;
    case QMetaType::QString: {
        const QString text = value.toString().toLower();
        return !text.isEmpty() && text != "0" && text != "false";
    }
    default:
        return false;
    }
}

int toInt(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool() ? 1 : 0;
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::Double: // Rounds, halves upward.
        return truncated(std::floor(value.toDouble() + 0.5));
    case QMetaType::QString:
        return wholeNumber(value.toString()).value_or(0);
    default:
        return 0;
    }
}

double toDouble(const QVariant& value)
{
    if (value.userType() == QMetaType::Double)
        return value.toDouble();
    if (value.userType() == QMetaType::QString)
        return number(value.toString()).value_or(0.0);
    return toInt(value);
}

namespace {

/// As Qt 5 writes it.
QString fontText(const QFont& font)
{
#if QT_VERSION_MAJOR >= 6
    const int weight = font.weight() == QFont::Bold ? 75 : 50; // No session makes another one.
#else
    const int weight = font.weight();
#endif
    QStringList parts{font.family(), QString::number(font.pointSizeF())};
    for (const int number : {font.pixelSize(), int(font.styleHint()), weight, int(font.style()), int(font.underline()),
                             int(font.strikeOut()), int(font.fixedPitch()), 0})
        parts.append(QString::number(number));
    return parts.join(',');
}

} // namespace

QString toText(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool() ? "true" : "false";
    case QMetaType::Int:
        return QString::number(value.toInt());
    case QMetaType::Double:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QColor: {
        const QColor color = value.value<QColor>();
        return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
    }
    case QMetaType::QFont:
        return fontText(value.value<QFont>());
    default:
        return QString();
    }
}

bool equal(const QVariant& present, const QVariant& given)
{
    if (isNumeric(present) && isNumeric(given)) {
        if (present.userType() != QMetaType::Double && given.userType() != QMetaType::Double)
            return toInt(present) == toInt(given);
        return closeEnough(toDouble(present), toDouble(given));
    }
    if (given.userType() == QMetaType::QString)
        return equalText(present, given.toString());
    if (present.userType() == QMetaType::QString)
        return (isNumeric(given) || given.userType() == QMetaType::QColor) && present.toString() == toText(given);
    if (present.userType() == QMetaType::QVariantMap && given.userType() == QMetaType::QVariantMap)
        return mapsAgree(present, given, equal);
    return identical(present, given);
}

bool identical(const QVariant& one, const QVariant& other)
{
    if (one.userType() != other.userType())
        return false;
    switch (one.userType()) {
    case QMetaType::UnknownType:
        return true;
    case QMetaType::Bool:
        return same<bool>(one, other);
    case QMetaType::Int:
        return same<int>(one, other);
    case QMetaType::Double:
        return sameNumber(one.toDouble(), other.toDouble())
               || (std::isnan(one.toDouble()) && std::isnan(other.toDouble()));
    case QMetaType::QString:
        return same<QString>(one, other);
    case QMetaType::QColor:
        return same<QColor>(one, other);
    case QMetaType::QFont:
        return same<QFont>(one, other);
    case QMetaType::QVariantMap:
        return mapsAgree(one, other, identical);
    default:
        return false;
    }
}

bool sameNumber(double one, double other)
{
    return one <= other && one >= other;
}

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

QSize pictureSize(const QString& path, const QString& format)
{
    static QHash<QString, QSize> known;
    const QString question = path + "|" + format;
    if (!known.contains(question)) {
        QPixmap picture;
        const QByteArray formatName = format.toLatin1();
        picture.load(path, formatName.isEmpty() ? nullptr : formatName.constData());
        known.insert(question, picture.isNull() ? QSize() : picture.size());
    }
    return known.value(question);
}

QSize measuredText(const Node& watermark)
{
    const QVariant fontValue = watermark.data("wm_fontname");
    QFont font;
    if (fontValue.userType() == QMetaType::QFont)
        font = fontValue.value<QFont>();
    else if (fontValue.userType() == QMetaType::QString && !fontValue.toString().isEmpty())
        font = QFont(fontValue.toString());
    const int points = watermark.number("wm_fontsize");
    if (points > 0)
        font.setPointSize(points);
    const QString style = watermark.text("wm_fontstyle");
    if (style == "Regular" || style == "Bold" || style == "Italic" || style == "Bold Italic") {
        font.setStyle(style.endsWith("Italic") ? QFont::StyleItalic : QFont::StyleNormal);
        font.setWeight(style.startsWith("Bold") ? QFont::Bold : QFont::Normal);
    }

    const QString text = watermark.text("wm_textcontent");
    static QHash<QString, QSize> known;
    // A font tells the same size whether that was set or is only the one to fall back on: the set one counts, too.
    const QString question = QString("%1|%2|%3|%4").arg(font.toString(), style, text).arg(points);
    if (!known.contains(question)) {
        constexpr int leftAndTop = Qt::AlignLeft | Qt::AlignTop;
        const QFontMetrics metrics(font);
        const QRect room(QPoint(0, 0), metrics.size(leftAndTop, text));
        QPixmap paper(1, 1); // On Qt 6 a picture has dots of its own size.
        QPainter painter(&paper);
        painter.setFont(font);
        known.insert(question, painter.boundingRect(room, leftAndTop, text).size());
    }
    return known.value(question);
}

} // namespace reference
