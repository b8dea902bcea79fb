// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <memory>

#include "rounds.h"
#include "settings.h"
#ifdef HAVE_OBS
#include "peer_obs.h"
#endif

namespace {

constexpr int watermarks = 10;
constexpr int subtitles = 5;
constexpr int audioTracks = 3;
constexpr char notCopied[] = "the copy does not hold what it was copied from";

const QString watermark = QStringLiteral("Watermark");
const QString subtitle = QStringLiteral("Subtitle");
const QString audio = QStringLiteral("Audio");
const QString fontSize = QStringLiteral("wm_fontsize");
const QString trackId = QStringLiteral("trackid");

std::shared_ptr<ZoEffectModel> filledModel(int lastFontSize)
{
    auto model = std::make_shared<ZoEffectModel>();
    model->setVideoSize(1280, 720);
    for (int i = 0; i < watermarks; ++i)
        model->addDataItem(watermark, {});
    for (int i = 0; i < subtitles; ++i)
        model->addDataItem(subtitle, {{trackId, i}});
    for (int i = 0; i < audioTracks; ++i)
        model->addDataItem(audio, {{trackId, i}});
    model->setData(fontSize, lastFontSize, watermark, watermarks - 1);
    return model;
}

std::shared_ptr<bareqt::Store> filledStore(int lastFontSize)
{
    auto store = std::make_shared<bareqt::Store>();
    fillWithDefaults(*store);
    const auto append = [&store](const QString& type, int count) {
        for (int i = 0; i < count; ++i)
            store->append(type, typeTable(type).asMap, {{trackId, i}});
    };
    append(watermark, watermarks);
    append(subtitle, subtitles);
    append(audio, audioTracks);
    store->setValue(fontSize, lastFontSize, watermark, watermarks - 1);
    return store;
}

// Two sources take turns, so that what is copied always differs from what is there.
constexpr int fontSizes[] = {31, 32};

Contestant assignLibrary()
{
    const std::vector<std::shared_ptr<ZoEffectModel>> sources{filledModel(fontSizes[0]), filledModel(fontSizes[1])};
    const auto target = std::make_shared<ZoEffectModel>();
    return {"library", [=](benchmark::State& state) {
                std::size_t turn = 0;
                for (auto _ : state) {
                    turn = 1 - turn;
                    *target = *sources[turn];
                }
                const bool isCopied = target->data(fontSize, watermark, watermarks - 1) == fontSizes[turn]
                                      && target->childCount(subtitle) == subtitles
                                      && target->data(trackId, audio, audioTracks - 1) == audioTracks - 1
                                      && target->getDataItem(watermark, 0) != sources[turn]->getDataItem(watermark, 0);
                if (!isCopied)
                    state.SkipWithError(notCopied);
            }};
}

Contestant assignLimit()
{
    const std::vector<std::shared_ptr<bareqt::Store>> sources{filledStore(fontSizes[0]), filledStore(fontSizes[1])};
    const auto target = std::make_shared<bareqt::Store>();
    return {"limit", [=](benchmark::State& state) {
                std::size_t turn = 0;
                for (auto _ : state) {
                    turn = 1 - turn;
                    target->assign(*sources[turn]);
                }
                const bool isCopied = target->value(fontSize, watermark, watermarks - 1) == fontSizes[turn]
                                      && target->node(subtitle, subtitles - 1) && !target->node(subtitle, subtitles)
                                      && target->value(trackId, audio, audioTracks - 1) == audioTracks - 1
                                      && target->node(watermark, 0) != sources[turn]->node(watermark, 0);
                if (!isCopied)
                    state.SkipWithError(notCopied);
            }};
}

#ifdef HAVE_OBS
std::shared_ptr<ObsSettings> filledObs(int lastFontSize)
{
    auto settings = std::make_shared<ObsSettings>();
    settings->addItems(watermark, watermarks);
    settings->addItems(subtitle, subtitles);
    settings->addItems(audio, audioTracks);
    obs_data_set_int(settings->at(watermark, watermarks - 1), "wm_fontsize", lastFontSize);
    return settings;
}

Contestant assignObs()
{
    const std::vector<std::shared_ptr<ObsSettings>> sources{filledObs(fontSizes[0]), filledObs(fontSizes[1])};
    return {"OBS", [=](benchmark::State& state) {
                ObsSettings target;
                std::size_t turn = 0;
                for (auto _ : state) {
                    turn = 1 - turn;
                    target.assign(*sources[turn]);
                }
                obs_data_t* copied = target.at(watermark, watermarks - 1);
                if (obs_data_get_int(copied, "wm_fontsize") != fontSizes[turn]
                    || copied == sources[turn]->at(watermark, watermarks - 1))
                    state.SkipWithError(notCopied);
            }};
}
#endif

} // namespace

std::vector<Case> assignCases(int /*largest*/)
{
    Case made{"10 watermarks, 5 subtitles, 3 audio tracks", {assignLibrary(), assignLimit()}, 0};
#ifdef HAVE_OBS
    made.contestants.push_back(assignObs());
#endif
    return {made};
}
