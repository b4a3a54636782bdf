#include "scarce_memory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>
#include <limits>
#include <new>

namespace {

constexpr int kPlenty = -1;
std::atomic<int> piecesLeft{kPlenty};
std::atomic<bool> hasRefused{false};

/// Whether this piece is the one that is not there.
bool RunsOut()
{
    if (piecesLeft.load() == kPlenty || piecesLeft.fetch_sub(1) > 0)
        return false;
    piecesLeft = kPlenty;
    hasRefused = true;
    return true;
}

template <typename Function>
Function* Next(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

void* Given(std::size_t size)
{
    static auto* const next = Next<void*(std::size_t)>("malloc");
    return next(size);
}

} // namespace

// The toolkit asks the C library for its texts and lists.
extern "C" void* malloc(std::size_t size)
{
    return RunsOut() ? nullptr : Given(size);
}

extern "C" void* realloc(void* old, std::size_t size)
{
    static auto* const next = Next<void*(void*, std::size_t)>("realloc");
    return RunsOut() ? nullptr : next(old, size);
}

void* operator new(std::size_t size)
{
    if (void* const piece = std::malloc(size == 0 ? 1 : size))
        return piece;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*asked*/) noexcept
{
    return std::malloc(size == 0 ? 1 : size);
}

// Always given: only the toolkit's hash tables ask for arrays, and they do so in
// functions that may not throw, so that the program ends whoever uses them.
void* operator new[](std::size_t size)
{
    return Given(size == 0 ? 1 : size);
}

void operator delete[](void* piece) noexcept
{
    std::free(piece);
}

void operator delete[](void* piece, std::size_t /*size*/) noexcept
{
    std::free(piece);
}

void operator delete(void* piece) noexcept
{
    std::free(piece);
}

void operator delete(void* piece, std::size_t /*size*/) noexcept
{
    std::free(piece);
}

namespace stoikal {

ScarceMemory::ScarceMemory(int pieces)
{
    hasRefused = false;
    piecesLeft = pieces;
}

ScarceMemory::~ScarceMemory()
{
    piecesLeft = kPlenty;
}

bool ScarceMemory::HasRefused()
{
    return hasRefused;
}

} // namespace stoikal
