#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/Geometry.h"
#include "graphics/DIBSurface.h"

namespace Vorin::Graphics::Testing {

// Pixel memory between two zones of a known pattern, with a surface drawing on it: what is written
// outside the memory shows.
template <class Iterator>
class TGuardedMemory {
public:
    using Unit = typename Iterator::Unit;

    explicit TGuardedMemory(const Core::C2DSize& pictureSize)
        : size(pictureSize), stride(Iterator::GetStride(size.width)),
          units(kGuard + static_cast<std::size_t>(stride * size.height) + kGuard, kPattern),
          surface(units.data() + kGuard, size) {}

    // Sets the pixel memory to a picture.
    void SetBytes(const std::vector<std::uint8_t>& bytes) {
        std::copy(bytes.begin(), bytes.end(), GetBitmapContext().BeginPixels({{}, size}));
    }
    std::vector<std::uint8_t> GetBytes() {
        const std::uint8_t* bytes = GetBitmapContext().BeginReading();
        return {bytes, bytes + GetByteCount()};
    }
    std::size_t GetByteCount() const {
        return static_cast<std::size_t>(stride * size.height) * sizeof(Unit);
    }

    bool AreGuardsIntact() const {
        const auto isIntact = [](Unit unit) { return unit == kPattern; };
        return std::all_of(units.begin(), units.begin() + kGuard, isIntact) &&
               std::all_of(units.end() - kGuard, units.end(), isIntact);
    }

    TDIBSurface<Iterator>& GetSurface() { return surface; }

private:
    static constexpr std::ptrdiff_t kGuard = 4096;
    static constexpr Unit kPattern = static_cast<Unit>(0xA5C3A5C3);

    CBitmapContext& GetBitmapContext() { return *surface.GetContext()->GetBitmapContext(); }

    Core::C2DSize size;
    int stride;
    std::vector<Unit> units;
    TDIBSurface<Iterator> surface;
};

} // namespace Vorin::Graphics::Testing
