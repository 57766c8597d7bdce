#pragma once

#include <cassert>

namespace Vorin::Core {

/// The listener list of an event provider: doubly linked nodes in connection order.
///
/// A walk over the list runs foreign code at each node, and that code may unlink any node, the one
/// it was called from included. So a node unlinked during a walk is not freed at once: it loses
/// its command, keeps its `next`, and is freed when the outermost walk ends. Whoever still stands
/// on it can go on to the rest of the list.
///
/// `C` is the command type. One thread; commands are not owned; only `Append` allocates.
template <class C>
class TCommandList {
public:
    struct CItem {
        C* command = nullptr; // null once the node is unlinked
        bool running = false; // the command is being executed by a walk
        CItem* previous = nullptr;
        CItem* next = nullptr;
    };

    /// Brackets a walk: nodes outlive their removal until the outermost bracket closes.
    class CWalk {
    public:
        explicit CWalk(TCommandList& walked) : list(walked) { ++list.walks; }
        ~CWalk() {
            if (--list.walks == 0 && list.retired) {
                list.FreeRetired();
            }
        }
        CWalk(const CWalk&) = delete;
        CWalk& operator=(const CWalk&) = delete;

    private:
        TCommandList& list;
    };

    TCommandList() = default;
    TCommandList(const TCommandList&) = delete;
    TCommandList& operator=(const TCommandList&) = delete;

    ~TCommandList() {
        assert(walks == 0 && "a provider must not be destroyed by its own listener");
        while (head) {
            Unlink(head);
        }
        FreeRetired();
    }

    CItem* GetHead() const { return head; }

    void Append(C* command) {
        CItem* item = new CItem{command, false, tail, nullptr};
        (tail ? tail->next : head) = item;
        tail = item;
    }

    /// The first node with `command`, or null.
    CItem* Find(const C* command) const {
        CItem* item = head;
        while (item && item->command != command) {
            item = item->next;
        }
        return item;
    }

    void Unlink(CItem* item) {
        (item->previous ? item->previous->next : head) = item->next;
        (item->next ? item->next->previous : tail) = item->previous;
        if (walks == 0) {
            delete item;
            return;
        }
        item->command = nullptr;
        item->previous = retired; // from here on `previous` chains the retired nodes
        retired = item;
    }

    void UnlinkAll(const C* command) {
        CItem* item = head;
        while (item) {
            CItem* next = item->next;
            if (item->command == command) {
                Unlink(item);
            }
            item = next;
        }
    }

private:
    void FreeRetired() {
        while (retired) {
            CItem* item = retired;
            retired = item->previous;
            delete item;
        }
    }

    CItem* head = nullptr;
    CItem* tail = nullptr;
    CItem* retired = nullptr;
    int walks = 0;
};

} // namespace Vorin::Core
