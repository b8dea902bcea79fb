// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QAccessible>
#include <QtTest>
#include <QtWidgets>

#include <actions.h>
#include <appearance.h>
#include <pictureview.h>
#include <timeline.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
namespace appearance = zoeditor::appearance;

class TestEditorWindow : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { init(); }

    void everyActionStandsInAMenu();
    void shortcutsAreListedAndDiffer();
    void valuesAreReadAndSetByAssistiveTools();
    void everythingIsReachedByTab();
    void screenReadersSwitch();
    void undoWorksInASearchFieldWithoutWords();
    void searchWithoutAHitSaysSo();
    void languageIsChosenInTheMenu();
    void themeIsChosenAndRemembered();
    void dimmedTextsAreDrawnInEachTheme();
    void sizesAreRemembered();
    void sizesOfDialogsAreRemembered();
    void chosenRowsStayInSight();
    void missingToolsAreTold();
};

void TestEditorWindow::init()
{
    kitsupport::clearSavedDefaults();
    appearance::setLanguage(key("en"));
    appearance::setTheme(appearance::Theme::System);
}

void TestEditorWindow::everyActionStandsInAMenu()
{
    const Stage stage;
    QSet<QAction*> inMenus;
    for (QAction* top : stage.window().menuBar()->actions()) {
        QVERIFY(top->menu());
        for (QAction* action : top->menu()->actions()) {
            if (!action->isSeparator())
                inMenus.insert(action);
        }
    }
    QStringList faults;
    for (QAction* action : stage.window().findChildren<QAction*>()) {
        if (action->parent() != &stage.window() || action->isSeparator())
            continue;
        if (!inMenus.contains(action) || action->objectName().isEmpty() || action->text().isEmpty())
            faults.append(action->objectName() + action->text());
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    QVERIFY(inMenus.size() >= 20);
}

void TestEditorWindow::shortcutsAreListedAndDiffer()
{
    const Stage stage;
    stage.trigger("shortcuts");
    auto* dialog = stage.window().findChild<QDialog*>(key("shortcutsDialog"));
    QVERIFY(dialog && dialog->isVisible());
    const auto* list = dialog->findChild<QTreeWidget*>(key("shortcutList"));
    QMap<QString, QString> keys;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QVERIFY2(!keys.contains(list->topLevelItem(i)->text(1)), qPrintable(list->topLevelItem(i)->text(1)));
        keys.insert(list->topLevelItem(i)->text(1), list->topLevelItem(i)->text(0));
    }
    QCOMPARE(keys.value(key("Ctrl+Z")), key("Undo"));
    QCOMPARE(keys.value(key("Ctrl+O")), key("Add files..."));
    dialog->close();
}

void TestEditorWindow::valuesAreReadAndSetByAssistiveTools()
{
    const Full stage;
    stage.session().setThing(stage.file(0)->type(key("Color")));
    QCoreApplication::processEvents();
    QAccessibleInterface* field = QAccessible::queryAccessibleInterface(stage.find<QSpinBox>("Color:bcs_contrast"));
    QCOMPARE(field->role(), QAccessible::SpinBox);
    QCOMPARE(field->text(QAccessible::Name), key("Contrast"));
    QAccessibleValueInterface* value = field->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->minimumValue().toInt(), -50);
    QCOMPARE(value->maximumValue().toInt(), 50);
    value->setCurrentValue(25);
    QCOMPARE(stage.file(0)->value(stage.session().thing(), key("bcs_contrast")), QVariant(25));
    QCOMPARE(value->currentValue().toInt(), 25);
}

void TestEditorWindow::everythingIsReachedByTab()
{
    const Full stage;
    stage.window().activateWindow();
    stage.session().setThing(stage.file(0)->item(key("Watermark"), 0));
    QCoreApplication::processEvents();
    stage.find<QWidget>("filter")->setFocus();
    QSet<QString> reached;
    for (int i = 0; i < 200; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.insert(QApplication::focusWidget()->objectName());
    }
    for (const char* name : {"filter", "order", "fileList", "search", "effectTree", "Watermark:wm_textcontent",
                             "Watermark:wm_fontcolor", "Watermark:wm_transparency:slider", "addItem"})
        QVERIFY2(reached.contains(key(name)), name);
}

