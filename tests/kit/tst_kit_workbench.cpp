// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What a window works on: which file is current, what of it is chosen, and the models that show that.

#include <QSignalSpy>
#include <QtTest>

#include <zokit/selection.h>
#include <zokit/workbench.h>

#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

using kitsupport::at;
using kitsupport::key;
using zokit::FileSettings;
using zokit::Identity;
using zokit::SettingsModel;
using zokit::Workbench;

namespace {

/// A workbench with files of these names, none of which is anywhere.
struct Stage {
    explicit Stage(const QStringList& names = {key("a.mkv"), key("b.mkv"), key("c.mkv")})
    {
        for (const QString& name : names)
            bench.project().add(zokit::Media{key("/films/") + name, QSize(1280, 720), 5});
    }

    FileSettings* file(int position) const { return bench.project().files().value(position); }

    Identity addText(const char* text) const
    {
        return bench.current()
            ->insert(key("Watermark"), {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key(text)}})
            .item;
    }

    Workbench bench;
};

} // namespace

class TestKitWorkbench : public QObject {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void firstFileIsCurrent();
    void firstFileOfAProjectIsCurrent();
    void tracksOfAnUnknownClipAreNone();
    void filesAreRows();
    void anotherFileIsShownEverywhere();
    void samePlaceIsChosenInAnotherFile();
    void removedFileIsFollowedByTheNext_data();
    void removedFileIsFollowedByTheNext();
    void undoBringsARowBackWhereItWas();
    void removedItemIsFollowedByTheNext_data();
    void removedItemIsFollowedByTheNext();
    void movedItemIsFollowedByTheNext();
    void whatHasNoRowCannotBeChosen();
    void nothingIsShownUntilAFileIsChosen();
    void listenerMayChooseSomethingElse();
    void errorOfAFrameIsToldOnce();
    void undoShowsWhatItChanged();
    void undoChoosesWhatWasChosenThen();
    void undoEndsADrag();
    void whatIsTakenInThePreviewIsChosen();
    void refusalsAreTold();
    void savedDefaultsAreShown();
};

void TestKitWorkbench::firstFileIsCurrent()
{
    Stage stage{QStringList()};
    QCOMPARE(stage.bench.current(), nullptr);
    QCOMPARE(stage.bench.chosen(), Identity(0));
    QCOMPARE(stage.bench.media(), nullptr);
    QCOMPARE(stage.bench.tools().ffmpeg, zokit::findTools().ffmpeg);
    QVERIFY(stage.bench.tracksByRule().choices.isEmpty());
    const QSignalSpy current(&stage.bench, &Workbench::currentChanged);
    const QSignalSpy chosen(&stage.bench, &Workbench::chosenChanged);
    stage.bench.files().open({clips::clip(key("plain.mp4"))});
    QVERIFY(QTest::qWaitFor([&] { return !stage.bench.files().isOpening(); }, 60000));
    stage.bench.project().add(kitsupport::clip());
    QCOMPARE(stage.bench.current(), stage.file(0));
    QCOMPARE(stage.bench.media()->streams.size(), 2);
    QCOMPARE(stage.bench.tracksByRule().choices.size(), 1);
    QCOMPARE(stage.bench.chosen(), stage.file(0)->type(key("Crop")));
    QCOMPARE(stage.bench.preview().scene().chosen, stage.bench.chosen());
    QCOMPARE(current.count(), 1);
    QCOMPARE(chosen.count(), 1);
}

void TestKitWorkbench::firstFileOfAProjectIsCurrent()
{
    zokit::Project project;
    FileSettings* file = project.add(kitsupport::clip());
    project.add(kitsupport::clip());
    zokit::SettingsModel model;
    const zokit::Selection selection(project, model);
    QCOMPARE(selection.current(), file);
    QCOMPARE(selection.chosen(), file->type(key("Crop")));
}

void TestKitWorkbench::tracksOfAnUnknownClipAreNone()
{
    Stage stage;
    const zokit::RuledTracks ruled = stage.bench.tracksByRule();
    QVERIFY(ruled.choices.isEmpty());
    QCOMPARE(ruled.error.text(), key("/films/a.mkv: no such file."));
    QVERIFY(ruled.settings == stage.file(0)->settings());
    QFile there(QDir::tempPath() + key("/there.mkv")); // Nobody has looked into it yet.
    QVERIFY(there.open(QIODevice::WriteOnly) && there.write("x") == 1);
    there.close();
    stage.bench.setCurrent(stage.bench.project().add(zokit::Media{there.fileName(), QSize(1280, 720), 5}));
    QCOMPARE(stage.bench.tracksByRule().error.code(), zokit::Message::Code::NoMedia);
    QCOMPARE(stage.bench.tracksByRule().error.arguments().constFirst(), there.fileName());
}

