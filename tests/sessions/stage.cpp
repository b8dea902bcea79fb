// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "stage.h"

#include <algorithm>
#include <iostream>
#include <unistd.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QPixmapCache>

#include <zoeffectitemdata.h>
#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

using reference::Node;
using reference::NodePtr;
using reference::Properties;

namespace {

constexpr int mostNodes = 70;
constexpr size_t mostModels = 4;
constexpr size_t mostFreeNodes = 4;

/// A second table, with what the first lacks: a type in a nested table, "_checkstate" among a type's own properties,
/// sub-items with several properties, a type with both properties and sub-items, types with neither.
const EffectControlItem* oddCatalogue()
{
    static const EffectDefaultVal modeProperties[] = {
        property("_checkstate", false),
        property("mode", "fast"),
        property(nullptr, 0),
    };
    static const EffectDefaultVal layerProperties[] = {
        property("_checkstate", true),
        property("level", 3),
        property("tint", QColor(Qt::red)),
        property(nullptr, 0),
    };
    static const EffectDefaultVal noProperties[] = {property(nullptr, 0)};
    static const SubEffectItem layers[] = {
        subItem("Base", 1, layerProperties),
        subItem("Top", 2, layerProperties),
        subItem("Plain", 3),
        subItem(nullptr, 0),
    };
    static const SubEffectItem noSubItems[] = {subItem(nullptr, 0)};
    static const EffectControlItem nested[] = {
        effectType("Effect", nullptr, layers),
        effectType("Inner", modeProperties),
        effectType(nullptr, nullptr),
    };
    static const EffectControlItem table[] = {
        effectType("Watermark", WatermarkDefaultVal),
        effectType("Group", nullptr, nullptr, nested),
        effectType("Mode", modeProperties, layers),
        effectType("Stack", nullptr, layers),
        effectType("Subtitle", SubtitleDefaultVal),
        effectType("Audio", noProperties, noSubItems),
        effectType("Color", BCSDefaultVal),
        effectType("Bare", nullptr),
        effectType(nullptr, nullptr),
    };
    return table;
}

QString picture(const char* name)
{
    return QDir::tempPath() + '/' + QString::fromUtf8(name);
}

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(' ');
}

const QStringList& mainTypes()
{
    static const QStringList types = words("Watermark Subtitle Audio Effect Crop Color");
    return types;
}

const QStringList& otherTypes()
{
    static const QStringList types = QString("Audio_Speed,Audio_Fade_Inout,Audio_Echo,Mode,Stack,Inner,Bare,Group,"
                                             "Blur,Nobody,crop,,item,effect root")
                                         .split(',');
    return types;
}

const QStringList& keysOf(const QString& type)
{
    static const QHash<QString, QStringList> keys = {
        {"Watermark", words("wm_hposition wm_vposition wm_istextwatermark wm_textcontent wm_imagewidth wm_imageheight "
                            "_checkstate wm_imageurl wm_imageformat wm_ingnore wm_fontname wm_fontsize wm_fontstyle "
                            "wm_fontcolor wm_transparency wm_transfactor wm_hposfactor wm_vposfactor "
                            "wm_imagekeepratio")},
        {"Subtitle", words("sub_vposition sub_fromfile sub_fontsize trackid _checkstate sub_fontname sub_fontcolor "
                           "sub_fontstyle sub_linemargin sub_transparency sub_vposfactor sub_framecolor "
                           "fontstyleusedefault dvdsubtitleposeditbyuser h")},
        {"Audio", words("audio_isfile trackid _checkstate play_loop _playmeineffect")},
        {"Crop", words("crop_width crop_height crop_left crop_top crop_keepaspectratio crop_aspectratio _checkstate "
                       "player_map_flag")},
        {"Effect", words("_checkstate id crop_rotation_angle crop_rotation_action Effect")},
        {"Color", words("bcs_brightness bcs_contrast bcs_saturation _checkstate")},
        {"effect root", words("w h editbydefault")},
        {"Audio_Speed", words("audio_effect_flag audio_speed_factor _checkstate")},
        {"Audio_Fade_Inout", words("audio_effect_flag audio_fade_in_enable audio_fade_out_enable audio_fade_in")},
    };
    static const QStringList common = words("a _checkstate trackid TrackID audio_effect_flag mode level tint id");
    const auto found = keys.constFind(type);
    return found != keys.cend() ? found.value() : common;
}

