// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The library's own preference store: the form of its file, what it does with a file that is not of it, and what
// happens to a change that cannot be written. tests/faults holds what a host sees of hostile places and kills.

#include <csignal>
#include <cstdio>
#include <memory>

#include <fcntl.h>
#include <sys/file.h>
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
#include <QFileInfo>
#include <QFont>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include "embeddedpref_p.h"

namespace {

constexpr int longestSave = 250; // Milliseconds.

/// A file with the entry "Crop": crop_left 1.
const char oldFile[] = "{\n"
                       "    \"types\": {\n"
                       "        \"Crop\": {\n"
                       "            \"crop_left\": 1\n"
                       "        }\n"
                       "    },\n"
                       "    \"zoeffect-defaults\": 1\n"
                       "}\n";

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QVariantMap left(int pixels)
{
    return {{text("crop_left"), pixels}};
}

void save(ZoPref& store, const char* key, const QVariant& value)
{
    store.setValue(text(key), value, false);
}

QVariant valueOf(const ZoPref& store, const char* key)
{
    return store.value(text(key), text("none"));
}

QVariant saved(const QString& path, const char* key)
{
    return valueOf(EmbeddedPref(path), key);
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

/// Collects warnings, each with its category before it, while it lives.
class Warnings {
public:
    Warnings() : m_previous(qInstallMessageHandler(keep)) { s_texts.clear(); }
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
    static void keep(QtMsgType /*type*/, const QMessageLogContext& context, const QString& message)
    {
        s_texts << QString::fromLatin1(context.category) + text(": ") + message;
    }

    static QStringList s_texts;
    QtMessageHandler m_previous;
};

QStringList Warnings::s_texts;

QStringList warning(const QString& path, const QString& rest)
{
    return {QStringLiteral("zoeffect: \"%1\" %2").arg(path, rest)};
}

QStringList setAsideWarning(const QString& path, const char* ending = ".damaged")
{
    return warning(path, QStringLiteral("is damaged and was set aside as \"%1%2\"").arg(path, text(ending)));
}

/// The lock, as another process holds it.
class HeldLock {
public:
    explicit HeldLock(const QString& path)
        : m_file(::open(QFile::encodeName(path + text(".lock")).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666))
        , m_isHeld(::flock(m_file, LOCK_EX | LOCK_NB) == 0)
    {
    }
    ~HeldLock() { ::close(m_file); }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;

    bool isHeld() const { return m_isHeld; }

private:
    int m_file;
    bool m_isHeld;
};

// --- Processes of their own. They end 0, or with the number of the line where something is not as expected.

#define EXPECT(condition)                                                                                              \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            static_cast<void>(std::fprintf(stderr, "line %d: %s\n", __LINE__, #condition));                            \
            return 1;                                                                                                  \
        }                                                                                                              \
    } while (false)

bool limit(__rlimit_resource resource, rlim_t value)
{
    rlimit limits = {};
    if (::getrlimit(resource, &limits) != 0)
        return false;
    limits.rlim_cur = qMin(value, limits.rlim_max);
    return ::setrlimit(resource, &limits) == 0;
}

/// A store that lives to the end, as the library's does, and has a change that it could not write.
EmbeddedPref* storeWithUnsaved(const QString& path)
{
    static EmbeddedPref* store = nullptr; // Reachable, so that it is no leak.
    store = new EmbeddedPref(path);
    const HeldLock lock(path);
    save(*store, "Watermark", QVariantMap{{text("wm_fontname"), QFont(text("Tahoma"))}});
    return store;
}

bool isSaved(const QString& path)
{
    return contentOf(path).contains("\"wm_fontname\": \"Tahoma\"");
}

