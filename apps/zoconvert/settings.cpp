// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert settings: writes settings files, to the screen or into files.

#include <QDir>
#include <QFileInfo>

#include <zokit/settingsfile.h>

#include "console.h"
#include "existing.h"
#include "input.h"
#include "outputs.h"
#include "run.h"
#include "words.h"

namespace zoconvert {

namespace {

const QString ending = QStringLiteral(".zoeffect.json");

bool isFolder(const QString& path)
{
    return path.endsWith(QLatin1Char('/')) || QFileInfo(path).isDir();
}

QString nameInFolder(const QString& input)
{
    const QString name = QFileInfo(input).fileName();
    return name.endsWith(ending) ? name : QFileInfo(input).completeBaseName() + ending;
}

/// Where each of \a inputs goes; what stands in the way of all of them becomes \a error.
QStringList outputsOf(const std::vector<Input>& inputs, const QString& output, QString* error)
{
    QStringList files;
    if (inputs.size() > 1 && !isFolder(output))
        *error = say(Say::SeveralInputs, {output});
    for (const Input& input : inputs) {
        const QString folder = QDir(output).filePath(input.below);
        const QString file = isFolder(output) ? QDir(folder).filePath(nameInFolder(input.name)) : output;
        const auto other = files.indexOf(file);
        if (other >= 0 && error->isEmpty())
            *error = say(Say::SameOutput, {file, inputs.at(static_cast<std::size_t>(other)).name, input.name});
        files.append(file);
    }
    return files;
}

/// Names each of \a outputs that is a file of which the settings tell. False: none is.
bool anySource(const QStringList& outputs, const std::vector<Input>& inputs)
{
    QStringList sources;
    for (const Input& input : inputs)
        sources += zokit::namedFiles(input.settings->settings());
    bool any = false;
    for (const QString& output : outputs) {
        const QString refused = refusedAsSource(output, sources);
        if (!refused.isEmpty())
            console::error(refused);
        any = any || !refused.isEmpty();
    }
    return any;
}

int writeFiles(const std::vector<Input>& inputs, const Invocation& invocation)
{
    const QString output = invocation.value("output");
    QString error;
    const QStringList files = outputsOf(inputs, output, &error);
    if (!error.isEmpty()) {
        console::error(error);
        return Usage;
    }
    const Existing existing = existingOf(invocation);
    if (anySource(files, inputs) || (existing == Existing::Refuse && anyExists(files)))
        return Failed;
    int failures = 0;
    for (int i = 0; i < files.size(); ++i) {
        const Input& input = inputs.at(static_cast<std::size_t>(i));
        if (existing == Existing::Skip && isThere(files.at(i))) {
            console::note(say(Say::LeftThere, {files.at(i)}), input.name);
            continue;
        }
        if (isFolder(output))
            QDir().mkpath(QFileInfo(files.at(i)).path()); // Where it cannot be made, writing says so.
        const zokit::Message failure = zokit::saveSettings(input.settings->settings(), files.at(i));
        if (!failure.isEmpty()) {
            console::error(failure.text());
            ++failures;
        }
    }
    if (failures == 0)
        return Done;
    return failures == files.size() ? Failed : Partly;
}

} // namespace

int settings(const Invocation& invocation)
{
    std::vector<Input> inputs;
    int failures = 0;
    for (const FileJob& file : expandFolders(invocation)) {
        Input input = file.error.isEmpty() ? loadInput(file.input, invocation) : Input();
        input.below = file.below;
        if (!file.error.isEmpty()) {
            input.error = file.error;
            input.code = Failed;
        }
        if (input.settings)
            edit(input, invocation);
        for (const QString& warning : std::as_const(input.warnings))
            console::warning(warning, input.name);
        if (input.error.isEmpty()) {
            inputs.push_back(std::move(input));
            continue;
        }
        console::error(input.error);
        if (input.code == Usage)
            return Usage;
        ++failures;
    }
    if (inputs.empty())
        return Failed;
    int code = Done;
    if (invocation.has("output")) {
        code = writeFiles(inputs, invocation);
    } else {
        for (const Input& input : inputs) {
            zokit::Message error;
            console::print(zokit::writeSettings(input.settings->settings(), QString(), &error));
            if (error.isEmpty())
                continue;
            console::error(error.text());
            code = Failed;
        }
    }
    return code == Done && failures > 0 ? Partly : code;
}

} // namespace zoconvert
