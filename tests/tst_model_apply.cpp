// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <climits>
#include <functional>
#include <utility>

#include <QColor>
#include <QFont>
#include <QPointer>
#include <QRegularExpression>

#include "modeltest.h"

namespace {

using Change = std::function<void(ZoEffectModel&)>;

/// Subtitle tracks as addTracks() reads them.
void addTracks(const ZoEffectModel& model, const QString& kinds)
{
    addTracks(model.getDataItem("Subtitle", -1), "sub_fromfile", kinds);
}

/// What a model sends when it spreads a style and hands it on to 7: the numbers of style keys that are announced,
/// then the map.
QStringList spread(const QList<int>& keyCounts, const QString& map)
{
    QStringList texts;
    for (const int keyCount : keyCounts)
        texts << QString("effectDataChanged(Subtitle, reset, invalid, %1)").arg(keyCount);
    return texts << QString("applyItemDataSomePropertyTo(%1, Subtitle, -1, 7)").arg(map);
}

} // namespace

class TstModelApply : public ModelTest {
    Q_OBJECT

private slots:
    // --- Handing out a node

    void nodeIsHandedOut_data()
    {
        const Rows<QString, int, QStringList> add;
        add("whole watermark list", "Watermark", -1, {"applyItemDataTo(node Watermark, Watermark, -1, 7)"});
        add("first watermark", "Watermark", 0, {"applyItemDataTo(node first, Watermark, 0, 7)"});
        add("last watermark, not selected", "Watermark", 2, {"applyItemDataTo(node third, Watermark, 2, 7)"});
        add("type that is not selected", "Crop", -1, {"applyItemDataTo(node Crop, Crop, -1, 7)"});
        add("frame effect by its name", "Mirror", -1, {"applyItemDataTo(node Mirror, Mirror, -1, 7)"});
        add("root", "effect root", -1, {"applyItemDataTo(node effect root, effect root, -1, 7)"});
        add("type by its place", "effect root", 4, {"applyItemDataTo(node Color, effect root, 4, 7)"});
        add("right behind the end", "Watermark", 3, {});
        add("greatest int", "Watermark", INT_MAX, {});
        add("-2", "Watermark", -2, {});
        add("smallest int", "Watermark", INT_MIN, {});
        add("null entry", "Color", 0, {});
        add("unknown type", "Rotation", -1, {});
        add("other letter case", "watermark", -1, {});
    }

    void nodeIsHandedOut()
    {
        const auto [type, pos, expected] = row<QString, int, QStringList>();
        ZoEffectModel model;
        for (const char* name : {"first", "second", "third"})
            new ZoEffectItemData(name, model.getDataItem("Watermark", -1));
        model.getDataItem("Watermark", 2)->setCheckState(0);
        model.getDataItem("Crop", -1)->setCheckState(0);
        model.getDataItem("Color", -1)->appendChild(nullptr);
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);
        ZoEffectItemData* handed = nullptr;
        connect(&model, &ZoEffectModel::applyItemDataTo, this, [&](ZoEffectItemData* node) { handed = node; });

        model.applyDataTo(type, pos, 7);

