#include "graphics/text/FontAttributes.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

#include "core/Geometry.h"

namespace Vorin::Graphics {

namespace {

/// A whole text as a number; a number that is too large is none.
template <class T>
std::optional<T> ParseWholeNumber(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    T number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional<T>(number) : std::nullopt;
}

bool StoreExtent(std::int64_t value, int& extent) {
    extent = value < 1 ? 0 : Core::SaturateToInt(value);
    return true;
}

/// The value that a word stands for in a list.
struct CWordValue {
    std::string_view word;
    int value;
};

template <std::size_t count>
std::optional<int> FindWord(const CWordValue (&words)[count], std::string_view word) {
    for (const CWordValue& each : words) {
        if (each.word == word) {
            return each.value;
        }
    }
    return std::nullopt;
}

constexpr CWordValue kQualityWords[] = {{"default", kFontQualityDefault},
                                        {"anti_alias", kFontQualityAntiAlias},
                                        {"cleartype", kFontQualityClearType},
                                        {"no_anti_alias", kFontQualityNoAntiAlias}};
constexpr CWordValue kWeightWords[] = {{"normal", kFontWeightNormal}, {"bold", kFontWeightBold}};
constexpr CWordValue kStyleWords[] = {{"normal", 0}, {"italic", 1}};
constexpr CWordValue kDecorationWords[] = {{"none", 0}, {"underline", 1}};

} // namespace

bool ParseFontExtent(const char* text, int current, int& extent) {
    std::string_view rest(text ? text : "");
    const bool isPercent = !rest.empty() && rest.back() == '%';
    if (isPercent) {
        rest.remove_suffix(1);
    }
    const auto number = ParseWholeNumber<int>(rest);
    return number &&
           StoreExtent(isPercent ? std::int64_t{current} * *number / 100 : *number, extent);
}

bool ParseFontSize(const char* text, int current, int& size) {
    const std::string_view whole(text ? text : "");
    const bool isPercent = !whole.empty() && whole.back() == '%';
    const bool isRelative = !whole.empty() && (whole[0] == '+' || whole[0] == '-');
    if (isPercent || !isRelative) {
        return ParseFontExtent(text, current, size);
    }
    const auto number = ParseWholeNumber<int>(whole);
    return number && StoreExtent(std::int64_t{current} + *number, size);
}

bool ApplyFontAttribute(IFontDescription& font, const char* name, const char* value) {
    const std::string_view attribute(name ? name : "");
    const std::string_view word(value ? value : "");
    int extent = 0;
    if (attribute == "font_face") {
        font.SetFace(value);
        return true;
    }
    if (attribute == "font_size" && ParseFontSize(value, font.GetHeight(), extent)) {
        font.SetHeight(extent);
        return true;
    }
    if (attribute == "font_height" && ParseFontExtent(value, font.GetHeight(), extent)) {
        font.SetHeight(extent);
        return true;
    }
    if (attribute == "font_width" && ParseFontExtent(value, font.GetWidth(), extent)) {
        font.SetWidth(extent);
        return true;
    }
    if (const auto quality = FindWord(kQualityWords, word);
        attribute == "font_quality" && quality) {
        font.SetQuality(*quality);
        return true;
    }
    if (const auto weight = FindWord(kWeightWords, word); attribute == "font_weight" && weight) {
        font.SetWeight(*weight);
        return true;
    }
    if (const auto style = FindWord(kStyleWords, word); attribute == "font_style" && style) {
        font.SetItalic(*style != 0);
        return true;
    }
    if (const auto line = FindWord(kDecorationWords, word);
        attribute == "text_decoration" && line) {
        font.SetUnderline(*line != 0);
        return true;
    }
    if (const auto degrees = ParseWholeNumber<float>(word);
        attribute == "font_escapement" && degrees && std::isfinite(*degrees)) {
        font.SetEscapement(*degrees);
        return true;
    }
    return false;
}

} // namespace Vorin::Graphics