using Values = std::vector<QVariant>;

/// The texts between the bars.
Values texts(const char* joined)
{
    Values values;
    for (const QString& part : QString::fromUtf8(joined).split('/'))
        values.push_back(part);
    return values;
}

Values concat(std::initializer_list<Values> lists)
{
    Values all;
    for (const Values& list : lists)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

const Values& summaries()
{
    static const Values values =
        texts("Blur|true|Sharpen|false|Mirror|true|Sepia|false/Sepia|true|Mirror|true|Blur|false|Sharpen|true/"
              "Sepia|true|Nobody|true|Blur|false|Sharpen|true/Blur|true|Blur");
    return values;
}

/// Values of all types, with pairs of different type that count as equal, and some that nearly do.
const Values& allValues()
{
    static const Values values =
        concat({{0, 1, 2, 5, -1, 3, 22, 100, -7, true, false},
                {0.0, 1.0, 2.0, 5.0, 0.3, 0.1 + 0.2, 0.30001, 0.5, -1.5, 2.55, 12.7, -0.5, 1e-13},
                texts("5//0/1/true/false/0.3/5.0/abc/2/white/#ffffff/#ff0000/Tahoma/Original Ratio"),
                {QColor(Qt::white), QColor(Qt::red), QColor(1, 2, 3, 4), QFont("Tahoma", -1, -1, false),
                 QFont("DejaVu Sans", 9), QVariantMap{{"a", 5}}, QVariantMap{{"a", "5"}}, QVariantMap(), QVariant()},
                summaries()});
    return values;
}

/// The values that make sense under a key.
const Values& valuesOf(const QString& key)
{
    static const std::vector<std::pair<const char*, Values>> table = {
        {"_checkstate wm_istextwatermark wm_ingnore sub_fromfile audio_isfile play_loop _playmeineffect "
         "fontstyleusedefault dvdsubtitleposeditbyuser crop_keepaspectratio player_map_flag crop_rotation_angle "
         "crop_rotation_action audio_effect_flag audio_fade_in_enable audio_fade_out_enable wm_imagekeepratio "
         "editbydefault",
         {true, false, 1, 0, "true", ""}},
        {"wm_hposition wm_vposition sub_vposition crop_left crop_top",
         {0, 49, 30, 10, 60, 12, 100, 150, 200, -20, 290, 40, -60, 31, "45", 17.5}},
        {"wm_imagewidth wm_imageheight crop_width crop_height", {0, 20, 50, 0, 100, 10, 320, 160, 240, -5, "40", 33.3}},
        {"w h", {160, 120, 320, 90, 240, 64, 0, -40, 200, "100", 70000}},
        {"trackid id audio_speed_factor audio_fade_in sub_linemargin wm_transparency sub_transparency",
         {1, 2, 3, QVariant(), 0, 5, 10, "2", -1, 100}},
        {"wm_hposfactor wm_vposfactor sub_vposfactor wm_transfactor",
         {0.5, 0.1, 0.25, 0.8, 0.3, 1, 0, "0.5", "none", 0.9}},
        {"wm_textcontent", {"Hi", "A longer line", "", "two\nlines", 7}},
        {"wm_fontstyle sub_fontstyle", {"Regular", "Bold", "Italic", "Bold Italic", "regular", "bold"}},
        {"wm_fontname sub_fontname",
         {QFont("Tahoma", -1, -1, false), QFont("DejaVu Sans", 9), "Tahoma", "DejaVu Sans", 5, QVariant()}},
        {"wm_fontcolor sub_fontcolor sub_framecolor tint",
         {QColor(Qt::white), QColor(Qt::red), "white", "#ffffff", 5, QVariant()}},
        {"wm_fontsize sub_fontsize", {22, 49, 8, 12, 20, 0, -3, "9"}},
        {"crop_aspectratio", {"Original Ratio", "Original", "16:9"}},
        {"bcs_brightness bcs_contrast bcs_saturation", {0, 5, -7, "5", 0.3, ""}},
        {"wm_imageurl",
         {picture("small.png"), picture("missing.png"), picture("corrupt.bmp"), picture("wide.bmp"), ""}},
        {"wm_imageformat", {"", "BMP", "none", "bmp"}},
        {"Effect", summaries()},
    };
    static const QHash<QString, const Values*> values = [] {
        QHash<QString, const Values*> found;
        for (const auto& [keys, list] : table) {
            for (const QString& entry : words(keys))
                found.insert(entry, &list);
        }
        return found;
    }();
    const auto found = values.constFind(key);
    return found != values.cend() ? *found.value() : allValues();
}

/// A font under these keys would be read as text, and fonts tell themselves differently on the two Qts.
bool readAsText(const QString& key)
{
    return key == "wm_textcontent" || key == "wm_imageurl" || key == "wm_imageformat";
}

/// Keeps all seven signals of a model.
void listen(const ZoEffectModel& model, std::vector<reference::Signal>& heard)
{
    using Model = ZoEffectModel;
    using Text = const QString&;
    const auto on = [&model](auto sent, auto keep) { QObject::connect(&model, sent, &model, keep); };
    const auto keep = [&heard](const reference::Signal& signal) { heard.push_back(signal); };
    on(QOverload<Text, Text, const QVariant&, int>::of(&Model::effectDataChanged),
       [keep](Text type, Text key, const QVariant& val, int pos) {
           keep({0, type, key, val, pos});
       });
    on(&Model::currentItemChanged, [keep](Text type) { keep({1, type}); });
    on(&Model::currentSubItemChanged, [keep](Text type, int index) { keep({2, type, {}, {}, index}); });
    on(&Model::applyItemDataTo, [keep](const ZoEffectItemData* item, Text type, int pos, int applyto) {
        keep({3, type, {}, {}, pos, applyto, item});
    });
    on(&Model::applyItemDataSomePropertyTo, [keep](const Properties& props, Text type, int pos, int appto) {
        keep({4, type, {}, props, pos, appto});
    });
    on(&Model::effectDataAboutChange, [keep](Text type) { keep({5, type}); });
    on(QOverload<Text>::of(&Model::effectDataChanged), [keep](Text type) { keep({6, type}); });
}

QString told(const std::vector<reference::Signal>& signals_)
{
    QStringList texts;
    for (const reference::Signal& signal : signals_)
        texts << QString("signal %1 (\"%2\", \"%3\", %4, %5, %6)")
                     .arg(signal.index)
                     .arg(signal.text, signal.text2, Stage::shown(signal.value))
                     .arg(signal.number)
                     .arg(signal.number2);
    return texts.isEmpty() ? "none" : texts.join("; ");
}

void collect(Node* node, std::vector<Node*>& nodes)
{
    nodes.push_back(node);
    for (Node* child : node->items())
        collect(child, nodes);
}

bool holds(const Node* tree, const Node* node)
{
    const std::vector<Node*> items = tree->items();
    return tree == node
           || std::any_of(items.cbegin(), items.cend(), [node](const Node* child) { return holds(child, node); });
}

/// "root/Watermark[1]", the way to a node.
QString wayTo(const Node* tree, const Node* node, const QString& way)
{
    if (tree == node)
        return way;
    for (int row = 0; row < tree->count(); ++row) {
        const Node* child = tree->child(row);
        QString found = child ? wayTo(child, node, way + QString("->child(%1)").arg(row)) : QString();
        if (!found.isEmpty())
            return found;
    }
    return QString();
}

QString numbers(const std::vector<int>& list)
{
    QStringList texts;
    for (int number : list)
        texts << QString::number(number);
    return '{' + texts.join(", ") + '}';
}

} // namespace

