// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A host with 50 files open, each with a model of its own, goes through all of them.

#include <memory>

#include "rounds.h"
#include "settings.h"

namespace {

constexpr std::size_t files = 50;
const QString lastType = QStringLiteral("Audio_Speed");
const QString speedFactor = QStringLiteral("audio_speed_factor");

struct Models {
    Models()
    {
        for (std::size_t i = 0; i < files; ++i) {
            models.push_back(std::make_unique<ZoEffectModel>());
            stores.push_back(std::make_unique<bareqt::Store>());
            fillWithDefaults(*stores.back());
        }
    }

    std::vector<std::unique_ptr<ZoEffectModel>> models;
    std::vector<std::unique_ptr<bareqt::Store>> stores;
};

/// Lets \a work go from one of \a all to the next.
template <typename All, typename Work>
void inTurn(benchmark::State& state, const All& all, Work work)
{
    std::size_t next = 0;
    for (auto _ : state) {
        work(*all[next]);
        next = next + 1 == all.size() ? 0 : next + 1;
    }
}

/// Whether each of \a all reads what \a value says.
template <typename All>
void check(benchmark::State& state, const All& all, int (*value)(const typename All::value_type::element_type&),
           int expected)
{
    for (const auto& one : all) {
        if (value(*one) != expected)
            state.SkipWithError("a value is not what was stored");
    }
}

int speedOf(const ZoEffectModel& model)
{
    return model.data(speedFactor, lastType, -1).toInt();
}

int speedOf(const bareqt::Store& store)
{
    return store.value(speedFactor, lastType, -1).toInt();
}

} // namespace

std::vector<Case> setInTurnCases(int /*largest*/)
{
    const auto shared = std::make_shared<Models>();
    constexpr int start = 1000;
    const Contestant library{"library", [=](benchmark::State& state) {
                                 int value = start;
                                 for (const auto& model : shared->models)
                                     model->setData(speedFactor, value, lastType, -1);
                                 inTurn(state, shared->models, [&](ZoEffectModel& model) {
                                     model.setData(speedFactor, ++value, lastType, -1);
                                 });
                                 ++value;
                                 for (const auto& model : shared->models)
                                     model->setData(speedFactor, value, lastType, -1);
                                 check(state, shared->models, speedOf, value);
                             }};
    const Contestant limit{"limit", [=](benchmark::State& state) {
                               int value = start;
                               for (const auto& store : shared->stores)
                                   store->setValue(speedFactor, value, lastType, -1);
                               inTurn(state, shared->stores, [&](bareqt::Store& store) {
                                   store.setValue(speedFactor, ++value, lastType, -1);
                               });
                               ++value;
                               for (const auto& store : shared->stores)
                                   store->setValue(speedFactor, value, lastType, -1);
                               check(state, shared->stores, speedOf, value);
                           }};
    return {{"50 models in turn, last type", {library, limit}, 0}};
}

std::vector<Case> readInTurnCases(int /*largest*/)
{
    const auto shared = std::make_shared<Models>();
    constexpr int speed = 100;
    const Contestant library{"library", [=](benchmark::State& state) {
                                 inTurn(state, shared->models, [](const ZoEffectModel& model) {
                                     benchmark::DoNotOptimize(model.data(speedFactor, lastType, -1));
                                 });
                                 check(state, shared->models, speedOf, speed);
                             }};
    const Contestant limit{"limit", [=](benchmark::State& state) {
                               inTurn(state, shared->stores, [](const bareqt::Store& store) {
                                   benchmark::DoNotOptimize(store.value(speedFactor, lastType, -1));
                               });
                               check(state, shared->stores, speedOf, speed);
                           }};
    return {{"50 models in turn, last type", {library, limit}, 0}};
}

std::vector<Case> isDefaultInTurnCases(int /*largest*/)
{
    const auto shared = std::make_shared<Models>();
    const Contestant library{"library", [=](benchmark::State& state) {
                                 bool all = true;
                                 inTurn(state, shared->models,
                                        [&](const ZoEffectModel& model) { all = isDefault(model) && all; });
                                 if (!all)
                                     state.SkipWithError("untouched settings do not count as default");
                             }};
    const Contestant limit{"limit", [=](benchmark::State& state) {
                               bool all = true;
                               inTurn(state, shared->stores,
                                      [&](const bareqt::Store& store) { all = isDefault(store) && all; });
                               if (!all)
                                   state.SkipWithError("untouched settings do not count as default");
                           }};
    return {{"50 models in turn, 13 types", {library, limit}, 0}};
}
