// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Base size, rescaling, and the crop that applies. The arithmetic has its own tests, tst_scaling.

#include <limits>

#include <zoeffectitemdata.h>
#include <zoeffectmodel.h>

#include "modeltest.h"

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

const QSize fullHd(1920, 1080);
const QSize vga(640, 480);
const QSize doubled(1280, 960);
const QSize halved(320, 240);

ZoEffectItemData* typeOf(const ZoEffectModel& model, const QString& type)
{
    return model.getDataItem(type, -1);
}

void store(ZoEffectItemData* target, const Properties& properties)
{
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        target->setData(it.key(), it.value());
}

QString described(const ZoEffectItemData* item)
{
    return described(item->properties());
}

QString described(const CropData& crop)
{
    return QString("%1,%2 %3x%4, %5, %6")
        .arg(crop.left)
        .arg(crop.top)
        .arg(crop.width)
        .arg(crop.height)
        .arg(crop.reserved)
        .arg(crop.valid ? "valid" : "invalid");
}

Properties cropOf(const QVariant& left, const QVariant& top, const QVariant& width, const QVariant& height)
{
    return {{"crop_left", left}, {"crop_top", top}, {"crop_width", width}, {"crop_height", height}};
}

Properties at(const QVariant& left, const QVariant& top)
{
    return {{"wm_hposition", left}, {"wm_vposition", top}};
}

Properties image(const QVariant& width, const QVariant& height)
{
    return {{"wm_imagewidth", width}, {"wm_imageheight", height}, {"wm_hposition", 0}, {"wm_vposition", 0}};
}

Properties text(const QVariant& isText)
{
    return {{"wm_istextwatermark", isText}, {"wm_fontsize", 21}, {"wm_hposition", 0}, {"wm_vposition", 0}};
}

QString imageText(const char* width, const char* height)
{
    return QString("{wm_hposition: int 0, wm_imageheight: %2, wm_imagewidth: %1, wm_vposition: int 0}")
        .arg(width, height);
}

QString textText(const char* fontSize, const char* isText = "bool true")
{
    return QString("{wm_fontsize: int %1, wm_hposition: int 0, wm_istextwatermark: %2, wm_vposition: int 0}")
        .arg(fontSize, isText);
}

QString cropText(int left, int top, int width, int height)
{
    return QString("crop_height: int %4, crop_left: int %1, crop_top: int %2, crop_width: int %3")
        .arg(left)
        .arg(top)
        .arg(width)
        .arg(height);
}

/// A model of a video of this size, with a crop, a watermark and a subtitle track that a new size would move.
struct Model : ZoEffectModel {
    explicit Model(const QSize& size)
    {
        setVideoSize(size.width(), size.height());
        store(typeOf(*this, "Crop"), cropOf(10, 20, 300, 200));
        store(watermark, {{"wm_imagewidth", 50}, {"wm_imageheight", 20}});
        ::addItem(*this, "Subtitle");
    }
    ZoEffectItemData* const watermark = ::addItem(*this, "Watermark", at(100, 60));
};

/// All but the root's own values.
QString typesText(const ZoEffectModel& model)
{
    const QString text = tree(rootOf(model));
    return text.mid(text.indexOf('['));
}

} // namespace

class TstModelGeometry : public ModelTest { // Nothing here is ever logged.
    Q_OBJECT

private slots:
    // --- The base size

    void videoSizeIsStoredAsGiven()
    {
        Model model(vga);
        const QString before = typesText(model);
        SignalRecorder recorder(model);
        for (const QSize& size : {fullHd, QSize(0, 0), QSize(-640, -480), QSize(largest, smallest)}) {
            model.setVideoSize(size.width(), size.height());
            QCOMPARE(described(rootOf(model)), QString("{h: int %1, w: int %2}").arg(size.height()).arg(size.width()));
            QCOMPARE(model.baseSize(), size);
            QCOMPARE(typesText(model), before);
        }
        QCOMPARE(recorder.take(), QStringList());
    }

    void baseSizeReadsWholeNumbers_data()
    {
        addRows<QVariant, QVariant, QSize>({
            {"texts", "640", "480", QSize(640, 480)},
            {"doubles are rounded", 12.7, -0.5, QSize(13, 0)},
            {"words", "wide", "12.7", QSize(0, 0)},
            {"invalid values", QVariant(), QVariant(), QSize(0, 0)},
        });
    }