void writePictures()
{
    // Qt's cache of loaded files would give a picture whatever format it is asked for in.
    QPixmapCache::setCacheLimit(0);
    QImage small(6, 4, QImage::Format_ARGB32);
    small.fill(QColor(200, 100, 50, 120));
    small.save(picture("small.png"), "PNG");
    QImage wide(12, 3, QImage::Format_RGB32);
    wide.fill(Qt::green);
    wide.save(picture("wide.bmp"), "BMP");
    QFile corrupt(picture("corrupt.bmp"));
    if (corrupt.open(QIODevice::WriteOnly))
        corrupt.write("no picture at all");
}

// --- The stage --------------------------------------------------------------------------------------------

Stage::Stage(bool describing, QByteArray* outcome) : m_describing(describing || outcome), m_outcome(outcome)
{
    QFile::remove(logcapture::logPath());
    TestApplication::instance()->pref.entries.clear();
    TestApplication::instance()->pref.takeWrites();
    delete ZoEffectItemDefaultValMgr::s_Instance;
    ZoEffectItemDefaultValMgr::s_Instance = nullptr;
    ZoEffectItemDefaultValMgr::setSupportTypes({});
    registerTable(cleanTable);
    ZoEffectItemDefaultValMgr::getInstance();
    if (describing)
        m_calls << QString("m0 = ZoEffectModel({%1})").arg(mainTypes().join(", "));
    adopt(std::make_unique<ZoEffectModel>(mainTypes()), std::make_unique<reference::Model>(m_world, mainTypes()),
          nullptr);
}

