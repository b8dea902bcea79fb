// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "programrun.h"

#include <csignal>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QImage>

#include <zokit/tools.h>

ProgramRun::ProgramRun()
{
    write("a.zoeffect.json", R"({"zoeffect": 1, "media": {"width": 1280, "height": 720}})");
    write("b.zoeffect.json",
          R"({"zoeffect": 1, "media": {"width": 1280, "height": 720}, "effects": [
        {"type": "Color", "values": {"bcs_contrast": 20}}]})");
    write("broken.json", "{\"zoeffect\": 1,\n \"media\" }");
    QImage logo(40, 30, QImage::Format_ARGB32);
    logo.fill(Qt::blue);
    logo.save(path("logo.png"));
}

ProgramRun::~ProgramRun()
{
    if (m_child <= 0)
        return;
    ::kill(m_child, SIGKILL);
    wait();
}

void ProgramRun::write(const char* name, const QByteArray& text) const
{
    QFile file(path(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
}

void ProgramRun::setFfmpeg(const QByteArray& script)
{
    qunsetenv("ZOEFFECT_FFMPEG"); // What another run has named.
    QDir().mkpath(path("tools"));
    write("tools/ffmpeg", "#!/bin/sh\n" + script);
    QFile::setPermissions(path("tools/ffmpeg"), QFile::ReadOwner | QFile::ExeOwner);
    QFile::link(zokit::findTools().ffprobe, path("tools/ffprobe"));
    setTools(QFile::encodeName(path("tools")));
}

QByteArray ProgramRun::content(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

QString ProgramRun::files() const
{
    return QDir(m_folder.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)
        .join(QLatin1Char(' '));
}

QByteArray ProgramRun::printed() const
{
    QFile file(outFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// By fork and exec, since QProcess takes arguments as text and these may be any bytes.
qint64 ProgramRun::start(const QList<QByteArray>& arguments, const char* language)
{
    const QByteArray folder = QFile::encodeName(m_folder.path());
    const QByteArray configuration = "XDG_CONFIG_HOME=" + QFile::encodeName(m_configuration.path());
    if (m_tools.isEmpty())
        qunsetenv("ZOEFFECT_FFMPEG");
    else
        qputenv("ZOEFFECT_FFMPEG", m_tools);
    const QByteArray lcAll = QByteArray("LC_ALL=") + language;
    QByteArray script = "cd \"$1\" && shift && exec env ";
    script += "\"$1\" \"$2\" \"$3\" \"${@:6}\" > \"$4\" 2> \"$5\" < /dev/null";
    QList<QByteArray> words{"bash", "-c", script, "bash", folder, configuration, lcAll, ZOCONVERT};
    words << QFile::encodeName(outFile()) << (m_err.isEmpty() ? QFile::encodeName(errFile()) : m_err) << arguments;
    std::vector<char*> argv;
    for (QByteArray& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    // A signal that comes before the program does must not run the handlers of Qt Test.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    m_child = ::fork();
    if (m_child == 0) {
        for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGTSTP}) // Tests in the background may ignore them.
            std::signal(number, SIG_DFL);
        ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
        if (!m_err.isEmpty() && ::setsid() > 0)
            ::ioctl(::open(m_err.constData(), O_RDWR | O_NOCTTY | O_CLOEXEC), TIOCSCTTY, 0);
        ::execvp("bash", argv.data());
        ::_exit(127);
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return m_child;
}

void ProgramRun::wait()
{
    int status = 0;
    ::waitpid(m_child, &status, 0);
    m_child = 0;
    code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    const auto read = [](const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("unreadable");
    };
    out = read(outFile());
    err = m_err.isEmpty() ? read(errFile()) : QString();
}

void ProgramRun::run(const QList<QByteArray>& arguments, const char* language)
{
    start(arguments, language);
    wait();
}

FullDisk::FullDisk(qint64 bytes) : m_ignored(std::signal(SIGXFSZ, SIG_IGN))
{
    ::getrlimit(RLIMIT_FSIZE, &m_old);
    const rlimit limit = {static_cast<rlim_t>(bytes), m_old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    // A build that counts which lines run would cut the files that all its programs count in.
    qputenv("GCOV_PREFIX", QFile::encodeName(m_counts.path()));
}

FullDisk::~FullDisk()
{
    qunsetenv("GCOV_PREFIX");
    ::setrlimit(RLIMIT_FSIZE, &m_old);
    std::signal(SIGXFSZ, m_ignored);
}
