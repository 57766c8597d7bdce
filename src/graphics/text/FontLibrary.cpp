#include "graphics/text/FontLibrary.h"

#include <dlfcn.h>
#include <pango/pangofc-fontmap.h>

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace Vorin::Graphics {

namespace {

constexpr std::uintmax_t kMaxFontFileBytes = 64u << 20;

struct CConfigDestroy {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
};
struct CPatternDestroy {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};

/// Keeps the library that holds `function` in memory for the life of the process.
template <class Function>
void KeepLibraryOf(Function* function) {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(function), &info) != 0 && info.dli_fname) {
        // The handle is left open: RTLD_NODELETE means the same, also for who closes it elsewhere.
        static_cast<void>(dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE));
    }
}

/// The text library registers types with a library that stays in memory, and runs threads that may
/// still be ending: were it unloaded together with us, both would run into nothing.
void KeepTextLibraries() {
    KeepLibraryOf(&pango_layout_get_type);
    KeepLibraryOf(&pango_cairo_font_map_get_type);
    KeepLibraryOf(&pango_fc_font_map_get_type);
}

/// The full path of a file that can be opened as a font, or an empty text.
std::string FindFontFile(const char* path) {
    std::error_code error;
    const std::filesystem::path file = std::filesystem::canonical(path ? path : "", error);
    if (error || !std::filesystem::is_regular_file(file, error) || error) {
        return {};
    }
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return error || size > kMaxFontFileBytes ? std::string() : file.string();
}

bool HoldsFont(const std::string& file) {
    int faceCount = 0;
    const std::unique_ptr<FcPattern, CPatternDestroy> face(
        FcFreeTypeQuery(reinterpret_cast<const FcChar8*>(file.c_str()), 0, nullptr, &faceCount));
    return face && faceCount > 0;
}

bool HasAnyFont(FcConfig* config) {
    for (const FcSetName name : {FcSetSystem, FcSetApplication}) {
        if (const FcFontSet* set = FcConfigGetFonts(config, name); set && set->nfont > 0) {
            return true;
        }
    }
    return false;
}

} // namespace

CFontLibrary& CFontLibrary::Get() {
    static CFontLibrary library;
    return library;
}

bool CFontLibrary::LoadFile(const char* path) {
    const std::string file = FindFontFile(path);
    if (file.empty() || !HoldsFont(file)) {
        return false;
    }
    if (++loadedFiles[file] == 1) {
        DropFontMap();
    }
    return true;
}

bool CFontLibrary::UnloadFile(const char* path) {
    std::error_code error;
    // The file may be gone by now: then its path has to be the full one.
    std::filesystem::path file = std::filesystem::canonical(path ? path : "", error);
    if (error) {
        file = path ? path : "";
    }
    const auto found = loadedFiles.find(file.string());
    if (found == loadedFiles.end()) {
        return false;
    }
    if (--found->second == 0) {
        loadedFiles.erase(found);
        DropFontMap();
    }
    return true;
}

TObjectPointer<PangoContext> CFontLibrary::CreateContext() {
    if (!fontMap) {
        BuildFontMap();
    }
    return TObjectPointer<PangoContext>(hasFonts ? pango_font_map_create_context(fontMap.get())
                                                 : nullptr);
}

void CFontLibrary::BuildFontMap() {
    KeepTextLibraries();
    std::unique_ptr<FcConfig, CConfigDestroy> config(FcInitLoadConfigAndFonts());
    if (!config) {
        config.reset(FcConfigCreate());
    }
    for (const auto& [file, count] : loadedFiles) {
        // A file that has gone meanwhile is left out.
        FcConfigAppFontAddFile(config.get(), reinterpret_cast<const FcChar8*>(file.c_str()));
    }
    hasFonts = HasAnyFont(config.get());
    fontMap.reset(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT));
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(fontMap.get()), config.get());
}

void CFontLibrary::DropFontMap() {
    fontMap.reset();
    ++generation;
}

} // namespace Vorin::Graphics
