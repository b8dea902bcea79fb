// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "things_p.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include <QJsonDocument>

#include <zokit/filesettings.h>
#include <zokit/properties.h>

#include "exactly_p.h"
#include "names_p.h"
#include "newitem_p.h"
#include "turn_p.h"

namespace zokit {

namespace {

const QString mediaFile = QStringLiteral("file");
const QString mediaWidth = QStringLiteral("width");
const QString mediaHeight = QStringLiteral("height");
const QString mediaSeconds = QStringLiteral("seconds");

QVariantList toList(const QVector<Identity>& things)
{
    QVariantList list;
    for (const Identity thing : things)
        list.append(QVariant::fromValue(thing));
    return list;
}

QVector<Identity> fromList(const QVariant& value)
{
    QVector<Identity> things;
    for (const QVariant& thing : value.toList())
        things.append(thing.toULongLong());
    return things;
}

void insertForeign(Values& values, const QJsonObject& foreign)
{
    if (!foreign.isEmpty())
        values.insert(own::foreign, QJsonDocument(foreign).toJson(QJsonDocument::Compact));
}

QJsonObject foreignOf(const Values& values)
{
    const auto found = values.constFind(own::foreign);
    return found == values.cend() ? QJsonObject() : QJsonDocument::fromJson(found->toByteArray()).object();
}

/// A thing without properties of its own is still there: it belongs to something.
Values fileValues(const Settings& settings)
{
    Values values{{mediaFile, settings.media.file},
                  {mediaWidth, settings.media.frame.width()},
                  {mediaHeight, settings.media.frame.height()},
                  {mediaSeconds, settings.media.seconds}};
    insertForeign(values, settings.foreign);
    return values;
}

Values belonging(const Values& values, const QString& type, Identity file)
{
    Values result = values;
    result.insert(own::type, type);
    result.insert(own::of, QVariant::fromValue(file));
    return result;
}

Values typeValues(const TypeSettings& settings, const QVector<Identity>& items, Identity file)
{
    Values values = belonging(settings.values, settings.type, file);
    values.insert(own::selected, settings.selected);
    if (hasItems(settings.type))
        values.insert(own::items, toList(items));
    insertForeign(values, settings.foreign);
    return values;
}

Values itemValues(const Item& item, Identity type)
{
    Values values = item.values;
    values.insert(own::of, QVariant::fromValue(type));
    values.insert(own::selected, item.selected);
    if (!item.name.isEmpty())
        values.insert(own::name, item.name);
    if (!item.anchor.isEmpty())
        values.insert(own::anchor, item.anchor);
    insertForeign(values, item.foreign);
    return values;
}

Values propertiesOf(const Values& values)
{
    Values result;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        if (!isInternal(it.key()) && it.key() != own::selected)
            result.insert(result.cend(), it.key(), it.value());
    }
    return result;
}

/// The changes from \a before to \a after of one thing.
void appendChanges(Changes& changes, Identity thing, const Values& before, const Values& after)
{
    // Both are in the order of their keys.
    auto now = after.cbegin();
    for (auto old = before.cbegin(); old != before.cend(); ++old) {
        while (now != after.cend() && now.key() < old.key())
            ++now;
        const QVariant then = now != after.cend() && now.key() == old.key() ? now.value() : QVariant();
        if (!exactly(old.value(), then))
            changes.append({thing, old.key(), old.value(), then});
    }
    auto old = before.cbegin();
    for (now = after.cbegin(); now != after.cend(); ++now) {
        while (old != before.cend() && old.key() < now.key())
            ++old;
        if (now.value().isValid() && (old == before.cend() || old.key() != now.key()))
            changes.append({thing, now.key(), QVariant(), now.value()});
    }
}

} // namespace

bool isInternal(const QString& key)
{
    return key.startsWith(QLatin1Char(':'));
}

QString asKept(const QString& key)
{
    return key == own::checkState ? own::selected : key;
}

