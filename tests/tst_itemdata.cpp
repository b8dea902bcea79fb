// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The node of every effect tree: construction, copies, child list, properties.

#include <climits>
#include <memory>

#include <QPointer>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QThread>

#include <zoeffectitemdata.h>

#include "modeltest.h"

namespace {

using Node = ZoEffectItemData;

/// "a(b, c(d))", null entries as "-".
QString treeText(const Node& node)
{
    QStringList children;
    for (int i = 0; i < node.childCount(); ++i)
        children << (node.child(i) ? treeText(*node.child(i)) : QString("-"));
    return children.isEmpty() ? node.name() : node.name() + QString("(%1)").arg(children.join(", "));
}

/// A node "p" with children named by the letters of \a names.
std::unique_ptr<Node> nodeWithChildren(const QString& names)
{
    auto node = std::make_unique<Node>("p");
    for (const QChar& name : names)
        new Node(QString(name), node.get());
    return node;
}

/// All nodes below \a top.
QList<QPointer<Node>> nodesBelow(const Node& top)
{
    QList<QPointer<Node>> nodes;
    for (int i = 0; i < top.childCount(); ++i)
        nodes << top.child(i) << nodesBelow(*top.child(i));
    return nodes;
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

/// A node with 50000 descendants, each the only child of the one before.
class Chain : public Node {
public:
    Chain() : Node("top")
    {
        Node* node = this;
        for (int i = 0; i < 50000; ++i)
            node = new Node(QString::number(i), node);
        last = node;
    }
    QPointer<Node> last;
};

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

class TstItemData : public ModelTest { // The node reports by its results alone: no test may leave a log entry.
    Q_OBJECT

private slots:
    void newNodeStartsEmptyAndSelected()
    {
        for (const QString& name :
             {QString("Watermark"), QString(), QString(" Crop "), QString::fromUtf8("Gr\xC3\xB6")}) {
            const Node node(name);
            QCOMPARE(node.name(), name);
            QCOMPARE(node.objectName(), name);
            QCOMPARE(tree(&node), name + ":2{}[]");
            QVERIFY(!node.parent());
            QCOMPARE(node.childNumber(), 0);
            QVERIFY(!node.internalData());
        }
    }

    void nodeTreeIsNotTheObjectTree()
    {
        Node parent("p");
        Node* created = new Node("created", &parent);
        Node* appended = new Node("appended");
        parent.appendChild(appended);
        QVERIFY(!static_cast<QObject*>(created)->parent());
        QVERIFY(!static_cast<QObject*>(appended)->parent());
        QVERIFY(parent.children().isEmpty());
        QCOMPARE(treeText(parent), QString("p(created, appended)"));
    }

    // --- The child list

    void newChildStandsAtItsPosition_data()
    {
        addRows<int, QString>({
            {"before the first", 0, "p(n, a, b, c)"},
            {"before the last", 2, "p(a, b, n, c)"},
            {"at the end appends", 3, "p(a, b, c, n)"},
            {"beyond the end appends", 4, "p(a, b, c, n)"},
            {"largest number appends", INT_MAX, "p(a, b, c, n)"},
            {"minus one appends", -1, "p(a, b, c, n)"},
            {"smallest number appends", INT_MIN, "p(a, b, c, n)"},
        });
    }

    void newChildStandsAtItsPosition()
    {
        const auto [pos, expected] = row<int, QString>();
        const auto created = nodeWithChildren("abc");
        const Node* node = new Node("n", created.get(), pos);
        QCOMPARE(treeText(*created), expected);
        QCOMPARE(node->parent(), created.get());

        const auto inserted = nodeWithChildren("abc");
        inserted->insertChild(new Node("n"), pos);
        QCOMPARE(treeText(*inserted), expected);

        Node empty("p");
        empty.insertChild(new Node("n"), pos);
        QCOMPARE(treeText(empty), QString("p(n)"));
    }

    void childIsReadAndTaken_data()
    {
        addRows<int, QString, QString>({
            {"first", 0, "a", "p(b, c)"},
            {"last", 2, "c", "p(a, b)"},
            {"count", 3, "null", "p(a, b, c)"},
            {"largest number", INT_MAX, "null", "p(a, b, c)"},
            {"minus one", -1, "null", "p(a, b, c)"},
            {"smallest number", INT_MIN, "null", "p(a, b, c)"},
        });
    }

    void childIsReadAndTaken()
    {
        const auto [pos, name, left] = row<int, QString, QString>();
        const auto parent = nodeWithChildren("abc");
        const Node* child = parent->child(pos);
        QCOMPARE(child ? child->name() : QString("null"), name);
        QCOMPARE(treeText(*parent), QString("p(a, b, c)"));

        const std::unique_ptr<Node> taken(parent->takeAt(pos));
        QCOMPARE(taken.get(), child);
        QCOMPARE(treeText(*parent), left);
    }

    void takenChildStillNamesItsParent()
    {
        auto parent = nodeWithChildren("ab");
        new Node("c", parent->child(0));
        const std::unique_ptr<Node> taken(parent->takeAt(0));
        QCOMPARE(taken->parent(), parent.get());
        QCOMPARE(taken->childNumber(), -1);

        // It is the caller's now: it outlives the parent, with all that is below it.
        parent.reset();
        QCOMPARE(treeText(*taken), QString("a(c)"));
    }

    void appendedChildKeepsItsParent()
    {
        const auto first = nodeWithChildren("ab");
        const auto second = nodeWithChildren("x");
        Node* free = new Node("free");
        Node* moved = first->takeAt(0);
        second->appendChild(moved);
        second->appendChild(free);
        second->insertChild(first->takeAt(0), 0);
        QCOMPARE(treeText(*second), QString("p(b, x, a, free)"));
        QCOMPARE(second->child(0)->parent(), first.get());
        QCOMPARE(moved->parent(), first.get());
        QVERIFY(!free->parent());

        // The recorded parent's list counts, wherever the node stands; without one it is 0.
        QCOMPARE(moved->childNumber(), -1);
        QCOMPARE(free->childNumber(), 0);
    }

    void childNumberIsTheFirstMatchInTheParentsList()
    {
        const auto parent = nodeWithChildren("abc");
        Node* last = parent->child(2);
        QCOMPARE(last->childNumber(), 2);
        parent->insertChild(last, 1);
        QCOMPARE(treeText(*parent), QString("p(a, c, b, c)"));
        QCOMPARE(last->childNumber(), 1);
        parent->takeAt(1);
        QCOMPARE(last->childNumber(), 2);
    }

    void removeChildrenRemovesRuns_data()
    {
        addRows<int, int, bool, QString>({
            {"all", 0, 3, true, "p"},
            {"first", 0, 1, true, "p(b, c)"},
            {"last", 2, 1, true, "p(a, b)"},
            {"run to the end", 1, 2, true, "p(a)"},
            {"none at the end", 3, 0, true, "p(a, b, c)"},
            {"none beyond the end", 4, 0, false, "p(a, b, c)"},
            {"before the start into the list", -1, 3, false, "p(a, b, c)"},
            {"one too many", 0, 4, false, "p(a, b, c)"},
            {"one at the end", 3, 1, false, "p(a, b, c)"},
            {"negative count", 0, -1, true, "p(a, b, c)"},
            {"negative count, sum in range", 5, -2, true, "p(a, b, c)"},
            {"negative count, sum beyond the end", 5, -1, false, "p(a, b, c)"},
            {"negative count, sum negative", 2, -7, true, "p(a, b, c)"},
            {"negative position and count", -1, -1, false, "p(a, b, c)"},
            {"sum beyond int", 1, INT_MAX, false, "p(a, b, c)"},
            {"both largest", INT_MAX, INT_MAX, false, "p(a, b, c)"},
            {"largest position, smallest count", INT_MAX, INT_MIN, true, "p(a, b, c)"},
            {"both smallest", INT_MIN, INT_MIN, false, "p(a, b, c)"},
        });
    }

    void removeChildrenRemovesRuns()
    {
        const auto [pos, count, result, left] = row<int, int, bool, QString>();
        const auto parent = nodeWithChildren("abc");
        QCOMPARE(parent->removeChildren(pos, count), result);
        QCOMPARE(treeText(*parent), left);
    }

    void removeChildrenDeletesExactlyTheRun()
    {
        const auto parent = nodeWithChildren("abcde");
        new Node("y", new Node("x", parent->child(1)));
        const QList<QPointer<Node>> nodes = nodesBelow(*parent); // a, b, x, y, c, d, e
        QVERIFY(parent->removeChildren(1, 3));
        QCOMPARE(nodes.count(nullptr), 5);
        QCOMPARE(parent->child(0), nodes.at(0).data());
        QCOMPARE(parent->child(1), nodes.at(6).data());
    }

    void changeItemPosMoves_data()
    {
        addRows<int, int, bool, QString>({
            {"last to the front", 0, 2, true, "p(c, a, b)"},
            {"first to the end", 2, 0, true, "p(b, c, a)"},
            {"first to the middle", 1, 0, true, "p(b, a, c)"},
            {"last to the middle", 1, 2, true, "p(a, c, b)"},
            {"where it is", 1, 1, false, "p(a, b, c)"},
            {"negative destination", -1, 0, false, "p(a, b, c)"},
            {"negative source", 0, -1, false, "p(a, b, c)"},
            {"destination at the count", 3, 0, false, "p(a, b, c)"},
            {"source at the count", 0, 3, false, "p(a, b, c)"},
            {"equal and beyond the end", 5, 5, false, "p(a, b, c)"},
            {"largest destination", INT_MAX, 0, false, "p(a, b, c)"},
            {"smallest source", 0, INT_MIN, false, "p(a, b, c)"},
        });
    }

    void changeItemPosMoves()
    {
        const auto [to, from, result, expected] = row<int, int, bool, QString>();
        const auto parent = nodeWithChildren("abc");
        const QList<QPointer<Node>> before = nodesBelow(*parent);
        QCOMPARE(parent->changeItemPos(to, from), result);
        QCOMPARE(treeText(*parent), expected);
        QVERIFY(parentsAreConsistent(*parent));
        QVERIFY(!result || parent->child(to) == before.at(from));
    }

    void clearDeletesChildrenAndKeepsTheRest()
    {
        const auto parent = nodeWithChildren("ab");
        new Node("c", parent->child(0));
        const QList<QPointer<Node>> below = nodesBelow(*parent);
        int host = 0;
        parent->setData("key", 5);
        parent->setCheckState(0);
        parent->setInternalData(&host);
        for (int times = 0; times < 2; ++times) {
            parent->clear();
            QCOMPARE(below.count(nullptr), 3);
            QCOMPARE(tree(parent.get()), QString("p:0{key: int 5}[]"));
            QCOMPARE(parent->internalData(), static_cast<void*>(&host));
        }
    }

    void destructionDeletesAllDescendants()
    {
        auto parent = nodeWithChildren("ab");
        new Node("d", new Node("c", parent->child(1)));
        parent->appendChild(new Node("appended")); // Owned like any other.
        const QList<QPointer<Node>> below = nodesBelow(*parent);
        parent.reset();
        QCOMPARE(below.size(), 5);
        QCOMPARE(below.count(nullptr), 5);
    }

    void destructionLeavesTheParentsListAlone()
    {
        const auto parent = nodeWithChildren("ab");
        delete parent->child(0);
        QCOMPARE(parent->childCount(), 2);
        parent->takeAt(0); // What is left there points nowhere.
        QCOMPARE(treeText(*parent), QString("p(b)"));
    }

    // --- Properties and the other fields

    void missingKeysRead()
    {
        Node node("node");
        node.setData("other", 1);
        QCOMPARE(described(node.data("trackid")), QString("int -1"));
        QVERIFY(!node.hasData("trackid"));
        for (const char* key :
             {"Trackid", "trackId", "trackid ", "trackid2", "track", "id", "_checkstate", "Other", ""}) {
            QCOMPARE(described(node.data(key)), QString("invalid"));
            QVERIFY(!node.hasData(key));
        }
        QCOMPARE(described(node.properties()), QString("{other: int 1}"));
    }

    void setDataStoresWhatIsGiven()
    {
        const QString keys[] = {"trackid", "key", "", " ", "_checkstate", QString::fromUtf8("schl\xC3\xBCssel"),
                                "Crop"};
        for (const QString& key : keys) {
            Node node("node");
            for (const QVariant& value : {QVariant(5), QVariant("5"), QVariant(5.0), QVariant(), QVariant(false)}) {
                node.setData(key, value);
                QCOMPARE(described(node.data(key)), described(value));
                QVERIFY(node.hasData(key));
                QCOMPARE(node.properties().keys(), QStringList{key});
            }
            QCOMPARE(node.checkState(), 2); // A key named like the check state is an ordinary one.
            node.delData("other");
            QVERIFY(node.hasData(key));
            node.delData(key);
            QVERIFY(node.properties().isEmpty());
            QCOMPARE(described(node.data(key)), QString(key == "trackid" ? "int -1" : "invalid"));
        }
    }

    void propertiesAreOrderedByKey()
    {
        Node node("node");
        for (const char* key : {"wm_b", "crop_left", "_checkstate", "Zoom", "crop_height"})
            node.setData(QLatin1String(key), 1);
        QCOMPARE(node.properties().keys(), QStringList({"Zoom", "_checkstate", "crop_height", "crop_left", "wm_b"}));
    }

    void rolesAnswer()
    {
        Node node("Crop");
        node.setObjectName("shown");
        node.setData("1", "not a role");
        QCOMPARE(described(node.data(0)), QString("string shown"));
        QCOMPARE(described(node.data(2)), QString("string shown"));
        QCOMPARE(node.name(), QString("Crop"));
        for (const int role : {1, 3, 9, 11, 256, -1, INT_MAX, INT_MIN})
            QCOMPARE(described(node.data(role)), QString("invalid"));
        for (const int state : {0, 1, 2, 7, -1, INT_MAX, INT_MIN}) {
            node.setCheckState(state);
            QCOMPARE(node.checkState(), state);
            QCOMPARE(node.data(10), QVariant(state));
        }
        QCOMPARE(described(node.properties()), QString("{1: string not a role}"));
    }

    // Any word will do: it is never looked at.
    void internalDataIsKeptAsGiven()
    {
        Node node("node");
        for (void* const data :
             {reinterpret_cast<void*>(quintptr(1)), static_cast<void*>(&node), static_cast<void*>(nullptr)}) {
            node.setInternalData(data);
            QCOMPARE(node.internalData(), data);
        }
    }

    void changesEmitNothing()
    {
        const auto node = nodeWithChildren("abc");
        const QSignalSpy named(node.get(), &QObject::objectNameChanged);
        const QSignalSpy destroyed(node.get(), &QObject::destroyed);
        node->setData("key", 5);
        node->delData("key");
        node->setCheckState(0);
        node->setInternalData(node.get());
        node->changeItemPos(0, 2);
        node->removeChildren(0, 1);
        node->clear();
        QCOMPARE(named.count(), 0);
        QCOMPARE(destroyed.count(), 0);
    }

    // --- Copies

    void copiesTakeOverAllFields()
    {
        int host = 0;
        int other = 0;
        const auto top = nodeWithChildren("xy");
        auto* source = new Node("s", top.get());
        source->setObjectName("shown");
        source->setData("key", 1.5);
        source->setData("trackid", QVariant());
        source->setCheckState(0);
        source->setInternalData(&host);
        auto* item = new Node("a", source);
        item->setObjectName("item shown");
        item->setCheckState(7);
        item->setInternalData(&other);
        new Node("d", new Node("c", item));
        new Node("b", source);
        const QString expected = "s:0{key: double 1.5, trackid: invalid}[a:7{}[c:2{}[d:2{}[]]] b:2{}[]]";

        const auto old = nodeWithChildren("lmnop");
        const QList<QPointer<Node>> oldNodes = nodesBelow(*old);
        old->setData("old", 1);
        Node* second = new Node("second", top.get());
        QCOMPARE(&(*old = *source), old.get());
        QCOMPARE(&second->assign(*source), second);
        auto copy = std::make_unique<Node>(*source);

        for (const Node* node : {copy.get(), old.get(), second}) {
            QCOMPARE(tree(node), expected);
            QCOMPARE(node->objectName(), QString("shown"));
            QCOMPARE(node->child(0)->objectName(), QString("item shown"));
            QCOMPARE(node->internalData(), static_cast<void*>(&host));
            QCOMPARE(node->child(0)->internalData(), static_cast<void*>(&other));
            QVERIFY(parentsAreConsistent(*node));
            QVERIFY(node->child(0) != source->child(0));
            QVERIFY(node->child(0)->child(0)->child(0) != source->child(0)->child(0)->child(0));
        }
        QCOMPARE(oldNodes.count(nullptr), 5);

        // Parent and place are no part of it.
        QVERIFY(!copy->parent());
        QVERIFY(!static_cast<const QObject&>(*copy).parent());
        QCOMPARE(copy->childNumber(), 0);
        QVERIFY(!old->parent());
        QCOMPARE(second->parent(), top.get());
        QCOMPARE(second->childNumber(), 3);

        // What is done to a copy stays there, and the other way about.
        copy->setData("key", 2);
        copy->child(0)->setData("key", 3);
        copy->child(0)->setCheckState(0);
        copy->removeChildren(1, 1);
        copy.reset();
        QCOMPARE(tree(source), expected);
        source->delData("key");
        source->child(0)->setData("key", 20);
        source->changeItemPos(0, 1);
        delete top->takeAt(2);
        QCOMPARE(tree(second), expected);
    }

    void assignmentOfANodeWithoutChildrenDeletesTheOldOnes()
    {
        const auto target = nodeWithChildren("ab");
        new Node("c", target->child(1));
        const QList<QPointer<Node>> below = nodesBelow(*target);
        *target = Node("leaf");
        QCOMPARE(treeText(*target), QString("leaf"));
        QCOMPARE(below.count(nullptr), 3);
    }

    void selfAssignmentDoesNothing()
    {
        const auto node = nodeWithChildren("ab");
        node->setData("key", 1);
        const QList<QPointer<Node>> before = nodesBelow(*node);
        const Node& same = *node;
        *node = same;
        QCOMPARE(&node->assign(same), node.get());
        QCOMPARE(nodesBelow(*node), before);
        QCOMPARE(before.count(nullptr), 0);
        QCOMPARE(described(node->properties()), QString("{key: int 1}"));
    }

    void assignmentWithinOneTree_data()
    {
        // The tree is r(a(b(c), d), e) each time.
        addRows<QString, QString, QString>({
            {"child to its parent", "r", "a", "a(b(c), d)"},
            {"second child to its parent", "r", "e", "e"},
            {"leaf to the top", "r", "c", "c"},
            {"child to a middle node", "a", "b", "r(b(c), e)"},
            {"leaf to a middle node", "a", "c", "r(c, e)"},
            {"parent to its child", "a", "r", "r(r(a(b(c), d), e), e)"},
            {"parent to its second child", "e", "r", "r(a(b(c), d), r(a(b(c), d), e))"},
            {"top to a leaf", "c", "r", "r(a(b(r(a(b(c), d), e)), d), e)"},
            {"middle node to its child", "b", "a", "r(a(a(b(c), d), d), e)"},
            {"sibling with children", "e", "a", "r(a(b(c), d), a(b(c), d))"},
            {"sibling without children", "a", "e", "r(e, e)"},
        });
    }

    void assignmentWithinOneTree()
    {
        const auto [target, source, expected] = row<QString, QString, QString>();
        Node r("r");
        Node* a = new Node("a", &r);
        Node* b = new Node("b", a);
        Node* c = new Node("c", b);
        Node* d = new Node("d", a);
        Node* e = new Node("e", &r);
        const QMap<QString, Node*> nodes = {{"r", &r}, {"a", a}, {"b", b}, {"c", c}, {"d", d}, {"e", e}};
        nodes.value(target)->assign(*nodes.value(source));
        QCOMPARE(treeText(r), expected);
        QVERIFY(parentsAreConsistent(r));
    }

    void assignmentFromOwnDescendantTakesItsFields()
    {
        int host = 0;
        Node top("top");
        top.setData("key", 1);
        Node* source = new Node("source", new Node("child", &top));
        source->setObjectName("shown");
        source->setData("key", 2);
        source->setCheckState(0);
        source->setInternalData(&host);
        (new Node("below", source))->setData("key", 3);
        const QList<QPointer<Node>> old = nodesBelow(top);

        top = *source;

        QCOMPARE(tree(&top), QString("source:0{key: int 2}[below:2{key: int 3}[]]"));
        QCOMPARE(top.objectName(), QString("shown"));
        QCOMPARE(top.internalData(), static_cast<void*>(&host));
        QVERIFY(parentsAreConsistent(top));
        QCOMPARE(old.count(nullptr), 3);
    }

    // Within the copy stands the target as it was before, not as it is now.
    void assignmentFromOwnAncestorTakesItAsItWas()
    {
        Node top("t");
        top.setData("key", 1);
        Node* target = new Node("a", &top);
        target->setData("key", 2);
        const QPointer<Node> oldLeaf = new Node("leaf", target);
        *target = top;
        QCOMPARE(tree(&top), QString("t:2{key: int 1}[t:2{key: int 1}[a:2{key: int 2}[leaf:2{}[]]]]"));
        QCOMPARE(top.child(0), target);
        QVERIFY(parentsAreConsistent(top));
        QVERIFY(!oldLeaf);
        *target = top;
        QCOMPARE(treeText(top), QString("t(t(t(a(leaf))))"));
    }

    // --- Null entries and deep trees

    void nullEntriesAreListedAndRemoved()
    {
        const auto node = nodeWithChildren("ab");
        node->appendChild(nullptr);
        node->insertChild(nullptr, 1);
        QCOMPARE(treeText(*node), QString("p(a, -, b, -)"));
        QCOMPARE(node->child(2)->childNumber(), 2);
        QVERIFY(node->changeItemPos(0, 1));
        QCOMPARE(treeText(*node), QString("p(-, a, b, -)"));
        QVERIFY(!node->takeAt(0));
        QCOMPARE(treeText(*node), QString("p(a, b, -)"));
        QVERIFY(node->removeChildren(1, 2));
        QCOMPARE(treeText(*node), QString("p(a)"));
        node->appendChild(nullptr);
        node->clear();
        QCOMPARE(treeText(*node), QString("p"));
    }

    void nullEntriesAreLeftOutOfCopies()
    {
        auto node = nodeWithChildren("ab");
        node->insertChild(nullptr, 0);
        node->child(1)->appendChild(nullptr);
        new Node("c", node->child(1));
        const QPointer<Node> child = node->child(1);
        const Node copy(*node);
        QCOMPARE(treeText(copy), QString("p(a(c), b)"));
        QCOMPARE(treeText(*node), QString("p(-, a(-, c), b)"));
        Node target("target");
        target.appendChild(nullptr);
        target = *node;
        QCOMPARE(treeText(target), QString("p(a(c), b)"));
        node.reset(); // Deletes what is there.
        QVERIFY(!child);
    }

    void deepChainIsCopiedAndDeletedWithoutRecursion()
    {
        QList<int> lengths;
        QString lastName;
        QPointer<Node> last;
        onSmallStack([&] {
            const Chain chain;
            last = chain.last;
            const Node& top = chain;
            const Node copy(top);
            Node target("target");
            target = copy;
            lengths << chainLength(top) << chainLength(copy) << chainLength(target);
            const Node* node = &target;
            while (node->childCount() > 0)
                node = node->child(0);
            lastName = node->name();
        });
        QCOMPARE(lengths, (QList<int>{50000, 50000, 50000}));
        QCOMPARE(lastName, QString("49999"));
        QVERIFY(!last);
    }

    void deepChainIsEmptiedWithoutRecursion()
    {
        QList<int> lengths;
        int deleted = 0;
        const std::function<void(Chain&)> ways[] = {
            [](Chain& chain) { chain.clear(); },
            [](Chain& chain) { chain.removeChildren(0, 1); },
            [](Chain& chain) { chain.assign(*nodeWithChildren("x")); },
            [](Chain& chain) { chain.assign(*chain.last->parent()); },
        };
        for (const auto& way : ways) {
            onSmallStack([&] {
                Chain chain;
                way(chain);
                lengths << chainLength(chain);
                deleted += chain.last.isNull() ? 1 : 0;
            });
        }
        QCOMPARE(lengths, (QList<int>{0, 0, 1, 1}));
        QCOMPARE(deleted, 4);
    }
};

ZOEFFECT_TEST_MAIN(TstItemData)
#include "tst_itemdata.moc"
