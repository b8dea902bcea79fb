// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "tracedchild.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <malloc.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int systemCallStop = SIGTRAP | 0x80; // As PTRACE_O_TRACESYSGOOD marks it.
constexpr int exitOfUntraceable = 120;
constexpr unsigned longestLife = 3; // Seconds.
constexpr std::size_t enoughMemory = std::size_t(64) * 1024 * 1024;

#if defined(__x86_64__)
unsigned long long& numberIn(user_regs_struct& registers)
{
    return registers.orig_rax;
}
unsigned long long& resultIn(user_regs_struct& registers)
{
    return registers.rax;
}
#elif defined(__i386__)
long& numberIn(user_regs_struct& registers)
{
    return registers.orig_eax;
}
long& resultIn(user_regs_struct& registers)
{
    return registers.eax;
}
#else
#error "registers of this processor are not known"
#endif

using Register = std::remove_reference_t<decltype(numberIn(std::declval<user_regs_struct&>()))>;

/// Takes memory for the operation in advance: a want of memory is not what these faults are about.
void fillHeap()
{
    ::mallopt(M_MMAP_THRESHOLD, int(enoughMemory) * 2);
    ::mallopt(M_TRIM_THRESHOLD, int(enoughMemory) * 2);
    void* volatile room = std::malloc(enoughMemory); // NOLINT(cppcoreguidelines-no-malloc): the heap itself is meant
    std::free(room);                                 // NOLINT(cppcoreguidelines-no-malloc)
}

[[noreturn]] void work(bool& operationRuns, const TracedChild::Work& operation, const TracedChild::Work& later)
{
    fillHeap();
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
        ::_exit(exitOfUntraceable);
    ::raise(SIGSTOP);
    ::alarm(longestLife); // Ends what hangs; the parent takes it for a failure.
    operationRuns = true;
    operation();
    operationRuns = false;
    ::raise(SIGSTOP);
    later();
    ::_exit(0);
}

} // namespace

TracedChild::TracedChild(const Fault& fault, const Work& operation, const Work& later) : m_fault(fault)
{
    void* const shared = ::mmap(nullptr, sizeof(bool), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        m_end = "no shared memory";
        return;
    }
    m_operationRuns = static_cast<bool*>(shared);
    m_process = ::fork();
    if (m_process == 0)
        work(*m_operationRuns, operation, later);
    if (m_process < 0) {
        m_end = "no process";
        return;
    }
    if (!runUntilStop())
        return;
    const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
    if (::ptrace(PTRACE_SETOPTIONS, m_process, nullptr, options) != 0) {
        kill();
        m_end = "cannot be traced";
    }
}

TracedChild::~TracedChild()
{
    kill();
    if (m_operationRuns)
        ::munmap(m_operationRuns, sizeof(bool));
}

void TracedChild::kill()
{
    if (m_process <= 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
    m_process = -1;
}

bool TracedChild::isInOperation() const
{
    return *static_cast<volatile bool*>(m_operationRuns);
}

bool TracedChild::finishOperation()
{
    m_entering = true;
    while (m_process > 0 && ::ptrace(PTRACE_SYSCALL, m_process, nullptr, nullptr) == 0) {
        if (!runUntilStop())
            return false;
        if (!isInOperation() && !m_calls.empty())
            return true;
    }
    return false;
}

bool TracedChild::finishAll()
{
    while (m_process > 0 && ::ptrace(PTRACE_CONT, m_process, nullptr, nullptr) == 0)
        runUntilStop();
    return m_end.empty();
}

/// Waits for the process' next stop; false when it ended instead.
bool TracedChild::runUntilStop()
{
    int status = 0;
    while (::waitpid(m_process, &status, 0) < 0) {
        if (errno != EINTR)
            return false;
    }
    if (WIFSTOPPED(status)) {
        if (WSTOPSIG(status) == systemCallStop)
            atSystemCall();
        else if (WSTOPSIG(status) != SIGSTOP)
            m_end = "signal " + std::to_string(WSTOPSIG(status));
        if (m_end.empty())
            return true;
        kill();
        return false;
    }
    if (WIFSIGNALED(status))
        m_end = "signal " + std::to_string(WTERMSIG(status));
    else if (WEXITSTATUS(status) != 0)
        m_end = "exit status " + std::to_string(WEXITSTATUS(status));
    m_process = -1;
    return false;
}

void TracedChild::atSystemCall()
{
    const bool begins = m_entering;
    m_entering = !m_entering;
    if (begins ? !isInOperation() : !m_failing)
        return;

    user_regs_struct registers = {};
    if (::ptrace(PTRACE_GETREGS, m_process, nullptr, &registers) != 0)
        return;
    if (!begins) {
        resultIn(registers) = static_cast<Register>(-m_fault.error);
        m_failing = false;
        ::ptrace(PTRACE_SETREGS, m_process, nullptr, &registers);
        return;
    }

    m_calls.push_back(static_cast<long>(numberIn(registers)));
    if (m_fault.call >= 0 && m_calls.back() != m_fault.call)
        return;
    const std::size_t position = m_counted++;
    const bool isMeant = m_fault.kind == Fault::Kind::ErrorsSince ? position >= m_fault.at : position == m_fault.at;
    if (m_fault.kind == Fault::Kind::None || !isMeant)
        return;
    m_faultHappened = true;
    if (m_fault.kind == Fault::Kind::Kill) {
        kill();
        m_end = "killed";
        return;
    }
    numberIn(registers) = static_cast<Register>(-1); // No such call: nothing is carried out.
    m_failing = ::ptrace(PTRACE_SETREGS, m_process, nullptr, &registers) == 0;
}

std::string systemCallName(long number)
{
    struct Name {
        long number;
        const char* name;
    };
    static const std::array names = {
        Name{SYS_access, "access"},
        Name{SYS_chmod, "chmod"},
        Name{SYS_clock_nanosleep, "clock_nanosleep"},
        Name{SYS_close, "close"},
        Name{SYS_fchmod, "fchmod"},
        Name{SYS_fcntl, "fcntl"},
        Name{SYS_fdatasync, "fdatasync"},
        Name{SYS_flock, "flock"},
        Name{SYS_fstat, "fstat"},
        Name{SYS_getcwd, "getcwd"},
        Name{SYS_getdents64, "getdents64"},
        Name{SYS_getpid, "getpid"},
        Name{SYS_getrandom, "getrandom"},
        Name{SYS_gettid, "gettid"},
        Name{SYS_getuid, "getuid"},
        Name{SYS_geteuid, "geteuid"},
        Name{SYS_kill, "kill"},
        Name{SYS_link, "link"},
        Name{SYS_linkat, "linkat"},
        Name{SYS_lseek, "lseek"},
        Name{SYS_lstat, "lstat"},
        Name{SYS_mkdir, "mkdir"},
        Name{SYS_openat, "openat"},
        Name{SYS_pread64, "pread64"},
        Name{SYS_read, "read"},
        Name{SYS_readlink, "readlink"},
#ifdef SYS_newfstatat
        Name{SYS_newfstatat, "newfstatat"},
#endif
        Name{SYS_rename, "rename"},
        Name{SYS_renameat2, "renameat2"},
        Name{SYS_stat, "stat"},
        Name{SYS_statx, "statx"},
        Name{SYS_uname, "uname"},
        Name{SYS_unlink, "unlink"},
        Name{SYS_write, "write"},
    };
    for (const Name& name : names) {
        if (name.number == number)
            return name.name;
    }
    return "system call " + std::to_string(number);
}
