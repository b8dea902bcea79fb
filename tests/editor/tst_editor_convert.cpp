// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Converting: options, what becomes of each track, the command, a short part, and the queue that is kept.

#include <QtTest>
#include <QtWidgets>

#include <queuepane.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
using zokit::RowState;

class TestEditorConvert : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_folder.reset(); }

    void whatIsSelectedIsConverted();
    void lineTellsWhatBecomesOfEachTrack();
    void optionIsSetInAllFilesAsOneStep();
    void optionIsSetInOneFile();
    void emptyFieldsShowWhatIsTaken();
    void filesAreConvertedAndTheRowsSaySo();
    void jobIsACopyOfTheSettings();
    void resultsGoWhereTheyAreWanted();
    void folderOfTheResultsIsRemembered();
    void wrongOptionIsToldBesideItsField();
    void sizeThatEnlargesNothingSaysSo();
    void twoResultsOfOneNameAreRefused();
    void commandIsShownAndCopied();
    void tenSecondsTellTheSizeOfTheWhole();
    void tenSecondsTellWhichTheyAre();
    void tenSecondsLieWhereTheResultWill();
    void watchingWithoutAPlayerSaysSo();
    void clipIsNotConvertedTwice();
    void failedRowTellsWhyAndIsTriedAgain();
    void failedRowBeginsWithTheReason();
    void remedyIsOneOfTheDialog();
    void filesTellWhatTheQueueDoesWithThem();
    void rowsArePausedCancelledAndRemoved();
    void severalRowsAreRemovedAtOnce();
    void newRowIsScrolledIntoView();
    void whatRanComesBackAsInterrupted();
    void closingWhileConvertingAsks();
    void stoppingIsAskedLast();

