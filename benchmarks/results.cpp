// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "results.h"

#include <algorithm>

#include <QJsonObject>

namespace {

QJsonArray numbers(const QVector<double>& values)
{
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

QVector<double> numbers(const QJsonValue& json)
{
    QVector<double> values;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& value : array)
        values.append(value.toDouble());
    return values;
}

Result& resultOf(std::vector<Result>& results, const QString& workload, const QString& caseName,
                 const QString& contestant)
{
    const auto found = std::find_if(results.begin(), results.end(), [&](const Result& result) {
        return result.workload == workload && result.caseName == caseName && result.contestant == contestant;
    });
    if (found != results.end())
        return *found;
    results.push_back({workload, caseName, contestant, {}, {}});
    return results.back();
}

} // namespace

QJsonArray toJson(const std::vector<Result>& results)
{
    QJsonArray array;
    for (const Result& result : results) {
        QJsonObject figures;
        for (auto it = result.figures.cbegin(); it != result.figures.cend(); ++it)
            figures.insert(it.key(), numbers(it.value()));
        array.append(QJsonObject{{QStringLiteral("workload"), result.workload},
                                 {QStringLiteral("case"), result.caseName},
                                 {QStringLiteral("contestant"), result.contestant},
                                 {QStringLiteral("ns"), numbers(result.nanoseconds)},
                                 {QStringLiteral("figures"), figures}});
    }
    return array;
}

void merge(const QJsonArray& json, std::vector<Result>& results)
{
    for (const QJsonValue& value : json) {
        const QJsonObject object = value.toObject();
        Result& result = resultOf(results, object.value(QStringLiteral("workload")).toString(),
                                  object.value(QStringLiteral("case")).toString(),
                                  object.value(QStringLiteral("contestant")).toString());
        result.nanoseconds += numbers(object.value(QStringLiteral("ns")));
        const QJsonObject figures = object.value(QStringLiteral("figures")).toObject();
        for (auto it = figures.constBegin(); it != figures.constEnd(); ++it)
            result.figures[it.key()] += numbers(it.value());
    }
}

double median(QVector<double> values)
{
    if (values.isEmpty())
        return 0.0;
    std::sort(values.begin(), values.end());
    const auto middle = values.size() / 2;
    return values.size() % 2 == 1 ? values.at(middle) : (values.at(middle - 1) + values.at(middle)) / 2.0;
}
