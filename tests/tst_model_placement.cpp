// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <QScopedPointer>

#include "modeltest.h"

namespace {

constexpr int largest = std::numeric_limits<int>::max();

/// A watermark that stands beside the new one.
struct Other {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int checkState = 2;
};

using Others = QVector<Other>;

ZoEffectItemData* watermarks(const ZoEffectModel& model)
{
    return model.getDataItem("Watermark", -1);
}

/// A model of 640 x 480 with these watermarks.
struct Model : ZoEffectModel {
    explicit Model(const Others& others = {})
    {
        setVideoSize(640, 480);
        for (const Other& other : others)
            add(watermarks(*this), other);
    }
    static void add(ZoEffectItemData* list, const Other& other)
    {
        addItem(list,
                {{"wm_hposition", other.left},
                 {"wm_vposition", other.top},
                 {"wm_imagewidth", other.width},
                 {"wm_imageheight", other.height}},
                other.checkState);
    }
};

Properties at(const QVariant& left, const QVariant& top)
{
    return {{"wm_hposition", left}, {"wm_vposition", top}};
}

QString atText(int left, int top)
{
    return QStringLiteral("{wm_hposition: int %1, wm_vposition: int %2}").arg(left).arg(top);
}

} // namespace

/// The place of a new watermark.
class TstModelPlacement : public ModelTest {
    Q_OBJECT

private slots:
    void newWatermarkIsPlaced_data()
    {
        const Rows<Others, QPoint, QSize, QPoint> add;
        const QSize vga(640, 480);

        add("alone", {}, QPoint(5, 5), vga, QPoint(5, 5));
        add("the other is unchecked", {{0, 0, 100, 50, 0}}, QPoint(0, 0), vga, QPoint(0, 0));
        add("the other is partly checked", {{0, 0, 100, 50, 1}}, QPoint(0, 0), vga, QPoint(0, 0));
        add("unchecked ones block nothing", {{0, 0, 100, 50, 0}, {300, 300, 50, 50, 2}}, QPoint(0, 0), vga,
            QPoint(0, 0));

        add("free at once", {{0, 0, 100, 50}}, QPoint(300, 200), vga, QPoint(300, 200));
        add("sizeless other blocks its two rows", {{100, 100, 0, 0}}, QPoint(100, 99), vga, QPoint(130, 129));
        add("sizeless other is 30 wide", {{100, 100, 0, 0}}, QPoint(131, 100), vga, QPoint(131, 100));
        add("probe 30 to the right", {{100, 100, 50, 50}}, QPoint(69, 100), vga, QPoint(129, 160));
        add("negative start", {{-100, -100, 30, 30}}, QPoint(-100, -100), vga, QPoint(-40, -40));

        add("start on the right limit: right of the other", {{0, 40, 100, 50}}, QPoint(610, 0), vga, QPoint(119, 40));
        add("start before the right limit stays", {{0, 40, 100, 50}}, QPoint(609, 0), vga, QPoint(609, 0));
        add("start on the bottom limit: right of the other", {{0, 40, 100, 50}}, QPoint(0, 450), vga, QPoint(119, 40));
        add("start before the bottom limit stays", {{0, 40, 100, 50}}, QPoint(0, 449), vga, QPoint(0, 449));
        add("right of the one with the leftmost right edge", {{300, 10, 50, 50}, {0, 50, 100, 10}}, QPoint(610, 0), vga,
            QPoint(119, 50));
        add("equal right edges: the first in the list", {{0, 100, 100, 10}, {50, 20, 50, 10}}, QPoint(610, 0), vga,
            QPoint(119, 100));
        // Right of the second, 269,100, is never tried.
        add("top above the frame ends the right search", {{0, -20, 20, 10}, {200, 100, 50, 50}}, QPoint(610, 0), vga,
            QPoint(10, 100));
        add("at the left margin", {{50, 0, 590, 480}}, QPoint(60, 10), vga, QPoint(10, 0));
        add("shifted from the first, over the second", {{0, 0, 640, 480}, {30, 30, 5, 5}}, QPoint(0, 0), vga,
            QPoint(30, 30));
        add("shifted into the outer 30 pixels", {{600, 440, 40, 40}, {0, 0, 640, 480}}, QPoint(0, 0), vga,
            QPoint(630, 470));
        add("no place at all", {{615, 460, 40, 40}, {0, 0, 640, 480}}, QPoint(7, 8), vga, QPoint(7, 8));
        add("no base size", {{0, 0, 10, 10}}, QPoint(5, 5), QSize(0, 0), QPoint(5, 5));
    }

