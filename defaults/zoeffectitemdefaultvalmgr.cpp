// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectitemdefaultvalmgr.h"

#include "preferencestore_p.h"
#include "zopref.h"

ZoEffectItemDefaultValMgr* ZoEffectItemDefaultValMgr::s_Instance = nullptr;
QStringList ZoEffectItemDefaultValMgr::s_supportTypes;

ZoEffectItemDefaultValMgr* ZoEffectItemDefaultValMgr::getInstance()
{
    if (!s_Instance)
        new ZoEffectItemDefaultValMgr;
    return s_Instance;
}

void ZoEffectItemDefaultValMgr::setSupportTypes(const QStringList& types)
{
    s_supportTypes = types;
}

QStringList ZoEffectItemDefaultValMgr::supportTypes()
{
    return s_supportTypes;
}

ZoEffectItemDefaultValMgr::ZoEffectItemDefaultValMgr()
{
    s_Instance = this; // Before Init(): the host's store may ask for the instance while it is read.
    Init();
}

ZoEffectItemDefaultValMgr::~ZoEffectItemDefaultValMgr() = default;

void ZoEffectItemDefaultValMgr::Init()
{
    const QStringList types = s_supportTypes;
    for (const QString& type : types) {
        const ZoPref& store = preferenceStore();
        if (!store.hasKey(type))
            continue;
        const QMap<QString, QVariant> values = store.value(type, QVariant()).toMap();
        if (!values.isEmpty())
            m_customDefaults.insert(type, values);
    }
}

bool ZoEffectItemDefaultValMgr::hasCustomDefaultVal(const QString& type) const
{
    return m_customDefaults.contains(type);
}

QVariant ZoEffectItemDefaultValMgr::getCustomDefaultVal(const QString& type, const QString& key) const
{
    return m_customDefaults.value(type).value(key);
}

QMap<QString, QVariant> ZoEffectItemDefaultValMgr::getCustomDefaultVal(const QString& type) const
{
    return m_customDefaults.value(type);
}

void ZoEffectItemDefaultValMgr::saveAsCustomDefaultVal(const QString& type, const QMap<QString, QVariant>& values)
{
    const QString name = type; // type may be an element of the list that grows here.
    // Deliberate: the name is appended even when it stands in the list already; loading takes duplicates.
    if (!hasCustomDefaultVal(name))
        s_supportTypes.append(name);
    m_customDefaults.insert(name, values);
    preferenceStore().setValue(name, values, false);
}

void ZoEffectItemDefaultValMgr::removeCustomDefaultVal(const QString& type)
{
    if (!hasCustomDefaultVal(type))
        return;
    m_customDefaults.remove(type);
    preferenceStore().setValue(type, QVariant(), false);
}
