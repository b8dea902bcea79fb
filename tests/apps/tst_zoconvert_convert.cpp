// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert convert as a program: which files it makes, what it says, how it ends.

#include <array>
#include <cerrno>
#include <cstddef>
#include <thread>
#include <vector>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <QDir>
#include <QDirIterator>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <zokit/probe.h>

#include "clips.h"
#include "programrun.h"
#include "progress.h"
#include "testapplication.h"

namespace {

using Arguments = QList<QByteArray>;

void row(const char* name, const Arguments& arguments, int code, const char* made, const char* err)
{
    QTest::newRow(name) << arguments << code << QString::fromUtf8(made) << QString::fromUtf8(err);
}

/// All files below the folder, in their order.
QStringList filesIn(const QString& folder)
{
    QStringList files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext())
        files.append(QDir(folder).relativeFilePath(all.next()));
    files.sort();
    return files;
}

/// Clips, a result that is there, and what is no clip.
void fill(const ProgramRun& run)
{
    for (const char* folder : {"films/below", "other", "empty", "done"})
        QDir().mkpath(run.path(folder));
    for (const char* clip : {"clip.mp4", "films/one.mp4", "films/below/two.mp4", "other/one.mp4", "other/one.mkv", "a"})
        QFile::copy(clips::clip(QStringLiteral("plain.mp4")), run.path(clip));
    QFile::copy(clips::clip(QStringLiteral("sound.m4a")), run.path("song.m4a"));
    QFile::link(run.path("clip.mp4"), run.path("link.mp4"));
    QFile::link(QStringLiteral("/dev/null"), run.path("device.mkv"));
    for (const char* there : {"there.mp4", "done/one.mp4", "bad.mkv", "films/notes.txt"})
        run.write(there, "no film");
    run.write("lost.zoeffect.json", R"({"zoeffect": 1, "media": {"file": "gone.mp4", "width": 160, "height": 120}})");
    run.write("crop.zoeffect.json", R"({"zoeffect": 1, "media": {"file": "clip.mp4", "width": 160, "height": 120},
        "effects": [{"type": "Crop", "values": {"crop_left": 0, "crop_top": 0, "crop_width": 80, "crop_height": 60}}],
        "output": {"container": "mkv"}})");
    run.write("tracks.zoeffect.json", R"({"zoeffect": 1, "media": {"file": "clip.mp4", "width": 160, "height": 120},
        "tracks": {"audio-tracks": [9]}})");
    run.write("logo.zoeffect.json", R"({"zoeffect": 1, "media": {"file": "clip.mp4", "width": 160, "height": 120},
        "effects": [{"type": "Watermark", "items": [{"values": {"wm_istextwatermark": false,
        "wm_imageurl": "gone.png"}}]}]})");
}

} // namespace

class TestZoconvertConvert : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aRunMakesItsFiles_data();
    void aRunMakesItsFiles();
    void whatIsReplacedIsReplaced();
    void aFolderWithoutSecondNamesTakesResults();
    void optionsReachFfmpegAndTheResult_data();
    void optionsReachFfmpegAndTheResult();
    void everyEventIsTold();
    void settingsOfAFileAreUsed();
    void softSubtitlesKeepTimesAndStyle_data();
    void softSubtitlesKeepTimesAndStyle();
    void settingsForAnotherFrameAreRescaled_data();
    void settingsForAnotherFrameAreRescaled();
    void aCopyTellsWhereItIsCut();
    void theBarFitsItsLine_data();
    void theBarFitsItsLine();
};

