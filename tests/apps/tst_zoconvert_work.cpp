// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert command, plan and work: conversions as data, done elsewhere or later.

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

#include <zokit/tools.h>

#include "clips.h"
#include "programrun.h"
#include "testapplication.h"

namespace {

constexpr int patience = 60000; // Milliseconds; only a hang takes so long.

void fill(const ProgramRun& run)
{
    QDir().mkpath(run.path("films"));
    for (const char* clip : {"clip.mp4", "films/one.mp4", "films/it's two.mp4"})
        QFile::copy(clips::clip(QStringLiteral("plain.mp4")), run.path(clip));
    QFile::copy(clips::clip(QStringLiteral("text.srt")), run.path("text.srt"));
}

/// Standard output of a program; its exit code goes before it where that is not 0.
QByteArray outputOf(const QString& program, const QStringList& arguments, const QString& folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    if (!process.waitForFinished(patience) || process.exitCode() != 0)
        return "failed: " + process.readAllStandardError();
    return process.readAllStandardOutput();
}

QByteArray frames(const QString& file)
{
    return outputOf(zokit::findTools().ffmpeg, {"-v", "error", "-i", file, "-f", "framemd5", "-"}, QString());
}

} // namespace

class TestZoconvertWork : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void commandsMakeTheSame();
    void commandsAreToldWhateverIsThere();
    void nothingThatIsReadIsReplaced();
    void aFullDiskLeavesNoPlan();
    void aPlanIsDoneInAnyParts();
    void twoRunsShareAPlan();
    void parallelDoesAPlan();
    void whatIsNeededIsChecked();
    void exitCodesSayWhatToDo_data();
    void exitCodesSayWhatToDo();
    void brokenPlansAreRefused_data();
    void brokenPlansAreRefused();
    void jobsThatNobodyAskedForAreNotRead();
};

void TestZoconvertWork::commandsMakeTheSame()
{
    ProgramRun run;
    fill(run);
    const QList<QByteArray> edits{"films/it's two.mp4", "--text", "Hello", "--subtitle", "text.srt"};
    run.run(QList<QByteArray>{"convert", "-q", "-o", "by convert.mkv"} + edits);
    QCOMPARE(run.err, QString());
    run.run(QList<QByteArray>{"command", "-o", "new/by hand.mkv", "--files", "helpers"} + edits);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out.count(QLatin1Char('\n')), 2); // The subtitle is extracted, the clip converted.
    QVERIFY(!QFile::exists(run.path("new/by hand.mkv")));
    const QByteArray told = outputOf(QStringLiteral("sh"), {"-e", "-c", run.out}, QStringLiteral("/"));
    QVERIFY2(!told.startsWith("failed"), told);
    const QByteArray byHand = frames(run.path("new/by hand.mkv"));
    QVERIFY2(byHand.contains("0,"), byHand);
    QCOMPARE(byHand, frames(run.path("by convert.mkv")));
    run.run(QList<QByteArray>{"command", "-o", "by hand.mkv"} + edits);
    QCOMPARE(run.err,
             QStringLiteral("zoconvert: films/it's two.mp4: warning: The lines name helper files that are gone "
                            "already. Add --files FOLDER to run them.\n"));
}

void TestZoconvertWork::commandsAreToldWhateverIsThere()
{
    ProgramRun run;
    fill(run);
    const QList<QByteArray> line{"command", "clip.mp4", "-o", "films/one.mp4", "--set", "Color:bcs_contrast=10"};
    run.run(line + QList<QByteArray>{"--existing", "skip"});
    QCOMPARE(run.err, QString());
    QVERIFY2(run.out.contains(QStringLiteral("lutyuv")), qPrintable(run.out));
    const QString skipping = run.out;
    run.run(line);
    QCOMPARE(run.out, skipping);
}

