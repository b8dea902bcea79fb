// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The node of every effect tree: construction, copies, child list, properties.

#include <climits>
#include <memory>

#include <QPointer>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

#include <zoeffectitemdata.h>

#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Node = ZoEffectItemData;

/// "a, b, -" for the children a, b and a null entry.
QString childNames(const Node& node)
{
    QStringList names;
    for (int i = 0; i < node.childCount(); ++i)
        names << (node.child(i) ? node.child(i)->name() : QStringLiteral("-"));
    return names.join(QStringLiteral(", "));
}

/// "a(b, c(d))", null entries as "-".
QString treeText(const Node& node)
{
    QStringList children;
    for (int i = 0; i < node.childCount(); ++i)
        children << (node.child(i) ? treeText(*node.child(i)) : QStringLiteral("-"));
    return children.isEmpty() ? node.name()
                              : node.name() + QLatin1Char('(') + children.join(QStringLiteral(", ")) + QLatin1Char(')');
}

/// A node with children named by the letters of \a names.
std::unique_ptr<Node> nodeWithChildren(const QString& names)
{
    auto node = std::make_unique<Node>(QStringLiteral("parent"));
    for (const QChar& name : names)
        new Node(QString(name), node.get());
    return node;
}

/// Whether every descendant names the node that holds it as its parent.
bool parentsAreConsistent(const Node& node)
{
    for (int i = 0; i < node.childCount(); ++i) {
        if (node.child(i)->parent() != &node || !parentsAreConsistent(*node.child(i)))
            return false;
    }
    return true;
}

constexpr int deepChainLength = 200000;

/// Appends a chain of \a length nodes below \a top, each the only child of the one before. Returns the last.
Node* growChain(Node* top, int length)
{
    Node* last = top;
    for (int i = 0; i < length; ++i)
        last = new Node(QString::number(i), last);
    return last;
}

/// The number of nodes below \a top along first children; -1 when a node has other children than one, or a
/// parent that does not fit.
int chainLength(const Node& top)
{
    int length = 0;
    for (const Node* node = &top; node->childCount() > 0; node = node->child(0)) {
        if (node->childCount() != 1 || node->child(0)->parent() != node)
            return -1;
        ++length;
    }
    return length;
}

/// Runs \a work on a small stack, which any recursion over a deep tree overflows.
template <typename Work>
void onSmallStack(Work work)
{
    const QScopedPointer<QThread> thread(QThread::create(work));
    thread->setStackSize(512 * 1024);
    thread->start();
    thread->wait();
}

} // namespace

class TstItemData : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newNodeStartsEmptyAndSelected();
    void nameIsKeptAsGiven_data();
    void nameIsKeptAsGiven();
    void newNodePutsItselfIntoItsParent_data();
    void newNodePutsItselfIntoItsParent();
    void nodeTreeIsNotTheObjectTree();

    void childAnswersNullBeyondTheList_data();
    void childAnswersNullBeyondTheList();
    void childNumberIsTheFirstMatchInTheParentsList();
    void childNumberWithoutParentIsZero();
    void childNumberIsMinusOneWhenTheParentDoesNotHoldIt();
    void childNumberFollowsTheListOfTheRecordedParent();
    void appendedChildKeepsItsParent();
    void insertChildPlaces_data();
    void insertChildPlaces();
    void insertedChildKeepsItsParent();
    void insertIntoEmptyListAppends_data();
    void insertIntoEmptyListAppends();
    void takeAtHandsOver_data();
    void takeAtHandsOver();
    void takenChildStillNamesItsParent();
    void removeChildrenRemovesRuns_data();
    void removeChildrenRemovesRuns();
    void removeChildrenDeletesExactlyTheRun();
    void removeChildrenDeletesWholeSubtrees();
    void changeItemPosMoves_data();
    void changeItemPosMoves();
    void changeItemPosOfEmptyListFails();
    void changeItemPosKeepsTheNodes();
    void clearDeletesChildrenAndKeepsTheRest();
    void clearOfEmptyNodeDoesNothing();
    void destructionDeletesAllDescendants();
    void destructionLeavesTheParentsListAlone();

    void missingKeysRead_data();
    void missingKeysRead();
    void trackIdReadsWhatIsStored_data();
    void trackIdReadsWhatIsStored();
    void storedInvalidValueCountsAsData();
    void setDataOverwritesWhateverTypeWasThere();
    void setDataStoresAnyKey_data();
    void setDataStoresAnyKey();
    void delDataRemovesOneKey();
    void delDataOfMissingKeyDoesNothing();
    void propertiesAreOrderedByKey();
    void rolesAnswer_data();
    void rolesAnswer();
    void displayRoleFollowsTheObjectName();
    void checkStateIsStoredAsItIs_data();
    void checkStateIsStoredAsItIs();
    void checkStateKeyIsAnOrdinaryProperty();
    void internalDataIsKeptAsGiven();
    void changesEmitNothing();

    void copyStandsFree();
    void copyTakesOverAllFields();
    void copyTakesOverTheObjectNameApartFromTheName();
    void copyIsDeep();
    void assignmentTakesOverAllFields_data();
    void assignmentTakesOverAllFields();
    void assignmentReturnsThisNode();
    void assignmentReplacesFiveChildrenByTwo();
    void assignmentReplacesTheProperties();
    void assignmentKeepsParentAndPlace();
    void assignmentOfANodeWithoutChildrenDeletesTheOldOnes();
    void changingTheCopyLeavesTheSourceAlone();
    void changingTheSourceLeavesTheCopyAlone();
    void copiedChildrenKeepStateAndPointer();
    void selfAssignmentDoesNothing();
    void assignmentWithinOneTree_data();
    void assignmentWithinOneTree();
    void assignmentFromOwnDescendantTakesItsFields();
    void assignmentFromOwnAncestorTakesItAsItWas();
    void repeatedAssignmentFromTheParentNestsOnceEach();

    void nullEntriesAreListed();
    void nullEntriesAreRemovedAndClearedSilently();
    void nullEntriesAreLeftOutOfCopies();
    void destructionStandsNullEntries();

    void deepChainIsBuiltAndDeletedWithoutRecursion();
    void deepChainIsCopiedWithoutRecursion();
    void deepChainIsClearedWithoutRecursion();
    void deepChainIsRemovedWithoutRecursion();
    void deepChainIsReplacedWithoutRecursion();
    void deepChainIsShortenedToItsOwnEnd();
};

void TstItemData::init()
{
    logcapture::takeEvents();
}

