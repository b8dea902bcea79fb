// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "referencemodel.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QLocale>
#include <QPainter>
#include <QPixmap>

namespace reference {

long long writes = 0;

namespace {

constexpr int selected = 2;
constexpr int notSelected = 0;

int stateFor(const QVariant& value)
{
    return toBool(value) ? selected : notSelected;
}

/// No number counts as 0 before it is compared with anything: an image without width, or a second node "Crop" without
/// width while the first one's crop is in force.
double quotient(double dividend, double divisor)
{
    return divisor != 0.0 ? dividend / divisor : 0.0;
}

bool isNumeric(const QVariant& value)
{
    const int type = value.userType();
    return type == QMetaType::Int || type == QMetaType::Bool || type == QMetaType::Double;
}

/// Doubles count as equal when they differ by less than a relative 1e-12; 0 equals only 0.
bool closeEnough(double one, double other)
{
    return std::fabs(one - other) * 1e12 <= std::fmin(std::fabs(one), std::fabs(other));
}

/// Exactly the same; a plain == of doubles would be warned of.
bool sameNumber(double one, double other)
{
    return one <= other && one >= other;
}

std::optional<int> wholeNumber(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    char* end = nullptr;
    const long number = std::strtol(bytes.constData(), &end, 10);
    if (bytes.isEmpty() || *end != '\0')
        return std::nullopt;
    return static_cast<int>(number);
}

std::optional<double> number(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    char* end = nullptr;
    const double parsed = std::strtod(bytes.constData(), &end);
    if (bytes.isEmpty() || *end != '\0')
        return std::nullopt;
    return parsed;
}

} // namespace

// --- Values -----------------------------------------------------------------------------------------------

bool toBool(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
        return value.toInt() != 0;
    case QMetaType::Double: // Rounded first: 0.3 is false. No number is false, too.
        return !std::isnan(value.toDouble()) && std::floor(value.toDouble() + 0.5) != 0.0;
    case QMetaType::QString: {
        const QString text = value.toString().toLower();
        return !text.isEmpty() && text != QStringLiteral("0") && text != QStringLiteral("false");
    }
    default:
        return false;
    }
}

int toInt(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool() ? 1 : 0;
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::Double: // Rounds, halves upward.
        return truncated(std::floor(value.toDouble() + 0.5));
    case QMetaType::QString:
        return wholeNumber(value.toString()).value_or(0);
    default:
        return 0;
    }
}

double toDouble(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
    case QMetaType::Int:
        return toInt(value);
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::QString:
        return number(value.toString()).value_or(0.0);
    default:
        return 0.0;
    }
}

QString toText(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::Int:
        return QString::number(value.toInt());
    case QMetaType::Double:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QColor: {
        const QColor color = value.value<QColor>();
        return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
    }
    default:
        return QString();
    }
}

bool equal(const QVariant& present, const QVariant& given)
{
    if (isNumeric(present) && isNumeric(given)) {
        if (present.userType() != QMetaType::Double && given.userType() != QMetaType::Double)
            return toInt(present) == toInt(given);
        return closeEnough(toDouble(present), toDouble(given));
    }
    if (given.userType() == QMetaType::QString) {
        const QString text = given.toString();
        switch (present.userType()) {
        case QMetaType::QString:
            return present.toString() == text;
        case QMetaType::Int:
            return wholeNumber(text) == toInt(present);
        case QMetaType::Bool:
            return toBool(given) == present.toBool();
        case QMetaType::Double:
            return number(text) && sameNumber(present.toDouble(),
                                              *number(text)); // No tolerance for a text.
        case QMetaType::QColor: {
            const QColor color(text);
            return color.isValid() && color == present.value<QColor>();
        }
        case QMetaType::QFont: // A text is taken for a family.
            return !text.isEmpty() && present.value<QFont>() == QFont(text);
        default:
            return false;
        }
    }
    if (present.userType() == QMetaType::QString)
        return (isNumeric(given) || given.userType() == QMetaType::QColor) && present.toString() == toText(given);
    if (present.userType() == QMetaType::QVariantMap && given.userType() == QMetaType::QVariantMap) {
        const Properties one = present.toMap();
        const Properties other = given.toMap();
        if (!std::equal(one.keyBegin(), one.keyEnd(), other.keyBegin(), other.keyEnd()))
            return false;
        for (auto it = one.cbegin(); it != one.cend(); ++it) {
            if (!equal(it.value(), other.value(it.key())))
                return false;
        }
        return true;
    }
    return present.userType() == given.userType() && identical(present, given);
}

bool identical(const QVariant& one, const QVariant& other)
{
    if (one.userType() != other.userType())
        return false;
    switch (one.userType()) {
    case QMetaType::UnknownType:
        return true;
    case QMetaType::Bool:
        return *static_cast<const bool*>(one.constData()) == *static_cast<const bool*>(other.constData());
    case QMetaType::Int:
        return *static_cast<const int*>(one.constData()) == *static_cast<const int*>(other.constData());
    case QMetaType::Double: {
        const double left = *static_cast<const double*>(one.constData());
        const double right = *static_cast<const double*>(other.constData());
        return sameNumber(left, right) || (std::isnan(left) && std::isnan(right));
    }
    case QMetaType::QString:
        return *static_cast<const QString*>(one.constData()) == *static_cast<const QString*>(other.constData());
    case QMetaType::QColor:
        return *static_cast<const QColor*>(one.constData()) == *static_cast<const QColor*>(other.constData());
    case QMetaType::QFont:
        return *static_cast<const QFont*>(one.constData()) == *static_cast<const QFont*>(other.constData());
    case QMetaType::QVariantMap: {
        const auto& left = *static_cast<const QVariantMap*>(one.constData());
        const auto& right = *static_cast<const QVariantMap*>(other.constData());
        if (!std::equal(left.keyBegin(), left.keyEnd(), right.keyBegin(), right.keyEnd()))
            return false;
        for (auto it = left.cbegin(); it != left.cend(); ++it) {
            if (!identical(it.value(), right.value(it.key())))
                return false;
        }
        return true;
    }
    default:
        return false;
    }
}

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

// --- The host's catalogue ---------------------------------------------------------------------------------

namespace {

std::vector<Default> defaultsOf(const EffectDefaultVal* table)
{
    std::vector<Default> defaults;
    for (; table && table->key; ++table)
        defaults.push_back({QString::fromUtf8(table->key), table->defaultValue});
    return defaults;
}

std::vector<EffectType> typesOf(const EffectControlItem* table)
{
    std::vector<EffectType> types;
    for (; table && table->name; ++table) {
        EffectType type;
        type.name = QString::fromUtf8(table->name);
        if (table->properties)
            type.properties = defaultsOf(table->properties);
        if (table->subItems)
            type.subItems = subItemsOf(table->subItems);
        type.children = typesOf(table->children);
        type.record = table;
        types.push_back(type);
    }
    return types;
}

} // namespace

std::vector<SubItem> subItemsOf(const SubEffectItem* table)
{
    std::vector<SubItem> items;
    for (; table && table->name; ++table)
        items.push_back({QString::fromUtf8(table->name), table->id, defaultsOf(table->properties), table});
    return items;
}

