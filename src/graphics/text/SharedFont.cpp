#include "graphics/text/SharedFont.h"

#include "graphics/text/FontManager.h"

namespace Vorin::Graphics {

CSharedFont::CSharedFont(const CFontValues& initial)
    : CBaseFont(initial), entry(CFontManager::Get().Acquire(initial)) {}

CSharedFont& CSharedFont::operator=(const CSharedFont& other) {
    if (this != &other) {
        SetValues(other.GetValues());
    }
    return *this;
}

CSharedFont::~CSharedFont() { CFontManager::Get().Release(entry); }

void CSharedFont::OnChanged() {
    CFont* old = entry;
    entry = CFontManager::Get().Acquire(GetValues());
    CFontManager::Get().Release(old);
}

} // namespace Vorin::Graphics
