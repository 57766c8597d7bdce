#pragma once

#include "SkinEngine/Model/SkinCollectionItem.h"
#include "core/Command.h"
#include "system/TimerProvider.h"

#include <memory>
#include <utility>
#include <vector>

namespace Vorin::AppEngine {

/// Items that a collection has let go of, until nobody is inside them any more.
///
/// What an item's object tells may be what makes the item go: its event is on the stack then, and
/// must not die under it. So items live on, disconnected, until the next tick of a timer.
class CRetiredItems {
public:
    explicit CRetiredItems(System::ITimerProvider& timerProvider) : timers(timerProvider) {}
    ~CRetiredItems() { timers.RemoveTimer(&tick, false); }

    CRetiredItems(const CRetiredItems&) = delete;
    CRetiredItems& operator=(const CRetiredItems&) = delete;

    void Add(std::unique_ptr<ISkinCollectionItem> item) {
        if (items.empty()) {
            timers.AddTimer(1, &tick);
        }
        items.push_back(std::move(item));
    }

    /// Destroys them now: nobody is inside them.
    void Clear() {
        timers.RemoveTimer(&tick, false);
        // Out of reach first: an item may have collections, whose items come here.
        const std::vector<std::unique_ptr<ISkinCollectionItem>> going = std::exchange(items, {});
    }

    int GetCount() const { return static_cast<int>(items.size()); }

private:
    System::ITimerProvider& timers;
    std::vector<std::unique_ptr<ISkinCollectionItem>> items;
    Core::TCommand<CRetiredItems> tick{this, &CRetiredItems::Clear};
};

} // namespace Vorin::AppEngine