Stage::~Stage()
{
    m_models.clear();
    for (const FreeNode& node : m_freeNodes)
        delete node.real;
}

bool Stage::perform(const Command& command)
{
    m_command = &command;
    m_used = 0;
    m_idle = false;
    m_tookEffect = false;
    const long long writesBefore = reference::writes;
    operations()[static_cast<size_t>(command.operation)].run(*this);
    compareTouched();
    m_tookEffect = m_tookEffect || reference::writes != writesBefore;
    return !m_idle;
}

void Stage::compareAll()
{
    touchAll();
    compareTouched();
}

void Stage::describe(const QString& receiver, const char* function, const QStringList& arguments)
{
    m_calls << receiver + "." + QString::fromUtf8(function) + '(' + arguments.join(", ") + ')';
    noteText("> ", m_calls.constLast());
    static const bool trace = qEnvironmentVariableIsSet("ZOEFFECT_SESSION_TRACE");
    if (trace)
        std::cerr << m_calls.constLast().toStdString() << std::endl;
}

// --- What is chosen ---------------------------------------------------------------------------------------

int Stage::below(int bound)
{
    const quint32 choice = m_used < m_command->choices.size() ? m_command->choices[m_used] : 0;
    ++m_used;
    return bound > 0 ? static_cast<int>(choice % static_cast<quint32>(bound)) : 0;
}

bool Stage::rarely(int percent)
{
    return below(100) >= 100 - percent;
}

ModelPair& Stage::model()
{
    ModelPair& pair = *m_models[static_cast<size_t>(below(static_cast<int>(m_models.size())))];
    pair.touched = true;
    return pair;
}

QString Stage::type(const ModelPair& pair)
{
    const int choice = below(10000);
    const int which = choice / 100;
    switch (choice % 20) {
    case 19:
    case 18:
        return otherTypes().at(which % otherTypes().size());
    case 17:
    case 16:
    case 15: {
        const Node* present =
            pair.told->root->count() > 0 ? pair.told->root->child(which % pair.told->root->count()) : nullptr;
        return present ? present->name : "effect root";
    }
    default: { // The types with lists, most of all.
        static const int common[] = {0, 0, 0, 1, 1, 2, 3, 4, 5};
        return mainTypes().at(common[which % 9]);
    }
    }
}

QString Stage::audioEffectOr(const QString& type)
{
    const int choice = below(6);
    return choice < 3 ? type : otherTypes().at(choice - 3);
}

QString Stage::customisedType()
{
    const QStringList held = m_world.customDefaults.keys();
    const int choice = below(1000);
    return held.isEmpty() || choice % 10 > 6 ? type(model()) : held.at(choice / 10 % held.size());
}

