// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "journalform_p.h"

#include <algorithm>
#include <optional>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>
#include <QSet>

#include "things_p.h"
#include "valuejson_p.h"

namespace zokit::journalform {

namespace {

constexpr int formVersion = 1;
constexpr int digits = 8;                               // Of a checksum.
constexpr Identity highestIdentity = Identity(1) << 52; // A number of JSON holds them exactly, and the next ones.

const QString formMember = QStringLiteral("zoeffect-journal");
const QString everythingMember = QStringLiteral("everything");
const QString stepMember = QStringLiteral("step");
const QString placeMember = QStringLiteral("place"); // Of a step below others.
const QString stepsMember = QStringLiteral("steps");
const QString gestureMember = QStringLiteral("gesture");
const QString cancelledMember = QStringLiteral("cancelled");
const QString forgottenMember = QStringLiteral("forgotten");
const QString redoForgottenMember = QStringLiteral("redo-forgotten");
const QString positionMember = QStringLiteral("position");
const QString selectionMember = QStringLiteral("selection");
const QString selectionsMember = QStringLiteral("selections");
const QString cleanMember = QStringLiteral("clean");
const QString startMember = QStringLiteral("start");
const QString livedOnMember = QStringLiteral("lived-on");
const QString codeMember = QStringLiteral("code");
const QString wordsMember = QStringLiteral("words");
const QString changesMember = QStringLiteral("changes");

// --- Lines

/// FNV-1a: tells a damaged line, no more.
QByteArray checksum(const QByteArray& text)
{
    constexpr quint32 basis = 2166136261U;
    constexpr quint32 prime = 16777619U;
    quint32 sum = basis;
    for (const char letter : text)
        sum = (sum ^ static_cast<unsigned char>(letter)) * prime;
    return QByteArray::number(sum, 16).rightJustified(digits, '0') + ' ';
}

QByteArray lineOf(const QJsonObject& record)
{
    const QByteArray json = QJsonDocument(record).toJson(QJsonDocument::Compact);
    return checksum(json) + json + '\n';
}

std::optional<QJsonObject> recordOf(const QByteArray& line)
{
    const QByteArray json = line.mid(digits + 1);
    if (line.left(digits + 1) != checksum(json))
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return std::nullopt;
    return document.object();
}

// --- Values as JSON

QJsonArray toJson(const Changes& changes, Changes& unkept)
{
    QJsonArray array;
    for (const Change& change : changes) {
        const std::optional<QJsonValue> before = valuejson::toJson(change.before, QVariant());
        const std::optional<QJsonValue> after = valuejson::toJson(change.after, QVariant());
        if (!before || !after)
            unkept.append(change);
        if (after) // Else what stood there before stays.
            array.append(QJsonArray{double(change.thing), change.key, before.value_or(QJsonValue()), *after});
    }
    return array;
}

Identity identityFrom(const QJsonValue& json)
{
    const double number = json.toDouble();
    return number > 0 && number < double(highestIdentity) ? static_cast<Identity>(number) : 0;
}

Changes changesFrom(const QJsonValue& json)
{
    Changes changes;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& element : array) {
        const QJsonArray parts = element.toArray();
        const Identity thing = identityFrom(parts.at(0));
        if (thing != 0)
            changes.append({thing, parts.at(1).toString(),
                            valuejson::fromJson(parts.at(2), QVariant()).value_or(QVariant()),
                            valuejson::fromJson(parts.at(3), QVariant()).value_or(QVariant())});
    }
    return changes;
}

/// By name: the numbers move when a code comes in between.
QString nameOf(Message::Code code)
{
    return QString::fromLatin1(QMetaEnum::fromType<Message::Code>().valueToKey(static_cast<int>(code)));
}

/// None for a name that another version gave.
Message::Code codeFrom(const QString& name)
{
    bool isKnown = false;
    const int code = QMetaEnum::fromType<Message::Code>().keyToValue(name.toLatin1().constData(), &isKnown);
    return isKnown ? static_cast<Message::Code>(code) : Message::Code::None;
}

QJsonObject toJson(const Step& step, Changes& unkept)
{
    return {{codeMember, nameOf(step.text.code())},
            {wordsMember, QJsonArray::fromStringList(step.text.arguments())},
            {changesMember, toJson(step.changes, unkept)}};
}

Step stepFrom(const QJsonValue& json)
{
    const QJsonObject object = json.toObject();
    const QStringList words = object.value(wordsMember).toVariant().toStringList();
    const Message::Code code = codeFrom(object.value(codeMember).toString());
    const Message text = code == Message::Code::None ? Message() : Message(code, words);
    return {text, changesFrom(object.value(changesMember))};
}

QJsonArray toJson(const QVector<Identity>& things)
{
    QJsonArray array;
    for (const Identity thing : things)
        array.append(double(thing));
    return array;
}

QVector<Identity> thingsFrom(const QJsonValue& json)
{
    QVector<Identity> things;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& thing : array)
        things.append(identityFrom(thing));
    return things;
}

