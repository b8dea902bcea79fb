// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QFont>
#include <QImage>
#include <QPolygonF>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QtTest>

#include <zoeffectmodel.h>

#include <zokit/history.h>
#include <zokit/project.h>
#include <zokit/properties.h>
#include <zokit/settingsfile.h>

#include "kitsupport.h"
#include "randomedits.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::FileSettings;
using zokit::History;
using zokit::Identity;
using zokit::Project;
using Code = zokit::Message::Code;

class TestKitHistory : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void everyOperationIsAStep_data();
    void everyOperationIsAStep();
    void textsFollowTheLanguage();
    void gestureIsOneStep();
    void gestureThatChangesNothingIsNone();
    void cancelledGestureLeavesNothing();
    void changesThatCancelEachOtherAreNoStep();
    void newStepEndsWhatCouldBeRedone();
    void expectedFileStandsBelow();
    void cleanStateIsFoundAgain();
    void selectionComesBack();
    void oldestStepsAreForgotten();
    void stepsOfLargeValuesAreForgotten_data();
    void stepsOfLargeValuesAreForgotten();
    void undoneStepsAreForgottenToo();
    void openGestureKeepsEachValueOnce();
    void goToAnyStep();
    void applyingToManyFilesIsOneStep();
    void refusedApplyingLeavesAnOpenGesture();
    void whatApplyingWouldChangeIsALineAValue();
    void filesComeAndGo();
    void cleanIsTheMomentThatWasSaved();
    void whatIsNoFileIsNeitherFoundNorRemoved();
    void savedDefaultsComeAndGo();
    void defaultThatCannotBeWrittenIsTold();
    void directChangeOfAModelIsAStep();
    void listenerCannotEditWhileAStepIsReplayed_data();
    void listenerCannotEditWhileAStepIsReplayed();
    void fileThatComesCannotBeEditedBeforeItIsThere();
    void undoAllIsExact();
};

namespace {

/// One operation on a project with one file that has a text watermark, and what its step is called.
struct Operation {
    const char* name;
    void (*carryOut)(Project& project, FileSettings& file);
    const char* text;
};

const Operation operations[] = {
    {"a value", [](Project&, FileSettings& file) { file.setValue(file.type(key("Color")), key("bcs_contrast"), 9); },
     "change Contrast"},
    {"a selection",
     [](Project&, FileSettings& file) { file.setValue(file.type(key("Color")), key("selected"), false); },
     "switch Colour"},
    {"an insertion",
     [](Project&, FileSettings& file) {
         file.insert(key("Watermark"), {{key("wm_textcontent"), key("x")}});
     },
     "add watermark"},
    {"two insertions",
     [](Project&, FileSettings& file) {
         zokit::Settings settings = file.settings();
         for (zokit::TypeSettings& type : settings.effects) {
             if (type.type == key("Watermark"))
                 type.items << type.items.first() << type.items.first();
         }
         file.setSettings(settings);
     },
     "add Watermarks"},
    {"a removal", [](Project&, FileSettings& file) { file.remove(file.item(key("Watermark"), 0)); },
     "remove watermark"},
    {"a selected item",
     [](Project&, FileSettings& file) { file.setValue(file.item(key("Watermark"), 0), key("selected"), false); },
     "switch watermark"},
    {"a move", [](Project&, FileSettings& file) { file.move(file.item(key("Effect"), 0), 3); }, "move frame effect"},
    {"a reset value",
     [](Project&, FileSettings& file) { file.reset(file.item(key("Watermark"), 0), key("wm_fontsize")); },
     "change Size"},
    {"a reset item", [](Project&, FileSettings& file) { file.resetItem(file.item(key("Watermark"), 0)); },
     "change Size"},
    {"a reset type", [](Project&, FileSettings& file) { file.resetType(key("Watermark")); }, "remove watermark"},
    {"a reset of everything", [](Project&, FileSettings& file) { file.resetAll(); }, "remove watermark"},
    {"another frame",
     [](Project&, FileSettings& file) {
         file.setMedia({QString(), QSize(640, 360), 1.0});
     },
     nullptr},
    {"an output option", [](Project&, FileSettings& file) { file.setValue(file.output(), key("quality"), 20); },
     "change Quality"},
    {"a saved default",
     [](Project& project, FileSettings& file) { project.saveDefault(file.item(key("Watermark"), 0)); },
     "change a saved default"},
    {"a new file", [](Project& project, FileSettings&) { project.add(clip()); }, "add a file"},
};

} // namespace

