#include "serialization/IncrementalHistoryManager.h"

#include <iterator>
#include <utility>

namespace Vorin::Serialization {

bool CIncrementalHistoryManager::CanRedo() const {
    return current != entries.end() && std::next(current) != entries.end();
}

bool CIncrementalHistoryManager::CanUndo() const {
    return current != entries.end() && current != entries.begin();
}

const CIncrementalMemDataObject* CIncrementalHistoryManager::GetCurrent() const {
    return entries.empty() ? nullptr : current->get();
}

void CIncrementalHistoryManager::WriteRoot(CIncrementalMemDataObject& snapshot) {
    busy = true;
    static_cast<void>(root->Serialize(snapshot));
    busy = false;
    snapshot.ShareWithPrevious();
}

void CIncrementalHistoryManager::ReadRoot(const CIncrementalMemDataObject& snapshot) {
    busy = true;
    static_cast<void>(root->DeSerialize(snapshot));
    busy = false;
}

void CIncrementalHistoryManager::MoveTo(Entries::iterator target) {
    if (!partialRestore) {
        current = target;
        ReadRoot(**current);
        return;
    }
    CIncrementalMemDataObject difference;
    const bool areNeighbours = difference.SetDifference(**current, **target);
    current = target;
    if (areNeighbours) {
        ReadRoot(difference);
    }
}

void CIncrementalHistoryManager::Redo() {
    if (!IsIdle() || !CanRedo()) {
        return;
    }
    const bool couldUndo = CanUndo();
    MoveTo(std::next(current));
    if (!CanRedo()) {
        redoChanged.Notify();
    }
    if (!couldUndo) {
        undoChanged.Notify();
    }
}

void CIncrementalHistoryManager::Undo() {
    if (!IsIdle() || !CanUndo()) {
        return;
    }
    const bool couldRedo = CanRedo();
    MoveTo(std::prev(current));
    if (!CanUndo()) {
        undoChanged.Notify();
    }
    if (!couldRedo) {
        redoChanged.Notify();
    }
}

void CIncrementalHistoryManager::TakeSnapshot() {
    if (!IsIdle()) {
        return;
    }
    const bool couldUndo = CanUndo();
    const bool couldRedo = CanRedo();
    auto snapshot = std::make_unique<CIncrementalMemDataObject>(GetCurrent());
    WriteRoot(*snapshot);
    if (snapshot->IsUnchanged()) {
        return;
    }
    if (current != entries.end()) {
        entries.erase(std::next(current), entries.end());
    }
    entries.push_back(std::move(snapshot));
    current = std::prev(entries.end());
    DropOldest();
    const bool undoDiffers = CanUndo() != couldUndo;
    historyChanged.Notify();
    if (undoDiffers) {
        undoChanged.Notify();
    }
    if (couldRedo) {
        redoChanged.Notify();
    }
}

// One at most, unless the limit was lowered. A limit of 0 lets go of the current one too.
void CIncrementalHistoryManager::DropOldest() {
    while (maxCount >= 0 && GetCount() > maxCount) {
        const bool dropsCurrent = current == entries.begin();
        entries.pop_front();
        if (dropsCurrent) {
            current = entries.begin();
        }
        if (!entries.empty()) {
            entries.front()->Detach();
        }
    }
}

void CIncrementalHistoryManager::UpdateCurrent() {
    if (entries.empty()) {
        TakeSnapshot();
    } else if (IsIdle()) {
        static_cast<void>((*current)->Clear());
        WriteRoot(**current);
    }
}

void CIncrementalHistoryManager::Clear() {
    if (busy) {
        return;
    }
    const bool couldUndo = CanUndo();
    const bool couldRedo = CanRedo();
    entries.clear();
    current = entries.end();
    if (couldRedo) {
        redoChanged.Notify();
    }
    if (couldUndo) {
        undoChanged.Notify();
    }
}

} // namespace Vorin::Serialization
