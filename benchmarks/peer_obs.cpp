// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "peer_obs.h"

#include <cstdint>
#include <map>

#include "settings.h"

namespace {

constexpr char itemsKey[] = "items";

/// The items of a type as the tree holds them; to be released.
obs_data_array_t* itemsOf(obs_data_t* type)
{
    obs_data_array_t* items = obs_data_get_array(type, itemsKey);
    if (!items) {
        items = obs_data_array_create();
        obs_data_set_array(type, itemsKey, items);
    }
    return items;
}

obs_data_t* dataWith(const std::vector<Step>& steps)
{
    obs_data_t* data = obs_data_create();
    for (const Step& step : steps)
        ObsSettings::set(data, step);
    return data;
}

const std::vector<std::string>& frameEffectNames()
{
    static const auto names = [] {
        std::vector<std::string> made;
        for (const QString& name : typeTable(QStringLiteral("Effect")).items)
            made.push_back(name.toStdString());
        return made;
    }();
    return names;
}

void addFrameEffects(obs_data_t* type)
{
    obs_data_array_t* items = itemsOf(type);
    int number = 0;
    for (const std::string& name : frameEffectNames()) {
        obs_data_t* item = obs_data_create();
        obs_data_set_string(item, "name", name.c_str());
        obs_data_set_int(item, "id", number++);
        obs_data_set_bool(item, "checked", false);
        obs_data_array_push_back(items, item);
        obs_data_release(item);
    }
    obs_data_array_release(items);
}

struct ObsType {
    QString name;
    std::string nativeName;
    std::vector<Step> steps;
};

const std::vector<ObsType>& obsTypes()
{
    static const auto types = [] {
        std::vector<ObsType> made;
        for (const TypeTable& table : typeTables()) {
            ObsType type{table.name, table.name.toStdString(), {}};
            for (const Property& property : table.properties)
                type.steps.push_back({property.key, property.value, property.key.toStdString(),
                                      NativeValue(property.value), roleOf(property.key)});
            made.push_back(type);
        }
        return made;
    }();
    return types;
}

void count(void* counter, calldata_t* /*data*/)
{
    ++*static_cast<int*>(counter);
}

} // namespace

const std::vector<Step>& defaultSteps(const QString& type)
{
    for (const ObsType& known : obsTypes()) {
        if (known.name == type)
            return known.steps;
    }
    qFatal("no such type");
}

ObsSettings::ObsSettings() : m_root(obs_data_create())
{
    for (const ObsType& type : obsTypes()) {
        obs_data_t* data = dataWith(type.steps);
        if (type.steps.empty())
            addFrameEffects(data);
        obs_data_set_obj(m_root, type.nativeName.c_str(), data);
        obs_data_release(data);
    }
}

ObsSettings::~ObsSettings()
{
    obs_data_release(m_root);
}

void ObsSettings::addItems(const QString& type, int count)
{
    obs_data_array_t* items = itemsOf(at(type, -1));
    for (int i = 0; i < count; ++i) {
        obs_data_t* item = dataWith(defaultSteps(type));
        obs_data_array_push_back(items, item);
        obs_data_release(item);
    }
    obs_data_array_release(items);
}

obs_data_t* ObsSettings::at(const QString& type, int pos) const
{
    // What the getters hand out is released at once: the tree keeps it.
    obs_data_t* typeData = obs_data_get_obj(m_root, type.toUtf8().constData());
    obs_data_release(typeData);
    if (pos == -1)
        return typeData;
    obs_data_array_t* items = itemsOf(typeData);
    obs_data_t* item = obs_data_array_item(items, static_cast<std::size_t>(pos));
    obs_data_release(item);
    obs_data_array_release(items);
    return item;
}

void ObsSettings::assign(const ObsSettings& other)
{
    obs_data_t* copy = obs_data_create();
    obs_data_apply(copy, other.m_root);
    obs_data_release(m_root);
    m_root = copy;
}

