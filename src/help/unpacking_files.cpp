#include "help/unpacking_files.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace stoikal {
namespace {

/// A file while the library has it open.
struct OpenedFile final : mspack_file {
    UnpackingFile* file = nullptr;
    qint64 position = 0;
    qint64 mayRead = 0;
};

OpenedFile& Opened(mspack_file* file)
{
    return *static_cast<OpenedFile*>(file);
}

mspack_file* Open(mspack_system* /*self*/, const char* name, int /*mode*/) noexcept
{
    // The library knows no exceptions: without memory a call of it fails.
    std::unique_ptr<OpenedFile> opened(new (std::nothrow) OpenedFile);
    if (opened == nullptr)
        return nullptr;
    const auto* const file = static_cast<const UnpackingFile*>(static_cast<const void*>(name));
    opened->file = const_cast<UnpackingFile*>(file);
    opened->mayRead = file->mayRead;
    return opened.release();
}

void Close(mspack_file* file) noexcept
{
    const std::unique_ptr<OpenedFile> opened(&Opened(file));
}

int Read(mspack_file* file, void* buffer, int count) noexcept
try {
    OpenedFile& opened = Opened(file);
    if (opened.file->source == nullptr || count > opened.mayRead)
        return -1;
    const auto bytes = opened.file->source->Read(opened.position, count);
    if (!bytes)
        return -1;
    std::copy(bytes->begin(), bytes->end(), static_cast<char*>(buffer));
    opened.position += bytes->size();
    opened.mayRead -= bytes->size();
    return static_cast<int>(bytes->size());
} catch (const std::bad_alloc&) {
    return -1;
}

int Write(mspack_file* file, void* buffer, int count) noexcept
try {
    Opened(file).file->written.append(static_cast<const char*>(buffer), count);
    return count;
} catch (const std::bad_alloc&) {
    return -1;
}

int Seek(mspack_file* file, off_t offset, int mode) noexcept
{
    OpenedFile& opened = Opened(file);
    qint64 position = offset;
    if (mode == MSPACK_SYS_SEEK_CUR)
        position += opened.position;
    else if (mode == MSPACK_SYS_SEEK_END)
        position += opened.file->Size();
    if (position < 0)
        return -1;
    opened.position = position;
    return 0;
}

off_t Tell(mspack_file* file) noexcept
{
    return Opened(file).position;
}

/// Its remarks are in English, and what is damaged shows by what it returns.
void Ignore(mspack_file* /*file*/, const char* /*format*/, ...) noexcept // NOLINT(cert-dcl50-cpp)
{
}

/// Memory of zeros: no damaged file shows what stood there before.
void* Allocate(mspack_system* /*self*/, std::size_t bytes) noexcept
{
    return bytes > kLargestUnpackingMemory ? nullptr : std::calloc(1, bytes); // NOLINT(*-no-malloc)
}

void Release(void* memory) noexcept
{
    std::free(memory); // NOLINT(*-no-malloc)
}

void Copy(void* from, void* to, std::size_t bytes) noexcept
{
    std::memcpy(to, from, bytes);
}

} // namespace

mspack_system UnpackingSystem()
{
    return {Open, Close, Read, Write, Seek, Tell, Ignore, Allocate, Release, Copy, nullptr};
}

} // namespace stoikal
