// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "zoeffect_export.h"

/// \file
/// The diagnostic log: entries of the library, and lines of the host's own.

/// Appends one line to the diagnostic log of the running application.
///
/// \a format and the arguments after it are those of printf: null-terminated strings and plain numbers. The
/// line is cut after 1023 bytes. It goes to "<temporary folder>/<executable's file name>.1.log"; as soon as
/// that file has more than 8191 bytes, every call also copies it over the file that ends in ".2.log". The
/// first file is never shortened.
///
/// Writes nothing, and does not report it, without an application object, with an executable path that has no folder
/// part, and when the log is not a regular file or cannot be opened. Never blocks and never follows a symbolic link.
/// For rare events: each call opens and closes the file.
ZOEFFECT_EXPORT void WriteLog(QString format, ...);
