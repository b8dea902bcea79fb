// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QMap>
#include <QSize>
#include <QString>
#include <QVariant>
#include <QVector>

#include <zokit/zokit_export.h>

/// The kit: what every host needs beside the settings. Its guide begins with "From nothing to a host".
namespace zokit {

/// Values by key, as the library keeps them: int, double, bool, QString, QColor, QFont, and whatever a host brings.
using Values = QMap<QString, QVariant>;

/// The clip that settings are for.
struct ZOKIT_EXPORT Media {
    QString file; ///< Absolute path, or as it stands in a settings file; empty in a preset.
    QSize frame{0,
                0};   ///< Displayed size in pixels, upright, of square pixels. Geometry is measured in it: baseFrame().
    double seconds{}; ///< Length; 0 when unknown.
};

/// Settings of one item: a watermark, a track, a frame effect.
struct ZOKIT_EXPORT Item {
    QString name;         ///< Of a frame effect, else empty.
    bool selected = true; ///< Whether it takes part.
    Values values;        ///< By key.
    Values anchor; ///< "corner", "margin", "size" as in a settings file; empty: none. Position and size follow from it.
    QJsonObject foreign; ///< Members "x-...": a host's own, kept as they are.
};

/// Settings of one effect type.
struct ZOKIT_EXPORT TypeSettings {
    QString type;         ///< "Crop", "Watermark", ...
    bool selected = true; ///< Whether it takes part.
    Values values;        ///< The type's own; those of items stand with them.
    QVector<Item> items;  ///< In their order.
    QJsonObject foreign;  ///< As Item::foreign.
};

/// All that is set for one file, as a plain value: what a settings file holds, what is compared and carried over.
/// Positions in the lists are for people only.
struct ZOKIT_EXPORT Settings {
    Media media;                   ///< The clip; without a file in a preset.
    QVector<TypeSettings> effects; ///< In the order of the tree: the picture's types first, then the sound's.
    Values tracks;                 ///< Rules by which tracks were chosen, in a settings file's words.
    Values output;                 ///< Output options by name.
    QJsonObject foreign;           ///< Members of the form that this version does not know; written back.

    TypeSettings* find(const QString& type);             ///< Null when the type is not there.
    const TypeSettings* find(const QString& type) const; ///< As above.
};

/// The frame in which crop, watermarks and subtitles are measured: that of the media, its sides exchanged where the
/// picture is turned by 90 or 270 degrees.
ZOKIT_EXPORT QSize baseFrame(const Settings& settings);

/// Exact: values of other types differ, also where Qt would convert one to the other.
ZOKIT_EXPORT bool operator==(const Media& left, const Media& right);
/// As above.
ZOKIT_EXPORT bool operator==(const Item& left, const Item& right);
/// As above.
ZOKIT_EXPORT bool operator==(const TypeSettings& left, const TypeSettings& right);
/// As above.
ZOKIT_EXPORT bool operator==(const Settings& left, const Settings& right);

} // namespace zokit
