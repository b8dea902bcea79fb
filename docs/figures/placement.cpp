// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The four searches for the place of a new watermark. The scenes are watermarks in a model; where the new one comes
// to stand, the model says. The places that were tried before it follow from the rules, and are drawn for the reader.

#include "drawing.h"
#include "figures.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace {

using namespace drawing;

constexpr int margin = 20;
const QSize newSize(100, 44);

using Places = std::vector<QPoint>;

/// The watermarks of a model and the new one, which stands last.
struct Scene {
    ZoEffectModel model;
    std::vector<QRect> others;
    QPoint start; ///< Where the new one would stand alone.
    QPoint found;

    explicit Scene(const std::vector<QRect>& rectangles)
    {
        model.setVideoSize(640, 360);
        for (const QRect& area : rectangles) {
            // Placing comes with adding: the host gives each of these its place afterwards.
            model.addDataItem("Watermark", imageWatermark("picture.png", area.size()));
            const int pos = model.childCount("Watermark") - 1;
            model.setData("wm_hposition", area.left(), "Watermark", pos);
            model.setData("wm_vposition", area.top(), "Watermark", pos);
            others.push_back(watermarkRect(model, pos));
        }

        ZoEffectModel empty;
        empty.setVideoSize(model.baseSize().width(), model.baseSize().height());
        empty.addDataItem("Watermark", imageWatermark("new.png", newSize));
        start = watermarkRect(empty, 0).topLeft();
        model.addDataItem("Watermark", imageWatermark("new.png", newSize));
        found = watermarkRect(model, model.childCount("Watermark") - 1).topLeft();
    }
};

/// Steps along the diagonal, from the place where the new watermark would stand alone, as long as they lie left of and
/// above \a end.
Places stepsBefore(const Scene& scene, const QPoint& end)
{
    constexpr int step = 30;
    Places steps;
    for (QPoint place = scene.start; place.x() < end.x() && place.y() < end.y(); place += QPoint(step, step))
        steps.push_back(place);
    return steps;
}

/// All steps that the first search takes.
Places allSteps(const Scene& scene)
{
    constexpr int frameMargin = 30;
    const QSize frame = scene.model.baseSize();
    return stepsBefore(scene, QPoint(frame.width() - frameMargin, frame.height() - frameMargin));
}

/// The places in the order of the search, up to the one that was found.
Places untilFound(Places places, const QPoint& found)
{
    places.erase(std::find(places.begin(), places.end(), found), places.end());
    return places;
}

Places rightOfOthers(const Scene& scene)
{
    constexpr int gap = 20;
    std::vector<QRect> sorted = scene.others;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const QRect& a, const QRect& b) { return a.right() < b.right(); });
    Places places;
    for (const QRect& area : sorted)
        places.emplace_back(area.right() + gap, area.top());
    return untilFound(places, scene.found);
}

Places atTheLeft(const Scene& scene)
{
    constexpr int column = 10;
    std::vector<QRect> sorted = scene.others;
    std::stable_sort(sorted.begin(), sorted.end(), [](const QRect& a, const QRect& b) { return a.left() > b.left(); });
    Places places;
    for (const QRect& area : sorted)
        places.emplace_back(column, area.top());
    return untilFound(places, scene.found);
}

const QPoint frameCorner(margin, margin);

/// A place and the point 30 to the right of it, both of which must be free.
void drawPlace(QPainter& painter, const QPoint& place, const QColor& colour)
{
    constexpr int reach = 30;
    constexpr double radius = 5;
    const QPointF point = frameCorner + place;
    const QPointF probe = point + QPointF(reach, 0);
    painter.setPen(QPen(colour, lineWidth));
    painter.drawLine(point, probe);
    painter.setBrush(colour);
    painter.drawEllipse(point, radius, radius);
    painter.setBrush(paper);
    painter.drawEllipse(probe, radius, radius);
    painter.setBrush(Qt::NoBrush);
}

/// A place that an earlier search tried.
void drawEarlier(QPainter& painter, const QPoint& place)
{
    constexpr double radius = 3;
    painter.setPen(Qt::NoPen);
    painter.setBrush(pale);
    painter.drawEllipse(QPointF(frameCorner + place), radius, radius);
    painter.setBrush(Qt::NoBrush);
}

void drawWatermarks(QPainter& painter, const Scene& scene)
{
    const QRectF frame(frameCorner, scene.model.baseSize());
    painter.fillRect(frame, ground);
    outline(painter, frame, pale);
    int count = 0;
    for (const QRect& area : scene.others) {
        const QRectF shown = QRectF(area).translated(frameCorner);
        painter.fillRect(shown, tint(blue, 46));
        outline(painter, shown, blue);
        numberDisc(painter, shown.bottomRight() - QPointF(22, 22), QString::number(++count), blue);
    }
    const QRectF fresh = QRectF(watermarkRect(scene.model, count)).translated(frameCorner);
    painter.fillRect(fresh, tint(green, 70));
    outline(painter, fresh, green);
    write(painter, fresh.center() + QPointF(14, 4), Qt::AlignHCenter | Qt::AlignVCenter, "new", green, true);
}

