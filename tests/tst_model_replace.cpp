// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <climits>
#include <functional>

#include <QPointer>

#include "modeltest.h"

namespace {

using Change = std::function<void(ZoEffectModel&)>;

const Properties styled{{"sub_transparency", 77}};

ZoEffectItemData* subtitles(const ZoEffectModel& model)
{
    return model.getDataItem("Subtitle", -1);
}

/// Subtitle tracks as addTracks() reads them.
void addTracks(const ZoEffectModel& model, const QString& kinds)
{
    addTracks(subtitles(model), "sub_fromfile", kinds);
}

/// The rows of the subtitle tracks that hold the transparency 77.
QList<int> styledRows(const ZoEffectModel& model)
{
    QList<int> rows;
    for (int i = 0; subtitles(model) && i < subtitles(model)->childCount(); ++i) {
        const ZoEffectItemData* track = subtitles(model)->child(i);
        if (track && track->data("sub_transparency") == QVariant(77))
            rows << i;
    }
    return rows;
}

/// The announcements of a reset, by default of subtitles.
QStringList resets(const QList<int>& positions, const QString& type = "Subtitle")
{
    QStringList texts;
    for (const int pos : positions)
        texts << QString("effectDataChanged(%1, reset, invalid, %2)").arg(type).arg(pos);
    return texts;
}

QString place(const ZoEffectItemData* item)
{
    return QString("%1,%2").arg(item->data("wm_hposition").toInt()).arg(item->data("wm_vposition").toInt());
}

/// Calls \a change on each "reset" that \a model announces, with the number of those heard so far.
void onReset(ZoEffectModel& model, const std::function<void(int)>& change)
{
    listen(model, [change, heard = 0](const QString&, const QString& key) mutable {
        if (key == "reset")
            change(++heard);
    });
}

} // namespace

class TstModelReplace : public ModelTest {
    Q_OBJECT

private slots:
    // --- Replacing by properties

    void replacedItemHoldsTheDefaults_data()
    {
        const Rows<QString, Properties, QString> add;
        add("watermark, its factors included", "Watermark",
            {{"wm_hposition", 300}, {"wm_fontsize", 70}, {"wm_vposfactor", 0.9}, {"wm_transparency", 80}},
            "{wm_fontcolor: color #ffffffff, wm_fontname: font Tahoma, wm_fontsize: int 22, wm_fontstyle: string "
            "Regular, wm_hposfactor: double 0.10000000000000001, wm_hposition: int 64, wm_imagekeepratio: bool true, "
            "wm_transfactor: double 2.5499999999999998, wm_transparency: int 0, wm_vposfactor: double "
            "0.10000000000000001, wm_vposition: int 48}");
        add("subtitle, its factor included", "Subtitle",
            {{"sub_fontsize", 70}, {"sub_vposition", 1}, {"fontstyleusedefault", false}},
            "{dvdsubtitleposeditbyuser: bool false, fontstyleusedefault: bool true, sub_fontcolor: color #ffffffff, "
            "sub_fontname: font Tahoma, sub_fontsize: int 22, sub_fontstyle: string Regular, sub_framecolor: color "
            "#ff000000, sub_hposition: int 200, sub_linemargin: int 0, sub_transfactor: double 2.5499999999999998, "
            "sub_transparency: int 0, sub_vposfactor: double 0.80000000000000004, sub_vposition: int 200}");
        add("what the catalogue does not name stays", "Audio",
            {{"play_loop", true}, {"trackid", 7}, {"audio_isfile", true}, {"_checkstate", false}, {"own", QVariant()}},
            "{_checkstate: bool false, audio_isfile: bool true, own: invalid, play_loop: bool false, trackid: int 7}");
        add("colour", "Color", {{"bcs_contrast", 5}},
            "{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}");
        add("speed", "Audio_Speed", {{"audio_speed_factor", 5}},
            "{audio_effect_flag: bool false, audio_speed_factor: int 100}");
    }

    void replacedItemHoldsTheDefaults()
    {
        const auto [type, before, expected] = row<QString, Properties, QString>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        ZoEffectItemData* item = addItem(model, type, before);
        addItem(item, {{"own", 1}});
        const QString typeBefore = described(model.getDataItem(type, -1)->properties());

        QCOMPARE(model.replaceData(type, 0, Properties{}), true);

        QCOMPARE(model.getDataItem(type, 0), item);
        QCOMPARE(tree(item), ":2" + expected + "[:2{own: int 1}[]]");
        QCOMPARE(described(model.getDataItem(type, -1)->properties()), typeBefore);
    }

    void propertiesOfTheCallerWin_data()
    {
        const Rows<QString, Properties, Properties, QStringList, QString> add;
        add("over the custom default", "Color", {{"bcs_contrast", 5}, {"bcs_saturation", 6}}, {{"bcs_contrast", 9}},
            {"bcs_contrast", "bcs_saturation"}, "{bcs_contrast: int 9, bcs_saturation: int 6}");
        add("over the place by factors", "Watermark", {}, {{"wm_hposition", 7}}, {"wm_hposition", "wm_vposition"},
            "{wm_hposition: int 7, wm_vposition: int 48}");
        add("factors", "Watermark", {}, {{"wm_hposfactor", 0.5}}, {"wm_hposition", "wm_hposfactor"},
            "{wm_hposfactor: double 0.5, wm_hposition: int 64}");
        add("over the flag of an edited position", "Subtitle", {},
            {{"dvdsubtitleposeditbyuser", true}, {"sub_vposition", 9}}, {"dvdsubtitleposeditbyuser", "sub_vposition"},
            "{dvdsubtitleposeditbyuser: bool true, sub_vposition: int 9}");
        add("with an invalid value, and a key that the catalogue lacks", "Audio", {},
            {{"play_loop", QVariant()}, {"own", "x"}}, {"play_loop", "own"}, "{own: string x, play_loop: invalid}");
    }

