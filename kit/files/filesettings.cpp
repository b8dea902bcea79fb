// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/filesettings.h>

#include <algorithm>
#include <utility>

#include <QImageReader>
#include <QScopedValueRollback>
#include <QSet>

#include <zoeffectitemdefaultvalmgr.h>

#include <zokit/outputoptions.h>
#include <zokit/placement.h>
#include <zokit/properties.h>
#include <zokit/settingsfile.h>
#include <zokit/tracks.h>

#include "anchoring_p.h"
#include "cataloguedefaults_p.h"
#include "exactly_p.h"
#include "newitem_p.h"
#include "projection_p.h"
#include "realeffect_p.h"
#include "things_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

const QString watermark = QStringLiteral("Watermark");
const QString effect = QStringLiteral("Effect");
const QString isText = QStringLiteral("wm_istextwatermark");
const QString textContent = QStringLiteral("wm_textcontent");
const QString imageUrl = QStringLiteral("wm_imageurl");
const QString imageWidth = QStringLiteral("wm_imagewidth");
const QString imageHeight = QStringLiteral("wm_imageheight");
const QString left = QStringLiteral("wm_hposition");
const QString top = QStringLiteral("wm_vposition");

bool isPlace(const QString& key)
{
    return key == left || key == top;
}

/// What a thing of a type is, as the property table tells kinds apart.
Suit suitOf(const QString& type, bool isItem, const Values& values)
{
    if (!isItem)
        return Suit::Type;
    if (type == effect)
        return Suit::FrameEffect;
    if (type == watermark)
        return values.value(isText).toBool() ? Suit::TextWatermark : Suit::ImageWatermark;
    const Values kind = kindOf(type, values);
    return kind.cbegin() != kind.cend() && kind.first().toBool() ? Suit::FileTrack : Suit::EmbeddedTrack;
}

/// An image is shown in its own size, or as large as fits into half of the frame.
void addImageSize(Values& values, const QSize& frame)
{
    if (values.contains(imageWidth) || values.contains(imageHeight))
        return;
    QSize size = QImageReader(values.value(imageUrl).toString()).size();
    if (size.isEmpty())
        return;
    const QSize largest = frame / 2;
    if (!largest.isEmpty() && (size.width() > largest.width() || size.height() > largest.height()))
        size.scale(largest, Qt::KeepAspectRatio);
    values.insert(imageWidth, std::max(size.width(), 1));
    values.insert(imageHeight, std::max(size.height(), 1));
}

/// The measured size of a text is no setting.
Settings withoutMeasures(Settings settings)
{
    if (TypeSettings* watermarks = settings.find(watermark)) {
        for (Item& item : watermarks->items) {
            if (item.values.value(isText).toBool()) {
                item.values.remove(imageWidth);
                item.values.remove(imageHeight);
            }
        }
    }
    return settings;
}

QVector<QRect> occupied(const QVector<Item>& watermarks)
{
    QVector<QRect> places;
    for (const Item& item : watermarks) {
        if (item.selected)
            places.append(QRect(QPoint(item.values.value(left).toInt(), item.values.value(top).toInt()),
                                watermarkSize(item.values)));
    }
    return places;
}

/// Where a watermark with the default place of \a item goes when \a others are there.
void place(Item& item, const QVector<Item>& others, const QSize& frame)
{
    const QPoint wished(item.values.value(left).toInt(), item.values.value(top).toInt());
    const QPoint found = freePlace(watermarkSize(item.values), wished, occupied(others), frame).value_or(wished);
    item.values.insert(left, found.x());
    item.values.insert(top, found.y());
}

/// What a reset makes of a type: the clip's own tracks stay, with the defaults of the moment and none chosen; files and
/// watermarks go.
TypeSettings resetOf(const TypeSettings& type, const QSize& frame)
{
    TypeSettings result = newType(type.type, frame);
    result.foreign = type.foreign;
    if (type.type == effect || type.type == watermark)
        return result;
    for (const Item& item : type.items) {
        if (suitOf(type.type, true, item.values) == Suit::FileTrack)
            continue;
        Item fresh = newItem(type.type, kindOf(type.type, item.values), frame);
        fresh.selected = false;
        fresh.foreign = item.foreign;
        for (auto it = item.values.cbegin(); it != item.values.cend(); ++it) {
            if (!fresh.values.contains(it.key()))
                fresh.values.insert(it.key(), it.value()); // Which track it is.
        }
        result.items.append(fresh);
    }
    return result;
}

