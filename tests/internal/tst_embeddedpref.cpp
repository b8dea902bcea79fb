// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <csignal>
#include <cstdio>
#include <memory>

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utime.h>

#include <QColor>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QLockFile>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include "embeddedpref_p.h"
#include "preffile_p.h"

namespace {

constexpr int longestSave = 250; // Milliseconds.

/// A whole file with the entry "old", 1.
const char oldFile[] = "; Custom defaults of effects. Kept by the program: the last line is a checksum.\n"
                       "[old]\n"
                       "=int 1\n"
                       "; sha1 9671e1ad1a7b784baca2deed8a8b6891b488de67\n";

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QVariant valueOf(const ZoPref& store, const char* key)
{
    return store.value(text(key), QVariant());
}

void save(ZoPref& store, const char* key, const QVariant& value)
{
    store.setValue(text(key), value, false);
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

QStringList entriesOf(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

/// Collects warnings while it lives.
class Warnings {
public:
    Warnings()
    {
        s_texts.clear();
        m_previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& message) { s_texts << message; });
    }
    ~Warnings() { qInstallMessageHandler(m_previous); }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;

    QStringList take()
    {
        QStringList taken;
        taken.swap(s_texts);
        return taken;
    }

private:
    static QStringList s_texts;
    QtMessageHandler m_previous = nullptr;
};

QStringList Warnings::s_texts;

QStringList setAsideWarning(const QString& path, const QString& asideName)
{
    return {QStringLiteral("zoeffect: \"%1\" is damaged and was set aside as \"%2\"").arg(path, asideName)};
}

QVariantMap watermark()
{
    return {{text("wm_fontcolor"), QColor(255, 128, 0, 64)},
            {text("wm_fontname"), QFont(text("Tahoma"), 12)},
            {text("wm_fontstyle"), text("Bold & Italic")},
            {text("wm_hposfactor"), 1.0 / 3.0},
            {text("wm_istextwatermark"), true},
            {text("wm_transparency"), 80},
            {text("nothing"), QVariant()},
            {text("inner"), QVariantMap{{text("a"), 1}}}};
}

// --- What child processes do: exit code 0, or the number of the line where something is not as expected.

#define EXPECT(condition)                                                                                              \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            static_cast<void>(std::fprintf(stderr, "line %d: %s\n", __LINE__, #condition));                            \
            return 1;                                                                                                  \
        }                                                                                                              \
    } while (false)

/// Gives up the right to write and read everything.
bool becomeNobody()
{
    return ::geteuid() != 0 || ::setuid(65534) == 0;
}

/// Limits this process, from now on, in files it opens or bytes it writes.
bool limit(__rlimit_resource resource, rlim_t value)
{
    rlimit limits = {};
    if (::getrlimit(resource, &limits) != 0)
        return false;
    limits.rlim_cur = qMin(value, limits.rlim_max);
    return ::setrlimit(resource, &limits) == 0;
}

int holdLock(const QString& path)
{
    QLockFile lock(path);
    EXPECT(lock.tryLock(0));
    QTextStream(stdout) << "held\n";
    QTextStream(stdin).readLine(); // Until the parent closes the channel.
    return 0;
}

int dieWithLock(const QString& path)
{
    QLockFile lock(path);
    EXPECT(lock.tryLock(0));
    ::_exit(0);
}

int saveOne(const QString& path, const QString& key)
{
    EmbeddedPref store(path);
    store.setValue(key, 1, false);
    return 0;
}

int expectWatermark(const QString& path)
{
    const EmbeddedPref store(path);
    const QVariant value = valueOf(store, "Watermark");
    EXPECT(value.userType() == QMetaType::QVariantMap);
    const QVariantMap expected = watermark();
    EXPECT(value.toMap() == expected);
    for (auto it = expected.cbegin(); it != expected.cend(); ++it)
        EXPECT(value.toMap().value(it.key()).userType() == it.value().userType());
    EXPECT(store.hasKey(text("Color")));
    EXPECT(!valueOf(store, "Color").isValid());
    return 0;
}

/// Changes keys of its own, the counter each time in place, so that the file often keeps its size.
int saveMany(const QString& path, const QString& name)
{
    EmbeddedPref store(path);
    for (int i = 0; i < 30; ++i) {
        store.setValue(name + text(" counter"), 1000 + i, false);
        if (i % 6 == 0)
            store.setValue(name + text(" ") + QString::number(i), i, false);
    }
    const QString last = name + text(" done");
    for (int attempt = 0; attempt < 500; ++attempt) {
        store.setValue(last, true, false);
        if (EmbeddedPref(path).hasKey(last))
            return 0;
    }
    return 1;
}

int inReadOnlyFolder(const QString& path)
{
    EXPECT(becomeNobody());
    EmbeddedPref store(path);
    EXPECT(valueOf(store, "old") == 1);
    QElapsedTimer timer;
    timer.start();
    save(store, "new", 2);
    EXPECT(timer.elapsed() <= longestSave);
    EXPECT(valueOf(store, "new") == 2);
    EXPECT(valueOf(store, "old") == 1);
    return 0;
}

int withDamagedFileInReadOnlyFolder(const QString& path)
{
    EXPECT(becomeNobody());
    EmbeddedPref store(path);
    EXPECT(!store.hasKey(text("old")));
    save(store, "new", 2);
    EXPECT(valueOf(store, "new") == 2);
    return 0;
}