Catalogue::Catalogue(const EffectControlItem* hostTable) : types(typesOf(hostTable)), table(hostTable) {}

const EffectType* findType(const std::vector<EffectType>& types, const QString& name)
{
    for (const EffectType& type : types) {
        if (type.name == name)
            return &type;
        if (const EffectType* nested = findType(type.children, name))
            return nested;
    }
    return nullptr;
}

// --- The tree ---------------------------------------------------------------------------------------------

NodePtr Node::create(const QString& name, Node* parent, int pos)
{
    auto node = std::make_shared<Node>();
    node->name = name;
    node->objectName = name;
    if (parent) {
        node->parent = parent->weak_from_this();
        node->hasParent = true;
        parent->insertChild(node, pos);
    }
    return node;
}

Node* Node::child(int row) const
{
    return row >= 0 && row < count() ? children[static_cast<size_t>(row)].get() : nullptr;
}

int Node::childNumber() const
{
    if (!hasParent)
        return 0;
    const NodePtr above = parent.lock();
    for (int row = 0; row < above->count(); ++row) {
        if (above->child(row) == this)
            return row;
    }
    return -1;
}

void Node::insertChild(const NodePtr& node, int pos)
{
    ++writes;
    if (pos >= 0 && pos < count())
        children.insert(children.begin() + pos, node);
    else
        children.push_back(node);
}

NodePtr Node::takeAt(int row)
{
    if (row < 0 || row >= count())
        return nullptr;
    ++writes;
    NodePtr taken = children[static_cast<size_t>(row)];
    children.erase(children.begin() + row);
    return taken;
}

bool Node::removeChildren(int pos, int howMany)
{
    if (pos < 0 || static_cast<long long>(pos) + howMany > count())
        return false;
    for (int i = 0; i < howMany; ++i)
        takeAt(pos);
    return true;
}

bool Node::changeItemPos(int to, int from)
{
    if (to < 0 || from < 0 || to == from || to >= count() || from >= count())
        return false;
    const NodePtr moved = takeAt(from);
    children.insert(children.begin() + to, moved);
    return true;
}

void Node::clear()
{
    ++writes;
    children.clear();
}

QVariant Node::data(const QString& key) const
{
    const auto found = properties.constFind(key);
    if (found != properties.cend())
        return found.value();
    return key == QStringLiteral("trackid") ? QVariant(-1) : QVariant();
}

QVariant Node::data(int role) const
{
    if (role == 0 || role == 2)
        return objectName;
    return role == 10 ? QVariant(checkState) : QVariant();
}

void Node::setData(const QString& key, const QVariant& value)
{
    ++writes;
    properties.insert(key, value);
}

void Node::delData(const QString& key)
{
    if (properties.remove(key) > 0)
        ++writes;
}

void Node::setCheckState(int state)
{
    if (state != checkState)
        ++writes;
    checkState = state;
}

namespace {

/// Everything but the parent and the children.
void copyFields(Node& target, const Node& source)
{
    target.name = source.name;
    target.objectName = source.objectName;
    target.checkState = source.checkState;
    target.properties = source.properties;
    target.internalData = source.internalData;
}

NodePtr copyUnder(Node* parent, const Node& source)
{
    NodePtr copy = Node::create(QString(), parent);
    copyFields(*copy, source);
    for (const NodePtr& child : source.children) {
        if (child)
            copyUnder(copy.get(), *child);
    }
    return copy;
}

} // namespace

void Node::assign(const Node& other)
{
    if (&other == this)
        return;
    ++writes;
    // The source may stand above or below: it is taken over as it is now.
    const NodePtr source = copyUnder(nullptr, other);
    children.clear();
    copyFields(*this, *source);
    for (const NodePtr& child : source->children)
        copyUnder(this, *child);
}

Node* find(Node* start, const QString& name)
{
    if (!start || start->name == name)
        return start;
    for (const NodePtr& child : start->children) {
        if (Node* found = child ? find(child.get(), name) : nullptr)
            return found;
    }
    return nullptr;
}

Node* find(Node* start, const QString& name, int pos)
{
    Node* node = find(start, name);
    return node && pos != -1 ? node->child(pos) : node;
}

int size(const Node& node)
{
    int nodes = 1;
    for (const NodePtr& child : node.children)
        nodes += child ? size(*child) : 1;
    return nodes;
}

// --- What all models share --------------------------------------------------------------------------------

void World::registerTable(const Catalogue* table)
{
    catalogue = table;
    if (!table) {
        log.push_back(25);
        return;
    }
    QStringList names;
    for (const EffectType& type : table->types)
        names << type.name;
    if (!names.isEmpty())
        supportTypes = names;
}

const EffectType* World::find(const QString& type) const
{
    return catalogue ? findType(catalogue->types, type) : nullptr;
}

void World::loadCustomDefaults()
{
    for (const QString& type : std::as_const(supportTypes)) {
        const QVariant saved = preferences.value(type);
        if (saved.userType() == QMetaType::QVariantMap && !saved.toMap().isEmpty())
            customDefaults.insert(type, saved.toMap());
    }
}

QVariant World::customDefault(const QString& type, const QString& key) const
{
    return customDefaults.value(type).value(key);
}

void World::saveCustomDefault(const QString& type, const Properties& values)
{
    if (!customDefaults.contains(type))
        supportTypes << type;
    customDefaults.insert(type, values);
    preferences.insert(type, values);
    preferenceWrites << type;
}

void World::removeCustomDefault(const QString& type)
{
    if (!customDefaults.contains(type))
        return;
    customDefaults.remove(type);
    preferences.insert(type, QVariant());
    preferenceWrites << type;
}

QVariant World::defaultValue(const QString& key, const QString& type) const
{
    QVariant custom = customDefault(type, key);
    if (custom.isValid())
        return custom;
    const EffectType* record = find(type);
    if (record && record->properties) {
        for (const Default& entry : *record->properties) {
            if (entry.key == key)
                return entry.value;
        }
    }
    return QVariant();
}

QSize pictureSize(const QString& path, const QString& format)
{
    static QHash<QString, QSize> known;
    const QString question = path + QLatin1Char('|') + format;
    if (!known.contains(question)) {
        QPixmap picture;
        const QByteArray formatName = format.toLatin1();
        picture.load(path, formatName.isEmpty() ? nullptr : formatName.constData());
        known.insert(question, picture.isNull() ? QSize() : picture.size());
    }
    return known.value(question);
}

