// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace zokit {

struct MediaInfo;
struct MediaStream;
struct SubtitlePlan;

/// ffmpeg's input with the pictures of a subtitle that is burned in, and its options. \a from is where the times of the
/// graph begin, in seconds from the clip's beginning; \a fileStart is MediaInfo::start of a file.
QStringList subtitlePicturesInput(const SubtitlePlan& plan, const MediaInfo& media, double from, double fileStart);

/// Whether it is a font that is attached to a clip.
bool isFont(const MediaStream& stream);
/// The folder below \a folder for the fonts that a subtitle needs which is burned in, made where it is not there; empty
/// where the clip brings none, or the subtitle no styles that would name one.
QString fontsFolder(const SubtitlePlan& plan, const MediaInfo& media, const QString& folder);

/// Whether a file is all UTF-8, as far as it is looked at; true where it cannot be read.
bool isUtf8File(const QString& path);
/// Options of an input with text: which letters it has, where they are not those of UTF-8.
QStringList letterOptions(const QString& file);

} // namespace zokit