int withUnreadableFile(const QString& path)
{
    EXPECT(becomeNobody());
    Warnings warnings;
    EXPECT(preffile::read(path).state == preffile::State::Unreadable);
    EmbeddedPref store(path);
    EXPECT(!store.hasKey(text("old")));
    save(store, "new", 2);
    EXPECT(valueOf(store, "new") == 2);
    EXPECT(warnings.take().isEmpty());
    return 0;
}

int withFileThatBecomesUnreadable(const QString& path)
{
    EXPECT(becomeNobody());
    Warnings warnings;
    EmbeddedPref store(path);
    save(store, "old", 1);
    const QByteArray before = contentOf(path);
    EXPECT(::chmod(QFile::encodeName(path).constData(), 0) == 0);
    save(store, "new", 2);
    EXPECT(valueOf(store, "old") == 1);
    EXPECT(valueOf(store, "new") == 2);
    EXPECT(::chmod(QFile::encodeName(path).constData(), 0600) == 0);
    EXPECT(contentOf(path) == before);
    save(store, "newer", 3);
    const EmbeddedPref fresh(path);
    EXPECT(valueOf(fresh, "old") == 1);
    EXPECT(valueOf(fresh, "new") == 2);
    EXPECT(valueOf(fresh, "newer") == 3);
    EXPECT(warnings.take().isEmpty());
    return 0;
}

int withoutDescriptors(const QString& path)
{
    Warnings warnings;
    {
        // UndefinedBehaviorSanitizer takes a descriptor to look at an object of a type for the first time.
        EmbeddedPref first(path + text(".first"));
        save(first, "old", valueOf(first, "old"));
        EXPECT(EmbeddedPref(path + text(".first")).hasKey(text("old")));
        EXPECT(QFile::remove(path + text(".first")));
    }
    EXPECT(limit(RLIMIT_NOFILE, 0));
    EmbeddedPref store(path);
    EXPECT(!store.hasKey(text("old")));
    save(store, "new", 2);
    EXPECT(valueOf(store, "new") == 2);
    EXPECT(limit(RLIMIT_NOFILE, 256));
    EXPECT(!EmbeddedPref(path).hasKey(text("new")));
    EXPECT(valueOf(EmbeddedPref(path), "old") == 1);

    save(store, "newer", 3);
    const EmbeddedPref fresh(path);
    EXPECT(valueOf(fresh, "old") == 1);
    EXPECT(valueOf(fresh, "new") == 2);
    EXPECT(valueOf(fresh, "newer") == 3);
    EXPECT(valueOf(store, "old") == 1);
    EXPECT(warnings.take().isEmpty());
    return 0;
}

/// Writing fails after 2,000 bytes, as on a full disk. The locks are smaller.
int onFullDisk(const QString& path)
{
    std::signal(SIGXFSZ, SIG_IGN);
    Warnings warnings;
    EmbeddedPref store(path);
    const QByteArray before = contentOf(path);
    EXPECT(limit(RLIMIT_FSIZE, 2000));
    save(store, "large", QString(5000, QLatin1Char('x')));
    EXPECT(valueOf(store, "large").toString().size() == 5000);
    EXPECT(contentOf(path) == before);
    EXPECT(entriesOf(QFileInfo(path).path()) == QStringList(text("effectdefaults.ini")));

    // Meanwhile another process, small enough, succeeds. A second failure must not bring back the first text.
    EXPECT(QProcess::execute(QCoreApplication::applicationFilePath(),
                             {text("--child"), text("saveOne"), path, text("other")})
           == 0);
    save(store, "large", QString(6000, QLatin1Char('y')));
    EXPECT(EmbeddedPref(path).hasKey(text("other")));
    EXPECT(!EmbeddedPref(path).hasKey(text("large")));

    EXPECT(limit(RLIMIT_FSIZE, RLIM_INFINITY));
    save(store, "new", 2);
    const EmbeddedPref fresh(path);
    EXPECT(valueOf(fresh, "old") == 1);
    EXPECT(valueOf(fresh, "other") == 1);
    EXPECT(valueOf(fresh, "new") == 2);
    EXPECT(valueOf(fresh, "large") == QString(6000, QLatin1Char('y')));
    EXPECT(warnings.take().isEmpty());
    return 0;
}

int runChild(const QStringList& arguments)
{
    const QString what = arguments.value(0);
    const QString path = arguments.value(1);
    if (what == text("holdLock"))
        return holdLock(path);
    if (what == text("dieWithLock"))
        return dieWithLock(path);
    if (what == text("saveOne"))
        return saveOne(path, arguments.value(2));
    if (what == text("saveMany"))
        return saveMany(path, arguments.value(2));
    if (what == text("expectWatermark"))
        return expectWatermark(path);
    if (what == text("inReadOnlyFolder"))
        return inReadOnlyFolder(path);
    if (what == text("withDamagedFileInReadOnlyFolder"))
        return withDamagedFileInReadOnlyFolder(path);
    if (what == text("withUnreadableFile"))
        return withUnreadableFile(path);
    if (what == text("withFileThatBecomesUnreadable"))
        return withFileThatBecomesUnreadable(path);
    if (what == text("withoutDescriptors"))
        return withoutDescriptors(path);
    if (what == text("onFullDisk"))
        return onFullDisk(path);
    return 2;
}