QString Stage::key(const QString& type)
{
    const int choice = below(10000);
    const QStringList& keys = keysOf(choice % 100 < 90 ? type : QString());
    return keys.at(choice / 100 % keys.size());
}

QVariant Stage::value(const QString& key)
{
    const int choice = below(100000);
    const auto pick = [choice](const std::vector<QVariant>& values) {
        return values[static_cast<size_t>(choice / 100) % values.size()];
    };
    QVariant picked = pick(choice % 100 < 85 ? valuesOf(key) : allValues());
    if (picked.userType() == QMetaType::QFont && readAsText(key))
        picked = QVariant();
    return picked;
}

Properties Stage::props(const QString& type)
{
    Properties props;
    // What makes lists worth having: text and image watermarks, tracks from files and embedded ones.
    const int kind = below(4);
    if (type == "Watermark" && (kind == 1 || kind == 3))
        props = {{"wm_istextwatermark", true}, {"wm_ingnore", kind == 3}, {"wm_textcontent", "Hi"}};
    else if (type == "Watermark" && kind == 2)
        props = {{"wm_imageurl", picture("small.png")}, {"wm_imagewidth", 60}, {"wm_imageheight", 40}};
    else if (type == "Subtitle" && kind != 0)
        props = {{"sub_fromfile", kind == 1}};
    else if (type == "Audio_Speed" && kind != 0)
        props = {{"audio_effect_flag", true}, {"audio_speed_factor", kind == 1 ? 10 : 100}};
    else if (type == "Audio" && kind != 0)
        props = {{"audio_isfile", kind == 1}, {"trackid", kind}};
    for (int more = below(4); more > 0; --more) {
        const QString name = key(type);
        props.insert(name, value(name));
    }
    return props;
}

QStringList Stage::typeNames()
{
    QStringList names;
    const int choice = below(1 << 12);
    for (int i = 0; i < mainTypes().size(); ++i) {
        if (choice & (1 << i))
            names << mainTypes().at(i);
    }
    const int other = choice >> 6;
    if (other < otherTypes().size())
        names.prepend(otherTypes().at(other));
    return names;
}

int Stage::pos(const Node* node)
{
    const int choice = below(10000);
    const int count = node ? node->count() : 0;
    switch (choice % 20) {
    case 19:
        return -2 - choice / 100 % 3;
    case 18:
        return count + choice / 100 % 3;
    case 17:
    case 16:
    case 15:
        return -1;
    default:
        return count > 0 ? choice / 100 % count : 0;
    }
}

int Stage::pos(const ModelPair& pair, const QString& type)
{
    return pos(pair.told->find(type, -1));
}

int Stage::length()
{
    static const int lengths[] = {160, 120, 320, 240, 64, 90, 0, 200, 100, -40, 49, 328};
    return lengths[below(12)];
}

QString Stage::nodeName()
{
    static const char* const names[] = {"item", "Watermark", "", "Blur", "Audio", "Bare"};
    return names[below(6)];
}

QString Stage::imagePath()
{
    return valuesOf("wm_imageurl")[static_cast<size_t>(below(5))].toString();
}

QString Stage::imageFormat()
{
    return valuesOf("wm_imageformat")[static_cast<size_t>(below(4))].toString();
}

Node* Stage::node()
{
    const int choice = below(100000);
    const int inFreeNode = choice % 100 - 75;
    Node* tree = nullptr;
    if (inFreeNode >= 0 && !m_freeNodes.empty()) {
        FreeNode& free = m_freeNodes[static_cast<size_t>(inFreeNode) % m_freeNodes.size()];
        free.touched = true;
        tree = free.told.get();
    } else {
        ModelPair& pair = *m_models[static_cast<size_t>(choice) % m_models.size()];
        pair.touched = true;
        tree = pair.told->root.get();
    }
    std::vector<Node*> nodes;
    collect(tree, nodes);
    return nodes[static_cast<size_t>(choice / 100) % nodes.size()];
}

Node* Stage::group()
{
    Node* any = node();
    if (rarely(40))
        return any;
    const ModelPair& pair = model();
    Node* typeNode = pair.told->find(type(pair), -1);
    return typeNode ? typeNode : any;
}

