// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Finding nodes, reading and writing values, defaults, and the signals that tell of changes.

#include <climits>
#include <cmath>
#include <limits>

#include <QPointer>
#include <QScopedPointer>
#include <QThread>
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

const QVariant invalid;
const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinity = std::numeric_limits<double>::infinity();

Node* rootOf(const ZoEffectModel& model)
{
    return model.findDataItem(QStringLiteral("effect root"), -1);
}

/// A node with a text of its own, by which tests tell nodes of equal names apart.
Node* marked(const QString& name, const QString& mark, Node* parent)
{
    Node* node = new Node(name, parent);
    node->setData(QStringLiteral("mark"), mark);
    return node;
}

QString markOf(const Node* node)
{
    return node ? node->data(QStringLiteral("mark")).toString() : QStringLiteral("none");
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
        nodes = {{"root", root}, {"A", a}, {"y", a->child(2)}, {"B", b}, {"q", b->child(1)}, {"C", c}};
    }

    ZoEffectModel model{QStringList{"none of the catalogue"}};
    QMap<QString, Node*> nodes;
};

void saveCustomDefault(const QString& type, const Properties& values)
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, values);
}

using FourArguments = void (ZoEffectModel::*)(const QString&, const QString&, const QVariant&, int);
constexpr FourArguments effectDataChanged = &ZoEffectModel::effectDataChanged;

} // namespace

/// A value of a host's own type.
struct HostValue {
    int number;
};
Q_DECLARE_METATYPE(HostValue)

class TstModelProperties : public QObject {
    Q_OBJECT

private slots:
    void valuesOfAHostsTypeAreStored();
    void init();
    void cleanup();

    void findsFirstNodeOfTheName_data();
    void findsFirstNodeOfTheName();
    void findsWithinTheSubtreeOfTheStart_data();
    void findsWithinTheSubtreeOfTheStart();
    void findsPosition_data();
    void findsPosition();
    void findsPositionBelowTheStart_data();
    void findsPositionBelowTheStart();
    void lookupFromNullIsLogged();
    void lookupFromNullWithPositionIsLogged_data();
    void lookupFromNullWithPositionIsLogged();
    void lookupFollowsTheNameNotTheObjectName();
    void lookupFollowsMovedNodes();
    void lookupTakesNodesOutsideTheModel();
    void lookupInADeepTreeDoesNotRecurse();
    void countsChildren_data();
    void countsChildren();
    void countOfAnUnknownTypeIsLogged_data();
    void countOfAnUnknownTypeIsLogged();
    void positionsOfTheCatalogue();

    void dataReads_data();
    void dataReads();
    void dataOfMissingTrackIdIsMinusOne();
    void dataOfCheckStateIsTheNodesState();
    void dataReadsWithoutSignalsOrLog();

    void subtitlePositionIsDerived_data();
    void subtitlePositionIsDerived();
    void subtitlePositionFollowsTheFactor_data();
    void subtitlePositionFollowsTheFactor();
    void subtitlePositionWithoutFactorIsZero();
    void subtitlePositionStaysDerivedUntilItIsSet();
    void subtitlePositionOfAnItem();
    void subtitlePositionFollowsTheHeight();
    void storedSubtitlePositionWrittenAgainStaysDerived();
    void subtitlePositionGivenToANewItemIsStoredNotRead();
    void derivedSubtitlePositionCanBeStored();
    void subtitleFlagIsSetSilently();
    void subtitleFlagIsForTheSubtitlePositionAlone_data();
    void subtitleFlagIsForTheSubtitlePositionAlone();

    void secondEqualWriteIsSilent();
    void setDataStoresAndTellsOnce_data();
    void setDataStoresAndTellsOnce();
    void setDataOnAMissingNodeIsLogged_data();
    void setDataOnAMissingNodeIsLogged();
    void equalValueIsNotWritten_data();
    void equalValueIsNotWritten();
    void missingTrackIdEqualsMinusOne_data();
    void missingTrackIdEqualsMinusOne();
    void setDataChangesNothingElse();
    void setDataOnTheFirstNodeOfTheName();
    void setDataKeyFirst();
    void checkStateIsSet_data();
    void checkStateIsSet();
    void checkStatePropertyIsNotTouched();
    void checkStateKeyIsMatchedExactly();
    void blockedSignalsStillWrite();
    void setDataKeepsCopiesApart();

    void listenerSeesTheStoredValue();
    void listenerSeesTheSubtitleFlag();
    void listenerSeesTheCheckState();
    void listenerMaySetAnotherKey();
    void listenerMaySetTheSameKey();
    void listenerMaySetTheValueBack();
    void listenerMayDeleteTheItem_data();
    void listenerMayDeleteTheItem();
    void listenerMayReplaceTheWholeTree_data();
    void listenerMayReplaceTheWholeTree();
    void listenerMayAddItems();
    void listenerMayAnswerTheBracket();

    void defaultIsFound_data();
    void defaultIsFound();
    void customDefaultComesFirst_data();
    void customDefaultComesFirst();
    void defaultOfARemovedCustomDefaultIsTheCatalogues();
    void defaultIgnoresTheModel();
    void defaultOfANestedType();
    void defaultOfATypeWithoutProperties();
    void defaultOfCheckStateIsAnOrdinaryEntry();

    void currentItemIsOnlyTold_data();
    void currentItemIsOnlyTold();
    void currentSubItemIsOnlyTold_data();
    void currentSubItemIsOnlyTold();
    void bracketIsOnlyTold_data();
    void bracketIsOnlyTold();
    void bracketStandsAroundSingleChanges();
    void notificationsAreNotHeldBack();
};

void TstModelProperties::valuesOfAHostsTypeAreStored()
{
    ZoEffectModel model;
    const QString left = QStringLiteral("crop_left");
    const QString crop = QStringLiteral("Crop");
    const auto number = [&] { return model.data(left, crop, -1).value<HostValue>().number; };
    QVERIFY(model.setData(left, QVariant::fromValue(HostValue{7}), crop, -1));
    QCOMPARE(number(), 7);
    QVERIFY(model.setData(left, QVariant::fromValue(HostValue{8}), crop, -1));
    QCOMPARE(number(), 8);
    QVERIFY(model.setData(left, 5, crop, -1));
    QCOMPARE(model.data(left, crop, -1), QVariant(5));
}

void TstModelProperties::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelProperties::cleanup()
{
    forgetCustomDefaults();
}

void TstModelProperties::findsFirstNodeOfTheName_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("mark");

    QTest::newRow("root") << "effect root"
                          << "root";
    QTest::newRow("first type") << "A"
                                << "A";
    QTest::newRow("item named like a later type") << "B"
                                                  << "B in A";
    QTest::newRow("last type") << "C"
                               << "C";
    QTest::newRow("item") << "x"
                          << "x";
    QTest::newRow("item after one with children") << "q"
                                                  << "q";
    QTest::newRow("child of an item") << "z"
                                      << "z";
    QTest::newRow("earlier item wins") << "p"
                                       << "p";
    QTest::newRow("empty name") << ""
                                << "nameless";
    QTest::newRow("null text") << QString() << "nameless";
    QTest::newRow("lower case") << "a"
                                << "none";
    QTest::newRow("upper case") << "X"
                                << "none";
    QTest::newRow("blank after") << "A "
                                 << "none";
    QTest::newRow("unknown") << "Crop"
                             << "none";
    QTest::newRow("beginning of a name") << "effect"
                                         << "none";
}

void TstModelProperties::findsFirstNodeOfTheName()
{
    QFETCH(QString, type);
    QFETCH(QString, mark);
    const LookupModel lookup;
    const ZoEffectModel& model = lookup.model;

    QCOMPARE(markOf(model.findDataItem(rootOf(model), type)), mark);
    QCOMPARE(markOf(model.findDataItem(rootOf(model), type, -1)), mark);
    QCOMPARE(markOf(model.findDataItem(type, -1)), mark);
    QCOMPARE(markOf(model.getDataItem(type, -1)), mark);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::findsWithinTheSubtreeOfTheStart_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("mark");

    QTest::newRow("start itself") << "B"
                                  << "B"
                                  << "B";
    QTest::newRow("start without children itself") << "q"
                                                   << "q"
                                                   << "q";
    QTest::newRow("child") << "B"
                           << "q"
                           << "q";
    QTest::newRow("grandchild") << "A"
                                << "z"
                                << "z";
    QTest::newRow("child named like another type") << "C"
                                                   << "A"
                                                   << "A in C";
    QTest::newRow("grandchild after a null entry of the root") << "C"
                                                               << "p"
                                                               << "p in C";
    QTest::newRow("child after a null entry") << "C"
                                              << ""
                                              << "nameless";
    QTest::newRow("parent of the start") << "B"
                                         << "effect root"
                                         << "none";
    QTest::newRow("earlier sibling of the start") << "B"
                                                  << "A"
                                                  << "none";
    QTest::newRow("later sibling of the start") << "B"
                                                << "C"
                                                << "none";
    QTest::newRow("unknown") << "A"
                             << "q"
                             << "none";
    QTest::newRow("below a start without children") << "q"
                                                    << "p"
                                                    << "none";
}

