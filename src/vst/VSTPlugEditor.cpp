#include "vst/VSTPlugEditor.h"

#include <algorithm>
#include <limits>

namespace VorinExt::VSTPlugin {

namespace {

/// Hosts take sizes of 16 bits.
VstInt16 ToExtent(int pixels) {
    return static_cast<VstInt16>(std::clamp<int>(pixels, 0, std::numeric_limits<VstInt16>::max()));
}

} // namespace

VSTPlugEditor::VSTPlugEditor(AudioEffectX& hostedEffect,
                             Vorin::Audio::Plugin::IPluginGUI& pluginGUI)
    : AEffEditor(&hostedEffect), plug(hostedEffect), gui(pluginGUI) {
    gui.GetSizeChangedEvents().Connect(sizeChanged);
}

VSTPlugEditor::~VSTPlugEditor() { gui.GetSizeChangedEvents().Disconnect(sizeChanged); }

bool VSTPlugEditor::getRect(ERect** rect) {
    if (!opened) {
        open(nullptr);
    }
    const auto size = gui.GetSize();
    rectangle.top = 0;
    rectangle.left = 0;
    rectangle.right = ToExtent(size.width);
    rectangle.bottom = ToExtent(size.height);
    *rect = &rectangle;
    return true;
}

bool VSTPlugEditor::open(void* ptr) {
    systemWindow = ptr;
    gui.Open(ptr);
    gui.Show(true);
    opened = true;
    return true;
}

void VSTPlugEditor::close() {
    systemWindow = nullptr;
    gui.Close();
}

void VSTPlugEditor::OnSizeChanged() {
    if (opened) {
        const auto size = gui.GetSize();
        plug.sizeWindow(size.width, size.height);
    }
}

} // namespace VorinExt::VSTPlugin
