// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QMap>
#include <QStringList>

#include <zopref.h>

/// A preference store in memory. Keeps a text for each write, "<key> = <described value>, notify <bool>".
class MemoryPref : public ZoPref {
public:
    bool hasKey(const QString& key) const override;
    QVariant value(const QString& key, const QVariant& defaultValue) const override;
    void setValue(const QString& key, const QVariant& value, bool notify) override;

    /// The writes since the last call.
    QStringList takeWrites();

    QMap<QString, QVariant> entries;
    std::function<void()> onHasKey; ///< Called by hasKey(), for hosts that call back.

private:
    QStringList m_writes;
};