void TestKitWorkbench::filesAreRows()
{
    Stage stage;
    const zokit::FilesModel& model = stage.bench.filesModel();
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(model.index(1).data().toString(), key("b.mkv"));
    QCOMPARE(model.index(1).data(Qt::ToolTipRole).toString(), key("/films/b.mkv"));
    QCOMPARE(model.index(1).data(zokit::FilesModel::FileRole).toULongLong(), stage.file(1)->file());
    QVERIFY(!model.index(1).data(Qt::EditRole).isValid());
    QVERIFY(!model.data(QModelIndex(), Qt::DisplayRole).isValid());
    QCOMPARE(model.file(model.index(2)), stage.file(2));
    QCOMPARE(model.file(QModelIndex()), nullptr);
    QCOMPARE(model.indexOf(stage.file(2)), model.index(2));
    QVERIFY(!model.indexOf(nullptr).isValid());
    QCOMPARE(model.rowCount(model.index(0)), 0);
    QCOMPARE(model.roleNames().value(zokit::FilesModel::FileRole), QByteArray("file"));
}

void TestKitWorkbench::anotherFileIsShownEverywhere()
{
    Stage stage;
    const QSignalSpy current(&stage.bench, &Workbench::currentChanged);
    stage.bench.setCurrent(stage.file(1));
    QCOMPARE(stage.bench.current(), stage.file(1));
    QCOMPARE(stage.bench.model().file(), stage.file(1));
    QCOMPARE(stage.bench.preview().scene().cropThing, stage.file(1)->type(key("Crop")));
    stage.bench.setCurrent(stage.file(1));
    stage.bench.setCurrent(nullptr);
    FileSettings stranger(kitsupport::clip());
    stage.bench.setCurrent(&stranger);
    QCOMPARE(stage.bench.current(), stage.file(1));
    QCOMPARE(current.count(), 1);
}

void TestKitWorkbench::samePlaceIsChosenInAnotherFile()
{
    Stage stage;
    stage.bench.choose(at(*stage.file(0), "Color:bcs_contrast"));
    stage.bench.setCurrent(stage.file(1));
    QCOMPARE(stage.bench.chosen(), stage.file(1)->type(key("Color")));
    stage.bench.choose(stage.addText("Hello"));
    stage.bench.setCurrent(stage.file(2)); // It has no watermark.
    QCOMPARE(stage.bench.chosen(), stage.file(2)->type(key("Watermark")));
}

void TestKitWorkbench::removedFileIsFollowedByTheNext_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("removed");
    QTest::addColumn<QString>("after");
    QTest::newRow("in the middle") << 1 << 1 << "c.mkv";
    QTest::newRow("the last") << 2 << 2 << "b.mkv";
    QTest::newRow("another one") << 2 << 0 << "c.mkv";
}

void TestKitWorkbench::removedFileIsFollowedByTheNext()
{
    QFETCH(const int, current);
    QFETCH(const int, removed);
    Stage stage;
    stage.bench.setCurrent(stage.file(current));
    stage.bench.project().remove(stage.file(removed));
    QTEST(stage.bench.filesModel().indexOf(stage.bench.current()).data().toString(), "after");
    QCOMPARE(stage.bench.model().file(), stage.bench.current());
    QCOMPARE(stage.bench.filesModel().rowCount(), 2);
    stage.bench.project().remove(stage.file(0));
    stage.bench.project().remove(stage.file(0));
    QCOMPARE(stage.bench.current(), nullptr);
    QCOMPARE(stage.bench.chosen(), Identity(0));
    QVERIFY(stage.bench.preview().scene().frame.isEmpty());
}

void TestKitWorkbench::undoBringsARowBackWhereItWas()
{
    Stage stage;
    stage.bench.project().remove(stage.file(1));
    stage.bench.undo();
    const zokit::FilesModel& model = stage.bench.filesModel();
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.index(row).data().toString());
    QCOMPARE(names, QStringList({key("a.mkv"), key("b.mkv"), key("c.mkv")}));
    QCOMPARE(model.file(model.index(1)), stage.file(1));
}

void TestKitWorkbench::removedItemIsFollowedByTheNext_data()
{
    QTest::addColumn<int>("removed");
    QTest::addColumn<QString>("after");
    QTest::newRow("the first") << 0 << "two";
    QTest::newRow("in the middle") << 1 << "three";
    QTest::newRow("the last") << 2 << "two";
}

