// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "session.h"

#include <algorithm>
#include <utility>

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <zokit/settingsfile.h>

namespace zoeditor {

using zokit::FileSettings;
using zokit::Identity;
using zokit::Message;

namespace {

const QString settingsEnding = QStringLiteral(".zoeffect.json");

} // namespace

Session::Session(const QString& journalFolder, QObject* parent)
    : QObject(parent), m_tools(zokit::findTools()), m_journalFolder(journalFolder), m_queue(m_tools)
{
    connect(&m_project, &zokit::Project::fileAdded, this, &Session::noteAdded);
    connect(&m_project, &zokit::Project::fileAboutToBeRemoved, this, &Session::noteRemoved);
    connect(&m_project, &zokit::Project::changed, this, &Session::noteChanges);
    // It follows the list of files: a file that becomes the current one has its row.
    m_selection = std::make_unique<zokit::Selection>(m_project, m_model);
    connect(m_selection.get(), &zokit::Selection::currentChanged, this, &Session::noteCurrent);
    connect(m_selection.get(), &zokit::Selection::chosenChanged, this, &Session::thingChanged);
    connect(&m_model, &zokit::SettingsModel::refused, this, &Session::take);
    constexpr int soonAgain = 100; // Milliseconds.
    m_holding.setSingleShot(true);
    m_holding.setInterval(soonAgain);
    connect(&m_holding, &QTimer::timeout, this, &Session::takeMedia);
    m_workSoon.setSingleShot(true);
    m_workSoon.setInterval(0);
    const auto soon = QOverload<>::of(&QTimer::start);
    connect(&m_workSoon, &QTimer::timeout, this, &Session::noteWork);
    connect(&m_queue, &zokit::Queue::rowsChanged, &m_workSoon, soon);
    connect(&m_queue, &zokit::Queue::stateChanged, &m_workSoon, soon);
    connect(&m_files, &FilesModel::rowsInserted, &m_workSoon, soon);
}

Session::~Session()
{
    m_project.disconnect(this);
}

void Session::noteCurrent(FileSettings* file)
{
    if (file) {
        m_problemPath.clear();
        if (!m_selected.contains(file->file()))
            m_selected = {file->file()};
    } else {
        m_selected.clear();
    }
    emit currentChanged(file);
    emit selectionChanged();
}

void Session::showProblem(const QString& path)
{
    if (path == m_problemPath || m_files.rowOf(path) < 0)
        return;
    m_problemPath = path;
    if (current())
        m_selection->clear();
    else
        noteCurrent(nullptr);
}

QVector<FileSettings*> Session::selected() const
{
    QVector<FileSettings*> files;
    for (FileSettings* file : m_project.files()) {
        if (m_selected.contains(file->file()))
            files.append(file);
    }
    return files;
}

void Session::select(const QVector<FileSettings*>& files)
{
    QVector<Identity> wanted;
    for (const FileSettings* file : files)
        wanted.append(file->file());
    if (current() && !wanted.contains(current()->file()))
        wanted.append(current()->file());
    if (wanted == m_selected)
        return;
    m_selected = wanted;
    emit selectionChanged();
}

bool Session::take(const Message& refusal)
{
    if (!refusal.isEmpty())
        emit message(refusal.text());
    return refusal.isEmpty();
}

void Session::beginGesture(QObject* owner, const Message& text)
{
    endAnyGesture();
    m_gestureOwner = owner;
    m_isInGesture = true;
    history().beginGesture(text);
}

void Session::endGesture(QObject* owner)
{
    if (owner && m_gestureOwner == owner)
        endAnyGesture();
}

void Session::endAnyGesture()
{
    if (!m_isInGesture)
        return;
    m_gestureOwner.clear();
    m_isInGesture = false;
    history().endGesture();
}

void Session::undo()
{
    endAnyGesture(); // It may be the step that is meant.
    goTo(history().position() - 1);
}

void Session::redo()
{
    goTo(history().position() + 1);
}

void Session::goTo(int count)
{
    endAnyGesture(); // The history passes no step that is not whole.
    m_selection->goTo(count);
}

Message Session::save(FileSettings* file)
{
    return saveAs(file, settingsFileOf(file));
}

Message Session::saveAs(FileSettings* file, const QString& path)
{
    const zokit::Settings settings = file->settings();
    const Message refused = zokit::saveSettings(settings, path);
    const int index = m_files.rowOf(file->file());
    if (!refused.isEmpty() || index < 0)
        return refused;
    FileRow row = m_files.rows().at(index);
    row.settingsFile = path;
    row.onDisk = settings;
    row.isEdited = false;
    m_files.replace(index, row);
    noteSettingsFiles();
    if (!isModified())
        history().setClean();
    emit fileStateChanged(file->file());
    emit message(tr("Saved as %1").arg(zokit::onOneLine(path)));
    return {};
}

QString Session::settingsFileOf(const FileSettings* file) const
{
    const int index = m_files.rowOf(file->file());
    if (index < 0)
        return {};
    const FileRow& row = m_files.rows().at(index);
    if (!row.settingsFile.isEmpty())
        return row.settingsFile;
    const QFileInfo clip(row.path);
    const QString stem = clip.dir().filePath(clip.completeBaseName());
    const QString usual = stem + settingsEnding;
    const auto wantsIt = [&](const FileRow& other) {
        const bool isLikeNamed = other.settingsFile.isEmpty() && other.path.startsWith(stem + QLatin1Char('.'))
                                 && QFileInfo(other.path).completeBaseName() == clip.completeBaseName();
        return other.file != row.file && (isLikeNamed || other.settingsFile == usual);
    };
    const bool isShared = std::any_of(m_files.rows().cbegin(), m_files.rows().cend(), wantsIt);
    return isShared ? row.path + settingsEnding : usual; // film.mkv beside film.mp4.
}

bool Session::wouldReplace(const FileSettings* file) const
{
    const int index = m_files.rowOf(file->file());
    return index >= 0 && m_files.rows().at(index).settingsFile.isEmpty() && QFileInfo::exists(settingsFileOf(file));
}

bool Session::isModified() const
{
    const auto isEdited = [](const FileRow& edited) { return edited.isEdited; };
    return std::any_of(m_files.rows().cbegin(), m_files.rows().cend(), isEdited);
}

QVector<FileSettings*> Session::unsaved() const
{
    QVector<FileSettings*> files;
    for (const FileRow& row : m_files.rows()) {
        if (row.isEdited)
            files.append(m_project.file(row.file));
    }
    return files;
}

void Session::noteChanges(const zokit::Changes& changes)
{
    QSet<FileSettings*> files;
    for (const zokit::Change& change : changes)
        files.insert(m_project.fileOf(change.thing));
    for (const FileSettings* file : std::as_const(files)) {
        const int row = file ? m_files.rowOf(file->file()) : -1;
        if (row >= 0)
            noteEdited(row, *file);
    }
}

void Session::noteEdited(int index, const FileSettings& file)
{
    FileRow row = m_files.rows().at(index);
    const bool isEdited = !row.onDisk || !(*row.onDisk == file.settings());
    if (isEdited == row.isEdited)
        return;
    row.isEdited = isEdited;
    m_files.replace(index, row);
    emit fileStateChanged(file.file());
}

} // namespace zoeditor