/// One search: what it does, the places that it tried in vain (the last one tries none), and those of the first search
/// where that is not it.
struct Search {
    QString title;
    QStringList rule;
    Places tried;
    Places earlier;
};

/// What stands beside the frame.
void explain(QPainter& painter, const Scene& scene, const Search& search)
{
    constexpr double left = 676;
    constexpr double column = 726;
    constexpr double spacing = 26;
    constexpr double entrySpacing = 34;
    double y = margin - 4;
    write(painter, QPointF(left, y), Qt::AlignLeft | Qt::AlignTop, search.title, ink, true, labelSize + 3);
    y += lineHeight + 8;
    for (const QString& text : search.rule) {
        write(painter, QPointF(left, y), Qt::AlignLeft | Qt::AlignTop, text, ink);
        y += spacing;
    }

    const auto markAt = [](double row) { return QPoint(static_cast<int>(left) + 6, static_cast<int>(row) + 14); };
    y = margin + scene.model.baseSize().height() - 5 * entrySpacing;
    numberDisc(painter, QPointF(left + 20, y + 12), "1", blue);
    write(painter, QPointF(column, y), Qt::AlignLeft | Qt::AlignTop, "shown watermark", ink);
    if (!search.earlier.empty()) {
        y += entrySpacing;
        drawEarlier(painter, markAt(y) + QPoint(15, 0) - frameCorner);
        write(painter, QPointF(column, y), Qt::AlignLeft | Qt::AlignTop, "search 1, in vain", pale);
    }
    if (!search.tried.empty()) {
        y += entrySpacing;
        drawPlace(painter, markAt(y) - frameCorner, red);
        write(painter, QPointF(column, y), Qt::AlignLeft | Qt::AlignTop, "tried: occupied", red);
    }
    y += entrySpacing;
    if (search.tried.empty())
        arrow(painter, QPointF(markAt(y) + QPoint(0, -8)), QPointF(markAt(y) + QPoint(30, 8)), green);
    else
        drawPlace(painter, markAt(y) - frameCorner, green);
    write(painter, QPointF(column, y), Qt::AlignLeft | Qt::AlignTop,
          QString("found: %1,%2").arg(scene.found.x()).arg(scene.found.y()), green);
    if (!search.tried.empty()) {
        y += entrySpacing;
        write(painter, QPointF(left, y), Qt::AlignLeft | Qt::AlignTop, "Both ends must be free.", ink);
    }
}

QImage drawn(const Scene& scene, const Search& search)
{
    QImage picture = sheet(scene.model.baseSize().height() + 2 * margin);
    QPainter painter(&picture);
    prepare(painter);
    drawWatermarks(painter, scene);
    for (const QPoint& place : search.earlier)
        drawEarlier(painter, place);
    for (const QPoint& place : search.tried)
        drawPlace(painter, place, red);
    if (search.tried.empty()) {
        const QRectF first = QRectF(scene.others.front()).translated(frameCorner);
        arrow(painter, first.topLeft(), QPointF(frameCorner + scene.found), green);
    } else {
        drawPlace(painter, scene.found, green);
    }
    explain(painter, scene, search);
    return picture;
}

} // namespace

QImage placedByDiagonalSteps()
{
    const Scene scene({QRect(64, 36, 150, 100), QRect(210, 150, 130, 62)});
    return drawn(scene, {"1. Diagonal steps",
                         {"From its own place,", "30 right and 30 down", "at a time."},
                         stepsBefore(scene, scene.found),
                         {}});
}

QImage placedRightOfAnother()
{
    const Scene scene({QRect(40, 20, 200, 310), QRect(230, 150, 160, 190), QRect(250, 10, 120, 60)});
    return drawn(scene, {"2. To the right",
                         {"Level with the top of", "the one whose right", "edge is leftmost;", "then of the next."},
                         rightOfOthers(scene),
                         allSteps(scene)});
}

QImage placedAtTheLeftMargin()
{
    const Scene scene({QRect(60, 20, 560, 150), QRect(120, 180, 500, 160), QRect(5, 160, 46, 70)});
    return drawn(scene, {"3. Left margin",
                         {"Level with the top of", "the one whose left", "edge is rightmost;", "then of the next."},
                         atTheLeft(scene),
                         allSteps(scene)});
}

QImage placedOverTheFirst()
{
    const Scene scene({QRect(20, 20, 600, 320), QRect(350, 120, 180, 120)});
    return drawn(scene, {"4. Over the first",
                         {"30 right and 30 down", "from the first one,", "occupied or not."},
                         {},
                         allSteps(scene)});
}
