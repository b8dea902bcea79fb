// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What is done most, by keys alone.

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>
#include <zokit/presets.h>

#include <actions.h>
#include <pictureview.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;

class TestEditorKeyboard : public QObject {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void tabComesToEveryPane();
    void fileIsChosen();
    void filesAreFilteredAndRemovedAndComeBack();
    void effectIsSwitchedOn();
    void valueIsFoundChangedAndUndone();
    void pictureIsCropped();
    void textIsAddedWrittenAndPlaced();
    void historyIsGoneThrough();
    void timeIsStepped();
    void lineBetweenBeforeAndAfterIsMoved();
    void settingsAreAppliedToTheOtherFile();
    void presetIsSavedAndApplied();
    void trackIsChosen();
    void filesAreConverted();
    void soundIsListenedTo();
    void everyMenuEntryCanBeChosen();
    void everyDialogIsOpenedAndLeft();
};

namespace {

constexpr int mostTabs = 300; // More than there are fields.

/// Two clips in a window that has the focus, and a person with a keyboard.
class Typist : public Stage {
public:
    explicit Typist(const QStringList& files = {clips::clip(key("plain.mp4")), clips::clip(key("wide.mkv"))})
        : Stage(files)
    {
        window().activateWindow();
        if (!QTest::qWaitForWindowActive(&window()))
            qFatal("The window got no focus");
    }

    /// What gets the next key.
    QWidget* listener() const
    {
        if (QWidget* popup = QApplication::activePopupWidget())
            return popup;
        QWidget* focused = QApplication::focusWidget();
        return focused ? focused : QApplication::activeModalWidget() ? QApplication::activeModalWidget() : &window();
    }

    void press(Qt::Key which, Qt::KeyboardModifiers with = Qt::NoModifier) const
    {
        QTest::keyClick(listener(), which, with);
        settle();
    }

    void press(const QKeySequence& keys) const
    {
        QTest::keySequence(listener(), keys);
        settle();
    }

    void type(const char* text) const
    {
        QTest::keyClicks(listener(), key(text));
        settle();
    }

    bool hasFocus(const char* name) const
    {
        return QApplication::focusWidget() && QApplication::focusWidget()->objectName() == key(name);
    }

    /// Presses Tab until the widget of that name has the focus; false when it never gets it.
    bool tabTo(const char* name) const
    {
        for (int i = 0; i < mostTabs && !hasFocus(name); ++i)
            press(Qt::Key_Tab);
        return hasFocus(name);
    }

    /// Presses the button of that name when Tab has come to it; false when it never does.
    bool tabToAndPress(const char* button) const
    {
        if (!tabTo(button))
            return false;
        press(Qt::Key_Space);
        return true;
    }

    /// Presses \a keys, and waits until the dialog of that name listens.
    bool openDialog(const QKeySequence& keys, const char* dialog) const
    {
        press(keys);
        return QTest::qWaitFor([&] {
            QWidget* focused = QApplication::focusWidget();
            return focused && focused->window()->objectName() == key(dialog);
        });
    }

    /// Waits until the window listens again, which the last dialog has left.
    bool comeBack() const
    {
        return QTest::qWaitFor([this] {
            if (!QApplication::activeWindow())
                window().activateWindow(); // As window managers do.
            return QApplication::activeWindow() == &window();
        });
    }

    /// Chooses what \a action stands for in the menus. False when it cannot be come to.
    bool chooseFromMenu(const QAction* action) const
    {
        auto* menu = qobject_cast<QMenu*>(menuOf(action));
        if (!menu)
            return false;
        press(QKeySequence::mnemonic(menu->title()));
        for (int i = 0; i < menu->actions().size() && menu->activeAction() != action; ++i)
            press(Qt::Key_Down);
        if (QApplication::activePopupWidget() != menu || menu->activeAction() != action)
            return false;
        press(Qt::Key_Return);
        return true;
    }

    QWidget* menuOf(const QAction* action) const
    {
        for (QMenu* menu : window().menuBar()->findChildren<QMenu*>()) {
            if (menu->actions().contains(const_cast<QAction*>(action)))
                return menu;
        }
        return nullptr;
    }