void TestKitHistory::everyOperationIsAStep_data()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < std::size(operations); ++i)
        QTest::newRow(operations[i].name) << int(i);
}

void TestKitHistory::everyOperationIsAStep()
{
    QFETCH(int, index);
    const Operation& operation = operations[index];
    Project project;
    FileSettings* file = project.add(clip());
    const Identity text = file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}}).item;
    file->setValue(text, key("wm_fontsize"), 40);
    History& history = project.history();
    const int before = history.count();
    const QByteArray was = stateOf(project);
    operation.carryOut(project, *file);
    QCOMPARE(history.count(), before + 1);
    if (operation.text)
        QCOMPARE(history.undoText().text(), QString::fromLatin1(operation.text));
    const QByteArray is = stateOf(project);
    QVERIFY(was != is);
    history.undo();
    QCOMPARE(stateOf(project), was);
    QCOMPARE(history.redoText(), history.step(before).text);
    history.redo();
    QCOMPARE(stateOf(project), is);
}

void TestKitHistory::textsFollowTheLanguage()
{
    Project project;
    FileSettings* file = project.add(clip());
    History& history = project.history();
    file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}});
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 9);
    file->setValue(file->type(key("Color")), key("selected"), false);
    const auto texts = [&] {
        return history.step(1).text.text() + key(", ") + history.step(2).text.text() + key(", ")
               + history.undoText().text();
    };
    QCOMPARE(texts(), key("add watermark, change Contrast, switch Colour"));
    zokit::useLanguage(QLocale(QLocale::German));
    QCOMPARE(texts(), QString::fromUtf8("Wasserzeichen hinzuf\u00fcgen, Kontrast \u00e4ndern, Farbe umschalten"));
    zokit::useLanguage(QLocale::c());
    QCOMPARE(texts(), key("add watermark, change Contrast, switch Colour"));
}

void TestKitHistory::gestureIsOneStep()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    History& history = project.history();
    history.beginGesture(zokit::Message());
    for (int value = 1; value <= 30; ++value) {
        history.beginGesture(zokit::Message()); // They may nest.
        file->setValue(color, key("bcs_contrast"), value);
        history.endGesture();
    }
    QCOMPARE(history.count(), 1); // The file's own.
    QVERIFY(!history.canUndo());
    history.endGesture();
    QCOMPARE(history.count(), 2);
    QCOMPARE(history.step(1).changes.size(), 1);
    QCOMPARE(history.step(1).changes.first().before, QVariant(0));
    QCOMPARE(history.step(1).changes.first().after, QVariant(30));
    history.undo();
    QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(0));
}

void TestKitHistory::gestureThatChangesNothingIsNone()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    History& history = project.history();
    history.beginGesture(zokit::Message());
    file->setValue(color, key("bcs_contrast"), 5);
    file->setValue(color, key("bcs_contrast"), 0);
    const Identity item = file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("x")}}).item;
    file->remove(item);
    history.endGesture();
    QCOMPARE(history.count(), 1);
}

void TestKitHistory::cancelledGestureLeavesNothing()
{
    Project project;
    FileSettings* file = project.add(clip());
    History& history = project.history();
    const QByteArray before = stateOf(project);
    history.beginGesture(zokit::Message());
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 5);
    file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("x")}});
    history.cancelGesture();
    QCOMPARE(stateOf(project), before);
    QCOMPARE(history.count(), 1);
}

void TestKitHistory::changesThatCancelEachOtherAreNoStep()
{
    Project project;
    const FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    const int before = project.history().count();
    project.history().cancelGesture(); // None is open.
    const QVariant here = file->value(color, key("bcs_contrast"));
    project.apply({{color, key("bcs_contrast"), here, 9}, {color, key("bcs_contrast"), 9, here}});
    QCOMPARE(project.history().count(), before);
    QCOMPARE(file->value(color, key("bcs_contrast")), here);
}