void TstModelProperties::findsWithinTheSubtreeOfTheStart()
{
    QFETCH(QString, start);
    QFETCH(QString, type);
    QFETCH(QString, mark);
    const LookupModel lookup;

    QCOMPARE(markOf(lookup.model.findDataItem(lookup.nodes.value(start), type)), mark);
    QCOMPARE(markOf(lookup.model.findDataItem(lookup.nodes.value(start), type, -1)), mark);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::findsPosition_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("mark");

    QTest::newRow("type itself") << "A" << -1 << "A";
    QTest::newRow("first item") << "A" << 0 << "x";
    QTest::newRow("second item") << "A" << 1 << "B in A";
    QTest::newRow("last item") << "A" << 2 << "y";
    QTest::newRow("count") << "A" << 3 << "none";
    QTest::newRow("beyond the count") << "A" << 4 << "none";
    QTest::newRow("minus two") << "A" << -2 << "none";
    QTest::newRow("largest position") << "A" << INT_MAX << "none";
    QTest::newRow("smallest position") << "A" << INT_MIN << "none";
    QTest::newRow("first node of the name has no items") << "B" << 0 << "none";
    QTest::newRow("item of an item") << "y" << 0 << "z";
    QTest::newRow("item of a leaf") << "z" << 0 << "none";
    QTest::newRow("null entry") << "effect root" << 0 << "none";
    QTest::newRow("type below the root") << "effect root" << 1 << "A";
    QTest::newRow("last type below the root") << "effect root" << 3 << "C";
    QTest::newRow("count of the root") << "effect root" << 4 << "none";
    QTest::newRow("null entry of a type") << "C" << 1 << "none";
    QTest::newRow("item after a null entry") << "C" << 2 << "nameless";
    QTest::newRow("unknown type itself") << "Crop" << -1 << "none";
    QTest::newRow("first item of an unknown type") << "Crop" << 0 << "none";
    QTest::newRow("bad position of an unknown type") << "Crop" << -2 << "none";
    QTest::newRow("nameless item itself") << "" << -1 << "nameless";
}

void TstModelProperties::findsPosition()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    QFETCH(QString, mark);
    const LookupModel lookup;
    const ZoEffectModel& model = lookup.model;

    QCOMPARE(markOf(model.findDataItem(type, pos)), mark);
    QCOMPARE(markOf(model.getDataItem(type, pos)), mark);
    QCOMPARE(markOf(model.findDataItem(rootOf(model), type, pos)), mark);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::findsPositionBelowTheStart_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("mark");

    QTest::newRow("start itself") << "B"
                                  << "B" << -1 << "B";
    QTest::newRow("child of the start") << "B"
                                        << "B" << 1 << "q";
    QTest::newRow("child of a child") << "C"
                                      << "A" << 0 << "p in C";
    QTest::newRow("count of the start") << "B"
                                        << "B" << 2 << "none";
    QTest::newRow("minus two") << "B"
                               << "B" << -2 << "none";
    QTest::newRow("type beside the start") << "B"
                                           << "A" << 0 << "none";
    QTest::newRow("type beside the start, itself") << "B"
                                                   << "A" << -1 << "none";
}

void TstModelProperties::findsPositionBelowTheStart()
{
    QFETCH(QString, start);
    QFETCH(QString, type);
    QFETCH(int, pos);
    QFETCH(QString, mark);
    const LookupModel lookup;

    QCOMPARE(markOf(lookup.model.findDataItem(lookup.nodes.value(start), type, pos)), mark);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::lookupFromNullIsLogged()
{
    const ZoEffectModel model;
    const Node* none = nullptr;

    QVERIFY(!model.findDataItem(none, QStringLiteral("Crop")));
    QCOMPARE(logcapture::takeEvents(), QList<int>{340});
    QVERIFY(!model.findDataItem(none, QStringLiteral("Unknown")));
    QCOMPARE(logcapture::takeEvents(), QList<int>{340});
}

void TstModelProperties::lookupFromNullWithPositionIsLogged_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("type itself") << "Crop" << -1;
    QTest::newRow("item") << "Effect" << 0;
    QTest::newRow("bad position") << "Crop" << -2;
    QTest::newRow("unknown type") << "Unknown" << 5;
}

void TstModelProperties::lookupFromNullWithPositionIsLogged()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    const ZoEffectModel model;
    const Node* none = nullptr;

    QVERIFY(!model.findDataItem(none, type, pos));
    QCOMPARE(logcapture::takeEvents(), QList<int>{316});
}

void TstModelProperties::lookupFollowsTheNameNotTheObjectName()
{
    const ZoEffectModel model;
    model.findDataItem("Crop", -1)->setObjectName("shown");
    model.findDataItem("Watermark", -1)->setObjectName("Crop");

    QVERIFY(!model.findDataItem("shown", -1));
    QCOMPARE(model.findDataItem("Crop", -1), rootOf(model)->child(0));
}

void TstModelProperties::lookupFollowsMovedNodes()
{
    const ZoEffectModel model;
    Node* root = rootOf(model);
    Node* color = root->takeAt(4);
    QVERIFY(!model.findDataItem("Color", -1));

    // Its recorded parent plays no part.
    model.findDataItem("Effect", -1)->insertChild(color, 1);
    QCOMPARE(model.findDataItem("Color", -1), color);
    QCOMPARE(model.findDataItem("Effect", 1), color);
    QCOMPARE(model.childCount("Effect"), 5);
}

void TstModelProperties::lookupTakesNodesOutsideTheModel()
{
    const ZoEffectModel model;
    const ZoEffectModel other;
    Node free(QStringLiteral("free"));
    Node* child = new Node(QStringLiteral("child"), &free);

    QCOMPARE(model.findDataItem(&free, QStringLiteral("child")), child);
    QCOMPARE(model.findDataItem(&free, QStringLiteral("free"), 0), child);
    QVERIFY(!model.findDataItem(&free, QStringLiteral("Crop")));
    QCOMPARE(model.findDataItem(rootOf(other), QStringLiteral("Crop")), other.findDataItem("Crop", -1));
    QVERIFY(model.findDataItem("Crop", -1) != other.findDataItem("Crop", -1));
}

void TstModelProperties::lookupInADeepTreeDoesNotRecurse()
{
    const ZoEffectModel model(QStringList{"Crop"});
    Node* last = model.findDataItem("Crop", -1);
    for (int i = 0; i < 200000; ++i)
        last = new Node(QStringLiteral("link"), last);
    Node* deepest = new Node(QStringLiteral("deepest"), last);
    Node* after = new Node(QStringLiteral("after"), rootOf(model));

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

void TstModelProperties::countsChildren_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("count");

    QTest::newRow("type with items") << "A" << 3;
    QTest::newRow("first node of the name counts") << "B" << 0;
    QTest::newRow("item with children") << "y" << 1;
    QTest::newRow("item without children") << "x" << 0;
    QTest::newRow("null entries count") << "C" << 3;
    QTest::newRow("root") << "effect root" << 4;
    QTest::newRow("nameless item") << "" << 0;
}

void TstModelProperties::countsChildren()
{
    QFETCH(QString, type);
    QFETCH(int, count);
    const LookupModel lookup;

    QCOMPARE(lookup.model.childCount(type), count);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::countOfAnUnknownTypeIsLogged_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("unknown") << "Unknown";
    QTest::newRow("lower case") << "crop";
    QTest::newRow("blank after") << "Crop ";
    QTest::newRow("empty") << "";
}

void TstModelProperties::countOfAnUnknownTypeIsLogged()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    SignalRecorder recorded(model);

    QCOMPARE(model.childCount(type), 0);

    QCOMPARE(logcapture::takeEvents(), QList<int>{246});
    QCOMPARE(recorded.take(), QStringList());
}

void TstModelProperties::positionsOfTheCatalogue()
{
    const ZoEffectModel model;

    QCOMPARE(model.childCount("Effect"), 4);
    QCOMPARE(model.childCount("Crop"), 0);
    QCOMPARE(model.findDataItem("Effect", 3)->name(), QStringLiteral("Sepia"));
    QCOMPARE(model.findDataItem("Sepia", -1), model.findDataItem("Effect", 3));
    QVERIFY(!model.findDataItem("Effect", 4));
    QVERIFY(!model.findDataItem("Crop", 0));
    QVERIFY(!model.findDataItem("Effect", -2));
    QCOMPARE(model.findDataItem("effect root", 5), model.findDataItem("Effect", -1));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::dataReads_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("value");

    QTest::newRow("number") << "crop_minwidth"
                            << "Crop" << -1 << "int 24";
    QTest::newRow("text") << "crop_width"
                          << "Crop" << -1 << "string source_val";
    QTest::newRow("font") << "wm_fontname"
                          << "Watermark" << -1 << "font Tahoma";
    QTest::newRow("color") << "sub_framecolor"
                           << "Subtitle" << -1 << "color #ff000000";
    QTest::newRow("fraction") << "wm_transfactor"
                              << "Watermark" << -1 << "double 2.5499999999999998";
    QTest::newRow("item") << "id"
                          << "Effect" << 2 << "int 13";
    QTest::newRow("item by its own name") << "id"
                                          << "Mirror" << -1 << "int 13";
    QTest::newRow("check state of a type") << "_checkstate"
                                           << "Crop" << -1 << "int 2";
    QTest::newRow("check state of an item") << "_checkstate"
                                            << "Effect" << 0 << "int 0";
    QTest::newRow("missing key") << "crop_right"
                                 << "Crop" << -1 << "invalid";
    QTest::newRow("key in other case") << "Crop_left"
                                       << "Crop" << -1 << "invalid";
    QTest::newRow("check state in other case") << "_CheckState"
                                               << "Crop" << -1 << "invalid";
    QTest::newRow("key of another type") << "crop_left"
                                         << "Watermark" << -1 << "invalid";
    QTest::newRow("key of the type at its item") << "crop_left"
                                                 << "Effect" << 0 << "invalid";
    QTest::newRow("empty key") << ""
                               << "Crop" << -1 << "invalid";
    QTest::newRow("unknown type") << "crop_left"
                                  << "Unknown" << -1 << "invalid";
    QTest::newRow("key and type exchanged") << "Crop"
                                            << "crop_left" << -1 << "invalid";
    QTest::newRow("type in other case") << "crop_left"
                                        << "crop" << -1 << "invalid";
    QTest::newRow("missing item") << "id"
                                  << "Effect" << 4 << "invalid";
    QTest::newRow("bad position") << "id"
                                  << "Effect" << -2 << "invalid";
    QTest::newRow("check state of a missing item") << "_checkstate"
                                                   << "Effect" << 4 << "invalid";
    QTest::newRow("track of a missing item") << "trackid"
                                             << "Effect" << 4 << "invalid";
    QTest::newRow("track of a type") << "trackid"
                                     << "Audio" << -1 << "int -1";
    QTest::newRow("track of an item") << "trackid"
                                      << "Effect" << 1 << "int -1";
    QTest::newRow("track in other case") << "trackId"
                                         << "Audio" << -1 << "invalid";
    QTest::newRow("subtitle position of a missing item") << "sub_vposition"
                                                         << "Subtitle" << 0 << "invalid";
    QTest::newRow("root") << "w"
                          << "effect root" << -1 << "invalid";
    QTest::newRow("check state of the root") << "_checkstate"
                                             << "effect root" << -1 << "int 2";
}

