// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/history.h>

#include <algorithm>

#include <QDataStream>
#include <QFont>
#include <QHash>
#include <QIODevice>
#include <QImage>
#include <QPair>

#include <zokit/project.h>

#include "steptext_p.h"
#include "things_p.h"

namespace zokit {

namespace {

constexpr qint64 defaultLimit = qint64(64) * 1024 * 1024;

/// About what a value of any kind takes; 0 for one that cannot be streamed.
qint64 streamedSize(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const bool isWhole = QMetaType::save(stream, value.userType(), value.constData());
#else
    const bool isWhole = value.metaType().save(stream, value.constData());
#endif
    return isWhole ? bytes.size() : 0;
}

qint64 bytesOf(const QVariant& value) // NOLINT(misc-no-recursion): values nest
{
    constexpr qint64 plain = 32;
    switch (value.userType()) {
    case QMetaType::QString:
        return plain + qint64(2) * value.toString().size();
    case QMetaType::QByteArray:
        return plain + value.toByteArray().size();
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        qint64 bytes = plain;
        for (const QVariant& element : value.toList())
            bytes += bytesOf(element);
        return bytes;
    }
    case QMetaType::QVariantMap: {
        qint64 bytes = plain;
        const QVariantMap map = value.toMap();
        for (auto it = map.cbegin(); it != map.cend(); ++it)
            bytes += plain + qint64(2) * it.key().size() + bytesOf(it.value());
        return bytes;
    }
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QColor:
        return plain;
    case QMetaType::QImage: // Its stream is a PNG file, which takes long.
        return plain + value.value<QImage>().sizeInBytes();
    case QMetaType::QFont: // One without families cannot be streamed by Qt 6.
        return plain + qint64(2) * value.value<QFont>().toString().size();
    default:
        return plain + streamedSize(value);
    }
}

qint64 bytesOf(const Step& step)
{
    qint64 bytes = sizeof(Step);
    for (const Change& change : step.changes)
        bytes +=
            qint64(sizeof(Change)) + qint64(2) * change.key.size() + bytesOf(change.before) + bytesOf(change.after);
    return bytes;
}

} // namespace

class History::Private {
public:
    Private(History* history, Project& ofProject) : q(history), project(ofProject) {}

    void take(const Changes& changes);
    void push(const Step& step, bool wasClean);
    void insert(const Step& step, int place, bool wasClean);
    void forgetOldest();
    void forgetRedo();
    void moveTo(int count);
    /// Sends changed(), and cleanChanged() when that is so.
    void tell(bool wasClean);
    void tellClean(bool wasClean);

    History* q;
    Project& project;
    QVector<Step> steps;
    QVector<QVector<Identity>> selections{{}}; // One more than steps: before the first, behind each.
    int position = 0;
    int cleanPosition = 0; // -1: not to be had any more.
    int starts = 0;        // As restored.
    qint64 bytes = 0;
    qint64 limit = defaultLimit;
    int gestures = 0;
    Step gesture;                                       // Each value that was changed so far, once.
    QHash<QPair<Identity, QString>, int> gestureValues; // Where they stand in there.
    bool replaying = false;
    bool isBelow = false;  // What comes now stands where files are expected.
    int expectedPlace = 0; // There.
};

void History::Private::take(const Changes& changes)
{
    if (replaying || changes.isEmpty())
        return;
    const bool wasClean = q->isClean();
    const int place = std::min(expectedPlace, position);
    if (gestures == 0 && isBelow && place < steps.size()) {
        insert({describe(project, changes), merged(changes)}, place, wasClean);
        return;
    }
    if (gestures == 0) {
        push({describe(project, changes), merged(changes)}, wasClean);
        return;
    }
    for (const Change& change : changes) {
        const QPair<Identity, QString> value(change.thing, change.key);
        const auto known = gestureValues.constFind(value);
        if (known != gestureValues.constEnd()) {
            gesture.changes[*known].after = change.after;
        } else {
            gestureValues.insert(value, static_cast<int>(gesture.changes.size()));
            gesture.changes.append(change);
        }
    }
    emit q->gestureChanged({gesture.text, changes});
    tellClean(wasClean);
}

