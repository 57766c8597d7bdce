#pragma once

#include "core/Capture.h"

namespace Vorin::DataModel::Controls {

/// The hold that one control has on its target: taken and let go once, handed on when the control
/// gets another target, and let go when the control dies in the middle of a gesture.
class CTargetHold {
public:
    /// The target outlives the hold, or its stay here.
    explicit CTargetHold(Core::ICapture& first) : target(&first) {}
    ~CTargetHold() { Release(); }

    CTargetHold(const CTargetHold&) = delete;
    CTargetHold& operator=(const CTargetHold&) = delete;

    bool IsHeld() const { return held; }

    void Capture() {
        if (!held) {
            held = true;
            target->Capture();
        }
    }

    void Release() {
        if (held) {
            held = false;
            target->Release();
        }
    }

    void MoveTo(Core::ICapture& next) {
        if (&next == target) {
            return;
        }
        const bool wasHeld = held;
        Release();
        target = &next;
        if (wasHeld) {
            Capture();
        }
    }

private:
    Core::ICapture* target;
    bool held = false;
};

} // namespace Vorin::DataModel::Controls
