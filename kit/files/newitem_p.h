// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>

#include <zokit/properties.h>
#include <zokit/settings.h>

class ZoEffectItemData;
class ZoEffectModel;

namespace zokit {

/// What a new item of \a type gets in a frame of \a frame, with the user's saved defaults. \a kind holds what tells
/// kinds apart: "wm_istextwatermark", "sub_fromfile", "audio_isfile". A watermark stands where the first one would.
/// Asks the library, in a model of its own.
Item newItem(const QString& type, const Values& kind, const QSize& frame);

/// What a new type node gets: its own values, with the user's saved defaults, and its fixed items.
TypeSettings newType(const QString& type, const QSize& frame);

/// The keys of \a values that tell kinds apart, as newItem() takes them.
Values kindOf(const QString& type, const Values& values);

/// What a thing of a type is, as the property table tells kinds apart.
Suit suitOf(const QString& type, bool isItem, const Values& values);

/// Pins the place of a subtitle that follows the height of the frame, at \a factor of it, so that no default saved
/// later moves it.
void pinSubtitle(Values& values, double factor, const QSize& frame);

/// The values and the check state of \a node as an item.
Item itemFrom(const ZoEffectItemData& node);

/// Pictures with the transparency of their images, and letters of one size in all programs, whatever the screen.
void setPictureOptions(ZoEffectModel& model);

/// Registers the kit's table of effects, unless the host has registered one.
void registerEffects();

} // namespace zokit
