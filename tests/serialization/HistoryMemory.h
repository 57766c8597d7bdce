// Counts the memory of the whole program and measures the undo history by it. To be included by one
// source file of a program alone: it replaces the allocation functions.
#pragma once

#include "serialization/IncrementalHistoryManager.h"

#include <cstddef>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include <malloc.h>

namespace Vorin::Serialization {

/// What is allocated and not freed. Bytes as the allocator rounds them.
struct CLiveMemory {
    long long blocks = 0;
    long long bytes = 0;

    CLiveMemory operator-(const CLiveMemory& other) const {
        return {blocks - other.blocks, bytes - other.bytes};
    }
};

inline CLiveMemory liveMemory;

inline void* AllocateCounted(std::size_t size) {
    void* block = std::malloc(size ? size : 1);
    if (!block) {
        throw std::bad_alloc();
    }
    ++liveMemory.blocks;
    liveMemory.bytes += static_cast<long long>(malloc_usable_size(block));
    return block;
}

inline void FreeCounted(void* block) {
    if (block) {
        --liveMemory.blocks;
        liveMemory.bytes -= static_cast<long long>(malloc_usable_size(block));
    }
    std::free(block);
}

} // namespace Vorin::Serialization

// The forms for arrays and those that do not throw too: of themselves they call the others, but not
// under the address sanitizer.
void* operator new(std::size_t size) { return Vorin::Serialization::AllocateCounted(size); }
void* operator new[](std::size_t size) { return Vorin::Serialization::AllocateCounted(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Vorin::Serialization::AllocateCounted(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Vorin::Serialization::AllocateCounted(size);
}
void operator delete(void* block) noexcept { Vorin::Serialization::FreeCounted(block); }
void operator delete[](void* block) noexcept { Vorin::Serialization::FreeCounted(block); }
void operator delete(void* block, std::size_t) noexcept {
    Vorin::Serialization::FreeCounted(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    Vorin::Serialization::FreeCounted(block);
}

namespace Vorin::Serialization {

/// A root of 2,000 values: doubles, ints, texts and switches by turns, all in one object or spread
/// evenly over objects and objects inside of those.
class CBigRoot : public virtual ISerializable {
public:
    static constexpr int kValueCount = 2000;

    /// How many parts each object has, from the outermost in: {40, 50} is 40 objects of 50 values.
    explicit CBigRoot(std::vector<int> partCounts)
        : counts(std::move(partCounts)), values(kValueCount) {}

    void Change(int index) { ++values[static_cast<std::size_t>(index)]; }

    bool Serialize(IWriteDataStream& stream) const override {
        return CPart(*this, 0, 0).Serialize(stream);
    }
    bool DeSerialize(const IReadDataStream&) override { return true; }

private:
    class CPart : public virtual ISerialize {
    public:
        CPart(const CBigRoot& owner, std::size_t partLevel, int partIndex)
            : root(owner), level(partLevel), index(partIndex) {}

        bool Serialize(IWriteDataStream& stream) const override {
            const bool holdsValues = level + 1 == root.counts.size();
            const int count = root.counts[level];
            bool done = true;
            for (int i = 0; i < count; ++i) {
                const int inner = index * count + i;
                done = (holdsValues ? root.WriteValue(stream, inner)
                                    : stream.WriteObject(("group" + std::to_string(i)).c_str(),
                                                         CPart(root, level + 1, inner))) &&
                       done;
            }
            return done;
        }

    private:
        const CBigRoot& root;
        std::size_t level;
        int index;
    };

    bool WriteValue(IWriteDataStream& stream, int index) const {
        const std::string name = "parameter" + std::to_string(index);
        const int value = values[static_cast<std::size_t>(index)];
        switch (index % 4) {
        case 0:
            return stream.WriteDouble(name.c_str(), value + 0.25);
        case 1:
            return stream.WriteInt(name.c_str(), value);
        case 2:
            return stream.WriteString(name.c_str(), ("value " + std::to_string(value)).c_str());
        default:
            return stream.WriteBool(name.c_str(), value % 2 != 0);
        }
    }

    std::vector<int> counts;
    std::vector<int> values;
};

struct CBigRootShape {
    const char* name;
    std::vector<int> counts;
};

inline const std::vector<CBigRootShape>& GetBigRootShapes() {
    static const std::vector<CBigRootShape> shapes = {
        {"flat", {2000}}, {"nested_40x50", {40, 50}}, {"nested_10x10x20", {10, 10, 20}}};
    return shapes;
}

/// What snapshots of a big root cost.
struct CHistoryCost {
    static constexpr int kChangeCount = 1000;

    CLiveMemory first;     // one full snapshot
    CLiveMemory unchanged; // what a snapshot without a change leaves behind
    CLiveMemory all;       // the first one and one for each change, each of another value
    CLiveMemory left;      // what stays when the history is gone
    int entryCount = 0;

    double GetBytesPerChange() const {
        return static_cast<double>(all.bytes - first.bytes) / kChangeCount;
    }

    /// All of it, over 3 full snapshots and 1 KB for each change.
    double GetRatio() const {
        return static_cast<double>(all.bytes) /
               (3.0 * static_cast<double>(first.bytes) + 1024.0 * kChangeCount);
    }
};

inline CHistoryCost MeasureHistory(const CBigRootShape& shape) {
    CHistoryCost cost;
    CBigRoot root(shape.counts);
    const CLiveMemory before = liveMemory;
    {
        CIncrementalHistoryManager history(&root);
        history.TakeSnapshot();
        cost.first = liveMemory - before;
        history.TakeSnapshot();
        cost.unchanged = liveMemory - before - cost.first;
        for (int change = 0; change < CHistoryCost::kChangeCount; ++change) {
            root.Change(change * 7 % CBigRoot::kValueCount); // all over the root
            history.TakeSnapshot();
        }
        cost.all = liveMemory - before;
        cost.entryCount = history.GetCount();
    }
    cost.left = liveMemory - before;
    return cost;
}

} // namespace Vorin::Serialization