Node* Stage::nodeOrNull(int percentNull)
{
    return rarely(percentNull) ? nullptr : node();
}

FreeNode* Stage::freeNode()
{
    if (m_freeNodes.empty())
        return nullptr;
    return &m_freeNodes[static_cast<size_t>(below(static_cast<int>(m_freeNodes.size())))];
}

// --- What there is ----------------------------------------------------------------------------------------

const Node* Stage::treeOf(const Node* node) const
{
    for (const auto& pair : m_models) {
        if (holds(pair->told->root.get(), node))
            return pair->told->root.get();
    }
    for (const FreeNode& free : m_freeNodes) {
        if (holds(free.told.get(), node))
            return free.told.get();
    }
    return nullptr;
}

bool Stage::hasRoomFor(const Node* tree, int extra)
{
    return reference::size(*tree) + extra <= mostNodes;
}

const reference::Catalogue* Stage::table(int number)
{
    static const reference::Catalogue clean(hostCatalogue());
    static const reference::Catalogue odd(oddCatalogue());
    static const EffectControlItem nothing[] = {effectType(nullptr, nullptr)};
    static const reference::Catalogue empty(nothing);
    const reference::Catalogue* const all[tables] = {&clean, &odd, &empty, nullptr};
    return all[number];
}

void Stage::registerTable(int number)
{
    const reference::Catalogue* catalogue = table(number);
    m_world.registerTable(catalogue);
    ZoEffectModel::InitEffectModel(catalogue ? catalogue->table : nullptr);
}

void Stage::adopt(std::unique_ptr<ZoEffectModel> real, std::unique_ptr<reference::Model> told, const QObject* parent)
{
    if (m_models.size() >= mostModels)
        m_models.erase(m_models.begin());
    auto pair = std::make_unique<ModelPair>();
    pair->name = QString("m%1").arg(m_names++);
    pair->real = std::move(real);
    pair->told = std::move(told);
    pair->parent = parent;
    listen(*pair->real, pair->heard);
    m_models.push_back(std::move(pair));
}

void Stage::dropModel()
{
    if (m_models.size() > 1)
        m_models.erase(m_models.begin() + below(static_cast<int>(m_models.size())));
    else
        nothingToDo();
}

void Stage::adopt(ZoEffectItemData* real, const NodePtr& told)
{
    if (m_freeNodes.size() >= mostFreeNodes) {
        delete m_freeNodes.front().real;
        m_freeNodes.erase(m_freeNodes.begin());
    }
    m_freeNodes.push_back({QString("n%1").arg(m_names++), real, told, true});
}

FreeNode Stage::release(const FreeNode* node)
{
    FreeNode released = *node;
    m_freeNodes.erase(m_freeNodes.begin() + (node - m_freeNodes.data()));
    return released;
}

void Stage::touchAll()
{
    for (const auto& pair : m_models)
        pair->touched = true;
    for (FreeNode& free : m_freeNodes)
        free.touched = true;
}

// --- What came of it --------------------------------------------------------------------------------------

void Stage::differ(const QString& what, const QString& library, const QString& told)
{
    throw Difference{QString("%1\n      library:   %2\n      reference: %3").arg(what, library, told)};
}

void Stage::noteText(const char* mark, const QString& text)
{
    if (m_outcome)
        m_outcome->append(mark + QString(text).remove(QDir::tempPath()).toUtf8() + '\n');
}

void Stage::noteTree(const Node* node)
{
    noteText("* ", QString("%1 %2 %3").arg(shown(node)).arg(node->checkState).arg(shown(node->properties)));
    for (const Node* child : node->items())
        noteTree(child);
}

void Stage::noteTrees()
{
    for (const auto& pair : m_models)
        noteTree(pair->told->root.get());
    noteText("* ", shown(Properties(m_world.preferences)));
}

void Stage::same(const QVariant& library, const QVariant& told)
{
    note(told);
    if (!reference::identical(library, told))
        differ("result", shown(library), shown(told));
    m_tookEffect = m_tookEffect || told.isValid();
}

