#pragma once

#include "serialization/HistoryManager.h"
#include "serialization/IncrementalMemDataObject.h"
#include "serialization/Serializable.h"

#include <list>
#include <memory>

namespace Vorin::Serialization {

/// The undo history of one serializable object, the root, whose snapshots share what they have in
/// common: a step costs what it changed. One thread.
///
/// Events are sent when all is done; a listener may call anything here. What the root calls here
/// while it is being written or read does nothing: undoing a step must not record one. The root's
/// own results are not looked at: what it could not write is not part of the step, and what it
/// could not read stays as it is.
class CIncrementalHistoryManager : public virtual IHistoryManager {
public:
    /// `serializedRoot` stays the caller's and outlives every call; without one, that is null,
    /// nothing is ever recorded.
    explicit CIncrementalHistoryManager(ISerializable* serializedRoot) : root(serializedRoot) {}

    CIncrementalHistoryManager(const CIncrementalHistoryManager&) = delete;
    CIncrementalHistoryManager& operator=(const CIncrementalHistoryManager&) = delete;

    bool CanRedo() const override;
    bool CanUndo() const override;

    /// Sends redo changed when this was the last step, then undo changed when there was none.
    void Redo() override;

    /// Sends undo changed when this was the first step, then redo changed when there was none.
    void Undo() override;

    /// The first snapshot always is an entry, though no step to undo. Sends history changed, then
    /// undo changed and redo changed where the answer is another one.
    void TakeSnapshot() override;

    /// What can be redone stays. Takes a snapshot when there is none. Sends nothing otherwise.
    void UpdateCurrent() override;

    /// Sends redo changed when redo was possible, then undo changed when undo was.
    void Clear() override;

    Core::IEventProvider& GetRedoChangedEvents() const override { return redoChanged; }
    Core::IEventProvider& GetUndoChangedEvents() const override { return undoChanged; }
    Core::IEventProvider& GetHistoryChangedEvents() const override { return historyChanged; }

    /// How many snapshots are kept, the oldest going first; -1 and any other negative count for no
    /// limit. A lower limit takes effect with the next snapshot.
    void SetMaxCount(int newMaxCount) { maxCount = newMaxCount < 0 ? -1 : newMaxCount; }
    int GetMaxCount() const { return maxCount; }

    /// True: `Undo` and `Redo` give the root only the values that differ between the two snapshots,
    /// so that what was never part of a step is left alone. False, as it starts: all values.
    void SetPartialRestore(bool isPartial) { partialRestore = isPartial; }
    bool IsPartialRestore() const { return partialRestore; }

    int GetCount() const { return static_cast<int>(entries.size()); }

    /// The snapshot the root stands at, valid until the history changes; null when it is empty.
    const CIncrementalMemDataObject* GetCurrent() const;

private:
    // Each one's `previous` is the one before it in the list, null for the first.
    using Entries = std::list<std::unique_ptr<CIncrementalMemDataObject>>;

    bool IsIdle() const { return root && !busy; }
    void WriteRoot(CIncrementalMemDataObject& snapshot);
    void ReadRoot(const CIncrementalMemDataObject& snapshot);
    void MoveTo(Entries::iterator target);
    void DropOldest();

    ISerializable* root;
    Entries entries;
    Entries::iterator current = entries.end(); // the end when there are no entries
    mutable Core::CEventProvider undoChanged;
    mutable Core::CEventProvider redoChanged;
    mutable Core::CEventProvider historyChanged;
    int maxCount = -1;
    bool partialRestore = false;
    bool busy = false; // the root is being written or read
};

} // namespace Vorin::Serialization
