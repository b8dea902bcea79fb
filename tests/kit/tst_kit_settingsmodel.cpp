// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <memory>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QMimeData>
#include <QRandomGenerator>
#include <QtTest>

#include <zokit/filesettings.h>
#include <zokit/history.h>
#include <zokit/project.h>
#include <zokit/properties.h>
#include <zokit/settingsmodel.h>

#include "kitsupport.h"
#include "randomedits.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::Control;
using zokit::FileSettings;
using zokit::Identity;
using zokit::Project;
using zokit::SettingsModel;
using zokit::State;

class TestKitSettingsModel : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void emptyWithoutAFile();
    void columnsHaveNames();
    void typesStandInTheOrderOfTheTree();
    void itemsStandBeforeValues();
    void frameEffectsHaveNoValues();
    void whatOnlyTheProgramSetsHasNoRow();
    void rolesOfAValue_data();
    void rolesOfAValue();
    void textsOfValues_data();
    void textsOfValues();
    void namesOfItems_data();
    void namesOfItems();
    void stateOfATypeIsTheFurthestInIt();
    void boundsFollowTheFrame();
    void boundsStandWithTheTurnedFrame();
    void savedDefaultIsSeenAfterRefresh();
    void checkBoxSelects();
    void checkBoxPutsSoundEffectsToUse();
    void valueIsSetThroughTheFile();
    void refusedValueIsTold();
    void changeIsToldWhereItIs();
    void rowsComeGoAndMove();
    void otherKindHasOtherValues();
    void droppedItemMoves_data();
    void droppedItemMoves();
    void droppedElsewhereIsRefused();
    void rowsCanBeMovedByTheModel();
    void deletedFileLeavesNothing();
    void randomEditsAreToldHonestly_data();
    void randomEditsAreToldHonestly();
};

namespace {

/// A file with a text watermark "one", one "two" and one "three".
std::unique_ptr<FileSettings> threeTexts()
{
    auto file = std::make_unique<FileSettings>(clip());
    for (const char* text : {"one", "two", "three"})
        file->insert(key("Watermark"), {{key("wm_textcontent"), key(text)}});
    return file;
}

QStringList names(const SettingsModel& model, const QModelIndex& parent = QModelIndex())
{
    QStringList result;
    for (int row = 0; row < model.rowCount(parent); ++row)
        result.append(model.index(row, SettingsModel::NameColumn, parent).data().toString());
    return result;
}

QModelIndex watermarks(const SettingsModel& model)
{
    return model.indexOf(model.file()->type(key("Watermark")));
}

QModelIndex indexAt(const SettingsModel& model, const char* address, int column = SettingsModel::ValueColumn)
{
    const QString name = key(address).section(QLatin1Char(':'), -1);
    return model.indexOf(at(*model.file(), address), name, column);
}

} // namespace

void TestKitSettingsModel::emptyWithoutAFile()
{
    const SettingsModel model;
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 2);
    QVERIFY(!model.index(0, 0).isValid());
    QVERIFY(!model.indexOf(1).isValid());
}

void TestKitSettingsModel::columnsHaveNames()
{
    const zokit::SettingsModel model;
    const auto name = [&](int column, Qt::Orientation orientation, int role) {
        return model.headerData(column, orientation, role).toString();
    };
    QCOMPARE(name(0, Qt::Horizontal, Qt::DisplayRole), key("Setting"));
    QCOMPARE(name(1, Qt::Horizontal, Qt::DisplayRole), key("Value"));
    QCOMPARE(name(0, Qt::Vertical, Qt::DisplayRole), QString());
    QCOMPARE(name(0, Qt::Horizontal, Qt::ToolTipRole), QString());
}

