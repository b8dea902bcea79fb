// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Presets and saved defaults: what will be in them, what they change, where each value comes from.

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>
#include <zokit/presets.h>

#include <presetsdialog.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;

class TestEditorPresets : public QObject {
    Q_OBJECT

private slots:
    void init();

    void presetIsSavedAndLaidOver();
    void presetHoldsWhatIsChecked();
    void takenNameIsRefusedUntilReplaced();
    void presetIsRenamedAndRemoved();
    void presetGoesOutAndComesIn();
    void imagesGoWithTheirPreset();
    void brokenPresetIsASentence();
    void presetOfAMissingImageIsNotLaidOver();
    void rulesForTracksChooseAmongThoseOfTheFile();
    void defaultIsSavedAndForgotten();
    void closedDialogAsksForNothing();
};

namespace {

QVariant contrast(const zokit::FileSettings* file)
{
    return file->value(file->type(key("Color")), key("bcs_contrast"));
}

/// A stage with two clips, the contrast of the first being 10, and the dialog open.
class Opened : public Stage {
public:
    Opened() : Stage({clips::clip(key("plain.mp4")), clips::clip(key("wide.mkv"))})
    {
        file(0)->setValue(file(0)->type(key("Color")), key("bcs_contrast"), 10);
        trigger("presets");
    }
    zoeditor::PresetsDialog* dialog() const { return find<zoeditor::PresetsDialog>("presetsDialog"); }
    QListWidget* list() const { return find<QListWidget>("presetList"); }
    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < list()->count(); ++row)
            names.append(list()->item(row)->text());
        return names;
    }
    QString problem() const
    {
        const auto* label = find<QLabel>("problem");
        return label ? label->text() : QString();
    }
    void click(const char* button) const { find<QPushButton>(button)->click(); }
    void name(const QString& text) const { find<QLineEdit>("presetName")->setText(text); }
    void save(const char* text) const
    {
        name(key(text));
        click("savePreset");
    }
    QString origin(const char* label) const
    {
        const auto rows = find<QTreeWidget>("defaultValues")->findItems(key(label), Qt::MatchExactly);
        return rows.isEmpty() ? QString() : rows.first()->text(1) + QLatin1Char(' ') + rows.first()->text(2);
    }
};

} // namespace

void TestEditorPresets::init()
{
    kitsupport::clearSavedDefaults();
    const zokit::Presets presets;
    for (const QString& name : presets.names())
        presets.remove(name);
}

void TestEditorPresets::presetIsSavedAndLaidOver()
{
    const Opened stage;
    stage.save("holiday / 2026");
    QCOMPARE(stage.names(), QStringList{key("holiday / 2026")});
    QCOMPARE(stage.list()->currentRow(), 0);
    stage.click("close");
    QTRY_VERIFY(!stage.dialog());
    stage.session().undo();
    QCOMPARE(contrast(stage.file(0)), QVariant(0));

    stage.session().select({stage.file(0), stage.file(1)});
    const int steps = stage.session().history().position();
    stage.trigger("presets");
    QVERIFY(!stage.find<QPushButton>("layOver")->isEnabled());
    stage.list()->setCurrentRow(0);
    auto* list = stage.find<QTreeWidget>("differences");
    QStringList addresses;
    QCOMPARE(list->topLevelItemCount(), 2);
    QCOMPARE(list->topLevelItem(1)->text(0), key("wide.mkv"));
    list->topLevelItem(1)->setExpanded(true);
    for (int i = 0; i < list->topLevelItem(1)->childCount(); ++i)
        addresses.append(list->topLevelItem(1)->child(i)->toolTip(0) + list->topLevelItem(1)->child(i)->text(2));
    QVERIFY2(addresses.contains(key("Color:bcs_contrast10")), qPrintable(addresses.join(QLatin1Char(' '))));
    QCOMPARE(stage.find<QPushButton>("layOver")->text(), key("&Apply to the 2 selected files"));
    stage.click("layOver");
    QCOMPARE(contrast(stage.file(0)), QVariant(10));
    QCOMPARE(contrast(stage.file(1)), QVariant(10));
    QCOMPARE(stage.session().history().position(), steps + 1);
    QCOMPARE(list->topLevelItem(0)->child(0)->text(0), key("Nothing changes."));
}

