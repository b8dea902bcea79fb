// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert convert: converts files, each by its settings.

#include <algorithm>

#include "console.h"
#include "run.h"
#include "runner.h"
#include "signals.h"
#include "words.h"

namespace zoconvert {

int convert(const Invocation& invocation)
{
    Signals source;
    FileJobs files;
    const RunOptions options = runOptions(invocation);
    const auto refused = [](const QString& sentence) {
        if (!sentence.isEmpty())
            console::error(sentence);
        return !sentence.isEmpty();
    };
    if (refused(collectInputs(invocation, &files)) || refused(nameOutputs(invocation, &files)))
        return Usage;
    const bool begins = refusedOutputs(invocation, &files).isEmpty();
    if (begins && refused(makeSettings(invocation, options, &source, &files)))
        return Usage;
    if (!begins) {
        for (FileJob& file : files)
            if (file.error.isEmpty() && !file.isThere)
                file.isHeldBack = true;
    }
    Progress progress(invocation);
    const RunResult result = runFiles(files, options, &progress, &source);
    return begins ? result.code() : Failed;
}

} // namespace zoconvert
