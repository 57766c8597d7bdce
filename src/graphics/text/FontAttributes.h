#pragma once

#include "graphics/text/FontDescription.h"

namespace Vorin::Graphics {

/// A font size as a skin writes it: `N` pixels, `N%` of `current`, or `+N` and `-N` more and less
/// than `current`. What comes to less than 1 gives 0. False, with `size` as it was, for a text that
/// is none of these. [any]
bool ParseFontSize(const char* text, int current, int& size);

/// A font width or height: `N`, or `N%` of `current`; the rest as above. [any]
bool ParseFontExtent(const char* text, int current, int& extent);

/// Applies an attribute onto a font:
///
/// | name                          | value                                              |
/// |-------------------------------|----------------------------------------------------|
/// | `font_face`                   | the name of a family                               |
/// | `font_size`                   | see ParseFontSize                                  |
/// | `font_height`, `font_width`   | see ParseFontExtent                                |
/// | `font_quality`                | `default`, `anti_alias`, `cleartype`, `no_anti_alias` |
/// | `font_weight`                 | `normal`, `bold`                                   |
/// | `font_style`                  | `normal`, `italic`                                 |
/// | `text_decoration`             | `none`, `underline`                                |
/// | `font_escapement`             | degrees                                            |
///
/// False, with the font as it was, for another name and for a value that is none of these.
bool ApplyFontAttribute(IFontDescription& font, const char* name, const char* value);

} // namespace Vorin::Graphics
