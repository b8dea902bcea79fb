// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert work: does jobs of a plan. A job whose result is there is done, so that any number of runs can share one.

#include <algorithm>

#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <set>

#include <zokit/probe.h>

#include "console.h"
#include "input.h"
#include "planfile.h"
#include "run.h"
#include "runner.h"
#include "signals.h"
#include "words.h"

namespace zoconvert {

namespace {

constexpr int mayBeTriedAgain = 75;
constexpr int setupIsWrong = 76;

struct Plan {
    std::vector<PlannedJob> jobs; ///< Those that were asked for.
    QString error;                ///< What is wrong with the plan, or with a number.
};

/// The jobs of the plan at \a path that \a words number, all where there are none. Of the others only the numbers are
/// read: a farm calls once a job.
Plan readPlan(const QString& path, const QStringList& words)
{
    QFile file(path);
    if (const QString unreadable = openedForReading(&file); !unreadable.isEmpty())
        return {{}, unreadable};
    QSet<int> wanted;
    for (const QString& word : words)
        wanted.insert(word.toInt());
    Plan plan;
    QSet<int> there;
    constexpr qint64 longest = qint64(64) * 1024 * 1024;
    for (int number = 1; !file.atEnd(); ++number) {
        const QByteArray line = file.readLine(longest).trimmed();
        if (line.isEmpty())
            continue;
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        const int job = object.value(QLatin1String("job")).toInt();
        if (job > 0)
            there.insert(job);
        if (job > 0 && !wanted.isEmpty() && !wanted.contains(job))
            continue;
        QString why;
        std::optional<PlannedJob> read = readPlanLine(object, &why);
        if (!read)
            return {{}, say(Say::PlanLine, {path, QString::number(number), why})};
        plan.jobs.push_back(std::move(*read));
    }
    for (const QString& word : words) {
        if (!there.contains(word.toInt()))
            return {{}, say(Say::NoJob, {word, QString::number(there.size())})};
    }
    return plan;
}

int report(const QString& plan, const std::vector<PlannedJob>& jobs)
{
    QHash<int, QJsonObject> latest;
    QFile file(resultsPath(plan));
    if (file.open(QIODevice::ReadOnly)) {
        while (!file.atEnd()) {
            const QJsonObject line = QJsonDocument::fromJson(file.readLine()).object();
            const int number = line.value(QStringLiteral("job")).toInt();
            // That a job was left out later does not change what became of it.
            const bool isNews = line.value(QStringLiteral("outcome")) != QLatin1String("skipped");
            if (isNews || !latest.contains(number))
                latest.insert(number, line);
        }
    }
    for (const PlannedJob& job : jobs) {
        const QJsonObject line = latest.value(job.number);
        const QString outcome = line.value(QStringLiteral("outcome")).toString(QStringLiteral("waiting"));
        const QString reason = line.value(QStringLiteral("reason")).toString();
        QString text = QStringLiteral("%1 %2 ").arg(job.number).arg(outcome) + job.file.output;
        if (!reason.isEmpty())
            text += QStringLiteral(": ") + reason;
        console::printLine(text);
    }
    return Done;
}

/// What has to be there before a job begins.
void checkSetup(PlannedJob* job)
{
    const zokit::Message input = zokit::checkInput(job->file.job.input);
    job->file.error = input.isEmpty() ? lackingOf(job->needs) : input.text();
    if (!job->file.error.isEmpty())
        job->file.kind = zokit::FailureKind::Setup;
}

} // namespace

int work(const Invocation& invocation)
{
    const QString plan = invocation.words.first();
    Plan read = readPlan(plan, invocation.words.mid(1));
    if (!read.error.isEmpty()) {
        console::error(read.error);
        return Usage;
    }
    std::vector<PlannedJob>& jobs = read.jobs;
    if (invocation.has("report"))
        return report(plan, jobs);

    Signals source;
    RunOptions options = runOptions(invocation);
    FileJobs files;
    for (PlannedJob& job : jobs) {
        checkSetup(&job);
        // The command line goes before what was planned.
        job.file.job.threads = invocation.has("threads") ? options.threads : job.threads;
        job.file.job.stallSeconds = invocation.has("stall") ? options.stall : job.stall;
        files.push_back(job.file);
    }
    bool isKept = true;
    options.ended = [&](int place, zokit::Outcome outcome, const QString& reason) {
        isKept = addResult(plan, jobs.at(static_cast<std::size_t>(place)).number, outcome, reason) && isKept;
    };
    Progress progress(invocation);
    const RunResult result = runFiles(files, options, &progress, &source);
    if (!isKept)
        console::warning(say(Say::ResultsNotKept, {resultsPath(plan)}));
    if (result.signal != 0 || result.failures.empty())
        return result.code();
    if (result.failures.count(zokit::FailureKind::Setup) > 0)
        return setupIsWrong;
    return result.failures == std::set<zokit::FailureKind>{zokit::FailureKind::Temporary} ? mayBeTriedAgain
                                                                                          : result.code();
}

} // namespace zoconvert
