// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "existing.h"

#include <QFileInfo>

#include <zokit/message.h>

#include "console.h"

namespace zoconvert {

Existing existingOf(const Invocation& invocation)
{
    const QString word = invocation.value("existing");
    if (invocation.has("overwrite") || word == QLatin1String("replace"))
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
