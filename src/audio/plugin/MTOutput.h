#pragma once

#include "system/RealtimeEventProvider.h"

#include <utility>

namespace Vorin::Audio::Plugin {

/// One output of the filter, as the readers on other threads see it: a borrowed pointer to what the
/// filter published, and an event for its changes. T is what it points at.
///
/// The value belongs to the outputs lock of the internals: whoever reads it, or what it points at,
/// holds that lock. The listeners belong to a lock of the object's own; they are notified under it,
/// on the thread that transfers, and must not wait.
template <class T>
class TMTOutput {
public:
    /// Under the outputs lock. Null until the first transfer.
    const T* GetValue() const { return value; }

    /// Under the outputs lock: takes a new value, and marks the object for NotifyIfMarked.
    void SetValue(const T* newValue) {
        value = newValue;
        marked = true;
    }

    /// Under the outputs lock: takes an equal value from another place, which is no change.
    void Replace(const T* equalValue) { value = equalValue; }

    /// [any]
    void Connect(Core::ICommand& command) { changed.Connect(command); }
    /// The command is not running, and will not run, once this returns; unless called by itself.
    /// [any]
    void Disconnect(Core::ICommand& command) { changed.Disconnect(command); }

    /// Tells the listeners of a marked object; those of one that is being connected to just now are
    /// told next time. Never waits. [audio]
    void NotifyIfMarked() {
        if (std::exchange(marked, false)) {
            changed.Notify();
        } else {
            changed.NotifyIfKept();
        }
    }

private:
    const T* value = nullptr;
    bool marked = false;
    System::CRealtimeEventProvider changed;
};

} // namespace Vorin::Audio::Plugin
