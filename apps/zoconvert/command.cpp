// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert command: what convert would run, a line a step.

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QTemporaryDir>

#include <zokit/shell.h>

#include "console.h"
#include "existing.h"
#include "run.h"
#include "runner.h"
#include "signals.h"
#include "words.h"

namespace zoconvert {

namespace {

int refused(const QString& sentence, int code)
{
    console::error(sentence);
    return code;
}

} // namespace

int command(const Invocation& invocation)
{
    Signals source;
    FileJobs files;
    for (const QString& wrong : {collectInputs(invocation, &files), nameOutputs(invocation, &files)})
        if (!wrong.isEmpty())
            return refused(wrong, Usage);
    if (files.size() != 1)
        return refused(say(Say::OneFileOnly, {invocation.words.first()}), Usage);
    FileJob& file = files.front();
    refusedOutputs(invocation, &files);
    if (file.error == thereAlready(file.output))
        file.error.clear(); // Nothing is written.
    file.isThere = false;
    const RunOptions options = runOptions(invocation);
    if (const QString wrong = makeSettings(invocation, options, &source, &files); !wrong.isEmpty())
        return refused(wrong, Usage);
    if (!file.error.isEmpty())
        return refused(file.error, Failed);

    const QTemporaryDir temporary;
    const bool keeps = invocation.has("files");
    const QString folder = keeps ? QFileInfo(invocation.value("files")).absoluteFilePath() : temporary.path();
    if (!QDir().mkpath(folder))
        return refused(say(Say::NoFolder, {folder}), Failed);
    file.job.threads = options.threads;
    file.job.stallSeconds = options.stall;
    zokit::Conversion conversion(zokit::findTools());
    zokit::ConversionResult result;
    QEventLoop loop;
    QObject::connect(&conversion, &zokit::Conversion::finished, &loop, [&](const zokit::ConversionResult& ended) {
        result = ended;
        loop.quit();
    });
    source.onEnd = [&] { conversion.cancel(); };
    conversion.prepare(file.job, folder);
    loop.exec();
    for (const QString& warning : std::as_const(file.warnings))
        console::warning(warning, file.input);
    for (const zokit::Message& warning : std::as_const(result.warnings))
        console::warning(warning.text(), file.input);
    if (result.outcome != zokit::Outcome::Done)
        return refused(file.input + QStringLiteral(": ") + result.reason.text(),
                       source.received() == 0 ? Failed : RunResult{{}, {}, {}, source.received()}.code());
    if (const QString target = QFileInfo(file.job.output).absolutePath(); keeps && !QDir().mkpath(target))
        return refused(say(Say::NoFolder, {target}), Failed);
    for (const QString& line : zokit::shellLines(conversion.commands(), folder, file.job.replaces))
        console::print(line.toUtf8() + '\n');
    if (!keeps && !QDir(folder).isEmpty())
        console::warning(say(Say::FilesGone), file.input);
    return Done;
}

} // namespace zoconvert