int runChild(int argc, char** argv)
{
    const QByteArray what = argv[2];
    const QString path = QFile::decodeName(argv[3]);
    std::signal(SIGXFSZ, SIG_IGN);
    if (what == "end of the loop") {
        auto* const application = new QCoreApplication(argc, argv); // Never deleted.
        storeWithUnsaved(path);
        QTimer::singleShot(0, application, &QCoreApplication::quit);
        QCoreApplication::exec();
        EXPECT(isSaved(path));
    } else if (what == "end of the application object") {
        {
            const QCoreApplication application(argc, argv);
            storeWithUnsaved(path);
            EXPECT(!isSaved(path));
        }
        EXPECT(isSaved(path));
    } else if (what == "no application object") {
        EmbeddedPref& store = *storeWithUnsaved(path);
        EXPECT(!isSaved(path));
        save(store, "Crop", left(2));
        EXPECT(isSaved(path));
    } else if (what == "full disk") {
        EmbeddedPref store(path);
        EXPECT(limit(RLIMIT_FSIZE, 100));
        save(store, "Color", left(2));
        EXPECT(contentOf(path) == oldFile);
        EXPECT(valueOf(store, "Color") == left(2));
        EXPECT(limit(RLIMIT_FSIZE, RLIM_INFINITY));
        save(store, "Audio", left(3));
        EXPECT(saved(path, "Crop") == left(1) && saved(path, "Color") == left(2) && saved(path, "Audio") == left(3));
    } else if (what == "no descriptors") {
        const QString first = path + text(".first"); // A sanitizer takes a descriptor when it first sees a type.
        save(*std::make_unique<EmbeddedPref>(first), "Crop", left(1));
        EXPECT(saved(first, "Crop") == left(1));
        EXPECT(limit(RLIMIT_NOFILE, 0));
        EmbeddedPref store(path);
        EXPECT(!store.hasKey(text("Crop")));
        save(store, "Color", left(2));
        EXPECT(limit(RLIMIT_NOFILE, 256));
        EXPECT(contentOf(path) == oldFile);
        save(store, "Audio", left(3));
        EXPECT(saved(path, "Crop") == left(1) && saved(path, "Color") == left(2) && saved(path, "Audio") == left(3));
    } else {
        return 2;
    }
    return 0;
}

} // namespace

class TstEmbeddedPref : public QObject {
    Q_OBJECT

private slots:
    void init();

    void readingCreatesAndChangesNothing();
    void fileIsThisText();
    void entriesComeAndGo();
    void keyComesBack_data();
    void keyComesBack();
    void removingWhatIsNotThereWritesNothing();
    void storeWithoutPathKeepsToMemory();
    void whatIsNotUnderstoodIsKept();
    void valueThatTheFileCannotHoldStaysInMemory_data();
    void valueThatTheFileCannotHoldStaysInMemory();

    void fileOfAnotherFormIsSetAside_data();
    void fileOfAnotherFormIsSetAside();
    void fileOfAHigherVersionIsLeftAlone_data();
    void fileOfAHigherVersionIsLeftAlone();
    void largestFileIsRead();
    void whatIsNoFileIsSetAside_data();
    void whatIsNoFileIsSetAside();
    void earlierFilesSetAsideAreKept();
    void damageThatAppearsMeanwhileIsSetAside();
    void damagedFileStaysWhenItCannotBeSetAside();

    void symbolicLinkIsFollowed();
    void fileThatCannotBeReadIsLeftAlone_data();
    void fileThatCannotBeReadIsLeftAlone();
    void fileThatWasDeletedIsNotBroughtBack();
    void changesOfAnotherProcessAreSeenAfterASave();
    void saveDoesNotWaitForWhatStandsInTheLocksPlace_data();
    void saveDoesNotWaitForWhatStandsInTheLocksPlace();
    void saveThatGetsNoLockIsDoneByTheNext();
    void saveThatGetsNoLockIsDoneByATimer();
    void damagedFileIsSetAsideOnlyUnderTheLock();
    void processEndsWell_data();
    void processEndsWell();

private:
    QString folder() const { return m_temporary->filePath(text("C\xc3\xb6nfig d")); }
    QString path() const { return folder() + text("/effectdefaults.json"); }
    QByteArray name() const { return QFile::encodeName(path()); }

    std::unique_ptr<QTemporaryDir> m_temporary;
};

void TstEmbeddedPref::init()
{
    m_temporary = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(folder()));
}

