// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokitquick/types.h>

#include <QtQml>

#include <zokitquick/filesettings.h>
#include <zokitquick/previewpicture.h>
#include <zokitquick/settingsmodel.h>

namespace zokitquick {

void registerTypes(const char* uri)
{
    constexpr int major = 1; // Of the library's version, as are the names of its files.
    constexpr int minor = 1;
    qmlRegisterType<FileSettings>(uri, major, minor, "FileSettings");
    qmlRegisterType<SettingsModel>(uri, major, minor, "SettingsModel");
    qmlRegisterType<PreviewPicture>(uri, major, minor, "PreviewPicture");
}

} // namespace zokitquick