void TestZoconvertConvert::aRunMakesItsFiles_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("err");
    row("beside its input", {"clip.mp4", "-q"}, 0, "clip-converted.mp4", "");
    row("a line a track and a file", {"clip.mp4", "-o", "new.mkv"}, 0, "new.mkv",
        "zoconvert: clip.mp4: track 0 (video, h264): copied\n"
        "zoconvert: clip.mp4: track 1 (audio, aac): copied\n"
        "zoconvert: clip.mp4: done: new.mkv\n");
    row("no progress", {"clip.mp4", "-o", "new.mkv", "--progress", "none"}, 0, "new.mkv",
        "zoconvert: clip.mp4: track 0 (video, h264): copied\n"
        "zoconvert: clip.mp4: track 1 (audio, aac): copied\n");
    row("dry", {"clip.mp4", "-n", "--output-folder", "new"}, 0, "",
        "zoconvert: clip.mp4: track 0 (video, h264): copied\n"
        "zoconvert: clip.mp4: track 1 (audio, aac): copied\n"
        "zoconvert: clip.mp4: would become new/clip-converted.mp4\n");
    row("a folder", {"films", "-q"}, 0, "films/one-converted.mp4", "");
    row("a folder and those in it", {"films", "--recursive", "--output-folder", "new", "-q"}, 0,
        "new/below/two-converted.mp4 new/one-converted.mp4", "");
    row("two at once, with numbers",
        {"films", "clip.mp4", "--recursive", "-j", "2", "--output-folder", "new", "--name", "{number}{name}.{ending}",
         "-q"},
        0, "new/1one.mp4 new/3clip.mp4 new/below/2two.mp4", "");
    row("a folder without films", {"empty"}, 1, "",
        "zoconvert: empty: There is no media file in it. Add --recursive to look below it.\n");
    row("the container of a settings file", {"crop.zoeffect.json", "-q"}, 0, "crop-converted.mkv", "");
    row("an ending goes before a settings file", {"crop.zoeffect.json", "-q", "-o", "new.mov"}, 0, "new.mov", "");
    row("a container by an edit", {"clip.mp4", "-q", "--set", "Output:container=mov"}, 0, "clip-converted.mov", "");
    row("the result is there", {"clip.mp4", "-o", "there.mp4"}, 1, "",
        "zoconvert: there.mp4 exists. Add --existing skip or --existing replace.\n");
    row("one of the results is there",
        {"clip.mp4", "films", "--output-folder", "done", "--name", "{name}.{ending}", "-q"}, 1, "",
        "zoconvert: done/one.mp4 exists. Add --existing skip or --existing replace.\n");
    row("what is there is skipped",
        {"clip.mp4", "films", "--output-folder", "done", "--name", "{name}.{ending}", "--existing", "skip", "-q"}, 0,
        "done/clip.mp4", "");
    row("skipping is told", {"clip.mp4", "-o", "there.mp4", "--existing", "skip"}, 0, "",
        "zoconvert: clip.mp4: there.mp4 exists; left out.\n");
    row("the last word on what is there holds", {"clip.mp4", "-o", "there.mp4", "--overwrite", "--existing", "skip"}, 0,
        "", "zoconvert: clip.mp4: there.mp4 exists; left out.\n");
    row("the output is the input", {"clip.mp4", "-o", "./clip.mp4", "--overwrite"}, 1, "",
        "zoconvert: ./clip.mp4 is the input itself. Give another output.\n");
    row("the output is a link to the input", {"clip.mp4", "-o", "link.mp4", "--overwrite"}, 1, "",
        "zoconvert: link.mp4 is the input itself. Give another output.\n");
    row("the output is a sound that is needed",
        {"clip.mp4", "--audio", "other/one.mp4", "-o", "other/one.mp4", "--overwrite"}, 1, "",
        "zoconvert: other/one.mp4 is the input itself. Give another output.\n");
    row("the output is an image that is shown",
        {"clip.mp4", "--image", "logo.png", "--container", "mp4", "-o", "logo.png", "--overwrite"}, 1, "",
        "zoconvert: logo.png is the input itself. Give another output.\n");
    row("the output is a device", {"clip.mp4", "-o", "device.mkv", "--overwrite"}, 1, "",
        "zoconvert: clip.mp4: FOLDER/device.mkv is no ordinary file. Give another output.\n");
    row("a name that stands in every sentence", {"a", "-o", "device.mkv", "--overwrite"}, 1, "",
        "zoconvert: a: FOLDER/device.mkv is no ordinary file. Give another output.\n");
    row("the output is a folder", {"clip.mp4", "-o", "done"}, 2, "",
        "zoconvert: done is a folder. Give the name of a file, or use --output-folder.\n");
    row("the output would be a folder", {"clip.mp4", "-o", "new/"}, 2, "",
        "zoconvert: new/ is a folder. Give the name of a file, or use --output-folder.\n");
    row("a folder onto itself", {"films", "--name", "{name}.{ending}", "--overwrite"}, 1, "",
        "zoconvert: films/one.mp4 is the input itself. Give another output.\n");
    row("two films of one name in a folder",
        {"other", "--name", "{name}.{ending}", "--container", "mkv", "--overwrite"}, 2, "",
        "zoconvert: other/one.mkv and other/one.mp4 would both be written to other/one.mkv.\n");
    row("one output for two", {"clip.mp4", "films", "-o", "new.mp4"}, 2, "",
        "zoconvert: --output: new.mp4 is for one input, and there are 2. Use --output-folder.\n");
    row("two of one name", {"films/one.mp4", "other/one.mp4", "--output-folder", "new"}, 2, "",
        "zoconvert: films/one.mp4 and other/one.mp4 would both be written to new/one-converted.mp4.\n");
    row("file and folder", {"clip.mp4", "-o", "new.mp4", "--output-folder", "new"}, 2, "",
        "zoconvert: --output and --output-folder cannot both be given. Leave out one of the two.\n");
    row("ending and container", {"clip.mp4", "-o", "new.mp4", "--container", "mkv"}, 2, "",
        "zoconvert: new.mp4: the ending does not agree with --container mkv. Leave out one of the two.\n");
    row("an ending of no container", {"clip.mp4", "-o", "new.avi"}, 2, "",
        "zoconvert: new.avi: the ending names no container. End it in .mp4, .mkv, .webm or .mov, or add "
        "--container.\n");
    row("no word of a pattern", {"clip.mp4", "--name", "{nam}.mp4"}, 2, "",
        "zoconvert: --name: {nam} is no word of a pattern. There are {name}, {ending} and {number}.\n");
    row("a folder in a pattern", {"clip.mp4", "--name", "new/{name}"}, 2, "",
        "zoconvert: --name: new/{name} has a slash. Use --output-folder for the folder.\n");
    row("a codec that does not fit", {"nix.mp4", "clip.mp4", "--container", "webm", "--video-codec", "h264"}, 2, "",
        "zoconvert: webm cannot hold h264. Choose another container, for example mkv, or another codec.\n");
    row("a quality that does not fit", {"clip.mp4", "--video-codec", "h264", "--quality", "60"}, 2, "",
        "zoconvert: Output:quality: 60 is not between 0 and 51.\n");
    const char* copyTouched = "zoconvert: video-codec copy leaves the track as it is, but another setting changes it. "
                              "Leave out one of the two.\n";
    const auto wrongForAny = [](const char* name, const Arguments& arguments, const char* err) {
        row(name, Arguments{"nix.mkv"} + arguments, 2, "", err);
    };
    wrongForAny("a quality of the usual codec", {"--quality", "60"},
                "zoconvert: Output:quality: 60 is not between 0 and 51.\n");
    wrongForAny("an encoder speed of the usual codec", {"--container", "webm", "--encoder-speed", "9"},
                "zoconvert: Output:encoder-speed: 9 is none of 0, 1, 2, 3, 4, 5, 6, 7, 8.\n");
    wrongForAny("a pixel format of the usual codec", {"--pixel-format", "nv12"},
                "zoconvert: h264 takes no pixel format nv12. Take yuv420p, or source.\n");
    wrongForAny("an exact size for another codec", {"--video-codec", "hevc", "--size", "12x20,exact"},
                "zoconvert: 12x20: hevc takes pictures with sides of 16 to 65535 pixels. Take another size, or another "
                "codec.\n");
    wrongForAny("an uneven size", {"--size", "101x100,exact"},
                "zoconvert: 101x100: with yuv420p width and height have to be even. Take another size, or a pixel "
                "format like yuv444p.\n");
    wrongForAny("a copy of another quality", {"--video-codec", "copy", "--quality", "20"}, copyTouched);
    wrongForAny("a copy with a text", {"--video-codec", "copy", "--text", "A"}, copyTouched);
    wrongForAny("a copy with an image", {"--video-codec", "copy", "--image", "logo.png"}, copyTouched);
    wrongForAny("a copy in other colours", {"--set", "Output:video-codec=copy", "--set", "Color:bcs_contrast=20"},
                copyTouched);
    wrongForAny("a copy of a part", {"--video-codec", "copy", "--crop", "0,0,80%,100%"}, copyTouched);
    wrongForAny("a copy of all but an edge", {"--video-codec", "copy", "--crop", "8,0,100,100"}, copyTouched);
    wrongForAny("a copy with a subtitle", {"--video-codec", "copy", "--subtitle", "films/notes.txt"}, copyTouched);
    wrongForAny("a copy of another bit rate", {"--audio-codec", "copy", "--audio-bitrate", "96"},
                "zoconvert: audio-codec copy leaves the track as it is, but another setting changes it. Leave out one "
                "of the two.\n");
    wrongForAny("a speed of nothing",
                {"--set", "Audio_Speed:audio_effect_flag=true", "--set", "Audio_Speed:audio_speed_factor=0"},
                "zoconvert: Audio_Speed:audio_speed_factor: with 0 nothing would ever be heard or seen. Take 1 to 200 "
                "percent.\n");
    wrongForAny("a value out of bounds", {"--set", "Color:bcs_contrast=400"},
                "zoconvert: nix.mkv: Color:bcs_contrast: 400 is not between -50 and 50.\n");
    wrongForAny("a crop of three numbers", {"--crop", "1,2,3"},
                "zoconvert: nix.mkv: --crop: 1,2,3 is not X,Y,W,H in pixels or percent, for example "
                "10%,0,80%,100%.\n");
    wrongForAny("an image that is not there", {"--image", "nix.png"}, "zoconvert: nix.mkv: nix.png: no such file.\n");
    for (const QList<QByteArray>& rest : {Arguments{"--crop", "0,0,100,100%", "--video-codec", "copy"}, // Of its size?
                                          Arguments{"--crop", "0,0,9999,9999"}, Arguments{"--size", "1x1"},
                                          Arguments{"--set", "Subtitle:7:sub_fontsize=20"}})
        row(("left to the clip: " + rest.at(1)).constData(), Arguments{"nix.mkv"} + rest, 1, "",
            "zoconvert: nix.mkv: no such file.\n");
    row("an edit that does not fit", {"films", "clip.mp4", "--crop", "0,0,200,120"}, 2, "",
        "zoconvert: films/one.mp4: --crop: 0,0,200,120 leaves the frame of 160x120.\n");
    row("a preset that is not there", {"clip.mp4", "--preset", "mine"}, 2, "",
        "zoconvert: clip.mp4: There is no preset mine.\n");
    row("an image that is not there", {"logo.zoeffect.json"}, 2, "",
        "zoconvert: logo.zoeffect.json: Watermark:0:wm_imageurl: FOLDER/gone.png: no such file. Bring it back, or "
        "choose another.\n");
    row("rules of a settings file for tracks that are not there", {"tracks.zoeffect.json"}, 2, "",
        "zoconvert: tracks.zoeffect.json: The clip has no such track 9. Choose one that it has.\n");
    row("rules of the command line go before", {"tracks.zoeffect.json", "--audio-tracks", "1", "-q"}, 0,
        "tracks-converted.mp4", "");
    row("a misspelt input", {"clp.mp4"}, 1, "", "zoconvert: clp.mp4: no such file. There is clip.mp4.\n");
    row("a part that goes on behind the end", {"clip.mp4", "--trim", "0.1,9", "-n"}, 0, "",
        "zoconvert: clip.mp4: warning: The part was to end at 9 s. The clip ends at 0.4 s, and the part with it.\n"
        "zoconvert: clip.mp4: track 0 (video, h264): converted to h264\n"
        "zoconvert: clip.mp4: track 1 (audio, aac): converted to aac\n"
        "zoconvert: clip.mp4: would become clip-converted.mp4\n");
    row("one edge of a crop", {"clip.mp4", "--set", "Crop:crop_left=16", "-n"}, 0, "",
        "zoconvert: clip.mp4: track 0 (video, h264): converted to h264\n"
        "zoconvert: clip.mp4: track 1 (audio, aac): copied\n"
        "zoconvert: clip.mp4: would become clip-converted.mp4\n");
    row("half a crop", {"clip.mp4", "--set", "Crop:crop_left=16", "--reset", "Crop:crop_width", "-n"}, 0, "",
        "zoconvert: clip.mp4: warning: The crop has no width or no height, so nothing is cut off. Set Crop:crop_width "
        "and Crop:crop_height, too.\n"
        "zoconvert: clip.mp4: track 0 (video, h264): copied\n"
        "zoconvert: clip.mp4: track 1 (audio, aac): copied\n"
        "zoconvert: clip.mp4: would become clip-converted.mp4\n");
    row("a watermark of a song", {"song.m4a", "--text", "A", "-n"}, 0, "",
        "zoconvert: song.m4a: warning: The clip has no picture, so Watermark:0 cannot be seen.\n"
        "zoconvert: song.m4a: track 0 (audio, aac): copied\n"
        "zoconvert: song.m4a: would become song-converted.mp4\n");
    row("half a crop, with another effect",
        {"clip.mp4", "--set", "Crop:crop_width=64", "--reset", "Crop:crop_height", "--text", "A", "-n"}, 0, "",
        "zoconvert: clip.mp4: warning: The crop has no width or no height, so nothing is cut off. Set Crop:crop_width "
        "and Crop:crop_height, too.\n"
        "zoconvert: clip.mp4: track 0 (video, h264): converted to h264\n"
        "zoconvert: clip.mp4: track 1 (audio, aac): copied\n"
        "zoconvert: clip.mp4: would become clip-converted.mp4\n");
    row("one of two fails", {"bad.mkv", "clip.mp4", "-q", "-o"}, 2, "", "zoconvert: -o takes a value: FILE.\n");
    row("one of two is missing", {"nix.mp4", "clip.mp4", "-q"}, 3, "clip-converted.mp4",
        "zoconvert: nix.mp4: no such file.\n");
    row("nothing after a failure", {"nix.mp4", "clip.mp4", "-q", "--stop-at-first-failure"}, 3, "",
        "zoconvert: nix.mp4: no such file.\n");
    row("the clip of a settings file is missing", {"lost.zoeffect.json"}, 1, "",
        "zoconvert: lost.zoeffect.json: FOLDER/gone.mp4: no such file.\n");
}

