// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// How files come into a session, and go: one after the other is looked into, off the event loop.

#include "session.h"

#include <algorithm>
#include <functional>
#include <utility>

#include <QFileInfo>

#include <zokit/opening.h>
#include <zokit/settingsfile.h>
#include <zokit/tracks.h>

#include "jobs.h"
#include "names.h"

namespace zoeditor {

using zokit::FileSettings;
using zokit::Message;

namespace {

bool endsIn(const QString& path, const QStringList& endings)
{
    return endings.contains(QFileInfo(path).suffix().toLower());
}

bool isSubtitle(const QString& path)
{
    return endsIn(path, zokit::subtitleEndings());
}

/// Those that move may be films.
bool isPicture(const QString& path)
{
    return endsIn(path, {QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("bmp")});
}

} // namespace

void Session::findTools()
{
    m_tools = zokit::findTools();
    m_prober.reset();
    m_probed.clear();
    m_holding.stop();
    m_queue.setTools(m_tools);
    for (int i = 0; i < m_files.rows().size(); ++i) {
        FileRow row = m_files.rows().at(i);
        if (row.problem.isEmpty() || row.media)
            continue;
        row.problem = Message();
        row.isAsked = true;
        m_files.replace(i, row);
    }
    probeNext();
}

void Session::open(const QStringList& paths)
{
    m_opened.clear();
    history().expectFiles();
    QStringList others;
    for (const QString& word : paths) {
        const QFileInfo info(word);
        if (isSubtitle(word) || isPicture(word)) {
            others.append(shownName(word));
            continue;
        }
        if (info.isDir()) {
            const QStringList clips = zokit::mediaFilesIn(info.absoluteFilePath(), true);
            for (const QString& path : clips)
                openOne(path);
            if (clips.isEmpty())
                emit message(tr("There are no clips in %1.").arg(info.absoluteFilePath()));
        } else if (word.endsWith(QLatin1String(".json"))) {
            openSettings(info.absoluteFilePath());
        } else {
            openOne(info.absoluteFilePath());
        }
    }
    if (!others.isEmpty())
        emit message(tr("No film: %1. Subtitles and pictures belong to one. Choose it, then Add subtitle file or Add "
                        "image in the menu Edit.")
                         .arg(others.join(QStringLiteral(", "))));
    probeNext();
}

void Session::openDropped(const QStringList& paths)
{
    const bool areAdded = current() && !paths.isEmpty()
                          && std::all_of(paths.cbegin(), paths.cend(),
                                         [](const QString& path) { return isSubtitle(path) || isPicture(path); });
    if (!areAdded)
        return open(paths);
    for (const QString& path : paths) {
        if (!addToCurrent(QFileInfo(path).absoluteFilePath()))
            return;
    }
}

bool Session::addToCurrent(const QString& path)
{
    const bool isText = isSubtitle(path);
    endAnyGesture();
    const FileSettings::Inserted inserted =
        isText
            ? current()->insert(QStringLiteral("Subtitle"),
                                {{QStringLiteral("sub_fromfile"), true}, {QStringLiteral("file"), path}}, -1, this)
            : current()->insert(QStringLiteral("Watermark"),
                                {{QStringLiteral("wm_istextwatermark"), false}, {QStringLiteral("wm_imageurl"), path}},
                                -1, this);
    if (!take(inserted.error))
        return false;
    setThing(inserted.item);
    const QString sentence = isText ? tr("%1 is a subtitle of %2 now.") : tr("%1 is a watermark of %2 now.");
    emit message(sentence.arg(shownName(path), shownName(current()->media().file)));
    return true;
}

void Session::openOne(const QString& path)
{
    const int there = m_files.rowOf(path);
    if (there < 0) {
        FileRow row;
        row.path = path;
        row.isAsked = true;
        m_opened.append(path);
        m_files.append(row);
    } else if (FileSettings* file = m_project.file(m_files.rows().at(there).file)) {
        setCurrent(file);
        emit message(tr("%1 is open already.").arg(path));
    } else {
        take(m_files.rows().at(there).problem);
    }
}

void Session::openSettings(const QString& path)
{
    const zokit::ReadSettings read = zokit::loadSettings(path);
    FileRow row;
    row.path = read.settings ? read.settings->media.file : path;
    row.settingsFile = path;
    row.problem = read.error;
    row.loaded = read.settings;
    row.isAsked = read.settings.has_value();
    if (m_files.rowOf(row.path) >= 0) {
        emit message(tr("%1 is open already. Remove it first to open these settings.").arg(row.path));
    } else {
        m_opened.append(row.path);
        m_files.append(row);
    }
}

void Session::probeNext()
{
    if (!m_probed.isEmpty())
        return;
    const auto next =
        std::find_if(m_files.rows().cbegin(), m_files.rows().cend(), [](const FileRow& row) { return row.isAsked; });
    if (next == m_files.rows().cend())
        return;
    m_probed = next->path;
    if (!m_prober) {
        m_prober = std::make_unique<zokit::Prober>(m_tools);
        connect(m_prober.get(), &zokit::Prober::finished, this, [this](const zokit::ReadMedia& read) {
            m_read = read;
            takeMedia();
        });
    }
    m_prober->probe(m_probed);
}

void Session::takeMedia()
{
    if (m_isBusy()) {
        m_holding.start();
        return;
    }
    const zokit::ReadMedia read = std::exchange(m_read, {});
    const int index = m_files.rowOf(m_probed);
    m_probed.clear();
    if (index >= 0 && m_files.rows().at(index).isAsked) { // It may have been removed in the meantime.
        FileRow row = m_files.rows().at(index);
        row.isAsked = false;
        row.media = read.media;
        row.problem = m_tools.error.isEmpty() ? read.error : m_tools.error;
        const FileSettings* file = m_project.file(row.file);
        if (file && row.media && !row.onDisk && row.settingsFile.isEmpty()) { // Recovered; it may be as it was opened.
            row.onDisk = FileSettings(zokit::settingsOf(*row.media)).settings();
            row.isEdited = !(*row.onDisk == file->settings());
        }
        m_files.replace(index, row);
        addToProject(index);
        emit fileStateChanged(m_files.rows().at(index).file);
    }
    probeNext();
}

/// What has been read of the row becomes settings. A settings file opens also without its clip.
void Session::addToProject(int index)
{
    const FileRow& row = m_files.rows().at(index);
    if (row.file != 0 || (!row.media && !row.loaded))
        return;
    zokit::Settings settings;
    if (row.loaded)
        settings = row.media ? zokit::settingsFor(*row.loaded, *row.media) : *row.loaded;
    else
        settings = zokit::settingsOf(*row.media);
    if (row.loaded && settings.media.frame != row.loaded->media.frame)
        take(Message(Message::Code::Rescaled,
                     {zokit::sizeText(row.loaded->media.frame), zokit::sizeText(settings.media.frame)}));
    endAnyGesture();
    const QString path = row.path;
    m_openingRow = index;
    FileSettings* added = m_project.addExpected(settings, this);
    m_openingRow = -1;
    if (m_opened.contains(path)) {
        m_opened.clear();
        setCurrent(added);
    }
}

void Session::noteAdded(FileSettings* file)
{
    const auto removed =
        std::find_if(m_removed.begin(), m_removed.end(), [&](const FileRow& row) { return row.file == file->file(); });
    if (m_openingRow >= 0) {
        FileRow row = m_files.rows().at(m_openingRow);
        row.file = file->file();
        row.onDisk = file->settings();
        row.loaded.reset();
        m_files.replace(m_openingRow, row);
        if (!row.settingsFile.isEmpty())
            noteSettingsFiles();
    } else if (removed != m_removed.end()) {
        m_files.append(*removed);
        m_removed.erase(removed);
    } else { // Recovered.
        FileRow row;
        row.path = file->media().file;
        row.file = file->file();
        row.isAsked = true;
        row.settingsFile = m_recovered.value(row.path);
        if (!row.settingsFile.isEmpty())
            row.onDisk = zokit::loadSettings(row.settingsFile).settings;
        row.isEdited = !row.onDisk || !(*row.onDisk == file->settings());
        m_files.append(row);
        probeNext();
    }
}

void Session::noteRemoved(FileSettings* file)
{
    const int index = m_files.rowOf(file->file());
    if (index >= 0) {
        m_removed.append(m_files.rows().at(index));
        m_files.remove(index);
    }
    m_selected.removeAll(file->file());
}

void Session::remove(const QVector<int>& rows)
{
    QVector<int> descending = rows;
    std::sort(descending.begin(), descending.end(), std::greater<>());
    beginGesture(this, Message(Message::Code::StepRemoveFile));
    for (const int index : std::as_const(descending)) {
        if (FileSettings* file = m_project.file(m_files.rows().at(index).file))
            m_project.remove(file, this);
        else
            m_files.remove(index);
    }
    endGesture(this);
}

const zokit::MediaInfo* Session::mediaOf(const FileSettings* file) const
{
    const int index = file ? m_files.rowOf(file->file()) : -1;
    return index >= 0 && m_files.rows().at(index).media ? &*m_files.rows().at(index).media : nullptr;
}

Message Session::chooseTracks(const zokit::Settings& before, zokit::Settings& after) const
{
    const int index = m_files.rowOf(after.media.file);
    if (after.tracks == before.tracks || index < 0 || !m_files.rows().at(index).media)
        return {};
    const zokit::RuledTracks ruled = zokit::tracksByRule(after, *m_files.rows().at(index).media, before.tracks);
    after = ruled.settings;
    return ruled.error;
}

Message Session::problemOf(zokit::Identity file) const
{
    const int index = m_files.rowOf(file);
    return index < 0 ? Message() : m_files.rows().at(index).problem;
}

void Session::setThumbnail(zokit::Identity file, const QPixmap& picture)
{
    const int index = m_files.rowOf(file);
    if (index < 0)
        return;
    FileRow row = m_files.rows().at(index);
    row.thumbnail = picture;
    m_files.replace(index, row);
}

/// Each row says what the queue does with its clip.
void Session::noteWork()
{
    const QHash<QString, QString> works = workOfClips(m_queue);
    for (int i = 0; i < m_files.rows().size(); ++i) {
        FileRow row = m_files.rows().at(i);
        const QString work = works.value(row.path);
        if (work == row.work)
            continue;
        row.work = work;
        m_files.replace(i, row);
    }
}

} // namespace zoeditor
