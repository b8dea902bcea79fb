// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "settingsmodel_p.h"

#include <algorithm>

#include <QColor>
#include <QCoreApplication>

#include <zokit/valuetext.h>

#include "things_p.h"

// What the rows say, and what is set in them.

namespace zokit {

namespace {

QVariant values(const QVector<Choice>& choices)
{
    QVariantList list;
    for (const Choice& choice : choices)
        list.append(choice.value);
    return list.isEmpty() ? QVariant() : QVariant(list);
}

QVariant names(const Property& property)
{
    QStringList list;
    for (const Choice& choice : property.choices)
        list.append(property.choiceName(choice.value));
    return list.isEmpty() ? QVariant() : QVariant(list);
}

QVariant unlessEmpty(const QString& text)
{
    return text.isEmpty() ? QVariant() : QVariant(text);
}

} // namespace

bool SettingsModel::Private::isCheckable(const SettingsNode& node) const
{
    return !node.property && effectTypes().contains(node.type);
}

/// What a tick switches: an effect that has a switch of its own is not in use just because it is selected.
static QString checkKey(const SettingsNode& node)
{
    const QString inUse = QStringLiteral("audio_effect_flag");
    return findProperty(node.type, inUse) ? inUse : own::selected;
}

bool SettingsModel::Private::isChecked(const SettingsNode& node) const
{
    const bool isSelected = file->value(node.thing, own::selected).toBool();
    return isSelected && file->value(node.thing, checkKey(node)).toBool();
}

QString SettingsModel::Private::label(const SettingsNode& node) const
{
    if (node.property)
        return node.property->label();
    return node.isItem ? itemName(*file, node.type, node.thing) : displayName(node.type);
}

QString SettingsModel::Private::valueText(const SettingsNode& node) const
{
    const QString key = node.property->key;
    return valueLabel({node.type, Address::ofType, key}, file->value(node.thing, key));
}

QString SettingsModel::Private::text(const SettingsNode& node, int column) const
{
    if (column == NameColumn)
        return label(node);
    return node.property ? valueText(node) : QString();
}

QString SettingsModel::Private::help(const SettingsNode& node) const
{
    if (node.property)
        return node.property->help();
    if (!node.isItem || node.type != QLatin1String("Effect"))
        return QString();
    const QString name = file->value(node.thing, own::name).toString();
    const QVector<FrameEffect>& effects = frameEffects();
    const auto found = std::find_if(effects.cbegin(), effects.cend(),
                                    [&](const FrameEffect& effect) { return name == QLatin1String(effect.name); });
    return found == effects.cend() ? QString() : found->help();
}

int SettingsModel::Private::state(const SettingsNode& node) const // NOLINT(misc-no-recursion): the tree is small
{
    if (node.property)
        return static_cast<int>(file->state(node.thing, node.property->key));
    int furthest = isCheckable(node) ? static_cast<int>(file->state(node.thing, own::selected)) : 0;
    for (const std::unique_ptr<SettingsNode>& child : node.children) {
        if (furthest == static_cast<int>(State::Changed))
            break;
        furthest = std::max(furthest, state(*child));
    }
    return furthest;
}

QVariant SettingsModel::Private::bound(const SettingsNode& node, const QVariant& bound) const
{
    const std::optional<double> number = boundIn(bound, frame);
    if (!number)
        return QVariant();
    return node.property->kind == ValueKind::Integer ? QVariant(static_cast<int>(*number)) : QVariant(*number);
}

QVariant SettingsModel::Private::ofAny(const SettingsNode& node, int role) const
{
    const QString key = node.property ? node.property->key : isCheckable(node) ? own::selected : QString();
    switch (role) {
    case KindRole:
        return node.property ? PropertyRow : node.isItem ? ItemRow : TypeRow;
    case TypeRole:
        return node.type;
    case ThingRole:
        return QVariant::fromValue(node.thing);
    case AddressRole: {
        const std::optional<Address> address = file->address(node.thing, key);
        return address && !key.isEmpty() ? QVariant(address->toString()) : QVariant();
    }
    case LabelRole:
    case Qt::AccessibleTextRole:
        return label(node);
    case HelpRole:
        return unlessEmpty(help(node));
    case Qt::ToolTipRole:
        return unlessEmpty(node.property ? help(node) + QStringLiteral(" (%1)").arg(key) : help(node));
    case StateRole:
        return state(node);
    case ItemCountRole:
        return node.parent == &root ? QVariant(node.itemCount()) : QVariant();
    default:
        return node.property ? ofValue(node, role) : QVariant();
    }
}

QVariant SettingsModel::Private::ofValue(const SettingsNode& node, int role) const
{
    const Property& property = *node.property;
    switch (role) {
    case Qt::EditRole:
        return file->value(node.thing, property.key);
    case Qt::DecorationRole:
        return property.kind == ValueKind::Color ? file->value(node.thing, property.key) : QVariant();
    case KeyRole:
        return property.key;
    case GroupRole:
        return property.groupName();
    case DefaultRole:
        return file->catalogueDefault(node.thing, property.key);
    case SavedDefaultRole:
        return file->savedDefault(node.thing, property.key);
    case ControlRole:
        return static_cast<int>(property.control);
    case UnitRole:
        return unlessEmpty(property.unitName());
    case LowestRole:
        return bound(node, property.lowest);
    case HighestRole:
        return bound(node, property.highest);
    case VisualLowestRole:
        return bound(node, property.visualLowest.isValid() ? property.visualLowest : property.lowest);
    case VisualHighestRole:
        return bound(node, property.visualHighest.isValid() ? property.visualHighest : property.highest);
    case StepRole:
        return property.step;
    case DecimalsRole:
        return property.decimals;
    case ChoicesRole:
        return values(property.choices);
    case ChoiceNamesRole:
        return names(property);
    default:
        return QVariant();
    }
}

QVariant SettingsModel::data(const QModelIndex& index, int role) const
{
    const SettingsNode* node = d->file ? d->node(index) : nullptr;
    if (!node)
        return QVariant();
    if (role == Qt::DisplayRole)
        return d->text(*node, index.column());
    if (role == Qt::CheckStateRole) {
        if (index.column() != NameColumn || !d->isCheckable(*node))
            return QVariant();
        return d->isChecked(*node) ? Qt::Checked : Qt::Unchecked;
    }
    if (role == Qt::DecorationRole && index.column() != ValueColumn)
        return QVariant();
    return d->ofAny(*node, role);
}

QVariant SettingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    return section == NameColumn ? QCoreApplication::translate("zokit", "Setting")
                                 : QCoreApplication::translate("zokit", "Value");
}