void TstModelProperties::dataReads()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    QFETCH(int, pos);
    QFETCH(QString, value);
    const ZoEffectModel model;

    QCOMPARE(described(model.data(key, type, pos)), value);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::dataOfMissingTrackIdIsMinusOne()
{
    ZoEffectModel model;
    QCOMPARE(described(model.data("trackid", "Subtitle", -1)), QStringLiteral("int -1"));

    QVERIFY(model.setData("trackid", 3, "Subtitle", -1));
    QCOMPARE(described(model.data("trackid", "Subtitle", -1)), QStringLiteral("int 3"));

    model.findDataItem("Subtitle", -1)->setData("trackid", QVariant());
    QCOMPARE(described(model.data("trackid", "Subtitle", -1)), QStringLiteral("invalid"));
}

void TstModelProperties::dataOfCheckStateIsTheNodesState()
{
    // A stored "_checkstate", which a type of the catalogue may bring, is not what is read.
    const EffectDefaultVal properties[] = {::property("_checkstate", false), ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Type", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    const ZoEffectModel model;

    QCOMPARE(described(model.data("_checkstate", "Type", -1)), QStringLiteral("int 2"));
    QCOMPARE(described(model.findDataItem("Type", -1)->data("_checkstate")), QStringLiteral("bool false"));

    model.findDataItem("Type", -1)->setCheckState(0);
    model.findDataItem("Type", -1)->setData("_checkstate", true);
    QCOMPARE(described(model.data("_checkstate", "Type", -1)), QStringLiteral("int 0"));
}

void TstModelProperties::dataReadsWithoutSignalsOrLog()
{
    ZoEffectModel model;
    model.setVideoSize(720, 576);
    SignalRecorder recorded(model);

    model.data("sub_vposition", "Subtitle", -1);
    model.data("_checkstate", "Subtitle", -1);
    model.data("trackid", "Subtitle", 5);
    model.data("crop_left", "Unknown", 0);
    ZoEffectModel::defaultValue("crop_left", "Unknown");

    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QVERIFY(!model.findDataItem("Subtitle", -1)->hasData("dvdsubtitleposeditbyuser"));
    QCOMPARE(described(model.findDataItem("Subtitle", -1)->data("sub_vposition")), QStringLiteral("int 200"));
}

void TstModelProperties::subtitlePositionIsDerived_data()
{
    QTest::addColumn<QVariant>("height");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("flag"); // Invalid for none.
    QTest::addColumn<QString>("value");

    QTest::newRow("height 576") << QVariant(576) << QVariant(200) << invalid << "double 460.80000000000001";
    QTest::newRow("height 480") << QVariant(480) << QVariant(200) << invalid << "double 384";
    QTest::newRow("height 1") << QVariant(1) << QVariant(200) << invalid << "double 0.80000000000000004";
    QTest::newRow("largest height") << QVariant(INT_MAX) << QVariant(200) << invalid << "double 1717986917.6000001";
    QTest::newRow("negative height") << QVariant(-100) << QVariant(200) << invalid << "double -80";
    QTest::newRow("height 0") << QVariant(0) << QVariant(200) << invalid << "int 200";
    QTest::newRow("no height") << invalid << QVariant(200) << invalid << "int 200";
    QTest::newRow("height as text") << QVariant("480") << QVariant(200) << invalid << "double 384";
    QTest::newRow("height that is no number") << QVariant("high") << QVariant(200) << invalid << "int 200";
    QTest::newRow("height that rounds up") << QVariant(479.5) << QVariant(200) << invalid << "double 384";
    QTest::newRow("height that rounds to nothing") << QVariant(0.4) << QVariant(200) << invalid << "int 200";
    QTest::newRow("negative height that rounds to nothing") << QVariant(-0.5) << QVariant(200) << invalid << "int 200";

    QTest::newRow("whatever text is stored") << QVariant(480) << QVariant("text") << invalid << "double 384";
    QTest::newRow("whatever fraction is stored") << QVariant(480) << QVariant(12.5) << invalid << "double 384";
    QTest::newRow("an invalid value is stored") << QVariant(480) << invalid << invalid << "double 384";
    QTest::newRow("text stored, height 0") << QVariant(0) << QVariant("text") << invalid << "string text";
    QTest::newRow("fraction stored, height 0") << QVariant(0) << QVariant(12.5) << invalid << "double 12.5";
    QTest::newRow("invalid value stored, height 0") << QVariant(0) << invalid << invalid << "invalid";

    QTest::newRow("flag true") << QVariant(480) << QVariant(200) << QVariant(true) << "int 200";
    QTest::newRow("flag false") << QVariant(480) << QVariant(200) << QVariant(false) << "double 384";
    QTest::newRow("flag 1") << QVariant(480) << QVariant(200) << QVariant(1) << "int 200";
    QTest::newRow("flag 0") << QVariant(480) << QVariant(200) << QVariant(0) << "double 384";
    QTest::newRow("flag text true") << QVariant(480) << QVariant(200) << QVariant("true") << "int 200";
    QTest::newRow("flag text false") << QVariant(480) << QVariant(200) << QVariant("false") << "double 384";
    QTest::newRow("flag text 0") << QVariant(480) << QVariant(200) << QVariant("0") << "double 384";
    QTest::newRow("flag empty text") << QVariant(480) << QVariant(200) << QVariant("") << "double 384";
    QTest::newRow("flag fraction that rounds to zero")
        << QVariant(480) << QVariant(200) << QVariant(0.3) << "double 384";
    QTest::newRow("flag no number") << QVariant(480) << QVariant(200) << QVariant(notANumber) << "double 384";
    QTest::newRow("flag true, height 0") << QVariant(0) << QVariant(200) << QVariant(true) << "int 200";
}

void TstModelProperties::subtitlePositionIsDerived()
{
    QFETCH(QVariant, height);
    QFETCH(QVariant, stored);
    QFETCH(QVariant, flag);
    QFETCH(QString, value);
    const ZoEffectModel model;
    rootOf(model)->setData("w", 720);
    if (height.isValid())
        rootOf(model)->setData("h", height);
    Node* subtitle = model.findDataItem("Subtitle", -1);
    subtitle->setData("sub_vposition", stored);
    if (flag.isValid())
        subtitle->setData("dvdsubtitleposeditbyuser", flag);
    const QString before = described(subtitle->properties());

    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), value);
    QCOMPARE(described(subtitle->properties()), before);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::subtitlePositionFollowsTheFactor_data()
{
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<QString>("value");

    QTest::newRow("half") << QVariant(0.5) << "double 240";
    QTest::newRow("quarter as text") << QVariant("0.25") << "double 120";
    QTest::newRow("one as number") << QVariant(1) << "double 480";
    QTest::newRow("zero") << QVariant(0.0) << "double 0";
    QTest::newRow("negative") << QVariant(-0.5) << "double -240";
    QTest::newRow("beyond the picture") << QVariant(1.5) << "double 720";
    QTest::newRow("no number") << QVariant("far down") << "double 0";
    QTest::newRow("invalid falls through to the catalogue") << invalid << "double 384";
}

void TstModelProperties::subtitlePositionFollowsTheFactor()
{
    QFETCH(QVariant, factor);
    QFETCH(QString, value);
    ZoEffectModel model;
    model.setVideoSize(720, 480);
    saveCustomDefault("Subtitle", {{"sub_vposfactor", factor}});
    // What the node itself holds plays no part.
    model.findDataItem("Subtitle", -1)->setData("sub_vposfactor", 0.9);

    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), value);
}

void TstModelProperties::subtitlePositionWithoutFactorIsZero()
{
    const EffectDefaultVal properties[] = {::property("sub_vposition", 200), ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Subtitle", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    model.setVideoSize(720, 480);

    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("double 0"));
}

void TstModelProperties::subtitlePositionStaysDerivedUntilItIsSet()
{
    ZoEffectModel model;
    model.setVideoSize(720, 576);
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("double 460.80000000000001"));

    // Writing past the model is no user's choice.
    model.findDataItem("Subtitle", -1)->setData("sub_vposition", 300);
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("double 460.80000000000001"));

    QVERIFY(model.setData("sub_vposition", 500, "Subtitle", -1));
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("int 500"));
    QCOMPARE(described(model.findDataItem("Subtitle", -1)->data("dvdsubtitleposeditbyuser")),
             QStringLiteral("bool true"));

    QVERIFY(model.setData("dvdsubtitleposeditbyuser", false, "Subtitle", -1));
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("double 460.80000000000001"));
}