void TstEmbeddedPref::readingCreatesAndChangesNothing()
{
    Warnings warnings;
    QVERIFY(QDir().rmdir(folder()));
    QCOMPARE(saved(path(), "Crop"), QVariant(text("none")));
    QCOMPARE(entriesOf(m_temporary->path()), QStringList());

    QVERIFY(QDir().mkpath(folder()));
    QVERIFY(writeFile(path(), oldFile));
    const utimbuf longAgo = {1000000000, 1000000000};
    QCOMPARE(::utime(name().constData(), &longAgo), 0);
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
    QCOMPARE(contentOf(path()), QByteArray(oldFile));
    QCOMPARE(QFileInfo(path()).lastModified().toSecsSinceEpoch(), qint64(1000000000));
    QCOMPARE(entriesOf(folder()), QStringList(text("effectdefaults.json")));
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::fileIsThisText()
{
    QVERIFY(QDir().rmdir(folder()));
    EmbeddedPref store(path());
    const QVariantMap watermark{{text("wm_fontcolor"), QColor(255, 128, 0, 64)},
                                {text("wm_fontname"), QFont(text("Tahoma"), 20)},
                                {text("wm_hposfactor"), 0.25},
                                {text("wm_istextwatermark"), true},
                                {text("wm_transparency"), 80}};
    save(store, "Watermark", watermark);
    save(store, "Crop", QVariantMap());
    QCOMPARE(contentOf(path()), QByteArray(R"({
    "types": {
        "Crop": {
        },
        "Watermark": {
            "wm_fontcolor": "#40ff8000",
            "wm_fontname": {
                "family": "Tahoma",
                "points": 20
            },
            "wm_hposfactor": 0.25,
            "wm_istextwatermark": {
                "bool": true
            },
            "wm_transparency": 80
        }
    },
    "zoeffect-defaults": 1
}
)"));
    QCOMPARE(entriesOf(folder()), QStringList({text("effectdefaults.json"), text("effectdefaults.json.lock")}));
    QCOMPARE(saved(path(), "Watermark"), QVariant(watermark));
    QCOMPARE(saved(path(), "Crop"), QVariant(QVariantMap()));
}

void TstEmbeddedPref::entriesComeAndGo()
{
    EmbeddedPref store(path());
    save(store, "Crop", QVariantMap{{text("crop_left"), 1}, {text("crop_top"), 2}});
    save(store, "Crop", left(3));
    QVERIFY(!store.hasKey(text("crop")));
    QCOMPARE(store.value(text("crop"), 7), QVariant(7));
    QCOMPARE(valueOf(store, "Crop"), QVariant(left(3)));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(3)));
    save(store, "Crop", QVariant());
    QVERIFY(!store.hasKey(text("Crop")));
    QVERIFY(!EmbeddedPref(path()).hasKey(text("Crop")));
}

void TstEmbeddedPref::keyComesBack_data()
{
    QTest::addColumn<QString>("key");
    for (const char* key : {"", " ", "/", R"(a\b\\)", "../..", "\"", "line\r\nbreak", "\xc3\xa4\xf0\x9f\x98\x80"})
        QTest::newRow(QByteArray(key).toPercentEncoding()) << text(key);
    QTest::newRow("zero") << QString(QChar(0));
    QTest::newRow("100 KB") << QString(100 * 1024, QLatin1Char('/'));
}

void TstEmbeddedPref::keyComesBack()
{
    QFETCH(QString, key);
    EmbeddedPref store(path());
    store.setValue(key, QVariantMap{{key, key}}, false);
    QCOMPARE(EmbeddedPref(path()).value(key, QVariant()), QVariant(QVariantMap{{key, key}}));
}

void TstEmbeddedPref::removingWhatIsNotThereWritesNothing()
{
    EmbeddedPref store(path());
    save(store, "Crop", QVariant());
    QVERIFY(!QFile::exists(path()));
}

void TstEmbeddedPref::storeWithoutPathKeepsToMemory()
{
    EmbeddedPref store{QString()};
    save(store, "Crop", left(1));
    QCOMPARE(valueOf(store, "Crop"), QVariant(left(1)));
    QVERIFY(!EmbeddedPref(QString()).hasKey(text("Crop")));
}