bool SettingsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const SettingsNode* node = d->file ? d->node(index) : nullptr;
    const bool isCheck = role == Qt::CheckStateRole && node && d->isCheckable(*node);
    if (!isCheck && !(role == Qt::EditRole && node && node->property))
        return false;
    Values wanted{{isCheck ? checkKey(*node) : node->property->key, value}};
    if (isCheck) {
        const bool isOn = value.toInt() == Qt::Checked;
        wanted.first() = isOn;
        if (isOn)
            wanted.insert(own::selected, true);
    }
    const Message error = d->file->setValues(node->thing, wanted, this);
    if (!error.isEmpty())
        emit refused(error, index);
    return error.isEmpty();
}

Qt::ItemFlags SettingsModel::flags(const QModelIndex& index) const
{
    const SettingsNode* node = d->file ? d->node(index) : nullptr;
    if (!node)
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (node->property)
        return index.column() == ValueColumn ? flags | Qt::ItemIsEditable | Qt::ItemNeverHasChildren
                                             : flags | Qt::ItemNeverHasChildren;
    if (d->isCheckable(*node) && index.column() == NameColumn)
        flags |= Qt::ItemIsUserCheckable;
    if (node->isItem)
        flags |= Qt::ItemIsDragEnabled;
    else if (hasItems(node->type))
        flags |= Qt::ItemIsDropEnabled;
    return flags;
}

QHash<int, QByteArray> SettingsModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractItemModel::roleNames();
    const QHash<int, QByteArray> own{
        {KindRole, "kind"},
        {TypeRole, "type"},
        {ThingRole, "thing"},
        {KeyRole, "key"},
        {AddressRole, "address"},
        {LabelRole, "label"},
        {HelpRole, "help"},
        {GroupRole, "group"},
        {StateRole, "state"},
        {DefaultRole, "catalogueDefault"},
        {SavedDefaultRole, "savedDefault"},
        {ControlRole, "control"},
        {UnitRole, "unit"},
        {LowestRole, "lowest"},
        {HighestRole, "highest"},
        {VisualLowestRole, "visualLowest"},
        {VisualHighestRole, "visualHighest"},
        {StepRole, "step"},
        {DecimalsRole, "decimals"},
        {ChoicesRole, "choices"},
        {ChoiceNamesRole, "choiceNames"},
        {ItemCountRole, "itemCount"},
    };
    for (auto it = own.cbegin(); it != own.cend(); ++it)
        names.insert(it.key(), it.value());
    return names;
}

} // namespace zokit
