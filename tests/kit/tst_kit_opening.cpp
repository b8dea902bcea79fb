// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>

#include <zokit/filesettings.h>
#include <zokit/opening.h>
#include <zokit/project.h>
#include <zokit/settingsfile.h>

#include "childwatch.h"
#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;

class TestKitOpening : public childwatch::Test {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void folderGivesMediaFiles();
    void clipBeginsWithAnItemForEachTrack();
    void tracksBeginWithTheSavedDefaults();
    void tracksFollowTheRules_data();
    void tracksFollowTheRules();
    void rulesWrittenByHandChoose_data();
    void rulesWrittenByHandChoose();
    void settingsFollowTheFrameOfTheirClip();
};

namespace {

zokit::MediaInfo media(const char* clip)
{
    return *zokit::probe(zokit::findTools(), clips::clip(key(clip))).media;
}

} // namespace

void TestKitOpening::folderGivesMediaFiles()
{
    QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkpath(key("below")));
    for (const char* name : {"b.MKV", "a.mp4", "notes.txt", "mkv", "below/c.wav"}) {
        QFile file(dir.filePath(key(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(QFile::link(folder.path(), dir.filePath(key("round"))));
    const QStringList own{dir.filePath(key("a.mp4")), dir.filePath(key("b.MKV"))};
    QCOMPARE(zokit::mediaFilesIn(folder.path(), false), own);
    QCOMPARE(zokit::mediaFilesIn(folder.path(), true), own + QStringList{dir.filePath(key("below/c.wav"))});
    QCOMPARE(zokit::mediaFilesIn(dir.filePath(key("none")), true), QStringList());
}

void TestKitOpening::clipBeginsWithAnItemForEachTrack()
{
    const zokit::Settings settings = zokit::settingsOf(media("languages.mkv"));
    QCOMPARE(settings.media.file, clips::clip(key("languages.mkv")));
    QCOMPARE(settings.media.frame, QSize(160, 120));
    QCOMPARE(settings.find(key("Audio"))->items.size(), 2);
    QCOMPARE(settings.find(key("Subtitle"))->items.size(), 2);
    QVERIFY(!settings.find(key("Audio"))->items.at(0).selected);
    QCOMPARE(zokit::settingsOf(media("sound.wav")).media.frame, QSize(0, 0));
}

void TestKitOpening::tracksBeginWithTheSavedDefaults()
{
    const zokit::MediaInfo clip = media("languages.mkv");
    zokit::Project project;
    zokit::FileSettings* file = project.add(zokit::settingsOf(clip));
    const zokit::Identity track = file->item(key("Subtitle"), 0);
    QVERIFY(file->setValue(track, key("sub_transparency"), 40).isEmpty());
    QVERIFY(project.saveDefault(track).isEmpty());
    const zokit::FileSettings fresh(zokit::settingsOf(clip));
    for (const int pos : {0, 1}) {
        const zokit::Identity item = fresh.item(key("Subtitle"), pos);
        QCOMPARE(fresh.value(item, key("sub_transparency")), QVariant(40));
        QVERIFY(fresh.state(item, key("sub_transparency")) == zokit::State::SavedDefault);
        QVERIFY(fresh.state(item, key("selected")) == zokit::State::Default);
    }
    // A file means the same everywhere.
    zokit::Settings written;
    written.tracks = {{key("subtitle-track"), key("3")}};
    const zokit::Settings found = zokit::settingsFor(zokit::completed(written), clip);
    QCOMPARE(found.find(key("Subtitle"))->items.at(0).values.value(key("sub_transparency")), QVariant(0));
}

void TestKitOpening::tracksFollowTheRules_data()
{
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QVector<bool>>("selected"); // Sound, then subtitles.
    QTest::addColumn<QString>("error");
    const QString first = key("track 1 (audio, fra, aac): not chosen");
    const QString second = key("track 2 (audio, eng, aac): not chosen");
    const QString third = key("track 3 (subtitle, ger, subrip): not chosen");
    const QString fourth = key("track 4 (subtitle, ass): not chosen");
    QTest::newRow("none") << "" << QVariant() << QStringList{first, second, third, fourth}
                          << QVector<bool>{false, false, false, false} << "";
    QTest::newRow("language of the sound")
        << "audio-language" << QVariant(QStringList{key("eng")})
        << QStringList{first, key("track 2 (audio, eng, aac): chosen for its language, eng"), third, fourth}
        << QVector<bool>{false, true, false, false} << "";
    QTest::newRow("language that it lacks")
        << "audio-language" << QVariant(QStringList{key("ita")})
        << QStringList{key("track 1 (audio, fra, aac): chosen as the one that players take, since none is in ita"),
                       second, third, fourth,
                       key("No audio track is in ita. Ask for a language that the clip has: fra, eng.")}
        << QVector<bool>{true, false, false, false} << "";
    QTest::newRow("a rule that is none") << "audio-languages" << QVariant(5) << QStringList()
                                         << QVector<bool>{false, false, false, false}
                                         << "Tracks has no property audio-languages. Did you mean audio-language?";
    QTest::newRow("track that is not there")
        << "audio-tracks" << QVariant(QVariantList{7}) << QStringList() << QVector<bool>{false, false, false, false}
        << "The clip has no such track 7. Choose one that it has.";
}

void TestKitOpening::tracksFollowTheRules()
{
    QFETCH(const QString, rule);
    QFETCH(const QVariant, given);
    const zokit::MediaInfo clip = media("languages.mkv");
    zokit::Settings settings = zokit::settingsOf(clip);
    if (given.isValid())
        settings.tracks.insert(rule, given);
    const zokit::RuledTracks ruled = zokit::tracksByRule(settings, clip);
    QVector<bool> selected;
    for (const char* type : {"Audio", "Subtitle"}) {
        for (const zokit::Item& item : ruled.settings.find(key(type))->items)
            selected.append(item.selected);
    }
    QTEST(ruled.lines(), "lines");
    QTEST(selected, "selected");
    QTEST(ruled.error.text(), "error");
}

void TestKitOpening::rulesWrittenByHandChoose_data()
{
    QTest::addColumn<QByteArray>("effects");
    QTest::addColumn<QByteArray>("rules");
    QTest::addColumn<QVector<bool>>("selected"); // Sound, then subtitles.
    QTest::addColumn<QStringList>("said");
    QTest::newRow("languages") << QByteArray() << QByteArray(R"("audio-language": ["ita", "eng"])")
                               << QVector<bool>{false, true, false, false} << QStringList();
    QTest::newRow("a music file stays") << QByteArray(R"({"type": "Audio", "items": [
        {"values": {"audio_isfile": true, "file": "/music.flac"}}]})")
                                        << QByteArray(R"("audio-tracks": [1], "subtitle-track": "4")")
                                        << QVector<bool>{true, false, true, false, true} << QStringList();
    QTest::newRow("tracks that are named stay as they are")
        << QByteArray(R"({"type": "Audio", "items": [{"selected": false, "values": {"trackid": 2}}]})")
        << QByteArray(R"("audio-language": ["eng"])") << QVector<bool>{false} << QStringList();
    const QByteArray file(R"({"type": "Subtitle", "items": [{"values": {"sub_fromfile": true, "file": "/a.srt"}}]})");
    QTest::newRow("a subtitle file stays") << file << QByteArray(R"("audio-tracks": [1])")
                                           << QVector<bool>{true, false, false, false, true} << QStringList();
    QTest::newRow("files beside the clip that were found stay as they are")
        << file << QByteArray(R"("sidecars": true)") << QVector<bool>{true} << QStringList();
    QTest::newRow("a language that is not there")
        << QByteArray() << QByteArray(R"("audio-language": ["ita"])") << QVector<bool>{true, false, false, false}
        << QStringList{"No audio track is in ita. Ask for a language that the clip has: fra, eng."};
    QTest::newRow("a track that is not there")
        << QByteArray() << QByteArray(R"("audio-tracks": [9])") << QVector<bool>()
        << QStringList{"The clip has no such track 9. Choose one that it has."};
    QTest::newRow("no rules") << QByteArray() << QByteArray() << QVector<bool>() << QStringList();
}

void TestKitOpening::rulesWrittenByHandChoose()
{
    QFETCH(QByteArray, effects);
    QFETCH(QByteArray, rules);
    const zokit::ReadSettings read = zokit::readSettings(
        R"({"zoeffect": 1, "effects": [)" + effects + R"(], "tracks": {)" + rules + "}}", QString());
    QVERIFY2(read.settings, qPrintable(read.error.text()));
    zokit::RuledTracks tracks;
    const zokit::Settings found = zokit::settingsFor(*read.settings, media("languages.mkv"), &tracks);
    QVector<bool> selected;
    for (const char* type : {"Audio", "Subtitle"}) {
        for (const zokit::Item& item : found.find(key(type))->items)
            selected.append(item.selected);
    }
    QTEST(selected, "selected");
    QStringList said;
    for (const zokit::Message& warning : std::as_const(tracks.warnings))
        said.append(warning.text());
    if (!tracks.error.isEmpty())
        said.append(tracks.error.text());
    QTEST(said, "said");
}

void TestKitOpening::settingsFollowTheFrameOfTheirClip()
{
    zokit::Settings settings = zokit::settingsOf(media("plain.mp4"));
    settings.media.frame = QSize(320, 240);
    settings.media.seconds = 99;
    settings.find(key("Crop"))->values = {
        {key("crop_left"), 40}, {key("crop_top"), 20}, {key("crop_width"), 200}, {key("crop_height"), 100}};
    const zokit::Settings found = zokit::settingsFor(settings, media("plain.mp4"));
    QCOMPARE(found.media.frame, QSize(160, 120));
    QVERIFY(found.media.seconds < 1);
    QCOMPARE(found.find(key("Crop"))->values.value(key("crop_left")), QVariant(20));
    QCOMPARE(found.find(key("Crop"))->values.value(key("crop_width")), QVariant(100));
    const zokit::Settings ofSound = zokit::settingsFor(settings, media("sound.wav")); // It has none.
    QCOMPARE(ofSound.media.frame, QSize(0, 0));
    QCOMPARE(ofSound.find(key("Crop"))->values.value(key("crop_left")), QVariant(40));
}

ZOEFFECT_TEST_MAIN(TestKitOpening)
#include "tst_kit_opening.moc"
