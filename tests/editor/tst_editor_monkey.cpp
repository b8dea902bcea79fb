// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Random clicks, drags, keys, turns of the wheel and actions on the real window. Whatever is done, the settings stay
// valid, and undoing all of it gives the first state. The seed gives the events; what ffmpeg answers comes when it
// comes, so that a second run need not be the same to the last one.

#include <array>

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>
#include <zokit/settingsfile.h>

#include <actions.h>

#include "editorsupport.h"
#include "randomedits.h"
#include "watchdog.h"

using namespace editorsupport;
using kitsupport::key;
using kitsupport::stepsOr;

class TestEditorMonkey : public QObject {
    Q_OBJECT

private slots:
    void nothingBreaksWhateverIsDone();
};

namespace {

constexpr int sessionEvents = 1000;
constexpr int checkEvery = 100;
constexpr int deepest = 4; // Dialogs and menus in each other.

/// Left out: they ask for files of the disk, which is not the monkey's, or end the program.
bool isForbidden(const QString& action)
{
    static const QStringList forbidden{key("addFiles"),    key("addFolder"), key("saveAs"), key("addImage"),
                                       key("addSubtitle"), key("addSound"),  key("quit")};
    return forbidden.contains(action);
}

/// Keeps the window open.
class StaysOpen : public QObject {
public:
    StaysOpen() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Close || !qobject_cast<zoeditor::Window*>(watched))
            return false;
        event->ignore();
        return true;
    }
};

class Monkey {
public:
    Monkey(const Stage& stage, quint32 seed, Watchdog& watchdog) : m_stage(stage), m_random(seed), m_watchdog(watchdog)
    {
    }

    int events() const { return m_events; }

    /// One event and all that follows from it. What asks in an event loop of its own is answered by further events.
    void act()
    {
        QTimer::singleShot(0, &m_looking, [this] { lookForLoops(); });
        doSomething();
        QCoreApplication::processEvents();
    }

    /// Leaves all menus and dialogs.
    void leaveAll()
    {
        while (QWidget* open = menuOrDialog())
            leave(open);
        settle();
    }

private:
    static QWidget* menuOrDialog()
    {
        QWidget* popup = QApplication::activePopupWidget();
        return popup ? popup : QApplication::activeModalWidget();
    }

    /// The window that gets what a person does.
    QWidget* ground() const
    {
        QWidget* open = menuOrDialog();
        return open ? open : &m_stage.window();
    }

    void leave(QWidget* open)
    {
        if (qobject_cast<QFileDialog*>(open))
            m_watchdog.forgive();
        if (auto* dialog = qobject_cast<QDialog*>(open))
            dialog->reject();
        else
            open->close();
    }

    /// Called from an event loop that was started within doSomething(), if there is one.
    void lookForLoops()
    {
        if (m_depth == 0)
            return;
        QTimer::singleShot(0, &m_looking, [this] { lookForLoops(); });
        QWidget* open = menuOrDialog();
        if (!open)
            QDrag::cancel();
        else if (m_depth >= deepest || isOneOf(4) || qobject_cast<QFileDialog*>(open))
            leave(open);
        else
            doSomething();
    }

    void doSomething()
    {
        ++m_depth;
        ++m_events;
        for (QAction* action : m_stage.window().actions().all()) {
            if (isForbidden(action->objectName()))
                action->blockSignals(true);
        }
        const int kind = m_random.bounded(100);
        if (kind < 22)
            click(anything());
        else if (kind < 37)
            click(place());
        else if (kind < 47)
            drag(isOneOf(2) ? anything() : place());
        else if (kind < 72)
            type();
        else if (kind < 77)
            wheel(isOneOf(2) ? anything() : place());
        else if (kind < 81)
            focus(anything());
        else if (kind < 83)
            contextMenu(anything());
        else if (QWidget* open = menuOrDialog())
            leave(open);
        else
            trigger();
        --m_depth;
    }

    bool isOneOf(int many) { return m_random.bounded(many) == 0; }

    template <typename List>
    auto any(const List& list)
    {
        return list.at(m_random.bounded(static_cast<int>(list.size())));
    }