    void propertiesOfTheCallerWin()
    {
        const auto [type, saved, props, keys, expected] = row<QString, Properties, Properties, QStringList, QString>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        addItem(model, type);
        if (!saved.isEmpty())
            saveCustomDefault(type, saved);

        QVERIFY(model.replaceData(type, 0, props));

        QCOMPARE(chosen(model.getDataItem(type, 0), keys), expected);
    }

    void checkStateChangesOnlyWhenTold_data()
    {
        const Rows<int, Properties, int> add;
        add("unselected, not told", 0, {}, 0);
        add("partly selected, not told", 1, {}, 1);
        add("selected, told false", 2, {{"_checkstate", false}}, 0);
        add("unselected, told 1", 0, {{"_checkstate", 1}}, 2);
        add("selected, told an invalid value", 2, {{"_checkstate", QVariant()}}, 0);
    }

    void checkStateChangesOnlyWhenTold()
    {
        const auto [before, props, expected] = row<int, Properties, int>();
        ZoEffectModel model;
        addItem(model, "Audio", {}, before);

        QVERIFY(model.replaceData("Audio", 0, props));

        QCOMPARE(tree(model.getDataItem("Audio", 0)), QString(":%1{play_loop: bool false}[]").arg(expected));
    }

    void watermarkGoesBackToTheFactorsOfTheBaseSize()
    {
        const QList<QPair<QSize, QString>> places{
            {{859, 489}, "85,48"}, {{0, 0}, "0,0"}, {{-645, -19}, "-64,-1"}}; // Truncated, not rounded.
        for (const auto& expected : places) {
            ZoEffectModel model;
            model.setVideoSize(expected.first.width(), expected.first.height());
            addItem(model, "Watermark", {{"wm_hposition", 500}, {"wm_hposfactor", 0.7}, {"wm_vposfactor", 0.7}});

            QVERIFY(model.replaceData("Watermark", 0, Properties{}));

            QCOMPARE(place(model.getDataItem("Watermark", 0)), expected.second);
        }
    }

    void replacedWatermarkMayOverlapOthers()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        QVERIFY(model.addDataItem("Watermark", {}));
        QVERIFY(model.addDataItem("Watermark", {}));

        QVERIFY(model.replaceData("Watermark", 1, Properties{}));

