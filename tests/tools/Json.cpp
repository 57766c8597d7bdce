#include "Json.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace WorkbenchTests {

namespace {

class CReader {
public:
    explicit CReader(std::string_view document) : text(document) {}

    CJson ReadDocument() {
        CJson value = ReadValue();
        SkipBlanks();
        if (place != text.size()) {
            Fail("text behind the document");
        }
        return value;
    }

private:
    [[noreturn]] void Fail(const std::string& what) const {
        throw std::runtime_error("JSON, byte " + std::to_string(place) + ": " + what);
    }

    char Peek() const { return place < text.size() ? text[place] : '\0'; }

    char Next() {
        if (place >= text.size()) {
            Fail("the document ends early");
        }
        return text[place++];
    }

    void Expect(char c) {
        if (Next() != c) {
            --place;
            Fail(std::string("expected ") + c);
        }
    }

    void SkipBlanks() {
        while (place < text.size() &&
               std::string_view(" \t\r\n").find(text[place]) != std::string_view::npos) {
            ++place;
        }
    }

    void ReadWord(std::string_view word) {
        if (text.substr(place, word.size()) != word) {
            Fail("no value");
        }
        place += word.size();
    }

    CJson ReadValue() {
        SkipBlanks();
        CJson value;
        switch (Peek()) {
        case '{':
            ReadMembers(value);
            break;
        case '[':
            ReadItems(value);
            break;
        case '"':
            value.kind = CJson::kText;
            value.text = ReadText();
            break;
        case 'n':
            ReadWord("null");
            break;
        case 't':
            ReadWord("true");
            value.kind = CJson::kBool;
            value.isTrue = true;
            break;
        case 'f':
            ReadWord("false");
            value.kind = CJson::kBool;
            break;
        default:
            ReadNumber(value);
        }
        return value;
    }

    /// Reads `one` for each element of a list in brackets.
    template <class One>
    void ReadList(char open, char close, One one) {
        Expect(open);
        SkipBlanks();
        if (Peek() == close) {
            ++place;
            return;
        }
        for (;;) {
            one();
            SkipBlanks();
            if (Peek() == close) {
                ++place;
                return;
            }
            Expect(',');
        }
    }

    void ReadMembers(CJson& value) {
        value.kind = CJson::kObject;
        ReadList('{', '}', [&] {
            SkipBlanks();
            std::string name = ReadText();
            for (const auto& member : value.members) {
                if (member.first == name) {
                    Fail("a second member " + name);
                }
            }
            SkipBlanks();
            Expect(':');
            value.members.emplace_back(std::move(name), ReadValue());
        });
    }

    void ReadItems(CJson& value) {
        value.kind = CJson::kArray;
        ReadList('[', ']', [&] { value.items.push_back(ReadValue()); });
    }

    std::string ReadText() {
        Expect('"');
        std::string characters;
        for (char c = Next(); c != '"'; c = Next()) {
            if (static_cast<unsigned char>(c) < 0x20) {
                Fail("a control character in a text");
            }
            characters += c == '\\' ? ReadEscaped() : c;
        }
        return characters;
    }

    char ReadEscaped() {
        constexpr std::string_view written = "\"\\/bfnrt";
        constexpr std::string_view meant = "\"\\/\b\f\n\r\t";
        const std::size_t found = written.find(Next());
        if (found == std::string_view::npos) {
            Fail("an escape that these tests don't know");
        }
        return meant[found];
    }

    std::size_t ReadDigits() {
        const std::size_t start = place;
        while (Peek() >= '0' && Peek() <= '9') {
            ++place;
        }
        return place - start;
    }

    void ReadNumber(CJson& value) {
        const std::size_t start = place;
        if (Peek() == '-') {
            ++place;
        }
        const bool startsWithZero = Peek() == '0';
        const std::size_t digits = ReadDigits();
        if (digits == 0 || (startsWithZero && digits > 1)) {
            Fail("no value");
        }
        if (Peek() == '.') {
            ++place;
            if (ReadDigits() == 0) {
                Fail("no digits behind the point");
            }
        }
        int exponent = 0;
        if (Peek() == 'e' || Peek() == 'E') {
            exponent = ReadExponent();
        }
        value.kind = CJson::kNumber;
        value.text = text.substr(start, place - start);
        const char* end = value.text.data() + value.text.size();
        const auto result = std::from_chars(value.text.data(), end, value.number);
        if (result.ec == std::errc::result_out_of_range && exponent > 0) {
            const double infinity = std::numeric_limits<double>::infinity();
            value.number = value.text[0] == '-' ? -infinity : infinity;
        } else if (result.ec != std::errc() || result.ptr != end) {
            Fail("a number that no double takes");
        }
    }

    int ReadExponent() {
        ++place;
        const bool isNegative = Peek() == '-';
        if (Peek() == '+' || Peek() == '-') {
            ++place;
        }
        if (ReadDigits() == 0) {
            Fail("no digits in the exponent");
        }
        return isNegative ? -1 : 1;
    }

    std::string_view text;
    std::size_t place = 0;
};

} // namespace

const CJson& CJson::At(const std::string& name) const {
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const auto& member) { return member.first == name; });
    if (found == members.end()) {
        throw std::runtime_error("JSON: there is no member " + name);
    }
    return found->second;
}

std::vector<std::string> CJson::GetNames() const {
    std::vector<std::string> names;
    for (const auto& member : members) {
        names.push_back(member.first);
    }
    return names;
}

CJson ParseJson(const std::string& text) { return CReader(text).ReadDocument(); }

} // namespace WorkbenchTests