void History::Private::push(const Step& step, bool wasClean)
{
    if (step.changes.isEmpty())
        return;
    while (steps.size() > position) {
        bytes -= bytesOf(steps.takeLast());
        selections.removeLast();
    }
    if (cleanPosition > position)
        cleanPosition = -1;
    expectedPlace = std::min(expectedPlace, position);
    steps.append(step);
    selections.append(selections.last());
    bytes += bytesOf(step);
    ++position;
    if (isBelow)
        expectedPlace = position;
    emit q->stepAdded(step);
    forgetOldest();
    tell(wasClean);
}

/// The changes of a file that comes touch nothing of other steps: they can be undone and redone as before.
void History::Private::insert(const Step& step, int place, bool wasClean)
{
    if (cleanPosition > place)
        cleanPosition = -1;
    steps.insert(place, step);
    selections.insert(place + 1, selections.at(place));
    bytes += bytesOf(step);
    ++position;
    expectedPlace = place + 1;
    emit q->stepInserted(step, place);
    forgetOldest();
    tell(wasClean);
}

void History::Private::forgetOldest()
{
    int count = 0;
    while (bytes > limit && position - count > 1)
        bytes -= bytesOf(steps.at(count++));
    if (count == 0)
        return;
    steps.remove(0, count);
    selections.remove(0, count);
    position -= count;
    expectedPlace = std::max(expectedPlace - count, 0);
    cleanPosition = std::max(cleanPosition - count, -1);
    emit q->stepsForgotten(count);
}

/// Frees what forgetOldest() cannot: steps that were undone, the last ones first. One step is always kept.
void History::Private::forgetRedo()
{
    int count = 0;
    for (; bytes > limit && steps.size() > std::max(position, 1); ++count) {
        bytes -= bytesOf(steps.takeLast());
        selections.removeLast();
    }
    if (count == 0)
        return;
    if (cleanPosition > steps.size())
        cleanPosition = -1;
    emit q->redoForgotten(count);
}

void History::Private::moveTo(int count)
{
    if (gestures > 0 || replaying)
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
    tellClean(wasClean);
}

void History::Private::tellClean(bool wasClean)
{
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
    const bool wasClean = isClean();
    Step step{d->gesture.text, merged(d->gesture.changes)};
    const bool wentOn = !d->gesture.changes.isEmpty();
    d->gesture = Step();
    d->gestureValues.clear();
    if (step.changes.isEmpty()) {
        if (wentOn)
            emit gestureCancelled({});
        d->tellClean(wasClean);
        return;
    }
    if (step.text.isEmpty())
        step.text = describe(d->project, step.changes);
    d->push(step, wasClean);
}

void History::cancelGesture()
{
    if (d->gestures == 0)
        return;
    const bool wasClean = isClean();
    const Changes back = reversed(merged(d->gesture.changes));
    const bool wentOn = !d->gesture.changes.isEmpty();
    d->gestures = 0;
    d->gesture = Step();
    d->gestureValues.clear();
    if (!back.isEmpty()) {
        d->replaying = true;
        d->project.apply(back, this);
        d->replaying = false;
    }
    if (wentOn)
        emit gestureCancelled(back);
    d->tellClean(wasClean);
}

void History::expectFiles()
{
    d->expectedPlace = d->position;
}

void History::takeBelow(bool isBelow)
{
    d->isBelow = isBelow;
}

bool History::isClean() const
{
    return d->position == d->cleanPosition && d->gesture.changes.isEmpty();
}

void History::setClean()
{
    const bool wasClean = isClean();
    d->cleanPosition = d->gesture.changes.isEmpty() ? d->position : -1;
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
    if (d->replaying)
        return; // The steps are being walked through; the next new one looks at the limit.
    d->forgetOldest();
    d->forgetRedo();
    emit changed();
}

HistoryState History::state() const
{
    return {d->steps, d->selections, d->position, d->cleanPosition, d->starts};
}

void History::restore(const HistoryState& state)
{
    const bool wasClean = isClean();
    const auto count = static_cast<int>(state.steps.size());
    d->steps = state.steps;
    d->position = std::clamp(state.position, 0, count);
    d->selections = state.selections;
    d->selections.resize(count + 1);
    d->cleanPosition = state.cleanPosition <= count ? std::max(state.cleanPosition, -1) : -1;
    d->starts = state.starts;
    d->expectedPlace = d->position;
    d->bytes = 0;
    Identity highest = 0;
    for (const Step& step : state.steps) {
        d->bytes += bytesOf(step);
        for (const Change& change : step.changes)
            highest = std::max(highest, change.thing);
    }
    d->project.skipIdentities(highest);
    emit restored();
    d->tell(wasClean);
}

} // namespace zokit
