// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "stage.h"

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
        property("mode", QStringLiteral("fast")),
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
    return QDir::tempPath() + QLatin1Char('/') + QString::fromUtf8(name);
}

const QStringList& mainTypes()
{
    static const QStringList types = {QStringLiteral("Watermark"), QStringLiteral("Subtitle"), QStringLiteral("Audio"),
                                      QStringLiteral("Effect"),    QStringLiteral("Crop"),     QStringLiteral("Color")};
    return types;
}

const QStringList& otherTypes()
{
    static const QStringList types = {QStringLiteral("Audio_Speed"), QStringLiteral("Audio_Fade_Inout"),
                                      QStringLiteral("Audio_Echo"),  QStringLiteral("Mode"),
                                      QStringLiteral("Stack"),       QStringLiteral("Inner"),
                                      QStringLiteral("Bare"),        QStringLiteral("Group"),
                                      QStringLiteral("Blur"),        QStringLiteral("Nobody"),
                                      QStringLiteral("crop"),        QString(),
                                      QStringLiteral("item"),        QStringLiteral("effect root")};
    return types;
}

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '));
}

const QStringList& keysOf(const QString& type)
{
    static const QHash<QString, QStringList> keys = {
        {QStringLiteral("Watermark"), words("wm_hposition wm_vposition wm_istextwatermark wm_textcontent "
                                            "wm_imagewidth wm_imageheight _checkstate "
                                            "wm_imageurl wm_imageformat wm_ingnore wm_fontname wm_fontsize "
                                            "wm_fontstyle wm_fontcolor "
                                            "wm_transparency wm_transfactor wm_hposfactor wm_vposfactor "
                                            "wm_imagekeepratio")},
        {QStringLiteral("Subtitle"), words("sub_vposition sub_fromfile sub_fontsize trackid _checkstate "
                                           "sub_fontname sub_fontcolor sub_fontstyle "
                                           "sub_linemargin sub_transparency sub_vposfactor sub_framecolor "
                                           "fontstyleusedefault "
                                           "dvdsubtitleposeditbyuser h")},
        {QStringLiteral("Audio"), words("audio_isfile trackid _checkstate play_loop _playmeineffect")},
        {QStringLiteral("Crop"), words("crop_width crop_height crop_left crop_top crop_keepaspectratio "
                                       "crop_aspectratio "
                                       "_checkstate player_map_flag")},
        {QStringLiteral("Effect"), words("_checkstate id crop_rotation_angle crop_rotation_action Effect")},
        {QStringLiteral("Color"), words("bcs_brightness bcs_contrast bcs_saturation _checkstate")},
        {QStringLiteral("effect root"), words("w h editbydefault")},
        {QStringLiteral("Audio_Speed"), words("audio_effect_flag audio_speed_factor _checkstate")},
        {QStringLiteral("Audio_Fade_Inout"), words("audio_effect_flag audio_fade_in_enable audio_fade_out_enable "
                                                   "audio_fade_in")},
    };
    static const QStringList common = words("a _checkstate trackid TrackID audio_effect_flag mode level tint id");
    const auto found = keys.constFind(type);
    return found != keys.cend() ? found.value() : common;
}

QVariant text(const char* bytes)
{
    return QString::fromUtf8(bytes);
}

/// Values of all types, with pairs of different type that count as equal, and some that nearly do.
const std::vector<QVariant>& allValues()
{
    static const std::vector<QVariant> values = {0,
                                                 1,
                                                 2,
                                                 5,
                                                 -1,
                                                 3,
                                                 22,
                                                 100,
                                                 -7,
                                                 true,
                                                 false,
                                                 0.0,
                                                 1.0,
                                                 2.0,
                                                 5.0,
                                                 0.3,
                                                 0.1 + 0.2,
                                                 0.30001,
                                                 0.5,
                                                 -1.5,
                                                 2.55,
                                                 12.7,
                                                 -0.5,
                                                 1e-13,
                                                 text("5"),
                                                 text(""),
                                                 text("0"),
                                                 text("1"),
                                                 text("true"),
                                                 text("false"),
                                                 text("0.3"),
                                                 text("5.0"),
                                                 text("abc"),
                                                 text("2"),
                                                 text("white"),
                                                 text("#ffffff"),
                                                 text("#ff0000"),
                                                 text("Tahoma"),
                                                 text("Original Ratio"),
                                                 QColor(Qt::white),
                                                 QColor(Qt::red),
                                                 QColor(1, 2, 3, 4),
                                                 QFont(QStringLiteral("Tahoma"), -1, -1, false),
                                                 QFont(QStringLiteral("DejaVu Sans"), 9),
                                                 QVariantMap{{QStringLiteral("a"), 5}},
                                                 QVariantMap{{QStringLiteral("a"), text("5")}},
                                                 QVariantMap(),
                                                 QVariant(),
                                                 text("Blur|true|Sharpen|false|Mirror|true|Sepia|false"),
                                                 text("Sepia|true|Mirror|true|Blur|false|Sharpen|true"),
                                                 text("Sepia|true|Nobody|true|Blur|false|Sharpen|true"),
                                                 text("Blur|true|Blur")};
    return values;
}