    /// Any widget that is seen.
    QWidget* anything()
    {
        QWidget* own = ground();
        QList<QWidget*> seen{own};
        for (QWidget* widget : own->findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->isEnabled() && widget->window() == own
                && !widget->objectName().endsWith(QLatin1String(":browse")))
                seen.append(widget);
        }
        return any(seen);
    }

    /// One where much can be done.
    QWidget* place()
    {
        static const std::array<const char*, 6> names{"pictureView", "effectTree", "fileList",
                                                      "history",     "time",       "pages"};
        auto* found = m_stage.find<QWidget>(names.at(std::size_t(m_random.bounded(int(names.size())))));
        if (!found || found->window() != ground() || !found->isEnabled())
            return anything();
        auto* area = qobject_cast<QAbstractScrollArea*>(found);
        return area ? area->viewport() : found;
    }

    QPoint pointIn(const QWidget* widget)
    {
        return {m_random.bounded(std::max(widget->width(), 1)), m_random.bounded(std::max(widget->height(), 1))};
    }

    Qt::KeyboardModifiers modifiers()
    {
        if (!isOneOf(4))
            return Qt::NoModifier;
        return any(QVector<Qt::KeyboardModifier>{Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier});
    }

    static QString nameOf(const QWidget* widget)
    {
        return QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
    }

    void click(const QPointer<QWidget>& widget)
    {
        const Qt::MouseButton button = isOneOf(8) ? Qt::RightButton : Qt::LeftButton;
        const Qt::KeyboardModifiers keys = modifiers();
        const QPoint at = pointIn(widget);
        m_watchdog.setDoing(key("a click on ") + nameOf(widget));
        for (int clicks = isOneOf(6) ? 2 : 1; clicks > 0; --clicks) {
            if (widget)
                QTest::mousePress(widget, button, keys, at);
            if (widget)
                QTest::mouseRelease(widget, button, keys, at);
        }
    }

    void drag(const QPointer<QWidget>& widget)
    {
        const Qt::KeyboardModifiers keys = modifiers();
        const QPoint from = pointIn(widget);
        const QPoint to = pointIn(widget);
        m_watchdog.setDoing(key("a drag of ") + nameOf(widget));
        const Qt::MouseButton button = isOneOf(8) ? Qt::MiddleButton : Qt::LeftButton;
        QTest::mousePress(widget, button, keys, from);
        const int moves = m_random.bounded(1, 6);
        for (int i = 1; i <= moves; ++i) {
            if (isOneOf(25))
                m_stage.trigger("undo");
            if (widget && isOneOf(25))
                QTest::keyClick(widget, Qt::Key_Escape);
            if (widget) {
                const QPoint at = from + (to - from) * i / moves;
                QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, button, keys);
                QCoreApplication::sendEvent(widget, &move);
            }
            QCoreApplication::processEvents();
        }
        if (widget)
            QTest::mouseRelease(widget, button, keys, to);
    }

    void type()
    {
        static const QVector<Qt::Key> keys{
            Qt::Key_Tab,  Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Space,  Qt::Key_Escape,
            Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,      Qt::Key_Down,   Qt::Key_PageUp, Qt::Key_PageDown,
            Qt::Key_Home, Qt::Key_End,   Qt::Key_Delete,  Qt::Key_Plus,   Qt::Key_Minus,  Qt::Key_Backspace,
            Qt::Key_F1,   Qt::Key_F10,   Qt::Key_Comma,   Qt::Key_Period, Qt::Key_Slash,  Qt::Key_QuoteDbl,
        };
        QWidget* own = ground();
        QWidget* focused = QApplication::focusWidget();
        const QPointer<QWidget> widget = focused && focused->window() == own ? focused : own;
        const int letter = m_random.bounded(2) == 0 ? m_random.bounded(int(Qt::Key_A), int(Qt::Key_Z) + 1)
                                                    : m_random.bounded(int(Qt::Key_0), int(Qt::Key_9) + 1);
        const Qt::Key which = isOneOf(3) ? static_cast<Qt::Key>(letter) : any(keys);
        const Qt::KeyboardModifiers with = modifiers();
        m_watchdog.setDoing(key("the key ") + QKeySequence(int(which) | int(with)).toString() + key(" in ")
                            + nameOf(widget));
        for (int times = isOneOf(5) ? m_random.bounded(2, 5) : 1; times > 0; --times) {
            if (widget)
                QTest::keyPress(widget, which, with);
        }
        if (widget)
            QTest::keyRelease(widget, which, with);
    }

    void wheel(QWidget* widget)
    {
        const QPoint at = pointIn(widget);
        m_watchdog.setDoing(key("the wheel on ") + nameOf(widget));
        QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), QPoint(0, isOneOf(2) ? 120 : -120), Qt::NoButton,
                          modifiers(), Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget, &event);
    }

    void focus(QWidget* widget)
    {
        m_watchdog.setDoing(key("the focus for ") + nameOf(widget));
        widget->setFocus(Qt::OtherFocusReason);
    }

    void contextMenu(QWidget* widget)
    {
        const QPoint at = pointIn(widget);
        m_watchdog.setDoing(key("a context menu of ") + nameOf(widget));
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
        QCoreApplication::sendEvent(widget, &event);
    }

    void trigger()
    {
        const int often = m_random.bounded(10);
        QAction* action = often < 3   ? m_stage.window().actions().action("undo")
                          : often < 5 ? m_stage.window().actions().action("redo")
                                      : any(m_stage.window().actions().all());
        m_watchdog.setDoing(key("the action ") + action->objectName());
        action->trigger();
    }

    const Stage& m_stage;
    QRandomGenerator m_random;
    Watchdog& m_watchdog;
    QObject m_looking;
    int m_depth = 0;
    int m_events = 0;
};

