// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <thread>

#include <QtTest>

#include "nodeindex_p.h"
#include "zoeffectitemdata.h"

namespace {

const QString wanted = QStringLiteral("Crop");

/// The same by the plainest walk.
ZoEffectItemData* firstByHand(const ZoEffectItemData& node, const QString& name)
{
    if (node.name() == name)
        return const_cast<ZoEffectItemData*>(&node);
    for (int row = 0; row < node.childCount(); ++row) {
        const ZoEffectItemData* child = node.child(row);
        ZoEffectItemData* found = child ? firstByHand(*child, name) : nullptr;
        if (found)
            return found;
    }
    return nullptr;
}

/// A root as a model has one.
class Tree {
public:
    Tree() = default;
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree() { nodeindex::listsChanged(); }

    ZoEffectItemData root{QStringLiteral("root")};
};

ZoEffectItemData* add(ZoEffectItemData& parent, const QString& name, int pos = -1)
{
    return new ZoEffectItemData(name, &parent, pos);
}

ZoEffectItemData* newCrop()
{
    auto* node = new ZoEffectItemData(wanted);
    node->setData(QStringLiteral("id"), 3);
    return node;
}

ZoEffectItemData* newGroup()
{
    auto* group = new ZoEffectItemData(QStringLiteral("group"));
    group->appendChild(newCrop());
    return group;
}

std::unique_ptr<ZoEffectItemData> owned(ZoEffectItemData* node)
{
    return std::unique_ptr<ZoEffectItemData>(node);
}

using Edit = std::function<void(ZoEffectItemData& root)>;

} // namespace

Q_DECLARE_METATYPE(Edit)

class TstNodeIndex : public QObject {
    Q_OBJECT

private slots:
    void firstInDepthComesBeforeFirstInTheList();
    void answerFollowsAnEdit_data();
    void answerFollowsAnEdit();
    void nodeThatBringsOthersIsSeen();
    void answerFollowsAnotherThread();
    void rootsAreToldApart();
    void namesAreToldApart();
    void nameIsLookedAtLetterByLetter();
    void rootAtTheAddressOfAnOlderOneIsNotTakenForIt();
    void answerIsRemembered();
    void answersAreThoseOfTheWalkAfterAnyEdits();
};

void TstNodeIndex::firstInDepthComesBeforeFirstInTheList()
{
    Tree tree;
    ZoEffectItemData* const branch = add(tree.root, QStringLiteral("branch"));
    ZoEffectItemData* const higher = add(tree.root, wanted);
    QCOMPARE(nodeindex::first(tree.root, wanted), higher);
    ZoEffectItemData* const deeper = add(*branch, wanted);
    QCOMPARE(nodeindex::first(tree.root, wanted), deeper);
    QCOMPARE(nodeindex::walkToFirst(tree.root, wanted), deeper);
    QCOMPARE(nodeindex::first(tree.root, QStringLiteral("root")), &tree.root);
    QCOMPARE(nodeindex::walkToFirst(*branch, QStringLiteral("root")), nullptr);
    QCOMPARE(nodeindex::walkToFirst(*higher, wanted), higher);
    QCOMPARE(nodeindex::first(tree.root, QString()), nullptr);
}

// Each edit is made in: root ( branch ( leaf ) null Crop#1 ( part ) Crop#2 ), new nodes have id 3. What is found
// afterwards is told by its id.
void TstNodeIndex::answerFollowsAnEdit_data()
{
    QTest::addColumn<int>("expected");
    QTest::addColumn<Edit>("edit");
    const auto row = [](const char* name, int expected, const Edit& edit) { QTest::newRow(name) << expected << edit; };
    using Node = ZoEffectItemData;

    row("none", 1, [](Node&) {});
    row("appended behind", 1, [](Node& root) { root.appendChild(newCrop()); });
    row("appended deeper before", 3, [](Node& root) { root.child(0)->child(0)->appendChild(newCrop()); });
    row("inserted before", 3, [](Node& root) { root.insertChild(newCrop(), 0); });
    row("inserted behind", 1, [](Node& root) { root.insertChild(newCrop(), 3); });
    row("null inserted before", 1, [](Node& root) { root.insertChild(nullptr, 0); });
    row("group inserted before", 3, [](Node& root) { root.insertChild(newGroup(), 1); });
    row("made with a parent", 0, [](Node& root) { add(root, wanted, 0); });
    row("taken", 2, [](Node& root) { delete root.takeAt(2); });
    row("other one taken", 1, [](Node& root) { delete root.takeAt(3); });
    row("removed", 2, [](Node& root) { root.removeChildren(2, 1); });
    row("both removed", 0, [](Node& root) { root.removeChildren(1, 3); });
    row("moved before", 2, [](Node& root) { root.changeItemPos(0, 3); });
    row("moved behind", 2, [](Node& root) { root.changeItemPos(3, 2); });
    row("cleared", 0, [](Node& root) { root.clear(); });
    row("branch cleared", 1, [](Node& root) { root.child(0)->clear(); });
    row("assigned another name", 2, [](Node& root) { *root.child(2) = Node(QString()); });
    row("assigned the name", 3, [](Node& root) { root.child(0)->child(0)->assign(*owned(newCrop())); });
    row("assigned children", 3, [](Node& root) { *root.child(0) = *owned(newGroup()); });
    row("root assigned", 3, [](Node& root) { root = *owned(newGroup()); });
    row("root becomes its own child", 2, [](Node& root) { root = *root.child(3); });
    row("group filled after it came in", 3, [](Node& root) {
        ZoEffectItemData* const group = add(root, QStringLiteral("group"), 0);
        QCOMPARE(nodeindex::first(root, wanted), root.child(3));
        group->appendChild(newCrop());
    });
    row("looked up while a name is taken over", 3, [](Node& root) {
        ZoEffectItemData* const crop = root.child(2);
        QObject::connect(crop, &QObject::objectNameChanged, crop, [&root] { nodeindex::first(root, wanted); });
        *crop = *owned(newGroup());
    });
}

