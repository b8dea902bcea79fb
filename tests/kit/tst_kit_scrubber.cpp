// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Pictures for who drags through a clip. In "counting.mkv" picture N of 100 is of luma 16 + 2 N, a level that no other
// one has.

#include <cmath>
#include <cstdlib>

#include <QtTest>

#include <zokit/filesettings.h>
#include <zokit/probe.h>
#include <zokit/scrubber.h>

#include "childwatch.h"
#include "clips.h"
#include "graphsupport.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::FrameKind;
using zokit::FrameQuestion;
using zokit::Scrubber;

namespace {

constexpr int patience = 60000; // Milliseconds; only a hang takes so long.
constexpr QSize most(64, 48);

FrameQuestion questionOf(const QString& clip)
{
    FrameQuestion question;
    question.media = zokit::probe(zokit::findTools(), clips::clip(clip)).media.value_or(zokit::MediaInfo());
    question.settings = graphsupport::plain(question.media.picture() ? question.media.picture()->shown : QSize());
    question.kind = FrameKind::Whole;
    return question;
}

/// Which picture of the counting clip it is; -1: none of them.
int numberOf(const QImage& picture)
{
    constexpr double levels = 255.0 / 219.0; // From luma of limited range to a level of the screen.
    const int level = qGray(picture.pixel(picture.rect().center()));
    const int number = static_cast<int>(std::lround(level / levels / 2));
    return std::abs(level - 2 * number * levels) <= 1 ? number : -1;
}

/// A scrubber and what it showed.
struct Watched {
    Watched() : scrubber(zokit::findTools())
    {
        QObject::connect(&scrubber, &Scrubber::shown, &scrubber, [this](const QImage& picture, double seconds) {
            last = picture;
            numbers.append(numberOf(picture));
            moments.append(seconds);
        });
    }

    bool comesTo(int number)
    {
        return QTest::qWaitFor([&] { return !numbers.isEmpty() && numbers.last() == number; }, patience);
    }

    Scrubber scrubber;
    QImage last;
    QVector<int> numbers;
    QVector<double> moments;
};

} // namespace

class TestKitScrubber : public childwatch::Test {
    Q_OBJECT

private Q_SLOTS:
    void wishedPictureComes_data();
    void wishedPictureComes();
    void everyMoveIsFollowed();
    void theWayThereIsSeen();
    void clipMayBeShorterThanItSays();
    void picturesFit_data();
    void picturesFit();
    void coloursAreThoseOfTheClip_data();
    void coloursAreThoseOfTheClip();
    void effectsAreSeenAndNoCrop();
    void nothingComesOfNothing();
    void listenerMayClose();
};

void TestKitScrubber::wishedPictureComes_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("number");
    QTest::newRow("the first") << 0.0 << 0;
    QTest::newRow("before it") << -1.0 << 0;
    QTest::newRow("in the middle") << 2.0 << 50;
    QTest::newRow("just before the next one") << 2.03 << 50;
    QTest::newRow("the last") << 3.96 << 99;
    QTest::newRow("behind it") << 1000.0 << 99;
}

void TestKitScrubber::wishedPictureComes()
{
    QFETCH(double, seconds);
    QFETCH(int, number);
    Watched watched;
    watched.scrubber.open(questionOf(key("counting.mkv")), most);
    watched.scrubber.want(seconds);
    QVERIFY(watched.numbers.isEmpty());
    QVERIFY2(watched.comesTo(number), qPrintable(QString::number(watched.numbers.value(0, -2))));
    QCOMPARE(watched.moments.last(), number / 25.0);
}

void TestKitScrubber::everyMoveIsFollowed()
{
    Watched watched;
    watched.scrubber.open(questionOf(key("counting.mkv")), most);
    // On, a little back, far on, far back, over the whole clip.
    for (const int number : {10, 11, 12, 30, 28, 27, 90, 95, 3, 2, 99, 0, 60}) {
        watched.scrubber.want(number / 25.0);
        QVERIFY2(watched.comesTo(number), qPrintable(QString::number(number)));
    }
    QVERIFY(!watched.numbers.contains(-1));
}

void TestKitScrubber::theWayThereIsSeen()
{
    Watched watched;
    watched.scrubber.open(questionOf(key("counting.mkv")), most);
    watched.scrubber.want(1.0);
    QVERIFY(watched.comesTo(25));
    watched.scrubber.want(1.4);
    watched.scrubber.want(1.2); // The last wish counts.
    QVERIFY(watched.comesTo(30));
    QVERIFY(!watched.numbers.contains(35));
    for (int i = 1; i < watched.numbers.size(); ++i)
        QVERIFY2(watched.numbers.at(i) > watched.numbers.at(i - 1), "each picture is nearer to the wish");
}

void TestKitScrubber::clipMayBeShorterThanItSays()
{
    Watched watched;
    FrameQuestion question = questionOf(key("counting.mkv"));
    question.media.seconds = 20;
    watched.scrubber.open(question, most);
    watched.scrubber.want(18);
    QVERIFY(watched.comesTo(99));
    question.media.seconds = 0; // Nor need it say anything.
    watched.scrubber.open(question, most);
    watched.scrubber.want(2.0);
    QVERIFY(watched.comesTo(50));
}