Settings newSettings(const Media& media)
{
    Settings settings;
    settings.media = media;
    for (const QString& type : effectTypes())
        settings.effects.append(newType(type, media.frame));
    return settings;
}

} // namespace

Identity Identities::next()
{
    return ++m_last;
}

void Identities::skip(Identity used)
{
    m_last = std::max(m_last, used);
}

class FileSettings::Private {
public:
    Private(FileSettings* settings, std::shared_ptr<Identities> shared, const Settings& start)
        : q(settings)
        , identities(shared ? std::move(shared) : std::make_shared<Identities>())
        , things(withoutMeasures(start), *identities)
    {
        begin();
    }

    Private(FileSettings* settings, std::shared_ptr<Identities> shared, const QMap<Identity, Values>& values)
        : q(settings), identities(std::move(shared)), things(values)
    {
        begin();
    }

    void begin()
    {
        QSize frame = things.frame();
        projection.picture().setVideoSize(frame.width(), frame.height());
        projection.sound().setVideoSize(frame.width(), frame.height());
        for (const QString& type : effectTypes())
            projection.replace(things, type);
        const auto follow = [this] {
            if (!projection.isFollowing())
                q->syncFromModels();
        };
        for (ZoEffectModel* model : {&projection.picture(), &projection.sound()}) {
            QObject::connect(
                model,
                QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
                q, follow);
            QObject::connect(model, QOverload<const QString&>::of(&ZoEffectModel::effectDataChanged), q, follow);
        }
    }

    QString addressText(Identity thing, const QString& key) const
    {
        const std::optional<Address> address = q->address(thing, key);
        return address ? address->toString() : key;
    }

    ReadValue read(const QString& type, Suit suit, const QString& key, const QVariant& given,
                   const QString& where) const;
    ReadValue read(Identity thing, const QString& key, const QVariant& given) const;
    Item defaultItem(Identity item) const;
    QVariant defaultOf(Identity thing, const QString& key) const;
    QVariant catalogueDefaultOf(Identity thing, const QString& key) const;
    Changes consequences(const Changes& changes) const;
    Message commit(const Changes& wanted, QObject* asker);
    void store(const Changes& changes, QObject* asker, bool modelsHaveIt);
    void tellItems(const QString& type, const QVector<Identity>& before, const QVector<Identity>& after);

    FileSettings* q;
    std::shared_ptr<Identities> identities;
    Things things;
    Projection projection;
    bool announcing = false;
};

ReadValue FileSettings::Private::read(const QString& type, Suit suit, const QString& key, const QVariant& given,
                                      const QString& where) const
{
    const bool isOfEffect = effectTypes().contains(type);
    if (key == own::selected && isOfEffect) {
        Property selection;
        selection.kind = ValueKind::Bool;
        return readValue(selection, given, things.frame(), where);
    }
    if (key == own::anchor && (suit == Suit::TextWatermark || suit == Suit::ImageWatermark)) {
        Message error;
        const std::optional<Anchor> anchor = anchorFrom(given.toMap(), &error);
        return anchor ? ReadValue{toValues(*anchor), Message()} : ReadValue{QVariant(), error};
    }
    if (key.startsWith(QLatin1String("x-")))
        return {given, Message()}; // The host's own.
    const Property* known = findProperty(type, key);
    if (!known) {
        const ReadAddress asRead = readAddress(type + QLatin1Char(':') + key);
        return {QVariant(), asRead.error.isEmpty() ? Message(Code::NoSuchThing) : asRead.error};
    }
    const OutputOption* option = type == QLatin1String("Output") ? outputOption(key) : nullptr;
    if (option && !option->inSettings)
        return {QVariant(), Message(Code::NotKept, {key})};
    if (isOfEffect && !known->suits.testFlag(suit)) {
        if (suit == Suit::Type)
            return {QVariant(), Message(Code::KeyNeedsItem, {type, key})};
        return {QVariant(), Message(Code::NotOfItem, {where, suitsText(known->suits)})};
    }
    const ReadValue read = readValue(*known, given, things.frame(), where);
    Message noRule;
    if (type == QLatin1String("Tracks") && read.error.isEmpty() && !trackRulesFrom({{key, read.value}}, &noRule))
        return {QVariant(), noRule};
    return read;
}

