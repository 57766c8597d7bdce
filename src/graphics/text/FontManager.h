#pragma once

#include <memory>
#include <unordered_map>

#include "graphics/text/Font.h"

namespace Vorin::Graphics {

/// The fonts of the process: those in use, each once, and the font files that were loaded. GUI
/// thread only.
///
/// Fonts come from a configuration of our own: the platform's, and the loaded files. The one that
/// the process uses by default is never changed, so a host and other plug-ins do not see the loaded
/// files. Of the process's state this remains: the text library initialises the default
/// configuration when it is first used, as any other use of it would, and once used it stays in
/// memory, because the types that it registered do.
class CFontManager {
public:
    static CFontManager& Get();

    CFontManager(const CFontManager&) = delete;
    CFontManager& operator=(const CFontManager&) = delete;

    /// The font of a description. Whoever acquires it releases it, and must not change it.
    CFont* Acquire(const CFontValues& description);
    /// Gives a font back; it goes with the last reference. Null does nothing.
    void Release(CFont* font);

    /// How many fonts there are, and how many references to the one of a description; for tests.
    int GetFontCount() const { return static_cast<int>(fonts.size()); }
    int GetReferenceCount(const CFontValues& description) const;

    /// Makes the faces of a font file known under their names, to fonts that exist already too.
    /// False when the file is not there, is no regular file, is larger than 64 MB, or holds no
    /// font. Each load that succeeded is taken back by one UnloadFont.
    bool LoadFont(const char* path);
    /// False when the file is not loaded. What is drawn from here on uses other faces.
    bool UnloadFont(const char* path);

private:
    struct CEntry;

    CFontManager();
    ~CFontManager();

    std::unordered_map<CFontValues, std::unique_ptr<CEntry>, CFontValuesHash> fonts;
};

} // namespace Vorin::Graphics