void TestKitSettingsModel::typesStandInTheOrderOfTheTree()
{
    FileSettings file(clip());
    SettingsModel model;
    model.setFile(&file);
    const QStringList expected{key("Crop"),      key("Watermarks"),       key("Subtitles"),       key("Sound tracks"),
                               key("Colour"),    key("Frame effects"),    key("Fade in and out"), key("Normalize"),
                               key("Band pass"), key("Chorus"),           key("Flanger"),         key("Echo"),
                               key("Speed"),     key("Choice of tracks"), key("Output")};
    QCOMPARE(names(model), expected);
}

void TestKitSettingsModel::itemsStandBeforeValues()
{
    const std::unique_ptr<FileSettings> file = threeTexts();
    SettingsModel model;
    model.setFile(file.get());
    const QStringList expected{key("one"), key("two"), key("three"), key("Default top"), key("Default left")};
    QCOMPARE(names(model, watermarks(model)), expected);
    QCOMPARE(watermarks(model).data(SettingsModel::ItemCountRole), QVariant(3));
    const QModelIndex second = model.indexOf(file->item(key("Watermark"), 1));
    QCOMPARE(second.row(), 1);
    QCOMPARE(second.parent(), watermarks(model));
    const QStringList values{key("Top"),   key("Left"),     key("Transparency"), key("Strength of full opacity"),
                             key("Style"), key("Colour"),   key("Size"),         key("Font"),
                             key("Text"),  key("Leave out")};
    QCOMPARE(names(model, second), values);
    QCOMPARE(second.data(SettingsModel::KindRole), QVariant(SettingsModel::ItemRow));
    QCOMPARE(second.parent().data(SettingsModel::KindRole), QVariant(SettingsModel::TypeRow));
    QCOMPARE(model.index(0, 0, second).data(SettingsModel::KindRole), QVariant(SettingsModel::PropertyRow));
}

void TestKitSettingsModel::frameEffectsHaveNoValues()
{
    FileSettings file(clip());
    SettingsModel model;
    model.setFile(&file);
    const QModelIndex effects = model.indexOf(file.type(key("Effect")));
    QCOMPARE(model.rowCount(effects), 22); // 20 effects, turning and mirroring.
    QCOMPARE(model.index(0, 0, effects).data(), QVariant(key("Blur")));
    QCOMPARE(model.index(0, 0, effects).data(Qt::ToolTipRole), QVariant(key("Softens the whole picture.")));
    QCOMPARE(model.rowCount(model.index(0, 0, effects)), 0);
}

void TestKitSettingsModel::whatOnlyTheProgramSetsHasNoRow()
{
    FileSettings file(clip());
    const Identity item = file.insert(key("Watermark"), {{key("wm_textcontent"), key("x")}}).item;
    SettingsModel model;
    model.setFile(&file);
    QVERIFY(!model.indexOf(item, key("wm_istextwatermark")).isValid());
    QVERIFY(!model.indexOf(file.output(), key("output")).isValid());
    QVERIFY(model.indexOf(file.output(), key("quality")).isValid());
}

