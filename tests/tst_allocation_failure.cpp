// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <functional>
#include <new>

#include <sys/resource.h>

#include "modeltest.h"

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

class TstAllocationFailure : public ModelTest {
    Q_OBJECT

private slots:
    void itemThatCannotBeCreatedIsLogged_data()
    {
        const Rows<QString, std::function<bool(ZoEffectModel&)>> add;
        add("watermark at the front", "Watermark", [](ZoEffectModel& model) {
            return model.insertDataItem("Watermark", {{"tag", "b"}}, 0);
        });
        add("subtitle behind the end", "Subtitle",
            [](ZoEffectModel& model) { return model.insertDataItem("Subtitle", {}, 7); });
        add("added", "Audio", [](ZoEffectModel& model) { return model.addDataItem("Audio", {}); });
        add("added as a child", "Audio", [](ZoEffectModel& model) { return model.addDataItemEx("Audio", {}, true); });
    }

    void itemThatCannotBeCreatedIsLogged()
    {
        const auto [type, create] = row<QString, std::function<bool(ZoEffectModel&)>>();
        ZoEffectModel model;
        QVERIFY(model.addDataItem(type, {{"tag", "a"}}));
        SignalRecorder recorder(model);

        refused = 0;
        armed = true;
        const bool created = create(model);
        armed = false;

        QCOMPARE(created, false);
        QCOMPARE(refused, 1);
        QCOMPARE(logcapture::takeEvents(), QList<int>{903});
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(model.childCount(type), 1);
        QCOMPARE(model.data("tag", type, 0), QVariant("a"));
        QCOMPARE(create(model), true);
    }

    void typeNodeOfAnItemThatCannotBeCreatedStays()
    {
        ZoEffectModel model(QStringList{"Crop"});
        SignalRecorder recorder(model);

        refused = 0;
        armed = true;
        const bool unknown = model.insertDataItem("Audio", {}, -1);
        const int refusedForUnknown = refused;
        const bool added = model.addDataItemEx("Audio", {}, true);
        armed = false;

        QCOMPARE(unknown, false); // Refused before anything is created, and not logged.
        QCOMPARE(refusedForUnknown, 0);
        QCOMPARE(added, false);
        QCOMPARE(logcapture::takeEvents(), QList<int>{903});
        QCOMPARE(recorder.take(), QStringList());
        QVERIFY(model.getDataItem("Audio", -1) != nullptr);
        QCOMPARE(model.childCount("Audio"), 0);
    }

#ifdef HAS_MEMORY_LIMITS
    void canvasThatCannotBeHadGivesNoPicture()
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
    }
#endif
};

ZOEFFECT_TEST_MAIN(TstAllocationFailure)

#include "tst_allocation_failure.moc"