/// The values that make sense under a key.
const std::vector<QVariant>& valuesOf(const QString& key)
{
    static const std::vector<QVariant> truths = {true, false, 1, 0, text("true"), text("")};
    static const std::vector<QVariant> places = {0,   49,  30,  10, 60,  12, 100,        150,
                                                 200, -20, 290, 40, -60, 31, text("45"), 17.5};
    static const std::vector<QVariant> sizes = {0, 20, 50, 0, 100, 10, 320, 160, 240, -5, text("40"), 33.3};
    static const std::vector<QVariant> frames = {160, 120, 320, 90, 240, 64, 0, -40, 200, text("100"), 70000};
    static const std::vector<QVariant> counts = {1, 2, 3, QVariant(), 0, 5, 10, text("2"), -1, 100};
    static const std::vector<QVariant> factors = {0.5, 0.1, 0.25, 0.8, 0.3, 1, 0, text("0.5"), text("none"), 0.9};
    static const std::vector<QVariant> contents = {text("Hi"), text("A longer line"), text(""), text("two\nlines"), 7};
    static const std::vector<QVariant> styles = {text("Regular"),     text("Bold"),    text("Italic"),
                                                 text("Bold Italic"), text("regular"), text("bold")};
    static const std::vector<QVariant> fonts = {QFont(QStringLiteral("Tahoma"), -1, -1, false),
                                                QFont(QStringLiteral("DejaVu Sans"), 9),
                                                text("Tahoma"),
                                                text("DejaVu Sans"),
                                                5,
                                                QVariant()};
    static const std::vector<QVariant> colors = {QColor(Qt::white), QColor(Qt::red), text("white"), text("#ffffff"), 5,
                                                 QVariant()};
    static const std::vector<QVariant> fontSizes = {22, 49, 8, 12, 20, 0, -3, text("9")};
    static const std::vector<QVariant> ratios = {text("Original Ratio"), text("Original"), text("16:9")};
    static const std::vector<QVariant> shades = {0, 5, -7, text("5"), 0.3, text("")};
    static const std::vector<QVariant> paths = {picture("small.png"), picture("missing.png"), picture("corrupt.bmp"),
                                                picture("wide.bmp"), text("")};
    static const std::vector<QVariant> formats = {text(""), text("BMP"), text("none"), text("bmp")};
    static const std::vector<QVariant> summaries(allValues().end() - 4, allValues().end());

    static const QHash<QString, const std::vector<QVariant>*> values = [] {
        QHash<QString, const std::vector<QVariant>*> table;
        const auto enter = [&table](const char* keys, const std::vector<QVariant>& list) {
            const QStringList entries = words(keys);
            for (const QString& entry : entries)
                table.insert(entry, &list);
        };
        enter("_checkstate wm_istextwatermark wm_ingnore sub_fromfile audio_isfile "
              "play_loop _playmeineffect "
              "fontstyleusedefault dvdsubtitleposeditbyuser crop_keepaspectratio "
              "player_map_flag crop_rotation_angle "
              "crop_rotation_action audio_effect_flag audio_fade_in_enable "
              "audio_fade_out_enable wm_imagekeepratio "
              "editbydefault",
              truths);
        enter("wm_hposition wm_vposition sub_vposition crop_left crop_top", places);
        enter("wm_imagewidth wm_imageheight crop_width crop_height", sizes);
        enter("w h", frames);
        enter("trackid id audio_speed_factor audio_fade_in sub_linemargin "
              "wm_transparency sub_transparency",
              counts);
        enter("wm_hposfactor wm_vposfactor sub_vposfactor wm_transfactor", factors);
        enter("wm_textcontent", contents);
        enter("wm_fontstyle sub_fontstyle", styles);
        enter("wm_fontname sub_fontname", fonts);
        enter("wm_fontcolor sub_fontcolor sub_framecolor tint", colors);
        enter("wm_fontsize sub_fontsize", fontSizes);
        enter("crop_aspectratio", ratios);
        enter("bcs_brightness bcs_contrast bcs_saturation", shades);
        enter("wm_imageurl", paths);
        enter("wm_imageformat", formats);
        enter("Effect", summaries);
        return table;
    }();
    const auto found = values.constFind(key);
    return found != values.cend() ? *found.value() : allValues();
}

