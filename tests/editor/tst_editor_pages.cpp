// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Every page, dialog and question of the editor, for who cannot see it, and for who sees it in a small window.

#include <QAccessible>
#include <QtTest>
#include <QtWidgets>

#include <appearance.h>

#include "cutoff.h"
#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
namespace appearance = zoeditor::appearance;

class TestEditorPages : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { init(); }

    void everyControlHasNameAndRole_data();
    void everyControlHasNameAndRole();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void emptyListsSayWhatToDo_data();
    void emptyListsSayWhatToDo();
    void hintGoesWhenThereIsSomething();
    void cutOffIsFound_data();
    void cutOffIsFound();
};

namespace {

constexpr int pages = 41; // 23 in the panel, history, queue, 7 of dialogs, 4 questions, 4 empty ones, without ffmpeg.

/// What is wrong with the controls below \a object for who cannot see them.
void collectFaults(QAccessibleInterface* object, const QString& path, QStringList* faults)
{
    if (!object || object->state().invisible)
        return;
    const QString name = object->text(QAccessible::Name);
    const auto* widget = qobject_cast<QWidget*>(object->object());
    const bool isControl = widget && widget->focusPolicy() != Qt::NoFocus && widget->isEnabled();
    const QString own = path + QLatin1Char('/')
                        + (object->object() ? QString::fromLatin1(object->object()->metaObject()->className())
                                                  + QLatin1Char('#') + object->object()->objectName()
                                            : QString());
    if (isControl && (name.isEmpty() || object->role() == QAccessible::NoRole))
        faults->append(own);
    for (int i = 0; i < object->childCount(); ++i)
        collectFaults(object->child(i), own, faults);
}

} // namespace

void TestEditorPages::init()
{
    kitsupport::clearSavedDefaults();
    appearance::setLanguage(key("en"));
    appearance::setTheme(appearance::Theme::System);
}

void TestEditorPages::everyControlHasNameAndRole_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << key("en");
    QTest::newRow("German") << key("de");
}

void TestEditorPages::everyControlHasNameAndRole()
{
    QFETCH(const QString, language);
    appearance::setLanguage(language);
    const Full stage;
    QStringList faults;
    int seen = 0;
    stage.visitEverything([&](QWidget& shown, const QString& name) {
        ++seen;
        collectFaults(QAccessible::queryAccessibleInterface(&shown), name, &faults);
    });
    faults.removeDuplicates();
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    QCOMPARE(seen, pages);
}

void TestEditorPages::nothingIsCutOff_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QSize>("size");
    for (const char* language : {"en", "de"}) {
        QTest::addRow("%s, smallest", language) << key(language) << QSize(1024, 640);
        QTest::addRow("%s, usual", language) << key(language) << QSize(1280, 800);
    }
}

void TestEditorPages::nothingIsCutOff()
{
    QFETCH(const QString, language);
    QFETCH(const QSize, size);
    appearance::setLanguage(language);
    const Full stage;
    stage.window().resize(size);
    QStringList faults;
    for (const char* name : {"window", "files", "picture", "timeline", "effects", "panel", "pages"}) {
        const QWidget* widget = key(name) == key("window") ? &stage.window() : stage.find(name);
        const QSize least = widget->minimumSizeHint().expandedTo(widget->minimumSize());
        faults.append(QStringLiteral("%1 %2x%3").arg(key(name)).arg(least.width()).arg(least.height()));
    }
    QVERIFY2(stage.window().size() == size, qPrintable(faults.join(QLatin1Char(' '))));
    faults.clear();
    const auto* bar = stage.find<QToolBar>("toolBar");
    for (QAction* action : bar->actions()) {
        if (!bar->widgetForAction(action)->isVisible())
            faults += action->objectName();
    }
    int seen = 0;
    stage.visitEverything([&](QWidget& shown, const QString& name) {
        ++seen;
        for (const QString& fault : cutOff(shown))
            faults += name + key(": ") + fault;
        if (shown.width() > size.width() || shown.height() > size.height())
            faults += QStringLiteral("%1: %2x%3").arg(name).arg(shown.width()).arg(shown.height());
        const auto* panel = shown.findChild<QScrollArea*>(key("panel"));
        if (panel && panel->isVisibleTo(&shown) && panel->widget()->width() > panel->viewport()->width())
            faults += name + key(": the panel is wider than its room");
    });
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    QCOMPARE(seen, pages);
}