void TstModelProperties::subtitlePositionOfAnItem()
{
    ZoEffectModel model;
    model.setVideoSize(720, 480);
    Node* subtitle = model.findDataItem("Subtitle", -1);
    new Node(QStringLiteral("bare"), subtitle);
    new Node(QStringLiteral("other"), subtitle);

    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QStringLiteral("double 384"));
    // By its own name the item is not addressed as a subtitle.
    QCOMPARE(described(model.data("sub_vposition", "bare", -1)), QStringLiteral("invalid"));

    QVERIFY(model.setData("sub_vposition", 100, "Subtitle", 0));
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QStringLiteral("int 100"));
    QCOMPARE(described(model.findDataItem("Subtitle", 0)->properties()),
             QStringLiteral("{dvdsubtitleposeditbyuser: bool true, sub_vposition: int 100}"));
    // Each node has a flag of its own.
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("double 384"));
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 1)), QStringLiteral("double 384"));
    QVERIFY(model.findDataItem("Subtitle", 1)->properties().isEmpty());
}

void TstModelProperties::subtitlePositionFollowsTheHeight()
{
    ZoEffectModel model;
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("int 200"));
    model.setVideoSize(0, 480);
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("double 384"));
    model.setVideoSize(720, 576);
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("double 460.80000000000001"));
    model.setVideoSize(720, 0);
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("int 200"));

    // The horizontal position and other types' keys never follow.
    model.setVideoSize(720, 480);
    QCOMPARE(described(model.data("sub_hposition", "Subtitle", -1)), QStringLiteral("int 200"));
    QCOMPARE(described(model.data("wm_vposition", "Watermark", -1)), QStringLiteral("int 30"));
    model.findDataItem("Watermark", -1)->setData("sub_vposition", 5);
    QCOMPARE(described(model.data("sub_vposition", "Watermark", -1)), QStringLiteral("int 5"));
    QCOMPARE(described(model.data("sub_Vposition", "Subtitle", -1)), QStringLiteral("invalid"));
}

void TstModelProperties::storedSubtitlePositionWrittenAgainStaysDerived()
{
    ZoEffectModel model;
    model.setVideoSize(720, 480);
    SignalRecorder recorded(model);

    QVERIFY(model.setData("sub_vposition", 200, "Subtitle", -1));
    QVERIFY(model.setData("sub_vposition", "200", "Subtitle", -1));

    QCOMPARE(recorded.take(), QStringList());
    QVERIFY(!model.findDataItem("Subtitle", -1)->hasData("dvdsubtitleposeditbyuser"));
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("double 384"));
}

void TstModelProperties::subtitlePositionGivenToANewItemIsStoredNotRead()
{
    ZoEffectModel model;
    model.setVideoSize(1280, 720);

    QVERIFY(model.addDataItem("Subtitle", {{"sub_vposition", 500}}));
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->data("sub_vposition")), QStringLiteral("int 500"));
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QStringLiteral("double 576"));

    QVERIFY(model.addDataItem("Subtitle", {{"sub_vposition", 500}, {"dvdsubtitleposeditbyuser", true}}));
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 1)), QStringLiteral("int 500"));
}

void TstModelProperties::derivedSubtitlePositionCanBeStored()
{
    ZoEffectModel model;
    model.setVideoSize(720, 480);
    SignalRecorder recorded(model);

    // It is the stored 200 that a new value is compared with, not the derived 384.
    QVERIFY(model.setData("sub_vposition", 384, "Subtitle", -1));

    QCOMPARE(recorded.take(), QStringList{"effectDataChanged(Subtitle, sub_vposition, int 384, -1)"});
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), QStringLiteral("int 384"));
}

void TstModelProperties::subtitleFlagIsSetSilently()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);

    QVERIFY(model.setData("sub_vposition", 500, "Subtitle", -1));

    QCOMPARE(recorded.take(), QStringList{"effectDataChanged(Subtitle, sub_vposition, int 500, -1)"});
    QCOMPARE(described(model.findDataItem("Subtitle", -1)->data("dvdsubtitleposeditbyuser")),
             QStringLiteral("bool true"));

    // A false that somebody stored is replaced, and again nothing is told.
    model.findDataItem("Subtitle", -1)->setData("dvdsubtitleposeditbyuser", false);
    QVERIFY(model.setData("sub_vposition", 501, "Subtitle", -1));
    QCOMPARE(recorded.take(), QStringList{"effectDataChanged(Subtitle, sub_vposition, int 501, -1)"});
    QCOMPARE(described(model.data("dvdsubtitleposeditbyuser", "Subtitle", -1)), QStringLiteral("bool true"));
}

void TstModelProperties::subtitleFlagIsForTheSubtitlePositionAlone_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");

    QTest::newRow("horizontal position") << "sub_hposition"
                                         << "Subtitle";
    QTest::newRow("factor") << "sub_vposfactor"
                            << "Subtitle";
    QTest::newRow("key in other case") << "sub_VPosition"
                                       << "Subtitle";
    QTest::newRow("another type") << "sub_vposition"
                                  << "Watermark";
    QTest::newRow("type in other case") << "sub_vposition"
                                        << "subtitle";
    QTest::newRow("root") << "sub_vposition"
                          << "effect root";
    QTest::newRow("check state") << "_checkstate"
                                 << "Subtitle";
}

void TstModelProperties::subtitleFlagIsForTheSubtitlePositionAlone()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    ZoEffectModel model;
    new Node(QStringLiteral("subtitle"), rootOf(model));
    const QVariant value = key == QLatin1String("_checkstate") ? QVariant(false) : QVariant(77);

    QVERIFY(model.setData(key, value, type, -1));

    QVERIFY(!model.findDataItem(type, -1)->hasData("dvdsubtitleposeditbyuser"));
    QVERIFY(!model.findDataItem("Subtitle", -1)->hasData("dvdsubtitleposeditbyuser"));
}

void TstModelProperties::secondEqualWriteIsSilent()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);

    QVERIFY(model.setData("crop_left", 10, "Crop", -1));
    QCOMPARE(recorded.take(), QStringList{"effectDataChanged(Crop, crop_left, int 10, -1)"});
    QVERIFY(model.setData("crop_left", 10, "Crop", -1));
    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::setDataStoresAndTellsOnce_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("told");

    QTest::newRow("number") << "crop_left" << QVariant(10) << "Crop" << -1
                            << "effectDataChanged(Crop, crop_left, int 10, -1)";
    QTest::newRow("number over text") << "crop_width" << QVariant(320) << "Crop" << -1
                                      << "effectDataChanged(Crop, crop_width, int 320, -1)";
    QTest::newRow("text over number") << "crop_left" << QVariant("left") << "Crop" << -1
                                      << "effectDataChanged(Crop, crop_left, string left, -1)";
    QTest::newRow("switch") << "crop_keepaspectratio" << QVariant(false) << "Crop" << -1
                            << "effectDataChanged(Crop, crop_keepaspectratio, bool false, -1)";
    QTest::newRow("color") << "sub_fontcolor" << QVariant(QColor(Qt::red)) << "Subtitle" << -1
                           << "effectDataChanged(Subtitle, sub_fontcolor, color #ffff0000, -1)";
    QTest::newRow("font") << "sub_fontname" << QVariant(QFont("Courier")) << "Subtitle" << -1
                          << "effectDataChanged(Subtitle, sub_fontname, font Courier, -1)";
    QTest::newRow("fraction") << "wm_vposfactor" << QVariant(0.25) << "Watermark" << -1
                              << "effectDataChanged(Watermark, wm_vposfactor, double 0.25, -1)";
    QTest::newRow("new key") << "own" << QVariant("value") << "Crop" << -1
                             << "effectDataChanged(Crop, own, string value, -1)";
    QTest::newRow("empty key") << "" << QVariant(1) << "Crop" << -1 << "effectDataChanged(Crop, , int 1, -1)";
    QTest::newRow("invalid over a number")
        << "crop_left" << invalid << "Crop" << -1 << "effectDataChanged(Crop, crop_left, invalid, -1)";
    QTest::newRow("map") << "own" << QVariant(QVariantMap{{"a", 1}}) << "Crop" << -1
                         << "effectDataChanged(Crop, own, map {a: int 1}, -1)";
    QTest::newRow("item") << "id" << QVariant(99) << "Effect" << 1 << "effectDataChanged(Effect, id, int 99, 1)";
    QTest::newRow("item by its own name")
        << "id" << QVariant(99) << "Sharpen" << -1 << "effectDataChanged(Sharpen, id, int 99, -1)";
    QTest::newRow("root") << "w" << QVariant(640) << "effect root" << -1
                          << "effectDataChanged(effect root, w, int 640, -1)";
    QTest::newRow("type as an item of the root")
        << "crop_left" << QVariant(5) << "effect root" << 0 << "effectDataChanged(effect root, crop_left, int 5, 0)";
    QTest::newRow("structure key") << "item_add" << QVariant(1) << "Crop" << -1
                                   << "effectDataChanged(Crop, item_add, int 1, -1)";
    QTest::newRow("check state in other case")
        << "_CHECKSTATE" << QVariant(false) << "Crop" << -1 << "effectDataChanged(Crop, _CHECKSTATE, bool false, -1)";
}

