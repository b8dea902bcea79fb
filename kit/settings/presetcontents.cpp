// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/presets.h>

#include <QCoreApplication>

#include <zokit/placement.h>
#include <zokit/properties.h>
#include <zokit/valuetext.h>

#include "carrying_p.h"
#include "cataloguedefaults_p.h"
#include "exactly_p.h"
#include "names_p.h"
#include "newitem_p.h"
#include "things_p.h"

namespace zokit {

namespace {

const QString separator = QStringLiteral(", ");

QString line(const QString& thing, const QStringList& parts)
{
    return thing + QStringLiteral(": ") + parts.join(separator);
}

/// "Left: 96 px" for each of \a values that a person sets and that is not as \a plain has it.
QStringList partsOf(const QString& type, const Values& values, const Values& plain)
{
    QStringList parts;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const Property* known = findProperty(type, it.key());
        const bool isShown = known && known->control != Control::None && !exactly(it.value(), plain.value(it.key()));
        if (isShown)
            parts.append(line(known->label(), {valueLabel({type, Address::ofType, it.key()}, it.value())}));
    }
    return parts;
}

QString notInUse()
{
    return line(QCoreApplication::translate("zokit", "In use"), {QCoreApplication::translate("zokit", "No")});
}

/// What is said of \a type itself: its values, the frame effects in use, the style of the clip's tracks.
QStringList partsOf(const TypeSettings& type, const QSize& frame)
{
    const bool isNothing = type.type == types::crop && isWholeFrame(type.values, frame);
    QStringList parts =
        isNothing ? QStringList() : partsOf(type.type, type.values, catalogueType(type.type, frame).values);
    for (const Item& item : type.items) {
        if (type.type == types::effect && item.selected)
            parts.append(itemLabel(type.type, item));
    }
    const Item* style = carrying::styled(type);
    if (style && suitOf(type.type, true, style->values) == Suit::EmbeddedTrack)
        parts += partsOf(type.type, style->values, catalogueItem(type.type, frame));
    if (!type.selected)
        parts.append(notInUse());
    return parts;
}

/// Whether \a item is in the preset for itself, not for a choice or a style.
bool isOwn(const QString& type, const Item& item)
{
    const Suit suit = suitOf(type, true, item.values);
    return suit != Suit::FrameEffect && suit != Suit::EmbeddedTrack;
}

} // namespace

QStringList contentsOf(const Settings& preset)
{
    const QSize frame = baseFrame(preset);
    QStringList lines;
    QStringList untouched;
    for (const TypeSettings& type : preset.effects) {
        const auto before = lines.size();
        const QStringList parts = partsOf(type, frame);
        if (!parts.isEmpty())
            lines.append(line(displayName(type.type), parts));
        for (int pos = 0; pos < type.items.size(); ++pos) {
            const Item& item = type.items.at(pos);
            QStringList what{itemLabel(type.type, item)};
            if (!item.anchor.isEmpty())
                what.append(valueLabel({type.type, pos, own::anchor}, item.anchor));
            if (!item.selected)
                what.append(notInUse());
            if (isOwn(type.type, item))
                lines.append(line(QStringLiteral("%1 %2").arg(displayName(type.type)).arg(pos + 1), what));
        }
        if (lines.size() == before)
            untouched.append(displayName(type.type));
    }
    if (!preset.tracks.isEmpty())
        lines.append(line(displayName(types::tracks), partsOf(types::tracks, preset.tracks, {})));
    if (!preset.output.isEmpty())
        lines.append(line(displayName(types::output), partsOf(types::output, preset.output, {})));
    if (!untouched.isEmpty())
        lines.append(QCoreApplication::translate("zokit", "As by default: %1").arg(untouched.join(separator)));
    return lines;
}

} // namespace zokit
