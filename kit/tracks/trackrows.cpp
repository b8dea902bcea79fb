// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "trackrows_p.h"

#include <QCoreApplication>

namespace zokit {

namespace {

struct Row {
    const char* key;
    ValueKind kind;
    Control control;
    const char* label;
    const char* help;
};

#define T(text) QT_TRANSLATE_NOOP("zokit", text)

// clang-format off
constexpr Row rows[] = {
    {"audio-language",    ValueKind::List, Control::ListEdit, T("Sound languages"),    T("All tracks of the first of these languages that the clip has, for example fra,eng.")},
    {"audio-tracks",      ValueKind::List, Control::ListEdit, T("Sound tracks by hand"), T("Numbers of the tracks; goes before the languages.")},
    {"forced-subtitles",  ValueKind::Bool, Control::CheckBox, T("Forced subtitles"),   T("Takes a subtitle that is marked as forced, in the language of the sound.")},
    {"sidecars",          ValueKind::Bool, Control::CheckBox, T("Files beside the clip"), T("Subtitle files of the clip's name count as tracks.")},
    {"subtitle-language", ValueKind::List, Control::ListEdit, T("Subtitle languages"), T("One track, of the first of these languages that the clip has.")},
    {"subtitle-track",    ValueKind::Text, Control::LineEdit, T("Subtitle by hand"),   T("Number of the track, or none; goes before the languages.")},
};
// clang-format on

#undef T

} // namespace

QVector<Property> trackRows()
{
    QVector<Property> result;
    for (const Row& row : rows) {
        Property property;
        property.type = QStringLiteral("Tracks");
        property.key = QString::fromLatin1(row.key);
        property.kind = row.kind;
        property.control = row.control;
        property.suits = Suit::Type;
        property.group = QStringLiteral("rules");
        property.labelText = row.label;
        property.helpText = row.help;
        result.append(property);
    }
    return result;
}

} // namespace zokit
