// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zoeffectmodel.h>

#include <cmath>
#include <limits>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

/// Tracks under the type node \a parent, one for each character: "e" an embedded track, "f" one from a file,
/// in capitals when selected; "p" and "q" are an embedded and a file track that are partially checked; "-" is
/// a null entry. Tracks carry "trackid" 10, 11, 12 and so on.
void addTracks(ZoEffectItemData* parent, const QString& fileFlag, const QString& tracks)
{
    for (int i = 0; i < tracks.size(); ++i) {
        const QChar kind = tracks.at(i);
        if (kind == QLatin1Char('-')) {
            parent->appendChild(nullptr);
            continue;
        }
        auto* track = new ZoEffectItemData(QString(), parent);
        track->setData("trackid", 10 + i);
        if (QString("fFq").contains(kind))
            track->setData(fileFlag, true);
        track->setCheckState(kind.isUpper() ? 2 : QString("pq").contains(kind) ? 1 : 0);
    }
}

ZoEffectItemData* root(const ZoEffectModel& model)
{
    return model.getDataItem("effect root", -1);
}

/// A model with nothing but the type nodes \a types, without properties.
struct BareModel : ZoEffectModel {
    explicit BareModel(const QStringList& types) : ZoEffectModel(ZoEffectModel(), nullptr)
    {
        for (const QString& type : types)
            new ZoEffectItemData(type, getDataItem("effect root", -1));
    }
};

} // namespace

class TstModelTracks : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void subtitleTracks_data();
    void subtitleTracks();
    void audioTracks_data();
    void audioTracks();
    void modelsWithoutTracks();
    void fileFlagTruth_data();
    void fileFlagTruth();
    void eachTypeReadsItsOwnFileFlag();
    void embeddedSubtitleIsAPositionNotAnId();
    void embeddedAudioIsAnId_data();
    void embeddedAudioIsAnId();
    void typeStateIsSelectedOnlyAtTwo_data();
    void typeStateIsSelectedOnlyAtTwo();
    void questionsChangeNothing();

    void previewTrack_data();
    void previewTrack();
    void previewTrackMoves();
    void previewMarkReplacesAnyValue();
    void previewMarkTouchesNothingElse();
    void previewMarkInModelsWithoutTracks();

    void modelsForAudioEffects_data();
    void modelsForAudioEffects();
    void fullModelIsForAudioEffects();

    void flaggedEffect_data();
    void flaggedEffect();
    void flagTruth_data();
    void flagTruth();
    void flagsOfItemsAndRootDoNotCount();
    void flaggedEffectInAModelWithoutAudioEffects();
    void flaggedEffectPassesOverNullTypes();
    void catalogueFlagsAreOff();
};

void TstModelTracks::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelTracks::cleanup()
{
    // Nothing about tracks is ever logged.
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

// --- Chosen tracks -----------------------------------------------------------------------------------------

void TstModelTracks::subtitleTracks_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<int>("typeState");
    QTest::addColumn<int>("embeddedPosition");
    QTest::addColumn<bool>("usesFile");
    QTest::addColumn<bool>("usesEmbedded");

    QTest::newRow("no tracks") << "" << 2 << -1 << false << true;
    QTest::newRow("no tracks, type off") << "" << 0 << -1 << false << true;

    QTest::newRow("one embedded") << "e" << 2 << -1 << false << false;
    QTest::newRow("one embedded, type off") << "e" << 0 << 0 << false << false;
    QTest::newRow("one embedded selected") << "E" << 2 << 0 << false << true;
    QTest::newRow("one embedded selected, type off") << "E" << 0 << 0 << false << true;
    QTest::newRow("one file") << "f" << 2 << -1 << false << false;
    QTest::newRow("one file, type off") << "f" << 0 << -1 << false << false;
    QTest::newRow("one file selected") << "F" << 2 << -1 << true << false;
    QTest::newRow("one file selected, type off") << "F" << 0 << -1 << false << false;

    QTest::newRow("second embedded selected, file behind") << "eEf" << 2 << 1 << false << true;
    QTest::newRow("second embedded selected, type off") << "eEf" << 0 << 0 << false << true;
    QTest::newRow("two embedded selected: the first") << "eEE" << 2 << 1 << false << true;
    QTest::newRow("last embedded selected") << "eeeE" << 2 << 3 << false << true;
    QTest::newRow("file before the selected embedded") << "fE" << 2 << -1 << false << true;
    QTest::newRow("file before the selected embedded, type off") << "fE" << 0 << -1 << false << true;
    QTest::newRow("selected file before the selected embedded") << "FE" << 2 << -1 << true << true;
    QTest::newRow("selected embedded before the selected file") << "EF" << 2 << 0 << true << true;
    QTest::newRow("selected embedded before the selected file, type off") << "EF" << 0 << 0 << false << true;
    QTest::newRow("file between embedded ones") << "efE" << 2 << -1 << false << true;
    QTest::newRow("embedded off, file selected") << "eF" << 2 << -1 << true << false;
    QTest::newRow("embedded off, file selected, type off") << "eF" << 0 << 0 << false << false;
    QTest::newRow("embedded selected, file off") << "Ef" << 2 << 0 << false << true;
    QTest::newRow("nothing selected in either kind") << "eeff" << 2 << -1 << false << false;
    QTest::newRow("nothing selected in either kind, type off") << "eeff" << 0 << 0 << false << false;
    QTest::newRow("last file selected") << "eefF" << 2 << -1 << true << false;
    QTest::newRow("everything selected") << "EEFF" << 2 << 0 << true << true;

    QTest::newRow("partially checked embedded") << "p" << 2 << -1 << false << false;
    QTest::newRow("partially checked embedded before a selected one") << "pE" << 2 << 1 << false << true;
    QTest::newRow("partially checked file") << "eq" << 2 << -1 << false << false;
    QTest::newRow("partially checked file ends the search") << "qE" << 2 << -1 << false << true;

    QTest::newRow("null entry before the selected one") << "-E" << 2 << 1 << false << true;
    QTest::newRow("null entry before the selected file") << "-F" << 2 << -1 << true << false;
    QTest::newRow("null entry between") << "e-E" << 2 << 2 << false << true;
    QTest::newRow("null entries are children too") << "--" << 2 << -1 << false << false;
}

