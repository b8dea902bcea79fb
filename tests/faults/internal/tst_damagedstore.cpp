// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A store file with the custom defaults of all types, damaged in every place: it is set aside whole, never
// destroyed, and the store works on. tst_guardedini holds what is no file of the format; here it is about the bytes
// on the disk.
//
// ZOEFFECT_ALL_FAULTS=1 in the environment flips every bit, and saves after each damage.

#include <memory>

#include <QColor>
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QTemporaryDir>
#include <QtTest>

#include <zoeffectcatalogue.h>

#include "embeddedpref_p.h"

namespace {

constexpr int longestSave = 250;     // Milliseconds.
constexpr int mostSetAside = 1000;   // Copies that are kept; the next damaged file stays where it is.
constexpr int savingInterval = 16;   // Every sixteenth damage is followed by a save.
constexpr int checksumLineSize = 48; // The last line of a file.
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
guardedini::Entries allTypes()
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

/// \a file with a checksum that is right for what stands before it.
QByteArray resealed(const QByteArray& file)
{
    const QByteArray body = file.left(file.size() - checksumLineSize);
    return body + "; sha1 " + QCryptographicHash::hash(body, QCryptographicHash::Sha1).toHex() + '\n';
}

QByteArray withBitFlipped(const QByteArray& file, int byte, int bit)
{
    QByteArray flipped = file;
    flipped[byte] = static_cast<char>(flipped.at(byte) ^ (1 << bit));
    return flipped;
}

} // namespace

class TstDamagedStore : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void wholeFileHoldsAllTypes();
    void fileWithAFlippedBitIsSetAside_data();
    void fileWithAFlippedBitIsSetAside();
    void fileCutAtAnyLengthIsSetAside();
    void fileWithAnythingAddedIsSetAside_data();
    void fileWithAnythingAddedIsSetAside();
    void anyByteMayBeWrongUnderARightChecksum();
    void hostileFileIsSetAside_data();
    void hostileFileIsSetAside();
    void byteOrderMarkUnderARightChecksumIsInsignificant();
    void aThousandDamagedFilesAreKept();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("effectdefaults.ini")); }
    QString asidePath() const { return path() + QStringLiteral(".damaged"); }
    QStringList entries() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    void put(const QByteArray& content) const;
    QString wrongWithDamaged(const QByteArray& content, bool alsoSave) const;
    QString wrongWithSaving(const guardedini::Entries& before) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_file; ///< Of all types.
};

void TstDamagedStore::initTestCase()
{
    m_folder = std::make_unique<QTemporaryDir>(folderTemplate());
    EmbeddedPref store(path());
    const guardedini::Entries types = allTypes();
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

/// What is wrong after a store that knows \a before saved a value; empty when nothing is.
QString TstDamagedStore::wrongWithSaving(const guardedini::Entries& before) const
{
    guardedini::Entries expected = before;
    expected.insert(QStringLiteral("New type"), 5);
    EmbeddedPref store(path());
    store.setValue(QStringLiteral("New type"), 5, false);
    const std::optional<guardedini::Entries> saved = guardedini::parsed(contentOf(path()));
    if (!saved || *saved != expected)
        return QStringLiteral("the save leaves another file");
    const EmbeddedPref next(path());
    for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
        if (next.value(it.key(), QStringLiteral("missing")) != it.value())
            return QStringLiteral("the next start does not read ") + it.key();
    }
    return {};
}

/// What is wrong when a store finds \a content in its file's place, which is to be set aside; empty when nothing is.
QString TstDamagedStore::wrongWithDamaged(const QByteArray& content, bool alsoSave) const
{
    put(content);
    {
        const EmbeddedPref store(path());
        const guardedini::Entries types = allTypes();
        for (auto it = types.cbegin(); it != types.cend(); ++it) {
            if (store.hasKey(it.key()))
                return QStringLiteral("the store knows ") + it.key();
        }
    }
    if (entries() != QStringList(QStringLiteral("effectdefaults.ini.damaged")))
        return QStringLiteral("there is ") + entries().join(QLatin1Char(' '));
    if (contentOf(asidePath()) != content)
        return QStringLiteral("other bytes were set aside");
    QString wrong;
    if (alsoSave) {
        wrong = wrongWithSaving({});
        if (contentOf(asidePath()) != content)
            return QStringLiteral("the save changed what was set aside");
        QFile::remove(path());
    }
    QFile::remove(asidePath());
    return wrong;
}