void TestZoconvertConvert::aRunMakesItsFiles()
{
    QFETCH(Arguments, arguments);
    QFETCH(int, code);
    QFETCH(QString, made);
    QFETCH(QString, err);
    ProgramRun run;
    fill(run);
    const QStringList before = filesIn(run.path(""));
    run.run(Arguments{"convert"} + arguments);
    QCOMPARE(run.err.replace(QDir(run.path("")).canonicalPath(), QStringLiteral("FOLDER")), err);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.code, code);
    QStringList after = filesIn(run.path(""));
    for (const QString& file : before)
        after.removeOne(file);
    QCOMPARE(after.join(QLatin1Char(' ')), made);
    QCOMPARE(run.content("there.mp4"), QByteArray("no film"));
    QCOMPARE(run.content("done/one.mp4"), QByteArray("no film"));
}

void TestZoconvertConvert::whatIsReplacedIsReplaced()
{
    ProgramRun run;
    fill(run);
    run.run({"convert", "clip.mp4", "-o", "there.mp4", "--overwrite", "-q"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.code, 0);
    QVERIFY(zokit::probe(zokit::findTools(), run.path("there.mp4")).media);
    run.write("there.mp4", "no film");
    run.run({"convert", "bad.mkv", "-o", "there.mp4", "--existing", "replace", "-q"});
    QCOMPARE(run.code, 1);
    QCOMPARE(run.content("there.mp4"), QByteArray("no film"));
}

namespace {

/// From now on this thread, and what it starts, is in a world where no file has a second name and none is renamed on
/// condition, as in folders that a desktop shows of a server.
void leaveSecondNames()
{
    const auto answers = [](unsigned call, unsigned error) {
        return std::array<sock_filter, 2>{sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1),
                                          sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error)};
    };
    std::vector<sock_filter> rules{
        sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offsetof(seccomp_data, nr)))};
    for (const auto& rule : {answers(SYS_renameat2, EINVAL), answers(SYS_link, EPERM), answers(SYS_linkat, EPERM)})
        rules.insert(rules.end(), rule.begin(), rule.end());
    rules.push_back(sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program = {static_cast<unsigned short>(rules.size()), rules.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
}

} // namespace