void TestKitSettingsModel::rolesOfAValue_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("expected");
    using M = SettingsModel;
    QTest::newRow("value") << int(Qt::EditRole) << QVariant(20);
    QTest::newRow("text") << int(Qt::DisplayRole) << QVariant(key("20 px"));
    QTest::newRow("tool tip") << int(Qt::ToolTipRole) << QVariant(key("How much is cut off at the left. (crop_left)"));
    QTest::newRow("accessible name") << int(Qt::AccessibleTextRole) << QVariant(key("Left"));
    QTest::newRow("check box") << int(Qt::CheckStateRole) << QVariant();
    QTest::newRow("colour") << int(Qt::DecorationRole) << QVariant();
    QTest::newRow("type") << int(M::TypeRole) << QVariant(key("Crop"));
    QTest::newRow("key") << int(M::KeyRole) << QVariant(key("crop_left"));
    QTest::newRow("address") << int(M::AddressRole) << QVariant(key("Crop:crop_left"));
    QTest::newRow("label") << int(M::LabelRole) << QVariant(key("Left"));
    QTest::newRow("help") << int(M::HelpRole) << QVariant(key("How much is cut off at the left."));
    QTest::newRow("group") << int(M::GroupRole) << QVariant(key("Rectangle"));
    QTest::newRow("state") << int(M::StateRole) << QVariant(int(State::Changed));
    QTest::newRow("default") << int(M::DefaultRole) << QVariant(0);
    QTest::newRow("saved default") << int(M::SavedDefaultRole) << QVariant();
    QTest::newRow("control") << int(M::ControlRole) << QVariant(int(Control::SpinBox));
    QTest::newRow("unit") << int(M::UnitRole) << QVariant(key("px"));
    QTest::newRow("lowest") << int(M::LowestRole) << QVariant(0);
    QTest::newRow("highest") << int(M::HighestRole) << QVariant(1280);
    QTest::newRow("visual lowest") << int(M::VisualLowestRole) << QVariant(0);
    QTest::newRow("visual highest") << int(M::VisualHighestRole) << QVariant(1280);
    QTest::newRow("step") << int(M::StepRole) << QVariant(1.0);
    QTest::newRow("decimals") << int(M::DecimalsRole) << QVariant(0);
    QTest::newRow("choices") << int(M::ChoicesRole) << QVariant();
    QTest::newRow("names of choices") << int(M::ChoiceNamesRole) << QVariant();
    QTest::newRow("items") << int(M::ItemCountRole) << QVariant();
}

void TestKitSettingsModel::rolesOfAValue()
{
    QFETCH(int, role);
    QFETCH(QVariant, expected);
    FileSettings file(clip());
    file.setValues(file.type(key("Crop")),
                   {{key("crop_left"), 20}, {key("crop_width"), 600}, {key("crop_height"), 400}});
    SettingsModel model;
    model.setFile(&file);
    QCOMPARE(indexAt(model, "Crop:crop_left").data(role), expected);
}

void TestKitSettingsModel::textsOfValues_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("number without unit") << key("Color:bcs_contrast") << QVariant(-7) << key("-7");
    QTest::newRow("percent") << key("Watermark:0:wm_transparency") << QVariant(30) << key("30 %");
    QTest::newRow("fraction") << key("Watermark:wm_vposfactor") << QVariant(0.25) << key("0.25");
    QTest::newRow("yes") << key("Crop:crop_keepaspectratio") << QVariant(true) << key("Yes");
    QTest::newRow("no") << key("Crop:crop_keepaspectratio") << QVariant(false) << key("No");
    QTest::newRow("choice") << key("Crop:crop_aspectratio") << QVariant(key("Crop Area")) << key("Free");
    QTest::newRow("number that is a choice") << key("Effect:crop_rotation_angle") << QVariant(90) << key("90");
    QTest::newRow("colour") << key("Watermark:0:wm_fontcolor") << QVariant(QColor(255, 0, 0)) << key("#ff0000");
    QTest::newRow("list") << key("Tracks:audio-language") << QVariant(QStringList{key("fra"), key("eng")})
                          << key("fra,eng");
    QTest::newRow("option that is not set") << key("Output:quality") << QVariant() << QString();
}

void TestKitSettingsModel::textsOfValues()
{
    QFETCH(QString, address);
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    const std::unique_ptr<FileSettings> file = threeTexts();
    SettingsModel model;
    model.setFile(file.get());
    const QModelIndex index = indexAt(model, address.toLatin1().constData());
    if (value.isValid())
        QVERIFY(model.setData(index, value));
    QCOMPARE(index.data().toString(), expected);
    QCOMPARE(index.data(Qt::DecorationRole), value.userType() == QMetaType::QColor ? value : QVariant());
}