    void baseSizeReadsWholeNumbers()
    {
        const auto [width, height, expected] = row<QVariant, QVariant, QSize>();
        const ZoEffectModel model;
        QCOMPARE(model.baseSize(), QSize(0, 0));
        store(rootOf(model), {{"w", width}, {"h", height}});
        QCOMPARE(model.baseSize(), expected);
    }

    void firstSizeIsOnlyRecorded()
    {
        Model model(vga);
        rootOf(model)->delData("w");
        rootOf(model)->delData("h");
        const QString before = typesText(model);
        SignalRecorder recorder(model);
        model.adjustEffectInfo(0, 0);
        QCOMPARE(described(rootOf(model)), QString("{}"));
        model.adjustEffectInfo(1280, 960);
        QCOMPARE(model.baseSize(), QSize(1280, 960));
        QCOMPARE(typesText(model), before);
        QCOMPARE(recorder.take(), QStringList());
    }

    void currentSizeIsNotEvenRewritten()
    {
        ZoEffectModel model;
        store(rootOf(model), {{"w", "640"}, {"h", 480.2}});
        addItem(model, "Watermark", {{"wm_hposition", "100"}});
        const QString before = tree(rootOf(model));
        model.adjustEffectInfo(640, 480);
        QCOMPARE(tree(rootOf(model)), before);
    }

    void sizeAfterAZeroSizeIsOnlyRecorded_data()
    {
        addRows<QSize, QSize>({
            {"new width 0", vga, QSize(0, 960)},
            {"new height 0", vga, QSize(1280, 0)},
            {"old width 0", QSize(0, 480), doubled},
            {"old height 0", QSize(640, 0), doubled},
        });
    }

    void sizeAfterAZeroSizeIsOnlyRecorded()
    {
        const auto [oldSize, newSize] = row<QSize, QSize>();
        Model model(oldSize);
        const QString before = typesText(model);
        model.adjustEffectInfo(newSize.width(), newSize.height());
        QCOMPARE(model.baseSize(), newSize);
        QCOMPARE(typesText(model), before);
        for (const char* type : {"Watermark", "Crop", "Subtitle"})
            model.adjustEffectItem(typeOf(model, type), newSize.width(), newSize.height(), oldSize.width(),
                                   oldSize.height());
        QCOMPARE(typesText(model), before);
        model.adjustEffectInfo(1280, 960);
        QCOMPARE(typesText(model), before);
        model.adjustEffectInfo(640, 480);
        QCOMPARE(model.watermark->data("wm_hposition"), QVariant(50));
    }

    // --- One pass

    void onePassTouchesEveryTypeWithGeometry()
    {
        Model model(fullHd);
        SignalRecorder recorder(model);
        typeOf(model, "Watermark")->appendChild(nullptr);
        const ZoEffectItemData* unchecked = addItem(model, "Watermark", at(11, -31), 0);
        typeOf(model, "Watermark")->setCheckState(0);
        typeOf(model, "Crop")->setData("crop_keepaspectratio", false);
        auto* second = new ZoEffectItemData("Watermark"); // Every child of the root that has the name.
        rootOf(model)->appendChild(nullptr);
        rootOf(model)->appendChild(second);
        const ZoEffectItemData* ofSecond = addItem(second, at(10, 20));
        const ZoEffectItemData* nested = addItem(new ZoEffectItemData("Watermark", typeOf(model, "Audio")), at(10, 20));
        const QString ownValues = described(typeOf(model, "Watermark"));

        model.adjustEffectInfo(960, 540);

        QCOMPARE(chosen(model.watermark, {"wm_hposition", "wm_vposition"}),
                 QString("{wm_hposition: int 50, wm_vposition: int 30}"));
        QCOMPARE(described(unchecked), QString("{wm_hposition: int 5, wm_vposition: int -15}"));
        QCOMPARE(described(ofSecond), QString("{wm_hposition: int 5, wm_vposition: int 10}"));
        QCOMPARE(described(nested), QString("{wm_hposition: int 10, wm_vposition: int 20}"));
        QCOMPARE(described(typeOf(model, "Watermark")), ownValues);
        QCOMPARE(described(model.cropData()), QString("5,10 150x100, 0, valid"));
        QCOMPARE(typeOf(model, "Subtitle")->data("sub_vposition"), QVariant(100));
        QCOMPARE(described(rootOf(model)), QString("{h: int 540, w: int 960}"));
        QCOMPARE(recorder.take(), QStringList());

        // The way back does not bring fractions back.
        model.adjustEffectInfo(1920, 1080);
        QCOMPARE(described(unchecked), QString("{wm_hposition: int 10, wm_vposition: int -30}"));
    }

