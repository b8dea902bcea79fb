// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// How files come into a project, and how their settings are kept.

#include <QtTest>

#include <zokit/history.h>
#include <zokit/project.h>
#include <zokit/projectfiles.h>
#include <zokit/settingsfile.h>

#include "childwatch.h"
#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::at;
using kitsupport::key;
using zokit::FileSettings;
using zokit::ProjectFiles;

namespace {

constexpr int patience = 60000; // Milliseconds; only a hang takes so long.

/// A project, and a folder for its files.
struct Stage {
    Stage() : tools(zokit::findTools()), files(project, tools)
    {
        QObject::connect(&files, &ProjectFiles::opened, &files,
                         [this](FileSettings* file) { opened.append(QFileInfo(file->media().file).fileName()); });
        QObject::connect(&files, &ProjectFiles::told, &files,
                         [this](const zokit::Message& message) { told.append(message.text()); });
    }

    QString path(const char* name) const { return folder.filePath(key(name)); }

    /// A copy of a clip in the folder.
    QString copy(const char* clip, const char* name) const
    {
        QFile::copy(clips::clip(key(clip)), path(name));
        return path(name);
    }

    /// A settings file in the folder.
    QString write(const char* name, const char* json) const
    {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) && file.write(json) > 0 ? path(name) : QString();
    }

    void open(const QStringList& paths)
    {
        files.open(paths);
        QVERIFY(QTest::qWaitFor([this] { return !files.isOpening(); }, patience));
    }

    FileSettings* file(int position) const { return project.files().value(position); }

    QTemporaryDir folder;
    zokit::Project project;
    zokit::Tools tools;
    ProjectFiles files;
    QStringList opened;
    QStringList told;
};

} // namespace

class TestKitProjectFiles : public childwatch::Test {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void clipsAreOpenedInTheirOrder();
    void mediaFilesOfAFolderAreOpened();
    void projectThatWasCleanStaysSo();
    void settingsFileOpensItsClip();
    void settingsForAnotherFrameAreRescaled();
    void settingsWithoutTheirClipAreOpenedAsTheyAre();
    void settingsOfNoClipAreOpenedInSilence();
    void whatCannotBeOpenedIsToldAndTheOthersFollow();
    void clipIsOpenedOnce();
    void savedFilesAreOpenedAgain();
    void foreignSettingsFilesAreNamed();
    void clipsOfOneNameGetFilesOfTheirOwn();
    void whatCannotBeSavedIsSaid();
    void undoneFileComesBackWithWhatIsKnown();
    void toolsThatLackAreTold();
};

void TestKitProjectFiles::clipsAreOpenedInTheirOrder()
{
    Stage stage;
    QSignalSpy finished(&stage.files, &ProjectFiles::finished);
    stage.files.open({clips::clip(key("languages.mkv")), clips::clip(key("small.mpg"))});
    stage.files.open({clips::clip(key("plain.mp4"))});
    QVERIFY(stage.files.isOpening());
    QVERIFY(finished.wait(patience));
    QVERIFY(!stage.files.isOpening());
    QCOMPARE(stage.opened, QStringList({key("languages.mkv"), key("small.mpg"), key("plain.mp4")}));
    QCOMPARE(stage.told, QStringList());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(stage.file(0)->items(key("Audio")).size(), 2);
    QCOMPARE(stage.file(1)->media().frame, QSize(176, 144));
    QCOMPARE(stage.files.media(stage.file(0))->streams.size(), 5);
    QCOMPARE(stage.files.media(nullptr), nullptr);
}

void TestKitProjectFiles::mediaFilesOfAFolderAreOpened()
{
    Stage stage;
    stage.copy("plain.mp4", "b.mp4");
    stage.copy("plain.mp4", "a.mp4");
    stage.write("notes.txt", "Hello");
    stage.open({stage.folder.path()});
    QCOMPARE(stage.opened, QStringList({key("a.mp4"), key("b.mp4")}));
}

void TestKitProjectFiles::projectThatWasCleanStaysSo()
{
    Stage stage;
    stage.open({clips::clip(key("plain.mp4"))});
    QVERIFY(stage.project.history().isClean());
    QVERIFY(stage.project.history().canUndo());
    stage.file(0)->setValue(at(*stage.file(0), "Color:bcs_contrast"), key("bcs_contrast"), 20);
    stage.open({clips::clip(key("small.mpg"))});
    QVERIFY(!stage.project.history().isClean());
}

