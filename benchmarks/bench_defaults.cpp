// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zoeffectitemdefaultvalmgr.h>

#include "rounds.h"
#include "settings.h"
#ifdef HAVE_OBS
#include "peer_obs.h"
#endif

namespace {

// --- Saved values laid over the defaults -----------------------------------------------------------------------

constexpr int savedKeys = 20;
constexpr char notLaidOver[] = "the saved values are not there";

const QString color = QStringLiteral("Color");

/// The three properties of the type and 17 others, of all types of values.
QMap<QString, QVariant> savedValues()
{
    QMap<QString, QVariant> values{{QStringLiteral("bcs_brightness"), 11},
                                   {QStringLiteral("bcs_contrast"), 12},
                                   {QStringLiteral("bcs_saturation"), 13}};
    const QVariant others[] = {5, 0.5, true, QStringLiteral("a text"), QColor(Qt::red)};
    for (int i = 0; values.size() < savedKeys; ++i)
        values.insert(QStringLiteral("bcs_other_%1").arg(i), others[static_cast<std::size_t>(i) % std::size(others)]);
    return values;
}

/// The saved values are in the process only while they are measured.
class Saved {
public:
    Saved() { ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(color, savedValues()); }
    ~Saved() { ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal(color); }
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;
};

bool holdsAll(const QMap<QString, QVariant>& properties)
{
    return properties.size() == savedKeys && properties.value(QStringLiteral("bcs_saturation")) == 13
           && properties.value(QStringLiteral("bcs_other_16")) == 0.5;
}

void layOverLibrary(benchmark::State& state)
{
    ZoEffectModel model;
    const Saved saved;
    ZoEffectItemData* node = model.getDataItem(color, -1);
    for (auto _ : state)
        model.getCustomDefaultVal(node, color, false);
    if (!holdsAll(node->properties()) || !model.editByDefault())
        state.SkipWithError(notLaidOver);
}

void layOverLimit(benchmark::State& state)
{
    bareqt::Store store;
    fillWithDefaults(store);
    const QMap<QString, QMap<QString, QVariant>> saved{{color, savedValues()}};
    bareqt::Node* node = store.node(color, -1);
    for (auto _ : state) {
        const auto found = saved.constFind(color);
        for (auto it = found->cbegin(); it != found->cend(); ++it)
            node->properties.insert(it.key(), it.value());
    }
    if (!holdsAll(node->properties))
        state.SkipWithError(notLaidOver);
}

#ifdef HAVE_OBS
void layOverObs(benchmark::State& state)
{
    const ObsSettings settings;
    obs_data_t* node = settings.at(color, -1);
    obs_data_t* saved = obs_data_create();
    const QMap<QString, QVariant> values = savedValues();
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        ObsSettings::set(saved, {it.key(), it.value(), it.key().toStdString(), NativeValue(it.value()), 0});
    for (auto _ : state)
        obs_data_apply(node, saved);
    if (obs_data_get_int(node, "bcs_saturation") != 13 || !obs_data_has_user_value(node, "bcs_other_16"))
        state.SkipWithError(notLaidOver);
    obs_data_release(saved);
}
#endif

// --- Everything compared with its default ----------------------------------------------------------------------

constexpr char notDefault[] = "untouched settings do not count as default";
constexpr char stillDefault[] = "changed settings count as default";

const QString speed = QStringLiteral("Audio_Speed");
const QString speedFactor = QStringLiteral("audio_speed_factor");

template <typename Settings, typename Change>
void compare(benchmark::State& state, const Settings& settings, Change change)
{
    bool all = true;
    for (auto _ : state)
        all = isDefault(settings) && all;
    if (!all)
        state.SkipWithError(notDefault);
    change();
    if (isDefault(settings))
        state.SkipWithError(stillDefault);
}

void compareLibrary(benchmark::State& state)
{
    ZoEffectModel model;
    compare(state, model, [&] { model.setData(speedFactor, 150, speed, -1); });
}

void compareLimit(benchmark::State& state)
{
    bareqt::Store store;
    fillWithDefaults(store);
    compare(state, store, [&] { store.setValue(speedFactor, 150, speed, -1); });
}

#ifdef HAVE_OBS
bool hasDefaults(obs_data_t* data, const std::vector<Step>& steps)
{
    for (const Step& step : steps) {
        if (!ObsSettings::holdsDefault(data, step))
            return false;
    }
    return true;
}

/// A type with values that equal their defaults, for the types that have properties; and the frame effects.
struct ObsType {
    obs_data_t* data;
    const std::vector<Step>* steps;
};

struct ObsTypes {
    std::vector<ObsType> types;
    obs_data_array_t* frameEffects;
};

bool isDefault(const ObsTypes& settings)
{
    bool all = true;
    for (const ObsType& type : settings.types)
        all = hasDefaults(type.data, *type.steps) && all;
    const std::size_t count = obs_data_array_count(settings.frameEffects);
    for (std::size_t i = 0; i < count; ++i) {
        obs_data_t* item = obs_data_array_item(settings.frameEffects, i);
        all = obs_data_get_bool(item, "checked") == obs_data_get_default_bool(item, "checked") && all;
        obs_data_release(item);
    }
    return all;
}

void compareObs(benchmark::State& state)
{
    const ObsSettings settings;
    ObsTypes all{{}, obs_data_get_array(settings.at(QStringLiteral("Effect"), -1), "items")};
    for (const TypeTable& table : typeTables()) {
        const std::vector<Step>& steps = defaultSteps(table.name);
        obs_data_t* data = settings.at(table.name, -1);
        for (const Step& step : steps)
            ObsSettings::setDefault(data, step);
        all.types.push_back({data, &steps});
    }
    compare(state, all, [&] { obs_data_set_int(settings.at(speed, -1), "audio_speed_factor", 150); });
    obs_data_array_release(all.frameEffects);
}
#endif

} // namespace

std::vector<Case> customDefaultsCases(int /*largest*/)
{
    Case made{"20 keys", {{"library", layOverLibrary}, {"limit", layOverLimit}}, 0};
#ifdef HAVE_OBS
    made.contestants.push_back({"OBS", layOverObs});
#endif
    return {made};
}

std::vector<Case> isDefaultCases(int /*largest*/)
{
    Case made{"13 types, 40 frame effects", {{"library", compareLibrary}, {"limit", compareLimit}}, 0};
#ifdef HAVE_OBS
    made.contestants.push_back({"OBS", compareObs});
#endif
    return {made};
}
