#pragma once

#include <memory>

#include "core/EventProvider.h"
#include "core/Geometry.h"
#include "graphics/BitmapContext.h"
#include "graphics/DrawSurface.h"
#include "graphics/PixelAccess.h"

namespace Vorin::Graphics {

/// A picture in memory that can be drawn on. GUI thread only.
class IBitmap {
public:
    virtual ~IBitmap() = default;

    /// The pixels; null for a bitmap without.
    virtual const std::shared_ptr<CBitmapContext>& GetContext() const = 0;

    /// (0, 0) for a bitmap without pixels.
    virtual Core::C2DSize GetSize() const = 0;
    virtual int GetBitsPerPixel() const = 0;

    /// Sets every byte of the pixel memory to 0.
    virtual void Clear() = 0;

    /// Access to single pixels; null for a depth other than 8, 16, 24 and 32. The caller owns it.
    /// It keeps the pixels alive, unless they are somebody else's.
    virtual std::unique_ptr<IRGBPixelAccess> CreatePixelAccess() = 0;

    /// A surface that draws on the pixels, with an origin and a clip of its own: a TDIBSurface, or
    /// for a bitmap without pixels a CBitmapSurface that draws nothing. Never null; owned as the
    /// pixel access is.
    virtual std::unique_ptr<IDrawSurface> CreateSurface() = 0;

    /// Takes other pixels, or none, in the place of those it has.
    virtual void SetContext(std::shared_ptr<CBitmapContext> newContext) = 0;
};

/// One of the handles that share a bitmap: what is done to one is done to all.
class ISharedBitmap : public virtual IBitmap {
public:
    /// A further handle, owned by the caller.
    virtual std::unique_ptr<ISharedBitmap> GetSharedBitmap() = 0;

    /// Fired when the bitmap takes other pixels, and when it is cleared.
    virtual Core::IEventProvider& GetChangedEvent() = 0;

    /// How many handles there are. The pixels go with the last one.
    virtual int GetReferenceCount() const = 0;
};

/// A bitmap on a context.
class CBitmap : public virtual IBitmap {
public:
    /// Null gives a bitmap without pixels.
    explicit CBitmap(std::shared_ptr<CBitmapContext> context);
    CBitmap& operator=(const CBitmap&) = delete;

    const std::shared_ptr<CBitmapContext>& GetContext() const override { return shared->context; }
    Core::C2DSize GetSize() const override;
    /// What the context reports; 0 without.
    int GetBitsPerPixel() const override;
    void Clear() override;
    std::unique_ptr<IRGBPixelAccess> CreatePixelAccess() override;
    std::unique_ptr<IDrawSurface> CreateSurface() override;
    void SetContext(std::shared_ptr<CBitmapContext> newContext) override;

protected:
    /// What the handles of one bitmap have in common.
    struct CShared {
        Core::CEventProvider changed;
        std::shared_ptr<CBitmapContext> context;
    };

    /// A further handle.
    CBitmap(const CBitmap&) = default;
    const std::shared_ptr<CShared>& GetShared() const { return shared; }

private:
    std::shared_ptr<CShared> shared; // never null
};

/// A bitmap that hands out further handles on itself.
class CSharedBitmap : public CBitmap, public virtual ISharedBitmap {
public:
    using CBitmap::CBitmap;

    std::unique_ptr<ISharedBitmap> GetSharedBitmap() override;
    Core::IEventProvider& GetChangedEvent() override { return GetShared()->changed; }
    int GetReferenceCount() const override { return static_cast<int>(GetShared().use_count()); }
};

/// A bitmap around a context that belongs to somebody else, and is given up at destruction.
class CBitmapAdapter : public CBitmap {
public:
    using CBitmap::CBitmap;
};

} // namespace Vorin::Graphics
