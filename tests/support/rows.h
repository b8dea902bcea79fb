// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <any>
#include <tuple>
#include <vector>

#include <QtTest>

Q_DECLARE_METATYPE(std::any)

/// The rows of a test, a name and the values each, once in its function of data:
///
///     void moves_data() { addRows<int, QString>({{"to the front", 0, "c a b"}, {"to the end", 2, "a b c"}}); }
///
/// and in the test the values of the row that runs:
///
///     const auto [to, expected] = row<int, QString>();
template <typename... Values>
void addRows(const std::vector<std::tuple<QByteArray, Values...>>& rows)
{
    QTest::addColumn<std::any>("values");
    for (const auto& named : rows) {
        const auto values = std::apply(
            [](const QByteArray&, const Values&... others) { return std::tuple<Values...>(others...); }, named);
        QTest::newRow(std::get<0>(named).constData()) << std::any(values);
    }
}

template <typename... Values>
std::tuple<Values...> row()
{
    QFETCH(std::any, values);
    return std::any_cast<std::tuple<Values...>>(values);
}
