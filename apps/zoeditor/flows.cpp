// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "flows.h"

#include <QAction>
#include <QDockWidget>
#include <QMessageBox>
#include <QPushButton>

#include <zokit/shownframes.h>

#include "actions.h"
#include "applydialog.h"
#include "buttons.h"
#include "convertdialog.h"
#include "picturepane.h"
#include "presetsdialog.h"
#include "queuepane.h"
#include "session.h"
#include "sleepguard.h"
#include "tracksdialog.h"
#include "window.h"

namespace zoeditor {

Flows::Flows(Session* session, Window* window)
    : QObject(window), m_session(session), m_window(window), m_sleep(new SleepGuard(this))
{
    const auto shows = [this](const char* name, auto make) {
        connect(m_window->actions().action(name), &QAction::triggered, this, [this, make] {
            if (!m_session->current())
                return;
            showOnce(make());
        });
    };
    shows("applyTo", [this] { return new ApplyDialog(m_session, m_window); });
    shows("presets", [this] { return new PresetsDialog(m_session, m_window); });
    shows("tracks", [this] { return new TracksDialog(m_session, m_window); });
    shows("convert", [this]() -> QDialog* {
        auto* dialog = new ConvertDialog(m_session, seconds(), m_window);
        connect(dialog, &QDialog::accepted, m_queue, &QWidget::show);
        return dialog;
    });
    makeQueue();
    connect(session, &Session::currentChanged, this, &Flows::update);
    update();
}

double Flows::seconds() const
{
    const auto* picture = m_window->findChild<PicturePane*>();
    return picture ? picture->frames().seconds() : 0;
}

void Flows::makeQueue()
{
    m_queue = new QDockWidget(tr("Queue"), m_window);
    m_queue->setObjectName(QStringLiteral("queueDock"));
    m_queue->setFeatures(QDockWidget::DockWidgetClosable);
    m_queue->setWidget(new QueuePane(&m_session->queue(), m_queue));
    m_window->addDockWidget(Qt::BottomDockWidgetArea, m_queue);
    m_queue->setVisible(!m_session->queue().rows().isEmpty());
    QAction* action = m_window->actions().action("queue");
    action->setChecked(!m_queue->isHidden());
    connect(action, &QAction::toggled, m_queue, &QWidget::setVisible);
    connect(m_queue, &QDockWidget::visibilityChanged, action,
            [this, action] { action->setChecked(!m_queue->isHidden()); });
    connect(&m_session->queue(), &zokit::Queue::rowsChanged, m_queue, [this, hadRows = false]() mutable {
        const bool hasRows = !m_session->queue().rows().isEmpty();
        if (hasRows && !hadRows)
            m_queue->show();
        hadRows = hasRows;
    });
    const auto guard = [this] { m_sleep->hold(m_session->queue().isRunning()); };
    connect(&m_session->queue(), &zokit::Queue::stateChanged, this, guard);
    connect(&m_session->queue(), &zokit::Queue::finished, this, guard);
    guard(); // Another window was there when it began.
}

void Flows::update()
{
    for (const char* name : {"applyTo", "presets", "tracks", "convert"})
        m_window->actions().action(name)->setEnabled(m_session->current() != nullptr);
}

bool Flows::mayClose()
{
    if (!m_session->queue().isRunning())
        return true;
    QMessageBox question(QMessageBox::Question, tr("Close"),
                         tr("Files are being converted. What is not done is kept as interrupted, and can be tried "
                            "again after the next start."),
                         QMessageBox::NoButton, m_window);
    question.setObjectName(QStringLiteral("convertingQuestion"));
    QPushButton* closing = question.addButton(tr("Stop and close"), QMessageBox::DestructiveRole);
    closing->setObjectName(QStringLiteral("stopAndClose"));
    QPushButton* staying = question.addButton(tr("Go on converting"), QMessageBox::RejectRole);
    staying->setObjectName(QStringLiteral("goOn"));
    question.setDefaultButton(staying);
    question.exec();
    return question.clickedButton() == closing;
}

} // namespace zoeditor
