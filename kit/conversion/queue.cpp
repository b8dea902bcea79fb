// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/queue.h>

#include <algorithm>
#include <vector>

#include <QTimer>

namespace zokit {

namespace {

struct Row {
    int number = 0;
    Job job;
    RowState state = RowState::Waiting;
    ConversionResult result;
    Conversion* conversion = nullptr; // The queue's child while it runs.
};

bool hasEnded(RowState state)
{
    return state != RowState::Waiting && state != RowState::Running && state != RowState::Paused;
}

RowState stateOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Done:
        return RowState::Done;
    case Outcome::Cancelled:
        return RowState::Cancelled;
    case Outcome::Skipped:
        return RowState::Skipped;
    case Outcome::Failed:
        break;
    }
    return RowState::Failed;
}

} // namespace

class Queue::Private {
public:
    Row* find(int number)
    {
        const auto found =
            std::find_if(rows.begin(), rows.end(), [number](const Row& row) { return row.number == number; });
        return found == rows.end() ? nullptr : &*found;
    }
    int count(RowState state) const
    {
        return static_cast<int>(
            std::count_if(rows.cbegin(), rows.cend(), [state](const Row& row) { return row.state == state; }));
    }
    void setState(int number, RowState state)
    {
        Row* row = find(number);
        if (!row || row->state == state)
            return;
        row->state = state;
        Q_EMIT owner->stateChanged(number, state);
    }
    void startNext();
    void begin(int number);
    void ended(int number, const ConversionResult& result);

    Queue* owner = nullptr;
    Tools tools;
    std::vector<Row> rows;
    int lastNumber = 0;
    int jobs = 1;
    bool isStarted = false;
    bool isPaused = false;
    bool stopsAtFailure = false;
};

void Queue::Private::startNext()
{
    while (isStarted && !isPaused && count(RowState::Running) < jobs) {
        const auto next =
            std::find_if(rows.begin(), rows.end(), [](const Row& row) { return row.state == RowState::Waiting; });
        if (next == rows.end())
            break;
        begin(next->number);
    }
    if (isStarted && !owner->isRunning()) {
        isStarted = false;
        Q_EMIT owner->finished();
    }
}

void Queue::Private::begin(int number)
{
    auto* conversion = new Conversion(tools, owner);
    Row* row = find(number);
    row->conversion = conversion;
    connect(conversion, &Conversion::planned, owner, [this, number] { Q_EMIT owner->planned(number); });
    connect(conversion, &Conversion::warned, owner,
            [this, number](const Message& warning) { Q_EMIT owner->warned(number, warning); });
    connect(conversion, &Conversion::progressed, owner, [this, number](double fraction, double left, double speed) {
        Q_EMIT owner->progressed(number, fraction, left, speed);
    });
    connect(conversion, &Conversion::finished, owner,
            [this, number](const ConversionResult& result) { ended(number, result); });
    conversion->start(row->job);
    setState(number, RowState::Running);
}

void Queue::Private::ended(int number, const ConversionResult& result)
{
    Row* row = find(number);
    row->result = result;
    row->conversion->deleteLater();
    row->conversion = nullptr;
    setState(number, stateOf(result.outcome));
    if (result.outcome == Outcome::Failed && stopsAtFailure) {
        for (const int other : owner->rows())
            if (owner->state(other) == RowState::Waiting) {
                find(other)->result.outcome = Outcome::Skipped;
                setState(other, RowState::Skipped);
            }
    }
    startNext();
}

Queue::Queue(const Tools& tools, QObject* parent) : QObject(parent), d(std::make_unique<Private>())
{
    d->owner = this;
    d->tools = tools;
}

Queue::~Queue()
{
    for (Row& row : d->rows) {
        if (row.conversion)
            row.conversion->disconnect(this);
        delete row.conversion;
    }
}

int Queue::add(const Job& job)
{
    Row row;
    row.number = ++d->lastNumber;
    row.job = job;
    d->rows.push_back(row);
    Q_EMIT rowsChanged();
    if (d->isStarted)
        d->startNext();
    return row.number;
}

