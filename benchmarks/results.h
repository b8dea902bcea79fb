// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QJsonArray>
#include <QMap>
#include <QString>
#include <QVector>

/// What one contestant of a case measured. The same index is the same round for all contestants of a case.
struct Result {
    QString workload;
    QString caseName;
    QString contestant;
    QVector<double> nanoseconds;            ///< For one operation.
    QMap<QString, QVector<double>> figures; ///< What it told besides: "longest", "p50", "p99", in nanoseconds.
};

QJsonArray toJson(const std::vector<Result>& results);

/// Adds the results in \a json to those of earlier processes.
void merge(const QJsonArray& json, std::vector<Result>& results);

/// The middle of \a values; 0 for none.
double median(QVector<double> values);
