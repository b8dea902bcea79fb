// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <memory>

#include <QImage>

#include "pictures.h"
#include "rounds.h"
#include "settings.h"

namespace {

constexpr int steps = 500;
constexpr int marks = 10;
constexpr int travel = 400; ///< Pixels, there and back.
constexpr double nanosecondsPerSecond = 1e9;

const QSize frame(1920, 1080);
const QString type = QStringLiteral("Watermark");
const QString hPosition = QStringLiteral("wm_hposition");

int placeAt(int step)
{
    const int turn = step % (2 * travel);
    return 24 + (turn < travel ? turn : 2 * travel - turn);
}

/// The value that \a percent of \a seconds do not exceed, in nanoseconds.
double percentile(std::vector<double> seconds, int percent)
{
    std::sort(seconds.begin(), seconds.end());
    const std::size_t rank = (seconds.size() * static_cast<std::size_t>(percent) + 99) / 100;
    return seconds.at(std::max<std::size_t>(rank, 1) - 1) * nanosecondsPerSecond;
}

/// Moves the first mark step by step with \a moveTo, which leaves the new picture in \a picture.
template <typename MoveTo>
void drag(benchmark::State& state, const QPixmap& picture, MoveTo moveTo)
{
    std::vector<double> seconds;
    int step = 0;
    for (auto _ : state) {
        const int place = placeAt(++step);
        const StopWatch watch;
        moveTo(place);
        seconds.push_back(watch.seconds());
        state.SetIterationTime(seconds.back());
    }
    state.counters["p50"] = percentile(seconds, 50);
    state.counters["p99"] = percentile(seconds, 99);

    BarePainter expected(marksFor(marks, frame), frame);
    expected.moveFirst(placeAt(step));
    if (picture.isNull() || picture.toImage() != expected.paint().toImage())
        state.SkipWithError("the picture is not the one of the last step");
}

void dragLibrary(benchmark::State& state)
{
    ZoEffectModel model;
    fillWithMarks(model, marksFor(marks, frame), frame);
    model.getWatermark(frame.width(), frame.height(), true); // The first one loads and measures.

    QPixmap picture;
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        &model, [&](const QString&, const QString& key) {
            if (key == hPosition)
                picture = model.getWatermark(frame.width(), frame.height(), true);
        });
    drag(state, picture, [&](int place) { model.setData(hPosition, place, type, 0); });
}

void dragLimit(benchmark::State& state)
{
    bareqt::Store store;
    fillWithDefaults(store);
    addWatermarks(store, marks);
    BarePainter painter(marksFor(marks, frame), frame);

    QPixmap picture;
    QObject::connect(&store, &bareqt::Store::changed, &store,
                     [&](const QString&, const QString& key, const QVariant& value) {
                         if (key == hPosition) {
                             painter.moveFirst(value.toInt());
                             picture = painter.paint();
                         }
                     });
    drag(state, picture, [&](int place) { store.setValue(hPosition, place, type, 0); });
}

} // namespace

std::vector<Case> dragCases(int /*largest*/)
{
    return {{"10 watermarks at 1920x1080", {{"library", dragLibrary}, {"limit", dragLimit}}, steps}};
}