void TstModelTracks::subtitleTracks()
{
    QFETCH(QString, tracks);
    QFETCH(int, typeState);
    QFETCH(int, embeddedPosition);
    QFETCH(bool, usesFile);
    QFETCH(bool, usesEmbedded);
    ZoEffectModel model;
    addTracks(model.getDataItem("Subtitle", -1), "sub_fromfile", tracks);
    model.getDataItem("Subtitle", -1)->setCheckState(typeState);
    SignalRecorder recorder(model);

    QCOMPARE(model.getEmbededSutitleID(), embeddedPosition);
    QCOMPARE(model.useCustomSubtitle(), usesFile);
    QCOMPARE(model.useEmbededSubtitle(), usesEmbedded);

    // Audio has no tracks here, so that its answers are those of an empty list.
    QCOMPARE(model.getEmbededAudioID(), -1);
    QCOMPARE(model.useCustomAudio(), false);
    QCOMPARE(model.useEmbededAudio(), true);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelTracks::audioTracks_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<int>("typeState");
    QTest::addColumn<int>("embeddedId");
    QTest::addColumn<bool>("usesFile");
    QTest::addColumn<bool>("usesEmbedded");

    QTest::newRow("no tracks") << "" << 2 << -1 << false << true;
    QTest::newRow("no tracks, type off") << "" << 0 << -1 << false << true;

    QTest::newRow("one embedded") << "e" << 2 << -1 << false << false;
    QTest::newRow("one embedded, type off") << "e" << 0 << -1 << false << false;
    QTest::newRow("one embedded selected") << "E" << 2 << 10 << false << true;
    QTest::newRow("one embedded selected, type off") << "E" << 0 << -1 << false << true;
    QTest::newRow("one file") << "f" << 2 << -1 << false << false;
    QTest::newRow("one file selected") << "F" << 2 << -1 << true << false;
    QTest::newRow("one file selected, type off") << "F" << 0 << -1 << false << false;

    QTest::newRow("second embedded selected, file behind") << "eEf" << 2 << 11 << false << true;
    QTest::newRow("second embedded selected, type off") << "eEf" << 0 << -1 << false << true;
    QTest::newRow("two embedded selected: the first") << "eEE" << 2 << 11 << false << true;
    QTest::newRow("last embedded selected") << "eeeE" << 2 << 13 << false << true;
    QTest::newRow("file before the selected embedded") << "fE" << 2 << -1 << false << true;
    QTest::newRow("selected file before the selected embedded") << "FE" << 2 << -1 << true << true;
    QTest::newRow("selected embedded before the selected file") << "EF" << 2 << 10 << true << true;
    QTest::newRow("selected embedded before the selected file, type off") << "EF" << 0 << -1 << false << true;
    QTest::newRow("file between embedded ones") << "efE" << 2 << -1 << false << true;
    QTest::newRow("embedded off, file selected") << "eF" << 2 << -1 << true << false;
    QTest::newRow("embedded off, file selected, type off") << "eF" << 0 << -1 << false << false;
    QTest::newRow("nothing selected in either kind") << "eeff" << 2 << -1 << false << false;
    QTest::newRow("last file selected") << "eefF" << 2 << -1 << true << false;
    QTest::newRow("everything selected") << "EEFF" << 2 << 10 << true << true;

    QTest::newRow("partially checked embedded") << "p" << 2 << -1 << false << false;
    QTest::newRow("partially checked embedded before a selected one") << "pE" << 2 << 11 << false << true;
    QTest::newRow("partially checked file") << "eq" << 2 << -1 << false << false;
    QTest::newRow("partially checked file ends the search") << "qE" << 2 << -1 << false << true;

    QTest::newRow("null entry before the selected one") << "-E" << 2 << 11 << false << true;
    QTest::newRow("null entry before the selected file") << "-F" << 2 << -1 << true << false;
    QTest::newRow("null entries are children too") << "--" << 2 << -1 << false << false;
}

