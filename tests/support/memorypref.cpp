// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "memorypref.h"

#include "signalrecorder.h"

bool MemoryPref::hasKey(const QString& key) const
{
    if (onHasKey)
        onHasKey();
    return entries.contains(key);
}

QVariant MemoryPref::value(const QString& key, const QVariant& defaultValue) const
{
    return entries.value(key, defaultValue);
}

void MemoryPref::setValue(const QString& key, const QVariant& value, bool notify)
{
    entries.insert(key, value);
    m_writes << QStringLiteral("%1 = %2, notify %3")
                    .arg(key, described(value), notify ? QStringLiteral("true") : QStringLiteral("false"));
}

QStringList MemoryPref::takeWrites()
{
    QStringList taken;
    taken.swap(m_writes);
    return taken;
}
