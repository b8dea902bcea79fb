// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Lookups in a model against a walk by hand, whatever a host does to the nodes themselves.

#include <array>
#include <functional>
#include <memory>
#include <random>

#include <QtTest>

#include "firstnodes_p.h"
#include "zoeffectitemdata.h"
#include "zoeffectmodel.h"

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

/// A model without types, and its root.
struct Tree {
    ZoEffectModel model;
    ZoEffectItemData& root = *model.getDataItem(QStringLiteral("effect root"), -1);

    ZoEffectItemData* first(const QString& name) const { return model.findDataItem(name, -1); }
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

using Edit = std::function<void(ZoEffectItemData& root, Tree& tree)>;

} // namespace

Q_DECLARE_METATYPE(Edit)

class TstFirstNodes : public QObject {
    Q_OBJECT

private slots:
    void firstInDepthComesBeforeFirstInTheList();
    void answerFollowsAnEdit_data();
    void answerFollowsAnEdit();
    void nodeThatBringsOthersIsSeen();
    void nameIsLookedAtLetterByLetter();
    void answerIsRemembered();
    void answersAreThoseOfTheWalkAfterAnyEdits();
};

void TstFirstNodes::firstInDepthComesBeforeFirstInTheList()
{
    Tree tree;
    ZoEffectItemData* const branch = add(tree.root, QStringLiteral("branch"));
    ZoEffectItemData* const higher = add(tree.root, wanted);
    QCOMPARE(tree.first(wanted), higher);
    ZoEffectItemData* const deeper = add(*branch, wanted);
    QCOMPARE(tree.first(wanted), deeper);
    QCOMPARE(firstNode(tree.root, wanted), deeper);
    QCOMPARE(tree.first(QStringLiteral("effect root")), &tree.root);
    QCOMPARE(firstNode(*branch, QStringLiteral("root")), nullptr);
    QCOMPARE(firstNode(*higher, wanted), higher);
    QCOMPARE(tree.first(QString()), nullptr);
}

// Each edit is made in: root ( branch ( leaf ) null Crop#1 ( part ) Crop#2 ), new nodes have id 3. What is found
// afterwards is told by its id.
void TstFirstNodes::answerFollowsAnEdit_data()
{
    QTest::addColumn<int>("expected");
    QTest::addColumn<Edit>("edit");
    const auto row = [](const char* name, int expected, const Edit& edit) { QTest::newRow(name) << expected << edit; };
    using Node = ZoEffectItemData;

    row("none", 1, [](Node&, Tree&) {});
    row("appended behind", 1, [](Node& root, Tree&) { root.appendChild(newCrop()); });
    row("appended deeper before", 3, [](Node& root, Tree&) { root.child(0)->child(0)->appendChild(newCrop()); });
    row("inserted before", 3, [](Node& root, Tree&) { root.insertChild(newCrop(), 0); });
    row("inserted behind", 1, [](Node& root, Tree&) { root.insertChild(newCrop(), 3); });
    row("null inserted before", 1, [](Node& root, Tree&) { root.insertChild(nullptr, 0); });
    row("group inserted before", 3, [](Node& root, Tree&) { root.insertChild(newGroup(), 1); });
    row("made with a parent", 0, [](Node& root, Tree&) { add(root, wanted, 0); });
    row("taken", 2, [](Node& root, Tree&) { delete root.takeAt(2); });
    row("other one taken", 1, [](Node& root, Tree&) { delete root.takeAt(3); });
    row("removed", 2, [](Node& root, Tree&) { root.removeChildren(2, 1); });
    row("both removed", 0, [](Node& root, Tree&) { root.removeChildren(1, 3); });
    row("moved before", 2, [](Node& root, Tree&) { root.changeItemPos(0, 3); });
    row("moved behind", 2, [](Node& root, Tree&) { root.changeItemPos(3, 2); });
    row("cleared", 0, [](Node& root, Tree&) { root.clear(); });
    row("branch cleared", 1, [](Node& root, Tree&) { root.child(0)->clear(); });
    row("assigned another name", 2, [](Node& root, Tree&) { *root.child(2) = Node(QString()); });
    row("assigned the name", 3, [](Node& root, Tree&) { root.child(0)->child(0)->assign(*owned(newCrop())); });
    row("assigned children", 3, [](Node& root, Tree&) { *root.child(0) = *owned(newGroup()); });
    row("root assigned", 3, [](Node& root, Tree&) { root = *owned(newGroup()); });
    row("root becomes its own child", 2, [](Node& root, Tree&) { root = *root.child(3); });
    row("group filled after it came in", 3, [](Node& root, Tree& tree) {
        ZoEffectItemData* const group = add(root, QStringLiteral("group"), 0);
        QCOMPARE(tree.first(wanted), root.child(3));
        group->appendChild(newCrop());
    });
    row("looked up while a name is taken over", 3, [](Node& root, Tree& tree) {
        ZoEffectItemData* const crop = root.child(2);
        QObject::connect(crop, &QObject::objectNameChanged, crop, [&tree] { tree.first(wanted); });
        *crop = *owned(newGroup());
    });
    row("filled after it came from another model", 3, [](Node& root, Tree& tree) {
        Tree other;
        add(other.root, QStringLiteral("group"));
        QCOMPARE(other.first(wanted), nullptr);
        root.insertChild(other.root.takeAt(0), 0);
        QCOMPARE(tree.first(wanted), root.child(3));
        root.child(0)->appendChild(newCrop());
    });
    row("filled where it stands besides", 3, [](Node& root, Tree& tree) {
        Node container{QString()};
        container.appendChild(root.child(0));
        QCOMPARE(tree.first(wanted), root.child(2));
        container.child(0)->appendChild(newCrop());
        container.takeAt(0);
    });
    row("filled after it was moved, first in, then out", 3, [](Node& root, Tree& tree) {
        root.insertChild(root.child(0)->child(0), 0);
        root.child(1)->takeAt(0);
        QCOMPARE(tree.first(wanted), root.child(3));
        root.child(0)->appendChild(newCrop());
    });
    row("filled after it was out", 3, [](Node& root, Tree& tree) {
        Node* const branch = root.takeAt(0);
        QCOMPARE(tree.first(wanted), root.child(1));
        branch->appendChild(newCrop());
        root.insertChild(branch, 0);
    });
}

