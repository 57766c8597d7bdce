#pragma once

#include "graphics/text/Font.h"

namespace Vorin::Graphics {

/// A font that shares its platform font with all others of the same description, through the
/// CFontManager. A setter takes the entry of the new description and gives back the old one.
class CSharedFont : public CBaseFont {
public:
    CSharedFont() : CSharedFont(CFontValues()) {}
    explicit CSharedFont(const CFontValues& initial);
    CSharedFont(const CSharedFont& other) : CSharedFont(other.GetValues()) {}
    CSharedFont& operator=(const CSharedFont& other);
    ~CSharedFont() override;

    /// The entry of the pool. Valid until the next change.
    const CFont& GetEntry() const { return *entry; }

protected:
    const std::shared_ptr<CPlatformFont>& GetPlatformFont() override {
        return entry->GetPlatformFont();
    }
    void OnChanged() override;

private:
    CFont* entry; // never null; a reference of the font manager's
};

} // namespace Vorin::Graphics
