#include "graphics/images/ImageFile.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

#include <gdk-pixbuf/gdk-pixbuf.h>

#include "graphics/images/Premultiply.h"

namespace Vorin::Graphics {

namespace {

struct CFreeObject {
    void operator()(void* object) const { g_object_unref(object); }
};

/// What gdk-pixbuf calls the format of a file that begins so; null for one that we do not read.
const char* FindForeignFormat(const std::uint8_t* data, std::size_t size) {
    static constexpr struct {
        const char* start;
        std::size_t length;
        const char* format;
    } kFormats[] = {
        {"\xFF\xD8\xFF", 3, "jpeg"}, {"GIF8", 4, "gif"},   {"BM", 2, "bmp"},
        {"II*\0", 4, "tiff"},        {"MM\0*", 4, "tiff"},
    };
    for (const auto& known : kFormats) {
        if (size >= known.length && std::memcmp(data, known.start, known.length) == 0) {
            return known.format;
        }
    }
    return nullptr;
}

bool IsPng(const std::uint8_t* data, std::size_t size) {
    static constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    return size >= sizeof(kSignature) && std::memcmp(data, kSignature, sizeof(kSignature)) == 0;
}

std::uint32_t GetLittleEndian(const std::uint8_t* bytes) {
    return bytes[0] | (std::uint32_t{bytes[1]} << 8) | (std::uint32_t{bytes[2]} << 16) |
           (std::uint32_t{bytes[3]} << 24);
}

/// The library takes as much memory as a BMP file says that its headers are long and its colours
/// are many: it knows numbers that are too large for the depth, but takes the largest for negative.
bool HasSaneHeaders(const char* format, const std::uint8_t* data, std::size_t size) {
    if (std::strcmp(format, "bmp") != 0) {
        return true;
    }
    constexpr std::size_t kPixelsAt = 10;
    constexpr std::size_t kHeaderSizeAt = 14;
    constexpr std::size_t kColoursAt = 46;
    constexpr std::uint32_t kFirstVersion = 12; // whose header does not tell the colours
    constexpr std::uint32_t kLargestHeader = 124;
    constexpr std::uint32_t kMostColours = 1U << 24;
    if (size < kHeaderSizeAt + 4) {
        return false;
    }
    const std::uint32_t headerSize = GetLittleEndian(data + kHeaderSizeAt);
    const bool tellsColours = headerSize > kFirstVersion && size >= kColoursAt + 4;
    return headerSize <= kLargestHeader && GetLittleEndian(data + kPixelsAt) < size &&
           (!tellsColours || GetLittleEndian(data + kColoursAt) <= kMostColours);
}

/// While it lives, the library keeps to itself what it has to say about damaged files: it would
/// print it, in a process that is not ours.
class CQuietLibrary {
public:
    CQuietLibrary()
        : handler(g_log_set_handler(
              kDomain,
              static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL |
                                          G_LOG_FLAG_RECURSION),
              [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr)) {}
    ~CQuietLibrary() { g_log_remove_handler(kDomain, handler); }
    CQuietLibrary(const CQuietLibrary&) = delete;
    CQuietLibrary& operator=(const CQuietLibrary&) = delete;

private:
    static constexpr const char* kDomain = "GdkPixbuf";
    const guint handler;
};

/// Called as soon as the size is known, before memory is taken for it. A size of 0 is how the
/// library is told to stop.
void RefuseLargeImage(GdkPixbufLoader* loader, int width, int height, gpointer refused) {
    if (!IsBitmapSize({width, height})) {
        *static_cast<bool*>(refused) = true;
        gdk_pixbuf_loader_set_size(loader, 0, 0);
    }
}

std::string TakeMessage(GError* error) {
    std::string message = error ? error->message : "the data are damaged";
    g_clear_error(&error);
    return message;
}

/// Null, and `problem`, when the library cannot make an image of it.
std::unique_ptr<GdkPixbuf, CFreeObject> RunForeignLoader(const char* format,
                                                         const std::uint8_t* data, std::size_t size,
                                                         std::string& problem) {
    GError* error = nullptr;
    const std::unique_ptr<GdkPixbufLoader, CFreeObject> loader(
        gdk_pixbuf_loader_new_with_type(format, &error));
    if (!loader) {
        problem = TakeMessage(error);
        return nullptr;
    }
    bool refused = false;
    g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(RefuseLargeImage), &refused);
    constexpr std::size_t kPiece = 65536; // what is refused early is not read to its end
    bool good = true;
    for (std::size_t at = 0; good && !refused && at < size; at += kPiece) {
        good = gdk_pixbuf_loader_write(loader.get(), data + at, std::min(kPiece, size - at),
                                       &error) != FALSE;
    }
    // A loader must be closed in any case; its error is the second one then.
    good = gdk_pixbuf_loader_close(loader.get(), good ? &error : nullptr) != FALSE && good;
    if (refused) {
        g_clear_error(&error);
        problem = "it is larger than 8192 pixels a side or 16 million pixels";
        return nullptr;
    }
    GdkPixbuf* pixels = good ? gdk_pixbuf_loader_get_pixbuf(loader.get()) : nullptr;
    if (!pixels) {
        problem = TakeMessage(error);
        return nullptr;
    }
    return std::unique_ptr<GdkPixbuf, CFreeObject>(static_cast<GdkPixbuf*>(g_object_ref(pixels)));
}

/// Words 0xAARRGGBB, premultiplied, of the library's bytes R, G, B and perhaps A. False when some
/// pixel is not opaque.
bool CopyForeignPixels(const GdkPixbuf* pixels, CBitmapContext& bitmap) {
    const Core::C2DSize size = bitmap.GetSize();
    const int channels = gdk_pixbuf_get_n_channels(pixels);
    const guint8* bytes = gdk_pixbuf_read_pixels(pixels);
    std::uint8_t* target = bitmap.BeginPixels({{}, size});
    std::uint8_t commonAlpha = 0xFF;
    for (int y = 0; y < size.height; ++y) {
        const guint8* from = bytes + static_cast<std::size_t>(y) *
                                         static_cast<std::size_t>(gdk_pixbuf_get_rowstride(pixels));
        void* row = target +
                    static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.GetStrideBytes());
        auto* words = static_cast<std::uint32_t*>(row);
        for (int x = 0; x < size.width; ++x, from += channels) {
            const std::uint32_t alpha = channels == 4 ? from[3] : 255;
            words[x] = alpha | (std::uint32_t{from[0]} << 8) | (std::uint32_t{from[1]} << 16) |
                       (std::uint32_t{from[2]} << 24);
        }
        commonAlpha &= PremultiplyPixels(words, static_cast<std::size_t>(size.width));
    }
    return commonAlpha == 0xFF;
}

} // namespace

CLoadedImage DecodeForeignImage(const std::uint8_t* data, std::size_t size) {
    if (IsPng(data, size)) {
        return DecodePng(data, size);
    }
    const char* format = FindForeignFormat(data, size);
    if (!format) {
        return {nullptr, false,
                "is not an image of a known kind; save it as PNG, JPEG, GIF, BMP or TIFF"};
    }
    if (!HasSaneHeaders(format, data, size)) {
        return {nullptr, false, "is not an image that can be shown: the data are damaged"};
    }
    const CQuietLibrary quiet;
    std::string problem;
    const auto pixels = RunForeignLoader(format, data, size, problem);
    if (!pixels) {
        return {nullptr, false, std::string("is not an image that can be shown: ") + problem};
    }
    const std::shared_ptr<CBitmapContext> bitmap = CBitmapContext::Create(
        {gdk_pixbuf_get_width(pixels.get()), gdk_pixbuf_get_height(pixels.get())}, 32);
    if (!bitmap) {
        return {nullptr, false, "cannot be shown: there is no memory for it"};
    }
    const bool opaque = CopyForeignPixels(pixels.get(), *bitmap);
    return {CPlatformImage::Create(bitmap, opaque), !opaque, {}};
}

} // namespace Vorin::Graphics
