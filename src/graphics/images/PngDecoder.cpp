#include "graphics/images/ImageFile.h"

#include <algorithm>
#include <csetjmp>
#include <cstring>
#include <utility>
#include <vector>

#include <png.h>

#include "graphics/images/Premultiply.h"

namespace Vorin::Graphics {

namespace {

/// One decoding. libpng leaves by longjmp when something is wrong: whatever has a destructor lives
/// here, and not on the stack between.
struct CPngDecoding {
    CPngDecoding(const std::uint8_t* bytes, std::size_t count) : data(bytes), left(count) {}
    ~CPngDecoding() { png_destroy_read_struct(&png, &info, nullptr); }
    CPngDecoding(const CPngDecoding&) = delete;
    CPngDecoding& operator=(const CPngDecoding&) = delete;

    const std::uint8_t* data;
    std::size_t left;
    png_structp png = nullptr;
    png_infop info = nullptr;
    std::shared_ptr<CBitmapContext> bitmap;
    std::vector<png_bytep> rows;
    std::uint8_t commonAlpha = 0xFF;
    char problem[160] = "";
};

void ReadPngBytes(png_structp png, png_bytep target, png_size_t count) {
    auto& decoding = *static_cast<CPngDecoding*>(png_get_io_ptr(png));
    if (count > decoding.left) {
        png_error(png, "the file ends too early");
    }
    std::memcpy(target, decoding.data, count);
    decoding.data += count;
    decoding.left -= count;
}

[[noreturn]] void KeepPngError(png_structp png, png_const_charp message) {
    auto& decoding = *static_cast<CPngDecoding*>(png_get_error_ptr(png));
    std::strncpy(decoding.problem, message, sizeof(decoding.problem) - 1);
    png_longjmp(png, 1);
}

void IgnorePngWarning(png_structp, png_const_charp) {}

/// Every form of PNG comes as rows of bytes A, R, G, B.
void AskForArgb(png_structp png, png_infop info) {
    const png_byte type = png_get_color_type(png, info);
    const bool hasTransparency = png_get_valid(png, info, PNG_INFO_tRNS) != 0;
    if (type == PNG_COLOR_TYPE_PALETTE) {
        png_set_palette_to_rgb(png);
    }
    if (hasTransparency) {
        png_set_tRNS_to_alpha(png);
    }
    if (png_get_bit_depth(png, info) == 16) {
        png_set_strip_16(png);
    }
    if (png_get_bit_depth(png, info) < 8) {
        png_set_packing(png);
    }
    if ((type & PNG_COLOR_MASK_COLOR) == 0) {
        png_set_gray_to_rgb(png);
    }
    if (hasTransparency || (type & PNG_COLOR_MASK_ALPHA) != 0) {
        png_set_swap_alpha(png);
    } else {
        png_set_add_alpha(png, 255, PNG_FILLER_BEFORE);
    }
}

/// A row as soon as it is there is still in the cache; an interlaced image is there only at the
/// end.
void ReadRows(CPngDecoding& decoding, int passes) {
    const auto width = static_cast<std::size_t>(decoding.bitmap->GetSize().width);
    const auto finish = [&decoding, width](png_bytep row) {
        void* bytes = row;
        decoding.commonAlpha &= PremultiplyPixels(static_cast<std::uint32_t*>(bytes), width);
    };
    if (passes > 1) {
        png_read_image(decoding.png, decoding.rows.data());
        std::for_each(decoding.rows.begin(), decoding.rows.end(), finish);
    } else {
        for (png_bytep row : decoding.rows) {
            png_read_row(decoding.png, row, nullptr);
            finish(row);
        }
    }
}

void PrepareRows(CPngDecoding& decoding) {
    const Core::C2DSize size{
        Core::SaturateToInt(png_get_image_width(decoding.png, decoding.info)),
        Core::SaturateToInt(png_get_image_height(decoding.png, decoding.info))};
    if (!IsBitmapSize(size)) {
        png_error(decoding.png, "it is larger than 8192 pixels a side or 16 million pixels");
    }
    decoding.bitmap = CBitmapContext::Create(size, 32);
    if (!decoding.bitmap) {
        png_error(decoding.png, "there is no memory for it");
    }
    std::uint8_t* row = decoding.bitmap->BeginPixels({{}, size});
    decoding.rows.resize(static_cast<std::size_t>(size.height));
    for (png_bytep& pointer : decoding.rows) {
        pointer = row;
        row += decoding.bitmap->GetStrideBytes();
    }
}

/// False when libpng left in between.
bool RunPngDecoding(CPngDecoding& decoding) {
    decoding.png =
        png_create_read_struct(PNG_LIBPNG_VER_STRING, &decoding, KeepPngError, IgnorePngWarning);
    decoding.info = decoding.png ? png_create_info_struct(decoding.png) : nullptr;
    if (!decoding.info) {
        return false;
    }
    if (setjmp(png_jmpbuf(decoding.png))) { // NOLINT(cert-err52-cpp): what libpng asks for
        return false;
    }
    png_set_read_fn(decoding.png, &decoding, ReadPngBytes);
    png_set_user_limits(decoding.png, kMaxBitmapSide, kMaxBitmapSide);
    // Texts, profiles and the like are skipped without being unpacked.
    png_set_keep_unknown_chunks(decoding.png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(decoding.png, decoding.info);
    AskForArgb(decoding.png, decoding.info);
    const int passes = png_set_interlace_handling(decoding.png);
    png_read_update_info(decoding.png, decoding.info);
    PrepareRows(decoding);
    ReadRows(decoding, passes);
    return true;
}

} // namespace

CLoadedImage DecodePng(const std::uint8_t* data, std::size_t size) {
    CPngDecoding decoding(data, size);
    if (!RunPngDecoding(decoding)) {
        return {nullptr, false,
                std::string("is not a PNG image that can be shown: ") + decoding.problem};
    }
    const bool hasAlpha = decoding.commonAlpha != 0xFF;
    CLoadedImage loaded{
        CPlatformImage::Create(std::move(decoding.bitmap), !hasAlpha), hasAlpha, {}};
    if (!loaded.image) {
        return {nullptr, false, "cannot be shown: there is no memory for it"};
    }
    return loaded;
}

} // namespace Vorin::Graphics