    void itemIsRescaledFromTheOldToTheNewSize()
    {
        ZoEffectModel model;
        model.setVideoSize(1, 2);           // Plays no part for a watermark.
        ZoEffectItemData type("Watermark"); // Need not stand in the model.
        const ZoEffectItemData* item = addItem(&type, at(100, 60));
        ZoEffectItemData subtitle("Subtitle");
        addItem(&subtitle);
        subtitle.setData("sub_vposition", 100);
        model.adjustEffectItem(&type, 1280, 1440, 640, 480); // The new size first.
        model.adjustEffectItem(&subtitle, 1280, 1440, 640, 480);
        QCOMPARE(described(item), QString("{wm_hposition: int 200, wm_vposition: int 180}"));
        QCOMPARE(described(&subtitle), QString("{sub_vposition: int 300}"));
        QCOMPARE(model.baseSize(), QSize(1, 2));
    }

    void itemIsLeftAlone()
    {
        Model model(vga);
        model.watermark->setData("wm_hposition", "100");
        const QString before = tree(rootOf(model));
        model.adjustEffectItem(nullptr, 1280, 960, 640, 480);
        for (const char* type : {"Watermark", "Crop", "Subtitle"})
            model.adjustEffectItem(typeOf(model, type), 640, 480, 640, 480);
        QCOMPARE(tree(rootOf(model)), before);
    }

    void otherTypesHaveNoGeometry()
    {
        const Properties geometry = with(with(cropOf(10, 20, 30, 40), image(10, 10)), {{"sub_vposition", 10}});
        for (const char* name : {"Audio", "Color", "Effect", "Audio_Speed", "watermark", "CROP", "Subtitle ", ""}) {
            ZoEffectModel model(QStringList{"none"});
            auto* typeNode = new ZoEffectItemData(name, rootOf(model));
            store(typeNode, geometry);
            addItem(typeNode, geometry);
            const QString before = tree(typeNode);
            model.setVideoSize(640, 480);
            model.adjustEffectItem(typeNode, 1280, 960, 640, 480);
            model.adjustEffectInfo(1280, 960);
            QCOMPARE(tree(typeNode), before);
        }
    }

    // --- Watermarks

