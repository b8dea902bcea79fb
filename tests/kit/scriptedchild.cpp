// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A program that does what its arguments say, one after the other, so that a test knows what its child will do.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <map>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

void put(int descriptor, const std::string& text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(descriptor, text.data() + done, text.size() - done);
        if (written < 0)
            _exit(EXIT_FAILURE);
        done += static_cast<std::size_t>(written);
    }
}

[[noreturn]] void hang()
{
    for (;;)
        pause();
}

void rest(long milliseconds)
{
    const timespec time{milliseconds / 1000, milliseconds % 1000 * 1000000};
    nanosleep(&time, nullptr);
}

void echo()
{
    char piece[4096];
    ssize_t size = 0;
    while ((size = read(STDIN_FILENO, piece, sizeof piece)) > 0)
        put(STDOUT_FILENO, std::string(piece, static_cast<std::size_t>(size)));
}

void tell()
{
    const bool hasTerminal = open("/dev/tty", O_RDWR) >= 0;
    put(STDOUT_FILENO, getpgrp() == getpid() ? "own group\n" : "another's group\n");
    put(STDOUT_FILENO, getsid(0) == getpid() ? "own session\n" : "another's session\n");
    put(STDOUT_FILENO, hasTerminal ? "a terminal\n" : "no terminal\n");
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("SigBlk:", 0) == 0 || line.rfind("SigIgn:", 0) == 0)
            put(STDOUT_FILENO, line + "\n");
    }
}

/// Starts a child of its own, which hangs, and says its number.
void makeChild()
{
    const pid_t child = fork();
    if (child == 0)
        hang();
    put(STDOUT_FILENO, std::to_string(child) + "\n");
}

/// The words of the command line, one after the other.
class Words {
public:
    Words(int count, char** words) : m_next(words + 1), m_end(words + count) {}

    bool isAtEnd() const { return m_next == m_end; }
    std::string word() { return isAtEnd() ? std::string() : *m_next++; }
    long number() { return std::strtol(word().c_str(), nullptr, 10); }

private:
    char** m_next;
    char** m_end;
};

void writeSlowly(Words& words)
{
    std::ofstream file(words.word());
    for (long left = words.number(); left > 0; --left) {
        file << std::string(4096, 'w') << std::flush;
        rest(100);
    }
}

void readSlowly(Words& words)
{
    const int file = open(words.word().c_str(), O_RDONLY);
    char piece[4096];
    for (long left = words.number(); left > 0 && read(file, piece, sizeof piece) > 0; --left)
        rest(100);
}

void tick(Words& words)
{
    for (long left = words.number(); left > 0; --left) {
        put(STDOUT_FILENO, ".");
        rest(100);
    }
}

[[noreturn]] void flood()
{
    for (;;)
        put(STDOUT_FILENO, std::string(4096, 'f'));
}

void showArguments(Words& words)
{
    while (!words.isAtEnd())
        put(STDOUT_FILENO, "[" + words.word() + "]");
}

void becomeDeaf()
{
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        signal(number, SIG_IGN);
}

using Deeds = std::map<std::string, std::function<void(Words& words)>>;

Deeds makeDeeds()
{
    return {
        {"out", [](Words& words) { put(STDOUT_FILENO, words.word()); }},
        {"err", [](Words& words) { put(STDERR_FILENO, words.word()); }},
        {"many-words",
         [](Words& words) { put(STDERR_FILENO, std::string(static_cast<std::size_t>(words.number()), 'w')); }},
        {"exit", [](Words& words) { std::exit(static_cast<int>(words.number())); }},
        {"die", [](Words& words) { raise(static_cast<int>(words.number())); }},
        {"deaf", [](Words& /*words*/) { becomeDeaf(); }},
        {"ticks", tick},
        {"write", writeSlowly},
        {"read", readSlowly},
        {"flood", [](Words& /*words*/) { flood(); }},
        {"arguments", showArguments},
        {"echo", [](Words& /*words*/) { echo(); }},
        {"hang", [](Words& /*words*/) { hang(); }},
        {"child", [](Words& /*words*/) { makeChild(); }},
        {"tell", [](Words& /*words*/) { tell(); }},
    };
}

} // namespace

int main(int argc, char** argv)
{
    const Deeds deeds = makeDeeds();
    for (Words words(argc, argv); !words.isAtEnd();) {
        const std::string what = words.word();
        const auto deed = deeds.find(what);
        if (deed == deeds.end()) {
            std::fprintf(stderr, "scriptedchild: %s: no such thing to do\n", what.c_str());
            return EXIT_FAILURE;
        }
        deed->second(words);
    }
    return EXIT_SUCCESS;
}
