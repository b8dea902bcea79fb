// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A program that does what its arguments say, one after the other, so that a test knows what its child will do.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <fcntl.h>
#include <time.h>
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

} // namespace

int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string what = argv[i];
        const auto word = [&] { return i + 1 < argc ? std::string(argv[++i]) : std::string(); };
        const auto number = [&] { return std::atol(word().c_str()); };
        if (what == "out") {
            put(STDOUT_FILENO, word());
        } else if (what == "err") {
            put(STDERR_FILENO, word());
        } else if (what == "many-words") {
            put(STDERR_FILENO, std::string(static_cast<std::size_t>(number()), 'w'));
        } else if (what == "exit") {
            return static_cast<int>(number());
        } else if (what == "die") {
            raise(static_cast<int>(number()));
        } else if (what == "deaf") {
            signal(SIGTERM, SIG_IGN);
            signal(SIGINT, SIG_IGN);
            signal(SIGHUP, SIG_IGN);
        } else if (what == "ticks") {
            for (long left = number(); left > 0; --left) {
                put(STDOUT_FILENO, ".");
                rest(100);
            }
        } else if (what == "write") {
            std::ofstream file(word());
            for (long left = number(); left > 0; --left) {
                file << std::string(4096, 'w') << std::flush;
                rest(100);
            }
        } else if (what == "read") {
            const int file = open(word().c_str(), O_RDONLY);
            char piece[4096];
            for (long left = number(); left > 0 && read(file, piece, sizeof piece) > 0; --left)
                rest(100);
        } else if (what == "flood") {
            for (;;)
                put(STDOUT_FILENO, std::string(4096, 'f'));
        } else if (what == "arguments") {
            while (i + 1 < argc)
                put(STDOUT_FILENO, "[" + word() + "]");
        } else if (what == "echo") {
            echo();
        } else if (what == "hang") {
            hang();
        } else if (what == "child") {
            makeChild();
        } else if (what == "tell") {
            tell();
        } else {
            std::fprintf(stderr, "scriptedchild: %s: no such thing to do\n", what.c_str());
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
