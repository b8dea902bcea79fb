// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The settings of each file of a run: its clip is looked into, then the edits act.

#include <algorithm>

#include <QEventLoop>

#include <zokit/address.h>
#include <zokit/outputoptions.h>
#include <zokit/settingsfile.h>

#include "existing.h"
#include "input.h"
#include "runner.h"
#include "signals.h"
#include "words.h"

namespace zoconvert {

namespace {

/// Looks into the clips of \a files, some at once.
class Probes : public QObject {
public:
    Probes(FileJobs* files, Signals* source) : m_files(files), m_signals(source), m_tools(zokit::findTools()) {}

    void run(int atOnce)
    {
        for (int i = 0; i < atOnce; ++i) {
            auto prober = std::make_unique<zokit::Prober>(m_tools);
            zokit::Prober* asked = prober.get();
            m_probers.push_back(std::move(prober));
            const auto place = std::make_shared<std::size_t>(0);
            connect(asked, &zokit::Prober::finished, this, [this, asked, place](const zokit::ReadMedia& read) {
                --m_open;
                take(&m_files->at(*place), read);
                askNext(asked, place.get());
            });
            askNext(asked, place.get());
        }
        m_signals->onEnd = [this] {
            m_probers.clear();
            m_loop.quit();
        };
        if (m_open > 0)
            m_loop.exec();
        m_signals->onEnd = nullptr;
    }

private:
    void askNext(zokit::Prober* prober, std::size_t* place)
    {
        while (m_next < m_files->size() && !isWanted(m_files->at(m_next)))
            ++m_next;
        if (m_next < m_files->size()) {
            *place = m_next++;
            ++m_open;
            prober->probe(m_files->at(*place).clip);
        } else if (m_open == 0) {
            m_loop.quit();
        }
    }

    bool isWanted(FileJob& file) const
    {
        if (!file.error.isEmpty() || file.isThere || file.job.media)
            return false;
        if (m_tools.error.isEmpty())
            return true;
        file.error = m_tools.error.text();
        file.kind = zokit::FailureKind::Setup;
        return false;
    }

    static void take(FileJob* file, const zokit::ReadMedia& read)
    {
        file->job.media = read.media;
        if (read.media) {
            file->job.media->file = file->job.input; // Helpers run in another folder.
            return;
        }
        const QString sentence = read.error.text();
        file->error = read.error.arguments().contains(file->input) ? sentence : named(file->input, sentence);
    }

    FileJobs* m_files;
    Signals* m_signals;
    zokit::Tools m_tools;
    std::vector<std::unique_ptr<zokit::Prober>> m_probers;
    std::size_t m_next = 0;
    int m_open = 0;
    QEventLoop m_loop;
};

/// A file that \a settings name for something that takes part, and that is not there.
QString missingIn(const zokit::Settings& settings)
{
    for (const zokit::Message& missing : zokit::missingFiles(settings)) {
        const zokit::ReadAddress at = zokit::readAddress(missing.arguments().value(0));
        const zokit::TypeSettings* type = at.address ? settings.find(at.address->type) : nullptr;
        if (type && type->selected && at.address->pos >= 0 && at.address->pos < type->items.size()
            && type->items.at(at.address->pos).selected)
            return missing.text();
    }
    return {};
}

QString settingsOf(FileJob* file, const Invocation& invocation)
{
    Input input =
        file->loaded ? inputOf(file->input, *file->loaded, *file->job.media) : inputOf(file->input, *file->job.media);
    edit(input, invocation);
    if (!input.error.isEmpty())
        return input.error;
    for (const zokit::OutputOption& option : zokit::outputOptions()) {
        const QString& key = option.property.key;
        if (!option.inSettings || !invocation.output.contains(key))
            continue;
        const zokit::Message refused =
            input.settings->setValue(input.settings->output(), key, invocation.output.value(key));
        if (!refused.isEmpty())
            return refused.text();
    }
    file->job.settings = input.settings->settings();
    file->warnings = input.warnings;
    if (const QString missing = missingIn(file->job.settings); !missing.isEmpty())
        return named(file->input, missing);
    file->error = refusedAsSource(file->output, zokit::namedFiles(file->job.settings));
    return {};
}

} // namespace

QString makeSettings(const Invocation& invocation, const RunOptions& options, Signals* signals_, FileJobs* files)
{
    Probes(files, signals_).run(options.jobs);
    if (signals_->received() != 0)
        return {};
    for (FileJob& file : *files) {
        if (!file.error.isEmpty() || file.isThere)
            continue;
        if (const QString refused = settingsOf(&file, invocation); !refused.isEmpty())
            return refused;
    }
    return {};
}

} // namespace zoconvert
