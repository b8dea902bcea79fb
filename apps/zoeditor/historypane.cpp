// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "historypane.h"

#include <QAbstractListModel>
#include <QPalette>
#include <QTimer>

#include "session.h"

namespace zoeditor {

namespace {

/// The beginning, and the steps. Texts are made for the rows that are looked at: a history may have thousands.
class Steps : public QAbstractListModel {
public:
    Steps(const zokit::History& history, QObject* parent) : QAbstractListModel(parent), m_history(history) {}

    void update()
    {
        const int rows = m_history.count() + 1;
        if (rows < m_rows) {
            beginRemoveRows({}, rows, m_rows - 1);
            m_rows = rows;
            endRemoveRows();
        } else if (rows > m_rows) {
            beginInsertRows({}, m_rows, rows - 1);
            m_rows = rows;
            endInsertRows();
        }
        emit dataChanged(index(0), index(m_rows - 1));
    }

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        const bool isDone = index.row() <= m_history.position();
        if (role == Qt::ForegroundRole)
            return QPalette().color(isDone ? QPalette::Active : QPalette::Disabled, QPalette::Text);
        if (role != Qt::DisplayRole)
            return {};
        const QString text =
            index.row() == 0 ? HistoryPane::tr("Beginning") : m_history.step(index.row() - 1).text.text();
        return isDone ? text : HistoryPane::tr("%1 (undone)").arg(text);
    }

private:
    const zokit::History& m_history;
    int m_rows = 0;
};

} // namespace

HistoryPane::HistoryPane(Session* session, QWidget* parent) : QListView(parent)
{
    setObjectName(QStringLiteral("history"));
    setAccessibleName(tr("History"));
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* steps = new Steps(session->history(), this);
    setModel(steps);
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this, session](const QModelIndex& row) {
        if (!m_isShowing && row.isValid())
            session->goTo(row.row());
    });
    const auto update = [this, session, steps] {
        m_isShowing = true;
        steps->update();
        setCurrentIndex(steps->index(session->history().position()));
        m_isShowing = false;
    };
    auto* soon = new QTimer(this); // A gesture makes many changes; the list is made once for them.
    soon->setSingleShot(true);
    soon->setInterval(0);
    connect(soon, &QTimer::timeout, this, update);
    connect(&session->history(), &zokit::History::changed, soon, QOverload<>::of(&QTimer::start));
    update();
}

} // namespace zoeditor
