// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "frameeffectsummary_p.h"

#include <limits>

#include <QtTest>

namespace {

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
    void writes_data();
    void writes();
    void reads_data();
    void reads();
    void readsWhatItWrote_data();
    void readsWhatItWrote();
    void readsManyStates();
};

void TstFrameEffectSummary::writes_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QList<bool>>("states");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << QStringList{} << QList<bool>{} << "";
    QTest::newRow("one on") << QStringList{"A"} << QList<bool>{true} << "A|true";
    QTest::newRow("one off") << QStringList{"A"} << QList<bool>{false} << "A|false";
    QTest::newRow("on and off") << QStringList{"A", "B"} << QList<bool>{true, false} << "A|true|B|false";
    QTest::newRow("off and on") << QStringList{"A", "B"} << QList<bool>{false, true} << "A|false|B|true";
    QTest::newRow("order is kept") << QStringList{"C", "A", "B"} << QList<bool>{true, true, true}
                                   << "C|true|A|true|B|true";
    QTest::newRow("name twice") << QStringList{"A", "A"} << QList<bool>{true, false} << "A|true|A|false";
    QTest::newRow("empty name") << QStringList{""} << QList<bool>{true} << "|true";
    QTest::newRow("empty names") << QStringList{"", ""} << QList<bool>{true, false} << "|true||false";
    QTest::newRow("blanks in a name") << QStringList{" A b "} << QList<bool>{false} << " A b |false";
    QTest::newRow("separator in a name") << QStringList{"A|B"} << QList<bool>{true} << "A|B|true";
    QTest::newRow("name like a state") << QStringList{"true"} << QList<bool>{false} << "true|false";
    QTest::newRow("name outside ASCII") << QStringList{QString::fromUtf8("Fl\xC3\xBC")} << QList<bool>{true}
                                        << QString::fromUtf8("Fl\xC3\xBC|true");
}

void TstFrameEffectSummary::writes()
{
    QFETCH(QStringList, names);
    QFETCH(QList<bool>, states);
    QFETCH(QString, expected);
    QVector<frameeffects::State> entries;
    for (int i = 0; i < names.size(); ++i)
        entries.append({names.at(i), states.at(i)});

    QCOMPARE(frameeffects::summary(entries), expected);
}

void TstFrameEffectSummary::reads_data()
{
    QTest::addColumn<QString>("summary");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* name, const QString& summary, int count, const char* expected) {
        QTest::newRow(name) << summary << count << expected;
    };
    row("one on", "A|true", 1, "<A> on");
    row("one off", "A|false", 1, "<A> off");
    row("on and off", "A|true|B|false", 2, "<A> on, <B> off");
    row("three in order", "C|true|A|false|B|true", 3, "<C> on, <A> off, <B> on");
    row("name twice", "A|true|A|false", 2, "<A> on, <A> off");
    row("blanks are kept", " A b |true", 1, "< A b > on");
    row("name like a state", "true|true|false|false", 2, "<true> on, <false> off");

    row("True is off", "A|True", 1, "<A> off");
    row("TRUE is off", "A|TRUE", 1, "<A> off");
    row("1 is off", "A|1", 1, "<A> off");
    row("any word is off", "A|yes|B|on", 2, "<A> off, <B> off");
    row("blank behind is off", "A|true ", 1, "<A> off");
    row("blank before is off", "A| true", 1, "<A> off");
    row("longer word is off", "A|truely", 1, "<A> off");
    row("empty state is off", "A|", 1, "<A> off");

    row("empty name", "|true", 1, "<> on");
    row("empty parts", "|", 1, "<> off");
    row("three separators", "|||", 2, "<> off, <> off");
    row("empty parts between", "A|true||", 2, "<A> on, <> off");

    row("empty text for none", "", 0, "nothing");
    row("empty text for one", "", 1, "nothing");
    row("null text for one", QString(), 1, "nothing");
    row("text for none", "A|true", 0, "nothing");
    row("one part for none", "A", 0, "nothing");
    row("one part for one", "A", 1, "nothing");
    row("three parts for one", "A|true|B", 1, "nothing");
    row("three parts for two", "A|true|B", 2, "nothing");
    row("two names for one", "A|true|B|false", 1, "nothing");
    row("two names for three", "A|true|B|false", 3, "nothing");
    row("separator at the end", "A|true|", 1, "nothing");
    row("separator in front", "|A|true", 1, "nothing");
    row("separator doubled", "A||true", 1, "nothing");
    row("separator in a name", "A|B|true", 1, "nothing");
    row("other separator", "A,true", 1, "nothing");
    row("negative count", "A|true", -1, "nothing");
    row("negative count of as many", "A|true|B|false", -2, "nothing");
    row("smallest count", "A|true", std::numeric_limits<int>::min(), "nothing");
    row("largest count", "A|true", std::numeric_limits<int>::max(), "nothing");
    // Twice this count is 2 modulo 2^32.
    row("count that would overflow to one", "A|true", std::numeric_limits<int>::min() + 1, "nothing");
}

void TstFrameEffectSummary::reads()
{
    QFETCH(QString, summary);
    QFETCH(int, count);
    QFETCH(QString, expected);

    QCOMPARE(described(frameeffects::states(summary, count)), expected);
}

void TstFrameEffectSummary::readsWhatItWrote_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("expected");

    // Every other one is on, the first of them too.
    QTest::newRow("one") << QStringList{"A"} << "<A> on";
    QTest::newRow("several") << QStringList{"B", "A", "C"} << "<B> on, <A> off, <C> on";
    QTest::newRow("empty names") << QStringList{"", ""} << "<> on, <> off";
    QTest::newRow("name twice") << QStringList{"A", "A"} << "<A> on, <A> off";
    QTest::newRow("separator in a name") << QStringList{"A|B"} << "nothing";
    QTest::newRow("separators in two names") << QStringList{"A|B", "C|D"} << "nothing";
    QTest::newRow("none") << QStringList{} << "nothing";
}

void TstFrameEffectSummary::readsWhatItWrote()
{
    QFETCH(QStringList, names);
    QFETCH(QString, expected);
    QVector<frameeffects::State> entries;
    for (const QString& name : names)
        entries.append({name, entries.size() % 2 == 0});

    QCOMPARE(described(frameeffects::states(frameeffects::summary(entries), int(entries.size()))), expected);
}

void TstFrameEffectSummary::readsManyStates()
{
    const int count = 20000;
    QVector<frameeffects::State> entries;
    for (int i = 0; i < count; ++i)
        entries.append({QString::number(i), i % 3 == 0});

    const auto read = frameeffects::states(frameeffects::summary(entries), count);
    QVERIFY(read);
    QCOMPARE(int(read->size()), 20000);
    QCOMPARE(read->at(0).on, true);
    QCOMPARE(read->at(19999).name, QString("19999"));
    QCOMPARE(read->at(19999).on, false); // 19999 is 3 x 6666 + 1.
}

// Qt 6's QTEST_APPLESS_MAIN is a variadic macro called without its last argument, which clang's -Wpedantic refuses.
int main(int argc, char** argv)
{
    TstFrameEffectSummary test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frameeffectsummary.moc"
