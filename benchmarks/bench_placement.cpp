// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <ctime>
#include <limits>
#include <memory>

#include <QSize>

#include "rounds.h"
#include "settings.h"

namespace {

constexpr double nanosecondsPerSecond = 1e9;

/// The time that this thread has had of the processor. A single call would not be told from what interrupts it by a
/// clock on the wall.
double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / nanosecondsPerSecond;
}

struct Times {
    double total = 0.0;
    double longest = 0.0;
};

/// Places \a count watermarks of 180 x 100 pixels that all start at the catalogue's place, one after the other.
Times placeAll(ZoEffectModel& model, ZoEffectItemData* type, int count)
{
    static const QString imageWidth = QStringLiteral("wm_imagewidth");
    static const QString imageHeight = QStringLiteral("wm_imageheight");
    Times times;
    for (int i = 0; i < count; ++i) {
        addWatermarks(model, 1);
        ZoEffectItemData* item = type->child(i);
        item->setData(imageWidth, 180);
        item->setData(imageHeight, 100);
        const double start = processorSeconds();
        model.adjustWatermarkPos(item);
        const double seconds = processorSeconds() - start;
        times.total += seconds;
        times.longest = std::max(times.longest, seconds);
    }
    return times;
}

QPoint placeOf(const ZoEffectItemData& item)
{
    return QPoint(item.data(QStringLiteral("wm_hposition")).toInt(), item.data(QStringLiteral("wm_vposition")).toInt());
}

/// The second one goes by steps of 30 to the first place that is clear of the first one, whose last row is 129.
bool isPlaced(const ZoEffectItemData& type, int count)
{
    return type.childCount() == count && placeOf(*type.child(0)) == QPoint(30, 30)
           && placeOf(*type.child(1)) == QPoint(150, 150);
}

Contestant libraryAt(int count, const QSize& frame)
{
    return {"library", [=](benchmark::State& state) {
                ZoEffectModel model;
                model.setVideoSize(frame.width(), frame.height());
                ZoEffectItemData* type = model.getDataItem(QStringLiteral("Watermark"), -1);
                double longest = 0.0;
                for (auto _ : state) {
                    type->clear();
                    const Times times = placeAll(model, type, count);
                    state.SetIterationTime(times.total);
                    longest = std::max(longest, times.longest);
                }
                state.counters["longest"] = longest * nanosecondsPerSecond;
                if (!isPlaced(*type, count))
                    state.SkipWithError("the watermarks do not stand where they should");
            }};
}

} // namespace

std::vector<Case> placeCases(int largest)
{
    struct Frame {
        QSize size;
        const char* name = nullptr;
    };
    constexpr int longest = std::numeric_limits<int>::max();
    static const Frame frames[] = {
        {QSize(1280, 720), "1280x720"}, {QSize(32767, 8192), "32767x8192"}, {QSize(longest, longest), "the largest"}};

    std::vector<Case> cases;
    for (const Frame& frame : frames) {
        cases.push_back({std::string("100 items, ") + frame.name, {libraryAt(100, frame.size)}, 1});
        if (largest >= 1000)
            cases.push_back({std::string("1,000 items, ") + frame.name, {libraryAt(1000, frame.size)}, 1});
    }
    return cases;
}
