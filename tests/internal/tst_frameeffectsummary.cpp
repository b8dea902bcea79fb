// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "frameeffectsummary_p.h"

#include <limits>

#include "../support/rows.h"

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

/// The states as one text that tells names and states apart: "<A> on, <B> off"; "nothing" for no answer.
QString described(const std::optional<QVector<frameeffects::State>>& states)
{
    if (!states)
        return "nothing";
    QStringList entries;
    for (const frameeffects::State& state : *states)
        entries << QString("<%1> %2").arg(state.name, state.on ? "on" : "off");
    return entries.join(", ");
}

} // namespace

class TstFrameEffectSummary : public QObject {
    Q_OBJECT

private slots:
    void writes_data()
    {
        const QString flu = QString::fromUtf8("Fl\xC3\xBC");
        // What is read again is the last column.
        addRows<QStringList, QList<bool>, QString, QString>({
            {"none", {}, {}, "", "nothing"},
            {"on and off", {"A", "B"}, {true, false}, "A|true|B|false", "<A> on, <B> off"},
            {"order is kept", {"C", "A"}, {false, true}, "C|false|A|true", "<C> off, <A> on"},
            {"name twice", {"A", "A"}, {true, false}, "A|true|A|false", "<A> on, <A> off"},
            {"empty names", {"", ""}, {true, false}, "|true||false", "<> on, <> off"},
            {"blanks in a name", {" A b "}, {false}, " A b |false", "< A b > off"},
            {"name like a state", {"true"}, {false}, "true|false", "<true> off"},
            {"name outside ASCII", {flu}, {true}, flu + "|true", "<" + flu + "> on"},
            {"separators in names", {"A|B", "C|D"}, {true, true}, "A|B|true|C|D|true", "nothing"},
        });
    }

    void writes()
    {
        const auto [names, states, expected, readAgain] = row<QStringList, QList<bool>, QString, QString>();
        QVector<frameeffects::State> entries;
        for (int i = 0; i < names.size(); ++i)
            entries.append({names.at(i), states.at(i)});
        QCOMPARE(frameeffects::summary(entries), expected);
        QCOMPARE(described(frameeffects::states(expected, int(entries.size()))), readAgain);
    }

    void reads_data()
    {
        addRows<QString, int, QString>({
            {"True is off", "A|True", 1, "<A> off"},
            {"1 is off", "A|1", 1, "<A> off"},
            {"any word is off", "A|yes|B|on", 2, "<A> off, <B> off"},
            {"blank behind is off", "A|true ", 1, "<A> off"},
            {"blank before is off", "A| true", 1, "<A> off"},
            {"longer word is off", "A|truely", 1, "<A> off"},
            {"empty parts", "|", 1, "<> off"},
            {"empty parts between", "A|true||", 2, "<A> on, <> off"},

            {"empty text for none", "", 0, "nothing"},
            {"null text for one", QString(), 1, "nothing"},
            {"text for none", "A|true", 0, "nothing"},
            {"one part for one", "A", 1, "nothing"},
            {"three parts for one", "A|true|B", 1, "nothing"},
            {"three parts for two", "A|true|B", 2, "nothing"},
            {"two names for one", "A|true|B|false", 1, "nothing"},
            {"two names for three", "A|true|B|false", 3, "nothing"},
            {"separator in front", "|A|true", 1, "nothing"},
            {"other separator", "A,true", 1, "nothing"},
            {"negative count of as many", "A|true|B|false", -2, "nothing"},
            {"smallest count", "A|true", smallest, "nothing"},
            {"largest count", "A|true", largest, "nothing"},
            // Twice this count is 2 modulo 2^32.
            {"count that would overflow to one", "A|true", smallest + 1, "nothing"},
        });
    }

    void reads()
    {
        const auto [summary, count, expected] = row<QString, int, QString>();
        QCOMPARE(described(frameeffects::states(summary, count)), expected);
    }

    void readsManyStates()
    {
        QVector<frameeffects::State> entries;
        for (int i = 0; i < 20000; ++i)
            entries.append({QString::number(i), i % 3 == 0});
        const auto read = frameeffects::states(frameeffects::summary(entries), 20000);
        QVERIFY(read);
        QCOMPARE(int(read->size()), 20000);
        QCOMPARE(read->at(0).on, true);
        QCOMPARE(read->at(19999).name, QString("19999"));
        QCOMPARE(read->at(19999).on, false); // 19999 is 3 x 6666 + 1.
    }
};

// Qt 6's QTEST_APPLESS_MAIN is a variadic macro called without its last argument, which clang's -Wpedantic refuses.
int main(int argc, char** argv)
{
    TstFrameEffectSummary test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frameeffectsummary.moc"
