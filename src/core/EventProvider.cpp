#include "core/EventProvider.h"

#include "core/EmptyCommand.h"

#include <cassert>
#include <limits>

namespace Vorin::Core {

CEventProvider::CEventProvider(const CEventProvider&) : IEventProvider(), INotify() {}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is assigned.
CEventProvider& CEventProvider::operator=(const CEventProvider&) { return *this; }

CEventProvider::~CEventProvider() {
    assert(!current && "a listener must not destroy the provider that runs it");
}

void CEventProvider::Connect(ICommand* command) {
    assert(command);
    commands.Append(command);
}

void CEventProvider::Connect(ICommand& command) { commands.Append(&command); }

void CEventProvider::Disconnect(ICommand*& command, bool destroy) {
    if (!command) {
        return;
    }
    if (CItem* item = commands.Find(command)) {
        if (cursor == item) {
            cursor = item->next;
        }
        TakeOut(item);
    }
    if (destroy) {
        // Cleared first: the caller's pointer may be a member of what dies here.
        ICommand* doomed = command;
        command = nullptr;
        delete doomed;
    }
}

// Leaves the cursor alone, deliberately: a walk that stands before a node taken out here still
// visits it, finds nothing to do there, and goes on behind it.
void CEventProvider::Disconnect(ICommand& command) {
    while (CItem* const item = commands.Find(&command)) {
        TakeOut(item);
    }
}

void CEventProvider::TakeOut(CItem* item) {
    if (current) {
        commands.Retire(item, &GetEmptyCommand());
    } else {
        commands.Free(item);
    }
}

[[gnu::aligned(64)]] void CEventProvider::Notify() {
    if (!enabled) {
        if (pendingCount < std::numeric_limits<int>::max()) {
            ++pendingCount;
        }
        return;
    }
    if (CItem* const outer = current) {
        outer->running = true;
        WalkNested();
        outer->running = false;
        current = outer;
    } else {
        WalkOutermost();
        current = nullptr;
        commands.FreeRetired();
    }
}

// No command is running when this walk starts, and it meets no node twice: it need not ask.
// As long as the listeners leave the cursor alone, the way from node to node is the local `next`;
// reading the cursor back from memory at each step costs a third of the walk.
void CEventProvider::WalkOutermost() {
    cursor = commands.GetHead();
    while (cursor) {
        CItem* node = cursor;
        do {
            CItem* const next = node->next;
            cursor = next;
            current = node;
            node->command->Execute();
            node = next;
        } while (node && cursor == node);
    }
}

void CEventProvider::WalkNested() {
    cursor = commands.GetHead();
    while (cursor) {
        CItem* const node = cursor;
        cursor = node->next;
        if (!node->running) {
            current = node;
            node->command->Execute();
        }
    }
}

void CEventProvider::SetEnabled(bool enable) {
    if (enable == enabled) {
        return;
    }
    enabled = enable;
    if (enabled) {
        pendingCount = 0;
    }
}

} // namespace Vorin::Core