void TstItemData::cleanup()
{
    // The node reports by its results alone.
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstItemData::newNodeStartsEmptyAndSelected()
{
    const Node node(QStringLiteral("Watermark"));

    QCOMPARE(node.name(), QStringLiteral("Watermark"));
    QCOMPARE(node.objectName(), QStringLiteral("Watermark"));
    QVERIFY(!node.parent());
    QCOMPARE(node.childCount(), 0);
    QCOMPARE(node.childNumber(), 0);
    QVERIFY(node.properties().isEmpty());
    QCOMPARE(node.checkState(), 2);
    QVERIFY(!node.internalData());
}

void TstItemData::nameIsKeptAsGiven_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("type name") << "Subtitle";
    QTest::newRow("root name") << "effect root";
    QTest::newRow("empty") << "";
    QTest::newRow("blanks around") << " Crop ";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                                       "e \xE5\xAD\x97");
}

void TstItemData::nameIsKeptAsGiven()
{
    QFETCH(QString, name);
    const Node node(name);

    QCOMPARE(node.name(), name);
    QCOMPARE(node.objectName(), name);
    QCOMPARE(node.data(0), QVariant(name));
}

void TstItemData::newNodePutsItselfIntoItsParent_data()
{
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("children");

    QTest::newRow("minus one appends") << -1 << "a, b, c, new";
    QTest::newRow("before the first") << 0 << "new, a, b, c";
    QTest::newRow("between") << 1 << "a, new, b, c";
    QTest::newRow("before the last") << 2 << "a, b, new, c";
    QTest::newRow("at the end appends") << 3 << "a, b, c, new";
    QTest::newRow("beyond the end appends") << 4 << "a, b, c, new";
    QTest::newRow("far beyond the end appends") << INT_MAX << "a, b, c, new";
    QTest::newRow("minus two appends") << -2 << "a, b, c, new";
    QTest::newRow("smallest number appends") << INT_MIN << "a, b, c, new";
}

void TstItemData::newNodePutsItselfIntoItsParent()
{
    QFETCH(int, pos);
    QFETCH(QString, children);
    const auto parent = nodeWithChildren(QStringLiteral("abc"));

    const Node* node = new Node(QStringLiteral("new"), parent.get(), pos);

    QCOMPARE(childNames(*parent), children);
    QCOMPARE(node->parent(), parent.get());
    QCOMPARE(parent->child(node->childNumber()), node);
}

void TstItemData::nodeTreeIsNotTheObjectTree()
{
    Node parent(QStringLiteral("parent"));
    Node* created = new Node(QStringLiteral("created"), &parent);
    Node* appended = new Node(QStringLiteral("appended"));
    parent.appendChild(appended);

    QVERIFY(!static_cast<QObject*>(created)->parent());
    QVERIFY(!static_cast<QObject*>(appended)->parent());
    QVERIFY(parent.children().isEmpty());
    QCOMPARE(parent.childCount(), 2);
}

void TstItemData::childAnswersNullBeyondTheList_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");

    QTest::newRow("first") << 0 << "a";
    QTest::newRow("last") << 2 << "c";
    QTest::newRow("minus one") << -1 << "";
    QTest::newRow("count") << 3 << "";
    QTest::newRow("beyond count") << 4 << "";
    QTest::newRow("largest number") << INT_MAX << "";
    QTest::newRow("smallest number") << INT_MIN << "";
}

void TstItemData::childAnswersNullBeyondTheList()
{
    QFETCH(int, row);
    QFETCH(QString, name);
    const auto parent = nodeWithChildren(QStringLiteral("abc"));

    const Node* child = parent->child(row);

    QCOMPARE(child ? child->name() : QString(), name);
    QCOMPARE(child == nullptr, name.isEmpty());
    QCOMPARE(childNames(*parent), QStringLiteral("a, b, c"));
}

void TstItemData::childNumberIsTheFirstMatchInTheParentsList()
{
    const auto parent = nodeWithChildren(QStringLiteral("abc"));
    Node* last = parent->child(2);
    QCOMPARE(parent->child(0)->childNumber(), 0);
    QCOMPARE(last->childNumber(), 2);

    parent->insertChild(last, 1);
    QCOMPARE(childNames(*parent), QStringLiteral("a, c, b, c"));
    QCOMPARE(last->childNumber(), 1);

    parent->takeAt(1);
    QCOMPARE(last->childNumber(), 2);
}

void TstItemData::childNumberWithoutParentIsZero()
{
    const Node node(QStringLiteral("free"));
    QCOMPARE(node.childNumber(), 0);

    // Also in second place of a list: the recorded parent counts, and there is none.
    const auto parent = nodeWithChildren(QStringLiteral("a"));
    Node* appended = new Node(QStringLiteral("appended"));
    parent->appendChild(appended);
    QCOMPARE(appended->childNumber(), 0);
}

void TstItemData::childNumberIsMinusOneWhenTheParentDoesNotHoldIt()
{
    const auto parent = nodeWithChildren(QStringLiteral("ab"));
    const std::unique_ptr<Node> taken(parent->takeAt(1));

    QCOMPARE(taken->parent(), parent.get());
    QCOMPARE(taken->childNumber(), -1);
}

void TstItemData::childNumberFollowsTheListOfTheRecordedParent()
{
    const auto first = nodeWithChildren(QStringLiteral("ab"));
    const auto second = nodeWithChildren(QStringLiteral("xyz"));

    Node* moved = first->takeAt(0);
    second->insertChild(moved, 2);

    QCOMPARE(childNames(*second), QStringLiteral("x, y, a, z"));
    QCOMPARE(moved->parent(), first.get());
    QCOMPARE(moved->childNumber(), -1);
}

void TstItemData::appendedChildKeepsItsParent()
{
    const auto first = nodeWithChildren(QStringLiteral("ab"));
    Node second(QStringLiteral("second"));
    Node* free = new Node(QStringLiteral("free"));

    second.appendChild(first->takeAt(0));
    second.appendChild(free);

    QCOMPARE(childNames(second), QStringLiteral("a, free"));
    QCOMPARE(second.child(0)->parent(), first.get());
    QVERIFY(!free->parent());
}

void TstItemData::insertChildPlaces_data()
{
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("children");

    QTest::newRow("before the first") << 0 << "n, a, b, c";
    QTest::newRow("between") << 1 << "a, n, b, c";
    QTest::newRow("before the last") << 2 << "a, b, n, c";
    QTest::newRow("at the end appends") << 3 << "a, b, c, n";
    QTest::newRow("beyond the end appends") << 99 << "a, b, c, n";
    QTest::newRow("minus one appends") << -1 << "a, b, c, n";
    QTest::newRow("minus five appends") << -5 << "a, b, c, n";
    QTest::newRow("largest number appends") << INT_MAX << "a, b, c, n";
    QTest::newRow("smallest number appends") << INT_MIN << "a, b, c, n";
}

void TstItemData::insertChildPlaces()
{
    QFETCH(int, pos);
    QFETCH(QString, children);
    const auto parent = nodeWithChildren(QStringLiteral("abc"));

    parent->insertChild(new Node(QStringLiteral("n")), pos);

    QCOMPARE(childNames(*parent), children);
}

