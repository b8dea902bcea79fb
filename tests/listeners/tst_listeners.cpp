// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Listeners that bite: on every signal, in the middle of every operation that sends one, a listener changes what the
// operation works on. Each bite is tried in each operation; afterwards the tree must be what the operation and the
// bite give one after the other, and nothing freed may be touched (which the sanitizers watch).

#include <functional>
#include <memory>

#include <QPointer>
#include <QSet>
#include <QVector>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Node = ZoEffectItemData;
using Properties = QMap<QString, QVariant>;

// --- The trees ---------------------------------------------------------------------------------------------------

void append(const ZoEffectModel& model, const QString& type, const Properties& properties)
{
    auto* item = new Node(QString(), model.getDataItem(type, -1));
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
}

/// The file at work: three text watermarks w0 to w2 and ten subtitles from files, s0 to s9, on 640 x 480; and a
/// second file with two of each on 320 x 240, its subtitles embedded.
struct Scene {
    Scene()
    {
        model.setVideoSize(640, 480);
        for (int i = 0; i < 3; ++i) {
            append(model, "Watermark",
                   {{"id", QString("w%1").arg(i)},
                    {"wm_istextwatermark", true},
                    {"wm_textcontent", QString("text").repeated(i + 1)},
                    {"wm_fontsize", 12},
                    {"wm_hposition", 20 * i},
                    {"wm_vposition", 100 * i}});
        }
        for (int i = 0; i < 10; ++i) {
            append(
                model, "Subtitle",
                {{"id", QString("s%1").arg(i)}, {"sub_fromfile", true}, {"sub_fontsize", 20}, {"sub_linemargin", 3}});
        }
        other.setVideoSize(320, 240);
        for (int i = 0; i < 2; ++i) {
            append(other, "Watermark", {{"id", QString("other w%1").arg(i)}, {"wm_hposition", 16}});
            append(other, "Subtitle", {{"id", QString("other s%1").arg(i)}, {"sub_fontsize", 30}});
        }
        ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Subtitle", {{"sub_transparency", 5}});
    }

    ZoEffectModel model{QStringList{"Watermark", "Subtitle", "Color", "Effect"}};
    ZoEffectModel other{QStringList{"Watermark", "Subtitle", "Color", "Effect"}};
    QVector<QPointer<Node>> painted; ///< Items of a picture, as its drawing found them.
    QSize measured;                  ///< Of the item that is being drawn.
};

QString dumped(const Node& node)
{
    QStringList children;
    for (int row = 0; row < node.childCount(); ++row)
        children << (node.child(row) ? dumped(*node.child(row)) : QString("null"));
    return QString("%1 %2 %3\n(%4)")
        .arg(node.name(), QString::number(node.checkState()), described(node.properties()), children.join(", "));
}

QString dumped(const ZoEffectModel& model)
{
    return dumped(*model.getDataItem("effect root", -1));
}

QString customDefaults()
{
    const ZoEffectItemDefaultValMgr* manager = ZoEffectItemDefaultValMgr::getInstance();
    return described(manager->getCustomDefaultVal("Watermark")) + described(manager->getCustomDefaultVal("Subtitle"));
}

/// What is wrong with the tree; empty when each node stands in it once and knows its parent.
QString damage(const ZoEffectModel& model)
{
    QSet<const Node*> seen;
    QVector<const Node*> pending{model.getDataItem("effect root", -1)};
    if (pending.first()->parent())
        return "the root has a parent";
    while (!pending.isEmpty()) {
        const Node* node = pending.takeLast();
        for (int row = 0; row < node->childCount(); ++row) {
            const Node* child = node->child(row);
            if (!child || seen.contains(child) || child->parent() != node || child->childNumber() != row)
                return QString("child %1 of %2").arg(row).arg(node->name());
            seen.insert(child);
            pending.append(child);
        }
    }
    return QString();
}

// --- The listener ------------------------------------------------------------------------------------------------

/// Calls \a bite at the emission of number \a first, counted from 0 over all seven signals, and at those after it,
/// \a times in all.
class Biter : public QObject {
    Q_OBJECT

public:
    Biter(const ZoEffectModel& model, int first, int times, std::function<void()> bite)
        : m_first(first), m_times(times), m_bite(std::move(bite))
    {
        connect(&model,
                QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
                this, [this] { heard(); });
        connect(&model, QOverload<const QString&>::of(&ZoEffectModel::effectDataChanged), this, [this] { heard(); });
        connect(&model, &ZoEffectModel::currentItemChanged, this, [this] { heard(); });
        connect(&model, &ZoEffectModel::currentSubItemChanged, this, [this] { heard(); });
        connect(&model, &ZoEffectModel::applyItemDataTo, this, [this] { heard(); });
        connect(&model, &ZoEffectModel::applyItemDataSomePropertyTo, this, [this] { heard(); });
        connect(&model, &ZoEffectModel::effectDataAboutChange, this, [this] { heard(); });
    }

    int bites() const { return m_bites; }

private:
    void heard()
    {
        if (m_emissions++ >= m_first && m_bites < m_times) {
            ++m_bites;
            m_bite();
        }
    }

    int m_first;
    int m_times;
    int m_emissions = 0;
    int m_bites = 0;
    std::function<void()> m_bite;
};

// --- The operations ----------------------------------------------------------------------------------------------

