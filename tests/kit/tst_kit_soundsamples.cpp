// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>

#include <QtEndian>
#include <QtTest>

#include <zokit/filesettings.h>
#include <zokit/soundsamples.h>

#include "childwatch.h"
#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::key;
using zokit::FileSettings;
using zokit::SoundAnswer;
using zokit::SoundQuestion;

class TestKitSoundSamples : public childwatch::Test {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void pieceIsAWaveFile();
    void effectsAreHeardOrNot();
    void speedCountsInTheClip();
    void failureTellsItsReason_data();
    void failureTellsItsReason();
    void levelIsThatOfTheWholeSound();
    void whatCannotBeHeardIsTold_data();
    void whatCannotBeHeardIsTold();
    void openQuestionIsDropped_data();
    void openQuestionIsDropped();
};

namespace {

constexpr int rate = 48000;

SoundAnswer answerTo(const SoundQuestion& question, const zokit::Tools& tools = zokit::findTools())
{
    zokit::SoundSamples samples(tools);
    SoundAnswer answer;
    QObject::connect(&samples, &zokit::SoundSamples::answered, &samples,
                     [&](const SoundAnswer& given) { answer = given; });
    const int number = samples.ask(question);
    if (!QTest::qWaitFor([&] { return answer.number == number; }, 60000))
        qWarning("There was no answer");
    return answer;
}

/// The sound of a clip that was not compressed: a tone, mono.
SoundQuestion question(const FileSettings& file)
{
    SoundQuestion asked;
    asked.media = zokit::probe(zokit::findTools(), clips::clip(key("lossless.mkv"))).media.value_or(zokit::MediaInfo());
    asked.settings = file.settings();
    asked.settings.media.file = asked.media.file;
    asked.settings.media.seconds = asked.media.seconds;
    return asked;
}

/// The samples of one channel.
QVector<qint16> samplesOf(const QByteArray& wave)
{
    constexpr int head = 44;
    QVector<qint16> samples;
    for (int at = head; at + 2 <= wave.size(); at += 2)
        samples.append(qFromLittleEndian<qint16>(wave.constData() + at));
    return samples;
}

qint64 numberAt(const QByteArray& wave, int at)
{
    return qFromLittleEndian<quint32>(wave.constData() + at);
}

int loudest(const QVector<qint16>& samples)
{
    int most = 0;
    for (const qint16 sample : samples)
        most = std::max(most, std::abs(int(sample)));
    return most;
}

void use(FileSettings& file, const char* type, const zokit::Values& values)
{
    zokit::Values all = values;
    all.insert(key("audio_effect_flag"), true);
    file.setValues(file.type(key(type)), all);
}

} // namespace

void TestKitSoundSamples::pieceIsAWaveFile()
{
    const FileSettings file(kitsupport::clip());
    SoundQuestion asked = question(file);
    asked.from = 0.1;
    asked.seconds = 0.25;
    const SoundAnswer answer = answerTo(asked);
    QCOMPARE(answer.error.text(), QString());
    QCOMPARE(answer.wave.left(4), QByteArray("RIFF"));
    QCOMPARE(answer.wave.mid(8, 8), QByteArray("WAVEfmt "));
    QCOMPARE(answer.wave.mid(20, 8), QByteArray("\x01\x00\x01\x00\x80\xbb\x00\x00", 8)); // One channel, 48,000.
    QCOMPARE(numberAt(answer.wave, 4), answer.wave.size() - 8);
    QCOMPARE(numberAt(answer.wave, 40), answer.wave.size() - 44);
    QVERIFY2(std::abs(samplesOf(answer.wave).size() - 12000) < 50, qPrintable(QString::number(answer.wave.size())));
    QVERIFY(loudest(samplesOf(answer.wave)) > 1000);
    asked.media = zokit::probe(zokit::findTools(), clips::clip(key("side.mkv"))).media.value_or(zokit::MediaInfo());
    asked.settings.media.file = asked.media.file;
    QCOMPARE(answerTo(asked).wave.mid(22, 2), QByteArray("\x02\x00", 2)); // Of six channels.
}

void TestKitSoundSamples::effectsAreHeardOrNot()
{
    FileSettings still(kitsupport::clip());
    use(still, "Audio_Speed", {{key("audio_speed_factor"), 0}});
    SoundQuestion silent = question(still);
    silent.seconds = 0.1;
    QCOMPARE(answerTo(silent).error.code(), zokit::Message::Code::SpeedOfNothing);
    silent.withEffects = false;
    QCOMPARE(answerTo(silent).error.text(), QString());
    FileSettings file(kitsupport::clip());
    // It grows as long as the sound is: 0.4 seconds.
    use(file, "Audio_Fade_Inout",
        {{key("audio_fade_in_enable"), true}, {key("audio_fade_out_enable"), false}, {key("audio_fade_in"), 1}});
    SoundQuestion asked = question(file);
    asked.seconds = 0.1;
    const int first = loudest(samplesOf(answerTo(asked).wave));
    asked.from = 0.15;
    const int later = loudest(samplesOf(answerTo(asked).wave));
    asked.withEffects = false;
    const int plain = loudest(samplesOf(answerTo(asked).wave));
    QVERIFY2(first * 100 / plain > 20 && first * 100 / plain <= 26, qPrintable(key("%1 of %2").arg(first).arg(plain)));
    QVERIFY2(later * 100 / plain > 57 && later * 100 / plain <= 63, qPrintable(key("%1 of %2").arg(later).arg(plain)));
}

