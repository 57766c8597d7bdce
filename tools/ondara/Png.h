#pragma once

#include "Outcome.h"

#include "graphics/DIBBitmap.h"

#include <string>

namespace Workbench {

/// The bytes of a PNG file of a 32-bit bitmap, opaque.
COutcome EncodePng(const Vorin::Graphics::CDIBBitmap& bitmap, std::string& bytes);

} // namespace Workbench