QSize measuredText(const Node& watermark)
{
    const QVariant fontValue = watermark.data(QStringLiteral("wm_fontname"));
    QFont font;
    if (fontValue.userType() == QMetaType::QFont)
        font = fontValue.value<QFont>();
    else if (fontValue.userType() == QMetaType::QString && !fontValue.toString().isEmpty())
        font = QFont(fontValue.toString());
    const int points = toInt(watermark.data(QStringLiteral("wm_fontsize")));
    if (points > 0)
        font.setPointSize(points);
    const QString style = toText(watermark.data(QStringLiteral("wm_fontstyle")));
    if (style == QStringLiteral("Regular") || style == QStringLiteral("Bold"))
        font.setStyle(QFont::StyleNormal);
    if (style == QStringLiteral("Italic") || style == QStringLiteral("Bold Italic"))
        font.setStyle(QFont::StyleItalic);
    if (style == QStringLiteral("Regular") || style == QStringLiteral("Italic"))
        font.setWeight(QFont::Normal);
    if (style == QStringLiteral("Bold") || style == QStringLiteral("Bold Italic"))
        font.setWeight(QFont::Bold);

    const QString text = toText(watermark.data(QStringLiteral("wm_textcontent")));
    static QHash<QString, QSize> known;
    // A font tells the same size whether that was set or is only the one to fall back on: the set one counts, too.
    const QString question = QStringLiteral("%1|%2|%3|%4").arg(font.toString(), style, text).arg(points);
    if (!known.contains(question)) {
        constexpr int leftAndTop = Qt::AlignLeft | Qt::AlignTop;
        const QFontMetrics metrics(font);
        const QRect room(QPoint(0, 0), metrics.size(leftAndTop, text));
        QPixmap paper(1, 1); // On Qt 6 a picture has dots of its own size.
        QPainter painter(&paper);
        painter.setFont(font);
        known.insert(question, painter.boundingRect(room, leftAndTop, text).size());
    }
    return known.value(question);
}

// --- The model: construction and values -------------------------------------------------------------------

namespace {

const QString checkStateKey = QStringLiteral("_checkstate");
const QString crop = QStringLiteral("Crop");
const QString watermark = QStringLiteral("Watermark");
const QString subtitle = QStringLiteral("Subtitle");
const QString audio = QStringLiteral("Audio");
const QString color = QStringLiteral("Color");
const QString effect = QStringLiteral("Effect");
const QString subFromFile = QStringLiteral("sub_fromfile");
const QString audioIsFile = QStringLiteral("audio_isfile");
const QString isText = QStringLiteral("wm_istextwatermark");
const QString horizontal = QStringLiteral("wm_hposition");
const QString vertical = QStringLiteral("wm_vposition");
const QString horizontalFactor = QStringLiteral("wm_hposfactor");
const QString verticalFactor = QStringLiteral("wm_vposfactor");
const QString imageWidth = QStringLiteral("wm_imagewidth");
const QString imageHeight = QStringLiteral("wm_imageheight");
const QString subtitlePosition = QStringLiteral("sub_vposition");
const QString subtitleFactor = QStringLiteral("sub_vposfactor");
const QString subtitleFontSize = QStringLiteral("sub_fontsize");
const QString movedByUser = QStringLiteral("dvdsubtitleposeditbyuser");
const QString effectFlag = QStringLiteral("audio_effect_flag");
const QString frameHeight = QStringLiteral("h");

int intOf(const Node* node, const QString& key)
{
    return toInt(node->data(key));
}

bool boolOf(const Node* node, const QString& key)
{
    return toBool(node->data(key));
}

/// A caller's properties: "_checkstate" is the check state, all else is stored.
void apply(Node* node, const Properties& props)
{
    for (auto it = props.cbegin(); it != props.cend(); ++it) {
        if (it.key() == checkStateKey)
            node->setCheckState(stateFor(it.value()));
        else
            node->setData(it.key(), it.value());
    }
}

} // namespace

Model::Model(World& sharedWorld) : world(sharedWorld), root(Node::create(QStringLiteral("effect root"))) {}

Model::Model(World& sharedWorld, const QStringList& types) : Model(sharedWorld)
{
    createItems(types);
}

Model::Model(World& sharedWorld, const QString& type, const Properties& props) : Model(sharedWorld)
{
    Node* node = find(type, -1);
    if (!node)
        node = Node::create(type, root.get()).get();
    apply(node, props);
}

void Model::takeOver(const Model& other)
{
    if (&other == this)
        return;
    root->assign(*other.root);
    editedByUser = other.editedByUser;
}

void Model::createItems(const QStringList& types)
{
    if (!world.catalogue)
        return;
    for (const EffectType& type : world.catalogue->types) {
        if (!types.isEmpty() && !types.contains(type.name))
            continue;
        Node* node = Node::create(type.name, root.get()).get();
        fillTypeNode(node);
        if (type.subItems)
            buildSubItems(node, &*type.subItems);
        if (type.name == effect)
            adjustFrameEffectsByCustomDefault();
    }
}

void Model::fillTypeNode(Node* item)
{
    if (!item)
        return;
    item->setCheckState(selected);
    const EffectType* type = world.find(item->name);
    if (type && type->properties) {
        for (const Default& entry : *type->properties)
            item->setData(entry.key, entry.value);
    }
    if (item->name != crop && item->name != watermark)
        getCustomDefaultVal(item, item->name, false);
}

void Model::buildSubItems(Node* item, const std::vector<SubItem>* subItems)
{
    if (!subItems || !item) {
        logged(422);
        return;
    }
    for (const SubItem& subItem : *subItems) {
        Node* node = Node::create(subItem.name, item).get();
        node->setData(QStringLiteral("id"), subItem.id);
        for (const Default& entry : subItem.properties) {
            if (entry.key == checkStateKey)
                node->setCheckState(stateFor(entry.value));
            else
                node->setData(entry.key, entry.value);
        }
        node->internalData = const_cast<SubEffectItem*>(subItem.record);
    }
}

Node* Model::find(const QString& type, int pos) const
{
    return reference::find(root.get(), type, pos);
}

int Model::childCount(const QString& type)
{
    const Node* node = find(type, -1);
    if (!node) {
        logged(246);
        return 0;
    }
    return node->count();
}

QVariant Model::data(const QString& key, const QString& type, int pos) const
{
    const Node* node = find(type, pos);
    if (!node)
        return QVariant();
    if (key == checkStateKey)
        return node->checkState;
    if (key == subtitlePosition && type == subtitle && !boolOf(node, movedByUser)) {
        const int height = baseSize().height();
        if (height != 0)
            return height * toDouble(world.defaultValue(subtitleFactor, subtitle));
    }
    return node->data(key);
}

bool Model::setData(const QString& key, const QVariant& value, const QString& type, int pos)
{
    Node* node = find(type, pos);
    if (!node) {
        logged(181);
        return false;
    }
    if (key == checkStateKey) {
        if (node->checkState != stateFor(value)) {
            node->setCheckState(stateFor(value));
            changed(type, key, value, pos);
        }
        return true;
    }
    if (equal(node->data(key), value))
        return true;
    node->setData(key, value);
    if (type == subtitle && key == subtitlePosition)
        node->setData(movedByUser, true);
    changed(type, key, value, pos);
    return true;
}

void Model::send(const Signal& signal)
{
    if (!signalsBlocked)
        sent.push_back(signal);
}

void Model::changed(const QString& type, const QString& key, const QVariant& value, int pos)
{
    Signal signal;
    signal.text = type;
    signal.text2 = key;
    signal.value = value;
    signal.number = pos;
    send(signal);
}

// --- Selection and tracks ---------------------------------------------------------------------------------

void Model::selectOnlyOneItem(const QString& type)
{
    for (const NodePtr& node : root->children) {
        if (node)
            node->setCheckState(node->name == type ? selected : notSelected);
    }
}