void TestEditorPresets::presetHoldsWhatIsChecked()
{
    const Opened stage;
    auto* what = stage.find<QTreeWidget>("what");
    for (int i = 0; i < what->topLevelItemCount(); ++i)
        what->topLevelItem(i)->setCheckState(0, Qt::Unchecked);
    settle();
    stage.name(key("crop"));
    QVERIFY(!stage.find<QPushButton>("savePreset")->isEnabled());
    what->findItems(key("Crop"), Qt::MatchStartsWith).constFirst()->setCheckState(0, Qt::Checked);
    settle();
    stage.save("crop");
    const zokit::Settings preset = zokit::Presets().load(key("crop")).preset;
    QCOMPARE(preset.effects.size(), 1);
    QCOMPARE(preset.effects.first().type, key("Crop"));
}

void TestEditorPresets::takenNameIsRefusedUntilReplaced()
{
    const Opened stage;
    stage.save("a");
    QCOMPARE(stage.problem(), QString());
    stage.save("a");
    QVERIFY2(stage.problem().contains(key("a")), qPrintable(stage.problem()));
    stage.find<QCheckBox>("replace")->setChecked(true);
    stage.save("a");
    QCOMPARE(stage.problem(), QString());
    QCOMPARE(stage.names(), QStringList{key("a")});
}

void TestEditorPresets::presetIsRenamedAndRemoved()
{
    const Opened stage;
    stage.save("a");
    stage.save("b");
    stage.list()->setCurrentRow(0);
    stage.name(key("c"));
    stage.click("renamePreset");
    QCOMPARE(stage.names(), QStringList({key("b"), key("c")}));
    QCOMPARE(stage.list()->currentItem()->text(), key("c"));
    stage.name(key("b"));
    stage.click("renamePreset");
    QVERIFY(!stage.problem().isEmpty());
    for (const char* button : {"keep", "remove"}) {
        QCOMPARE(stage.names().size(), 2);
        editorsupport::answer("removeQuestion", button);
        stage.click("removePreset");
    }
    QCOMPARE(stage.names(), QStringList{key("b")});
    QCOMPARE(stage.problem(), QString());
}

void TestEditorPresets::presetGoesOutAndComesIn()
{
    const Opened stage;
    stage.save("a");
    const QString file = stage.folder.filePath(key("from a friend.zoeffect.json"));
    stage.dialog()->exportTo(file);
    QVERIFY(QFile::exists(file));
    stage.dialog()->importFiles({file});
    QCOMPARE(stage.names(), QStringList({key("a"), key("from a friend")}));
    stage.dialog()->importFiles({file});
    QVERIFY2(stage.problem().contains(key("from a friend")), qPrintable(stage.problem()));
    stage.dialog()->importFiles({});
}

void TestEditorPresets::imagesGoWithTheirPreset()
{
    const Opened stage;
    const QString logo = stage.folder.filePath(key("logo.png"));
    QVERIFY(QFile::copy(kitsupport::logoPath(20, 10), logo));
    stage.file(0)->insert(key("Watermark"), {{key("wm_istextwatermark"), false}, {key("wm_imageurl"), logo}});
    QVERIFY(zokit::Presets()
                .save(key("a logo"), zokit::presetFrom(stage.file(0)->settings(), {key("Watermark")}))
                .isEmpty());
    stage.dialog()->close();
    settle();
    stage.trigger("presets");
    stage.list()->setCurrentRow(0);
    const QString file = stage.folder.filePath(key("from a friend.zoeffect.json"));
    stage.dialog()->exportTo(file);
    QCOMPARE(stage.problem(), QString());
    const QString copy = stage.folder.filePath(key("from a friend.files/logo.png"));
    QVERIFY(QFile::exists(copy));
    QVERIFY(QFile::remove(logo));
    stage.dialog()->importFiles({file});
    QCOMPARE(stage.problem(), QString());
    QVERIFY(QFile::remove(copy));
    stage.find<QCheckBox>("replace")->setChecked(true);
    stage.dialog()->importFiles({file});
    QVERIFY2(stage.problem().startsWith(key("What was imported names files that are not there:\n"))
                 && stage.problem().contains(copy),
             qPrintable(stage.problem()));
    // What is missing cannot be taken along.
    stage.list()->setCurrentRow(0);
    stage.dialog()->exportTo(stage.folder.filePath(key("again.zoeffect.json")));
    QVERIFY2(stage.problem().contains(key("logo.png")), qPrintable(stage.problem()));
    QVERIFY(!QFile::exists(stage.folder.filePath(key("again.zoeffect.json"))));
}

