// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "zoeffect_export.h"

/// The user's custom defaults: one property map per effect type, for the whole process.
///
/// The maps are read from the preference store (see ZoPref) once, when the instance is created, for the
/// types known then; every change is written back at once. A host therefore registers its catalogue before
/// anything asks for the instance. Type names and keys are matched exactly.
///
/// To be used from one thread. Nothing is logged or reported.
class ZOEFFECT_EXPORT ZoEffectItemDefaultValMgr {
public:
    /// The one instance, created and loaded by the first call; never deleted.
    static ZoEffectItemDefaultValMgr* getInstance();

    /// Replaces the list of effect types whose custom defaults are loaded when the instance is created.
    static void setSupportTypes(const QStringList& types);

    /// The effect types that are known. A type stands in the list once more after each save that found no
    /// custom default for it.
    static QStringList supportTypes();

    ~ZoEffectItemDefaultValMgr();
    ZoEffectItemDefaultValMgr(const ZoEffectItemDefaultValMgr&) = delete;
    ZoEffectItemDefaultValMgr& operator=(const ZoEffectItemDefaultValMgr&) = delete;

    /// Loads the custom defaults of supportTypes() from the preference store; entries that are missing,
    /// invalid, empty or no map are passed over. The constructor calls it.
    void Init();

    /// Whether a custom default (an empty one included) is held for \a type.
    bool hasCustomDefaultVal(const QString& type) const;

    /// The saved value of \a key for \a type, in the type in which it was saved; invalid when there is none.
    QVariant getCustomDefaultVal(const QString& type, const QString& key) const;

    /// The whole saved map of \a type; empty when there is none.
    QMap<QString, QVariant> getCustomDefaultVal(const QString& type) const;

    /// Makes \a values the custom default of \a type, in place of any earlier map, and writes it to the
    /// preference store. An empty map counts until the process ends and is not loaded at the next start.
    void saveAsCustomDefaultVal(const QString& type, const QMap<QString, QVariant>& values);

    /// Forgets the custom default of \a type and clears its entry in the preference store. Does nothing,
    /// and leaves the store alone, when there is none.
    void removeCustomDefaultVal(const QString& type);

    static ZoEffectItemDefaultValMgr* s_Instance; ///< Null until getInstance() is first called.
    static QStringList s_supportTypes;            ///< See supportTypes().

private:
    Q_DECL_HIDDEN ZoEffectItemDefaultValMgr();

    QMap<QString, QMap<QString, QVariant>> m_customDefaults;
};
