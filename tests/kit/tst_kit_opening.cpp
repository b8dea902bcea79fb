// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>

#include <zokit/filesettings.h>
#include <zokit/opening.h>

#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;

class TestKitOpening : public QObject {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void folderGivesMediaFiles();
    void clipBeginsWithAnItemForEachTrack();
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
}

ZOEFFECT_TEST_MAIN(TestKitOpening)
#include "tst_kit_opening.moc"