int Queue::restore(const Job& job, RowState state, const ConversionResult& result)
{
    Row row;
    row.number = ++d->lastNumber;
    row.job = job;
    row.state = state == RowState::Running || state == RowState::Paused ? RowState::Interrupted : state;
    row.result = result;
    d->rows.push_back(row);
    Q_EMIT rowsChanged();
    return row.number;
}

bool Queue::remove(int row)
{
    const auto found =
        std::find_if(d->rows.begin(), d->rows.end(), [row](const Row& one) { return one.number == row; });
    if (found == d->rows.end() || found->conversion)
        return false;
    d->rows.erase(found);
    Q_EMIT rowsChanged();
    return true;
}

bool Queue::move(int row, int to)
{
    const auto found =
        std::find_if(d->rows.begin(), d->rows.end(), [row](const Row& one) { return one.number == row; });
    if (found == d->rows.end() || to < 0 || to >= static_cast<int>(d->rows.size()))
        return false;
    const auto target = d->rows.begin() + to;
    if (found < target)
        std::rotate(found, found + 1, target + 1);
    else
        std::rotate(target, found, found + 1);
    Q_EMIT rowsChanged();
    return true;
}

QVector<int> Queue::rows() const
{
    QVector<int> numbers;
    for (const Row& row : d->rows)
        numbers.append(row.number);
    return numbers;
}

RowState Queue::state(int row) const
{
    const Row* found = d->find(row);
    return found ? found->state : RowState::Cancelled;
}

Job Queue::job(int row) const
{
    const Row* found = d->find(row);
    return found ? found->job : Job();
}

ConversionResult Queue::result(int row) const
{
    const Row* found = d->find(row);
    return found ? found->result : ConversionResult();
}

Conversion* Queue::conversion(int row) const
{
    const Row* found = d->find(row);
    return found ? found->conversion : nullptr;
}

void Queue::setTools(const Tools& tools)
{
    d->tools = tools;
}

void Queue::setJobs(int count)
{
    d->jobs = std::max(count, 1);
    d->startNext();
}

void Queue::setStopsAtFailure(bool stops)
{
    d->stopsAtFailure = stops;
}

void Queue::start()
{
    d->isStarted = true;
    QTimer::singleShot(0, this, [this] { d->startNext(); });
}

void Queue::pause()
{
    d->isPaused = true;
    for (const int number : rows()) {
        if (state(number) != RowState::Running)
            continue;
        conversion(number)->pause();
        d->setState(number, RowState::Paused);
    }
}

void Queue::resume()
{
    d->isPaused = false;
    for (const int number : rows()) {
        if (state(number) != RowState::Paused)
            continue;
        conversion(number)->resume();
        d->setState(number, RowState::Running);
    }
    d->startNext();
}

void Queue::cancel(int row)
{
    Row* found = d->find(row);
    if (!found || hasEnded(found->state))
        return;
    if (found->conversion) {
        found->conversion->cancel();
        return;
    }
    found->result.outcome = Outcome::Cancelled;
    found->result.reason = Message(Message::Code::Cancelled);
    d->setState(row, RowState::Cancelled);
    d->startNext();
}

void Queue::cancelAll()
{
    QVector<int> numbers = rows();
    // Those that wait first, so that none of them begins.
    std::stable_partition(numbers.begin(), numbers.end(),
                          [this](int number) { return state(number) == RowState::Waiting; });
    for (const int number : numbers)
        cancel(number);
}

bool Queue::retry(int row)
{
    Row* found = d->find(row);
    if (!found || !hasEnded(found->state))
        return false;
    found->result = {};
    d->setState(row, RowState::Waiting);
    if (d->isStarted)
        d->startNext();
    return true;
}

bool Queue::isRunning() const
{
    return d->count(RowState::Running) > 0 || d->count(RowState::Paused) > 0
           || (d->isStarted && d->count(RowState::Waiting) > 0);
}

} // namespace zokit