        // No free place is looked for.
        QCOMPARE(place(model.getDataItem("Watermark", 0)), QString("64,48"));
        QCOMPARE(place(model.getDataItem("Watermark", 1)), QString("64,48"));
    }

    void customDefaultGoesByTheFormerKindOfTheItem_data()
    {
        const Rows<QString, Properties, Properties, Properties, QString> add;
        const Properties watermark{{"wm_transparency", 40}, {"wm_fontsize", 33}};
        add("image watermark", "Watermark", watermark, {}, {},
            "{wm_fontsize: int 22, wm_hposition: int 30, wm_transparency: int 40}");
        add("image watermark that becomes a text", "Watermark", watermark, {{"wm_istextwatermark", false}},
            {{"wm_istextwatermark", true}},
            "{wm_fontsize: int 22, wm_hposition: int 30, wm_istextwatermark: bool true, wm_transparency: int 40}");
        add("text watermark that becomes an image", "Watermark", watermark, {{"wm_istextwatermark", true}},
            {{"wm_istextwatermark", false}},
            "{wm_fontsize: int 33, wm_hposition: int 30, wm_istextwatermark: bool false, wm_transparency: int 40}");
        add("empty custom default keeps the catalogue's place", "Watermark", {}, {}, {},
            "{wm_fontsize: int 22, wm_hposition: int 30, wm_transparency: int 0}");

        const Properties subtitle{{"sub_transparency", 12}, {"sub_fontsize", 30}, {"sub_vposfactor", 0.5}};
        add("embedded subtitle that becomes one from a file", "Subtitle", subtitle, {}, {{"sub_fromfile", true}},
            "{sub_fontsize: int 22, sub_fromfile: bool true, sub_transparency: int 12, sub_vposfactor: double "
            "0.80000000000000004}");
        add("subtitle from a file that becomes embedded", "Subtitle", subtitle, {{"sub_fromfile", true}},
            {{"sub_fromfile", false}},
            "{sub_fontsize: int 30, sub_fromfile: bool false, sub_transparency: int 12, sub_vposfactor: double 0.5}");

        add("audio takes all", "Audio", {{"play_loop", true}, {"own", 1}}, {}, {},
            "{own: int 1, play_loop: bool true}");
    }

    void customDefaultGoesByTheFormerKindOfTheItem()
    {
        const auto [type, saved, before, props, expected] = row<QString, Properties, Properties, Properties, QString>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        saveCustomDefault(type, saved);
        addItem(model, type, before);

        QVERIFY(model.replaceData(type, 0, props));

        QCOMPARE(chosen(model.getDataItem(type, 0),
                        {"wm_transparency", "wm_fontsize", "wm_istextwatermark", "wm_hposition", "sub_transparency",
                         "sub_fontsize", "sub_vposfactor", "sub_fromfile", "play_loop", "own"}),
                 expected);
        QCOMPARE(model.editByDefault(), type == "Audio");
    }

    void savedPlaceGoesByTheOtherWatermarks_data()
    {
        const Rows<int, int, QString> add;
        add("alone", 0, 0, "320,120");
        add("one other: never taken", 1, 0, "30,30");
        add("two others", 2, 0, "320,120");
        add("three others: never taken", 3, 0, "30,30");
        add("one unselected other", 0, 1, "320,120");
    }

    void savedPlaceGoesByTheOtherWatermarks()
    {
        const auto [selectedOthers, unselectedOthers, expected] = row<int, int, QString>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        saveCustomDefault("Watermark", {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.25}});
        addItem(model, "Watermark", {{"wm_hposition", 500}, {"wm_vposition", 400}});
        for (int i = 0; i < selectedOthers + unselectedOthers; ++i)
            addItem(model, "Watermark", {{"wm_hposition", 0}, {"wm_vposition", 300}}, i < selectedOthers ? 2 : 0);

        QVERIFY(model.replaceData("Watermark", 0, Properties{}));

        QCOMPARE(place(model.getDataItem("Watermark", 0)), expected);
    }

    void positionOfASubtitleCountsAsNotEdited()
    {
        for (const Properties& saved : {Properties{}, Properties{{"dvdsubtitleposeditbyuser", true}}}) {
            ZoEffectModel model;
            model.setVideoSize(640, 500);
            if (!saved.isEmpty())
                saveCustomDefault("Subtitle", saved);
            addItem(model, "Subtitle", {{"dvdsubtitleposeditbyuser", true}, {"sub_fromfile", true}});

            QVERIFY(model.replaceData("Subtitle", 0, Properties{}));

            QCOMPARE(described(subtitles(model)->child(0)->data("dvdsubtitleposeditbyuser")), QString("bool false"));
            // So the position follows the video height again: 500 x 0.8.
            QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QString("double 400"));
        }
    }

    void replacingAnnouncesItsPosition_data()
    {
        const Rows<QString, int> add;
        add("last watermark", "Watermark", 2);
        add("subtitle", "Subtitle", 1);
        add("audio", "Audio", 0);
        add("frame effect", "Effect", 3);
    }

    void replacingAnnouncesItsPosition()
    {
        const auto [type, pos] = row<QString, int>();
        ZoEffectModel model;
        for (int i = 0; i < 3; ++i)
            addItem(model, type);
        SignalRecorder recorder(model);

        QCOMPARE(model.replaceData(type, pos, Properties{{"own", 1}, {"_checkstate", false}}), true);

        QCOMPARE(described(model.data("own", type, pos)), QString("int 1"));
        QCOMPARE(model.getDataItem(type, pos)->checkState(), 0);
        QCOMPARE(recorder.take(), resets({pos}, type));
        QCOMPARE(model.editByUser(), false);
    }

    void replacingWhatIsNotThereIsLogged_data()
    {
        const Rows<QString, int, int> add;
        add("unknown type", "Rotation", 0, 969);
        add("unknown type, -1", "Rotation", -1, 969);
        add("other letter case", "audio", 0, 969);
        add("no name", "", 0, 966); // An item without name answers to it, and has no items.
        add("the type itself", "Audio", -1, 966);
        add("-2", "Audio", -2, 966);
        add("right behind the end", "Audio", 1, 966);
        add("greatest int", "Audio", INT_MAX, 966);
        add("null entry", "Color", 0, 966);
    }

    void replacingWhatIsNotThereIsLogged()
    {
        const auto [type, pos, event] = row<QString, int, int>();
        ZoEffectModel model;
        addItem(model, "Audio", {{"play_loop", true}});
        model.getDataItem("Color", -1)->appendChild(nullptr);
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);

        QCOMPARE(model.replaceData(type, pos, Properties{{"own", 1}}), false);

        QCOMPARE(logcapture::takeEvents(), QList<int>{event});
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(tree(rootOf(model)), before);
    }

    void replacingWithTheItemsOwnPropertiesKeepsThem()
    {
        ZoEffectModel model;
        addItem(model, "Audio", {{"play_loop", true}, {"trackid", 3}});

        QVERIFY(model.replaceData("Audio", 0, model.getDataItem("Audio", 0)->properties()));

        QCOMPARE(tree(model.getDataItem("Audio", 0)), QString(":2{play_loop: bool true, trackid: int 3}[]"));
    }

    void listenerMayDeleteTheReplacedItem()
    {
        ZoEffectModel model;
        addItem(model, "Audio");
        addItem(model, "Audio");
        onReset(model, [&](int) { model.delDataItem("Audio", 0); });

        QCOMPARE(model.replaceData("Audio", 0, Properties{}), true);
        QCOMPARE(model.childCount("Audio"), 1);

        // A copy of a node as well; here the source goes, too.
        addItem(model, "Audio");
        onReset(model, [&](int) { model.delDataItem("Audio", 0); });
        model.replaceData("Audio", 0, model.getDataItem("Audio", 1));
        QCOMPARE(model.childCount("Audio"), 0);
    }

    // --- Replacing by a node

    void copiedNodeIsDeep()
    {
        ZoEffectModel model;
        for (const char* tag : {"a", "b", "c"})
            addItem(model, "Audio", {{"tag", tag}});
        ZoEffectItemData* target = model.getDataItem("Audio", 1);
        const QPointer<ZoEffectItemData> oldChild = addItem(target, {{"old", 2}});
        int hostData = 0;
        ZoEffectItemData source("source");
        source.setData("new", 3);
        source.setCheckState(0);
        source.setInternalData(&hostData);
        source.appendChild(nullptr); // Null entries are not copied.
        auto* child = new ZoEffectItemData("child", &source);
        child->setCheckState(1);
        new ZoEffectItemData("grandchild", child);

        model.replaceData("Audio", 1, &source);

        QVERIFY(oldChild.isNull());
        QCOMPARE(model.getDataItem("Audio", 1), target);
        QCOMPARE(target->parent(), model.getDataItem("Audio", -1));
        QCOMPARE(tree(target->parent()), QString("Audio:2{play_loop: bool false}[:2{tag: string a}[] source:0{new: int "
                                                 "3}[child:1{}[grandchild:2{}[]]] :2{tag: string c}[]]"));
        QCOMPARE(target->objectName(), QString("source"));
        QVERIFY(target->internalData() == &hostData);
        QVERIFY(target->child(0) != child);
        QVERIFY(target->child(0)->parent() == target);
        QVERIFY(target->child(0)->child(0)->parent() == target->child(0));
        QCOMPARE(tree(&source), QString("source:0{new: int 3}[null child:1{}[grandchild:2{}[]]]"));
    }

    void typeNodeIsCopiedWithItsWholeList()
    {
        ZoEffectModel model;
        addItem(model, "Subtitle", {{"tag", "old"}});
        ZoEffectModel other;
        other.setVideoSize(320, 240);
        addItem(other, "Subtitle", {{"tag", "a"}});
        addItem(other, "Subtitle", {{"tag", "b"}}, 0);
        addTracks(other, "ff");
        other.replaceItemDataProperty("Subtitle", styled);
        subtitles(other)->setCheckState(0);
        const QString source = tree(subtitles(other));
        SignalRecorder recorder(model);
        SignalRecorder otherRecorder(other);

        model.replaceData("Subtitle", -1, subtitles(other));

        QCOMPARE(subtitles(model)->parent(), rootOf(model));
        QCOMPARE(subtitles(model)->childNumber(), 2);
        QCOMPARE(tree(subtitles(model)), source);
        QCOMPARE(model.baseSize(), QSize(0, 0));
        QCOMPARE(model.editByUser(), false); // What the other model's user did stays there.
        QCOMPARE(recorder.take(), resets({-1}));
        QCOMPARE(otherRecorder.take(), QStringList());

        // Neither changes with the other from now on.
        subtitles(model)->child(0)->setData("tag", "mine");
        QCOMPARE(tree(subtitles(other)), source);
    }

    void copyAnnouncesItsPosition()
    {
        const QList<QPair<QString, int>> places{{"Audio", -1}, {"Audio", 2}, {"Watermark", -1}, {"Effect", 3}};
        for (const auto& target : places) {
            ZoEffectModel model;
            for (int i = 0; i < 3; ++i)
                addItem(model, target.first);
            ZoEffectItemData source(target.first);
            source.setData("own", 1);
            SignalRecorder recorder(model);

            model.replaceData(target.first, target.second, &source);

            QCOMPARE(described(model.data("own", target.first, target.second)), QString("int 1"));
            QCOMPARE(recorder.take(), resets({target.second}, target.first));
        }
    }

    void copyingOntoNothingOrItselfIsLogged_data()
    {
        const Rows<QString, int, QString, int, int> add;
        add("nothing onto a list", "Audio", -1, "", -1, 1029);
        add("nothing onto an item", "Audio", 0, "", -1, 1029);
        add("nothing onto nothing", "Audio", 9, "", -1, 1029);
        add("item onto itself", "Audio", 0, "Audio", 0, 1026);
        add("list onto itself", "Audio", -1, "Audio", -1, 1026);
        add("root onto itself", "effect root", -1, "effect root", -1, 1026);
        add("type onto itself through the root", "effect root", 3, "Audio", -1, 1026);
        add("behind the end", "Audio", 1, "Audio", 0, 1026);
        add("-2", "Audio", -2, "Audio", 0, 1026);
        add("unknown type", "Rotation", -1, "Audio", 0, 1026);
        add("other letter case", "audio", -1, "Audio", 0, 1026);
    }

    void copyingOntoNothingOrItselfIsLogged()
    {
        const auto [type, pos, sourceType, sourcePos, event] = row<QString, int, QString, int, int>();
        ZoEffectModel model;
        addItem(model, "Audio", {{"tag", "a"}})->setObjectName("named");
        rootOf(model)->child(3)->child(0)->setCheckState(0);
        const ZoEffectItemData* source = sourceType.isEmpty() ? nullptr : model.getDataItem(sourceType, sourcePos);
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);

        model.replaceData(type, pos, source);

        QCOMPARE(logcapture::takeEvents(), QList<int>{event});
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(tree(rootOf(model)), before);
    }

    void copiedWatermarksAreRescaled_data()
    {
        const Rows<QSize, QSize, QString, QString> add;
        add("twice the size", QSize(640, 480), QSize(1280, 960),
            "{wm_fontsize: int 40, wm_hposition: int 202, wm_istextwatermark: bool true, wm_vposition: int 102}",
            "{wm_fontsize: int 20, wm_hposition: int 640, wm_imageheight: int 100, wm_imagewidth: int 200, "
            "wm_vposition: int -30}");
        add("half the width: the picture follows it, the font does not", QSize(640, 480), QSize(320, 480),
            "{wm_fontsize: int 20, wm_hposition: int 50, wm_istextwatermark: bool true, wm_vposition: int 51}",
            "{wm_fontsize: int 20, wm_hposition: int 160, wm_imageheight: int 25, wm_imagewidth: int 50, wm_vposition: "
            "int -15}");
        add("higher only: the font follows the height, the picture does not", QSize(640, 480), QSize(640, 960),
            "{wm_fontsize: int 40, wm_hposition: int 101, wm_istextwatermark: bool true, wm_vposition: int 102}",
            "{wm_fontsize: int 20, wm_hposition: int 320, wm_imageheight: int 50, wm_imagewidth: int 100, "
            "wm_vposition: int -30}");
        const char* sameText =
            "{wm_fontsize: int 20, wm_hposition: int 101, wm_istextwatermark: bool true, wm_vposition: int 51}";
        const char* sameImage = "{wm_fontsize: int 20, wm_hposition: int 320, wm_imageheight: int 50, wm_imagewidth: "
                                "int 100, wm_vposition: int -15}";
        add("same size", QSize(640, 480), QSize(640, 480), sameText, sameImage);
        add("from no height", QSize(640, 0), QSize(320, 240), sameText, sameImage);
        add("to no width", QSize(640, 480), QSize(0, 240), sameText, sameImage);
    }

    void copiedWatermarksAreRescaled()
    {
        const auto [from, to, text, image] = row<QSize, QSize, QString, QString>();
        ZoEffectModel other;
        other.setVideoSize(from.width(), from.height());
        addItem(other, "Watermark",
                {{"wm_hposition", 101}, {"wm_vposition", 51}, {"wm_istextwatermark", true}, {"wm_fontsize", 20}});
        addItem(other, "Watermark",
                {{"wm_hposition", 320},
                 {"wm_vposition", -15},
                 {"wm_imagewidth", 100},
                 {"wm_imageheight", 50},
                 {"wm_fontsize", 20}},
                0);
        const QString source = tree(rootOf(other));
        ZoEffectModel model;
        model.setVideoSize(to.width(), to.height());
        SignalRecorder recorder(model);

        model.replaceData("Watermark", -1, other.getDataItem("Watermark", -1));

        QCOMPARE(model.childCount("Watermark"), 2);
        QCOMPARE(tree(model.getDataItem("Watermark", 0)), ":2" + text + "[]");
        QCOMPARE(tree(model.getDataItem("Watermark", 1)), ":0" + image + "[]");
        // Neither size changes, nor does the source.
        QCOMPARE(model.baseSize(), to);
        QCOMPARE(tree(rootOf(other)), source);
        QCOMPARE(recorder.take(), resets({-1}, "Watermark"));
    }

    void onlyTypesOfAnotherModelAreRescaled()
    {
        ZoEffectModel other;
        other.setVideoSize(640, 480);
        ZoEffectItemData* otherItem = addItem(other, "Watermark", {{"wm_hposition", 101}});
        addItem(otherItem, {{"wm_hposition", 101}});
        const ZoEffectItemData freeCopy(*other.getDataItem("Watermark", -1));
        ZoEffectModel model;
        model.setVideoSize(1280, 960);
        addItem(model, "Watermark");
        ZoEffectItemData* own = addItem(model, "Watermark", {{"wm_hposition", 102}});
        const QString item = ":2{wm_hposition: int 101}[:2{wm_hposition: int 101}[]]";

        model.replaceData("Watermark", 0, otherItem);
        QCOMPARE(tree(model.getDataItem("Watermark", 0)), item);
        model.replaceData("Watermark", 0, own);
        QCOMPARE(tree(model.getDataItem("Watermark", 0)), QString(":2{wm_hposition: int 102}[]"));
        model.replaceData("Watermark", -1, &freeCopy);
        QCOMPARE(tree(model.getDataItem("Watermark", 0)), item);
        model.replaceData("Watermark", -1, otherItem); // Which has no name.
        QCOMPARE(tree(rootOf(model)->child(1)), item);
    }

    void typeNodeCopiedOntoAWatermarkItemIsRescaled()
    {
        ZoEffectModel other;
        other.setVideoSize(640, 480);
        addItem(other, "Watermark", {{"wm_hposition", 101}});
        ZoEffectModel model;
        model.setVideoSize(1280, 960);
        addItem(model, "Watermark", {{"wm_hposition", 7}});
        addItem(model, "Watermark", {{"wm_hposition", 7}});

        model.replaceData("Watermark", 1, other.getDataItem("Watermark", -1));

        QCOMPARE(described(model.data("wm_hposition", "Watermark", 0)), QString("int 7"));
        const ZoEffectItemData* target = model.getDataItem("Watermark", 1);
        QCOMPARE(target->name(), QString("Watermark"));
        QCOMPARE(described(target->data("wm_hposition")), QString("int 30"));
        QCOMPARE(described(target->child(0)->data("wm_hposition")), QString("int 202"));
    }

    void otherTypeCopiedOntoTheWatermarksIsRescaledAsItself()
    {
        ZoEffectModel other;
        other.setVideoSize(640, 480);
        subtitles(other)->setData("sub_vposition", 100);
        addTracks(other, "ee");
        other.getDataItem("Crop", -1)->setData("crop_left", 100);

        // Onto its own type nothing is rescaled.
        ZoEffectModel model;
        model.setVideoSize(1280, 960);
        model.replaceData("Subtitle", -1, subtitles(other));
        QCOMPARE(described(subtitles(model)->data("sub_vposition")), QString("int 100"));
        model.replaceData("Crop", -1, other.getDataItem("Crop", -1));
        QCOMPARE(described(model.data("crop_left", "Crop", -1)), QString("int 100"));

        // The type decides whether to rescale, the name of the copied node what: a subtitle list once per item.
        model.replaceData("Watermark", -1, subtitles(other));
        QCOMPARE(rootOf(model)->child(1)->name(), QString("Subtitle"));
        QCOMPARE(described(rootOf(model)->child(1)->data("sub_vposition")), QString("int 400"));

        // A crop that does not apply becomes the whole frame.
        ZoEffectModel cropped;
        cropped.setVideoSize(1280, 960);
        cropped.replaceData("Watermark", -1, other.getDataItem("Crop", -1));
        QCOMPARE(rootOf(cropped)->child(1)->name(), QString("Crop"));
        QCOMPARE(chosen(rootOf(cropped)->child(1), {"crop_left", "crop_top", "crop_width", "crop_height"}),
                 QString("{crop_height: int 960, crop_left: int 0, crop_top: int 0, crop_width: int 1280}"));
    }

    void treeOfAHostIsRescaledFromItsRoot_data()
    {
        const Rows<QString, QVariant, QVariant, QString> add;
        add("texts", "effect root", "320", "480", "40,10");
        add("doubles, rounded", "effect root", 319.7, 239.6, "40,20");
        add("negative width", "effect root", -320, 240, "-40,20");
        add("no size", "effect root", QVariant(), QVariant(), "20,10");
        add("no number", "effect root", "wide", 240, "20,10");
        add("other letter case is no root", "Effect root", 320, 240, "20,10");
        add("a blank at the end is no root", "effect root ", 320, 240, "20,10");
        add("no name is no root", "", 320, 240, "20,10");
    }

    void treeOfAHostIsRescaledFromItsRoot()
    {
        const auto [name, w, h, expected] = row<QString, QVariant, QVariant, QString>();
        ZoEffectItemData hostRoot(name);
        hostRoot.setData("w", w);
        hostRoot.setData("h", h);
        auto* list = new ZoEffectItemData("Watermark", &hostRoot);
        addItem(list, {{"wm_hposition", 20}, {"wm_vposition", 10}});
        ZoEffectModel model;
        model.setVideoSize(640, 480);

        model.replaceData("Watermark", -1, list);

        QCOMPARE(place(model.getDataItem("Watermark", 0)), expected);
    }

    void typeNodeMayBecomeOneOfItsItems()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        addItem(model, "Watermark", {{"tag", "a"}});
        ZoEffectItemData* item = addItem(model, "Watermark", {{"tag", "b"}, {"wm_hposition", 9}}, 0);
        addItem(item, {{"tag", "below"}});
        SignalRecorder recorder(model);

        model.replaceData("Watermark", -1, item);

        // With the item's name, so that the type is not found any more.
        QCOMPARE(tree(rootOf(model)->child(1)),
                 QString(":0{tag: string b, wm_hposition: int 9}[:2{tag: string below}[]]"));
        QVERIFY(model.getDataItem("Watermark", -1) == nullptr);
        QCOMPARE(recorder.take(), resets({-1}, "Watermark"));
    }

    void itemMayBecomeWhatIsAboveIt()
    {
        ZoEffectModel model(QStringList{"Audio"});
        addItem(model, "Audio", {{"tag", "a"}});
        addItem(model, "Audio", {{"tag", "b"}});
        SignalRecorder recorder(model);
        model.replaceData("Audio", 0, model.getDataItem("Audio", -1));
        QCOMPARE(tree(rootOf(model)),
                 QString("effect root:2{}[Audio:2{play_loop: bool false}[Audio:2{play_loop: bool false}[:2{tag: string "
                         "a}[] :2{tag: string b}[]] :2{tag: string b}[]]]"));
        QCOMPARE(recorder.take(), resets({0}, "Audio"));

        ZoEffectModel whole(QStringList{"Audio"});
        addItem(whole, "Audio", {{"tag", "a"}});
        whole.replaceData("Audio", 0, rootOf(whole));
        QCOMPARE(tree(rootOf(whole)),
                 QString("effect root:2{}[Audio:2{play_loop: bool false}[effect root:2{}[Audio:2{play_loop: bool "
                         "false}[:2{tag: string a}[]]]]]"));
    }

    void rootMayBecomeOneOfItsTypes()
    {
        ZoEffectModel model(QStringList{"Audio", "Color"});
        model.setVideoSize(640, 480);
        addItem(model, "Audio", {{"tag", "a"}});
        SignalRecorder recorder(model);

        model.replaceData("effect root", -1, model.getDataItem("Audio", -1));

        // The first node of that name is the root itself now.
        QCOMPARE(tree(model.getDataItem("Audio", -1)), QString("Audio:2{play_loop: bool false}[:2{tag: string a}[]]"));
        QVERIFY(model.getDataItem("Audio", -1)->parent() == nullptr);
        QVERIFY(model.getDataItem("effect root", -1) == nullptr);
        QCOMPARE(model.baseSize(), QSize(0, 0));
        QCOMPARE(recorder.take(), resets({-1}, "effect root"));
    }

    // --- Spreading a subtitle style

    void styleReachesFewTracks_data()
    {
        const Rows<QString, QList<int>, QList<int>> add;
        add("one embedded", "e", {0}, {5});
        add("one from a file", "f", {0}, {7});
        add("embedded, then from a file", "ef", {0}, {5});
        add("from a file, then embedded", "fe", {0}, {7});
        add("six embedded: one too few for a second", "eeeeee", {0}, {5});
        add("seven embedded", "eeeeeee", {0, 6}, {5, 5});
        add("twenty embedded", "eeeeeeeeeeeeeeeeeeee", {0, 6}, {5, 5});
        add("eight from files: one too few for a second", "ffffffff", {0}, {7});
        add("nine from files", "fffffffff", {0, 8}, {7, 7});
        add("twenty from files", "ffffffffffffffffffff", {0, 8}, {7, 7});
        add("six embedded, one from a file", "eeeeeef", {0, 6}, {5, 7});
        add("six embedded, three from files", "eeeeeefff", {0, 6, 8}, {5, 7, 7});
        add("from a file, eight embedded: back to the seventh", "feeeeeeee", {0, 6, 8}, {7, 5, 5});
        add("eight from files, one embedded: back to the seventh", "ffffffffe", {0, 6, 8}, {7, 5, 7});
        add("embedded first, from files after it", "effffffff", {0, 6, 8}, {5, 7, 7});
        add("no track", "", {}, {});
        add("nothing but null entries", "----------", {}, {});
        add("null entry, then from a file", "-f", {1}, {7});
        add("null entries, then the seventh embedded", "------e", {6}, {5});
        add("null entry at the seventh place", "eeeeee-ee", {0, 7}, {5, 5});
        add("null entry at the ninth place", "ffffffff-f", {0, 9}, {7, 7});
        add("null entries from the seventh place on", "eeeeee--", {0}, {5});
    }

    void styleReachesFewTracks()
    {
        const auto [tracks, reached, announced] = row<QString, QList<int>, QList<int>>();
        ZoEffectModel model;
        addTracks(model, tracks);
        SignalRecorder recorder(model);

        model.replaceItemDataProperty("Subtitle", styled);

        QCOMPARE(styledRows(model), reached);
        QCOMPARE(recorder.take(), resets(announced));
        QCOMPARE(model.childCount("Subtitle"), int(tracks.size()));
        QCOMPARE(model.editByUser(), !tracks.isEmpty());
    }

    void styleGoesToSubtitlesOnly()
    {
        ZoEffectModel model;
        for (const char* present : {"Watermark", "Audio", "Subtitle"})
            addItem(model, present, {{"sub_fromfile", true}});
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);

        for (const char* type : {"Watermark", "Audio", "subtitle", "Subtitle ", "", "Rotation", "effect root"})
            model.replaceItemDataProperty(type, styled);

        QCOMPARE(tree(rootOf(model)), before);
        QCOMPARE(model.editByUser(), false);
        QCOMPARE(recorder.take(), QStringList());
        ZoEffectModel withoutSubtitles(QStringList{"Audio"});
        withoutSubtitles.replaceItemDataProperty("Subtitle", styled);
        QCOMPARE(withoutSubtitles.editByUser(), false);
    }

    void kindOfATrackPicksTheKeys_data()
    {
        const Rows<Properties, bool> add;
        add("no flag", {}, false);
        add("text false", {{"sub_fromfile", "false"}}, false);
        add("invalid", {{"sub_fromfile", QVariant()}}, false);
        add("flag of an audio track", {{"audio_isfile", true}}, false);
        add("1", {{"sub_fromfile", 1}}, true);
        add("any other text", {{"sub_fromfile", "a.srt"}}, true);
    }

    void kindOfATrackPicksTheKeys()
    {
        const auto [track, fromFile] = row<Properties, bool>();
        ZoEffectModel model;
        model.setVideoSize(1280, 720);
        ZoEffectItemData* item = addItem(model, "Subtitle", track);
        const QString typeBefore = described(subtitles(model)->properties());

        // Only sizes and positions follow the height; what is no style is not copied.
        model.replaceItemDataProperty("Subtitle", {{"h", 360},
                                                   {"sub_fontname", "30"},
                                                   {"sub_fontcolor", 31},
                                                   {"sub_fontstyle", "32"},
                                                   {"sub_linemargin", 33},
                                                   {"sub_transparency", 34.5},
                                                   {"sub_fontsize", 35},
                                                   {"sub_vposition", 36},
                                                   {"fontstyleusedefault", false},
                                                   {"sub_framecolor", "f"},
                                                   {"_checkstate", false},
                                                   {"trackid", 2},
                                                   {"sub_hposition", 3},
                                                   {"sub_vposfactor", 0.5},
                                                   {"sub_transfactor", 1.0},
                                                   {"dvdsubtitleposeditbyuser", true},
                                                   {"own", "x"},
                                                   {"Sub_Fontsize", 9}});

        const QStringList keys = track.keys();
        for (const QString& key : keys)
            item->delData(key);
        QCOMPARE(tree(item),
                 fromFile
                     ? QString(":2{sub_fontcolor: int 31, sub_fontname: string 30, sub_fontsize: int 70, "
                               "sub_fontstyle: string 32, sub_linemargin: int 33, sub_transparency: double 34.5, "
                               "sub_vposition: int 72}[]")
                     : QString(":2{fontstyleusedefault: bool false, sub_fontcolor: int 31, sub_framecolor: string f, "
                               "sub_transparency: double 34.5, sub_vposition: int 72}[]"));
        QCOMPARE(described(subtitles(model)->properties()), typeBefore);
        QCOMPARE(described(rootOf(model)->properties()), QString("{h: int 720, w: int 1280}"));
    }

    void missingStyleKeysKeepTheirValues_data()
    {
        const Rows<bool, Properties, QString, int> add;
        add("no style at all is announced too", true, {},
            "{sub_fontsize: int 50, sub_linemargin: int 5, sub_transparency: int 60}", 7);
        add("no style at all, embedded", false, {},
            "{sub_fontsize: int 50, sub_linemargin: int 5, sub_transparency: int 60}", 5);
        add("one key, of which an invalid value is stored", true, {{"sub_linemargin", QVariant()}},
            "{sub_fontsize: int 50, sub_linemargin: invalid, sub_transparency: int 60}", 7);
        add("a key of the other kind", false, {{"sub_linemargin", 6}},
            "{sub_fontsize: int 50, sub_linemargin: int 5, sub_transparency: int 60}", 5);
    }

    void missingStyleKeysKeepTheirValues()
    {
        const auto [fromFile, props, expected, announced] = row<bool, Properties, QString, int>();
        ZoEffectModel model;
        addItem(model, "Subtitle",
                {{"sub_fromfile", fromFile}, {"sub_fontsize", 50}, {"sub_linemargin", 5}, {"sub_transparency", 60}});
        SignalRecorder recorder(model);

        model.replaceItemDataProperty("Subtitle", props);

        QCOMPARE(chosen(model.getDataItem("Subtitle", 0), {"sub_fontsize", "sub_linemargin", "sub_transparency"}),
                 expected);
        QCOMPARE(recorder.take(), resets({announced}));
        QCOMPARE(model.editByUser(), true);
    }

    void sizesAndPositionsFollowTheHeight_data()
    {
        const Rows<QVariant, QVariant, QVariant, QString> add; // The height that the style was made for, if any.
        add("twice the height", 360, 720, 20, "int 40");
        add("half the height, truncated", 720, 360, 21, "int 10");
        add("negative, truncated toward zero", 720, 360, -15, "int -7");
        // 1080 / 1050 in double precision, times 105, lies just below 108.
        add("quotient first", 1050, 1080, 105, "int 107");
        add("beyond int saturates", 360, 720, INT_MAX, "int 2147483647");
        add("below int saturates", 360, 720, INT_MIN, "int -2147483648");
        add("negative height of the style", -360, 720, 20, "int -40");
        add("text", 360, 720, "20", "int 40");
        add("text that is no whole number", 360, 720, "20.5", "int 0");
        add("double, rounded before it is scaled", 360, 720, 20.6, "int 42");
        add("bool", 360, 720, true, "int 2");
        add("invalid", 360, 720, QVariant(), "int 0");
        add("same height makes a double an integer", 720, 720, 20.6, "int 21");
        add("heights as text and as double", "360", 719.6, 20, "int 40");
        add("style without height keeps a text", QVariant(), 720, "20", "string 20");
        add("style of height 0", 0, 720, 20.5, "double 20.5");
        add("style whose height is no number", "high", 720, "20", "string 20");
        add("model without height", 360, 0, 20.5, "double 20.5");
    }

    void sizesAndPositionsFollowTheHeight()
    {
        const auto [madeFor, height, value, expected] = row<QVariant, QVariant, QVariant, QString>();
        Properties props{{"sub_fontsize", value}, {"sub_vposition", value}};
        if (madeFor.isValid())
            props.insert("h", madeFor);
        ZoEffectModel model;
        rootOf(model)->setData("h", height);
        // A height on the type node or the track plays no part.
        subtitles(model)->setData("h", 100);
        ZoEffectItemData* item = addItem(model, "Subtitle", {{"sub_fromfile", true}, {"h", 200}});

        model.replaceItemDataProperty("Subtitle", props);

        QCOMPARE(described(item->data("sub_fontsize")), expected);
        QCOMPARE(described(item->data("sub_vposition")), expected);
        QCOMPARE(described(item->data("h")), QString("int 200"));
    }

    // --- Listeners of a spread style

    void listenerSeesTheStyledTrackAndTheFlag()
    {
        ZoEffectModel model;
        model.setVideoSize(1280, 720);
        addTracks(model, "fffffffff");
        QList<QList<int>> seen;
        onReset(model, [&](int) {
            QVERIFY(model.editByUser());
            seen << styledRows(model);
            model.setVideoSize(2560, 1440);
        });

        model.replaceItemDataProperty("Subtitle", {{"h", 360}, {"sub_fontsize", 20}, {"sub_transparency", 77}});

        QCOMPARE(seen, (QList<QList<int>>{{0}, {0, 8}}));
        QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 0)), QString("int 40"));
        QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 8)), QString("int 80"));
    }

    void listenerMayChangeTheList_data()
    {
        const Rows<QString, Change, QStringList, QList<int>> add;
        const auto deletion = [](int row) {
            return [row](ZoEffectModel& model) {
                const int pos = row == -1 ? model.childCount("Subtitle") - 1 : row;
                if (model.getDataItem("Subtitle", pos))
                    model.delDataItem("Subtitle", pos);
            };
        };
        const QStringList once = resets({7});
        const QStringList twice = resets({7, 7});
        add("deletes the last", "ffffffffff", deletion(-1), twice, {0});
        add("deletes the last, so that the ninth is gone", "fffffffff", deletion(-1), once, {0});
        add("deletes the first", "ffffffffff", deletion(0), twice, {7});
        add("deletes the first of nine", "fffffffff", deletion(0), once, {});
        add("deletes the one that comes next", "ffffffffff", deletion(8), twice, {0});
        add("deletes all", "ffffffffffff", [](ZoEffectModel& model) { subtitles(model)->clear(); }, once, {});
        add("deletes the type", "ffffffffff", [](ZoEffectModel& model) { model.delDataItem("effect root", 2); }, once,
            {});
        add("resets everything", "ffffffffff", [](ZoEffectModel& model) { model.resetAllEffect(); }, once, {});
        add("replaces the type by another model's", "ffffffffff",
            [](ZoEffectModel& model) { subtitles(model)->assign(*subtitles(ZoEffectModel())); }, once, {});
        add("appends the ninth", "ffffffff", [](ZoEffectModel& model) { addTracks(model, "f"); }, twice, {0, 8});
        add("appends the seventh to embedded ones", "eeeeee", [](ZoEffectModel& model) { addTracks(model, "f"); },
            resets({5, 7}), {0, 6});
        // A track that was reached and moves on is not reached again.
        add("moves the ninth to the front", "fffffffff",
            [](ZoEffectModel& model) { subtitles(model)->changeItemPos(8, 0); }, once, {8});
        add("makes the ninth embedded", "fffffffff",
            [](ZoEffectModel& model) { subtitles(model)->child(8)->setData("sub_fromfile", false); }, resets({7, 5, 7}),
            {0, 6, 8});
        add("renders", "fffffffff", [](ZoEffectModel& model) { model.getWatermark(64, 48, false); }, twice, {0, 8});
    }

    void listenerMayChangeTheList()
    {
        const auto values = row<QString, Change, QStringList, QList<int>>();
        ZoEffectModel model;
        addTracks(model, std::get<0>(values));
        SignalRecorder recorder(model);
        onReset(model, [&](int) { std::get<1>(values)(model); });

        model.replaceItemDataProperty("Subtitle", styled);

        QCOMPARE(recorder.take().filter("reset"), std::get<2>(values));
        QCOMPARE(styledRows(model), std::get<3>(values));
    }

    void listenerThatKeepsInsertingDoesNotKeepTheCallAlive_data()
    {
        const Rows<QString, int, bool> add;
        add("at the ninth place", "fffffffff", 8, true);
        add("at the seventh place, embedded", "eeeeeee", 6, false);
        add("at the front", "fffffffff", 0, true);
        add("at the end", "f", -1, true);
    }

    void listenerThatKeepsInsertingDoesNotKeepTheCallAlive()
    {
        const auto values = row<QString, int, bool>();
        ZoEffectModel model;
        addTracks(model, std::get<0>(values));
        int last = 0;
        onReset(model, [&](int heard) {
            last = heard;
            // The listener would stop by itself only far beyond any number of tracks that were there.
            if (heard < 1000)
                model.insertDataItem("Subtitle", {{"sub_fromfile", std::get<2>(values)}}, std::get<1>(values));
        });

        model.replaceItemDataProperty("Subtitle", styled);

        QVERIFY(last >= 1);
        QVERIFY2(last <= 10, qPrintable(QString::number(last)));
    }

    void argumentsThatAListenerChangesCountAsTheyWere()
    {
        ZoEffectModel model;
        addTracks(model, "fffffffff");
        QString type = "Subtitle";
        Properties props = styled;
        onReset(model, [&](int) {
            type = "Audio";
            props = {{"sub_transparency", 1}};
        });
        model.replaceItemDataProperty(type, props);
        QCOMPARE(styledRows(model), (QList<int>{0, 8}));

        // The style of a track of this model, which the listener deletes.
        ZoEffectModel own;
        own.setVideoSize(1280, 720);
        addTracks(own, "ffffffffff");
        own.getDataItem("Subtitle", 0)->setData("sub_fontsize", 20);
        own.getDataItem("Subtitle", 0)->setData("h", 360);
        onReset(own, [&](int heard) {
            if (heard == 1)
                own.delDataItem("Subtitle", 0);
        });
        own.replaceItemDataProperty("Subtitle", own.getDataItem("Subtitle", 0)->properties());
        QCOMPARE(described(own.data("sub_fontsize", "Subtitle", 8)), QString("int 40"));
    }
};

ZOEFFECT_TEST_MAIN(TstModelReplace)

#include "tst_model_replace.moc"