void TstNodeIndex::answerFollowsAnEdit()
{
    QFETCH(const Edit, edit);
    QFETCH(const int, expected);
    Tree tree;
    add(*add(tree.root, QStringLiteral("branch")), QStringLiteral("leaf"));
    tree.root.appendChild(nullptr);
    for (const int id : {1, 2})
        add(tree.root, wanted)->setData(QStringLiteral("id"), id);
    add(*tree.root.child(2), QStringLiteral("part"));

    const QString absent = QStringLiteral("group");
    QCOMPARE(nodeindex::first(tree.root, wanted), tree.root.child(2));
    QCOMPARE(nodeindex::first(tree.root, absent), nullptr);
    edit(tree.root);
    for (int i = 0; i < 2; ++i) {
        const ZoEffectItemData* found = nodeindex::first(tree.root, wanted);
        QCOMPARE(found ? found->data(QStringLiteral("id")).toInt() : 0, expected);
        QCOMPARE(nodeindex::first(tree.root, absent), firstByHand(tree.root, absent));
        QCOMPARE(nodeindex::first(tree.root, QStringLiteral("part")), firstByHand(tree.root, QStringLiteral("part")));
    }
}

// The group is complete before the lookup.
void TstNodeIndex::nodeThatBringsOthersIsSeen()
{
    Tree tree;
    ZoEffectItemData* const group = newGroup();
    QCOMPARE(nodeindex::first(tree.root, wanted), nullptr);
    tree.root.appendChild(group);
    QCOMPARE(nodeindex::first(tree.root, wanted), group->child(0));
}

void TstNodeIndex::answerFollowsAnotherThread()
{
    Tree tree;
    ZoEffectItemData* const crop = add(tree.root, wanted);
    QCOMPARE(nodeindex::first(tree.root, wanted), crop);
    ZoEffectItemData* before = nullptr;
    ZoEffectItemData* there = nullptr;
    std::thread([&] {
        before = nodeindex::first(tree.root, wanted);
        tree.root.insertChild(new ZoEffectItemData(wanted), 0);
        there = nodeindex::first(tree.root, wanted);
    }).join();
    QCOMPARE(before, crop);
    QCOMPARE(there, tree.root.child(0));
    QCOMPARE(nodeindex::first(tree.root, wanted), tree.root.child(0));
}

void TstNodeIndex::rootsAreToldApart()
{
    std::array<Tree, 16> trees;
    for (Tree& tree : trees)
        add(tree.root, wanted);
    add(trees[0].root, QStringLiteral("only here"));
    for (int i = 0; i < 3; ++i) {
        for (const Tree& tree : trees) {
            QCOMPARE(nodeindex::first(tree.root, wanted), tree.root.child(0));
            QCOMPARE(nodeindex::first(tree.root, QStringLiteral("only here")),
                     &tree == trees.data() ? tree.root.child(1) : nullptr);
        }
    }
}

