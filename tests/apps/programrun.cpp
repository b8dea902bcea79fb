// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "programrun.h"

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QImage>

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

void ProgramRun::write(const char* name, const QByteArray& text) const
{
    QFile file(path(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
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
    words << QFile::encodeName(outFile()) << QFile::encodeName(errFile()) << arguments;
    std::vector<char*> argv;
    for (QByteArray& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    m_child = ::fork();
    if (m_child == 0) {
        for (const int ignored : {SIGINT, SIGHUP, SIGTSTP}) // As tests in the background may have them.
            std::signal(ignored, SIG_DFL);
        ::execvp("bash", argv.data());
        ::_exit(127);
    }
    return m_child;
}

void ProgramRun::wait()
{
    int status = 0;
    ::waitpid(m_child, &status, 0);
    code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    const auto read = [](const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("unreadable");
    };
    out = read(outFile());
    err = read(errFile());
}

void ProgramRun::run(const QList<QByteArray>& arguments, const char* language)
{
    start(arguments, language);
    wait();
}