/// They switch a button or a box without clicking on it.
void TestEditorWindow::screenReadersSwitch()
{
    const Stage stage({clips::clip(key("plain.mkv"))});
    const auto switchIt = [](QWidget* widget) {
        QAccessible::queryAccessibleInterface(widget)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    };
    const auto buttonOf = [&](const char* action) {
        for (auto* button : stage.window().findChildren<QToolButton*>()) {
            if (button->defaultAction() == stage.window().actions().action(action))
                return button;
        }
        qFatal("No button");
    };
    auto* view = stage.window().findChild<zoeditor::PictureView*>();
    switchIt(buttonOf("showBefore"));
    QCOMPARE(view->show(), zoeditor::PictureView::Show::Before);
    switchIt(buttonOf("showAfter"));
    QCOMPARE(view->show(), zoeditor::PictureView::Show::After);

    const auto* timeLine = stage.window().findChild<zoeditor::TimeLine*>();
    switchIt(buttonOf("play"));
    QVERIFY(timeLine->isPlaying());
    switchIt(buttonOf("play"));
    QVERIFY(!timeLine->isPlaying());

    switchIt(buttonOf("queue"));
    QVERIFY(stage.find("queueDock"));
    switchIt(buttonOf("queue"));
    QVERIFY(!stage.find("queueDock"));

    const zokit::FileSettings* file = stage.file(0);
    stage.session().setThing(file->type(key("Crop")));
    QCoreApplication::processEvents();
    switchIt(stage.find("Crop:crop_keepaspectratio"));
    QCOMPARE(file->value(file->type(key("Crop")), key("crop_keepaspectratio")), QVariant(false));
}

void TestEditorWindow::undoWorksInASearchFieldWithoutWords()
{
    const Full stage;
    stage.window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.window()));
    zokit::FileSettings* file = stage.file(0);
    const zokit::Identity color = file->type(key("Color"));
    for (const char* name : {"search", "filter"}) {
        file->setValue(color, key("bcs_contrast"), 5);
        auto* field = stage.find<QLineEdit>(name);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(0));
        file->setValue(color, key("bcs_contrast"), 5);
        QTest::keyClicks(field, key("x"));
        QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field->text(), QString());
        QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(5));
        stage.session().undo();
    }
}

void TestEditorWindow::searchWithoutAHitSaysSo()
{
    const Full stage;
    QVERIFY(!stage.find("nothingFound"));
    auto* search = stage.find<QLineEdit>("search");
    search->setText(key("volume"));
    QVERIFY(stage.find<QLabel>("nothingFound"));
    QCOMPARE(stage.find<QLabel>("nothingFound")->text(), key("Nothing found."));
    search->setText(key("contrast"));
    QVERIFY(!stage.find("nothingFound"));
    search->clear();
    QVERIFY(!stage.find("nothingFound"));
}

void TestEditorWindow::languageIsChosenInTheMenu()
{
    const Full stage;
    const QPointer<QWidget> before = &stage.window();
    stage.window().resize(1111, 777);
    QVERIFY(stage.trigger("german"));
    QTRY_VERIFY(!before);
    QCOMPARE(stage.window().size(), QSize(1111, 777));
    QCOMPARE(stage.window().actions().action("undo")->iconText(), QString::fromUtf8("R\303\274ckg\303\244ngig"));
    QVERIFY(stage.window().isVisible());
    stage.session().setThing(stage.file(0)->type(key("Color")));
    QCoreApplication::processEvents();
    QCOMPARE(stage.find<QSpinBox>("Color:bcs_contrast")->accessibleName(), key("Kontrast"));
    QCOMPARE(stage.session().files().rowCount(), 2);
    QVERIFY(stage.window().actions().action("german")->isChecked());
    QCOMPARE(appearance::language(), key("de"));
    QVERIFY(stage.trigger("english"));
    QTRY_COMPARE(stage.window().actions().action("undo")->iconText(), key("Undo"));
}

void TestEditorWindow::themeIsChosenAndRemembered()
{
    const Stage stage;
    QVERIFY(stage.trigger("themeDark"));
    QVERIFY(QApplication::palette().color(QPalette::Window).lightness() < 80);
    QVERIFY(QApplication::palette().color(QPalette::Text).lightness() > 180);
    QCOMPARE(appearance::theme(), appearance::Theme::Dark);
    QVERIFY(stage.trigger("themeLight"));
    QVERIFY(QApplication::palette().color(QPalette::Window).lightness() > 180);
    const Stage next;
    QVERIFY(next.window().actions().action("themeLight")->isChecked());
}