void TstItemData::insertedChildKeepsItsParent()
{
    const auto first = nodeWithChildren(QStringLiteral("ab"));
    const auto second = nodeWithChildren(QStringLiteral("x"));
    Node* free = new Node(QStringLiteral("free"));

    second->insertChild(first->takeAt(1), 0);
    second->insertChild(free, 0);

    QCOMPARE(childNames(*second), QStringLiteral("free, b, x"));
    QVERIFY(!free->parent());
    QCOMPARE(second->child(1)->parent(), first.get());
}

void TstItemData::insertIntoEmptyListAppends_data()
{
    QTest::addColumn<int>("pos");

    QTest::newRow("zero") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("minus one") << -1;
}

void TstItemData::insertIntoEmptyListAppends()
{
    QFETCH(int, pos);
    Node parent(QStringLiteral("parent"));

    parent.insertChild(new Node(QStringLiteral("n")), pos);

    QCOMPARE(childNames(parent), QStringLiteral("n"));
}

void TstItemData::takeAtHandsOver_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QString>("left");

    QTest::newRow("first") << 0 << "a"
                           << "b, c";
    QTest::newRow("middle") << 1 << "b"
                            << "a, c";
    QTest::newRow("last") << 2 << "c"
                          << "a, b";
    QTest::newRow("count") << 3 << ""
                           << "a, b, c";
    QTest::newRow("minus one") << -1 << ""
                               << "a, b, c";
    QTest::newRow("largest number") << INT_MAX << ""
                                    << "a, b, c";
    QTest::newRow("smallest number") << INT_MIN << ""
                                     << "a, b, c";
}

void TstItemData::takeAtHandsOver()
{
    QFETCH(int, row);
    QFETCH(QString, taken);
    QFETCH(QString, left);
    const auto parent = nodeWithChildren(QStringLiteral("abc"));

    const std::unique_ptr<Node> node(parent->takeAt(row));

    QCOMPARE(node ? node->name() : QString(), taken);
    QCOMPARE(node == nullptr, taken.isEmpty());
    QCOMPARE(childNames(*parent), left);
}

void TstItemData::takenChildStillNamesItsParent()
{
    auto parent = nodeWithChildren(QStringLiteral("ab"));
    new Node(QStringLiteral("grandchild"), parent->child(0));

    const std::unique_ptr<Node> taken(parent->takeAt(0));
    QCOMPARE(taken->parent(), parent.get());

    // It is the caller's now: it outlives the parent, with all that is below it.
    parent.reset();
    QCOMPARE(treeText(*taken), QStringLiteral("a(grandchild)"));
}

void TstItemData::removeChildrenRemovesRuns_data()
{
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("left");

    QTest::newRow("all") << 0 << 3 << true << "";
    QTest::newRow("first") << 0 << 1 << true << "b, c";
    QTest::newRow("middle") << 1 << 1 << true << "a, c";
    QTest::newRow("last") << 2 << 1 << true << "a, b";
    QTest::newRow("run from the start") << 0 << 2 << true << "c";
    QTest::newRow("run to the end") << 1 << 2 << true << "a";
    QTest::newRow("none at the start") << 0 << 0 << true << "a, b, c";
    QTest::newRow("none at the end") << 3 << 0 << true << "a, b, c";
    QTest::newRow("none beyond the end") << 4 << 0 << false << "a, b, c";
    QTest::newRow("none before the start") << -1 << 0 << false << "a, b, c";
    QTest::newRow("before the start") << -1 << 1 << false << "a, b, c";
    QTest::newRow("before the start into the list") << -1 << 3 << false << "a, b, c";
    QTest::newRow("count from the second") << 1 << 3 << false << "a, b, c";
    QTest::newRow("one too many") << 0 << 4 << false << "a, b, c";
    QTest::newRow("one at the end") << 3 << 1 << false << "a, b, c";
    QTest::newRow("negative count") << 0 << -1 << true << "a, b, c";
    QTest::newRow("negative count, sum in range") << 5 << -2 << true << "a, b, c";
    QTest::newRow("negative count, sum beyond the end") << 5 << -1 << false << "a, b, c";
    QTest::newRow("negative count, sum negative") << 2 << -7 << true << "a, b, c";
    QTest::newRow("negative position and count") << -1 << -1 << false << "a, b, c";
    QTest::newRow("smallest count") << 0 << INT_MIN << true << "a, b, c";
    QTest::newRow("sum beyond int") << 1 << INT_MAX << false << "a, b, c";
    QTest::newRow("both largest") << INT_MAX << INT_MAX << false << "a, b, c";
    QTest::newRow("largest position") << INT_MAX << 0 << false << "a, b, c";
    QTest::newRow("largest position, smallest count") << INT_MAX << INT_MIN << true << "a, b, c";
    QTest::newRow("smallest position") << INT_MIN << 1 << false << "a, b, c";
    QTest::newRow("both smallest") << INT_MIN << INT_MIN << false << "a, b, c";
}

void TstItemData::removeChildrenRemovesRuns()
{
    QFETCH(int, pos);
    QFETCH(int, count);
    QFETCH(bool, result);
    QFETCH(QString, left);
    const auto parent = nodeWithChildren(QStringLiteral("abc"));

    QCOMPARE(parent->removeChildren(pos, count), result);
    QCOMPARE(childNames(*parent), left);
}

void TstItemData::removeChildrenDeletesExactlyTheRun()
{
    const auto parent = nodeWithChildren(QStringLiteral("abcde"));
    QList<QPointer<Node>> nodes;
    for (int i = 0; i < 5; ++i)
        nodes << parent->child(i);

    QVERIFY(parent->removeChildren(1, 3));

    QVERIFY(nodes.at(0));
    QVERIFY(!nodes.at(1));
    QVERIFY(!nodes.at(2));
    QVERIFY(!nodes.at(3));
    QVERIFY(nodes.at(4));
    QCOMPARE(parent->child(0), nodes.at(0).data());
    QCOMPARE(parent->child(1), nodes.at(4).data());
}

void TstItemData::removeChildrenDeletesWholeSubtrees()
{
    const auto parent = nodeWithChildren(QStringLiteral("a"));
    const QPointer<Node> child = parent->child(0);
    const QPointer<Node> grandchild = new Node(QStringLiteral("b"), child);
    const QPointer<Node> last = new Node(QStringLiteral("c"), grandchild);

    QVERIFY(parent->removeChildren(0, 1));

    QVERIFY(!child);
    QVERIFY(!grandchild);
    QVERIFY(!last);
}

