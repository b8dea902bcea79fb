// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <climits>
#include <limits>

#include <QColor>
#include <QFont>
#include <QPointer>
#include <QScopedPointer>
#include <QThread>

#include <zoeffectitemdefaultvalmgr.h>

#include "modeltest.h"

namespace {

using Node = ZoEffectItemData;

const QVariant invalid;
const double notANumber = std::numeric_limits<double>::quiet_NaN();

/// A node with a text of its own, by which tests tell nodes of equal names apart.
Node* marked(const QString& name, const QString& mark, Node* parent)
{
    Node* node = new Node(name, parent);
    node->setData("mark", mark);
    return node;
}

QString markOf(const Node* node)
{
    return node ? node->data("mark").toString() : QString("none");
}

/// A model with this tree, null entries included:
///
///     effect root
///       (null)
///       A   - x, B in A, y - z
///       B   - p, q
///       C   - A in C - p in C, (null), nameless
struct LookupModel {
    LookupModel()
    {
        Node* root = rootOf(model);
        root->setData("mark", "root");
        root->appendChild(nullptr);
        Node* a = marked("A", "A", root);
        marked("x", "x", a);
        marked("B", "B in A", a);
        marked("z", "z", marked("y", "y", a));
        Node* b = marked("B", "B", root);
        marked("p", "p", b);
        marked("q", "q", b);
        Node* c = marked("C", "C", root);
        marked("p", "p in C", marked("A", "A in C", c));
        c->appendChild(nullptr);
        marked("", "nameless", c);
        nodes = {{"root", root}, {"A", a}, {"B", b}, {"q", b->child(1)}, {"C", c}};
    }

    ZoEffectModel model{QStringList{"none of the catalogue"}};
    QMap<QString, Node*> nodes;
};

} // namespace

/// A value of a host's own type.
struct HostValue {
    int number;
};
Q_DECLARE_METATYPE(HostValue)

class TstModelProperties : public ModelTest {
    Q_OBJECT

private slots:
    void findsNodes_data()
    {
        const Rows<QString, QString, int, QString> add;
        add("root", "root", "effect root", -1, "root");
        add("first type", "root", "A", -1, "A");
        add("item named like a later type", "root", "B", -1, "B in A");
        add("last type", "root", "C", -1, "C");
        add("item", "root", "x", -1, "x");
        add("item after one with children", "root", "q", -1, "q");
        add("child of an item", "root", "z", -1, "z");
        add("earlier item wins", "root", "p", -1, "p");
        add("empty name", "root", "", -1, "nameless");
        add("lower case", "root", "a", -1, "none");
        add("blank after", "root", "A ", -1, "none");
        add("beginning of a name", "root", "effect", -1, "none");

        add("first item", "root", "A", 0, "x");
        add("last item", "root", "A", 2, "y");
        add("count", "root", "A", 3, "none");
        add("minus two", "root", "A", -2, "none");
        add("largest position", "root", "A", INT_MAX, "none");
        add("smallest position", "root", "A", INT_MIN, "none");
        add("first node of the name has no items", "root", "B", 0, "none");
        add("item of an item", "root", "y", 0, "z");
        add("null entry", "root", "effect root", 0, "none");
        add("type below the root", "root", "effect root", 1, "A");
        add("count of the root", "root", "effect root", 4, "none");
        add("null entry of a type", "root", "C", 1, "none");
        add("item after a null entry", "root", "C", 2, "nameless");
        add("first item of an unknown type", "root", "Crop", 0, "none");
        add("bad position of an unknown type", "root", "Crop", -2, "none");

        add("start itself", "B", "B", -1, "B");
        add("start without children itself", "q", "q", -1, "q");
        add("child of the start", "B", "q", -1, "q");
        add("grandchild", "A", "z", -1, "z");
        add("child named like another type", "C", "A", -1, "A in C");
        add("child of a child", "C", "A", 0, "p in C");
        add("child after a null entry", "C", "", -1, "nameless");
        add("parent of the start", "B", "effect root", -1, "none");
        add("earlier sibling of the start", "B", "A", -1, "none");
        add("item of a sibling of the start", "B", "A", 0, "none");
        add("later sibling of the start", "B", "C", -1, "none");
        add("below a start without children", "q", "p", -1, "none");
    }

    void findsNodes()
    {
        const auto [start, type, pos, mark] = row<QString, QString, int, QString>();
        const LookupModel lookup;
        const ZoEffectModel& model = lookup.model;

        QCOMPARE(markOf(model.findDataItem(lookup.nodes.value(start), type, pos)), mark);
        if (pos == -1)
            QCOMPARE(markOf(model.findDataItem(lookup.nodes.value(start), type)), mark);
        if (start == "root") {
            QCOMPARE(markOf(model.findDataItem(type, pos)), mark);
            QCOMPARE(markOf(model.getDataItem(type, pos)), mark);
        }
    }

    void lookupFromNullIsLogged()
    {
        const ZoEffectModel model;
        const Node* none = nullptr;

        for (const char* type : {"Crop", "Unknown"}) {
            QVERIFY(!model.findDataItem(none, type));
            QCOMPARE(logcapture::takeEvents(), QList<int>{340});
            for (const int pos : {-1, 0, -2}) {
                QVERIFY(!model.findDataItem(none, type, pos));
                QCOMPARE(logcapture::takeEvents(), QList<int>{316});
            }
        }
    }

    void lookupFollowsTheNameNotTheObjectName()
    {
        const ZoEffectModel model;
        model.findDataItem("Crop", -1)->setObjectName("shown");
        model.findDataItem("Watermark", -1)->setObjectName("Crop");

        QVERIFY(!model.findDataItem("shown", -1));
        QCOMPARE(model.findDataItem("Crop", -1), rootOf(model)->child(0));
    }

