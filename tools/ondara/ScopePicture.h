#pragma once

#include "ScopeRun.h"

#include "graphics/DIBBitmap.h"

#include <vector>

namespace Workbench {

/// How many points of each curve a picture wants, so that its lines come out dense.
int GetPicturePoints(const Vorin::Core::C2DSize& size);

/// Draws the four curves of the plug-in, in their order: waveform and histogram of the first
/// channel above those of the second, each waveform over a grid with its level axis shared by the
/// histogram beside it. The bitmap is of 32 bits, and at least 160 pixels wide and 120 high.
void DrawScope(const std::vector<CCurve>& curves, Vorin::Graphics::CDIBBitmap& bitmap);

} // namespace Workbench