void TestKitProjectFiles::settingsFileOpensItsClip()
{
    Stage stage;
    stage.copy("plain.mp4", "film.mp4");
    const QString path =
        stage.write("mine.json", R"({"zoeffect": 1, "media": {"file": "film.mp4", "width": 160, "height": 120},
                         "effects": [{"type": "Color", "values": {"bcs_contrast": 20}}]})");
    stage.open({path});
    QCOMPARE(stage.opened, QStringList({key("film.mp4")}));
    QCOMPARE(stage.told, QStringList());
    QCOMPARE(stage.file(0)->value(stage.file(0)->type(key("Color")), key("bcs_contrast")).toInt(), 20);
    QCOMPARE(stage.files.settingsFile(stage.file(0)), path);
    QVERIFY(stage.files.media(stage.file(0)) != nullptr);
}

void TestKitProjectFiles::settingsForAnotherFrameAreRescaled()
{
    Stage stage;
    stage.copy("plain.mp4", "film.mp4");
    stage.open({stage.write("mine.json", R"({"zoeffect": 1, "media": {"file": "film.mp4", "width": 320, "height": 240},
        "effects": [{"type": "Crop", "values": {"crop_left": 32, "crop_top": 0, "crop_width": 160,
                                                "crop_height": 240}}]})")});
    QCOMPARE(stage.told, QStringList({key("The settings are for 320x240, the clip has 160x120: what is measured in the "
                                          "frame was rescaled.")}));
    QCOMPARE(stage.file(0)->value(stage.file(0)->type(key("Crop")), key("crop_left")).toInt(), 16);
    QCOMPARE(stage.file(0)->media().frame, QSize(160, 120));
}

void TestKitProjectFiles::settingsWithoutTheirClipAreOpenedAsTheyAre()
{
    Stage stage;
    stage.open(
        {stage.write("mine.json", R"({"zoeffect": 1, "media": {"file": "gone.mp4", "width": 320, "height": 240}})")});
    QCOMPARE(stage.opened, QStringList({key("gone.mp4")}));
    QCOMPARE(stage.told, QStringList({stage.path("gone.mp4") + key(": no such file.")}));
    QCOMPARE(stage.file(0)->media().frame, QSize(320, 240));
    QCOMPARE(stage.files.media(stage.file(0)), nullptr);
}

void TestKitProjectFiles::settingsOfNoClipAreOpenedInSilence()
{
    Stage stage;
    const QString one = stage.write("one.json", R"({"zoeffect": 1, "media": {"width": 320, "height": 240}})");
    const QString two = stage.write("two.json", R"({"zoeffect": 1, "media": {"width": 640, "height": 480}})");
    stage.open({one, two});
    QCOMPARE(stage.opened, QStringList({QString(), QString()}));
    QCOMPARE(stage.told, QStringList());
    QCOMPARE(stage.files.settingsFile(stage.file(1)), two);
}

void TestKitProjectFiles::whatCannotBeOpenedIsToldAndTheOthersFollow()
{
    Stage stage;
    const QString json = stage.write("broken.json", "[]");
    const QString empty = stage.path("empty.mkv");
    QVERIFY(QFile(empty).open(QIODevice::WriteOnly));
    stage.open({json, empty, clips::clip(key("plain.mp4"))});
    QCOMPARE(stage.told.size(), 2);
    QVERIFY2(stage.told.at(0).startsWith(json), qPrintable(stage.told.at(0)));
    QCOMPARE(stage.told.at(1), empty + key(" is empty. Get it once more from where it came from."));
    QCOMPARE(stage.opened, QStringList({key("plain.mp4")}));
}

void TestKitProjectFiles::clipIsOpenedOnce()
{
    Stage stage;
    const QString clip = stage.copy("plain.mp4", "film.mp4");
    const QString settings = stage.write("mine.json", R"({"zoeffect": 1, "media": {"file": "film.mp4"}})");
    stage.open({clip, clip, settings});
    QCOMPARE(stage.opened, QStringList({key("film.mp4"), key("film.mp4"), key("film.mp4")}));
    QCOMPARE(stage.project.files().size(), 1);
    QCOMPARE(stage.told, QStringList({clip + key(" is open already. Remove it first to open these settings.")}));
}

void TestKitProjectFiles::savedFilesAreOpenedAgain()
{
    Stage stage;
    stage.open({stage.copy("plain.mp4", "film.mp4")});
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 20);
    QVERIFY(!stage.project.history().isClean());
    QCOMPARE(stage.files.save().text(), QString());
    QVERIFY(stage.project.history().isClean());
    QCOMPARE(stage.files.settingsFile(stage.file(0)), stage.path("film.zoeffect.json"));
    QCOMPARE(stage.files.foreignFiles(), QStringList()); // It is our own by now.

    Stage second;
    second.open({stage.path("film.zoeffect.json")});
    QCOMPARE(second.file(0)->value(second.file(0)->type(key("Color")), key("bcs_contrast")).toInt(), 20);
}

