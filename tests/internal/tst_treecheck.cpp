// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <ctime>

#include <QtTest>

#include "treecheck_p.h"
#include "zoeffectitemdata.h"
#include "zoeffectmodel.h"

namespace {

/// What a broken operation would do: puts \a child into the list of \a node without a word to the checks.
void placeSecretly(ZoEffectItemData& node, ZoEffectItemData* child)
{
    const quint64 edits = treecheck::hostEdits();
    node.appendChild(child);
    treecheck::hostEdits() = edits;
}

void nothing(ZoEffectItemData& /*root*/) {}

void oneNode(ZoEffectItemData& root)
{
    new ZoEffectItemData(QStringLiteral("a"), &root);
}

void twoLevels(ZoEffectItemData& root)
{
    auto* a = new ZoEffectItemData(QStringLiteral("a"), &root);
    new ZoEffectItemData(QStringLiteral("b"), &root);
    new ZoEffectItemData(QStringLiteral("a1"), a);
    new ZoEffectItemData(QStringLiteral("a2"), a, 0);
}

void nullChild(ZoEffectItemData& root)
{
    placeSecretly(root, nullptr);
}

void nullGrandchild(ZoEffectItemData& root)
{
    oneNode(root);
    placeSecretly(*root.child(0), nullptr);
}

void childWithoutParent(ZoEffectItemData& root)
{
    placeSecretly(root, new ZoEffectItemData(QStringLiteral("a")));
}

void childTwice(ZoEffectItemData& root)
{
    twoLevels(root);
    placeSecretly(root, root.child(0));
}

void childUnderTwoNodes(ZoEffectItemData& root)
{
    twoLevels(root);
    placeSecretly(*root.child(1), root.child(0)->child(1));
}

void grandchildIsAlsoChild(ZoEffectItemData& root)
{
    twoLevels(root);
    placeSecretly(root, root.child(0)->child(0));
}

void childOfItself(ZoEffectItemData& root)
{
    oneNode(root);
    placeSecretly(*root.child(0), root.child(0));
}

void rootUnderItsChild(ZoEffectItemData& root)
{
    oneNode(root);
    placeSecretly(*root.child(0), &root);
}

void movedWithinTheList(ZoEffectItemData& root)
{
    twoLevels(root);
    root.changeItemPos(1, 0);
}

void takenOutAndPutBack(ZoEffectItemData& root)
{
    twoLevels(root);
    placeSecretly(root, root.takeAt(0));
}

using Change = void (*)(ZoEffectItemData&);

/// Takes \a node and all below it apart, each deleted once.
void takeApart(ZoEffectItemData& root)
{
    QSet<ZoEffectItemData*> nodes;
    QList<ZoEffectItemData*> pending{&root};
    while (!pending.isEmpty()) {
        ZoEffectItemData* node = pending.takeLast();
        while (node->childCount() > 0) {
            ZoEffectItemData* child = node->takeAt(0);
            if (child && child != &root && !nodes.contains(child)) {
                nodes.insert(child);
                pending.append(child);
            }
        }
    }
    qDeleteAll(nodes);
}

} // namespace

Q_DECLARE_METATYPE(Change)

/// The check of debug builds: what it takes for a sound tree, and that it ends the process.
class TstTreeCheck : public QObject {
    Q_OBJECT

private slots:
    void tellsSoundTrees_data();
    void tellsSoundTrees();
    void anUnsoundTreeEndsTheProcess_data();
    void anUnsoundTreeEndsTheProcess();
    void aLargeTreeIsLookedAtNowAndThen();
    void thousandsOfNodesTakeNoTime();
};

void TstTreeCheck::tellsSoundTrees_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("sound");

    QTest::newRow("a root alone") << Change(nothing) << true;
    QTest::newRow("one node") << Change(oneNode) << true;
    QTest::newRow("two levels") << Change(twoLevels) << true;
    QTest::newRow("moved within the list") << Change(movedWithinTheList) << true;
    QTest::newRow("taken out and put back") << Change(takenOutAndPutBack) << true;
    QTest::newRow("null child") << Change(nullChild) << false;
    QTest::newRow("null further down") << Change(nullGrandchild) << false;
    QTest::newRow("child that names no parent") << Change(childWithoutParent) << false;
    QTest::newRow("twice in one list") << Change(childTwice) << false;
    QTest::newRow("in two lists") << Change(childUnderTwoNodes) << false;
    QTest::newRow("grandchild that is a child, too") << Change(grandchildIsAlsoChild) << false;
    QTest::newRow("child of itself") << Change(childOfItself) << false;
    QTest::newRow("root under its child") << Change(rootUnderItsChild) << false;
}

