// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVector>

#include <zokit/filesettings.h>

#include "invocation.h"

namespace zoconvert {

/// Applies \a edits to \a file in their order. The answer is the sentence that says why one of them is refused; empty
/// when all were done.
QString applyEdits(const QVector<Edit>& edits, zokit::FileSettings& file);

} // namespace zoconvert
