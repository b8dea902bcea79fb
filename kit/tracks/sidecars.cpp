// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "sidecars_p.h"

#include <algorithm>
#include <utility>

#include <QDirIterator>
#include <QFileInfo>
#include <QVector>

namespace zokit {

namespace {

bool isSubtitle(const QFileInfo& file)
{
    return subtitleEndings().contains(file.suffix().toLower());
}

/// The name of \a file as far as its ending.
QString nameOf(const QFileInfo& file)
{
    return file.completeBaseName();
}

} // namespace

QStringList subtitleEndings()
{
    return {QStringLiteral("srt"), QStringLiteral("ass"), QStringLiteral("ssa"),
            QStringLiteral("vtt"), QStringLiteral("sup"), QStringLiteral("idx")};
}

TrackChoice choiceOf(const QString& sidecar, const QString& clip)
{
    TrackChoice choice;
    choice.sidecar = sidecar;
    choice.track.kind = TrackKind::Subtitle;
    choice.track.index = -1;
    choice.track.codec = QFileInfo(sidecar).suffix().toLower();
    const QString behind = nameOf(QFileInfo(sidecar)).mid(nameOf(QFileInfo(clip)).size());
    for (const QString& word : behind.split(QLatin1Char('.'))) {
        constexpr int longestLanguage = 3;
        const bool isLetters = std::all_of(word.cbegin(), word.cend(), [](QChar letter) { return letter.isLetter(); });
        if (word.compare(QLatin1String("forced"), Qt::CaseInsensitive) == 0)
            choice.track.forced = true;
        else if (choice.track.language.isEmpty() && isLetters && word.size() >= 2 && word.size() <= longestLanguage)
            choice.track.language = word.toLower();
    }
    return choice;
}

bool isSidecarOf(const QString& file, const QString& clip)
{
    const QFileInfo subtitle(file);
    const QFileInfo info(clip);
    return !clip.isEmpty() && isSubtitle(subtitle) && subtitle.absolutePath() == info.absolutePath()
           && subtitle.fileName().startsWith(nameOf(info) + QLatin1Char('.'));
}

QString endingOf(const QString& sidecar, const QString& clip)
{
    return QFileInfo(sidecar).fileName().mid(nameOf(QFileInfo(clip)).size());
}

QVector<TrackChoice> withSidecar(const QVector<TrackChoice>& choices, const QString& clip, const QStringList& sidecars,
                                 const QString& ending)
{
    QVector<TrackChoice> result = choices;
    for (const QString& sidecar : sidecars) {
        const auto isIt = [&sidecar](const TrackChoice& choice) { return choice.sidecar == sidecar; };
        if (std::none_of(choices.cbegin(), choices.cend(), isIt))
            result.append(choiceOf(sidecar, clip));
    }
    const auto hasEnding = [&](const TrackChoice& choice) {
        return !choice.sidecar.isEmpty() && endingOf(choice.sidecar, clip) == ending;
    };
    if (std::none_of(result.cbegin(), result.cend(), hasEnding))
        return result;
    for (TrackChoice& choice : result) {
        if (choice.track.kind != TrackKind::Subtitle)
            continue;
        choice.selected = hasEnding(choice);
        choice.why = choice.selected ? Message(Message::Code::ChosenByHand) : Message();
    }
    return result;
}

QStringList sidecarsOf(const QString& clip)
{
    const QFileInfo info(clip);
    const QString stem = nameOf(info) + QLatin1Char('.');
    QVector<QFileInfo> there;
    for (QDirIterator all(info.path(), QDir::Files); all.hasNext();) {
        all.next();
        if (all.fileName().startsWith(stem)) // Few of a large folder: only they are looked at.
            there.append(all.fileInfo());
    }
    std::sort(there.begin(), there.end(),
              [](const QFileInfo& a, const QFileInfo& b) { return a.fileName() < b.fileName(); });
    QStringList found;
    for (const QFileInfo& file : std::as_const(there)) {
        if (!isSidecarOf(file.filePath(), clip))
            continue;
        // "film.extended.srt" belongs to "film.extended.mkv" where that is there, and not to "film.mkv".
        const bool isOfAnother = std::any_of(there.cbegin(), there.cend(), [&](const QFileInfo& other) {
            return !isSubtitle(other) && nameOf(other).size() > nameOf(info).size()
                   && isSidecarOf(file.filePath(), other.filePath());
        });
        if (!isOfAnother)
            found.append(file.absoluteFilePath());
    }
    return found;
}

} // namespace zokit