void TestKitHistory::newStepEndsWhatCouldBeRedone()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    for (const int value : {1, 2, 3})
        file->setValue(color, key("bcs_contrast"), value);
    project.history().undo();
    project.history().undo();
    file->setValue(color, key("bcs_saturation"), 7);
    QVERIFY(!project.history().canRedo());
    QCOMPARE(project.history().count(), 3);
    QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(1));
}

void TestKitHistory::expectedFileStandsBelow()
{
    Project project;
    zokit::History& history = project.history();
    FileSettings* file = project.add(clip());
    const zokit::Identity color = file->type(key("Color"));
    const auto contrast = [&] { return file->value(color, key("bcs_contrast")).toInt(); };
    const auto comes = [&] {
        return project.addExpected(FileSettings(zokit::Media{key("/films/late.mkv"), QSize(640, 360), 1.0}).settings());
    };
    history.expectFiles();
    comes(); // With nothing above it.
    file->setValue(color, key("bcs_contrast"), 1);
    history.setClean();
    file->setValue(color, key("bcs_contrast"), 2);
    history.setSelection({color});
    comes();
    QCOMPARE(history.count(), 5);
    QCOMPARE(history.undoText().text(), key("change Contrast"));
    QCOMPARE(history.selection(), QVector<zokit::Identity>{color});
    history.undo();
    QCOMPARE(contrast(), 1);
    QVERIFY(!history.isClean()); // A file more than there was.
    comes();                     // What was undone is not forgotten.
    QCOMPARE(project.files().size(), 4);
    history.redo();
    QCOMPARE(contrast(), 2);
    QCOMPARE(history.count(), 6);
    for (const char* text : {"change Contrast", "change Contrast", "add a file", "add a file", "add a file"}) {
        QCOMPARE(history.undoText().text(), key(text));
        history.undo();
    }
    QCOMPARE(project.files(), QVector<FileSettings*>{file});
    comes(); // Where files were expected has been undone.
    QCOMPARE(history.position(), 2);
    history.goTo(history.count());
    QCOMPARE(project.files().size(), 5);
    QCOMPARE(contrast(), 2);
    history.goTo(0);
    QVERIFY(project.files().isEmpty());

    history.beginGesture(zokit::Message(Code::StepApply, {key("2")}));
    comes();
    comes();
    history.endGesture();
    QCOMPARE(history.count(), 1); // A gesture is one step, whatever was expected.
    history.setLimit(1);
    comes();
    history.expectFiles();
    project.add(clip()); // Its step is the only one that is kept.
    comes();
    QCOMPARE(history.count(), 1);
    QCOMPARE(project.files().size(), 5);
}

void TestKitHistory::cleanStateIsFoundAgain()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    History& history = project.history();
    history.setClean();
    QSignalSpy clean(&history, &History::cleanChanged);
    file->setValue(color, key("bcs_contrast"), 1);
    QVERIFY(!history.isClean());
    history.undo();
    QVERIFY(history.isClean());
    history.redo();
    history.setClean();
    history.undo();
    file->setValue(color, key("bcs_contrast"), 2); // The clean state is not to be had any more.
    history.undo();
    QVERIFY(!history.isClean());
    QCOMPARE(clean.size(), 5);
}

void TestKitHistory::selectionComesBack()
{
    Project project;
    FileSettings* file = project.add(clip());
    History& history = project.history();
    const Identity a = file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("a")}}).item;
    history.setSelection({a});
    const Identity b = file->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("b")}}).item;
    QCOMPARE(history.selection(), QVector<Identity>({a})); // Until the host says another.
    history.setSelection({b});
    history.undo();
    QCOMPARE(history.selection(), QVector<Identity>({a}));
    history.redo();
    QCOMPARE(history.selection(), QVector<Identity>({b}));
    QVERIFY(file->owns(b));
}