QString text(bool result)
{
    return result ? "true" : "false";
}

QString text(const QPixmap& picture)
{
    return picture.isNull() ? QString("null") : QString("%1 x %2").arg(picture.width()).arg(picture.height());
}

/// A call, and its result as text.
struct Run {
    template <typename Call>
    Run(Call made)
        : call([made](Scene& scene) -> QString {
            if constexpr (!std::is_void_v<decltype(made(scene))>)
                return text(made(scene));
            made(scene);
            return {};
        })
    {
    }

    QString operator()(Scene& scene) const { return call(scene); }

    std::function<QString(Scene&)> call;
};

struct Operation {
    const char* name;
    const char* type; ///< Of the item that the bites go for.
    int row;          ///< Of that item.
    int emission;     ///< The one that is bitten at.
    const char* result;
    const char* announced; ///< What the second listener hears then, unharmed.
    int count;             ///< Items of the type after the operation...
    int countAgain;        ///< ...and after two of it.
    Run run;
    /// What the operation has done when the bite comes and what is left to do afterwards, by hand. Without these it
    /// is done then.
    std::function<void(Scene&)> before{};
    std::function<void(Scene&)> after{};
};

/// The size that a watermark's text is drawn with, from a picture of it alone.
QSize sizeOfText(const Node& item)
{
    ZoEffectModel model(QString("Watermark"), {});
    model.setVideoSize(640, 480);
    auto* alone = new Node(QString(), model.getDataItem("Watermark", -1));
    alone->assign(item);
    alone->setData("wm_hposition", 0);
    alone->setData("wm_vposition", 0);
    model.getWatermark(640, 480, false);
    return {alone->data(QString("wm_imagewidth")).toInt(), alone->data(QString("wm_imageheight")).toInt()};
}

bool stillShown(const ZoEffectModel& model, const Node* item)
{
    const Node* typeNode = model.getDataItem("Watermark", -1);
    for (int row = 0; item && typeNode && row < typeNode->childCount(); ++row) {
        if (typeNode->child(row) == item)
            return true;
    }
    return false;
}

/// Stores measured sizes, the way a picture does, the last watermark first.
void paintByHand(Scene& scene, int fromRow, int toRow)
{
    for (int row = fromRow; row >= toRow; --row) {
        Node* item = scene.painted.at(row);
        if (!stillShown(scene.model, item) || item->checkState() != 2)
            continue;
        if (!item->data(QString("wm_istextwatermark")).toBool()) {
            scene.model.getImage(QString(), nullptr); // An image without a file: logged.
            continue;
        }
        if (item->data(QString("wm_textcontent")).toString().isEmpty())
            continue;
        const QSize size = sizeOfText(*item);
        item->setData("wm_imagewidth", size.width());
        item->setData("wm_imageheight", size.height());
    }
}

void startPicture(Scene& scene)
{
    for (int row = 0; row < 3; ++row)
        scene.painted << scene.model.getDataItem("Watermark", row);
}

/// Gives subtitle \a row a font size made for \a oldHeight, and the line margin.
void styleByHand(const ZoEffectModel& model, int row, int oldHeight)
{
    Node* item = model.getDataItem("Subtitle", row);
    if (!item || !item->data(QString("sub_fromfile")).toBool())
        return;
    item->setData("sub_fontsize", 20 * model.baseSize().height() / oldHeight);
    item->setData("sub_linemargin", 3);
}

/// The subtitles that are reached are 0 and 8.
void styleTheSecond(Scene& scene, int oldHeight)
{
    if (!scene.painted.at(0) || scene.model.getDataItem("Subtitle", 8) != scene.painted.at(0))
        styleByHand(scene.model, 8, oldHeight);
}

/// The signal's node may be gone for later listeners.
bool handsOutNode(const Operation& operation)
{
    return QString(operation.name).startsWith("applyDataTo");
}

