// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert plan: self-contained jobs, one a line, for work.

#include <QSaveFile>

#include <zokit/settingsfile.h>

#include "console.h"
#include "existing.h"
#include "planfile.h"
#include "run.h"
#include "runner.h"
#include "signals.h"
#include "words.h"

namespace zoconvert {

namespace {

/// What the command line says of how jobs are run.
QVariantMap toldOfRuns(const Invocation& invocation)
{
    QVariantMap told;
    for (const char* name : {"threads", "stall"})
        if (const QVariant value = outputValue(invocation, name); value.isValid())
            told.insert(QString::fromLatin1(name), value);
    return told;
}

} // namespace

int plan(const Invocation& invocation)
{
    const auto refused = [](const QString& sentence) {
        if (!sentence.isEmpty())
            console::error(sentence);
        return !sentence.isEmpty();
    };
    const QString path = invocation.value("plan");
    if (path.isEmpty() && refused(say(Say::NeedsOption, {QStringLiteral("plan"), QStringLiteral("--plan PLAN")})))
        return Usage;
    Signals source;
    FileJobs files;
    if (refused(collectInputs(invocation, &files)) || refused(nameOutputs(invocation, &files)))
        return Usage;
    if (isThere(path) && existingOf(invocation) != Existing::Replace && refused(say(Say::FileThere, {path})))
        return Failed;
    refusedOutputs(invocation, &files);
    for (FileJob& file : files) {
        file.isThere = false; // What is there by then is skipped by work.
        if (file.error == thereAlready(file.output))
            file.error.clear();
    }
    const RunOptions options = runOptions(invocation);
    if (refused(makeSettings(invocation, options, &source, &files)))
        return Usage;

    const QVariantMap told = toldOfRuns(invocation);
    RunResult result;
    result.signal = source.received();
    QStringList sources;
    QByteArray lines;
    int number = 0;
    for (const FileJob& file : files) {
        for (const QString& warning : file.warnings)
            console::warning(warning, file.input);
        result.outcomes.append(refused(file.error) ? zokit::Outcome::Failed : zokit::Outcome::Done);
        sources += zokit::namedFiles(file.job.settings) + QStringList{file.input, file.job.input};
        if (file.error.isEmpty() && result.signal == 0)
            lines += planLine(++number, file, told);
    }
    if (lines.isEmpty() || result.signal != 0)
        return result.code();
    if (refused(refusedAsSource(path, sources)))
        return Failed;
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(lines) != lines.size() || !out.flush() || !out.commit()) {
        console::error(zokit::Message(zokit::Message::Code::FileUnwritable, {path, out.errorString()}).text());
        return Failed;
    }
    return result.code();
}

} // namespace zoconvert
