// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cmath>

#include <cstdlib>

#include <QtTest>
#include <QtWidgets>

#include <zokit/filesettings.h>
#include <zokit/history.h>
#include <zokit/shownframes.h>

#include <actions.h>
#include <listening.h>
#include <picturepane.h>
#include <timeline.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
using zoeditor::TimeBar;
using zoeditor::TimeLine;

class TestEditorTimeLine : public QObject {
    Q_OBJECT

private slots:
    void sliderShowsTheFrameOfItsTime();
    void whoDragsSeesPicturesOnTheWay();
    void clickOnTheLineGoesThere();
    void framesAreSteppedThrough();
    void playingEndsAtTheEnd();
    void beginAndEndAreMarked();
    void beginBehindTheEndTakesTheRest();
    void withoutAFileThereIsNoTime();
    void subtitlesAreMarked();
    void soundIsListenedTo();
    void trackThatIsShownIsHeard();
    void soundIsPlayedByWhatIsThere_data();
    void soundIsPlayedByWhatIsThere();
    void deviceEndsAndIsStopped();
    void withoutAPlayerThatIsSaid();
};

namespace {

/// The editor with a moving clip of 25 frames a second; unless told otherwise of 160x120.
struct Clip : Stage {
    explicit Clip(const QString& name = key("plain.mp4"))
        : Stage({clips::clip(name)})
        , bar(find<TimeBar>("time"))
        , line(find<TimeLine>("timeline"))
        , frames(&find<zoeditor::PicturePane>("picture")->frames())
    {
        waitForOutput();
    }

    void waitForOutput() const
    {
        QVERIFY(QTest::qWaitFor([this] { return !frames->output().isNull(); }, 30000));
    }

    QVariantList part() const { return file(0)->value(file(0)->output(), key("trim")).toList(); }

    TimeBar* bar;
    TimeLine* line;
    zokit::ShownFrames* frames;
};

/// A variable of the environment, until the end of a scope.
struct Variable {
    Variable(const char* ofName, const QByteArray& value) : name(ofName), before(qgetenv(ofName))
    {
        qputenv(name, value);
    }
    ~Variable() { before.isNull() ? qunsetenv(name) : qputenv(name, before); }
    Q_DISABLE_COPY_MOVE(Variable)

    const char* name;
    QByteArray before;
};

/// A program of that name, in a folder of its own, that keeps what it is given to play.
struct Player {
    explicit Player(const char* name) : program(folder.filePath(key(name)))
    {
        QFile script(program);
        if (!script.open(QIODevice::WriteOnly))
            qFatal("The player cannot be made");
        script.write("#!/bin/sh\ncat \"$1\" >> '" + QFile::encodeName(heard()) + "'\n");
        script.setPermissions(script.permissions() | QFile::ExeOwner);
    }
    QString heard() const { return folder.filePath(key("heard")); }
    /// What it has got since this was asked last.
    QByteArray takeHeard() const
    {
        QFile file(heard());
        const QByteArray sound = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        file.remove();
        return sound;
    }

    QTemporaryDir folder;
    QString program;
};

/// A sound device that keeps what it is given to play, and ends when it is told to.
class Device : public zoeditor::SoundDevice {
public:
    bool play(const QByteArray& wave) override
    {
        heard = can ? wave : QByteArray();
        return can;
    }
    void stop() override { ++stops; }

    bool can = true;
    QByteArray heard;
    int stops = 0;
};

zokit::SoundQuestion questionOf(const Stage& stage)
{
    zokit::SoundQuestion question;
    question.settings = stage.file(0)->settings();
    question.media = *stage.session().mediaOf(stage.file(0));
    return question;
}

} // namespace

void TestEditorTimeLine::sliderShowsTheFrameOfItsTime()
{
    const Clip clip;
    clip.bar->setValue(0);
    clip.waitForOutput();
    const QImage first = clip.frames->output();
    QCOMPARE(clip.find<QLabel>("timeText")->text().left(7), key("0:00.00"));
    clip.bar->setValue(400);
    QCOMPARE(clip.frames->seconds(), 0.4);
    QVERIFY(clip.frames->output().isNull());
    clip.waitForOutput();
    QVERIFY(clip.frames->output() != first);
    QCOMPARE(clip.find<QLabel>("timeText")->text().left(7), key("0:00.40"));
    clip.bar->setValue(0);
    clip.waitForOutput();
    QCOMPARE(clip.frames->output(), first);
}