const QVector<Operation>& operations()
{
    const Properties style{{"h", 240}, {"sub_fontsize", 20}, {"sub_linemargin", 3}};
    static const Properties fresh{{"id", "new"}};
    const auto picture = [](Scene& s) { return s.model.getWatermark(640, 480, false); };
    const auto spread = [style](Scene& s) { s.model.replaceItemDataProperty("Subtitle", style); };
    const auto apply = [](Scene& s) { s.model.applySomePropertytoOther("Subtitle", 0, 7); };
    const auto firstStyled = [](int oldHeight) {
        return [oldHeight](Scene& s) {
            s.painted << s.model.getDataItem("Subtitle", 0);
            styleByHand(s.model, 0, oldHeight);
        };
    };
    const auto secondStyled = [](int oldHeight) { return [oldHeight](Scene& s) { styleTheSecond(s, oldHeight); }; };

    static const QVector<Operation> all = {
        {"setData", "Watermark", 1, 0, "true", "effectDataChanged(Watermark, wm_fontsize, int 40, 1)", 3, 3,
         [](Scene& s) { return s.model.setData("wm_fontsize", 40, "Watermark", 1); }},
        {"setData of the check state", "Watermark", 1, 0, "true",
         "effectDataChanged(Watermark, _checkstate, string false, 1)", 3, 3,
         [](Scene& s) { return s.model.setData("_checkstate", "false", "Watermark", 1); }},
        {"setData of a subtitle's place", "Subtitle", 1, 0, "true",
         "effectDataChanged(Subtitle, sub_vposition, double 7.5, 1)", 10, 10,
         [](Scene& s) { return s.model.setData("sub_vposition", 7.5, "Subtitle", 1); }},
        {"setData of the type", "Watermark", 1, 0, "true", "effectDataChanged(Watermark, note, map {a: string b}, -1)",
         3, 3,
         [](Scene& s) {
             return s.model.setData("note", Properties{{"a", "b"}}, "Watermark", -1);
         }},
        {"insertDataItem", "Watermark", 1, 0, "true", "effectDataChanged(Watermark, item_add, invalid, 1)", 4, 5,
         [](Scene& s) { return s.model.insertDataItem("Watermark", fresh, 1); }},
        {"insertDataItem beyond the end", "Watermark", 3, 0, "true",
         "effectDataChanged(Watermark, item_add, invalid, 9)", 4, 5,
         [](Scene& s) { return s.model.insertDataItem("Watermark", fresh, 9); }},
        {"addDataItem", "Subtitle", 10, 0, "true", "effectDataChanged(Subtitle, item_add, invalid, 10)", 11, 12,
         [](Scene& s) { return s.model.addDataItem("Subtitle", fresh); }},
        {"addDataItemEx", "Watermark", 3, 0, "true", "effectDataChanged(Watermark, item_add, invalid, 3)", 4, 5,
         [](Scene& s) {
             return s.model.addDataItemEx("Watermark", {{"_checkstate", false}}, true);
         }},
        {"delDataItem", "Watermark", 1, 0, "true", "effectDataChanged(Watermark, item_delete, invalid, 1)", 2, 1,
         [](Scene& s) { return s.model.delDataItem("Watermark", 1); }},
        {"changeDataItemPos", "Watermark", 0, 0, "true", "effectDataChanged(Watermark, item_move, int 0, -1)", 3, 3,
         [](Scene& s) { return s.model.changeDataItemPos("Watermark", 0, 2); }},
        {"changeDataItemPos that moves nothing", "Watermark", 1, 0, "false",
         "effectDataChanged(Watermark, item_move, int 1, -1)", 3, 3,
         [](Scene& s) { return s.model.changeDataItemPos("Watermark", 1, 1); }},
        {"replaceData by properties", "Watermark", 1, 0, "true", "effectDataChanged(Watermark, reset, invalid, 1)", 3,
         3,
         [](Scene& s) {
             return s.model.replaceData("Watermark", 1, Properties{{"id", "replaced"}});
         }},
        {"replaceData by a node", "Subtitle", 2, 0, "", "effectDataChanged(Subtitle, reset, invalid, 2)", 10, 10,
         [](Scene& s) { s.model.replaceData("Subtitle", 2, s.other.getDataItem("Subtitle", 1)); }},
        {"replaceData of the type", "Watermark", 1, 0, "", "effectDataChanged(Watermark, reset, invalid, -1)", 2, 2,
         [](Scene& s) { s.model.replaceData("Watermark", -1, s.other.getDataItem("Watermark", -1)); }},
        {"resetDataItem", "Effect", 1, 0, "true", "effectDataChanged(Effect, reset, invalid, 4)", 4, 4,
         [](Scene& s) { return s.model.resetDataItem("Effect", 4); }},
        {"replaceItemDataProperty, first track", "Subtitle", 0, 0, "", "effectDataChanged(Subtitle, reset, invalid, 7)",
         10, 10, spread, firstStyled(240), secondStyled(240)},
        {"replaceItemDataProperty, second track", "Subtitle", 8, 1, "",
         "effectDataChanged(Subtitle, reset, invalid, 7)", 10, 10, spread},
        {"getWatermark, first width", "Watermark", 2, 0, "640 x 480", "effectDataChanged(Watermark, wm_imagewidth, ", 3,
         3, picture,
         [](Scene& s) {
             startPicture(s);
             s.measured = sizeOfText(*s.painted.at(2));
             s.painted.at(2)->setData("wm_imagewidth", s.measured.width());
         },
         [](Scene& s) {
             if (stillShown(s.model, s.painted.at(2)))
                 s.painted.at(2)->setData("wm_imageheight", s.measured.height());
             paintByHand(s, 1, 0);
         }},
        {"getWatermark, first height", "Watermark", 2, 1, "640 x 480", "effectDataChanged(Watermark, wm_imageheight, ",
         3, 3, picture,
         [](Scene& s) {
             startPicture(s);
             paintByHand(s, 2, 2);
         },
         [](Scene& s) { paintByHand(s, 1, 0); }},
        {"getWatermark, second height", "Watermark", 0, 3, "640 x 480", "effectDataChanged(Watermark, wm_imageheight, ",
         3, 3, picture,
         [](Scene& s) {
             startPicture(s);
             paintByHand(s, 2, 1);
         },
         [](Scene& s) { paintByHand(s, 0, 0); }},
        {"getWatermark, last height", "Watermark", 0, 5, "640 x 480", "effectDataChanged(Watermark, wm_imageheight, ",
         3, 3, picture},
        {"setCurrentItem", "Watermark", 1, 0, "", "currentItemChanged(Watermark)", 3, 3,
         [](Scene& s) { s.model.setCurrentItem("Watermark"); }},
        {"setCurrentSubItem", "Watermark", 1, 0, "", "currentSubItemChanged(Watermark, 1)", 3, 3,
         [](Scene& s) { s.model.setCurrentSubItem("Watermark", 1); }},
        {"beginChange", "Subtitle", 4, 0, "", "effectDataAboutChange(Subtitle)", 10, 10,
         [](Scene& s) { s.model.beginChange("Subtitle"); }},
        {"endChanged", "Effect", 3, 0, "", "effectDataChanged(Effect)", 4, 4,
         [](Scene& s) { s.model.endChanged("Effect"); }},
        {"applyDataTo", "Watermark", 1, 0, "", "applyItemDataTo(node , Watermark, 1, 7)", 3, 3,
         [](Scene& s) { s.model.applyDataTo("Watermark", 1, 7); }},
        {"applyDataTo of the type", "Watermark", 1, 0, "", "applyItemDataTo(node Watermark, Watermark, -1, 7)", 3, 3,
         [](Scene& s) { s.model.applyDataTo("Watermark", -1, 7); }},
        {"applySomePropertytoOther, first track", "Subtitle", 0, 0, "",
         "effectDataChanged(Subtitle, reset, invalid, 7)", 10, 10, apply, firstStyled(480), secondStyled(480)},
        {"applySomePropertytoOther, style", "Subtitle", 0, 2, "",
         "applyItemDataSomePropertyTo({h: int 480, sub_fontsize: int 20, sub_linemargin: int 3}, Subtitle, -1, 7)", 10,
         10, apply},
    };
    return all;
}