void TestKitHistory::oldestStepsAreForgotten()
{
    Project project;
    FileSettings* file = project.add(clip());
    History& history = project.history();
    history.setLimit(20000);
    for (int i = 0; i < 400; ++i)
        file->setValue(file->type(key("Color")), key("bcs_contrast"), i % 2 == 0 ? 10 : 20);
    QVERIFY2(history.count() > 10 && history.count() < 200, QByteArray::number(history.count()));
    QCOMPARE(history.position(), history.count());
    history.goTo(0);
    QVERIFY(file->value(file->type(key("Color")), key("bcs_contrast")).toInt() >= 10); // What is forgotten stays done.
}

namespace {

/// What no stream can tell the size of, and Qt's variants cannot compare.
struct Unknown {
    int number = 0;
};

} // namespace

Q_DECLARE_METATYPE(Unknown)

void TestKitHistory::stepsOfLargeValuesAreForgotten_data()
{
    QTest::addColumn<QVariant>("value"); // Of about 40000 bytes.
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    const auto font = [](int letters) { return QFont(QString(letters, QLatin1Char('f'))); };
    QTest::newRow("a picture") << QVariant(QImage(100, 100, QImage::Format_RGB32)) << 8 << 12;
    QTest::newRow("a font") << QVariant(font(20000)) << 8 << 12;
    QTest::newRow("bytes") << QVariant(QByteArray(40000, 'x')) << 8 << 12;
    QTest::newRow("a polygon") << QVariant(QPolygonF(QVector<QPointF>(2500))) << 8 << 12;
    QTest::newRow("a list of fonts") << QVariant(QVariantList{font(10000), font(10000)}) << 8 << 12;
    QTest::newRow("of an unknown kind") << QVariant::fromValue(Unknown()) << 31 << 31;
}

void TestKitHistory::stepsOfLargeValuesAreForgotten()
{
    QFETCH(QVariant, value);
    QFETCH(int, least);
    QFETCH(int, most);
    Project project;
    FileSettings* file = project.add(clip());
    project.history().setLimit(400000);
    for (int i = 0; i < 30; ++i)
        file->setValue(file->type(key("Color")), key("x-host"), i % 2 == 0 ? value : QVariant(i));
    const int count = project.history().count();
    QVERIFY2(count >= least && count <= most, QByteArray::number(count));
}

void TestKitHistory::undoneStepsAreForgottenToo()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    History& history = project.history();
    for (int i = 0; i < 10; ++i)
        file->setValue(color, key("x-host"), QString(100000, QLatin1Char(char('a' + i))));
    history.setClean();
    history.goTo(1);
    QSignalSpy forgotten(&history, &History::redoForgotten);
    history.setLimit(1200000); // The file's step, and those of the first three texts: 200 kB, then 400 each.
    QCOMPARE(history.position(), 1);
    QCOMPARE(history.count(), 4);
    QCOMPARE(forgotten.size(), 1);
    QCOMPARE(forgotten.first(), QVariantList{QVariant(7)});
    history.goTo(99);
    QCOMPARE(file->value(color, key("x-host")).toString().at(0), QChar(QLatin1Char('c')));
    QVERIFY(!history.isClean());
    history.goTo(0);
    history.setLimit(0);
    QCOMPARE(history.count(), 1); // The file can be brought back.
    QVERIFY(history.canRedo());
}

/// In a gesture that lasts for hours, too.
void TestKitHistory::openGestureKeepsEachValueOnce()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    QVector<QImage> images;
    for (int side = 1; side <= 4; ++side)
        images.append(QImage(side, side, QImage::Format_RGB32));
    file->setValue(color, key("x-host"), images.at(0));
    const QByteArray before = stateOf(project);
    project.history().beginGesture(zokit::Message());
    for (int i = 1; i < 4; ++i) {
        file->setValue(color, key("bcs_contrast"), i);
        file->setValue(color, key("x-host"), images.at(i));
    }
    QVERIFY(!images.at(0).isDetached());
    QVERIFY(images.at(1).isDetached() && images.at(2).isDetached()); // Nobody else has them.
    project.history().endGesture();
    const zokit::Changes changes = project.history().step(2).changes;
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes.at(0).after, QVariant(3));
    QCOMPARE(changes.at(1).before.value<QImage>(), images.at(0));
    QCOMPARE(changes.at(1).after.value<QImage>(), images.at(3));
    project.history().undo();
    QCOMPARE(stateOf(project), before);
}

