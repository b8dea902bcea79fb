// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "subtitleinput_p.h"

#include <algorithm>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <zokit/probe.h>
#include <zokit/subtitlescript.h>

#include "argumentnumber_p.h"

namespace zokit {

bool isFont(const MediaStream& stream)
{
    // Files name them in many ways, of which ffmpeg knows some.
    const QStringList names{QStringLiteral("ttf"), QStringLiteral("otf"), QStringLiteral("ttc")};
    return stream.track.kind == TrackKind::Attachment
           && (names.contains(stream.track.codec) || stream.mimeType.contains(QLatin1String("font"))
               || names.contains(QFileInfo(stream.fileName).suffix().toLower()));
}

QString fontsFolder(const SubtitlePlan& plan, const MediaInfo& media, const QString& folder)
{
    const bool needsFonts = plan.use == SubtitleUse::BurnText && plan.hasOwnStyles
                            && std::any_of(media.streams.cbegin(), media.streams.cend(), isFont);
    if (!needsFonts)
        return QString();
    QDir(folder).mkdir(QStringLiteral("fonts")); // Where it cannot be made, what writes into it says so.
    return folder + QStringLiteral("/fonts");
}

bool isUtf8File(const QString& path)
{
    QFile file(path);
    constexpr qint64 most = qint64(16) * 1024 * 1024;
    if (!file.open(QIODevice::ReadOnly))
        return true;
    const QByteArray bytes = file.read(std::min(file.size(), most)); // QFile makes room for all that it may read.
    return QString::fromUtf8(bytes).toUtf8() == bytes || bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff")
           || bytes.startsWith("\xef\xbb\xbf");
}

QStringList letterOptions(const QString& file)
{
    return isUtf8File(file) ? QStringList() : QStringList{QStringLiteral("-sub_charenc"), QStringLiteral("CP1252")};
}

QStringList subtitlePicturesInput(const SubtitlePlan& plan, const MediaInfo& media, double from, double fileStart)
{
    const QString offset = QStringLiteral("-itsoffset");
    // ffmpeg moves the first subtitle of a file to the beginning; it belongs where the file says.
    if (plan.stream < 0)
        return QStringList{offset, argumentNumber(fileStart - from)} + guardedInput(plan.file);
    // An input of its own also where it is the clip: a picture that began before is still shown. A bit early: one that
    // begins with the first frame would only be there with the second.
    constexpr double longest = 120;
    constexpr double early = 0.001;
    const double begun = std::max(from - longest, 0.0);
    QStringList input{offset, argumentNumber(begun - from - early)};
    if (begun > 0)
        input << QStringLiteral("-ss") << argumentNumber(begun);
    return input + guardedInput(media.file);
}

} // namespace zokit
