// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Tracks are chosen by rules and by hand; a line tells what becomes of each.

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>

#include <appearance.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;

class TestEditorTracks : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { init(); }

    void languageRuleChoosesTracks();
    void lineTellsWhatBecomesOfATrack();
    void rowsAreAsHighAsTheirTexts_data();
    void rowsAreAsHighAsTheirTexts();
    void tracksAreChosenByHand();
    void oneSubtitleAtMost();
    void orderOfLanguagesCounts();
    void rulesReachAllFilesAsOneStep();
    void sidecarsAreOffered();
    void sidecarIsChosenByHand();
    void tickedTracksStay();
    void cancelChangesNothing();
};

namespace {

// In languages.mkv: 1 fra and 2 eng are sounds, 3 ger (forced) and 4 subtitles.
enum { French, English, German, Captions };

QTreeWidget* tracks(const Stage& stage)
{
    return stage.find<QTreeWidget>("tracks");
}

void add(const Stage& stage, const QByteArray& list, const char* code)
{
    auto* choice = stage.find<QComboBox>((list + ":choice").constData());
    choice->setCurrentIndex(choice->findData(key(code)));
    stage.find<QPushButton>((list + ":add").constData())->click();
}

/// Which tracks of sound the settings use, by their place.
QVector<int> usedSounds(const zokit::FileSettings* file)
{
    QVector<int> used;
    const QVector<zokit::Identity> items = file->items(key("Audio"));
    for (int i = 0; i < items.size(); ++i) {
        if (file->value(items.at(i), key("selected")).toBool())
            used.append(i);
    }
    return used;
}

QString why(const Stage& stage, int row)
{
    return tracks(stage)->topLevelItem(row)->text(1);
}

void check(const Stage& stage, int row, bool isOn)
{
    tracks(stage)->topLevelItem(row)->setCheckState(0, isOn ? Qt::Checked : Qt::Unchecked);
    settle();
}

} // namespace

void TestEditorTracks::init()
{
    kitsupport::clearSavedDefaults();
    zoeditor::appearance::setLanguage(key("en"));
}

void TestEditorTracks::languageRuleChoosesTracks()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    stage.trigger("tracks");
    QCOMPARE(tracks(stage)->topLevelItemCount(), 4);
    QVERIFY2(tracks(stage)->topLevelItem(English)->text(0).contains(key("(eng)")),
             qPrintable(tracks(stage)->topLevelItem(English)->text(0)));
    QCOMPARE(why(stage, English), key("no"));
    add(stage, "audioLanguages", "eng");
    QCOMPARE(why(stage, English), key("chosen for its language, eng"));
    QCOMPARE(why(stage, French), key("no"));
    stage.find<QPushButton>("apply")->click();
    QCOMPARE(usedSounds(stage.file(0)), QVector<int>{1});
    QCOMPARE(stage.file(0)->settings().tracks.value(key("audio-language")), QVariant(QStringList{key("eng")}));
    stage.session().undo();
    QCOMPARE(usedSounds(stage.file(0)), QVector<int>());
}

void TestEditorTracks::tickedTracksStay()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    stage.file(0)->setValue(stage.file(0)->item(key("Audio"), 1), key("selected"), true);
    stage.trigger("tracks");
    QCOMPARE(tracks(stage)->topLevelItem(English)->checkState(0), Qt::Checked);
    QCOMPARE(why(stage, English), key("chosen by hand"));
    add(stage, "subtitleLanguages", "ger");
    stage.find<QPushButton>("apply")->click();
    QCOMPARE(usedSounds(stage.file(0)), QVector<int>{1});
}

void TestEditorTracks::lineTellsWhatBecomesOfATrack()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    stage.trigger("tracks");
    const auto fate = [&](int row) { return tracks(stage)->topLevelItem(row)->text(2); };
    QTRY_VERIFY_WITH_TIMEOUT(!fate(French).isEmpty(), 60000);
    QVERIFY2(fate(French).contains(key("fra")) && fate(French).endsWith(key("copied")), qPrintable(fate(French)));
    stage.file(0)->setValue(stage.file(0)->output(), key("other-tracks"), key("drop"));
    add(stage, "audioLanguages", "eng");
    QTRY_VERIFY_WITH_TIMEOUT(fate(English).endsWith(key("copied")), 60000);
    QVERIFY2(fate(French).contains(key("left out")), qPrintable(fate(French)));
}

