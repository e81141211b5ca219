#pragma once

/// Counts the heap allocations of this thread between construction and count(). malloc itself is counted,
/// since Qt's containers do not use operator new.
class AllocationCounter {
public:
    AllocationCounter();
    ~AllocationCounter();
    AllocationCounter(const AllocationCounter&) = delete;
    AllocationCounter& operator=(const AllocationCounter&) = delete;

    /// False under a sanitizer, which brings its own heap.
    static bool works();
    long count() const;
};