        QCOMPARE(recorder.take(), expected);
        QCOMPARE(handed, model.getDataItem(type, pos)); // The model's own, or null.
        QCOMPARE(tree(rootOf(model)), before);
    }

    void applytoIsPassedOn()
    {
        for (const int applyto : {0, -1, 12345, INT_MIN}) {
            ZoEffectModel model;
            addItem(model, "Subtitle", {{"sub_fontsize", 30}});
            SignalRecorder recorder(model);

            model.applyDataTo("Crop", -1, applyto);
            model.applySomePropertytoOther("Subtitle", 0, applyto);

            QCOMPARE(recorder.take(),
                     (QStringList{QString("applyItemDataTo(node Crop, Crop, -1, %1)").arg(applyto),
                                  "effectDataChanged(Subtitle, reset, invalid, 5)",
                                  QString("applyItemDataSomePropertyTo({h: int 0, sub_fontsize: int 30}, Subtitle, "
                                          "-1, %1)")
                                      .arg(applyto)}));
        }
    }

    void otherModelTakesTheHandedNode()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        addItem(model, "Watermark", {{"wm_hposition", 101}, {"wm_vposition", 51}}, 0);
        ZoEffectModel other;
        other.setVideoSize(1280, 240);
        addItem(other, "Watermark");
        connect(&model, &ZoEffectModel::applyItemDataTo, this,
                [&](ZoEffectItemData* node, const QString& type, int pos, int) { other.replaceData(type, pos, node); });

        model.applyDataTo("Watermark", 0, 0);
        QCOMPARE(tree(other.getDataItem("Watermark", 0)), QString(":0{wm_hposition: int 101, wm_vposition: int 51}[]"));
        // The list is rescaled by its taker.
        model.applyDataTo("Watermark", -1, 0);
        QCOMPARE(tree(other.getDataItem("Watermark", 0)), QString(":0{wm_hposition: int 202, wm_vposition: int 25}[]"));
        QVERIFY(other.getDataItem("Watermark", 0) != model.getDataItem("Watermark", 0));
    }

    void listenerMayDeleteTheHandedNode()
    {
        ZoEffectModel model;
        const QPointer<ZoEffectItemData> item = addItem(model, "Audio");
        connect(&model, &ZoEffectModel::applyItemDataTo, this,
                [&](ZoEffectItemData*, const QString& type, int pos, int) { model.delDataItem(type, pos); });

        model.applyDataTo("Audio", 0, 0);

        QVERIFY(item.isNull());
        QCOMPARE(model.childCount("Audio"), 0);
    }

    void blockedModelHandsOutNothing()
    {
        ZoEffectModel model;
        addTracks(model, "FF");
        model.getDataItem("Subtitle", 1)->setData("sub_linemargin", 9);
        SignalRecorder recorder(model);
        model.blockSignals(true);

        model.applyDataTo("Subtitle", 1, 0);
        model.applySomePropertytoOther("Subtitle", 1, 0);

        // The model's own tracks take the style all the same.
        QCOMPARE(described(model.data("sub_linemargin", "Subtitle", 0)), QString("int 9"));
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(model.signalsBlocked(), true);
    }

    // --- Handing on a style

    void styleOfASelectedTrackIsHandedOn_data()
    {
        const Rows<Properties, QString, int> add;
        const Properties all{{"sub_fontname", "n"},
                             {"sub_fontcolor", "c"},
                             {"sub_fontstyle", "s"},
                             {"sub_linemargin", 1},
                             {"sub_fontsize", 2},
                             {"sub_transparency", 3},
                             {"sub_vposition", 4},
                             {"sub_hposition", 5},
                             {"fontstyleusedefault", false},
                             {"sub_framecolor", "f"},
                             {"sub_vposfactor", 0.5},
                             {"trackid", 6},
                             {"_checkstate", false},
                             {"own", "x"},
                             {"h", 123},
                             {"w", 456},
                             {"dvdsubtitleposeditbyuser", 1}};
        const char* style =
            "{h: int 480, sub_fontcolor: string c, sub_fontname: string n, sub_fontsize: int 2, sub_fontstyle: string "
            "s, sub_linemargin: int 1, sub_transparency: int 3, sub_vposition: int 4}";
        add("embedded: the same seven keys as from a file", all, style, 5);
        add("from a file", with(all, {{"sub_fromfile", true}}), style, 7);
        add("one key, the stored position", {{"sub_vposition", 0}}, "{h: int 480, sub_vposition: int 0}", 5);
        add("false and empty values are values, invalid ones are none",
            {{"sub_fontname", ""},
             {"sub_fontstyle", QString()},
             {"sub_linemargin", false},
             {"sub_fontsize", QVariant()}},
            "{h: int 480, sub_fontname: string , sub_fontstyle: string , sub_linemargin: bool false}", 5);
        add("values keep their types",
            {{"sub_fontcolor", QColor(Qt::white)},
             {"sub_fontname", QFont("Tahoma")},
             {"sub_fontsize", "20"},
             {"sub_vposition", 20.5}},
            "{h: int 480, sub_fontcolor: color #ffffffff, sub_fontname: font Tahoma, sub_fontsize: string 20, "
            "sub_vposition: double 20.5}",
            5);
    }

    void styleOfASelectedTrackIsHandedOn()
    {
        const auto [track, map, keyCount] = row<Properties, QString, int>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        model.getDataItem("Subtitle", -1)->setCheckState(0); // Plays no part.
        addItem(model, "Subtitle", track);
        SignalRecorder recorder(model);

        model.applySomePropertytoOther("Subtitle", 0, 7);

        QCOMPARE(recorder.take(), spread({keyCount}, map));
        QCOMPARE(model.editByUser(), true);
    }

    void styleOfWhatIsNoSelectedTrackIsNotHandedOn_data()
    {
        const Rows<QString, int> add;
        add("unselected track", "Subtitle", 1);
        add("partly selected track", "Subtitle", 2);
        add("track without style", "Subtitle", 3);
        add("track with invalid values only", "Subtitle", 4);
        add("null entry", "Subtitle", 5);
        add("the type itself", "Subtitle", -1);
        add("-2", "Subtitle", -2);
        add("behind the end", "Subtitle", 6);
        add("greatest int", "Subtitle", INT_MAX);
        add("watermark", "Watermark", 0);
        add("other letter case", "subtitle", 0);
        add("unknown type", "Rotation", 0);
        add("subtitles through the root", "effect root", 2);
        add("no name", "", 0);
    }

    void styleOfWhatIsNoSelectedTrackIsNotHandedOn()
    {
        const auto [type, pos] = row<QString, int>();
        ZoEffectModel model;
        const Properties style{{"sub_fontsize", 30}, {"sub_transparency", 3}};
        addItem(model, "Subtitle", {{"sub_fromfile", true}});
        addItem(model, "Subtitle", style, 0);
        addItem(model, "Subtitle", style, 1);
        addItem(model, "Subtitle", {{"sub_hposition", 5}, {"sub_framecolor", "f"}, {"trackid", 1}, {"h", 3}});
        addItem(model, "Subtitle", {{"sub_fontsize", QVariant()}});
        model.getDataItem("Subtitle", -1)->appendChild(nullptr);
        addItem(model, "Watermark", style);
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);

        model.applySomePropertytoOther(type, pos, 7);

        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(tree(rootOf(model)), before);
        QCOMPARE(model.editByUser(), false);

        ZoEffectModel withoutSubtitles(QStringList{"Crop"});
        SignalRecorder silent(withoutSubtitles);
        withoutSubtitles.applySomePropertytoOther("Subtitle", pos, 7);
        QCOMPARE(silent.take(), QStringList());
    }

    void heightIsTheRootsInteger_data()
    {
        // What a track from a file keeps under size and position; what is handed on keeps its type.
        const Rows<QVariant, QVariant, QString, QString> add;
        add("never set", QVariant(), "20", "int 0", "string 20");
        add("no number", "high", 20.5, "int 0", "double 20.5");
        add("text", "720", "20", "int 720", "int 20");
        add("double, rounded", 719.6, 20.6, "int 720", "int 21");
        add("negative", -5, "big", "int -5", "int 0");
    }

    void heightIsTheRootsInteger()
    {
        const auto [height, value, expectedHeight, kept] = row<QVariant, QVariant, QString, QString>();
        ZoEffectModel model;
        if (height.isValid())
            rootOf(model)->setData("h", height);
        model.getDataItem("Subtitle", -1)->setData("h", 99);
        addItem(model, "Subtitle",
                {{"sub_fromfile", true}, {"sub_fontsize", value}, {"sub_vposition", value}, {"sub_linemargin", value}});
        SignalRecorder recorder(model);

        model.applySomePropertytoOther("Subtitle", 0, 7);

        QCOMPARE(chosen(model.getDataItem("Subtitle", 0), {"sub_fontsize", "sub_vposition", "sub_linemargin"}),
                 QString("{sub_fontsize: %1, sub_linemargin: %2, sub_vposition: %1}").arg(kept, described(value)));
        QCOMPARE(recorder.take(),
                 spread({7}, QString("{h: %1, sub_fontsize: %2, sub_linemargin: %2, sub_vposition: %2}")
                                 .arg(expectedHeight, described(value))));
    }

    void styleIsSpreadOverTheModelsOwnTracks_data()
    {
        const Rows<QString, int, QList<int>, QList<int>> add;
        add("second of two", "FF", 1, {0, 1}, {7});
        add("fourth of ten from files", "FFFFFFFFFF", 3, {0, 3, 8}, {7, 7});
        add("last of seven embedded", "EEEEEEE", 6, {0, 6}, {5, 5});
        add("embedded and from files", "EEEEEEFFF", 1, {0, 1, 6, 8}, {5, 7, 7});
    }

    void styleIsSpreadOverTheModelsOwnTracks()
    {
        const auto [tracks, pos, styledRows, announced] = row<QString, int, QList<int>, QList<int>>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        addTracks(model, tracks);
        model.getDataItem("Subtitle", pos)->setData("sub_transparency", "77");
        SignalRecorder recorder(model);
        QList<int> rows; // When it is handed on.
        connect(&model, &ZoEffectModel::applyItemDataSomePropertyTo, this, [&] {
            for (int i = 0; i < model.childCount("Subtitle"); ++i) {
                if (model.getDataItem("Subtitle", i)->hasData("sub_transparency"))
                    rows << i;
            }
        });

        model.applySomePropertytoOther("Subtitle", pos, 7);

        QCOMPARE(rows, styledRows);
        QCOMPARE(recorder.take(), spread(announced, "{h: int 480, sub_transparency: string 77}"));
    }

    void trackThatIsNotReachedKeepsItsValues()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        addTracks(model, "FFF");
        model.getDataItem("Subtitle", 1)->setData("sub_fontsize", "20");
        model.getDataItem("Subtitle", 2)->setData("sub_fontsize", 50);

        model.applySomePropertytoOther("Subtitle", 1, 7);

        // Not even the track whose style it is.
        QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 0)), QString("int 20"));
        QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 1)), QString("string 20"));
        QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 2)), QString("int 50"));
    }

    void otherModelTakesTheStyleRescaled()
    {
        ZoEffectModel model;
        model.setVideoSize(640, 360);
        addItem(model, "Subtitle", {{"sub_fontsize", 21}, {"sub_vposition", 301}, {"sub_linemargin", 5}});
        ZoEffectModel other;
        other.setVideoSize(1280, 720);
        addItem(other, "Subtitle", {{"sub_fromfile", true}});
        connect(&model, &ZoEffectModel::applyItemDataSomePropertyTo, this,
                [&](const Properties& props, const QString& type, int, int) {
                    other.replaceItemDataProperty(type, props);
                });

        model.applySomePropertytoOther("Subtitle", 0, 7);

        QCOMPARE(tree(other.getDataItem("Subtitle", 0)),
                 QString(":2{sub_fontsize: int 42, sub_fromfile: bool true, sub_linemargin: int 5, sub_vposition: int "
                         "602}[]"));
        QCOMPARE(other.editByUser(), true);
        // In the model itself nothing is scaled.
        QCOMPARE(tree(model.getDataItem("Subtitle", 0)),
                 QString(":2{sub_fontsize: int 21, sub_linemargin: int 5, sub_vposition: int 301}[]"));
    }

    void listenerMayChangeTheModelInBetween_data()
    {
        const Rows<Change, QList<int>> add;
        add("deletes the track whose style it is", [](ZoEffectModel& model) { model.delDataItem("Subtitle", 3); },
            {7, 7});
        add("deletes all tracks", [](ZoEffectModel& model) { model.getDataItem("Subtitle", -1)->clear(); }, {7});
        add("deletes the type", [](ZoEffectModel& model) { model.delDataItem("effect root", 2); }, {7});
        add("resets everything", [](ZoEffectModel& model) { model.resetAllEffect(); }, {7});
        add("changes the style of the track",
            [](ZoEffectModel& model) { model.setData("sub_linemargin", 1, "Subtitle", 3); }, {7, 7});
        add("changes the video size", [](ZoEffectModel& model) { model.setVideoSize(1280, 960); }, {7, 7});
    }

    void listenerMayChangeTheModelInBetween()
    {
        const auto values = row<Change, QList<int>>();
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        addTracks(model, "FFFFFFFFFFF");
        model.getDataItem("Subtitle", 3)->setData("sub_linemargin", 9);
        SignalRecorder recorder(model);
        QString type = "Subtitle";
        bool done = false;
        listen(model, [&] {
            if (std::exchange(done, true))
                return;
            type = "Audio"; // Neither an argument that changes counts.
            std::get<0>(values)(model);
        });

        model.applySomePropertytoOther(type, 3, 7);

        // What is handed on is the style and the height of the beginning.
        QCOMPARE(recorder.take().filter(QRegularExpression("reset|apply")),
                 spread(std::get<1>(values), "{h: int 480, sub_linemargin: int 9}"));
    }
};

ZOEFFECT_TEST_MAIN(TstModelApply)

#include "tst_model_apply.moc"
