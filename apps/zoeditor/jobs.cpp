// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "jobs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QThread>

#include <zokit/resultname.h>
#include <zokit/trackplan.h>

#include "names.h"
#include "session.h"

namespace zoeditor {

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("zoeditor::Jobs", text);
}

QString nameOf(zokit::RowState state)
{
    using zokit::RowState;
    switch (state) {
    case RowState::Waiting:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "waiting"));
    case RowState::Running:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "running"));
    case RowState::Paused:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "paused"));
    case RowState::Done:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "done"));
    case RowState::Failed:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "failed"));
    case RowState::Cancelled:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "cancelled"));
    case RowState::Skipped:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "skipped"));
    case RowState::Interrupted:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "interrupted"));
    }
    return {};
}

/// The path by which two names are one file, as far as it is there.
QString placeOf(const QString& path)
{
    const QString place = QFileInfo(path).canonicalFilePath();
    return place.isEmpty() ? QDir::cleanPath(path) : place;
}

} // namespace

MadeJobs jobsFor(Session& session, const QVector<zokit::FileSettings*>& files, const ResultsWanted& wanted)
{
    MadeJobs made;
    QHash<QString, QString> results; // Names of clips by the place of the result.
    QSet<QString> clips;
    for (const zokit::FileSettings* file : session.project().files())
        clips.insert(placeOf(file->media().file));
    const int count = static_cast<int>(files.size());
    for (int i = 0; i < count; ++i) {
        zokit::Job job;
        job.settings = files.at(i)->settings();
        const QFileInfo clip(job.settings.media.file);
        const QString pattern = job.settings.output.value(QStringLiteral("name")).toString();
        if (const QString wrong = zokit::wrongInPattern(pattern); !wrong.isEmpty()) {
            made.problem =
                say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "%1: the name of a result cannot have %2. Use {name}, "
                                                        "{number} and {ending}, and choose a folder below."))
                    .arg(clip.fileName(), wrong);
            return made;
        }
        job.input = clip.absoluteFilePath();
        const QString name = zokit::resultName(pattern, clip.completeBaseName(),
                                               zokit::containerFor(job.settings, job.input), i + 1, count);
        job.output = QDir(wanted.folder.isEmpty() ? clip.absolutePath() : wanted.folder).absoluteFilePath(name);
        job.replaces = wanted.existing == QLatin1String("replace");
        job.skips = wanted.existing == QLatin1String("skip");
        job.threads = QThread::idealThreadCount();
        if (const zokit::MediaInfo* media = session.mediaOf(files.at(i))) {
            job.media = *media;
            job.media->file = job.input; // Helpers run in another folder.
        }
        const QString place = placeOf(job.output);
        if (clips.contains(place)) {
            made.problem = say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "%1 is one of the clips. Choose another name."))
                               .arg(job.output);
            return made;
        }
        if (results.contains(place)) {
            made.problem =
                say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "%1 and %2 would both become %3. Put {name} or {number} into "
                                                        "the name."))
                    .arg(results.value(place), clip.fileName(), name);
            return made;
        }
        results.insert(place, clip.fileName());
        made.jobs.append(job);
    }
    if (made.jobs.isEmpty())
        made.problem = say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "There is nothing to convert. Add files first."));
    return made;
}

AddedJobs addTo(zokit::Queue* queue, const QVector<zokit::Job>& jobs)
{
    AddedJobs added;
    for (const zokit::Job& job : jobs) {
        bool isThere = false;
        for (const int row : queue->rows()) {
            const zokit::RowState state = queue->state(row);
            if (queue->job(row).input != job.input || queue->job(row).output != job.output)
                continue;
            const zokit::Job& there = queue->job(row);
            const bool isSame =
                there.settings == job.settings && there.replaces == job.replaces && there.skips == job.skips;
            if (state == zokit::RowState::Interrupted || (state == zokit::RowState::Waiting && !isSame))
                queue->remove(row);
            else
                isThere = isThere || state == zokit::RowState::Waiting || state == zokit::RowState::Running
                          || state == zokit::RowState::Paused;
        }
        if (isThere) {
            added.known.append(shownName(job.input));
        } else {
            queue->add(job);
            ++added.count;
        }
    }
    return added;
}

QString sentenceOf(const zokit::Message& message)
{
    using Code = zokit::Message::Code;
    switch (message.code()) {
    case Code::OutputExists:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "%1 exists. Choose another folder, or what happens to existing "
                                                       "files, in Convert."))
            .arg(message.arguments().value(0));
    case Code::OutputIsFolder:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs", "%1 is a folder. Choose another name or folder in Convert."))
            .arg(message.arguments().value(0));
    case Code::ChildStalled:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs",
                                     "There was no progress for %1 s. Check the disk, and try again."))
            .arg(message.arguments().value(0));
    case Code::DamageStrict:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs",
                                     "The input is damaged, and \"Strict\" in Convert does not allow that. Switch it "
                                     "off to convert what can be read."));
    case Code::NoPictureToBurn:
        return say(QT_TRANSLATE_NOOP("zoeditor::Jobs",
                                     "The clip has no picture to burn subtitles into. Tick \"Soft subtitles\" in "
                                     "Convert, or leave them out."));
    default:
        return message.text();
    }
}

QString workText(const zokit::Queue& queue, int row)
{
    const zokit::RowState state = queue.state(row);
    QString reason = sentenceOf(queue.result(row).reason);
    if (const QString where = queue.job(row).input + QLatin1String(": "); reason.startsWith(where))
        reason = reason.mid(where.size()); // Which file it is stands beside it.
    const bool isTold = (state == zokit::RowState::Failed || state == zokit::RowState::Skipped) && !reason.isEmpty();
    return isTold ? QStringLiteral("%1: %2").arg(nameOf(state), reason) : nameOf(state);
}

QHash<QString, QString> workOfClips(const zokit::Queue& queue)
{
    QHash<QString, QString> works;
    for (const int row : queue.rows())
        works.insert(queue.job(row).input, workText(queue, row));
    return works;
}

} // namespace zoeditor
