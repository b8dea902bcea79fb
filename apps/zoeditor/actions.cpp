// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "actions.h"

#include <algorithm>

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace zoeditor {

namespace {

struct Row {
    const char* name;
    const char* menu;
    const char* text;
    const char* shortcut;
    const char* group; ///< Of these one is checked; empty for an action that is not checkable, "-" for one by itself.
    bool inToolBar;
};

struct MenuRow {
    const char* name;
    const char* text;
};

#define T(text) QT_TRANSLATE_NOOP("zoeditor::Actions", text)

constexpr MenuRow menus[] = {
    {"file", T("&File")}, {"edit", T("&Edit")}, {"view", T("&View")}, {"time", T("&Time")}, {"help", T("&Help")},
};

// clang-format off
constexpr Row rows[] = {
    // name, menu, text, shortcut, group, inToolBar
    {"addFiles",    "file", T("Add &files..."),           "Ctrl+O",         "", true},
    {"addFolder",   "file", T("Add f&older..."),          "Ctrl+Shift+O",   "", true},
    {"removeFiles", "file", T("&Remove from the list"),   "Ctrl+Backspace", "", false},
    {"save",        "file", T("&Save settings"),          "Ctrl+S",         "", false},
    {"saveAs",      "file", T("Save settings &as..."),    "Ctrl+Shift+S",   "", false},
    {"saveAll",     "file", T("Sa&ve settings of all"),   "Ctrl+Alt+S",     "", false},
    {"quit",        "file", T("&Quit"),                   "Ctrl+Q",         "", false},
    {"undo",        "edit", T("&Undo"),                   "Ctrl+Z",         "", true},
    {"redo",        "edit", T("&Redo"),                   "Ctrl+Shift+Z",   "", true},
    {"showAfter",   "view", T("&After"),                  "Ctrl+1",         "show", false},
    {"showBefore",  "view", T("&Before"),                 "Ctrl+2",         "show", false},
    {"showSplit",   "view", T("Before &and after"),       "Ctrl+3",         "show", false},
    {"zoomIn",      "view", T("&Larger"),                 "Ctrl++",         "", false},
    {"zoomOut",     "view", T("&Smaller"),                "Ctrl+-",         "", false},
    {"zoomFit",     "view", T("As large as it &fits"),    "Ctrl+0",         "", false},
    {"zoomFull",    "view", T("&100 %"),                  "Ctrl+Alt+0",     "", false},
    {"themeSystem", "view", T("Colours of the &system"),  "",               "theme", false},
    {"themeLight",  "view", T("&Light colours"),          "",               "theme", false},
    {"themeDark",   "view", T("&Dark colours"),           "",               "theme", false},
    {"english",     "view", T("&English"),                "",               "language", false},
    {"german",      "view", T("&German (Deutsch)"),       "",               "language", false},
    {"stepBack",    "time", T("One frame &back"),         "Ctrl+Left",      "", false},
    {"play",        "time", T("&Play"),                   "Ctrl+Space",     "-", false},
    {"stepForward", "time", T("One frame &on"),           "Ctrl+Right",     "", false},
    {"listen",      "time", T("&Listen"),                 "Ctrl+L",         "-", false},
    {"listenPlain", "time", T("Listen without &effects"), "Ctrl+Shift+L",   "-", false},
    {"setIn",       "time", T("Convert &from here"),      "Ctrl+[",         "", false},
    {"setOut",      "time", T("Convert &to here"),        "Ctrl+]",         "", false},
    {"wholeClip",   "time", T("Convert the &whole clip"), "",               "", false},
    {"shortcuts",   "help", T("List of &shortcuts"),      "F1",             "", false},
};
// clang-format on

#undef T

QString translated(const char* text)
{
    return QCoreApplication::translate("zoeditor::Actions", text);
}

} // namespace

Actions::Actions(QMainWindow* window) : QObject(window)
{
    QMap<QString, QMenu*> menuOf;
    for (const MenuRow& row : menus) {
        QMenu* menu = window->menuBar()->addMenu(translated(row.text));
        menu->setObjectName(QString::fromLatin1(row.name));
        menuOf.insert(menu->objectName(), menu);
    }
    QToolBar* bar = window->addToolBar(tr("Tool bar"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    QMap<QString, QActionGroup*> groups;
    QString lastGroup;
    for (const Row& row : rows) {
        auto* action = new QAction(translated(row.text), window);
        action->setObjectName(QString::fromLatin1(row.name));
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
}

QAction* Actions::action(const char* name) const
{
    const auto found = std::find_if(m_actions.cbegin(), m_actions.cend(),
                                    [&](const QAction* action) { return action->objectName() == QLatin1String(name); });
    Q_ASSERT(found != m_actions.cend());
    return *found;
}

} // namespace zoeditor