void TstModelTracks::audioTracks()
{
    QFETCH(QString, tracks);
    QFETCH(int, typeState);
    QFETCH(int, embeddedId);
    QFETCH(bool, usesFile);
    QFETCH(bool, usesEmbedded);
    ZoEffectModel model;
    addTracks(model.getDataItem("Audio", -1), "audio_isfile", tracks);
    model.getDataItem("Audio", -1)->setCheckState(typeState);
    SignalRecorder recorder(model);

    QCOMPARE(model.getEmbededAudioID(), embeddedId);
    QCOMPARE(model.useCustomAudio(), usesFile);
    QCOMPARE(model.useEmbededAudio(), usesEmbedded);

    QCOMPARE(model.getEmbededSutitleID(), -1);
    QCOMPARE(model.useCustomSubtitle(), false);
    QCOMPARE(model.useEmbededSubtitle(), true);
    QCOMPARE(recorder.take(), QStringList());
}

// Without the type there is nothing to choose, and the embedded track is what is used.
void TstModelTracks::modelsWithoutTracks()
{
    const ZoEffectModel bare(ZoEffectModel(), nullptr);
    const ZoEffectModel otherTypes(QStringList{"Crop", "Watermark", "Color"});
    const ZoEffectModel otherCase("subtitle", {});
    for (const ZoEffectModel* model : {&bare, &otherTypes, &otherCase}) {
        QCOMPARE(model->getEmbededSutitleID(), -1);
        QCOMPARE(model->useCustomSubtitle(), false);
        QCOMPARE(model->useEmbededSubtitle(), true);
        QCOMPARE(model->getEmbededAudioID(), -1);
        QCOMPARE(model->useCustomAudio(), false);
        QCOMPARE(model->useEmbededAudio(), true);
    }
}

void TstModelTracks::fileFlagTruth_data()
{
    QTest::addColumn<QVariant>("flag");
    QTest::addColumn<bool>("isFile");

    QTest::newRow("true") << QVariant(true) << true;
    QTest::newRow("false") << QVariant(false) << false;
    QTest::newRow("invalid") << QVariant() << false;
    QTest::newRow("1") << QVariant(1) << true;
    QTest::newRow("-1") << QVariant(-1) << true;
    QTest::newRow("0") << QVariant(0) << false;
    QTest::newRow("double") << QVariant(2.5) << true;
    QTest::newRow("double 0") << QVariant(0.0) << false;
    QTest::newRow("double below one half") << QVariant(0.4) << false;
    QTest::newRow("negative double of one half") << QVariant(-0.5) << false;
    QTest::newRow("not a number") << QVariant(std::nan("")) << false;
    QTest::newRow("text true") << QVariant("true") << true;
    QTest::newRow("text false") << QVariant("false") << false;
    QTest::newRow("text False") << QVariant("False") << false;
    QTest::newRow("text 0") << QVariant("0") << false;
    QTest::newRow("text 00") << QVariant("00") << true;
    QTest::newRow("empty text") << QVariant("") << false;
    QTest::newRow("any text") << QVariant("no") << true;
    QTest::newRow("blank") << QVariant(" ") << true;
    QTest::newRow("bytes 0") << QVariant(QByteArray("0")) << false;
    QTest::newRow("list has no truth") << QVariant(QStringList("a")) << false;
}

