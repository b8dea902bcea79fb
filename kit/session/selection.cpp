// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/selection.h>

#include <algorithm>
#include <cstdlib>

#include <zokit/filesettings.h>
#include <zokit/history.h>
#include <zokit/project.h>
#include <zokit/settingsmodel.h>

namespace zokit {

class Selection::Private {
public:
    Private(Selection* selection, Project& ofProject, SettingsModel& ofModel)
        : q(selection), project(ofProject), model(ofModel)
    {
    }

    void show(FileSettings* file);
    void remember(Identity thing);
    void setChosen(Identity thing);
    void chooseNear();
    void adopt();
    void showOne(const Changes& changes);
    void note(const Changes& changes);
    void noteRemoved(const FileSettings* file);

    Selection* q;
    Project& project;
    SettingsModel& model;
    FileSettings* current = nullptr;
    Identity chosen = 0;
    Address place; ///< Where what is chosen stands, or stood last.
};

void Selection::Private::show(FileSettings* file)
{
    current = file;
    Identity wanted = file ? file->thing(place) : 0;
    if (file && wanted == 0)
        wanted = file->type(place.type.isEmpty() ? QStringLiteral("Crop") : place.type);
    model.setFile(file);
    remember(wanted);
    emit q->currentChanged(file);
    if (current == file && chosen == wanted) // Else a listener has gone on.
        emit q->chosenChanged(wanted);
}

void Selection::Private::remember(Identity thing)
{
    chosen = thing;
    if (!current)
        return;
    place = current->address(thing, QStringLiteral("selected")).value_or(Address());
    project.history().setSelection({current->file(), thing});
}

void Selection::Private::setChosen(Identity thing)
{
    remember(thing);
    emit q->chosenChanged(thing);
}

/// What is chosen has gone.
void Selection::Private::chooseNear()
{
    const QVector<Identity> items = current->items(place.type);
    const int last = static_cast<int>(items.size()) - 1;
    setChosen(last < 0 ? current->type(place.type) : items.at(std::min(place.pos, last)));
}

/// What was chosen at this place of the history is chosen again, as far as it is there.
void Selection::Private::adopt()
{
    const QVector<Identity> things = project.history().selection();
    q->setCurrent(project.file(things.value(0)));
    q->choose(things.value(1));
}

/// Shows something that \a changes are about, unless it is shown.
void Selection::Private::showOne(const Changes& changes)
{
    const auto isShown = [this](const Change& change) { return change.thing == chosen; };
    if (std::any_of(changes.cbegin(), changes.cend(), isShown))
        return;
    for (const Change& change : changes) {
        q->choose(change.thing);
        if (chosen == change.thing)
            return;
    }
}

void Selection::Private::note(const Changes& changes)
{
    const auto isDefault = [this](const Change& change) { return !project.fileOf(change.thing); };
    if (std::any_of(changes.cbegin(), changes.cend(), isDefault))
        model.refreshDefaults();
    if (!current)
        return;
    if (current->owns(chosen))
        place = current->address(chosen, QStringLiteral("selected")).value_or(place);
    else
        chooseNear();
}

void Selection::Private::noteRemoved(const FileSettings* file)
{
    if (file != current)
        return;
    QVector<FileSettings*> all = project.files();
    const int row = std::max(static_cast<int>(all.indexOf(current)), 0);
    all.removeAll(current);
    show(all.isEmpty() ? nullptr : all.at(std::min(row, static_cast<int>(all.size()) - 1)));
}

Selection::Selection(Project& project, SettingsModel& model, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, project, model))
{
    connect(&project, &Project::fileAdded, this, [this](FileSettings* file) {
        if (!d->current)
            d->show(file);
    });
    connect(&project, &Project::fileAboutToBeRemoved, this, [this](const FileSettings* file) { d->noteRemoved(file); });
    connect(&project, &Project::changed, this, [this](const Changes& changes) { d->note(changes); });
    connect(&project.history(), &History::restored, this, [this] { d->adopt(); });
    if (!project.files().isEmpty())
        d->show(project.files().constFirst());
}

Selection::~Selection() = default;

FileSettings* Selection::current() const
{
    return d->current;
}

void Selection::setCurrent(FileSettings* file)
{
    if (file && file != d->current && d->project.files().contains(file))
        d->show(file);
}

void Selection::clear()
{
    if (d->current)
        d->show(nullptr);
}

Identity Selection::chosen() const
{
    return d->chosen;
}

void Selection::choose(Identity thing)
{
    setCurrent(d->project.fileOf(thing));
    if (thing != d->chosen && d->model.indexOf(thing).isValid())
        d->setChosen(thing);
}

void Selection::undo()
{
    goTo(d->project.history().position() - 1);
}

void Selection::redo()
{
    goTo(d->project.history().position() + 1);
}

void Selection::goTo(int count)
{
    History& history = d->project.history();
    const int before = history.position();
    history.goTo(count);
    if (history.position() == before)
        return;
    d->adopt();
    if (std::abs(history.position() - before) == 1)
        d->showOne(history.step(std::min(history.position(), before)).changes);
}

} // namespace zokit