    void newWatermarkIsPlaced()
    {
        const auto [others, start, baseSize, expected] = row<Others, QPoint, QSize, QPoint>();
        Model model(others);
        model.setVideoSize(baseSize.width(), baseSize.height());
        ZoEffectItemData* item = addItem(watermarks(model), at(start.x(), start.y()));

        model.adjustWatermarkPos(item);

        QCOMPARE(described(item->properties()), atText(expected.x(), expected.y()));
    }

    void valuesAreReadAsWholeNumbers_data()
    {
        const Rows<Properties, Properties, QString> add;
        const auto other = [](const QVariant& left, const QVariant& top, const QVariant& width,
                              const QVariant& height) {
            return with(at(left, top), {{"wm_imagewidth", width}, {"wm_imageheight", height}});
        };
        add("texts", other("0", "0", "100", "50"), at("0", "0"), atText(60, 60));
        add("doubles are rounded", other(0.2, 0.4, 99.5, 49.5), at(0.3, 0.6), atText(60, 61));
        add("words count as 0", other("left", "top", 100, 50), at("left", "top"), atText(60, 60));
        add("missing values read as 0, without size the rows -1 and 0 are taken", {}, {}, atText(30, 30));
        add("a position that stays is written as int", other(0, 0, 100, 50), at("300", 200.0), atText(300, 200));
    }

    void valuesAreReadAsWholeNumbers()
    {
        const auto [other, properties, expected] = row<Properties, Properties, QString>();
        Model model;
        addItem(watermarks(model), other);
        ZoEffectItemData* item = addItem(watermarks(model), properties);

        model.adjustWatermarkPos(item);

        QCOMPARE(described(item->properties()), expected);
    }

    void orderInTheListPlaysNoPart()
    {
        for (int pos = 0; pos <= 2; ++pos) {
            Model model({{0, 0, 100, 50}, {0, 0, 30, 90}});
            auto* item = new ZoEffectItemData(QString(), watermarks(model), pos);
            model.adjustWatermarkPos(item);
            QCOMPARE(described(item->properties()), atText(60, 60));
        }
    }

    void onlyThePositionIsWritten()
    {
        Model model({{0, 0, 100, 50}});
        watermarks(model)->insertChild(nullptr, 0); // Null entries are passed over.
        ZoEffectItemData* item = addItem(watermarks(model),
                                         {{"wm_hposition", 0},
                                          {"wm_vposition", 0},
                                          {"wm_imagewidth", 11},
                                          {"wm_imageheight", 12},
                                          {"wm_hposfactor", 0.5}},
                                         0); // The check state of the new one plays no part.
        QString expected = tree(rootOf(model));
        expected.replace("wm_hposfactor: double 0.5, wm_hposition: int 0, wm_imageheight: int 12, wm_imagewidth: int "
                         "11, wm_vposition: int 0",
                         "wm_hposfactor: double 0.5, wm_hposition: int 60, wm_imageheight: int 12, wm_imagewidth: int "
                         "11, wm_vposition: int 60");
        SignalRecorder recorder(model);

        model.adjustWatermarkPos(item);

        QCOMPARE(tree(rootOf(model)), expected);
        QCOMPARE(described(item->data("wm_hposition")), QString("int 60"));
        QCOMPARE(recorder.take(), QStringList());
    }