/// A font under these keys would be read as text, and fonts tell themselves differently on the two Qts.
bool readAsText(const QString& key)
{
    return key == QStringLiteral("wm_textcontent") || key == QStringLiteral("wm_imageurl")
           || key == QStringLiteral("wm_imageformat");
}

/// Keeps all seven signals of a model.
void listen(const ZoEffectModel& model, std::vector<reference::Signal>& heard)
{
    const auto keep = [&heard](int index, const QString& text) -> reference::Signal& {
        reference::Signal signal;
        signal.index = index;
        signal.text = text;
        heard.push_back(signal);
        return heard.back();
    };
    using Model = ZoEffectModel;
    QObject::connect(&model,
                     QOverload<const QString&, const QString&, const QVariant&, int>::of(&Model::effectDataChanged),
                     &model, [keep](const QString& type, const QString& key, const QVariant& val, int pos) {
                         reference::Signal& signal = keep(0, type);
                         signal.text2 = key;
                         signal.value = val;
                         signal.number = pos;
                     });
    QObject::connect(&model, &Model::currentItemChanged, &model, [keep](const QString& type) { keep(1, type); });
    QObject::connect(&model, &Model::currentSubItemChanged, &model,
                     [keep](const QString& type, int index) { keep(2, type).number = index; });
    QObject::connect(&model, &Model::applyItemDataTo, &model,
                     [keep](ZoEffectItemData* item, const QString& type, int pos, int applyto) {
                         reference::Signal& signal = keep(3, type);
                         signal.node = item;
                         signal.number = pos;
                         signal.number2 = applyto;
                     });
    QObject::connect(&model, &Model::applyItemDataSomePropertyTo, &model,
                     [keep](const Properties& props, const QString& type, int pos, int appto) {
                         reference::Signal& signal = keep(4, type);
                         signal.value = props;
                         signal.number = pos;
                         signal.number2 = appto;
                     });
    QObject::connect(&model, &Model::effectDataAboutChange, &model, [keep](const QString& type) { keep(5, type); });
    QObject::connect(&model, QOverload<const QString&>::of(&Model::effectDataChanged), &model,
                     [keep](const QString& type) { keep(6, type); });
}

QString told(const std::vector<reference::Signal>& signals_)
{
    QStringList texts;
    for (const reference::Signal& signal : signals_)
        texts << QStringLiteral("signal %1 (\"%2\", \"%3\", %4, %5, %6)")
                     .arg(signal.index)
                     .arg(signal.text, signal.text2, Stage::shown(signal.value))
                     .arg(signal.number)
                     .arg(signal.number2);
    return texts.isEmpty() ? QStringLiteral("none") : texts.join(QStringLiteral("; "));
}

void collect(Node* node, std::vector<Node*>& nodes)
{
    nodes.push_back(node);
    for (const NodePtr& child : node->children) {
        if (child)
            collect(child.get(), nodes);
    }
}

bool holds(const Node* tree, const Node* node)
{
    if (tree == node)
        return true;
    for (const NodePtr& child : tree->children) {
        if (child && holds(child.get(), node))
            return true;
    }
    return false;
}

