// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "actions.h"

#include <algorithm>

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include "buttons.h"

namespace zoeditor {

namespace {

struct Row {
    const char* name;
    const char* menu;
    QString text;
    const char* shortcut;
    const char* group; ///< Of these one is checked; empty for an action that is not checkable, "-" for one by itself.
    bool inToolBar;
};

struct MenuRow {
    const char* name;
    QString text;
};

QVector<MenuRow> menuRows()
{
    return {
        {"file", Actions::tr("&File")}, {"edit", Actions::tr("&Edit")}, {"view", Actions::tr("&View")},
        {"time", Actions::tr("&Time")}, {"help", Actions::tr("&Help")},
    };
}

// clang-format off
QVector<Row> actionRows()
{
    return {
    // name, menu, text, shortcut, group, inToolBar
    {"addFiles",    "file", Actions::tr("Add &files..."),           "Ctrl+O",         "", true},
    {"addFolder",   "file", Actions::tr("Add f&older..."),          "Ctrl+Shift+O",   "", true},
    {"removeFiles", "file", Actions::tr("&Remove from the list"),   "Ctrl+Backspace", "", false},
    {"save",        "file", Actions::tr("&Save settings"),          "Ctrl+S",         "", false},
    {"saveAs",      "file", Actions::tr("Save settings &as..."),    "Ctrl+Shift+S",   "", false},
    {"saveAll",     "file", Actions::tr("Sa&ve settings of all"),   "Ctrl+Alt+S",     "", false},
    {"convert",     "file", Actions::tr("&Convert..."),             "Ctrl+Return",    "", true},
    {"quit",        "file", Actions::tr("&Quit"),                   "Ctrl+Q",         "", false},
    {"undo",        "edit", Actions::tr("&Undo"),                   "Ctrl+Z",         "", true},
    {"redo",        "edit", Actions::tr("&Redo"),                   "Ctrl+Shift+Z",   "", true},
    {"addText",     "edit", Actions::tr("Add &text"),               "Ctrl+T",         "", false},
    {"addImage",    "edit", Actions::tr("Add &image..."),           "Ctrl+I",         "", false},
    {"addSubtitle", "edit", Actions::tr("Add su&btitle file..."),   "",               "", false},
    {"addSound",    "edit", Actions::tr("Add s&ound file..."),      "",               "", false},
    {"removeItem",  "edit", Actions::tr("Re&move"),                 "Ctrl+Delete",    "", false},
    {"itemUp",      "edit", Actions::tr("Move u&p"),                "Ctrl+Alt+Up",    "", false},
    {"itemDown",    "edit", Actions::tr("Move do&wn"),              "Ctrl+Alt+Down",  "", false},
    {"resetThing",  "edit", Actions::tr("Reset what is c&hosen"),   "Ctrl+R",         "", false},
    {"resetFile",   "edit", Actions::tr("Reset all of the fi&le"),  "Ctrl+Shift+R",   "", false},
    {"findValue",   "edit", Actions::tr("&Find a value"),           "Ctrl+F",         "", false},
    {"applyTo",     "edit", Actions::tr("App&ly to..."),            "Ctrl+Shift+A",   "", true},
    {"tracks",      "edit", Actions::tr("Trac&ks..."),              "Ctrl+K",         "", false},
    {"presets",     "edit", Actions::tr("Pr&esets..."),             "Ctrl+P",         "", true},
    {"queue",       "view", Actions::tr("&Queue"),                  "Ctrl+Shift+C",   "-", true},
    {"showAfter",   "view", Actions::tr("&After"),                  "Ctrl+1",         "show", false},
    {"showBefore",  "view", Actions::tr("&Before"),                 "Ctrl+2",         "show", false},
    {"showSplit",   "view", Actions::tr("Before &and after"),       "Ctrl+3",         "show", false},
    {"zoomIn",      "view", Actions::tr("&Larger"),                 "Ctrl++",         "", false},
    {"zoomOut",     "view", Actions::tr("&Smaller"),                "Ctrl+-",         "", false},
    {"zoomFit",     "view", Actions::tr("As large as it &fits"),    "Ctrl+0",         "", false},
    {"zoomFull",    "view", Actions::tr("&100 %"),                  "Ctrl+Alt+0",     "", false},
    {"themeSystem", "view", Actions::tr("Colours of the &system"),  "",               "theme", false},
    {"themeLight",  "view", Actions::tr("&Light colours"),          "",               "theme", false},
    {"themeDark",   "view", Actions::tr("&Dark colours"),           "",               "theme", false},
    {"english",     "view", Actions::tr("&English"),                "",               "language", false},
    {"german",      "view", Actions::tr("&German (Deutsch)"),       "",               "language", false},
    {"stepBack",    "time", Actions::tr("One frame &back"),         "Ctrl+Left",      "", false},
    {"play",        "time", Actions::tr("&Play"),                   "Ctrl+Space",     "-", false},
    {"stepForward", "time", Actions::tr("One frame &on"),           "Ctrl+Right",     "", false},
    {"listen",      "time", Actions::tr("&Listen"),                 "Ctrl+L",         "-", false},
    {"listenPlain", "time", Actions::tr("Listen without &effects"), "Ctrl+Shift+L",   "-", false},
    {"setIn",       "time", Actions::tr("Convert &from here"),      "Ctrl+[",         "", false},
    {"setOut",      "time", Actions::tr("Convert &to here"),        "Ctrl+]",         "", false},
    {"wholeClip",   "time", Actions::tr("Convert the &whole clip"), "",               "", false},
    {"shortcuts",   "help", Actions::tr("List of &shortcuts"),      "F1",             "", false},
    };
}
// clang-format on

} // namespace

Actions::Actions(QMainWindow* window) : QObject(window)
{
    QMap<QString, QMenu*> menuOf;
    for (const MenuRow& row : menuRows()) {
        QMenu* menu = window->menuBar()->addMenu(row.text);
        menu->setObjectName(QString::fromLatin1(row.name));
        menuOf.insert(menu->objectName(), menu);
    }
    QToolBar* bar = window->addToolBar(tr("Tool bar"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    QMap<QString, QActionGroup*> groups;
    QString lastGroup;
    for (const Row& row : actionRows()) {
        auto* action = new QAction(row.text, window);
        action->setObjectName(QString::fromLatin1(row.name));
        action->setData(QString(row.text).remove(QLatin1Char('&'))); // Its text may come to say more.
        action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
        const QString group = QString::fromLatin1(row.group);
        action->setCheckable(!group.isEmpty());
        if (group.size() > 1) {
            if (!groups.contains(group))
                groups.insert(group, new QActionGroup(window));
            groups.value(group)->addAction(action);
        }
        QMenu* menu = menuOf.value(QString::fromLatin1(row.menu));
        if (group != lastGroup && !menu->isEmpty())
            menu->addSeparator();
        lastGroup = group;
        menu->addAction(action);
        if (row.inToolBar)
            bar->addAction(action);
        m_actions.append(action);
    }
    for (auto* button : bar->findChildren<QToolButton*>())
        letSwitch(button);
    action("addFiles")->setIconText(tr("Add files", "tool bar"));
    action("addFolder")->setIconText(tr("Add folder", "tool bar"));
}

QAction* Actions::action(const char* name) const
{
    const auto found = std::find_if(m_actions.cbegin(), m_actions.cend(),
                                    [&](const QAction* action) { return action->objectName() == QLatin1String(name); });
    Q_ASSERT(found != m_actions.cend());
    return *found;
}

} // namespace zoeditor
