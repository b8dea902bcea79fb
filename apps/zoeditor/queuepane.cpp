// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "queuepane.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <zokit/shell.h>

#include "hint.h"
#include "jobs.h"
#include "names.h"
#include "outside.h"

namespace zoeditor {

using zokit::RowState;

namespace {

enum Column { FileColumn, ResultColumn, StateColumn, ProgressColumn, LeftColumn };
enum Button { Start, Pause, Cancel, Retry, Up, Down, Remove, RemoveDone, OpenFolder };

QString timeText(double seconds)
{
    constexpr int minute = 60;
    const int whole = qRound(seconds);
    return whole < minute ? QueuePane::tr("%1 s").arg(whole)
                          : QueuePane::tr("%1 min").arg((whole + minute - 1) / minute);
}

} // namespace

QueuePane::QueuePane(zokit::Queue* queue, QWidget* parent)
    : QWidget(parent)
    , m_queue(queue)
    , m_list(new QTreeWidget(this))
    , m_log(new QPlainTextEdit(this))
    , m_summary(new QLabel(this))
{
    setObjectName(QStringLiteral("queue"));
    m_list->setObjectName(QStringLiteral("queueList"));
    m_list->setAccessibleName(tr("Queue"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setHeaderLabels({tr("File"), tr("Result"), tr("State"), tr("Progress"), tr("Time left")});
    m_list->header()->setSectionResizeMode(QHeaderView::Stretch);
    for (const int column : {ProgressColumn, LeftColumn})
        m_list->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    m_list->header()->setStretchLastSection(false);
    showHint(m_list, [] { return tr("Nothing is to be converted yet. Choose Convert above."); });
    m_log->setObjectName(QStringLiteral("queueLog"));
    m_log->setAccessibleName(tr("Log of the chosen file"));
    m_log->setPlaceholderText(m_log->accessibleName());
    m_log->setReadOnly(true);
    m_log->setTabChangesFocus(true);
    m_summary->setObjectName(QStringLiteral("queueSummary"));

    auto* columns = new QHBoxLayout;
    columns->addWidget(m_list, 3);
    columns->addWidget(m_log, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    makeButtons();

    connect(queue, &zokit::Queue::rowsChanged, this, [this] {
        if (!m_isRemoving)
            makeRows();
    });
    connect(queue, &zokit::Queue::stateChanged, this, &QueuePane::showState);
    connect(queue, &zokit::Queue::progressed, this, &QueuePane::showProgress);
    connect(queue, &zokit::Queue::warned, this,
            [this](int row, const zokit::Message& warning) { note(row, sentenceOf(warning)); });
    connect(queue, &zokit::Queue::planned, this, [this](int row) {
        zokit::Conversion* conversion = m_queue->conversion(row);
        for (const zokit::TrackPlan& track : conversion->plan().tracks)
            note(row, track.line().text());
        connect(conversion, &zokit::Conversion::finished, this, [this, row, conversion] {
            for (const zokit::Command& command : conversion->commands())
                note(row, zokit::shellLine(command));
        });
    });
    connect(m_list, &QTreeWidget::currentItemChanged, this, &QueuePane::showLog);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &QueuePane::updateButtons);
    auto* removing = new QShortcut(QKeySequence(QKeySequence::Delete), m_list);
    removing->setContext(Qt::WidgetShortcut);
    connect(removing, &QShortcut::activated, m_buttons.at(Remove), &QPushButton::click);
    makeRows();
}

void QueuePane::makeButtons()
{
    struct Row {
        const char* name;
        QString text;
    };
    const Row rows[] = {
        {"startQueue", tr("&Start")},   {"pauseQueue", tr("&Pause")},           {"cancelRow", tr("&Cancel")},
        {"retryRow", tr("&Try again")}, {"rowUp", QStringLiteral("\u2191")},    {"rowDown", QStringLiteral("\u2193")},
        {"removeRow", tr("&Remove")},   {"removeDone", tr("Remove all d&one")}, {"openFolder", tr("&Open folder")},
    };
    auto* line = new QHBoxLayout;
    for (const Row& row : rows) {
        auto* button = new QPushButton(row.text, this);
        button->setObjectName(QString::fromLatin1(row.name));
        line->addWidget(button);
        m_buttons.append(button);
    }
    line->addStretch();
    line->addWidget(m_summary);
    static_cast<QVBoxLayout*>(layout())->addLayout(line);
    m_buttons.at(Up)->setAccessibleName(tr("Convert earlier"));
    m_buttons.at(Down)->setAccessibleName(tr("Convert later"));
    for (QPushButton* arrow : {m_buttons.at(Up), m_buttons.at(Down)}) {
        arrow->setToolTip(arrow->accessibleName());
        arrow->setMaximumWidth(arrow->sizeHint().height());
    }
    m_buttons.at(Pause)->setCheckable(true);
    connect(m_buttons.at(Start), &QPushButton::clicked, m_queue, [this] {
        m_queue->start();
        updateButtons();
    });
    connect(m_buttons.at(Pause), &QPushButton::toggled, m_queue, [this](bool isPaused) {
        isPaused ? m_queue->pause() : m_queue->resume();
        m_buttons.at(Pause)->setText(isPaused ? tr("&Go on") : tr("&Pause"));
    });
    connect(m_buttons.at(Cancel), &QPushButton::clicked, m_queue, [this] {
        for (const int row : selected())
            m_queue->cancel(row);
    });
    connect(m_buttons.at(Retry), &QPushButton::clicked, m_queue, [this] {
        for (const int row : selected())
            m_queue->retry(row);
        m_queue->start();
    });
    connect(m_buttons.at(Up), &QPushButton::clicked, m_queue, [this] { m_queue->move(chosen(), place() - 1); });
    connect(m_buttons.at(Down), &QPushButton::clicked, m_queue, [this] { m_queue->move(chosen(), place() + 1); });
    connect(m_buttons.at(Remove), &QPushButton::clicked, m_queue, [this] { remove(selected()); });
    connect(m_buttons.at(RemoveDone), &QPushButton::clicked, m_queue, [this] {
        QVector<int> done;
        for (const int row : m_queue->rows()) {
            if (m_queue->state(row) == RowState::Done)
                done.append(row);
        }
        remove(done);
    });
    connect(m_buttons.at(OpenFolder), &QPushButton::clicked, m_queue, [this] {
        const QString folder = QFileInfo(m_queue->job(chosen()).output).absolutePath();
        if (const QString trouble = openOutside(folder); !trouble.isEmpty())
            note(chosen(), trouble);
    });
}

QTreeWidgetItem* QueuePane::item(int row) const
{
    return m_list->topLevelItem(static_cast<int>(m_queue->rows().indexOf(row)));
}

/// The row that is chosen; 0 for none.
int QueuePane::chosen() const
{
    return m_queue->rows().value(m_list->indexOfTopLevelItem(m_list->currentItem()));
}

/// Where the chosen row stands; -1 for none.
int QueuePane::place() const
{
    return m_list->indexOfTopLevelItem(m_list->currentItem());
}

/// The rows that are selected, in their order.
QVector<int> QueuePane::selected() const
{
    QVector<int> rows;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        if (m_list->topLevelItem(i)->isSelected())
            rows.append(m_list->topLevelItem(i)->data(FileColumn, Qt::UserRole).toInt());
    }
    return rows;
}

/// Those that run stay.
void QueuePane::remove(const QVector<int>& rows)
{
    m_isRemoving = true;
    for (const int row : rows)
        m_queue->remove(row);
    m_isRemoving = false;
    makeRows();
}

void QueuePane::makeRows()
{
    const QVector<int> marked = selected();
    const int count = m_list->topLevelItemCount();
    const int before = m_list->currentItem() ? m_list->currentItem()->data(FileColumn, Qt::UserRole).toInt() : 0;
    const QVector<int> rows = m_queue->rows();
    while (m_list->topLevelItemCount() > rows.size())
        delete m_list->takeTopLevelItem(m_list->topLevelItemCount() - 1);
    for (int i = 0; i < rows.size(); ++i) {
        if (i == m_list->topLevelItemCount())
            m_list->addTopLevelItem(new QTreeWidgetItem);
        QTreeWidgetItem* line = m_list->topLevelItem(i);
        if (line->data(FileColumn, Qt::UserRole).toInt() == rows.at(i))
            continue;
        const zokit::Job job = m_queue->job(rows.at(i));
        line->setData(FileColumn, Qt::UserRole, rows.at(i));
        line->setText(FileColumn, shownName(job.input));
        line->setText(ResultColumn, shownName(job.output));
        line->setToolTip(FileColumn, job.input);
        line->setToolTip(ResultColumn, job.output);
        line->setText(ProgressColumn, QString());
        line->setText(LeftColumn, QString());
        showState(rows.at(i));
    }
    const int place = static_cast<int>(rows.indexOf(before));
    m_list->setCurrentItem(m_list->topLevelItem(place >= 0 ? place : 0));
    for (int i = 0; i < rows.size() && marked.size() > 1; ++i)
        m_list->topLevelItem(i)->setSelected(marked.contains(rows.at(i)) || i == place);
    if (rows.size() > count && count > 0)
        m_list->scrollToItem(m_list->topLevelItem(static_cast<int>(rows.size()) - 1)); // It came last.
    updateButtons();
}

void QueuePane::showState(int row)
{
    QTreeWidgetItem* line = item(row);
    if (!line)
        return;
    const RowState state = m_queue->state(row);
    line->setText(StateColumn, workText(*m_queue, row));
    line->setToolTip(StateColumn, line->text(StateColumn));
    if (state == RowState::Done)
        line->setText(ProgressColumn, tr("%1 %").arg(100));
    if (state != RowState::Running && state != RowState::Paused)
        line->setText(LeftColumn, QString());
    if (state != RowState::Waiting)
        note(row, line->text(StateColumn));
    updateButtons();
}

void QueuePane::showProgress(int row, double fraction, double secondsLeft)
{
    QTreeWidgetItem* line = item(row);
    if (!line)
        return;
    line->setText(ProgressColumn, tr("%1 %").arg(static_cast<int>(fraction * 100)));
    line->setText(LeftColumn, secondsLeft > 0 ? timeText(secondsLeft) : QString());
}

void QueuePane::note(int row, const QString& line)
{
    m_logs[row].append(line);
    if (row == chosen())
        showLog();
}

void QueuePane::showLog()
{
    m_log->setPlainText(m_logs.value(chosen()).join(QLatin1Char('\n')));
    updateButtons();
}

void QueuePane::updateButtons()
{
    const int row = chosen();
    const bool isThere = row != 0;
    bool canCancel = false;
    bool canRetry = false;
    bool canRemove = false;
    for (const int each : selected()) {
        const RowState state = m_queue->state(each);
        const bool runs = state == RowState::Running || state == RowState::Paused;
        const bool hasEnded = !runs && state != RowState::Waiting;
        canCancel = canCancel || !hasEnded;
        canRetry = canRetry || (hasEnded && state != RowState::Done);
        canRemove = canRemove || !runs;
    }
    int waiting = 0;
    int done = 0;
    for (const int other : m_queue->rows()) {
        waiting += m_queue->state(other) == RowState::Waiting ? 1 : 0;
        done += m_queue->state(other) == RowState::Done ? 1 : 0;
    }
    m_buttons.at(Start)->setEnabled(waiting > 0 && !m_queue->isRunning());
    m_buttons.at(Pause)->setEnabled(m_queue->isRunning() || m_buttons.at(Pause)->isChecked());
    m_buttons.at(Cancel)->setEnabled(canCancel);
    m_buttons.at(Retry)->setEnabled(canRetry);
    m_buttons.at(Up)->setEnabled(isThere && place() > 0);
    m_buttons.at(Down)->setEnabled(isThere && place() + 1 < m_list->topLevelItemCount());
    m_buttons.at(Remove)->setEnabled(canRemove);
    m_buttons.at(RemoveDone)->setEnabled(done > 0);
    m_buttons.at(OpenFolder)->setEnabled(isThere);
    m_summary->setText(tr("%1 of %2 done").arg(done).arg(m_queue->rows().size()));
}

} // namespace zoeditor
