// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "editorsupport.h"

#include <algorithm>

#include <QAbstractButton>
#include <QAction>
#include <QStatusBar>
#include <QTimer>

#include <actions.h>

namespace editorsupport {

Stage::Stage(const QStringList& files)
    : editor(std::make_unique<zoeditor::Editor>(folder.filePath(kitsupport::key("journal"))))
{
    editor->start(files);
    waitForFiles();
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
    found->trigger();
    return found->isEnabled();
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

void answer(const char* dialog, const char* button)
{
    auto* looking = new QTimer(qApp);
    QObject::connect(looking, &QTimer::timeout, looking, [=] {
        QWidget* shown = QApplication::activeModalWidget();
        if (!shown || shown->objectName() != QLatin1String(dialog))
            return;
        auto* wanted = shown->findChild<QAbstractButton*>(QString::fromLatin1(button));
        if (!wanted)
            qFatal("The dialog has no such button");
        looking->deleteLater();
        wanted->click();
    });
    looking->start(0);
}

} // namespace editorsupport
