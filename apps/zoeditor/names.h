// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFileInfo>

#include <zokit/message.h>

namespace zoeditor {

/// The name of the file \a path for people: on one line, whatever is in it.
inline QString shownName(const QString& path)
{
    return zokit::onOneLine(QFileInfo(path).fileName());
}

} // namespace zoeditor