void TstModelTracks::fileFlagTruth()
{
    QFETCH(QVariant, flag);
    QFETCH(bool, isFile);
    ZoEffectModel model(QStringList{"Subtitle", "Audio"});
    auto* subtitle = new ZoEffectItemData(QString(), model.getDataItem("Subtitle", -1));
    subtitle->setData("sub_fromfile", flag);
    auto* audio = new ZoEffectItemData(QString(), model.getDataItem("Audio", -1));
    audio->setData("audio_isfile", flag);
    audio->setData("trackid", 3);

    QCOMPARE(model.getEmbededSutitleID(), isFile ? -1 : 0);
    QCOMPARE(model.useCustomSubtitle(), isFile);
    QCOMPARE(model.useEmbededSubtitle(), !isFile);
    QCOMPARE(model.getEmbededAudioID(), isFile ? -1 : 3);
    QCOMPARE(model.useCustomAudio(), isFile);
    QCOMPARE(model.useEmbededAudio(), !isFile);

    model.getDataItem("Subtitle", -1)->setCheckState(0);
    QCOMPARE(model.getEmbededSutitleID(), isFile ? -1 : 0);
}

void TstModelTracks::eachTypeReadsItsOwnFileFlag()
{
    ZoEffectModel model(QStringList{"Subtitle", "Audio"});
    addTracks(model.getDataItem("Subtitle", -1), "audio_isfile", "F");
    addTracks(model.getDataItem("Audio", -1), "sub_fromfile", "F");

    QCOMPARE(model.getEmbededSutitleID(), 0);
    QCOMPARE(model.useCustomSubtitle(), false);
    QCOMPARE(model.useEmbededSubtitle(), true);
    QCOMPARE(model.getEmbededAudioID(), 10);
    QCOMPARE(model.useCustomAudio(), false);
    QCOMPARE(model.useEmbededAudio(), true);

    // Flags of the type node itself are no track's flags.
    model.getDataItem("Subtitle", -1)->setData("sub_fromfile", true);
    model.getDataItem("Audio", -1)->setData("audio_isfile", true);
    QCOMPARE(model.getEmbededSutitleID(), 0);
    QCOMPARE(model.useCustomSubtitle(), false);
    QCOMPARE(model.getEmbededAudioID(), 10);
    QCOMPARE(model.useCustomAudio(), false);
}

void TstModelTracks::embeddedSubtitleIsAPositionNotAnId()
{
    ZoEffectModel model(QStringList{"Subtitle"});
    addTracks(model.getDataItem("Subtitle", -1), "sub_fromfile", "eeE");
    QCOMPARE(model.data("trackid", "Subtitle", 2), QVariant(12));

    QCOMPARE(model.getEmbededSutitleID(), 2);
}

void TstModelTracks::embeddedAudioIsAnId_data()
{
    QTest::addColumn<QVariant>("id");
    QTest::addColumn<int>("expected");

    QTest::newRow("number") << QVariant(3) << 3;
    QTest::newRow("zero") << QVariant(0) << 0;
    QTest::newRow("negative") << QVariant(-8) << -8;
    QTest::newRow("text of a number") << QVariant("7") << 7;
    QTest::newRow("text that is no number") << QVariant("abc") << 0;
    QTest::newRow("text with a fraction") << QVariant("3.6") << 0;
    QTest::newRow("double is rounded") << QVariant(3.6) << 4;
    QTest::newRow("negative half is rounded up") << QVariant(-0.5) << 0;
    QTest::newRow("negative one and a half") << QVariant(-1.5) << -1;
    QTest::newRow("true") << QVariant(true) << 1;
    QTest::newRow("invalid value under the key") << QVariant() << 0;
}

void TstModelTracks::embeddedAudioIsAnId()
{
    QFETCH(QVariant, id);
    QFETCH(int, expected);
    ZoEffectModel model(QStringList{"Audio"});
    addTracks(model.getDataItem("Audio", -1), "audio_isfile", "eE");
    model.getDataItem("Audio", 1)->setData("trackid", id);

    QCOMPARE(model.getEmbededAudioID(), expected);
    model.getDataItem("Audio", 1)->delData("trackid");
    QCOMPARE(model.getEmbededAudioID(), -1);
    // An id of 5 behind a track without one is not reached.
    auto* next = new ZoEffectItemData(QString(), model.getDataItem("Audio", -1));
    next->setData("trackid", 5);
    QCOMPARE(model.getEmbededAudioID(), -1);
}