// --- The bites ---------------------------------------------------------------------------------------------------

struct Bite {
    const Operation& operation;
    QString type;
    int row;
    Biter* biter;
    SignalRecorder* next;
    std::unique_ptr<SignalRecorder> late; ///< Connected by a bite.
};

struct Behaviour {
    const char* name;
    int times; ///< Further bites come with the signals that a bite itself causes.
    std::function<void(Scene&, Bite&)> bite;
    /// The number of items of the type afterwards, from the number before it and the row that it goes for.
    std::function<int(int count, int row)> count = [](int before, int) { return before; };
};

int none(int /*count*/, int /*row*/)
{
    return 0;
}

int oneMore(int count, int /*row*/)
{
    return count + 1;
}

int oneLess(int count, int row)
{
    return row < count ? count - 1 : count;
}

int oneLessIfAny(int count, int /*row*/)
{
    return qMax(0, count - 1);
}

void askEverything(const ZoEffectModel& model, const QString& type, int row)
{
    for (const char* key : {"_checkstate", "sub_vposition", "wm_hposition", "wm_fontsize", "trackid"}) {
        model.data(key, type, row);
        ZoEffectModel::defaultValue(key, type);
        model.SingleDataIsDefault(type, key, row);
    }
    model.dataIsDefault(type);
    model.FrameEffectIsDefault();
    model.hasRealEffect();
    model.getCurrentFrameEffects();
    model.getSelectItem(type);
    model.getEmbededSutitleID();
    model.getEmbededAudioID();
    model.useCustomSubtitle();
    model.useEmbededSubtitle();
    model.useCustomAudio();
    model.useEmbededAudio();
    model.getValidAudioEffectItem();
    model.getItemIndexByKeyValue(type, "id", "w1");
    model.isCroped(0, 0);
    model.cropData();
}