void Model::selectItemByKey(const QString& type, const QString& key, const QVariant& value)
{
    Node* node = find(type, -1);
    if (!node)
        return;
    node->setCheckState(selected);
    for (const NodePtr& item : node->children) {
        if (item)
            item->setCheckState(equal(item->data(key), value) ? selected : notSelected);
    }
}

void Model::selectItemByKeyEx(const QString& type, const QString& key, const QStringList& values)
{
    Node* node = find(type, -1);
    if (!node)
        return;
    node->setCheckState(selected);
    for (const NodePtr& item : node->children) {
        if (item)
            item->setCheckState(values.contains(toText(item->data(key))) ? selected : notSelected);
    }
}

int Model::getItemIndexByKeyValue(const QString& type, const QString& key, const QVariant& value) const
{
    const Node* node = find(type, -1);
    for (int i = 0; node && i < node->count(); ++i) {
        if (node->child(i) && equal(node->child(i)->data(key), value))
            return i;
    }
    return -1;
}

std::vector<Node*> Model::getSelectItem(const QString& type) const
{
    std::vector<Node*> items;
    const Node* node = find(type, -1);
    if (!node || node->checkState != selected)
        return items;
    for (const NodePtr& item : node->children) {
        if (item && item->checkState == selected && (type == audio || items.empty()))
            items.push_back(item.get());
    }
    return items;
}

int Model::getEmbededSutitleID() const
{
    const Node* node = find(subtitle, -1);
    if (!node)
        return -1;
    if (node->checkState != selected) // The first track is the default one, if it is embedded.
        return node->child(0) && !boolOf(node->child(0), subFromFile) ? 0 : -1;
    for (int i = 0; i < node->count(); ++i) {
        const Node* item = node->child(i);
        if (!item)
            continue;
        if (boolOf(item, subFromFile))
            return -1;
        if (item->checkState == selected)
            return i;
    }
    return -1;
}

int Model::getEmbededAudioID() const
{
    const Node* node = find(audio, -1);
    if (!node || node->checkState != selected)
        return -1;
    for (const NodePtr& item : node->children) {
        if (!item)
            continue;
        if (boolOf(item.get(), audioIsFile))
            return -1;
        if (item->checkState == selected)
            return intOf(item.get(), QStringLiteral("trackid"));
    }
    return -1;
}

bool Model::useCustom(const QString& type, const QString& fileKey) const
{
    const Node* node = find(type, -1);
    if (!node || node->checkState != selected)
        return false;
    for (const NodePtr& item : node->children) {
        if (item && item->checkState == selected && boolOf(item.get(), fileKey))
            return true;
    }
    return false;
}

bool Model::useEmbeded(const QString& type, const QString& fileKey) const
{
    const Node* node = find(type, -1);
    if (!node || node->children.empty())
        return true;
    for (const NodePtr& item : node->children) {
        if (item && item->checkState == selected && !boolOf(item.get(), fileKey))
            return true;
    }
    return false;
}

bool Model::isForAudioEffect() const
{
    for (const char* name : {"Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus", "Audio_Flanger",
                             "Audio_Echo", "Audio_Speed"}) {
        if (find(QString::fromUtf8(name), -1))
            return true;
    }
    return false;
}

Node* Model::getValidAudioEffectItem() const
{
    if (!isForAudioEffect())
        return nullptr;
    for (const NodePtr& node : root->children) {
        if (node && boolOf(node.get(), effectFlag))
            return node.get();
    }
    return nullptr;
}

void Model::refreshCurPlayData(int index)
{
    const Node* node = find(audio, -1);
    for (int i = 0; node && i < node->count(); ++i) {
        Node* item = node->child(i);
        if (!item)
            continue;
        if (i == index)
            item->setData(QStringLiteral("_playmeineffect"), true);
        else
            item->delData(QStringLiteral("_playmeineffect"));
    }
}

// --- Geometry ---------------------------------------------------------------------------------------------

void Model::setVideoSize(int w, int h)
{
    root->setData(QStringLiteral("w"), w);
    root->setData(frameHeight, h);
}

QSize Model::baseSize() const
{
    return QSize(intOf(root.get(), QStringLiteral("w")), intOf(root.get(), frameHeight));
}

void Model::adjustEffectInfo(int w, int h)
{
    const QSize old = baseSize();
    if (old == QSize(w, h))
        return;
    for (const NodePtr& node : root->children)
        adjustEffectItem(node.get(), w, h, old.width(), old.height());
    setVideoSize(w, h);
}

namespace {

void rescaleWatermark(Node* mark, double sx, double sy)
{
    mark->setData(horizontal, truncated(intOf(mark, horizontal) * sx));
    mark->setData(vertical, truncated(intOf(mark, vertical) * sy));
    if (boolOf(mark, isText)) {
        const QString fontSize = QStringLiteral("wm_fontsize");
        mark->setData(fontSize, truncated(intOf(mark, fontSize) * sy));
    }
    const int width = intOf(mark, imageWidth);
    const int height = intOf(mark, imageHeight);
    if (height == 0)
        return;
    const int scaled = truncated(sx * width);
    mark->setData(imageWidth, scaled);
    mark->setData(imageHeight, truncated(quotient(scaled, quotient(width, height))));
}

void rescaleCrop(Node* item, bool isCroped, const QSize& newSize, const QSize& oldSize)
{
    int left = 0;
    int top = 0;
    int width = newSize.width();
    int height = newSize.height();
    if (isCroped) {
        const double sx = static_cast<double>(newSize.width()) / oldSize.width();
        const double sy = static_cast<double>(newSize.height()) / oldSize.height();
        const int oldWidth = intOf(item, QStringLiteral("crop_width"));
        const int oldHeight = intOf(item, QStringLiteral("crop_height"));
        left = truncated(intOf(item, QStringLiteral("crop_left")) * sx);
        top = truncated(intOf(item, QStringLiteral("crop_top")) * sy);
        double ratio = quotient(oldWidth, oldHeight);
        if (boolOf(item, QStringLiteral("crop_keepaspectratio"))
            && toText(item->data(QStringLiteral("crop_aspectratio"))) == QStringLiteral("Original Ratio"))
            ratio = static_cast<double>(newSize.width()) / newSize.height();
        width = truncated(sx * oldWidth);
        const double fromWidth = quotient(width, ratio);
        height = truncated(fromWidth);
        if (top + fromWidth >= oldSize.height()) { // The old height of the frame.
            height = truncated(sy * oldHeight);
            width = truncated(height * ratio);
        }
    }
    item->setData(QStringLiteral("crop_left"), left);
    item->setData(QStringLiteral("crop_top"), top);
    item->setData(QStringLiteral("crop_width"), width);
    item->setData(QStringLiteral("crop_height"), height);
}

} // namespace

