// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "queueform_p.h"

#include <algorithm>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMetaEnum>

#include <zokit/settingsfile.h>

namespace zokit::queueform {

namespace {

const QString rowKey = QStringLiteral("row");
const QString rowsKey = QStringLiteral("rows");
const QString stateKey = QStringLiteral("state");
const QString reasonKey = QStringLiteral("reason");
const QString formKey = QStringLiteral("zoeffect-queue");
const QString removed = QStringLiteral("removed");
constexpr int version = 1;

struct StateWord {
    RowState state;
    const char* word;
    Outcome outcome;
};

constexpr StateWord words[] = {
    {RowState::Waiting, "waiting", Outcome::Failed},  {RowState::Running, "running", Outcome::Failed},
    {RowState::Paused, "paused", Outcome::Failed},    {RowState::Done, "done", Outcome::Done},
    {RowState::Failed, "failed", Outcome::Failed},    {RowState::Cancelled, "cancelled", Outcome::Cancelled},
    {RowState::Skipped, "skipped", Outcome::Skipped}, {RowState::Interrupted, "interrupted", Outcome::Failed},
};

QJsonObject jsonOf(const Message& message)
{
    return {{QStringLiteral("code"),
             QString::fromLatin1(QMetaEnum::fromType<Message::Code>().valueToKey(static_cast<int>(message.code())))},
            {QStringLiteral("arguments"), QJsonArray::fromStringList(message.arguments())}};
}

Message messageFrom(const QJsonObject& object)
{
    bool isKnown = false;
    const int code = QMetaEnum::fromType<Message::Code>().keyToValue(
        object.value(QStringLiteral("code")).toString().toLatin1().constData(), &isKnown);
    QStringList arguments;
    const QJsonArray told = object.value(QStringLiteral("arguments")).toArray();
    for (const QJsonValue& value : told)
        arguments.append(value.toString());
    return isKnown ? Message(static_cast<Message::Code>(code), arguments) : Message();
}

void addState(QJsonObject* object, RowState state, const ConversionResult& result)
{
    const auto* found =
        std::find_if(std::begin(words), std::end(words), [&](const StateWord& word) { return word.state == state; });
    object->insert(stateKey, QString::fromLatin1(found->word));
    if (!result.reason.isEmpty())
        object->insert(reasonKey, jsonOf(result.reason));
}

/// False for a state that is not known.
bool takeState(const QJsonObject& object, Kept* row)
{
    const QString state = object.value(stateKey).toString();
    const auto* found = std::find_if(std::begin(words), std::end(words),
                                     [&](const StateWord& word) { return state == QLatin1String(word.word); });
    if (found == std::end(words))
        return false;
    row->state = found->state;
    row->result = {};
    row->result.outcome = found->outcome;
    row->result.reason = messageFrom(object.value(reasonKey).toObject());
    return true;
}

bool takeJob(const QJsonObject& object, Kept* row)
{
    row->number = object.value(rowKey).toInt();
    Job& job = row->job;
    job.input = object.value(QStringLiteral("input")).toString();
    job.output = object.value(QStringLiteral("output")).toString();
    job.replaces = object.value(QStringLiteral("replaces")).toBool();
    job.skips = object.value(QStringLiteral("skips")).toBool();
    job.threads = std::max(object.value(QStringLiteral("threads")).toInt(), 0);
    job.stallSeconds = std::max(object.value(QStringLiteral("stall")).toInt(), 1);
    if (QDir::isRelativePath(job.input) || QDir::isRelativePath(job.output))
        return false;
    const QJsonObject settings = object.value(QStringLiteral("settings")).toObject();
    const ReadSettings read = readSettings(QJsonDocument(settings).toJson(), QString());
    if (!read.settings)
        return false;
    job.settings = *read.settings;
    return takeState(object, row);
}

QByteArray lineOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

void sort(QVector<Kept>* rows, const QJsonArray& order)
{
    std::stable_sort(rows->begin(), rows->end(), [&](const Kept& left, const Kept& right) {
        const auto place = [&](const Kept& row) {
            const auto found = std::find(order.begin(), order.end(), QJsonValue(row.number));
            return found == order.end() ? order.size() : static_cast<int>(found - order.begin());
        };
        return place(left) < place(right);
    });
}

} // namespace

Read read(const QByteArray& text)
{
    Read result;
    const QList<QByteArray> lines = text.split('\n');
    result.isQueue = QJsonDocument::fromJson(lines.first()).object().value(formKey).toInt() == version;
    if (!result.isQueue)
        return result;
    for (int i = 1; i < lines.size(); ++i) {
        if (lines.at(i).isEmpty())
            continue;
        const QJsonObject object = QJsonDocument::fromJson(lines.at(i)).object();
        const int number = object.value(rowKey).toInt();
        const auto row = std::find_if(result.rows.begin(), result.rows.end(),
                                      [number](const Kept& kept) { return kept.number == number; });
        if (object.contains(rowsKey)) {
            sort(&result.rows, object.value(rowsKey).toArray());
        } else if (object.contains(QStringLiteral("input"))) {
            Kept kept;
            if (row == result.rows.end() && takeJob(object, &kept))
                result.rows.append(kept);
            else
                ++result.unreadable;
        } else if (row != result.rows.end() && object.value(stateKey) == removed) {
            result.rows.erase(row);
        } else if (row != result.rows.end()) {
            takeState(object, &*row);
        } else if (object.isEmpty()) {
            ++result.unreadable; // Cut, when power failed.
        }
    }
    return result;
}

QByteArray head()
{
    return lineOf({{formKey, version}});
}

QByteArray jobLine(int number, const Job& job, RowState state, const ConversionResult& result)
{
    const QByteArray settings = job.makeSettings ? QByteArray() : writeSettings(job.settings, QString());
    if (settings.isEmpty())
        return {};
    QJsonObject object{{rowKey, number},
                       {QStringLiteral("input"), job.input},
                       {QStringLiteral("output"), job.output},
                       {QStringLiteral("replaces"), job.replaces},
                       {QStringLiteral("skips"), job.skips},
                       {QStringLiteral("threads"), job.threads},
                       {QStringLiteral("stall"), job.stallSeconds},
                       {QStringLiteral("settings"), QJsonDocument::fromJson(settings).object()}};
    addState(&object, state, result);
    return lineOf(object);
}

QByteArray stateLine(int number, RowState state, const ConversionResult& result)
{
    QJsonObject object{{rowKey, number}};
    addState(&object, state, result);
    return lineOf(object);
}

QByteArray removedLine(int number)
{
    return lineOf({{rowKey, number}, {stateKey, removed}});
}

QByteArray orderLine(const QVector<int>& numbers)
{
    QJsonArray order;
    for (const int number : numbers)
        order.append(number);
    return lineOf({{rowsKey, order}});
}

} // namespace zokit::queueform
