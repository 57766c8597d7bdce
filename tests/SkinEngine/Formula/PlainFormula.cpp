#include "SkinEngine/Formula/PlainFormula.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <string_view>
#include <vector>

namespace Vorin::AppEngine::Testing {
namespace {

/// A token by its text; names and numbers by their first character.
struct CToken {
    enum EKind { kEnd, kSign, kNumber, kName, kUseless } kind = kEnd;
    std::string text = {};
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool IsNameStart(char c) {
    return c == '$' || c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsNamePart(char c) { return IsNameStart(c) || IsDigit(c) || c == '.'; }

class CPlainTokens {
public:
    explicit CPlainTokens(std::string_view formula) : text(formula) {}

    std::vector<CToken> Take() {
        std::vector<CToken> tokens;
        while (at < text.size()) {
            CToken token;
            if (Read(token)) {
                tokens.push_back(token);
            }
        }
        tokens.push_back({});
        return tokens;
    }

private:
    char Peek(std::size_t ahead = 0) const {
        return at + ahead < text.size() ? text[at + ahead] : '\0';
    }

    /// What is dropped together with what was read so far.
    bool Drop(std::size_t count) {
        at = std::min(at + count, text.size());
        return false;
    }

    bool ReadSign(CToken& token, std::size_t length, const char* meaning) {
        at += length;
        token = {CToken::kSign, meaning};
        return true;
    }

    bool Read(CToken& token) {
        const char c = Peek();
        const char next = Peek(1);
        if (c != '\0' && std::strchr(" \t\n\f\r", c)) {
            return Drop(1);
        }
        if (c != '\0' && std::strchr("(),+-*/%^", c)) {
            return ReadSign(token, 1, std::string(1, c).c_str());
        }
        switch (c) {
        case '|':
            return next == '|' ? ReadSign(token, 2, "or") : Drop(3);
        case '&':
            return next == '&' ? ReadSign(token, 2, "and") : Drop(3);
        case '=':
            return ReadSign(token, next == '=' ? 2 : 1, "=");
        case '!':
            return next == '=' ? ReadSign(token, 2, "<>") : ReadSign(token, 1, "not");
        case '<':
            return next == '='   ? ReadSign(token, 2, "<=")
                   : next == '>' ? ReadSign(token, 2, "<>")
                                 : ReadSign(token, 1, "<");
        case '>':
            return next == '=' ? ReadSign(token, 2, ">=") : ReadSign(token, 1, ">");
        case '\'':
            return ReadText(token);
        case '#':
            return ReadDate(token);
        default:
            break;
        }
        if (IsDigit(c) || c == '.') {
            return ReadNumber(token);
        }
        return IsNameStart(c) ? ReadName(token) : Drop(1);
    }

    bool ReadText(CToken& token) {
        ++at;
        while (at < text.size()) {
            const char c = Peek();
            if (c == '\'') {
                ++at;
                token = {CToken::kUseless, ""};
                return true;
            }
            if (c >= '\0' && c < ' ') {
                return Drop(2);
            }
            ++at;
            if (c == '\\' && !ReadEscape()) {
                return false;
            }
        }
        return false;
    }

    bool ReadEscape() {
        if (at >= text.size() || !std::strchr("'\\nrtu", Peek()) || Peek() == '\0') {
            return Drop(1);
        }
        const bool isCode = Peek() == 'u';
        ++at;
        for (int i = 0; isCode && i < 4; ++i) {
            if (!IsHexDigit(Peek())) {
                return Drop(2);
            }
            ++at;
        }
        return true;
    }

    bool ReadDate(CToken& token) {
        const std::size_t end = text.find('#', at + 1);
        if (end == std::string_view::npos) {
            return Drop(text.size());
        }
        at = end + 1;
        token = {CToken::kUseless, ""};
        return true;
    }

    bool ReadNumber(CToken& token) {
        const std::size_t begin = at;
        while (IsDigit(Peek())) {
            ++at;
        }
        if (Peek() == '.') {
            ++at;
            if (!IsDigit(Peek())) {
                return Drop(1);
            }
            while (IsDigit(Peek())) {
                ++at;
            }
        }
        token = {CToken::kNumber, std::string(text.substr(begin, at - begin))};
        return true;
    }

    bool ReadName(CToken& token) {
        const std::size_t begin = at;
        while (IsNamePart(Peek())) {
            ++at;
        }
        const std::string word(text.substr(begin, at - begin));
        const bool isSign = word == "or" || word == "and" || word == "not";
        token = {isSign ? CToken::kSign : CToken::kName, word};
        return true;
    }

    std::string_view text;
    std::size_t at = 0;
};

struct CInvalid {};

double Truth(bool holds) { return holds ? 1.0 : 0.0; }

/// What an operator does; nothing for one that has no meaning.
std::optional<double> Operate(const std::string& sign, double a, double b) {
    if (sign == "or")
        return Truth(a != 0.0 || b != 0.0);
    if (sign == "and")
        return Truth(a != 0.0 && b != 0.0);
    if (sign == "=")
        return Truth(a == b);
    if (sign == "<>")
        return Truth(a != b);
    if (sign == "<")
        return Truth(a < b);
    if (sign == "<=")
        return Truth(a <= b);
    if (sign == ">")
        return Truth(a > b);
    if (sign == ">=")
        return Truth(a >= b);
    if (sign == "+")
        return a + b;
    if (sign == "-")
        return a - b;
    if (sign == "*")
        return a * b;
    if (sign == "/")
        return a / b;
    if (sign == "^")
        return b == 2.0 ? a * a : std::pow(a, b);
    return std::nullopt;
}

double PlainSquareRoot(double x) { return x < 0.0 ? 0.0 : std::sqrt(x); }

std::optional<double> CallBuiltIn(const std::string& name, double x) {
    using Function = double (*)(double);
    static const std::map<std::string, Function> functions = {
        {"exp", std::exp},   {"log", std::log},   {"cosh", std::cosh},       {"sinh", std::sinh},
        {"tanh", std::tanh}, {"cos", std::cos},   {"sqrt", PlainSquareRoot}, {"sin", std::sin},
        {"tan", std::tan},   {"ceil", std::ceil}, {"floor", std::floor},     {"round", std::round},
        {"abs", std::fabs}};
    const auto found = functions.find(name);
    return found != functions.end() ? std::optional(found->second(x)) : std::nullopt;
}

std::optional<double> CallBuiltIn(const std::string& name, double x, double y) {
    if (name == "min") {
        return y < x ? y : x;
    }
    if (name == "max") {
        return x < y ? y : x;
    }
    return std::nullopt;
}

double ToNumber(const std::string& digits) {
    double value = 0.0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const std::size_t first = digits.find_first_not_of("0.");
        return first < digits.find('.') ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}

class CPlainReader {
public:
    CPlainReader(std::vector<CToken> formulaTokens, const CPlainNames& formulaNames)
        : tokens(std::move(formulaTokens)), names(formulaNames) {}

    double Expression() {
        const double value = Level(0);
        if (Token().kind != CToken::kEnd) {
            throw CInvalid();
        }
        return value;
    }

private:
    const CToken& Token() const { return tokens[at]; }

    bool Take(const char* sign) {
        if (Token().kind != CToken::kSign || Token().text != sign) {
            return false;
        }
        ++at;
        return true;
    }

    void Need(const char* sign) {
        if (!Take(sign)) {
            throw CInvalid();
        }
    }

    double Level(std::size_t level) {
        static const std::vector<std::vector<std::string>> levels = {
            {"or"},     {"and"},         {"=", "<>"}, {"<", "<=", ">", ">="},
            {"+", "-"}, {"*", "/", "%"}, {"^"}};
        if (level == levels.size()) {
            return Unary();
        }
        double value = Level(level + 1);
        for (;;) {
            std::string sign;
            for (const std::string& candidate : levels[level]) {
                if (sign.empty() && Take(candidate.c_str())) {
                    sign = candidate;
                }
            }
            if (sign.empty()) {
                return value;
            }
            value = Valid(Operate(sign, value, Level(level + 1)));
        }
    }

    static double Valid(std::optional<double> value) {
        if (!value) {
            throw CInvalid();
        }
        return *value;
    }

    double Unary() {
        if (Take("not")) {
            return Truth(Primary() == 0.0);
        }
        return Take("-") ? -Primary() : Primary();
    }

    double Primary() {
        if (Take("(")) {
            const double value = Level(0);
            Need(")");
            return value;
        }
        const CToken token = Token();
        ++at;
        switch (token.kind) {
        case CToken::kNumber:
            return ToNumber(token.text);
        case CToken::kName:
            return Name(token.text);
        default:
            throw CInvalid();
        }
    }

    double Name(const std::string& name) {
        if (name == "true" || name == "false") {
            return Truth(name == "true");
        }
        if (!Take("(")) {
            return name == "pi" ? std::acos(-1.0) : Valid(names.bare(name));
        }
        std::vector<double> arguments;
        if (!Take(")")) {
            do {
                arguments.push_back(Level(0));
            } while (Take(","));
            Need(")");
        }
        return Call(name, arguments);
    }

    double Call(const std::string& name, const std::vector<double>& arguments) const {
        if (arguments.size() == 1) {
            const auto value = CallBuiltIn(name, arguments[0]);
            return value ? *value : Valid(names.call1(name, arguments[0]));
        }
        if (arguments.size() == 2) {
            const auto value = CallBuiltIn(name, arguments[0], arguments[1]);
            return value ? *value : Valid(names.call2(name, arguments[0], arguments[1]));
        }
        throw CInvalid();
    }

    const std::vector<CToken> tokens;
    const CPlainNames& names;
    std::size_t at = 0;
};

} // namespace

std::optional<double> EvaluatePlainly(const std::string& text, const CPlainNames& names) {
    try {
        return CPlainReader(CPlainTokens(text).Take(), names).Expression();
    } catch (const CInvalid&) {
        return std::nullopt;
    }
}

} // namespace Vorin::AppEngine::Testing
