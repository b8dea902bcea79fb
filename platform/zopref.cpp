// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zopref.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include "embeddedpref_p.h"
#include "preferencestore_p.h"

namespace {

ZoPref* storeOfTheHost = nullptr;

/// Empty, which keeps the store in memory, when the user has no folder for configuration files.
QString embeddedPrefPath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    return folder.isEmpty() ? QString() : QDir(folder).filePath(QStringLiteral("effectdefaults.json"));
}

} // namespace

ZoPref::~ZoPref() = default;

ZoPrefProvider::~ZoPrefProvider() = default;

void ZoPrefProvider::setStore(ZoPref* store)
{
    storeOfTheHost = store;
}

ZoPref& preferenceStore()
{
    if (storeOfTheHost)
        return *storeOfTheHost;
    if (auto* provider = dynamic_cast<ZoPrefProvider*>(QCoreApplication::instance())) {
        if (ZoPref* store = provider->preferences())
            return *store;
    }
    // Never deleted, so that it can be used until the very end of the process.
    static EmbeddedPref* embedded = nullptr;
    if (!embedded)
        new EmbeddedPref(embeddedPrefPath(), &embedded);
    return *embedded;
}