void TestKitHistory::goToAnyStep()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    for (int value = 1; value <= 5; ++value)
        file->setValue(color, key("bcs_contrast"), value);
    project.history().goTo(3);
    QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(2));
    project.history().goTo(99);
    QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(5));
}

void TestKitHistory::applyingToManyFilesIsOneStep()
{
    Project project;
    FileSettings* source = project.add(clip());
    source->setValue(source->type(key("Color")), key("bcs_contrast"), 25);
    QVector<FileSettings*> targets;
    for (int i = 0; i < 5; ++i)
        targets.append(project.add(zokit::Media{QString(), QSize(640 + i, 360), 1.0}));
    const int before = project.history().count();
    QVERIFY(project.apply(source->settings(), targets, {{key("Color")}, false}).isEmpty());
    QCOMPARE(project.history().count(), before + 1);
    QCOMPARE(project.history().undoText().text(), QStringLiteral("apply to 5 files"));
    project.history().undo();
    QVERIFY(project.apply(source->settings(), {targets.first()}, {{key("Color")}, false}).isEmpty());
    QCOMPARE(project.history().undoText().text(), QStringLiteral("apply to one file"));
    project.history().undo();
    QVERIFY(project.apply(source->settings(), targets, {{key("Color")}, false}).isEmpty());
    for (const FileSettings* target : targets)
        QCOMPARE(target->value(target->type(key("Color")), key("bcs_contrast")), QVariant(25));
    project.history().undo();
    for (const FileSettings* target : targets)
        QCOMPARE(target->value(target->type(key("Color")), key("bcs_contrast")), QVariant(0));
    QCOMPARE(project.apply(source->settings(), targets, {{key("Colour")}, false}).code(), Code::UnknownType);
}

void TestKitHistory::refusedApplyingLeavesAnOpenGesture()
{
    Project project;
    FileSettings* source = project.add(clip());
    FileSettings* other = project.add(zokit::Media{key("/films/other.mkv"), QSize(640, 360), 1.0});
    const Identity color = source->type(key("Color"));
    History& history = project.history();
    const QByteArray before = stateOf(project);
    history.beginGesture(zokit::Message(Code::StepAddFile));
    source->setValue(color, key("bcs_contrast"), 25);
    const QByteArray edited = stateOf(project);
    const auto refuse = [&](const zokit::Settings& seen, zokit::Settings& after) {
        after.find(key("Color"))->values.insert(key("bcs_brightness"), 10);
        return seen.media.file == key("/films/other.mkv") ? zokit::Message(Code::NoSuchTrack) : zokit::Message();
    };
    const zokit::CarryOver carry{{key("Color")}, false};
    QCOMPARE(project.apply(source->settings(), {source, other}, carry, nullptr, refuse).code(), Code::NoSuchTrack);
    QCOMPARE(stateOf(project), edited);
    QCOMPARE(history.count(), 2);
    history.endGesture();
    QCOMPARE(history.count(), 3);
    QCOMPARE(history.undoText().code(), Code::StepAddFile);
    QCOMPARE(history.step(2).changes.size(), 1);
    QCOMPARE(project.apply(source->settings(), {source, other}, carry, nullptr, refuse).code(), Code::NoSuchTrack);
    QCOMPARE(stateOf(project), edited); // Outside of a gesture, too.
    QCOMPARE(project.apply(source->settings(), {other, source}, carry, nullptr, refuse).code(), Code::NoSuchTrack);
    QCOMPARE(stateOf(project), edited);
    QCOMPARE(history.count(), 3);
    history.undo();
    QCOMPARE(stateOf(project), before);
}