    QVariant value(const char* type, const char* valueKey, int row = 0) const
    {
        return file(row)->value(file(row)->type(key(type)), key(valueKey));
    }
    int steps() const { return session().history().position(); }
};

/// Presses Escape in each dialog that has got the focus, also in one that waits in an event loop of its own.
class Leaver : public QObject {
public:
    Leaver()
    {
        connect(&m_looking, &QTimer::timeout, this, [this] {
            QWidget* dialog = QApplication::activeModalWidget();
            QWidget* focused = QApplication::focusWidget();
            if (!dialog || dialog == m_left || !focused || focused->window() != dialog)
                return;
            m_left = dialog;
            titles.append(dialog->windowTitle());
            QTest::keyClick(focused, Qt::Key_Escape);
        });
        m_looking.start(0);
    }

    QStringList titles; ///< Of those that were left.

private:
    QTimer m_looking;
    QPointer<QWidget> m_left;
};

} // namespace

void TestEditorKeyboard::tabComesToEveryPane()
{
    const Typist typist;
    for (const char* name : {"filter", "order", "fileList", "pictureView", "time", "search", "effectTree"})
        QVERIFY2(typist.tabTo(name), name);
}

void TestEditorKeyboard::fileIsChosen()
{
    const Typist typist;
    QCOMPARE(typist.session().current(), typist.file(0));
    QVERIFY(typist.tabTo("fileList"));
    typist.press(Qt::Key_Down);
    QCOMPARE(typist.session().current(), typist.file(1));
    typist.press(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(typist.session().selected().size(), 2);
    typist.press(Qt::Key_Home);
    QCOMPARE(typist.session().current(), typist.file(0));
}

void TestEditorKeyboard::filesAreFilteredAndRemovedAndComeBack()
{
    const Typist typist;
    QVERIFY(typist.tabTo("filter"));
    typist.type("wide");
    QVERIFY(typist.tabTo("fileList"));
    typist.press(Qt::Key_Space);
    QCOMPARE(typist.session().current(), typist.file(1));
    typist.press(Qt::Key_Backspace, Qt::ControlModifier);
    QCOMPARE(typist.session().files().rowCount(), 1);
    typist.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(typist.session().files().rowCount(), 2);
}

void TestEditorKeyboard::effectIsSwitchedOn()
{
    const Typist typist;
    QVERIFY(typist.tabTo("effectTree"));
    typist.type("Col");
    QCOMPARE(typist.session().thing(), typist.file(0)->type(key("Color")));
    const bool was = typist.value("Color", "selected").toBool();
    typist.press(Qt::Key_Space);
    QCOMPARE(typist.value("Color", "selected"), QVariant(!was));
    typist.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(typist.value("Color", "selected"), QVariant(was));
}

void TestEditorKeyboard::valueIsFoundChangedAndUndone()
{
    const Typist typist;
    const int steps = typist.steps();
    typist.press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(typist.hasFocus("search"));
    typist.type("contrast");
    typist.press(Qt::Key_Return);
    QVERIFY(typist.hasFocus("effectTree"));
    const auto* tree = typist.find<QTreeView>("effectTree");
    for (int i = 0; i < mostTabs && tree->currentIndex().data().toString() != key("Contrast"); ++i)
        typist.press(i == 0 ? Qt::Key_Home : Qt::Key_Down);
    typist.press(Qt::Key_Return);
    QVERIFY(typist.hasFocus("Color:bcs_contrast"));
    typist.press(Qt::Key_Up);
    typist.press(Qt::Key_PageUp);
    QCOMPARE(typist.value("Color", "bcs_contrast"), QVariant(11));
    QCOMPARE(typist.steps(), steps + 2);
    typist.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(typist.value("Color", "bcs_contrast"), QVariant(1));
    typist.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(typist.value("Color", "bcs_contrast"), QVariant(11));
}

void TestEditorKeyboard::pictureIsCropped()
{
    const Typist typist;
    const auto* picture = typist.find<zoeditor::PictureView>("pictureView");
    QVERIFY(typist.tabTo("pictureView"));
    const auto handle = [&] { return picture->handleName(picture->currentHandle()); };
    for (int i = 0; i < 8 && handle() != key("Crop: left edge"); ++i)
        typist.press(Qt::Key_Tab);
    QCOMPARE(handle(), key("Crop: left edge"));
    typist.press(Qt::Key_Right);
    typist.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(picture->scene().crop, QRect(11, 3, 149, 112)); // It keeps its shape.
    typist.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(picture->scene().crop, QRect(1, 0, 159, 119));
    QVERIFY(typist.tabTo("time")); // Behind the last handle the focus goes on.
}

void TestEditorKeyboard::textIsAddedWrittenAndPlaced()
{
    const Typist typist;
    typist.press(Qt::Key_T, Qt::ControlModifier);
    const zokit::Identity text = typist.file(0)->items(key("Watermark")).value(0);
    QVERIFY(text != 0);
    QCOMPARE(typist.session().thing(), text);
    QVERIFY(typist.tabTo("Watermark:wm_textcontent"));
    typist.press(Qt::Key_A, Qt::ControlModifier);
    typist.type("Hello");
    QCOMPARE(typist.file(0)->value(text, key("wm_textcontent")).toString(), key("Hello"));
    QVERIFY(typist.tabTo("pictureView"));
    const auto* picture = typist.find<zoeditor::PictureView>("pictureView");
    const auto handle = [&] { return picture->handleName(picture->currentHandle()); };
    for (int i = 0; i < mostTabs && handle() != key("Watermark 1: place"); ++i)
        typist.press(Qt::Key_Tab);
    const QPoint before = kitsupport::placeOf(*typist.file(0), text);
    typist.press(Qt::Key_Right);
    QCOMPARE(kitsupport::placeOf(*typist.file(0), text), before + QPoint(1, 0));
    typist.press(Qt::Key_Delete, Qt::ControlModifier);
    QVERIFY(typist.file(0)->items(key("Watermark")).isEmpty());
}

void TestEditorKeyboard::historyIsGoneThrough()
{
    const Typist typist;
    typist.press(Qt::Key_T, Qt::ControlModifier);
    typist.press(Qt::Key_T, Qt::ControlModifier);
    auto* pages = typist.find<QTabWidget>("pages");
    for (int i = 0; i < mostTabs && QApplication::focusWidget() != pages->tabBar(); ++i)
        typist.press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), pages->tabBar());
    typist.press(Qt::Key_Right);
    QVERIFY(typist.tabTo("history"));
    typist.press(Qt::Key_Up);
    QCOMPARE(typist.file(0)->items(key("Watermark")).size(), 1);
    typist.press(Qt::Key_Up);
    QCOMPARE(typist.file(0)->items(key("Watermark")).size(), 0);
    typist.press(Qt::Key_End);
    QCOMPARE(typist.file(0)->items(key("Watermark")).size(), 2);
}

