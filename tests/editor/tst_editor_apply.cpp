// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Settings of one file reach others, after a look at what that changes.

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;

class TestEditorApply : public QObject {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void settingsReachAllFilesAsOneStep();
    void differencesAreShownBefore();
    void onlyWhatIsCheckedIsApplied();
    void whereSaysToWhich_data();
    void whereSaysToWhich();
    void nothingCheckedIsNotEverything();
    void aloneThereIsNothingToApplyTo();
    void watermarkIsShownInTheSmallestAndTheLargest();
    void manyFilesAreLookedAtOneByOne();
    void rulesForTracksChooseInEachFile();
};

namespace {

void setColor(zokit::FileSettings* file, const char* name, int value)
{
    file->setValue(file->type(key("Color")), key(name), value);
}

QVariant color(const zokit::FileSettings* file, const char* name)
{
    return file->value(file->type(key("Color")), key(name));
}

/// Three clips: 160x120, 1280x16, 16x720; the first one is current.
QStringList threeClips()
{
    return {clips::clip(key("plain.mp4")), clips::clip(key("wide.mkv")), clips::clip(key("high.mkv"))};
}

QPushButton* applyButton(const Stage& stage)
{
    return stage.find<QPushButton>("apply");
}

void choose(const Stage& stage, int where)
{
    auto* box = stage.find<QComboBox>("where");
    box->setCurrentIndex(box->findData(where));
}

/// The row whose text begins so, at any level; null for none.
QTreeWidgetItem* rowOf(const QTreeWidget* tree, const char* begin)
{
    const auto found = tree->findItems(key(begin), Qt::MatchStartsWith | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.first();
}

QStringList namesIn(const QTreeWidget* tree)
{
    QStringList names;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        names.append(tree->topLevelItem(i)->text(0));
    return names;
}

} // namespace

void TestEditorApply::settingsReachAllFilesAsOneStep()
{
    const Stage stage(threeClips());
    setColor(stage.file(0), "bcs_contrast", 10);
    const int steps = stage.session().history().position();
    QVERIFY(stage.trigger("applyTo"));
    QCOMPARE(applyButton(stage)->text(), key("Apply to 2 files"));
    applyButton(stage)->click();
    QTRY_VERIFY(!stage.find("applyDialog"));
    QCOMPARE(color(stage.file(1), "bcs_contrast"), QVariant(10));
    QCOMPARE(color(stage.file(2), "bcs_contrast"), QVariant(10));
    QCOMPARE(stage.session().history().position(), steps + 1);
    stage.session().undo();
    QCOMPARE(color(stage.file(1), "bcs_contrast"), QVariant(0));
    QCOMPARE(color(stage.file(2), "bcs_contrast"), QVariant(0));
    QCOMPARE(color(stage.file(0), "bcs_contrast"), QVariant(10));
}

void TestEditorApply::differencesAreShownBefore()
{
    const Stage stage(threeClips());
    setColor(stage.file(0), "bcs_contrast", 10);
    setColor(stage.file(2), "bcs_contrast", 3);
    stage.trigger("applyTo");
    auto* list = stage.find<QTreeWidget>("differences");
    QCOMPARE(namesIn(list), QStringList({key("wide.mkv"), key("high.mkv")}));
    QTreeWidgetItem* first = list->topLevelItem(0);
    QVERIFY(first->isExpanded());
    QTreeWidgetItem* contrast = nullptr;
    for (int i = 0; i < first->childCount(); ++i) {
        if (first->child(i)->toolTip(0) == key("Color:bcs_contrast"))
            contrast = first->child(i);
    }
    QVERIFY(contrast);
    QVERIFY2(contrast->text(0).endsWith(key(": Contrast")), qPrintable(contrast->text(0)));
    QCOMPARE(contrast->text(1), key("0"));
    QCOMPARE(contrast->text(2), key("10"));
    QCOMPARE(list->topLevelItem(1)->childCount(), 0); // Nobody has looked yet.
    list->topLevelItem(1)->setExpanded(true);
    QCOMPARE(list->topLevelItem(1)->child(0)->text(1), key("3"));
    stage.find<QPushButton>("cancel")->click();
    QCOMPARE(color(stage.file(1), "bcs_contrast"), QVariant(0));
}

void TestEditorApply::onlyWhatIsCheckedIsApplied()
{
    const Stage stage(threeClips());
    setColor(stage.file(0), "bcs_contrast", 10);
    setColor(stage.file(0), "bcs_saturation", 20);
    stage.trigger("applyTo");
    QTreeWidgetItem* contrast = rowOf(stage.find<QTreeWidget>("what"), "Contrast");
    QVERIFY(contrast);
    QCOMPARE(contrast->text(0), key("Contrast: 10"));
    contrast->setCheckState(0, Qt::Unchecked);
    settle();
    applyButton(stage)->click();
    QCOMPARE(color(stage.file(1), "bcs_contrast"), QVariant(0));
    QCOMPARE(color(stage.file(1), "bcs_saturation"), QVariant(20));
}

void TestEditorApply::whereSaysToWhich_data()
{
    QTest::addColumn<int>("where");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("to the selected ones") << 0 << QStringList{key("wide.mkv")};
    QTest::newRow("to all") << 1 << QStringList{key("wide.mkv"), key("high.mkv"), key("plain.mkv")};
    QTest::newRow("to those of this size") << 2 << QStringList{key("plain.mkv")};
}

void TestEditorApply::whereSaysToWhich()
{
    QFETCH(int, where);
    const Stage stage(threeClips() << clips::clip(key("plain.mkv")));
    setColor(stage.file(0), "bcs_contrast", 10);
    stage.session().select({stage.file(0), stage.file(1)});
    stage.trigger("applyTo");
    choose(stage, where);
    QTEST(namesIn(stage.find<QTreeWidget>("differences")), "expected");
}

void TestEditorApply::nothingCheckedIsNotEverything()
{
    const Stage stage(threeClips());
    stage.trigger("applyTo");
    QVERIFY(!applyButton(stage)->isEnabled());
    QVERIFY(!stage.find<QLabel>("problem")->text().isEmpty());
    rowOf(stage.find<QTreeWidget>("what"), "Crop")->setCheckState(0, Qt::Checked);
    settle();
    QVERIFY(applyButton(stage)->isEnabled());
}

void TestEditorApply::aloneThereIsNothingToApplyTo()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    setColor(stage.file(0), "bcs_contrast", 10);
    stage.trigger("applyTo");
    QVERIFY(!applyButton(stage)->isEnabled());
    QVERIFY(stage.find<QLabel>("problem")->text().contains(key("no other file")));
}