void Stage::same(const ZoEffectItemData* library, const Node* told)
{
    note(told);
    if (library != (told ? told->twin : nullptr))
        differ("node", library ? shown(library->name()) : "nullptr", shown(told));
    m_tookEffect = m_tookEffect || told;
}

void Stage::compareTouched()
{
    for (const auto& pair : m_models) {
        compareSignals(*pair);
        if (pair->touched)
            compareModel(*pair);
        pair->touched = false;
    }
    for (FreeNode& free : m_freeNodes) {
        if (free.touched)
            compareTree(free.real, free.told.get());
        free.touched = false;
    }
    compareLog();
    compareStore();
}

void Stage::compareModel(ModelPair& pair) const
{
    const ZoEffectModel& real = *pair.real;
    ZoEffectItemData* root = pair.told->root->twin;
    // At the first sight of a model its root is found by name, as the first of all nodes.
    if (!root)
        root = real.findDataItem(pair.told->root->name, -1);
    if (!root)
        differ(pair.name + ".root", "nullptr", "a node");
    compareTree(root, pair.told->root.get());
    if (real.baseSize() != pair.told->baseSize())
        differ(pair.name + ".baseSize()", shown(real.baseSize()), shown(pair.told->baseSize()));
    if (real.editByUser() != pair.told->editedByUser)
        differ(pair.name + ".editByUser()", shown(real.editByUser()), shown(pair.told->editedByUser));
    if (static_cast<const QObject&>(real).parent() != pair.parent)
        differ(pair.name + ".parent()", "another", "the given one");
}

void Stage::compareTree(const ZoEffectItemData* real, Node* told) const
{
    const auto at = [this, told](const char* what) { return shown(told) + ' ' + QString::fromUtf8(what); };
    if (!told->twin)
        told->twin = const_cast<ZoEffectItemData*>(real);
    if (told->twin != real)
        differ(at("node"), "another node", "the same node as before");
    const auto agree = [&at](const char* what, const auto& library, const auto& expected) {
        if (library != expected)
            differ(at(what), shown(library), shown(expected));
    };
    agree("name", real->name(), told->name);
    agree("objectName", real->objectName(), told->objectName);
    agree("checkState", real->checkState(), told->checkState);
    agree("internalData", static_cast<const void*>(real->internalData()), static_cast<const void*>(told->internalData));
    agree("childCount", real->childCount(), told->count());
    if (!told->parentGone()) {
        const NodePtr parent = told->parent.lock();
        if (real->parent() != (parent ? parent->twin : nullptr))
            differ(at("parent"), "another", parent ? shown(parent.get()) : "nullptr");
    }

    compareProperties(real, told);

    for (int row = 0; row < told->count(); ++row) {
        const ZoEffectItemData* child = real->child(row);
        Node* toldChild = told->child(row);
        if ((child == nullptr) != (toldChild == nullptr))
            differ(at("child"), shown(static_cast<const void*>(child)), shown(static_cast<const void*>(toldChild)));
        if (child)
            compareTree(child, toldChild);
    }
}

void Stage::compareProperties(const ZoEffectItemData* real, const Node* told) const
{
    const QMap<QString, QVariant>& properties = real->properties();
    auto left = properties.cbegin();
    auto right = told->properties.cbegin();
    for (; left != properties.cend() && right != told->properties.cend(); ++left, ++right) {
        if (left.key() != right.key() || !reference::identical(left.value(), right.value()))
            break;
    }
    const auto entry = [](const auto& it, const auto& end) {
        return it != end ? it.key() + " = " + shown(it.value()) : "end";
    };
    if (left != properties.cend() || right != told->properties.cend())
        differ(shown(told) + " properties", entry(left, properties.cend()), entry(right, told->properties.cend()));
}

