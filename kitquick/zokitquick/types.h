// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokitquick/zokitquick_export.h>

/// The kit for QML. The guide shows it in "Settings and previews in QML".
namespace zokitquick {

/// Registers FileSettings, SettingsModel and PreviewPicture for QML as version 1.1 of the module \a uri. The plugin of
/// the module ZoEffect.Kit does so when it is imported; a program that links the library can call it instead, before it
/// loads QML, and needs no module beside it.
ZOKITQUICK_EXPORT void registerTypes(const char* uri = "ZoEffect.Kit");

} // namespace zokitquick