void TestKitWorkbench::removedItemIsFollowedByTheNext()
{
    QFETCH(const int, removed);
    Stage stage;
    QVector<Identity> texts;
    for (const char* text : {"one", "two", "three"})
        texts.append(stage.addText(text));
    stage.bench.choose(texts.at(removed));
    stage.file(0)->remove(texts.at(removed));
    QTEST(stage.file(0)->value(stage.bench.chosen(), key("wm_textcontent")).toString(), "after");
    for (int i = 0; i < 2; ++i)
        stage.file(0)->remove(stage.bench.chosen());
    QCOMPARE(stage.bench.chosen(), stage.file(0)->type(key("Watermark")));
}

void TestKitWorkbench::movedItemIsFollowedByTheNext()
{
    Stage stage;
    QVector<Identity> texts;
    for (const char* text : {"one", "two", "three"})
        texts.append(stage.addText(text));
    stage.bench.choose(texts.at(0));
    stage.file(0)->move(texts.at(0), 1);
    stage.file(0)->remove(texts.at(0));
    QCOMPARE(stage.bench.chosen(), texts.at(2));
}

void TestKitWorkbench::whatHasNoRowCannotBeChosen()
{
    Stage stage;
    const Identity crop = stage.file(0)->type(key("Crop"));
    for (const Identity thing : {Identity(0), stage.file(0)->file(), Identity(123456)}) {
        stage.bench.choose(thing);
        QCOMPARE(stage.bench.chosen(), crop);
    }
    stage.bench.choose(stage.file(1)->output());
    QCOMPARE(stage.bench.current(), stage.file(1));
    QCOMPARE(stage.bench.chosen(), stage.file(1)->output());
}

void TestKitWorkbench::nothingIsShownUntilAFileIsChosen()
{
    zokit::Project project;
    zokit::SettingsModel model;
    zokit::Selection selection(project, model);
    zokit::FileSettings* file = project.add(kitsupport::clip());
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 5);
    selection.clear();
    const QSignalSpy told(&selection, &zokit::Selection::currentChanged);
    selection.clear(); // It is empty already.
    QCOMPARE(told.count(), 0);
    QCOMPARE(selection.current(), nullptr);
    QCOMPARE(selection.chosen(), zokit::Identity(0));
    QCOMPARE(model.rowCount(), 0);
    project.saveDefault(file->type(key("Color")));
    QCOMPARE(selection.current(), nullptr);
    selection.undo();
    selection.undo(); // The contrast: its file is shown again.
    QCOMPARE(selection.current(), file);
    selection.clear();
    selection.setCurrent(file);
    QCOMPARE(selection.current(), file);
    QVERIFY(model.rowCount() > 0);
}

void TestKitWorkbench::listenerMayChooseSomethingElse()
{
    Stage stage;
    QVector<Identity> told;
    QObject::connect(&stage.bench, &Workbench::chosenChanged, &stage.bench, [&](quint64 thing) { told.append(thing); });
    const Identity colour = stage.file(1)->type(key("Color"));
    QObject::connect(&stage.bench, &Workbench::currentChanged, &stage.bench, [&] { stage.bench.choose(colour); });
    stage.bench.setCurrent(stage.file(1));
    QCOMPARE(stage.bench.chosen(), colour);
    QCOMPARE(told, QVector<Identity>{colour}); // What was chosen last.
}

void TestKitWorkbench::errorOfAFrameIsToldOnce()
{
    Stage stage{QStringList()};
    stage.bench.files().open({clips::clip(key("red709.mkv"))});
    QVERIFY(QTest::qWaitFor([&] { return !stage.bench.files().isOpening(); }, 60000));
    QStringList told;
    QObject::connect(&stage.bench, &Workbench::told, &stage.bench,
                     [&](const zokit::Message& message) { told.append(message.text()); });
    const Identity crop = stage.file(0)->type(key("Crop"));
    const auto cutTo = [&](int side) {
        return stage.file(0)->setValues(crop, {{key("crop_width"), side}, {key("crop_height"), side}}).isEmpty();
    };
    QVERIFY(cutTo(10));
    const zokit::ShownFrames& frames = stage.bench.preview().frames();
    QVERIFY(QTest::qWaitFor([&] { return !frames.error().isEmpty() && !frames.whole().isNull(); }, 60000));
    QVERIFY(cutTo(24));
    QVERIFY(QTest::qWaitFor([&] { return !frames.output().isNull(); }, 60000));
    QCOMPARE(told, QStringList{key("10x10 of the frame of 64x48 is left of the crop. At least 24x24 is needed: move it "
                                   "into the frame or make it larger.")});
}