void TestEditorTimeLine::whoDragsSeesPicturesOnTheWay()
{
    // Frame N of the clip is of luma 16 + 2 N, and so of level 255 / 219 * 2 N: 116 and 119 for frames 50 and 51.
    const Clip clip(key("counting.mkv"));
    const auto level = [&] { return qGray(clip.frames->whole().pixel(32, 24)); };
    bool isFirst = false;
    // As long as it moves, no true frame is asked for.
    QVERIFY(QTest::qWaitFor(
        [&] {
            isFirst = !isFirst;
            clip.bar->setValue(isFirst ? 2000 : 2040);
            return level() >= 115 && level() <= 120;
        },
        30000));
    QVERIFY(clip.frames->output().isNull());
    clip.bar->setValue(3000);
    clip.waitForOutput();
    QVERIFY2(std::abs(qGray(clip.frames->output().pixel(32, 24)) - 175) <= 1, "frame 75");
    QVERIFY(QTest::qWaitFor([&] { return std::abs(level() - 175) <= 1; }, 30000));
}

void TestEditorTimeLine::clickOnTheLineGoesThere()
{
    const Clip clip;
    QTest::mouseClick(clip.bar, Qt::LeftButton, Qt::NoModifier, QPoint(1, clip.bar->height() / 2));
    QCOMPARE(clip.frames->seconds(), 0.0);
    QTest::mouseClick(clip.bar, Qt::LeftButton, Qt::NoModifier, QPoint(clip.bar->width() - 1, clip.bar->height() / 2));
    QCOMPARE(clip.frames->seconds(), clip.bar->maximum() / 1000.0);
    QTest::keyClick(clip.bar, Qt::Key_Left);
    QCOMPARE(clip.bar->value(), clip.bar->maximum() - 100);
}

void TestEditorTimeLine::framesAreSteppedThrough()
{
    const Clip clip;
    clip.bar->setValue(0);
    QVERIFY(clip.trigger("stepForward"));
    QCOMPARE(clip.frames->seconds(), 0.04);
    QVERIFY(clip.trigger("stepForward"));
    QCOMPARE(clip.frames->seconds(), 0.08);
    QVERIFY(clip.trigger("stepBack"));
    QVERIFY(clip.trigger("stepBack"));
    QVERIFY(clip.trigger("stepBack"));
    QCOMPARE(clip.frames->seconds(), 0.0);
}

void TestEditorTimeLine::playingEndsAtTheEnd()
{
    const Clip clip;
    clip.bar->setValue(0);
    QVERIFY(clip.trigger("play"));
    QVERIFY(clip.line->isPlaying());
    QVERIFY(QTest::qWaitFor([&] { return !clip.line->isPlaying(); }, 30000));
    QCOMPARE(clip.bar->value(), clip.bar->maximum());
    clip.waitForOutput();
    QVERIFY(clip.trigger("play")); // Once more from the beginning, until a place is chosen.
    QVERIFY(clip.line->isPlaying());
    clip.bar->setValue(200);
    QVERIFY(!clip.line->isPlaying());
    QCOMPARE(clip.frames->seconds(), 0.2);
}

void TestEditorTimeLine::beginAndEndAreMarked()
{
    const Clip clip;
    clip.bar->setValue(120);
    QVERIFY(clip.trigger("setIn"));
    clip.bar->setValue(360);
    QVERIFY(clip.trigger("setOut"));
    QCOMPARE(clip.part(), (QVariantList{0.12, 0.36}));
    QCOMPARE(clip.bar->partBegin(), 120);
    QCOMPARE(clip.bar->partEnd(), 360);
    QVERIFY(clip.trigger("undo"));
    QCOMPARE(clip.bar->partBegin(), 120);
    QCOMPARE(clip.bar->partEnd(), clip.bar->maximum());
    QVERIFY(clip.trigger("wholeClip"));
    QVERIFY(clip.part().isEmpty());
    QCOMPARE(clip.bar->partEnd(), 0);
}

void TestEditorTimeLine::beginBehindTheEndTakesTheRest()
{
    const Clip clip;
    clip.bar->setValue(200);
    QVERIFY(clip.trigger("setOut"));
    QCOMPARE(clip.part(), (QVariantList{0.0, 0.2}));
    clip.bar->setValue(300);
    QVERIFY(clip.trigger("setIn"));
    QCOMPARE(clip.part().value(0), QVariant(0.3));
    QCOMPARE(clip.bar->partEnd(), clip.bar->maximum());
}

void TestEditorTimeLine::withoutAFileThereIsNoTime()
{
    const Stage stage;
    QVERIFY(!stage.find<TimeBar>("time")->isEnabled());
    QVERIFY(!stage.trigger("play"));
}

