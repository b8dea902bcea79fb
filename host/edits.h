// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include "media.h"

#include <QList>
#include <QString>

#include <zoeffectmodel.h>

/// The effect settings of one file, in two models. A model that has the types of audio effects counts as one
/// of audio effects alone (ZoEffectModel::hasRealEffect() then asks nothing else), so they stand apart.
struct FileSettings {
    ZoEffectModel picture{QStringList{"Crop", "Watermark", "Subtitle", "Audio", "Color", "Effect"}};
    ZoEffectModel sound{QStringList{"Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus",
                                    "Audio_Flanger", "Audio_Echo", "Audio_Speed"}};

    /// The model that has \a type. Throws Failure when there is none.
    ZoEffectModel& modelOf(const QString& type);
};

/// A length in pixels, or in percent of the frame's.
struct Length {
    double number = 0;
    bool isPercent = false;

    int inPixels(int whole) const;
};

struct CropWish {
    Length left, top, width, height;
};

// What a user can do to the settings of a file. They throw Failure, and then have changed nothing.

/// Rendering measures the text watermarks and stores their sizes, which the place of a new watermark depends
/// on.
void measureTexts(FileSettings& settings);
/// The file's own tracks, the first of each kind chosen.
void addEmbeddedTracks(FileSettings& settings, const Media& media);
void addTextWatermark(FileSettings& settings, const QString& text);
void addImageWatermark(FileSettings& settings, const QString& path);
void cropPicture(FileSettings& settings, const CropWish& wish);
/// Adds the subtitle file at \a path as a track, and chooses it.
void addSubtitleFile(FileSettings& settings, const QString& path, int patience);
/// Sets one value from its text, in the type that the value has.
void setValue(FileSettings& settings, const QString& type, int pos, const QString& key, const QString& text);
/// Chooses the embedded tracks of \a type ("Audio" or "Subtitle") with these stream numbers, and no others.
void chooseTracks(FileSettings& settings, const QString& type, const QList<int>& ids);
/// Makes the settings of an item what new items of its type start from.
void saveDefault(FileSettings& settings, const QString& type, int pos);
/// Forgets what saveDefault() saved. Only models that are built afterwards start without it.
void forgetDefault(const QString& type);
