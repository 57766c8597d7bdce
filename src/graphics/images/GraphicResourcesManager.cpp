#include "graphics/images/GraphicResourcesManager.h"

#include <utility>
#include <vector>

#include "graphics/DIBBitmap.h"
#include "graphics/images/ImageFile.h"

namespace Vorin::Graphics {

namespace {

std::int64_t GetPixelBytes(const IImage& image) {
    const std::shared_ptr<CPlatformImage>& pixels = image.GetPlatformImage();
    return pixels ? static_cast<std::int64_t>(pixels->GetBitmapContext()->GetByteCount()) : 0;
}

bool IsNoPath(const char* path) { return !path || *path == '\0'; }

} // namespace

CGraphicResourcesManager::~CGraphicResourcesManager() { ReleaseUnused(true); }

std::unique_ptr<IImage> CGraphicResourcesManager::GetImage(const char* path, bool& hasAlpha) {
    hasAlpha = false;
    if (IsNoPath(path)) {
        return nullptr;
    }
    const CEntry& entry = ObtainImage(path);
    hasAlpha = entry.hasAlpha;
    return entry.image ? entry.image->Clone() : nullptr;
}

std::unique_ptr<IImage> CGraphicResourcesManager::GetAlphaImage(const char* path) {
    if (IsNoPath(path)) {
        return nullptr;
    }
    const CEntry& entry = ObtainAlphaImage(path);
    return entry.image ? entry.image->Clone() : nullptr;
}

std::string CGraphicResourcesManager::GetProblem(const char* path) const {
    const CEntries::CEntry* found = IsNoPath(path) ? nullptr : images.Find(path);
    return found ? found->value.problem : std::string();
}

CGraphicResourcesManager::CEntry& CGraphicResourcesManager::ObtainImage(const char* path) {
    if (CEntries::CEntry* found = images.Find(path)) {
        return found->value;
    }
    CEntry& entry = images.Obtain(path).value;
    CLoadedImage loaded = LoadImageFile(path);
    ++loadsCount;
    entry.problem = std::move(loaded.problem);
    if (loaded.image) {
        Store(entry, std::move(loaded.image), loaded.hasAlpha);
    }
    return entry;
}

CGraphicResourcesManager::CEntry& CGraphicResourcesManager::ObtainAlphaImage(const char* path) {
    const std::string key = std::string(path) + ":alpha";
    if (CEntries::CEntry* found = alphaImages.Find(key.c_str())) {
        return found->value;
    }
    CEntry& entry = alphaImages.Obtain(key.c_str()).value;
    const CEntry& original = ObtainImage(path);
    entry.problem = original.problem;
    if (original.image) {
        CDIBBitmap bitmap(original.image->GetSize(), 32);
        bitmap.CreateSurface()->DrawImage(*original.image, {}, {}, original.image->GetSize());
        Store(entry, CPlatformImage::Create(bitmap.GetContext(), !original.hasAlpha),
              original.hasAlpha);
    }
    return entry;
}

void CGraphicResourcesManager::Store(CEntry& entry, std::shared_ptr<CPlatformImage> image,
                                     bool hasAlpha) {
    auto handle = std::make_unique<CSharedImage>(std::move(image));
    const std::int64_t bytes = GetPixelBytes(*handle);
    if (bytes == 0) {
        entry.problem = "cannot be shown: there is no memory for it";
    } else if (bytes > kMaxDecodedBytes - decodedBytes) {
        entry.problem = "is one image too many: all images together may take 256 MB unpacked; "
                        "use smaller ones";
    } else {
        decodedBytes += bytes;
        entry.hasAlpha = hasAlpha;
        entry.image = std::move(handle);
    }
}

int CGraphicResourcesManager::GetImagesCount() const {
    int count = 0;
    for (const CEntries* entries : {&images, &alphaImages}) {
        for (const CEntries::CEntry* entry = entries->GetFirst(); entry;
             entry = entries->GetNext(entry)) {
            count += entry->value.image ? 1 : 0;
        }
    }
    return count;
}

void CGraphicResourcesManager::ReleaseUnused(bool force) {
    ReleaseFrom(images, force);
    ReleaseFrom(alphaImages, force);
}

void CGraphicResourcesManager::ReleaseFrom(CEntries& entries, bool force) {
    std::vector<std::string> unused;
    for (const CEntries::CEntry* entry = entries.GetFirst(); entry;
         entry = entries.GetNext(entry)) {
        const CEntry& value = entry->value;
        if (force || !value.image || value.image->GetReferenceCount() == 1) {
            decodedBytes -= value.image ? GetPixelBytes(*value.image) : 0;
            unused.emplace_back(entry->key.Get());
        }
    }
    for (const std::string& key : unused) {
        entries.Remove(key.c_str());
    }
}

} // namespace Vorin::Graphics
