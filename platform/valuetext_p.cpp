// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "valuetext_p.h"

#include <algorithm>

#include <QColor>
#include <QFont>
#include <QMap>
#include <QMetaType>
#include <QStringList>

#include "wordtypes_p.h"

namespace valuetext {

namespace {

constexpr char invalidWord[] = "invalid";
constexpr char weightWord[] = " weight ";
constexpr int base = 16; // Of escaped units.
constexpr int heaviestWeight = 1000;

bool isBare(QChar c)
{
    const ushort unit = c.unicode();
    return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') || (unit >= '0' && unit <= '9') || unit == '_';
}

QStringView takeWhile(QStringView& rest, bool (*accepted)(QChar))
{
    const QChar* const end = std::find_if_not(rest.begin(), rest.end(), accepted);
    const QStringView taken = rest.left(end - rest.begin());
    rest = rest.mid(taken.size());
    return taken;
}

bool endsWord(QChar c)
{
    return c <= QLatin1Char(' ') || c == QLatin1Char(',') || c == QLatin1Char(']') || c == QLatin1Char('}');
}

QString takeWord(QStringView& rest)
{
    return takeWhile(rest, [](QChar c) { return !endsWord(c); }).toString();
}

// --- Strings and keys

void appendEscaped(QString& text, QChar c)
{
    constexpr int digits = 4;
    text += QLatin1String("\\u") + QString::number(c.unicode(), base).rightJustified(digits, QLatin1Char('0'));
}

bool appendQuoted(QString& text, const QString& string)
{
    text += QLatin1Char('"');
    for (const QChar c : string) {
        if (text.size() > maxLength)
            return false;
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            text += QLatin1Char('\\');
        // Halves of surrogate pairs are not printable: escaped one by one, also a lone one comes back.
        if (c.isPrint())
            text += c;
        else
            appendEscaped(text, c);
    }
    text += QLatin1Char('"');
    return true;
}

std::optional<QChar> takeEscaped(QStringView& rest)
{
    if (take(rest, QLatin1String("\"")))
        return QLatin1Char('"');
    if (take(rest, QLatin1String("\\")))
        return QLatin1Char('\\');
    if (!take(rest, QLatin1String("u")) || rest.size() < 4)
        return std::nullopt;
    bool ok = false;
    const ushort unit = rest.left(4).toString().toUShort(&ok, base);
    rest = rest.mid(4);
    return ok ? std::make_optional(QChar(unit)) : std::nullopt;
}

std::optional<QString> takeQuoted(QStringView& rest)
{
    if (!take(rest, QLatin1String("\"")))
        return std::nullopt;
    QString string;
    for (;;) {
        string += takeWhile(rest, [](QChar c) {
                      return c != QLatin1Char('"') && c != QLatin1Char('\\') && c != QLatin1Char('\n');
                  }).toString();
        if (take(rest, QLatin1String("\"")))
            return string;
        if (!take(rest, QLatin1String("\\")))
            return std::nullopt;
        const std::optional<QChar> c = takeEscaped(rest);
        if (!c)
            return std::nullopt;
        string += *c;
    }
}

// --- Fonts: the family for human readers, then the stream

bool appendFont(QString& text, const QFont& font)
{
    if (!appendQuoted(text, font.family()))
        return false;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    // The stream knows the nine weights that Qt 5 has names for; others are told beside it.
    QFont streamed;
    if (wordtypes::fontFromWord(wordtypes::wordFromFont(font), &streamed) && streamed.weight() != font.weight())
        text += QLatin1String(weightWord) + QString::number(int(font.weight()));
#endif
    text += QLatin1Char(' ') + wordtypes::wordFromFont(font);
    return true;
}

std::optional<QVariant> takeFont(QStringView& rest)
{
    if (!takeQuoted(rest))
        return std::nullopt;
    int weight = 0;
    if (take(rest, QLatin1String(weightWord))) {
        bool ok = false;
        weight = takeWord(rest).toInt(&ok);
        if (!ok || weight < 1 || weight > heaviestWeight)
            return std::nullopt;
    }
    QFont font;
    if (!take(rest, QLatin1String(" ")) || !wordtypes::fontFromWord(takeWord(rest), &font))
        return std::nullopt;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (weight > 0)
        font.setWeight(QFont::Weight(weight));
#endif
    return font;
}

// --- Lists and maps

// NOLINTBEGIN(misc-no-recursion): no deeper than maxDepth

bool appendAt(QString& text, const QVariant& value, int depth);
std::optional<QVariant> takeAt(QStringView& rest, int depth);

bool appendList(QString& text, const QVariantList& list, int depth)
{
    text += QLatin1Char('[');
    for (auto it = list.cbegin(); it != list.cend(); ++it) {
        if (it != list.cbegin())
            text += QLatin1String(", ");
        if (!appendAt(text, *it, depth))
            return false;
    }
    text += QLatin1Char(']');
    return true;
}

bool appendStrings(QString& text, const QStringList& list)
{
    text += QLatin1Char('[');
    for (auto it = list.cbegin(); it != list.cend(); ++it) {
        if (it != list.cbegin())
            text += QLatin1String(", ");
        if (!appendQuoted(text, *it))
            return false;
    }
    text += QLatin1Char(']');
    return true;
}

bool appendMap(QString& text, const QVariantMap& map, int depth)
{
    text += QLatin1Char('{');
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        if (it != map.cbegin())
            text += QLatin1String(", ");
        if (!appendKey(text, it.key()))
            return false;
        text += QLatin1Char('=');
        if (!appendAt(text, it.value(), depth))
            return false;
    }
    text += QLatin1Char('}');
    return true;
}

QVariantMap sorted(const QVariantHash& hash)
{
    QVariantMap map;
    for (auto it = hash.cbegin(); it != hash.cend(); ++it)
        map.insert(it.key(), it.value());
    return map;
}

QVariantHash hashed(const QVariantMap& map)
{
    QVariantHash hash;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        hash.insert(it.key(), it.value());
    return hash;
}

/// Takes "[", elements that \a takeElement takes, with ", " between them, and "]"; for maps "{" and "}".
template <typename TakeElement>
bool takeEnclosed(QStringView& rest, QLatin1String open, QLatin1String close, TakeElement takeElement)
{
    if (!take(rest, open))
        return false;
    if (take(rest, close))
        return true;
    do {
        if (!takeElement())
            return false;
    } while (take(rest, QLatin1String(", ")));
    return take(rest, close);
}

std::optional<QVariantList> takeList(QStringView& rest, int depth)
{
    QVariantList list;
    const bool whole = takeEnclosed(rest, QLatin1String("["), QLatin1String("]"), [&] {
        const std::optional<QVariant> element = takeAt(rest, depth);
        if (element)
            list.append(*element);
        return element.has_value();
    });
    return whole ? std::make_optional(list) : std::nullopt;
}

std::optional<QStringList> takeStrings(QStringView& rest)
{
    QStringList list;
    const bool whole = takeEnclosed(rest, QLatin1String("["), QLatin1String("]"), [&] {
        const std::optional<QString> element = takeQuoted(rest);
        if (element)
            list.append(*element);
        return element.has_value();
    });
    return whole ? std::make_optional(list) : std::nullopt;
}

std::optional<QVariantMap> takeMap(QStringView& rest, int depth)
{
    QVariantMap map;
    const bool whole = takeEnclosed(rest, QLatin1String("{"), QLatin1String("}"), [&] {
        const std::optional<QString> key = takeKey(rest);
        if (!key || !take(rest, QLatin1String("=")))
            return false;
        const std::optional<QVariant> value = takeAt(rest, depth);
        if (value)
            map.insert(*key, *value);
        return value.has_value();
    });
    return whole ? std::make_optional(map) : std::nullopt;
}

// --- Values of any type; depth counts the maps and lists around the value

bool appendAt(QString& text, const QVariant& value, int depth)
{
    if (text.size() > maxLength)
        return false;
    if (!value.isValid()) {
        text += QLatin1String(invalidWord);
        return true;
    }

    const int type = value.userType();
    const bool isContainer =
        type == QMetaType::QVariantList || type == QMetaType::QVariantMap || type == QMetaType::QVariantHash;
    if (isContainer && depth >= maxDepth)
        return false;

    switch (type) {
    case QMetaType::QString:
        text += QLatin1String("QString ");
        return appendQuoted(text, value.toString());
    case QMetaType::QStringList:
        text += QLatin1String("QStringList ");
        return appendStrings(text, value.toStringList());
    case QMetaType::QVariantList:
        text += QLatin1String("QVariantList ");
        return appendList(text, value.toList(), depth + 1);
    case QMetaType::QVariantMap:
        text += QLatin1String("QVariantMap ");
        return appendMap(text, value.toMap(), depth + 1);
    case QMetaType::QVariantHash:
        text += QLatin1String("QVariantHash ");
        return appendMap(text, sorted(value.toHash()), depth + 1);
    case QMetaType::QFont:
        text += QLatin1String("QFont ");
        return appendFont(text, value.value<QFont>());
    default:
        break;
    }

    const wordtypes::WordType* wordType = wordtypes::withId(type);
    if (!wordType)
        return false;
    const QString word = wordType->wordFrom(value);
    text += wordType->name + QLatin1Char(' ') + word;
    return !word.isEmpty();
}

std::optional<QVariant> takeAt(QStringView& rest, int depth)
{
    const QString typeName = takeWhile(rest, isBare).toString();
    if (typeName == QLatin1String(invalidWord))
        return QVariant();
    if (!take(rest, QLatin1String(" ")))
        return std::nullopt;

    if (typeName == QLatin1String("QString"))
        return takeQuoted(rest);
    if (typeName == QLatin1String("QStringList"))
        return takeStrings(rest);
    if (typeName == QLatin1String("QFont"))
        return takeFont(rest);

    const wordtypes::WordType* wordType = wordtypes::withName(typeName);
    if (wordType) {
        const QVariant value = wordType->valueFrom(takeWord(rest));
        return value.isValid() ? std::make_optional(value) : std::nullopt;
    }

    if (depth >= maxDepth)
        return std::nullopt;
    if (typeName == QLatin1String("QVariantList"))
        return takeList(rest, depth + 1);
    if (typeName == QLatin1String("QVariantMap"))
        return takeMap(rest, depth + 1);
    if (typeName == QLatin1String("QVariantHash")) {
        const std::optional<QVariantMap> map = takeMap(rest, depth + 1);
        return map ? std::make_optional<QVariant>(hashed(*map)) : std::nullopt;
    }
    return std::nullopt;
}

// NOLINTEND(misc-no-recursion)

} // namespace

bool append(QString& text, const QVariant& value)
{
    return appendAt(text, value, 0);
}

std::optional<QVariant> take(QStringView& rest)
{
    return takeAt(rest, 0);
}

bool appendKey(QString& text, const QString& key)
{
    const bool bare = !key.isEmpty() && key.size() <= maxLength && std::all_of(key.begin(), key.end(), isBare);
    if (!bare)
        return appendQuoted(text, key);
    text += key;
    return text.size() <= maxLength;
}

std::optional<QString> takeKey(QStringView& rest)
{
    if (rest.startsWith(QLatin1Char('"')))
        return takeQuoted(rest);
    const QStringView word = takeWhile(rest, isBare);
    return word.isEmpty() ? std::nullopt : std::make_optional(word.toString());
}

bool take(QStringView& rest, QLatin1String expected)
{
    if (!rest.startsWith(expected))
        return false;
    rest = rest.mid(expected.size());
    return true;
}

} // namespace valuetext
