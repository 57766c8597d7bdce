// Image files of all kinds. The first byte says whether the file is called ".png"; the rest is what
// it holds. An image that loads is looked at, drawn and stretched.
#include "fuzz/Explore.h"
#include "graphics/DIBBitmap.h"
#include "graphics/Image.h"
#include "graphics/images/ImageFile.h"

#include <cstring>

namespace {

using namespace Vorin::Graphics;

void UseImage(const CLoadedImage& loaded) {
    const Vorin::Core::C2DSize size = loaded.image->GetSize();
    Fuzz::Require(IsBitmapSize(size));
    Fuzz::Require(loaded.image->HasAlpha() == loaded.hasAlpha);
    const auto& bitmap = loaded.image->GetBitmapContext();
    const std::uint8_t* row = bitmap->BeginReading();
    bool opaque = true;
    for (int y = 0; y < size.height; ++y, row += bitmap->GetStrideBytes()) {
        for (int x = 0; x < size.width; ++x) {
            std::uint32_t word = 0;
            std::memcpy(&word, row + 4 * static_cast<std::ptrdiff_t>(x), sizeof(word));
            const std::uint32_t alpha = word >> 24;
            Fuzz::Require((word >> 16 & 0xFF) <= alpha && (word >> 8 & 0xFF) <= alpha &&
                          (word & 0xFF) <= alpha);
            opaque = opaque && alpha == 0xFF;
        }
    }
    Fuzz::Require(opaque != loaded.hasAlpha);
    const CImage image(loaded.image);
    for (const int bits : {8, 16, 24, 32}) {
        CDIBBitmap target({37, 23}, bits);
        const auto surface = target.CreateSurface();
        surface->DrawImage(image, {size.width - 5, 0}, {3, 4}, {20, 20});
        surface->StretchImage(image, {{}, size}, {-10, 5, 90, 11});
        surface->DrawLine({0, 0}, {36, 22});
        Fuzz::Require(target.GetPixels() != nullptr);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const CLoadedImage loaded =
        data[0] % 2 == 0 ? DecodePng(data + 1, size - 1) : DecodeForeignImage(data + 1, size - 1);
    Fuzz::Require((loaded.image == nullptr) == !loaded.problem.empty());
    if (loaded.image) {
        UseImage(loaded);
    } else {
        Fuzz::Require(!loaded.hasAlpha);
    }
    return 0;
}
