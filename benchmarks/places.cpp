// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "places.h"

#include <QColor>

namespace {

QHash<QString, int>& knownRoles()
{
    static QHash<QString, int> roles;
    return roles;
}

struct Choice {
    QString key;
    QVariant first;
    QVariant second;
};

std::vector<Choice> choicesOf(Spot spot)
{
    switch (spot) {
    case Spot::MiddleItem:
    case Spot::LastItem:
        return {{QStringLiteral("wm_hposition"), 101, 102},
                {QStringLiteral("wm_hposfactor"), 0.25, 0.5},
                {QStringLiteral("wm_imagekeepratio"), false, true},
                {QStringLiteral("wm_fontstyle"), QString::fromLatin1("Bold"), QString::fromLatin1("Italic")},
                {QStringLiteral("wm_fontcolor"), QColor(Qt::red), QColor(Qt::blue)}};
    case Spot::LastType:
        return {{QStringLiteral("audio_effect_flag"), true, false}, {QStringLiteral("audio_speed_factor"), 150, 100}};
    case Spot::FirstType:
        break;
    }
    return {
        {QStringLiteral("crop_left"), 16, 0},
        {QStringLiteral("crop_keepaspectratio"), false, true},
        {QStringLiteral("crop_aspectratio"), QString::fromLatin1("Crop Area"), QString::fromLatin1("Original Ratio")}};
}

QString typeOf(Spot spot)
{
    switch (spot) {
    case Spot::MiddleItem:
    case Spot::LastItem:
        return QStringLiteral("Watermark");
    case Spot::LastType:
        return QStringLiteral("Audio_Speed");
    case Spot::FirstType:
        break;
    }
    return QStringLiteral("Crop");
}

/// A copy in memory of its own.
QString onTheHeap(const QString& text)
{
    return QString(text.constData(), text.size());
}

} // namespace

const QHash<QString, int>& rolesByKey()
{
    return knownRoles();
}

int roleOf(const QString& key)
{
    QHash<QString, int>& roles = knownRoles();
    const auto found = roles.constFind(key);
    if (found != roles.cend())
        return found.value();
    const int role = Qt::UserRole + static_cast<int>(roles.size());
    roles.insert(key, role);
    return role;
}

Place placeAt(Spot spot, int items, const QString& only)
{
    Place place{typeOf(spot), -1, {}};
    if (spot == Spot::MiddleItem)
        place.pos = items / 2;
    else if (spot == Spot::LastItem)
        place.pos = items - 1;

    const std::vector<Choice> choices = choicesOf(spot);
    for (const bool second : {false, true}) {
        for (const Choice& choice : choices) {
            if (!only.isEmpty() && only != choice.key)
                continue;
            const QVariant& value = second ? choice.second : choice.first;
            place.steps.push_back(
                {choice.key, value, choice.key.toStdString(), NativeValue(value), roleOf(choice.key)});
        }
    }
    return place;
}

Place withTextsOnTheHeap(const Place& place)
{
    Place result = place;
    result.type = onTheHeap(place.type);
    for (Step& step : result.steps)
        step.key = onTheHeap(step.key);
    return result;
}