void TstEmbeddedPref::whatIsNotUnderstoodIsKept()
{
    Warnings warnings;
    const QByteArray file = R"({"types": {"Crop": {"crop_left": 1, "crop_top": "high", "crop_hue": 5, "a": {"new": 1}},
        "Color": 5}, "zoeffect-defaults": 1, "more": [1]})";
    QVERIFY(writeFile(path(), file));
    EmbeddedPref store(path());
    QCOMPARE(valueOf(store, "Crop"), QVariant(left(1)));
    QVERIFY(!store.hasKey(text("Color")));

    save(store, "Watermark", QVariantMap());
    save(store, "Crop", QVariantMap{{text("crop_width"), 2}, {text("crop_top"), 3}});
    QCOMPARE(QJsonDocument::fromJson(contentOf(path())),
             QJsonDocument::fromJson(R"({"types": {"Crop": {"crop_width": 2, "crop_top": 3, "crop_hue": 5,
                "a": {"new": 1}}, "Color": 5, "Watermark": {}}, "zoeffect-defaults": 1, "more": [1]})"));
    save(store, "Color", left(1));
    QCOMPARE(saved(path(), "Color"), QVariant(left(1)));
    save(store, "Crop", QVariant());
    QVERIFY(!contentOf(path()).contains("Crop"));
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::valueThatTheFileCannotHoldStaysInMemory_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("no map") << QVariant(5);
    QTest::newRow("pointer") << QVariant(QVariantMap{{text("a"), QVariant::fromValue<QObject*>(this)}});
    QTest::newRow("64 MB") << QVariant(QVariantMap{{text("a"), QString(64 * 1024 * 1024, QLatin1Char('x'))}});
    QTest::newRow("too large as JSON") << QVariant(QVariantMap{{text("a"), QString(400 * 1024, QChar(1))}});
    QTest::newRow("half of a surrogate pair in a key") << QVariant(QVariantMap{{QString(QChar(0xdc00)), 1}});
}

void TstEmbeddedPref::valueThatTheFileCannotHoldStaysInMemory()
{
    QFETCH(QVariant, value);
    Warnings warnings;
    EmbeddedPref store(path());
    save(store, "Crop", left(1));
    QElapsedTimer timer;
    timer.start();
    save(store, "Crop", value);
    QVERIFY2(timer.elapsed() <= longestSave, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(warnings.take(), warning(path(), text("cannot hold a value; changes stay in memory")));
    save(store, "Color", left(2));
    QCOMPARE(valueOf(store, "Crop"), value);
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
    QCOMPARE(saved(path(), "Color"), QVariant(left(2)));
    save(store, "Crop", left(3));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(3)));
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::fileOfAnotherFormIsSetAside_data()
{
    QTest::addColumn<QByteArray>("content");
    int number = 0;
    const auto row = [&number](const QByteArray& content) {
        QTest::addRow("%d %s", ++number, content.left(50).simplified().toPercentEncoding(" {}[]:,.").constData())
            << content;
    };
    for (const char* content :
         {"", "{}", "[]", "1", "null", R"({"types": {}})", R"({"zoeffect-defaults": 1})",
          R"({"zoeffect-defaults": 1, "types": []})", R"({"zoeffect-defaults": "1", "types": {}})",
          R"({"zoeffect-defaults": 0, "types": {}})", R"({"zoeffect-defaults": -1, "types": {}})",
          R"({"zoeffect-defaults": 0.5, "types": {}})", R"({"zoeffect-defaults": true, "types": {}})",
          R"({"zoeffect": 1, "types": {}})", R"({"zoeffect-defaults": 1, "types": {}} x)",
          R"({"zoeffect-defaults": 1, "types": {"Crop": {"crop_left": 1,}}})",
          "; Custom defaults of effects. Kept by the program\n[Crop]\ncrop_left=int 1\n", "\xff\xfe{\0}\0"})
        row(content);
    row(QByteArray(oldFile).replace("Crop", "Cr\xff\xff"));
    row(QByteArray(oldFile) + oldFile);
    row(QByteArray(4096, '\0'));
    row(QByteArray(1024 * 1024, '['));
    row(QByteArray(1024 * 1024, '"'));
    row(oldFile + QByteArray(2 * 1024 * 1024, ' '));
    QTest::newRow("20,000 deep") << R"({"zoeffect-defaults": 1, "types": {"Crop": )" + QByteArray("[").repeated(20000)
                                        + QByteArray("]").repeated(20000) + "}}";
    QTest::newRow("64 MB") << QByteArray(64 * 1024 * 1024, 'x');
}

