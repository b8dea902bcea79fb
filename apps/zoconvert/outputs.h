// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include <zokit/conversion.h>

#include "invocation.h"

namespace zoconvert {

/// One file of a run: from the word of the command line to the job of the kit.
struct FileJob {
    QString input;                                         ///< As it was typed, or found in a folder.
    QString below;                                         ///< Its folder below the one that was named; empty: none.
    QString clip;                                          ///< The media file.
    QString output;                                        ///< As it is shown.
    std::optional<zokit::Settings> loaded;                 ///< What a settings file among the inputs holds.
    zokit::Job job;                                        ///< Input and output as absolute paths.
    QStringList warnings;                                  ///< Of its settings.
    QString error;                                         ///< Why it fails before it begins; names the file.
    zokit::FailureKind kind = zokit::FailureKind::Lasting; ///< Of the error.
    bool isThere = false;                                  ///< The result is there, and the file is left out.
    bool isHeldBack = false;                               ///< Not begun, because another output is refused.
};

using FileJobs = std::vector<FileJob>;

/// The words of \a invocation, folders replaced by the media files in them; one without any is there with its error.
FileJobs expandFolders(const Invocation& invocation);

/// The inputs of \a invocation, folders replaced by the media files in them. A file that is missing is there with its
/// error; a sentence that answers is wrong usage.
QString collectInputs(const Invocation& invocation, FileJobs* files);

/// Where the results go. A sentence that answers is wrong usage: nothing may be begun.
QString nameOutputs(const Invocation& invocation, FileJobs* files);

/// What stands in the way of the results: each one that is there, as --existing says, and each one that is an input.
/// The sentences say what keeps all files from being begun.
QStringList refusedOutputs(const Invocation& invocation, FileJobs* files);

/// An output option of \a invocation, also where the command names it among its own; invalid when it was not given.
QVariant outputValue(const Invocation& invocation, const char* name);

} // namespace zoconvert
