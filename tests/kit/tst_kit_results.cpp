// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What results are called, what a part of one tells of the whole, and how a conversion is run by hand.

#include <QtTest>

#include <zokit/resultname.h>
#include <zokit/sample.h>
#include <zokit/settingsfile.h>
#include <zokit/shell.h>

#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::Job;

namespace {

Job whole()
{
    Job made;
    made.input = key("/films/a.mkv");
    made.output = key("/films/a-converted.mkv");
    made.settings.media = kitsupport::clip();
    made.settings = zokit::completed(made.settings);
    return made;
}

} // namespace

class TestKitResults : public QObject {
    Q_OBJECT

private slots:
    void namesOfResults_data();
    void namesOfResults();
    void wrongPatterns_data();
    void wrongPatterns();
    void sampleLiesInThePartThatIsConverted_data();
    void sampleLiesInThePartThatIsConverted();
    void sampleTakesAFreeName();
    void sampleLiesWhereTheResultWill();
    void sizeOfTheWholeFollowsFromTheSample();
    void wordsForAShell_data();
    void wordsForAShell();
    void linesRunByHandOverwriteNothing();
};

void TestKitResults::namesOfResults_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no pattern") << ""
                                << "film" << 1 << "film-converted.mkv";
    QTest::newRow("all words") << "{number} {name}.{ending}"
                               << "film" << 9 << "3 film.mkv";
    QTest::newRow("number as wide as the count") << "{number}"
                                                 << "film" << 120 << "003";
    QTest::newRow("name that looks like a word") << "{name}"
                                                 << "{ending}" << 1 << "{ending}";
    QTest::newRow("no word") << "out"
                             << "film" << 1 << "out";
}

void TestKitResults::namesOfResults()
{
    QFETCH(QString, pattern);
    QFETCH(QString, name);
    QFETCH(int, count);
    QTEST(zokit::resultName(pattern, name, key("mkv"), 3, count), "expected");
}

void TestKitResults::wrongPatterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing wrong") << "{name}{number}.{ending}"
                                   << "";
    QTest::newRow("a folder") << "out/{name}"
                              << "/";
    QTest::newRow("an unknown word") << "{name} {date}"
                                     << "{date}";
    QTest::newRow("a brace alone") << "{name"
                                   << "";
}

void TestKitResults::wrongPatterns()
{
    QFETCH(QString, pattern);
    QTEST(zokit::wrongInPattern(pattern), "expected");
}

void TestKitResults::sampleLiesInThePartThatIsConverted_data()
{
    QTest::addColumn<QVariantList>("trim");
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("from");
    QTest::addColumn<QVariantList>("expected");
    QTest::newRow("in the middle") << QVariantList() << 60.0 << 20.0 << QVariantList{20.0, 30.0};
    QTest::newRow("near the end: the last ones") << QVariantList() << 60.0 << 55.0 << QVariantList{50.0, 60.0};
    QTest::newRow("shorter than that") << QVariantList() << 4.0 << 3.0 << QVariantList{0.0, 4.0};
    QTest::newRow("before a trim") << QVariantList{30.0, 50.0} << 60.0 << 2.0 << QVariantList{30.0, 40.0};
    QTest::newRow("behind a trim") << QVariantList{30.0, 50.0} << 60.0 << 58.0 << QVariantList{40.0, 50.0};
    QTest::newRow("length unknown") << QVariantList() << 0.0 << 20.0 << QVariantList{20.0, 30.0};
}

void TestKitResults::sampleLiesInThePartThatIsConverted()
{
    QFETCH(QVariantList, trim);
    QFETCH(double, length);
    QFETCH(double, from);
    Job whole = ::whole();
    if (!trim.isEmpty())
        whole.settings.output.insert(key("trim"), trim);
    zokit::MediaInfo media;
    media.seconds = length;
    const Job sample = zokit::sampleOf(whole, media, from);
    QTEST(sample.settings.output.value(key("trim")).toList(), "expected");
    QCOMPARE(sample.output, key("/films/a-sample.mkv"));
}