    void lookupFollowsMovedNodes()
    {
        const ZoEffectModel model;
        Node* color = rootOf(model)->takeAt(4);
        QVERIFY(!model.findDataItem("Color", -1));

        // Its recorded parent plays no part.
        model.findDataItem("Effect", -1)->insertChild(color, 1);
        QCOMPARE(model.findDataItem("Color", -1), color);
        QCOMPARE(model.findDataItem("Effect", 1), color);
        QCOMPARE(model.childCount("Effect"), 5);
    }

    void lookupTakesNodesOutsideTheModel()
    {
        const ZoEffectModel model;
        const ZoEffectModel other;
        Node free("free");
        Node* child = new Node("child", &free);

        QCOMPARE(model.findDataItem(&free, "child"), child);
        QCOMPARE(model.findDataItem(&free, "free", 0), child);
        QVERIFY(!model.findDataItem(&free, "Crop"));
        QCOMPARE(model.findDataItem(rootOf(other), "Crop"), other.findDataItem("Crop", -1));
        QVERIFY(model.findDataItem("Crop", -1) != other.findDataItem("Crop", -1));
    }

    void lookupInADeepTreeDoesNotRecurse()
    {
        const ZoEffectModel model(QStringList{"Crop"});
        Node* last = model.findDataItem("Crop", -1);
        for (int i = 0; i < 200000; ++i)
            last = new Node("link", last);
        Node* deepest = new Node("deepest", last);
        Node* after = new Node("after", rootOf(model));

        const Node* foundDeepest = nullptr;
        const Node* foundAfter = nullptr;
        const Node* foundNone = deepest;
        const QScopedPointer<QThread> thread(QThread::create([&] {
            foundDeepest = model.findDataItem("deepest", -1);
            foundAfter = model.findDataItem("after", -1);
            foundNone = model.findDataItem("none", -1);
        }));
        thread->setStackSize(512 * 1024);
        thread->start();
        thread->wait();

        QCOMPARE(foundDeepest, deepest);
        QCOMPARE(foundAfter, after);
        QVERIFY(!foundNone);
    }

    void countsChildren()
    {
        const LookupModel lookup;
        // Of the first node of a name, null entries included.
        const QMap<QString, int> counts{{"A", 3}, {"B", 0}, {"y", 1}, {"C", 3}, {"effect root", 4}, {"", 0}};
        for (auto it = counts.cbegin(); it != counts.cend(); ++it)
            QCOMPARE(lookup.model.childCount(it.key()), it.value());

        ZoEffectModel model;
        SignalRecorder recorded(model);
        QCOMPARE(model.childCount("Effect"), 4);
        for (const char* type : {"Unknown", "crop", "Crop ", ""}) {
            QCOMPARE(model.childCount(type), 0);
            QCOMPARE(logcapture::takeEvents(), QList<int>{246});
        }
        QCOMPARE(recorded.take(), QStringList());
    }

    void dataReads_data()
    {
        const Rows<QString, QString, int, QString> add;
        add("number", "crop_minwidth", "Crop", -1, "int 24");
        add("font", "wm_fontname", "Watermark", -1, "font Tahoma");
        add("item", "id", "Effect", 2, "int 13");
        add("item by its own name", "id", "Mirror", -1, "int 13");
        add("check state of a type", "_checkstate", "Crop", -1, "int 2");
        add("check state of an item", "_checkstate", "Effect", 0, "int 0");
        add("missing key", "crop_right", "Crop", -1, "invalid");
        add("key in other case", "Crop_left", "Crop", -1, "invalid");
        add("check state in other case", "_CheckState", "Crop", -1, "invalid");
        add("key of another type", "crop_left", "Watermark", -1, "invalid");
        add("key of the type at its item", "crop_left", "Effect", 0, "invalid");
        add("empty key", "", "Crop", -1, "invalid");
        add("unknown type", "crop_left", "Unknown", -1, "invalid");
        add("key and type exchanged", "Crop", "crop_left", -1, "invalid");
        add("missing item", "id", "Effect", 4, "invalid");
        add("bad position", "id", "Effect", -2, "invalid");
        add("check state of a missing item", "_checkstate", "Effect", 4, "invalid");
        add("track of a missing item", "trackid", "Effect", 4, "invalid");
        add("track of a type", "trackid", "Audio", -1, "int -1");
        add("track of an item", "trackid", "Effect", 1, "int -1");
        add("track in other case", "trackId", "Audio", -1, "invalid");
        add("subtitle position of a missing item", "sub_vposition", "Subtitle", 0, "invalid");
        add("root", "w", "effect root", -1, "invalid");
        add("check state of the root", "_checkstate", "effect root", -1, "int 2");
    }

    void dataReads()
    {
        const auto [key, type, pos, value] = row<QString, QString, int, QString>();
        ZoEffectModel model;
        SignalRecorder recorded(model);

        QCOMPARE(described(model.data(key, type, pos)), value);
        QCOMPARE(recorded.take(), QStringList());
    }

    void dataOfMissingTrackIdIsMinusOne()
    {
        ZoEffectModel model;
        QVERIFY(model.setData("trackid", 3, "Subtitle", -1));
        QCOMPARE(described(model.data("trackid", "Subtitle", -1)), QString("int 3"));

        model.findDataItem("Subtitle", -1)->setData("trackid", QVariant());
        QCOMPARE(described(model.data("trackid", "Subtitle", -1)), QString("invalid"));
    }