const QVector<Behaviour>& behaviours()
{
    static const Properties bitten{{"id", "bite"}};
    static const QVector<Behaviour> all = {
        {"only listens", 1, [](Scene&, Bite&) {}},
        {"asks everything", 1, [](Scene& s, Bite& b) { askEverything(s.model, b.type, b.row); }},
        {"deletes the item", 1, [](Scene& s, Bite& b) { s.model.delDataItem(b.type, b.row); }, oneLess},
        {"deletes the first item", 1, [](Scene& s, Bite& b) { s.model.delDataItem(b.type, 0); }, oneLessIfAny},
        {"deletes the last item", 1,
         [](Scene& s, Bite& b) { s.model.delDataItem(b.type, s.model.childCount(b.type) - 1); }, oneLessIfAny},
        {"deletes all items", 1,
         [](Scene& s, Bite& b) {
             while (s.model.childCount(b.type) > 0)
                 s.model.delDataItem(b.type, 0);
         },
         none},
        {"deletes the type", 1,
         [](Scene& s, Bite& b) { s.model.delDataItem("effect root", s.model.getDataItem(b.type, -1)->childNumber()); },
         none},
        {"clears the root", 1, [](Scene& s, Bite&) { s.model.getDataItem("effect root", -1)->clear(); }, none},
        {"inserts an item before", 1, [](Scene& s, Bite& b) { s.model.insertDataItem(b.type, bitten, b.row); },
         oneMore},
        {"inserts an item after", 1, [](Scene& s, Bite& b) { s.model.insertDataItem(b.type, bitten, b.row + 1); },
         oneMore},
        {"adds items up to twenty", 20,
         [](Scene& s, Bite& b) {
             if (s.model.childCount(b.type) < 20)
                 s.model.addDataItem(b.type, {});
         },
         [](int, int) { return 20; }},
        {"moves the item to the end", 1,
         [](Scene& s, Bite& b) { s.model.changeDataItemPos(b.type, s.model.childCount(b.type) - 1, b.row); }},
        {"moves the item to the front", 1, [](Scene& s, Bite& b) { s.model.changeDataItemPos(b.type, 0, b.row); }},
        {"moves the item to place 8", 1, [](Scene& s, Bite& b) { s.model.changeDataItemPos(b.type, 8, b.row); }},
        {"resets the type", 1, [](Scene& s, Bite& b) { s.model.resetDataItem(b.type, -1); }, nullptr},
        {"resets all effects", 1, [](Scene& s, Bite&) { s.model.resetAllEffect(); }, nullptr},
        {"replaces the item by properties", 1, [](Scene& s, Bite& b) { s.model.replaceData(b.type, b.row, bitten); }},
        {"replaces the item by another file's", 1,
         [](Scene& s, Bite& b) { s.model.replaceData(b.type, b.row, s.other.getDataItem(b.type, 0)); }},
        {"replaces the item by its neighbour", 1,
         [](Scene& s, Bite& b) { s.model.replaceData(b.type, b.row, s.model.getDataItem(b.type, b.row - 1)); }},
        {"replaces the type by another file's", 1,
         [](Scene& s, Bite& b) { s.model.replaceData(b.type, -1, s.other.getDataItem(b.type, -1)); }, nullptr},
        {"spreads a style", 1,
         [](Scene& s, Bite&) {
             s.model.replaceItemDataProperty("Subtitle", {{"h", 480}, {"sub_fontsize", 9}});
         }},
        {"applies a subtitle's style", 1, [](Scene& s, Bite&) { s.model.applySomePropertytoOther("Subtitle", 8, 1); }},
        {"applies the item, three deep", 3, [](Scene& s, Bite& b) { s.model.applyDataTo(b.type, b.row, 1); }},
        {"calls the operation again", 1, [](Scene& s, Bite& b) { b.operation.run(s); }, nullptr},
        {"renders at the base size", 1, [](Scene& s, Bite&) { s.model.getWatermark(640, 480, false); }},
        {"renders at another size", 1, [](Scene& s, Bite&) { s.model.getWatermark(320, 100, true); }},
        {"sets the font size", 1,
         [](Scene& s, Bite& b) {
             s.model.setData("wm_fontsize", 17, b.type, b.row);
             s.model.setData("sub_fontsize", 17, b.type, b.row);
         }},
        {"sets another key", 1, [](Scene& s, Bite& b) { s.model.setData("note", "bite", b.type, b.row); }},
        {"sets the old values back", 1,
         [](Scene& s, Bite& b) {
             s.model.setData("wm_fontsize", 12, b.type, b.row);
             s.model.setData("_checkstate", true, b.type, b.row);
             s.model.setData("wm_imagewidth", 0, b.type, b.row);
             s.model.setData("wm_imageheight", 0, b.type, b.row);
         }},
        {"counts up, five deep", 5,
         [](Scene& s, Bite&) {
             s.model.setData("n", s.model.data("n", "effect root", -1).toInt() + 1, "effect root", -1);
         }},
        {"turns all items off", 1,
         [](Scene& s, Bite& b) {
             for (int row = 0; row < s.model.childCount(b.type); ++row)
                 s.model.setData("_checkstate", 0, b.type, row);
         }},
        {"disconnects itself", 1, [](Scene& s, Bite& b) { QObject::disconnect(&s.model, nullptr, b.biter, nullptr); }},
        {"disconnects the next listener", 1,
         [](Scene& s, Bite& b) { QObject::disconnect(&s.model, nullptr, b.next, nullptr); }},
        {"disconnects everyone", 1, [](Scene& s, Bite&) { s.model.disconnect(); }},
        {"connects another listener", 1, [](Scene& s, Bite& b) { b.late = std::make_unique<SignalRecorder>(s.model); }},
        {"blocks the signals", 1, [](Scene& s, Bite&) { s.model.blockSignals(true); }},
        {"blocks and unblocks the signals", 1,
         [](Scene& s, Bite&) {
             s.model.blockSignals(true);
             s.model.setData("note", "unheard", "Color", -1);
             s.model.blockSignals(false);
         }},
        {"assigns another file's model", 1, [](Scene& s, Bite&) { s.model = s.other; }, nullptr},
        {"assigns the model to another", 1, [](Scene& s, Bite&) { s.other = s.model; }},
        {"copies the model", 1,
         [](Scene& s, Bite& b) {
             ZoEffectModel copy(s.model);
             copy.delDataItem(b.type, b.row);
             copy.getWatermark(640, 480, false);
         }},
        {"builds the types again", 1, [](Scene& s, Bite& b) { s.model.createItems({b.type}); }},
        {"clears the type's node", 1, [](Scene& s, Bite& b) { s.model.getDataItem(b.type, -1)->clear(); }, none},
        {"takes the item out and deletes it", 1,
         [](Scene& s, Bite& b) { delete s.model.getDataItem(b.type, -1)->takeAt(b.row); }, oneLess},
        {"removes the first two nodes", 1,
         [](Scene& s, Bite& b) { s.model.getDataItem(b.type, -1)->removeChildren(0, 2); },
         [](int count, int) { return count < 2 ? count : count - 2; }},
        {"saves the item as custom default", 1, [](Scene& s, Bite& b) { s.model.saveAsCustomDefault(b.type, b.row); }},
        {"removes the custom default", 1, [](Scene& s, Bite&) { s.model.removeCustomDefault("Subtitle"); }},
        {"lays the custom default over the item", 1,
         [](Scene& s, Bite& b) { s.model.getCustomDefaultVal(s.model.getDataItem(b.type, b.row), b.type, true); }},
        {"sets the video size", 1, [](Scene& s, Bite&) { s.model.setVideoSize(1280, 960); }},
        {"rescales", 1, [](Scene& s, Bite&) { s.model.adjustEffectInfo(1280, 960); }},
        {"places the item anew", 1,
         [](Scene& s, Bite& b) { s.model.adjustWatermarkPos(s.model.getDataItem(b.type, b.row)); }},
        {"selects by key", 1, [](Scene& s, Bite& b) { s.model.selectItemByKey(b.type, "id", "w1"); }},
        {"selects another type", 1, [](Scene& s, Bite&) { s.model.selectOnlyOneItem("Color"); }},
        {"fills the type", 1, [](Scene& s, Bite& b) { s.model.addDataItemEx(b.type, bitten, false); }},
        {"adds an item of a new type", 1, [](Scene& s, Bite&) { s.model.addDataItemEx("Crop", {}, true); }},
        {"announces items and brackets", 1,
         [](Scene& s, Bite& b) {
             s.model.beginChange(b.type);
             s.model.setCurrentItem(b.type);
             s.model.setCurrentSubItem(b.type, b.row);
             s.model.endChanged(b.type);
         }},
    };
    return all;
}

