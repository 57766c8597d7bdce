#pragma once

namespace Vorin::Graphics {

/// Where a line stands in the room it has.
enum { kTextAlignStart = 0, kTextAlignCenter = 1, kTextAlignEnd = 2 };

/// A bit of CTextFormat::flags: the text itself is drawn.
enum { kTextShown = 1 };

/// How a text is set in a rectangle. A plain value.
struct CTextFormat {
    /// Without kTextShown only the background is filled, where the text mode asks for it.
    unsigned flags = kTextShown;

    /// One of the kTextAlign values: left, middle and right; top, middle and bottom. Other values
    /// mean the middle.
    int hAlign = kTextAlignCenter;
    int vAlign = kTextAlignCenter;

    /// Lines end at '\n'. Without it the whole text is one line, with a space in its place.
    bool multiline = false;
    /// A line that is too long goes on in the next one, from a word's beginning. A word that is
    /// longer than a line stays whole. At 45, 135, 225 and 315 degrees there is no such break: the
    /// box of the text is as long as the text there.
    bool wordBreak = false;
};

} // namespace Vorin::Graphics