void TstModelTracks::typeStateIsSelectedOnlyAtTwo_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("selected");

    QTest::newRow("unchecked") << 0 << false;
    QTest::newRow("partially checked") << 1 << false;
    QTest::newRow("checked") << 2 << true;
    QTest::newRow("beyond") << 3 << false;
    QTest::newRow("negative") << -2 << false;
}

void TstModelTracks::typeStateIsSelectedOnlyAtTwo()
{
    QFETCH(int, state);
    QFETCH(bool, selected);
    ZoEffectModel model(QStringList{"Subtitle", "Audio"});
    addTracks(model.getDataItem("Subtitle", -1), "sub_fromfile", "eEF");
    addTracks(model.getDataItem("Audio", -1), "audio_isfile", "eEF");
    model.getDataItem("Subtitle", -1)->setCheckState(state);
    model.getDataItem("Audio", -1)->setCheckState(state);

    QCOMPARE(model.getEmbededSutitleID(), selected ? 1 : 0);
    QCOMPARE(model.getEmbededAudioID(), selected ? 11 : -1);
    QCOMPARE(model.useCustomSubtitle(), selected);
    QCOMPARE(model.useCustomAudio(), selected);
    // Deliberate: the embedded tests do not ask whether the type is selected.
    QCOMPARE(model.useEmbededSubtitle(), true);
    QCOMPARE(model.useEmbededAudio(), true);
}

void TstModelTracks::questionsChangeNothing()
{
    ZoEffectModel model(QStringList{"Subtitle", "Audio"});
    addTracks(model.getDataItem("Subtitle", -1), "sub_fromfile", "pF");
    addTracks(model.getDataItem("Audio", -1), "audio_isfile", "eE");
    model.getDataItem("Audio", -1)->setCheckState(1);
    SignalRecorder recorder(model);

    model.getEmbededSutitleID();
    model.getEmbededAudioID();
    model.useCustomSubtitle();
    model.useEmbededSubtitle();
    model.useCustomAudio();
    model.useEmbededAudio();
    model.isForAudioEffect();
    model.getValidAudioEffectItem();

    QCOMPARE(model.getDataItem("Subtitle", -1)->checkState(), 2);
    QCOMPARE(model.getDataItem("Audio", -1)->checkState(), 1);
    QCOMPARE(model.getDataItem("Subtitle", 0)->checkState(), 1);
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->properties()), QString("{trackid: int 10}"));
    QCOMPARE(described(model.getDataItem("Subtitle", 1)->properties()),
             QString("{sub_fromfile: bool true, trackid: int 11}"));
    QCOMPARE(described(model.getDataItem("Audio", 0)->properties()), QString("{trackid: int 10}"));
    QCOMPARE(described(model.getDataItem("Audio", -1)->properties()), QString("{play_loop: bool false}"));
    QCOMPARE(described(root(model)->properties()), QString("{}"));
    QCOMPARE(recorder.take(), QStringList());
}

// --- refreshCurPlayData ------------------------------------------------------------------------------------

void TstModelTracks::previewTrack_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<int>("index");
    QTest::addColumn<QList<int>>("marked");

    QTest::newRow("first") << "eee" << 0 << QList<int>{0};
    QTest::newRow("in the middle") << "eee" << 1 << QList<int>{1};
    QTest::newRow("last") << "eee" << 2 << QList<int>{2};
    QTest::newRow("behind the end") << "eee" << 3 << QList<int>{};
    QTest::newRow("-1") << "eee" << -1 << QList<int>{};
    QTest::newRow("far below") << "eee" << std::numeric_limits<int>::min() << QList<int>{};
    QTest::newRow("far above") << "eee" << std::numeric_limits<int>::max() << QList<int>{};
    QTest::newRow("file track") << "eF" << 1 << QList<int>{1};
    QTest::newRow("selection plays no part") << "eE" << 0 << QList<int>{0};
    QTest::newRow("no tracks") << "" << 0 << QList<int>{};
    QTest::newRow("null entries are passed over") << "-e-e" << 3 << QList<int>{3};
    QTest::newRow("index of a null entry") << "e-e" << 1 << QList<int>{};
}