// --- Arguments that go away --------------------------------------------------------------------------------------

/// What a host hands over by reference.
struct Arguments {
    QString type;
    QString key{};
    QVariant value{};
    Properties properties{};
};

struct Call {
    const char* name;
    Arguments arguments;
    std::function<void(Scene&, const Arguments&)> run;
    QStringList announced;
};

const QVector<Call>& calls()
{
    const QString subtitleReset = "effectDataChanged(Subtitle, reset, invalid, 7)";
    static const QVector<Call> all = {
        {"setData",
         {"Watermark", "note", "a text"},
         [](Scene& s, const Arguments& a) { s.model.setData(a.key, a.value, a.type, 1); },
         {"effectDataChanged(Watermark, note, string a text, 1)"}},
        {"setData of the check state",
         {"Watermark", "_checkstate", "false"},
         [](Scene& s, const Arguments& a) { s.model.setData(a.key, a.value, a.type, 1); },
         {"effectDataChanged(Watermark, _checkstate, string false, 1)"}},
        {"insertDataItem",
         {"Watermark", {}, {}, {{"id", 1}}},
         [](Scene& s, const Arguments& a) { s.model.insertDataItem(a.type, a.properties, 1); },
         {"effectDataChanged(Watermark, item_add, invalid, 1)"}},
        {"addDataItem",
         {"Subtitle", {}, {}, {{"id", 1}}},
         [](Scene& s, const Arguments& a) { s.model.addDataItem(a.type, a.properties); },
         {"effectDataChanged(Subtitle, item_add, invalid, 10)"}},
        {"addDataItemEx",
         {"Crop", {}, {}, {{"id", 1}}},
         [](Scene& s, const Arguments& a) { s.model.addDataItemEx(a.type, a.properties, true); },
         {"effectDataChanged(Crop, item_add, invalid, 0)"}},
        {"delDataItem",
         {"Watermark"},
         [](Scene& s, const Arguments& a) { s.model.delDataItem(a.type, 2); },
         {"effectDataChanged(Watermark, item_delete, invalid, 2)"}},
        {"changeDataItemPos",
         {"Watermark"},
         [](Scene& s, const Arguments& a) { s.model.changeDataItemPos(a.type, 2, 0); },
         {"effectDataChanged(Watermark, item_move, int 2, -1)"}},
        {"replaceData by properties",
         {"Watermark", {}, {}, {{"id", 1}}},
         [](Scene& s, const Arguments& a) { s.model.replaceData(a.type, 0, a.properties); },
         {"effectDataChanged(Watermark, reset, invalid, 0)"}},
        {"replaceData by a node",
         {"Watermark"},
         [](Scene& s, const Arguments& a) { s.model.replaceData(a.type, 0, s.other.getDataItem("Watermark", 1)); },
         {"effectDataChanged(Watermark, reset, invalid, 0)"}},
        {"replaceItemDataProperty",
         {"Subtitle", {}, {}, {{"sub_fontsize", 9}}},
         [](Scene& s, const Arguments& a) { s.model.replaceItemDataProperty(a.type, a.properties); },
         {subtitleReset, subtitleReset}},
        {"resetDataItem",
         {"Effect"},
         [](Scene& s, const Arguments& a) { s.model.resetDataItem(a.type, 3); },
         {"effectDataChanged(Effect, reset, invalid, 3)"}},
        {"setCurrentItem",
         {"Watermark"},
         [](Scene& s, const Arguments& a) { s.model.setCurrentItem(a.type); },
         {"currentItemChanged(Watermark)"}},
        {"setCurrentSubItem",
         {"Watermark"},
         [](Scene& s, const Arguments& a) { s.model.setCurrentSubItem(a.type, 5); },
         {"currentSubItemChanged(Watermark, 5)"}},
        {"beginChange",
         {"Watermark"},
         [](Scene& s, const Arguments& a) { s.model.beginChange(a.type); },
         {"effectDataAboutChange(Watermark)"}},
        {"endChanged",
         {"Watermark"},
         [](Scene& s, const Arguments& a) { s.model.endChanged(a.type); },
         {"effectDataChanged(Watermark)"}},
        {"applyDataTo",
         {"Watermark"},
         [](Scene& s, const Arguments& a) { s.model.applyDataTo(a.type, -1, 4); },
         {"applyItemDataTo(node Watermark, Watermark, -1, 4)"}},
        {"applySomePropertytoOther",
         {"Subtitle"},
         [](Scene& s, const Arguments& a) { s.model.applySomePropertytoOther(a.type, 4, 4); },
         {subtitleReset, subtitleReset,
          "applyItemDataSomePropertyTo({h: int 480, sub_fontsize: int 20, sub_linemargin: int 3}, Subtitle, -1, 4)"}},
    };
    return all;
}

