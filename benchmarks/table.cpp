// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "table.h"

#include <cstdio>
#include <optional>

#include <QStringList>

namespace {

constexpr char library[] = "library";
constexpr char limit[] = "limit";
constexpr double nanosecondsPerMillisecond = 1e6;

/// What a workload has to keep; 0 where there is no bound.
struct Bounds {
    const char* workload;
    double toLimit; ///< The library's time over the limit's.
    double toPeers; ///< The library's time over that of each peer in peers.
    const char* peers;
    double growth; ///< Time at the largest number of items over that at the smallest.
    const char* figure;
    double figureBound; ///< In nanoseconds.
};

constexpr Bounds bounds[] = {
    {"build", 1.6, 1.0, "QStandardItemModel,OBS", 0, "", 0},
    {"set", 1.4, 1.0, "QStandardItemModel,items by text key,OBS,MLT", 1.2, "", 0},
    {"equal", 1.5, 1.5, "QStandardItemModel,items by text key", 1.2, "", 0},
    {"read", 1.5, 1.5, "QStandardItemModel,items by text key", 1.2, "", 0},
    {"insert", 0, 0, "", 2.0, "", 0},
    {"assign", 1.4, 1.0, "OBS", 0, "", 0},
    {"customdefaults", 1.4, 1.0, "OBS", 0, "", 0},
    {"isdefault", 1.3, 1.0, "OBS", 0, "", 0},
    {"again", 1.25, 1.0, "Cairo", 0, "", 0},
    {"watermark", 1.1, 1.0, "Cairo", 0, "", 0},
    {"othersize", 1.8, 0, "", 0, "", 0},
    {"place", 0, 0, "", 100.0, "longest", 1e6},
    {"drag", 0, 0, "", 0, "p99", 8e6},
    {"typing", 1.15, 0, "", 0, "", 0},
    {"fontsize", 1.15, 0, "", 0, "", 0},
    {"transparency", 1.15, 0, "", 0, "", 0},
    {"logosize", 1.3, 0, "", 0, "", 0},
    {"set50", 1.6, 0, "", 0, "", 0},
    {"read50", 1.6, 0, "", 0, "", 0},
};

/// The pairs of numbers of items between which growth is told.
struct Growth {
    const char* workload;
    const char* small;
    const char* large;
};

constexpr Growth growths[] = {{"set", "10 items", "10,000 items"},
                              {"equal", "10 items", "10,000 items"},
                              {"read", "10 items", "10,000 items"},
                              {"insert", "10 items", "10,000 items"},
                              {"place", "100 items", "1,000 items"}};

const Bounds* boundsOf(const QString& workload)
{
    for (const Bounds& known : bounds) {
        if (workload == QLatin1String(known.workload))
            return &known;
    }
    return nullptr;
}

const Result* find(const std::vector<Result>& results, const QString& workload, const QString& caseName,
                   const QString& contestant)
{
    for (const Result& result : results) {
        if (result.workload == workload && result.caseName == caseName && result.contestant == contestant)
            return &result;
    }
    return nullptr;
}

/// The median of the ratios round by round; nothing without a round that both have.
std::optional<double> ratio(const Result* upper, const Result* lower)
{
    if (!upper || !lower || upper->nanoseconds.isEmpty() || upper->nanoseconds.size() != lower->nanoseconds.size())
        return std::nullopt;
    QVector<double> ratios;
    for (int i = 0; i < upper->nanoseconds.size(); ++i)
        ratios.append(upper->nanoseconds.at(i) / lower->nanoseconds.at(i));
    return median(ratios);
}

QString timeText(double nanoseconds)
{
    struct Unit {
        double size;
        const char* name;
    };
    static const Unit units[] = {{1e9, "s"}, {nanosecondsPerMillisecond, "ms"}, {1e3, "us"}};
    for (const Unit& unit : units) {
        if (nanoseconds >= unit.size)
            return QStringLiteral("%1 %2").arg(nanoseconds / unit.size, 0, 'f', 2).arg(QLatin1String(unit.name));
    }
    return QStringLiteral("%1 ns").arg(nanoseconds, 0, 'f', 1);
}

QString verdict(double value, double bound)
{
    return QStringLiteral("<= %1  %2")
        .arg(QString::number(bound), value <= bound ? QStringLiteral("met") : QStringLiteral("missed"));
}

/// The peers' bound holds for Cairo with 16 watermarks only.
bool hasPeerBound(const Bounds& known, const Result& result)
{
    const bool isPeer = QString::fromLatin1(known.peers).split(QLatin1Char(',')).contains(result.contestant);
    return isPeer && (result.contestant != QLatin1String("Cairo") || result.caseName.startsWith(QLatin1String("16 ")));
}

QString boundText(const std::vector<Result>& results, const Result& result, std::optional<double> toLimit)
{
    const Bounds* known = boundsOf(result.workload);
    if (!known)
        return QString();
    if (result.contestant == QLatin1String(library))
        return toLimit && known->toLimit > 0 ? verdict(*toLimit, known->toLimit) : QString();
    if (!hasPeerBound(*known, result))
        return QString();
    const Result* own = find(results, result.workload, result.caseName, QString::fromLatin1(library));
    const auto beside = ratio(own, &result);
    if (!beside)
        return QString();
    return QStringLiteral("library %1 of it, %2").arg(*beside, 0, 'f', 2).arg(verdict(*beside, known->toPeers));
}

void printRow(const QString& caseName, const QString& contestant, const QString& time, const QString& toLimit,
              const QString& bound)
{
    QString line = QStringLiteral("  %1 %2 %3 %4  %5")
                       .arg(caseName, -48)
                       .arg(contestant, -18)
                       .arg(time, 10)
                       .arg(toLimit, 8)
                       .arg(bound);
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    std::printf("%s\n", qPrintable(line));
}

void printResult(const std::vector<Result>& results, const Result& result, bool isFirstOfCase)
{
    const bool isLimit = result.contestant == QLatin1String(limit);
    const auto toLimit = ratio(&result, find(results, result.workload, result.caseName, QString::fromLatin1(limit)));
    printRow(isFirstOfCase ? result.caseName : QString(), result.contestant, timeText(median(result.nanoseconds)),
             toLimit && !isLimit ? QString::number(*toLimit, 'f', 2) : QString(), boundText(results, result, toLimit));

    const Bounds* known = boundsOf(result.workload);
    for (auto it = result.figures.cbegin(); it != result.figures.cend(); ++it) {
        const double value = median(it.value());
        const bool isBounded = known && known->figureBound > 0 && it.key() == QLatin1String(known->figure)
                               && result.contestant == QLatin1String(library);
        const QString bound =
            isBounded ? QStringLiteral("<= %1  %2")
                            .arg(timeText(known->figureBound),
                                 value <= known->figureBound ? QStringLiteral("met") : QStringLiteral("missed"))
                      : QString();
        printRow(QString(), QStringLiteral("  ") + it.key(), timeText(value), QString(), bound);
    }
}

void printGrowth(const std::vector<Result>& results, const QString& workload)
{
    const Bounds* known = boundsOf(workload);
    for (const Growth& growth : growths) {
        if (!known || workload != QLatin1String(growth.workload))
            continue;
        for (const Result& small : results) {
            const QString prefix = QString::fromLatin1(growth.small);
            const bool isSmall = small.workload == workload && small.contestant == QLatin1String(library)
                                 && small.caseName.startsWith(prefix)
                                 && !small.caseName.contains(QLatin1String("any "));
            if (!isSmall)
                continue;
            const QString rest = small.caseName.mid(prefix.size());
            const Result* large = find(results, workload, QString::fromLatin1(growth.large) + rest, small.contestant);
            if (const auto grown = ratio(large, &small))
                printRow(QStringLiteral("growth from %1 to %2%3").arg(prefix, QString::fromLatin1(growth.large), rest),
                         small.contestant, QString(), QString::number(*grown, 'f', 2), verdict(*grown, known->growth));
        }
    }
}

} // namespace

void printTables(const std::vector<Result>& results)
{
    QString workload;
    QString caseName;
    for (const Result& result : results) {
        if (result.workload != workload) {
            if (!workload.isEmpty())
                printGrowth(results, workload);
            std::printf("%s%s: %d rounds\n", workload.isEmpty() ? "" : "\n", qPrintable(result.workload),
                        static_cast<int>(result.nanoseconds.size()));
            printRow(QString(), QString(), QStringLiteral("median"), QStringLiteral("to limit"),
                     QStringLiteral("bound"));
            caseName.clear();
        }
        printResult(results, result, result.caseName != caseName);
        workload = result.workload;
        caseName = result.caseName;
    }
    if (!workload.isEmpty())
        printGrowth(results, workload);
}