/// A child process at work; it is waited for at the end.
class Child {
public:
    explicit Child(const QStringList& arguments)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(), QStringList(text("--child")) + arguments);
    }
    ~Child() { finish(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    bool waitForOutput() { return m_process.waitForReadyRead(); }

    /// The exit code, -1 after a crash.
    int finish()
    {
        m_process.closeWriteChannel();
        if (m_process.state() != QProcess::NotRunning)
            m_process.waitForFinished(60000);
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

private:
    QProcess m_process;
};

int resultOf(const QStringList& arguments)
{
    return Child(arguments).finish();
}

} // namespace

class TstEmbeddedPref : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void readingCreatesNothing();
    void readingLeavesTheFileAsItIs();
    void savedValuesAreThereAfterTheNextStart();
    void keyThatIsNotThereGivesTheDefault();
    void invalidValueIsAnEntry();
    void laterValueReplacesTheEarlier();
    void keyComesBack_data();
    void keyComesBack();
    void savingCreatesTheFolderAndOneFile();
    void storeWithoutPathKeepsToMemory();

    void damagedFileIsSetAside_data();
    void damagedFileIsSetAside();
    void whatIsNoFileIsSetAside_data();
    void whatIsNoFileIsSetAside();
    void earlierFilesSetAsideAreKept();
    void damageThatAppearsMeanwhileIsSetAside();
    void damagedFileIsSetAsideOnlyInTurn();
    void damagedFileIsSetAsideOnceByManyProcesses();
    void damagedFileStaysWhenAllNamesAreTaken();
    void damagedFileStaysInFolderThatCannotBeWritten();
    void damagedFileStaysWhenItCannotBeRenamed();

    void symbolicLinkIsFollowed();
    void linkToNowhereIsNoDamage();
    void unreadableFileIsLeftAlone();
    void fileThatBecomesUnreadableIsLeftAlone();
    void fileThatFailsWhileItIsReadIsLeftAlone();
    void fileIsTriedAgainWhenThereWereNoDescriptors();
    void fullDiskKeepsTheOldFile();
    void folderThatCannotBeWrittenKeepsChangesInMemory();
    void folderThatVanishesIsCreatedAgain();
    void fileInTheFoldersPlaceKeepsChangesInMemory();
    void fileThatWasDeletedIsNotBroughtBack();

    void saveDoesNotWaitForWhatStandsInALocksPlace_data();
    void saveDoesNotWaitForWhatStandsInALocksPlace();
    void saveDoesNotWaitForALockThatIsHeldForEver_data();
    void saveDoesNotWaitForALockThatIsHeldForEver();
    void lockOfADeadProcessIsNoHindrance_data();
    void lockOfADeadProcessIsNoHindrance();
    void processesThatSaveAtOnceLoseNothing();
    void changesOfAnotherProcessAreSeenAfterASave();

    void valueThatTheFileCannotHoldStaysInMemory();

private:
    QString folder() const { return m_temporary->filePath(QString::fromUtf8("C\xc3\xb6nfig d")); }
    QString path() const { return folder() + text("/effectdefaults.ini"); }
    void makeFolder() const { QVERIFY(QDir().mkpath(folder())); }

    std::unique_ptr<QTemporaryDir> m_temporary;
};

void TstEmbeddedPref::init()
{
    m_temporary = std::make_unique<QTemporaryDir>();
    QVERIFY(m_temporary->isValid());
    // Children that give up their rights must get at the files.
    QCOMPARE(::chmod(QFile::encodeName(m_temporary->path()).constData(), 0777), 0);
}

void TstEmbeddedPref::cleanup()
{
    ::chmod(QFile::encodeName(folder()).constData(), 0755);
    m_temporary.reset();
}

