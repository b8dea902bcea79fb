// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "existing.h"

#include <algorithm>

#include <sys/stat.h>

#include <QFile>
#include <QFileInfo>

#include <zokit/message.h>

#include "console.h"
#include "outputs.h"

namespace zoconvert {

Existing existingOf(const Invocation& invocation)
{
    // Both may be output options, or the command's own.
    const QString word = outputValue(invocation, "existing").toString();
    if (outputValue(invocation, "overwrite").toBool() || word == QLatin1String("replace"))
        return Existing::Replace;
    return word == QLatin1String("skip") ? Existing::Skip : Existing::Refuse;
}

bool isThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

QString thereAlready(const QString& path)
{
    return zokit::Message(zokit::Message::Code::OutputExists, {path}).text();
}

std::optional<FileKey> keyOf(const QString& path)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(path).constData(), &found) != 0)
        return std::nullopt;
    return FileKey(found.st_dev, found.st_ino);
}

QString refusedAsSource(const QString& output, const QStringList& sources)
{
    const std::optional<FileKey> key = keyOf(output);
    const bool isSource =
        key && std::any_of(sources.cbegin(), sources.cend(), [&](const QString& one) { return keyOf(one) == key; });
    return isSource ? zokit::Message(zokit::Message::Code::OutputIsInput, {output}).text() : QString();
}

bool anyExists(const QStringList& files)
{
    bool any = false;
    for (const QString& file : files) {
        if (!isThere(file))
            continue;
        console::error(thereAlready(file));
        any = true;
    }
    return any;
}

} // namespace zoconvert