void TestZoconvertConvert::aFolderWithoutSecondNamesTakesResults()
{
    ProgramRun run;
    fill(run);
    const auto convert = [&](const char* output) {
        std::thread([&] {
            leaveSecondNames();
            run.run({"convert", "clip.mp4", "-q", "-o", output});
        }).join();
    };
    convert("new.mp4");
    QCOMPARE(run.err, QString());
    QCOMPARE(run.code, 0);
    QVERIFY(zokit::probe(zokit::findTools(), run.path("new.mp4")).media);
}

void TestZoconvertConvert::optionsReachFfmpegAndTheResult_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("result");
    QTest::newRow("frames a second") << Arguments{"--fps", "10"} << "fps=10[even]"
                                     << "v:0:r_frame_rate,avg_frame_rate"
                                     << "10/1,10/1";
    QTest::newRow("a broken number of them") << Arguments{"--fps", "12.5"} << "fps=12.5[even]"
                                             << "v:0:r_frame_rate,avg_frame_rate"
                                             << "25/2,25/2";
    QTest::newRow("bitrate") << Arguments{"--audio-codec", "mp3", "--audio-bitrate", "64"} << " -b:a:0 64k "
                             << "a:0:codec_name,bit_rate"
                             << "mp3,64000";
    QTest::newRow("bitrate alone") << Arguments{"--audio-bitrate", "40"} << " -c:a:0 aac -b:a:0 40k "
                                   << "a:0:codec_name"
                                   << "aac";
    QTest::newRow("neither") << Arguments{} << " -c:v:0 copy "
                             << "v:0:r_frame_rate,avg_frame_rate"
                             << "25/1,25/1";
}