    void positionWithoutPlaceIsNotRewritten()
    {
        for (const Others& others :
             {Others{}, Others{{0, 0, 100, 50, 0}, {0, 0, 100, 50, 0}}, Others{{615, 460, 40, 40}, {0, 0, 640, 480}}}) {
            Model model(others);
            ZoEffectItemData* bare = addItem(watermarks(model), {}, 0);
            model.adjustWatermarkPos(bare);
            QCOMPARE(described(bare->properties()), QString("{}"));
            watermarks(model)->removeChildren(bare->childNumber(), 1);

            ZoEffectItemData* item = addItem(watermarks(model), at("10", 20.0));
            model.adjustWatermarkPos(item);
            QCOMPARE(described(item->properties()), QString("{wm_hposition: string 10, wm_vposition: double 20}"));
        }

        // A null entry counts as a child, but blocks nothing.
        Model model;
        watermarks(model)->appendChild(nullptr);
        ZoEffectItemData* item = addItem(watermarks(model), at("0", 0));
        model.adjustWatermarkPos(item);
        QCOMPARE(described(item->properties()), QString("{wm_hposition: string 0, wm_vposition: int 0}"));
    }

    void nullIsLogged()
    {
        ZoEffectModel model;
        SignalRecorder recorder(model);
        model.adjustWatermarkPos(nullptr);
        model.adjustWatermarkPos(nullptr);
        QCOMPARE(logcapture::takeEvents(), (QList<int>{1392, 1392}));
        QCOMPARE(recorder.take(), QStringList());
    }

    void itemWithoutParentIsLeftAlone()
    {
        Model model({{0, 0, 100, 50}});
        ZoEffectItemData item("free");
        item.setData("wm_hposition", "0");
        model.adjustWatermarkPos(&item);
        QCOMPARE(described(item.properties()), QString("{wm_hposition: string 0}"));

        auto* appended = new ZoEffectItemData("appended"); // In the list, but created without parent.
        watermarks(model)->appendChild(appended);
        model.adjustWatermarkPos(appended);
        QCOMPARE(described(appended->properties()), QString("{}"));
    }

    void parentOfTheItemCountsNotTheType()
    {
        Model model({{0, 0, 300, 300}}); // Not beside the item.
        ZoEffectItemData* audio = model.getDataItem("Audio", -1);
        Model::add(audio, {0, 0, 100, 50});
        ZoEffectItemData* item = addItem(audio, at(0, 0));
        model.adjustWatermarkPos(item);
        QCOMPARE(described(item->properties()), atText(60, 60));
    }

    void itemThatWasTakenOutLooksAtItsFormerNeighbours()
    {
        Model model({{0, 0, 100, 50}});
        addItem(watermarks(model), at(0, 0));
        const QScopedPointer<ZoEffectItemData> item(watermarks(model)->takeAt(1));
        model.adjustWatermarkPos(item.data()); // One child is left: fewer than two.
        QCOMPARE(described(item->properties()), atText(0, 0));

        Model::add(watermarks(model), {0, 0, 30, 90});
        model.adjustWatermarkPos(item.data());
        QCOMPARE(described(item->properties()), atText(60, 60));
    }

    void frameIsThatOfTheModelAsked()
    {
        Model owner({{0, 0, 100, 50}});
        ZoEffectItemData* item = addItem(watermarks(owner), at(0, 0));
        ZoEffectModel other;
        other.setVideoSize(80, 80); // Limits 50 and 50: 0,0 and 30,30 are blocked, the others lie beyond.
        other.adjustWatermarkPos(item);
        QCOMPARE(described(item->properties()), atText(30, 30)); // Shifted from the first.
        owner.adjustWatermarkPos(item);
        QCOMPARE(described(item->properties()), atText(60, 60));
    }

    // Walked one by one, 70 million steps a search, this would exceed the time limit of the test many times.
    void placingIsQuickInAHugeFrame()
    {
        Model model({{0, 0, 2147483000, 2147483000}});
        model.setVideoSize(largest, largest);
        ZoEffectItemData* item = addItem(watermarks(model));
        for (int i = 0; i < 1000; ++i) {
            item->setData("wm_hposition", 0);
            item->setData("wm_vposition", 0);
            model.adjustWatermarkPos(item);
            QCOMPARE(described(item->properties()), atText(2147483010, 2147483010));
        }
    }
};

ZOEFFECT_TEST_MAIN(TstModelPlacement)

#include "tst_model_placement.moc"
