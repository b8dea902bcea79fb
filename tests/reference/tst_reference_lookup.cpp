// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Lookups against the plain walk, on random programs of edits: whatever the library remembers of a tree, it must find
// what is there now.

#include <future>
#include <memory>
#include <thread>

#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "lookupprogram.h"
#include "stepbysteplookup.h"
#include "testapplication.h"

namespace {

/// Still has a model when everything of static storage goes, as hosts that keep their models in such objects do.
class LastHost {
public:
    ~LastHost()
    {
        for (const char* name : {"Watermark", "never there", "effect root", "Sepia", "Watermark"}) {
            const QString type = QString::fromLatin1(name);
            if (model && model->findDataItem(type, -1) != stepbystep::find(root, type))
                qFatal("lookup at the end of the process: %s", name);
        }
    }

    std::unique_ptr<ZoEffectModel> model;
    ZoEffectItemData* root = nullptr;
};

LastHost lastHost;

} // namespace

class TstReferenceLookup : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void sameAsTheWalk_data();
    void sameAsTheWalk();
    void twoThreadsWithAModelEach();
    void handedFromThreadToThread();
    void inTheLastMoments();
};

void TstReferenceLookup::initTestCase()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    // Frame effects that are put into another order as soon as they are created.
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(
        "Effect", {{"Effect", "Sepia|true|Blur|false|Mirror|true|Sharpen|false"}});
}

void TstReferenceLookup::sameAsTheWalk_data()
{
    QTest::addColumn<unsigned>("seed");
    QTest::addColumn<int>("models");
    QTest::addColumn<int>("steps");

    QTest::newRow("one model") << 11U << 1 << 6000;
    QTest::newRow("two models") << 12U << 2 << 6000;
    QTest::newRow("three models") << 13U << 3 << 5000;
    QTest::newRow("four models") << 14U << 4 << 4000;
}

void TstReferenceLookup::sameAsTheWalk()
{
    QFETCH(const unsigned, seed);
    QFETCH(const int, models);
    QFETCH(const int, steps);

    LookupProgram program(seed, models, true);
    QCOMPARE(program.run(steps / ZOEFFECT_REFERENCE_PART), QString());
    QVERIFY(program.lookups() > qint64(steps) / ZOEFFECT_REFERENCE_PART * models * 16);
}

void TstReferenceLookup::twoThreadsWithAModelEach()
{
    const auto run = [](unsigned seed) { return LookupProgram(seed, 1, false).run(1500); };
    std::future<QString> first = std::async(std::launch::async, run, 21U);
    std::future<QString> second = std::async(std::launch::async, run, 22U);
    QCOMPARE(first.get(), QString());
    QCOMPARE(second.get(), QString());
}

/// Created here, changed in a thread, looked at here, and so on; each thread has ended before the next one begins.
void TstReferenceLookup::handedFromThreadToThread()
{
    LookupProgram program(31, 2, false);
    QString mismatch;
    for (int turn = 0; turn < 20 && mismatch.isEmpty(); ++turn) {
        std::thread([&] { mismatch = program.run(25); }).join();
        if (mismatch.isEmpty())
            mismatch = program.run(25);
    }
    QCOMPARE(mismatch, QString());
}

/// Looked up here, and once more when the program has ended: a fault there ends it with a failure.
void TstReferenceLookup::inTheLastMoments()
{
    lastHost.model = std::make_unique<ZoEffectModel>();
    lastHost.root = lastHost.model->getDataItem("effect root", -1);
    QCOMPARE(lastHost.model->findDataItem("Watermark", -1), stepbystep::find(lastHost.root, "Watermark"));
    QVERIFY(!lastHost.model->findDataItem("never there", -1));
}

ZOEFFECT_TEST_MAIN(TstReferenceLookup)

#include "tst_reference_lookup.moc"