void TstFirstNodes::answerFollowsAnEdit()
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
    QCOMPARE(tree.first(wanted), tree.root.child(2));
    QCOMPARE(tree.first(absent), nullptr);
    edit(tree.root, tree);
    for (int i = 0; i < 2; ++i) {
        const ZoEffectItemData* found = tree.first(wanted);
        QCOMPARE(found ? found->data(QStringLiteral("id")).toInt() : 0, expected);
        QCOMPARE(tree.first(absent), firstByHand(tree.root, absent));
        QCOMPARE(tree.first(QStringLiteral("part")), firstByHand(tree.root, QStringLiteral("part")));
    }
}

// The group is complete before the lookup.
void TstFirstNodes::nodeThatBringsOthersIsSeen()
{
    Tree tree;
    ZoEffectItemData* const group = newGroup();
    QCOMPARE(tree.first(wanted), nullptr);
    tree.root.appendChild(group);
    QCOMPARE(tree.first(wanted), group->child(0));
}

void TstFirstNodes::nameIsLookedAtLetterByLetter()
{
    Tree tree;
    ZoEffectItemData* const crop = add(tree.root, wanted);
    ZoEffectItemData* const drop = add(tree.root, QStringLiteral("Drop"));
    std::array<QChar, 4> letters{QLatin1Char('C'), QLatin1Char('r'), QLatin1Char('o'), QLatin1Char('p')};
    const QString name = QString::fromRawData(letters.data(), 4);
    QCOMPARE(tree.first(name), crop);
    letters[0] = QLatin1Char('D');
    QCOMPARE(tree.first(name), drop);
    QCOMPARE(tree.first(wanted), crop);
    letters[0] = QLatin1Char('E');
    QCOMPARE(tree.first(QStringLiteral("Drop")), drop);
    QCOMPARE(tree.first(name), nullptr);
}

void TstFirstNodes::answerIsRemembered()
{
    constexpr int many = 20000;
    Tree tree;
    for (int i = 0; i < many; ++i)
        add(tree.root, QStringLiteral("other"));
    ZoEffectItemData* const crop = add(tree.root, wanted);
    // Walks would visit 400 million nodes.
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < many && timer.elapsed() < 5000; ++i)
        QCOMPARE(tree.first(wanted), crop);
    QVERIFY2(timer.elapsed() < 5000, "each lookup walks");
}

namespace {

/// What a host may do to nodes, in any order.
class RandomEdits {
public:
    explicit RandomEdits(std::array<Tree, 3>& trees) : m_trees(trees) {}

    void edit()
    {
        ZoEffectItemData& node = anyNode();
        const int row = upTo(node.childCount() + 1);
        switch (upTo(8)) {
        case 0:
            move(node, row);
            break;
        case 1:
            node.removeChildren(row, upTo(3));
            break;
        case 2:
            node.changeItemPos(row, upTo(4));
            break;
        case 3:
            if (upTo(8) == 0)
                node = anyNode();
            break;
        case 4:
            node.insertChild(upTo(4) == 0 ? nullptr : new ZoEffectItemData(anyName()), row);
            break;
        default:
            add(node, anyName(), row);
        }
    }

    void clear() { anyNode().clear(); }

    const QStringList names{QStringLiteral("a"), QStringLiteral("b"), wanted, QString()};

private:
    int upTo(int behind) { return static_cast<int>(m_random() % static_cast<unsigned>(behind)); }
    QString anyName() { return names.at(upTo(4)); }

    ZoEffectItemData& anyNode()
    {
        ZoEffectItemData* node = &m_trees.at(std::size_t(upTo(3))).root;
        while (node->childCount() > 0 && upTo(3) > 0) {
            ZoEffectItemData* const child = node->child(upTo(node->childCount()));
            if (!child)
                break;
            node = child;
        }
        return *node;
    }

    void move(ZoEffectItemData& from, int row)
    {
        ZoEffectItemData* const taken = from.takeAt(row);
        if (taken && upTo(2) == 0)
            anyNode().appendChild(taken);
        else
            delete taken;
    }

    std::array<Tree, 3>& m_trees;
    std::mt19937 m_random{20240917}; // NOLINT(cert-msc32-c,cert-msc51-cpp): what fails, fails again
};

} // namespace

void TstFirstNodes::answersAreThoseOfTheWalkAfterAnyEdits()
{
    std::array<Tree, 3> trees;
    RandomEdits edits(trees);
    for (int step = 0; step < 10000; ++step) {
        edits.edit();
        if (step % 500 == 0)
            edits.clear();
        for (const Tree& tree : trees) {
            for (const QString& name : edits.names)
                QCOMPARE(tree.first(name), firstByHand(tree.root, name));
        }
    }
}

QTEST_GUILESS_MAIN(TstFirstNodes)

#include "tst_firstnodes.moc"
