// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert schema: the JSON Schemas of settings files, presets and what stands in them.

#include <QJsonDocument>

#include <zokit/schema.h>

#include "console.h"
#include "run.h"

namespace zoconvert {

int schema(const Invocation& invocation)
{
    const QString& word = invocation.words.first();
    const zokit::SchemaOf what = word == QLatin1String("catalogue") ? zokit::SchemaOf::Catalogue
                                 : word == QLatin1String("preset")  ? zokit::SchemaOf::Preset
                                                                    : zokit::SchemaOf::Settings;
    console::print(QJsonDocument(zokit::schema(what)).toJson(QJsonDocument::Indented));
    return Done;
}

} // namespace zoconvert