ReadValue FileSettings::Private::read(Identity thing, const QString& key, const QVariant& given) const
{
    const QString type = things.typeOf(thing);
    if (type.isEmpty() || isInternal(key))
        return {QVariant(), Message(Code::NoSuchThing)};
    return read(type, suitOf(type, things.isItem(thing), things.values(thing)), key, given, addressText(thing, key));
}

/// What a new item of the same kind would get at the place of \a item.
Item FileSettings::Private::defaultItem(Identity item) const
{
    const QString type = things.typeOf(item);
    const Values values = things.values(item);
    if (type == effect) {
        const QString name = values.value(own::name).toString();
        for (const Item& fresh : newType(type, things.frame()).items) {
            if (fresh.name == name)
                return fresh;
        }
        return Item();
    }
    Item fresh = newItem(type, kindOf(type, values), things.frame());
    if (suitOf(type, true, values) == Suit::EmbeddedTrack)
        fresh.selected = false; // Tracks of the clip are there, and chosen by rule or by hand.
    if (type == watermark) {
        Item shown = fresh; // Its own content and font decide how much room it takes where it begins.
        for (const QString& key : {textContent, imageUrl, imageWidth, imageHeight}) {
            if (values.contains(key))
                shown.values.insert(key, values.value(key));
        }
        place(shown, things.typeSettings(type).items.mid(0, things.position(item)), things.frame());
        fresh.values.insert(left, shown.values.value(left));
        fresh.values.insert(top, shown.values.value(top));
    }
    return fresh;
}

QVariant FileSettings::Private::defaultOf(Identity thing, const QString& key) const
{
    const QString type = things.typeOf(thing);
    if (!effectTypes().contains(type)) {
        const Property* known = findProperty(type, key);
        return known ? known->defaultValue() : QVariant();
    }
    if (things.isItem(thing)) {
        const Item fresh = defaultItem(thing);
        return key == own::selected ? QVariant(fresh.selected) : fresh.values.value(key);
    }
    const TypeSettings fresh = newType(type, things.frame());
    return key == own::selected ? QVariant(fresh.selected) : fresh.values.value(key);
}

QVariant FileSettings::Private::catalogueDefaultOf(Identity thing, const QString& key) const
{
    const QString type = things.typeOf(thing);
    if (type == effect && things.isItem(thing))
        return key == own::selected ? QVariant(false) : things.value(thing, key);
    if (!things.isItem(thing))
        return key == own::selected ? QVariant(true) : catalogueType(type, things.frame()).values.value(key);
    return key == own::selected ? QVariant(defaultItem(thing).selected)
                                : catalogueItem(type, things.frame()).value(key);
}

/// What follows from \a changes: the place and size of watermarks that have an anchor.
Changes FileSettings::Private::consequences(const Changes& changes) const
{
    Things next = things;
    next.apply(changes);
    const bool frameChanged = next.frame() != things.frame();
    Changes result;
    for (const Identity item : next.items(watermark)) {
        const auto isOfItem = [item](const Change& change) { return change.thing == item; };
        if (!next.values(item).contains(own::anchor)
            || !(frameChanged || std::any_of(changes.cbegin(), changes.cend(), isOfItem)))
            continue;
        const Values placed = anchoredValues(next.itemSettings(item), next.frame());
        for (auto it = placed.cbegin(); it != placed.cend(); ++it)
            result.append({item, it.key(), next.value(item, it.key()), it.value()});
    }
    return result;
}

Message FileSettings::Private::commit(const Changes& wanted, QObject* asker)
{
    if (announcing)
        return Message(Code::Busy);
    const Changes changes = merged(wanted + consequences(wanted));
    if (changes.isEmpty())
        return Message();
    {
        const QScopedValueRollback<bool> busy(announcing, true);
        emit q->aboutToChange(changes, asker);
    }
    store(changes, asker, false);
    return Message();
}

