// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "outputs.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <zokit/opening.h>
#include <zokit/resultname.h>
#include <zokit/settingsfile.h>

#include "commands.h"
#include "console.h"
#include "edits.h"
#include "existing.h"
#include "input.h"
#include "words.h"

namespace zoconvert {

namespace {

const QString settingsEnding = QStringLiteral(".zoeffect.json");

/// Media files of \a folder in the order of their names, those of the folders in it after its own.
// NOLINTNEXTLINE(misc-no-recursion): folders nest.
void addFolder(const QString& folder, const QString& below, bool isRecursive, FileJobs* files)
{
    const QDir dir(folder);
    for (const QString& path : zokit::mediaFilesIn(folder, false)) {
        FileJob file;
        file.input = path;
        file.below = below;
        file.clip = file.input;
        files->push_back(file);
    }
    if (!isRecursive)
        return;
    for (const QString& name : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name))
        addFolder(dir.filePath(name), below.isEmpty() ? name : below + QLatin1Char('/') + name, true, files);
}

QString loadSettingsOf(FileJob* file)
{
    const zokit::ReadSettings read = zokit::loadSettings(file->input);
    if (!read.settings && QFileInfo::exists(file->input))
        return read.error.text();
    if (!read.settings) {
        file->error = read.error.text();
        return {};
    }
    for (const zokit::Message& warning : read.warnings)
        if (warning.code() != zokit::Message::Code::MissingAt)
            console::warning(warning.text(), file->input);
    file->loaded = read.settings;
    file->clip = read.settings->media.file;
    if (file->clip.isEmpty())
        file->error = named(file->input, say(Say::NamesNoClip));
    return {};
}

QString baseName(const QString& input)
{
    const QString name = QFileInfo(input).fileName();
    return name.endsWith(settingsEnding) ? name.left(name.size() - settingsEnding.size())
                                         : QFileInfo(input).completeBaseName();
}

/// What is wrong with \a pattern; empty: nothing.
QString checkPattern(const QString& pattern)
{
    const QString wrong = zokit::wrongInPattern(pattern);
    if (wrong == QLatin1String("/"))
        return say(Say::PatternSlash, {pattern});
    return wrong.isEmpty() ? QString() : say(Say::PatternWord, {wrong});
}

/// A path in \a folder; of one in the current folder only the name.
QString inFolder(const QString& folder, const QString& name)
{
    return folder.isEmpty() ? name : QDir(folder).filePath(name);
}

QString folderOf(const QString& input)
{
    const auto slash = input.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QString() : input.left(std::max<int>(static_cast<int>(slash), 1));
}

/// The path by which two outputs are the same: that of the folder without links, as far as it is there.
QString placeOf(const QString& path)
{
    const QFileInfo info(path);
    const QString folder = QFileInfo(info.absolutePath()).canonicalFilePath();
    return (folder.isEmpty() ? info.absolutePath() : folder) + QLatin1Char('/') + info.fileName();
}

/// What a run has written into a folder is no input of the next one. Where results are replaced, only another name than
/// its source has tells that a file is one: else it may be another film.
void dropResults(const Invocation& invocation, FileJobs* files)
{
    QHash<QString, QString> sources; // By the place of their result.
    for (const FileJob& file : *files)
        sources.insert(placeOf(file.job.output), file.input);
    const bool replaces = existingOf(invocation) == Existing::Replace;
    const auto isResult = [&](const FileJob& file) {
        const QString source = sources.value(placeOf(file.job.input), file.input);
        return source != file.input && !invocation.words.contains(file.input)
               && !(replaces && baseName(source) == baseName(file.input));
    };
    files->erase(std::remove_if(files->begin(), files->end(), isResult), files->end());
}

} // namespace

QVariant outputValue(const Invocation& invocation, const char* name)
{
    const QString key = QLatin1String(name);
    if (invocation.own.contains(key))
        return invocation.own.value(key).isEmpty() ? QVariant(true) : QVariant(invocation.own.value(key));
    return invocation.output.value(key);
}

FileJobs expandFolders(const Invocation& invocation)
{
    const QString recursive = QStringLiteral("recursive");
    const bool isRecursive = invocation.has("recursive");
    const bool couldBe = !isRecursive && invocation.command->own.contains(recursive);
    FileJobs files;
    for (const QString& word : invocation.words) {
        FileJob file;
        file.input = file.clip = word;
        if (!invocation.notUtf8.contains(word) && QFileInfo(word).isDir()) {
            const std::size_t before = files.size();
            addFolder(word, QString(), isRecursive, &files);
            if (files.size() > before)
                continue;
            file.error = named(word, say(Say::EmptyFolder, {couldBe ? QStringLiteral("--") + recursive : QString()}));
        }
        files.push_back(file);
    }
    return files;
}