void TestKitSettingsModel::namesOfItems_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariantMap>("values");
    QTest::addColumn<QString>("expected");
    QTest::newRow("text in one line") << key("Watermark") << QVariantMap{{key("wm_textcontent"), key("two\n lines")}}
                                      << key("two lines");
    QTest::newRow("empty text") << key("Watermark") << QVariantMap{{key("wm_textcontent"), QString()}}
                                << key("Watermarks");
    QTest::newRow("image") << key("Watermark") << QVariantMap{{key("wm_imageurl"), key("/a/logo.png")}}
                           << key("logo.png");
    QTest::newRow("subtitle file") << key("Subtitle")
                                   << QVariantMap{{key("sub_fromfile"), true}, {key("file"), key("/a/b.srt")}}
                                   << key("b.srt");
    QTest::newRow("sound track") << key("Audio") << QVariantMap{{key("trackid"), 3}} << key("Track 3");
}

void TestKitSettingsModel::namesOfItems()
{
    QFETCH(QString, type);
    QFETCH(QVariantMap, values);
    QFETCH(QString, expected);
    FileSettings file(clip());
    const Identity item = file.insert(type, values).item;
    SettingsModel model;
    model.setFile(&file);
    QCOMPARE(model.indexOf(item).data().toString(), expected);
    QCOMPARE(model.indexOf(item, QString(), SettingsModel::ValueColumn).data().toString(), QString());
}

void TestKitSettingsModel::stateOfATypeIsTheFurthestInIt()
{
    FileSettings file(clip());
    SettingsModel model;
    model.setFile(&file);
    const QModelIndex colour = model.indexOf(file.type(key("Color")));
    const QModelIndex effects = model.indexOf(file.type(key("Effect")));
    QCOMPARE(colour.data(SettingsModel::StateRole), QVariant(int(State::Default)));
    file.setValue(file.type(key("Color")), key("bcs_contrast"), 5);
    QCOMPARE(colour.data(SettingsModel::StateRole), QVariant(int(State::Changed)));
    QCOMPARE(effects.data(SettingsModel::StateRole), QVariant(int(State::Default)));
    file.setValue(file.item(key("Effect"), 4), key("selected"), true);
    QCOMPARE(effects.data(SettingsModel::StateRole), QVariant(int(State::Changed)));
}

void TestKitSettingsModel::boundsFollowTheFrame()
{
    FileSettings file(clip());
    SettingsModel model;
    model.setFile(&file);
    const QSignalSpy changed(&model, &SettingsModel::dataChanged);
    file.setMedia({key("/a.mkv"), QSize(640, 480), 1.0});
    QCOMPARE(indexAt(model, "Crop:crop_width").data(SettingsModel::HighestRole), QVariant(640));
    QCOMPARE(indexAt(model, "Crop:crop_height").data(SettingsModel::HighestRole), QVariant(480));
    QVERIFY(changed.count() > 15); // Every type.
}

void TestKitSettingsModel::boundsStandWithTheTurnedFrame()
{
    FileSettings file(clip());
    file.setValue(file.type(key("Crop")), key("player_map_flag"), true);
    SettingsModel model;
    model.setFile(&file);
    const QSignalSpy changed(&model, &SettingsModel::dataChanged);
    file.setValue(file.type(key("Effect")), key("crop_rotation_angle"), 90);
    QCOMPARE(indexAt(model, "Crop:crop_width").data(SettingsModel::HighestRole), QVariant(720));
    QCOMPARE(indexAt(model, "Crop:crop_height").data(SettingsModel::HighestRole), QVariant(1280));
    QVERIFY(changed.count() > 15);
}

void TestKitSettingsModel::savedDefaultIsSeenAfterRefresh()
{
    Project project;
    FileSettings* file = project.add(clip());
    const Identity colour = file->type(key("Color"));
    file->setValue(colour, key("bcs_contrast"), 9);
    SettingsModel model;
    model.setFile(file);
    connect(&project, &Project::changed, &model, &SettingsModel::refreshDefaults);
    const QSignalSpy changed(&model, &SettingsModel::dataChanged);
    const QModelIndex contrast = model.indexOf(colour, key("bcs_contrast"));
    project.saveDefault(colour);
    QVERIFY(changed.count() > 15);
    QCOMPARE(contrast.data(SettingsModel::StateRole), QVariant(int(State::SavedDefault)));
    QCOMPARE(contrast.data(SettingsModel::SavedDefaultRole), QVariant(9));
    QCOMPARE(contrast.data(SettingsModel::DefaultRole), QVariant(0));
}