/// Takes \a changes over, brings the models to them unless they are there already, and tells.
void FileSettings::Private::store(const Changes& changes, QObject* asker, bool modelsHaveIt)
{
    QMap<QString, QVector<Identity>> before;
    for (const QString& type : effectTypes()) {
        if (hasItems(type))
            before.insert(type, things.items(type));
    }
    things.apply(changes);
    if (!modelsHaveIt)
        projection.follow(things, changes);
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        tellItems(it.key(), it.value(), things.items(it.key()));
    emit q->changed(changes, asker);
}

void FileSettings::Private::tellItems(const QString& type, const QVector<Identity>& before,
                                      const QVector<Identity>& after)
{
    QVector<Identity> now = before;
    for (int pos = static_cast<int>(now.size()) - 1; pos >= 0; --pos) {
        if (!after.contains(now.at(pos))) {
            const Identity gone = now.takeAt(pos);
            emit q->itemRemoved(type, gone, pos);
        }
    }
    for (int pos = 0; pos < after.size(); ++pos) {
        const int from = static_cast<int>(now.indexOf(after.at(pos)));
        if (from == pos)
            continue;
        if (from < 0) {
            now.insert(pos, after.at(pos));
            emit q->itemInserted(type, after.at(pos), pos);
        } else {
            now.move(from, pos);
            emit q->itemMoved(type, after.at(pos), from, pos);
        }
    }
}

FileSettings::FileSettings(const Media& media, std::shared_ptr<Identities> identities, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, std::move(identities), newSettings(media)))
{
}

FileSettings::FileSettings(const Settings& settings, std::shared_ptr<Identities> identities, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, std::move(identities), completed(settings)))
{
}

FileSettings::FileSettings(const QMap<Identity, Values>& things, std::shared_ptr<Identities> identities,
                           QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, std::move(identities), things))
{
}

FileSettings::~FileSettings() = default;

Identity FileSettings::file() const
{
    return d->things.file();
}

Identity FileSettings::output() const
{
    return d->things.type(QStringLiteral("Output"));
}

Identity FileSettings::tracks() const
{
    return d->things.type(QStringLiteral("Tracks"));
}

Identity FileSettings::type(const QString& name) const
{
    return effectTypes().contains(name) ? d->things.type(name) : 0;
}

QVector<Identity> FileSettings::items(const QString& type) const
{
    return d->things.items(type);
}

Identity FileSettings::item(const QString& type, int pos) const
{
    return pos < 0 ? 0 : d->things.item(type, pos);
}

Identity FileSettings::thing(const Address& address) const
{
    return address.pos == Address::ofType ? d->things.type(address.type) : item(address.type, address.pos);
}

std::optional<Address> FileSettings::address(Identity thing, const QString& key) const
{
    const QString type = d->things.typeOf(thing);
    if (type.isEmpty())
        return std::nullopt;
    return Address{type, d->things.isItem(thing) ? d->things.position(thing) : Address::ofType, key};
}

bool FileSettings::owns(Identity thing) const
{
    return d->things.contains(thing);
}

QMap<Identity, Values> FileSettings::everything() const
{
    return d->things.all();
}

QVariant FileSettings::value(Identity thing, const QString& key) const
{
    return isInternal(key) && key != own::name ? QVariant() : d->things.value(thing, key);
}

Values FileSettings::values(Identity thing) const
{
    Values values = d->things.values(thing);
    for (auto it = values.begin(); it != values.end();)
        it = isInternal(it.key()) ? values.erase(it) : std::next(it);
    return values;
}

State FileSettings::state(Identity thing, const QString& key) const
{
    const QString type = d->things.typeOf(thing);
    const Property* known = findProperty(type, key);
    if (known && known->control == Control::None)
        return State::Default; // The program's own says nothing of what a person did.
    const QVariant present = d->things.value(thing, key);
    const bool shownWhole = type == QLatin1String("Crop") && (known && known->isGeometry)
                            && isWholeFrame(d->things.values(thing), d->things.frame());
    if (!shownWhole && !exactly(present, d->defaultOf(thing, key)))
        return State::Changed;
    if (!effectTypes().contains(type) || !ZoEffectItemDefaultValMgr::getInstance()->hasCustomDefaultVal(type))
        return State::Default;
    return exactly(present, d->catalogueDefaultOf(thing, key)) ? State::Default : State::SavedDefault;
}

