#include "core/EventProvider.h"

#include <limits>

namespace Vorin::Core {

CEventProvider::CEventProvider(const CEventProvider&) : IEventProvider(), INotify() {}

CEventProvider& CEventProvider::operator=(const CEventProvider&) { return *this; }

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
        commands.Unlink(item);
    }
    if (destroy) {
        // Cleared first: the caller's pointer may be a member of what dies here.
        ICommand* doomed = command;
        command = nullptr;
        delete doomed;
    }
}

// Leaves the cursor alone, deliberately: a walk that stands before a removed node passes over it,
// since the list keeps the node, without its command, until the walk is through.
void CEventProvider::Disconnect(ICommand& command) { commands.UnlinkAll(&command); }

void CEventProvider::Notify() {
    if (!enabled) {
        if (pendingCount < std::numeric_limits<int>::max()) {
            ++pendingCount;
        }
        return;
    }
    const TCommandList<ICommand>::CWalk walk(commands);
    cursor = commands.GetHead();
    while (cursor) {
        CItem* node = cursor;
        cursor = node->next;
        if (!node->running && node->command) {
            node->running = true;
            node->command->Execute();
            node->running = false;
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