void TstItemData::changeItemPosMoves_data()
{
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("from");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("children");

    QTest::newRow("last to the front") << 0 << 2 << true << "c, a, b";
    QTest::newRow("first to the end") << 2 << 0 << true << "b, c, a";
    QTest::newRow("second to the front") << 0 << 1 << true << "b, a, c";
    QTest::newRow("first to the middle") << 1 << 0 << true << "b, a, c";
    QTest::newRow("last to the middle") << 1 << 2 << true << "a, c, b";
    QTest::newRow("middle to the end") << 2 << 1 << true << "a, c, b";
    QTest::newRow("where it is, first") << 0 << 0 << false << "a, b, c";
    QTest::newRow("where it is, middle") << 1 << 1 << false << "a, b, c";
    QTest::newRow("negative destination") << -1 << 0 << false << "a, b, c";
    QTest::newRow("negative source") << 0 << -1 << false << "a, b, c";
    QTest::newRow("both negative") << -1 << -2 << false << "a, b, c";
    QTest::newRow("equal and negative") << -1 << -1 << false << "a, b, c";
    QTest::newRow("destination at the count") << 3 << 0 << false << "a, b, c";
    QTest::newRow("source at the count") << 0 << 3 << false << "a, b, c";
    QTest::newRow("equal and beyond the end") << 5 << 5 << false << "a, b, c";
    QTest::newRow("largest destination") << INT_MAX << 0 << false << "a, b, c";
    QTest::newRow("largest source") << 0 << INT_MAX << false << "a, b, c";
    QTest::newRow("smallest destination") << INT_MIN << 0 << false << "a, b, c";
    QTest::newRow("smallest source") << 0 << INT_MIN << false << "a, b, c";
}

void TstItemData::changeItemPosMoves()
{
    QFETCH(int, to);
    QFETCH(int, from);
    QFETCH(bool, result);
    QFETCH(QString, children);
    const auto parent = nodeWithChildren(QStringLiteral("abc"));

    QCOMPARE(parent->changeItemPos(to, from), result);
    QCOMPARE(childNames(*parent), children);
}

void TstItemData::changeItemPosOfEmptyListFails()
{
    Node node(QStringLiteral("node"));
    QVERIFY(!node.changeItemPos(0, 1));
    QVERIFY(!node.changeItemPos(0, 0));
    QCOMPARE(node.childCount(), 0);
}

void TstItemData::changeItemPosKeepsTheNodes()
{
    const auto parent = nodeWithChildren(QStringLiteral("abcde"));
    const Node* b = parent->child(1);
    const Node* d = parent->child(3);

    QVERIFY(parent->changeItemPos(1, 3));

    QCOMPARE(childNames(*parent), QStringLiteral("a, d, b, c, e"));
    QCOMPARE(parent->child(1), d);
    QCOMPARE(parent->child(2), b);
    QCOMPARE(d->parent(), parent.get());
    QCOMPARE(d->childNumber(), 1);
}

void TstItemData::clearDeletesChildrenAndKeepsTheRest()
{
    const auto parent = nodeWithChildren(QStringLiteral("ab"));
    const QPointer<Node> child = parent->child(0);
    const QPointer<Node> grandchild = new Node(QStringLiteral("c"), child);
    int host = 0;
    parent->setData(QStringLiteral("key"), 5);
    parent->setCheckState(0);
    parent->setInternalData(&host);

    parent->clear();

    QCOMPARE(parent->childCount(), 0);
    QVERIFY(!child);
    QVERIFY(!grandchild);
    QCOMPARE(described(parent->properties()), QStringLiteral("{key: int 5}"));
    QCOMPARE(parent->name(), QStringLiteral("parent"));
    QCOMPARE(parent->checkState(), 0);
    QCOMPARE(parent->internalData(), static_cast<void*>(&host));
}

void TstItemData::clearOfEmptyNodeDoesNothing()
{
    Node node(QStringLiteral("node"));
    node.setData(QStringLiteral("key"), 5);
    node.clear();
    QCOMPARE(node.childCount(), 0);
    QCOMPARE(described(node.properties()), QStringLiteral("{key: int 5}"));
}

void TstItemData::destructionDeletesAllDescendants()
{
    auto parent = nodeWithChildren(QStringLiteral("abc"));
    QList<QPointer<Node>> nodes;
    for (int i = 0; i < 3; ++i) {
        nodes << parent->child(i);
        nodes << new Node(QStringLiteral("grandchild"), parent->child(i));
        nodes << new Node(QStringLiteral("last"), nodes.last());
    }
    // A child that was created elsewhere is owned like any other.
    parent->appendChild(new Node(QStringLiteral("appended")));
    nodes << parent->child(3);

    parent.reset();

    for (const QPointer<Node>& node : std::as_const(nodes))
        QVERIFY(!node);
}

void TstItemData::destructionLeavesTheParentsListAlone()
{
    const auto parent = nodeWithChildren(QStringLiteral("ab"));
    delete parent->child(0);

    QCOMPARE(parent->childCount(), 2);
    parent->takeAt(0); // What is left there points nowhere.
    QCOMPARE(childNames(*parent), QStringLiteral("b"));
}

void TstItemData::missingKeysRead_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");

    QTest::newRow("trackid") << "trackid"
                             << "int -1";
    QTest::newRow("capital T") << "Trackid"
                               << "invalid";
    QTest::newRow("capital I") << "trackId"
                               << "invalid";
    QTest::newRow("capitals") << "TRACKID"
                              << "invalid";
    QTest::newRow("blank after") << "trackid "
                                 << "invalid";
    QTest::newRow("blank before") << " trackid"
                                  << "invalid";
    QTest::newRow("longer") << "trackid2"
                            << "invalid";
    QTest::newRow("shorter") << "track"
                             << "invalid";
    QTest::newRow("id") << "id"
                        << "invalid";
    QTest::newRow("check state") << "_checkstate"
                                 << "invalid";
    QTest::newRow("crop") << "crop_left"
                          << "invalid";
    QTest::newRow("empty") << ""
                           << "invalid";
}

void TstItemData::missingKeysRead()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    Node node(QStringLiteral("node"));
    node.setData(QStringLiteral("other"), 1);

    QCOMPARE(described(node.data(key)), value);
    QVERIFY(!node.hasData(key));
    QCOMPARE(described(node.properties()), QStringLiteral("{other: int 1}"));
}

void TstItemData::trackIdReadsWhatIsStored_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("value");

    QTest::newRow("number") << QVariant(3) << "int 3";
    QTest::newRow("zero") << QVariant(0) << "int 0";
    QTest::newRow("text") << QVariant("7") << "string 7";
    QTest::newRow("invalid") << QVariant() << "invalid";
}

void TstItemData::trackIdReadsWhatIsStored()
{
    QFETCH(QVariant, stored);
    QFETCH(QString, value);
    Node node(QStringLiteral("node"));

    node.setData(QStringLiteral("trackid"), stored);
    QCOMPARE(described(node.data(QStringLiteral("trackid"))), value);
    QVERIFY(node.hasData(QStringLiteral("trackid")));

    node.delData(QStringLiteral("trackid"));
    QCOMPARE(described(node.data(QStringLiteral("trackid"))), QStringLiteral("int -1"));
}

