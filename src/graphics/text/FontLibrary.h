#pragma once

#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>

#include <map>
#include <memory>
#include <string>

namespace Vorin::Graphics {

struct CObjectUnref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using TObjectPointer = std::unique_ptr<T, CObjectUnref>;

/// The platform's text service: where faces come from. GUI thread only.
///
/// Its configuration is replaced, never changed: the text library searches faces on threads of its
/// own, and those keep the one they began with.
class CFontLibrary {
public:
    static CFontLibrary& Get();
    CFontLibrary(const CFontLibrary&) = delete;
    CFontLibrary& operator=(const CFontLibrary&) = delete;

    /// See CFontManager.
    bool LoadFile(const char* path);
    bool UnloadFile(const char* path);

    /// What text is laid out with; the caller owns it. Null when the platform has no font at all.
    TObjectPointer<PangoContext> CreateContext();

    /// Another number after each change of the faces: what was made before is to be made again.
    int GetGeneration() const { return generation; }

private:
    CFontLibrary() = default;
    ~CFontLibrary() = default;

    void BuildFontMap();
    void DropFontMap();

    std::map<std::string, int> loadedFiles; // by their full path, how often
    TObjectPointer<PangoFontMap> fontMap;   // made when it is first needed
    bool hasFonts = false;
    int generation = 0;
};

} // namespace Vorin::Graphics
