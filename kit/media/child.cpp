// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/child.h>

#include <algorithm>
#include <csignal>

#include <pthread.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QThread>

namespace zokit {

namespace {

constexpr int mostWords = 64 * 1024;
// Time is counted in ticks: of the time in which this process itself was stopped, at most one tick counts.
constexpr int tickMilliseconds = 200;

qint64 ticksOf(int seconds)
{
    constexpr int ticksPerSecond = 1000 / tickMilliseconds;
    return qint64(seconds) * ticksPerSecond;
}

// Qt 6 has the child begin on a stack of a page or so, which is too small for the frames of AddressSanitizer: they
// would run over into the parent's.
#if defined(__clang__)
#define ZOKIT_SMALL_FRAME __attribute__((no_sanitize("address", "undefined")))
#else
#define ZOKIT_SMALL_FRAME
#endif

/// What the child does between fork and exec, where only calls are allowed that a signal handler may make.
struct Preparation {
    pid_t parent = 0;
    qint64 memory = 0;
    int processorSeconds = 0;

    ZOKIT_SMALL_FRAME static void limit(decltype(RLIMIT_AS) what, rlim_t most)
    {
        rlimit limits{};
        if (getrlimit(what, &limits) != 0)
            return;
        limits.rlim_max = std::min(limits.rlim_max, most); // RLIM_INFINITY is the largest number.
        limits.rlim_cur = limits.rlim_max;
        setrlimit(what, &limits);
    }

    ZOKIT_SMALL_FRAME void apply() const
    {
        constexpr int firstOfRealTime = 32;
        constexpr int exitCode = 127;
        setsid();
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) // It ended before the line above.
            _exit(exitCode);
        // What this process blocks or ignores is its own affair.
        for (int number = 1; number < firstOfRealTime; ++number)
            static_cast<void>(signal(number, SIG_DFL));
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        limit(RLIMIT_CORE, 0);
        if (memory > 0)
            limit(RLIMIT_AS, static_cast<rlim_t>(memory));
        if (processorSeconds > 0)
            limit(RLIMIT_CPU, static_cast<rlim_t>(processorSeconds));
    }
};

/// The process that is starting a child, as long as it does; else 0.
pid_t starting = 0;

/// Runs in the child as soon as it is there. Qt 5 has it wait for its parent before Preparation: without this, one
/// whose parent is killed in that moment would wait for ever.
void dieWithParent()
{
    constexpr int exitCode = 127;
    if (starting == 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != starting)
        _exit(exitCode);
}

/// Qt 5 misses the end of a child that is killed while it is being started, and is told of it again here. No other end
/// waits for a whole tick.
void remindOfEnd(qint64 child)
{
    siginfo_t info{};
    const int kind = WEXITED | WNOHANG | WNOWAIT; // Only looked at.
    if (child > 0 && waitid(P_PID, static_cast<id_t>(child), &info, kind) == 0 && info.si_pid == child)
        ::kill(getpid(), SIGCHLD);
}

/// How many bytes a process has read and written anywhere; 0 where the system does not tell.
qint64 movedBy(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/io").arg(process));
    static const QRegularExpression form(QStringLiteral("rchar: (\\d+)\nwchar: (\\d+)\n"));
    const QString told = file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
    const QRegularExpressionMatch match = form.match(told);
    return match.captured(1).toLongLong() + match.captured(2).toLongLong();
}

/// This process's environment, without what makes ffmpeg write further files or colour its words.
QProcessEnvironment environment()
{
    QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"FFREPORT", "AV_LOG_FORCE_COLOR", "AV_LOG_FORCE_256COLOR"})
        result.remove(QLatin1String(name));
    return result;
}

} // namespace

class Child::Process : public QProcess {
public:
    explicit Process(const Preparation& preparation) : m_preparation(preparation)
    {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        setChildProcessModifier([this] { m_preparation.apply(); });
#endif
    }

protected:
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    void setupChildProcess() override
    {
        m_preparation.apply();
    }
#endif

private:
    Preparation m_preparation;
};

QString ChildResult::lastWords() const
{
    QByteArray line;
    QByteArray gaveUp;
    for (const QByteArray& candidate : QByteArray(words).replace('\r', '\n').split('\n')) {
        const QByteArray text = candidate.trimmed();
        // ffmpeg mostly says why first, and then at which track it gives up.
        if (text.startsWith("Error initializing output stream"))
            gaveUp = text;
        else if (!text.isEmpty() && !text.startsWith("Last message repeated"))
            line = text;
    }
    if (line.isEmpty())
        line = gaveUp;
    static const QRegularExpression speaker(QStringLiteral("^(\\[[^\\]]* @ 0x[0-9a-f]+\\] *)+"));
    return QString::fromUtf8(line).remove(speaker);
}

Child::Child(QObject* parent) : QObject(parent)
{
    m_clock.setInterval(tickMilliseconds);
    connect(&m_clock, &QTimer::timeout, this, &Child::countTime);
}

Child::~Child()
{
    if (!m_process)
        return;
    m_process->disconnect(this);
    if (m_process->state() == QProcess::NotRunning)
        return;
    send(SIGKILL);
    while (m_process->state() != QProcess::NotRunning && !m_process->waitForFinished(tickMilliseconds))
        remindOfEnd(m_group);
}

bool Child::start(const Command& command)
{
    return startProcess(command, false);
}

bool Child::startAhead(const Command& command)
{
    return startProcess(command, true);
}

void Child::feed(const QByteArray& input)
{
    if (!m_isRunning || !m_isAhead)
        return;
    m_isAhead = false;
    if (m_hasEnded)
        return;
    m_process->write(input);
    m_process->closeWriteChannel();
}