// --- Items that tell when they go --------------------------------------------------------------------------------

/// An operation that deletes watermark 1.
struct Deletion {
    const char* name;
    const char* result;
    Run run;
};

const QVector<Deletion>& deletions()
{
    static const QVector<Deletion> all = {
        {"delDataItem", "true", [](Scene& s) { return s.model.delDataItem("Watermark", 1); }},
        {"resetDataItem", "true", [](Scene& s) { return s.model.resetDataItem("Watermark", -1); }},
        {"resetAllEffect", "", [](Scene& s) { s.model.resetAllEffect(); }},
        {"replaceData of the type", "",
         [](Scene& s) { s.model.replaceData("Watermark", -1, s.other.getDataItem("Watermark", -1)); }},
        {"replaceData of the type by one of its items", "",
         [](Scene& s) {
             // The name of the type stays the item's, which has none: the type is gone after that.
             s.model.replaceData("Watermark", -1, s.model.getDataItem("Watermark", 1));
         }},
        {"assignment of a model", "", [](Scene& s) { s.model = s.other; }},
        {"removeChildren", "true", [](Scene& s) { return s.model.getDataItem("Watermark", -1)->removeChildren(0, 3); }},
        {"clear", "", [](Scene& s) { s.model.getDataItem("Watermark", -1)->clear(); }},
    };
    return all;
}

/// Whether the bite leaves the types themselves in place, and finds what it needs in every tree.
bool suitsDeletion(const QString& behaviour)
{
    static const QStringList others = {"deletes the type", "clears the root", "assigns another file's model",
                                       "calls the operation again", "disconnects the next listener"};
    return !others.contains(behaviour);
}

/// Items of the type after those bites whose number depends on the type.
int countAfter(const QString& behaviour, const Operation& operation)
{
    const QString type = operation.type;
    if (behaviour == "calls the operation again")
        return operation.countAgain;
    if (type == "Effect") // Four frame effects, in all files.
        return 4;
    // A watermark list is empty after a reset. The other file has two of each.
    if (behaviour == "resets the type")
        return 0;
    if (behaviour == "resets all effects") {
        // Embedded tracks stay, and what stands before them.
        const QString name = operation.name;
        if (name == "addDataItem")
            return 11;
        if (name == "replaceData by a node")
            return 3;
        return 0;
    }
    return 2;
}

} // namespace

class TstListeners : public QObject {
    Q_OBJECT

private slots:
    void init();
    void bites_data();
    void bites();
    void bitesWhenAnItemGoes_data();
    void bitesWhenAnItemGoes();
    void argumentsStayForAllListeners_data();
    void argumentsStayForAllListeners();
};

void TstListeners::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstListeners::bites_data()
{
    QTest::addColumn<int>("behaviourIndex");
    QTest::addColumn<int>("operationIndex");

    for (int i = 0; i < behaviours().size(); ++i) {
        for (int k = 0; k < operations().size(); ++k) {
            QTest::newRow(qPrintable(QString("%1 during %2").arg(behaviours().at(i).name, operations().at(k).name)))
                << i << k;
        }
    }
}

