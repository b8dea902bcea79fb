// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <zokit/message.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// The programs that read and write media.
struct ZOKIT_EXPORT Tools {
    QString ffmpeg;  ///< Absolute path; empty when it is missing.
    QString ffprobe; ///< Likewise.
    Message error;   ///< Which one is missing, and how to get it.
};

/// Looks in the folder that the environment names by ZOEFFECT_FFMPEG, and nowhere else, or else in PATH.
ZOKIT_EXPORT Tools findTools();

/// The version of that ffmpeg, for example "5.1.9-0+deb12u1"; empty when it does not say. Each of these questions
/// starts a child, about 60 ms, the first time in a process.
ZOKIT_EXPORT QString toolVersion(const Tools& tools);
/// The names of its filters; empty when it does not say.
ZOKIT_EXPORT QStringList toolFilters(const Tools& tools);
/// The names of its encoders; empty when it does not say.
ZOKIT_EXPORT QStringList toolEncoders(const Tools& tools);

/// toolVersion() of what ffmpeg wrote to standard output for -version.
ZOKIT_EXPORT QString readToolVersion(const QByteArray& output);
/// toolFilters() or toolEncoders() of what it wrote for -filters or -encoders.
ZOKIT_EXPORT QStringList readToolNames(const QByteArray& output);

} // namespace zokit
