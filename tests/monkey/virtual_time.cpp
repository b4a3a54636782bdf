#include "virtual_time.h"

#include <atomic>
#include <cerrno>
#include <ctime>
#include <poll.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace stoikal::virtual_time {
namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t kNanosecondsPerMs = 1'000'000;
/// The run begins on 5 March 2016 at 14:07:12, an hour after the machine was switched on.
constexpr std::int64_t kFirstDate = 1'457'186'832 * kNanosecondsPerSecond;
constexpr std::int64_t kFirstCounter = 3600 * kNanosecondsPerSecond;

std::atomic<bool> g_isVirtual = false;
std::atomic<std::int64_t> g_passed = 0;
pthread_t g_thread{};

timespec ToTimespec(std::int64_t nanoseconds)
{
    return {nanoseconds / kNanosecondsPerSecond, nanoseconds % kNanosecondsPerSecond};
}

std::int64_t ToNanoseconds(const timespec& time)
{
    return time.tv_sec * kNanosecondsPerSecond + time.tv_nsec;
}

bool IsCounter(clockid_t clock)
{
    return clock == CLOCK_MONOTONIC || clock == CLOCK_MONOTONIC_RAW || clock == CLOCK_MONOTONIC_COARSE
        || clock == CLOCK_BOOTTIME;
}

bool IsDate(clockid_t clock)
{
    return clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE;
}

/// Whether waiting only moves the time: other threads wait as ever.
bool WaitsVirtually()
{
    return g_isVirtual && ::pthread_equal(::pthread_self(), g_thread) != 0;
}

} // namespace

void Begin()
{
    g_thread = ::pthread_self();
    g_passed = 0;
    g_isVirtual = true;
}

void Advance(std::int64_t ms)
{
    g_passed += ms * kNanosecondsPerMs;
}

std::int64_t Nanoseconds()
{
    return kFirstCounter + g_passed;
}

double ProcessorMs()
{
    timespec used{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return static_cast<double>(ToNanoseconds(used)) / kNanosecondsPerMs;
}

} // namespace stoikal::virtual_time

// In place of the system's functions of these names, for the libraries too.

using namespace stoikal::virtual_time;

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    if (g_isVirtual && (IsCounter(clock) || IsDate(clock))) {
        *time = ToTimespec((IsDate(clock) ? kFirstDate : kFirstCounter) + g_passed);
        return 0;
    }
    return static_cast<int>(::syscall(SYS_clock_gettime, clock, time));
}

extern "C" int gettimeofday(timeval* time, void* /*zone*/) noexcept
{
    timespec now{};
    const int result = ::clock_gettime(CLOCK_REALTIME, &now);
    *time = {now.tv_sec, now.tv_nsec / 1000};
    return result;
}

extern "C" int ppoll(pollfd* files, nfds_t count, const timespec* wait, const sigset_t* signals)
{
    constexpr std::size_t kSignalBytes = 8;
    if (!WaitsVirtually() || wait == nullptr)
        return static_cast<int>(::syscall(SYS_ppoll, files, count, wait, signals, kSignalBytes));
    timespec none{};
    const auto ready = static_cast<int>(::syscall(SYS_ppoll, files, count, &none, signals, kSignalBytes));
    if (ready == 0)
        g_passed += ToNanoseconds(*wait);
    return ready;
}

extern "C" int nanosleep(const timespec* wait, timespec* left)
{
    if (!WaitsVirtually())
        return static_cast<int>(::syscall(SYS_nanosleep, wait, left));
    g_passed += ToNanoseconds(*wait);
    return 0;
}

extern "C" int clock_nanosleep(clockid_t clock, int flags, const timespec* wait, timespec* left)
{
    // Until an instant of a clock that does not move by itself nobody may wait here.
    if (flags == 0 && WaitsVirtually())
        return ::nanosleep(wait, left);
    return ::syscall(SYS_clock_nanosleep, clock, flags, wait, left) == 0 ? 0 : errno;
}
