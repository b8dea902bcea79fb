// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Sample clips, made by ffmpeg when they are first asked for and kept in the build for all test programs, which may
/// run at the same time. All are below a second and of 160x120 where the table does not say otherwise.
namespace clips {

/// The path of the clip of that name, which the table in clips.cpp tells how to make; empty, with a warning, when that
/// fails. Not to be written to. Takes an application object.
QString clip(const QString& name);

} // namespace clips