void TestZoconvertWork::nothingThatIsReadIsReplaced()
{
    ProgramRun run;
    fill(run);
    QVERIFY(QFile::rename(run.path("logo.png"), run.path("watermark.png")));
    QVERIFY(QFile::rename(run.path("text.srt"), run.path("subtitles.ass")));
    const QByteArray logo = run.content("watermark.png");
    const QByteArray clip = run.content("clip.mp4");
    const QString folder = QDir(run.path("")).canonicalPath();
    for (const QList<QByteArray>& named :
         {QList<QByteArray>{"--image", "watermark.png"}, QList<QByteArray>{"--subtitle", "subtitles.ass"}}) {
        run.run(QList<QByteArray>{"command", "clip.mp4", "--files", "."} + named);
        QCOMPARE(run.err, QStringLiteral("zoconvert: clip.mp4: %1/%2 is the input itself. Give another output.\n")
                              .arg(folder, QString::fromUtf8(named.last())));
        QCOMPARE(run.code, 1);
    }
    run.run({"plan", "films", "clip.mp4", "--image", "watermark.png", "--plan", "watermark.png", "--overwrite"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: watermark.png is the input itself. Give another output.\n"));
    QCOMPARE(run.code, 1);
    run.run({"plan", "clip.mp4", "--plan", "clip.mp4", "--existing", "replace"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: clip.mp4 is the input itself. Give another output.\n"));
    QCOMPARE(run.code, 1);
    QVERIFY(run.content("watermark.png") == logo);
    QVERIFY(run.content("clip.mp4") == clip);
}

void TestZoconvertWork::aFullDiskLeavesNoPlan()
{
    ProgramRun run;
    fill(run);
    {
        const FullDisk disk(600); // Room for a sentence, and for a part of a job.
        run.run({"plan", "clip.mp4", "--plan", "p"});
    }
    QVERIFY2(run.err.startsWith(QStringLiteral("zoconvert: p cannot be written: ")), qPrintable(run.err));
    QCOMPARE(run.code, 1);
    QVERIFY(!QFile::exists(run.path("p")));
}

void TestZoconvertWork::aPlanIsDoneInAnyParts()
{
    ProgramRun run;
    fill(run);
    run.run({"plan", "films", "clip.mp4", "nix.mp4", "--image", "logo.png", "--output-folder", "done", "--plan", "p"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: nix.mp4: no such file.\n"));
    QCOMPARE(run.code, 3);
    const QList<QByteArray> lines = run.content("p").trimmed().split('\n');
    QCOMPARE(lines.size(), 3);
    const QJsonObject first = QJsonDocument::fromJson(lines.first()).object();
    QCOMPARE(first.keys(), (QStringList{"input", "job", "needs", "options", "output", "settings"}));
    QCOMPARE(first.value(QStringLiteral("job")).toInt(), 1);
    QCOMPARE(first.value(QStringLiteral("input")).toString(),
             QDir(run.path("")).canonicalPath() + "/films/it's two.mp4");
    const QJsonObject need = first.value(QStringLiteral("needs")).toArray().first().toObject();
    QCOMPARE(need.value(QStringLiteral("file")).toString(), QDir(run.path("")).canonicalPath() + "/logo.png");
    QCOMPARE(need.value(QStringLiteral("bytes")).toInt(), run.content("logo.png").size());
    run.run({"plan", "clip.mp4", "--plan", "p"});
    QCOMPARE(run.code, 1);

    run.run({"work", "p", "2", "-q"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.code, 0);
    QCOMPARE(QDir(run.path("done")).entryList(QDir::Files), QStringList{"one-converted.mp4"});
    run.run({"work", "p", "-q"});
    QCOMPARE(run.code, 0);
    QCOMPARE(QDir(run.path("done")).entryList(QDir::Files).size(), 3);
    const QString folder = QDir(run.path("")).canonicalPath();
    run.run({"work", "p", "--report"});
    QCOMPARE(run.out.replace(folder, QStringLiteral("FOLDER")),
             QStringLiteral("1 done FOLDER/done/it's two-converted.mp4\n2 done FOLDER/done/one-converted.mp4\n"
                            "3 done FOLDER/done/clip-converted.mp4\n"));
}

void TestZoconvertWork::twoRunsShareAPlan()
{
    ProgramRun run;
    fill(run);
    run.run({"plan", "films", "clip.mp4", "--text", "Hello", "--output-folder", "done", "--plan", "p"});
    QCOMPARE(run.code, 0);
    ProgramRun other;
    other.start({"work", QFile::encodeName(run.path("p")), "-q"});
    run.run({"work", "p", "-q"});
    other.wait();
    QCOMPARE(run.err + other.err, QString());
    QCOMPARE(run.code, 0);
    QCOMPARE(other.code, 0);
    QCOMPARE(QDir(run.path("done")).entryList(QDir::Files | QDir::Hidden).join(QLatin1Char(' ')),
             QStringLiteral("clip-converted.mp4 it's two-converted.mp4 one-converted.mp4"));
}

void TestZoconvertWork::parallelDoesAPlan()
{
    const QString parallel = QStandardPaths::findExecutable(QStringLiteral("parallel"));
    QVERIFY2(outputOf(parallel, {"--version"}, QString()).startsWith("GNU"), "install GNU parallel");
    ProgramRun run;
    fill(run);
    run.run({"plan", "films", "clip.mp4", "--output-folder", "done", "--plan", "p"});
    const QByteArray told = outputOf(
        parallel, {"--will-cite", "-j", "2", QStringLiteral(ZOCONVERT), "work", "p", "-q", ":::", "1", "2", "3"},
        run.path(""));
    QVERIFY2(told.isEmpty(), told);
    QCOMPARE(QDir(run.path("done")).entryList(QDir::Files).size(), 3);
}

void TestZoconvertWork::whatIsNeededIsChecked()
{
    ProgramRun run;
    fill(run);
    run.run({"plan", "clip.mp4", "--image", "logo.png", "--plan", "p"});
    const QString folder = QDir(run.path("")).canonicalPath();
    run.write("logo.png", "changed");
    run.run({"work", "p"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: %1/clip.mp4: %1/logo.png is no longer as it was when the plan was "
                                     "written. Write the plan anew.\n")
                          .arg(folder));
    QCOMPARE(run.code, 76);
    QFile::remove(run.path("logo.png"));
    run.run({"work", "p"});
    QCOMPARE(run.code, 76);
    run.run({"work", "p", "--report"});
    QCOMPARE(run.out, QStringLiteral("1 failed %1/clip-converted.mp4: %1/logo.png: no such file.\n").arg(folder));
    run.run({"plan", "clip.mp4", "--plan", "q"});
    QFile::remove(run.path("clip.mp4"));
    run.run({"work", "q"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: %1/clip.mp4: no such file.\n").arg(folder));
    QCOMPARE(run.code, 76);
    QVERIFY(!QFile::exists(run.path("clip-converted.mp4")));
}

void TestZoconvertWork::exitCodesSayWhatToDo_data()
{
    QTest::addColumn<QByteArray>("ffmpeg"); // What goes before the program.
    QTest::addColumn<QByteArray>("ffprobe");
    QTest::addColumn<int>("code");
    const auto row = [](const char* name, const QByteArray& ffmpeg, const QByteArray& ffprobe, int code) {
        QTest::newRow(name) << ffmpeg << ffprobe << code;
    };
    const auto of = [](const char* file, const char* what) {
        return "case \"$*\" in *" + QByteArray(file) + ") " + what + ";; esac";
    };
    row("all is well", "", "", 0);
    row("the preparation is killed", of("pipe:1", "kill -KILL $$"), "", 75);
    row("the preparation stalls", of("pipe:1", "exec sleep 600"), "", 75);
    row("the preparation fails", of("pipe:1", "exit 1"), "", 1);
    row("the conversion is killed", of(".part", "kill -KILL $$"), "", 75);
    row("the conversion stalls", of(".part", "exec sleep 600"), "", 75);
    row("the conversion fails", of(".part", "exit 1"), "", 1);
    row("there is no converting", "#!/nowhere", "", 76);
    row("the probe of the clip is killed", "", of("/clip.mp4", "kill -KILL $$"), 75);
    row("the probe of the clip takes too long", "", of("/clip.mp4", "exec sleep 600"), 75);
    row("the probe of the clip fails", "", of("/clip.mp4", "exit 1"), 1);
    row("the probe of a needed file is killed", "", of("/text.srt", "kill -KILL $$"), 75);
    row("the probe of a needed file fails", "", of("/text.srt", "exit 1"), 76);
    row("the probe of the result is killed", "", of(".part", "kill -KILL $$"), 75);
    row("the probe of the result fails", "", of(".part", "exit 1"), 1);
    row("there is no probing", "", "#!/nowhere", 76);
}

void TestZoconvertWork::exitCodesSayWhatToDo()
{
    QFETCH(QByteArray, ffmpeg);
    QFETCH(QByteArray, ffprobe);
    QFETCH(int, code);
    ProgramRun run;
    fill(run);
    run.run({"plan", "clip.mp4", "--subtitle", "text.srt", "--plan", "p"});
    const zokit::Tools tools = zokit::findTools();
    QDir().mkpath(run.path("tools"));
    const auto write = [&](const char* tool, const QByteArray& before, const QString& program) {
        run.write(tool, (before.startsWith("#!") ? "" : "#!/bin/sh\n") + before + "\nexec " + QFile::encodeName(program)
                            + " \"$@\"\n");
        QFile::setPermissions(run.path(tool), QFile::ReadOwner | QFile::ExeOwner);
    };
    write("tools/ffmpeg", ffmpeg, tools.ffmpeg);
    write("tools/ffprobe", ffprobe, tools.ffprobe);
    run.setTools(QFile::encodeName(run.path("tools")));
    run.run({"work", "p", "--stall", ffmpeg.contains("sleep") ? "1" : "60"});
    QVERIFY2(run.code == code, qPrintable(QString::number(run.code) + run.err));
    QVERIFY(run.files().contains(QStringLiteral("clip-converted.mp4")) == (code == 0));
    run.setTools({});
    run.run({"work", "p"});
    QVERIFY2(run.code == 0, qPrintable(run.err));
}

void TestZoconvertWork::brokenPlansAreRefused_data()
{
    QTest::addColumn<QByteArray>("plan");
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<QString>("err");
    const QByteArray good = R"({"job":1,"input":"/a.mp4","output":"/b.mp4","settings":{"zoeffect":1}})"
                            "\n";
    QTest::newRow("no JSON") << good + "{" << QByteArray("1")
                             << QStringLiteral("p: line 2 is no job. Write the plan anew.");
    QTest::newRow("a relative path") << QByteArray(
        R"({"job":1,"input":"a.mp4","output":"/b.mp4","settings":{"zoeffect":1}})")
                                     << QByteArray("1") << QStringLiteral("p: line 1 is no job. Write the plan anew.");
    QTest::newRow("settings that are none")
        << QByteArray(R"({"job":1,"input":"/a.mp4","output":"/b.mp4","settings":{"zoeffect":99}})") << QByteArray("1")
        << QStringLiteral("p: line 1 is no job. Write the plan anew. ");
    QTest::newRow("no such number") << good << QByteArray("2") << QStringLiteral("There is no job 2. The plan has 1.");
    QTest::newRow("no number") << good << QByteArray("x") << QStringLiteral("There is no job x. The plan has 1.");
}

void TestZoconvertWork::brokenPlansAreRefused()
{
    QFETCH(QByteArray, plan);
    QFETCH(QByteArray, number);
    QFETCH(QString, err);
    ProgramRun run;
    run.write("p", plan);
    run.run({"work", "p", number});
    QVERIFY2(run.err.startsWith(QStringLiteral("zoconvert: ") + err), qPrintable(run.err));
    QCOMPARE(run.code, 2);
}

void TestZoconvertWork::jobsThatNobodyAskedForAreNotRead()
{
    ProgramRun run;
    run.write("p", R"({"job":1,"input":"/a.mp4","output":"/b.mp4","settings":{"zoeffect":1}})"
                   "\n"
                   R"({"job":2,"input":"/a.mp4","output":"/b.mp4","settings":{"zoeffect":99}})");
    run.run({"work", "p", "1"});
    QCOMPARE(run.err, QStringLiteral("zoconvert: /a.mp4: no such file.\n"));
    QCOMPARE(run.code, 76);
    run.run({"work", "p", "2"});
    QCOMPARE(run.code, 2);
}

ZOEFFECT_TEST_MAIN(TestZoconvertWork)
#include "tst_zoconvert_work.moc"