// --- What happened, record by record

HistoryState historyFrom(const QJsonObject& record)
{
    HistoryState history;
    const QJsonArray steps = record.value(stepsMember).toArray();
    for (const QJsonValue& step : steps)
        history.steps.append(stepFrom(step));
    const QJsonArray selections = record.value(selectionsMember).toArray();
    for (const QJsonValue& selection : selections)
        history.selections.append(thingsFrom(selection));
    history.selections.resize(history.steps.size() + 1);
    const auto count = static_cast<int>(history.steps.size());
    history.position = std::clamp(record.value(positionMember).toInt(), 0, count);
    history.cleanPosition = std::clamp(record.value(cleanMember).toInt(-1), -1, count);
    return history;
}

void forget(HistoryState& history, int wanted)
{
    const int count = std::clamp(wanted, 0, history.position);
    history.steps.remove(0, count);
    history.selections.remove(0, count);
    history.position -= count;
    history.cleanPosition = std::max(history.cleanPosition - count, -1);
}

/// Leaves \a count steps.
void shorten(HistoryState& history, int count)
{
    history.steps.resize(count);
    history.selections.resize(count + 1);
    if (history.cleanPosition > count)
        history.cleanPosition = -1;
}

void insertStep(HistoryState& history, const Step& step, int wanted)
{
    const int place = std::clamp(wanted, 0, history.position);
    history.steps.insert(place, step);
    history.selections.insert(place + 1, history.selections.at(place));
    ++history.position;
    if (history.cleanPosition > place)
        history.cleanPosition = -1;
}

void moveTo(Session& session, int wanted)
{
    HistoryState& history = session.history;
    const int target = std::clamp(wanted, 0, static_cast<int>(history.steps.size()));
    for (; history.position > target; --history.position)
        session.sinceThen += reversed(history.steps.at(history.position - 1).changes);
    for (; history.position < target; ++history.position)
        session.sinceThen += history.steps.at(history.position).changes;
}

void take(Session& session, const QJsonObject& record)
{
    if (record.contains(everythingMember)) {
        session.everything = changesFrom(record.value(everythingMember));
        session.sinceThen.clear();
        session.gesture = Step();
        session.history = historyFrom(record);
        session.starts = 0; // Marks that still count follow.
    } else if (record.contains(placeMember)) {
        const Step step = stepFrom(record.value(stepMember));
        insertStep(session.history, step, record.value(placeMember).toInt());
        session.sinceThen += step.changes;
    } else if (record.contains(stepMember)) {
        session.gesture = Step();
        addStep(session.history, stepFrom(record.value(stepMember)));
        session.sinceThen += session.history.steps.last().changes;
    } else if (record.contains(gestureMember)) {
        const Step part = stepFrom(record.value(gestureMember));
        session.gesture.text = part.text;
        session.gesture.changes += part.changes;
        session.sinceThen += part.changes;
    } else if (record.contains(cancelledMember)) {
        session.gesture = Step();
        session.sinceThen += changesFrom(record.value(cancelledMember));
    } else if (record.contains(forgottenMember)) {
        forget(session.history, record.value(forgottenMember).toInt());
    } else if (record.contains(redoForgottenMember)) {
        const auto count = static_cast<int>(session.history.steps.size());
        const int undone = count - session.history.position;
        shorten(session.history, count - std::clamp(record.value(redoForgottenMember).toInt(), 0, undone));
    } else if (record.contains(positionMember)) {
        moveTo(session, record.value(positionMember).toInt());
    } else if (record.contains(selectionMember)) {
        session.history.selections[session.history.position] = thingsFrom(record.value(selectionMember));
    } else if (record.contains(cleanMember)) {
        session.history.cleanPosition = session.history.position;
    } else if (record.contains(livedOnMember)) {
        session.starts = 0;
    }
}

} // namespace