void TstModelTracks::previewTrack()
{
    QFETCH(QString, tracks);
    QFETCH(int, index);
    QFETCH(QList<int>, marked);

    // Whatever is marked before, afterwards only the one is.
    for (const bool markedBefore : {false, true}) {
        ZoEffectModel model;
        addTracks(model.getDataItem("Audio", -1), "audio_isfile", tracks);
        for (int row = 0; row < tracks.size(); ++row) {
            ZoEffectItemData* track = model.getDataItem("Audio", row);
            if (track && markedBefore)
                track->setData("_playmeineffect", true);
        }
        SignalRecorder recorder(model);

        model.refreshCurPlayData(index);

        for (int row = 0; row < tracks.size(); ++row) {
            const ZoEffectItemData* track = model.getDataItem("Audio", row);
            if (!track)
                continue;
            QCOMPARE(track->hasData("_playmeineffect"), marked.contains(row));
            QCOMPARE(described(track->data("_playmeineffect")),
                     QString(marked.contains(row) ? "bool true" : "invalid"));
        }
        QCOMPARE(recorder.take(), QStringList());
    }
}

void TstModelTracks::previewTrackMoves()
{
    ZoEffectModel model(QStringList{"Audio"});
    addTracks(model.getDataItem("Audio", -1), "audio_isfile", "eee");
    const auto marks = [&model] {
        QString result;
        for (int row = 0; row < 3; ++row)
            result += model.getDataItem("Audio", row)->hasData("_playmeineffect") ? QLatin1Char('x') : QLatin1Char('.');
        return result;
    };

    model.refreshCurPlayData(1);
    QCOMPARE(marks(), QString(".x."));
    model.refreshCurPlayData(1);
    QCOMPARE(marks(), QString(".x."));
    model.refreshCurPlayData(2);
    QCOMPARE(marks(), QString("..x"));
    model.refreshCurPlayData(0);
    QCOMPARE(marks(), QString("x.."));
    model.refreshCurPlayData(-1);
    QCOMPARE(marks(), QString("..."));
}

void TstModelTracks::previewMarkReplacesAnyValue()
{
    for (const QVariant& before : {QVariant(false), QVariant(7), QVariant("yes"), QVariant()}) {
        ZoEffectModel model(QStringList{"Audio"});
        addTracks(model.getDataItem("Audio", -1), "audio_isfile", "ee");
        model.getDataItem("Audio", 0)->setData("_playmeineffect", before);
        model.getDataItem("Audio", 1)->setData("_playmeineffect", before);

        model.refreshCurPlayData(0);
        QCOMPARE(described(model.getDataItem("Audio", 0)->properties()),
                 QString("{_playmeineffect: bool true, trackid: int 10}"));
        QCOMPARE(described(model.getDataItem("Audio", 1)->properties()), QString("{trackid: int 11}"));
    }
}

void TstModelTracks::previewMarkTouchesNothingElse()
{
    ZoEffectModel model(QStringList{"Subtitle", "Audio"});
    addTracks(model.getDataItem("Subtitle", -1), "sub_fromfile", "ee");
    addTracks(model.getDataItem("Audio", -1), "audio_isfile", "eE");
    for (const char* type : {"Subtitle", "Audio"})
        model.getDataItem(type, -1)->setData("_playmeineffect", 1);
    model.getDataItem("Subtitle", 0)->setData("_playmeineffect", 1);
    auto* nested = new ZoEffectItemData(QString(), model.getDataItem("Audio", 0));
    nested->setData("_playmeineffect", 1);
    model.getDataItem("Audio", -1)->setCheckState(0);

    model.refreshCurPlayData(1);

    QCOMPARE(described(model.getDataItem("Subtitle", 0)->data("_playmeineffect")), QString("int 1"));
    QCOMPARE(model.getDataItem("Subtitle", 1)->hasData("_playmeineffect"), false);
    QCOMPARE(described(model.getDataItem("Audio", -1)->data("_playmeineffect")), QString("int 1"));
    QCOMPARE(described(nested->data("_playmeineffect")), QString("int 1"));
    QCOMPARE(model.getDataItem("Audio", -1)->checkState(), 0);
    QCOMPARE(model.getDataItem("Audio", 0)->checkState(), 0);
    QCOMPARE(model.getDataItem("Audio", 1)->checkState(), 2);
    QCOMPARE(described(model.getDataItem("Audio", 1)->properties()),
             QString("{_playmeineffect: bool true, trackid: int 11}"));
}

void TstModelTracks::previewMarkInModelsWithoutTracks()
{
    ZoEffectModel lacksAudio(QStringList{"Subtitle"});
    addTracks(lacksAudio.getDataItem("Subtitle", -1), "sub_fromfile", "e");
    ZoEffectModel otherCase("audio", {});
    addTracks(otherCase.getDataItem("audio", -1), "audio_isfile", "e");
    BareModel empty({});
    for (ZoEffectModel* model : {&lacksAudio, &otherCase, static_cast<ZoEffectModel*>(&empty)})
        model->refreshCurPlayData(0);

    QCOMPARE(described(lacksAudio.getDataItem("Subtitle", 0)->properties()), QString("{trackid: int 10}"));
    QCOMPARE(described(otherCase.getDataItem("audio", 0)->properties()), QString("{trackid: int 10}"));
    QCOMPARE(root(empty)->childCount(), 0);
}

