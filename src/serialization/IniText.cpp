#include "serialization/IniText.h"

#include "serialization/Limits.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Vorin::Serialization {

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

bool IsControl(char c) { return (c >= 0 && c < 0x20) || c == 0x7f; }

bool NeedsQuotes(std::string_view text) {
    if (text.empty()) {
        return false;
    }
    return text.front() == '"' || text.front() == ' ' || text.back() == ' ' ||
           std::any_of(text.begin(), text.end(), IsControl);
}

void AppendQuoted(std::string& target, char c) {
    switch (c) {
    case '"':
        target += "\\\"";
        break;
    case '\\':
        target += "\\\\";
        break;
    case '\n':
        target += "\\n";
        break;
    case '\r':
        target += "\\r";
        break;
    case '\t':
        target += "\\t";
        break;
    default:
        if (IsControl(c)) {
            target += "\\x";
            target += kHexDigits[c >> 4];
            target += kHexDigits[c & 15];
        } else {
            target += c;
        }
    }
}

/// The value of a digit, -1 for anything else.
int HexValue(char c) {
    const char* found = c ? std::strchr(kHexDigits, c) : nullptr;
    return found ? static_cast<int>(found - kHexDigits) : -1;
}

/// Takes one character of a text in quotes, an escape as a whole. False for no escape.
bool TakeQuoted(std::string_view& left, std::string& target) {
    const char c = left[0];
    left.remove_prefix(1);
    if (c == '"') {
        return false;
    }
    if (c != '\\') {
        target += c;
        return true;
    }
    if (left.empty()) {
        return false;
    }
    const char escape = left[0];
    left.remove_prefix(1);
    if (escape == 'x') {
        const int high = left.size() >= 2 ? HexValue(left[0]) : -1;
        const int low = left.size() >= 2 ? HexValue(left[1]) : -1;
        if (high < 0 || low < 0 || high + low == 0) {
            return false;
        }
        target += static_cast<char>(static_cast<unsigned char>(high * 16 + low));
        left.remove_prefix(2);
        return true;
    }
    // each escape and what it stands for
    static constexpr char pairs[] = "\\\\\"\"n\nr\rt\t";
    for (std::size_t i = 0; i + 1 < sizeof(pairs); i += 2) {
        if (pairs[i] == escape) {
            target += pairs[i + 1];
            return true;
        }
    }
    return false;
}

} // namespace

const char* EncodeIniValue(const char* text, std::string& storage) {
    if (!NeedsQuotes(text)) {
        return text;
    }
    storage.assign(1, '"');
    for (; *text; ++text) {
        AppendQuoted(storage, *text);
    }
    storage += '"';
    return storage.c_str();
}

std::string DecodeIniValue(const char* text) {
    std::string_view left(text);
    if (left.size() < 2 || left.front() != '"' || left.back() != '"') {
        return text;
    }
    left = left.substr(1, left.size() - 2);
    std::string decoded;
    while (!left.empty()) {
        if (!TakeQuoted(left, decoded)) {
            return text;
        }
    }
    return decoded;
}

bool IsAcceptableIni(const char* text, std::size_t length) {
    if (!text || length > std::size_t{kMaximumDocumentBytes} || std::memchr(text, 0, length)) {
        return false;
    }
    int lines = 0;
    std::string_view left(text, length);
    while (!left.empty()) {
        const std::size_t size = std::min(left.find_first_of("\r\n"), left.size());
        const bool isBlank =
            left.substr(0, size).find_first_not_of(" \t") == std::string_view::npos;
        lines += isBlank ? 0 : 1;
        if (size > std::size_t{kMaximumTextBytes} || lines > kMaximumElements) {
            return false;
        }
        left.remove_prefix(std::min(size + 1, left.size()));
    }
    return true;
}

} // namespace Vorin::Serialization
