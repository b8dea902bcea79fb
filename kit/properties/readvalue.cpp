// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/properties.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include <QColor>
#include <QFont>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSize>

#include <zokit/probe.h>

namespace zokit {

namespace {

using Code = Message::Code;

ReadValue refused(Code code, const QStringList& words)
{
    return {QVariant(), Message(code, words)};
}

/// What a person gave, as words in a sentence.
QString shown(const QVariant& given)
{
    if (!given.isValid() || given.userType() == QMetaType::Nullptr)
        return QStringLiteral("null");
    if (given.userType() == QMetaType::QVariantList || given.userType() == QMetaType::QStringList)
        return given.toStringList().join(QLatin1Char(','));
    if (given.userType() == QMetaType::QVariantMap)
        return QString::fromUtf8(QJsonDocument::fromVariant(given).toJson(QJsonDocument::Compact));
    const QString text = given.toString();
    return text.isEmpty() && given.userType() != QMetaType::QString ? QString::fromLatin1(given.typeName()) : text;
}

bool isNumber(const QVariant& given)
{
    switch (given.userType()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

/// A number or the text of one; nothing else.
std::optional<double> numberFrom(const QVariant& given)
{
    bool ok = false;
    double number = 0;
    if (isNumber(given))
        number = given.toDouble(&ok);
    else if (given.userType() == QMetaType::QString || given.userType() == QMetaType::QByteArray)
        number = given.toString().trimmed().toDouble(&ok);
    return ok && std::isfinite(number) ? std::make_optional(number) : std::nullopt;
}

std::optional<bool> flagFrom(const QVariant& given)
{
    if (given.userType() == QMetaType::Bool)
        return given.toBool();
    const QString word = given.toString().trimmed().toLower();
    if (word == QLatin1String("true") || word == QLatin1String("1"))
        return true;
    if (word == QLatin1String("false") || word == QLatin1String("0"))
        return false;
    // A check state of the library.
    return given.userType() == QMetaType::Int && given.toInt() == Qt::Checked ? std::make_optional(true) : std::nullopt;
}

Message outOfBounds(const Property& property, double number, const QVariant& given, const QSize& frame,
                    const QString& where)
{
    const std::optional<double> lowest = boundIn(property.lowest, frame);
    const std::optional<double> highest = boundIn(property.highest, frame);
    if ((!lowest || number >= *lowest) && (!highest || number <= *highest))
        return Message();
    const std::optional<double> usual = numberFrom(property.defaultValue());
    if (usual && !(number < *usual) && !(number > *usual)) // In a small frame, too: it stands in what was saved.
        return Message();
    if (!highest)
        return Message(Code::BelowLowest, {where, shown(given), QString::number(*lowest)});
    const QString from = lowest ? QString::number(*lowest) : QString::number(std::numeric_limits<int>::min());
    return Message(Code::OutOfBounds, {where, shown(given), from, QString::number(*highest)});
}

ReadValue wholeNumber(const Property& property, const QVariant& given, const QSize& frame, const QString& where)
{
    const std::optional<double> number = numberFrom(given);
    if (!number || std::trunc(*number) != *number)
        return refused(Code::NotAWholeNumber, {where, shown(given)});
    Message error = outOfBounds(property, *number, given, frame, where);
    if (error.isEmpty() && std::abs(*number) > std::numeric_limits<int>::max())
        error = Message(Code::OutOfBounds, {where, shown(given), QString::number(std::numeric_limits<int>::min()),
                                            QString::number(std::numeric_limits<int>::max())});
    return error.isEmpty() ? ReadValue{static_cast<int>(*number), Message()} : ReadValue{QVariant(), error};
}

ReadValue number(const Property& property, const QVariant& given, const QSize& frame, const QString& where)
{
    const std::optional<double> number = numberFrom(given);
    if (!number)
        return refused(Code::NotANumber, {where, shown(given)});
    const Message error = outOfBounds(property, *number, given, frame, where);
    return error.isEmpty() ? ReadValue{*number, Message()} : ReadValue{QVariant(), error};
}

ReadValue colour(const QVariant& given, const QString& where)
{
    if (given.userType() == QMetaType::QColor && given.value<QColor>().isValid())
        return {given, Message()};
    // Of "#" forms only those that keep every digit; names as CSS has them.
    static const QRegularExpression digits(QStringLiteral("^#([0-9a-fA-F]{6}|[0-9a-fA-F]{8})$"));
    const QString text = given.userType() == QMetaType::QString ? given.toString().trimmed() : QString();
    const bool isName = !text.isEmpty() && !text.startsWith(QLatin1Char('#'));
    const QColor color = isName || digits.match(text).hasMatch() ? QColor(text) : QColor();
    return color.isValid() ? ReadValue{color, Message()} : refused(Code::NotAColor, {where, shown(given)});
}

ReadValue font(const QVariant& given, const QString& where)
{
    if (given.userType() == QMetaType::QFont)
        return {given, Message()};
    const QString family = given.userType() == QMetaType::QString ? given.toString().trimmed() : QString();
    return family.isEmpty() ? refused(Code::NotAFont, {where, shown(given)}) : ReadValue{QFont(family), Message()};
}

ReadValue list(const QVariant& given, const QString& where)
{
    QStringList words;
    if (given.userType() == QMetaType::QString)
        words = given.toString().split(QLatin1Char(','));
    else if (given.userType() == QMetaType::QStringList || given.userType() == QMetaType::QVariantList
             || isNumber(given))
        words = isNumber(given) ? QStringList{given.toString()} : given.toStringList();
    for (QString& word : words)
        word = word.trimmed();
    if (words.isEmpty() || words.contains(QString()))
        return refused(Code::NotAList, {where, shown(given)});
    return {words, Message()};
}

ReadValue size(const QVariant& given, const QString& where)
{
    static const QRegularExpression form(QStringLiteral("^([1-9][0-9]{0,4})x([1-9][0-9]{0,4})(,exact)?$"));
    const QString text = given.toString().trimmed().toLower();
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return refused(Code::NotASize, {where, shown(given)});
    // Without ",exact" it is a box, which never enlarges.
    if (!match.captured(3).isEmpty() && match.captured(1).toLongLong() * match.captured(2).toLongLong() > mostPixels)
        return refused(Code::SizeTooLarge, {where, shown(given), QString::number(mostPixels)});
    return {text, Message()};
}

ReadValue range(const QVariant& given, const QString& where)
{
    QVariantList parts = given.toList();
    if (given.userType() == QMetaType::QString) {
        parts.clear();
        for (const QString& part : given.toString().split(QLatin1Char(',')))
            parts.append(part);
    }
    const std::optional<double> from = numberFrom(parts.value(0));
    const std::optional<double> to = numberFrom(parts.value(1));
    if (parts.size() != 2 || !from || !to || *from < 0 || *to <= *from)
        return refused(Code::NotARange, {where, shown(given)});
    return {QVariantList{*from, *to}, Message()};
}

ReadValue choice(const Property& property, const ReadValue& read, const QString& where)
{
    QStringList names;
    for (const Choice& choice : property.choices) {
        if (choice.value == read.value)
            return {choice.value, Message()};
        names.append(choice.value.toString());
    }
    const QString word = read.value.toString();
    return refused(Code::NotAChoice, {where, word, names.join(QStringLiteral(", ")), nearest(word, names)});
}

ReadValue byKind(const Property& property, const QVariant& given, const QSize& frame, const QString& where)
{
    switch (property.kind) {
    case ValueKind::Bool: {
        const std::optional<bool> flag = flagFrom(given);
        return flag ? ReadValue{*flag, Message()} : refused(Code::NotTrueOrFalse, {where, shown(given)});
    }
    case ValueKind::Integer:
        return wholeNumber(property, given, frame, where);
    case ValueKind::Number:
        return number(property, given, frame, where);
    case ValueKind::Color:
        return colour(given, where);
    case ValueKind::Font:
        return font(given, where);
    case ValueKind::List:
        return list(given, where);
    case ValueKind::Size:
        return size(given, where);
    case ValueKind::Range:
        return range(given, where);
    case ValueKind::Text:
        break;
    }
    const bool isText = given.userType() == QMetaType::QString || isNumber(given);
    return isText ? ReadValue{given.toString(), Message()} : refused(Code::NotAText, {where});
}

} // namespace

std::optional<double> boundIn(const QVariant& bound, const QSize& frame)
{
    if (!bound.isValid())
        return std::nullopt;
    if (bound.userType() != QMetaType::QString)
        return bound.toDouble();
    const int side = bound.toString() == QLatin1String("frame width") ? frame.width() : frame.height();
    return side > 0 ? std::make_optional<double>(side) : std::nullopt;
}

ReadValue readValue(const Property& property, const QVariant& given, const QSize& frame, const QString& where)
{
    // The word of a default that stands for a number ("source_val") is taken as it is.
    const QVariant fallback = property.defaultValue();
    if (property.kind == ValueKind::Integer && fallback.userType() == QMetaType::QString
        && given.userType() == QMetaType::QString && given == fallback)
        return {fallback, Message()};
    const ReadValue read = byKind(property, given, frame, where);
    return read.error.isEmpty() && !property.choices.isEmpty() ? choice(property, read, where) : read;
}

} // namespace zokit
