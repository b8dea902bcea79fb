// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "editor.h"

#include <QApplication>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

#include "appearance.h"
#include "instance.h"
#include "session.h"
#include "window.h"

namespace zoeditor {

Editor::Editor(const QString& journalFolder) : m_session(std::make_unique<Session>(journalFolder))
{
    appearance::restore();
    makeWindow();
}

Editor::~Editor() = default;

void Editor::makeWindow()
{
    m_window = std::make_unique<Window>(m_session.get());
    // The old window is still in its own menu when it asks.
    connect(
        m_window.get(), &Window::languageChosen, this,
        [this] {
            m_window->hide();
            makeWindow();
            m_window->show();
        },
        Qt::QueuedConnection);
}

void Editor::start(const QStringList& files)
{
    m_window->show();
    offerLeft();
    m_session->keepJournal();
    m_session->open(files);
}

void Editor::offerLeft()
{
    const QVector<zokit::Journal::Left> all = m_session->left();
    if (all.isEmpty())
        return;
    const zokit::Journal::Left& left = all.first();
    QStringList names;
    for (const QString& file : left.files)
        names.append(QFileInfo(file).fileName());
    const QString when = QLocale().toString(left.changed, QLocale::ShortFormat);
    QMessageBox question(QMessageBox::Question, tr("Recover"),
                         tr("An editor ended before its time, %1. Its settings are there:").arg(when)
                             + QLatin1Char('\n') + names.join(QLatin1String(", ")),
                         QMessageBox::NoButton, m_window.get());
    question.setObjectName(QStringLiteral("recoverQuestion"));
    if (left.diedTwice)
        question.setInformativeText(tr("An editor that opened them has ended twice. It may happen again."));
    QPushButton* recovering = question.addButton(tr("Recover"), QMessageBox::AcceptRole);
    recovering->setObjectName(QStringLiteral("recover"));
    QPushButton* discarding = question.addButton(tr("Discard"), QMessageBox::DestructiveRole);
    discarding->setObjectName(QStringLiteral("discard"));
    QPushButton* later = question.addButton(tr("Ask again later"), QMessageBox::RejectRole);
    later->setObjectName(QStringLiteral("later"));
    question.setDefaultButton(left.diedTwice ? later : recovering);
    question.exec();
    if (question.clickedButton() == recovering)
        m_session->take(m_session->recover(left.path));
    else if (question.clickedButton() == discarding)
        zokit::Journal::discard(left.path);
}

int run(const QStringList& arguments)
{
    Instance instance;
    if (instance.handOver(arguments.mid(1)))
        return 0;
    Editor editor;
    QObject::connect(&instance, &Instance::filesHandedOver, &editor, [&editor](const QStringList& files) {
        editor.session().open(files);
        editor.window().raise();
        editor.window().activateWindow();
    });
    editor.start(arguments.mid(1));
    return QApplication::exec();
}

} // namespace zoeditor