void Model::adjustEffectItem(Node* item, int newW, int newH, int oldW, int oldH)
{
    if (!item || newW == 0 || newH == 0 || oldW == 0 || oldH == 0 || (newW == oldW && newH == oldH))
        return;
    const double sx = static_cast<double>(newW) / oldW;
    const double sy = static_cast<double>(newH) / oldH;

    if (item->name == watermark) {
        for (const NodePtr& mark : item->children) {
            if (mark)
                rescaleWatermark(mark.get(), sx, sy);
        }
    } else if (item->name == crop) {
        rescaleCrop(item, isCroped(), QSize(newW, newH), QSize(oldW, oldH));
    } else if (item->name == subtitle) {
        for (int pass = 0; pass < item->count(); ++pass) { // Once for each track, over and over.
            item->setData(subtitlePosition, truncated(intOf(item, subtitlePosition) * sy));
            if (boolOf(item, subFromFile))
                item->setData(subtitleFontSize, truncated(intOf(item, subtitleFontSize) * sy));
        }
    }
}

bool Model::isCroped() const
{
    const Node* node = find(crop, -1);
    if (!node || node->checkState != selected)
        return false;
    const int width = intOf(node, QStringLiteral("crop_width"));
    const int height = intOf(node, QStringLiteral("crop_height"));
    if (width == 0 || height == 0 || QSize(width, height) == baseSize())
        return false;
    return baseSize().width() != 0;
}

Crop Model::cropData() const
{
    if (!isCroped())
        return {};
    const Node* node = find(crop, -1);
    return {intOf(node, QStringLiteral("crop_left")), intOf(node, QStringLiteral("crop_top")),
            intOf(node, QStringLiteral("crop_width")), intOf(node, QStringLiteral("crop_height")), true};
}

// --- The watermark picture --------------------------------------------------------------------------------

QSize Model::getWatermark(int w, int h, bool honourIgnore)
{
    if (QSize(w, h) == baseSize())
        return paint(honourIgnore);
    Model rescaled(world);
    rescaled.takeOver(*this);
    rescaled.adjustEffectInfo(w, h);
    return rescaled.getWatermark(w, h, true);
}

QSize Model::paint(bool honourIgnore)
{
    const Node* node = find(watermark, -1);
    if (!node || node->checkState != selected || node->children.empty())
        return QSize();
    const QSize canvas = baseSize();
    constexpr int longestSide = 32767;
    constexpr long long mostPixels = 1LL << 28;
    if (canvas.isEmpty() || canvas.width() > longestSide || canvas.height() > longestSide
        || static_cast<long long>(canvas.width()) * canvas.height() > mostPixels)
        return QSize();

    bool painted = false;
    for (int i = node->count() - 1; i >= 0; --i) {
        const Node* mark = node->child(i);
        if (!mark || mark->checkState != selected)
            continue;
        if (!boolOf(mark, isText)) {
            const QString path = toText(mark->data(QStringLiteral("wm_imageurl")));
            const QString format = toText(mark->data(QStringLiteral("wm_imageformat")));
            if (!getImage(path, format).isEmpty())
                painted = true;
            continue;
        }
        if (honourIgnore && boolOf(mark, QStringLiteral("wm_ingnore")))
            continue;
        if (toText(mark->data(QStringLiteral("wm_textcontent"))).isEmpty())
            continue;
        const QSize bound = measuredText(*mark);
        const long long left = intOf(mark, horizontal);
        const long long top = intOf(mark, vertical);
        if (left < canvas.width() && top < canvas.height() && left + bound.width() - 1 > 0
            && top + bound.height() - 1 > 0) {
            setData(imageWidth, bound.width(), watermark, i);
            setData(imageHeight, bound.height(), watermark, i);
            painted = true;
        }
    }
    return painted ? canvas : QSize();
}

QSize Model::getImage(const QString& path, const QString& format)
{
    if (loadedImages.count(path) > 0)
        return pictureSize(path, QString());
    const QSize loaded = pictureSize(path, format);
    if (loaded.isEmpty())
        logged(1178);
    else
        loadedImages.insert(path);
    return loaded;
}

// --- The place of a new watermark -------------------------------------------------------------------------

namespace {

/// A rectangle by its edges, right and bottom included. A negative width or height turns the edges about.
struct Place {
    long long left;
    long long top;
    long long right;
    long long bottom;

    bool contains(long long x, long long y) const { return between(left, right, x) && between(top, bottom, y); }

    static bool between(long long first, long long last, long long value)
    {
        if (last < first - 1)
            return last <= value && value <= first;
        return first <= value && value <= last;
    }
};

/// The places of the selected watermarks other than \a item.
std::vector<Place> placesBeside(const Node* item, const Node* parent)
{
    std::vector<Place> places;
    for (const NodePtr& other : parent->children) {
        if (!other || other->checkState != selected || other.get() == item)
            continue;
        const long long left = intOf(other.get(), horizontal);
        const long long top = intOf(other.get(), vertical);
        long long width = intOf(other.get(), imageWidth);
        const long long height = intOf(other.get(), imageHeight);
        if (width == 0 && height == 0)
            width = 30;
        places.push_back({left, top, left + width - 1, top + height - 1});
    }
    return places;
}

void place(Node* item, long long x, long long y)
{
    item->setData(horizontal, static_cast<int>(x));
    item->setData(vertical, static_cast<int>(y));
}

bool occupied(const std::vector<Place>& places, long long x, long long y, long long secondX)
{
    for (const Place& other : places) {
        if (other.contains(x, y) || other.contains(secondX, y))
            return true;
    }
    return false;
}

bool placedByDiagonalSteps(Node* item, const std::vector<Place>& places, long long limitW, long long limitH)
{
    std::vector<Place> grown = places;
    for (Place& other : grown)
        other = {other.left - 1, other.top - 1, other.right + 1, other.bottom + 1};
    long long x = intOf(item, horizontal);
    long long y = intOf(item, vertical);
    while (x < limitW && y < limitH) {
        if (!occupied(grown, x, y, x + 30)) {
            place(item, x, y);
            return true;
        }
        x += 30;
        y += 30;
    }
    return false;
}

bool placedRightOfLeftmost(Node* item, const std::vector<Place>& places, long long limitW, long long limitH)
{
    std::vector<Place> working = places;
    while (!working.empty()) {
        size_t picked = 0;
        for (size_t i = 1; i < working.size(); ++i) {
            if (working[i].right < working[picked].right)
                picked = i;
        }
        const long long x = working[picked].right + 20;
        const long long y = working[picked].top;
        if (x >= limitW || y > limitH || y < 0)
            return false;
        if (!occupied(places, x, y, x + 30)) {
            place(item, x, y);
            return true;
        }
        working.erase(working.begin() + static_cast<std::ptrdiff_t>(picked));
    }
    return false;
}

bool placedAtLeftMargin(Node* item, const std::vector<Place>& places, long long limitH)
{
    std::vector<Place> working = places;
    while (!working.empty()) {
        size_t picked = 0;
        for (size_t i = 1; i < working.size(); ++i) {
            if (working[i].left > working[picked].left)
                picked = i;
        }
        const long long y = working[picked].top;
        if (working[picked].left < 31 || y > limitH || y < 0)
            return false;
        if (!occupied(places, 10, y, 40)) {
            place(item, 10, y);
            return true;
        }
        working.erase(working.begin() + static_cast<std::ptrdiff_t>(picked));
    }
    return false;
}

} // namespace

