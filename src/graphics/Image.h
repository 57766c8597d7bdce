#pragma once

#include <memory>
#include <utility>

#include "core/EventProvider.h"
#include "core/Geometry.h"
#include "graphics/PlatformImage.h"

namespace Vorin::Graphics {

class ISharedImage;

/// A picture to be drawn: one of the handles that share a platform image. GUI thread only.
class IImage {
public:
    /// Null for an image without pixels. Lives as long as a handle holds it.
    virtual const std::shared_ptr<CPlatformImage>& GetPlatformImage() const = 0;

    /// (0, 0) for an image without pixels.
    virtual Core::C2DSize GetSize() const = 0;
    /// 0 for an image without pixels.
    virtual int GetBitsPerPixel() const = 0;

    virtual ~IImage() = default;

    /// A further handle on the same image, owned by the caller.
    virtual std::unique_ptr<IImage> Clone() const = 0;
    /// The same, as the form that shows who shares it.
    virtual std::unique_ptr<ISharedImage> GetSharedImage() const = 0;
};

/// A handle that shows what the handles of an image have in common.
class ISharedImage : public virtual IImage {
public:
    /// Fired when the handles get another platform image.
    virtual Core::IEventProvider& GetChangedEvent() = 0;

    /// How many handles there are. The pixels go with the last one.
    virtual int GetReferenceCount() const = 0;
};

/// A handle on an image.
class CImage : public virtual IImage {
public:
    /// The first handle. Null gives an image without pixels.
    explicit CImage(std::shared_ptr<CPlatformImage> platformImage);
    CImage& operator=(const CImage&) = delete;

    const std::shared_ptr<CPlatformImage>& GetPlatformImage() const override {
        return shared->image;
    }
    Core::C2DSize GetSize() const override;
    int GetBitsPerPixel() const override;
    std::unique_ptr<IImage> Clone() const override;
    std::unique_ptr<ISharedImage> GetSharedImage() const override;

    /// Gives all handles another platform image, or none.
    void SetPlatformImage(std::shared_ptr<CPlatformImage> platformImage);

protected:
    /// What the handles of one image have in common.
    struct CShared {
        Core::CEventProvider changed;
        std::shared_ptr<CPlatformImage> image;
    };

    /// A further handle.
    CImage(const CImage&) = default;
    const std::shared_ptr<CShared>& GetShared() const { return shared; }

private:
    std::shared_ptr<CShared> shared; // never null
};

class CSharedImage : public CImage, public virtual ISharedImage {
public:
    using CImage::CImage;

    Core::IEventProvider& GetChangedEvent() override { return GetShared()->changed; }
    int GetReferenceCount() const override { return static_cast<int>(GetShared().use_count()); }

private:
    friend class CImage;
    explicit CSharedImage(const CImage& other) : CImage(other) {}
};

} // namespace Vorin::Graphics
