// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/workbench.h>

#include <zokit/selection.h>

namespace zokit {

class Workbench::Private {
public:
    explicit Private(Workbench* bench) : q(bench) {}

    void tellError();

    Workbench* q;
    Tools tools = findTools();
    Project project;
    ProjectFiles files{project, tools};
    FilesModel filesModel{project};
    SettingsModel model;
    Selection selection{project, model};
    LivePreview preview{project.history(), tools};
    Message error; ///< Of the frames, that was told last.
};

/// Once, however often a frame is asked for.
void Workbench::Private::tellError()
{
    const Message now = preview.frames().error();
    if (now == error)
        return;
    error = now;
    if (!now.isEmpty())
        emit q->told(now);
}

Workbench::Workbench(QObject* parent) : QObject(parent), d(std::make_unique<Private>(this))
{
    connect(&d->selection, &Selection::currentChanged, this, [this](FileSettings* file) {
        d->preview.setFile(file, d->files.media(file));
        emit currentChanged(file);
    });
    connect(&d->selection, &Selection::chosenChanged, this, [this](quint64 thing) {
        d->preview.choose(thing);
        emit chosenChanged(thing);
    });
    connect(&d->files, &ProjectFiles::told, this, &Workbench::told);
    connect(&d->model, &SettingsModel::refused, this, [this](const Message& why) { emit told(why); });
    connect(&d->preview, &LivePreview::refused, this, &Workbench::told);
    connect(&d->preview, &LivePreview::chosen, this, &Workbench::choose);
    connect(&d->preview.frames(), &ShownFrames::changed, this, [this] { d->tellError(); });
}

Workbench::~Workbench() = default;

const Tools& Workbench::tools() const
{
    return d->tools;
}

Project& Workbench::project() const
{
    return d->project;
}

History& Workbench::history() const
{
    return d->project.history();
}

ProjectFiles& Workbench::files() const
{
    return d->files;
}

FilesModel& Workbench::filesModel() const
{
    return d->filesModel;
}

SettingsModel& Workbench::model() const
{
    return d->model;
}

LivePreview& Workbench::preview() const
{
    return d->preview;
}

FileSettings* Workbench::current() const
{
    return d->selection.current();
}

const MediaInfo* Workbench::media() const
{
    return d->files.media(current());
}

RuledTracks Workbench::tracksByRule() const
{
    if (!current())
        return {};
    const Settings settings = current()->settings();
    if (!media()) {
        const QString clip = settings.media.file;
        const Message refusal = checkInput(clip);
        return {{}, settings, {}, refusal.isEmpty() ? Message(Message::Code::NoMedia, {clip, QString()}) : refusal};
    }
    return zokit::tracksByRule(settings, *media());
}

void Workbench::setCurrent(FileSettings* file)
{
    d->selection.setCurrent(file);
}

Identity Workbench::chosen() const
{
    return d->selection.chosen();
}

void Workbench::choose(Identity thing)
{
    d->selection.choose(thing);
}

void Workbench::undo()
{
    d->preview.release(); // The drag may be the step that is meant.
    d->selection.undo();
}

void Workbench::redo()
{
    d->preview.release();
    d->selection.redo();
}

} // namespace zokit