private:
    QString clip(const char* sample, const char* name) const { return copyOf(sample, *m_folder, name); }
    QString path(const char* name) const { return m_folder->filePath(key(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

constexpr int patience = 60000;

QTreeWidget* plans(const Stage& stage)
{
    return stage.find<QTreeWidget>("plans");
}

void click(const Stage& stage, const char* button)
{
    stage.find<QAbstractButton>(button)->click();
}

QTreeWidgetItem* row(const Stage& stage, int place)
{
    return stage.find<QTreeWidget>("queueList")->topLevelItem(place);
}

QString stateOf(const Stage& stage, int place)
{
    return row(stage, place)->text(2);
}

/// Opens the dialog for all files, of which one is selected.
void openForAll(const Stage& stage)
{
    stage.trigger("convert");
    stage.find<QComboBox>("which")->setCurrentIndex(1);
}

QString problem(const Stage& stage)
{
    const auto* label = stage.find<QLabel>("problem");
    return label ? label->text() : QString();
}

bool hasEnded(const Stage& stage)
{
    return QTest::qWaitFor([&] { return !stage.session().queue().isRunning(); }, patience);
}

/// Chooses the next one of a list of choices, by its key.
void chooseNext(const Stage& stage, const char* option)
{
    auto* box = stage.find<QComboBox>(option);
    QTest::keyClick(box, Qt::Key_Down);
    settle();
}

/// Ends the event loop in the moment in which a row runs.
void waitUntilOneRuns(const Stage& stage)
{
    QEventLoop loop;
    QObject::connect(&stage.session().queue(), &zokit::Queue::stateChanged, &loop, [&](int, RowState state) {
        if (state == RowState::Running)
            loop.quit();
    });
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void TestEditorConvert::init()
{
    kitsupport::clearSavedDefaults();
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestEditorConvert::whatIsSelectedIsConverted()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mp4", "b.mp4"), clip("plain.mp4", "c.mp4")});
    stage.session().setCurrent(stage.file(1));
    stage.trigger("convert");
    auto* which = stage.find<QComboBox>("which");
    QCOMPARE(which->currentText(), key("Only the selected file: b.mp4"));
    QCOMPARE(which->itemText(1), key("All 3 files"));
    QCOMPARE(plans(stage)->topLevelItemCount(), 1);
    QVERIFY(plans(stage)->topLevelItem(0)->text(0).startsWith(key("b.mp4 ")));
    QCOMPARE(stage.find<QPushButton>("start")->text(), key("Convert 1 file"));
    QCOMPARE(stage.find<QComboBox>("optionsOf")->count(), 2);
    stage.session().setCurrent(stage.file(2)); // As when a file that is still being read becomes the current one.
    stage.find<QComboBox>("optionsOf")->setCurrentIndex(1);
    chooseNext(stage, "Output:container");
    QCOMPARE(stage.file(1)->value(stage.file(1)->output(), key("container")), QVariant(key("mp4")));
    QVERIFY(!stage.file(2)->value(stage.file(2)->output(), key("container")).isValid());
    which->setCurrentIndex(1);
    QCOMPARE(plans(stage)->topLevelItemCount(), 3);
    QCOMPARE(stage.find<QPushButton>("start")->text(), key("Convert 3 files"));
    QCOMPARE(stage.find<QComboBox>("optionsOf")->count(), 4);
    click(stage, "close");
    settle();
    stage.session().select({stage.file(1), stage.file(2)});
    stage.trigger("convert");
    QCOMPARE(stage.find<QComboBox>("which")->currentText(), key("Only the 2 selected files: b.mp4, c.mp4"));
    QCOMPARE(plans(stage)->topLevelItemCount(), 2);
    click(stage, "close");
    settle();
    stage.session().select({stage.file(0), stage.file(1), stage.file(2)});
    stage.trigger("convert");
    QVERIFY(!stage.find<QComboBox>("which")); // There is nothing to choose.
    QCOMPARE(plans(stage)->topLevelItemCount(), 3);
}

void TestEditorConvert::lineTellsWhatBecomesOfEachTrack()
{
    const Stage stage({clip("plain.mp4", "film.mp4")});
    QVERIFY(stage.trigger("convert"));
    QTRY_COMPARE_WITH_TIMEOUT(plans(stage)->topLevelItem(0)->childCount(), 2, patience);
    QCOMPARE(plans(stage)->topLevelItem(0)->text(0), QString::fromUtf8("film.mp4 \342\206\222 film-converted.mp4"));
    QVERIFY(plans(stage)->topLevelItem(0)->child(0)->text(0).endsWith(key("copied")));
    chooseNext(stage, "Output:video-codec");
    QTRY_COMPARE_WITH_TIMEOUT(plans(stage)->topLevelItem(0)->childCount(), 2, patience);
    const QString line = plans(stage)->topLevelItem(0)->child(0)->text(0);
    QVERIFY2(line.contains(key("h264")) && !line.endsWith(key("copied")), qPrintable(line));
}

void TestEditorConvert::optionIsSetInAllFilesAsOneStep()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mp4", "b.mp4")});
    const int steps = stage.session().history().position();
    openForAll(stage);
    chooseNext(stage, "Output:container");
    for (int i = 0; i < 2; ++i)
        QCOMPARE(stage.file(i)->value(stage.file(i)->output(), key("container")), QVariant(key("mp4")));
    QCOMPARE(stage.session().history().position(), steps + 1);
    QCOMPARE(stage.find<QLabel>("Output:container:mark")->text(), key("set"));
    click(stage, "Output:container:revert");
    for (int i = 0; i < 2; ++i)
        QVERIFY(!stage.file(i)->value(stage.file(i)->output(), key("container")).isValid());
}

void TestEditorConvert::optionIsSetInOneFile()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mp4", "b.mp4")});
    openForAll(stage);
    stage.find<QComboBox>("optionsOf")->setCurrentIndex(2);
    chooseNext(stage, "Output:container");
    QVERIFY(!stage.file(0)->value(stage.file(0)->output(), key("container")).isValid());
    QCOMPARE(stage.file(1)->value(stage.file(1)->output(), key("container")), QVariant(key("mp4")));
    stage.find<QComboBox>("optionsOf")->setCurrentIndex(0);
    QCOMPARE(stage.find<QLabel>("Output:container:mark")->text(), key("different"));
}

void TestEditorConvert::emptyFieldsShowWhatIsTaken()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mkv", "b.mkv")});
    openForAll(stage);
    auto* container = stage.find<QComboBox>("Output:container");
    const auto* picture = stage.find<QComboBox>("Output:video-codec");
    QTRY_COMPARE_WITH_TIMEOUT(container->placeholderText(), key("per file"), patience);
    QCOMPARE(container->currentIndex(), -1);
    QCOMPARE(picture->placeholderText(), key("as it is"));
    QCOMPARE(stage.find<QLineEdit>("Output:name")->placeholderText(), key("{name}-converted.{ending}"));
    auto* of = stage.find<QComboBox>("optionsOf");
    of->setCurrentIndex(2);
    QCOMPARE(container->placeholderText(), key("mkv"));
    QCOMPARE(container->accessibleDescription(), key("not set: mkv"));
    of->setCurrentIndex(1);
    QCOMPARE(container->placeholderText(), key("mp4"));
    const auto* quality = stage.find<QSpinBox>("Output:quality")->findChild<QLineEdit*>();
    QCOMPARE(quality->placeholderText(), key("not set")); // What is copied has none.
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 10);
    chooseNext(stage, "Output:container");
    QTRY_COMPARE_WITH_TIMEOUT(picture->placeholderText(), key("h264"), patience);
    QCOMPARE(quality->placeholderText(), key("20"));
    QCOMPARE(stage.find<QLineEdit>("Output:pixel-format")->placeholderText(), key("yuv420p"));
    QCOMPARE(container->currentText(), key("mp4"));
    QCOMPARE(container->accessibleDescription(), key("set"));
}

