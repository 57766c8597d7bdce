#include "graphics/Image.h"

namespace Vorin::Graphics {

CImage::CImage(std::shared_ptr<CPlatformImage> platformImage)
    : shared(std::make_shared<CShared>()) {
    shared->image = std::move(platformImage);
}

Core::C2DSize CImage::GetSize() const {
    return shared->image ? shared->image->GetSize() : Core::C2DSize{};
}

int CImage::GetBitsPerPixel() const { return shared->image ? shared->image->GetBitsPerPixel() : 0; }

std::unique_ptr<IImage> CImage::Clone() const { return std::unique_ptr<IImage>(new CImage(*this)); }

std::unique_ptr<ISharedImage> CImage::GetSharedImage() const {
    return std::unique_ptr<ISharedImage>(new CSharedImage(*this));
}

void CImage::SetPlatformImage(std::shared_ptr<CPlatformImage> platformImage) {
    if (shared->image != platformImage) {
        shared->image = std::move(platformImage);
        shared->changed.Notify();
    }
}

} // namespace Vorin::Graphics