void TestKitHistory::whatApplyingWouldChangeIsALineAValue()
{
    Project project;
    FileSettings* source = project.add(clip());
    source->setValue(source->type(key("Color")), key("bcs_contrast"), 25);
    source->setValues(
        source->type(key("Crop")),
        {{key("crop_left"), 160}, {key("crop_top"), 0}, {key("crop_width"), 640}, {key("crop_height"), 720}});
    FileSettings* small = project.add(zokit::Media{key("/films/small.mkv"), QSize(640, 360), 1.0});
    FileSettings* other = project.add(zokit::Media{key("/films/other.mkv"), QSize(1280, 720), 1.0});
    const int before = project.history().count();
    const zokit::CarryOver carry{{key("Color"), key("Crop")}, false};
    QCOMPARE(project.changesOf(source->settings(), {small}, carry),
             QStringList(
                 {key("small.mkv: Crop: Height: as the frame -> 360 px"), key("small.mkv: Crop: Left: 0 px -> 80 px"),
                  key("small.mkv: Crop: Width: as the frame -> 320 px"), key("small.mkv: Colour: Contrast: 0 -> 25")}));
    QCOMPARE(project.changesOf(source->settings(), {small, other}, {{key("Color")}, false}),
             QStringList({key("small.mkv: Colour: Contrast: 0 -> 25"), key("other.mkv: Colour: Contrast: 0 -> 25")}));
    const auto brighten = [&](const zokit::Settings&, zokit::Settings& after) {
        after.find(key("Color"))->values.insert(key("bcs_brightness"), 10);
        return zokit::Message();
    };
    const auto refuse = [](const zokit::Settings& seen, zokit::Settings&) {
        return seen.media.file == key("/films/other.mkv") ? zokit::Message(Code::UnknownType, {key("x")})
                                                          : zokit::Message();
    };
    QCOMPARE(project.changesOf(source->settings(), {other}, {{key("Color")}, false}, brighten),
             QStringList({key("other.mkv: Colour: Brightness: 0 -> 10"), key("other.mkv: Colour: Contrast: 0 -> 25")}));
    QCOMPARE(project.changesOf(source->settings(), {small, other}, carry, refuse), QStringList());
    QCOMPARE(project.history().count(), before);
    project.apply(source->settings(), {small, other}, carry);
    QCOMPARE(project.changesOf(source->settings(), {small, other}, carry), QStringList());
}

void TestKitHistory::filesComeAndGo()
{
    Project project;
    FileSettings* first = project.add(clip());
    FileSettings* second = project.add(zokit::Media{QStringLiteral("/b.mkv"), QSize(640, 360), 2.0});
    const Identity identity = first->file();
    const Identity text = first->insert(key("Watermark"), {{key("wm_textcontent"), QStringLiteral("Hello")}}).item;
    const QByteArray before = stateOf(project);
    project.remove(first);
    QCOMPARE(project.files(), QVector<FileSettings*>({second}));
    project.history().undo();
    QCOMPARE(stateOf(project), before);
    QCOMPARE(project.files().size(), 2);
    QCOMPARE(project.files().constFirst()->file(), identity); // At its place, with its identities.
    QCOMPARE(project.fileOf(text), project.files().constFirst());
    project.history().goTo(0);
    QVERIFY(project.files().isEmpty());
    project.history().goTo(99);
    QCOMPARE(project.files().size(), 1);
}

void TestKitHistory::cleanIsTheMomentThatWasSaved()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    zokit::History& history = project.history();
    QVector<bool> told;
    connect(&history, &zokit::History::cleanChanged, this, [&](bool isClean) { told.append(isClean); });
    history.setClean();
    history.setClean(); // It is already.
    QCOMPARE(told, QVector<bool>{true});
    history.beginGesture(zokit::Message());
    file->setValue(color, key("bcs_contrast"), 3);
    history.undo(); // Nothing is walked through meanwhile.
    QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(3));
    history.setClean(); // What was saved is no step yet.
    history.endGesture();
    QVERIFY(!history.isClean());
    history.undo();
    QVERIFY(!history.isClean());
    zokit::HistoryState state = history.state();
    for (const int clean : {99, -7}) { // Of a damaged journal.
        state.cleanPosition = clean;
        history.restore(state);
        QVERIFY(!history.isClean());
        QCOMPARE(history.state().cleanPosition, -1);
    }
}

void TestKitHistory::whatIsNoFileIsNeitherFoundNorRemoved()
{
    Project project;
    FileSettings* file = project.add(clip());
    FileSettings other(clip());
    QCOMPARE(project.file(file->file()), file);
    QCOMPARE(project.file(file->type(key("Color"))), nullptr);
    project.remove(nullptr);
    project.remove(&other);
    QCOMPARE(project.files(), QVector<FileSettings*>{file});
}