void TestEditorWindow::dimmedTextsAreDrawnInEachTheme()
{
    for (const char* theme : {"themeSystem", "themeLight", "themeDark"}) {
        const Stage stage({clips::clip(key("plain.mkv"))});
        QVERIFY(stage.trigger(theme));
        settle();
        QLabel* mark = nullptr;
        for (auto* label : stage.window().findChildren<QLabel*>()) {
            if (label->text() == key("default") && label->isVisibleTo(&stage.window()))
                mark = label;
        }
        QVERIFY(mark);
        const QImage drawn = mark->grab().toImage();
        QSet<QRgb> colours;
        for (int x = 0; x < drawn.width(); ++x) {
            for (int y = 0; y < drawn.height(); ++y)
                colours.insert(drawn.pixel(x, y));
        }
        QVERIFY2(colours.size() > 2, theme);
    }
}

void TestEditorWindow::sizesAreRemembered()
{
    QList<int> sizes;
    {
        const Stage stage;
        stage.window().resize(1100, 700);
        auto* columns = stage.find<QSplitter>("columns");
        columns->setSizes({400, columns->width() - 400});
        sizes = columns->sizes();
    }
    const Stage stage;
    QCOMPARE(stage.window().size(), QSize(1100, 700));
    QCOMPARE(stage.find<QSplitter>("columns")->sizes(), sizes);
    stage.window().resize(1280, 800);
}

/// From one opening to the next, in whatever way they are closed.
void TestEditorWindow::sizesOfDialogsAreRemembered()
{
    QMap<QString, QPair<QSize, QList<int>>> left;
    const auto splitterOf = [](QWidget& dialog) { return dialog.findChild<QSplitter*>(); };
    {
        const Full stage;
        stage.visitDialogs([&](QWidget& dialog) {
            dialog.resize(dialog.size() + QSize(20 + 10 * int(left.size()), 30));
            settle();
            if (auto* splitter = splitterOf(dialog))
                splitter->setSizes({splitter->sizes().at(0) + 15, splitter->sizes().at(1) - 15});
            settle();
            left.insert(dialog.objectName(),
                        {dialog.size(), splitterOf(dialog) ? splitterOf(dialog)->sizes() : QList<int>()});
        });
    }
    QCOMPARE(left.size(), 5);
    const Full stage;
    stage.visitDialogs([&](QWidget& dialog) {
        QCOMPARE(dialog.size(), left.value(dialog.objectName()).first);
        if (splitterOf(dialog))
            QCOMPARE(splitterOf(dialog)->sizes(), left.value(dialog.objectName()).second);
    });
}

void TestEditorWindow::chosenRowsStayInSight()
{
    const Full stage;
    stage.window().resize(1024, 640);
    for (int i = 0; i < 20; ++i)
        stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), i + 1);
    stage.session().setThing(stage.file(0)->output());
    auto* pages = stage.find<QTabWidget>("pages");
    pages->setCurrentIndex(1);
    settle();
    const auto isInSight = [&](const char* name) {
        auto* list = stage.find<QAbstractItemView>(name);
        return list->currentIndex().row() > 0
               && list->viewport()->rect().contains(list->visualRect(list->currentIndex()));
    };
    for (const char* name : {"effectTree", "history"})
        QVERIFY2(isInSight(name), name);
    stage.trigger("queue"); // It takes its room from them.
    settle();
    for (const char* name : {"effectTree", "history"})
        QVERIFY2(isInSight(name), name);
    auto* tree = stage.find<QTreeView>("effectTree");
    tree->scrollToTop();
    stage.trigger("queue");
    settle();
    QCOMPARE(tree->verticalScrollBar()->value(), 0); // Whoever looks elsewhere goes on looking there.
}

void TestEditorWindow::missingToolsAreTold()
{
    const Stage found;
    QVERIFY(!found.find("missingTools"));
    const QTemporaryDir empty;
    qputenv("ZOEFFECT_FFMPEG", QFile::encodeName(empty.path()));
    const Stage stage({clips::clip(key("plain.mp4"))});
    QVERIFY(stage.find("missingTools"));
    QVERIFY(stage.find<QLabel>("reason")->text().contains(key("ffmpeg")));
    QCOMPARE(stage.find<QLineEdit>("installLine")->text(), key("sudo apt-get install ffmpeg"));
    QVERIFY(!stage.file(0));
    qunsetenv("ZOEFFECT_FFMPEG");
    QTest::mouseClick(stage.find<QPushButton>("lookAgain"), Qt::LeftButton);
    QVERIFY(!stage.find("missingTools"));
    stage.waitForFiles();
    QVERIFY(stage.file(0));
}

EDITOR_TEST_MAIN(TestEditorWindow)
#include "tst_editor_window.moc"