void TstEmbeddedPref::readingCreatesNothing()
{
    Warnings warnings;
    const EmbeddedPref store(path());
    QVERIFY(!store.hasKey(text("Watermark")));
    QVERIFY(!valueOf(store, "Watermark").isValid());
    QCOMPARE(entriesOf(m_temporary->path()), QStringList());
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::readingLeavesTheFileAsItIs()
{
    makeFolder();
    QVERIFY(writeFile(path(), QByteArray(oldFile)));
    const utimbuf longAgo = {1000000000, 1000000000};
    QCOMPARE(::utime(QFile::encodeName(path()).constData(), &longAgo), 0);
    const EmbeddedPref store(path());
    QCOMPARE(valueOf(store, "old"), QVariant(1));
    QCOMPARE(contentOf(path()), QByteArray(oldFile));
    QCOMPARE(QFileInfo(path()).lastModified().toSecsSinceEpoch(), qint64(1000000000));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::savedValuesAreThereAfterTheNextStart()
{
    EmbeddedPref store(path());
    save(store, "Watermark", watermark());
    save(store, "Color", QVariant());
    QCOMPARE(resultOf({text("expectWatermark"), path()}), 0);
}

void TstEmbeddedPref::keyThatIsNotThereGivesTheDefault()
{
    EmbeddedPref store(path());
    save(store, "Crop", 1);
    QVERIFY(!store.hasKey(text("crop")));
    QCOMPARE(store.value(text("crop"), 7), QVariant(7));
    QCOMPARE(store.value(text("Crop"), 7), QVariant(1));
    QCOMPARE(EmbeddedPref(path()).value(text("crop"), 7), QVariant(7));
}

void TstEmbeddedPref::invalidValueIsAnEntry()
{
    {
        EmbeddedPref store(path());
        save(store, "Crop", 1);
        save(store, "Crop", QVariant());
        QVERIFY(store.hasKey(text("Crop")));
        QVERIFY(!store.value(text("Crop"), 7).isValid());
    }
    const EmbeddedPref next(path());
    QVERIFY(next.hasKey(text("Crop")));
    QVERIFY(!next.value(text("Crop"), 7).isValid());
}

void TstEmbeddedPref::laterValueReplacesTheEarlier()
{
    EmbeddedPref store(path());
    save(store, "Crop", QVariantMap{{text("a"), 1}, {text("b"), 2}});
    store.setValue(text("Crop"), QVariantMap{{text("a"), 3}}, true);
    const QVariant expected = QVariantMap{{text("a"), 3}};
    QCOMPARE(valueOf(store, "Crop"), expected);
    QCOMPARE(valueOf(EmbeddedPref(path()), "Crop"), expected);
}

void TstEmbeddedPref::keyComesBack_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << text(" ");
    QTest::newRow("slash") << text("/");
    QTest::newRow("slashes") << text("//a///b/");
    QTest::newRow("backslashes") << text(R"(a\b\\)");
    QTest::newRow("dots") << text("../..");
    QTest::newRow("percent") << text("%20%U1234");
    QTest::newRow("group of plain settings") << text("General/Crop");
    QTest::newRow("line breaks") << text("a\r\n[b]\n");
    QTest::newRow("zero") << QString(QChar(0));
    QTest::newRow("accents") << QString::fromUtf8("\xc3\xa4\xe5\xad\x97\xf0\x9f\x98\x80");
    QTest::newRow("lone surrogate") << QString(QChar(0xdfff));
    QTest::newRow("100 KB") << QString(100 * 1024, QLatin1Char('/'));
}

void TstEmbeddedPref::keyComesBack()
{
    QFETCH(QString, key);
    EmbeddedPref store(path());
    save(store, "other", 1);
    store.setValue(key, QVariantMap{{key, key}}, false);
    const EmbeddedPref next(path());
    QVERIFY(next.hasKey(key));
    QVERIFY(next.hasKey(text("other")));
    QCOMPARE(next.value(key, QVariant()), QVariant(QVariantMap{{key, key}}));
}

void TstEmbeddedPref::savingCreatesTheFolderAndOneFile()
{
    EmbeddedPref store(folder() + text("/a/b/effectdefaults.ini"));
    save(store, "Crop", 1);
    QCOMPARE(entriesOf(folder() + text("/a/b")), QStringList(text("effectdefaults.ini")));
    QCOMPARE(valueOf(EmbeddedPref(folder() + text("/a/b/effectdefaults.ini")), "Crop"), QVariant(1));
}

void TstEmbeddedPref::storeWithoutPathKeepsToMemory()
{
    const QStringList before = entriesOf(QDir::currentPath());
    EmbeddedPref store{QString()};
    save(store, "Crop", 1);
    QVERIFY(store.hasKey(text("Crop")));
    QCOMPARE(valueOf(store, "Crop"), QVariant(1));
    QCOMPARE(entriesOf(QDir::currentPath()), before);
    QVERIFY(!EmbeddedPref(QString()).hasKey(text("Crop")));
}

void TstEmbeddedPref::damagedFileIsSetAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut at a line") << QByteArray(oldFile).left(QByteArray(oldFile).size() - 48);
    QTest::newRow("cut in a line") << QByteArray(oldFile).left(QByteArray(oldFile).size() - 55);
    QTest::newRow("one bit flipped") << QByteArray(oldFile).replace("int 1", "int 0");
    QTest::newRow("two files in one") << QByteArray(oldFile) + QByteArray(oldFile);
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("plain settings") << QByteArray("[General]\nold=1\n");
    QTest::newRow("plain settings, a value 50,000 deep")
        << "[General]\nold=\"@Variant(" + QByteArray(R"(\0\0\0\t\0\0\0\x1)").repeated(50000) + ")\"\n";
    QTest::newRow("one byte too large") << QByteArray(2 * 1024 * 1024 + 1, 'x');
    QTest::newRow("64 MB") << QByteArray(64 * 1024 * 1024, 'x');
}

void TstEmbeddedPref::damagedFileIsSetAside()
{
    QFETCH(QByteArray, content);
    makeFolder();
    QVERIFY(writeFile(path(), content));
    Warnings warnings;

    EmbeddedPref store(path());
    QCOMPARE(warnings.take(), setAsideWarning(path(), path() + text(".damaged")));
    QVERIFY(!store.hasKey(text("old")));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini.damaged")));
    QVERIFY(contentOf(path() + text(".damaged")) == content);

    save(store, "new", 2);
    QCOMPARE(entriesOf(folder()), QStringList({text("effectdefaults.ini"), text("effectdefaults.ini.damaged")}));
    QCOMPARE(valueOf(EmbeddedPref(path()), "new"), QVariant(2));
    QVERIFY(contentOf(path() + text(".damaged")) == content);
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::whatIsNoFileIsSetAside_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind :
         {"fifo", "folder", "full folder", "socket", "link to fifo", "link to folder", "link to device"})
        QTest::newRow(kind) << text(kind);
}

