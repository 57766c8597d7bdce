#pragma once

#include "vst/interface/Abi.h"

namespace VorinExt::VSTPlugin {

/// A version text as the number that hosts compare: "2.0" is 2000, "2.0.1" is 2001. The first part
/// counts thousands; each further one has the digits behind those before it. Not a version: 0.
VstInt32 ToVendorVersion(const char* version);

} // namespace VorinExt::VSTPlugin