void TestEditorConvert::filesAreConvertedAndTheRowsSaySo()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mkv", "b.mkv")});
    openForAll(stage);
    click(stage, "start");
    QVERIFY(!stage.find("convertDialog"));
    QVERIFY(stage.find("queue"));
    QVERIFY(hasEnded(stage));
    QCOMPARE(stateOf(stage, 0), key("done"));
    QCOMPARE(stateOf(stage, 1), key("done"));
    QCOMPARE(row(stage, 0)->text(0), key("a.mp4"));
    QCOMPARE(row(stage, 0)->text(1), key("a-converted.mp4"));
    QCOMPARE(row(stage, 0)->text(3), key("100 %"));
    QVERIFY(QFile::exists(path("a-converted.mp4")));
    QVERIFY(QFile::exists(path("b-converted.mkv")));
    QCOMPARE(stage.find<QLabel>("queueSummary")->text(), key("2 of 2 done"));
    const QString log = stage.find<QPlainTextEdit>("queueLog")->toPlainText();
    QVERIFY2(log.contains(key("copied")) && log.contains(key("ffmpeg")) && log.contains(key("\ndone\n")),
             qPrintable(log));
}

void TestEditorConvert::jobIsACopyOfTheSettings()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.session().queue().pause();
    stage.trigger("convert");
    click(stage, "start");
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 10);
    const int number = stage.session().queue().rows().value(0);
    QCOMPARE(stage.session().queue().job(number).settings.find(key("Color"))->values.value(key("bcs_contrast")),
             QVariant(0));
}

void TestEditorConvert::resultsGoWhereTheyAreWanted()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.trigger("convert");
    auto* name = stage.find<QLineEdit>("Output:name");
    QTest::keyClicks(name, key("{number} {name}.{ending}"));
    QTest::keyClick(name, Qt::Key_Return);
    stage.find<QLineEdit>("folder")->setText(path("new/folder"));
    click(stage, "start");
    QVERIFY(hasEnded(stage));
    QVERIFY(QFile::exists(path("new/folder/1 a.mp4")));
}

void TestEditorConvert::folderOfTheResultsIsRemembered()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.trigger("convert");
    stage.find<QLineEdit>("folder")->setText(path("results"));
    click(stage, "start");
    QVERIFY(hasEnded(stage));
    stage.trigger("convert");
    QCOMPARE(stage.find<QLineEdit>("folder")->text(), path("results"));
    stage.find<QLineEdit>("folder")->clear();
    click(stage, "close");
    settle();
    stage.trigger("convert");
    QCOMPARE(stage.find<QLineEdit>("folder")->text(), QString());
}