/// "root/Watermark[1]", the way to a node.
QString wayTo(const Node* tree, const Node* node, const QString& way)
{
    if (tree == node)
        return way;
    for (int row = 0; row < tree->count(); ++row) {
        const Node* child = tree->child(row);
        QString found = child ? wayTo(child, node, way + QStringLiteral("->child(%1)").arg(row)) : QString();
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
    return QLatin1Char('{') + texts.join(QStringLiteral(", ")) + QLatin1Char('}');
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

Stage::Stage(bool describing) : m_describing(describing)
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
        m_calls << QStringLiteral("m0 = ZoEffectModel({%1})").arg(mainTypes().join(QStringLiteral(", ")));
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
    m_calls << receiver + QStringLiteral(".") + QString::fromUtf8(function) + QLatin1Char('(')
                   + arguments.join(QStringLiteral(", ")) + QLatin1Char(')');
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
        return present ? present->name : QStringLiteral("effect root");
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
    if (type == QStringLiteral("Watermark") && (kind == 1 || kind == 3)) {
        props.insert(QStringLiteral("wm_istextwatermark"), true);
        props.insert(QStringLiteral("wm_ingnore"), kind == 3);
        props.insert(QStringLiteral("wm_textcontent"), QStringLiteral("Hi"));
    } else if (type == QStringLiteral("Watermark") && kind == 2) {
        props.insert(QStringLiteral("wm_imageurl"), picture("small.png"));
        props.insert(QStringLiteral("wm_imagewidth"), 60);
        props.insert(QStringLiteral("wm_imageheight"), 40);
    } else if (type == QStringLiteral("Subtitle") && kind != 0) {
        props.insert(QStringLiteral("sub_fromfile"), kind == 1);
    } else if (type == QStringLiteral("Audio_Speed") && kind != 0) {
        props.insert(QStringLiteral("audio_effect_flag"), true);
        props.insert(QStringLiteral("audio_speed_factor"), kind == 1 ? 10 : 100);
    } else if (type == QStringLiteral("Audio") && kind != 0) {
        props.insert(QStringLiteral("audio_isfile"), kind == 1);
        props.insert(QStringLiteral("trackid"), kind);
    }
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
    static const QStringList names = {QStringLiteral("item"), QStringLiteral("Watermark"), QString(),
                                      QStringLiteral("Blur"), QStringLiteral("Audio"),     QStringLiteral("Bare")};
    return names.at(below(static_cast<int>(names.size())));
}

QString Stage::imagePath()
{
    return valuesOf(QStringLiteral("wm_imageurl"))[static_cast<size_t>(below(5))].toString();
}

QString Stage::imageFormat()
{
    return valuesOf(QStringLiteral("wm_imageformat"))[static_cast<size_t>(below(4))].toString();
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
    pair->name = QStringLiteral("m%1").arg(m_names++);
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
    m_freeNodes.push_back({QStringLiteral("n%1").arg(m_names++), real, told, true});
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
    throw Difference{QStringLiteral("%1\n      library:   %2\n      reference: %3").arg(what, library, told)};
}

void Stage::same(const QVariant& library, const QVariant& told)
{
    if (!reference::identical(library, told))
        differ(QStringLiteral("result"), shown(library), shown(told));
    m_tookEffect = m_tookEffect || told.isValid();
}

void Stage::sameNode(const ZoEffectItemData* library, const Node* told)
{
    if (library != (told ? told->twin : nullptr))
        differ(QStringLiteral("node"), library ? shown(library->name()) : QStringLiteral("nullptr"), shown(told));
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
        differ(pair.name + QStringLiteral(".root"), QStringLiteral("nullptr"), QStringLiteral("a node"));
    compareTree(root, pair.told->root.get());
    if (real.baseSize() != pair.told->baseSize())
        differ(pair.name + QStringLiteral(".baseSize()"), shown(real.baseSize()), shown(pair.told->baseSize()));
    if (real.editByUser() != pair.told->editedByUser)
        differ(pair.name + QStringLiteral(".editByUser()"), shown(real.editByUser()), shown(pair.told->editedByUser));
    if (static_cast<const QObject&>(real).parent() != pair.parent)
        differ(pair.name + QStringLiteral(".parent()"), QStringLiteral("another"), QStringLiteral("the given one"));
}

void Stage::compareTree(const ZoEffectItemData* real, Node* told) const
{
    const auto at = [this, told](const char* what) { return shown(told) + QLatin1Char(' ') + QString::fromUtf8(what); };
    if (!told->twin)
        told->twin = const_cast<ZoEffectItemData*>(real);
    if (told->twin != real)
        differ(at("node"), QStringLiteral("another node"), QStringLiteral("the same node as before"));
    if (real->name() != told->name)
        differ(at("name"), shown(real->name()), shown(told->name));
    if (real->objectName() != told->objectName)
        differ(at("objectName"), shown(real->objectName()), shown(told->objectName));
    if (real->checkState() != told->checkState)
        differ(at("checkState"), shown(real->checkState()), shown(told->checkState));
    if (real->internalData() != told->internalData)
        differ(at("internalData"), shown(real->internalData()), shown(told->internalData));
    if (!told->parentGone()) {
        const NodePtr parent = told->parent.lock();
        if (real->parent() != (parent ? parent->twin : nullptr))
            differ(at("parent"), QStringLiteral("another"), parent ? shown(parent.get()) : QStringLiteral("nullptr"));
    }

    compareProperties(real, told);

    if (real->childCount() != told->count())
        differ(at("childCount"), shown(real->childCount()), shown(told->count()));
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
        return it != end ? it.key() + QStringLiteral(" = ") + shown(it.value()) : QStringLiteral("end");
    };
    if (left != properties.cend() || right != told->properties.cend())
        differ(shown(told) + QStringLiteral(" properties"), entry(left, properties.cend()),
               entry(right, told->properties.cend()));
}