void TstDamagedStore::wholeFileHoldsAllTypes()
{
    put(m_file);
    const EmbeddedPref store(path());
    const guardedini::Entries types = allTypes();
    QCOMPARE(types.size(), 13);
    for (auto it = types.cbegin(); it != types.cend(); ++it)
        QCOMPARE(store.value(it.key(), QVariant()), it.value());
    QCOMPARE(entries(), QStringList(QStringLiteral("effectdefaults.ini")));
    QCOMPARE(wrongWithSaving(types), QString());
}

void TstDamagedStore::fileWithAFlippedBitIsSetAside_data()
{
    QTest::addColumn<int>("firstBit");
    const int bits = allFaults() ? bitsOfByte : 1;
    for (int bit = 0; bit < bits; ++bit)
        QTest::addRow("bit %d of the first byte, the next of the next", bit) << bit;
}

void TstDamagedStore::fileWithAFlippedBitIsSetAside()
{
    QFETCH(int, firstBit);
    QVERIFY(m_file.size() > 2000);
    for (int i = 0; i < m_file.size(); ++i) {
        const QByteArray flipped = withBitFlipped(m_file, i, (i + firstBit) % bitsOfByte);
        const QString wrong = wrongWithDamaged(flipped, allFaults() || i % savingInterval == 0);
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("byte %1: %2").arg(i).arg(wrong)));
    }
}

void TstDamagedStore::fileCutAtAnyLengthIsSetAside()
{
    for (int length = 0; length < m_file.size(); ++length) {
        const QString wrong = wrongWithDamaged(m_file.left(length), allFaults() || length % savingInterval == 0);
        QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("%1 bytes: %2").arg(length).arg(wrong)));
    }
}

void TstDamagedStore::fileWithAnythingAddedIsSetAside_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("zero byte behind") << QByteArray() << QByteArray(1, '\0');
    QTest::newRow("page of zeros behind") << QByteArray() << QByteArray(4096, '\0');
    QTest::newRow("line break behind") << QByteArray() << QByteArray("\n");
    QTest::newRow("carriage return behind") << QByteArray() << QByteArray("\r");
    QTest::newRow("entry behind") << QByteArray() << QByteArray("[Rotation]\n=int 90\n");
    QTest::newRow("file of plain settings behind") << QByteArray() << QByteArray("[General]\nCrop=1\n");
    QTest::newRow("megabyte behind") << QByteArray() << QByteArray(1024 * 1024, 'x');
    QTest::newRow("more than a file may have behind") << QByteArray() << QByteArray(3 * 1024 * 1024, '\n');
    QTest::newRow("byte order mark before") << QByteArray("\xef\xbb\xbf") << QByteArray();
    QTest::newRow("byte order mark of 16 bits before") << QByteArray("\xff\xfe") << QByteArray();
    QTest::newRow("line break before") << QByteArray("\n") << QByteArray();
    QTest::newRow("zero byte before") << QByteArray(1, '\0') << QByteArray();
}

void TstDamagedStore::fileWithAnythingAddedIsSetAside()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QCOMPARE(wrongWithDamaged(before + m_file + after, true), QString());
}

/// A hostile program can write the checksum, too. Then the file is what it says, or is set aside.
void TstDamagedStore::anyByteMayBeWrongUnderARightChecksum()
{
    int readWhole = 0;
    int setAside = 0;
    for (int i = 0; i < m_file.size() - checksumLineSize; ++i) {
        const QByteArray changed = resealed(withBitFlipped(m_file, i, i % bitsOfByte));
        put(changed);
        const bool saves = allFaults() || i % savingInterval == 0;
        {
            const EmbeddedPref store(path());
        }
        if (QFile::exists(asidePath())) {
            ++setAside;
            QVERIFY(contentOf(asidePath()) == changed);
            QVERIFY(!QFile::exists(path()));
            if (saves)
                QVERIFY2(wrongWithSaving({}).isEmpty(), qPrintable(QString::number(i)));
        } else {
            ++readWhole;
            QVERIFY(contentOf(path()) == changed);
            const std::optional<guardedini::Entries> entries = guardedini::parsed(changed);
            QVERIFY(entries);
            if (saves)
                QVERIFY2(wrongWithSaving(*entries).isEmpty(), qPrintable(QString::number(i)));
        }
        QFile::remove(path());
        QFile::remove(asidePath());
    }
    QVERIFY(readWhole > 100);
    QVERIFY(setAside > 100);
}