void TstModelProperties::setDataStoresAndTellsOnce()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, type);
    QFETCH(int, pos);
    QFETCH(QString, told);
    ZoEffectModel model;
    SignalRecorder recorded(model);

    QVERIFY(model.setData(key, value, type, pos));
    QCOMPARE(recorded.take(), QStringList{told});
    QVERIFY(model.findDataItem(type, pos)->hasData(key));
    QCOMPARE(described(model.findDataItem(type, pos)->data(key)), described(value));
    QCOMPARE(described(model.data(key, type, pos)), described(value));
    QCOMPARE(model.findDataItem(type, pos)->checkState(),
             type == QLatin1String("Effect") || type == QLatin1String("Sharpen") ? 0 : 2);

    QVERIFY(model.setData(key, value, type, pos));
    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::setDataOnAMissingNodeIsLogged_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("unknown type") << "crop_left"
                                  << "Unknown" << -1;
    QTest::newRow("type in other case") << "crop_left"
                                        << "crop" << -1;
    QTest::newRow("empty type") << "crop_left"
                                << "" << -1;
    QTest::newRow("missing item") << "id"
                                  << "Effect" << 4;
    QTest::newRow("no items at all") << "wm_fontsize"
                                     << "Watermark" << 0;
    QTest::newRow("minus two") << "id"
                               << "Effect" << -2;
    QTest::newRow("largest position") << "id"
                                      << "Effect" << INT_MAX;
    QTest::newRow("smallest position") << "id"
                                       << "Effect" << INT_MIN;
    QTest::newRow("check state of an unknown type") << "_checkstate"
                                                    << "Unknown" << -1;
    QTest::newRow("check state of a missing item") << "_checkstate"
                                                   << "Effect" << 4;
    QTest::newRow("position of a missing subtitle") << "sub_vposition"
                                                    << "Subtitle" << 0;
    QTest::newRow("key and type exchanged") << "Crop"
                                            << "crop_left" << -1;
}

void TstModelProperties::setDataOnAMissingNodeIsLogged()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    SignalRecorder recorded(model);

    QVERIFY(!model.setData(key, 5, type, pos));
    QCOMPARE(logcapture::takeEvents(), QList<int>{181});
    QVERIFY(!model.setData(key, QVariant(), type, pos));
    QCOMPARE(logcapture::takeEvents(), QList<int>{181});

    QCOMPARE(recorded.take(), QStringList());
    QCOMPARE(rootOf(model)->childCount(), 13);
    QVERIFY(rootOf(model)->properties().isEmpty());
    QCOMPARE(model.findDataItem("Effect", -1)->childCount(), 4);
}

void TstModelProperties::equalValueIsNotWritten_data()
{
    QTest::addColumn<QVariant>("stored"); // Invalid for a missing key, unless told otherwise.
    QTest::addColumn<bool>("present");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("equal");

    const auto pair = [](const char* name, const QVariant& stored, const QVariant& value, bool equal) {
        QTest::newRow(name) << stored << true << value << equal;
    };
    const auto missing = [](const char* name, const QVariant& value, bool equal) {
        QTest::newRow(name) << QVariant() << false << value << equal;
    };

    missing("missing, then invalid", invalid, true);
    missing("missing, then 0", 0, false);
    missing("missing, then empty text", QString(""), false);
    missing("missing, then null text", QString(), false);
    missing("missing, then false", false, false);
    missing("missing, then -1", -1, false);
    pair("invalid, then invalid", invalid, invalid, true);
    pair("invalid, then 0", invalid, 0, false);
    pair("invalid, then empty text", invalid, QString(""), false);
    pair("0, then invalid", 0, invalid, false);
    pair("empty text, then invalid", QString(""), invalid, false);
    pair("false, then invalid", false, invalid, false);

    pair("5, then text 5", 5, "5", true);
    pair("text 5, then 5", "5", 5, true);
    pair("5, then text 6", 5, "6", false);
    pair("5, then text +5", 5, "+5", true);
    pair("text +5, then 5", "+5", 5, false);
    pair("5, then text with a blank", 5, " 5", true);
    pair("text with a blank, then 5", " 5", 5, false);
    pair("text 05, then 5", "05", 5, false);
    pair("5, then text 05", 5, "05", true);
    pair("1, then text 1.0", 1, "1.0", false);
    pair("text 1.0, then 1", "1.0", 1, false);
    pair("1.0, then text 1", 1.0, "1", true);
    pair("text 1, then 1.0", "1", 1.0, true);
    pair("1.0, then text 1.0", 1.0, "1.0", true);
    pair("text 1.0, then 1.0", "1.0", 1.0, false);
    pair("0, then empty text", 0, "", false);
    pair("empty text, then 0", "", 0, false);
    pair("0, then abc", 0, "abc", false);
    pair("abc, then 0", "abc", 0, false);
    pair("0, then text false", 0, "false", false);

    pair("true, then 1", true, 1, true);
    pair("1, then true", 1, true, true);
    pair("true, then 2", true, 2, false);
    pair("2, then true", 2, true, false);
    pair("false, then 0", false, 0, true);
    pair("true, then text true", true, "true", true);
    pair("text true, then true", "true", true, true);
    pair("true, then abc", true, "abc", true);
    pair("abc, then true", "abc", true, false);
    pair("true, then text 1", true, "1", true);
    pair("text 1, then true", "1", true, false);
    pair("false, then empty text", false, "", true);
    pair("empty text, then false", "", false, false);
    pair("false, then text false", false, "false", true);
    pair("false, then true", false, true, false);

    pair("2, then 2.0", 2, 2.0, true);
    pair("2.0, then 2", 2.0, 2, true);
    pair("2, then 1.5", 2, 1.5, false);
    pair("1.5, then 2", 1.5, 2, false);
    pair("0, then 0.0", 0, 0.0, true);
    pair("0, then minus 0.0", 0, -0.0, true);
    pair("0.3, then 0.1 + 0.2", 0.3, 0.1 + 0.2, true);
    pair("0.1 + 0.2, then 0.3", 0.1 + 0.2, 0.3, true);
    pair("1.0, then within the tolerance", 1.0, 1.0000000000001, true);
    pair("1, then within the tolerance", 1, 1.0000000000001, true);
    pair("1.0, then beyond the tolerance", 1.0, 1.000000000002, false);
    pair("large, then within the tolerance", 1e9, 1e9 + 1e-4, true);
    pair("large, then beyond the tolerance", 1e9, 1e9 + 1e-2, false);
    pair("0.0, then nearly 0", 0.0, 1e-13, false);
    pair("nearly 0, then 0.0", 1e-13, 0.0, false);
    pair("no number, then no number", notANumber, notANumber, false);
    pair("no number, then 0", notANumber, 0, false);
    pair("infinite, then infinite", infinity, infinity, true);
    pair("1.5 in single precision, then 1.5", 1.5f, 1.5, true);
    pair("0.1 in single precision, then 0.1", 0.1f, 0.1, false);
    pair("5, then long 5", 5, qlonglong(5), true);
    pair("long 5, then 5", qlonglong(5), 5, true);
    pair("5, then unsigned 5", 5, 5U, true);
    pair("minus 1, then the largest unsigned", -1, 4294967295U, true);
    pair("largest int, then the same as double", INT_MAX, 2147483647.0, true);

    pair("equal texts", "Regular", "Regular", true);
    pair("texts in other case", "Regular", "regular", false);
    pair("texts with a blank", "Regular", "Regular ", false);
    pair("empty text, then null text", QString(""), QString(), true);
    pair("bytes 5, then 5", QByteArray("5"), 5, true);
    pair("5, then bytes 5", 5, QByteArray("5"), true);
    pair("bytes x, then text x", QByteArray("x"), "x", true);
    pair("text x, then bytes x", "x", QByteArray("x"), true);
    pair("text a, then list of a", "a", QStringList("a"), true);
    pair("list of a, then text a", QStringList("a"), "a", true);
    pair("text a, then list of a and b", "a", QStringList({"a", "b"}), false);
    pair("list of texts, then the same", QStringList({"a", "b"}), QStringList({"a", "b"}), true);
    pair("list of texts, then other order", QStringList({"a", "b"}), QStringList({"b", "a"}), false);
    pair("list of 1, then list of text 1", QVariantList{1}, QStringList{"1"}, true);

    pair("white, then #ffffff", QColor(Qt::white), "#ffffff", true);
    pair("#ffffff, then white", "#ffffff", QColor(Qt::white), true);
    pair("white, then text white", QColor(Qt::white), "white", true);
    pair("text white, then white", "white", QColor(Qt::white), false);
    pair("white, then #fffffe", QColor(Qt::white), "#fffffe", false);
    pair("white, then transparent white", QColor(Qt::white), QColor(255, 255, 255, 0), false);
    pair("red, then red as hue", QColor(Qt::red), QColor(Qt::red).toHsv(), false);
    pair("white, then 1", QColor(Qt::white), 1, false);
    pair("equal colors", QColor(Qt::white), QColor(255, 255, 255), true);

    pair("Tahoma, then text Tahoma", QFont("Tahoma"), "Tahoma", true);
    pair("text Tahoma, then Tahoma", "Tahoma", QFont("Tahoma"), false);
    pair("Tahoma, then text Arial", QFont("Tahoma"), "Arial", false);
    pair("equal fonts", QFont("Tahoma", 12), QFont("Tahoma", 12), true);
    pair("fonts of two sizes", QFont("Tahoma", 12), QFont("Tahoma", 13), false);
    pair("fonts of two families", QFont("Tahoma", 12), QFont("Arial", 12), false);

    pair("equal maps", QVariantMap{{"a", 1}}, QVariantMap{{"a", 1}}, true);
    pair("maps of equal values", QVariantMap{{"a", 1}}, QVariantMap{{"a", "1"}}, true);
    pair("maps of two values", QVariantMap{{"a", 1}}, QVariantMap{{"a", 2}}, false);
    pair("maps of two keys", QVariantMap{{"a", 1}}, QVariantMap{{"b", 1}}, false);
}