Things::Things(const Settings& settings, Identities& identities) : m_file(identities.next())
{
    m_values.insert(m_file, fileValues(settings));
    for (const TypeSettings& effect : settings.effects) {
        const Identity type = identities.next();
        QVector<Identity> items;
        for (const Item& item : effect.items) {
            items.append(identities.next());
            m_values.insert(items.last(), itemValues(item, type));
        }
        m_values.insert(type, typeValues(effect, items, m_file));
    }
    m_values.insert(identities.next(), belonging(settings.tracks, types::tracks, m_file));
    m_values.insert(identities.next(), belonging(settings.output, types::output, m_file));
    index();
}

Things::Things(const QMap<Identity, Values>& values) : m_values(values)
{
    index();
}

void Things::index()
{
    m_file = 0;
    m_types.clear();
    for (auto it = m_values.cbegin(); it != m_values.cend(); ++it) {
        if (it.value().contains(own::type))
            m_types.insert(it.value().value(own::type).toString(), it.key());
        else if (!it.value().contains(own::of))
            m_file = it.key();
    }
}

QVector<Identity> Things::items(const QString& type) const
{
    return fromList(value(m_types.value(type, 0), own::items));
}

QString Things::typeOf(Identity thing) const
{
    const Values values = m_values.value(thing);
    if (values.contains(own::type))
        return values.value(own::type).toString();
    return value(values.value(own::of).toULongLong(), own::type).toString();
}

bool Things::isItem(Identity thing) const
{
    const Values values = m_values.value(thing);
    return values.contains(own::of) && !values.contains(own::type);
}

int Things::position(Identity item) const
{
    return isItem(item) ? static_cast<int>(items(typeOf(item)).indexOf(item)) : -1;
}

QSize Things::frame() const
{
    return {value(m_file, mediaWidth).toInt(), value(m_file, mediaHeight).toInt()};
}

QSize Things::baseFrame() const
{
    const Values crop = values(type(types::crop));
    return turnOf(crop.value(own::selected).toBool(), crop, values(type(types::effect))).of(frame());
}

Item Things::itemSettings(Identity item) const
{
    Item result;
    result.selected = false;
    const Values values = m_values.value(item);
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        if (it.key() == own::selected)
            result.selected = it.value().toBool();
        else if (it.key() == own::anchor)
            result.anchor = it.value().toMap();
        else if (it.key() == own::name)
            result.name = it.value().toString();
        else if (!isInternal(it.key()))
            result.values.insert(result.values.cend(), it.key(), it.value());
    }
    result.foreign = foreignOf(values);
    return result;
}

TypeSettings Things::typeSettings(const QString& type) const
{
    const Values values = m_values.value(m_types.value(type, 0));
    TypeSettings result{type, values.value(own::selected).toBool(), propertiesOf(values), {}, foreignOf(values)};
    for (const Identity item : items(type))
        result.items.append(itemSettings(item));
    return result;
}

Settings Things::settings() const
{
    Settings result;
    const Values file = m_values.value(m_file);
    result.media = {file.value(mediaFile).toString(), frame(), file.value(mediaSeconds).toDouble()};
    result.foreign = foreignOf(file);
    for (const QString& type : effectTypes()) {
        if (m_types.contains(type))
            result.effects.append(typeSettings(type));
    }
    result.tracks = propertiesOf(m_values.value(type(types::tracks)));
    result.output = propertiesOf(m_values.value(type(types::output)));
    return result;
}

void Things::apply(const Changes& changes)
{
    bool otherThings = false;
    for (const Change& change : changes) {
        otherThings = otherThings || !m_values.contains(change.thing) || change.key == own::of;
        Values& values = m_values[change.thing];
        if (change.after.isValid())
            values.insert(change.key, change.after);
        else
            values.remove(change.key);
        if (values.isEmpty()) {
            m_values.remove(change.thing);
            otherThings = true;
        }
    }
    if (otherThings)
        index();
}