void addStep(HistoryState& history, const Step& step)
{
    shorten(history, history.position);
    history.steps.append(step);
    history.selections.append(history.selections.last());
    ++history.position;
}

Session sessionFrom(const QByteArray& text)
{
    Session session;
    session.history.selections.resize(1);
    const QByteArray startLine = start().chopped(1);
    for (int begin = 0, end = 0; begin < text.size(); begin = end + 1) {
        end = static_cast<int>(text.indexOf('\n', begin));
        const bool isWhole = end >= 0;
        end = isWhole ? end : static_cast<int>(text.size());
        const QByteArray line = text.mid(begin, end - begin);
        if (isWhole && line == startLine) { // Also behind what is damaged.
            ++session.starts;
            continue;
        }
        const std::optional<QJsonObject> record = isWhole ? recordOf(line) : std::nullopt;
        if (begin == 0)
            session.isJournal = record && record->value(formMember).toInt() == formVersion;
        session.cut = session.cut || !record;
        if (!session.cut && session.isJournal)
            take(session, *record);
    }
    return session;
}

Changes Session::values() const
{
    return merged(everything + sinceThen);
}

QStringList Session::files() const
{
    QSet<Identity> belonging;
    const Changes all = values();
    for (const Change& change : all) {
        if (change.key == own::of)
            belonging.insert(change.thing);
    }
    QStringList names;
    for (const Change& change : all) {
        if (change.key == QLatin1String("file") && change.after.isValid() && !belonging.contains(change.thing))
            names.append(change.after.toString());
    }
    return names;
}

QByteArray beginning()
{
    return lineOf({{formMember, formVersion}});
}

QByteArray everything(const Changes& values, const HistoryState& history, Changes& unkept)
{
    QJsonArray steps;
    for (const Step& step : history.steps)
        steps.append(toJson(step, unkept));
    QJsonArray selections;
    for (const QVector<Identity>& selection : history.selections)
        selections.append(toJson(selection));
    return lineOf({{everythingMember, toJson(values, unkept)},
                   {stepsMember, steps},
                   {selectionsMember, selections},
                   {positionMember, history.position},
                   {cleanMember, history.cleanPosition}});
}

QByteArray step(const Step& step, Changes& unkept)
{
    return lineOf({{stepMember, toJson(step, unkept)}});
}

QByteArray stepBelow(const Step& step, int place, Changes& unkept)
{
    return lineOf({{stepMember, toJson(step, unkept)}, {placeMember, place}});
}

QByteArray gesture(const Step& part, Changes& unkept)
{
    return lineOf({{gestureMember, toJson(part, unkept)}});
}

QByteArray gestureCancelled(const Changes& changes, Changes& unkept)
{
    return lineOf({{cancelledMember, toJson(changes, unkept)}});
}

QByteArray forgotten(int count)
{
    return lineOf({{forgottenMember, count}});
}

QByteArray redoForgotten(int count)
{
    return lineOf({{redoForgottenMember, count}});
}

QByteArray position(int position)
{
    return lineOf({{positionMember, position}});
}

QByteArray selection(const QVector<Identity>& things)
{
    return lineOf({{selectionMember, toJson(things)}});
}

QByteArray clean()
{
    return lineOf({{cleanMember, true}});
}

QByteArray start()
{
    return lineOf({{startMember, true}});
}

QByteArray livedOn()
{
    return lineOf({{livedOnMember, true}});
}

} // namespace zokit::journalform
