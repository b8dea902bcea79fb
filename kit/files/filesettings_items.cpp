// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "filesettings_p.h"

#include <algorithm>

#include <QImageReader>

#include <zokit/placement.h>

#include "names_p.h"
#include "newitem_p.h"

namespace zokit {

using Code = Message::Code;

namespace {

/// An image is shown in its own size, or as large as fits into half of the frame.
void addImageSize(Values& values, const QSize& frame)
{
    if (values.contains(keys::imageWidth) || values.contains(keys::imageHeight))
        return;
    QSize size = QImageReader(values.value(keys::imageUrl).toString()).size();
    if (size.isEmpty())
        return;
    const QSize largest = frame / 2;
    if (!largest.isEmpty() && (size.width() > largest.width() || size.height() > largest.height()))
        size.scale(largest, Qt::KeepAspectRatio);
    values.insert(keys::imageWidth, std::max(size.width(), 1));
    values.insert(keys::imageHeight, std::max(size.height(), 1));
}

QVector<QRect> occupied(const QVector<Item>& watermarks)
{
    QVector<QRect> places;
    for (const Item& item : watermarks) {
        if (item.selected)
            places.append(QRect(QPoint(item.values.value(keys::left).toInt(), item.values.value(keys::top).toInt()),
                                watermarkSize(item.values)));
    }
    return places;
}

} // namespace

void place(Item& item, const QVector<Item>& others, const QSize& frame)
{
    const QPoint wished(item.values.value(keys::left).toInt(), item.values.value(keys::top).toInt());
    const QPoint found = freePlace(watermarkSize(item.values), wished, occupied(others), frame).value_or(wished);
    item.values.insert(keys::left, found.x());
    item.values.insert(keys::top, found.y());
}

FileSettings::Inserted FileSettings::insert(const QString& type, const Values& values, int pos, QObject* asker)
{
    if (!hasItems(type))
        return {0, effectTypes().contains(type) ? Message(Code::TypeHasNoItems, {type})
                                                : Message(Code::UnknownType, {type, nearest(type, effectTypes())})};
    if (type == types::effect)
        return {0, Message(Code::FixedItems, {type})};
    QVector<Identity> kept = items(type);
    const int count = static_cast<int>(kept.size());
    if (pos < -1 || pos > count)
        return {0, Message(Code::ItemPosition, {type, QString::number(pos), QString::number(count)})};

    Values wanted = values;
    if (type == types::watermark && !wanted.contains(keys::isText))
        wanted.insert(keys::isText, wanted.contains(keys::textContent));
    const Suit suit = suitOf(type, true, wanted);
    Item item = newItem(type, kindOf(type, wanted), d->things.baseFrame());
    item.name.clear();
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it) {
        const QString key = asKept(it.key());
        const QString where = Address{type, pos < 0 ? count : pos, key}.toString();
        const ReadValue read = d->read(type, suit, key, it.value(), where);
        if (!read.error.isEmpty())
            return {0, read.error};
        if (key == own::selected)
            item.selected = read.value.toBool();
        else if (key == own::anchor)
            item.anchor = read.value.toMap();
        else
            item.values.insert(key, read.value);
    }
    TypeSettings target = d->things.typeSettings(type);
    if (type == types::watermark) {
        if (suit == Suit::ImageWatermark)
            addImageSize(item.values, d->things.baseFrame());
        if (!wanted.contains(keys::left) && !wanted.contains(keys::top) && item.anchor.isEmpty())
            place(item, target.items, d->things.baseFrame());
    }
    target.selected = true;
    const int row = pos < 0 ? count : pos;
    target.items.insert(row, item);
    kept.insert(row, 0);
    const Message error = d->commit(d->things.changesTo(target, kept, *d->identities), asker);
    return {error.isEmpty() ? d->things.item(type, row) : 0, error};
}

Message FileSettings::remove(Identity item, QObject* asker)
{
    const QString type = d->things.typeOf(item);
    const int row = d->things.position(item);
    if (row < 0)
        return Message(Code::NoSuchThing);
    if (type == types::effect)
        return Message(Code::FixedItems, {type});
    TypeSettings target = d->things.typeSettings(type);
    QVector<Identity> kept = items(type);
    target.items.removeAt(row);
    kept.removeAt(row);
    return d->commit(d->things.changesTo(target, kept, *d->identities), asker);
}

Message FileSettings::move(Identity item, int to, QObject* asker)
{
    const QString type = d->things.typeOf(item);
    const int from = d->things.position(item);
    if (from < 0)
        return Message(Code::NoSuchThing);
    TypeSettings target = d->things.typeSettings(type);
    QVector<Identity> kept = items(type);
    if (to < 0 || to >= kept.size())
        return Message(Code::ItemPosition, {type, QString::number(to), QString::number(kept.size() - 1)});
    target.items.move(from, to);
    kept.move(from, to);
    return d->commit(d->things.changesTo(target, kept, *d->identities), asker);
}

} // namespace zokit