void TestKitHistory::savedDefaultsComeAndGo()
{
    Project project;
    FileSettings* file = project.add(clip());
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 11);
    QVERIFY(project.saveDefault(file->type(key("Color"))).isEmpty());
    QCOMPARE(ZoEffectModel::customDefaultVal(key("bcs_contrast"), key("Color")), QVariant(11));
    QVERIFY(project.forgetDefault(key("Color")).isEmpty());
    QVERIFY(!ZoEffectModel::customDefaultVal(key("bcs_contrast"), key("Color")).isValid());
    project.history().undo();
    QCOMPARE(ZoEffectModel::customDefaultVal(key("bcs_contrast"), key("Color")), QVariant(11));
    project.history().undo();
    QVERIFY(!ZoEffectModel::customDefaultVal(key("bcs_contrast"), key("Color")).isValid());
    FileSettings* sound = project.add(zokit::Media{key("/a.wav"), QSize(), 1.0});
    for (const auto& [type, of] : {std::pair("Watermark", "wm_textcontent"), std::pair("Subtitle", "trackid")}) {
        const Identity item = sound->insert(key(type), {{key(of), 3}}).item;
        QVERIFY(project.saveDefault(item).isEmpty());
        const zokit::Values saved = project.savedValues(key(type));
        QVERIFY(!saved.isEmpty());
        for (const char* place : {"wm_hposfactor", "wm_vposfactor", "sub_vposfactor"}) // A part of no frame.
            QVERIFY2(!saved.contains(key(place)), place);
    }
    for (const char* type : {"Crop", "Watermark", "Subtitle", "Audio"}) // Of some it is an item's.
        QCOMPARE(project.saveDefault(file->type(key(type))).code(), Code::NothingToSave);
}

namespace {

/// A host with a preference store or, at times, with the library's own.
class Host : public TestApplication {
public:
    using TestApplication::TestApplication;

    ZoPref* preferences() override { return hasStore ? TestApplication::preferences() : nullptr; }

    bool hasStore = true;
};

} // namespace

void TestKitHistory::defaultThatCannotBeWrittenIsTold()
{
    auto* host = dynamic_cast<Host*>(QCoreApplication::instance());
    const QScopedValueRollback<bool> withoutStore(host->hasStore, false);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QFile obstacle(folder); // A file in the place of the folder.
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(key("effectdefaults.json\" cannot be locked")));
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    file->setValue(color, key("bcs_contrast"), 11);
    const zokit::Message unwritable(
        Code::FileUnwritable, {folder + QStringLiteral("/effectdefaults.json"), QStringLiteral("Not a directory")});
    QCOMPARE(project.saveDefault(color), unwritable);
    QCOMPARE(project.saveDefault(color), unwritable); // Still.
    QCOMPARE(project.savedValues(key("Color")).value(key("bcs_contrast")), QVariant(11));
    QCOMPARE(project.forgetDefault(key("Color")), unwritable);
    QVERIFY(obstacle.remove());
    QCOMPARE(project.saveDefault(color), zokit::Message());
    QCOMPARE(project.forgetDefault(key("Color")), zokit::Message());
}

void TestKitHistory::directChangeOfAModelIsAStep()
{
    Project project;
    FileSettings* file = project.add(clip());
    file->pictureModel()->setData(key("bcs_contrast"), 5, key("Color"), -1);
    QCOMPARE(project.history().count(), 2);
    project.history().undo();
    QCOMPARE(file->pictureModel()->data(key("bcs_contrast"), key("Color"), -1), QVariant(0));
}

namespace {

/// What a history carries out by itself, of a project whose one file has the contrast 9 by its second step.
struct Replay {
    const char* name;
    void (*prepare)(History& history, FileSettings& file);
    void (*carryOut)(History& history);
    int contrast; ///< Afterwards.
};

const Replay replays[] = {
    {"undo", [](History&, FileSettings&) {}, [](History& history) { history.undo(); }, 0},
    {"redo", [](History& history, FileSettings&) { history.undo(); }, [](History& history) { history.redo(); }, 9},
    {"a gesture that is cancelled",
     [](History& history, FileSettings& file) {
         history.beginGesture(zokit::Message());
         file.setValue(file.type(key("Color")), key("bcs_contrast"), 20);
     },
     [](History& history) { history.cancelGesture(); }, 9},
};

} // namespace

