// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "peer_mlt.h"

#include <cstring>

#include "settings.h"

namespace {

constexpr char changed[] = "property-changed";

void count(mlt_properties /*owner*/, void* counter, mlt_event_data /*data*/)
{
    ++*static_cast<int*>(counter);
}

} // namespace

MltSettings::MltSettings(const QString& type) : m_properties(mlt_properties_new())
{
    mlt_events_init(m_properties);
    mlt_events_register(m_properties, changed);
    for (const Property& property : typeTable(type).properties)
        set({property.key, property.value, property.key.toStdString(), NativeValue(property.value), 0});
    mlt_events_listen(m_properties, &m_count, changed, count);
}

MltSettings::~MltSettings()
{
    mlt_properties_close(m_properties);
}

void MltSettings::set(const Step& step)
{
    const char* key = step.nativeKey.c_str();
    const NativeValue& value = step.nativeValue;
    switch (value.kind) {
    case NativeValue::Kind::Integer:
        mlt_properties_set_int64(m_properties, key, value.integer);
        break;
    case NativeValue::Kind::Real:
        mlt_properties_set_double(m_properties, key, value.real);
        break;
    case NativeValue::Kind::Boolean:
        mlt_properties_set_int(m_properties, key, value.boolean ? 1 : 0);
        break;
    case NativeValue::Kind::Text:
        mlt_properties_set_string(m_properties, key, value.text.c_str());
        break;
    }
}

long long MltSettings::read(const Step& step) const
{
    const char* key = step.nativeKey.c_str();
    switch (step.nativeValue.kind) {
    case NativeValue::Kind::Integer:
        return mlt_properties_get_int64(m_properties, key);
    case NativeValue::Kind::Real:
        return mlt_properties_get_double(m_properties, key) > 0.0 ? 1 : 0;
    case NativeValue::Kind::Boolean:
        return mlt_properties_get_int(m_properties, key);
    case NativeValue::Kind::Text:
        break;
    }
    return *mlt_properties_get(m_properties, key);
}

bool MltSettings::holds(const Step& step) const
{
    const char* key = step.nativeKey.c_str();
    const NativeValue& value = step.nativeValue;
    switch (value.kind) {
    case NativeValue::Kind::Integer:
        return mlt_properties_get_int64(m_properties, key) == value.integer;
    case NativeValue::Kind::Real:
        return qFuzzyCompare(mlt_properties_get_double(m_properties, key), value.real);
    case NativeValue::Kind::Boolean:
        return mlt_properties_get_int(m_properties, key) == (value.boolean ? 1 : 0);
    case NativeValue::Kind::Text:
        break;
    }
    return std::strcmp(mlt_properties_get(m_properties, key), value.text.c_str()) == 0;
}

int MltSettings::taken()
{
    const int taken = m_count;
    m_count = 0;
    return taken;
}