void TestEditorApply::watermarkIsShownInTheSmallestAndTheLargest()
{
    const Stage stage(threeClips());
    stage.file(0)->insert(key("Watermark"), {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key("Hello")}});
    stage.trigger("applyTo");
    auto* smallest = stage.find<QLabel>("smallest");
    auto* largest = stage.find<QLabel>("largest");
    QVERIFY(smallest && largest);
    QCOMPARE(smallest->toolTip(), key("high.mkv, 16 x 720"));
    QCOMPARE(largest->toolTip(), key("wide.mkv, 1280 x 16"));
    QCOMPARE(largest->accessibleName(), largest->toolTip());
    QCOMPARE(stage.find<QLabel>("picturesTitle")->text(), key("What comes out in the smallest and in the largest:"));
    stage.session().select({stage.file(0), stage.file(1)});
    stage.find<QComboBox>("where")->setCurrentIndex(0);
    QCOMPARE(smallest->toolTip(), key("wide.mkv, 1280 x 16"));
    QVERIFY(!stage.find<QLabel>("largest")); // It is the same one.
    QCOMPARE(stage.find<QLabel>("picturesTitle")->text(), key("What comes out:"));
    rowOf(stage.find<QTreeWidget>("what"), "Watermark")->setCheckState(0, Qt::Unchecked);
    rowOf(stage.find<QTreeWidget>("what"), "Colour")->setCheckState(0, Qt::Checked);
    settle();
    QVERIFY(!stage.find<QLabel>("smallest"));
}

void TestEditorApply::manyFilesAreLookedAtOneByOne()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    setColor(stage.file(0), "bcs_contrast", 10);
    constexpr int many = 200;
    for (int i = 0; i < many; ++i)
        stage.session().project().add(zokit::Media{QStringLiteral("/none/%1.mp4").arg(i), QSize(640, 480), 1});
    stage.trigger("applyTo");
    auto* list = stage.find<QTreeWidget>("differences");
    QCOMPARE(list->topLevelItemCount(), many);
    QVERIFY(list->topLevelItem(0)->childCount() > 0);
    QCOMPARE(list->topLevelItem(1)->childCount(), 0);
    list->topLevelItem(many - 1)->setExpanded(true);
    QVERIFY(list->topLevelItem(many - 1)->childCount() > 0);
}

EDITOR_TEST_MAIN(TestEditorApply)
void TestEditorApply::rulesForTracksChooseInEachFile()
{
    const QTemporaryDir folder;
    const QString other = folder.filePath(key("other.mkv"));
    QVERIFY(QFile::copy(clips::clip(key("languages.mkv")), other)); // Its sounds are fra and eng.
    const Stage stage({clips::clip(key("languages.mkv")), other});
    zokit::FileSettings* file = stage.file(1);
    stage.file(0)->setValue(stage.file(0)->tracks(), key("audio-language"), QStringList{key("eng")});
    stage.trigger("applyTo");
    rowOf(stage.find<QTreeWidget>("what"), "Choice of tracks")->setCheckState(0, Qt::Checked);
    settle();
    QTreeWidgetItem* shown = stage.find<QTreeWidget>("differences")->topLevelItem(0);
    QStringList addresses;
    for (int i = 0; i < shown->childCount(); ++i)
        addresses.append(shown->child(i)->toolTip(0));
    QVERIFY2(addresses.contains(key("Audio:1:selected")), qPrintable(addresses.join(QLatin1Char(' '))));
    const int steps = stage.session().history().position();
    applyButton(stage)->click();
    QTRY_VERIFY(!stage.find("applyDialog"));
    QVERIFY(!file->value(file->item(key("Audio"), 0), key("selected")).toBool());
    QVERIFY(file->value(file->item(key("Audio"), 1), key("selected")).toBool());
    QCOMPARE(stage.session().history().position(), steps + 1);
}

#include "tst_editor_apply.moc"