void TestKitSettingsModel::checkBoxSelects()
{
    FileSettings file(clip());
    const Identity item = file.insert(key("Watermark"), {{key("wm_textcontent"), key("x")}}).item;
    SettingsModel model;
    model.setFile(&file);
    for (const Identity thing : {item, file.type(key("Watermark"))}) {
        const QModelIndex index = model.indexOf(thing);
        QVERIFY(model.flags(index).testFlag(Qt::ItemIsUserCheckable));
        QCOMPARE(index.data(Qt::CheckStateRole), QVariant(Qt::Checked));
        QVERIFY(model.setData(index, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(file.value(thing, key("selected")), QVariant(false));
        QCOMPARE(index.data(Qt::CheckStateRole), QVariant(Qt::Unchecked));
    }
    QCOMPARE(watermarks(model).data(SettingsModel::AddressRole), QVariant(key("Watermark:selected")));
    const QModelIndex output = model.indexOf(file.output());
    QVERIFY(!output.data(Qt::CheckStateRole).isValid());
    QVERIFY(!output.data(SettingsModel::AddressRole).isValid());
    QVERIFY(!model.setData(output, Qt::Checked, Qt::CheckStateRole));
}

void TestKitSettingsModel::checkBoxPutsSoundEffectsToUse()
{
    FileSettings file(clip());
    const Identity echo = file.type(key("Audio_Echo"));
    SettingsModel model;
    model.setFile(&file);
    const QModelIndex index = model.indexOf(echo);
    const QSignalSpy told(&model, &SettingsModel::dataChanged);
    const auto state = [&] { return index.data(Qt::CheckStateRole).toInt(); };
    QCOMPARE(state(), int(Qt::Unchecked));
    QVERIFY(model.setData(index, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(state(), int(Qt::Checked));
    QCOMPARE(file.value(echo, key("audio_effect_flag")), QVariant(true));
    QVERIFY(model.setData(index, Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(file.value(echo, key("audio_effect_flag")), QVariant(false));
    const int before = static_cast<int>(told.count());
    file.setValue(echo, key("audio_effect_flag"), true);
    QCOMPARE(state(), int(Qt::Checked));
    const auto isOfRow = [&](const QList<QVariant>& arguments) { return arguments.at(0).toModelIndex() == index; };
    QVERIFY(std::any_of(told.cbegin() + before, told.cend(), isOfRow));
    file.setValue(echo, key("selected"), false);
    QCOMPARE(state(), int(Qt::Unchecked));
    QVERIFY(model.setData(index, Qt::Checked, Qt::CheckStateRole)); // Both are needed.
    QCOMPARE(state(), int(Qt::Checked));
}

void TestKitSettingsModel::valueIsSetThroughTheFile()
{
    FileSettings file(clip());
    SettingsModel model;
    model.setFile(&file);
    const Log log(file);
    const QModelIndex index = indexAt(model, "Color:bcs_contrast");
    QVERIFY(model.flags(index).testFlag(Qt::ItemIsEditable));
    QVERIFY(!model.flags(index.siblingAtColumn(SettingsModel::NameColumn)).testFlag(Qt::ItemIsEditable));
    QVERIFY(model.setData(index, key("20")));
    QCOMPARE(file.value(file.type(key("Color")), key("bcs_contrast")), QVariant(20));
    QCOMPARE(log.asker(), static_cast<QObject*>(&model));
    QVERIFY(!model.setData(model.indexOf(file.type(key("Color"))), 3)); // A type has no value.
    SettingsModel other;
    other.setFile(&file);
    for (const QModelIndex& none : {QModelIndex(), indexAt(other, "Color:bcs_contrast")}) {
        QVERIFY(!model.setData(none, 3));
        QVERIFY(!model.setData(none, Qt::Checked, Qt::CheckStateRole));
        QVERIFY(!model.data(none, Qt::EditRole).isValid());
        QCOMPARE(model.flags(none), Qt::ItemFlags(Qt::NoItemFlags));
    }
    QCOMPARE(model.rowCount(other.index(0, 0)), 0);
    QVERIFY(!model.index(0, 0, other.index(0, 0)).isValid());
    other.setFile(nullptr);
    QVERIFY(!other.setData(QModelIndex(), 3));
    QCOMPARE(file.value(file.type(key("Color")), key("bcs_contrast")), QVariant(20));
}

void TestKitSettingsModel::refusedValueIsTold()
{
    FileSettings file(clip());
    SettingsModel model;
    model.setFile(&file);
    QStringList told;
    connect(&model, &SettingsModel::refused, this, [&](const zokit::Message& why, const QModelIndex& index) {
        told.append(index.data(SettingsModel::KeyRole).toString() + key(": ") + why.text());
    });
    QVERIFY(!model.setData(indexAt(model, "Color:bcs_contrast"), 400));
    QCOMPARE(told, QStringList(key("bcs_contrast: Color:bcs_contrast: 400 is not between -50 and 50.")));
    QCOMPARE(file.value(file.type(key("Color")), key("bcs_contrast")), QVariant(0));
}

void TestKitSettingsModel::changeIsToldWhereItIs()
{
    FileSettings file(clip());
    SettingsModel model;
    model.setFile(&file);
    QStringList told;
    connect(&model, &SettingsModel::dataChanged, this, [&](const QModelIndex& first, const QModelIndex& last) {
        told.append(first.data(SettingsModel::LabelRole).toString() + key("-")
                    + last.data(SettingsModel::LabelRole).toString());
    });
    file.setValue(file.type(key("Color")), key("bcs_contrast"), 3);
    QCOMPARE(told, (QStringList{key("Contrast-Contrast"), key("Colour-Colour")}));
    told.clear();
    file.setValue(file.item(key("Effect"), 1), key("selected"), true);
    QCOMPARE(told, (QStringList{key("Sharpen-Sharpen"), key("Frame effects-Frame effects")}));
}

void TestKitSettingsModel::rowsComeGoAndMove()
{
    const std::unique_ptr<FileSettings> file = threeTexts();
    SettingsModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setFile(file.get());
    QStringList told;
    const auto rows = [&](const char* what) {
        return [&told, what](const QModelIndex&, int first, int last) {
            told.append(key("%1 %2-%3").arg(key(what)).arg(first).arg(last));
        };
    };
    connect(&model, &SettingsModel::rowsInserted, this, rows("in"));
    connect(&model, &SettingsModel::rowsRemoved, this, rows("out"));
    connect(&model, &SettingsModel::rowsMoved, this,
            [&](const QModelIndex&, int first, int, const QModelIndex&, int before) {
                told.append(key("%1 before %2").arg(first).arg(before));
            });
    const QPersistentModelIndex two = model.indexOf(file->item(key("Watermark"), 1));
    file->insert(key("Watermark"), {{key("wm_textcontent"), key("four")}}, 0);
    QCOMPARE(two.row(), 2);
    file->move(file->item(key("Watermark"), 0), 3); // one, two, three, four
    file->move(file->item(key("Watermark"), 2), 0); // three, one, two, four
    file->remove(file->item(key("Watermark"), 1));
    QCOMPARE(told, (QStringList{key("in 0-0"), key("0 before 4"), key("2 before 0"), key("out 1-1")}));
    QCOMPARE(names(model, watermarks(model)).mid(0, 3), (QStringList{key("three"), key("two"), key("four")}));
    QCOMPARE(two.row(), 1);
    QCOMPARE(two.data().toString(), key("two"));
    // One that goes down behind others that come.
    zokit::Settings wanted = file->settings();
    QVector<zokit::Item>& items = wanted.find(key("Watermark"))->items;
    const zokit::Item three = items.takeFirst();
    for (int i = 0; i < 3; ++i) {
        items.insert(1, three);
        items[1].values.insert(key("wm_textcontent"), QString::number(i));
    }
    items.insert(4, three);
    QVERIFY(file->setSettings(wanted).isEmpty());
    QCOMPARE(names(model, watermarks(model)).mid(0, 6),
             (QStringList{key("two"), key("2"), key("1"), key("0"), key("three"), key("four")}));
    QCOMPARE(two.row(), 0);
}

void TestKitSettingsModel::otherKindHasOtherValues()
{
    FileSettings file(clip());
    const Identity item = file.insert(key("Watermark"), {{key("wm_textcontent"), key("x")}}).item;
    SettingsModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setFile(&file);
    file.setValue(item, key("wm_istextwatermark"), false);
    QVERIFY(model.indexOf(item, key("wm_imageurl")).isValid());
    QVERIFY(!model.indexOf(item, key("wm_textcontent")).isValid());
    QCOMPARE(model.rowCount(model.indexOf(item)), 8);
}

void TestKitSettingsModel::droppedItemMoves_data()
{
    QTest::addColumn<int>("dragged");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("isTaken");
    QTest::addColumn<QString>("expected");
    QTest::newRow("before the first") << 2 << 0 << true << key("three one two");
    QTest::newRow("behind the last") << 0 << 3 << true << key("two three one");
    QTest::newRow("on the type") << 0 << -1 << true << key("two three one");
    QTest::newRow("between") << 0 << 2 << true << key("two one three");
    QTest::newRow("where it was") << 1 << 1 << false << key("one two three");
    QTest::newRow("among the values") << 0 << 4 << false << key("one two three");
}

void TestKitSettingsModel::droppedItemMoves()
{
    QFETCH(int, dragged);
    QFETCH(int, row);
    QFETCH(bool, isTaken);
    QFETCH(QString, expected);
    const std::unique_ptr<FileSettings> file = threeTexts();
    SettingsModel model;
    model.setFile(file.get());
    const QModelIndex type = watermarks(model);
    const QModelIndex item = model.index(dragged, 0, type);
    QVERIFY(model.flags(item).testFlag(Qt::ItemIsDragEnabled));
    QVERIFY(model.flags(type).testFlag(Qt::ItemIsDropEnabled));
    const std::unique_ptr<QMimeData> data(model.mimeData({item, item.siblingAtColumn(1)}));
    QCOMPARE(model.dropMimeData(data.get(), Qt::MoveAction, row, 0, type), isTaken);
    QCOMPARE(names(model, type).mid(0, 3).join(QLatin1Char(' ')), expected);
}

void TestKitSettingsModel::droppedElsewhereIsRefused()
{
    const std::unique_ptr<FileSettings> file = threeTexts();
    SettingsModel model;
    model.setFile(file.get());
    SettingsModel other;
    other.setFile(file.get());
    const QModelIndex type = watermarks(model);
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0, type)}));
    QVERIFY(!other.canDropMimeData(data.get(), Qt::MoveAction, 3, 0, watermarks(other)));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::CopyAction, 3, 0, type));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::MoveAction, 3, 0, model.indexOf(file->type(key("Subtitle")))));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::MoveAction, 0, 0, model.indexOf(file->type(key("Color")))));
    QVERIFY(!model.canDropMimeData(nullptr, Qt::MoveAction, 3, 0, type));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::MoveAction, 0, 0, model.index(1, 0, type)));
    QVERIFY(!model.canDropMimeData(data.get(), Qt::MoveAction, 0, 0, QModelIndex()));
    QVERIFY(!model.mimeData({QModelIndex()}));
    QVERIFY(!model.mimeData({model.index(0, 0, model.index(0, 0, type))})); // A value.
    QVERIFY(!model.mimeData({type}));
    QVERIFY(!model.mimeData({model.index(0, 0, type), model.index(1, 0, type)})); // One at a time.
    const SettingsModel empty;
    QVERIFY(!empty.canDropMimeData(data.get(), Qt::MoveAction, 0, 0, QModelIndex()));
}