/// Whether what is set can be written and read again, and is the same then.
void checkSettings(const Stage& stage)
{
    for (const zokit::FileSettings* file : stage.session().project().files()) {
        const zokit::Settings settings = file->settings();
        zokit::Message error;
        const QByteArray text = zokit::writeSettings(settings, stage.folder.path(), &error);
        QVERIFY2(!text.isEmpty(), qPrintable(error.text()));
        const zokit::ReadSettings read = zokit::readSettings(text, stage.folder.path());
        QVERIFY2(read.settings, qPrintable(read.error.text()));
        QVERIFY(*read.settings == settings);
    }
}

void checkUndoAll(const Stage& stage, const QByteArray& first)
{
    const zokit::History& history = stage.session().history();
    stage.trigger("undo"); // Also a gesture that is open.
    for (int position = history.position(); position > 0; position = history.position()) {
        QVERIFY(stage.trigger("undo"));
        QVERIFY(history.position() < position);
    }
    QCOMPARE(kitsupport::settingsOf(stage.session().project()), first);
}

/// So many events in a window with three files.
void runSession(quint32 seed, int events, Watchdog& watchdog)
{
    kitsupport::clearSavedDefaults();
    const Stage stage;
    stage.session().open({copyOf("plain.mp4", stage.folder, "plain.mp4"),
                          copyOf("languages.mkv", stage.folder, "languages.mkv"),
                          copyOf("sound.wav", stage.folder, "sound.wav")});
    stage.waitForFiles();
    zokit::History& history = stage.session().history();
    constexpr qint64 enough = qint64(64) * 1024 * 1024; // Bytes.
    const QByteArray first = kitsupport::settingsOf(stage.session().project());
    QVERIFY(stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 1).isEmpty());
    history.setLimit(0); // That the files came is forgotten: they were there from the beginning.
    history.setLimit(enough);
    QCOMPARE(history.position(), 1);
    stage.window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.window()));
    watchdog.forgive();

    Monkey monkey(stage, seed, watchdog);
    for (int checked = 0; monkey.events() < events;) {
        monkey.act();
        if (monkey.events() - checked < checkEvery)
            continue;
        checked = monkey.events();
        checkSettings(stage);
        watchdog.forgive();
        if (QTest::currentTestFailed())
            return;
    }
    monkey.leaveAll();
    stage.waitForFiles();
    checkSettings(stage);
    checkUndoAll(stage, first);
    watchdog.forgive();
}

} // namespace

void TestEditorMonkey::nothingBreaksWhateverIsDone()
{
    QApplication::setQuitOnLastWindowClosed(false);
    const StaysOpen staysOpen;
    Watchdog watchdog;
    const auto seed = quint32(stepsOr("ZOEDITOR_SEED", 20261122));
    const int total = stepsOr("ZOEDITOR_EVENTS", 3000);
    for (int done = 0; done < total; done += sessionEvents) {
        const quint32 ofSession = seed + quint32(done / sessionEvents);
        runSession(ofSession, std::min(sessionEvents, total - done), watchdog);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(key("seed %1").arg(ofSession)));
    }
    qInfo("%d events; the window was blocked for at most %d ms: %s", total, watchdog.longest(),
          qPrintable(watchdog.longestDuring()));
    const int patience = stepsOr("ZOEDITOR_PATIENCE", 0); // Milliseconds; 0 for any.
    QVERIFY2(patience == 0 || watchdog.longest() <= patience, "the window was blocked for too long");
}

EDITOR_TEST_MAIN(TestEditorMonkey)
#include "tst_editor_monkey.moc"
