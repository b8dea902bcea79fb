// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "editorsupport.h"

#include <algorithm>

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>

#include <zokit/properties.h>

#include <actions.h>

#include "childwatch.h"

namespace editorsupport {

using kitsupport::key;

namespace {

int stages = 0; ///< That are there.

/// Until \a holds, which never takes that long.
void wait(const std::function<bool()>& holds)
{
    constexpr int patience = 60000; // Milliseconds.
    if (!QTest::qWaitFor(holds, patience))
        qFatal("What was waited for never came");
}

} // namespace

Stage::Stage(const QStringList& files) : editor(std::make_unique<zoeditor::Editor>(folder.filePath(key("journal"))))
{
    childwatch::begin();
    ++stages;
    editor->start(files);
    waitForFiles();
}

Stage::~Stage()
{
    editor.reset();
    if (--stages > 0)
        return; // Another editor may have children.
    const QStringList findings = childwatch::takeFindings();
    QVERIFY2(findings.isEmpty(), qPrintable(findings.join(key("; "))));
}

zokit::FileSettings* Stage::file(int row) const
{
    return session().project().file(session().files().rows().at(row).file);
}

void Stage::waitForFiles() const
{
    constexpr int patience = 60000; // Milliseconds.
    const bool areRead = QTest::qWaitFor(
        [this] {
            const auto& rows = session().files().rows();
            return std::none_of(rows.cbegin(), rows.cend(), [](const zoeditor::FileRow& row) { return row.isAsked; });
        },
        patience);
    if (!areRead)
        qFatal("The files were not read in time");
}

bool Stage::trigger(const char* action) const
{
    QAction* found = window().actions().action(action);
    const bool isEnabled = found->isEnabled();
    found->trigger();
    return isEnabled;
}

QString Stage::status() const
{
    return window().statusBar()->currentMessage();
}

QString copyOf(const char* clip, const QTemporaryDir& folder, const char* name)
{
    const QString path = folder.filePath(QString::fromLatin1(name));
    QFile::copy(clips::clip(QString::fromLatin1(clip)), path);
    return path;
}

void Stage::visitDialogs(const std::function<void(QWidget&)>& look) const
{
    const std::pair<const char*, const char*> dialogs[] = {{"shortcuts", "shortcutsDialog"},
                                                           {"applyTo", "applyDialog"},
                                                           {"presets", "presetsDialog"},
                                                           {"tracks", "tracksDialog"},
                                                           {"convert", "convertDialog"}};
    for (const auto& [action, name] : dialogs) {
        trigger(action);
        QWidget* dialog = find(name);
        if (!dialog)
            qFatal("There is no %s", name);
        settle();
        look(*dialog);
        dialog->close();
        settle();
    }
}

void settle()
{
    for (int i = 0; i < 3; ++i) // A timer makes widgets, these ask for a layout, and that moves them.
        QCoreApplication::processEvents();
}

Full::Full() : Stage({clips::clip(key("languages.mkv")), clips::clip(key("text.srt")) + key(".gone")})
{
    file(0)->insert(key("Watermark"), {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key("Hello")}});
    file(0)->insert(key("Watermark"),
                    {{key("wm_istextwatermark"), false}, {key("wm_imageurl"), kitsupport::logoPath(20, 10)}});
}

void Full::visitAll(const std::function<void(const QString& what)>& look) const
{
    QVector<QPair<QString, zokit::Identity>> things;
    for (const QString& type : zokit::effectTypes()) {
        things.append({type, file(0)->type(type)});
        const QVector<zokit::Identity> items = file(0)->items(type);
        for (int i = 0; i < std::min(items.size(), decltype(items.size())(2)); ++i)
            things.append({QStringLiteral("%1-%2").arg(type).arg(i), items.at(i)});
    }
    things.append({key("Tracks"), file(0)->tracks()});
    things.append({key("Output"), file(0)->output()});
    for (const auto& [what, thing] : things) {
        session().setThing(thing);
        settle();
        look(what);
    }
}

/// A file that was saved and edited later, of a session that died: all that can be asked is.
void Full::visitRecovery(const std::function<void(QWidget&, const QString&)>& look) const
{
    const Qt::LayoutDirection direction = QGuiApplication::layoutDirection();
    const QString journals = folder.filePath(key("left"));
    const auto isKept = [&journals] {
        QFile journal(QDir(journals).entryInfoList({key("*.journal")}).value(0).filePath());
        return journal.open(QIODevice::ReadOnly) && journal.readAll().contains("written last");
    };
    {
        zoeditor::Editor dying(journals);
        dying.start({copyOf("plain.mp4", folder, "film.mp4")});
        zoeditor::Session& died = dying.session();
        wait([&] { return died.mediaOf(died.current()) != nullptr; });
        died.save(died.current());
        died.current()->insert(key("Watermark"), {{key("wm_textcontent"), key("written last")}});
        wait(isKept);
    } // Without a good end.
    zoeditor::Editor asking(journals);
    QGuiApplication::setLayoutDirection(direction); // An editor sets that of its language.
    answer("recoverQuestion", "later", [&](QWidget& question) { look(question, question.objectName()); });
    asking.start({});
}