void TstModelProperties::equalValueIsNotWritten()
{
    QFETCH(QVariant, stored);
    QFETCH(bool, present);
    QFETCH(QVariant, value);
    QFETCH(bool, equal);
    ZoEffectModel model;
    SignalRecorder recorded(model);
    for (int pos : {-1, 0}) {
        Node* node = model.findDataItem("Effect", pos);
        if (present)
            node->setData("key", stored);

        QVERIFY(model.setData("key", value, "Effect", pos));

        QCOMPARE(recorded.take(), equal ? QStringList()
                                        : QStringList{QStringLiteral("effectDataChanged(Effect, key, %1, %2)")
                                                          .arg(described(value), QString::number(pos))});
        QCOMPARE(described(node->data("key")), equal ? described(stored) : described(value));
        QCOMPARE(node->hasData("key"), present || !equal);
    }
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::missingTrackIdEqualsMinusOne_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("equal");

    QTest::newRow("minus one") << QVariant(-1) << true;
    QTest::newRow("text minus one") << QVariant("-1") << true;
    QTest::newRow("minus one as double") << QVariant(-1.0) << true;
    QTest::newRow("zero") << QVariant(0) << false;
    QTest::newRow("one") << QVariant(1) << false;
    QTest::newRow("invalid") << QVariant() << false;
    QTest::newRow("empty text") << QVariant("") << false;
}

void TstModelProperties::missingTrackIdEqualsMinusOne()
{
    QFETCH(QVariant, value);
    QFETCH(bool, equal);
    ZoEffectModel model;
    SignalRecorder recorded(model);

    QVERIFY(model.setData("trackid", value, "Audio", -1));

    QCOMPARE(recorded.take(),
             equal ? QStringList()
                   : QStringList{QStringLiteral("effectDataChanged(Audio, trackid, %1, -1)").arg(described(value))});
    QCOMPARE(model.findDataItem("Audio", -1)->hasData("trackid"), !equal);
    QCOMPARE(described(model.data("trackid", "Audio", -1)), equal ? QStringLiteral("int -1") : described(value));
}

void TstModelProperties::setDataChangesNothingElse()
{
    ZoEffectModel model;
    const ZoEffectModel untouched;
    model.setData("bcs_contrast", 5, "Color", -1);

    for (int i = 0; i < 13; ++i) {
        const Node* node = rootOf(model)->child(i);
        const Node* same = rootOf(untouched)->child(i);
        if (node->name() == QLatin1String("Color"))
            QCOMPARE(described(node->properties()),
                     QStringLiteral("{bcs_brightness: int 0, bcs_contrast: int 5, bcs_saturation: int 0}"));
        else
            QCOMPARE(described(node->properties()), described(same->properties()));
        QCOMPARE(node->checkState(), 2);
        QCOMPARE(node->childCount(), same->childCount());
    }
    QVERIFY(rootOf(model)->properties().isEmpty());
    QVERIFY(!model.editByUser());
    QVERIFY(!model.editByDefault());
    QCOMPARE(TestApplication::instance()->pref.takeWrites(), QStringList());
}

void TstModelProperties::setDataOnTheFirstNodeOfTheName()
{
    LookupModel lookup;
    SignalRecorder recorded(lookup.model);

    QVERIFY(lookup.model.setData("key", 5, "B", -1));

    QCOMPARE(recorded.take(), QStringList{"effectDataChanged(B, key, int 5, -1)"});
    QVERIFY(lookup.nodes.value("A")->child(1)->hasData("key"));
    QVERIFY(!lookup.nodes.value("B")->hasData("key"));

    // That one has no items, so that those of the later node are out of reach.
    QVERIFY(!lookup.model.setData("key", 5, "B", 0));
    QCOMPARE(logcapture::takeEvents(), QList<int>{181});
    // A null entry is no node.
    QVERIFY(!lookup.model.setData("key", 5, "C", 1));
    QCOMPARE(logcapture::takeEvents(), QList<int>{181});
    QCOMPARE(recorded.take(), QStringList());
}

void TstModelProperties::setDataKeyFirst()
{
    ZoEffectModel model;
    model.findDataItem("Crop", -1)->setData("Color", 1);

    // Both words are types and keys here: the first is taken as the key.
    QVERIFY(model.setData("Color", 2, "Crop", -1));

    QCOMPARE(described(model.findDataItem("Crop", -1)->data("Color")), QStringLiteral("int 2"));
    QVERIFY(!model.findDataItem("Color", -1)->hasData("Crop"));
    QCOMPARE(described(model.data("Color", "Crop", -1)), QStringLiteral("int 2"));
}

void TstModelProperties::checkStateIsSet_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("after");
    QTest::addColumn<QString>("told"); // Empty for no signal.

    QTest::newRow("on, true") << 2 << QVariant(true) << 2 << "";
    QTest::newRow("on, 1") << 2 << QVariant(1) << 2 << "";
    QTest::newRow("on, 2") << 2 << QVariant(2) << 2 << "";
    QTest::newRow("on, any text") << 2 << QVariant("no") << 2 << "";
    QTest::newRow("on, false") << 2 << QVariant(false) << 0 << "bool false";
    QTest::newRow("on, 0") << 2 << QVariant(0) << 0 << "int 0";
    QTest::newRow("on, text 0") << 2 << QVariant("0") << 0 << "string 0";
    QTest::newRow("on, text false") << 2 << QVariant("false") << 0 << "string false";
    QTest::newRow("on, text FALSE") << 2 << QVariant("FALSE") << 0 << "string FALSE";
    QTest::newRow("on, empty text") << 2 << QVariant("") << 0 << "string ";
    QTest::newRow("on, invalid") << 2 << invalid << 0 << "invalid";
    QTest::newRow("on, fraction that rounds to zero") << 2 << QVariant(0.25) << 0 << "double 0.25";
    QTest::newRow("on, fraction that rounds to one") << 2 << QVariant(0.5) << 2 << "";
    QTest::newRow("on, no number") << 2 << QVariant(notANumber) << 0 << "double nan";
    QTest::newRow("on, color") << 2 << QVariant(QColor(Qt::white)) << 0 << "color #ffffffff";
    QTest::newRow("off, false") << 0 << QVariant(false) << 0 << "";
    QTest::newRow("off, 0") << 0 << QVariant(0) << 0 << "";
    QTest::newRow("off, invalid") << 0 << invalid << 0 << "";
    QTest::newRow("off, text 0") << 0 << QVariant("0") << 0 << "";
    QTest::newRow("off, no number") << 0 << QVariant(notANumber) << 0 << "";
    QTest::newRow("off, true") << 0 << QVariant(true) << 2 << "bool true";
    QTest::newRow("off, 1") << 0 << QVariant(1) << 2 << "int 1";
    QTest::newRow("off, 5") << 0 << QVariant(5) << 2 << "int 5";
    QTest::newRow("off, minus 1") << 0 << QVariant(-1) << 2 << "int -1";
    QTest::newRow("off, any text") << 0 << QVariant("no") << 2 << "string no";
    QTest::newRow("off, text 00") << 0 << QVariant("00") << 2 << "string 00";
    QTest::newRow("partly, true") << 1 << QVariant(true) << 2 << "bool true";
    QTest::newRow("partly, 1") << 1 << QVariant(1) << 2 << "int 1";
    QTest::newRow("partly, false") << 1 << QVariant(false) << 0 << "bool false";
    QTest::newRow("none of Qt's, true") << 7 << QVariant(true) << 2 << "bool true";
}

void TstModelProperties::checkStateIsSet()
{
    QFETCH(int, before);
    QFETCH(QVariant, value);
    QFETCH(int, after);
    QFETCH(QString, told);
    ZoEffectModel model;
    SignalRecorder recorded(model);
    for (int pos : {-1, 1}) {
        Node* node = model.findDataItem("Effect", pos);
        const QString properties = described(node->properties());
        node->setCheckState(before);

        QVERIFY(model.setData("_checkstate", value, "Effect", pos));

        QCOMPARE(node->checkState(), after);
        QCOMPARE(
            recorded.take(),
            told.isEmpty()
                ? QStringList()
                : QStringList{
                    QStringLiteral("effectDataChanged(Effect, _checkstate, %1, %2)").arg(told, QString::number(pos))});
        QCOMPARE(described(model.data("_checkstate", "Effect", pos)), QStringLiteral("int %1").arg(after));
        QCOMPARE(described(node->properties()), properties);
    }
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::checkStatePropertyIsNotTouched()
{
    // A stored "_checkstate" neither counts nor changes.
    ZoEffectModel model;
    SignalRecorder recorded(model);
    Node* crop = model.findDataItem("Crop", -1);
    crop->setData("_checkstate", false);

    QVERIFY(model.setData("_checkstate", true, "Crop", -1));
    QCOMPARE(recorded.take(), QStringList());
    QVERIFY(model.setData("_checkstate", false, "Crop", -1));
    QCOMPARE(recorded.take(), QStringList{"effectDataChanged(Crop, _checkstate, bool false, -1)"});
    QVERIFY(model.setData("_checkstate", true, "Crop", -1));
    QCOMPARE(recorded.take(), QStringList{"effectDataChanged(Crop, _checkstate, bool true, -1)"});
    QCOMPARE(described(crop->data("_checkstate")), QStringLiteral("bool false"));
}

void TstModelProperties::checkStateKeyIsMatchedExactly()
{
    ZoEffectModel model;

    QVERIFY(model.setData("_CheckState", false, "Audio", -1));
    QVERIFY(model.setData("checkstate", false, "Audio", -1));
    QVERIFY(model.setData("_checkstate ", false, "Audio", -1));

    QCOMPARE(model.findDataItem("Audio", -1)->checkState(), 2);
    QCOMPARE(described(model.findDataItem("Audio", -1)->properties()),
             QStringLiteral("{_CheckState: bool false, _checkstate : bool false, checkstate: bool false, "
                            "play_loop: bool false}"));
}

void TstModelProperties::blockedSignalsStillWrite()
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
    QCOMPARE(described(model.data("crop_left", "Crop", -1)), QStringLiteral("int 10"));
    QCOMPARE(described(model.data("_checkstate", "Crop", -1)), QStringLiteral("int 0"));
}

