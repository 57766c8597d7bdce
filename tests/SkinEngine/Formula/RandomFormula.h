#pragma once

#include <random>
#include <string>
#include <vector>

namespace Vorin::AppEngine::Testing {

/// Formulas by chance, the same ones for the same seed: right ones, and such with a slip or two.
class CRandomFormula {
public:
    explicit CRandomFormula(unsigned seed) : engine(seed) {}

    std::string Next() {
        const std::string formula = Expression(static_cast<int>(Below(6)));
        return Chance(60) ? formula : Spoil(formula);
    }

private:
    std::size_t Below(std::size_t count) { return engine() % count; }
    bool Chance(unsigned percent) { return Below(100) < percent; }

    const char* OneOf(const std::vector<const char*>& choices) {
        return choices[Below(choices.size())];
    }

    std::string Space() { return Chance(85) ? "" : OneOf({" ", "\t", "\n", "\r\n", "\f", "   "}); }

    std::string Expression(int levels) {
        if (levels == 0) {
            return Space() + Leaf() + Space();
        }
        const std::size_t kind = Below(100);
        if (kind < 55) {
            return Expression(levels - 1) + Operator() +
                   Expression(static_cast<int>(Below(static_cast<std::size_t>(levels))));
        }
        if (kind < 70) {
            return Space() + "(" + Expression(levels - 1) + ")" + Space();
        }
        if (kind < 80) {
            return OneOf({"-", "!", "not "}) + ("(" + Expression(levels - 1) + ")");
        }
        return Call(levels);
    }

    std::string Operator() {
        return OneOf({"+",    "-",     "*",  "/",  "^",
                      "+",    "-",     "*",  "/",  "^",
                      "==",   "=",     "!=", "<>", "<",
                      "<=",   ">",     ">=", "||", "&&",
                      " or ", " and ", "<",  ">",  Chance(5) ? "%" : "+"});
    }

    std::string Call(int levels) {
        std::string call = OneOf({"exp", "log",   "cosh",   "sinh",  "tanh", "sqrt", "cos", "sin",
                                  "tan", "floor", "ceil",   "round", "abs",  "min",  "max", "min",
                                  "max", "foo",   "wave.a", "pi",    "$f",   "x"});
        const std::size_t count = Chance(96) ? 1 + Below(2) : Below(5);
        const bool isForTwo = call == "min" || call == "max";
        const std::size_t likely = Chance(80) ? (isForTwo ? 2 : 1) : count;
        call += Space() + "(";
        for (std::size_t i = 0; i < likely; ++i) {
            call += (i > 0 ? "," : "") + Expression(levels - 1);
        }
        return call + ")";
    }

    std::string Leaf() {
        switch (Below(10)) {
        case 0:
        case 1:
        case 2:
            return std::to_string(Below(Chance(50) ? 4 : 1000));
        case 3:
            return std::to_string(Below(100)) + "." + std::to_string(Below(10000));
        case 4:
            return "." + std::to_string(Below(1000));
        case 5:
            return OneOf({"true", "false", "pi", "-1", "!0", "2", Chance(3) ? "'text'" : "0",
                          Chance(3) ? "#date#" : "1"});
        case 6:
            return OneOf({"a", "gain", "dsp.input0", "_z", "$v", "min", "log", "order", "nothing",
                          "trueish", "and.", "a$b.c"});
        case 7:
            return Chance(10) ? std::string(Below(400) + 1, '9') : "7";
        default:
            return OneOf({"x", "y", "t", "x"});
        }
    }

    std::string Spoil(std::string formula) {
        const std::size_t slips = 1 + Below(3);
        for (std::size_t slip = 0; slip < slips; ++slip) {
            const std::size_t place = Below(formula.size() + 1);
            switch (Below(4)) {
            case 0:
                formula.erase(place, 1 + Below(2));
                break;
            case 1:
                formula.insert(place, formula.substr(Below(formula.size() + 1), Below(6)));
                break;
            default:
                formula.insert(place, Junk());
            }
        }
        return formula;
    }

    std::string Junk() {
        return OneOf({"@",    "|",        "&",   "'",      "#",     ".",      "..",   "\\",
                      "\\q",  "'a'",      "#1#", "\"",     "~",     "\x01",   "\x7f", "\x80",
                      "\xff", "\xc3\xa4", "{}",  "[1]",    ";",     ":",      "?",    ",",
                      "(",    ")",        "%",   "'\\u12", "'\\n'", "1e3",    "0x1F", " 1 ",
                      "--",   "-!",       "$",   "or",     "and",   "not",    "true", "=!",
                      "^^",   "<<",       "1.",  "'\\",    "'\t",   "'\\u1 '"});
    }

    std::mt19937 engine;
};

} // namespace Vorin::AppEngine::Testing