void TstItemData::storedInvalidValueCountsAsData()
{
    Node node(QStringLiteral("node"));
    QVERIFY(!node.hasData(QStringLiteral("key")));

    node.setData(QStringLiteral("key"), QVariant());

    QVERIFY(node.hasData(QStringLiteral("key")));
    QVERIFY(!node.data(QStringLiteral("key")).isValid());
    QCOMPARE(node.properties().size(), 1);
    QVERIFY(!node.hasData(QStringLiteral("KEY")));
}

void TstItemData::setDataOverwritesWhateverTypeWasThere()
{
    Node node(QStringLiteral("node"));
    const QString key = QStringLiteral("key");

    node.setData(key, 5);
    QCOMPARE(described(node.data(key)), QStringLiteral("int 5"));
    node.setData(key, QStringLiteral("5"));
    QCOMPARE(described(node.data(key)), QStringLiteral("string 5"));
    node.setData(key, 5.0);
    QCOMPARE(described(node.data(key)), QStringLiteral("double 5"));
    node.setData(key, QVariant());
    QCOMPARE(described(node.data(key)), QStringLiteral("invalid"));
    node.setData(key, false);
    QCOMPARE(described(node.properties()), QStringLiteral("{key: bool false}"));
}

void TstItemData::setDataStoresAnyKey_data()
{
    QTest::addColumn<QString>("key");

    QTest::newRow("empty") << "";
    QTest::newRow("blank") << " ";
    QTest::newRow("internal key") << "_playmeineffect";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("schl\xC3\xBCssel");
    QTest::newRow("name of a type") << "Crop";
}

void TstItemData::setDataStoresAnyKey()
{
    QFETCH(QString, key);
    Node node(QStringLiteral("node"));

    node.setData(key, 5);

    QVERIFY(node.hasData(key));
    QCOMPARE(node.data(key), QVariant(5));
    QCOMPARE(node.properties().keys(), QStringList{key});
}

void TstItemData::delDataRemovesOneKey()
{
    Node node(QStringLiteral("node"));
    node.setData(QStringLiteral("a"), 1);
    node.setData(QStringLiteral("b"), 2);

    node.delData(QStringLiteral("a"));

    QCOMPARE(described(node.properties()), QStringLiteral("{b: int 2}"));
    QVERIFY(!node.hasData(QStringLiteral("a")));
    QVERIFY(!node.data(QStringLiteral("a")).isValid());
}

void TstItemData::delDataOfMissingKeyDoesNothing()
{
    Node node(QStringLiteral("node"));
    node.setData(QStringLiteral("b"), 2);

    node.delData(QStringLiteral("a"));
    node.delData(QStringLiteral("B"));
    node.delData(QStringLiteral("trackid"));

    QCOMPARE(described(node.properties()), QStringLiteral("{b: int 2}"));
}

void TstItemData::propertiesAreOrderedByKey()
{
    Node node(QStringLiteral("node"));
    for (const char* key : {"wm_b", "crop_left", "_checkstate", "Zoom", "crop_height"})
        node.setData(QLatin1String(key), 1);

    QCOMPARE(node.properties().keys(), QStringList({"Zoom", "_checkstate", "crop_height", "crop_left", "wm_b"}));
}

void TstItemData::rolesAnswer_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("value");

    QTest::newRow("display") << 0 << "string Crop";
    QTest::newRow("decoration") << 1 << "invalid";
    QTest::newRow("edit") << 2 << "string Crop";
    QTest::newRow("tool tip") << 3 << "invalid";
    QTest::newRow("foreground") << 9 << "invalid";
    QTest::newRow("check state") << 10 << "int 2";
    QTest::newRow("accessible text") << 11 << "invalid";
    QTest::newRow("user") << 256 << "invalid";
    QTest::newRow("minus one") << -1 << "invalid";
    QTest::newRow("largest number") << INT_MAX << "invalid";
    QTest::newRow("smallest number") << INT_MIN << "invalid";
}

void TstItemData::rolesAnswer()
{
    QFETCH(int, role);
    QFETCH(QString, value);
    Node node(QStringLiteral("Crop"));
    node.setData(QString::number(role), QStringLiteral("not a role"));

    QCOMPARE(described(node.data(role)), value);
}

void TstItemData::displayRoleFollowsTheObjectName()
{
    Node node(QStringLiteral("Crop"));
    node.setObjectName(QStringLiteral("shown"));

    QCOMPARE(described(node.data(0)), QStringLiteral("string shown"));
    QCOMPARE(described(node.data(2)), QStringLiteral("string shown"));
    QCOMPARE(node.name(), QStringLiteral("Crop"));
}

void TstItemData::checkStateIsStoredAsItIs_data()
{
    QTest::addColumn<int>("state");

    QTest::newRow("off") << 0;
    QTest::newRow("partly") << 1;
    QTest::newRow("on") << 2;
    QTest::newRow("none of Qt's") << 7;
    QTest::newRow("negative") << -1;
    QTest::newRow("largest number") << INT_MAX;
    QTest::newRow("smallest number") << INT_MIN;
}

void TstItemData::checkStateIsStoredAsItIs()
{
    QFETCH(int, state);
    Node node(QStringLiteral("node"));

    node.setCheckState(state);

    QCOMPARE(node.checkState(), state);
    QCOMPARE(node.data(10), QVariant(state));
    QVERIFY(node.properties().isEmpty());
}

void TstItemData::checkStateKeyIsAnOrdinaryProperty()
{
    Node node(QStringLiteral("node"));

    node.setData(QStringLiteral("_checkstate"), false);
    QCOMPARE(node.checkState(), 2);
    QCOMPARE(described(node.data(QStringLiteral("_checkstate"))), QStringLiteral("bool false"));

    node.setCheckState(0);
    node.setData(QStringLiteral("_checkstate"), true);
    QCOMPARE(node.checkState(), 0);
}

void TstItemData::internalDataIsKeptAsGiven()
{
    Node node(QStringLiteral("node"));
    int host = 5;

    node.setInternalData(&host);
    QCOMPARE(node.internalData(), static_cast<void*>(&host));
    QCOMPARE(host, 5);

    // Any word will do: it is never looked at.
    node.setInternalData(reinterpret_cast<void*>(quintptr(1)));
    QCOMPARE(node.internalData(), reinterpret_cast<void*>(quintptr(1)));

    node.setInternalData(nullptr);
    QVERIFY(!node.internalData());
}

