#include "serialization/Limits.h"
#include "serialization/Utf8.h"
#include "serialization/XmlText.h"

#include <algorithm>
#include <string_view>

namespace Vorin::Serialization {

namespace {

/// Walks the markup of a document without building anything. Deliberately strict: whatever it
/// cannot make out is refused, so that a parser cannot be made to see more than was counted here.
class CXmlScan {
public:
    explicit CXmlScan(std::string_view document) : left(document) {}

    bool Run() {
        Take("\xef\xbb\xbf");
        if (!HasXmlCharactersAlone()) {
            return false;
        }
        while (!left.empty()) {
            if (!(left[0] == '<' ? ScanMarkup() : ScanContent())) {
                return false;
            }
        }
        return hasRoot && depth == 0;
    }

private:
    static bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

    bool HasXmlCharactersAlone() const {
        const char* end = left.data() + left.size();
        for (const char* at = left.data(); at != end;) {
            if (*at >= 0x20) { // plain; bytes above 0x7f are negative
                ++at;
            } else if (!IsXmlCharacter(NextCodePoint(at, end))) {
                return false;
            }
        }
        return true;
    }

    /// Moves behind `token` when it stands here.
    bool Take(std::string_view token) {
        if (left.substr(0, token.size()) != token) {
            return false;
        }
        left.remove_prefix(token.size());
        return true;
    }

    /// Moves behind the next `token`; what stands before it is at most `limit` bytes.
    bool TakeUntil(std::string_view token, std::size_t limit) {
        const std::size_t found = left.find(token);
        if (found == std::string_view::npos || found > limit) {
            return false;
        }
        left.remove_prefix(found + token.size());
        return true;
    }

    void SkipBlanks() {
        while (!left.empty() && IsBlank(left[0])) {
            left.remove_prefix(1);
        }
    }

    bool TakeName() {
        const char* begin = left.data();
        const char* end = begin + left.size();
        const char* at = begin;
        while (at != end) {
            const char* character = at;
            const std::uint32_t codePoint = NextCodePoint(at, end);
            if (!(character == begin ? IsXmlNameStart(codePoint) : IsXmlNameCharacter(codePoint))) {
                at = character;
                break;
            }
        }
        left.remove_prefix(static_cast<std::size_t>(at - begin));
        return at != begin;
    }

    /// In bytes after the references in it are resolved.
    static bool IsWithinTextLimit(std::string_view text) {
        constexpr std::size_t limit = kMaximumTextBytes;
        if (text.size() <= limit) {
            return true;
        }
        std::size_t size = 0;
        for (std::size_t i = 0; i < text.size() && size <= limit; ++size) {
            const std::size_t length = text[i] == '&' ? text.substr(i, 11).find(';') : 0;
            if (length == std::string_view::npos || length == 0) {
                ++i;
                continue;
            }
            // More than one byte comes of numbers of at least three digits alone.
            size += length > 4 && text[i + 1] == '#' ? 3 : 0;
            i += length + 1;
        }
        return size <= limit;
    }

    bool ScanContent() {
        const std::size_t size = std::min(left.find('<'), left.size());
        const std::string_view content = left.substr(0, size);
        left.remove_prefix(size);
        if (depth == 0) {
            return content.find_first_not_of(" \t\n\r") == std::string_view::npos;
        }
        return IsWithinTextLimit(content);
    }

    bool ScanMarkup() {
        if (Take("</")) {
            const bool isName = TakeName();
            SkipBlanks();
            return isName && Take(">") && --depth >= 0;
        }
        if (Take("<!--")) {
            return CountOther() && TakeUntil("-->", left.size());
        }
        if (Take("<![CDATA[")) {
            return depth > 0 && CountOther() && TakeUntil("]]>", kMaximumTextBytes);
        }
        if (Take("<?")) {
            return CountOther() && TakeUntil("?>", left.size());
        }
        return ScanElement(); // "<!" is a declaration, and no name begins so
    }

    bool CountOther() { return ++others <= kMaximumElements; }

    bool ScanElement() {
        if (!Take("<") || !TakeName() || (depth == 0 && hasRoot)) {
            return false;
        }
        hasRoot = true;
        if (++elements > kMaximumElements || ++depth > kMaximumDepth) {
            return false;
        }
        for (int attributes = 0;; ++attributes) {
            const bool isApart = !left.empty() && IsBlank(left[0]);
            SkipBlanks();
            if (Take(">")) {
                return true;
            }
            if (Take("/>")) {
                --depth;
                return true;
            }
            if (!isApart || attributes == kMaximumAttributes || !ScanAttribute()) {
                return false;
            }
        }
    }

    bool ScanAttribute() {
        if (!TakeName()) {
            return false;
        }
        SkipBlanks();
        if (!Take("=")) {
            return false;
        }
        SkipBlanks();
        if (left.empty() || (left[0] != '"' && left[0] != '\'')) {
            return false;
        }
        const char quote = left[0];
        left.remove_prefix(1);
        const std::size_t size = left.find(quote);
        if (size == std::string_view::npos) {
            return false;
        }
        const std::string_view value = left.substr(0, size);
        left.remove_prefix(size + 1);
        return value.find('<') == std::string_view::npos && IsWithinTextLimit(value);
    }

    std::string_view left;
    int depth = 0;
    int elements = 0;
    int others = 0; // comments, instructions and the like
    bool hasRoot = false;
};

} // namespace

bool IsAcceptableXml(const char* text, std::size_t length) {
    return text && length <= std::size_t{kMaximumDocumentBytes} &&
           CXmlScan(std::string_view(text, length)).Run();
}

} // namespace Vorin::Serialization