    void dataOfCheckStateIsTheNodesState()
    {
        // A stored "_checkstate", which a type of the catalogue may bring, is not what is read or written.
        registerOnly("Type", {::property("_checkstate", false)});
        ZoEffectModel model;
        Node* type = model.findDataItem("Type", -1);
        QCOMPARE(described(model.data("_checkstate", "Type", -1)), QString("int 2"));
        QCOMPARE(described(type->data("_checkstate")), QString("bool false"));

        SignalRecorder recorded(model);
        QVERIFY(model.setData("_checkstate", true, "Type", -1));
        QCOMPARE(recorded.take(), QStringList());
        type->setData("_checkstate", true);
        QVERIFY(model.setData("_checkstate", false, "Type", -1));
        QCOMPARE(recorded.take(), one("effectDataChanged(Type, _checkstate, bool false, -1)"));
        QCOMPARE(described(model.data("_checkstate", "Type", -1)), QString("int 0"));
        QCOMPARE(described(type->data("_checkstate")), QString("bool true"));
    }

    void subtitlePositionIsDerived_data()
    {
        const Rows<QVariant, QVariant, QVariant, QString> add; // An invalid height or flag is not there.
        add("height 576", 576, 200, invalid, "double 460.80000000000001");
        add("height 1", 1, 200, invalid, "double 0.80000000000000004");
        add("largest height", INT_MAX, 200, invalid, "double 1717986917.6000001");
        add("negative height", -100, 200, invalid, "double -80");
        add("height 0", 0, 200, invalid, "int 200");
        add("no height", invalid, 200, invalid, "int 200");
        add("height as text", "480", 200, invalid, "double 384");
        add("height that is no number", "high", 200, invalid, "int 200");
        add("height that rounds up", 479.5, 200, invalid, "double 384");
        add("height that rounds to nothing", 0.4, 200, invalid, "int 200");
        add("negative height that rounds to nothing", -0.5, 200, invalid, "int 200");

        add("whatever text is stored", 480, "text", invalid, "double 384");
        add("an invalid value is stored", 480, invalid, invalid, "double 384");
        add("text stored, height 0", 0, "text", invalid, "string text");
        add("invalid value stored, height 0", 0, invalid, invalid, "invalid");

        add("flag true", 480, 200, true, "int 200");
        add("flag false", 480, 200, false, "double 384");
        add("flag 1", 480, 200, 1, "int 200");
        add("flag text 0", 480, 200, "0", "double 384");
        add("flag fraction that rounds to zero", 480, 200, 0.3, "double 384");
        add("flag no number", 480, 200, notANumber, "double 384");
        add("flag true, height 0", 0, 200, true, "int 200");
    }