Message FileSettings::check(Identity thing, const QString& key, const QVariant& candidate) const
{
    return d->read(thing, key, candidate).error;
}

Message FileSettings::setValue(Identity thing, const QString& key, const QVariant& value, QObject* asker)
{
    return setValues(thing, {{key, value}}, asker);
}

Message FileSettings::setValues(Identity thing, const Values& values, QObject* asker)
{
    Changes changes;
    bool changesPlace = false;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const ReadValue read = d->read(thing, it.key(), it.value());
        if (!read.error.isEmpty())
            return read.error;
        changesPlace = changesPlace || isPlace(it.key());
        changes.append({thing, it.key(), d->things.value(thing, it.key()), read.value});
    }
    changes = merged(changes);
    if (changes.isEmpty())
        return Message();
    const auto select = [&](Identity whose) {
        const QVariant selected = d->things.value(whose, own::selected);
        if (selected.isValid() && !selected.toBool())
            changes.append({whose, own::selected, selected, true});
    };
    if (!values.contains(own::selected)) {
        select(thing);
        if (d->things.isItem(thing))
            select(d->things.type(d->things.typeOf(thing)));
    }
    // Who places a watermark by hand takes it from its anchor.
    if (changesPlace && !values.contains(own::anchor) && d->things.values(thing).contains(own::anchor))
        changes.append({thing, own::anchor, d->things.value(thing, own::anchor), QVariant()});
    return d->commit(changes, asker);
}