void TstItemData::changesEmitNothing()
{
    const auto node = nodeWithChildren(QStringLiteral("abc"));
    const QSignalSpy named(node.get(), &QObject::objectNameChanged);
    const QSignalSpy destroyed(node.get(), &QObject::destroyed);

    node->setData(QStringLiteral("key"), 5);
    node->delData(QStringLiteral("key"));
    node->setCheckState(0);
    node->setInternalData(node.get());
    node->changeItemPos(0, 2);
    node->removeChildren(0, 1);
    node->clear();

    QCOMPARE(named.count(), 0);
    QCOMPARE(destroyed.count(), 0);
}

void TstItemData::copyStandsFree()
{
    const auto parent = nodeWithChildren(QStringLiteral("ab"));
    const Node copy(*parent->child(1));

    QVERIFY(!copy.parent());
    QVERIFY(!static_cast<const QObject&>(copy).parent());
    QCOMPARE(copy.childNumber(), 0);
    QCOMPARE(childNames(*parent), QStringLiteral("a, b"));
}

void TstItemData::copyTakesOverAllFields()
{
    int host = 0;
    Node source(QStringLiteral("Crop"));
    source.setData(QStringLiteral("crop_left"), 12);
    source.setData(QStringLiteral("trackid"), QVariant());
    source.setCheckState(0);
    source.setInternalData(&host);

    const Node copy(source);

    QCOMPARE(copy.name(), QStringLiteral("Crop"));
    QCOMPARE(copy.objectName(), QStringLiteral("Crop"));
    QCOMPARE(described(copy.properties()), QStringLiteral("{crop_left: int 12, trackid: invalid}"));
    QCOMPARE(copy.checkState(), 0);
    QCOMPARE(copy.internalData(), static_cast<void*>(&host));
    QCOMPARE(copy.childCount(), 0);
}

void TstItemData::copyTakesOverTheObjectNameApartFromTheName()
{
    Node source(QStringLiteral("Crop"));
    source.setObjectName(QStringLiteral("shown"));
    new Node(QStringLiteral("item"), &source);
    source.child(0)->setObjectName(QStringLiteral("item shown"));

    const Node copy(source);

    QCOMPARE(copy.name(), QStringLiteral("Crop"));
    QCOMPARE(copy.objectName(), QStringLiteral("shown"));
    QCOMPARE(copy.child(0)->name(), QStringLiteral("item"));
    QCOMPARE(copy.child(0)->objectName(), QStringLiteral("item shown"));
}

void TstItemData::copyIsDeep()
{
    const auto source = nodeWithChildren(QStringLiteral("ab"));
    new Node(QStringLiteral("c"), source->child(0));
    new Node(QStringLiteral("d"), source->child(0));
    new Node(QStringLiteral("e"), source->child(0)->child(1));

    const Node copy(*source);

    QCOMPARE(treeText(copy), QStringLiteral("parent(a(c, d(e)), b)"));
    QVERIFY(parentsAreConsistent(copy));
    QVERIFY(copy.child(0) != source->child(0));
    QVERIFY(copy.child(1) != source->child(1));
    QVERIFY(copy.child(0)->child(1)->child(0) != source->child(0)->child(1)->child(0));
    QCOMPARE(treeText(*source), QStringLiteral("parent(a(c, d(e)), b)"));
    QVERIFY(parentsAreConsistent(*source));
}

void TstItemData::assignmentTakesOverAllFields_data()
{
    QTest::addColumn<bool>("byOperator");

    QTest::newRow("operator=") << true;
    QTest::newRow("assign") << false;
}

void TstItemData::assignmentTakesOverAllFields()
{
    QFETCH(bool, byOperator);
    int host = 0;
    const auto source = nodeWithChildren(QStringLiteral("ab"));
    source->setObjectName(QStringLiteral("shown"));
    source->setData(QStringLiteral("key"), 1.5);
    source->setCheckState(0);
    source->setInternalData(&host);
    new Node(QStringLiteral("c"), source->child(1));
    Node target(QStringLiteral("target"));
    target.setData(QStringLiteral("old"), 1);

    if (byOperator)
        target = *source;
    else
        target.assign(*source);

    QCOMPARE(target.name(), QStringLiteral("parent"));
    QCOMPARE(target.objectName(), QStringLiteral("shown"));
    QCOMPARE(described(target.properties()), QStringLiteral("{key: double 1.5}"));
    QCOMPARE(target.checkState(), 0);
    QCOMPARE(target.internalData(), static_cast<void*>(&host));
    QCOMPARE(treeText(target), QStringLiteral("parent(a, b(c))"));
    QVERIFY(parentsAreConsistent(target));
}

void TstItemData::assignmentReturnsThisNode()
{
    Node a(QStringLiteral("a"));
    Node b(QStringLiteral("b"));
    const Node c(QStringLiteral("c"));

    QCOMPARE(&(a = c), &a);
    QCOMPARE(&b.assign(c), &b);
    QCOMPARE(&a.assign(a), &a);
}

void TstItemData::assignmentReplacesFiveChildrenByTwo()
{
    const auto source = nodeWithChildren(QStringLiteral("xy"));
    new Node(QStringLiteral("1"), source->child(0));
    new Node(QStringLiteral("2"), source->child(1));
    const auto target = nodeWithChildren(QStringLiteral("abcde"));
    QList<QPointer<Node>> old;
    for (int i = 0; i < 5; ++i)
        old << target->child(i);

    *target = *source;

    QCOMPARE(treeText(*target), QStringLiteral("parent(x(1), y(2))"));
    QCOMPARE(old.size(), 5);
    for (const QPointer<Node>& node : std::as_const(old))
        QVERIFY(!node);
}

void TstItemData::assignmentReplacesTheProperties()
{
    Node source(QStringLiteral("source"));
    source.setData(QStringLiteral("a"), 1);
    Node target(QStringLiteral("target"));
    target.setData(QStringLiteral("a"), 2);
    target.setData(QStringLiteral("b"), 3);

    target = source;

    QCOMPARE(described(target.properties()), QStringLiteral("{a: int 1}"));
}

void TstItemData::assignmentKeepsParentAndPlace()
{
    const auto parent = nodeWithChildren(QStringLiteral("abc"));
    const auto other = nodeWithChildren(QStringLiteral("xy"));
    Node* target = parent->child(1);

    *target = *other->child(1);
    QCOMPARE(childNames(*parent), QStringLiteral("a, y, c"));
    QCOMPARE(parent->child(1), target);
    QCOMPARE(target->parent(), parent.get());
    QCOMPARE(target->childNumber(), 1);

    Node free(QStringLiteral("free"));
    free = *other->child(0);
    QVERIFY(!free.parent());
    QCOMPARE(childNames(*other), QStringLiteral("x, y"));
}

void TstItemData::assignmentOfANodeWithoutChildrenDeletesTheOldOnes()
{
    const auto target = nodeWithChildren(QStringLiteral("ab"));
    const QPointer<Node> grandchild = new Node(QStringLiteral("c"), target->child(1));

    *target = Node(QStringLiteral("leaf"));

    QCOMPARE(treeText(*target), QStringLiteral("leaf"));
    QVERIFY(!grandchild);
}