void TestEditorPresets::brokenPresetIsASentence()
{
    const Opened stage;
    stage.save("a");
    QFile file(zokit::Presets().path(key("a")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{");
    file.close();
    stage.list()->setCurrentRow(-1);
    stage.list()->setCurrentRow(0);
    QVERIFY(!stage.find<QPushButton>("layOver")->isEnabled());
    QVERIFY(!stage.problem().isEmpty());
    stage.save("b");
    stage.list()->setCurrentRow(1);
    QVERIFY(stage.find<QPushButton>("layOver")->isEnabled());
    QCOMPARE(stage.problem(), QString());
}

void TestEditorPresets::presetOfAMissingImageIsNotLaidOver()
{
    const Opened stage;
    const QString logo = stage.folder.filePath(key("logo.png"));
    QVERIFY(QFile::copy(kitsupport::logoPath(20, 10), logo));
    stage.file(0)->insert(key("Watermark"), {{key("wm_istextwatermark"), false}, {key("wm_imageurl"), logo}});
    const zokit::Settings preset = zokit::presetFrom(stage.file(0)->settings(), {key("Watermark")});
    QVERIFY(zokit::Presets().save(key("a logo"), preset).isEmpty());
    QVERIFY(QFile::remove(logo));
    stage.dialog()->close();
    settle();
    stage.trigger("presets");
    stage.list()->setCurrentRow(0);
    QVERIFY(!stage.find<QPushButton>("layOver")->isEnabled());
    QVERIFY2(stage.problem().contains(logo), qPrintable(stage.problem()));
}

void TestEditorPresets::rulesForTracksChooseAmongThoseOfTheFile()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    zokit::Settings preset;
    preset.media.frame = {160, 120};
    preset.tracks.insert(key("audio-language"), QStringList{key("eng")});
    QVERIFY(zokit::Presets().save(key("english"), preset).isEmpty());
    stage.trigger("presets");
    stage.find<QListWidget>("presetList")->setCurrentRow(0);
    auto* layOver = stage.find<QPushButton>("layOver");
    QVERIFY(layOver->isEnabled());
    const auto isSelected = [&](int sound) {
        const zokit::Identity item = stage.file(0)->items(key("Audio")).at(sound);
        return stage.file(0)->value(item, key("selected")).toBool();
    };
    QVERIFY(!isSelected(0) && !isSelected(1));
    layOver->click();
    QVERIFY(isSelected(0) != isSelected(1));
}

void TestEditorPresets::defaultIsSavedAndForgotten()
{
    const Opened stage;
    stage.find("presetsDialog")->close();
    settle();
    stage.session().setThing(stage.file(0)->output()); // It has no defaults: those of the first type are shown.
    stage.trigger("presets");
    stage.find<QTabWidget>("presetPages")->setCurrentIndex(1);
    auto* type = stage.find<QComboBox>("defaultType");
    QCOMPARE(type->currentData().toString(), key("Crop"));
    type->setCurrentIndex(type->findData(key("Color")));
    QCOMPARE(stage.origin("Contrast"), key("0 built in"));
    QVERIFY(!stage.find<QPushButton>("forgetDefault")->isEnabled());
    stage.click("saveDefault");
    QCOMPARE(stage.origin("Contrast"), key("10 saved default"));
    stage.session().undo();
    QCOMPARE(stage.origin("Contrast"), key("0 built in"));
    stage.session().redo();
    stage.click("forgetDefault");
    QCOMPARE(stage.origin("Contrast"), key("0 built in"));
    QVERIFY(stage.session().project().savedValues(key("Color")).isEmpty());
    type->setCurrentIndex(type->findData(key("Watermark"))); // The file has none.
    QVERIFY(!stage.find<QPushButton>("saveDefault")->isEnabled());
}

// Alt+I, and Escape before the button is up again.
void TestEditorPresets::closedDialogAsksForNothing()
{
    const Opened stage;
    auto* dialog = stage.dialog();
    bool asked = false;
    QTimer looking;
    connect(&looking, &QTimer::timeout, this, [&asked] {
        if (auto* open = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            asked = true;
            open->reject();
        }
    });
    looking.start(1);
    auto* button = stage.find<QPushButton>("importPreset");
    dialog->setAttribute(Qt::WA_DeleteOnClose, false); // It is looked at afterwards.
    button->animateClick();
    dialog->reject();
    QTest::qWait(300); // A button that is pressed by its key comes up after 100.
    QVERIFY(!asked);
    delete dialog;
}

EDITOR_TEST_MAIN(TestEditorPresets)
#include "tst_editor_presets.moc"
