// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "outside.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QUrl>

namespace zoeditor {

QString openOutside(const QString& path)
{
    if (QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        return {};
    return QCoreApplication::translate(
               "zoeditor::Outside", "No program opens %1. Install one, for example with: apt-get install xdg-utils mpv")
        .arg(path);
}

} // namespace zoeditor