void TestEditorConvert::wrongOptionIsToldBesideItsField()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.trigger("convert");
    auto* size = stage.find<QLineEdit>("Output:size");
    QCOMPARE(size->placeholderText(), key("for example 1280x720"));
    QCOMPARE(stage.find<QLineEdit>("Output:trim")->placeholderText(), key("for example 12,40.5"));
    QVERIFY(!stage.find<QLabel>("Output:size:problem"));
    QTest::keyClicks(size, key("abc"));
    QTest::keyClick(size, Qt::Key_Return);
    settle();
    QVERIFY(stage.find<QLabel>("Output:size:problem"));
    QCOMPARE(stage.find<QLabel>("Output:size:problem")->text(),
             QString::fromUtf8("\342\232\240 abc is no size. Write WIDTHxHEIGHT, for example 1280x720, and ,exact "
                               "behind it to force the shape."));
    QCOMPARE(size->text(), key("abc"));
    QVERIFY(!stage.find<QPushButton>("start")->isEnabled());
    size->selectAll();
    QTest::keyClicks(size, key("80x60"));
    QTest::keyClick(size, Qt::Key_Return);
    settle();
    QVERIFY(!stage.find<QLabel>("Output:size:problem"));
    QCOMPARE(stage.file(0)->value(stage.file(0)->output(), key("size")), QVariant(key("80x60")));
    QVERIFY(stage.find<QPushButton>("start")->isEnabled());
    size->clear();
    QTest::keyClick(size, Qt::Key_X);
    QTest::keyClick(size, Qt::Key_Backspace);
    QTest::keyClick(size, Qt::Key_Return);
    QVERIFY(!stage.find<QLabel>("Output:size:problem"));
    QVERIFY(!stage.file(0)->value(stage.file(0)->output(), key("size")).isValid());
}

void TestEditorConvert::sizeThatEnlargesNothingSaysSo()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.trigger("convert");
    auto* size = stage.find<QLineEdit>("Output:size");
    QTest::keyClicks(size, key("99999x99999"));
    QTest::keyClick(size, Qt::Key_Return);
    settle();
    QVERIFY(stage.find<QLabel>("Output:size:problem"));
    QCOMPARE(
        stage.find<QLabel>("Output:size:problem")->text(),
        key("The picture of a.mp4 has 160 x 120: it is not enlarged. Write ,exact behind the size to enlarge it."));
    QVERIFY(stage.find<QPushButton>("start")->isEnabled());
}

void TestEditorConvert::twoResultsOfOneNameAreRefused()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mp4", "b.mp4")});
    openForAll(stage);
    auto* name = stage.find<QLineEdit>("Output:name");
    QTest::keyClicks(name, key("out.{ending}"));
    QTest::keyClick(name, Qt::Key_Return);
    settle();
    QVERIFY2(problem(stage).contains(key("a.mp4")) && problem(stage).contains(key("{number}")),
             qPrintable(problem(stage)));
    QVERIFY(!stage.find<QPushButton>("start")->isEnabled());
    name->clear();
    QTest::keyClicks(name, key("{date}"));
    QTest::keyClick(name, Qt::Key_Return);
    settle();
    QVERIFY2(problem(stage).contains(key("{date}")), qPrintable(problem(stage)));
}

void TestEditorConvert::commandIsShownAndCopied()
{
    const Stage stage({clip("plain.mp4", "it's a.mp4")});
    stage.trigger("convert");
    click(stage, "showCommand");
    QTRY_VERIFY_WITH_TIMEOUT(stage.find<QPushButton>("copyCommand")->isEnabled(), patience);
    const QString text = stage.find<QPlainTextEdit>("commandText")->toPlainText();
    QVERIFY2(text.startsWith(stage.session().tools().ffmpeg + QLatin1Char(' ')), qPrintable(text));
    QVERIFY2(text.contains(key("it'\\''s a-converted.mp4'")), qPrintable(text));
    click(stage, "copyCommand");
    QCOMPARE(QApplication::clipboard()->text(), text);
    QVERIFY(!QFile::exists(path("it's a-converted.mp4")));
}

void TestEditorConvert::tenSecondsTellTheSizeOfTheWhole()
{
    const Stage stage({clip("long.ts", "a.ts")});
    stage.trigger("convert");
    settle();
    click(stage, "sample");
    auto* said = stage.find<QLabel>("sampleState");
    QTRY_VERIFY_WITH_TIMEOUT(said->text().contains(key("would have")), patience);
    QVERIFY2(said->text().startsWith(key("a-sample.mkv has ")), qPrintable(said->text()));
    QVERIFY(QFile::exists(path("a-sample.mkv")));
    click(stage, "close");
    QTRY_VERIFY(!QFile::exists(path("a-sample.mkv")));
    QVERIFY(stage.session().queue().rows().isEmpty());
}

