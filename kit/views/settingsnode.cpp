// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "settingsnode_p.h"

#include <algorithm>

#include <zokit/filesettings.h>
#include <zokit/outputoptions.h>
#include <zokit/valuetext.h>

#include "names_p.h"
#include "newitem_p.h"
#include "things_p.h"

namespace zokit {

int SettingsNode::row() const
{
    int row = 0;
    while (parent->child(row) != this)
        ++row;
    return row;
}

int SettingsNode::itemCount() const
{
    const auto values = std::find_if(children.cbegin(), children.cend(),
                                     [](const std::unique_ptr<SettingsNode>& node) { return node->property; });
    return static_cast<int>(values - children.cbegin());
}

QVector<Identity> SettingsNode::items() const
{
    QVector<Identity> result;
    for (int row = 0; row < itemCount(); ++row)
        result.append(child(row)->thing);
    return result;
}

SettingsNode* SettingsNode::item(Identity item) const
{
    const auto row = items().indexOf(item);
    return row < 0 ? nullptr : child(static_cast<int>(row));
}

ItemStep nextStep(const QVector<Identity>& present, const QVector<Identity>& wanted)
{
    const int count = static_cast<int>(present.size());
    for (int row = count - 1; row >= 0; --row) {
        if (!wanted.contains(present.at(row)))
            return {ItemStep::Kind::Remove, row, 0};
    }
    for (int row = 0; row < wanted.size(); ++row) {
        if (row < count && present.at(row) == wanted.at(row))
            continue;
        const int from = static_cast<int>(present.indexOf(wanted.at(row)));
        if (from < 0)
            return {ItemStep::Kind::Insert, row, 0};
        // One that goes down is one step, not one for each that it passes.
        const int down = static_cast<int>(wanted.indexOf(present.at(row)));
        if (from == row + 1 && down < count)
            return {ItemStep::Kind::Move, row, down};
        return {ItemStep::Kind::Move, from, row};
    }
    return {};
}

QStringList shownTypes()
{
    return effectTypes() + QStringList{types::tracks, types::output};
}

Suit suitNow(const FileSettings& file, const QString& type, Identity item)
{
    return suitOf(type, true, file.values(item));
}

std::unique_ptr<SettingsNode> itemNode(const FileSettings& file, Identity item, SettingsNode& type)
{
    auto node = std::make_unique<SettingsNode>();
    node->type = type.type;
    node->thing = item;
    node->isItem = true;
    node->suit = suitNow(file, type.type, item);
    node->parent = &type;
    appendValues(*node);
    return node;
}

void appendValues(SettingsNode& node)
{
    const bool isEffectType = effectTypes().contains(node.type);
    for (const Property& property : properties()) {
        if (property.type != node.type || property.control == Control::None
            || property.key == own::checkState // The check box of the item's row stands for it.
            || (isEffectType && !property.suits.testFlag(node.suit)))
            continue;
        const OutputOption* option = node.type == types::output ? outputOption(property.key) : nullptr;
        if (option && !option->inSettings)
            continue; // Of one run, not of a file.
        auto value = std::make_unique<SettingsNode>();
        value->type = node.type;
        value->thing = node.thing;
        value->isItem = node.isItem;
        value->property = &property;
        value->parent = &node;
        node.children.push_back(std::move(value));
    }
}

QString itemName(const FileSettings& file, const QString& type, Identity item)
{
    return itemLabel(type, {file.value(item, own::name).toString(), true, file.values(item), {}, {}});
}

} // namespace zokit