    void watermarkIsRescaled_data()
    {
        addRows<Properties, QSize, QSize, QString>({
            {"fractions are dropped", at(101, 53), halved, vga, "{wm_hposition: int 50, wm_vposition: int 26}"},
            {"negative position moves toward zero", at(-101, -1), halved, vga,
             "{wm_hposition: int -50, wm_vposition: int 0}"},
            {"left by the width, top by the height", at(100, 100), QSize(1280, 240), vga,
             "{wm_hposition: int 200, wm_vposition: int 50}"},
            {"only the width changes", at(100, 101), QSize(320, 480), vga,
             "{wm_hposition: int 50, wm_vposition: int 101}"},
            {"only the height changes", at(101, 100), QSize(640, 240), vga,
             "{wm_hposition: int 101, wm_vposition: int 50}"},
            // 11 x 480 / 352 is 15, but the factor is a double just below it, and so for 105 x 1080 / 1050.
            {"factors are doubles", at(11, 105), QSize(480, 1080), QSize(352, 1050),
             "{wm_hposition: int 14, wm_vposition: int 107}"},
            {"missing position is stored as 0", {}, doubled, vga, "{wm_hposition: int 0, wm_vposition: int 0}"},
            {"texts and doubles become int, rounded first", at("100", 12.7), doubled, vga,
             "{wm_hposition: int 200, wm_vposition: int 26}"},
            {"position beyond the numbers saturates", at(largest, smallest), doubled, vga,
             "{wm_hposition: int 2147483647, wm_vposition: int -2147483648}"},
            {"negative sizes", at(100, 50), doubled, QSize(-640, -480),
             "{wm_hposition: int -200, wm_vposition: int -100}"},

            {"font size of a text follows the height", text(true), QSize(320, 960), vga, textText("42")},
            {"font size of a text is truncated", text(true), halved, vga, textText("10")},
            {"missing font size of a text is stored as 0", Properties{{"wm_istextwatermark", true}}, doubled, vga,
             textText("0")},
            {"font size of an image stays", text("false"), doubled, vga, textText("21", "string false")},
            {"font size without the text flag stays", Properties{{"wm_fontsize", 21}}, doubled, vga,
             "{wm_fontsize: int 21, wm_hposition: int 0, wm_vposition: int 0}"},
            {"text flag as text", text("true"), doubled, vga, textText("42", "string true")},

            {"image follows the width, not the height", image(200, 100), QSize(320, 960), vga,
             imageText("int 100", "int 50")},
            // 1 / (1 / 93) is a little less than 93.
            {"image: own ratio in doubles, even when its size would not change", image(1, 93), QSize(640, 960), vga,
             imageText("int 1", "int 92")},
            {"image of height 0 is not even rewritten", image("200", "0"), doubled, vga,
             imageText("string 200", "string 0")},
            {"image of width 0 loses its height", image(0, 100), doubled, vga, imageText("int 0", "int 0")},
            {"image size as text becomes int", image("200", "100"), doubled, vga, imageText("int 400", "int 200")},
            {"measured size of a text is an image size too, other properties stay",
             with(image(200, 100), {{"wm_istextwatermark", true}, {"wm_fontsize", 10}, {"wm_transparency", 50}}),
             doubled, vga,
             "{wm_fontsize: int 20, wm_hposition: int 0, wm_imageheight: int 200, wm_imagewidth: int 400, "
             "wm_istextwatermark: bool true, wm_transparency: int 50, wm_vposition: int 0}"},
        });
    }

    void watermarkIsRescaled()
    {
        const auto [properties, newSize, oldSize, expected] = row<Properties, QSize, QSize, QString>();
        ZoEffectModel model;
        const ZoEffectItemData* first = addItem(model, "Watermark", properties);
        const ZoEffectItemData* second = addItem(model, "Watermark", properties);
        model.adjustEffectItem(typeOf(model, "Watermark"), newSize.width(), newSize.height(), oldSize.width(),
                               oldSize.height());
        QCOMPARE(described(first), expected);
        QCOMPARE(described(second), expected);
    }

    // --- The crop