void TestKitHistory::listenerCannotEditWhileAStepIsReplayed_data()
{
    QTest::addColumn<int>("row");
    int row = 0;
    for (const Replay& replay : replays)
        QTest::newRow(replay.name) << row++;
}

void TestKitHistory::listenerCannotEditWhileAStepIsReplayed()
{
    QFETCH(int, row);
    const Replay& replay = replays[row];
    Project project;
    FileSettings* file = project.add(clip());
    const Identity color = file->type(key("Color"));
    file->setValue(color, key("bcs_contrast"), 9);
    replay.prepare(project.history(), *file);
    QVector<Code> answers;
    const auto edit = [&] {
        answers << file->setValue(color, key("bcs_saturation"), 5).code() << project.saveDefault(color).code()
                << project.forgetDefault(key("Color")).code();
        QVERIFY(!project.add(clip()));
        project.remove(file);
        project.history().undo();
    };
    connect(&project, &Project::aboutToChange, this, edit);
    connect(file, &FileSettings::aboutToChange, this, edit);
    connect(file, &FileSettings::changed, this, edit);
    connect(&project, &Project::changed, this, edit);
    replay.carryOut(project.history());
    QCOMPARE(answers, QVector<Code>(12, Code::Busy));
    QCOMPARE(project.files().size(), 1);
    QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(replay.contrast));
    QCOMPARE(file->value(color, key("bcs_saturation")), QVariant(0));
    project.disconnect(this);
    file->disconnect(this);
    QVERIFY(file->setValue(color, key("bcs_saturation"), 6).isEmpty());
    QCOMPARE(project.history().position(), project.history().count());
    const QByteArray after = stateOf(project);
    project.history().goTo(0);
    project.history().goTo(project.history().count());
    QCOMPARE(stateOf(project), after);
}

void TestKitHistory::fileThatComesCannotBeEditedBeforeItIsThere()
{
    Project project;
    Code answer = Code::None;
    connect(&project, &Project::fileAdded, this, [&](FileSettings* file) {
        answer = file->setValue(file->type(key("Color")), key("bcs_contrast"), 5).code();
    });
    const FileSettings* file = project.add(clip());
    QCOMPARE(answer, Code::Busy);
    QCOMPARE(file->value(file->type(key("Color")), key("bcs_contrast")), QVariant(0));
}

/// Random sessions: after each, undoing everything gives the state at its beginning, byte by byte, redoing everything
/// the one at its end.
void TestKitHistory::undoAllIsExact()
{
    const int total = stepsOr("ZOKIT_STEPS", ZOKIT_STEPS);
    QRandomGenerator random(quint32(stepsOr("ZOKIT_SEED", 20261122)));
    for (int done = 0; done < total;) {
        clearSavedDefaults();
        Project project;
        const bool areExpected = random.bounded(2) == 1; // Files, whose steps may stand below that of the first one.
        const QByteArray empty = stateOf(project);
        project.add(clip());
        const int start = areExpected ? 0 : project.history().position();
        const QByteArray before = areExpected ? empty : stateOf(project);
        const int steps = 1 + random.bounded(500);
        for (int i = 0; i < steps; ++i) {
            randomEdit(project, random);
            const int what = areExpected ? random.bounded(20) : 0;
            if (what == 1)
                project.history().expectFiles();
            else if (what == 2)
                project.addExpected(FileSettings(clip()).settings());
        }
        done += steps;
        const QByteArray after = stateOf(project);
        const int end = project.history().position();
        project.history().goTo(start);
        QCOMPARE(stateOf(project), before);
        project.history().goTo(end);
        QCOMPARE(stateOf(project), after);
    }
}

int main(int argc, char** argv)
{
    const TestFolders folders;
    Host host(argc, argv);
    TestKitHistory test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_kit_history.moc"
