// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include "edits.h"
#include "media.h"

/// Prints each signal of \a model as it comes, from now on.
void trace(const ZoEffectModel& model);

void printMedia(const Media& media);

/// Prints what the library answers about the settings.
void printAnswers(const FileSettings& settings);