// --- Audio effects -----------------------------------------------------------------------------------------

void TstModelTracks::modelsForAudioEffects_data()
{
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<bool>("expected");

    QTest::newRow("fade") << QStringList{"Audio_Fade_Inout"} << true;
    QTest::newRow("normalize") << QStringList{"Audio_Normalize"} << true;
    QTest::newRow("band pass") << QStringList{"Audio_BandPass"} << true;
    QTest::newRow("chorus") << QStringList{"Audio_Chorus"} << true;
    QTest::newRow("flanger") << QStringList{"Audio_Flanger"} << true;
    QTest::newRow("echo") << QStringList{"Audio_Echo"} << true;
    QTest::newRow("speed") << QStringList{"Audio_Speed"} << true;
    QTest::newRow("one behind the video types") << QStringList{"Crop", "Audio", "Audio_Speed"} << true;
    QTest::newRow("one before the video types") << QStringList{"Audio_Speed", "Crop", "Audio"} << true;
    QTest::newRow("two of them") << QStringList{"Audio_Echo", "Audio_Chorus"} << true;
    QTest::newRow("no types") << QStringList{} << false;
    QTest::newRow("video types") << QStringList{"Crop", "Watermark", "Subtitle", "Color", "Effect"} << false;
    QTest::newRow("audio tracks are no audio effect") << QStringList{"Audio"} << false;
    QTest::newRow("other letter case") << QStringList{"audio_echo", "AUDIO_ECHO", "Audio_echo"} << false;
    QTest::newRow("nearly the names") << QStringList{"Audio_Fade_InOut", "Audio_Bandpass", "Audio_Normalise"} << false;
    QTest::newRow("longer name") << QStringList{"Audio_Echo2", "My Audio_Echo"} << false;
}

void TstModelTracks::modelsForAudioEffects()
{
    QFETCH(QStringList, types);
    QFETCH(bool, expected);
    BareModel model(types);

    QCOMPARE(model.isForAudioEffect(), expected);

    // The check states of the types play no part.
    for (int row = 0; row < root(model)->childCount(); ++row)
        root(model)->child(row)->setCheckState(0);
    QCOMPARE(model.isForAudioEffect(), expected);
}

void TstModelTracks::fullModelIsForAudioEffects()
{
    QCOMPARE(ZoEffectModel().isForAudioEffect(), true);
    QCOMPARE(ZoEffectModel(QStringList{"Audio_Flanger"}).isForAudioEffect(), true);
    QCOMPARE(ZoEffectModel(QStringList{"Crop", "Audio"}).isForAudioEffect(), false);
    QCOMPARE(ZoEffectModel("Audio_BandPass", {}).isForAudioEffect(), true);
    QCOMPARE(ZoEffectModel("Audio", {}).isForAudioEffect(), false);
}

void TstModelTracks::flaggedEffect_data()
{
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QList<int>>("flagged");
    QTest::addColumn<int>("expected");

    const QStringList listOrder{"Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus",
                                "Audio_Flanger",    "Audio_Echo",      "Audio_Speed"};
    const QStringList reversed{"Audio_Speed",    "Audio_Echo",      "Audio_Flanger",   "Audio_Chorus",
                               "Audio_BandPass", "Audio_Normalize", "Audio_Fade_Inout"};
    QTest::newRow("none flagged") << listOrder << QList<int>{} << -1;
    QTest::newRow("first") << listOrder << QList<int>{0} << 0;
    QTest::newRow("last") << listOrder << QList<int>{6} << 6;
    QTest::newRow("all: the first") << listOrder << QList<int>{0, 1, 2, 3, 4, 5, 6} << 0;
    QTest::newRow("two of them") << listOrder << QList<int>{3, 5} << 3;
    QTest::newRow("order of the tree counts") << reversed << QList<int>{1, 6} << 1;
    QTest::newRow("all in the tree's order") << reversed << QList<int>{0, 1, 2, 3, 4, 5, 6} << 0;
    QTest::newRow("single type flagged") << QStringList{"Audio_Echo"} << QList<int>{0} << 0;
    QTest::newRow("single type not flagged") << QStringList{"Audio_Echo"} << QList<int>{} << -1;
    QTest::newRow("another type may be the flagged one") << QStringList{"Crop", "Audio_Echo"} << QList<int>{0} << 0;
    QTest::newRow("another type before") << QStringList{"Crop", "Audio_Echo"} << QList<int>{0, 1} << 0;
    QTest::newRow("another type behind") << QStringList{"Audio_Echo", "Crop"} << QList<int>{1} << 1;
    QTest::newRow("twice the same type: the first flagged")
        << QStringList{"Audio_Echo", "Audio_Echo"} << QList<int>{1} << 1;
}

