// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/projectfiles.h>

#include <map>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QTimer>

#include <zokit/history.h>
#include <zokit/opening.h>
#include <zokit/project.h>
#include <zokit/settingsfile.h>

namespace zokit {

namespace {

const QString ending = QStringLiteral(".zoeffect.json");

} // namespace

class ProjectFiles::Private {
public:
    Private(ProjectFiles* files, Project& ofProject, const Tools& ofTools)
        : q(files), project(ofProject), tools(ofTools)
    {
    }

    void openNext();
    void look(const QString& clip);
    void take(const ReadMedia& read);
    void add(const Settings& settings);
    FileSettings* openFileOf(const QString& clip) const;
    static QString usualFile(const FileSettings* file);
    QHash<QString, int> wanted() const;
    QString settingsFile(const FileSettings* file, const QHash<QString, int>& wanted) const;

    ProjectFiles* q;
    Project& project;
    const Tools& tools;
    std::unique_ptr<Prober> prober; ///< Null until a clip is opened.
    QStringList waiting;
    QString opening;                       ///< As it was given; empty: nothing is being opened.
    std::optional<Settings> loaded;        ///< Of a settings file whose clip is looked into.
    std::map<QString, MediaInfo> media;    ///< By path of the clip.
    QMap<Identity, QString> settingsFiles; ///< That were opened or saved.
};

FileSettings* ProjectFiles::Private::openFileOf(const QString& clip) const
{
    for (FileSettings* file : project.files()) {
        if (file->media().file == clip)
            return file;
    }
    return nullptr;
}

QString ProjectFiles::Private::usualFile(const FileSettings* file)
{
    const QFileInfo clip(file->media().file);
    return clip.dir().filePath(clip.completeBaseName() + ending);
}

/// How many files would be saved at a path, if each took its usual one.
QHash<QString, int> ProjectFiles::Private::wanted() const
{
    QHash<QString, int> wanted;
    for (const FileSettings* file : project.files())
        ++wanted[settingsFiles.value(file->file(), usualFile(file))];
    return wanted;
}

QString ProjectFiles::Private::settingsFile(const FileSettings* file, const QHash<QString, int>& wanted) const
{
    if (settingsFiles.contains(file->file()))
        return settingsFiles.value(file->file());
    const QString usual = usualFile(file);
    return wanted.value(usual) > 1 ? QFileInfo(file->media().file).filePath() + ending // film.mkv beside film.mp4
                                   : usual;
}

/// Goes on until a clip is looked into, which take() follows.
void ProjectFiles::Private::openNext()
{
    while (!waiting.isEmpty()) {
        opening = waiting.takeFirst();
        loaded.reset();
        QString clip = opening;
        if (opening.endsWith(QLatin1String(".json"))) {
            const ReadSettings read = loadSettings(opening);
            if (!read.settings) {
                emit q->told(read.error);
                continue;
            }
            loaded = read.settings;
            clip = loaded->media.file;
        }
        if (clip.isEmpty()) {
            add(*loaded);
        } else if (FileSettings* file = openFileOf(clip)) {
            if (loaded)
                emit q->told(Message(Message::Code::ClipIsOpen, {clip}));
            emit q->opened(file);
        } else {
            look(clip);
            return;
        }
    }
    opening.clear();
    emit q->finished();
}

void ProjectFiles::Private::look(const QString& clip)
{
    if (!prober) {
        prober = std::make_unique<Prober>(tools);
        QObject::connect(prober.get(), &Prober::finished, q, [this](const ReadMedia& read) { take(read); });
    }
    prober->probe(clip);
}

void ProjectFiles::Private::take(const ReadMedia& read)
{
    if (read.media)
        media[read.media->file] = *read.media;
    else
        emit q->told(read.error);
    if (loaded && read.media) {
        const Settings settings = settingsFor(*loaded, *read.media);
        if (settings.media.frame != loaded->media.frame)
            emit q->told(
                Message(Message::Code::Rescaled, {sizeText(loaded->media.frame), sizeText(settings.media.frame)}));
        add(settings);
    } else if (loaded) {
        add(*loaded);
    } else if (read.media) {
        add(settingsOf(*read.media));
    }
    openNext();
}

void ProjectFiles::Private::add(const Settings& settings)
{
    const bool wasClean = project.history().isClean();
    FileSettings* file = project.addExpected(settings, q);
    if (!file)
        return;
    if (loaded)
        settingsFiles.insert(file->file(), opening);
    if (wasClean)
        project.history().setClean();
    emit q->opened(file);
}

ProjectFiles::ProjectFiles(Project& project, const Tools& tools, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, project, tools))
{
}

ProjectFiles::~ProjectFiles() = default;

void ProjectFiles::open(const QStringList& paths)
{
    d->project.history().expectFiles();
    for (const QString& path : paths) {
        const QFileInfo info(path);
        d->waiting += info.isDir() ? mediaFilesIn(info.absoluteFilePath(), true) : QStringList{info.absoluteFilePath()};
    }
    if (d->opening.isEmpty())
        d->openNext();
}

bool ProjectFiles::isOpening() const
{
    return !d->opening.isEmpty();
}

const MediaInfo* ProjectFiles::media(const FileSettings* file) const
{
    const auto found = file ? d->media.find(file->media().file) : d->media.end();
    return found == d->media.end() ? nullptr : &found->second;
}

QString ProjectFiles::settingsFile(const FileSettings* file) const
{
    return d->settingsFile(file, d->wanted());
}

QStringList ProjectFiles::foreignFiles() const
{
    QStringList foreign;
    const QHash<QString, int> wanted = d->wanted();
    for (const FileSettings* file : d->project.files()) {
        const QString path = d->settingsFile(file, wanted);
        if (!d->settingsFiles.contains(file->file()) && QFileInfo::exists(path))
            foreign.append(path);
    }
    return foreign;
}

Message ProjectFiles::save()
{
    const QHash<QString, int> wanted = d->wanted();
    Message first;
    QStringList unsaved;
    for (const FileSettings* file : d->project.files()) {
        const QString path = d->settingsFile(file, wanted);
        const Message refusal = saveSettings(file->settings(), path);
        if (refusal.isEmpty()) {
            d->settingsFiles.insert(file->file(), path);
            continue;
        }
        unsaved.append(path);
        if (first.isEmpty())
            first = refusal;
    }
    if (unsaved.isEmpty())
        d->project.history().setClean();
    if (unsaved.size() < 2)
        return first;
    QStringList words = first.arguments(); // The file is the first of them, whatever is wrong with it.
    words.first() = unsaved.join(QStringLiteral(", "));
    if (first.inner().isEmpty())
        return Message(first.code(), words);
    return Message(first.code(), words.mid(0, 1), first.inner());
}

} // namespace zokit
