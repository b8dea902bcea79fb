// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVector>

#include <zokit/properties.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// An option of the conversion: on the command line, in the editor, in settings files and in the manual.
struct ZOKIT_EXPORT OutputOption {
    Property property;           ///< Type "Output"; key: the name, for example "video-codec".
    QString shortName;           ///< One letter for the command line, or empty.
    QString valueName;           ///< "FILE", "N", "WxH"; empty for a flag.
    bool inSettings = true;      ///< Whether a settings file can hold it under "output".
    bool inPresets = true;       ///< Whether a preset can; not the trim of one clip.
    bool changesPicture = false; ///< Whether a preview has to know it.
    bool changesOutput = false;  ///< Whether what comes out differs from a plain copy with it; not so for file names.
};

/// All options, in the order of the help.
ZOKIT_EXPORT const QVector<OutputOption>& outputOptions();
/// The option \a name, in its long form without dashes; null when there is none.
ZOKIT_EXPORT const OutputOption* outputOption(const QString& name);

} // namespace zokit
