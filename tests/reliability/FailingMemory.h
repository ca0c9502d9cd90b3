// Makes memory run out in the middle of what a test does, whoever asks for it: the library, Qt or the C++
// runtime.
#pragma once

#include <initializer_list>

namespace Orvida::Tests {

/// While it lives, the calling thread gets no memory at its allocation number `first`, and also not at later
/// ones when `forGood` is set. Allocations count from 1; 0 is none of them.
/// One at a time.
class FailingMemory
{
public:
    explicit FailingMemory(int first, bool forGood);
    ~FailingMemory();
    FailingMemory(const FailingMemory &) = delete;
    FailingMemory &operator=(const FailingMemory &) = delete;

    /// Whether an allocation has failed since the last one was made.
    static bool hasFailed();
    /// How many blocks of memory the calling thread holds; only differences mean something.
    static int liveBlocks();

    /// From now on allocations succeed that come from one of these functions, given by their mangled names:
    /// for code that does not survive a lack of memory, or leaks, and is not ours to mend.
    static void spare(std::initializer_list<const char *> functions);
};

} // namespace Orvida::Tests