void TestKitWorkbench::undoShowsWhatItChanged()
{
    Stage stage;
    stage.file(2)->setValue(stage.file(2)->type(key("Color")), key("bcs_contrast"), 20);
    QCOMPARE(stage.bench.current(), stage.file(0));
    stage.bench.undo();
    QCOMPARE(stage.bench.current(), stage.file(2));
    QCOMPARE(stage.bench.chosen(), stage.file(2)->type(key("Color")));
    stage.bench.setCurrent(stage.file(0));
    stage.bench.redo();
    QCOMPARE(stage.bench.chosen(), stage.file(2)->type(key("Color")));
    QCOMPARE(stage.file(2)->value(stage.bench.chosen(), key("bcs_contrast")).toInt(), 20);
    stage.bench.redo(); // There is none.
    QCOMPARE(stage.bench.history().position(), 4);
}

void TestKitWorkbench::undoChoosesWhatWasChosenThen()
{
    Stage stage;
    const Identity text = stage.addText("Hello");
    stage.bench.choose(text);
    stage.file(0)->setValue(text, key("wm_fontsize"), 40);
    stage.bench.choose(stage.file(1)->type(key("Color")));
    stage.file(1)->setValue(stage.bench.chosen(), key("bcs_contrast"), 20);
    stage.bench.undo();
    QCOMPARE(stage.bench.chosen(), stage.file(1)->type(key("Color")));
    stage.bench.undo();
    QCOMPARE(stage.bench.chosen(), text);
    stage.bench.undo(); // The watermark itself goes.
    QCOMPARE(stage.bench.chosen(), stage.file(0)->type(key("Watermark")));
}

void TestKitWorkbench::undoEndsADrag()
{
    Stage stage;
    stage.bench.preview().resize(QSize(664, 384), 1);
    stage.file(0)->setValue(stage.bench.chosen(), key("crop_keepaspectratio"), false);
    stage.bench.preview().press(QPointF(12, 192));
    stage.bench.preview().move(QPointF(60, 192));
    stage.bench.undo();
    QVERIFY(!stage.bench.preview().isDragging());
    QCOMPARE(stage.bench.preview().scene().crop, QRect(0, 0, 1280, 720));
    QVERIFY(stage.bench.history().canRedo());
}

void TestKitWorkbench::whatIsTakenInThePreviewIsChosen()
{
    Stage stage;
    stage.bench.preview().resize(QSize(664, 384), 1);
    const Identity logo = stage.file(0)
                              ->insert(key("Watermark"), {{key("wm_imageurl"), kitsupport::logoPath(40, 24)},
                                                          {key("wm_hposition"), 200},
                                                          {key("wm_vposition"), 100}})
                              .item;
    stage.bench.preview().press(QPointF(120, 68));
    stage.bench.preview().release();
    QCOMPARE(stage.bench.chosen(), logo);
}

void TestKitWorkbench::refusalsAreTold()
{
    Stage stage;
    QStringList told;
    QObject::connect(&stage.bench, &Workbench::told, &stage.bench,
                     [&](const zokit::Message& message) { told.append(message.text()); });
    SettingsModel& model = stage.bench.model();
    const Identity color = stage.file(0)->type(key("Color"));
    model.setData(model.indexOf(color, key("bcs_contrast"), SettingsModel::ValueColumn), 400);
    stage.bench.files().open({key("/nowhere/broken.json")});
    QCOMPARE(told.size(), 2);
    QCOMPARE(told.at(0), key("Color:bcs_contrast: 400 is not between -50 and 50."));
    QVERIFY(told.at(1).contains(key("/nowhere/broken.json")));
}

void TestKitWorkbench::savedDefaultsAreShown()
{
    Stage stage;
    const Identity color = stage.file(0)->type(key("Color"));
    const QModelIndex contrast = stage.bench.model().indexOf(color, key("bcs_contrast"));
    stage.file(0)->setValue(color, key("bcs_contrast"), 20);
    QCOMPARE(contrast.data(SettingsModel::StateRole).toInt(), static_cast<int>(zokit::State::Changed));
    const QSignalSpy changed(&stage.bench.model(), &SettingsModel::dataChanged);
    stage.bench.project().saveDefault(color);
    QCOMPARE(contrast.data(SettingsModel::StateRole).toInt(), static_cast<int>(zokit::State::SavedDefault));
    QVERIFY(changed.count() > 0);
}

ZOEFFECT_TEST_MAIN(TestKitWorkbench)
#include "tst_kit_workbench.moc"