void TestEditorKeyboard::timeIsStepped()
{
    const Typist typist;
    const auto* bar = typist.find<QSlider>("time");
    QVERIFY(typist.tabTo("time"));
    typist.press(Qt::Key_Home);
    QCOMPARE(bar->value(), 0);
    typist.press(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(bar->value(), 40); // 25 frames a second.
    typist.press(Qt::Key_Left, Qt::ControlModifier);
    QCOMPARE(bar->value(), 0);
}

void TestEditorKeyboard::lineBetweenBeforeAndAfterIsMoved()
{
    const Typist typist;
    const auto* picture = typist.find<zoeditor::PictureView>("pictureView");
    typist.press(Qt::Key_3, Qt::ControlModifier);
    QVERIFY(typist.tabTo("pictureView"));
    typist.press(Qt::Key_Tab);
    typist.press(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(picture->split(), 70); // Of 160.
}

void TestEditorKeyboard::settingsAreAppliedToTheOtherFile()
{
    const Typist typist;
    typist.file(0)->setValue(typist.file(0)->type(key("Color")), key("bcs_contrast"), 12);
    QVERIFY(typist.openDialog(key("Ctrl+Shift+A"), "applyDialog"));
    QVERIFY(typist.tabTo("what"));
    typist.press(Qt::Key_Home); // The crop: not meant.
    typist.press(Qt::Key_Space);
    typist.press(Qt::Key_Space);
    QVERIFY(typist.tabTo("differences"));
    QVERIFY(typist.tabToAndPress("apply"));
    QVERIFY(typist.comeBack());
    QCOMPARE(typist.value("Color", "bcs_contrast", 1), QVariant(12));
    typist.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(typist.value("Color", "bcs_contrast", 1), QVariant(0));
}

void TestEditorKeyboard::presetIsSavedAndApplied()
{
    const Typist typist;
    typist.file(0)->setValue(typist.file(0)->type(key("Color")), key("bcs_contrast"), 12);
    QVERIFY(typist.openDialog(key("Ctrl+P"), "presetsDialog"));
    QVERIFY(typist.tabTo("presetName"));
    typist.type("Warm");
    QVERIFY(typist.tabToAndPress("savePreset"));
    typist.press(Qt::Key_Escape);
    QVERIFY(typist.comeBack());

    QVERIFY(typist.tabTo("fileList"));
    typist.press(Qt::Key_Down);
    QVERIFY(typist.openDialog(key("Ctrl+P"), "presetsDialog"));
    QVERIFY(typist.tabTo("presetList"));
    typist.press(Qt::Key_Home);
    QVERIFY(typist.tabToAndPress("layOver"));
    QCOMPARE(typist.value("Color", "bcs_contrast", 1), QVariant(12));
    zokit::Presets().remove(key("Warm"));
}

void TestEditorKeyboard::trackIsChosen()
{
    const Typist typist({clips::clip(key("languages.mkv"))});
    QVERIFY(typist.openDialog(key("Ctrl+K"), "tracksDialog"));
    QVERIFY(typist.tabTo("tracks"));
    typist.press(Qt::Key_Home);
    typist.press(Qt::Key_Down); // French, English.
    typist.press(Qt::Key_Space);
    QVERIFY(typist.tabToAndPress("apply"));
    QVERIFY(typist.comeBack());
    QVector<bool> used;
    for (const zokit::Identity track : typist.file(0)->items(key("Audio")))
        used.append(typist.file(0)->value(track, key("selected")).toBool());
    QCOMPARE(used, QVector<bool>({false, true}));
}

void TestEditorKeyboard::filesAreConverted()
{
    const Typist typist;
    QVERIFY(typist.openDialog(key("Ctrl+Return"), "convertDialog"));
    QVERIFY(typist.tabTo("folder"));
    typist.type(QFile::encodeName(typist.folder.filePath(key("results"))).constData());
    QVERIFY(typist.tabToAndPress("start"));
    QVERIFY(typist.comeBack());
    const zokit::Queue& queue = typist.session().queue();
    QCOMPARE(queue.rows().size(), 1);
    QTRY_COMPARE_WITH_TIMEOUT(queue.state(queue.rows().value(0)), zokit::RowState::Done, 60000);
    QVERIFY(QFile::exists(queue.job(queue.rows().value(0)).output));
    QVERIFY(typist.tabTo("queueList"));
    typist.press(Qt::Key_Delete);
    QVERIFY(queue.rows().isEmpty());
    typist.press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!typist.find("queueDock"));
}

void TestEditorKeyboard::soundIsListenedTo()
{
    qputenv("ZOEDITOR_PLAYER", "sleep"); // It hears nothing, and ends at once.
    const Typist typist;
    const QAction* listen = typist.window().actions().action("listen");
    const QAction* plain = typist.window().actions().action("listenPlain");
    typist.press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(listen->isChecked());
    typist.press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(plain->isChecked());
    QVERIFY(!listen->isChecked());
    typist.press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!plain->isChecked());
    qunsetenv("ZOEDITOR_PLAYER");
}