FileSettings::Inserted FileSettings::insert(const QString& type, const Values& values, int pos, QObject* asker)
{
    if (!hasItems(type))
        return {0, effectTypes().contains(type) ? Message(Code::TypeHasNoItems, {type})
                                                : Message(Code::UnknownType, {type, nearest(type, effectTypes())})};
    if (type == effect)
        return {0, Message(Code::FixedItems, {type})};
    QVector<Identity> kept = items(type);
    const int count = static_cast<int>(kept.size());
    if (pos < -1 || pos > count)
        return {0, Message(Code::ItemPosition, {type, QString::number(pos), QString::number(count)})};

    Values wanted = values;
    if (type == watermark && !wanted.contains(isText))
        wanted.insert(isText, wanted.contains(textContent));
    const Suit suit = suitOf(type, true, wanted);
    Item item = newItem(type, kindOf(type, wanted), d->things.frame());
    item.name.clear();
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it) {
        const QString where = Address{type, pos < 0 ? count : pos, it.key()}.toString();
        const ReadValue read = d->read(type, suit, it.key(), it.value(), where);
        if (!read.error.isEmpty())
            return {0, read.error};
        if (it.key() == own::selected)
            item.selected = read.value.toBool();
        else if (it.key() == own::anchor)
            item.anchor = read.value.toMap();
        else
            item.values.insert(it.key(), read.value);
    }
    TypeSettings target = d->things.typeSettings(type);
    if (type == watermark) {
        if (suit == Suit::ImageWatermark)
            addImageSize(item.values, d->things.frame());
        if (!wanted.contains(left) && !wanted.contains(top) && item.anchor.isEmpty())
            place(item, target.items, d->things.frame());
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
    if (type == effect)
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

Message FileSettings::reset(Identity thing, const QString& key, QObject* asker)
{
    const QVariant present = d->things.value(thing, key);
    if (d->things.typeOf(thing).isEmpty() || isInternal(key))
        return Message(Code::NoSuchThing);
    const QVariant fresh = d->defaultOf(thing, key);
    const bool isOption = !effectTypes().contains(d->things.typeOf(thing));
    if (!fresh.isValid() && key != own::anchor && !isOption)
        return Message(Code::NoDefault, {d->addressText(thing, key)});
    Changes changes{{thing, key, present, isOption ? QVariant() : fresh}};
    if (isPlace(key) && d->things.values(thing).contains(own::anchor))
        changes.append({thing, own::anchor, d->things.value(thing, own::anchor), QVariant()});
    return d->commit(changes, asker);
}

Message FileSettings::resetItem(Identity item, QObject* asker)
{
    if (!d->things.isItem(item))
        return Message(Code::NoSuchThing);
    const Item fresh = d->defaultItem(item);
    Changes changes;
    for (auto it = fresh.values.cbegin(); it != fresh.values.cend(); ++it)
        changes.append({item, it.key(), d->things.value(item, it.key()), it.value()});
    changes.append({item, own::anchor, d->things.value(item, own::anchor), QVariant()});
    return d->commit(changes, asker);
}

Message FileSettings::resetType(const QString& type, QObject* asker)
{
    if (!effectTypes().contains(type))
        return Message(Code::UnknownType, {type, nearest(type, effectTypes())});
    Settings target = settings();
    *target.find(type) = resetOf(*target.find(type), d->things.frame());
    setSettings(target, asker);
    return Message();
}

void FileSettings::resetAll(QObject* asker)
{
    Settings target = settings();
    for (TypeSettings& type : target.effects)
        type = resetOf(type, d->things.frame());
    target.tracks.clear();
    target.output.clear();
    setSettings(target, asker);
}

Settings FileSettings::settings() const
{
    return d->things.settings();
}

void FileSettings::setSettings(const Settings& target, QObject* asker)
{
    d->commit(d->things.changesTo(withoutMeasures(completed(target)), *d->identities), asker);
}

Media FileSettings::media() const
{
    return settings().media;
}

void FileSettings::setMedia(const Media& media, QObject* asker)
{
    Settings target = rescaled(settings(), media.frame);
    target.media = media;
    setSettings(target, asker);
}

bool FileSettings::comesOutUnchanged() const
{
    return !asksForAnything(settings());
}

void FileSettings::apply(const Changes& changes, QObject* asker)
{
    // A thing that comes says in the same changes what it belongs to.
    const auto isOurs = [this](const Change& change) { return d->things.contains(change.thing); };
    QSet<Identity> coming;
    for (const Change& change : changes) {
        if (change.key == own::of && d->things.contains(change.after.toULongLong()))
            coming.insert(change.thing);
    }
    Changes ours;
    std::copy_if(changes.cbegin(), changes.cend(), std::back_inserter(ours),
                 [&](const Change& change) { return isOurs(change) || coming.contains(change.thing); });
    if (ours.isEmpty())
        return;
    emit aboutToChange(ours, asker);
    d->store(ours, asker, false);
}

ZoEffectModel* FileSettings::pictureModel() const
{
    return &d->projection.picture();
}

ZoEffectModel* FileSettings::soundModel() const
{
    return &d->projection.sound();
}

void FileSettings::syncFromModels()
{
    for (const QString& type : effectTypes()) {
        TypeSettings target = d->projection.read(type);
        const TypeSettings known = d->things.typeSettings(type);
        const QVector<Identity> present = items(type);
        QVector<Identity> kept = d->projection.identities(type);
        for (int row = 0; row < kept.size(); ++row) {
            // A node that was written over as a whole is still the item at its place.
            if (kept.at(row) == 0 && kept.size() == present.size() && !kept.contains(present.at(row)))
                kept[row] = present.at(row);
            const int former = static_cast<int>(present.indexOf(kept.at(row)));
            if (former >= 0) {
                const Item& item = known.items.at(former);
                target.items[row].anchor = item.anchor;
                target.items[row].foreign = item.foreign;
                if (!exactly(target.items.at(row).values.value(left), item.values.value(left))
                    || !exactly(target.items.at(row).values.value(top), item.values.value(top)))
                    target.items[row].anchor.clear();
            }
        }
        target.foreign = known.foreign;
        if (target == known)
            continue;
        const Changes changes = merged(d->things.changesTo(target, kept, *d->identities));
        QObject* model = &d->projection.modelOf(type);
        emit aboutToChange(changes, model);
        d->store(changes, model, true);
        d->projection.note(d->things, type);
    }
}

} // namespace zokit