void Stage::compareSignals(ModelPair& pair) const
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
        differ(QStringLiteral("signals of ") + pair.name, ::told(pair.heard), ::told(sent));
    if (!sent.empty())
        reference::writes++; // It took effect.
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
        differ(QStringLiteral("log"), numbers(logged), numbers(m_world.log));
    m_tookEffect = m_tookEffect || !logged.empty();
    m_world.log.clear();
}

void Stage::compareStore()
{
    if (ZoEffectItemDefaultValMgr::s_supportTypes != m_world.supportTypes)
        differ(QStringLiteral("supportTypes"), shown(ZoEffectItemDefaultValMgr::s_supportTypes),
               shown(m_world.supportTypes));
    MemoryPref& store = TestApplication::instance()->pref;
    const QStringList written = store.takeWrites();
    if (written.isEmpty() && m_world.preferenceWrites.isEmpty())
        return;
    QStringList expected;
    for (const QString& key : std::as_const(m_world.preferenceWrites))
        expected << QStringLiteral("%1 = %2, notify false").arg(key, described(m_world.preferences.value(key)));
    if (written != expected)
        differ(QStringLiteral("writes to the preference store"), shown(written), shown(expected));
    if (!reference::identical(QVariant(store.entries), QVariant(m_world.preferences)))
        differ(QStringLiteral("preference store"), shown(store.entries), shown(m_world.preferences));
    m_world.preferenceWrites.clear();
    m_tookEffect = true;
}

// --- Texts ------------------------------------------------------------------------------------------------

QString Stage::shown(const Node* node) const
{
    if (!node)
        return QStringLiteral("nullptr");
    for (const auto& pair : m_models) {
        const QString way = wayTo(pair->told->root.get(), node, pair->name + QStringLiteral(".root"));
        if (!way.isEmpty())
            return way + QStringLiteral("[%1]").arg(node->name);
    }
    for (const FreeNode& free : m_freeNodes) {
        const QString way = wayTo(free.told.get(), node, free.name);
        if (!way.isEmpty())
            return way + QStringLiteral("[%1]").arg(node->name);
    }
    return QStringLiteral("a node [%1]").arg(node->name);
}

QString Stage::shown(const QStringList& texts)
{
    QStringList quoted;
    for (const QString& entry : texts)
        quoted << shown(entry);
    return QLatin1Char('{') + quoted.join(QStringLiteral(", ")) + QLatin1Char('}');
}

QString Stage::shown(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
        return QStringLiteral("QVariant()");
    case QMetaType::Bool:
        return shown(value.toBool());
    case QMetaType::Int:
        return QString::number(value.toInt());
    case QMetaType::Double: {
        const QString digits = QString::number(value.toDouble(), 'g', 17);
        return digits.contains(QLatin1Char('.')) ? digits : digits + QStringLiteral(".0");
    }
    case QMetaType::QString:
        return shown(value.toString());
    case QMetaType::QColor:
        return QStringLiteral("QColor(\"%1\")").arg(value.value<QColor>().name(QColor::HexArgb));
    case QMetaType::QFont:
        return QStringLiteral("QFont(\"%1\", %2)")
            .arg(value.value<QFont>().family())
            .arg(value.value<QFont>().pointSize());
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
        entries << QStringLiteral("{\"%1\", %2}").arg(it.key(), shown(it.value()));
    return QLatin1Char('{') + entries.join(QStringLiteral(", ")) + QLatin1Char('}');
}