void ObsSettings::set(obs_data_t* data, const Step& step)
{
    const char* key = step.nativeKey.c_str();
    const NativeValue& value = step.nativeValue;
    switch (value.kind) {
    case NativeValue::Kind::Integer:
        obs_data_set_int(data, key, value.integer);
        break;
    case NativeValue::Kind::Real:
        obs_data_set_double(data, key, value.real);
        break;
    case NativeValue::Kind::Boolean:
        obs_data_set_bool(data, key, value.boolean);
        break;
    case NativeValue::Kind::Text:
        obs_data_set_string(data, key, value.text.c_str());
        break;
    }
}

void ObsSettings::setDefault(obs_data_t* data, const Step& step)
{
    const char* key = step.nativeKey.c_str();
    const NativeValue& value = step.nativeValue;
    switch (value.kind) {
    case NativeValue::Kind::Integer:
        obs_data_set_default_int(data, key, value.integer);
        break;
    case NativeValue::Kind::Real:
        obs_data_set_default_double(data, key, value.real);
        break;
    case NativeValue::Kind::Boolean:
        obs_data_set_default_bool(data, key, value.boolean);
        break;
    case NativeValue::Kind::Text:
        obs_data_set_default_string(data, key, value.text.c_str());
        break;
    }
}

bool ObsSettings::holds(obs_data_t* data, const Step& step)
{
    const char* key = step.nativeKey.c_str();
    const NativeValue& value = step.nativeValue;
    switch (value.kind) {
    case NativeValue::Kind::Integer:
        return obs_data_get_int(data, key) == value.integer;
    case NativeValue::Kind::Real:
        return qFuzzyCompare(obs_data_get_double(data, key), value.real);
    case NativeValue::Kind::Boolean:
        return obs_data_get_bool(data, key) == value.boolean;
    case NativeValue::Kind::Text:
        break;
    }
    return value.text == obs_data_get_string(data, key);
}

bool ObsSettings::holdsDefault(obs_data_t* data, const Step& step)
{
    const char* key = step.nativeKey.c_str();
    switch (step.nativeValue.kind) {
    case NativeValue::Kind::Integer:
        return obs_data_get_int(data, key) == obs_data_get_default_int(data, key);
    case NativeValue::Kind::Real:
        return qFuzzyCompare(obs_data_get_double(data, key), obs_data_get_default_double(data, key));
    case NativeValue::Kind::Boolean:
        return obs_data_get_bool(data, key) == obs_data_get_default_bool(data, key);
    case NativeValue::Kind::Text:
        break;
    }
    return std::string_view(obs_data_get_string(data, key)) == obs_data_get_default_string(data, key);
}

long long ObsSettings::read(obs_data_t* data, const Step& step)
{
    const char* key = step.nativeKey.c_str();
    switch (step.nativeValue.kind) {
    case NativeValue::Kind::Integer:
        return obs_data_get_int(data, key);
    case NativeValue::Kind::Real:
        return obs_data_get_double(data, key) > 0.0 ? 1 : 0;
    case NativeValue::Kind::Boolean:
        return obs_data_get_bool(data, key) ? 1 : 0;
    case NativeValue::Kind::Text:
        break;
    }
    return *obs_data_get_string(data, key);
}

ObsSignal::ObsSignal() : m_handler(signal_handler_create())
{
    signal_handler_add(m_handler, "void changed(ptr settings, string key)");
    signal_handler_connect(m_handler, "changed", count, &m_count);
}

ObsSignal::~ObsSignal()
{
    signal_handler_destroy(m_handler);
}

void ObsSignal::send(obs_data_t* settings, const char* key)
{
    constexpr std::size_t stackSize = 128;
    uint8_t stack[stackSize];
    calldata_t data;
    calldata_init_fixed(&data, stack, stackSize);
    calldata_set_ptr(&data, "settings", settings);
    calldata_set_string(&data, "key", key);
    signal_handler_signal(m_handler, "changed", &data);
}

int ObsSignal::taken()
{
    const int taken = m_count;
    m_count = 0;
    return taken;
}