void TstTreeCheck::tellsSoundTrees()
{
    QFETCH(Change, change);
    ZoEffectItemData root(QStringLiteral("root"));
    change(root);
    QTEST(treecheck::isSound(root), "sound");
    takeApart(root);
}

void TstTreeCheck::anUnsoundTreeEndsTheProcess_data()
{
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<bool>("ends");

    QTest::newRow("broken in an operation") << "broken" << true;
    QTest::newRow("broken in an operation of the model") << "model" << true;
    QTest::newRow("broken in an inner operation") << "inner" << true;
    QTest::newRow("broken, while another tree is worked on") << "other" << true;
    QTest::newRow("left sound") << "sound" << false;
    QTest::newRow("broken before") << "before" << false;
    QTest::newRow("broken by the host") << "host" << false;
    QTest::newRow("broken and mended in one operation") << "mended" << false;
}

/// What the child process does. Answers 0 when it was not ended.
static int play(const QString& scenario)
{
    ZoEffectItemData root(QStringLiteral("root"));
    twoLevels(root);
    if (scenario == QLatin1String("model")) {
        // A listener stands in for the broken operation: it hides its edit from the check.
        ZoEffectModel model(QStringLiteral("Crop"), {});
        QObject::connect(&model, &ZoEffectModel::currentItemChanged, &model,
                         [&model] { placeSecretly(*model.getDataItem(QStringLiteral("Crop"), -1), nullptr); });
        model.setCurrentItem(QStringLiteral("Crop"));
    } else if (scenario == QLatin1String("before")) {
        placeSecretly(root, nullptr);
        const TreeCheck check(root);
    } else if (scenario == QLatin1String("host")) {
        const TreeCheck check(root);
        root.appendChild(nullptr);
    } else {
        ZoEffectItemData other(QStringLiteral("other"));
        const TreeCheck outer(root);
        if (scenario == QLatin1String("inner")) {
            const TreeCheck inner(root);
            placeSecretly(root, nullptr);
        } else if (scenario == QLatin1String("other")) {
            const TreeCheck inner(other);
            placeSecretly(root, nullptr);
        } else if (scenario == QLatin1String("broken")) {
            placeSecretly(root, nullptr);
        } else if (scenario == QLatin1String("mended")) {
            placeSecretly(root, nullptr);
            const TreeCheck inner(root); // Sees the tree broken and leaves it to the outer one.
            root.takeAt(root.childCount() - 1);
        }
    }
    return 0;
}

void TstTreeCheck::anUnsoundTreeEndsTheProcess()
{
    QFETCH(QString, scenario);
    QFETCH(bool, ends);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--play"), scenario});
    QVERIFY(process.waitForFinished());
    const QByteArray errors = process.readAllStandardError();
    QCOMPARE(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, !ends);
    QCOMPARE(errors.contains("libzoeffect: an operation left the tree of a model unsound"), ends);
}

void TstTreeCheck::aLargeTreeIsLookedAtNowAndThen()
{
    // 1,001 nodes, 901 more than are free, before and after: 1,802 visits, of which an operation pays off 20.
    ZoEffectItemData root(QStringLiteral("root"));
    auto* type = new ZoEffectItemData(QStringLiteral("type"), &root);
    for (int i = 0; i < 999; ++i)
        new ZoEffectItemData(QString(), type);
    for (int i = 0; i < 1000 && !TreeCheck(root).checks(); ++i)
        continue;
    int lookedAt = 0;
    for (int i = 0; i < 910; ++i)
        lookedAt += TreeCheck(root).checks() ? 1 : 0;
    QCOMPARE(lookedAt, 10);
}

void TstTreeCheck::thousandsOfNodesTakeNoTime()
{
    const std::clock_t start = std::clock(); // Processor time: the machine may be busy.
    ZoEffectItemData wide(QStringLiteral("wide"));
    for (int i = 0; i < 200000; ++i)
        new ZoEffectItemData(QString(), &wide);
    ZoEffectItemData deep(QStringLiteral("deep"));
    ZoEffectItemData* last = &deep;
    for (int i = 0; i < 200000; ++i)
        last = new ZoEffectItemData(QString(), last);
    for (int i = 0; i < 1000; ++i)
        delete deep.takeAt(deep.childCount());
    QVERIFY((std::clock() - start) / CLOCKS_PER_SEC < 15);
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("--play"))
        return play(arguments.at(2));
    TstTreeCheck test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_treecheck.moc"