void TstEmbeddedPref::fileOfAnotherFormIsSetAside()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeFile(path(), content));
    Warnings warnings;
    EmbeddedPref store(path());
    QCOMPARE(warnings.take(), setAsideWarning(path()));
    QVERIFY(!store.hasKey(text("Crop")));
    QVERIFY(!QFile::exists(path()));
    save(store, "Color", left(2));
    QCOMPARE(saved(path(), "Color"), QVariant(left(2)));
    QVERIFY(contentOf(path() + text(".damaged")) == content);
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::fileOfAHigherVersionIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("2") << QByteArray(oldFile).replace(": 1\n}", ": 2\n}");
    QTest::newRow("1.5") << QByteArray(oldFile).replace(": 1\n}", ": 1.5\n}");
    QTest::newRow("of another form") << QByteArray(R"({"zoeffect-defaults": 3})");
}

void TstEmbeddedPref::fileOfAHigherVersionIsLeftAlone()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeFile(path(), content));
    Warnings warnings;
    EmbeddedPref store(path());
    QCOMPARE(warnings.take(), warning(path(), text("is of a newer version; changes stay in memory")));
    QVERIFY(!store.hasKey(text("Crop")));
    save(store, "Color", left(2));
    QCOMPARE(valueOf(store, "Color"), QVariant(left(2)));
    QCOMPARE(contentOf(path()), content);
    QCOMPARE(warnings.take(), QStringList());

    QVERIFY(writeFile(path(), oldFile));
    save(store, "Audio", left(3));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
    QCOMPARE(saved(path(), "Color"), QVariant(left(2)));
}

void TstEmbeddedPref::largestFileIsRead()
{
    QVERIFY(writeFile(path(), QByteArray(oldFile).leftJustified(2 * 1024 * 1024)));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
}

void TstEmbeddedPref::whatIsNoFileIsSetAside_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"fifo", "full folder", "socket", "link to folder", "link to device"})
        QTest::newRow(kind) << text(kind);
}

void TstEmbeddedPref::whatIsNoFileIsSetAside()
{
    QFETCH(QString, kind);
    if (kind == text("fifo")) {
        QCOMPARE(::mkfifo(name().constData(), 0666), 0);
    } else if (kind == text("full folder")) {
        QVERIFY(QDir().mkdir(path()) && writeFile(path() + text("/inside"), "x"));
    } else if (kind == text("socket")) {
        const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        QVERIFY(size_t(name().size()) < sizeof address.sun_path);
        qstrcpy(address.sun_path, name().constData());
        QCOMPARE(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ::close(descriptor);
    } else {
        QCOMPARE(::symlink(kind == text("link to folder") ? "/" : "/dev/zero", name().constData()), 0);
    }
    struct stat before = {};
    QCOMPARE(::lstat(name().constData(), &before), 0);
    Warnings warnings;
    EmbeddedPref store(path());
    QCOMPARE(warnings.take(), setAsideWarning(path()));
    struct stat after = {};
    QCOMPARE(::lstat((name() + ".damaged").constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_mode, before.st_mode);
    save(store, "Color", left(2));
    QCOMPARE(saved(path(), "Color"), QVariant(left(2)));
}

void TstEmbeddedPref::earlierFilesSetAsideAreKept()
{
    QVERIFY(writeFile(path() + text(".damaged"), "first"));
    QVERIFY(QDir().mkdir(path() + text(".damaged.2")));
    QCOMPARE(::symlink("nowhere", (name() + ".damaged.3").constData()), 0);
    QVERIFY(writeFile(path(), "fourth"));
    Warnings warnings;
    const EmbeddedPref store(path());
    QCOMPARE(warnings.take(), setAsideWarning(path(), ".damaged.4"));
    QCOMPARE(contentOf(path() + text(".damaged")), QByteArray("first"));
    QVERIFY(QFileInfo(path() + text(".damaged.2")).isDir());
    QCOMPARE(QFile::symLinkTarget(path() + text(".damaged.3")), folder() + text("/nowhere"));
    QCOMPARE(contentOf(path() + text(".damaged.4")), QByteArray("fourth"));
}

void TstEmbeddedPref::damageThatAppearsMeanwhileIsSetAside()
{
    EmbeddedPref store(path());
    save(store, "Crop", left(1));
    save(store, "Color", left(1));
    QVERIFY(writeFile(path(), "damaged"));
    Warnings warnings;
    save(store, "Color", left(2));
    QCOMPARE(warnings.take(), setAsideWarning(path()));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1))); // What was known before the damage is in the new file.
    QCOMPARE(saved(path(), "Color"), QVariant(left(2)));
}

