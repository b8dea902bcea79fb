// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/workbench.h>

#include <algorithm>

namespace zokit {

class Workbench::Private {
public:
    explicit Private(Workbench* bench) : q(bench) {}

    void show(FileSettings* file);
    void setChosen(Identity thing);
    void chooseNear();
    void adopt(const Step& step);
    void note(const Changes& changes);
    void noteRemoved(const FileSettings* file);
    void tellError();

    Workbench* q;
    Tools tools = findTools();
    Project project;
    ProjectFiles files{project, tools};
    FilesModel filesModel{project};
    SettingsModel model;
    LivePreview preview{project.history(), tools};
    FileSettings* current = nullptr;
    Identity chosen = 0;
    Address place; ///< Where what is chosen stood last.
    Message error; ///< Of the frames, that was told last.
};

void Workbench::Private::show(FileSettings* file)
{
    current = file;
    model.setFile(file);
    preview.setFile(file, files.media(file));
    Identity wanted = file ? file->thing(place) : 0;
    if (file && wanted == 0)
        wanted = file->type(QStringLiteral("Crop"));
    emit q->currentChanged(file);
    if (current == file) // A listener may have gone on.
        setChosen(wanted);
}

void Workbench::Private::setChosen(Identity thing)
{
    chosen = thing;
    if (current) {
        place = current->address(thing, QStringLiteral("selected")).value_or(Address());
        project.history().setSelection({current->file(), thing});
    }
    preview.choose(thing);
    emit q->chosenChanged(thing);
}

/// What is chosen has gone.
void Workbench::Private::chooseNear()
{
    const QVector<Identity> items = current->items(place.type);
    const int last = static_cast<int>(items.size()) - 1;
    setChosen(last < 0 ? current->type(place.type) : items.at(std::min(place.pos, last)));
}

void Workbench::Private::adopt(const Step& step)
{
    q->choose(project.history().selection().value(1));
    const auto isShown = [this](const Change& change) { return change.thing == chosen; };
    if (std::any_of(step.changes.cbegin(), step.changes.cend(), isShown))
        return;
    for (const Change& change : step.changes) {
        q->choose(change.thing);
        if (chosen == change.thing)
            return;
    }
}

void Workbench::Private::note(const Changes& changes)
{
    const auto isDefault = [this](const Change& change) { return !project.fileOf(change.thing); };
    if (std::any_of(changes.cbegin(), changes.cend(), isDefault))
        model.refreshDefaults();
    if (current && !current->owns(chosen))
        chooseNear();
}

void Workbench::Private::noteRemoved(const FileSettings* file)
{
    if (file != current)
        return;
    QVector<FileSettings*> all = project.files();
    const int row = std::max(static_cast<int>(all.indexOf(current)), 0);
    all.removeAll(current);
    show(all.isEmpty() ? nullptr : all.at(std::min(row, static_cast<int>(all.size()) - 1)));
}

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
    connect(&d->project, &Project::fileAdded, this, [this](FileSettings* file) {
        if (!d->current)
            d->show(file);
    });
    connect(&d->project, &Project::fileAboutToBeRemoved, this,
            [this](const FileSettings* file) { d->noteRemoved(file); });
    connect(&d->project, &Project::changed, this, [this](const Changes& changes) { d->note(changes); });
    connect(&d->files, &ProjectFiles::told, this, &Workbench::told);
    connect(&d->model, &SettingsModel::refused, this, [this](const Message& why) { emit told(why); });
    connect(&d->preview, &LivePreview::refused, this, &Workbench::told);
    connect(&d->preview, &LivePreview::chosen, this, &Workbench::choose);
    connect(&d->preview.frames(), &ShownFrames::changed, this, [this] { d->tellError(); });
}

Workbench::~Workbench()
{
    d->project.disconnect(this);
}

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
    return d->current;
}

const MediaInfo* Workbench::media() const
{
    return d->files.media(d->current);
}

RuledTracks Workbench::tracksByRule() const
{
    if (!d->current)
        return {};
    const Settings settings = d->current->settings();
    if (!media()) {
        const QString clip = settings.media.file;
        const Message refusal = checkInput(clip);
        return {{}, settings, {}, refusal.isEmpty() ? Message(Message::Code::NoMedia, {clip, QString()}) : refusal};
    }
    return zokit::tracksByRule(settings, *media());
}

void Workbench::setCurrent(FileSettings* file)
{
    if (file && file != d->current && d->project.files().contains(file))
        d->show(file);
}

Identity Workbench::chosen() const
{
    return d->chosen;
}

void Workbench::choose(Identity thing)
{
    setCurrent(d->project.fileOf(thing));
    if (thing != d->chosen && d->model.indexOf(thing).isValid())
        d->setChosen(thing);
}

void Workbench::undo()
{
    d->preview.release(); // The drag may be the step that is meant.
    const Step step = history().step(history().position() - 1);
    if (!history().canUndo())
        return;
    history().undo();
    d->adopt(step);
}

void Workbench::redo()
{
    d->preview.release();
    const Step step = history().step(history().position());
    if (!history().canRedo())
        return;
    history().redo();
    d->adopt(step);
}

} // namespace zokit
