#pragma once

#include "vst/interface/Abi.h"

namespace VorinExt::VSTPlugin {

class AudioEffect;

/// The editor of an effect, in a window of the host. [gui]
///
/// The effect that has it by `setEditor` owns it. A base to derive from: it shows nothing.
class AEffEditor {
public:
    /// The effect is not owned; it may be null.
    explicit AEffEditor(AudioEffect* ownEffect = nullptr) : effect(ownEffect) {}
    AEffEditor(const AEffEditor&) = delete;
    AEffEditor& operator=(const AEffEditor&) = delete;
    virtual ~AEffEditor() = default;

    virtual AudioEffect* getEffect() { return effect; }

    /// Gives a rectangle that lives until the next call; hosts ask before and after `open`.
    virtual bool getRect(ERect** rect) {
        *rect = nullptr;
        return false;
    }

    /// `ptr` is the parent window: on this platform its number, as a pointer.
    virtual bool open(void* ptr) {
        systemWindow = ptr;
        return false;
    }
    virtual void close() { systemWindow = nullptr; }
    virtual bool isOpen() { return systemWindow != nullptr; }

    /// Called by the host many times a second while the editor is open.
    virtual void idle() {}

    /// True when the key was used: the host leaves it alone then.
    virtual bool onKeyDown(VstKeyCode&) { return false; }
    virtual bool onKeyUp(VstKeyCode&) { return false; }
    virtual bool onWheel(float) { return false; }

    /// An VstKnobMode; true when it was taken over.
    virtual bool setKnobMode(VstInt32) { return false; }

    // Out of use since 2.4, still asked by old hosts.
    virtual void draw(ERect*) {}
    virtual VstInt32 mouse(VstInt32, VstInt32) { return 0; }
    virtual VstInt32 key(VstInt32) { return 0; }
    virtual void top() {}
    virtual void sleep() {}

protected:
    AudioEffect* effect;
    void* systemWindow = nullptr;
};

} // namespace VorinExt::VSTPlugin
