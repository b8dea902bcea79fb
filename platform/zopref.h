// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVariant>

#include "zoeffect_export.h"

/// A host's preference store: named values that outlive the process. The library keeps the user's custom
/// defaults in it, one entry per effect type: the key is the type's name, the value a
/// QMap<QString, QVariant>. The store must give back each value in the type in which it was saved
/// (int, double, bool, QString, QColor, QFont).
class ZOEFFECT_EXPORT ZoPref {
public:
    virtual ~ZoPref();

    /// Whether an entry exists under \a key, an entry that holds an invalid value included.
    virtual bool hasKey(const QString& key) const = 0;

    /// The value stored under \a key, or \a defaultValue when there is no entry.
    virtual QVariant value(const QString& key, const QVariant& defaultValue) const = 0;

    /// Stores \a value under \a key; an invalid value clears the entry. \a notify is the host's own: the
    /// library always passes false.
    virtual void setValue(const QString& key, const QVariant& value, bool notify) = 0;
};

/// What a host's application object also derives from when it brings a preference store of its own:
///
///     class Application : public QGuiApplication, public ZoPrefProvider { ... };
///
/// When the running application object is no provider, or gives no store, the library keeps the custom
/// defaults in a file of its own, "effectdefaults.json" under QStandardPaths::AppConfigLocation.
///
/// A host that cannot derive the application object, a plugin for one, sets its store by setStore().
class ZOEFFECT_EXPORT ZoPrefProvider {
public:
    virtual ~ZoPrefProvider();

    /// The store, or null to use the library's own. It stays the host's and is asked for at each operation.
    virtual ZoPref* preferences() = 0;

    /// From now on \a store is the one in use, whatever the application object gives, and without such an object,
    /// too; null goes back to the order above. It stays the host's, who lets it live until another or null is set.
    /// Custom defaults that are loaded already are not loaded anew: set it before anything asks for them. Since 1.1.
    static void setStore(ZoPref* store);
};