void TestKitSoundSamples::speedCountsInTheClip()
{
    FileSettings file(kitsupport::clip());
    use(file, "Audio_Speed", {{key("audio_speed_factor"), 200}});
    SoundQuestion asked = question(file);
    const double length = asked.media.seconds;
    asked.from = 0.1;
    const double heard = double(samplesOf(answerTo(asked).wave).size()) / double(rate);
    QVERIFY2(std::abs(heard - (length - 0.1) / 2) < 0.05, qPrintable(key("%1 of %2").arg(heard).arg(length)));
}

void TestKitSoundSamples::failureTellsItsReason_data()
{
    QTest::addColumn<QString>("script"); // Instead of ffmpeg; empty: there is no such program.
    QTest::addColumn<QString>("sentence");
    QTest::newRow("missing") << QString() << key("ffmpeg could not be started");
    QTest::newRow("killed") << key("kill -9 $$") << key("ffmpeg was ended by signal 9.");
    QTest::newRow("failed") << key("echo 'No such filter' >&2; exit 1") << key("ffmpeg failed: No such filter");
    QTest::newRow("nothing measured") << key("exit 0") << key("The peak of the sound could not be measured.");
    QTest::newRow("measured in the part alone")
        << key("case \"$*\" in *'-ss 0.100000 -t 0.200000'*) exit 1;; esac") << key("ffmpeg failed: ");
    QTest::newRow("tools that are missing") << key("tools") << key("ffmpeg is missing.");
}

void TestKitSoundSamples::failureTellsItsReason()
{
    QFETCH(const QString, script);
    QFETCH(const QString, sentence);
    const QTemporaryDir folder;
    zokit::Tools tools = zokit::findTools();
    tools.ffmpeg = folder.filePath(key("ffmpeg"));
    if (script == key("tools"))
        tools.error = zokit::Message(zokit::Message::Code::ToolMissing, {key("ffmpeg"), key("ffmpeg")});
    QFile program(tools.ffmpeg);
    if (!script.isEmpty()) {
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\n" + script.toUtf8() + '\n');
        QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        program.close();
    }
    FileSettings file(kitsupport::clip());
    use(file, "Audio_Normalize", {{key("audio_normalize_maxLevel"), 50}});
    SoundQuestion asked = question(file);
    asked.settings.output.insert(key("trim"), QVariantList{0.1, 0.3});
    const SoundAnswer answer = answerTo(asked, tools);
    QVERIFY(answer.wave.isEmpty());
    QVERIFY2(answer.error.text().startsWith(sentence), qPrintable(answer.error.text()));
}

void TestKitSoundSamples::levelIsThatOfTheWholeSound()
{
    FileSettings file(kitsupport::clip());
    use(file, "Audio_Normalize", {{key("audio_normalize_maxLevel"), 50}});
    SoundQuestion asked = question(file);
    const int peak = loudest(samplesOf(answerTo(asked).wave));
    QVERIFY2(std::abs(peak - 16384) < 400, qPrintable(QString::number(peak)));
}

void TestKitSoundSamples::whatCannotBeHeardIsTold_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<int>("stream");
    QTest::addColumn<QString>("word");
    QTest::newRow("no sound") << key("silent.mkv") << -1 << key("silent.mkv");
    QTest::newRow("no such stream") << key("lossless.mkv") << 7 << key("lossless.mkv");
    QTest::newRow("gone") << QString() << -1 << key("nowhere.mkv");
}

void TestKitSoundSamples::whatCannotBeHeardIsTold()
{
    QFETCH(QString, clip);
    QFETCH(int, stream);
    QFETCH(QString, word);
    const FileSettings file(kitsupport::clip());
    SoundQuestion asked = question(file);
    if (clip.isEmpty())
        asked.media.file = key("/nowhere.mkv");
    else
        asked.media = zokit::probe(zokit::findTools(), clips::clip(clip)).media.value_or(zokit::MediaInfo());
    asked.stream = stream;
    const SoundAnswer answer = answerTo(asked);
    QVERIFY(answer.wave.isEmpty());
    QVERIFY2(answer.error.text().contains(word), qPrintable(answer.error.text()));
}

void TestKitSoundSamples::openQuestionIsDropped_data()
{
    QTest::addColumn<bool>("isBegun");
    QTest::newRow("at once") << false;
    QTest::newRow("while a child is at work") << true;
}

void TestKitSoundSamples::openQuestionIsDropped()
{
    QFETCH(const bool, isBegun);
    const FileSettings file(kitsupport::clip());
    zokit::SoundSamples samples(zokit::findTools());
    QVector<SoundAnswer> answers;
    connect(&samples, &zokit::SoundSamples::answered, this, [&](const SoundAnswer& answer) { answers.append(answer); });
    SoundQuestion asked = question(file); // Probing runs an event loop, in which the first could be answered.
    asked.seconds = 0.1;
    samples.ask(asked);
    QVERIFY(samples.isRunning());
    if (isBegun)
        QCoreApplication::processEvents();
    asked.seconds = 0.25;
    samples.ask(asked);
    QVERIFY(QTest::qWaitFor([&] { return !answers.isEmpty(); }, 60000));
    QCOMPARE(answers.size(), 1);
    QCOMPARE(answers.first().number, 2);
    QCOMPARE(answers.first().error.text(), QString());
    const auto samplesHeard = samplesOf(answers.first().wave).size();
    QVERIFY2(std::abs(samplesHeard - 12000) < 50, qPrintable(QString::number(samplesHeard)));
    QVERIFY(!samples.isRunning());
}

ZOEFFECT_TEST_MAIN(TestKitSoundSamples)
#include "tst_kit_soundsamples.moc"
