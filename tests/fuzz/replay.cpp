// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// replay TARGET CORPUS: runs the fuzz target that is linked to it over all inputs of a corpus file and prints a row
// for each line, in Qt Test's text form. The target runs in a child process: what kills it costs one row, and the
// lines behind go on with another child.

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QVector>

#include "runtime.h"

namespace {

constexpr int mostSeconds = 30; // Of processor time for one input, in a slow build.
constexpr long mostMemory = 512L * 1024;

struct Input {
    int line;
    QByteArray bytes;
};

/// The inputs of a corpus file, one a line: "\\" is a backslash, "\x" and two digits any byte; "#" starts a comment.
QVector<Input> inputsOf(const QString& path)
{
    QVector<Input> inputs;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return inputs;
    for (int number = 1; !file.atEnd(); ++number) {
        QByteArray line = file.readLine();
        if (line.startsWith('#'))
            continue;
        line.chop(1);
        QByteArray bytes;
        for (int at = 0; at < line.size(); ++at) {
            const bool escaped = line.at(at) == '\\';
            if (escaped && line.mid(at + 1, 1) == "x") {
                bytes.append(QByteArray::fromHex(line.mid(at + 2, 2)));
                at += 3;
            } else {
                at += escaped ? 1 : 0;
                bytes.append(line.mid(at, 1));
            }
        }
        inputs.append({number, bytes});
    }
    return inputs;
}

/// The targets write and flush files for every input, which takes a disk a hundred times as long.
QString folderInMemory()
{
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    const QString parent = memory.isDir() && memory.isWritable() ? memory.filePath() : QDir::tempPath();
    return parent + QStringLiteral("/zoeffect-replay");
}

void printRow(const char* result, const char* target, const QByteArray& name)
{
    std::printf("%s: fuzz_%s::replay(%s)\n", result, target, name.constData());
    std::fflush(stdout);
}

/// Ends the process after so many seconds of processor time; 0 takes that back.
void limitTime(int seconds)
{
    const itimerval limit{{0, 0}, {seconds, 0}};
    setitimer(ITIMER_PROF, &limit, nullptr);
}

/// The most that this process ever used, in kilobytes.
long usedMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss; // NOLINT(cppcoreguidelines-pro-type-union-access): as the C library declares it.
}

QByteArray nameOf(const Input& input)
{
    return "line " + QByteArray::number(input.line);
}

/// Runs the inputs from \a first on; \a current tells the parent which one it is at. Ends the process.
[[noreturn]] void runChild(const QVector<Input>& inputs, const char* target, int first, volatile int* current)
{
    for (int i = first; i < inputs.size(); ++i) {
        *current = i;
        const QByteArray& bytes = inputs.at(i).bytes;
        limitTime(mostSeconds);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size()));
        limitTime(0);
        if (usedMemory() > mostMemory)
            std::_Exit(1);
        printRow("PASS   ", target, nameOf(inputs.at(i)));
    }
    *current = int(inputs.size());
    std::exit(0); // With the search for leaks, where it is compiled in.
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: replay TARGET CORPUS\n");
        return 2;
    }
    const char* const target = argv[1];
    const QVector<Input> inputs = inputsOf(QFile::decodeName(argv[2]));
    void* const shared = mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    const QTemporaryDir temporary(folderInMemory());
    if (inputs.isEmpty() || shared == MAP_FAILED || !temporary.isValid()) {
        printRow("FAIL!  ", target, "nothing to replay");
        return 1;
    }
    qputenv("TMPDIR", QFile::encodeName(temporary.path()));
    auto* const current = static_cast<volatile int*>(shared);

    int failed = 0;
    for (int first = 0; first < inputs.size(); first = *current + 1) {
        *current = first;
        const pid_t child = fork();
        if (child == 0)
            runChild(inputs, target, first, current);
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child || status != 0) {
            ++failed;
            const bool atEnd = *current >= inputs.size();
            printRow("FAIL!  ", target, atEnd ? "what is left at the end" : nameOf(inputs.at(*current)));
        }
    }
    return failed > 0 ? 1 : 0;
}