void TestKitProjectFiles::foreignSettingsFilesAreNamed()
{
    Stage stage;
    const QString settings = stage.write("film.zoeffect.json", R"({"zoeffect": 1})");
    stage.open({stage.copy("plain.mp4", "film.mp4"), stage.copy("plain.mp4", "other.mp4")});
    QCOMPARE(stage.files.foreignFiles(), QStringList({settings}));
    QCOMPARE(stage.files.save().text(), QString()); // Whoever saves has asked.
    QCOMPARE(stage.files.foreignFiles(), QStringList());
}

void TestKitProjectFiles::clipsOfOneNameGetFilesOfTheirOwn()
{
    Stage stage;
    stage.open({stage.copy("plain.mp4", "film.mp4"), stage.copy("plain.mkv", "film.mkv")});
    QCOMPARE(stage.files.settingsFile(stage.file(0)), stage.path("film.mp4.zoeffect.json"));
    QCOMPARE(stage.files.settingsFile(stage.file(1)), stage.path("film.mkv.zoeffect.json"));
    QCOMPARE(stage.files.save().text(), QString());
    stage.project.remove(stage.file(1));
    QCOMPARE(stage.files.settingsFile(stage.file(0)), stage.path("film.mp4.zoeffect.json")); // Where it was saved.
}

void TestKitProjectFiles::whatCannotBeSavedIsSaid()
{
    Stage stage;
    stage.open({stage.copy("plain.mp4", "film.mp4")});
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 20);
    QVERIFY(QDir(stage.folder.path()).mkdir(key("film.zoeffect.json")));
    const QString said = stage.files.save().text();
    QVERIFY2(said.contains(stage.path("film.zoeffect.json")), qPrintable(said));
    QVERIFY(!stage.project.history().isClean());

    stage.open({stage.copy("plain.mp4", "other.mp4"), stage.copy("plain.mp4", "third.mp4")});
    QVERIFY(QDir(stage.folder.path()).mkdir(key("third.zoeffect.json")));
    const QString both = stage.files.save().text();
    QVERIFY2(both.startsWith(stage.path("film.zoeffect.json") + key(", ") + stage.path("third.zoeffect.json")
                             + key(" cannot be written: ")),
             qPrintable(both));
    QVERIFY(QFile::exists(stage.path("other.zoeffect.json")));
    QVERIFY(!stage.project.history().isClean());
}

void TestKitProjectFiles::undoneFileComesBackWithWhatIsKnown()
{
    Stage stage;
    stage.open({clips::clip(key("plain.mp4"))});
    stage.project.history().undo();
    QVERIFY(stage.project.files().isEmpty());
    stage.project.history().redo();
    QCOMPARE(stage.files.media(stage.file(0))->streams.size(), 2);
}

void TestKitProjectFiles::toolsThatLackAreTold()
{
    Stage stage;
    stage.tools = zokit::Tools();
    stage.tools.error = zokit::Message(zokit::Message::Code::Cancelled);
    stage.open({clips::clip(key("plain.mp4"))});
    QCOMPARE(stage.told, QStringList({key("Cancelled.")}));
    QVERIFY(stage.project.files().isEmpty());
}

ZOEFFECT_TEST_MAIN(TestKitProjectFiles)
#include "tst_kit_projectfiles.moc"
