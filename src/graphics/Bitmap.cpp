#include "graphics/Bitmap.h"

#include <utility>

#include "graphics/BitmapSurface.h"
#include "graphics/DIBIterator.h"
#include "graphics/DIBPixelAccess.h"
#include "graphics/DIBSurface.h"

namespace Vorin::Graphics {

CBitmap::CBitmap(std::shared_ptr<CBitmapContext> context) : shared(std::make_shared<CShared>()) {
    shared->context = std::move(context);
}

Core::C2DSize CBitmap::GetSize() const {
    return shared->context ? shared->context->GetSize() : Core::C2DSize{};
}

int CBitmap::GetBitsPerPixel() const {
    return shared->context ? shared->context->GetBitsPerPixel() : 0;
}

void CBitmap::Clear() {
    if (shared->context) {
        shared->context->Clear();
        shared->changed.Notify();
    }
}

std::unique_ptr<IRGBPixelAccess> CBitmap::CreatePixelAccess() {
    const std::optional<EPixelFormat> format =
        shared->context ? shared->context->GetFormat()
                        : CBitmapContext::GetFormatOfDepth(GetBitsPerPixel());
    if (!format) {
        return nullptr;
    }
    return WithIterator(*format,
                        [this]<class Iterator>(Iterator) -> std::unique_ptr<IRGBPixelAccess> {
                            return std::make_unique<TDIBPixelAccess<Iterator>>(shared->context);
                        });
}

std::unique_ptr<IDrawSurface> CBitmap::CreateSurface() {
    if (!shared->context) {
        return std::make_unique<CBitmapSurface>(nullptr);
    }
    return WithIterator(shared->context->GetFormat(),
                        [this]<class Iterator>(Iterator) -> std::unique_ptr<IDrawSurface> {
                            return std::make_unique<TDIBSurface<Iterator>>(shared->context);
                        });
}

void CBitmap::SetContext(std::shared_ptr<CBitmapContext> newContext) {
    if (shared->context != newContext) {
        shared->context = std::move(newContext);
        shared->changed.Notify();
    }
}

std::unique_ptr<ISharedBitmap> CSharedBitmap::GetSharedBitmap() {
    return std::unique_ptr<ISharedBitmap>(new CSharedBitmap(*this));
}

} // namespace Vorin::Graphics