void TestZoconvertConvert::optionsReachFfmpegAndTheResult()
{
    QFETCH(Arguments, arguments);
    QFETCH(QString, command);
    QFETCH(QString, entries);
    ProgramRun run;
    fill(run);
    run.run(Arguments{"convert", "clip.mp4", "-o", "new.mkv", "-v"} + arguments);
    QCOMPARE(run.code, 0);
    // Of a run that talks, the last line is what was run.
    const QString last = run.err.trimmed().section(QLatin1Char('\n'), -1);
    QVERIFY2(last.startsWith(QStringLiteral("zoconvert: clip.mp4: %1 ").arg(zokit::findTools().ffmpeg)),
             qPrintable(last));
    QVERIFY2(last.contains(command), qPrintable(last));
    QProcess ffprobe;
    ffprobe.start(zokit::findTools().ffprobe,
                  {"-v", "error", "-select_streams", entries.left(3), "-show_entries",
                   QStringLiteral("stream=") + entries.mid(4), "-of", "csv=p=0", run.path("new.mkv")});
    QVERIFY(ffprobe.waitForFinished());
    QTEST(QString::fromUtf8(ffprobe.readAllStandardOutput()).trimmed(), "result");
}

void TestZoconvertConvert::everyEventIsTold()
{
    ProgramRun run;
    fill(run);
    run.run({"convert", "clip.mp4", "nix.mp4", "films/one.mp4", "--output-folder", "done", "--name", "{name}.{ending}",
             "--existing", "skip", "--progress", "json", "--text", "Hello"});
    QCOMPARE(run.code, 3);
    QStringList events;
    double fraction = 0;
    for (const QString& line : run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        QString event = object.value(QStringLiteral("event")).toString();
        if (event == QLatin1String("progress")) {
            QVERIFY(object.value(QStringLiteral("fraction")).toDouble() >= fraction);
            fraction = object.value(QStringLiteral("fraction")).toDouble();
            QVERIFY(object.contains(QStringLiteral("seconds_left")) && object.contains(QStringLiteral("speed")));
            continue;
        }
        for (const char* member : {"version", "files", "input", "output", "reason", "done", "failed"}) {
            const QJsonValue value = object.value(QLatin1String(member));
            if (!value.isUndefined())
                event += QLatin1Char(' ') + value.toVariant().toString();
        }
        events.append(event);
    }
    QCOMPARE(fraction, 1.0);
    QCOMPARE(events, (QStringList{"begin 1 3", "failed nix.mp4 done/nix.mp4 nix.mp4: no such file.",
                                  "skipped films/one.mp4 done/one.mp4 done/one.mp4 exists; left out.",
                                  "start clip.mp4 done/clip.mp4", "done clip.mp4 done/clip.mp4", "summary 3 1 1"}));
}