/// Where there is nothing yet.
void Full::visitEmpty(const std::function<void(QWidget&, const QString&)>& look) const
{
    const Qt::LayoutDirection direction = QGuiApplication::layoutDirection();
    const Stage silent({clips::clip(key("silent.mkv"))});
    QGuiApplication::setLayoutDirection(direction);
    silent.window().resize(window().size());
    silent.session().setThing(silent.file(0)->type(key("Watermark")));
    settle();
    look(silent.window(), key("empty-Watermark"));
    silent.visitDialogs([&](QWidget& dialog) {
        if (dialog.objectName() == key("presetsDialog") || dialog.objectName() == key("tracksDialog"))
            look(dialog, key("empty-") + dialog.objectName());
    });
    silent.session().remove({0});
    silent.trigger("queue");
    settle();
    look(silent.window(), key("empty"));
}

void Full::visitEverything(const std::function<void(QWidget&, const QString&)>& look) const
{
    const Qt::LayoutDirection direction = QGuiApplication::layoutDirection();
    const auto see = [&look](QWidget& shown, const QString& name) {
        settle();
        look(shown, name);
    };
    visitAll([&](const QString& what) { look(window(), what); });
    window().findChild<QTabWidget*>(key("pages"))->setCurrentIndex(1);
    see(window(), key("history"));

    zokit::Queue& queue = session().queue();
    const auto add = [&](const QString& input, const char* output) {
        zokit::Job job;
        job.settings = file(0)->settings();
        job.input = input;
        job.output = folder.filePath(key(output));
        queue.add(job);
    };
    add(file(0)->media().file, "done.mkv");
    add(folder.filePath(key("gone.mkv")), "gone.mkv");
    queue.start();
    wait([&] { return !queue.isRunning(); });
    queue.pause();
    add(file(0)->media().file, "later.mkv");
    queue.start();
    auto* list = find<QTreeWidget>("queueList");
    list->setCurrentItem(list->topLevelItem(1)); // It failed.
    see(window(), key("queue"));

    visitDialogs([&](QWidget& dialog) {
        const auto press = [&dialog](const char* button) { dialog.findChild<QPushButton*>(key(button))->click(); };
        auto* presets = dialog.findChild<QTabWidget*>(key("presetPages"));
        if (presets) {
            dialog.findChild<QLineEdit*>(key("presetName"))->setText(key("Films"));
            press("savePreset");
        }
        if (const auto* tracks = dialog.findChild<QTreeWidget*>(key("tracks")))
            wait([&] { return !tracks->topLevelItem(0)->text(2).isEmpty(); }); // It is planned by a child.
        see(dialog, dialog.objectName());
        if (presets) {
            answer("removeQuestion", "remove", [&](QWidget& question) { look(question, question.objectName()); });
            press("removePreset");
            presets->setCurrentIndex(1);
            see(dialog, key("defaults"));
        }
        if (dialog.objectName() == key("convertDialog")) {
            press("showCommand");
            press("sample");
            for (const char* done : {"copyCommand", "showSample"})
                wait([&] { return dialog.findChild<QPushButton*>(key(done))->isEnabled(); });
            see(dialog, key("command"));
        }
    });
    for (const auto& [question, button] :
         {std::pair<const char*, const char*>{"closeQuestion", "discard"}, {"convertingQuestion", "goOn"}})
        answer(question, button, [&](QWidget& shown) { look(shown, shown.objectName()); });
    window().close();
    visitRecovery(look);
    visitEmpty(look);

    const QTemporaryDir empty;
    qputenv("ZOEFFECT_FFMPEG", QFile::encodeName(empty.path()));
    const Stage without;
    QGuiApplication::setLayoutDirection(direction);
    without.window().resize(window().size());
    see(without.window(), key("missing"));
    qunsetenv("ZOEFFECT_FFMPEG");
}

void drag(QWidget* widget, const QPoint& from, const QPoint& to)
{
    constexpr int moves = 10;
    const auto send = [widget](QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, widget->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
        QCoreApplication::processEvents();
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    for (int i = 1; i <= moves; ++i)
        send(QEvent::MouseMove, from + (to - from) * i / moves, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
}

void answer(const char* dialog, const char* button, const std::function<void(QWidget&)>& look)
{
    auto* looking = new QTimer(qApp);
    QObject::connect(looking, &QTimer::timeout, looking, [=] {
        QWidget* shown = QApplication::activeModalWidget();
        if (!shown || shown->objectName() != QLatin1String(dialog))
            return;
        auto* wanted = shown->findChild<QAbstractButton*>(QString::fromLatin1(button));
        if (!wanted)
            qFatal("The dialog has no such button");
        looking->stop(); // Whoever looks may let events be done.
        looking->deleteLater();
        if (look) {
            settle();
            look(*shown);
        }
        wanted->click();
    });
    looking->start(0);
}

} // namespace editorsupport