void TestEditorConvert::tenSecondsTellWhichTheyAre()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.find<QSlider>("time")->setValue(500);
    stage.trigger("convert");
    settle();
    click(stage, "sample");
    auto* said = stage.find<QLabel>("sampleState");
    QTRY_VERIFY_WITH_TIMEOUT(said->text().contains(key("would have")), patience);
    QVERIFY2(said->text().contains(key("It begins at 0.0 s: less than ten seconds come after the picture shown.")),
             qPrintable(said->text()));
}

void TestEditorConvert::tenSecondsLieWhereTheResultWill()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    QVERIFY(QDir().mkpath(path("results")));
    stage.trigger("convert");
    stage.find<QLineEdit>("folder")->setText(path("results"));
    settle();
    click(stage, "sample");
    auto* said = stage.find<QLabel>("sampleState");
    QTRY_VERIFY_WITH_TIMEOUT(said->text().contains(key("would have")), patience);
    QVERIFY(QFile::exists(path("results/a-sample.mp4")));
    QVERIFY(!QFile::exists(path("a-sample.mp4")));
}

// The desktop of these tests opens nothing.
void TestEditorConvert::watchingWithoutAPlayerSaysSo()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.trigger("convert");
    settle();
    click(stage, "sample");
    QTRY_VERIFY_WITH_TIMEOUT(stage.find<QPushButton>("showSample")->isEnabled(), patience);
    click(stage, "showSample");
    QCOMPARE(stage.find<QLabel>("sampleState")->text(),
             key("No program opens %1. Install one, for example with: apt-get install xdg-utils mpv")
                 .arg(path("a-sample.mp4")));
    click(stage, "start");
    QVERIFY(hasEnded(stage));
    click(stage, "openFolder");
    QVERIFY(stage.find<QPlainTextEdit>("queueLog")
                ->toPlainText()
                .contains(key("No program opens %1.").arg(m_folder->path())));
}

void TestEditorConvert::clipIsNotConvertedTwice()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.session().queue().pause();
    for (int i = 0; i < 2; ++i) {
        stage.trigger("convert");
        click(stage, "start");
        settle();
    }
    QCOMPARE(stage.session().queue().rows().size(), 1);
    QCOMPARE(stage.status(), key("In the queue already: a.mp4."));
    // What waits is converted as the settings are now.
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 10);
    stage.trigger("convert");
    click(stage, "start");
    settle();
    QCOMPARE(stage.session().queue().rows().size(), 1);
    const int row = stage.session().queue().rows().first();
    QVERIFY(stage.session().queue().job(row).settings == stage.file(0)->settings());
}

void TestEditorConvert::failedRowTellsWhyAndIsTriedAgain()
{
    QVERIFY(QFile::copy(clip("plain.mp4", "a.mp4"), path("a-converted.mp4")));
    const Stage stage({path("a.mp4")});
    stage.trigger("convert");
    click(stage, "start");
    QVERIFY(hasEnded(stage));
    QVERIFY2(stateOf(stage, 0).startsWith(key("failed: ")) && stateOf(stage, 0).contains(key("a-converted.mp4")),
             qPrintable(stateOf(stage, 0)));
    settle();
    QCOMPARE(stage.session().files().index(0).data(zoeditor::FilesModel::StateRole).toString(), stateOf(stage, 0));
    QFile::remove(path("a-converted.mp4"));
    click(stage, "retryRow");
    QVERIFY(hasEnded(stage));
    QCOMPARE(stateOf(stage, 0), key("done"));
}

void TestEditorConvert::failedRowBeginsWithTheReason()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    zokit::Job job;
    job.settings = stage.file(0)->settings();
    job.input = path("gone.mp4");
    job.output = path("out.mp4");
    stage.session().queue().add(job);
    stage.session().queue().start();
    QVERIFY(hasEnded(stage));
    QCOMPARE(row(stage, 0)->text(0), key("gone.mp4"));
    QVERIFY2(stateOf(stage, 0).startsWith(key("failed: no such file")), qPrintable(stateOf(stage, 0)));
}

