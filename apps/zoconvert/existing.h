// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QPair>
#include <QStringList>

#include "invocation.h"

namespace zoconvert {

/// What happens to a file that is there already.
enum class Existing { Refuse, Skip, Replace };

/// As --existing and --overwrite say; Refuse without them.
Existing existingOf(const Invocation& invocation);

/// Whether there is anything under the name \a path, a link that leads nowhere, too.
bool isThere(const QString& path);
/// What is said of a result that is there: with what to do.
QString thereAlready(const QString& path);
/// Two names of one file agree in it, links included.
using FileKey = QPair<quint64, quint64>;
/// Nothing where there is no file.
std::optional<FileKey> keyOf(const QString& path);
/// The sentence that \a output is one of \a sources, by whatever name; empty: it is none.
QString refusedAsSource(const QString& output, const QStringList& sources);

/// Names each of \a files that is there already, with what to do. False: none is.
bool anyExists(const QStringList& files);

} // namespace zoconvert
