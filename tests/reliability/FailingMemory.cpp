#include "reliability/FailingMemory.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include <dlfcn.h>
#include <execinfo.h>

// The allocator behind the functions below, which stand before the C library's own in the whole process.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define BEHIND(function) __interceptor_##function
#else
#define BEHIND(function) __libc_##function
#endif

extern "C" {
void *BEHIND(malloc)(size_t);
void *BEHIND(calloc)(size_t, size_t);
void *BEHIND(realloc)(void *, size_t);
void BEHIND(free)(void *);
}

namespace {

constexpr int never = 0;

thread_local int firstFailing = never;
thread_local bool failsForGood = false;
thread_local bool failed = false;
thread_local int allocationCount = 0;
thread_local int blockCount = 0;
std::vector<const char *> sparedFunctions;

bool isSpared()
{
    void *frames[64];
    const int count = backtrace(frames, 64);
    return std::any_of(frames, frames + count, [](void *frame) {
        Dl_info place;
        return dladdr(frame, &place) && place.dli_sname
               && std::any_of(sparedFunctions.begin(), sparedFunctions.end(),
                              [&place](const char *name) { return std::strcmp(name, place.dli_sname) == 0; });
    });
}

bool fails()
{
    if (firstFailing == never || ++allocationCount < firstFailing || (failed && !failsForGood) || isSpared())
        return false;
    failed = true;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {

void *malloc(size_t size)
{
    void *block = fails() ? nullptr : BEHIND(malloc)(size);
    blockCount += block != nullptr;
    return block;
}

void *calloc(size_t count, size_t size)
{
    void *block = fails() ? nullptr : BEHIND(calloc)(count, size);
    blockCount += block != nullptr;
    return block;
}

void *realloc(void *block, size_t size)
{
    void *moved = fails() ? nullptr : BEHIND(realloc)(block, size);
    blockCount += !block && moved;
    return moved;
}

void free(void *block)
{
    blockCount -= block != nullptr;
    BEHIND(free)(block);
}

// The leak checker knows what the dynamic linker takes by its caller, which is now a function above.
const char *__lsan_default_suppressions();
const char *__lsan_default_suppressions()
{
    return "leak:_dl_";
}
}

// The sanitizers' own would not ask the functions above.
void *operator new(size_t size)
{
    void *block = malloc(size);
    return block ? block : throw std::bad_alloc();
}

void operator delete(void *block) noexcept
{
    free(block);
}

void operator delete(void *block, size_t) noexcept
{
    free(block);
}

namespace Orvida::Tests {

FailingMemory::FailingMemory(int first, bool forGood)
{
    void *frame;
    backtrace(&frame, 1); // its first call allocates
    allocationCount = 0;
    failed = false;
    failsForGood = forGood;
    firstFailing = first;
}

FailingMemory::~FailingMemory()
{
    firstFailing = never;
}

bool FailingMemory::hasFailed()
{
    return failed;
}

int FailingMemory::liveBlocks()
{
    return blockCount;
}

void FailingMemory::spare(std::initializer_list<const char *> functions)
{
    sparedFunctions = functions;
}

} // namespace Orvida::Tests