/// For each item of \a target the identity that it keeps, 0 for a new one: that of the same item at its place, else of
/// the same item elsewhere, else of one of its kind at its place.
QVector<Identity> Things::keptItems(const TypeSettings& target, const QVector<Item>& before) const
{
    const QVector<Identity> present = items(target.type);
    QVector<Identity> kept(target.items.size(), 0);
    QVector<bool> taken(present.size(), false);
    const auto takeIf = [&](int row, int pos, bool same) {
        if (kept.at(row) == 0 && !taken.at(pos) && same) {
            kept[row] = present.at(pos);
            taken[pos] = true;
        }
    };
    const int common = static_cast<int>(std::min(kept.size(), present.size()));
    for (int row = 0; row < common; ++row)
        takeIf(row, row, before.at(row) == target.items.at(row));
    for (int row = 0; row < kept.size(); ++row) {
        for (int pos = 0; pos < present.size() && kept.at(row) == 0; ++pos)
            takeIf(row, pos, !taken.at(pos) && before.at(pos) == target.items.at(row));
    }
    for (int row = 0; row < common; ++row) {
        const Item& wanted = target.items.at(row);
        takeIf(row, row,
               before.at(row).name == wanted.name
                   && exactly(kindOf(target.type, before.at(row).values), kindOf(target.type, wanted.values)));
    }
    return kept;
}

Changes Things::changesTo(const TypeSettings& target, const QVector<Identity>& kept, Identities& identities) const
{
    return changesTo(target, kept, typeSettings(target.type).items, identities);
}

Changes Things::changesTo(const TypeSettings& target, const QVector<Identity>& kept, const QVector<Item>& before,
                          Identities& identities) const
{
    const Identity type = m_types.value(target.type, 0);
    const QVector<Identity> present = items(target.type);
    Changes changes;
    QVector<Identity> after = kept;
    for (int row = 0; row < after.size(); ++row) {
        const Item& item = target.items.at(row);
        const int former = static_cast<int>(present.indexOf(after.at(row)));
        if (former >= 0 && before.at(former) == item)
            continue;
        if (after.at(row) == 0)
            after[row] = identities.next();
        appendChanges(changes, after.at(row), m_values.value(after.at(row)), itemValues(item, type));
    }
    for (const Identity item : present) {
        if (!after.contains(item))
            appendChanges(changes, item, m_values.value(item), Values());
    }
    appendChanges(changes, type, m_values.value(type), typeValues(target, after, m_file));
    return changes;
}

Changes Things::changesTo(const Settings& target, const Settings& present, Identities& identities) const
{
    Changes changes;
    appendChanges(changes, m_file, m_values.value(m_file), fileValues(target));
    for (const TypeSettings& effect : target.effects) {
        const TypeSettings* there = present.find(effect.type);
        if (there && *there == effect)
            continue;
        const QVector<Item> before = there ? there->items : QVector<Item>();
        changes += changesTo(effect, keptItems(effect, before), before, identities);
    }
    const auto compare = [&](const QString& name, const Values& before, const Values& after) {
        if (!exactly(before, after))
            appendChanges(changes, type(name), m_values.value(type(name)), belonging(after, name, m_file));
    };
    compare(types::tracks, present.tracks, target.tracks);
    compare(types::output, present.output, target.output);
    return changes;
}

Changes merged(const Changes& changes)
{
    // Those of one value stand side by side in here, the first one first.
    std::vector<int> order(static_cast<std::size_t>(changes.size()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int left, int right) {
        const Change& a = changes.at(left);
        const Change& b = changes.at(right);
        return a.thing != b.thing ? a.thing < b.thing : a.key < b.key;
    });
    std::vector<int> lastOf(order.size(), -1); // Of the first one of each value.
    for (std::size_t i = 0; i < order.size();) {
        const Change& first = changes.at(order[i]);
        std::size_t next = i + 1;
        while (next < order.size() && changes.at(order[next]).thing == first.thing
               && changes.at(order[next]).key == first.key)
            ++next;
        lastOf[static_cast<std::size_t>(order[i])] = order[next - 1];
        i = next;
    }
    Changes result;
    for (int i = 0; i < changes.size(); ++i) {
        const int last = lastOf[static_cast<std::size_t>(i)];
        if (last >= 0 && !exactly(changes.at(i).before, changes.at(last).after))
            result.append({changes.at(i).thing, changes.at(i).key, changes.at(i).before, changes.at(last).after});
    }
    return result;
}

Changes reversed(const Changes& changes)
{
    Changes result;
    for (auto it = changes.crbegin(); it != changes.crend(); ++it)
        result.append({it->thing, it->key, it->after, it->before});
    return result;
}

} // namespace zokit