QString collectInputs(const Invocation& invocation, FileJobs* files)
{
    *files = expandFolders(invocation);
    for (FileJob& file : *files) {
        if (!file.error.isEmpty())
            continue;
        if (invocation.notUtf8.contains(file.input)) {
            file.error = named(file.input, say(Say::NotUtf8));
        } else if (file.input.endsWith(QLatin1String(".json"))) {
            if (const QString refused = loadSettingsOf(&file); !refused.isEmpty())
                return refused;
        } else if (const zokit::Message wrong = zokit::checkInput(file.input); !wrong.isEmpty()) {
            const QString sentence = wrong.text();
            file.error = wrong.arguments().contains(file.input) ? sentence : named(file.input, sentence);
        }
    }
    for (FileJob& file : *files) {
        file.job.input = QFileInfo(file.clip).absoluteFilePath();
        file.job.stallSeconds = 0; // As the run's options say.
    }
    return {};
}

namespace {

/// What is wrong with --output, which is given, for \a count inputs.
QString refusedOutput(const Invocation& invocation, std::size_t count)
{
    const QString output = outputValue(invocation, "output").toString();
    if (!outputValue(invocation, "output-folder").toString().isEmpty())
        return say(Say::NotBoth, {QStringLiteral("--output"), QStringLiteral("--output-folder")});
    if (invocation.output.contains(QStringLiteral("name")))
        return say(Say::NotBoth, {QStringLiteral("--output"), QStringLiteral("--name")});
    if (count != 1)
        return say(Say::OneInputOnly, {output, QString::number(count)});
    if (output.endsWith(QLatin1Char('/')) || QFileInfo(output).isDir())
        return zokit::Message(zokit::Message::Code::OutputIsFolder, {output}).text();
    if (outputValue(invocation, "container").toString().isEmpty() && zokit::containerOf(output).isEmpty())
        return say(Say::UnknownEnding, {output});
    return {};
}

/// Two results with one name.
QString samePlace(const FileJobs& files)
{
    QHash<QString, QString> taken;
    for (const FileJob& file : files) {
        const QString place = placeOf(file.job.output);
        if (taken.contains(place))
            return say(Say::SameOutput, {file.output, taken.value(place), file.input});
        taken.insert(place, file.input);
    }
    return {};
}

/// Where the result of \a file goes, which has the settings \a options and is \a number of \a count. A sentence that
/// answers is wrong usage.
QString nameOutput(const Invocation& invocation, const zokit::Settings& options, int number, int count, FileJob* file)
{
    const QString output = outputValue(invocation, "output").toString();
    const QString folder = outputValue(invocation, "output-folder").toString();
    const QString container = outputValue(invocation, "container").toString();
    const QString ending = zokit::containerFor(options, file->clip);
    const QString pattern = options.output.value(QStringLiteral("name")).toString();
    if (const QString wrong = checkPattern(pattern); !wrong.isEmpty())
        return wrong;
    const QString name = zokit::resultName(pattern, baseName(file->input), ending, number, count);
    const QString place = folder.isEmpty() ? folderOf(file->input) : inFolder(folder, file->below);
    file->output = output.isEmpty() ? inFolder(place, name) : output;
    file->job.output = QDir::cleanPath(QFileInfo(file->output).absoluteFilePath());
    const QString said = zokit::containerOf(file->output);
    if (!container.isEmpty() && !said.isEmpty() && said != container)
        return say(Say::EndingDiffers, {file->output, container});
    return zokit::checkCodecs(options, said.isEmpty() ? ending : said).text();
}

} // namespace

QString nameOutputs(const Invocation& invocation, FileJobs* files)
{
    const bool hasName = !outputValue(invocation, "output").toString().isEmpty();
    if (const QString refused = hasName ? refusedOutput(invocation, files->size()) : QString(); !refused.isEmpty())
        return refused;
    std::optional<zokit::Settings> ofClips; // The same for all inputs that are no settings files.
    int number = 0;
    for (FileJob& file : *files) {
        zokit::Settings options;
        QString refused;
        if (file.loaded || !ofClips)
            refused = settingsAhead(file.input, file.loaded, invocation, &options);
        else
            options = *ofClips;
        if (!file.loaded)
            ofClips = options;
        if (refused.isEmpty())
            refused = nameOutput(invocation, options, ++number, static_cast<int>(files->size()), &file);
        if (!refused.isEmpty())
            return refused;
    }
    dropResults(invocation, files);
    return samePlace(*files);
}

QStringList refusedOutputs(const Invocation& invocation, FileJobs* files)
{
    QSet<FileKey> inputs;
    for (const FileJob& file : *files) {
        for (const QString& path : {file.input, file.job.input})
            if (const std::optional<FileKey> key = keyOf(path))
                inputs.insert(*key);
    }
    const Existing existing = existingOf(invocation);
    QStringList refused;
    for (FileJob& file : *files) {
        file.job.replaces = existing == Existing::Replace;
        const std::optional<FileKey> key = keyOf(file.job.output);
        if (key && inputs.contains(*key)) {
            file.error = zokit::Message(zokit::Message::Code::OutputIsInput, {file.output}).text();
            refused.append(file.error);
        } else if (existing != Existing::Replace && isThere(file.job.output)) {
            file.isThere = existing == Existing::Skip;
            if (file.isThere)
                continue;
            file.error = thereAlready(file.output);
            refused.append(file.error);
        }
    }
    return refused;
}

} // namespace zoconvert
