// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/history.h>

#include <algorithm>

#include <zokit/project.h>

#include "steptext_p.h"
#include "things_p.h"

namespace zokit {

namespace {

constexpr qint64 defaultLimit = qint64(64) * 1024 * 1024;

qint64 bytesOf(const QVariant& value)
{
    constexpr qint64 plain = 32;
    switch (value.userType()) {
    case QMetaType::QString:
        return plain + 2 * value.toString().size();
    case QMetaType::QByteArray:
        return plain + value.toByteArray().size();
    case QMetaType::QVariantList:
        return plain * (1 + value.toList().size());
    default:
        return plain;
    }
}

qint64 bytesOf(const Step& step)
{
    qint64 bytes = sizeof(Step);
    for (const Change& change : step.changes)
        bytes += qint64(sizeof(Change)) + 2 * change.key.size() + bytesOf(change.before) + bytesOf(change.after);
    return bytes;
}

} // namespace

class History::Private {
public:
    Private(History* history, Project& ofProject) : q(history), project(ofProject) {}

    void take(const Changes& changes);
    void push(const Step& step);
    void forgetOldest();
    void moveTo(int count);
    /// Sends changed(), and cleanChanged() when that is so.
    void tell(bool wasClean);

    History* q;
    Project& project;
    QVector<Step> steps;
    QVector<QVector<Identity>> selections{{}}; // One more than steps: before the first, behind each.
    int position = 0;
    int cleanPosition = 0; // -1: not to be had any more.
    qint64 bytes = 0;
    qint64 limit = defaultLimit;
    int gestures = 0;
    Step gesture;
    bool replaying = false;
};

void History::Private::take(const Changes& changes)
{
    if (replaying)
        return;
    if (gestures > 0)
        gesture.changes += changes;
    else
        push({describe(project, changes), merged(changes)});
}

void History::Private::push(const Step& step)
{
    if (step.changes.isEmpty())
        return;
    const bool wasClean = q->isClean();
    while (steps.size() > position) {
        bytes -= bytesOf(steps.takeLast());
        selections.removeLast();
    }
    if (cleanPosition > position)
        cleanPosition = -1;
    steps.append(step);
    selections.append(selections.last());
    bytes += bytesOf(step);
    ++position;
    emit q->stepAdded(step);
    forgetOldest();
    tell(wasClean);
}

void History::Private::forgetOldest()
{
    while (bytes > limit && position > 1) {
        bytes -= bytesOf(steps.takeFirst());
        selections.removeFirst();
        --position;
        cleanPosition = std::max(cleanPosition - 1, -1);
    }
}

void History::Private::moveTo(int count)
{
    if (gestures > 0)
        return; // A step that is not whole can be neither undone nor passed.
    const int wanted = std::clamp(count, 0, static_cast<int>(steps.size()));
    if (wanted == position)
        return;
    const bool wasClean = q->isClean();
    replaying = true;
    while (position > wanted)
        project.apply(reversed(steps.at(--position).changes), q);
    while (position < wanted)
        project.apply(steps.at(position++).changes, q);
    replaying = false;
    emit q->positionChanged(position);
    emit q->selectionChanged(selections.at(position));
    tell(wasClean);
}

void History::Private::tell(bool wasClean)
{
    emit q->changed();
    if (q->isClean() != wasClean)
        emit q->cleanChanged(q->isClean());
}

History::History(Project& project) : d(std::make_unique<Private>(this, project))
{
    connect(&project, &Project::changed, this, [this](const Changes& changes) { d->take(changes); });
}

History::~History() = default;

bool History::canUndo() const
{
    return d->position > 0 && d->gestures == 0;
}

bool History::canRedo() const
{
    return d->position < d->steps.size() && d->gestures == 0;
}

void History::undo()
{
    d->moveTo(d->position - 1);
}

void History::redo()
{
    d->moveTo(d->position + 1);
}

void History::goTo(int count)
{
    d->moveTo(count);
}

int History::count() const
{
    return static_cast<int>(d->steps.size());
}

int History::position() const
{
    return d->position;
}

Step History::step(int index) const
{
    return d->steps.value(index);
}

Message History::undoText() const
{
    return canUndo() ? d->steps.at(d->position - 1).text : Message();
}

Message History::redoText() const
{
    return canRedo() ? d->steps.at(d->position).text : Message();
}

void History::beginGesture(const Message& text)
{
    if (d->gestures++ == 0)
        d->gesture = {text, {}};
}

void History::endGesture()
{
    if (d->gestures == 0 || --d->gestures > 0)
        return;
    d->gesture.changes = merged(d->gesture.changes);
    if (d->gesture.text.isEmpty())
        d->gesture.text = describe(d->project, d->gesture.changes);
    d->push(d->gesture);
    d->gesture = Step();
}

void History::cancelGesture()
{
    if (d->gestures == 0)
        return;
    const Changes done = merged(d->gesture.changes);
    d->gestures = 0;
    d->gesture = Step();
    if (done.isEmpty())
        return;
    d->replaying = true;
    d->project.apply(reversed(done), this);
    d->replaying = false;
}

bool History::isClean() const
{
    return d->position == d->cleanPosition && d->gesture.changes.isEmpty();
}

void History::setClean()
{
    const bool wasClean = isClean();
    d->cleanPosition = d->position;
    if (!wasClean && isClean())
        emit cleanChanged(true);
}

void History::setSelection(const QVector<Identity>& things)
{
    if (d->selections.at(d->position) == things)
        return;
    d->selections[d->position] = things;
    emit selectionChanged(things);
}

QVector<Identity> History::selection() const
{
    return d->selections.at(d->position);
}

void History::setLimit(qint64 bytes)
{
    d->limit = bytes;
    d->forgetOldest();
    emit changed();
}

void History::restore(const QVector<Step>& steps, int position)
{
    const bool wasClean = isClean();
    d->steps = steps;
    d->position = std::clamp(position, 0, static_cast<int>(steps.size()));
    d->selections = QVector<QVector<Identity>>(steps.size() + 1);
    d->cleanPosition = -1;
    d->bytes = 0;
    for (const Step& step : steps)
        d->bytes += bytesOf(step);
    d->tell(wasClean);
}

} // namespace zokit