void TestZoconvertConvert::settingsOfAFileAreUsed()
{
    ProgramRun run;
    fill(run);
    run.run({"convert", "crop.zoeffect.json", "-q", "--trim", "0,0.2"});
    QCOMPARE(run.err, QString());
    const zokit::ReadMedia made = zokit::probe(zokit::findTools(), run.path("crop-converted.mkv"));
    QVERIFY(made.media && made.media->picture());
    QCOMPARE(made.media->picture()->shown, QSize(80, 60));
    QVERIFY(made.media->seconds < 0.3);
}

void TestZoconvertConvert::softSubtitlesKeepTimesAndStyle_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<QString>("streams");
    QTest::addColumn<QStringList>("lines"); // As a script has them.
    const QString usual = QStringLiteral("Default,,0,0,0,,");
    const QString hello = QStringLiteral("Dialogue: 0,0:00:00.10,0:00:00.20,") + usual + QStringLiteral("Hello");
    const QString across = QStringLiteral("Dialogue: 0,0:00:00.20,0:00:00.40,") + usual + QStringLiteral("Across");
    const auto add = [](const char* name, const Arguments& arguments, const char* streams, const QStringList& lines) {
        QTest::newRow(name) << arguments << QString::fromUtf8(streams) << lines;
    };
    add("as they are", {"-o", "new.mkv"}, "h264 subrip", {hello, across});
    add("as the container has them", {"-o", "new.mp4"}, "h264 mov_text", {hello, across});
    // Of 0.15 to 0.35 s: both are cut, and times count from there.
    const QStringList part{QStringLiteral("Dialogue: 0,0:00:00.00,0:00:00.05,") + usual + QStringLiteral("Hello"),
                           QStringLiteral("Dialogue: 0,0:00:00.05,0:00:00.20,") + usual + QStringLiteral("Across")};
    add("of a part", {"-o", "new.mkv", "--trim", "0.15,0.35"}, "h264 subrip", part);
    add("of a part, as the container has them", {"-o", "new.mp4", "--trim", "0.15,0.35"}, "h264 mov_text", part);
    add("of a part without the first", {"-o", "new.mkv", "--trim", "0.2,0.35"}, "h264 subrip",
        {QStringLiteral("Dialogue: 0,0:00:00.00,0:00:00.15,") + usual + QStringLiteral("Across")});
    // The usual place is 96 of 120, which leaves no room for letters of 34.1: 85 it is.
    const QString red = QStringLiteral("Style: Default,DejaVu Sans,34.1,&H000000FF,&H000000FF,&H00000000,&H00000000,"
                                       "0,0,0,0,100,100,0,0,1,2.1,0,8,10,10,96,1");
    const QString placed = QStringLiteral("Default,,0,0,85,,");
    add("with a colour", {"-o", "new.mkv", "--set", "Subtitle:0:sub_fontcolor=#ff0000"}, "h264 ass",
        {red, QStringLiteral("Dialogue: 0,0:00:00.10,0:00:00.20,") + placed + QStringLiteral("Hello"),
         QStringLiteral("Dialogue: 0,0:00:00.20,0:00:00.40,") + placed + QStringLiteral("Across")});
    add("with a colour, of a part", {"-o", "new.mkv", "--set", "Subtitle:0:sub_fontcolor=#ff0000", "--trim", "0.2,0.4"},
        "h264 ass", {red, QStringLiteral("Dialogue: 0,0:00:00.00,0:00:00.20,") + placed + QStringLiteral("Across")});
}

