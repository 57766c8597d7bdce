#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "containers/TextMap.h"
#include "graphics/Image.h"

namespace Vorin::Graphics {

/// The images of a process by the path of their files: each file is decoded once, and whoever asks
/// for it gets a handle on the same pixels.
///
/// GUI thread only. A file that cannot be loaded is remembered too, so that it is tried once, until
/// ReleaseUnused.
class CGraphicResourcesManager {
public:
    /// The images together may not take more bytes than this; one that would is not loaded.
    static constexpr std::int64_t kMaxDecodedBytes = std::int64_t{256} * 1024 * 1024;

    CGraphicResourcesManager() = default;
    ~CGraphicResourcesManager();
    CGraphicResourcesManager(const CGraphicResourcesManager&) = delete;
    CGraphicResourcesManager& operator=(const CGraphicResourcesManager&) = delete;

    /// A handle on the image of a file, owned by the caller; null when the path is null or empty,
    /// or the file cannot be loaded. `hasAlpha`: whether some pixel is not fully opaque.
    std::unique_ptr<IImage> GetImage(const char* path, bool& hasAlpha);

    /// A handle on an image of its own with the same picture, premultiplied on black and with its
    /// alpha, made when first asked for. Null as above.
    std::unique_ptr<IImage> GetAlphaImage(const char* path);

    /// Why there is no image of this path, to stand behind the path in a message; empty when there
    /// is one, or nobody has asked for it.
    std::string GetProblem(const char* path) const;

    /// Forgets the images that nobody but the manager holds; with `force` all, whose pixels then go
    /// with their last handle.
    void ReleaseUnused(bool force);

    /// The images held, derived ones included, and what their pixels take.
    int GetImagesCount() const;
    std::int64_t GetDecodedBytes() const { return decodedBytes; }
    /// How often a file was read so far.
    int GetLoadsCount() const { return loadsCount; }

private:
    struct CEntry {
        std::unique_ptr<ISharedImage> image; // null: it could not be loaded
        bool hasAlpha = false;
        std::string problem;
    };
    using CEntries = Containers::TTextMap<CEntry>;

    CEntry& ObtainImage(const char* path);
    CEntry& ObtainAlphaImage(const char* path);
    /// Stores an image; one that does not fit is refused.
    void Store(CEntry& entry, std::shared_ptr<CPlatformImage> image, bool hasAlpha);
    void ReleaseFrom(CEntries& entries, bool force);

    CEntries images;
    CEntries alphaImages; // by path and ":alpha"
    std::int64_t decodedBytes = 0;
    int loadsCount = 0;
};

} // namespace Vorin::Graphics