void Stage::compareSignals(ModelPair& pair)
{
    std::vector<reference::Signal>& sent = pair.told->sent;
    bool agree = pair.heard.size() == sent.size();
    for (size_t i = 0; agree && i < sent.size(); ++i) {
        const reference::Signal& left = pair.heard[i];
        const reference::Signal& right = sent[i];
        agree = left.index == right.index && left.text == right.text && left.text2 == right.text2
                && left.number == right.number && left.number2 == right.number2 && left.node == right.node
                && reference::identical(left.value, right.value);
    }
    if (!agree)
        differ("signals of " + pair.name, ::told(pair.heard), ::told(sent));
    if (!sent.empty()) {
        noteText("! ", pair.name + ' ' + ::told(sent));
        reference::writes++; // It took effect.
    }
    pair.heard.clear();
    sent.clear();
}

void Stage::compareLog()
{
    static const QByteArray path = QFile::encodeName(logcapture::logPath());
    std::vector<int> logged;
    if (::access(path.constData(), F_OK) == 0) {
        const QList<int> events = logcapture::takeEvents();
        for (int line : events)
            logged.push_back(line);
    }
    if (logged != m_world.log)
        differ("log", numbers(logged), numbers(m_world.log));
    if (!logged.empty())
        noteText("# ", numbers(logged));
    m_tookEffect = m_tookEffect || !logged.empty();
    m_world.log.clear();
}

void Stage::compareStore()
{
    if (ZoEffectItemDefaultValMgr::s_supportTypes != m_world.supportTypes)
        differ("supportTypes", shown(ZoEffectItemDefaultValMgr::s_supportTypes), shown(m_world.supportTypes));
    MemoryPref& store = TestApplication::instance()->pref;
    const QStringList written = store.takeWrites();
    if (written.isEmpty() && m_world.preferenceWrites.isEmpty())
        return;
    QStringList expected;
    for (const QString& key : std::as_const(m_world.preferenceWrites))
        expected << QString("%1 = %2, notify false").arg(key, described(m_world.preferences.value(key)));
    if (written != expected)
        differ("writes to the preference store", shown(written), shown(expected));
    if (!reference::identical(QVariant(store.entries), QVariant(m_world.preferences)))
        differ("preference store", shown(store.entries), shown(m_world.preferences));
    noteText("@ ", shown(written));
    m_world.preferenceWrites.clear();
    m_tookEffect = true;
}

// --- Texts ------------------------------------------------------------------------------------------------

QString Stage::shown(const Node* node) const
{
    if (!node)
        return "nullptr";
    for (const auto& pair : m_models) {
        const QString way = wayTo(pair->told->root.get(), node, pair->name + ".root");
        if (!way.isEmpty())
            return way + QString("[%1]").arg(node->name);
    }
    for (const FreeNode& free : m_freeNodes) {
        const QString way = wayTo(free.told.get(), node, free.name);
        if (!way.isEmpty())
            return way + QString("[%1]").arg(node->name);
    }
    return QString("a node [%1]").arg(node->name);
}

QString Stage::shown(const QStringList& texts)
{
    QStringList quoted;
    for (const QString& entry : texts)
        quoted << shown(entry);
    return '{' + quoted.join(", ") + '}';
}

QString Stage::shown(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return "QVariant()";
    case QMetaType::Bool:
        return shown(value.toBool());
    case QMetaType::Int:
        return QString::number(value.toInt());
    case QMetaType::Double: {
        const QString digits = QString::number(value.toDouble(), 'g', 17);
        return digits.contains('.') ? digits : digits + ".0";
    }
    case QMetaType::QString:
        return shown(value.toString());
    case QMetaType::QColor:
        return QString("QColor(\"%1\")").arg(value.value<QColor>().name(QColor::HexArgb));
    case QMetaType::QFont:
        return QString("QFont(\"%1\", %2)").arg(value.value<QFont>().family()).arg(value.value<QFont>().pointSize());
    case QMetaType::QVariantMap:
        return shown(Properties(value.toMap()));
    default:
        return described(value);
    }
}

QString Stage::shown(const Properties& props)
{
    QStringList entries;
    for (auto it = props.cbegin(); it != props.cend(); ++it)
        entries << QString("{\"%1\", %2}").arg(it.key(), shown(it.value()));
    return '{' + entries.join(", ") + '}';
}
