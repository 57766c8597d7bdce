#pragma once

#include <cstddef>
#include <string_view>

namespace Vorin::AppEngine {

/// The lines on which the start tags of an XML text begin, one after the other. The XML reader
/// itself only tells where a tag ends, which may be many lines later.
///
/// Knows texts in UTF-8 and what agrees with it in ASCII. The text is that of a reader which has
/// found every tag that is asked for to be well formed; it outlives this object.
class CStartTagLines {
public:
    explicit CStartTagLines(std::string_view document);

    /// The line of the next start tag, counted from 1; 0 when the text is not understood.
    int Next();

private:
    void SkipBehind(std::string_view end);
    void GoTo(std::size_t target);

    std::string_view text;
    std::size_t position = 0;
    int line = 1;
};

} // namespace Vorin::AppEngine
