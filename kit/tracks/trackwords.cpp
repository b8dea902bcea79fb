// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "trackwords_p.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace zokit {

QString kindName(TrackKind kind, bool isCover)
{
    if (isCover)
        return QCoreApplication::translate("zokit", "cover");
    switch (kind) {
    case TrackKind::Video:
        return QCoreApplication::translate("zokit", "video");
    case TrackKind::Audio:
        return QCoreApplication::translate("zokit", "audio");
    case TrackKind::Subtitle:
        return QCoreApplication::translate("zokit", "subtitle");
    case TrackKind::Attachment:
        return QCoreApplication::translate("zokit", "attachment");
    case TrackKind::Data:
        break;
    }
    return QCoreApplication::translate("zokit", "data");
}

QStringList trackWords(const Track& track, const QString& file, bool isCover)
{
    QStringList words{kindName(track.kind, isCover)};
    if (!track.language.isEmpty())
        words.append(track.language);
    if (!track.codec.isEmpty())
        words.append(track.codec);
    return {file.isEmpty() ? QString::number(track.index) : QFileInfo(file).fileName(),
            words.join(QStringLiteral(", "))};
}

Message TrackChoice::line() const
{
    const QStringList words = trackWords(track, sidecar);
    return selected ? Message(Message::Code::TrackChosen, words + QStringList{why.text()})
                    : Message(Message::Code::TrackNotChosen, words);
}

} // namespace zokit
