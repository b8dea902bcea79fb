// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert on a terminal: its bar, its colours.

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QtTest>

#include <zokit/probe.h>

#include "childwatch.h"
#include "clips.h"
#include "programrun.h"
#include "testapplication.h"

namespace {

using Arguments = QList<QByteArray>;

constexpr int patience = 30000;        // Milliseconds; only a hang takes so long.
const QByteArray newLine = "\r\x1b[K"; // The line is begun again, empty.

/// A terminal of 80 columns that shows what is written, as it is, and echoes nothing.
class Terminal {
public:
    Terminal() : m_keys(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
    {
        ::grantpt(m_keys);
        ::unlockpt(m_keys);
        m_screen = ::open(path().constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios settings = {};
        ::tcgetattr(m_screen, &settings);
        settings.c_oflag &= ~tcflag_t(OPOST);
        settings.c_lflag &= ~tcflag_t(ECHO);
        settings.c_lflag |= NOFLSH; // What is shown stays when a key stops the program.
        ::tcsetattr(m_screen, TCSANOW, &settings);
        resize(80);
    }
    ~Terminal()
    {
        ::close(m_screen);
        ::close(m_keys);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    bool isGood() const { return m_screen >= 0; }
    QByteArray path() const { return ::ptsname(m_keys); }

    /// The system tells the program that runs there.
    void resize(unsigned short columns) const
    {
        const winsize size = {24, columns, 0, 0};
        ::ioctl(m_keys, TIOCSWINSZ, &size);
    }

    void press(char key) const { QCOMPARE(::write(m_keys, &key, 1), ssize_t(1)); }

    /// All that was written since it was cleared.
    const QByteArray& text()
    {
        char piece[4096];
        for (ssize_t size = 0; (size = ::read(m_keys, piece, sizeof piece)) > 0;)
            m_text.append(piece, static_cast<int>(size));
        return m_text;
    }

    void clear() { m_text.clear(); }

private:
    int m_keys;
    int m_screen = -1;
    QByteArray m_text;
};

} // namespace

class TestZoconvertTerminal : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBarKeepsToItsLine();
    void coloursAndBarsAreForTerminals_data();
    void coloursAndBarsAreForTerminals();
};

void TestZoconvertTerminal::theBarKeepsToItsLine()
{
    qputenv("TERM", "xterm");
    Terminal terminal;
    if (!terminal.isGood())
        return QTest::qSkip("There are no pseudo-terminals here: mount devpts to /dev/pts.", __FILE__, __LINE__);
    ProgramRun run;
    QVERIFY(QFile::copy(clips::clip(QStringLiteral("plain.mp4")), run.path("clip.mp4")));
    // Half done, it waits to be told to do the work.
    run.setFfmpeg("printf 'out_time_us=200000\\nspeed=1x\\nprogress=continue\\n'\n"
                  "until [ -e \"$0.go\" ]; do sleep 0.02; done\n"
                  "exec "
                  + QFile::encodeName(zokit::findTools().ffmpeg) + " \"$@\"\n");
    run.setErr(terminal.path());
    const qint64 process =
        run.start({"convert", "clip.mp4", "-o", "new.mp4", "--video-codec", "h264", "--stall", "600"});
    const QByteArray half = " 50 %  0/1  0:01  clip.mp4";
    QTRY_VERIFY_WITH_TIMEOUT(terminal.text().endsWith(newLine + "[##########..........]  " + half), patience);

    terminal.clear();
    terminal.resize(29); // One less than the bar would take, with the last column, which stays free.
    QTRY_COMPARE_WITH_TIMEOUT(terminal.text(), newLine + half, patience);

    terminal.clear();
    terminal.press('\x1a'); // Ctrl-Z
    QTRY_VERIFY_WITH_TIMEOUT(childwatch::isStopped(process), patience);
    QCOMPARE(terminal.text(), newLine);
    terminal.clear();
    QVERIFY(::kill(static_cast<pid_t>(process), SIGCONT) == 0);
    QTRY_COMPARE_WITH_TIMEOUT(terminal.text(), newLine + half, patience);

    run.write("tools/ffmpeg.go", "");
    const auto hasEnded = [&] {
        terminal.text(); // Who writes waits for who reads.
        return !childwatch::isAlive(process);
    };
    QVERIFY(QTest::qWaitFor(hasEnded, patience));
    run.wait();
    QCOMPARE(run.code, 0);
    QVERIFY2(terminal.text().endsWith(newLine + "100 %  0/1  clip.mp4" + newLine), terminal.text());
    for (const QByteArray& line : terminal.text().split('\r'))
        QVERIFY2(line.mid(3).size() < 29, line);
    QVERIFY(zokit::probe(zokit::findTools(), run.path("new.mp4")).media);
}

void TestZoconvertTerminal::coloursAndBarsAreForTerminals_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<QByteArray>("term");
    QTest::addColumn<QByteArray>("noColor");
    QTest::addColumn<QByteArray>("text");
    const Arguments dry{"convert", "clip.mp4", "nix.mp4",           "-n",      "--progress",
                        "none",    "--set",    "Crop:crop_left=16", "--reset", "Crop:crop_width"};
    const QByteArray plain =
        "zoconvert: nix.mp4: no such file.\n"
        "zoconvert: clip.mp4: warning: The crop has no width or no height, so nothing is cut off. Set Crop:crop_width "
        "and Crop:crop_height, too.\n"
        "zoconvert: clip.mp4: track 0 (video, h264): copied\n"
        "zoconvert: clip.mp4: track 1 (audio, aac): copied\n"
        "zoconvert: clip.mp4: would become clip-converted.mp4\n";
    QByteArray coloured = plain;
    coloured.replace("zoconvert: nix", "\x1b[31;1mzoconvert:\x1b[0m nix");
    coloured.replace("zoconvert: clip.mp4: warning", "\x1b[33;1mzoconvert:\x1b[0m clip.mp4: warning");
    coloured.replace("\nzoconvert:", "\n\x1b[32;1mzoconvert:\x1b[0m");
    QTest::newRow("colours") << dry << QByteArray("xterm") << QByteArray() << coloured;
    QTest::newRow("NO_COLOR") << dry << QByteArray("xterm") << QByteArray("1") << plain;
    const QByteArray lines = "zoconvert: clip.mp4: track 0 (video, h264): copied\n"
                             "zoconvert: clip.mp4: track 1 (audio, aac): copied\n";
    const Arguments copy{"convert", "clip.mp4", "-o", "new.mp4"};
    QTest::newRow("no bar on a terminal that has no control of its lines")
        << copy << QByteArray("dumb") << QByteArray("1") << lines + "zoconvert: clip.mp4: done: new.mp4\n";
    QTest::newRow("none wished for") << copy + Arguments{"--progress", "none"} << QByteArray("xterm") << QByteArray("1")
                                     << lines;
    QTest::newRow("quiet") << copy + Arguments{"-q"} << QByteArray("xterm") << QByteArray() << QByteArray();
}

void TestZoconvertTerminal::coloursAndBarsAreForTerminals()
{
    QFETCH(Arguments, arguments);
    QFETCH(QByteArray, term);
    QFETCH(QByteArray, noColor);
    qputenv("TERM", term);
    qputenv("NO_COLOR", noColor); // An empty one does not count.
    Terminal terminal;
    if (!terminal.isGood())
        return QTest::qSkip("There are no pseudo-terminals here: mount devpts to /dev/pts.", __FILE__, __LINE__);
    ProgramRun run;
    QVERIFY(QFile::copy(clips::clip(QStringLiteral("plain.mp4")), run.path("clip.mp4")));
    run.setErr(terminal.path());
    run.run(arguments);
    qunsetenv("NO_COLOR");
    QTEST(terminal.text(), "text");
    QCOMPARE(run.out, QString());
}

ZOEFFECT_TEST_MAIN(TestZoconvertTerminal)
#include "tst_zoconvert_terminal.moc"
