// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// replay TARGET FOLDER: runs the fuzz target that is linked to it over all files of a corpus folder and prints a
// row for each, in Qt Test's text form. The target runs in a child process: what kills it costs one row, and
// the files behind go on with another child.

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "runtime.h"

namespace {

constexpr unsigned mostSeconds = 30; // Of one file, in a slow build on a busy machine.
constexpr long mostMemory = 512L * 1024;

/// The targets write and flush files for every input, which takes a disk a hundred times as long.
QString folderInMemory()
{
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    const QString parent = memory.isDir() && memory.isWritable() ? memory.filePath() : QDir::tempPath();
    return parent + QStringLiteral("/zoeffect-replay");
}

void printRow(const char* result, const char* target, const QString& name)
{
    std::printf("%s: fuzz_%s::replay(%s)\n", result, target, qPrintable(name));
    std::fflush(stdout);
}

/// The most that this process ever used, in kilobytes.
long usedMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss; // NOLINT(cppcoreguidelines-pro-type-union-access): as the C library declares it.
}

/// Runs the files from \a first on; \a current tells the parent which one it is at. Ends the process.
[[noreturn]] void runChild(const QDir& folder, const QStringList& names, const char* target, int first,
                           volatile int* current)
{
    for (int i = first; i < names.size(); ++i) {
        *current = i;
        QFile file(folder.filePath(names.at(i)));
        if (!file.open(QIODevice::ReadOnly))
            std::_Exit(1);
        const QByteArray bytes = file.readAll();
        alarm(mostSeconds);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size()));
        alarm(0);
        if (usedMemory() > mostMemory)
            std::_Exit(1);
        printRow("PASS   ", target, names.at(i));
    }
    *current = int(names.size());
    std::exit(0); // With the search for leaks, where it is compiled in.
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: replay TARGET FOLDER\n");
        return 2;
    }
    const char* const target = argv[1];
    const QDir folder(QFile::decodeName(argv[2]));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    void* const shared = mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    const QTemporaryDir temporary(folderInMemory());
    if (names.isEmpty() || shared == MAP_FAILED || !temporary.isValid()) {
        printRow("FAIL!  ", target, QStringLiteral("nothing to replay"));
        return 1;
    }
    qputenv("TMPDIR", QFile::encodeName(temporary.path()));
    auto* const current = static_cast<volatile int*>(shared);

    int failed = 0;
    for (int first = 0; first < names.size(); first = *current + 1) {
        *current = first;
        const pid_t child = fork();
        if (child == 0)
            runChild(folder, names, target, first, current);
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child || status != 0) {
            ++failed;
            printRow("FAIL!  ", target, names.value(*current, QStringLiteral("what is left at the end")));
        }
    }
    return failed > 0 ? 1 : 0;
}
