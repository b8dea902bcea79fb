// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "editor.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "appearance.h"
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
            appearance::saveSizes(*m_window); // The new one takes them.
            m_window->hide();
            makeWindow();
            m_window->show();
        },
        Qt::QueuedConnection);
}

void Editor::start(const QStringList& files)
{
    m_window->show();
    const QStringList saved = offerLeft();
    m_session->keepJournal();
    m_session->open(saved + files);
}

QStringList Editor::offerLeft()
{
    const QVector<zokit::Journal::Left> all = m_session->left();
    if (all.isEmpty())
        return {};
    const auto found = std::find_if(all.cbegin(), all.cend(),
                                    [](const zokit::Journal::Left& session) { return !session.files.isEmpty(); });
    // A newer one that could not be written holds nothing.
    const zokit::Journal::Left& left = found == all.cend() ? all.first() : *found;
    QStringList names;
    for (const QString& file : left.files)
        names.append(QFileInfo(file).fileName());
    const auto timeText = [](const QDateTime& time) { return QLocale().toString(time, QLocale::ShortFormat); };
    const QVector<SavedSettings> saved = Session::savedBeside(left);
    QStringList about;
    for (const SavedSettings& settings : saved) {
        const QString sentence = settings.isNewer ? tr("%1 was saved later, %2.") : tr("%1 was saved before that, %2.");
        about.append(sentence.arg(QFileInfo(settings.file).fileName(), timeText(settings.saved)));
    }
    if (left.diedTwice)
        about.append(tr("An editor that opened them has ended twice. It may happen again. They are set aside in %1.")
                         .arg(left.path));
    QMessageBox question(QMessageBox::Question, tr("Recover"),
                         tr("An editor ended before its time, %1. Its settings are there:").arg(timeText(left.changed))
                             + QLatin1Char('\n') + names.join(QLatin1String(", ")),
                         QMessageBox::NoButton, m_window.get());
    question.setObjectName(QStringLiteral("recoverQuestion"));
    question.setInformativeText(about.join(QLatin1Char('\n')));
    QPushButton* recovering = question.addButton(tr("Recover"), QMessageBox::AcceptRole);
    recovering->setObjectName(QStringLiteral("recover"));
    QPushButton* opening = nullptr;
    if (!saved.isEmpty()) {
        opening = question.addButton(tr("Open what was saved"), QMessageBox::ActionRole);
        opening->setObjectName(QStringLiteral("openSaved"));
    }
    QPushButton* discarding = question.addButton(tr("Discard"), QMessageBox::DestructiveRole);
    discarding->setObjectName(QStringLiteral("discard"));
    QPushButton* later =
        question.addButton(left.diedTwice ? tr("Leave them there") : tr("Ask again later"), QMessageBox::RejectRole);
    later->setObjectName(QStringLiteral("later"));
    const bool isSavedLater =
        std::any_of(saved.cbegin(), saved.cend(), [](const SavedSettings& settings) { return settings.isNewer; });
    question.setDefaultButton(left.diedTwice ? later : isSavedLater ? opening : recovering);
    question.exec();
    if (question.clickedButton() == recovering)
        m_session->take(m_session->recover(left.path));
    else if (question.clickedButton() == discarding)
        Session::discard(left.path);
    QStringList opened;
    for (const SavedSettings& settings : saved) {
        if (opening && question.clickedButton() == opening)
            opened.append(settings.file);
    }
    return opened;
}

void Editor::openHandedOver(const QStringList& files)
{
    m_handedOver += files;
    QWidget* asking = QApplication::activeModalWidget();
    QWidget* front = asking ? asking : m_window.get();
    front->raise();
    front->activateWindow();
    openWaiting();
}

void Editor::openWaiting()
{
    if (QApplication::activeModalWidget()) {
        constexpr int soon = 100; // Milliseconds.
        QTimer::singleShot(soon, this, &Editor::openWaiting);
    } else if (m_window->isVisible() && !m_handedOver.isEmpty()) { // Else it was closed: they are for the next one.
        m_session->open(std::exchange(m_handedOver, {}));
    }
}

} // namespace zoeditor