    void cropIsRescaled_data()
    {
        const QSize half(960, 540);
        const Properties wide = cropOf(100, 50, 800, 600);
        const auto ratio = [&wide](const QVariant& keep, const QVariant& name) {
            return with(wide, {{"crop_keepaspectratio", keep}, {"crop_aspectratio", name}});
        };
        addRows<QSize, Properties, QSize, QString>({
            {"half size", fullHd, wide, half, cropText(50, 25, 400, 300)},
            {"frame ratio kept", fullHd, ratio(true, "Original Ratio"), half, cropText(50, 25, 400, 225)},
            {"frame ratio named but not kept", fullHd, ratio(false, "Original Ratio"), half,
             cropText(50, 25, 400, 300)},
            {"flag as text", fullHd, ratio("true", "Original Ratio"), half, cropText(50, 25, 400, 225)},
            {"other ratio kept", fullHd, ratio(true, "16:9"), half, cropText(50, 25, 400, 300)},
            {"original kept", fullHd, ratio(true, "Original"), half, cropText(50, 25, 400, 300)},
            {"other letter case kept", fullHd, ratio(true, "original ratio"), half, cropText(50, 25, 400, 300)},
            {"no ratio kept", fullHd, ratio(true, QVariant()), half, cropText(50, 25, 400, 300)},

            {"size of the whole frame, moved: back to the corner", fullHd, cropOf(100, 50, 1920, 1080), half,
             cropText(0, 0, 960, 540)},
            {"width 0: the whole frame", fullHd, cropOf(100, 50, 0, 600), half, cropText(0, 0, 960, 540)},
            {"height 0: the whole frame", fullHd, cropOf(100, 50, 800, 0), half, cropText(0, 0, 960, 540)},
            {"size of the source: the whole frame", fullHd, cropOf(100, 50, "source_val", "source_val"), half,
             cropText(0, 0, 960, 540)},
            {"full width, half the height", fullHd, cropOf(0, 270, 1920, 540), half, cropText(0, 135, 960, 270)},
            {"larger than the frame", fullHd, cropOf(-101, -51, 2000, 1100), half, cropText(-50, -25, 1000, 550)},
            {"texts are read as numbers", fullHd, cropOf("100", "50", "800", "600"), half, cropText(50, 25, 400, 300)},
            {"missing position is 0", fullHd, Properties{{"crop_width", 800}, {"crop_height", 600}}, half,
             cropText(0, 0, 400, 300)},
            {"smallest size and rotation are not looked at", fullHd,
             with(cropOf(100, 50, 30, 20), {{"crop_minwidth", 24}, {"crop_rotation_angle", 90}}), half,
             "crop_height: int 10, crop_left: int 50, crop_minwidth: int 24, crop_rotation_angle: int 90, crop_top: "
             "int 25, crop_width: int 15"},

            // Taken from the height when top and height reach the height of the old frame.
            {"only the height halves: the rectangle does not shrink", vga, cropOf(100, 50, 300, 200), QSize(640, 240),
             cropText(100, 25, 300, 200)},
            {"one pixel short of the old height", vga, cropOf(0, 79, 320, 200), QSize(1280, 480),
             cropText(0, 79, 640, 400)},
            {"exactly the old height", vga, cropOf(0, 80, 320, 200), QSize(1280, 480), cropText(0, 80, 320, 200)},
            // 640 / (1280 / 960) = 480.
            {"frame ratio, taken from the height", vga,
             with(cropOf(0, 0, 320, 200), {{"crop_keepaspectratio", true}, {"crop_aspectratio", "Original Ratio"}}),
             doubled, cropText(0, 0, 533, 400)},
        });
    }

    void cropIsRescaled()
    {
        const auto [oldSize, properties, newSize, expected] = row<QSize, Properties, QSize, QString>();
        ZoEffectModel model("Crop", properties);
        SignalRecorder recorder(model);
        model.setVideoSize(oldSize.width(), oldSize.height());
        model.adjustEffectInfo(newSize.width(), newSize.height());

        // What the table does not name stays as it was.
        for (const char* key : {"crop_keepaspectratio", "crop_aspectratio"}) {
            QCOMPARE(typeOf(model, "Crop")->data(key), properties.value(key));
            typeOf(model, "Crop")->delData(key);
        }
        QCOMPARE(described(typeOf(model, "Crop")), "{" + expected + "}");
        QCOMPARE(recorder.take(), QStringList());
    }

    void uncheckedCropBecomesTheWholeFrame()
    {
        for (const int checkState : {0, 1, 2, 3}) {
            ZoEffectModel model("Crop", cropOf(100, 50, 800, 600));
            model.setVideoSize(1920, 1080);
            typeOf(model, "Crop")->setCheckState(checkState);
            model.adjustEffectInfo(960, 540);
            QCOMPARE(described(typeOf(model, "Crop")),
                     "{" + (checkState == 2 ? cropText(50, 25, 400, 300) : cropText(0, 0, 960, 540)) + "}");
            QCOMPARE(typeOf(model, "Crop")->checkState(), checkState);
        }
    }

    void cropIsJudgedByTheBaseSize_data()
    {
        addRows<QSize, QSize, QSize, QString>({
            {"crop of the named frame, whole of the base frame", QSize(800, 600), fullHd, QSize(960, 540),
             cropText(0, 0, 960, 540)},
            {"whole of the named frame, crop of the base frame", fullHd, QSize(800, 600), QSize(400, 300),
             cropText(50, 25, 400, 300)},
            {"without a base size nothing is cropped", QSize(0, 0), fullHd, QSize(960, 540), cropText(0, 0, 960, 540)},
        });
    }