void TestEditorTimeLine::subtitlesAreMarked()
{
    const Clip clip;
    QVERIFY(clip.bar->cues().isEmpty());
    QFile file(clip.folder.filePath(key("lines.srt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("1\n00:00:00,100 --> 00:00:00,200\nOne\n\n2\n00:00:00,250 --> 00:00:00,300\nTwo\n");
    file.close();
    zokit::FileSettings* settings = clip.file(0);
    const zokit::Identity subtitle =
        settings->insert(key("Subtitle"), {{key("sub_fromfile"), true}, {key("file"), file.fileName()}}).item;
    QVERIFY(QTest::qWaitFor([&] { return clip.bar->cues().size() == 2; }, 30000));
    QCOMPARE(clip.bar->cues().at(1).from, 0.25);
    QCOMPARE(clip.bar->cues().at(1).text, key("Two"));
    settings->setValue(subtitle, key("selected"), false);
    QVERIFY(clip.bar->cues().isEmpty());
    settings->setValue(subtitle, key("selected"), true);
    QVERIFY(QTest::qWaitFor([&] { return clip.bar->cues().size() == 2; }, 30000));
}

void TestEditorTimeLine::soundIsListenedTo()
{
    const Player player("pw-play");
    const Variable named("ZOEDITOR_PLAYER", QFile::encodeName(player.program));
    const Stage stage({clips::clip(key("sound.wav"))});
    const auto pieceOf = [&](const char* action) {
        stage.trigger(action);
        if (!QTest::qWaitFor([&] { return !stage.window().actions().action(action)->isChecked(); }, 60000))
            qWarning("The player did not end");
        return player.takeHeard();
    };
    stage.find<TimeBar>("time")->setValue(100);
    zokit::FileSettings* file = stage.file(0);
    file->setValue(file->type(key("Audio_Normalize")), key("audio_effect_flag"), true);
    const QByteArray withEffects = pieceOf("listen");
    const QByteArray plain = pieceOf("listenPlain");
    QCOMPARE(withEffects.left(4), QByteArray("RIFF"));
    QCOMPARE(withEffects.size(), plain.size());
    QVERIFY(withEffects != plain);
    QVERIFY2(std::abs(plain.size() - 2 * 14400) < 200, qPrintable(QString::number(plain.size()))); // 0.3 seconds.
}

void TestEditorTimeLine::trackThatIsShownIsHeard()
{
    const Player player("pw-play");
    const Variable named("ZOEDITOR_PLAYER", QFile::encodeName(player.program));
    const Stage stage({clips::clip(key("two-sounds.mka"))});
    stage.find<TimeBar>("time")->setValue(0);
    const QVector<zokit::Identity> tracks = stage.file(0)->items(key("Audio"));
    QCOMPARE(tracks.size(), 2);
    const auto crossings = [&](zokit::Identity chosen) { // Of its wave: twice as many for twice the pitch.
        stage.session().setThing(chosen);
        stage.trigger("listenPlain");
        if (!QTest::qWaitFor([&] { return !stage.window().actions().action("listenPlain")->isChecked(); }, 60000))
            qWarning("The player did not end");
        const QByteArray wave = player.takeHeard();
        constexpr int header = 44;
        int count = wave.size() > header ? 0 : -1; // Nothing is heard.
        for (int at = header + 3; at < wave.size(); at += 2)
            count += (wave.at(at) < 0) != (wave.at(at - 2) < 0) ? 1 : 0;
        return count;
    };
    const int first = crossings(tracks.at(0)); // 0.3 seconds of 440 Hz.
    const int second = crossings(tracks.at(1));
    QVERIFY2(std::abs(first - 264) < 10, qPrintable(QString::number(first)));
    QVERIFY2(std::abs(second - 528) < 20, qPrintable(QString::number(second)));
    zokit::FileSettings* file = stage.file(0);
    const auto added = [&](const QString& path) {
        return file->insert(key("Audio"), {{key("audio_isfile"), true}, {key("file"), path}}).item;
    };
    const zokit::Identity beside = added(clips::clip(key("rising.wav"))); // One second that never crosses.
    QCOMPARE(crossings(beside), 0);
    QCOMPARE(crossings(added(clips::clip(key("text.srt")))), -1);
    QVERIFY2(stage.status().contains(key("text.srt")), qPrintable(stage.status()));
}

void TestEditorTimeLine::soundIsPlayedByWhatIsThere_data()
{
    QTest::addColumn<bool>("hasDevice");
    QTest::addColumn<bool>("canDevice");
    QTest::addColumn<bool>("isByDevice");
    QTest::newRow("no device") << false << false << false;
    QTest::newRow("a device") << true << true << true;
    QTest::newRow("a device that cannot") << true << false << false;
}

void TestEditorTimeLine::soundIsPlayedByWhatIsThere()
{
    QFETCH(const bool, hasDevice);
    QFETCH(const bool, canDevice);
    QFETCH(const bool, isByDevice);
    const Player player("pw-play");
    const Variable path("PATH", QFile::encodeName(player.folder.path()) + ':' + qgetenv("PATH"));
    const Stage stage({clips::clip(key("sound.wav"))});
    auto device = hasDevice ? std::make_unique<Device>() : nullptr;
    Device* watched = device.get();
    if (watched)
        watched->can = canDevice;
    zoeditor::Listening listening(stage.session().tools(), std::move(device));
    listening.start(questionOf(stage));
    QVERIFY(listening.isActive());
    if (isByDevice) {
        QTRY_COMPARE_WITH_TIMEOUT(watched->heard.left(4), QByteArray("RIFF"), 60000);
        QVERIFY(listening.isActive());
        emit watched->ended(QString());
    }
    QTRY_VERIFY_WITH_TIMEOUT(!listening.isActive(), 60000);
    QCOMPARE(player.takeHeard().left(4), isByDevice ? QByteArray() : QByteArray("RIFF"));
}

void TestEditorTimeLine::deviceEndsAndIsStopped()
{
    const Stage stage({clips::clip(key("sound.wav"))});
    auto device = std::make_unique<Device>();
    Device* watched = device.get();
    zoeditor::Listening listening(stage.session().tools(), std::move(device));
    const QSignalSpy active(&listening, &zoeditor::Listening::activeChanged);
    const QSignalSpy failed(&listening, &zoeditor::Listening::failed);
    const auto begin = [&] {
        watched->heard.clear();
        listening.start(questionOf(stage));
        QTRY_VERIFY_WITH_TIMEOUT(!watched->heard.isEmpty(), 60000);
    };
    begin();
    listening.stop();
    QCOMPARE(watched->stops, 1);
    QVERIFY(!listening.isActive());
    begin();
    begin(); // What is asked for meanwhile takes its place.
    QCOMPARE(watched->stops, 2);
    emit watched->ended(key("It broke."));
    QVERIFY(!listening.isActive());
    QCOMPARE(failed.size(), 1);
    QCOMPARE(failed.first().first().toString(), key("It broke."));
    QCOMPARE(active.size(), 4); // On and off, twice.
    QCOMPARE(active.last().first().toBool(), false);
}

void TestEditorTimeLine::withoutAPlayerThatIsSaid()
{
    const Stage stage({clips::clip(key("sound.wav"))});
    {
        const Variable named("ZOEDITOR_PLAYER", "/nowhere/player");
        stage.trigger("listen");
        QTRY_VERIFY_WITH_TIMEOUT(stage.status().contains(key("There is no player for sound")), 60000);
        QVERIFY(!stage.window().actions().action("listen")->isChecked());
    }
    for (const auto& [words, status] :
         {std::pair<const char*, int>{"Connection refused", 1}, {"Failed to open file x", 0}}) {
        const QTemporaryDir folder;
        QFile script(folder.filePath(key("deaf")));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write(QStringLiteral("#!/bin/sh\necho '%1' >&2\nexit %2\n").arg(key(words)).arg(status).toUtf8());
        script.setPermissions(script.permissions() | QFile::ExeOwner);
        script.close();
        const Variable named("ZOEDITOR_PLAYER", QFile::encodeName(script.fileName()));
        stage.trigger("listen");
        QTRY_COMPARE_WITH_TIMEOUT(stage.status(),
                                  key("No sound can be heard here. Check that loudspeakers are connected and other "
                                      "programs are heard. The player says: ")
                                      + key(words),
                                  60000);
    }
    const Variable path("PATH", "/nowhere");
    zoeditor::Listening listening(stage.session().tools(), nullptr);
    const QSignalSpy failed(&listening, &zoeditor::Listening::failed);
    listening.start(questionOf(stage));
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, 60000);
    QVERIFY(failed.first().first().toString().startsWith(key("There is no player for sound")));
    QVERIFY(!listening.isActive());
}

EDITOR_TEST_MAIN(TestEditorTimeLine)
#include "tst_editor_timeline.moc"