void TestKitSettingsModel::rowsCanBeMovedByTheModel()
{
    const std::unique_ptr<FileSettings> file = threeTexts();
    SettingsModel model;
    model.setFile(file.get());
    const QModelIndex type = watermarks(model);
    QVERIFY(model.moveRows(type, 0, 1, type, 3));
    QVERIFY(!model.moveRows(type, 0, 2, type, 3));
    QVERIFY(!model.moveRows(type, 3, 1, type, 0)); // A value.
    QVERIFY(!model.moveRows(type, -1, 1, type, 0));
    QVERIFY(!model.moveRows(type, 0, 1, type, -1));
    QVERIFY(!model.moveRows(type, 0, 1, type, 4)); // Among the values.
    QVERIFY(!model.moveRows(type, 0, 1, type, 0));
    QVERIFY(!model.moveRows(type, 0, 1, model.indexOf(file->type(key("Subtitle"))), 0));
    QVERIFY(!model.moveRows(QModelIndex(), 0, 1, type, 0));
    QStringList told;
    connect(&model, &SettingsModel::refused, this, [&](const zokit::Message& why, const QModelIndex& index) {
        told.append(index.data().toString() + (why.code() == zokit::Message::Code::Busy ? key(": busy") : why.text()));
    });
    bool isMoved = true;
    connect(file.get(), &FileSettings::aboutToChange, this, [&] { isMoved = model.moveRows(type, 0, 1, type, 2); });
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 3);
    QVERIFY(!isMoved);
    QCOMPARE(told, QStringList{key("two: busy")});
    QCOMPARE(names(model, type).mid(0, 3), (QStringList{key("two"), key("three"), key("one")}));
}