void TestEditorConvert::remedyIsOneOfTheDialog()
{
    QVERIFY(QFile::copy(clip("plain.mp4", "a.mp4"), path("a-converted.mp4")));
    const Stage stage({path("a.mp4")});
    const QString sentence = key("%1 exists. Choose another folder, or what happens to existing files, in Convert.")
                                 .arg(path("a-converted.mp4"));
    stage.trigger("convert");
    QCOMPARE(stage.find<QLabel>("existingTitle")->text(), key("Existing files:"));
    QTRY_COMPARE_WITH_TIMEOUT(plans(stage)->topLevelItem(0)->childCount(), 1, patience);
    QCOMPARE(plans(stage)->topLevelItem(0)->child(0)->toolTip(0), sentence);
    click(stage, "start");
    QVERIFY(hasEnded(stage));
    QCOMPARE(stateOf(stage, 0), key("failed: ") + sentence);
}

void TestEditorConvert::filesTellWhatTheQueueDoesWithThem()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mp4", "b.mp4"), clip("plain.mp4", "c.mp4")});
    const auto states = [&stage] {
        settle();
        QStringList words;
        for (int i = 0; i < stage.session().files().rowCount(); ++i)
            words.append(stage.session().files().index(i).data(zoeditor::FilesModel::StateRole).toString());
        return words;
    };
    stage.session().select({stage.file(0), stage.file(1)});
    stage.trigger("convert");
    click(stage, "start");
    waitUntilOneRuns(stage);
    QCOMPARE(states().mid(0, 2), QStringList({key("running"), key("waiting")}));
    click(stage, "pauseQueue");
    stage.file(1)->setValue(stage.file(1)->type(key("Color")), key("bcs_contrast"), 5);
    QCOMPARE(states().mid(0, 2), QStringList({key("paused"), QString::fromUtf8("waiting \302\267 edited")}));
    click(stage, "pauseQueue");
    QVERIFY(hasEnded(stage));
    QCOMPARE(states().mid(0, 2), QStringList({key("done"), QString::fromUtf8("done \302\267 edited")}));
    for (const int done : stage.session().queue().rows())
        stage.session().queue().remove(done);
    QCOMPARE(states(), QStringList({key("untouched"), key("edited"), key("untouched")}));
}

void TestEditorConvert::rowsArePausedCancelledAndRemoved()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mp4", "b.mp4")});
    openForAll(stage);
    click(stage, "start");
    waitUntilOneRuns(stage);
    click(stage, "pauseQueue");
    QCOMPARE(stateOf(stage, 0), key("paused"));
    QCOMPARE(stateOf(stage, 1), key("waiting"));
    auto* list = stage.find<QTreeWidget>("queueList");
    QVERIFY(!stage.find<QPushButton>("removeRow")->isEnabled());
    list->setCurrentItem(list->topLevelItem(1));
    click(stage, "cancelRow");
    QCOMPARE(stateOf(stage, 1), key("cancelled"));
    click(stage, "removeRow");
    QCOMPARE(list->topLevelItemCount(), 1);
    click(stage, "pauseQueue");
    QVERIFY(hasEnded(stage));
    QCOMPARE(stateOf(stage, 0), key("done"));
}

void TestEditorConvert::severalRowsAreRemovedAtOnce()
{
    const Stage stage({clip("plain.mp4", "a.mp4"), clip("plain.mp4", "b.mp4"), clip("plain.mp4", "c.mp4")});
    openForAll(stage);
    click(stage, "start");
    QVERIFY(hasEnded(stage));
    zokit::Job job = stage.session().queue().job(stage.session().queue().rows().value(0));
    job.output = path("again.mp4");
    for (const char* name : {"x.mp4", "y.mp4"}) {
        job.input = path(name); // There is no such file.
        stage.session().queue().add(job);
    }
    auto* list = stage.find<QTreeWidget>("queueList");
    QVERIFY(stage.find<QPushButton>("removeDone")->isEnabled());
    list->setCurrentItem(list->topLevelItem(4));
    click(stage, "removeDone");
    QCOMPARE(list->topLevelItemCount(), 2);
    QCOMPARE(row(stage, 0)->text(0), key("x.mp4"));
    QCOMPARE(list->currentItem()->text(0), key("y.mp4"));
    QVERIFY(!stage.find<QPushButton>("removeDone")->isEnabled());
    stage.window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.window()));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(list->selectedItems().size(), 2);
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(list->topLevelItemCount(), 0);
    QVERIFY(stage.session().queue().rows().isEmpty());
}