void TstModelTracks::flaggedEffect()
{
    QFETCH(QStringList, types);
    QFETCH(QList<int>, flagged);
    QFETCH(int, expected);
    BareModel model(types);
    for (int row = 0; row < types.size(); ++row)
        root(model)->child(row)->setData("audio_effect_flag", flagged.contains(row));
    SignalRecorder recorder(model);

    const ZoEffectItemData* const none = nullptr;
    const ZoEffectItemData* const node = expected < 0 ? none : root(model)->child(expected);
    QCOMPARE(static_cast<const ZoEffectItemData*>(model.getValidAudioEffectItem()), node);

    // The check states of the types play no part.
    for (int row = 0; row < types.size(); ++row)
        root(model)->child(row)->setCheckState(0);
    QCOMPARE(static_cast<const ZoEffectItemData*>(model.getValidAudioEffectItem()), node);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelTracks::flagTruth_data()
{
    fileFlagTruth_data();
}

void TstModelTracks::flagTruth()
{
    QFETCH(QVariant, flag);
    QFETCH(bool, isFile);
    ZoEffectModel model("Audio_Echo", {{"audio_effect_flag", flag}});
    const ZoEffectItemData* const node = model.getDataItem("Audio_Echo", -1);
    const ZoEffectItemData* const none = nullptr;

    QCOMPARE(static_cast<const ZoEffectItemData*>(model.getValidAudioEffectItem()), isFile ? node : none);
}

void TstModelTracks::flagsOfItemsAndRootDoNotCount()
{
    ZoEffectModel model(QStringList{"Audio_Echo", "Audio_Speed"});
    root(model)->setData("audio_effect_flag", true);
    auto* item = new ZoEffectItemData("item", model.getDataItem("Audio_Echo", -1));
    item->setData("audio_effect_flag", true);
    QVERIFY(!model.getValidAudioEffectItem());

    model.getDataItem("Audio_Speed", -1)->setData("audio_effect_flag", true);
    QCOMPARE(model.getValidAudioEffectItem(), model.getDataItem("Audio_Speed", -1));
}

void TstModelTracks::flaggedEffectInAModelWithoutAudioEffects()
{
    BareModel model({"Crop", "Audio", "audio_echo"});
    for (int row = 0; row < 3; ++row)
        root(model)->child(row)->setData("audio_effect_flag", true);
    QVERIFY(!model.getValidAudioEffectItem());

    // One audio effect type, flagged or not, and the first flagged type of the tree is found.
    new ZoEffectItemData("Audio_Normalize", root(model));
    QCOMPARE(model.getValidAudioEffectItem(), model.getDataItem("Crop", -1));
}

void TstModelTracks::flaggedEffectPassesOverNullTypes()
{
    BareModel model({"Audio_Echo", "Audio_Speed"});
    root(model)->insertChild(nullptr, 1);
    root(model)->insertChild(nullptr, 0);
    root(model)->appendChild(nullptr);
    QCOMPARE(model.isForAudioEffect(), true);
    QVERIFY(!model.getValidAudioEffectItem());

    model.getDataItem("Audio_Speed", -1)->setData("audio_effect_flag", true);
    QCOMPARE(model.getValidAudioEffectItem(), model.getDataItem("Audio_Speed", -1));
}

void TstModelTracks::catalogueFlagsAreOff()
{
    ZoEffectModel model;
    QCOMPARE(model.isForAudioEffect(), true);
    QVERIFY(!model.getValidAudioEffectItem());

    QVERIFY(model.setData("audio_effect_flag", true, "Audio_Flanger", -1));
    QCOMPARE(model.getValidAudioEffectItem(), model.getDataItem("Audio_Flanger", -1));
    QVERIFY(model.setData("audio_effect_flag", true, "Audio_Normalize", -1));
    QCOMPARE(model.getValidAudioEffectItem(), model.getDataItem("Audio_Normalize", -1));
}

ZOEFFECT_TEST_MAIN(TstModelTracks)

#include "tst_model_tracks.moc"