void Model::adjustWatermarkPos(Node* item)
{
    if (!item) {
        logged(1392);
        return;
    }
    const NodePtr parent = item->parent.lock();
    if (!parent || parent->count() < 2)
        return;
    const std::vector<Place> places = placesBeside(item, parent.get());
    if (places.empty())
        return;
    const long long limitW = baseSize().width() - 30LL;
    const long long limitH = baseSize().height() - 30LL;
    if (placedByDiagonalSteps(item, places, limitW, limitH) || placedRightOfLeftmost(item, places, limitW, limitH)
        || placedAtLeftMargin(item, places, limitH))
        return;
    const long long x = places.front().left + 30;
    const long long y = places.front().top + 30;
    if (x < baseSize().width() && y < baseSize().height())
        place(item, x, y);
}

// --- Defaults and real effects ----------------------------------------------------------------------------

bool Model::singleDataIsDefault(const QString& type, const QString& key, int pos) const
{
    const Node* node = find(type, pos);
    if (!node)
        return true;
    if (type == watermark && (key == horizontal || key == vertical)) {
        const bool across = key == horizontal;
        const double factor = toDouble(world.defaultValue(across ? horizontalFactor : verticalFactor, watermark));
        const double product = factor * (across ? baseSize().width() : baseSize().height());
        const double stored = intOf(node, key);
        return sameNumber(product, stored);
    }
    const EffectType* record = world.find(type);
    if (!record || !record->properties)
        return true;
    for (const Default& entry : *record->properties) {
        if (entry.key != key)
            continue;
        const QVariant custom = world.customDefault(type, key);
        return equal(node->data(key), custom.isValid() ? custom : entry.value);
    }
    return true;
}

bool Model::dataIsDefault(const QString& type)
{
    const EffectType* record = world.find(type);
    if (!record) {
        logged(518);
        return true;
    }
    const Node* node = find(type, -1);
    if (!node)
        return true;
    if (record->properties) {
        for (const Default& entry : *record->properties) {
            const QVariant custom = world.customDefault(type, entry.key);
            if (!equal(node->data(entry.key), custom.isValid() ? custom : entry.value))
                return false;
        }
        return true;
    }
    return type == effect ? frameEffectIsDefault() : subItemsAreDefault(node, *record);
}

bool Model::subItemsAreDefault(const Node* typeNode, const EffectType& type) const
{
    if (!type.subItems)
        return true;
    bool result = true;
    for (int i = 0; i < typeNode->count(); ++i) {
        if (static_cast<size_t>(i) >= type.subItems->size())
            return false;
        const SubItem& subItem = (*type.subItems)[static_cast<size_t>(i)];
        const Node* item = typeNode->child(i);
        if (!item)
            continue;
        if (item->name != subItem.name)
            return false;
        for (const Default& entry : subItem.properties) {
            if (equal(item->data(entry.key), entry.value))
                continue;
            if (entry.key == checkStateKey && item->checkState == stateFor(entry.value))
                continue;
            result = false;
            break;
        }
    }
    return static_cast<size_t>(typeNode->count()) < type.subItems->size() ? false : result;
}

bool Model::frameEffectIsDefault() const
{
    const EffectType* record = world.find(effect);
    const Node* node = find(effect, -1);
    if (!record || !node)
        return true;
    if (!world.customDefaults.contains(effect))
        return subItemsAreDefault(node, *record);
    const QString summary = toText(world.customDefault(effect, effect));
    const QStringList parts = summary.split(QLatin1Char('|'));
    if (summary.isEmpty() || node->children.empty() || parts.size() != 2 * node->count())
        return true;
    for (int i = 0; i < node->count(); ++i) {
        const Node* item = node->child(i);
        if (!item)
            continue;
        const int state = parts.at(2 * i + 1) == QStringLiteral("true") ? selected : notSelected;
        if (parts.at(2 * i) != item->name || item->checkState != state)
            return false;
    }
    return true;
}

namespace {

/// Whether the flagged audio effect changes the sound.
bool changesSound(const Node* node)
{
    if (node->name == QStringLiteral("Audio_Speed"))
        return intOf(node, QStringLiteral("audio_speed_factor")) != 10;
    if (node->name == QStringLiteral("Audio_Fade_Inout"))
        return boolOf(node, QStringLiteral("audio_fade_in_enable"))
               || boolOf(node, QStringLiteral("audio_fade_out_enable"));
    return true;
}

bool anySelected(const Node* node, const std::function<bool(const Node*)>& wanted)
{
    for (const NodePtr& item : node->children) {
        if (item && item->checkState == selected && wanted(item.get()))
            return true;
    }
    return false;
}

} // namespace

bool Model::hasRealEffect()
{
    if (isForAudioEffect()) {
        const Node* flagged = getValidAudioEffectItem();
        return flagged && changesSound(flagged);
    }
    for (const NodePtr& node : root->children) {
        if (node && node->checkState == selected && asksForProcessing(node.get()))
            return true;
    }
    return false;
}

bool Model::asksForProcessing(const Node* node)
{
    if (node->name == crop) {
        if (baseSize().width() != 0 && baseSize().height() != 0 && isCroped())
            return true;
        return toBool(data(QStringLiteral("player_map_flag"), crop, -1))
               && (toBool(data(QStringLiteral("crop_rotation_angle"), effect, -1))
                   || toBool(data(QStringLiteral("crop_rotation_action"), effect, -1)));
    }
    if (node->name == color) {
        return intOf(node, QStringLiteral("bcs_brightness")) != 0 || intOf(node, QStringLiteral("bcs_contrast")) != 0
               || intOf(node, QStringLiteral("bcs_saturation")) != 0;
    }
    if (node->name == effect)
        return anySelected(node, [](const Node*) { return true; });
    if (node->name == watermark) {
        return anySelected(node, [](const Node* item) {
            return !boolOf(item, isText) || !toText(item->data(QStringLiteral("wm_textcontent"))).isEmpty();
        });
    }
    if (node->name == audio)
        return anySelected(node, [](const Node* item) { return boolOf(item, audioIsFile); });
    if (node->name == subtitle)
        return anySelected(node, [](const Node* item) { return boolOf(item, subFromFile); });
    logged(2399);
    return false;
}

Properties Model::getCurrentFrameEffects()
{
    const Node* node = find(effect, -1);
    if (!node) {
        logged(1559);
        return {};
    }
    QStringList parts;
    for (const NodePtr& item : node->children) {
        if (!item) {
            logged(1553);
            continue;
        }
        parts << item->name << (item->checkState == selected ? QStringLiteral("true") : QStringLiteral("false"));
    }
    return {{effect, parts.join(QLatin1Char('|'))}};
}

bool Model::applyFrameEffects(const Properties& effects)
{
    Node* node = find(effect, -1);
    if (!node || !effects.contains(effect))
        return false;
    const QString summary = toText(effects.value(effect));
    QStringList parts = summary.split(QLatin1Char('|'));
    if (node->count() == 0)
        return summary == QString();
    if (parts.size() != 2 * node->count())
        return false;
    std::vector<NodePtr> left = node->children;
    std::vector<NodePtr> arranged;
    for (int i = 0; i < parts.size(); i += 2) {
        const auto isNamed = [&](const NodePtr& item) { return item && item->name == parts.at(i); };
        if (std::count_if(node->children.begin(), node->children.end(), isNamed) != 1)
            return false;
        const auto found = std::find_if(left.begin(), left.end(), isNamed);
        if (found == left.end())
            return false;
        arranged.push_back(*found);
        left.erase(found);
    }
    bool changes = arranged != node->children;
    node->children = arranged;
    for (size_t i = 0; i < arranged.size(); ++i) {
        const int state = parts.at(int(2 * i + 1)) == QStringLiteral("true") ? selected : notSelected;
        changes = changes || arranged[i]->checkState != state;
        arranged[i]->setCheckState(state);
    }
    if (changes)
        changed(effect, QStringLiteral("reset"), QVariant(), -1);
    return true;
}

