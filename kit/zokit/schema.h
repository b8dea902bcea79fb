// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>

#include <zokit/zokit_export.h>

namespace zokit {

/// What a schema describes.
enum class SchemaOf {
    Catalogue, ///< Values by type and key, within the bounds for a person: {"Color": {"bcs_contrast": 7}}.
    Settings,  ///< A settings file.
    Preset     ///< A preset file.
};

/// The JSON Schema, draft 2020-12, made from the property table and the output options. "title", "description" and
/// "x-unit" of a value are its label, help and unit in the language of the moment; "x-maximum" is a bound that the
/// frame sets.
///
/// A file's schema takes all that writeSettings() and writePreset() write, and of what people write values in their
/// proper type alone: the reader is more patient with spellings ("20" for 20). What lies between several values (a type
/// that stands twice, a place in the frame, rules for tracks) only the reader knows.
ZOKIT_EXPORT QJsonObject schema(SchemaOf what);

} // namespace zokit
