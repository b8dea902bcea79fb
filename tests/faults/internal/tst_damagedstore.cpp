// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A store file with the custom defaults of all types, wrong in every place: it is read as valid values, or set aside
// whole, or left alone, never destroyed, and the store works on. What must not be lost in that is told beside it, by
// a comparison of the bytes on the disk.
//
// ZOEFFECT_ALL_FAULTS=1 in the environment flips every bit, and saves after each damage.

#include <memory>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <zoeffectcatalogue.h>

#include "embeddedpref_p.h"

namespace {

constexpr int savingInterval = 16; // Every sixteenth damage is followed by a save.
constexpr int bitsOfByte = 8;

bool allFaults()
{
    return qEnvironmentVariableIsSet("ZOEFFECT_ALL_FAULTS");
}

QVariantMap valuesOf(const EffectDefaultVal* table)
{
    QVariantMap values;
    for (; table->key; ++table)
        values.insert(QString::fromLatin1(table->key), table->defaultValue);
    return values;
}

/// What a user who saved custom defaults of all thirteen types has.
QMap<QString, QVariantMap> allTypes()
{
    return {
        {QStringLiteral("Crop"), valuesOf(cropDefaultVal)},
        {QStringLiteral("Watermark"), valuesOf(WatermarkDefaultVal)},
        {QStringLiteral("Subtitle"), valuesOf(SubtitleDefaultVal)},
        {QStringLiteral("Audio"), valuesOf(AudioDefaultVal)},
        {QStringLiteral("Color"), valuesOf(BCSDefaultVal)},
        {QStringLiteral("Effect"), QVariantMap{{QStringLiteral("Effect"), QStringLiteral("Blur|true|Sepia|false")}}},
        {QStringLiteral("Audio_Fade_Inout"), valuesOf(audioFadeInOut)},
        {QStringLiteral("Audio_Normalize"), valuesOf(audioNormalize)},
        {QStringLiteral("Audio_BandPass"), valuesOf(audioBandpass)},
        {QStringLiteral("Audio_Chorus"), valuesOf(audioChorus)},
        {QStringLiteral("Audio_Flanger"), valuesOf(audioFlanger)},
        {QStringLiteral("Audio_Echo"), valuesOf(audioEcho)},
        {QStringLiteral("Audio_Speed"), valuesOf(audioSpeed)},
    };
}

/// In memory where that can be: a disk takes its time over thousands of files.
QString folderTemplate()
{
    const bool inMemory = QFileInfo(QStringLiteral("/dev/shm")).isWritable();
    return (inMemory ? QStringLiteral("/dev/shm") : QDir::tempPath()) + QStringLiteral("/damagedstore-");
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// How many of the values that were saved have not come back.
int differing(const QVariantMap& saved, const QVariantMap& values)
{
    int count = int(saved.size() - values.size());
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        count += saved.contains(it.key()) && saved.value(it.key()) != it.value() ? 1 : 0;
    return count;
}

QJsonObject typesIn(const QByteArray& content)
{
    return QJsonDocument::fromJson(content).object().value(QStringLiteral("types")).toObject();
}

} // namespace

class TstDamagedStore : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void wholeFileHoldsAllTypes();
    void flippedBitIsOneValueOrOneDamage_data();
    void flippedBitIsOneValueOrOneDamage();
    void fileCutAtAnyLengthIsSetAside();

private:
    enum class Found { Whole, Damaged, Newer };

    QString path() const { return m_folder->filePath(QStringLiteral("effectdefaults.json")); }
    QString asidePath() const { return path() + QStringLiteral(".damaged"); }
    void put(const QByteArray& content) const;
    QString wrongWith(const QByteArray& content, bool alsoSave, Found& found) const;
    QString wrongWhenSaved(EmbeddedPref& store, const QByteArray& content, Found found) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_file; ///< Of all types.
};

void TstDamagedStore::initTestCase()
{
    m_folder = std::make_unique<QTemporaryDir>(folderTemplate());
    EmbeddedPref store(path());
    const QMap<QString, QVariantMap> types = allTypes();
    for (auto it = types.cbegin(); it != types.cend(); ++it)
        store.setValue(it.key(), it.value(), false);
    m_file = contentOf(path());
}

