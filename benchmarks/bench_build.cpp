// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <memory>
#include <utility>
#include <vector>

#include <zoeffectcatalogue.h>

#include "peer_items.h"
#include "rounds.h"
#include "settings.h"
#ifdef HAVE_OBS
#include "peer_obs.h"
#endif

namespace {

constexpr int frameEffects = 40;
constexpr char wrongTree[] = "the settings do not hold what they were made with";

void buildLibrary(benchmark::State& state)
{
    const ZoEffectModel
        model; // A host has other files open. With its last model the library forgets the prepared tables.
    for (auto _ : state)
        const ZoEffectModel made;

    const bool isWhole = model.childCount(QStringLiteral("Effect")) == frameEffects
                         && model.data(QStringLiteral("wm_fontsize"), QStringLiteral("Watermark"), -1) == 22
                         && model.data(QStringLiteral("audio_speed_factor"), QStringLiteral("Audio_Speed"), -1) == 100;
    if (!isWhole)
        state.SkipWithError(wrongTree);
}

/// The same table as a host has it that makes its own at run time: registered as long as this lives.
class HeapTables {
public:
    HeapTables()
    {
        for (const EffectControlItem* type = effectTable(); type->name; ++type) {
            m_types.push_back(*type);
            std::vector<EffectDefaultVal> properties;
            for (const EffectDefaultVal* entry = type->properties; entry && entry->key; ++entry)
                properties.push_back(*entry);
            properties.push_back(EffectDefaultVal{});
            m_properties.push_back(std::move(properties));
            if (type->properties)
                m_types.back().properties = m_properties.back().data();
        }
        m_types.emplace_back();
        ZoEffectModel::InitEffectModel(m_types.data());
    }
    ~HeapTables() { ZoEffectModel::InitEffectModel(effectTable()); }
    HeapTables(const HeapTables&) = delete;
    HeapTables& operator=(const HeapTables&) = delete;

private:
    std::vector<EffectControlItem> m_types;
    std::vector<std::vector<EffectDefaultVal>> m_properties;
};

void buildLibraryFromHeap(benchmark::State& state)
{
    const HeapTables tables;
    buildLibrary(state);
}

void buildLimit(benchmark::State& state)
{
    for (auto _ : state) {
        bareqt::Store store;
        fillWithDefaults(store);
    }

    bareqt::Store store;
    fillWithDefaults(store);
    const bool isWhole = store.node(QStringLiteral("Effect"), frameEffects - 1)
                         && !store.node(QStringLiteral("Effect"), frameEffects)
                         && store.value(QStringLiteral("wm_fontsize"), QStringLiteral("Watermark"), -1) == 22
                         && store.value(QStringLiteral("audio_speed_factor"), QStringLiteral("Audio_Speed"), -1) == 100;
    if (!isWhole)
        state.SkipWithError(wrongTree);
}

void buildItems(benchmark::State& state)
{
    for (auto _ : state)
        ItemSettings settings;

    const ItemSettings settings;
    const bool isWhole =
        settings.item(QStringLiteral("Effect"), -1)->rowCount() == frameEffects
        && settings.item(QStringLiteral("Watermark"), -1)->data(roleOf(QStringLiteral("wm_fontsize"))) == 22;
    if (!isWhole)
        state.SkipWithError(wrongTree);
}

#ifdef HAVE_OBS
void buildObs(benchmark::State& state)
{
    for (auto _ : state)
        ObsSettings settings;

    const ObsSettings settings;
    const bool isWhole =
        obs_data_get_int(settings.at(QStringLiteral("Effect"), frameEffects - 1), "id") == frameEffects - 1
        && obs_data_get_int(settings.at(QStringLiteral("Watermark"), -1), "wm_fontsize") == 22;
    if (!isWhole)
        state.SkipWithError(wrongTree);
}
#endif

// An item with the subtitle's defaults and two values of its own is appended and then given another value.

const QString subtitle = QStringLiteral("Subtitle");
const QString trackId = QStringLiteral("trackid");
const QString fontSize = QStringLiteral("sub_fontsize");

const QMap<QString, QVariant>& given()
{
    static const QMap<QString, QVariant> properties{{trackId, 7}, {QStringLiteral("sub_fromfile"), true}};
    return properties;
}

constexpr int newFontSize = 30;

/// Times \a insert alone; \a remove takes the item out again.
template <typename Insert, typename Remove>
void timeInserts(benchmark::State& state, Insert insert, Remove remove)
{
    for (auto _ : state) {
        const StopWatch watch;
        insert();
        state.SetIterationTime(watch.seconds());
        remove();
    }
}

Contestant insertIntoLibrary(int items)
{
    const auto model = std::make_shared<ZoEffectModel>();
    const auto listener = std::make_shared<Listener>(*model);
    for (int i = 0; i < items; ++i)
        model->insertDataItem(subtitle, given(), -1);
    return {"library", [=](benchmark::State& state) {
                listener->taken();
                const auto insert = [&] {
                    model->insertDataItem(subtitle, given(), -1);
                    model->setData(fontSize, newFontSize, subtitle, items);
                };
                timeInserts(state, insert, [&] { model->delDataItem(subtitle, items); });
                // One for the item, one for the value, one when it is taken out.
                if (listener->taken() != 3 * static_cast<int>(state.iterations()))
                    state.SkipWithError("the listener was not called once for each change");
                insert();
                if (model->childCount(subtitle) != items + 1 || model->data(fontSize, subtitle, items) != newFontSize
                    || model->data(trackId, subtitle, items) != 7)
                    state.SkipWithError("the item is not what was inserted");
                model->delDataItem(subtitle, items);
            }};
}

Contestant insertIntoLimit(int items)
{
    const auto store = std::make_shared<bareqt::Store>();
    const auto listener = std::make_shared<Listener>(*store);
    fillWithDefaults(*store);
    const QMap<QString, QVariant> defaults = typeTable(subtitle).asMap;
    for (int i = 0; i < items; ++i)
        store->append(subtitle, defaults, given());
    return {"limit", [=](benchmark::State& state) {
                listener->taken();
                const auto insert = [&] {
                    store->append(subtitle, defaults, given());
                    store->setValue(fontSize, newFontSize, subtitle, items);
                };
                const auto remove = [&] { delete store->node(subtitle, -1)->children.takeLast(); };
                timeInserts(state, insert, remove);
                if (listener->taken() != 2 * static_cast<int>(state.iterations()))
                    state.SkipWithError("the listener was not called once for each change");
                insert();
                if (store->value(fontSize, subtitle, items) != newFontSize
                    || store->value(trackId, subtitle, items) != 7)
                    state.SkipWithError("the item is not what was inserted");
                remove();
            }};
}

} // namespace

std::vector<Case> buildCases(int /*largest*/)
{
    Case made{"13 types, 40 frame effects", {}, 0};
    made.contestants.push_back({"library", buildLibrary});
    made.contestants.push_back({"limit", buildLimit});
    made.contestants.push_back({"QStandardItemModel", buildItems});
#ifdef HAVE_OBS
    made.contestants.push_back({"OBS", buildObs});
#endif
    return {made, {"the same, tables on the heap", {{"library", buildLibraryFromHeap}, {"limit", buildLimit}}, 0}};
}

std::vector<Case> insertCases(int largest)
{
    std::vector<Case> cases{{"10 items", {insertIntoLibrary(10), insertIntoLimit(10)}, 0}};
    if (largest >= 10000)
        cases.push_back({"10,000 items", {insertIntoLibrary(10000), insertIntoLimit(10000)}, 0});
    return cases;
}
