#include "containers/CharString.h"

#include <cstring>
#include <functional>

namespace Vorin::Containers {

namespace {

constexpr std::size_t maximumLength = std::numeric_limits<int>::max() - 8;

} // namespace

CCharString& CCharString::operator=(const char* text) {
    const std::size_t length = text ? std::strlen(text) : 0;
    if (length > maximumLength) {
        return *this;
    }
    if (length == 0) {
        Clear();
        return *this;
    }
    if (text == bytes.GetData()) {
        return *this;
    }
    // A text from inside this string is shorter than it, so nothing is reallocated before the move.
    bytes.SetSize(static_cast<int>(length) + 1);
    std::memmove(bytes.GetData(), text, length);
    bytes[static_cast<int>(length)] = '\0';
    return *this;
}

void CCharString::Append(const char* text) {
    if (text) {
        const std::size_t length = std::strlen(text);
        if (length <= maximumLength) {
            Append(text, static_cast<int>(length));
        }
    }
}

void CCharString::Append(const char* text, int length) {
    if (!text || length <= 0) {
        return;
    }
    const std::size_t count = strnlen(text, static_cast<std::size_t>(length));
    const std::size_t oldLength = static_cast<std::size_t>(GetLength());
    if (count == 0 || count > maximumLength - oldLength) {
        return;
    }
    const char* begin = bytes.GetData();
    const std::less_equal<const char*> before;
    const bool inside = begin && before(begin, text) && before(text, begin + oldLength);
    const std::ptrdiff_t offset = inside ? text - begin : 0;
    bytes.SetSize(static_cast<int>(oldLength + count) + 1);
    char* end = bytes.GetData() + oldLength;
    std::memmove(end, inside ? bytes.GetData() + offset : text, count);
    end[count] = '\0';
}

void CCharString::Clear() { bytes.SetSize(0); }

bool operator==(const CCharString& a, const char* b) {
    return std::strcmp(a.Get(), b ? b : "") == 0;
}

} // namespace Vorin::Containers