void TstEmbeddedPref::damagedFileStaysWhenItCannotBeSetAside()
{
    QVERIFY(writeFile(path(), "damaged"));
    QVERIFY(writeFile(path() + text(".damaged"), QByteArray()));
    for (int i = 2; i <= 1000; ++i)
        QVERIFY(writeFile(path() + text(".damaged.") + QString::number(i), QByteArray()));
    Warnings warnings;
    EmbeddedPref store(path());
    QCOMPARE(warnings.take(), warning(path(), text("is damaged and cannot be set aside; changes stay in memory")));
    save(store, "Crop", left(1));
    QCOMPARE(contentOf(path()), QByteArray("damaged"));
    QCOMPARE(valueOf(store, "Crop"), QVariant(left(1)));
    QCOMPARE(warnings.take(), QStringList());

    // As soon as there is a name again, all changes are saved.
    QVERIFY(QFile::remove(path() + text(".damaged.7")));
    save(store, "Color", left(2));
    QCOMPARE(warnings.take(), setAsideWarning(path(), ".damaged.7"));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
    QCOMPARE(saved(path(), "Color"), QVariant(left(2)));
}

void TstEmbeddedPref::symbolicLinkIsFollowed()
{
    const QString target = m_temporary->filePath(text("target"));
    const QString middle = m_temporary->filePath(text("middle"));
    QVERIFY(writeFile(target, oldFile));
    QCOMPARE(::symlink(QFile::encodeName(target).constData(), QFile::encodeName(middle).constData()), 0);
    QCOMPARE(::symlink(QFile::encodeName(middle).constData(), name().constData()), 0);
    EmbeddedPref store(path());
    QCOMPARE(valueOf(store, "Crop"), QVariant(left(1)));
    save(store, "Color", left(2));
    QCOMPARE(QFile::symLinkTarget(path()), middle);
    QCOMPARE(QFile::symLinkTarget(middle), target);
    QVERIFY(!QFileInfo(target).isSymLink());
    QCOMPARE(saved(target, "Color"), QVariant(left(2)));
}

void TstEmbeddedPref::fileThatCannotBeReadIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("target");
    // A process's memory is a regular file that opens, and begins with a page that cannot be read.
    QTest::newRow("while it is read") << QByteArray("/proc/self/mem");
    QTest::newRow("a link to itself") << QByteArray();
}

void TstEmbeddedPref::fileThatCannotBeReadIsLeftAlone()
{
    QFETCH(QByteArray, target);
    QCOMPARE(::symlink((target.isEmpty() ? name() : target).constData(), name().constData()), 0);
    Warnings warnings;
    EmbeddedPref store(path());
    QCOMPARE(warnings.take(), QStringList());
    save(store, "Crop", left(1));
    QCOMPARE(warnings.take(), warning(path(), text("cannot be read; changes stay in memory")));
    QVERIFY(QFileInfo(path()).isSymLink());
    QVERIFY(QFile::remove(path()));
    save(store, "Color", left(2));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
}

void TstEmbeddedPref::fileThatWasDeletedIsNotBroughtBack()
{
    EmbeddedPref store(path());
    save(store, "Crop", left(1));
    QVERIFY(QFile::remove(path()));
    save(store, "Color", left(2));
    QVERIFY(!EmbeddedPref(path()).hasKey(text("Crop")));
    QVERIFY(!store.hasKey(text("Crop")));
}

void TstEmbeddedPref::changesOfAnotherProcessAreSeenAfterASave()
{
    EmbeddedPref store(path());
    EmbeddedPref other(path());
    save(store, "Crop", left(1));
    save(other, "Color", left(2));
    QVERIFY(!store.hasKey(text("Color")));
    save(store, "Audio", left(3));
    QCOMPARE(valueOf(store, "Color"), QVariant(left(2)));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
}

void TstEmbeddedPref::saveDoesNotWaitForWhatStandsInTheLocksPlace_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"fifo", "folder", "link to file", "link to device", "link to nowhere"})
        QTest::newRow(kind) << text(kind);
}

