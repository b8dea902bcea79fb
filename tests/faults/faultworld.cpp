// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "faultworld.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <new>

#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QColor>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QStandardPaths>

#include <zoeffectitemdefaultvalmgr.h>

#include "hostcatalogue.h"
#include "signalrecorder.h"

namespace faultworld {

namespace {

constexpr unsigned longestProcess = 60; // Seconds.
constexpr const char* folderNames[] = {"home", "config", "tmp", "current"};

/// In memory where that can be: a disk takes its time over thousands of files.
QString folderTemplate()
{
    const bool inMemory = QFileInfo("/dev/shm").isWritable();
    return (inMemory ? QStringLiteral("/dev/shm") : QDir::tempPath()) + "/faults-";
}

void allowAll(const QString& folder)
{
    ::chmod(QFile::encodeName(folder).constData(), 0755);
}

/// Empties \a folder, in whose place anything may stand, or creates it.
void empty(const QString& folder)
{
    if (!QFileInfo(folder).isDir())
        QFile::remove(folder);
    QDir().mkpath(folder);
    allowAll(folder);
    const QStringList inside =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& name : inside) {
        const QFileInfo info(folder + '/' + name);
        if (info.isDir() && !info.isSymLink()) {
            allowAll(info.filePath());
            QDir(info.filePath()).removeRecursively();
        } else {
            QFile::remove(info.filePath());
        }
    }
}

} // namespace

Folders::Folders() : m_folder(folderTemplate())
{
    allowAll(m_folder.path()); // Also for processes that give up their rights.
    reset();
    qputenv("HOME", QFile::encodeName(m_folder.filePath("home")));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(configuration()));
    qputenv("TMPDIR", QFile::encodeName(temporary()));
    if (!QDir::setCurrent(m_folder.filePath("current")))
        qFatal("no current folder");
}

void Folders::reset() const
{
    for (const char* name : folderNames)
        empty(m_folder.filePath(name));
}

QStringList Folders::entries() const
{
    QStringList found;
    QDirIterator it(m_folder.path(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString entry = it.next().mid(m_folder.path().size() + 1);
        const bool isOwn = std::any_of(std::begin(folderNames), std::end(folderNames),
                                       [&](const char* name) { return entry == QLatin1String(name); });
        if (!isOwn && !entry.endsWith("/effectdefaults.json.lock"))
            found << entry;
    }
    found.sort();
    return found;
}

QString storeFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

QString storeFile()
{
    return storeFolder() + QStringLiteral("/effectdefaults.json");
}

Saved oldColor()
{
    return {{{"bcs_brightness", -20}, {"bcs_contrast", 5}},
            R"(            "bcs_brightness": -20,
            "bcs_contrast": 5
)",
            "{bcs_brightness: int -20, bcs_contrast: int 5}"};
}

Saved oldWatermark()
{
    return {{{"wm_fontcolor", QColor(255, 128, 0)},
             {"wm_fontname", QFont("Tahoma", 12, QFont::Bold, true)},
             {"wm_hposfactor", 0.25},
             {"wm_imagekeepratio", true},
             {"wm_transparency", 80}},
            R"(            "wm_fontcolor": "#ff8000",
            "wm_fontname": {
                "family": "Tahoma",
                "italic": true,
                "weight": 75
            },
            "wm_hposfactor": 0.25,
            "wm_imagekeepratio": true,
            "wm_transparency": 80
)",
            "{wm_fontcolor: color #ffff8000, wm_fontname: font Tahoma, wm_hposfactor: double 0.25, "
            "wm_imagekeepratio: bool true, wm_transparency: int 80}"};
}

Saved newWatermark()
{
    return {{{"wm_fontstyle", "Bold & Italic"}, {"wm_transparency", 10}},
            R"(            "wm_fontstyle": "Bold & Italic",
            "wm_transparency": 10
)",
            "{wm_fontstyle: string Bold & Italic, wm_transparency: int 10}"};
}

Saved crop()
{
    return {{{"crop_left", 7}}, "            \"crop_left\": 7\n", "{crop_left: int 7}"};
}

Saved audio()
{
    return {{{"play_loop", true}}, "            \"play_loop\": true\n", "{play_loop: bool true}"};
}

QByteArray fileOf(const State& state)
{
    QByteArray types;
    for (auto it = state.cbegin(); it != state.cend(); ++it)
        types += (types.isEmpty() ? "\n        \"" : ",\n        \"") + it.key().toUtf8() + "\": {\n" + it->lines
                 + "        }";
    return "{\n    \"types\": {" + types + "\n    },\n    \"zoeffect-defaults\": 1\n}\n";
}

QString textOf(const State& state)
{
    QStringList texts;
    for (auto it = state.cbegin(); it != state.cend(); ++it)
        texts << it.key() + ' ' + it->text;
    return texts.join("; ");
}

QString knownText()
{
    const auto* const manager = ZoEffectItemDefaultValMgr::getInstance();
    QStringList types;
    for (const EffectControlItem* item = hostCatalogue(); item->name; ++item)
        types << item->name;
    types.sort();
    QStringList texts;
    for (const QString& type : std::as_const(types)) {
        if (manager->hasCustomDefaultVal(type))
            texts << type + ' ' + described(manager->getCustomDefaultVal(type));
    }
    return texts.join("; ");
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void Report::tell(const QString& what)
{
    qstrncpy(text, what.toUtf8().constData(), sizeof text);
}

QString Report::told() const
{
    return QString::fromUtf8(text);
}

SharedReport::SharedReport()
{
    void* const memory = ::mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        qFatal("no shared memory");
    m_report = new (memory) Report;
}

SharedReport::~SharedReport()
{
    ::munmap(m_report, sizeof(Report));
}

void timed(Report& report, const std::function<void()>& call)
{
    QElapsedTimer timer;
    timer.start();
    call();
    report.longestCall = std::max(report.longestCall, timer.nsecsElapsed() / 1000);
}

bool inOwnProcess(const std::function<void()>& work)
{
    const pid_t process = ::fork();
    if (process == 0) {
        keepQuiet();
        ::alarm(longestProcess); // Ends this process when it hangs.
        work();
        ::_exit(0);
    }
    int status = -1;
    return process > 0 && ::waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void keepQuiet()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

} // namespace faultworld