void TstModelProperties::setDataKeepsCopiesApart()
{
    ZoEffectModel model;
    ZoEffectModel copy(model);
    SignalRecorder ofModel(model);
    SignalRecorder ofCopy(copy);

    QVERIFY(copy.setData("crop_left", 10, "Crop", -1));

    QCOMPARE(ofModel.take(), QStringList());
    QCOMPARE(ofCopy.take(), QStringList{"effectDataChanged(Crop, crop_left, int 10, -1)"});
    QCOMPARE(described(model.data("crop_left", "Crop", -1)), QStringLiteral("int 0"));
}

void TstModelProperties::listenerSeesTheStoredValue()
{
    ZoEffectModel model;
    QStringList seen;
    connect(&model, effectDataChanged, this, [&](const QString& type, const QString& key, const QVariant&, int pos) {
        seen << described(model.data(key, type, pos));
    });

    model.setData("crop_left", 10, "Crop", -1);
    model.setData("id", "new", "Effect", 2);

    QCOMPARE(seen, QStringList({"int 10", "string new"}));
}

void TstModelProperties::listenerSeesTheSubtitleFlag()
{
    ZoEffectModel model;
    model.setVideoSize(720, 480);
    QStringList seen;
    connect(&model, effectDataChanged, this, [&] {
        seen << described(model.data("sub_vposition", "Subtitle", -1))
             << described(model.data("dvdsubtitleposeditbyuser", "Subtitle", -1));
    });

    model.setData("sub_vposition", 10, "Subtitle", -1);

    QCOMPARE(seen, QStringList({"int 10", "bool true"}));
}

void TstModelProperties::listenerSeesTheCheckState()
{
    ZoEffectModel model;
    QStringList seen;
    connect(&model, effectDataChanged, this, [&](const QString&, const QString&, const QVariant& value, int) {
        seen << described(value) << described(model.data("_checkstate", "Crop", -1));
    });

    model.setData("_checkstate", "0", "Crop", -1);

    QCOMPARE(seen, QStringList({"string 0", "int 0"}));
}

void TstModelProperties::listenerMaySetAnotherKey()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);
    connect(&model, effectDataChanged, this, [&] { QVERIFY(model.setData("crop_top", 20, "Crop", -1)); });

    QVERIFY(model.setData("crop_left", 10, "Crop", -1));

    QCOMPARE(recorded.take(), QStringList({"effectDataChanged(Crop, crop_left, int 10, -1)",
                                           "effectDataChanged(Crop, crop_top, int 20, -1)"}));
    QCOMPARE(described(model.data("crop_left", "Crop", -1)), QStringLiteral("int 10"));
    QCOMPARE(described(model.data("crop_top", "Crop", -1)), QStringLiteral("int 20"));
}

void TstModelProperties::listenerMaySetTheSameKey()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);
    connect(&model, effectDataChanged, this, [&] { QVERIFY(model.setData("sub_vposition", 20, "Subtitle", -1)); });

    QVERIFY(model.setData("sub_vposition", 10, "Subtitle", -1));

    QCOMPARE(recorded.take(), QStringList({"effectDataChanged(Subtitle, sub_vposition, int 10, -1)",
                                           "effectDataChanged(Subtitle, sub_vposition, int 20, -1)"}));
    QCOMPARE(described(model.findDataItem("Subtitle", -1)->data("sub_vposition")), QStringLiteral("int 20"));
}

void TstModelProperties::listenerMaySetTheValueBack()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);
    connect(&model, effectDataChanged, this, [&] { QVERIFY(model.setData("_checkstate", true, "Crop", -1)); });

    QVERIFY(model.setData("_checkstate", false, "Crop", -1));

    QCOMPARE(recorded.take(), QStringList({"effectDataChanged(Crop, _checkstate, bool false, -1)",
                                           "effectDataChanged(Crop, _checkstate, bool true, -1)"}));
    QCOMPARE(model.findDataItem("Crop", -1)->checkState(), 2);
}

void TstModelProperties::listenerMayDeleteTheItem_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");

    QTest::newRow("value") << "wm_fontsize"
                           << "Watermark";
    QTest::newRow("check state") << "_checkstate"
                                 << "Watermark";
    QTest::newRow("subtitle position") << "sub_vposition"
                                       << "Subtitle";
}

void TstModelProperties::listenerMayDeleteTheItem()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    ZoEffectModel model;
    QVERIFY(model.addDataItem(type, {}));
    const QPointer<Node> item = model.findDataItem(type, 0);
    QVERIFY(item);
    bool deleted = false;
    const auto connection = connect(&model, effectDataChanged, this, [&](const QString&, const QString& changed) {
        if (changed == key)
            deleted = model.delDataItem(type, 0);
    });

    QVERIFY(model.setData(key, 0, type, 0));

    disconnect(connection);
    QVERIFY(deleted);
    QVERIFY(!item);
    QCOMPARE(model.childCount(type), 0);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::listenerMayReplaceTheWholeTree_data()
{
    QTest::addColumn<QString>("how");

    QTest::newRow("assignment") << "assignment";
    QTest::newRow("reset") << "reset";
    QTest::newRow("all types deleted") << "clear";
}

void TstModelProperties::listenerMayReplaceTheWholeTree()
{
    QFETCH(QString, how);
    ZoEffectModel model;
    const ZoEffectModel other(QStringList{"Color"});
    const QPointer<Node> crop = model.findDataItem("Crop", -1);
    connect(&model, effectDataChanged, this, [&] {
        if (how == QLatin1String("assignment"))
            model = other;
        else if (how == QLatin1String("reset"))
            model.resetAllEffect();
        else
            rootOf(model)->clear();
    });

    QVERIFY(model.setData("crop_left", 10, "Crop", -1));

    if (how == QLatin1String("reset")) {
        QCOMPARE(described(model.data("crop_left", "Crop", -1)), QStringLiteral("int 0"));
    } else {
        QVERIFY(!crop);
        QVERIFY(!model.findDataItem("Crop", -1));
    }
}

void TstModelProperties::listenerMayAddItems()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);
    int rounds = 0;
    connect(&model, effectDataChanged, this, [&] {
        if (++rounds == 1)
            QVERIFY(model.insertDataItem("Subtitle", {}, 0));
    });

    QVERIFY(model.setData("sub_fontsize", 10, "Subtitle", -1));

    QCOMPARE(recorded.take(), QStringList({"effectDataChanged(Subtitle, sub_fontsize, int 10, -1)",
                                           "effectDataChanged(Subtitle, item_add, invalid, 0)"}));
    QCOMPARE(model.childCount("Subtitle"), 1);
}

void TstModelProperties::listenerMayAnswerTheBracket()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);
    connect(&model, &ZoEffectModel::currentItemChanged, this, [&](const QString& type) { model.beginChange(type); });
    connect(&model, &ZoEffectModel::effectDataAboutChange, this,
            [&](const QString& type) { model.setCurrentSubItem(type, 1); });
    connect(&model, &ZoEffectModel::currentSubItemChanged, this,
            [&](const QString& type, int) { model.endChanged(type); });

    model.setCurrentItem("Crop");

    QCOMPARE(recorded.take(), QStringList({"currentItemChanged(Crop)", "effectDataAboutChange(Crop)",
                                           "currentSubItemChanged(Crop, 1)", "effectDataChanged(Crop)"}));
}

void TstModelProperties::defaultIsFound_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");

    QTest::newRow("number") << "crop_minwidth"
                            << "Crop"
                            << "int 24";
    QTest::newRow("text") << "crop_width"
                          << "Crop"
                          << "string source_val";
    QTest::newRow("switch") << "audio_fade_out_enable"
                            << "Audio_Fade_Inout"
                            << "bool true";
    QTest::newRow("font") << "sub_fontname"
                          << "Subtitle"
                          << "font Tahoma";
    QTest::newRow("color") << "sub_framecolor"
                           << "Subtitle"
                           << "color #ff000000";
    QTest::newRow("fraction") << "sub_vposfactor"
                              << "Subtitle"
                              << "double 0.80000000000000004";
    QTest::newRow("subtitle position is the catalogue's") << "sub_vposition"
                                                          << "Subtitle"
                                                          << "int 200";
    QTest::newRow("last property") << "fontstyleusedefault"
                                   << "Subtitle"
                                   << "bool true";
    QTest::newRow("unknown key") << "own"
                                 << "Crop"
                                 << "invalid";
    QTest::newRow("empty key") << ""
                               << "Crop"
                               << "invalid";
    QTest::newRow("key in other case") << "Crop_left"
                                       << "Crop"
                                       << "invalid";
    QTest::newRow("key of another type") << "crop_left"
                                         << "Color"
                                         << "invalid";
    QTest::newRow("unknown type") << "crop_left"
                                  << "Unknown"
                                  << "invalid";
    QTest::newRow("type in other case") << "crop_left"
                                        << "crop"
                                        << "invalid";
    QTest::newRow("empty type") << "crop_left"
                                << ""
                                << "invalid";
    QTest::newRow("key and type exchanged") << "Crop"
                                            << "crop_left"
                                            << "invalid";
    QTest::newRow("track") << "trackid"
                           << "Audio"
                           << "invalid";
    QTest::newRow("check state") << "_checkstate"
                                 << "Crop"
                                 << "invalid";
    QTest::newRow("type with sub-items alone") << "_checkstate"
                                               << "Effect"
                                               << "invalid";
    QTest::newRow("sub-item") << "_checkstate"
                              << "Blur"
                              << "invalid";
    QTest::newRow("id of a sub-item") << "id"
                                      << "Effect"
                                      << "invalid";
    QTest::newRow("root") << "w"
                          << "effect root"
                          << "invalid";
}