void TestZoconvertConvert::softSubtitlesKeepTimesAndStyle()
{
    QFETCH(Arguments, arguments);
    QFETCH(QString, streams);
    QFETCH(QStringList, lines);
    ProgramRun run;
    QFile::copy(clips::clip(QStringLiteral("silent.mkv")), run.path("clip.mkv"));
    run.write("clip.srt", "1\n00:00:00,100 --> 00:00:00,200\nHello\n\n2\n00:00:00,200 --> 00:00:00,400\nAcross\n");
    run.run(
        Arguments{"convert", "clip.mkv", "--subtitle", "clip.srt", "--soft-subtitles", "--video-codec", "h264", "-q"}
        + arguments);
    QCOMPARE(run.err, QString());
    const QString made = run.path(arguments.at(1).constData());
    const zokit::ReadMedia read = zokit::probe(zokit::findTools(), made);
    QVERIFY(read.media);
    QStringList codecs;
    for (const zokit::MediaStream& stream : read.media->streams)
        codecs.append(stream.track.codec);
    QCOMPARE(codecs.join(QLatin1Char(' ')), streams);
    QProcess ffmpeg;
    ffmpeg.start(zokit::findTools().ffmpeg, {"-v", "error", "-i", made, "-map", "0:s", "-f", "ass", "-"});
    QVERIFY(ffmpeg.waitForFinished());
    QStringList found;
    for (const QString& line :
         QString::fromUtf8(ffmpeg.readAllStandardOutput()).remove(QLatin1Char('\r')).split(QLatin1Char('\n')))
        if (line.startsWith(QLatin1String("Dialogue:"))
            || (line.startsWith(QLatin1String("Style:")) && streams.endsWith(QLatin1String("ass"))))
            found.append(line);
    QCOMPARE(found, lines);
}