void TestEditorKeyboard::everyMenuEntryCanBeChosen()
{
    const Typist typist;
    QStringList unreachable;
    for (QAction* action : typist.window().actions().all()) {
        if (!action->isEnabled())
            continue;
        action->blockSignals(true); // Chosen, and nothing more.
        if (!typist.chooseFromMenu(action))
            unreachable.append(action->objectName());
        action->blockSignals(false);
    }
    QCOMPARE(unreachable, QStringList());
}

void TestEditorKeyboard::everyDialogIsOpenedAndLeft()
{
    const Typist typist;
    int opened = 0;
    for (QAction* action : typist.window().actions().all()) {
        if (!action->text().endsWith(key("...")) && action->objectName() != key("shortcuts"))
            continue;
        const QByteArray name = action->objectName().toLatin1();
        QVERIFY2(typist.tabTo("fileList"), name.constData());
        const int steps = typist.steps();
        Leaver leaver;
        QVERIFY2(typist.chooseFromMenu(action), name.constData());
        QVERIFY2(QTest::qWaitFor([&] { return !leaver.titles.isEmpty() && !QApplication::activeModalWidget(); }),
                 name.constData());
        QCOMPARE(leaver.titles.size(), 1);
        QVERIFY2(!leaver.titles.first().isEmpty(), name.constData());
        typist.window().activateWindow(); // As window managers do.
        QVERIFY2(QTest::qWaitFor([&] { return typist.hasFocus("fileList"); }), name.constData());
        QCOMPARE(typist.steps(), steps);
        ++opened;
    }
    QVERIFY(opened >= 7);
}

EDITOR_TEST_MAIN(TestEditorKeyboard)
#include "tst_editor_keyboard.moc"
