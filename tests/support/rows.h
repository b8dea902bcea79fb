// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <any>
#include <tuple>
#include <vector>

#include <QtTest>

Q_DECLARE_METATYPE(std::any)

/// The rows of a test, each a name and values, to be made once in its function of data: at once,
///
///     addRows<int, QString>({{"to the front", 0, "c a b"}, {"to the end", 2, "a b c"}});
///
/// or, where they are long or come from a loop, one by one:
///
///     const Rows<int, QString> add;
///     add("to the front", 0, "c a b");
///
/// In the test the values of the row that runs are
///
///     const auto [to, expected] = row<int, QString>();
template <typename... Values>
class Rows {
public:
    Rows() { QTest::addColumn<std::any>("values"); }

    void operator()(const QByteArray& name, const Values&... values) const
    {
        QTest::newRow(name.constData()) << std::any(std::tuple<Values...>(values...));
    }
};

template <typename... Values>
void addRows(const std::vector<std::tuple<QByteArray, Values...>>& rows)
{
    const Rows<Values...> add;
    for (const auto& named : rows)
        std::apply(add, named);
}

template <typename... Values>
std::tuple<Values...> row()
{
    QFETCH(std::any, values);
    return std::any_cast<std::tuple<Values...>>(values);
}
