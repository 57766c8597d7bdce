#pragma once

#include "audio/plugin/PluginGUI.h"
#include "core/Command.h"
#include "vst/interface/AudioEffect.h"
#include "vst/interface/Editor.h"

namespace VorinExt::VSTPlugin {

/// The host's end of the display: hands the host's window on to it, and asks the host for another
/// size when it wants one. [gui]
class VSTPlugEditor : public AEffEditor {
public:
    /// Both are borrowed and outlive the editor.
    VSTPlugEditor(AudioEffectX& hostedEffect, Vorin::Audio::Plugin::IPluginGUI& pluginGUI);
    ~VSTPlugEditor() override;

    /// The size is known only once the display stands: it is opened in a window of its own for
    /// that, if need be.
    bool getRect(ERect** rect) override;
    bool open(void* ptr) override;
    void close() override;

private:
    void OnSizeChanged();

    AudioEffectX& plug;
    Vorin::Audio::Plugin::IPluginGUI& gui;
    ERect rectangle{};
    bool opened = false; // once; a display that was closed has a size still
    Vorin::Core::TCommand<VSTPlugEditor> sizeChanged{this, &VSTPlugEditor::OnSizeChanged};
};

} // namespace VorinExt::VSTPlugin
