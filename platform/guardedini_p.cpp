// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "guardedini_p.h"

#include <utility>

#include <QCryptographicHash>
#include <QStringView>

namespace guardedini {

namespace {

constexpr char firstLine[] = "; Custom defaults of effects. Kept by the program: the last line is a checksum.\n";
constexpr char checksumWord[] = "; sha1 ";
constexpr int checksumLineSize = 7 + 40 + 1; // The word, the digits, the line break.

QByteArray checksumLine(const QByteArray& body)
{
    const QByteArray digits = QCryptographicHash::hash(body, QCryptographicHash::Sha1).toHex();
    return checksumWord + digits + '\n';
}

bool appendProperty(QString& text, const QString& key, const QVariant& value)
{
    if (!valuetext::appendKey(text, key))
        return false;
    text += QLatin1Char('=');
    if (!valuetext::append(text, value))
        return false;
    text += QLatin1Char('\n');
    return true;
}

/// The lines of one entry; nothing when its value cannot be written.
std::optional<QByteArray> lines(const QString& key, const QVariant& value)
{
    QString text(QLatin1Char('['));
    if (!valuetext::appendKey(text, key))
        return std::nullopt;
    text += QLatin1String("]\n");

    if (value.userType() == QMetaType::QVariantMap) {
        const QVariantMap properties = value.toMap();
        for (auto it = properties.cbegin(); it != properties.cend(); ++it) {
            if (!appendProperty(text, it.key(), it.value()))
                return std::nullopt;
        }
    } else {
        text += QLatin1Char('=');
        if (!valuetext::append(text, value))
            return std::nullopt;
        text += QLatin1Char('\n');
    }
    return text.toUtf8();
}

std::optional<QVariant> takeLine(QStringView& rest)
{
    if (!valuetext::take(rest, QLatin1String("=")))
        return std::nullopt;
    std::optional<QVariant> value = valuetext::take(rest);
    return valuetext::take(rest, QLatin1String("\n")) ? value : std::nullopt;
}

std::optional<QVariantMap> takeProperties(QStringView& rest)
{
    QVariantMap properties;
    while (!rest.isEmpty() && !rest.startsWith(QLatin1Char('['))) {
        const std::optional<QString> key = valuetext::takeKey(rest);
        const std::optional<QVariant> value = key ? takeLine(rest) : std::nullopt;
        if (!value)
            return std::nullopt;
        properties.insert(*key, *value);
    }
    return properties;
}

bool takeEntry(QStringView& rest, Entries& entries)
{
    if (!valuetext::take(rest, QLatin1String("[")))
        return false;
    const std::optional<QString> key = valuetext::takeKey(rest);
    if (!key || !valuetext::take(rest, QLatin1String("]\n")))
        return false;

    std::optional<QVariant> value;
    if (rest.startsWith(QLatin1Char('=')))
        value = takeLine(rest);
    else
        value = takeProperties(rest);
    if (value)
        entries.insert(*key, *value);
    return value.has_value();
}

} // namespace

std::optional<Entries> parsed(const QByteArray& file)
{
    if (file.size() > maxFileSize || file.size() < checksumLineSize)
        return std::nullopt;
    const QByteArray body = file.left(file.size() - checksumLineSize);
    if (file.right(checksumLineSize) != checksumLine(body))
        return std::nullopt;

    const QString text = QString::fromUtf8(body);
    QStringView rest(text);
    if (!valuetext::take(rest, QLatin1String(firstLine)))
        return std::nullopt;
    Entries entries;
    while (!rest.isEmpty()) {
        if (!takeEntry(rest, entries))
            return std::nullopt;
    }
    return entries;
}

Merge merged(const Entries& present, const Entries& changes)
{
    Merge result;
    QMap<QString, QByteArray> blocks;
    qint64 room = maxFileSize - qint64(qstrlen(firstLine)) - checksumLineSize;
    const auto lay = [&](const Entries& entries) {
        for (auto it = entries.cbegin(); it != entries.cend(); ++it) {
            const std::optional<QByteArray> block = lines(it.key(), it.value());
            const qint64 replaced = blocks.value(it.key()).size();
            if (!block || block->size() > room + replaced) {
                result.leftOut.insert(it.key(), it.value());
                continue;
            }
            room += replaced - block->size();
            blocks.insert(it.key(), *block);
            result.entries.insert(it.key(), it.value());
        }
    };
    lay(present);
    lay(changes);

    result.file = firstLine;
    for (const QByteArray& block : std::as_const(blocks))
        result.file += block;
    result.file += checksumLine(result.file);
    return result;
}

} // namespace guardedini