void TstItemData::changingTheCopyLeavesTheSourceAlone()
{
    const auto source = nodeWithChildren(QStringLiteral("ab"));
    source->setData(QStringLiteral("key"), 1);
    source->child(0)->setData(QStringLiteral("key"), 2);
    Node copy(*source);

    copy.setData(QStringLiteral("key"), 10);
    copy.child(0)->setData(QStringLiteral("key"), 20);
    copy.child(0)->delData(QStringLiteral("other"));
    copy.setCheckState(0);
    copy.child(0)->setCheckState(0);
    copy.child(1)->setObjectName(QStringLiteral("shown"));
    copy.removeChildren(1, 1);

    QCOMPARE(described(source->properties()), QStringLiteral("{key: int 1}"));
    QCOMPARE(described(source->child(0)->properties()), QStringLiteral("{key: int 2}"));
    QCOMPARE(source->checkState(), 2);
    QCOMPARE(source->child(0)->checkState(), 2);
    QCOMPARE(source->child(1)->objectName(), QStringLiteral("b"));
    QCOMPARE(childNames(*source), QStringLiteral("a, b"));
}

void TstItemData::changingTheSourceLeavesTheCopyAlone()
{
    auto source = nodeWithChildren(QStringLiteral("ab"));
    source->setData(QStringLiteral("key"), 1);
    source->child(0)->setData(QStringLiteral("key"), 2);
    const Node copy(*source);

    source->delData(QStringLiteral("key"));
    source->child(0)->setData(QStringLiteral("key"), 20);
    source->changeItemPos(0, 1);
    source.reset();

    QCOMPARE(treeText(copy), QStringLiteral("parent(a, b)"));
    QCOMPARE(described(copy.properties()), QStringLiteral("{key: int 1}"));
    QCOMPARE(described(copy.child(0)->properties()), QStringLiteral("{key: int 2}"));
}

void TstItemData::copiedChildrenKeepStateAndPointer()
{
    int host = 0;
    const auto source = nodeWithChildren(QStringLiteral("ab"));
    source->child(0)->setCheckState(0);
    source->child(1)->setCheckState(7);
    source->child(1)->setInternalData(&host);

    Node copy(QStringLiteral("copy"));
    copy = *source;

    QCOMPARE(copy.child(0)->checkState(), 0);
    QCOMPARE(copy.child(1)->checkState(), 7);
    QVERIFY(!copy.child(0)->internalData());
    QCOMPARE(copy.child(1)->internalData(), static_cast<void*>(&host));
}

void TstItemData::selfAssignmentDoesNothing()
{
    const auto node = nodeWithChildren(QStringLiteral("ab"));
    node->setData(QStringLiteral("key"), 1);
    const QPointer<Node> a = node->child(0);
    const QPointer<Node> b = node->child(1);
    const Node& same = *node;

    *node = same;
    node->assign(same);

    QCOMPARE(node->childCount(), 2);
    QVERIFY(a);
    QVERIFY(b);
    QCOMPARE(node->child(0), a.data());
    QCOMPARE(node->child(1), b.data());
    QCOMPARE(described(node->properties()), QStringLiteral("{key: int 1}"));
}

void TstItemData::assignmentWithinOneTree_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("tree");

    // The tree is r(a(b(c), d), e) each time.
    QTest::newRow("child to its parent") << "r"
                                         << "a"
                                         << "a(b(c), d)";
    QTest::newRow("second child to its parent") << "r"
                                                << "e"
                                                << "e";
    QTest::newRow("grandchild to the top") << "r"
                                           << "b"
                                           << "b(c)";
    QTest::newRow("leaf to the top") << "r"
                                     << "c"
                                     << "c";
    QTest::newRow("child to a middle node") << "a"
                                            << "b"
                                            << "r(b(c), e)";
    QTest::newRow("leaf to a middle node") << "a"
                                           << "c"
                                           << "r(c, e)";
    QTest::newRow("parent to its child") << "a"
                                         << "r"
                                         << "r(r(a(b(c), d), e), e)";
    QTest::newRow("parent to its second child") << "e"
                                                << "r"
                                                << "r(a(b(c), d), r(a(b(c), d), e))";
    QTest::newRow("top to a leaf") << "c"
                                   << "r"
                                   << "r(a(b(r(a(b(c), d), e)), d), e)";
    QTest::newRow("middle node to its child") << "b"
                                              << "a"
                                              << "r(a(a(b(c), d), d), e)";
    QTest::newRow("sibling with children") << "e"
                                           << "a"
                                           << "r(a(b(c), d), a(b(c), d))";
    QTest::newRow("sibling without children") << "a"
                                              << "e"
                                              << "r(e, e)";
    QTest::newRow("cousin") << "d"
                            << "e"
                            << "r(a(b(c), e), e)";
}

void TstItemData::assignmentWithinOneTree()
{
    QFETCH(QString, target);
    QFETCH(QString, source);
    QFETCH(QString, tree);
    Node r(QStringLiteral("r"));
    Node* a = new Node(QStringLiteral("a"), &r);
    Node* b = new Node(QStringLiteral("b"), a);
    Node* c = new Node(QStringLiteral("c"), b);
    Node* d = new Node(QStringLiteral("d"), a);
    Node* e = new Node(QStringLiteral("e"), &r);
    const QMap<QString, Node*> nodes = {{"r", &r}, {"a", a}, {"b", b}, {"c", c}, {"d", d}, {"e", e}};

    nodes.value(target)->assign(*nodes.value(source));

    QCOMPARE(treeText(r), tree);
    QVERIFY(parentsAreConsistent(r));
}

void TstItemData::assignmentFromOwnDescendantTakesItsFields()
{
    int host = 0;
    Node top(QStringLiteral("top"));
    top.setData(QStringLiteral("key"), 1);
    Node* child = new Node(QStringLiteral("child"), &top);
    Node* source = new Node(QStringLiteral("source"), child);
    source->setObjectName(QStringLiteral("shown"));
    source->setData(QStringLiteral("key"), 2);
    source->setCheckState(0);
    source->setInternalData(&host);
    Node* below = new Node(QStringLiteral("below"), source);
    below->setData(QStringLiteral("key"), 3);
    const QPointer<Node> oldSource = source;
    const QPointer<Node> oldChild = child;
    const QPointer<Node> oldBelow = below;

    top = *source;

    QCOMPARE(top.name(), QStringLiteral("source"));
    QCOMPARE(top.objectName(), QStringLiteral("shown"));
    QCOMPARE(described(top.properties()), QStringLiteral("{key: int 2}"));
    QCOMPARE(top.checkState(), 0);
    QCOMPARE(top.internalData(), static_cast<void*>(&host));
    QCOMPARE(treeText(top), QStringLiteral("source(below)"));
    QCOMPARE(described(top.child(0)->properties()), QStringLiteral("{key: int 3}"));
    QCOMPARE(top.child(0)->parent(), &top);
    QVERIFY(!oldChild);
    QVERIFY(!oldSource);
    QVERIFY(!oldBelow);
}