void TestZoconvertConvert::settingsForAnotherFrameAreRescaled_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<QString>("shape");
    QTest::newRow("as the file says") << Arguments{} << QStringLiteral("40x30");
    QTest::newRow("an edit is measured in the clip") << Arguments{"--crop", "0,0,160,60"} << QStringLiteral("160x60");
}

void TestZoconvertConvert::settingsForAnotherFrameAreRescaled()
{
    QFETCH(Arguments, arguments);
    QFETCH(QString, shape);
    const QString told =
        QStringLiteral("zoconvert: twice.zoeffect.json: warning: The settings are for 320x240, the clip "
                       "has 160x120: what is measured in the frame was rescaled.\n");
    ProgramRun run;
    fill(run);
    run.write("twice.zoeffect.json", R"({"zoeffect": 1, "media": {"file": "clip.mp4", "width": 320, "height": 240},
        "effects": [{"type": "Crop", "values": {"crop_left": 0, "crop_top": 0, "crop_width": 80, "crop_height": 60}}]})");
    for (const Arguments& command :
         {Arguments{"convert", "-o", "new.mp4"}, Arguments{"preview"}, Arguments{"plan", "--plan", "p"}}) {
        run.run(command + arguments + Arguments{"twice.zoeffect.json"});
        QCOMPARE(run.code, 0);
        QVERIFY2(run.err.startsWith(told), qPrintable(run.err));
        QCOMPARE(run.err.count(QStringLiteral("rescaled")), 1);
    }
    const zokit::ReadMedia made = zokit::probe(zokit::findTools(), run.path("new.mp4"));
    QVERIFY(made.media && made.media->picture());
    const QSize size = made.media->picture()->shown;
    QCOMPARE(QStringLiteral("%1x%2").arg(size.width()).arg(size.height()), shape);
    const QImage after(run.path("after.png"));
    QCOMPARE(QStringLiteral("%1x%2").arg(after.width()).arg(after.height()), shape);
}

void TestZoconvertConvert::aCopyTellsWhereItIsCut()
{
    ProgramRun run;
    QFile::copy(clips::clip(QStringLiteral("long.ts")), run.path("long.ts")); // A key frame each four seconds.
    run.run({"convert", "long.ts", "-o", "long.mp4"});
    QCOMPARE(run.code, 0);
    const Arguments copied{"convert", "long.mp4", "--video-codec", "copy", "-o", "new.mkv", "--overwrite", "--trim"};
    run.run(copied + Arguments{"5,7"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err,
             QStringLiteral("zoconvert: long.mp4: track 0 (video, h264): copied\n"
                            "zoconvert: long.mp4: warning: The picture begins at 4.000 s instead of 5.000 s: a "
                            "copy is cut at key frames. Leave out video-codec copy to cut it exactly.\n"
                            "zoconvert: long.mp4: done: new.mkv\n"));
    run.run(copied + Arguments{"4,7"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: long.mp4: track 0 (video, h264): copied\n"
                                     "zoconvert: long.mp4: done: new.mkv\n"));
    // A transport stream goes on to the next key frame, and this one has none.
    run.run({"convert", "long.ts", "--video-codec", "copy", "-o", "none.mkv", "--trim", "5,7"});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.endsWith(QStringLiteral("From 5.000 s on there is no key frame with which a copy could begin. "
                                             "Leave out video-codec copy.\n")),
             qPrintable(run.err));
}

void TestZoconvertConvert::theBarFitsItsLine_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("line");
    QTest::newRow("wide") << 80 << QStringLiteral("[#########...........]   45 %  1/3  1:05  holiday.mkv");
    QTest::newRow("no room for the name") << 45 << QStringLiteral("[#########...........]   45 %  1/3  1:05");
    QTest::newRow("bar and percent") << 30 << QStringLiteral("[#########...........]   45 %");
    QTest::newRow("no room for the bar") << 20 << QStringLiteral(" 45 %  1/3  1:05");
    QTest::newRow("percent") << 6 << QStringLiteral(" 45 %");
    QTest::newRow("nothing fits") << 2 << QString();
}

void TestZoconvertConvert::theBarFitsItsLine()
{
    QFETCH(int, columns);
    QFETCH(QString, line);
    QCOMPARE(zoconvert::barLine(columns, 0.45, 1, 3, 64.2, QStringLiteral("holiday.mkv")), line);
}

ZOEFFECT_TEST_MAIN(TestZoconvertConvert)
#include "tst_zoconvert_convert.moc"
