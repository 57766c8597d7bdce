#pragma once

#include "audio/plugin/AudioPluginInternals.h"
#include "vst/interface/Abi.h"

namespace VorinExt::VSTPlugin {

/// The product that this library is: what stands in no other folder.

/// Tells the plug-in apart from all others of a host.
constexpr VstInt32 kUniqueID = 'k' << 24 | '7' << 16 | 'q' << 8 | 'z';

/// A new filter tree, the product's names, and no editor.
Vorin::Audio::Plugin::CAudioPluginConfig CreateProductConfig();

/// The global settings and files of all instances of this library in the process.
Vorin::Audio::Plugin::IStaticSettings& GetStaticSettings();

} // namespace VorinExt::VSTPlugin