void TstItemData::assignmentFromOwnAncestorTakesItAsItWas()
{
    Node top(QStringLiteral("top"));
    top.setData(QStringLiteral("key"), 1);
    Node* target = new Node(QStringLiteral("target"), &top);
    target->setData(QStringLiteral("key"), 2);
    const QPointer<Node> oldLeaf = new Node(QStringLiteral("leaf"), target);

    *target = top;

    // Within the copy stands the target as it was before, not as it is now.
    QCOMPARE(treeText(top), QStringLiteral("top(top(target(leaf)))"));
    QCOMPARE(top.child(0), target);
    QCOMPARE(target->parent(), &top);
    QCOMPARE(described(target->properties()), QStringLiteral("{key: int 1}"));
    QCOMPARE(described(target->child(0)->properties()), QStringLiteral("{key: int 2}"));
    QCOMPARE(described(top.properties()), QStringLiteral("{key: int 1}"));
    QVERIFY(!oldLeaf);
}

void TstItemData::repeatedAssignmentFromTheParentNestsOnceEach()
{
    Node top(QStringLiteral("t"));
    Node* target = new Node(QStringLiteral("a"), &top);

    *target = top;
    QCOMPARE(treeText(top), QStringLiteral("t(t(a))"));
    *target = top;
    QCOMPARE(treeText(top), QStringLiteral("t(t(t(a)))"));
    *target = top;
    QCOMPARE(treeText(top), QStringLiteral("t(t(t(t(a))))"));
}

void TstItemData::nullEntriesAreListed()
{
    const auto node = nodeWithChildren(QStringLiteral("ab"));
    node->appendChild(nullptr);
    node->insertChild(nullptr, 1);

    QCOMPARE(node->childCount(), 4);
    QCOMPARE(childNames(*node), QStringLiteral("a, -, b, -"));
    QVERIFY(!node->child(1));
    QCOMPARE(node->child(2)->childNumber(), 2);

    QVERIFY(node->changeItemPos(0, 1));
    QCOMPARE(childNames(*node), QStringLiteral("-, a, b, -"));

    QVERIFY(!node->takeAt(0));
    QCOMPARE(childNames(*node), QStringLiteral("a, b, -"));
}

void TstItemData::nullEntriesAreRemovedAndClearedSilently()
{
    const auto node = nodeWithChildren(QStringLiteral("abc"));
    node->insertChild(nullptr, 1);
    node->insertChild(nullptr, 3);
    const QPointer<Node> b = node->child(2);

    QVERIFY(node->removeChildren(1, 3));
    QCOMPARE(childNames(*node), QStringLiteral("a, c"));
    QVERIFY(!b);

    node->appendChild(nullptr);
    node->clear();
    QCOMPARE(node->childCount(), 0);
}

void TstItemData::nullEntriesAreLeftOutOfCopies()
{
    const auto node = nodeWithChildren(QStringLiteral("ab"));
    node->insertChild(nullptr, 0);
    node->appendChild(nullptr);
    node->child(1)->appendChild(nullptr);
    new Node(QStringLiteral("c"), node->child(1));

    const Node copy(*node);
    QCOMPARE(treeText(copy), QStringLiteral("parent(a(c), b)"));
    QCOMPARE(treeText(*node), QStringLiteral("parent(-, a(-, c), b, -)"));

    Node target(QStringLiteral("target"));
    target.appendChild(nullptr);
    target = *node;
    QCOMPARE(treeText(target), QStringLiteral("parent(a(c), b)"));
}

void TstItemData::destructionStandsNullEntries()
{
    auto node = nodeWithChildren(QStringLiteral("a"));
    const QPointer<Node> child = node->child(0);
    node->insertChild(nullptr, 0);
    child->appendChild(nullptr);

    node.reset();

    QVERIFY(!child);
}

void TstItemData::deepChainIsBuiltAndDeletedWithoutRecursion()
{
    int length = 0;
    QPointer<Node> last;
    onSmallStack([&] {
        Node top(QStringLiteral("top"));
        last = growChain(&top, deepChainLength);
        length = chainLength(top);
    });
    QCOMPARE(length, 200000);
    QVERIFY(!last);
}

void TstItemData::deepChainIsCopiedWithoutRecursion()
{
    int copied = 0;
    int assigned = 0;
    QString lastName;
    onSmallStack([&] {
        Node top(QStringLiteral("top"));
        Node* last = growChain(&top, deepChainLength);
        last->setObjectName(QStringLiteral("last"));
        const Node copy(top);
        copied = chainLength(copy);
        Node target(QStringLiteral("target"));
        target = copy;
        assigned = chainLength(target);
        const Node* node = &target;
        while (node->childCount() > 0)
            node = node->child(0);
        lastName = node->objectName();
    });
    QCOMPARE(copied, 200000);
    QCOMPARE(assigned, 200000);
    QCOMPARE(lastName, QStringLiteral("last"));
}

void TstItemData::deepChainIsClearedWithoutRecursion()
{
    int left = -1;
    QPointer<Node> last;
    onSmallStack([&] {
        Node top(QStringLiteral("top"));
        last = growChain(&top, deepChainLength);
        top.clear();
        left = top.childCount();
    });
    QCOMPARE(left, 0);
    QVERIFY(!last);
}

void TstItemData::deepChainIsRemovedWithoutRecursion()
{
    bool removed = false;
    QPointer<Node> last;
    onSmallStack([&] {
        Node top(QStringLiteral("top"));
        last = growChain(&top, deepChainLength);
        removed = top.removeChildren(0, 1);
    });
    QVERIFY(removed);
    QVERIFY(!last);
}

void TstItemData::deepChainIsReplacedWithoutRecursion()
{
    int length = -1;
    QPointer<Node> last;
    onSmallStack([&] {
        Node top(QStringLiteral("top"));
        last = growChain(&top, deepChainLength);
        Node shortChain(QStringLiteral("short"));
        growChain(&shortChain, 3);
        top = shortChain;
        length = chainLength(top);
    });
    QCOMPARE(length, 3);
    QVERIFY(!last);
}

void TstItemData::deepChainIsShortenedToItsOwnEnd()
{
    int length = -1;
    QString name;
    onSmallStack([&] {
        Node top(QStringLiteral("top"));
        const Node* last = growChain(&top, deepChainLength);
        top = *last->parent();
        length = chainLength(top);
        name = top.name();
    });
    QCOMPARE(length, 1);
    QCOMPARE(name, QStringLiteral("199998"));
}

ZOEFFECT_TEST_MAIN(TstItemData)
#include "tst_itemdata.moc"