// More names than can be remembered, so that some stand in each other's place; most differ in one letter only, and
// some are longer than those that are remembered.
void TstNodeIndex::namesAreToldApart()
{
    Tree tree;
    QStringList names;
    for (int i = 0; i < 600; ++i)
        names << QString(i % 8 == 0 ? 40 : 24, QLatin1Char('x')) + QStringLiteral("%1").arg(i, 4);
    for (int length = 1; length < 200; ++length)
        names << QString(length, QLatin1Char('y'));
    for (int i = 0; i < names.size(); i += 2)
        add(tree.root, names.at(i));
    for (int i = 0; i < names.size(); ++i) {
        for (int again = 0; again < 2; ++again)
            QCOMPARE(nodeindex::first(tree.root, names.at(i)), i % 2 == 0 ? tree.root.child(i / 2) : nullptr);
    }
    for (int i = 1; i < names.size(); i += 2) {
        ZoEffectItemData* const late = add(tree.root, names.at(i));
        QCOMPARE(nodeindex::first(tree.root, names.at(i)), late);
        QCOMPARE(nodeindex::first(tree.root, names.at(i - 1)), tree.root.child(i / 2));
    }
}

void TstNodeIndex::nameIsLookedAtLetterByLetter()
{
    Tree tree;
    ZoEffectItemData* const crop = add(tree.root, wanted);
    ZoEffectItemData* const drop = add(tree.root, QStringLiteral("Drop"));
    std::array<QChar, 4> letters{QLatin1Char('C'), QLatin1Char('r'), QLatin1Char('o'), QLatin1Char('p')};
    const QString name = QString::fromRawData(letters.data(), 4);
    QCOMPARE(nodeindex::first(tree.root, name), crop);
    letters[0] = QLatin1Char('D');
    QCOMPARE(nodeindex::first(tree.root, name), drop);
    QCOMPARE(nodeindex::first(tree.root, wanted), crop);
    letters[0] = QLatin1Char('E');
    QCOMPARE(nodeindex::first(tree.root, QStringLiteral("Drop")), drop);
    QCOMPARE(nodeindex::first(tree.root, name), nullptr);
}

void TstNodeIndex::rootAtTheAddressOfAnOlderOneIsNotTakenForIt()
{
    std::optional<Tree> tree;
    for (int i = 0; i < 4; ++i) {
        tree.emplace();
        ZoEffectItemData* const crop = i % 2 == 0 ? add(tree->root, wanted) : nullptr;
        QCOMPARE(nodeindex::first(tree->root, wanted), crop);
    }
}

void TstNodeIndex::answerIsRemembered()
{
    constexpr int many = 50000;
    Tree tree;
    for (int i = 0; i < many; ++i)
        add(tree.root, QStringLiteral("other"));
    ZoEffectItemData* const crop = add(tree.root, wanted);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < many && timer.elapsed() < 5000; ++i) {
        QCOMPARE(nodeindex::first(tree.root, wanted), crop);
        QCOMPARE(nodeindex::first(tree.root, QStringLiteral("absent")), nullptr);
        tree.root.appendChild(nullptr);
    }
    QVERIFY2(timer.elapsed() < 5000, "each lookup walks");
}

void TstNodeIndex::answersAreThoseOfTheWalkAfterAnyEdits()
{
    std::mt19937 random(20240917); // NOLINT(cert-msc32-c,cert-msc51-cpp): what fails, fails again
    const auto upTo = [&random](int behind) { return static_cast<int>(random() % static_cast<unsigned>(behind)); };
    const QStringList names{QStringLiteral("a"), QStringLiteral("b"), wanted, QString()};
    std::array<Tree, 3> trees;
    const auto anyNode = [&] {
        ZoEffectItemData* node = &trees[std::size_t(upTo(3))].root;
        while (node->childCount() > 0 && upTo(3) > 0) {
            ZoEffectItemData* const child = node->child(upTo(node->childCount()));
            if (!child)
                break;
            node = child;
        }
        return node;
    };
    for (int step = 0; step < 20000; ++step) {
        ZoEffectItemData* const node = anyNode();
        const int row = upTo(node->childCount() + 1);
        const int choice = upTo(8);
        if (choice == 0)
            delete node->takeAt(row);
        else if (choice == 1)
            node->removeChildren(row, upTo(3));
        else if (choice == 2)
            node->changeItemPos(row, upTo(4));
        else if (choice == 3 && upTo(8) == 0)
            *node = *anyNode();
        else if (choice == 4)
            node->insertChild(upTo(4) == 0 ? nullptr : new ZoEffectItemData(names.at(upTo(4))), row);
        else
            add(*node, names.at(upTo(4)), row);
        if (step % 500 == 0)
            node->clear();
        for (const Tree& tree : trees) {
            for (const QString& name : names)
                QCOMPARE(nodeindex::first(tree.root, name), firstByHand(tree.root, name));
        }
    }
}

QTEST_GUILESS_MAIN(TstNodeIndex)

#include "tst_nodeindex.moc"
