// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "missingfiles_p.h"

#include <QFileInfo>

#include <zokit/address.h>
#include <zokit/properties.h>
#include <zokit/settingsfile.h>

#include "names_p.h"
#include "newitem_p.h"

namespace zokit {

namespace {

Message missingAt(const QString& where, const QString& path)
{
    const bool there = path.isEmpty() || QFileInfo(path).isFile();
    return there ? Message() : Message(Message::Code::MissingAt, {where, path});
}

} // namespace

QString fileKey(const TypeSettings& type, int pos)
{
    const Suit suit = suitOf(type.type, true, type.items.at(pos).values);
    if (suit == Suit::ImageWatermark)
        return keys::imageUrl;
    return suit == Suit::FileTrack ? keys::trackFile : QString();
}

Message missingFile(const TypeSettings& type, int pos)
{
    const QString key = fileKey(type, pos);
    return key.isEmpty()
               ? Message()
               : missingAt(Address{type.type, pos, key}.toString(), type.items.at(pos).values.value(key).toString());
}

Messages missingFiles(const Settings& settings)
{
    Messages missing;
    const auto note = [&missing](const Message& message) {
        if (!message.isEmpty())
            missing.append(message);
    };
    note(missingAt(QStringLiteral("media"), settings.media.file));
    for (const TypeSettings& type : settings.effects) {
        for (int pos = 0; pos < type.items.size(); ++pos)
            note(missingFile(type, pos));
    }
    return missing;
}

QStringList namedFiles(const Settings& settings)
{
    QStringList files{settings.media.file};
    for (const TypeSettings& type : settings.effects) {
        for (int pos = 0; pos < type.items.size(); ++pos) {
            const QString key = fileKey(type, pos);
            if (!key.isEmpty())
                files.append(type.items.at(pos).values.value(key).toString());
        }
    }
    files.removeAll(QString());
    return files;
}

} // namespace zokit