void TstDamagedStore::init()
{
    m_folder = std::make_unique<QTemporaryDir>(folderTemplate());
    // Each damaged file brings a warning; here are thousands.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

void TstDamagedStore::cleanup()
{
    qInstallMessageHandler(nullptr);
}

void TstDamagedStore::put(const QByteArray& content) const
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

/// What is wrong when a store finds \a content in its file's place, and perhaps saves then; empty when nothing is.
QString TstDamagedStore::wrongWith(const QByteArray& content, bool alsoSave, Found& found) const
{
    put(content);
    QFile::remove(asidePath());
    EmbeddedPref store(path());
    const QMap<QString, QVariantMap> types = allTypes();
    int entries = 0;
    int others = 0;
    for (auto type = types.cbegin(); type != types.cend(); ++type) {
        if (!store.hasKey(type.key()))
            continue;
        ++entries;
        others += differing(*type, store.value(type.key(), QVariant()).toMap());
    }
    const bool isAside = QFile::exists(asidePath());
    found = isAside ? Found::Damaged : entries == 0 ? Found::Newer : Found::Whole;
    if (contentOf(isAside ? asidePath() : path()) != content || (isAside && QFile::exists(path())))
        return QStringLiteral("the bytes are not where they must be");
    if (found == Found::Damaged && entries > 0)
        return QStringLiteral("it was set aside, and taken in part");
    if (found == Found::Whole && (entries < types.size() - 1 || others > 1))
        return QStringLiteral("%1 entries, %2 other values").arg(entries).arg(others);
    return alsoSave ? wrongWhenSaved(store, content, found) : QString();
}

/// The same of what \a store, which found \a content, saves.
QString TstDamagedStore::wrongWhenSaved(EmbeddedPref& store, const QByteArray& content, Found found) const
{
    const QString type = QStringLiteral("New type");
    const QVariantMap value{{QStringLiteral("crop_left"), 5}};
    store.setValue(type, value, false);
    if (store.value(type, QVariant()) != value)
        return QStringLiteral("what was saved is not known");
    if (found == Found::Damaged && contentOf(asidePath()) != content)
        return QStringLiteral("the save changed what was set aside");
    if (found == Found::Newer)
        return contentOf(path()) == content ? QString() : QStringLiteral("a file of a newer version was written to");
    const EmbeddedPref next(path());
    if (next.value(type, QVariant()) != value)
        return QStringLiteral("the next start does not read what was saved");
    const QJsonObject expected = typesIn(content);
    QJsonObject written = typesIn(contentOf(path()));
    written.remove(type);
    return found == Found::Damaged || written == expected ? QString()
                                                          : QStringLiteral("the save changed other entries");
}

void TstDamagedStore::wholeFileHoldsAllTypes()
{
    QCOMPARE(allTypes().size(), 13);
    put(m_file);
    const EmbeddedPref store(path());
    const QMap<QString, QVariantMap> types = allTypes();
    for (auto it = types.cbegin(); it != types.cend(); ++it)
        QCOMPARE(store.value(it.key(), QVariant()), QVariant(it.value()));
}

void TstDamagedStore::flippedBitIsOneValueOrOneDamage_data()
{
    QTest::addColumn<int>("firstBit");
    const int bits = allFaults() ? bitsOfByte : 1;
    for (int bit = 0; bit < bits; ++bit)
        QTest::addRow("bit %d of the first byte, the next of the next", bit) << bit;
}

void TstDamagedStore::flippedBitIsOneValueOrOneDamage()
{
    QFETCH(int, firstBit);
    QVERIFY(m_file.size() > 2000);
    QMap<Found, int> counts;
    for (int i = 0; i < m_file.size(); ++i) {
        QByteArray flipped = m_file;
        flipped[i] = static_cast<char>(flipped.at(i) ^ (1 << (i + firstBit) % bitsOfByte));
        Found found = Found::Whole;
        const QString wrong = wrongWith(flipped, allFaults() || i % savingInterval == 0, found);
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("byte %1: %2").arg(i).arg(wrong)));
        ++counts[found];
    }
    QVERIFY(counts.value(Found::Whole) > 100);
    QVERIFY(counts.value(Found::Damaged) > 100);
}

void TstDamagedStore::fileCutAtAnyLengthIsSetAside()
{
    for (int length = 0; length < m_file.size() - 1; ++length) { // Without its last line break the file is whole.
        Found found = Found::Whole;
        const QString wrong = wrongWith(m_file.left(length), allFaults() || length % savingInterval == 0, found);
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("%1 bytes: %2").arg(length).arg(wrong)));
        QCOMPARE(found, Found::Damaged);
    }
}

QTEST_GUILESS_MAIN(TstDamagedStore)
#include "tst_damagedstore.moc"