void TstEmbeddedPref::whatIsNoFileIsSetAside()
{
    QFETCH(QString, kind);
    makeFolder();
    const QByteArray name = QFile::encodeName(path());
    const QByteArray target = QFile::encodeName(m_temporary->filePath(text("target")));
    if (kind == text("fifo")) {
        QCOMPARE(::mkfifo(name.constData(), 0666), 0);
    } else if (kind == text("folder")) {
        QVERIFY(QDir().mkdir(path()));
    } else if (kind == text("full folder")) {
        QVERIFY(QDir().mkdir(path()));
        QVERIFY(writeFile(path() + text("/inside"), "x"));
    } else if (kind == text("socket")) {
        const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        QVERIFY(size_t(name.size()) < sizeof address.sun_path);
        qstrcpy(address.sun_path, name.constData());
        QCOMPARE(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ::close(descriptor);
    } else if (kind == text("link to fifo")) {
        QCOMPARE(::mkfifo(target.constData(), 0666), 0);
        QCOMPARE(::symlink(target.constData(), name.constData()), 0);
    } else if (kind == text("link to folder")) {
        QCOMPARE(::symlink("/", name.constData()), 0);
    } else {
        QCOMPARE(::symlink("/dev/zero", name.constData()), 0);
    }
    struct stat before = {};
    QCOMPARE(::lstat(name.constData(), &before), 0);
    Warnings warnings;

    EmbeddedPref store(path());
    QCOMPARE(warnings.take(), setAsideWarning(path(), path() + text(".damaged")));
    struct stat after = {};
    QCOMPARE(::lstat((name + ".damaged").constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_mode, before.st_mode);
    save(store, "new", 2);
    QCOMPARE(valueOf(EmbeddedPref(path()), "new"), QVariant(2));
    QVERIFY(QFileInfo(path()).isFile());
    QVERIFY(!QFileInfo(path()).isSymLink());
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::earlierFilesSetAsideAreKept()
{
    makeFolder();
    QVERIFY(writeFile(path() + text(".damaged"), "first"));
    QVERIFY(QDir().mkdir(path() + text(".damaged.2")));
    QCOMPARE(::symlink("nowhere", QFile::encodeName(path() + text(".damaged.3")).constData()), 0);
    QVERIFY(writeFile(path(), "fourth"));
    Warnings warnings;
    {
        const EmbeddedPref store(path());
    }
    QCOMPARE(warnings.take(), setAsideWarning(path(), path() + text(".damaged.4")));
    QVERIFY(writeFile(path(), "fifth"));
    {
        const EmbeddedPref store(path());
    }
    QCOMPARE(warnings.take(), setAsideWarning(path(), path() + text(".damaged.5")));
    QCOMPARE(contentOf(path() + text(".damaged")), QByteArray("first"));
    QVERIFY(QFileInfo(path() + text(".damaged.2")).isDir());
    QCOMPARE(QFile::symLinkTarget(path() + text(".damaged.3")), folder() + text("/nowhere"));
    QCOMPARE(contentOf(path() + text(".damaged.4")), QByteArray("fourth"));
    QCOMPARE(contentOf(path() + text(".damaged.5")), QByteArray("fifth"));
}

void TstEmbeddedPref::damageThatAppearsMeanwhileIsSetAside()
{
    EmbeddedPref store(path());
    save(store, "old", 1);
    save(store, "changed", 1);
    QVERIFY(writeFile(path(), "damaged"));
    Warnings warnings;
    save(store, "changed", 2);
    QCOMPARE(warnings.take(), setAsideWarning(path(), path() + text(".damaged")));
    QCOMPARE(contentOf(path() + text(".damaged")), QByteArray("damaged"));

    // What was known before the damage is in the new file.
    const EmbeddedPref next(path());
    QCOMPARE(valueOf(next, "old"), QVariant(1));
    QCOMPARE(valueOf(next, "changed"), QVariant(2));
}

void TstEmbeddedPref::damagedFileIsSetAsideOnlyInTurn()
{
    makeFolder();
    QVERIFY(writeFile(path(), "damaged"));
    Warnings warnings;
    std::unique_ptr<EmbeddedPref> store;
    {
        // While another process has the turn, it may be about to set the file aside itself.
        Child holder({text("holdLock"), path() + text(".turn")});
        QVERIFY(holder.waitForOutput());
        store = std::make_unique<EmbeddedPref>(path());
        save(*store, "new", 2);
        QCOMPARE(contentOf(path()), QByteArray("damaged"));
        QCOMPARE(warnings.take(), QStringList());
        QCOMPARE(valueOf(*store, "new"), QVariant(2));
    }
    save(*store, "newer", 3);
    QCOMPARE(warnings.take(), setAsideWarning(path(), path() + text(".damaged")));
    QCOMPARE(contentOf(path() + text(".damaged")), QByteArray("damaged"));
    QCOMPARE(valueOf(EmbeddedPref(path()), "new"), QVariant(2));
}

void TstEmbeddedPref::damagedFileIsSetAsideOnceByManyProcesses()
{
    makeFolder();
    QVERIFY(writeFile(path(), "damaged"));
    const QStringList names{text("a"), text("b"), text("c"), text("d")};
    std::vector<std::unique_ptr<Child>> children;
    for (const QString& name : names)
        children.push_back(std::make_unique<Child>(QStringList{text("saveMany"), path(), name}));
    for (const auto& child : children)
        QCOMPARE(child->finish(), 0);
    QCOMPARE(entriesOf(folder()), QStringList({text("effectdefaults.ini"), text("effectdefaults.ini.damaged")}));
    QCOMPARE(contentOf(path() + text(".damaged")), QByteArray("damaged"));
    const EmbeddedPref store(path());
    for (const QString& name : names) {
        QCOMPARE(store.value(name + text(" counter"), QVariant()), QVariant(1029));
        QVERIFY(store.hasKey(name + text(" done")));
    }
}

void TstEmbeddedPref::damagedFileStaysWhenAllNamesAreTaken()
{
    makeFolder();
    QVERIFY(writeFile(path(), "damaged"));
    QVERIFY(writeFile(path() + text(".damaged"), QByteArray()));
    for (int i = 2; i <= 1000; ++i)
        QVERIFY(writeFile(path() + text(".damaged.") + QString::number(i), QByteArray()));
    Warnings warnings;
    EmbeddedPref store(path());
    QCOMPARE(
        warnings.take(),
        QStringList(
            QStringLiteral("zoeffect: \"%1\" is damaged and cannot be set aside; changes stay in memory").arg(path())));
    save(store, "new", 2);
    QCOMPARE(contentOf(path()), QByteArray("damaged"));
    QCOMPARE(valueOf(store, "new"), QVariant(2));
    QCOMPARE(warnings.take(), QStringList());

    // As soon as there is a name again, all changes are saved.
    QVERIFY(QFile::remove(path() + text(".damaged.7")));
    save(store, "newer", 3);
    QCOMPARE(warnings.take(), setAsideWarning(path(), path() + text(".damaged.7")));
    QCOMPARE(valueOf(EmbeddedPref(path()), "new"), QVariant(2));
    QCOMPARE(valueOf(EmbeddedPref(path()), "newer"), QVariant(3));
}

void TstEmbeddedPref::damagedFileStaysInFolderThatCannotBeWritten()
{
    makeFolder();
    QVERIFY(writeFile(path(), "damaged"));
    QCOMPARE(::chmod(QFile::encodeName(folder()).constData(), 0555), 0);
    QCOMPARE(resultOf({text("withDamagedFileInReadOnlyFolder"), path()}), 0);
    QCOMPARE(contentOf(path()), QByteArray("damaged"));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::damagedFileStaysWhenItCannotBeRenamed()
{
    // Names have at most 255 characters: there is room for ".turn", but not for ".damaged".
    makeFolder();
    const QString longPath = folder() + QLatin1Char('/') + QString(248, QLatin1Char('n'));
    QVERIFY(writeFile(longPath, "damaged"));
    Warnings warnings;
    EmbeddedPref store(longPath);
    QCOMPARE(warnings.take(),
             QStringList(QStringLiteral("zoeffect: \"%1\" is damaged and cannot be set aside; changes stay in memory")
                             .arg(longPath)));
    save(store, "new", 2);
    save(store, "new", 3);
    QCOMPARE(warnings.take(), QStringList());
    QCOMPARE(valueOf(store, "new"), QVariant(3));
    QCOMPARE(contentOf(longPath), QByteArray("damaged"));
    QCOMPARE(entriesOf(folder()).size(), 1);
}

void TstEmbeddedPref::symbolicLinkIsFollowed()
{
    makeFolder();
    const QString target = m_temporary->filePath(text("target"));
    const QString middle = m_temporary->filePath(text("middle"));
    QVERIFY(writeFile(target, QByteArray(oldFile)));
    QCOMPARE(::symlink(QFile::encodeName(target).constData(), QFile::encodeName(middle).constData()), 0);
    QCOMPARE(::symlink(QFile::encodeName(middle).constData(), QFile::encodeName(path()).constData()), 0);
    Warnings warnings;
    EmbeddedPref store(path());
    QCOMPARE(valueOf(store, "old"), QVariant(1));
    save(store, "new", 2);
    QCOMPARE(QFile::symLinkTarget(path()), middle);
    QCOMPARE(QFile::symLinkTarget(middle), target);
    QVERIFY(!QFileInfo(target).isSymLink());
    QCOMPARE(valueOf(EmbeddedPref(target), "old"), QVariant(1));
    QCOMPARE(valueOf(EmbeddedPref(target), "new"), QVariant(2));
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::linkToNowhereIsNoDamage()
{
    makeFolder();
    QCOMPARE(::symlink("nowhere", QFile::encodeName(path()).constData()), 0);
    Warnings warnings;
    EmbeddedPref store(path());
    save(store, "new", 2);
    QVERIFY(QFileInfo(path()).isSymLink());
    QCOMPARE(valueOf(EmbeddedPref(folder() + text("/nowhere")), "new"), QVariant(2));
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::unreadableFileIsLeftAlone()
{
    makeFolder();
    QVERIFY(writeFile(path(), QByteArray(oldFile)));
    QCOMPARE(::chmod(QFile::encodeName(path()).constData(), 0), 0);
    QCOMPARE(::chmod(QFile::encodeName(folder()).constData(), 0777), 0);
    QCOMPARE(resultOf({text("withUnreadableFile"), path()}), 0);
    QCOMPARE(::chmod(QFile::encodeName(path()).constData(), 0600), 0);
    QCOMPARE(contentOf(path()), QByteArray(oldFile));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::fileThatBecomesUnreadableIsLeftAlone()
{
    makeFolder();
    QCOMPARE(::chmod(QFile::encodeName(folder()).constData(), 0777), 0);
    QCOMPARE(resultOf({text("withFileThatBecomesUnreadable"), path()}), 0);
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::fileThatFailsWhileItIsReadIsLeftAlone()
{
    // A process's memory is a regular file that opens, and begins with a page that cannot be read.
    makeFolder();
    QCOMPARE(::symlink("/proc/self/mem", QFile::encodeName(path()).constData()), 0);
    QCOMPARE(preffile::read(path()).state, preffile::State::Unreadable);
    Warnings warnings;
    EmbeddedPref store(path());
    save(store, "new", 2);
    QCOMPARE(valueOf(store, "new"), QVariant(2));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
    QCOMPARE(warnings.take(), QStringList());

    QVERIFY(QFile::remove(path()));
    save(store, "newer", 3);
    QCOMPARE(valueOf(EmbeddedPref(path()), "new"), QVariant(2));
    QCOMPARE(valueOf(EmbeddedPref(path()), "newer"), QVariant(3));
}

void TstEmbeddedPref::fileIsTriedAgainWhenThereWereNoDescriptors()
{
    makeFolder();
    QVERIFY(writeFile(path(), QByteArray(oldFile)));
    QCOMPARE(resultOf({text("withoutDescriptors"), path()}), 0);
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::fullDiskKeepsTheOldFile()
{
    makeFolder();
    QVERIFY(writeFile(path(), QByteArray(oldFile)));
    QCOMPARE(resultOf({text("onFullDisk"), path()}), 0);
}

void TstEmbeddedPref::folderThatCannotBeWrittenKeepsChangesInMemory()
{
    makeFolder();
    QVERIFY(writeFile(path(), QByteArray(oldFile)));
    QCOMPARE(::chmod(QFile::encodeName(folder()).constData(), 0555), 0);
    QCOMPARE(resultOf({text("inReadOnlyFolder"), path()}), 0);
    QCOMPARE(contentOf(path()), QByteArray(oldFile));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::folderThatVanishesIsCreatedAgain()
{
    EmbeddedPref store(path());
    save(store, "first", 1);
    QVERIFY(QDir(folder()).removeRecursively());
    save(store, "second", 2);
    QCOMPARE(valueOf(EmbeddedPref(path()), "second"), QVariant(2));
}

void TstEmbeddedPref::fileInTheFoldersPlaceKeepsChangesInMemory()
{
    QVERIFY(writeFile(folder(), "x"));
    EmbeddedPref store(path());
    QElapsedTimer timer;
    timer.start();
    save(store, "first", 1);
    QVERIFY(timer.elapsed() <= longestSave);
    QCOMPARE(valueOf(store, "first"), QVariant(1));
    QCOMPARE(contentOf(folder()), QByteArray("x"));

    QVERIFY(QFile::remove(folder()));
    save(store, "second", 2);
    QCOMPARE(valueOf(EmbeddedPref(path()), "first"), QVariant(1));
    QCOMPARE(valueOf(EmbeddedPref(path()), "second"), QVariant(2));
}

void TstEmbeddedPref::fileThatWasDeletedIsNotBroughtBack()
{
    EmbeddedPref store(path());
    save(store, "first", 1);
    QVERIFY(QFile::remove(path()));
    save(store, "second", 2);
    QVERIFY(!EmbeddedPref(path()).hasKey(text("first")));
    QVERIFY(!store.hasKey(text("first")));
    QCOMPARE(valueOf(EmbeddedPref(path()), "second"), QVariant(2));
}

void TstEmbeddedPref::saveDoesNotWaitForWhatStandsInALocksPlace_data()
{
    QTest::addColumn<QString>("lock");
    QTest::addColumn<QString>("kind");
    for (const char* lock : {".lock", ".turn", ".lock.rmlock", ".turn.rmlock"}) {
        for (const char* kind : {"fifo", "link to fifo", "link to device", "large file"})
            QTest::addRow("%s: %s", lock, kind) << text(lock) << text(kind);
    }
    for (const char* lock : {".lock", ".turn"}) {
        for (const char* kind : {"foreign file", "empty file", "folder"})
            QTest::addRow("%s: %s", lock, kind) << text(lock) << text(kind);
    }
}

void TstEmbeddedPref::saveDoesNotWaitForWhatStandsInALocksPlace()
{
    QFETCH(QString, lock);
    QFETCH(QString, kind);
    makeFolder();
    QVERIFY(writeFile(path(), QByteArray(oldFile)));
    if (lock.endsWith(text(".rmlock"))) // That one matters only while the lock itself is there.
        QCOMPARE(resultOf({text("dieWithLock"), path() + lock.chopped(7)}), 0);
    const QString obstacle = path() + lock;
    const QByteArray name = QFile::encodeName(obstacle);
    const QByteArray fifo = QFile::encodeName(m_temporary->filePath(text("fifo")));
    QCOMPARE(::mkfifo(fifo.constData(), 0666), 0);
    if (kind == text("fifo"))
        QCOMPARE(::mkfifo(name.constData(), 0666), 0);
    else if (kind == text("folder"))
        QVERIFY(QDir().mkdir(obstacle));
    else if (kind == text("link to fifo"))
        QCOMPARE(::symlink(fifo.constData(), name.constData()), 0);
    else if (kind == text("link to device"))
        QCOMPARE(::symlink("/dev/zero", name.constData()), 0);
    else
        QVERIFY(writeFile(obstacle, kind == text("large file")   ? QByteArray(5000, 'x')
                                    : kind == text("empty file") ? QByteArray()
                                                                 : QByteArray("foreign")));

    EmbeddedPref store(path());
    QElapsedTimer timer;
    timer.start();
    save(store, "new", 2);
    QVERIFY2(timer.elapsed() <= longestSave, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(contentOf(path()), QByteArray(oldFile));
    QCOMPARE(valueOf(store, "new"), QVariant(2));
    QCOMPARE(valueOf(store, "old"), QVariant(1));

    QVERIFY(kind == text("folder") ? QDir().rmdir(obstacle) : QFile::remove(obstacle));
    save(store, "newer", 3);
    const EmbeddedPref next(path());
    QCOMPARE(valueOf(next, "old"), QVariant(1));
    QCOMPARE(valueOf(next, "new"), QVariant(2));
    QCOMPARE(valueOf(next, "newer"), QVariant(3));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::saveDoesNotWaitForALockThatIsHeldForEver_data()
{
    QTest::addColumn<QString>("lock");
    QTest::addColumn<bool>("old");
    QTest::newRow("settings lock") << text(".lock") << false;
    QTest::newRow("turn") << text(".turn") << false;
    QTest::newRow("settings lock held for an hour") << text(".lock") << true;
    QTest::newRow("turn held for an hour") << text(".turn") << true;
}

void TstEmbeddedPref::saveDoesNotWaitForALockThatIsHeldForEver()
{
    QFETCH(QString, lock);
    QFETCH(bool, old);
    makeFolder();
    QVERIFY(writeFile(path(), QByteArray(oldFile)));
    EmbeddedPref store(path());
    {
        Child holder({text("holdLock"), path() + lock});
        QVERIFY(holder.waitForOutput());
        if (old) {
            const time_t anHourAgo = ::time(nullptr) - 3600;
            const utimbuf times = {anHourAgo, anHourAgo};
            QCOMPARE(::utime(QFile::encodeName(path() + lock).constData(), &times), 0);
        }
        QElapsedTimer timer;
        timer.start();
        save(store, "new", 2);
        QVERIFY2(timer.elapsed() <= longestSave, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(contentOf(path()), QByteArray(oldFile));
        QCOMPARE(valueOf(store, "new"), QVariant(2));

        // Reading needs no lock.
        QCOMPARE(valueOf(EmbeddedPref(path()), "old"), QVariant(1));
    }
    save(store, "newer", 3);
    const EmbeddedPref next(path());
    QCOMPARE(valueOf(next, "old"), QVariant(1));
    QCOMPARE(valueOf(next, "new"), QVariant(2));
    QCOMPARE(valueOf(next, "newer"), QVariant(3));
}

void TstEmbeddedPref::lockOfADeadProcessIsNoHindrance_data()
{
    QTest::addColumn<QString>("lock");
    QTest::newRow("settings lock") << text(".lock");
    QTest::newRow("turn") << text(".turn");
}

void TstEmbeddedPref::lockOfADeadProcessIsNoHindrance()
{
    QFETCH(QString, lock);
    makeFolder();
    QCOMPARE(resultOf({text("dieWithLock"), path() + lock}), 0);
    QVERIFY(QFileInfo::exists(path() + lock));
    EmbeddedPref store(path());
    save(store, "new", 2);
    QCOMPARE(valueOf(EmbeddedPref(path()), "new"), QVariant(2));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::processesThatSaveAtOnceLoseNothing()
{
    const QStringList names{text("a"), text("b")};
    std::vector<std::unique_ptr<Child>> children;
    for (const QString& name : names)
        children.push_back(std::make_unique<Child>(QStringList{text("saveMany"), path(), name}));
    for (const auto& child : children)
        QCOMPARE(child->finish(), 0);
    const EmbeddedPref store(path());
    for (const QString& name : names) {
        QCOMPARE(store.value(name + text(" counter"), QVariant()), QVariant(1029));
        for (int i = 0; i < 30; i += 6)
            QCOMPARE(store.value(name + text(" ") + QString::number(i), QVariant()), QVariant(i));
    }
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.ini")));
}

void TstEmbeddedPref::changesOfAnotherProcessAreSeenAfterASave()
{
    EmbeddedPref store(path());
    save(store, "first", 1);
    QCOMPARE(resultOf({text("saveOne"), path(), text("other")}), 0);
    QVERIFY(!store.hasKey(text("other")));
    save(store, "second", 2);
    QCOMPARE(valueOf(store, "other"), QVariant(1));
}

void TstEmbeddedPref::valueThatTheFileCannotHoldStaysInMemory()
{
    const QString huge(64 * 1024 * 1024, QLatin1Char('x'));
    EmbeddedPref store(path());
    save(store, "changed", 1);
    save(store, "changed", huge);
    save(store, "pointer", QVariant::fromValue<QObject*>(this));
    save(store, "new", 2);
    QCOMPARE(valueOf(store, "changed").toString().size(), huge.size());
    QCOMPARE(valueOf(store, "pointer").value<QObject*>(), this);

    const EmbeddedPref next(path());
    QCOMPARE(valueOf(next, "changed"), QVariant(1));
    QVERIFY(!next.hasKey(text("pointer")));
    QCOMPARE(valueOf(next, "new"), QVariant(2));

    save(store, "changed", 3);
    QCOMPARE(valueOf(EmbeddedPref(path()), "changed"), QVariant(3));
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == text("--child"))
        return runChild(arguments.mid(2));
    TstEmbeddedPref test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_embeddedpref.moc"
