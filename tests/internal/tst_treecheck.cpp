// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "treecheck_p.h"
#include "zoeffectitemdata.h"
#include "zoeffectmodel.h"

#include "../support/rows.h"

namespace {

/// What a broken operation would do: puts \a child into the list of \a node without a word to the checks.
void placeSecretly(ZoEffectItemData& node, ZoEffectItemData* child)
{
    const quint64 edits = treecheck::hostEdits();
    node.appendChild(child);
    treecheck::hostEdits() = edits;
}

/// a with a2 and a1, and b.
void grow(ZoEffectItemData& root)
{
    auto* a = new ZoEffectItemData("a", &root);
    new ZoEffectItemData("b", &root);
    new ZoEffectItemData("a1", a);
    new ZoEffectItemData("a2", a, 0);
}

using Change = std::function<void(ZoEffectItemData&)>;

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

/// What the child process does. Answers 0 when it was not ended.
int play(const QString& scenario)
{
    ZoEffectItemData root("root");
    grow(root);
    if (scenario == "model") {
        // A listener stands in for the broken operation: it hides its edit from the check.
        ZoEffectModel model("Crop", {});
        QObject::connect(&model, &ZoEffectModel::currentItemChanged, &model,
                         [&model] { placeSecretly(*model.getDataItem("Crop", -1), nullptr); });
        model.setCurrentItem("Crop");
    } else if (scenario == "before") {
        placeSecretly(root, nullptr);
        const TreeCheck check(root);
    } else if (scenario == "host") {
        const TreeCheck check(root);
        root.appendChild(nullptr);
    } else {
        ZoEffectItemData other("other");
        const TreeCheck outer(root);
        if (scenario == "inner") {
            const TreeCheck inner(root);
            placeSecretly(root, nullptr);
        } else if (scenario == "other") {
            const TreeCheck inner(other);
            placeSecretly(root, nullptr);
        } else if (scenario == "broken") {
            placeSecretly(root, nullptr);
        } else if (scenario == "mended") {
            placeSecretly(root, nullptr);
            const TreeCheck inner(root); // Sees the tree broken and leaves it to the outer one.
            root.takeAt(root.childCount() - 1);
        }
    }
    return 0;
}

} // namespace

/// The check of debug builds: what it takes for a sound tree, and that it ends the process.
class TstTreeCheck : public QObject {
    Q_OBJECT

private slots:
    void tellsSoundTrees_data()
    {
        using Node = ZoEffectItemData;
        addRows<Change, bool>({
            {"as grown", [](Node&) {}, true},
            {"a root alone", [](Node& root) { root.clear(); }, true},
            {"moved within the list", [](Node& root) { root.changeItemPos(1, 0); }, true},
            {"taken out and put back", [](Node& root) { placeSecretly(root, root.takeAt(0)); }, true},
            {"null child", [](Node& root) { placeSecretly(root, nullptr); }, false},
            {"null further down", [](Node& root) { placeSecretly(*root.child(1), nullptr); }, false},
            {"child that names no parent", [](Node& root) { placeSecretly(root, new Node("c")); }, false},
            {"twice in one list", [](Node& root) { placeSecretly(root, root.child(0)); }, false},
            {"in two lists", [](Node& root) { placeSecretly(*root.child(1), root.child(0)->child(1)); }, false},
            {"grandchild that is a child, too", [](Node& root) { placeSecretly(root, root.child(0)->child(0)); },
             false},
            {"child of itself", [](Node& root) { placeSecretly(*root.child(0), root.child(0)); }, false},
            {"root under its child", [](Node& root) { placeSecretly(*root.child(0), &root); }, false},
        });
    }

    void tellsSoundTrees()
    {
        const auto [change, sound] = row<Change, bool>();
        ZoEffectItemData root("root");
        grow(root);
        change(root);
        QCOMPARE(treecheck::isSound(root), sound);
        takeApart(root);
    }

    void anUnsoundTreeEndsTheProcess_data()
    {
        addRows<QString, bool>({
            {"broken in an operation", "broken", true},
            {"broken in an operation of the model", "model", true},
            {"broken in an inner operation", "inner", true},
            {"broken, while another tree is worked on", "other", true},
            {"left sound", "sound", false},
            {"broken before", "before", false},
            {"broken by the host", "host", false},
            {"broken and mended in one operation", "mended", false},
        });
    }

    void anUnsoundTreeEndsTheProcess()
    {
        const auto [scenario, ends] = row<QString, bool>();
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {"--play", scenario});
        QVERIFY(process.waitForFinished(-1));
        const QByteArray errors = process.readAllStandardError();
        QCOMPARE(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, !ends);
        QCOMPARE(errors.contains("libzoeffect: an operation left the tree of a model unsound"), ends);
    }

    void aLargeTreeIsLookedAtNowAndThen()
    {
        // 1,001 nodes, 901 more than are free, before and after: 1,802 visits, of which an operation pays off 20.
        ZoEffectItemData root("root");
        auto* type = new ZoEffectItemData("type", &root);
        for (int i = 0; i < 999; ++i)
            new ZoEffectItemData(QString(), type);
        for (int i = 0; i < 1000 && !TreeCheck(root).checks(); ++i)
            continue;
        int lookedAt = 0;
        for (int i = 0; i < 910; ++i)
            lookedAt += TreeCheck(root).checks() ? 1 : 0;
        QCOMPARE(lookedAt, 10);
    }

    // Looked at each time, they would take minutes, and the test would not end in its time.
    void thousandsOfNodesTakeNoTime()
    {
        ZoEffectItemData wide("wide");
        for (int i = 0; i < 200000; ++i)
            new ZoEffectItemData(QString(), &wide);
        ZoEffectItemData deep("deep");
        ZoEffectItemData* last = &deep;
        for (int i = 0; i < 200000; ++i)
            last = new ZoEffectItemData(QString(), last);
        for (int i = 0; i < 1000; ++i)
            delete deep.takeAt(deep.childCount());
        QCOMPARE(wide.childCount(), 200000);
        QCOMPARE(deep.childCount(), 1);
    }
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == "--play")
        return play(arguments.at(2));
    TstTreeCheck test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_treecheck.moc"