void TestEditorTracks::rowsAreAsHighAsTheirTexts_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << key("en");
    QTest::newRow("German") << key("de");
}

/// In the width that they have, whatever it was before.
void TestEditorTracks::rowsAreAsHighAsTheirTexts()
{
    QFETCH(const QString, language);
    zoeditor::appearance::setLanguage(language);
    const Stage stage({clips::clip(key("languages.mkv"))});
    stage.trigger("tracks");
    auto* dialog = stage.find("tracksDialog");
    QTreeWidget* list = tracks(stage);
    QTRY_VERIFY_WITH_TIMEOUT(!list->topLevelItem(Captions)->text(2).isEmpty(), 60000);
    const auto linesOf = [&](int row) {
        return list->visualItemRect(list->topLevelItem(row)).height() / list->fontMetrics().lineSpacing();
    };
    for (const auto& [width, wraps] : {std::pair(900, true), std::pair(2000, false), std::pair(900, true)}) {
        dialog->resize(width, 560);
        settle();
        QCOMPARE(linesOf(French) > 1, wraps);
        QCOMPARE(linesOf(German) > 1, wraps);
    }
}

void TestEditorTracks::tracksAreChosenByHand()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    stage.trigger("tracks");
    add(stage, "audioLanguages", "eng");
    QVERIFY(!stage.find<QPushButton>("byRule")->isEnabled());
    check(stage, French, true);
    QCOMPARE(why(stage, French), key("chosen by hand"));
    QCOMPARE(why(stage, English), key("chosen by hand"));
    check(stage, English, false);
    QCOMPARE(why(stage, English), key("no"));
    stage.find<QPushButton>("byRule")->click();
    QCOMPARE(why(stage, English), key("chosen for its language, eng"));
    check(stage, French, true);
    stage.find<QPushButton>("apply")->click();
    QCOMPARE(usedSounds(stage.file(0)), QVector<int>({0, 1}));
}

void TestEditorTracks::oneSubtitleAtMost()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    stage.trigger("tracks");
    check(stage, German, true);
    check(stage, Captions, true);
    QCOMPARE(why(stage, German), key("no"));
    QCOMPARE(why(stage, Captions), key("chosen by hand"));
    check(stage, Captions, false);
    QCOMPARE(why(stage, Captions), key("no"));
}

void TestEditorTracks::orderOfLanguagesCounts()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    stage.trigger("tracks");
    auto* up = stage.find<QPushButton>("audioLanguages:up");
    auto* remove = stage.find<QPushButton>("audioLanguages:remove");
    QVERIFY(!up->isEnabled() && !remove->isEnabled());
    add(stage, "audioLanguages", "eng");
    QVERIFY(!up->isEnabled() && remove->isEnabled());
    add(stage, "audioLanguages", "fra");
    add(stage, "audioLanguages", "fra"); // Once is enough.
    auto* list = stage.find<QListWidget>("audioLanguages:list");
    QCOMPARE(list->count(), 2);
    QVERIFY(!why(stage, English).startsWith(key("no")));
    list->setCurrentRow(1);
    up->click();
    QVERIFY(!up->isEnabled());
    QCOMPARE(why(stage, French), key("chosen for its language, fra"));
    QCOMPARE(why(stage, English), key("no"));
    remove->click();
    QCOMPARE(why(stage, English), key("chosen for its language, eng"));
    QVERIFY(!up->isEnabled() && remove->isEnabled());
}

