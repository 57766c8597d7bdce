#pragma once

namespace Vorin::Core {

/// The listener list of an event provider: doubly linked nodes in the order of connection.
///
/// A walk over the list runs foreign code at each node, and that code may take out any node, the
/// one it was called from included. So during a walk a node is retired instead of freed: it leaves
/// the list but keeps its `next`, and whoever stands on it can go on to the rest of the list. The
/// provider frees the retired nodes when its outermost walk has ended.
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
        while (head) {
            Free(head);
        }
        FreeRetired();
    }

    CItem* GetHead() const { return head; }

    void Append(C* command) {
        CItem* item = new CItem{command, false, tail, nullptr};
        (tail ? tail->next : head) = item;
        tail = item;
    }

    /// The first node from `item` on with `command`, or null.
    static CItem* Find(CItem* item, const C* command) {
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
    // The analyser loses track of which nodes the list still holds.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete)
    void Unlink(CItem* item) {
        (item->previous ? item->previous->next : head) = item->next;
        (item->next ? item->next->previous : tail) = item->previous;
    }
    // NOLINTEND(clang-analyzer-cplusplus.NewDelete)

    CItem* head = nullptr;
    CItem* tail = nullptr;
    CItem* retired = nullptr;
};

} // namespace Vorin::Core
