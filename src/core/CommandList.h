#pragma once

#include <map>
#include <memory>

namespace Vorin::Core {

/// The listener list of an event provider: doubly linked nodes in the order of connection.
///
/// A walk over the list runs foreign code at each node, and that code may take out any node, the
/// one it was called from included. So during a walk a node is retired instead of freed: it leaves
/// the list but keeps its `next`, and whoever stands on it can go on to the rest of the list. The
/// provider frees the retired nodes when its outermost walk has ended.
///
/// A list that grew long has an index: thousands that listen to one object leave it one by one.
///
/// `C` is the command type. One thread; commands are not owned; only `Append` allocates.
template <class C>
class TCommandList {
public:
    struct CItem {
        C* command = nullptr;
        bool running = false; // the command is on the stack: walks pass it over
        CItem* previous = nullptr;
        CItem* next = nullptr;
    };

    TCommandList() = default;
    TCommandList(const TCommandList&) = delete;
    TCommandList& operator=(const TCommandList&) = delete;

    ~TCommandList() {
        index.reset();
        while (head) {
            Free(head);
        }
        FreeRetired();
    }

    CItem* GetHead() const { return head; }

    void Append(C* command) {
        auto item = std::make_unique<CItem>(CItem{command, false, tail, nullptr});
        if (index) {
            index->emplace(command, item.get());
        }
        (tail ? tail->next : head) = item.get();
        tail = item.release();
        if (++count > kLongestWithoutIndex && !index) {
            BuildIndex();
        }
    }

    /// The first node with `command`, or null.
    CItem* Find(const C* command) const {
        if (index) {
            const auto found = index->lower_bound(command);
            return found != index->end() && found->first == command ? found->second : nullptr;
        }
        CItem* item = head;
        while (item && item->command != command) {
            item = item->next;
        }
        return item;
    }

    /// Takes a node out for good: only while no walk is in progress.
    void Free(CItem* item) {
        Unlink(item);
        delete item;
    }

    /// Takes a node out during a walk. `standIn` is what walks that stand before it find there.
    void Retire(CItem* item, C* standIn) {
        Unlink(item);
        item->command = standIn;
        item->previous = retired; // from here on `previous` chains the retired nodes
        retired = item;
    }

    void FreeRetired() {
        while (retired) {
            CItem* item = retired;
            retired = item->previous;
            delete item;
        }
    }

private:
    // Nodes of the same command stand in the order of their connection.
    using CIndex = std::multimap<const C*, CItem*>;

    static constexpr int kLongestWithoutIndex = 64;

    void BuildIndex() {
        auto built = std::make_unique<CIndex>();
        for (CItem* item = head; item; item = item->next) {
            built->emplace(item->command, item);
        }
        index = std::move(built);
    }

    // The analyser loses track of which nodes the list still holds.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete)
    void Unlink(CItem* item) {
        if (index) {
            auto entry = index->lower_bound(item->command);
            while (entry->second != item) {
                ++entry;
            }
            index->erase(entry);
        }
        (item->previous ? item->previous->next : head) = item->next;
        (item->next ? item->next->previous : tail) = item->previous;
        --count;
    }
    // NOLINTEND(clang-analyzer-cplusplus.NewDelete)

    CItem* head = nullptr;
    CItem* tail = nullptr;
    CItem* retired = nullptr;
    int count = 0;
    std::unique_ptr<CIndex> index; // null as long as the list is short
};

} // namespace Vorin::Core
