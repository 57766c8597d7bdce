#include "SkinEngine/Document/StartTagLines.h"

#include <algorithm>

namespace Vorin::AppEngine {

CStartTagLines::CStartTagLines(std::string_view document) : text(document) {
    // A zero byte has no place in UTF-8 XML: this is UTF-16, or nothing at all.
    if (text.substr(0, 4).find('\0') != std::string_view::npos) {
        text = {};
    }
}

int CStartTagLines::Next() {
    for (;;) {
        GoTo(text.find('<', position));
        const std::string_view rest = text.substr(position);
        if (rest.empty()) {
            return 0;
        }
        if (rest.starts_with("<!--")) {
            GoTo(position + 4);
            SkipBehind("-->");
        } else if (rest.starts_with("<![CDATA[")) {
            SkipBehind("]]>");
        } else if (rest.starts_with("<?")) {
            SkipBehind("?>");
        } else if (rest.starts_with("</")) {
            SkipBehind(">");
        } else {
            const int found = line;
            GoTo(position + 1); // no value holds a "<"
            return found;
        }
    }
}

void CStartTagLines::SkipBehind(std::string_view end) {
    const std::size_t found = text.find(end, position);
    GoTo(found == std::string_view::npos ? found : found + end.size());
}

void CStartTagLines::GoTo(std::size_t target) {
    const std::size_t to = std::min(target, text.size());
    for (; position < to; ++position) {
        // A line ends with LF, CR LF or CR.
        const char character = text[position];
        if (character == '\n' ||
            (character == '\r' && (position + 1 == text.size() || text[position + 1] != '\n'))) {
            ++line;
        }
    }
}

} // namespace Vorin::AppEngine