    void cropIsJudgedByTheBaseSize()
    {
        const auto [baseSize, oldSize, newSize, expected] = row<QSize, QSize, QSize, QString>();
        ZoEffectModel model("Crop", cropOf(100, 50, 800, 600));
        model.setVideoSize(baseSize.width(), baseSize.height());
        model.adjustEffectItem(typeOf(model, "Crop"), newSize.width(), newSize.height(), oldSize.width(),
                               oldSize.height());
        QCOMPARE(described(typeOf(model, "Crop")), "{" + expected + "}");
    }

    void cropOfAnotherTreeIsJudgedByTheModelsOwn_data()
    {
        addRows<Properties, QString>({
            // It would be no crop of the model itself; halved, 25 + 240 stay below 480.
            {"as large as the frame", cropOf(100, 50, 640, 480), cropText(50, 25, 320, 240)},
            {"without height", cropOf(100, 50, 300, 0), cropText(50, 25, 150, 0)},
            {"without size", cropOf(100, 50, 0, 0), cropText(50, 25, 0, 0)},
        });
    }

    void cropOfAnotherTreeIsJudgedByTheModelsOwn()
    {
        const auto [properties, expected] = row<Properties, QString>();
        ZoEffectModel model("Crop", cropOf(1, 2, 300, 200));
        model.setVideoSize(640, 480);
        ZoEffectItemData foreign("Crop");
        store(&foreign, properties);
        model.adjustEffectItem(&foreign, 320, 240, 640, 480);
        QCOMPARE(described(&foreign), "{" + expected + "}");
        QCOMPARE(described(typeOf(model, "Crop")), "{" + cropText(1, 2, 300, 200) + "}");
    }

    void isCroped_data()
    {
        addRows<QSize, int, Properties, QString>({
            {"part of the frame", vga, 2, cropOf(10, 20, 300, 200), "10,20 300x200"},
            {"unchecked", vga, 0, cropOf(10, 20, 300, 200), ""},
            {"partly checked", vga, 1, cropOf(10, 20, 300, 200), ""},
            {"another state", vga, 3, cropOf(10, 20, 300, 200), ""},
            {"nothing stored", vga, 2, {}, ""},
            {"width 0", vga, 2, cropOf(10, 20, 0, 200), ""},
            {"height 0", vga, 2, cropOf(10, 20, 300, 0), ""},
            {"width is a word", vga, 2, cropOf(10, 20, "source_val", 200), ""},
            {"size of the whole frame, moved, as text", vga, 2, cropOf(100, 50, "640", 480), ""},
            {"full width", vga, 2, cropOf(0, 0, 640, 479), "0,0 640x479"},
            {"full height", vga, 2, cropOf(0, 0, 639, 480), "0,0 639x480"},
            {"negative", vga, 2, cropOf(-10, -20, -10, -10), "-10,-20 -10x-10"},
            {"missing position", vga, 2, Properties{{"crop_width", 300}, {"crop_height", 200}}, "0,0 300x200"},
            {"texts and doubles", vga, 2, cropOf("10", 20.5, "300", 200.4), "10,21 300x200"},
            {"no base size", QSize(0, 0), 2, cropOf(10, 20, 300, 200), ""},
            {"base width 0", QSize(0, 480), 2, cropOf(10, 20, 300, 200), ""},
            {"base height 0", QSize(640, 0), 2, cropOf(10, 20, 300, 200), "10,20 300x200"},
            {"negative base size", QSize(-640, -480), 2, cropOf(10, 20, 300, 200), "10,20 300x200"},
        });
    }

    void isCroped()
    {
        const auto [baseSize, checkState, properties, crop] = row<QSize, int, Properties, QString>();
        ZoEffectModel model("Crop", properties);
        model.setVideoSize(baseSize.width(), baseSize.height());
        typeOf(model, "Crop")->setCheckState(checkState);
        QCOMPARE(model.isCroped(baseSize.width(), baseSize.height()), !crop.isEmpty());
        QCOMPARE(described(model.cropData()), crop.isEmpty() ? QString("0,0 0x0, 0, invalid") : crop + ", 0, valid");
    }

    void nothingIsCropedWithoutCropNode()
    {
        ZoEffectModel model(QStringList{"Watermark"});
        model.setVideoSize(640, 480);
        QVERIFY(!model.isCroped(640, 480));
        QCOMPARE(described(model.cropData()), QString("0,0 0x0, 0, invalid"));
        QCOMPARE(described(CropData()), QString("0,0 0x0, 0, invalid"));
    }

