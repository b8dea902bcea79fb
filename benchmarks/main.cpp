// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cstdio>

#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>

#include <zoeffectmodel.h>
#include <zopref.h>

#include "rounds.h"
#include "settings.h"
#include "table.h"

namespace {

constexpr int defaultRounds = 5;
constexpr int failed = 1;
constexpr int wrongUsage = 2;

constexpr char usageText[] = R"(usage: zobench [--rounds N] [--json FILE] [WORKLOAD...]
       zobench --smoke [WORKLOAD...]
       zobench --table FILE...
       zobench --list

Measures the workloads (all by default), each contestant of a case in turn, N rounds (5 by default) of each, and
prints a table for each workload. It ends 0 whatever the times are, 1 when a contestant did not come to the right
result, 2 on wrong usage.

  --json FILE   leaves the times in FILE, and prints nothing
  --smoke       runs everything a few times only, for the checks of the results
  --table       prints the tables of what several processes left
  --list        names the workloads
)";

/// A host with a preference store of its own, so that no custom default of the user plays a part.
class Application : public QGuiApplication, public ZoPrefProvider {
public:
    Application(int& argc, char** argv) : QGuiApplication(argc, argv) {}

    ZoPref* preferences() override { return &m_store; }

private:
    MemoryStore m_store;
};

struct Request {
    Effort effort{defaultRounds, false};
    QString json;
    QStringList workloads;
    QStringList tables;
    bool list = false;
};

bool isWorkload(const QString& name)
{
    for (const Workload& workload : workloads()) {
        if (name == QString::fromStdString(workload.name))
            return true;
    }
    return false;
}

bool read(QStringList arguments, Request& request)
{
    arguments.removeFirst();
    while (!arguments.isEmpty()) {
        const QString argument = arguments.takeFirst();
        if (argument == QLatin1String("--smoke")) {
            request.effort = {1, true};
        } else if (argument == QLatin1String("--list")) {
            request.list = true;
        } else if (argument == QLatin1String("--table")) {
            request.tables.swap(arguments);
            return !request.tables.isEmpty();
        } else if (argument == QLatin1String("--json") && !arguments.isEmpty()) {
            request.json = arguments.takeFirst();
        } else if (argument == QLatin1String("--rounds") && !arguments.isEmpty()) {
            request.effort.rounds = arguments.takeFirst().toInt();
        } else if (isWorkload(argument)) {
            request.workloads.append(argument);
        } else {
            return false;
        }
    }
    return request.effort.rounds > 0;
}

int showTables(const QStringList& files)
{
    std::vector<Result> results;
    for (const QString& name : files) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly)) {
            (void)std::fprintf(stderr, "zobench: cannot read %s\n", qPrintable(name));
            return failed;
        }
        merge(QJsonDocument::fromJson(file.readAll()).array(), results);
    }
    printTables(results);
    return 0;
}

int measure(const Request& request)
{
    std::vector<Result> results;
    bool isRight = true;
    for (const Workload& workload : workloads()) {
        const QString name = QString::fromStdString(workload.name);
        if (!request.workloads.isEmpty() && !request.workloads.contains(name))
            continue;
        if (runWorkload(workload, request.effort, results)) {
            if (request.effort.checksOnly)
                std::printf("PASS   : benchmarks: %s\n", qPrintable(name));
        } else {
            std::printf("FAIL!  : benchmarks: %s\n", qPrintable(name));
            isRight = false;
        }
        (void)std::fflush(stdout);
    }

    if (!request.json.isEmpty()) {
        QFile file(request.json);
        if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(toJson(results)).toJson()) < 0) {
            (void)std::fprintf(stderr, "zobench: cannot write %s\n", qPrintable(request.json));
            return failed;
        }
    } else if (!request.effort.checksOnly) {
        printTables(results);
    }
    return isRight ? 0 : failed;
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    ZoEffectModel::InitEffectModel(effectTable());

    Request request;
    if (!read(QCoreApplication::arguments(), request)) {
        (void)std::fputs(usageText, stderr);
        return wrongUsage;
    }
    if (request.list) {
        for (const Workload& workload : workloads())
            std::printf("%-15s %s\n", workload.name.c_str(), workload.title.c_str());
        return 0;
    }
    return request.tables.isEmpty() ? measure(request) : showTables(request.tables);
}