void TestEditorTracks::rulesReachAllFilesAsOneStep()
{
    QTemporaryDir folder;
    const Stage stage({copyOf("languages.mkv", folder, "a.mkv"), copyOf("languages.mkv", folder, "b.mkv")});
    const int steps = stage.session().history().position();
    stage.trigger("tracks");
    add(stage, "audioLanguages", "fra");
    auto* where = stage.find<QComboBox>("where");
    where->setCurrentIndex(where->findData(2));
    stage.find<QPushButton>("apply")->click();
    QCOMPARE(usedSounds(stage.file(0)), QVector<int>{0});
    QCOMPARE(usedSounds(stage.file(1)), QVector<int>{0});
    QCOMPARE(stage.session().history().position(), steps + 1);
}

void TestEditorTracks::sidecarsAreOffered()
{
    QTemporaryDir folder;
    const QString clip = copyOf("plain.mkv", folder, "film.mkv");
    QFile::copy(clips::clip(key("text.srt")), folder.filePath(key("film.eng.srt")));
    const Stage stage({clip});
    stage.trigger("tracks");
    auto* sidecars = stage.find<QCheckBox>("sidecars");
    QCOMPARE(sidecars->text(), key("Subtitle file &beside the clip (1)"));
    QCOMPARE(sidecars->toolTip(), key("film.eng.srt"));
    QVERIFY(stage.find<QLabel>("meaning")->text().startsWith(key("What is chosen comes first")));
    QCOMPARE(tracks(stage)->topLevelItemCount(), 2);
    QCOMPARE(why(stage, 1), key("no"));
    sidecars->setChecked(true);
    QCOMPARE(tracks(stage)->topLevelItem(1)->text(0), key("Subtitles film.eng.srt"));
    QCOMPARE(why(stage, 1), key("chosen as subtitle file beside the clip"));
    stage.find<QPushButton>("apply")->click();
    QCOMPARE(stage.file(0)->items(key("Subtitle")).size(), 1);
}

void TestEditorTracks::sidecarIsChosenByHand()
{
    QTemporaryDir folder;
    const Stage stage({copyOf("plain.mkv", folder, "one.mkv"), copyOf("plain.mkv", folder, "two.mkv")});
    for (const char* name : {"one.eng.srt", "one.ger.srt", "two.ger.srt"})
        QFile::copy(clips::clip(key("text.srt")), folder.filePath(key(name)));
    stage.trigger("tracks");
    QCOMPARE(tracks(stage)->topLevelItem(2)->text(0), key("Subtitles one.ger.srt"));
    check(stage, 1, true);
    check(stage, 2, true); // One at most.
    QCOMPARE(why(stage, 1), key("no"));
    QCOMPARE(why(stage, 2), key("chosen by hand"));
    QVERIFY(stage.find<QPushButton>("byRule")->isEnabled());
    auto* where = stage.find<QComboBox>("where");
    where->setCurrentIndex(where->findData(2)); // All: each gets its own.
    stage.find<QPushButton>("apply")->click();
    for (int i = 0; i < 2; ++i) {
        const QVector<zokit::Identity> items = stage.file(i)->items(key("Subtitle"));
        QCOMPARE(items.size(), 1);
        QCOMPARE(stage.file(i)->value(items.first(), key("file")).toString(),
                 folder.filePath(key(i == 0 ? "one.ger.srt" : "two.ger.srt")));
    }
    // It is found again, and can be taken away.
    settle();
    stage.trigger("tracks");
    QCOMPARE(why(stage, 2), key("chosen by hand"));
    check(stage, 2, false);
    QCOMPARE(why(stage, 2), key("no"));
    stage.find<QPushButton>("apply")->click();
    const zokit::Identity item = stage.file(0)->item(key("Subtitle"), 0);
    QCOMPARE(stage.file(0)->value(item, key("selected")), QVariant(false));
}

void TestEditorTracks::cancelChangesNothing()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    const zokit::Settings before = stage.file(0)->settings();
    stage.trigger("tracks");
    add(stage, "audioLanguages", "eng");
    check(stage, German, true);
    stage.find<QPushButton>("cancel")->click();
    QVERIFY(stage.file(0)->settings() == before);
}

EDITOR_TEST_MAIN(TestEditorTracks)
#include "tst_editor_tracks.moc"