    void isCropedIgnoresItsArguments()
    {
        ZoEffectModel cropped("Crop", cropOf(10, 20, 300, 200));
        cropped.setVideoSize(640, 480);
        ZoEffectModel whole("Crop", cropOf(0, 0, 640, 480));
        whole.setVideoSize(640, 480);
        for (const QSize& size : {QSize(0, 0), QSize(300, 200), vga, QSize(largest, smallest)}) {
            QVERIFY(cropped.isCroped(size.width(), size.height()));
            QVERIFY(!whole.isCroped(size.width(), size.height()));
        }
    }

    // --- Subtitles

    void subtitleIsRescaledOncePerTrack_data()
    {
        const auto file = [](const QVariant& flag) {
            return Properties{{"sub_vposition", 101}, {"sub_fontsize", 21}, {"sub_fromfile", flag}};
        };
        const auto above = [](const QVariant& position) { return Properties{{"sub_vposition", position}}; };
        addRows<Properties, int, QSize, QString>({
            {"no track", file(true), 0, halved,
             "{sub_fontsize: int 21, sub_fromfile: bool true, sub_vposition: int 101}"},
            {"no track, nothing stored", {}, 0, halved, "{}"},
            {"two tracks", above(101), 2, halved, "{sub_vposition: int 25}"},
            {"three tracks", above(101), 3, halved, "{sub_vposition: int 12}"},
            {"from a file, one track", file("true"), 1, halved,
             "{sub_fontsize: int 10, sub_fromfile: string true, sub_vposition: int 50}"},
            {"from a file, two tracks", file(true), 2, halved,
             "{sub_fontsize: int 5, sub_fromfile: bool true, sub_vposition: int 25}"},
            {"not from a file", file(false), 1, halved,
             "{sub_fontsize: int 21, sub_fromfile: bool false, sub_vposition: int 50}"},
            // 5 -> 7 -> 10 -> 15; 5 x 1.5^3 would be 16.
            {"each pass starts from the truncated value", above(5), 3, QSize(640, 720), "{sub_vposition: int 15}"},
            {"negative position moves toward zero", above(-101), 2, halved, "{sub_vposition: int -25}"},
            {"only the height counts", above("101"), 1, QSize(1280, 480), "{sub_vposition: int 101}"},
            {"missing values are stored as 0", Properties{{"sub_fromfile", true}}, 1, halved,
             "{sub_fontsize: int 0, sub_fromfile: bool true, sub_vposition: int 0}"},
            {"growth saturates", above(1000), 40, doubled, "{sub_vposition: int 2147483647}"},
            {"the user's mark stays", Properties{{"dvdsubtitleposeditbyuser", true}}, 1, halved,
             "{dvdsubtitleposeditbyuser: bool true, sub_vposition: int 0}"},
        });
    }

    void subtitleIsRescaledOncePerTrack()
    {
        const auto [properties, tracks, newSize, expected] = row<Properties, int, QSize, QString>();
        ZoEffectModel model("Subtitle", properties);
        model.setVideoSize(640, 480);
        for (int i = 0; i < tracks; ++i)
            addItem(model, "Subtitle");
        SignalRecorder recorder(model);
        model.adjustEffectInfo(newSize.width(), newSize.height());
        QCOMPARE(described(typeOf(model, "Subtitle")), expected);
        QCOMPARE(recorder.take(), QStringList());
    }

    void subtitleTracksKeepTheirValues()
    {
        ZoEffectModel model("Subtitle", {{"sub_vposition", 100}});
        model.setVideoSize(640, 480);
        const ZoEffectItemData* track =
            addItem(model, "Subtitle", {{"sub_vposition", 100}, {"sub_fontsize", 20}, {"sub_fromfile", true}});
        typeOf(model, "Subtitle")->appendChild(nullptr); // Counts as a pass.
        model.adjustEffectInfo(1280, 960);
        QCOMPARE(described(track), QString("{sub_fontsize: int 20, sub_fromfile: bool true, sub_vposition: int 100}"));
        QCOMPARE(described(typeOf(model, "Subtitle")), QString("{sub_vposition: int 400}"));
    }
};

ZOEFFECT_TEST_MAIN(TstModelGeometry)

#include "tst_model_geometry.moc"