void TestKitScrubber::picturesFit_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QSize>("room");
    QTest::addColumn<QSize>("size");
    QTest::newRow("smaller than the room") << key("counting.mkv") << QSize(960, 540) << QSize(64, 48);
    QTest::newRow("larger") << key("plain.mp4") << QSize(80, 80) << QSize(80, 60);
    QTest::newRow("higher") << key("plain.mp4") << QSize(960, 60) << QSize(80, 60);
    QTest::newRow("turned") << key("rotate90.mp4") << QSize(60, 60) << QSize(45, 60);
    QTest::newRow("of RGB") << key("rgb.mkv") << QSize(60, 60) << QSize(60, 45);
}

void TestKitScrubber::picturesFit()
{
    QFETCH(QString, clip);
    QFETCH(QSize, room);
    Watched watched;
    watched.scrubber.open(questionOf(clip), room);
    watched.scrubber.want(0.2);
    QVERIFY(QTest::qWaitFor([&] { return !watched.last.isNull(); }, patience));
    QTEST(watched.last.size(), "size");
}

void TestKitScrubber::coloursAreThoseOfTheClip_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<bool>("isSource");
    for (const char* clip : {"red709.mkv", "red601.mkv", "red-full.mkv", "red-deep.mkv"}) {
        QTest::addRow("%s, before", clip) << key(clip) << true;
        QTest::addRow("%s, whole", clip) << key(clip) << false;
    }
}

void TestKitScrubber::coloursAreThoseOfTheClip()
{
    QFETCH(const QString, clip);
    QFETCH(const bool, isSource);
    Watched watched;
    FrameQuestion question = questionOf(clip);
    question.kind = isSource ? FrameKind::Before : FrameKind::Whole;
    watched.scrubber.open(question, QSize(32, 24));
    watched.scrubber.want(0);
    QVERIFY(QTest::qWaitFor([&] { return !watched.last.isNull(); }, patience));
    const QColor colour = watched.last.pixelColor(10, 10);
    QVERIFY2(colour.red() >= 252 && colour.green() <= 3 && colour.blue() <= 3, qPrintable(colour.name()));
}

void TestKitScrubber::effectsAreSeenAndNoCrop()
{
    FrameQuestion question = questionOf(key("counting.mkv"));
    zokit::FileSettings file(question.settings);
    QVERIFY(file.setValues(file.type(key("Crop")), {{key("crop_width"), 32}, {key("crop_height"), 24}}).isEmpty());
    QVERIFY(file.setValue(file.type(key("Color")), key("bcs_brightness"), -50).isEmpty());
    question.settings = file.settings();
    question.kind = FrameKind::After; // Nor here: a drag shows the whole frame.
    Watched watched;
    watched.scrubber.open(question, most);
    watched.scrubber.want(2.0);
    QVERIFY(QTest::qWaitFor([&] { return !watched.moments.isEmpty() && watched.moments.last() == 2.0; }, patience));
    QCOMPARE(watched.last.size(), most);
    QVERIFY2(qGray(watched.last.pixel(32, 24)) < 60, "picture 50 is of level 116 without the effect");
}

void TestKitScrubber::nothingComesOfNothing()
{
    Watched watched;
    watched.scrubber.want(1.0); // Nothing is open.
    watched.scrubber.open(questionOf(key("sound.wav")), most);
    watched.scrubber.want(1.0); // There is no picture in it.
    zokit::Tools none = zokit::findTools();
    none.error = zokit::Message(zokit::Message::Code::ToolMissing, {key("ffmpeg"), key("ffmpeg")});
    Scrubber without(none);
    const QSignalSpy shown(&without, &Scrubber::shown);
    without.open(questionOf(key("counting.mkv")), most);
    without.want(1.0);
    FrameQuestion gone = questionOf(key("counting.mkv"));
    gone.media.file = key("/nowhere/counting.mkv");
    Watched other;
    other.scrubber.open(gone, most);
    other.scrubber.want(1.0);
    // A third one comes to an end meanwhile.
    Watched good;
    good.scrubber.open(questionOf(key("counting.mkv")), most);
    for (const int number : {99, 0, 99}) {
        good.scrubber.want(number / 25.0);
        QVERIFY(good.comesTo(number));
    }
    good.scrubber.close();
    good.scrubber.want(1.0);
    QTest::qWait(1);
    QCOMPARE(good.numbers.last(), 99);
    QVERIFY(watched.numbers.isEmpty());
    QVERIFY(shown.isEmpty());
    QVERIFY(other.numbers.isEmpty());
}

void TestKitScrubber::listenerMayClose()
{
    auto* scrubber = new Scrubber(zokit::findTools());
    int count = 0;
    const auto listen = [&] {
        ++count;
        scrubber->close();
        scrubber->want(2.0);
        scrubber->deleteLater();
    };
    connect(scrubber, &Scrubber::shown, this, listen);
    const QPointer<Scrubber> alive(scrubber);
    scrubber->open(questionOf(key("counting.mkv")), most);
    scrubber->want(1.0);
    QVERIFY(QTest::qWaitFor([&] { return !alive; }, patience));
    QCOMPARE(count, 1);
}

ZOEFFECT_TEST_MAIN(TestKitScrubber)
#include "tst_kit_scrubber.moc"
