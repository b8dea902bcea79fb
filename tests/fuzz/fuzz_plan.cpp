// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A line of a plan of conversions.

#include <QDir>
#include <QJsonDocument>

#include "bytes.h"
#include "planfile.h"
#include "runtime.h"
#include "session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session::instance();
    Bytes bytes(data, size);
    const QJsonObject line = QJsonDocument::fromJson(bytes.rest()).object();
    QString why;
    const std::optional<zoconvert::PlannedJob> read = zoconvert::readPlanLine(line, &why);
    require(!why.contains(QLatin1Char('\n')), "a reason is one line");
    if (!read)
        return 0;
    const zokit::Job& job = read->file.job;
    require(read->number >= 1 && read->threads >= 0 && read->stall >= 0, "nothing is counted below zero");
    require(QDir::isAbsolutePath(job.input) && QDir::isAbsolutePath(job.output), "files are found from any folder");
    require(!zoconvert::lackingOf(read->needs).contains(QLatin1Char('\n')), "so is what is lacking");
    const QVariantMap options{{QStringLiteral("threads"), read->threads}, {QStringLiteral("stall"), read->stall}};
    const QByteArray written = zoconvert::planLine(read->number, read->file, options);
    require(written.endsWith('\n') && written.count('\n') == 1, "a line is one");
    const auto again = zoconvert::readPlanLine(QJsonDocument::fromJson(written).object(), &why);
    require(again && again->number == read->number && again->threads == read->threads && again->stall == read->stall
                && again->file.job.input == job.input && again->file.job.output == job.output,
            "a line that was written is read as it was");
    require(again->file.job.settings == job.settings, "so are its settings");
    return 0;
}
