#pragma once

#include "core/EventProvider.h"

namespace Vorin::Serialization {

/// An undo history: steps back and forth through recorded states. One thread.
class IHistoryManager {
public:
    virtual bool CanRedo() const = 0;
    virtual bool CanUndo() const = 0;

    /// Does nothing when `CanRedo` is false.
    virtual void Redo() = 0;

    /// Does nothing when `CanUndo` is false.
    virtual void Undo() = 0;

    /// Records the state as a new step, in place of all that could be redone. Does nothing when
    /// nothing changed.
    virtual void TakeSnapshot() = 0;

    /// Records the state in place of the present step, for changes that are no step of their own.
    virtual void UpdateCurrent() = 0;

    /// Forgets all steps.
    virtual void Clear() = 0;

    /// Notified when `CanRedo` has changed.
    virtual Core::IEventProvider& GetRedoChangedEvents() const = 0;

    /// Notified when `CanUndo` has changed.
    virtual Core::IEventProvider& GetUndoChangedEvents() const = 0;

    virtual ~IHistoryManager() = default;

    /// Notified when there is a new step.
    virtual Core::IEventProvider& GetHistoryChangedEvents() const = 0;
};

} // namespace Vorin::Serialization
