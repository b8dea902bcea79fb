// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include "edits.h"

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>

/// What the command line asks for.
struct Request {
    static constexpr int defaultPatience = 20;

    bool helpWanted = false;
    QString clip;
    QString folder = ".";           ///< Where the pictures go.
    double seconds = -1;            ///< Which frame; -1 to choose one.
    QSize size;                     ///< How large to show it; empty for the clip's own size.
    int patience = defaultPatience; ///< How many seconds to wait for ffprobe and ffmpeg.
    bool trace = false;
    QStringList defaultsToForget;                    ///< Effect types.
    QList<std::function<void(FileSettings&)>> edits; ///< In the order of the command line.
};

/// Reads the command line. Throws wrongUsage().
Request requestFrom(const QStringList& arguments);

/// What --help prints.
QString helpText();

/// Whether a picture of this size can be made here.
bool isPossible(QSize size);