void TstDamagedStore::hostileFileIsSetAside_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray end(checksumLineSize, 'x'); // Gives way to the right line.
    const QByteArray start = m_file.left(m_file.indexOf('\n') + 1);
    const auto row = [&](const char* name, const QByteArray& body) {
        QTest::newRow(name) << resealed(start + body + end);
    };
    row("list 100,000 deep", "[T]\n=" + QByteArray("QVariantList [").repeated(100000) + "\n");
    row("list 100,000 deep, closed",
        "[T]\n=" + QByteArray("QVariantList [").repeated(50000) + QByteArray("]").repeated(50000) + "\n");
    row("map 100,000 deep", "[T]\n=" + QByteArray("QVariantMap {a=").repeated(100000) + "\n");
    row("10 MB of brackets", QByteArray(10 * 1024 * 1024, '['));
    row("1 MB of brackets", QByteArray(1024 * 1024, '['));
    row("1 MB of closing brackets", QByteArray(1024 * 1024, ']'));
    row("1 MB of quotes", QByteArray(1024 * 1024, '"'));
    row("1 MB of backslashes in a string", "[T]\n=QString \"" + QByteArray(1024 * 1024 + 1, '\\') + "\"\n");
    row("zero bytes", "[T]\n=QString \"" + QByteArray(1000, '\0') + "\n");
    row("list that claims 4 billion strings", "[T]\n=QPolygon ffffffff\n");
    QTest::newRow("lines of another system") << resealed(QByteArray(m_file).replace("\n", "\r\n"));
    QTest::newRow("lines of an older one") << resealed(QByteArray(m_file).replace('\n', '\r'));
    QTest::newRow("16 bits each") << resealed(
        QByteArray(reinterpret_cast<const char*>(QString::fromLatin1(m_file).utf16()), m_file.size() * 2));
}

void TstDamagedStore::hostileFileIsSetAside()
{
    QFETCH(QByteArray, file);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(wrongWithDamaged(file, true), QString());
    QVERIFY2(timer.elapsed() < 5000, "reads what the file does not hold");
}

void TstDamagedStore::byteOrderMarkUnderARightChecksumIsInsignificant()
{
    put(resealed("\xef\xbb\xbf" + m_file));
    const EmbeddedPref store(path());
    const guardedini::Entries types = allTypes();
    for (auto it = types.cbegin(); it != types.cend(); ++it)
        QCOMPARE(store.value(it.key(), QVariant()), it.value());
    QCOMPARE(wrongWithSaving(types), QString());
}

void TstDamagedStore::aThousandDamagedFilesAreKept()
{
    for (int i = 0; i < mostSetAside; ++i) {
        put("damaged " + QByteArray::number(i));
        const EmbeddedPref store(path());
        QVERIFY2(!QFile::exists(path()), qPrintable(QString::number(i)));
    }
    QCOMPARE(entries().size(), mostSetAside);
    QCOMPARE(contentOf(asidePath()), QByteArray("damaged 0"));
    for (int i = 1; i < mostSetAside; ++i)
        QCOMPARE(contentOf(asidePath() + QLatin1Char('.') + QString::number(i + 1)),
                 "damaged " + QByteArray::number(i));

    // There are no more: the file stays as it is, what is saved in memory.
    put("one too many");
    EmbeddedPref store(path());
    QElapsedTimer timer;
    timer.start();
    store.setValue(QStringLiteral("Crop"), 1, false);
    QVERIFY2(timer.elapsed() <= longestSave, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(store.value(QStringLiteral("Crop"), QVariant()), QVariant(1));
    QCOMPARE(contentOf(path()), QByteArray("one too many"));
    QCOMPARE(entries().size(), mostSetAside + 1);

    // Somebody makes room.
    QVERIFY(QFile::remove(asidePath()));
    store.setValue(QStringLiteral("Color"), 2, false);
    QCOMPARE(contentOf(asidePath()), QByteArray("one too many"));
    QCOMPARE(EmbeddedPref(path()).value(QStringLiteral("Crop"), QVariant()), QVariant(1));
}

QTEST_GUILESS_MAIN(TstDamagedStore)
#include "tst_damagedstore.moc"