    void subtitlePositionIsDerived()
    {
        const auto [height, stored, flag, value] = row<QVariant, QVariant, QVariant, QString>();
        const ZoEffectModel model;
        if (height.isValid())
            rootOf(model)->setData("h", height);
        Node* subtitle = model.findDataItem("Subtitle", -1);
        subtitle->setData("sub_vposition", stored);
        if (flag.isValid())
            subtitle->setData("dvdsubtitleposeditbyuser", flag);
        const QString before = described(subtitle->properties());

        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), value);
        QCOMPARE(described(subtitle->properties()), before);
    }

    void subtitlePositionFollowsTheFactor_data()
    {
        const Rows<QVariant, QString> add;
        add("quarter as text", "0.25", "double 120");
        add("one as number", 1, "double 480");
        add("negative", -0.5, "double -240");
        add("beyond the picture", 1.5, "double 720");
        add("no number", "far down", "double 0");
        add("invalid falls through to the catalogue", invalid, "double 384");
    }

    void subtitlePositionFollowsTheFactor()
    {
        const auto [factor, value] = row<QVariant, QString>();
        ZoEffectModel model;
        model.setVideoSize(720, 480);
        saveCustomDefault("Subtitle", {{"sub_vposfactor", factor}});
        // What the node itself holds plays no part.
        model.findDataItem("Subtitle", -1)->setData("sub_vposfactor", 0.9);

        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), value);
    }

    void subtitlePositionWithoutFactorIsZero()
    {
        registerOnly("Subtitle", {::property("sub_vposition", 200)});
        ZoEffectModel model;
        model.setVideoSize(720, 480);

        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("double 0"));
    }

    void subtitlePositionOfAnItem()
    {
        ZoEffectModel model;
        model.setVideoSize(720, 480);
        Node* subtitle = model.findDataItem("Subtitle", -1);
        new Node("bare", subtitle);
        new Node("other", subtitle);

        QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QString("double 384"));
        // By its own name the item is not addressed as a subtitle.
        QCOMPARE(described(model.data("sub_vposition", "bare", -1)), QString("invalid"));

        QVERIFY(model.setData("sub_vposition", 100, "Subtitle", 0));
        QCOMPARE(described(model.findDataItem("Subtitle", 0)->properties()),
                 QString("{dvdsubtitleposeditbyuser: bool true, sub_vposition: int 100}"));
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QString("int 100"));
        // Each node has a flag of its own.
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("double 384"));
        QVERIFY(model.findDataItem("Subtitle", 1)->properties().isEmpty());
    }

    void otherKeysDoNotFollowTheHeight()
    {
        ZoEffectModel model;
        model.setVideoSize(0, 480);
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("double 384"));
        QCOMPARE(described(model.data("sub_hposition", "Subtitle", -1)), QString("int 200"));
        QCOMPARE(described(model.data("wm_vposition", "Watermark", -1)), QString("int 30"));
        model.findDataItem("Watermark", -1)->setData("sub_vposition", 5);
        QCOMPARE(described(model.data("sub_vposition", "Watermark", -1)), QString("int 5"));
        QCOMPARE(described(model.data("sub_Vposition", "Subtitle", -1)), QString("invalid"));
    }

    void storedSubtitlePositionWrittenAgainStaysDerived()
    {
        ZoEffectModel model;
        model.setVideoSize(720, 480);
        SignalRecorder recorded(model);

        QVERIFY(model.setData("sub_vposition", 200, "Subtitle", -1));
        QVERIFY(model.setData("sub_vposition", "200", "Subtitle", -1));
        QCOMPARE(recorded.take(), QStringList());
        QVERIFY(!model.findDataItem("Subtitle", -1)->hasData("dvdsubtitleposeditbyuser"));
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("double 384"));

        // Writing past the model is no user's choice.
        model.findDataItem("Subtitle", -1)->setData("sub_vposition", 300);
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("double 384"));

        // It is the stored value that a new one is compared with, not the derived 384; the flag is set silently.
        QVERIFY(model.setData("sub_vposition", 384, "Subtitle", -1));
        QCOMPARE(recorded.take(), one("effectDataChanged(Subtitle, sub_vposition, int 384, -1)"));
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("int 384"));
        QCOMPARE(described(model.data("dvdsubtitleposeditbyuser", "Subtitle", -1)), QString("bool true"));

        // A false that somebody stored is replaced, and again nothing is told.
        QVERIFY(model.setData("dvdsubtitleposeditbyuser", false, "Subtitle", -1));
        recorded.take();
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QString("double 384"));
        QVERIFY(model.setData("sub_vposition", 501, "Subtitle", -1));
        QCOMPARE(recorded.take(), one("effectDataChanged(Subtitle, sub_vposition, int 501, -1)"));
        QCOMPARE(described(model.data("dvdsubtitleposeditbyuser", "Subtitle", -1)), QString("bool true"));
    }

    void subtitlePositionGivenToANewItemIsStoredNotRead()
    {
        ZoEffectModel model;
        model.setVideoSize(1280, 720);

        QVERIFY(model.addDataItem("Subtitle", {{"sub_vposition", 500}}));
        QCOMPARE(described(model.getDataItem("Subtitle", 0)->data("sub_vposition")), QString("int 500"));
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QString("double 576"));

        QVERIFY(model.addDataItem("Subtitle", {{"sub_vposition", 500}, {"dvdsubtitleposeditbyuser", true}}));
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", 1)), QString("int 500"));
    }

    void subtitleFlagIsForTheSubtitlePositionAlone()
    {
        ZoEffectModel model;
        new Node("subtitle", rootOf(model));
        const QList<QStringList> others{{"sub_hposition", "Subtitle"}, {"sub_vposfactor", "Subtitle"},
                                        {"sub_VPosition", "Subtitle"}, {"sub_vposition", "Watermark"},
                                        {"sub_vposition", "subtitle"}, {"sub_vposition", "effect root"},
                                        {"_checkstate", "Subtitle"}};
        for (const QStringList& other : others) {
            QVERIFY(model.setData(other.at(0), 0, other.at(1), -1));
            QVERIFY(!model.findDataItem(other.at(1), -1)->hasData("dvdsubtitleposeditbyuser"));
        }
        QVERIFY(!model.findDataItem("Subtitle", -1)->hasData("dvdsubtitleposeditbyuser"));
    }

    void setDataStoresAndTellsOnce_data()
    {
        const Rows<QString, QVariant, QString, int, QString> add;
        add("number", "crop_left", 10, "Crop", -1, "effectDataChanged(Crop, crop_left, int 10, -1)");
        add("number over text", "crop_width", 320, "Crop", -1, "effectDataChanged(Crop, crop_width, int 320, -1)");
        add("switch", "crop_keepaspectratio", false, "Crop", -1,
            "effectDataChanged(Crop, crop_keepaspectratio, bool false, -1)");
        add("color", "sub_fontcolor", QColor(Qt::red), "Subtitle", -1,
            "effectDataChanged(Subtitle, sub_fontcolor, color #ffff0000, -1)");
        add("font", "sub_fontname", QFont("Courier"), "Subtitle", -1,
            "effectDataChanged(Subtitle, sub_fontname, font Courier, -1)");
        add("new key", "own", "value", "Crop", -1, "effectDataChanged(Crop, own, string value, -1)");
        add("empty key", "", 1, "Crop", -1, "effectDataChanged(Crop, , int 1, -1)");
        add("invalid over a number", "crop_left", invalid, "Crop", -1,
            "effectDataChanged(Crop, crop_left, invalid, -1)");
        add("map", "own", QVariantMap{{"a", 1}}, "Crop", -1, "effectDataChanged(Crop, own, map {a: int 1}, -1)");
        add("item", "id", 99, "Effect", 1, "effectDataChanged(Effect, id, int 99, 1)");
        add("item by its own name", "id", 99, "Sharpen", -1, "effectDataChanged(Sharpen, id, int 99, -1)");
        add("root", "w", 640, "effect root", -1, "effectDataChanged(effect root, w, int 640, -1)");
        add("type as an item of the root", "crop_left", 5, "effect root", 0,
            "effectDataChanged(effect root, crop_left, int 5, 0)");
        add("structure key", "item_add", 1, "Crop", -1, "effectDataChanged(Crop, item_add, int 1, -1)");
        add("check state in other case", "_CHECKSTATE", false, "Crop", -1,
            "effectDataChanged(Crop, _CHECKSTATE, bool false, -1)");
        add("check state with a blank", "_checkstate ", false, "Crop", -1,
            "effectDataChanged(Crop, _checkstate , bool false, -1)");
    }

    void setDataStoresAndTellsOnce()
    {
        const auto [key, value, type, pos, told] = row<QString, QVariant, QString, int, QString>();
        ZoEffectModel model;
        SignalRecorder recorded(model);
        const int checkState = model.findDataItem(type, pos)->checkState();

        QVERIFY(model.setData(key, value, type, pos));
        QCOMPARE(recorded.take(), one(told));
        QVERIFY(model.findDataItem(type, pos)->hasData(key));
        QCOMPARE(described(model.findDataItem(type, pos)->data(key)), described(value));
        QCOMPARE(described(model.data(key, type, pos)), described(value));
        QCOMPARE(model.findDataItem(type, pos)->checkState(), checkState);

        QVERIFY(model.setData(key, value, type, pos));
        QCOMPARE(recorded.take(), QStringList());
    }

    void valuesOfAHostsTypeAreStored()
    {
        ZoEffectModel model;
        for (const int number : {7, 8}) {
            QVERIFY(model.setData("crop_left", QVariant::fromValue(HostValue{number}), "Crop", -1));
            QCOMPARE(model.data("crop_left", "Crop", -1).value<HostValue>().number, number);
        }
        QVERIFY(model.setData("crop_left", 5, "Crop", -1));
        QCOMPARE(model.data("crop_left", "Crop", -1), QVariant(5));
    }

    void setDataOnAMissingNodeIsLogged_data()
    {
        const Rows<QString, QString, int> add;
        add("unknown type", "crop_left", "Unknown", -1);
        add("type in other case", "crop_left", "crop", -1);
        add("empty type", "crop_left", "", -1);
        add("missing item", "id", "Effect", 4);
        add("no items at all", "wm_fontsize", "Watermark", 0);
        add("minus two", "id", "Effect", -2);
        add("smallest position", "id", "Effect", INT_MIN);
        add("check state of a missing item", "_checkstate", "Effect", 4);
        add("position of a missing subtitle", "sub_vposition", "Subtitle", 0);
        add("key and type exchanged", "Crop", "crop_left", -1);
    }

    void setDataOnAMissingNodeIsLogged()
    {
        const auto [key, type, pos] = row<QString, QString, int>();
        ZoEffectModel model;
        SignalRecorder recorded(model);

        QVERIFY(!model.setData(key, 5, type, pos));
        QCOMPARE(logcapture::takeEvents(), QList<int>{181});
        QVERIFY(!model.setData(key, QVariant(), type, pos));
        QCOMPARE(logcapture::takeEvents(), QList<int>{181});

        QCOMPARE(recorded.take(), QStringList());
        QCOMPARE(rootOf(model)->childCount(), 13);
        QVERIFY(rootOf(model)->properties().isEmpty());
    }

    // How values compare is told by tst_qtcompat; here, that setData() asks in the right order.
    void equalValueIsNotWritten_data()
    {
        const Rows<QVariant, QVariant, bool> add; // The stored value; "missing" for none.
        add("missing, then invalid", "missing", invalid, true);
        add("missing, then 0", "missing", 0, false);
        add("missing, then null text", "missing", QString(), false);
        add("missing, then false", "missing", false, false);
        add("invalid, then invalid", invalid, invalid, true);
        add("invalid, then empty text", invalid, QString(""), false);
        add("0, then invalid", 0, invalid, false);
        add("5, then text 5", 5, "5", true);
        add("5, then text +5", 5, "+5", true);
        add("text +5, then 5", "+5", 5, false);
        add("1, then true", 1, true, true);
        add("true, then abc", true, "abc", true);
        add("abc, then true", "abc", true, false);
        add("0.3, then 0.1 + 0.2", 0.3, 0.1 + 0.2, true);
        add("1.0, then within the tolerance", 1.0, 1.0000000000001, true);
        add("1.0, then beyond the tolerance", 1.0, 1.000000000002, false);
        add("no number, then no number", notANumber, notANumber, false);
        add("texts in other case", "Regular", "regular", false);
        add("list of texts, then other order", QStringList({"a", "b"}), QStringList({"b", "a"}), false);
        add("white, then text white", QColor(Qt::white), "white", true);
        add("text white, then white", "white", QColor(Qt::white), false);
        add("Tahoma, then text Tahoma", QFont("Tahoma"), "Tahoma", true);
        add("fonts of two sizes", QFont("Tahoma", 12), QFont("Tahoma", 13), false);
        add("maps of equal values", QVariantMap{{"a", 1}}, QVariantMap{{"a", "1"}}, true);
        add("maps of two values", QVariantMap{{"a", 1}}, QVariantMap{{"a", 2}}, false);
    }

    void equalValueIsNotWritten()
    {
        const auto [stored, value, equal] = row<QVariant, QVariant, bool>();
        const bool present = stored.toString() != "missing";
        ZoEffectModel model;
        SignalRecorder recorded(model);
        for (const int pos : {-1, 0}) {
            Node* node = model.findDataItem("Effect", pos);
            if (present)
                node->setData("key", stored);
            const QString before = described(node->data("key"));

            QVERIFY(model.setData("key", value, "Effect", pos));

            QCOMPARE(recorded.take(),
                     equal ? QStringList()
                           : one(QString("effectDataChanged(Effect, key, %1, %2)").arg(described(value)).arg(pos)));
            QCOMPARE(described(node->data("key")), equal ? before : described(value));
            QCOMPARE(node->hasData("key"), present || !equal);
        }
    }

    void missingTrackIdEqualsMinusOne()
    {
        for (const QVariant& value : {QVariant(-1), QVariant("-1"), QVariant(-1.0)}) {
            ZoEffectModel model;
            SignalRecorder recorded(model);
            QVERIFY(model.setData("trackid", value, "Audio", -1));
            QCOMPARE(recorded.take(), QStringList());
            QVERIFY(!model.findDataItem("Audio", -1)->hasData("trackid"));
        }
        for (const QVariant& value : {QVariant(0), QVariant(), QVariant("")}) {
            ZoEffectModel model;
            SignalRecorder recorded(model);
            QVERIFY(model.setData("trackid", value, "Audio", -1));
            QCOMPARE(recorded.take(), one(QString("effectDataChanged(Audio, trackid, %1, -1)").arg(described(value))));
            QCOMPARE(described(model.data("trackid", "Audio", -1)), described(value));
        }
    }

    void setDataChangesNothingElse()
    {
        ZoEffectModel model;
        const ZoEffectModel untouched(model);
        SignalRecorder ofUntouched(untouched);

        QVERIFY(model.setData("bcs_contrast", 5, "Color", -1));

        const QString color = "{bcs_brightness: int 0, bcs_contrast: int %1, bcs_saturation: int 0}";
        QCOMPARE(tree(rootOf(model)), tree(rootOf(untouched)).replace(color.arg(0), color.arg(5)));
        QVERIFY(tree(rootOf(untouched)).contains(color.arg(0)));
        QCOMPARE(ofUntouched.take(), QStringList());
        QVERIFY(!model.editByUser());
        QVERIFY(!model.editByDefault());
        QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
    }

    void setDataOnTheFirstNodeOfTheName()
    {
        LookupModel lookup;
        SignalRecorder recorded(lookup.model);

        QVERIFY(lookup.model.setData("key", 5, "B", -1));

        QCOMPARE(recorded.take(), one("effectDataChanged(B, key, int 5, -1)"));
        QVERIFY(lookup.nodes.value("A")->child(1)->hasData("key"));
        QVERIFY(!lookup.nodes.value("B")->hasData("key"));

        // That one has no items, so that those of the later node are out of reach; a null entry is no node.
        QVERIFY(!lookup.model.setData("key", 5, "B", 0));
        QVERIFY(!lookup.model.setData("key", 5, "C", 1));
        QCOMPARE(logcapture::takeEvents(), (QList<int>{181, 181}));
        QCOMPARE(recorded.take(), QStringList());
    }

    void setDataKeyFirst()
    {
        ZoEffectModel model;
        model.findDataItem("Crop", -1)->setData("Color", 1);

        // Both words are types and keys here: the first is taken as the key.
        QVERIFY(model.setData("Color", 2, "Crop", -1));

        QCOMPARE(described(model.findDataItem("Crop", -1)->data("Color")), QString("int 2"));
        QVERIFY(!model.findDataItem("Color", -1)->hasData("Crop"));
        QCOMPARE(described(model.data("Color", "Crop", -1)), QString("int 2"));
    }

    void checkStateIsSet_data()
    {
        const Rows<int, QVariant, int, QString> add; // Nothing is told where the text is empty.
        add("on, true", 2, true, 2, "");
        add("on, any text", 2, "no", 2, "");
        add("on, false", 2, false, 0, "bool false");
        add("on, 0", 2, 0, 0, "int 0");
        add("on, text 0", 2, "0", 0, "string 0");
        add("on, text FALSE", 2, "FALSE", 0, "string FALSE");
        add("on, invalid", 2, invalid, 0, "invalid");
        add("on, fraction that rounds to zero", 2, 0.25, 0, "double 0.25");
        add("on, fraction that rounds to one", 2, 0.5, 2, "");
        add("on, no number", 2, notANumber, 0, "double nan");
        add("on, color", 2, QColor(Qt::white), 0, "color #ffffffff");
        add("off, false", 0, false, 0, "");
        add("off, invalid", 0, invalid, 0, "");
        add("off, true", 0, true, 2, "bool true");
        add("off, minus 1", 0, -1, 2, "int -1");
        add("off, text 00", 0, "00", 2, "string 00");
        add("partly, true", 1, true, 2, "bool true");
        add("partly, false", 1, false, 0, "bool false");
        add("none of Qt's, true", 7, true, 2, "bool true");
    }

    void checkStateIsSet()
    {
        const auto [before, value, after, told] = row<int, QVariant, int, QString>();
        ZoEffectModel model;
        SignalRecorder recorded(model);
        for (const int pos : {-1, 1}) {
            Node* node = model.findDataItem("Effect", pos);
            const QString properties = described(node->properties());
            node->setCheckState(before);

            QVERIFY(model.setData("_checkstate", value, "Effect", pos));

            QCOMPARE(node->checkState(), after);
            QCOMPARE(recorded.take(),
                     told.isEmpty()
                         ? QStringList()
                         : one(QString("effectDataChanged(Effect, _checkstate, %1, %2)").arg(told).arg(pos)));
            QCOMPARE(described(node->properties()), properties);
        }
    }

    void blockedSignalsStillWrite()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        model.blockSignals(true);

        QVERIFY(model.setData("crop_left", 10, "Crop", -1));
        QVERIFY(model.setData("_checkstate", false, "Crop", -1));
        model.setCurrentItem("Crop");
        model.beginChange("Crop");
        model.blockSignals(false);

        QCOMPARE(recorded.take(), QStringList());
        QCOMPARE(described(model.data("crop_left", "Crop", -1)), QString("int 10"));
        QCOMPARE(described(model.data("_checkstate", "Crop", -1)), QString("int 0"));
    }

    void listenerSeesTheStoredValue()
    {
        ZoEffectModel model;
        model.setVideoSize(720, 480);
        QStringList seen;
        listen(model, [&](const QString& type, const QString& key, const QVariant& value, int pos) {
            seen << described(value) << described(model.data(key, type, pos));
        });

        model.setData("id", "new", "Effect", 2);
        model.setData("sub_vposition", 10, "Subtitle", -1);
        model.setData("_checkstate", "0", "Crop", -1);

        QCOMPARE(seen, QStringList({"string new", "string new", "int 10", "int 10", "string 0", "int 0"}));
    }

    void listenerMaySetAnotherKey()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        listen(model, [&] { QVERIFY(model.setData("crop_top", 20, "Crop", -1)); });

        QVERIFY(model.setData("crop_left", 10, "Crop", -1));

        QCOMPARE(recorded.take(), QStringList({"effectDataChanged(Crop, crop_left, int 10, -1)",
                                               "effectDataChanged(Crop, crop_top, int 20, -1)"}));
        QCOMPARE(described(model.data("crop_left", "Crop", -1)), QString("int 10"));
        QCOMPARE(described(model.data("crop_top", "Crop", -1)), QString("int 20"));
    }

    void listenerMaySetTheSameKey()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        listen(model, [&](const QString& type) {
            QVERIFY(type == "Crop" ? model.setData("_checkstate", true, "Crop", -1)
                                   : model.setData("sub_vposition", 20, "Subtitle", -1));
        });

        QVERIFY(model.setData("sub_vposition", 10, "Subtitle", -1));
        QVERIFY(model.setData("_checkstate", false, "Crop", -1));

        QCOMPARE(recorded.take(), QStringList({"effectDataChanged(Subtitle, sub_vposition, int 10, -1)",
                                               "effectDataChanged(Subtitle, sub_vposition, int 20, -1)",
                                               "effectDataChanged(Crop, _checkstate, bool false, -1)",
                                               "effectDataChanged(Crop, _checkstate, bool true, -1)"}));
        QCOMPARE(described(model.findDataItem("Subtitle", -1)->data("sub_vposition")), QString("int 20"));
        QCOMPARE(model.findDataItem("Crop", -1)->checkState(), 2);
    }

    void listenerMayDeleteTheItem_data()
    {
        const Rows<QString, QString> add;
        add("value", "wm_fontsize", "Watermark");
        add("check state", "_checkstate", "Watermark");
        add("subtitle position", "sub_vposition", "Subtitle");
    }

    void listenerMayDeleteTheItem()
    {
        const auto values = row<QString, QString>();
        const QString& key = std::get<0>(values);
        const QString& type = std::get<1>(values);
        ZoEffectModel model;
        QVERIFY(model.addDataItem(type, {}));
        const QPointer<Node> item = model.findDataItem(type, 0);
        bool deleted = false;
        listen(model, [&](const QString&, const QString& changed) {
            if (changed == key)
                deleted = model.delDataItem(type, 0);
        });

        QVERIFY(model.setData(key, 0, type, 0));

        QVERIFY(deleted);
        QVERIFY(!item);
        QCOMPARE(model.childCount(type), 0);
    }

    void listenerMayReplaceTheWholeTree()
    {
        const ZoEffectModel other(QStringList{"Color"});
        const std::function<void(ZoEffectModel&)> changes[] = {
            [&](ZoEffectModel& model) { model = other; },
            [](ZoEffectModel& model) { rootOf(model)->clear(); },
        };
        for (const auto& change : changes) {
            ZoEffectModel model;
            const QPointer<Node> crop = model.findDataItem("Crop", -1);
            listen(model, [&] { change(model); });
            QVERIFY(model.setData("crop_left", 10, "Crop", -1));
            QVERIFY(!crop);
            QVERIFY(!model.findDataItem("Crop", -1));
        }

        ZoEffectModel model;
        listen(model, [&] { model.resetAllEffect(); });
        QVERIFY(model.setData("crop_left", 10, "Crop", -1));
        QCOMPARE(described(model.data("crop_left", "Crop", -1)), QString("int 0"));
    }

    void listenerMayAddItems()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        listen(model, [&] {
            if (model.childCount("Subtitle") == 0)
                QVERIFY(model.insertDataItem("Subtitle", {}, 0));
        });

        QVERIFY(model.setData("sub_fontsize", 10, "Subtitle", -1));

        QCOMPARE(recorded.take(), QStringList({"effectDataChanged(Subtitle, sub_fontsize, int 10, -1)",
                                               "effectDataChanged(Subtitle, item_add, invalid, 0)"}));
    }

    void listenerMayAnswerTheBracket()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        connect(&model, &ZoEffectModel::currentItemChanged, this,
                [&](const QString& type) { model.beginChange(type); });
        connect(&model, &ZoEffectModel::effectDataAboutChange, this,
                [&](const QString& type) { model.setCurrentSubItem(type, 1); });
        connect(&model, &ZoEffectModel::currentSubItemChanged, this,
                [&](const QString& type, int) { model.endChanged(type); });

        model.setCurrentItem("Crop");

        QCOMPARE(recorded.take(), QStringList({"currentItemChanged(Crop)", "effectDataAboutChange(Crop)",
                                               "currentSubItemChanged(Crop, 1)", "effectDataChanged(Crop)"}));
    }

    void defaultIsFound_data()
    {
        const Rows<QString, Properties, QString, QString, QString> add; // What is saved, and for which type.
        add("number", "", {}, "crop_minwidth", "Crop", "int 24");
        add("font", "", {}, "sub_fontname", "Subtitle", "font Tahoma");
        add("subtitle position is the catalogue's", "", {}, "sub_vposition", "Subtitle", "int 200");
        add("last property", "", {}, "fontstyleusedefault", "Subtitle", "bool true");
        add("unknown key", "", {}, "own", "Crop", "invalid");
        add("empty key", "", {}, "", "Crop", "invalid");
        add("key in other case", "", {}, "Crop_left", "Crop", "invalid");
        add("key of another type", "", {}, "crop_left", "Color", "invalid");
        add("unknown type", "", {}, "crop_left", "Unknown", "invalid");
        add("type in other case", "", {}, "crop_left", "crop", "invalid");
        add("key and type exchanged", "", {}, "Crop", "crop_left", "invalid");
        add("track", "", {}, "trackid", "Audio", "invalid");
        add("check state", "", {}, "_checkstate", "Crop", "invalid");
        add("sub-item", "", {}, "_checkstate", "Blur", "invalid");
        add("root", "", {}, "w", "effect root", "invalid");

        add("saved", "Color", {{"bcs_contrast", 5}}, "bcs_contrast", "Color", "int 5");
        add("another key is saved", "Color", {{"bcs_contrast", 5}}, "bcs_brightness", "Color", "int 0");
        add("saved for another type", "Audio", {{"bcs_contrast", 5}}, "bcs_contrast", "Color", "int 0");
        add("saved for the type in other case", "color", {{"bcs_contrast", 5}}, "bcs_contrast", "Color", "int 0");
        add("saved key that the catalogue lacks", "Color", {{"own", 5}}, "own", "Color", "int 5");
        add("saved type that the catalogue lacks", "Unknown", {{"own", 5}}, "own", "Unknown", "int 5");
        add("saved invalid", "Color", {{"bcs_contrast", QVariant()}}, "bcs_contrast", "Color", "int 0");
        add("saved invalid, key that the catalogue lacks", "Color", {{"own", QVariant()}}, "own", "Color", "invalid");
        add("saved empty", "Color", {}, "bcs_contrast", "Color", "int 0");
        add("saved zero is a value", "Color", {{"bcs_contrast", 0.0}}, "bcs_contrast", "Color", "double 0");
        add("saved null text is a value", "Crop", {{"crop_aspectratio", QString()}}, "crop_aspectratio", "Crop",
            "string ");
        add("saved watermark", "Watermark", {{"wm_vposfactor", 0.5}}, "wm_vposfactor", "Watermark", "double 0.5");
        add("saved check state", "Color", {{"_checkstate", false}}, "_checkstate", "Color", "bool false");
    }

    void defaultIsFound()
    {
        const auto [savedType, saved, key, type, value] = row<QString, Properties, QString, QString, QString>();
        if (!savedType.isEmpty())
            saveCustomDefault(savedType, saved);

        QCOMPARE(described(ZoEffectModel::defaultValue(key, type)), value);
    }

    void defaultIgnoresTheModel()
    {
        ZoEffectModel model;
        model.setData("bcs_contrast", 5, "Color", -1);
        model.setData("own", 5, "Color", -1);

        QCOMPARE(described(model.defaultValue("bcs_contrast", "Color")), QString("int 0"));
        QCOMPARE(described(model.defaultValue("own", "Color")), QString("invalid"));
    }

    void defaultOfANestedType()
    {
        const EffectDefaultVal none[] = {::property(nullptr, 7), ::property("beyond", 1), ::property(nullptr, 0)};
        const EffectControlItem inner[] = {effectType("Color", AudioDefaultVal), effectType("Inner", BCSDefaultVal),
                                           effectType(nullptr, nullptr)};
        const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner),
                                           effectType("Color", BCSDefaultVal), effectType("Empty", none),
                                           effectType(nullptr, nullptr)};
        ZoEffectModel::InitEffectModel(table);
        QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Inner")), QString("int 0"));
        // The nested record comes first; the later one of that name is not asked.
        QCOMPARE(described(ZoEffectModel::defaultValue("play_loop", "Color")), QString("bool false"));
        QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Color")), QString("invalid"));
        // Types without properties.
        QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Group")), QString("invalid"));
        QCOMPARE(described(ZoEffectModel::defaultValue("beyond", "Empty")), QString("invalid"));
        QCOMPARE(described(ZoEffectModel::defaultValue("", "Empty")), QString("invalid"));

        ZoEffectModel::InitEffectModel(nullptr);
        QCOMPARE(logcapture::takeEvents(), QList<int>{25});
        QCOMPARE(described(ZoEffectModel::defaultValue("crop_left", "Crop")), QString("invalid"));
        saveCustomDefault("Crop", {{"crop_left", 5}});
        QCOMPARE(described(ZoEffectModel::defaultValue("crop_left", "Crop")), QString("int 5"));
        ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Crop");
        QCOMPARE(described(ZoEffectModel::defaultValue("crop_left", "Crop")), QString("invalid"));
    }

    void defaultOfCheckStateIsAnOrdinaryEntry()
    {
        registerOnly("Type", {::property("_checkstate", false), ::property("trackid", 4), ::property("trackid", 5),
                              ::property("void", QVariant()), ::property("void", 6)});

        QCOMPARE(described(ZoEffectModel::defaultValue("_checkstate", "Type")), QString("bool false"));
        QCOMPARE(described(ZoEffectModel::defaultValue("trackid", "Type")), QString("int 4"));
        QCOMPARE(described(ZoEffectModel::defaultValue("void", "Type")), QString("invalid"));
    }

    void currentItemAndBracketAreOnlyTold()
    {
        ZoEffectModel model;
        SignalRecorder recorded(model);
        const QString before = tree(rootOf(model));

        for (const char* word : {"Effect", "Unknown", ""}) {
            const QString type = word;
            // Nothing is kept: the same type is told again, and brackets need not match.
            for (int i = 0; i < 2; ++i) {
                model.setCurrentItem(type);
                QCOMPARE(recorded.take(), one("currentItemChanged(" + type + ")"));
                model.endChanged(type);
                QCOMPARE(recorded.take(), one("effectDataChanged(" + type + ")"));
                model.beginChange(type);
                QCOMPARE(recorded.take(), one("effectDataAboutChange(" + type + ")"));
            }
            for (const int index : {2, 2, -1, 99, INT_MIN}) {
                model.setCurrentSubItem(type, index);
                QCOMPARE(recorded.take(), one(QString("currentSubItemChanged(%1, %2)").arg(type).arg(index)));
            }
        }
        QCOMPARE(tree(rootOf(model)), before);

        // Single changes are told in a bracket as well.
        model.setData("crop_left", 10, "Crop", -1);
        QCOMPARE(recorded.take(), one("effectDataChanged(Crop, crop_left, int 10, -1)"));
    }
};

ZOEFFECT_TEST_MAIN(TstModelProperties)

#include "tst_model_properties.moc"
