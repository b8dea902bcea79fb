// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <limits>

#include "modeltest.h"

namespace {

/// A model with nothing but the type nodes \a types, without properties.
struct BareModel : ZoEffectModel {
    explicit BareModel(const QStringList& types) : ZoEffectModel(ZoEffectModel(), nullptr)
    {
        for (const QString& type : types)
            new ZoEffectItemData(type, rootOf(*this));
    }
};

ZoEffectItemData* subtitles(const ZoEffectModel& model)
{
    return model.getDataItem("Subtitle", -1);
}

ZoEffectItemData* audio(const ZoEffectModel& model)
{
    return model.getDataItem("Audio", -1);
}

/// The chosen embedded subtitle, whether one from a file and whether an embedded one is used; then of audio.
QList<int> answers(const ZoEffectModel& model)
{
    return {model.getEmbededSutitleID(), int(model.useCustomSubtitle()), int(model.useEmbededSubtitle()),
            model.getEmbededAudioID(),   int(model.useCustomAudio()),    int(model.useEmbededAudio())};
}

/// Which audio tracks carry the mark of the one that the preview plays: "x", without it ".", a null entry "-".
QString marks(const ZoEffectModel& model)
{
    QString result;
    for (int row = 0; row < audio(model)->childCount(); ++row) {
        const ZoEffectItemData* track = audio(model)->child(row);
        result += !track                                             ? "-"
                  : track->data("_playmeineffect") == QVariant(true) ? "x"
                  : track->hasData("_playmeineffect")                ? "?"
                                                                     : ".";
    }
    return result;
}

} // namespace

class TstModelTracks : public ModelTest {
    Q_OBJECT

private slots:
    void subtitleTracks_data()
    {
        // Of subtitles the position, of audio the id.
        const Rows<QString, int, int, int, bool, bool> add;
        add("no tracks", "", 2, -1, -1, false, true);
        add("no tracks, type off", "", 0, -1, -1, false, true);
        add("one embedded", "e", 2, -1, -1, false, false);
        add("one embedded, type off", "e", 0, 0, -1, false, false);
        add("one embedded selected", "E", 2, 0, 10, false, true);
        add("one embedded selected, type off", "E", 0, 0, -1, false, true);
        add("one file", "f", 2, -1, -1, false, false);
        add("one file selected", "F", 2, -1, -1, true, false);
        add("one file selected, type off", "F", 0, -1, -1, false, false);
        add("second embedded selected, file behind", "eEf", 2, 1, 11, false, true);
        add("second embedded selected, type off", "eEf", 0, 0, -1, false, true);
        add("two embedded selected: the first", "eEE", 2, 1, 11, false, true);
        add("last embedded selected", "eeeE", 2, 3, 13, false, true);
        add("file before the selected embedded", "fE", 2, -1, -1, false, true);
        add("file before the selected embedded, type off", "fE", 0, -1, -1, false, true);
        add("selected file before the selected embedded", "FE", 2, -1, -1, true, true);
        add("selected embedded before the selected file", "EF", 2, 0, 10, true, true);
        add("selected embedded before the selected file, type off", "EF", 0, 0, -1, false, true);
        add("file between embedded ones", "efE", 2, -1, -1, false, true);
        add("embedded off, file selected", "eF", 2, -1, -1, true, false);
        add("nothing selected in either kind", "eeff", 2, -1, -1, false, false);
        add("last file selected", "eefF", 2, -1, -1, true, false);
        add("partially checked embedded before a selected one", "pE", 2, 1, 11, false, true);
        add("partially checked file", "eq", 2, -1, -1, false, false);
        add("partially checked file ends the search", "qE", 2, -1, -1, false, true);
        add("null entry before the selected one", "-E", 2, 1, 11, false, true);
        add("null entry before the selected file", "-F", 2, -1, -1, true, false);
        add("null entries are children too", "--", 2, -1, -1, false, false);
    }

    void subtitleTracks()
    {
        const auto [tracks, typeState, position, id, usesFile, usesEmbedded] =
            row<QString, int, int, int, bool, bool>();
        ZoEffectModel model;
        addTracks(subtitles(model), "sub_fromfile", tracks);
        subtitles(model)->setCheckState(typeState);
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);

