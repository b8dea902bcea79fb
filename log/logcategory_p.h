// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

/// Qt's logging category "zoeffect": the store's warnings, and at debug level the events of the log file in words.
/// Debug messages are off until a host's rules turn them on. Usable until the very end of the process.
const QLoggingCategory& zoeffectCategory();