// --- Custom defaults --------------------------------------------------------------------------------------

namespace {

void copyValues(const Node* item, std::initializer_list<const char*> keys, Properties& values)
{
    for (const char* key : keys)
        values.insert(QString::fromUtf8(key), item->data(QString::fromUtf8(key)));
}

void addWatermark(const Node* item, const QSize& base, Properties& values)
{
    copyValues(item, {"wm_transparency"}, values);
    if (boolOf(item, isText))
        copyValues(item, {"wm_fontname", "wm_fontcolor", "wm_fontstyle", "wm_fontsize"}, values);
    else
        copyValues(item, {"wm_imagekeepratio"}, values);
    if (base.width() != 0 && base.height() != 0) {
        values.insert(horizontalFactor, static_cast<double>(intOf(item, horizontal)) / base.width());
        values.insert(verticalFactor, static_cast<double>(intOf(item, vertical)) / base.height());
    }
}

void addSubtitle(const Node* item, const QSize& base, Properties& values)
{
    copyValues(item, {"sub_transparency"}, values);
    if (boolOf(item, subFromFile)) {
        copyValues(item, {"sub_fontname", "sub_fontcolor", "sub_fontstyle", "sub_linemargin", "sub_fontsize"}, values);
    } else {
        copyValues(item, {"fontstyleusedefault", "sub_fontcolor", "sub_framecolor"}, values);
    }
    if (base.height() != 0)
        values.insert(subtitleFactor, static_cast<double>(intOf(item, subtitlePosition)) / base.height());
}

} // namespace

void Model::saveAsCustomDefault(const QString& type, int index)
{
    const Node* node = find(type, -1);
    const Node* item = node ? node->child(index) : nullptr;
    Properties saved;
    if (type == watermark) {
        if (index != -1 && !node)
            logged(1451);
        if (!item)
            return;
        saved = world.customDefaults.value(type);
        addWatermark(item, baseSize(), saved);
    } else if (type == subtitle) {
        if (node && !item)
            logged(1514);
        if (!item)
            return;
        saved = world.customDefaults.value(type);
        addSubtitle(item, baseSize(), saved);
    } else if (type == color) {
        if (node)
            copyValues(node, {"bcs_brightness", "bcs_contrast", "bcs_saturation"}, saved);
        else
            logged(1467);
    } else if (type == effect) {
        saved = getCurrentFrameEffects();
    }
    if (!saved.isEmpty())
        world.saveCustomDefault(type, saved);
}

namespace {

void storeSaved(Node* item, const Properties& saved, const std::function<bool(const QString&)>& wanted)
{
    for (auto it = saved.cbegin(); it != saved.cend(); ++it) {
        if (wanted(it.key()))
            item->setData(it.key(), it.value());
    }
}

} // namespace

void Model::getCustomDefaultVal(Node* item, const QString& type, bool direct)
{
    if (!item) {
        logged(829);
        return;
    }
    const Properties saved = world.customDefaults.value(type);
    if (saved.isEmpty())
        return;
    if (type == watermark) {
        layOverWatermark(item, saved, direct);
        return;
    }
    if (type == subtitle && !boolOf(item, subFromFile)) {
        storeSaved(item, saved, [](const QString& key) { return key == QStringLiteral("sub_transparency"); });
        return;
    }
    if (type != subtitle)
        root->setData(QStringLiteral("editbydefault"), true);
    storeSaved(item, saved, [](const QString&) { return true; });
}

void Model::layOverWatermark(Node* item, const Properties& saved, bool direct) const
{
    const bool text = boolOf(item, isText);
    storeSaved(item, saved, [text](const QString& key) {
        return text ? key != horizontalFactor && key != verticalFactor : key == QStringLiteral("wm_transparency");
    });
    if (!saved.contains(horizontalFactor) || !saved.contains(verticalFactor))
        return;
    const int x = truncated(baseSize().width() * toDouble(saved.value(horizontalFactor)));
    const int y = truncated(baseSize().height() * toDouble(saved.value(verticalFactor)));
    const NodePtr parent = item->parent.lock();
    if (!direct && parent && parent->count() >= 2) {
        const std::vector<Place> places = placesBeside(item, parent.get());
        // Every second one is looked at; past the end of an odd number nothing is free.
        size_t counter = 0;
        while (counter < places.size() && !places[counter].contains(x + 2LL, y + 2LL))
            counter += 2;
        if (counter != places.size())
            return;
    }
    place(item, x, y);
}

void Model::adjustFrameEffectsByCustomDefault()
{
    const QString summary = toText(world.customDefault(effect, effect));
    Node* node = find(effect, -1);
    if (summary.isEmpty() || !node)
        return;
    const QStringList parts = summary.split(QLatin1Char('|'));
    if (node->count() < 1 || parts.size() != 2 * node->count())
        return;
    for (int i = 0; i < node->count(); ++i) {
        const int at = getItemPos(node, parts.at(2 * i));
        if (at == -1)
            return;
        if (at != i)
            node->changeItemPos(i, at);
        if (node->child(i))
            node->child(i)->setCheckState(parts.at(2 * i + 1) == QStringLiteral("true") ? selected : notSelected);
    }
}

int Model::getItemPos(const Node* parent, const QString& name)
{
    for (int i = 0; parent && i < parent->count(); ++i) {
        if (parent->child(i) && parent->child(i)->name == name)
            return i;
    }
    return -1;
}

// --- Lists of items ---------------------------------------------------------------------------------------

void Model::storeCatalogueDefaults(Node* item, const QString& type, bool withFactors) const
{
    const EffectType* record = world.find(type);
    if (!record || !record->properties)
        return;
    for (const Default& entry : *record->properties) {
        const bool factor = entry.key == subtitleFactor || entry.key == verticalFactor || entry.key == horizontalFactor;
        if (withFactors || !factor)
            item->setData(entry.key, entry.value);
    }
}

void Model::placeByFactors(Node* item) const
{
    const QSize base = baseSize();
    item->setData(vertical, truncated(base.height() * toDouble(world.defaultValue(verticalFactor, watermark))));
    item->setData(horizontal, truncated(base.width() * toDouble(world.defaultValue(horizontalFactor, watermark))));
}

bool Model::insertDataItem(const QString& type, const Properties& props, int pos)
{
    Node* node = find(type, -1);
    if (!node)
        return false;
    const int index = pos == -1 ? node->count() : pos;
    Node* item = Node::create(QString(), node, index).get();
    storeCatalogueDefaults(item, type, false);
    if (type == watermark && props.contains(isText))
        item->setData(isText, props.value(isText));
    else if (type == subtitle && props.contains(subFromFile))
        item->setData(subFromFile, props.value(subFromFile));
    if (world.customDefaults.contains(type))
        getCustomDefaultVal(item, type, false);
    else if (type == watermark)
        placeByFactors(item);
    apply(item, props);
    if (type == watermark)
        adjustWatermarkPos(item);
    changed(type, QStringLiteral("item_add"), QVariant(), index);
    return true;
}

