#include "SystemCalls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

namespace mintaro {

namespace {

SystemCalls *current = nullptr;

} // namespace

SystemCalls::SystemCalls(Plan plan)
    : m_plan(std::move(plan))
{
    current = this;
}

SystemCalls::~SystemCalls()
{
    current = nullptr;
}

int SystemCalls::count(const std::string &call) const
{
    return static_cast<int>(std::count(m_calls.begin(), m_calls.end(), call));
}

bool SystemCalls::fails(const char *call)
{
    // What another program does meanwhile does not count.
    if (!current || std::exchange(current->m_isTaking, true))
        return false;
    const bool fails = current->take(call);
    current->m_isTaking = false;
    return fails;
}

const SystemCalls::Plan &SystemCalls::plan()
{
    static const Plan none;
    return current && !current->m_isTaking ? current->m_plan : none;
}

bool SystemCalls::take(const std::string &call)
{
    m_calls.push_back(call);
    if (call == "renameat2") {
        if (const auto act = m_plan.beforeRename.find(count(call)); act != m_plan.beforeRename.end())
            act->second();
    }
    if (m_plan.fault == Fault::IsKilled && count() == m_plan.number)
        ::raise(SIGKILL);
    if ((m_plan.fault == Fault::Fails && count() == m_plan.number)
        || (m_plan.fault == Fault::FailsFromThenOn && count() >= m_plan.number)) {
        m_failed = call;
        errno = m_plan.code;
        return true;
    }
    const auto unsupported = m_plan.unsupported.find(call);
    if (unsupported != m_plan.unsupported.end())
        errno = unsupported->second;
    return unsupported != m_plan.unsupported.end();
}

} // namespace mintaro

using mintaro::SystemCalls;

// NOLINTBEGIN: the linker gives these names.
extern "C" {

int __real_openat(int folder, const char *name, int flags, mode_t mode);
ssize_t __real_read(int file, void *bytes, size_t size);
ssize_t __real_write(int file, const void *bytes, size_t size);
int __real_fstat(int file, struct stat *status);
int __real_fstatat(int folder, const char *name, struct stat *status, int flags);
int __real_fchmod(int file, mode_t mode);
int __real_fchown(int file, uid_t owner, gid_t group);
int __real_renameat2(int from, const char *name, int to, const char *newName, unsigned flags);
int __real_renameat(int from, const char *name, int to, const char *newName);
int __real_linkat(int from, const char *name, int to, const char *newName, int flags);
int __real_unlinkat(int folder, const char *name, int flags);
int __real_flock(int file, int operation);
int __real_mkdir(const char *path, mode_t mode);
char *__real_realpath(const char *path, char *resolved);
int __real_clock_gettime(clockid_t clock, timespec *time);

int __wrap_openat(int folder, const char *name, int flags, ...)
{
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list more;
        va_start(more, flags);
        mode = va_arg(more, mode_t);
        va_end(more);
    }
    return SystemCalls::fails("openat") ? -1 : __real_openat(folder, name, flags, mode);
}

ssize_t __wrap_read(int file, void *bytes, size_t size)
{
    return SystemCalls::fails("read") ? -1 : __real_read(file, bytes, size);
}

ssize_t __wrap_write(int file, const void *bytes, size_t size)
{
    if (SystemCalls::fails("write"))
        return -1;
    return __real_write(file, bytes, SystemCalls::plan().writesByteByByte ? std::min<size_t>(size, 1) : size);
}

// No test can see whether the disk was reached, and thousands of runs would wait for it.
int __wrap_fsync(int)
{
    return SystemCalls::fails("fsync") ? -1 : 0;
}

int __wrap_fstat(int file, struct stat *status)
{
    return SystemCalls::fails("fstat") ? -1 : __real_fstat(file, status);
}

int __wrap_fstatat(int folder, const char *name, struct stat *status, int flags)
{
    return SystemCalls::fails("fstatat") ? -1 : __real_fstatat(folder, name, status, flags);
}

int __wrap_fchmod(int file, mode_t mode)
{
    return SystemCalls::fails("fchmod") ? -1 : __real_fchmod(file, mode);
}

int __wrap_fchown(int file, uid_t owner, gid_t group)
{
    return SystemCalls::fails("fchown") ? -1 : __real_fchown(file, owner, group);
}

int __wrap_renameat2(int from, const char *name, int to, const char *newName, unsigned flags)
{
    return SystemCalls::fails("renameat2") ? -1 : __real_renameat2(from, name, to, newName, flags);
}

int __wrap_renameat(int from, const char *name, int to, const char *newName)
{
    return SystemCalls::fails("renameat") ? -1 : __real_renameat(from, name, to, newName);
}

int __wrap_linkat(int from, const char *name, int to, const char *newName, int flags)
{
    return SystemCalls::fails("linkat") ? -1 : __real_linkat(from, name, to, newName, flags);
}

int __wrap_unlinkat(int folder, const char *name, int flags)
{
    return SystemCalls::fails("unlinkat") ? -1 : __real_unlinkat(folder, name, flags);
}

int __wrap_flock(int file, int operation)
{
    return SystemCalls::fails("flock") ? -1 : __real_flock(file, operation);
}

int __wrap_mkdir(const char *path, mode_t mode)
{
    return SystemCalls::fails("mkdir") ? -1 : __real_mkdir(path, mode);
}

char *__wrap_realpath(const char *path, char *resolved)
{
    return SystemCalls::fails("realpath") ? nullptr : __real_realpath(path, resolved);
}

int __wrap_nanosleep(const timespec *, timespec *)
{
    (void)SystemCalls::fails("nanosleep");
    return 0;
}

int __wrap_clock_gettime(clockid_t clock, timespec *time)
{
    const int result = __real_clock_gettime(clock, time);
    time->tv_sec += SystemCalls::plan().seconds;
    return result;
}
}
// NOLINTEND