void TstEmbeddedPref::saveDoesNotWaitForWhatStandsInTheLocksPlace()
{
    QFETCH(QString, kind);
    QVERIFY(writeFile(path(), oldFile));
    const QString lock = path() + text(".lock");
    if (kind == text("fifo"))
        QCOMPARE(::mkfifo(QFile::encodeName(lock).constData(), 0666), 0);
    else if (kind == text("folder"))
        QVERIFY(QDir().mkdir(lock));
    else
        QCOMPARE(::symlink(kind == text("link to file")     ? "effectdefaults.json"
                           : kind == text("link to device") ? "/dev/zero"
                                                            : "nowhere",
                           QFile::encodeName(lock).constData()),
                 0);
    Warnings warnings;
    EmbeddedPref store(path());
    QElapsedTimer timer;
    timer.start();
    save(store, "Color", left(2));
    QVERIFY2(timer.elapsed() <= longestSave, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(contentOf(path()), QByteArray(oldFile));
    QCOMPARE(valueOf(store, "Color"), QVariant(left(2)));
    QCOMPARE(warnings.take(), warning(path(), text("cannot be locked; changes stay in memory")));

    QVERIFY(kind == text("folder") ? QDir().rmdir(lock) : QFile::remove(lock));
    save(store, "Audio", left(3));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
    QCOMPARE(saved(path(), "Color"), QVariant(left(2)));
    QCOMPARE(entriesOf(folder()), QStringList({text("effectdefaults.json"), text("effectdefaults.json.lock")}));
}

void TstEmbeddedPref::saveThatGetsNoLockIsDoneByTheNext()
{
    Warnings warnings;
    EmbeddedPref store(path());
    {
        const HeldLock lock(path());
        QVERIFY(lock.isHeld());
        QElapsedTimer timer;
        timer.start();
        save(store, "Crop", left(1));
        QVERIFY2(timer.elapsed() <= longestSave, qPrintable(QString::number(timer.elapsed())));
        save(store, "Color", left(2));
        QCOMPARE(warnings.take(), warning(path(), text("cannot be locked; changes stay in memory")));
        QCOMPARE(valueOf(store, "Crop"), QVariant(left(1)));
        QVERIFY(!QFile::exists(path()));
        QVERIFY(!EmbeddedPref(path()).hasKey(text("Crop"))); // Reading takes no lock.
    }
    save(store, "Audio", left(3));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
    QCOMPARE(saved(path(), "Color"), QVariant(left(2)));
    QCOMPARE(warnings.take(), QStringList());
}

void TstEmbeddedPref::saveThatGetsNoLockIsDoneByATimer()
{
    Warnings warnings;
    EmbeddedPref store(path());
    auto lock = std::make_unique<HeldLock>(path());
    save(store, "Crop", left(1));
    lock.reset();
    QVERIFY(!QFile::exists(path()));
    QTRY_COMPARE_WITH_TIMEOUT(saved(path(), "Crop"), QVariant(left(1)), 20000);
}

void TstEmbeddedPref::damagedFileIsSetAsideOnlyUnderTheLock()
{
    QVERIFY(writeFile(path(), "damaged"));
    Warnings warnings;
    auto lock = std::make_unique<HeldLock>(path());
    EmbeddedPref store(path());
    QCOMPARE(contentOf(path()), QByteArray("damaged"));
    QCOMPARE(warnings.take(), warning(path(), text("cannot be locked; changes stay in memory")));
    lock.reset();
    save(store, "Crop", left(1));
    QCOMPARE(warnings.take(), setAsideWarning(path()));
    QCOMPARE(saved(path(), "Crop"), QVariant(left(1)));
}

void TstEmbeddedPref::processEndsWell_data()
{
    QTest::addColumn<QString>("what");
    for (const char* what :
         {"end of the loop", "end of the application object", "no application object", "full disk", "no descriptors"})
        QTest::newRow(what) << text(what);
}

void TstEmbeddedPref::processEndsWell()
{
    QFETCH(QString, what);
    QVERIFY(writeFile(path(), oldFile));
    QCOMPARE(QProcess::execute(QCoreApplication::applicationFilePath(), {text("--child"), what, path()}), 0);
}

int main(int argc, char** argv)
{
    if (argc == 4 && qstrcmp(argv[1], "--child") == 0)
        return runChild(argc, argv);
    QCoreApplication application(argc, argv);
    TstEmbeddedPref test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_embeddedpref.moc"