bool Child::startProcess(const Command& command, bool isAhead)
{
    Q_ASSERT_X(QThread::currentThread() == QCoreApplication::instance()->thread(), "Child::start",
               "a child dies with the thread that started it");
    if (m_isRunning)
        return false;
    m_command = command;
    m_result = ChildResult();
    m_isRunning = true;
    m_hasEnded = false;
    m_isEnding = false;
    m_isPaused = false;
    m_isAhead = isAhead;
    m_group = 0;
    m_ticks = 0;
    m_silentTicks = 0;
    m_moved = 0;

    m_process = std::make_unique<Process>(Preparation{getpid(), command.memory, command.processorSeconds});
    m_process->setProcessEnvironment(environment());
    m_process->setWorkingDirectory(command.folder);
    if (command.input.isEmpty() && !isAhead)
        m_process->setStandardInputFile(QProcess::nullDevice());
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &Child::readOutput);
    connect(m_process.get(), &QProcess::readyReadStandardError, this, &Child::readWords);
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        m_result.words = m_process->errorString().toUtf8();
        ended(ChildEnd::NotStarted, -1, 0);
    });
    connect(m_process.get(), QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [this](int code, QProcess::ExitStatus status) {
                const bool byItself = status == QProcess::NormalExit;
                ended(byItself ? ChildEnd::Finished : ChildEnd::Killed, byItself ? code : -1, byItself ? 0 : code);
            });
    m_clock.start();
    static const int isRegistered = pthread_atfork(nullptr, nullptr, dieWithParent);
    Q_UNUSED(isRegistered)
    starting = getpid();
    m_process->start(command.program, command.arguments);
    starting = 0;
    m_group = m_process->processId();
    if (!command.input.isEmpty() && !isAhead && !m_hasEnded) {
        m_process->write(command.input);
        m_process->closeWriteChannel();
    }
    return true;
}

bool Child::isRunning() const
{
    return m_isRunning;
}

qint64 Child::processId() const
{
    return m_isRunning && !m_hasEnded ? m_process->processId() : 0;
}

void Child::collect(bool collected)
{
    m_collected = collected;
}

void Child::cancel()
{
    if (m_isRunning)
        end(ChildEnd::Cancelled);
}

void Child::pause()
{
    if (!m_isRunning)
        return;
    m_isPaused = true;
    send(SIGSTOP);
}

void Child::resume()
{
    if (!m_isRunning)
        return;
    m_isPaused = false;
    send(SIGCONT);
}

void Child::readOutput()
{
    const QByteArray piece = m_process->readAllStandardOutput();
    m_silentTicks = 0;
    if (m_isEnding || piece.isEmpty())
        return;
    if (m_collected) {
        m_result.output += piece;
        if (m_result.output.size() > m_command.largestOutput) {
            m_result.output.truncate(static_cast<int>(m_command.largestOutput));
            end(ChildEnd::Flooded);
            return;
        }
    }
    Q_EMIT outputReady(piece);
}

void Child::readWords()
{
    m_result.words = (m_result.words + m_process->readAllStandardError()).right(mostWords);
}

void Child::countTime()
{
    if (m_hasEnded)
        return;
    remindOfEnd(m_group);
    if (m_isPaused || m_isAhead)
        return;
    ++m_ticks;
    ++m_silentTicks;
    if (m_command.seconds > 0 && m_ticks > ticksOf(m_command.seconds))
        end(ChildEnd::TimedOut);
    else if (m_command.stallSeconds > 0)
        lookForStall();
}

/// Behind its last words of progress ffmpeg may move all of a large file, so that its index comes to the front; before
/// its first ones it may read all of one for a few lines of subtitles.
void Child::lookForStall()
{
    const bool isAtItsLimit = m_silentTicks > ticksOf(m_command.stallSeconds);
    if (m_silentTicks > 1 && !isAtItsLimit)
        return;
    const qint64 before = m_moved;
    m_moved = movedBy(m_group);
    if (!isAtItsLimit)
        return;
    if (m_moved == before)
        end(ChildEnd::Stalled);
    else
        m_silentTicks = 0;
}

/// The first reason counts, except that a child which was given up by its asker is always Cancelled.
void Child::end(ChildEnd how)
{
    if (!m_isEnding || how == ChildEnd::Cancelled)
        m_result.end = how;
    m_result.exitCode = -1; // Also of one that has come to its end, which is not told yet.
    m_isEnding = true;
    send(SIGKILL);
}

void Child::ended(ChildEnd how, int exitCode, int signal)
{
    if (m_hasEnded)
        return;
    if (how != ChildEnd::NotStarted) {
        readOutput();
        readWords();
    }
    m_hasEnded = true;
    m_clock.stop();
    if (m_group > 0)
        ::kill(static_cast<pid_t>(-m_group), SIGKILL); // What it left behind.
    if (!m_isEnding)
        m_result.end = how;
    m_result.exitCode = m_isEnding ? -1 : exitCode;
    m_result.signal = signal;
    QMetaObject::invokeMethod(
        this, [this] { report(); }, Qt::QueuedConnection);
}

void Child::report()
{
    m_isRunning = false;
    const ChildResult result = m_result;
    m_result = ChildResult();
    Q_EMIT finished(result);
}

/// To the group, and to the child itself, which may not have come to having a group of its own.
void Child::send(int signal) const
{
    const auto child = static_cast<pid_t>(processId());
    if (child <= 0)
        return;
    ::kill(-child, signal);
    ::kill(child, signal);
}

ChildResult run(const Command& command)
{
    Child child;
    ChildResult result;
    QEventLoop loop;
    QObject::connect(&child, &Child::finished, &loop, [&](const ChildResult& r) {
        result = r;
        loop.quit();
    });
    child.start(command);
    loop.exec();
    return result;
}

} // namespace zokit
