// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "historypane.h"

#include <QSignalBlocker>
#include <QTimer>

#include "session.h"

namespace zoeditor {

HistoryPane::HistoryPane(Session* session, QWidget* parent) : QListWidget(parent), m_session(session)
{
    setObjectName(QStringLiteral("history"));
    setAccessibleName(tr("History"));
    setUniformItemSizes(true);
    auto* soon = new QTimer(this); // A gesture makes many changes; the list is made once for them.
    soon->setSingleShot(true);
    soon->setInterval(0);
    connect(soon, &QTimer::timeout, this, &HistoryPane::update);
    connect(&session->history(), &zokit::History::changed, soon, QOverload<>::of(&QTimer::start));
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            m_session->goTo(row);
    });
    update();
}

void HistoryPane::update()
{
    const QSignalBlocker blocker(this);
    const zokit::History& history = m_session->history();
    while (count() > history.count() + 1)
        delete takeItem(count() - 1);
    while (count() < history.count() + 1)
        addItem(QString());
    for (int i = 0; i < count(); ++i) {
        QListWidgetItem* row = item(i);
        const bool isDone = i <= history.position();
        const QString text = i == 0 ? tr("Beginning") : history.step(i - 1).text.text();
        row->setText(isDone ? text : tr("%1 (undone)").arg(text));
        row->setForeground(palette().color(isDone ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    }
    setCurrentRow(history.position());
}

} // namespace zoeditor
