#include "graphics/text/FontManager.h"

#include "graphics/text/FontLibrary.h"

namespace Vorin::Graphics {

struct CFontManager::CEntry final : CFont {
    explicit CEntry(const CFontValues& description) : CFont(description), key(description) {}

    const CFontValues key;
    int count = 1;
};

CFontManager::CFontManager() {
    CFontLibrary::Get(); // made first, and so destroyed after the fonts
}

CFontManager::~CFontManager() = default;

CFontManager& CFontManager::Get() {
    static CFontManager manager;
    return manager;
}

CFont* CFontManager::Acquire(const CFontValues& description) {
    if (const auto found = fonts.find(description); found != fonts.end()) {
        ++found->second->count;
        return found->second.get();
    }
    const auto added = fonts.emplace(description, std::make_unique<CEntry>(description));
    return added.first->second.get();
}

void CFontManager::Release(CFont* font) {
    auto* entry = static_cast<CEntry*>(font);
    if (entry && --entry->count == 0) {
        // Taken out before it dies: the key of the map must outlive the search for it.
        const auto doomed = fonts.extract(entry->key);
    }
}

int CFontManager::GetReferenceCount(const CFontValues& description) const {
    const auto found = fonts.find(description);
    return found == fonts.end() ? 0 : found->second->count;
}

bool CFontManager::LoadFont(const char* path) { return CFontLibrary::Get().LoadFile(path); }

bool CFontManager::UnloadFont(const char* path) { return CFontLibrary::Get().UnloadFile(path); }

} // namespace Vorin::Graphics