        // Audio has no tracks here, so that its answers are those of an empty list.
        QCOMPARE(answers(model), (QList<int>{position, usesFile, usesEmbedded, -1, false, true}));
        QCOMPARE(tree(rootOf(model)), before);
        QCOMPARE(recorder.take(), QStringList());
    }

    void audioTracks_data() { subtitleTracks_data(); }

    void audioTracks()
    {
        const auto [tracks, typeState, position, id, usesFile, usesEmbedded] =
            row<QString, int, int, int, bool, bool>();
        ZoEffectModel model;
        addTracks(audio(model), "audio_isfile", tracks);
        audio(model)->setCheckState(typeState);
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);

        QCOMPARE(answers(model), (QList<int>{-1, false, true, id, usesFile, usesEmbedded}));
        QCOMPARE(tree(rootOf(model)), before);
        QCOMPARE(recorder.take(), QStringList());
    }

    // Without the type there is nothing to choose, and the embedded track is what is used.
    void modelsWithoutTracks()
    {
        const ZoEffectModel otherTypes(QStringList{"Crop", "Watermark", "Color"});
        const ZoEffectModel otherCase("subtitle", {});
        for (const ZoEffectModel* model : {&otherTypes, &otherCase})
            QCOMPARE(answers(*model), (QList<int>{-1, false, true, -1, false, true}));
    }

    void fileFlagTruth_data()
    {
        const Rows<QVariant, bool> add;
        add("true", true, true);
        add("invalid", QVariant(), false);
        add("-1", -1, true);
        add("double below one half", 0.4, false);
        add("not a number", std::nan(""), false);
        add("text False", "False", false);
        add("text 0", "0", false);
        add("text 00", "00", true);
        add("any text", "no", true);
        add("list has no truth", QStringList("a"), false);
    }

    void fileFlagTruth()
    {
        const auto [flag, isFile] = row<QVariant, bool>();
        ZoEffectModel model(QStringList{"Subtitle", "Audio"});
        addItem(model, "Subtitle", {{"sub_fromfile", flag}});
        addItem(model, "Audio", {{"audio_isfile", flag}, {"trackid", 3}});
        QCOMPARE(answers(model), (QList<int>{isFile ? -1 : 0, isFile, !isFile, isFile ? -1 : 3, isFile, !isFile}));

        // The flag of an audio effect is read alike.
        ZoEffectModel echo("Audio_Echo", {{"audio_effect_flag", flag}});
        QCOMPARE(echo.getValidAudioEffectItem(), isFile ? echo.getDataItem("Audio_Echo", -1) : nullptr);
    }

    void eachTypeReadsItsOwnFileFlag()
    {
        ZoEffectModel model(QStringList{"Subtitle", "Audio"});
        addTracks(subtitles(model), "audio_isfile", "F");
        addTracks(audio(model), "sub_fromfile", "F");
        // Flags of the type node itself are no track's flags.
        subtitles(model)->setData("sub_fromfile", true);
        audio(model)->setData("audio_isfile", true);

        QCOMPARE(answers(model), (QList<int>{0, false, true, 10, false, true}));
    }

    void embeddedSubtitleIsAPositionNotAnId()
    {
        ZoEffectModel model(QStringList{"Subtitle"});
        addTracks(subtitles(model), "sub_fromfile", "eeE");
        QCOMPARE(model.data("trackid", "Subtitle", 2), QVariant(12));

        QCOMPARE(model.getEmbededSutitleID(), 2);
    }

    void embeddedAudioIsAnId()
    {
        ZoEffectModel model(QStringList{"Audio"});
        addTracks(audio(model), "audio_isfile", "eEe");
        const QList<QPair<QVariant, int>> ids{{3, 3},   {-8, -8},   {"7", 7},  {"abc", 0},
                                              {3.6, 4}, {-1.5, -1}, {true, 1}, {QVariant(), 0}};
        for (const auto& id : ids) {
            model.getDataItem("Audio", 1)->setData("trackid", id.first);
            QCOMPARE(model.getEmbededAudioID(), id.second);
        }
        // The track behind one without an id is not reached.
        model.getDataItem("Audio", 1)->delData("trackid");
        model.getDataItem("Audio", 2)->setCheckState(2);
        QCOMPARE(model.getEmbededAudioID(), -1);
    }

    void typeStateIsSelectedOnlyAtTwo()
    {
        ZoEffectModel model(QStringList{"Subtitle", "Audio"});
        addTracks(subtitles(model), "sub_fromfile", "eEF");
        addTracks(audio(model), "audio_isfile", "eEF");
        for (const int state : {0, 1, 2, 3, -2}) {
            subtitles(model)->setCheckState(state);
            audio(model)->setCheckState(state);
            // Deliberate: the embedded tests do not ask whether the type is selected.
            QCOMPARE(answers(model), state == 2 ? (QList<int>{1, true, true, 11, true, true})
                                                : (QList<int>{0, false, true, -1, false, true}));
        }
    }

    // --- The track in the preview

    void previewTrack_data()
    {
        const Rows<QString, int, QString> add;
        add("first", "eee", 0, "x..");
        add("last", "eee", 2, "..x");
        add("behind the end", "eee", 3, "...");
        add("-1", "eee", -1, "...");
        add("far above", "eee", std::numeric_limits<int>::max(), "...");
        add("file track, selection plays no part", "eF", 1, ".x");
        add("no tracks", "", 0, "");
        add("null entries are passed over", "-e-e", 3, "-.-x");
        add("index of a null entry", "e-e", 1, ".-.");
    }

    void previewTrack()
    {
        const auto [tracks, index, expected] = row<QString, int, QString>();
        // Whatever is marked before, afterwards only the one is.
        for (const QVariant& before : {QVariant("none"), QVariant(true), QVariant(7), QVariant()}) {
            ZoEffectModel model;
            addTracks(audio(model), "audio_isfile", tracks);
            for (int row = 0; row < tracks.size(); ++row) {
                ZoEffectItemData* track = model.getDataItem("Audio", row);
                if (track && before != QVariant("none"))
                    track->setData("_playmeineffect", before);
            }
            SignalRecorder recorder(model);

            model.refreshCurPlayData(index);

            QCOMPARE(marks(model), expected);
            QCOMPARE(recorder.take(), QStringList());
        }
    }

    void previewMarkTouchesNothingElse()
    {
        ZoEffectModel model(QStringList{"Subtitle", "Audio"});
        addTracks(subtitles(model), "sub_fromfile", "e");
        addTracks(audio(model), "audio_isfile", "eE");
        for (ZoEffectItemData* node : {subtitles(model), subtitles(model)->child(0), audio(model)})
            node->setData("_playmeineffect", 1);
        addItem(audio(model)->child(0), {{"_playmeineffect", 1}});
        audio(model)->setCheckState(0);
        const QString before = tree(rootOf(model));

        model.refreshCurPlayData(1);

        QCOMPARE(described(model.data("_playmeineffect", "Audio", 1)), QString("bool true"));
        model.getDataItem("Audio", 1)->delData("_playmeineffect");
        QCOMPARE(tree(rootOf(model)), before);

        ZoEffectModel otherCase("audio", {});
        addTracks(otherCase.getDataItem("audio", -1), "audio_isfile", "e");
        otherCase.refreshCurPlayData(0);
        QVERIFY(!otherCase.getDataItem("audio", 0)->hasData("_playmeineffect"));
    }

    // --- Audio effects

    void modelsForAudioEffects_data()
    {
        const Rows<QStringList, bool> add;
        for (const char* type : {"Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus",
                                 "Audio_Flanger", "Audio_Echo", "Audio_Speed"})
            add(type, {type}, true);
        add("one behind the video types", {"Crop", "Audio", "Audio_Speed"}, true);
        add("no types", {}, false);
        add("video types", {"Crop", "Watermark", "Subtitle", "Color", "Effect"}, false);
        add("audio tracks are no audio effect", {"Audio"}, false);
        add("other letter case", {"audio_echo", "AUDIO_ECHO", "Audio_Fade_InOut", "Audio_Bandpass"}, false);
        add("longer name", {"Audio_Echo2", "My Audio_Echo"}, false);
    }

    void modelsForAudioEffects()
    {
        const auto [types, expected] = row<QStringList, bool>();
        BareModel model(types);
        rootOf(model)->insertChild(nullptr, 0);
        QCOMPARE(model.isForAudioEffect(), expected);

        // The check states of the types play no part.
        for (const QString& type : types)
            model.getDataItem(type, -1)->setCheckState(0);
        QCOMPARE(model.isForAudioEffect(), expected);
    }

    void flaggedEffect_data()
    {
        const Rows<QStringList, QList<int>, int> add;
        add("none flagged", {"Audio_Echo", "Audio_Speed"}, {}, -1);
        add("first", {"Audio_Echo", "Audio_Speed"}, {0}, 0);
        add("last", {"Audio_Echo", "Audio_Speed"}, {1}, 1);
        add("both: the first of the tree", {"Audio_Speed", "Audio_Echo", "Audio_Fade_Inout"}, {1, 2}, 1);
        add("another type may be the flagged one", {"Crop", "Audio_Echo"}, {0}, 0);
        add("another type behind", {"Audio_Echo", "Crop"}, {1}, 1);
        add("twice the same type: the first flagged", {"Audio_Echo", "Audio_Echo"}, {1}, 1);
        add("model without audio effects", {"Crop", "Audio", "audio_echo"}, {0, 1, 2}, -1);
    }

    void flaggedEffect()
    {
        const auto [types, flagged, expected] = row<QStringList, QList<int>, int>();
        BareModel model(types);
        // What the root, an item or a check state says plays no part.
        rootOf(model)->setData("audio_effect_flag", true);
        addItem(rootOf(model)->child(0), {{"audio_effect_flag", true}});
        for (int row = 0; row < types.size(); ++row) {
            rootOf(model)->child(row)->setData("audio_effect_flag", flagged.contains(row));
            rootOf(model)->child(row)->setCheckState(0);
        }
        ZoEffectItemData* const node = expected < 0 ? nullptr : rootOf(model)->child(expected);
        SignalRecorder recorder(model);

        QCOMPARE(model.getValidAudioEffectItem(), node);
        rootOf(model)->insertChild(nullptr, 1);
        rootOf(model)->insertChild(nullptr, 0);
        QCOMPARE(model.getValidAudioEffectItem(), node);
        QCOMPARE(recorder.take(), QStringList());
    }
};

ZOEFFECT_TEST_MAIN(TstModelTracks)

#include "tst_model_tracks.moc"