bool Model::addDataItemEx(const QString& type, const Properties& props, bool asChild)
{
    Node* node = find(type, -1);
    if (!node)
        node = Node::create(type, root.get()).get();
    if (asChild)
        return insertDataItem(type, props, -1);
    storeCatalogueDefaults(node, type, true);
    getCustomDefaultVal(node, type, false);
    apply(node, props);
    return true;
}

bool Model::delDataItem(const QString& type, int pos, NodePtr& astray)
{
    const Node* item = find(type, pos);
    if (!item) {
        logged(273);
        return false;
    }
    const NodePtr parent = item->parent.lock();
    if (!parent) {
        logged(270);
        return false;
    }
    const NodePtr taken = parent->takeAt(pos);
    if (taken.get() != item) {
        astray = taken;
        return false;
    }
    changed(type, QStringLiteral("item_delete"), QVariant(), pos);
    return true;
}

bool Model::changeDataItemPos(const QString& type, int to, int from)
{
    Node* node = find(type, -1);
    if (!node) {
        logged(288);
        return false;
    }
    const bool moved = node->changeItemPos(to, from);
    changed(type, QStringLiteral("item_move"), to, -1);
    return moved;
}

bool Model::replaceData(const QString& type, int pos, const Properties& props)
{
    const Node* node = find(type, -1);
    if (!node) {
        logged(969);
        return false;
    }
    Node* item = node->child(pos);
    if (!item) {
        logged(966);
        return false;
    }
    storeCatalogueDefaults(item, type, true);
    if (world.customDefaults.contains(type))
        getCustomDefaultVal(item, type, false);
    else if (type == watermark)
        placeByFactors(item);
    if (type == subtitle)
        item->setData(movedByUser, false);
    apply(item, props);
    changed(type, QStringLiteral("reset"), QVariant(), pos);
    return true;
}

void Model::replaceData(const QString& type, int pos, const Node* source)
{
    if (!source) {
        logged(1029);
        return;
    }
    Node* target = find(type, pos);
    if (!target || target == source) {
        logged(1026);
        return;
    }
    const NodePtr parent = source->parent.lock();
    const bool fromTypeNode = parent && parent->name == QStringLiteral("effect root");
    const int sourceW = fromTypeNode ? intOf(parent.get(), QStringLiteral("w")) : 0;
    const int sourceH = fromTypeNode ? intOf(parent.get(), frameHeight) : 0;
    target->assign(*source);
    if (type == watermark && fromTypeNode)
        adjustEffectItem(target, baseSize().width(), baseSize().height(), sourceW, sourceH);
    changed(type, QStringLiteral("reset"), QVariant(), pos);
}

void Model::replaceItemDataProperty(const QString& type, const Properties& props)
{
    const Node* node = find(type, -1);
    if (type != subtitle || !node)
        return;
    std::set<int> processed;
    int i = 0; // Counts items and keys alike.
    while (i < node->count() && processed.count(i) == 0) {
        editedByUser = true;
        ++writes;
        Node* item = node->child(i);
        processed.insert(i);
        if (!item) {
            ++i;
            continue;
        }
        QStringList keys;
        if (boolOf(item, subFromFile)) {
            for (const char* key : keysforfromFile)
                keys << QString::fromUtf8(key);
        } else {
            for (const char* key : keysforDVD)
                keys << QString::fromUtf8(key);
        }
        const int oldHeight = toInt(props.value(frameHeight));
        const int newHeight = intOf(root.get(), frameHeight);
        i = 0;
        for (const QString& key : std::as_const(keys)) {
            ++i;
            if (!props.contains(key))
                continue;
            QVariant value = props.value(key);
            if (oldHeight != 0 && newHeight != 0 && (key == subtitleFontSize || key == subtitlePosition))
                value = truncated(toInt(value) * (static_cast<double>(newHeight) / oldHeight));
            item->setData(key, value);
        }
        changed(type, QStringLiteral("reset"), QVariant(), i);
        ++i;
    }
}

bool Model::resetDataItem(const QString& type, int pos)
{
    Node* node = find(type, -1);
    if (!node) {
        logged(622);
        return false;
    }
    node->clear();
    node->setCheckState(selected);
    const EffectType* record = world.find(type);
    if (record && record->subItems)
        buildSubItems(node, &*record->subItems);
    fillTypeNode(node);
    if (type == effect)
        adjustFrameEffectsByCustomDefault();
    changed(type, QStringLiteral("reset"), QVariant(), pos);
    return true;
}

namespace {

/// The tracks from files go, from the end up to the last embedded one; the first that is left is selected.
void resetTracks(Node* node, const QString& fileKey)
{
    for (int i = node->count() - 1; i >= 0; --i) {
        if (!node->child(i))
            continue;
        if (!boolOf(node->child(i), fileKey))
            break;
        node->removeChildren(i, 1);
    }
    bool first = true;
    for (const NodePtr& item : node->children) {
        if (!item)
            continue;
        item->setCheckState(first ? selected : notSelected);
        first = false;
    }
}

} // namespace

void Model::resetAllEffect()
{
    signalsBlocked = true;
    editedByUser = false;
    ++writes;
    static const std::vector<EffectType> none;
    for (const EffectType& type : world.catalogue ? world.catalogue->types : none) {
        Node* node = find(type.name, -1);
        if (!node)
            continue;
        node->setCheckState(selected);
        if (type.name == audio) {
            resetTracks(node, audioIsFile);
        } else if (type.name == subtitle) {
            resetTracks(node, subFromFile);
        } else if (type.name == watermark) {
            node->clear();
        } else {
            resetDataItem(type.name, -1);
        }
    }
    signalsBlocked = false;
}

// --- Handing settings to others ---------------------------------------------------------------------------

void Model::applyDataTo(const QString& type, int pos, int applyto)
{
    const Node* item = find(type, pos);
    if (!item)
        return;
    Signal signal;
    signal.index = 3;
    signal.node = item->twin;
    signal.text = type;
    signal.number = pos;
    signal.number2 = applyto;
    send(signal);
}

void Model::applySomePropertytoOther(const QString& type, int pos, int applyto)
{
    if (type != subtitle || pos == -1)
        return;
    const Node* item = find(type, pos);
    if (!item || item->checkState != selected)
        return;
    Properties style;
    for (const char* key : keysforfromFile) {
        const QVariant value = item->data(QString::fromUtf8(key));
        if (value.isValid())
            style.insert(QString::fromUtf8(key), value);
    }
    if (style.isEmpty())
        return;
    style.insert(frameHeight, intOf(root.get(), frameHeight));
    replaceItemDataProperty(type, style);
    Signal signal;
    signal.index = 4;
    signal.value = style;
    signal.text = type;
    signal.number = -1;
    signal.number2 = applyto;
    send(signal);
}

} // namespace reference
