// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <zokit/filesettings.h>

#include "invocation.h"

namespace zoconvert {

/// Applies \a edits to \a file in their order. The answer is the sentence that says why one of them is refused; empty
/// when all were done. \a warnings, if given, gets what became of them unasked.
QString applyEdits(const QVector<Edit>& edits, zokit::FileSettings& file, QStringList* warnings = nullptr);

/// The same before anything is known of the clip: what its frame and its tracks decide is not refused, and a crop of
/// which only the clip tells where it lies becomes any one.
QString applyAhead(const QVector<Edit>& edits, zokit::FileSettings& file);

/// That settings for a frame of the size \a told were rescaled to that of \a found.
QString rescaledText(const QSize& told, const QSize& found);

} // namespace zoconvert
