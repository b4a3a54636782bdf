// A library for LD_PRELOAD that lets calls of the system fail, on files below the
// folders of STOIKAL_FAIL_BELOW (parted by ":"):
//
//     STOIKAL_FAIL_AT=17      the 17th of them fails, and no other
//     STOIKAL_FAIL_ONE_IN=40  at random, one in so many
//     STOIKAL_FAIL_SEED=3     chooses errors, and which fail at random
//     STOIKAL_FAIL_ALWAYS=flock,lockf,claim  these fail each time, as they do on a
//                             file system that knows no such lock
//     STOIKAL_FAIL_LOG=FILE   a line for each failure: number, call, error, path; with
//                             STOIKAL_FAIL_AT=0 one for each call that could fail
//
// Each error is one that the call may give. Nothing but the system itself is used
// for its own work.

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <initializer_list>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace {

using Errors = std::initializer_list<int>;

struct Plan {
    std::vector<std::string> below;
    std::string always;
    long at = -1;
    long oneIn = 0;
    std::uint64_t seed = 0;
    int log = -1;
};

long NumberIn(const char* name, long fallback)
{
    const char* const text = std::getenv(name);
    return text == nullptr ? fallback : std::strtol(text, nullptr, 10);
}

std::string TextIn(const char* name)
{
    const char* const text = std::getenv(name);
    return text == nullptr ? std::string() : std::string(text);
}

Plan ReadPlan()
{
    Plan plan;
    std::string below = TextIn("STOIKAL_FAIL_BELOW");
    while (!below.empty()) {
        const std::size_t end = below.find(':');
        plan.below.push_back(below.substr(0, end));
        below = end == std::string::npos ? std::string() : below.substr(end + 1);
    }
    plan.always = TextIn("STOIKAL_FAIL_ALWAYS");
    plan.at = NumberIn("STOIKAL_FAIL_AT", -1);
    plan.oneIn = NumberIn("STOIKAL_FAIL_ONE_IN", 0);
    plan.seed = static_cast<std::uint64_t>(NumberIn("STOIKAL_FAIL_SEED", 1));
    if (const std::string log = TextIn("STOIKAL_FAIL_LOG"); !log.empty())
        plan.log = static_cast<int>(
            ::syscall(SYS_openat, AT_FDCWD, log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666));
    return plan;
}

const Plan& ThePlan()
{
    static const Plan kPlan = ReadPlan();
    return kPlan;
}

/// The same sequence for the same seed; neighbours differ in all bits.
std::uint64_t Scrambled(std::uint64_t number)
{
    number += 0x9e3779b97f4a7c15U;
    number = (number ^ (number >> 30U)) * 0xbf58476d1ce4e5b9U;
    number = (number ^ (number >> 27U)) * 0x94d049bb133111ebU;
    return number ^ (number >> 31U);
}

std::string PathOfDescriptor(int descriptor)
{
    std::array<char, 64> name{};
    std::snprintf(name.data(), name.size(), "/proc/self/fd/%d", descriptor);
    std::array<char, 4096> path{};
    const long length = ::syscall(SYS_readlinkat, AT_FDCWD, name.data(), path.data(), path.size());
    return length <= 0 ? std::string() : std::string(path.data(), static_cast<std::size_t>(length));
}

std::string PathOf(int folder, const char* path)
{
    if (path == nullptr)
        return {};
    if (path[0] == '/' || folder == AT_FDCWD)
        return path;
    return PathOfDescriptor(folder) + '/' + path;
}

bool IsBelow(const std::string& path)
{
    for (const std::string& folder : ThePlan().below) {
        if (path.compare(0, folder.size(), folder) == 0
            && (path.size() == folder.size() || path[folder.size()] == '/'))
            return true;
    }
    return false;
}

bool FailsAlways(const char* kind)
{
    const std::string& always = ThePlan().always;
    return !always.empty() && always.find(kind) != std::string::npos;
}

std::atomic<long> g_calls = 0;

/// Whether this call is to fail; errno is then set. `errors` are those it may give.
bool Fails(const char* call, const std::string& path, Errors errors)
{
    const Plan& plan = ThePlan();
    if (plan.below.empty() || (plan.at < 0 && plan.oneIn == 0) || !IsBelow(path))
        return false;
    const long number = ++g_calls;
    const std::uint64_t chance = Scrambled(plan.seed * 1'000'003U + static_cast<std::uint64_t>(number));
    const bool fails = plan.at > 0 ? number == plan.at
                                   : plan.oneIn > 0 && chance % static_cast<std::uint64_t>(plan.oneIn) == 0;
    const int error = errors.begin()[Scrambled(plan.seed + chance) % errors.size()];
    if (plan.log >= 0 && (fails || plan.at == 0)) {
        const std::string line
            = std::to_string(number) + ' ' + call + ' ' + std::to_string(error) + ' ' + path + '\n';
        (void)!::syscall(SYS_write, plan.log, line.data(), line.size());
    }
    if (fails)
        errno = error;
    return fails;
}

template <typename Function>
Function Next(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

int OpenAs(const char* name, int folder, const char* path, int flags, mode_t mode)
{
    const bool makes = (flags & O_CREAT) != 0;
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    const std::string whole = PathOf(folder, path);
    const std::string_view end(".lock.own");
    if (makes && whole.size() > end.size() && whole.compare(whole.size() - end.size(), end.size(), end) == 0
        && FailsAlways("claim")) {
        errno = EPERM;
        return -1;
    }
    if (makes ? Fails("make", whole, {EIO, ENOSPC, EDQUOT, EACCES, EMFILE, EINTR})
              : Fails(writes ? "open_to_write" : "open", whole, {EIO, EACCES, EMFILE, EINTR}))
        return -1;
    return Next<int (*)(int, const char*, int, ...)>(name)(folder, path, flags, mode);
}

bool ReadFails(int file)
{
    return Fails("read", PathOfDescriptor(file), {EIO, EINTR});
}

bool WriteFails(int file)
{
    return Fails("write", PathOfDescriptor(file), {EIO, ENOSPC, EDQUOT, EINTR});
}

bool FlushFails(int file)
{
    return Fails("flush", PathOfDescriptor(file), {EIO, ENOSPC, EDQUOT});
}

bool CutFails(int file)
{
    return Fails("cut", PathOfDescriptor(file), {EIO, EINTR});
}

bool RenameFails(int folder, const char* path)
{
    return Fails("rename", PathOf(folder, path), {EIO, EACCES, ENOSPC, EPERM});
}

bool RemoveFails(int folder, const char* path)
{
    return Fails("remove", PathOf(folder, path), {EIO, EACCES, EBUSY});
}

bool MakeFolderFails(int folder, const char* path)
{
    return Fails("make_folder", PathOf(folder, path), {EIO, EACCES, ENOSPC, EDQUOT});
}

bool LinkFails(int folder, const char* path)
{
    return Fails("link", PathOf(folder, path), {EIO, EACCES, ENOSPC, EPERM});
}

bool RangeFails(int file, int command)
{
    if (command != F_OFD_SETLK)
        return false;
    if (FailsAlways("lockf")) {
        errno = EINVAL;
        return true;
    }
    return Fails("lockf", PathOfDescriptor(file), {ENOLCK, EINVAL, EIO});
}

} // namespace

#define MODE_OF_NEW_FILE(last)                                                                               \
    mode_t mode = 0;                                                                                         \
    if ((flags & (O_CREAT | O_TMPFILE)) != 0) {                                                              \
        va_list rest;                                                                                        \
        va_start(rest, last);                                                                                \
        mode = static_cast<mode_t>(va_arg(rest, int));                                                       \
        va_end(rest);                                                                                        \
    }

extern "C" {

int open(const char* path, int flags, ...)
{
    MODE_OF_NEW_FILE(flags)
    return OpenAs("openat", AT_FDCWD, path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    MODE_OF_NEW_FILE(flags)
    return OpenAs("openat64", AT_FDCWD, path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...)
{
    MODE_OF_NEW_FILE(flags)
    return OpenAs("openat", folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...)
{
    MODE_OF_NEW_FILE(flags)
    return OpenAs("openat64", folder, path, flags, mode);
}

ssize_t read(int file, void* bytes, size_t count)
{
    return ReadFails(file) ? -1 : Next<ssize_t (*)(int, void*, size_t)>("read")(file, bytes, count);
}

ssize_t pread(int file, void* bytes, size_t count, off_t from)
{
    return ReadFails(file) ? -1
                           : Next<ssize_t (*)(int, void*, size_t, off_t)>("pread")(file, bytes, count, from);
}

ssize_t pread64(int file, void* bytes, size_t count, off64_t from)
{
    return ReadFails(file)
        ? -1
        : Next<ssize_t (*)(int, void*, size_t, off64_t)>("pread64")(file, bytes, count, from);
}

ssize_t write(int file, const void* bytes, size_t count)
{
    return WriteFails(file) ? -1 : Next<ssize_t (*)(int, const void*, size_t)>("write")(file, bytes, count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t from)
{
    return WriteFails(file)
        ? -1
        : Next<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite")(file, bytes, count, from);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t from)
{
    return WriteFails(file)
        ? -1
        : Next<ssize_t (*)(int, const void*, size_t, off64_t)>("pwrite64")(file, bytes, count, from);
}

int fsync(int file)
{
    return FlushFails(file) ? -1 : Next<int (*)(int)>("fsync")(file);
}

int fdatasync(int file)
{
    return FlushFails(file) ? -1 : Next<int (*)(int)>("fdatasync")(file);
}

int ftruncate(int file, off_t size) noexcept
{
    return CutFails(file) ? -1 : Next<int (*)(int, off_t)>("ftruncate")(file, size);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return CutFails(file) ? -1 : Next<int (*)(int, off64_t)>("ftruncate64")(file, size);
}

int rename(const char* from, const char* to) noexcept
{
    return RenameFails(AT_FDCWD, from) ? -1 : Next<int (*)(const char*, const char*)>("rename")(from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept
{
    return RenameFails(fromFolder, from)
        ? -1
        : Next<int (*)(int, const char*, int, const char*)>("renameat")(fromFolder, from, toFolder, to);
}

int link(const char* from, const char* to) noexcept
{
    return LinkFails(AT_FDCWD, to) ? -1 : Next<int (*)(const char*, const char*)>("link")(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return LinkFails(toFolder, to) ? -1
                                   : Next<int (*)(int, const char*, int, const char*, int)>("linkat")(
                                       fromFolder, from, toFolder, to, flags);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return MakeFolderFails(AT_FDCWD, path) ? -1 : Next<int (*)(const char*, mode_t)>("mkdir")(path, mode);
}

int mkdirat(int folder, const char* path, mode_t mode) noexcept
{
    return MakeFolderFails(folder, path)
        ? -1
        : Next<int (*)(int, const char*, mode_t)>("mkdirat")(folder, path, mode);
}

int unlink(const char* path) noexcept
{
    return RemoveFails(AT_FDCWD, path) ? -1 : Next<int (*)(const char*)>("unlink")(path);
}

int unlinkat(int folder, const char* path, int flags) noexcept
{
    return RemoveFails(folder, path) ? -1
                                     : Next<int (*)(int, const char*, int)>("unlinkat")(folder, path, flags);
}

int flock(int file, int operation) noexcept
{
    if (FailsAlways("flock")) {
        errno = ENOLCK;
        return -1;
    }
    if (Fails("flock", PathOfDescriptor(file), {ENOLCK, EINTR, EIO, EOPNOTSUPP}))
        return -1;
    return Next<int (*)(int, int)>("flock")(file, operation);
}

int fcntl(int file, int command, ...)
{
    va_list rest;
    va_start(rest, command);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    return RangeFails(file, command) ? -1 : Next<int (*)(int, int, ...)>("fcntl")(file, command, argument);
}

int fcntl64(int file, int command, ...)
{
    va_list rest;
    va_start(rest, command);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    return RangeFails(file, command) ? -1 : Next<int (*)(int, int, ...)>("fcntl64")(file, command, argument);
}

} // extern "C"
