// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <new>

#include <sys/resource.h>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

bool armed = false;
int refused = 0;

#ifdef HAS_MEMORY_LIMITS
/// While it lives, this process gets only so many more bytes.
class MemoryLimit {
public:
    explicit MemoryLimit(rlim_t more)
    {
        QFile status(QStringLiteral("/proc/self/statm"));
        const bool opened = status.open(QIODevice::ReadOnly);
        const qulonglong pages = opened ? status.readAll().split(' ').first().toULongLong() : 0;
        const rlim_t used = static_cast<rlim_t>(pages) * pageSize;
        ::getrlimit(RLIMIT_AS, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = used + more;
        ::setrlimit(RLIMIT_AS, &limit);
    }
    ~MemoryLimit() { ::setrlimit(RLIMIT_AS, &m_before); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

private:
    static constexpr rlim_t pageSize = 4096;
    rlimit m_before = {};
};
#endif

} // namespace

/// Stands in for the allocation that tells its failure by null: refuses while armed.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    if (armed) {
        ++refused;
        return nullptr;
    }
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

class TstAllocationFailure : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void itemThatCannotBeCreatedIsLogged_data();
    void itemThatCannotBeCreatedIsLogged();
    void addedItemThatCannotBeCreatedIsLogged_data();
    void addedItemThatCannotBeCreatedIsLogged();
    void typeNodeOfAnItemThatCannotBeCreatedStays();
    void unknownTypeIsRefusedBeforeAnythingIsCreated();
    void nextItemIsCreatedAgain();
#ifdef HAS_MEMORY_LIMITS
    void canvasThatCannotBeHadGivesNoPicture();
#endif
};

void TstAllocationFailure::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
    refused = 0;
}

void TstAllocationFailure::cleanup()
{
    armed = false;
}

void TstAllocationFailure::itemThatCannotBeCreatedIsLogged_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("watermark at the end") << "Watermark" << -1;
    QTest::newRow("watermark at the front") << "Watermark" << 0;
    QTest::newRow("subtitle behind the end") << "Subtitle" << 7;
    QTest::newRow("audio track") << "Audio" << -3;
}

void TstAllocationFailure::itemThatCannotBeCreatedIsLogged()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    QVERIFY(model.addDataItem(type, {{"tag", "a"}}));
    SignalRecorder recorder(model);

    armed = true;
    const bool inserted = model.insertDataItem(type, {{"tag", "b"}}, pos);
    armed = false;

    QCOMPARE(inserted, false);
    QCOMPARE(refused, 1);
    QCOMPARE(logcapture::takeEvents(), QList<int>{903});
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(model.childCount(type), 1);
    QCOMPARE(model.data("tag", type, 0), QVariant("a"));
}

void TstAllocationFailure::addedItemThatCannotBeCreatedIsLogged_data()
{
    QTest::addColumn<bool>("extended");

    QTest::newRow("addDataItem") << false;
    QTest::newRow("addDataItemEx as child") << true;
}

void TstAllocationFailure::addedItemThatCannotBeCreatedIsLogged()
{
    QFETCH(bool, extended);
    ZoEffectModel model;
    SignalRecorder recorder(model);

    armed = true;
    const bool added = extended ? model.addDataItemEx("Audio", {}, true) : model.addDataItem("Audio", {});
    armed = false;

    QCOMPARE(added, false);
    QCOMPARE(logcapture::takeEvents(), QList<int>{903});
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(model.childCount("Audio"), 0);
}

void TstAllocationFailure::typeNodeOfAnItemThatCannotBeCreatedStays()
{
    ZoEffectModel model(QStringList{"Crop"});
    SignalRecorder recorder(model);

    armed = true;
    const bool added = model.addDataItemEx("Audio", {}, true);
    armed = false;

    QCOMPARE(added, false);
    QCOMPARE(logcapture::takeEvents(), QList<int>{903});
    QCOMPARE(recorder.take(), QStringList());
    QVERIFY(model.getDataItem("Audio", -1) != nullptr);
    QCOMPARE(model.childCount("Audio"), 0);
}

void TstAllocationFailure::unknownTypeIsRefusedBeforeAnythingIsCreated()
{
    ZoEffectModel model(QStringList{"Crop"});

    armed = true;
    const bool inserted = model.insertDataItem("Audio", {}, -1);
    armed = false;

    QCOMPARE(inserted, false);
    QCOMPARE(refused, 0);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstAllocationFailure::nextItemIsCreatedAgain()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);

    armed = true;
    const bool first = model.addDataItem("Audio", {});
    armed = false;
    const bool second = model.addDataItem("Audio", {});

    QCOMPARE(first, false);
    QCOMPARE(second, true);
    QCOMPARE(model.childCount("Audio"), 1);
    QCOMPARE(recorder.take(), QStringList{"effectDataChanged(Audio, item_add, invalid, 0)"});
    QCOMPARE(logcapture::takeEvents(), QList<int>{903});
}

#ifdef HAS_MEMORY_LIMITS
void TstAllocationFailure::canvasThatCannotBeHadGivesNoPicture()
{
    ZoEffectModel model;
    model.setVideoSize(16384, 16384); // Within the bounds: 1 GiB.
    QVERIFY(model.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "text"}}));
    SignalRecorder recorder(model);
    QPixmap picture(1, 1);
    {
        const MemoryLimit limit(rlim_t(256) << 20);
        picture = model.getWatermark(16384, 16384, false);
    }
    QVERIFY(picture.isNull());
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}
#endif

ZOEFFECT_TEST_MAIN(TstAllocationFailure)

#include "tst_allocation_failure.moc"