void TestKitSettingsModel::deletedFileLeavesNothing()
{
    std::unique_ptr<FileSettings> file = threeTexts();
    SettingsModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setFile(file.get());
    const QSignalSpy reset(&model, &SettingsModel::modelReset);
    file.reset();
    QCOMPARE(reset.count(), 1);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.file());
}

/// Parts, each with a watchdog of its own.
void TestKitSettingsModel::randomEditsAreToldHonestly_data()
{
    constexpr int part = 10000;
    QTest::addColumn<int>("total");
    QTest::addColumn<int>("seed");
    const int total = stepsOr("ZOKIT_STEPS", ZOKIT_STEPS);
    for (int begin = 0; begin < total; begin += part)
        QTest::addRow("from %d", begin) << std::min(part, total - begin) << stepsOr("ZOKIT_SEED", 20261123) + begin;
}

/// The tester walks over the model at each signal; rows are compared with the file once more here.
void TestKitSettingsModel::randomEditsAreToldHonestly()
{
    QFETCH(int, total);
    QFETCH(int, seed);
    QRandomGenerator random{quint32(seed)};
    for (int done = 0; done < total;) {
        clearSavedDefaults();
        Project project;
        SettingsModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        const int steps = 1 + random.bounded(500);
        for (int i = 0; i < steps; ++i) {
            if (i % 50 == 0 && !project.files().isEmpty())
                model.setFile(project.files().constLast());
            randomEdit(project, random);
        }
        if (model.file()) {
            for (const char* type : {"Watermark", "Subtitle", "Audio", "Effect"}) {
                const QVector<Identity> items = model.file()->items(key(type));
                const QModelIndex parent = model.indexOf(model.file()->type(key(type)));
                QCOMPARE(parent.data(SettingsModel::ItemCountRole).toInt(), int(items.size()));
                for (int row = 0; row < items.size(); ++row)
                    QCOMPARE(model.index(row, 0, parent).data(SettingsModel::ThingRole).toULongLong(), items.at(row));
            }
        }
        project.history().goTo(0);
        done += steps;
    }
}

ZOEFFECT_TEST_MAIN(TestKitSettingsModel)
#include "tst_kit_settingsmodel.moc"