void TestEditorPages::emptyListsSayWhatToDo_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* action, const char* list, const char* sentence) {
        QTest::newRow(list) << QByteArray(action) << QByteArray(list) << key(sentence);
    };
    row("removeFiles", "fileList", "Drop films or folders here.");
    row("removeFiles", "effectTree", "Open a film to see what can be done with it.");
    row("queue", "queueList", "Nothing is to be converted yet. Choose Convert above.");
    row("presets", "presetList", "There is no preset yet. Check what it is to hold, name it and save it.");
    row("presets", "differences", "Choose a preset to see what it changes.");
    row("tracks", "tracks",
        "This file has neither sound nor subtitles. The menu Edit adds a sound file or a subtitle file.");
    row("tracks", "audioLanguages:list", "None is asked for. Choose one below and add it.");
}

void TestEditorPages::emptyListsSayWhatToDo()
{
    QFETCH(const QByteArray, action);
    QFETCH(const QByteArray, list);
    QFETCH(const QString, sentence);
    const Stage stage({clips::clip(key("silent.mkv"))});
    QVERIFY(stage.trigger(action.constData()));
    settle();
    const auto* view = stage.find<QAbstractItemView>(list.constData());
    const auto* hint = stage.find<QLabel>((list + ":hint").constData());
    QVERIFY(view && hint);
    QCOMPARE(hint->text(), sentence);
    QCOMPARE(view->accessibleDescription(), sentence);
    QVERIFY(view->viewport()->rect().contains(hint->geometry()));
    QVERIFY(hint->heightForWidth(hint->width()) <= hint->height());
}

void TestEditorPages::hintGoesWhenThereIsSomething()
{
    const Stage stage({clips::clip(key("silent.mkv"))});
    QVERIFY(!stage.find("fileList:hint") && !stage.find("effectTree:hint"));
    QVERIFY(stage.find("addItem")->isEnabled());
    stage.find<QLineEdit>("filter")->setText(key("none is called so"));
    QCOMPARE(stage.find<QLabel>("fileList:hint")->text(), key("Nothing found."));
    stage.find<QLineEdit>("filter")->clear();
    QVERIFY(!stage.find("fileList:hint"));
    stage.session().setThing(stage.file(0)->type(key("Watermark")));
    settle();
    QCOMPARE(stage.find<QLabel>("noValues")->text(),
             key("There are none yet. The button Add above makes the first one."));
    stage.trigger("addText");
    stage.session().setThing(stage.file(0)->type(key("Watermark")));
    settle();
    QVERIFY(!stage.find("noValues"));
}

void TestEditorPages::cutOffIsFound_data()
{
    QTest::addColumn<QByteArray>("kind");
    for (const char* kind :
         {"label", "box", "tabs", "header", "row", "wrapped row", "wide list", "placeholder", "line", "overlap"})
        QTest::addRow("%s", kind) << QByteArray(kind);
}

/// The measure finds what it is for, and nothing where there is room.
void TestEditorPages::cutOffIsFound()
{
    QFETCH(const QByteArray, kind);
    const QString text = key("Some words that take room");
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QWidget* narrow = nullptr;
    const bool isList = kind == "header" || kind.endsWith("row") || kind == "wide list";
    if (kind == "box") {
        auto* box = new QComboBox(&window);
        box->addItems({key("Few"), text});
        narrow = box;
    } else if (kind == "tabs") {
        auto* bar = new QTabBar(&window);
        bar->addTab(text);
        narrow = bar;
    } else if (isList) {
        auto* tree = new QTreeWidget(&window);
        tree->setHeaderLabels({kind == "header" ? text : key("What"), text});
        tree->setWordWrap(kind == "wrapped row");
        if (kind != "header")
            new QTreeWidgetItem(tree, {text});
        tree->header()->resizeSection(0, 300);
        layout->addWidget(tree);
        narrow = tree;
    } else if (kind == "placeholder" || kind == "line") {
        auto* line = new QLineEdit(&window);
        line->setReadOnly(kind == "line");
        kind == "line" ? line->setText(text) : line->setPlaceholderText(text);
        narrow = line;
    } else {
        narrow = new QLabel(text, &window);
    }
    layout->addWidget(narrow);
    auto* below = new QPushButton(key("Below"), &window);
    layout->addWidget(below);
    window.resize(600, 200);
    window.show();
    settle();
    QCOMPARE(cutOff(window), QStringList());
    if (kind == "overlap")
        below->move(narrow->pos());
    else if (isList)
        qobject_cast<QTreeWidget*>(narrow)->header()->resizeSection(0, kind == "wide list" ? 900 : 60);
    else
        narrow->setFixedWidth(40);
    settle();
    QVERIFY(!cutOff(window).isEmpty());
}

EDITOR_TEST_MAIN(TestEditorPages)
#include "tst_editor_pages.moc"