void TstListeners::bites()
{
    QFETCH(int, behaviourIndex);
    QFETCH(int, operationIndex);
    const Behaviour& behaviour = behaviours().at(behaviourIndex);
    const Operation& operation = operations().at(operationIndex);
    const QString name = behaviour.name;

    // In one go, the listener in the middle.
    Scene scene;
    Bite bite{operation, operation.type, operation.row, nullptr, nullptr, nullptr};
    std::unique_ptr<SignalRecorder> recorder;
    if (handsOutNode(operation))
        recorder = std::make_unique<SignalRecorder>(scene.model);
    Biter biter(scene.model, operation.emission, behaviour.times, [&] { behaviour.bite(scene, bite); });
    if (!recorder)
        recorder = std::make_unique<SignalRecorder>(scene.model);
    bite.biter = &biter;
    bite.next = recorder.get();
    const QString result = operation.run(scene);
    const QStringList heard = recorder->take();
    const QStringList heardLate = bite.late ? bite.late->take() : QStringList();
    const QString damaged = damage(scene.model) + damage(scene.other);
    const QString tree = dumped(scene.model) + dumped(scene.other) + customDefaults();
    const QList<int> events = logcapture::takeEvents();

    // One after the other, nobody listening.
    forgetCustomDefaults();
    Scene apart;
    Bite bitten{operation, operation.type, operation.row, nullptr, nullptr, nullptr};
    Biter deaf(apart.other, 0, 0, nullptr);
    SignalRecorder unused(apart.other);
    bitten.biter = &deaf;
    bitten.next = &unused;
    if (operation.before)
        operation.before(apart);
    else
        operation.run(apart);
    for (int i = 0; i < behaviour.times; ++i)
        behaviour.bite(apart, bitten);
    if (operation.after)
        operation.after(apart);

    QCOMPARE(result, QString(operation.result));
    QCOMPARE(damaged, QString());
    QCOMPARE(tree, dumped(apart.model) + dumped(apart.other) + customDefaults());
    QCOMPARE(events, logcapture::takeEvents());
    const Node* typeNode = scene.model.getDataItem(operation.type, -1);
    QCOMPARE(typeNode ? typeNode->childCount() : 0,
             behaviour.count ? behaviour.count(operation.count, operation.row) : countAfter(name, operation));
    if (name != "adds items up to twenty")
        QCOMPARE(biter.bites(), behaviour.times);

    // Who listens behind the biter gets the signal as it was sent, unless the biter cut him off.
    const bool cutOff = name == "disconnects the next listener" || name == "disconnects everyone";
    if (cutOff) {
        QCOMPARE(int(heard.size()), operation.emission + (handsOutNode(operation) ? 1 : 0));
    } else {
        const QString announced = operation.announced;
        const bool sent = std::any_of(heard.cbegin(), heard.cend(), [&](const QString& signal) {
            return announced.endsWith(' ') ? signal.startsWith(announced) : signal == announced;
        });
        QVERIFY2(sent, qPrintable(heard.join('\n')));
    }
    if (!operation.after && bite.late)
        QCOMPARE(heardLate, QStringList());

    // The model goes on as ever.
    scene.model.disconnect();
    scene.model.blockSignals(false);
    SignalRecorder again(scene.model);
    QVERIFY(scene.model.setData("after", 1, "effect root", -1));
    QCOMPARE(again.take(), QStringList{"effectDataChanged(effect root, after, int 1, -1)"});
}

void TstListeners::bitesWhenAnItemGoes_data()
{
    QTest::addColumn<int>("behaviourIndex");
    QTest::addColumn<int>("deletionIndex");

    for (int i = 0; i < behaviours().size(); ++i) {
        for (int k = 0; k < deletions().size(); ++k) {
            if (suitsDeletion(behaviours().at(i).name)) {
                QTest::newRow(qPrintable(QString("%1 during %2").arg(behaviours().at(i).name, deletions().at(k).name)))
                    << i << k;
            }
        }
    }
}

void TstListeners::bitesWhenAnItemGoes()
{
    QFETCH(int, behaviourIndex);
    QFETCH(int, deletionIndex);
    const Behaviour& behaviour = behaviours().at(behaviourIndex);
    const Deletion& deletion = deletions().at(deletionIndex);
    Scene scene;
    Biter biter(scene.model, 0, 0, nullptr);
    SignalRecorder recorder(scene.model);
    Bite bite{operations().first(), "Watermark", 1, &biter, &recorder, nullptr};
    int bites = 0;
    connect(scene.model.getDataItem("Watermark", 1), &QObject::destroyed, this, [&] {
        ++bites;
        if (scene.model.getDataItem("Watermark", -1))
            behaviour.bite(scene, bite);
    });

    QCOMPARE(deletion.run(scene), QString(deletion.result));

    QCOMPARE(bites, 1);
    QCOMPARE(damage(scene.model) + damage(scene.other), QString());
    scene.model.disconnect();
    scene.model.blockSignals(false);
    SignalRecorder again(scene.model);
    QVERIFY(scene.model.setData("after", 1, "effect root", -1));
    QCOMPARE(again.take(), QStringList{"effectDataChanged(effect root, after, int 1, -1)"});
}

void TstListeners::argumentsStayForAllListeners_data()
{
    QTest::addColumn<int>("callIndex");
    QTest::addColumn<bool>("deletes");

    for (int i = 0; i < calls().size(); ++i) {
        QTest::newRow(qPrintable(QString("changed during %1").arg(calls().at(i).name))) << i << false;
        QTest::newRow(qPrintable(QString("deleted during %1").arg(calls().at(i).name))) << i << true;
    }
}

void TstListeners::argumentsStayForAllListeners()
{
    QFETCH(int, callIndex);
    QFETCH(bool, deletes);
    const Call& call = calls().at(callIndex);
    Scene scene;
    auto arguments = std::make_unique<Arguments>(call.arguments);
    const Biter biter(scene.model, 0, 1, [&] {
        *arguments = {"another type", "another key", "another value", {{"another key", "another value"}}};
        if (deletes)
            arguments.reset();
    });
    SignalRecorder recorder(scene.model);

    call.run(scene, *arguments);

    QCOMPARE(recorder.take(), call.announced);
    QCOMPARE(biter.bites(), 1);
    QCOMPARE(damage(scene.model), QString());
}

ZOEFFECT_TEST_MAIN(TstListeners)
#include "tst_listeners.moc"
