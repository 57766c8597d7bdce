#include "serialization/Limits.h"
#include "serialization/Utf8.h"
#include "serialization/XmlText.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

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

    /// The bytes in UTF-8 that a reference stands for, 0 for none that a document may hold.
    static std::size_t SizeOfReference(std::string_view name) {
        if (name.substr(0, 1) != "#") {
            const bool isKnown =
                name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos";
            return isKnown ? 1 : 0;
        }
        const bool isHex = name.substr(0, 2) == "#x";
        name.remove_prefix(isHex ? 2 : 1);
        std::uint32_t codePoint = 0;
        const char* end = name.data() + name.size();
        const auto result = std::from_chars(name.data(), end, codePoint, isHex ? 16 : 10);
        if (result.ec != std::errc() || result.ptr != end || !IsXmlCharacter(codePoint)) {
            return 0;
        }
        return codePoint < 0x80 ? 1 : codePoint < 0x800 ? 2 : codePoint < 0x10000 ? 3 : 4;
    }

    /// Whether all references in it are such that it holds, and it is not too long with them
    /// resolved.
    static bool IsText(std::string_view text) {
        constexpr std::size_t longestReference = 16;
        std::size_t size = 0;
        for (;;) {
            const std::size_t plain = std::min(text.find('&'), text.size());
            size += plain;
            text.remove_prefix(plain);
            if (text.empty() || size > std::size_t{kMaximumTextBytes}) {
                break;
            }
            const std::size_t end = text.substr(0, longestReference).find(';');
            const std::size_t resolved =
                end == std::string_view::npos ? 0 : SizeOfReference(text.substr(1, end - 1));
            if (resolved == 0) {
                return false;
            }
            size += resolved;
            text.remove_prefix(end + 1);
        }
        return size <= std::size_t{kMaximumTextBytes};
    }

    bool ScanContent() {
        const std::size_t size = std::min(left.find('<'), left.size());
        const std::string_view content = left.substr(0, size);
        left.remove_prefix(size);
        if (depth == 0) {
            return content.find_first_not_of(" \t\n\r") == std::string_view::npos;
        }
        return IsText(content);
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
        return value.find('<') == std::string_view::npos && IsText(value);
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