void TestKitResults::sampleTakesAFreeName()
{
    const QTemporaryDir folder;
    Job whole = ::whole();
    whole.input = folder.filePath(key("a.mkv"));
    whole.output = key("/elsewhere/b.mp4");
    whole.replaces = true;
    QFile taken(folder.filePath(key("a-sample.mp4")));
    QVERIFY(taken.open(QIODevice::WriteOnly));
    const Job sample = zokit::sampleOf(whole, {}, 0);
    QCOMPARE(sample.output, folder.filePath(key("a-sample-2.mp4")));
    QVERIFY(!sample.replaces);
}

void TestKitResults::sampleLiesWhereTheResultWill()
{
    const QTemporaryDir folder;
    Job whole = ::whole();
    whole.input = key("/films/a.mkv");
    whole.output = folder.filePath(key("b.mp4"));
    QCOMPARE(zokit::sampleOf(whole, {}, 0).output, folder.filePath(key("a-sample.mp4")));
    whole.output = folder.filePath(key("b"));
    QVERIFY(QFile::link(key("/nowhere"), folder.filePath(key("a-sample.mkv")))); // It would be written through.
    QCOMPARE(zokit::sampleOf(whole, {}, 0).output, folder.filePath(key("a-sample-2.mkv")));
    whole.output = folder.filePath(key("not there/b.mp4"));
    QCOMPARE(zokit::sampleOf(whole, {}, 0).output, key("/films/a-sample.mp4"));
}

void TestKitResults::sizeOfTheWholeFollowsFromTheSample()
{
    const Job whole = ::whole();
    zokit::MediaInfo media;
    media.seconds = 60;
    const Job sample = zokit::sampleOf(whole, media, 0);
    QCOMPARE(zokit::bytesOfWhole(whole, sample, media, 1000), qint64(6000));
    Job nothing = whole;
    nothing.settings.output.insert(key("trim"), QVariantList{70.0, 80.0});
    QCOMPARE(zokit::bytesOfWhole(whole, nothing, media, 1000), qint64(0));
    media.seconds = 0;
    QCOMPARE(zokit::bytesOfWhole(whole, sample, media, 1000), qint64(0));
}

void TestKitResults::wordsForAShell_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << "file:/films/a-1_b.mkv"
                           << "file:/films/a-1_b.mkv";
    QTest::newRow("with a blank") << "my film.mkv"
                                  << "'my film.mkv'";
    QTest::newRow("with a quote") << "it's"
                                  << "'it'\\''s'";
    QTest::newRow("with an end of line") << "a\n"
                                         << "'a\n'";
    QTest::newRow("of the shell's own") << "$HOME"
                                        << "'$HOME'";
    QTest::newRow("empty") << ""
                           << "''";
}

void TestKitResults::wordsForAShell()
{
    QFETCH(QString, word);
    QTEST(zokit::shellWord(word), "expected");
}

void TestKitResults::linesRunByHandOverwriteNothing()
{
    zokit::Command extract;
    extract.program = key("/usr/bin/ffmpeg");
    extract.arguments = QStringList{key("-y"), key("-i"), key("file:a.mkv"), key("pipe:1")};
    zokit::Command convert;
    convert.program = key("/usr/bin/ffmpeg");
    convert.arguments = QStringList{key("-y"), key("-i"), key("file:a.mkv"), key("file:b.mkv")};
    QCOMPARE(zokit::shellLines({extract, convert}, key("/tmp/my files"), false),
             QStringList({key("/usr/bin/ffmpeg -y -i file:a.mkv pipe:1 > '/tmp/my files/extracted.ass'"),
                          key("/usr/bin/ffmpeg -n -i file:a.mkv file:b.mkv")}));
    QCOMPARE(zokit::shellLines({convert}, QString(), true),
             QStringList{key("/usr/bin/ffmpeg -y -i file:a.mkv file:b.mkv")});
    QCOMPARE(zokit::shellLines({}, QString(), true), QStringList());
}

ZOEFFECT_TEST_MAIN(TestKitResults)
#include "tst_kit_results.moc"