void TstModelProperties::defaultIsFound()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    QFETCH(QString, value);

    QCOMPARE(described(ZoEffectModel::defaultValue(key, type)), value);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::customDefaultComesFirst_data()
{
    QTest::addColumn<QString>("savedType");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");

    const auto row = [](const char* name, const char* savedType, const Properties& saved, const char* key,
                        const char* type, const char* value) {
        QTest::newRow(name) << QString::fromLatin1(savedType) << saved << QString::fromLatin1(key)
                            << QString::fromLatin1(type) << QString::fromLatin1(value);
    };
    row("saved", "Color", {{"bcs_contrast", 5}}, "bcs_contrast", "Color", "int 5");
    row("saved in another type of value", "Color", {{"bcs_contrast", "five"}}, "bcs_contrast", "Color", "string five");
    row("another key is saved", "Color", {{"bcs_contrast", 5}}, "bcs_brightness", "Color", "int 0");
    row("saved for another type", "Audio", {{"bcs_contrast", 5}}, "bcs_contrast", "Color", "int 0");
    row("saved for the type in other case", "color", {{"bcs_contrast", 5}}, "bcs_contrast", "Color", "int 0");
    row("saved key in other case", "Color", {{"BCS_contrast", 5}}, "bcs_contrast", "Color", "int 0");
    row("saved key that the catalogue lacks", "Color", {{"own", 5}}, "own", "Color", "int 5");
    row("saved type that the catalogue lacks", "Unknown", {{"own", 5}}, "own", "Unknown", "int 5");
    row("saved invalid", "Color", {{"bcs_contrast", QVariant()}}, "bcs_contrast", "Color", "int 0");
    row("saved invalid, key that the catalogue lacks", "Color", {{"own", QVariant()}}, "own", "Color", "invalid");
    row("saved empty", "Color", {}, "bcs_contrast", "Color", "int 0");
    row("saved zero is a value", "Color", {{"bcs_contrast", 0.0}}, "bcs_contrast", "Color", "double 0");
    row("saved null text is a value", "Crop", {{"crop_aspectratio", QString()}}, "crop_aspectratio", "Crop", "string ");
    row("crop", "Crop", {{"crop_left", 5}}, "crop_left", "Crop", "int 5");
    row("watermark", "Watermark", {{"wm_vposfactor", 0.5}}, "wm_vposfactor", "Watermark", "double 0.5");
    row("effect", "Effect", {{"Effect", "Blur|true"}}, "Effect", "Effect", "string Blur|true");
    row("check state", "Color", {{"_checkstate", false}}, "_checkstate", "Color", "bool false");
    row("track", "Audio", {{"own", 1}}, "trackid", "Audio", "invalid");
}

void TstModelProperties::customDefaultComesFirst()
{
    QFETCH(QString, savedType);
    QFETCH(Properties, saved);
    QFETCH(QString, key);
    QFETCH(QString, type);
    QFETCH(QString, value);
    saveCustomDefault(savedType, saved);

    QCOMPARE(described(ZoEffectModel::defaultValue(key, type)), value);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::defaultOfARemovedCustomDefaultIsTheCatalogues()
{
    saveCustomDefault("Color", {{"bcs_contrast", 5}});
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal("Color");

    QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Color")), QStringLiteral("int 0"));
}

void TstModelProperties::defaultIgnoresTheModel()
{
    ZoEffectModel model;
    model.setData("bcs_contrast", 5, "Color", -1);
    model.setData("own", 5, "Color", -1);

    QCOMPARE(described(model.defaultValue("bcs_contrast", "Color")), QStringLiteral("int 0"));
    QCOMPARE(described(model.defaultValue("own", "Color")), QStringLiteral("invalid"));
}

void TstModelProperties::defaultOfANestedType()
{
    const EffectControlItem inner[] = {effectType("Color", AudioDefaultVal), effectType("Inner", BCSDefaultVal),
                                       effectType(nullptr, nullptr)};
    const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner), effectType("Color", BCSDefaultVal),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Inner")), QStringLiteral("int 0"));
    // The nested record comes first; the later one of that name is not asked.
    QCOMPARE(described(ZoEffectModel::defaultValue("play_loop", "Color")), QStringLiteral("bool false"));
    QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Color")), QStringLiteral("invalid"));
    QCOMPARE(described(ZoEffectModel::defaultValue("bcs_contrast", "Group")), QStringLiteral("invalid"));
}

void TstModelProperties::defaultOfATypeWithoutProperties()
{
    const EffectDefaultVal none[] = {::property(nullptr, 7), ::property("beyond", 1), ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Null", nullptr), effectType("Empty", none),
                                       effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(described(ZoEffectModel::defaultValue("beyond", "Null")), QStringLiteral("invalid"));
    QCOMPARE(described(ZoEffectModel::defaultValue("beyond", "Empty")), QStringLiteral("invalid"));
    QCOMPARE(described(ZoEffectModel::defaultValue("", "Empty")), QStringLiteral("invalid"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());

    ZoEffectModel::InitEffectModel(nullptr);
    logcapture::takeEvents();
    QCOMPARE(described(ZoEffectModel::defaultValue("crop_left", "Crop")), QStringLiteral("invalid"));
    saveCustomDefault("Crop", {{"crop_left", 5}});
    QCOMPARE(described(ZoEffectModel::defaultValue("crop_left", "Crop")), QStringLiteral("int 5"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::defaultOfCheckStateIsAnOrdinaryEntry()
{
    const EffectDefaultVal properties[] = {
        ::property("_checkstate", false), ::property("trackid", 4), ::property("trackid", 5),
        ::property("void", QVariant()),   ::property("void", 6),    ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Type", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);

    QCOMPARE(described(ZoEffectModel::defaultValue("_checkstate", "Type")), QStringLiteral("bool false"));
    QCOMPARE(described(ZoEffectModel::defaultValue("trackid", "Type")), QStringLiteral("int 4"));
    QCOMPARE(described(ZoEffectModel::defaultValue("void", "Type")), QStringLiteral("invalid"));
}

void TstModelProperties::currentItemIsOnlyTold_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("type") << "Watermark";
    QTest::newRow("unknown type") << "Unknown";
    QTest::newRow("empty") << "";
}

void TstModelProperties::currentItemIsOnlyTold()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    SignalRecorder recorded(model);

    model.setCurrentItem(type);
    QCOMPARE(recorded.take(), QStringList{QStringLiteral("currentItemChanged(%1)").arg(type)});
    // Nothing is kept: the same type is told again.
    model.setCurrentItem(type);
    QCOMPARE(recorded.take(), QStringList{QStringLiteral("currentItemChanged(%1)").arg(type)});

    QVERIFY(rootOf(model)->properties().isEmpty());
    QCOMPARE(rootOf(model)->childCount(), 13);
    for (int i = 0; i < 13; ++i)
        QCOMPARE(rootOf(model)->child(i)->checkState(), 2);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::currentSubItemIsOnlyTold_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("told");

    QTest::newRow("item") << "Effect" << 2 << "currentSubItemChanged(Effect, 2)";
    QTest::newRow("type itself") << "Effect" << -1 << "currentSubItemChanged(Effect, -1)";
    QTest::newRow("missing item") << "Effect" << 99 << "currentSubItemChanged(Effect, 99)";
    QTest::newRow("bad index") << "Effect" << INT_MIN << "currentSubItemChanged(Effect, -2147483648)";
    QTest::newRow("unknown type") << "Unknown" << 0 << "currentSubItemChanged(Unknown, 0)";
    QTest::newRow("empty type") << "" << INT_MAX << "currentSubItemChanged(, 2147483647)";
}

void TstModelProperties::currentSubItemIsOnlyTold()
{
    QFETCH(QString, type);
    QFETCH(int, index);
    QFETCH(QString, told);
    ZoEffectModel model;
    SignalRecorder recorded(model);

    model.setCurrentSubItem(type, index);
    QCOMPARE(recorded.take(), QStringList{told});
    model.setCurrentSubItem(type, index);
    QCOMPARE(recorded.take(), QStringList{told});

    QVERIFY(rootOf(model)->properties().isEmpty());
    for (int i = 0; i < 4; ++i)
        QCOMPARE(model.findDataItem("Effect", i)->checkState(), 0);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::bracketIsOnlyTold_data()
{
    currentItemIsOnlyTold_data();
}

void TstModelProperties::bracketIsOnlyTold()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    SignalRecorder recorded(model);

    model.beginChange(type);
    QCOMPARE(recorded.take(), QStringList{QStringLiteral("effectDataAboutChange(%1)").arg(type)});
    model.endChanged(type);
    QCOMPARE(recorded.take(), QStringList{QStringLiteral("effectDataChanged(%1)").arg(type)});
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelProperties::bracketStandsAroundSingleChanges()
{
    ZoEffectModel model;
    SignalRecorder recorded(model);

    model.beginChange("Crop");
    model.setData("crop_left", 10, "Crop", -1);
    model.setData("crop_left", 10, "Crop", -1);
    model.setData("bcs_contrast", 5, "Color", -1);
    model.endChanged("Crop");

    QCOMPARE(recorded.take(),
             QStringList({"effectDataAboutChange(Crop)", "effectDataChanged(Crop, crop_left, int 10, -1)",
                          "effectDataChanged(Color, bcs_contrast, int 5, -1)", "effectDataChanged(Crop)"}));
}

void TstModelProperties::notificationsAreNotHeldBack()
{
    // Brackets need not match: each call is told by itself.
    ZoEffectModel model;
    SignalRecorder recorded(model);

    model.endChanged("Crop");
    model.beginChange("Crop");
    model.beginChange("Color");
    model.setData("crop_left", 10, "Crop", -1);

    QCOMPARE(recorded.take(),
             QStringList({"effectDataChanged(Crop)", "effectDataAboutChange(Crop)", "effectDataAboutChange(Color)",
                          "effectDataChanged(Crop, crop_left, int 10, -1)"}));
}

ZOEFFECT_TEST_MAIN(TstModelProperties)
#include "tst_model_properties.moc"
