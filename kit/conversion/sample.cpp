// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/sample.h>

#include <algorithm>
#include <cmath>

#include <QDir>
#include <QFileInfo>

namespace zokit {

namespace {

/// A path in \a folder, else beside \a clip, that is not there yet.
QString freePath(const QFileInfo& folder, const QString& clip, const QString& ending)
{
    const QFileInfo info(clip);
    const QDir dir = folder.isDir() ? QDir(folder.absoluteFilePath()) : info.absoluteDir();
    const QString begun = dir.filePath(info.completeBaseName() + QStringLiteral("-sample"));
    for (int number = 1;; ++number) {
        const QString path =
            (number == 1 ? begun : QStringLiteral("%1-%2").arg(begun).arg(number)) + QLatin1Char('.') + ending;
        const QFileInfo found(path);
        if (!found.exists() && !found.isSymLink())
            return path;
    }
}

} // namespace

Job sampleOf(const Job& whole, const MediaInfo& media, double from, double seconds)
{
    const ClipPart part = clipPart(whole.settings, media);
    const double end = part.seconds > 0 ? part.from + part.seconds : from + seconds;
    const double begin = std::clamp(from, part.from, std::max(part.from, end - seconds));
    Job sample = whole;
    sample.settings.output.insert(QStringLiteral("trim"),
                                  QVariantList{begin, std::max(std::min(begin + seconds, end), begin)});
    const QString named = QFileInfo(whole.output).suffix();
    sample.output = freePath(QFileInfo(QFileInfo(whole.output).absolutePath()), whole.input,
                             named.isEmpty() ? containerFor(whole.settings, whole.input) : named);
    sample.replaces = false;
    sample.skips = false;
    return sample;
}

qint64 bytesOfWhole(const Job& whole, const Job& sample, const MediaInfo& media, qint64 bytes)
{
    const double all = clipPart(whole.settings, media).result;
    const double part = clipPart(sample.settings, media).result;
    return all > 0 && part > 0 ? std::llround(static_cast<double>(bytes) * all / part) : 0;
}

} // namespace zokit