void TestEditorConvert::newRowIsScrolledIntoView()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    zokit::Job job;
    job.settings = stage.file(0)->settings();
    job.input = path("a.mp4");
    for (int i = 0; i < 40; ++i) {
        job.output = m_folder->filePath(QStringLiteral("out%1.mp4").arg(i));
        stage.session().queue().add(job);
    }
    settle();
    auto* list = stage.find<QTreeWidget>("queueList");
    list->scrollToTop();
    job.output = path("last.mp4");
    stage.session().queue().add(job);
    settle();
    QVERIFY(list->viewport()->rect().contains(list->visualItemRect(row(stage, 40))));
}

void TestEditorConvert::whatRanComesBackAsInterrupted()
{
    const QString journals = path("journals");
    QDir().mkpath(journals);
    {
        zoeditor::Editor editor(journals);
        editor.start({clip("plain.mp4", "a.mp4")});
        QVERIFY(
            QTest::qWaitFor([&] { return editor.session().mediaOf(editor.session().current()) != nullptr; }, patience));
        zokit::Job job;
        job.input = path("a.mp4");
        job.output = path("a-converted.mp4");
        job.settings = editor.session().current()->settings();
        editor.session().queue().add(job);
        editor.session().queue().start();
        QEventLoop loop;
        connect(&editor.session().queue(), &zokit::Queue::stateChanged, &loop, &QEventLoop::quit);
        loop.exec();
    } // Without a good end.
    answer("recoverQuestion", "discard");
    zoeditor::Editor editor(journals);
    editor.start({});
    const auto* list = editor.window().findChild<QTreeWidget*>(key("queueList"));
    QCOMPARE(list->topLevelItemCount(), 1);
    QCOMPARE(list->topLevelItem(0)->text(2), key("interrupted"));
    editor.session().open({path("a.mp4")});
    const zoeditor::FilesModel& files = editor.session().files();
    QTRY_COMPARE_WITH_TIMEOUT(files.index(0).data(zoeditor::FilesModel::StateRole).toString(), key("interrupted"),
                              patience);
    QVERIFY(!editor.window().findChild<QWidget*>(key("queueDock"))->isHidden());
    QVERIFY(!QFile::exists(path("a-converted.mp4")));
    editor.window().findChild<QPushButton*>(key("retryRow"))->click();
    QTRY_COMPARE_WITH_TIMEOUT(list->topLevelItem(0)->text(2), key("done"), patience);
    QVERIFY(QFile::exists(path("a-converted.mp4")));
}

void TestEditorConvert::closingWhileConvertingAsks()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.trigger("convert");
    click(stage, "start");
    waitUntilOneRuns(stage);
    stage.session().queue().pause();
    answer("convertingQuestion", "goOn");
    QVERIFY(!stage.window().close());
    QVERIFY(stage.window().isVisible());
    QCOMPARE(stateOf(stage, 0), key("paused"));
    answer("convertingQuestion", "stopAndClose");
    QVERIFY(stage.window().close());
}

// Nothing is stopped behind a question that may still be answered by staying.
void TestEditorConvert::stoppingIsAskedLast()
{
    const Stage stage({clip("plain.mp4", "a.mp4")});
    stage.trigger("convert");
    click(stage, "start");
    waitUntilOneRuns(stage);
    stage.session().queue().pause();
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 5);
    QStringList asked;
    QString last;
    QTimer looking;
    connect(&looking, &QTimer::timeout, &looking, [&] {
        QWidget* shown = QApplication::activeModalWidget();
        if (!shown || shown->objectName() == asked.value(asked.size() - 1))
            return;
        asked.append(shown->objectName());
        const bool isOfSettings = asked.constLast() == key("closeQuestion");
        shown->findChild<QAbstractButton*>(isOfSettings ? key("discard") : last)->click();
    });
    looking.start(0);
    last = key("goOn");
    QVERIFY(!stage.window().close());
    QCOMPARE(asked, QStringList({key("closeQuestion"), key("convertingQuestion")}));
    QCOMPARE(stateOf(stage, 0), key("paused"));
    asked.clear();
    last = key("stopAndClose");
    QVERIFY(stage.window().close());
    QVERIFY(hasEnded(stage));
}

EDITOR_TEST_MAIN(TestEditorConvert)
#include "tst_editor_convert.moc"
