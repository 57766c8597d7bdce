#include "Commands.h"

#include "Numbers.h"
#include "Printable.h"
#include "SkinEngine/Formula/ParseFormula.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

namespace Workbench {

using namespace Vorin;

namespace {

constexpr const char* kFormulaHelp = R"(usage: ondara formula TEXT [options]

Evaluates a formula of the skin language, and prints its value with 17 significant digits.

  --kind constant|function|surface
                       a value (default), a curve over x, or a surface over x and y
  --x NAME, --y NAME   what the variables are called (x and y)
  --at X[,Y]           where to evaluate a curve or surface (0,0)
  --let NAME=VALUE     a value for an open name, which is 0 otherwise; can be repeated
  --names              print the open names instead: param NAME, function NAME, surface NAME
  --plain              take no open names: a name that is not built in makes the formula invalid

A text that could be taken for an option goes behind "--".
)";

enum EFormulaKind { kConstantKind, kFunctionKind, kSurfaceKind };

/// What the command line asks for.
struct CFormulaRequest {
    std::optional<std::string> text;
    int kind = kConstantKind;
    std::optional<std::string> xName;
    std::optional<std::string> yName;
    std::optional<double> x;
    std::optional<double> y;
    std::vector<std::pair<std::string, double>> values;
    bool names = false;
    bool plain = false;

    const char* GetXName() const { return xName ? xName->c_str() : nullptr; }
    const char* GetYName() const { return yName ? yName->c_str() : nullptr; }
};

/// A number as this command prints it, too.
bool ParseValue(const std::string& text, double& value) {
    const double infinity = std::numeric_limits<double>::infinity();
    if (text == "nan") {
        value = std::numeric_limits<double>::quiet_NaN();
    } else if (text == "inf" || text == "-inf") {
        value = text == "inf" ? infinity : -infinity;
    } else {
        return ParseNumber(text, value);
    }
    return true;
}

COutcome TakeLet(CArguments& arguments, CFormulaRequest& request) {
    std::string text;
    if (COutcome outcome = arguments.TakeText(text); !outcome) {
        return outcome;
    }
    const std::size_t equals = text.find('=');
    double value = 0.0;
    if (equals == std::string::npos || equals == 0 || !ParseValue(text.substr(equals + 1), value)) {
        return COutcome::WrongUsage("--let: \"" + text + "\" is not NAME=VALUE with a number");
    }
    request.values.emplace_back(text.substr(0, equals), value);
    return {};
}

COutcome TakeAt(CArguments& arguments, CFormulaRequest& request) {
    std::string text;
    if (COutcome outcome = arguments.TakeText(text); !outcome) {
        return outcome;
    }
    const std::size_t comma = text.find(',');
    double x = 0.0;
    double y = 0.0;
    const bool hasY = comma != std::string::npos;
    if (!ParseValue(text.substr(0, comma), x) || (hasY && !ParseValue(text.substr(comma + 1), y))) {
        return COutcome::WrongUsage("--at: \"" + text + "\" is not X or X,Y in numbers");
    }
    request.x = x;
    request.y = hasY ? std::optional(y) : std::nullopt;
    return {};
}

COutcome TakeName(CArguments& arguments, std::optional<std::string>& name) {
    return arguments.TakeText(name.emplace());
}

/// The first word that is no option is the formula, also when it begins with a minus.
COutcome TakeFormula(CArguments& arguments, CFormulaRequest& request) {
    if (request.text) {
        return COutcome::WrongUsage(arguments.Get() +
                                    ": is not understood; see ondara formula --help");
    }
    request.text = arguments.Get();
    return {};
}

COutcome TakeWord(CArguments& arguments, CFormulaRequest& request) {
    const std::string word = arguments.Get();
    if (word == "--kind") {
        return arguments.TakeChoice(request.kind, {"constant", "function", "surface"});
    }
    if (word == "--x") {
        return TakeName(arguments, request.xName);
    }
    if (word == "--y") {
        return TakeName(arguments, request.yName);
    }
    if (word == "--at") {
        return TakeAt(arguments, request);
    }
    if (word == "--let") {
        return TakeLet(arguments, request);
    }
    if (word == "--names" || word == "--plain") {
        (word == "--names" ? request.names : request.plain) = true;
        return {};
    }
    if (word == "--") {
        return arguments.Next() ? TakeFormula(arguments, request)
                                : COutcome::WrongUsage("--: the formula has to follow");
    }
    return TakeFormula(arguments, request);
}

/// What was asked for has to make sense together.
COutcome CheckRequest(const CFormulaRequest& request) {
    if (!request.text) {
        return COutcome::WrongUsage("TEXT: say which formula; see ondara formula --help");
    }
    if (request.kind == kConstantKind && (request.x || request.xName || request.yName)) {
        return COutcome::WrongUsage(std::string(request.x       ? "--at"
                                                : request.xName ? "--x"
                                                                : "--y") +
                                    ": a constant has no variable; say --kind function or surface");
    }
    if (request.kind == kFunctionKind && (request.y || request.yName)) {
        return COutcome::WrongUsage(std::string(request.y ? "--at" : "--y") +
                                    ": a function has no second variable; say --kind surface");
    }
    if (request.kind == kSurfaceKind && request.plain) {
        return COutcome::WrongUsage("--plain: there are plain constants and functions alone");
    }
    return {};
}

COutcome InvalidFormula(const CFormulaRequest& request) {
    std::fprintf(stderr, "%s: invalid formula\n", Printable(*request.text).c_str());
    return COutcome::BadInput("");
}

COutcome PrintValue(double value) {
    // The longest is a sign, 17 digits, a point and an exponent of three digits with its sign.
    char text[32] = "nan";
    if (!std::isnan(value)) {
        *std::to_chars(text, text + sizeof text - 1, value, std::chars_format::general, 17).ptr =
            '\0';
    }
    std::puts(text);
    return {};
}

/// Sets what stands behind --let; a name that is not there does no harm, and is told.
template <class F>
void SetValues(const CFormulaRequest& request, F* formula) {
    for (const auto& [name, value] : request.values) {
        if (!formula || !formula->SetConstant(name.c_str(), value)) {
            std::fprintf(stderr, "--let: %s is no open name of the formula\n",
                         Printable(name).c_str());
        }
    }
}

void AddNames(const char* kind, Math::TIParametrizedFunction<Math::IConstant>::NameIterator* names,
              std::vector<std::string>& lines) {
    const std::unique_ptr<Containers::IConstValueIterator<const char*>> owned(names);
    for (; !names->IsAtEnd(); names->Next()) {
        lines.push_back(std::string(kind) + " " + names->GetValue());
    }
}

template <class F>
COutcome PrintNames(const AppEngine::TParametrizedFunction<F>& formula) {
    std::vector<std::string> lines;
    AddNames("param", formula.CreateConstantIterator(), lines);
    AddNames("function", formula.CreateFunctionIterator(), lines);
    AddNames("surface", formula.CreateBinaryFunctionIterator(), lines);
    std::sort(lines.begin(), lines.end());
    for (const std::string& line : lines) {
        std::puts(line.c_str());
    }
    return {};
}

template <class F, class... Arguments>
COutcome RunOpen(const CFormulaRequest& request,
                 std::unique_ptr<AppEngine::TParametrizedFunction<F>> formula,
                 Arguments... arguments) {
    if (!formula) {
        return InvalidFormula(request);
    }
    SetValues(request, formula.get());
    return request.names ? PrintNames(*formula)
                         : PrintValue(formula->GetFunction()->Evaluate(arguments...));
}

template <class F, class... Arguments>
COutcome RunPlain(const CFormulaRequest& request, std::unique_ptr<F> formula,
                  Arguments... arguments) {
    if (!formula) {
        return InvalidFormula(request);
    }
    SetValues<Math::TIParametrizedFunction<F>>(request, nullptr);
    return request.names ? COutcome() : PrintValue(formula->Evaluate(arguments...));
}

COutcome RunRequest(const CFormulaRequest& request) {
    const char* text = request.text->c_str();
    const double x = request.x.value_or(0.0);
    const double y = request.y.value_or(0.0);
    switch (request.kind) {
    case kFunctionKind:
        if (request.plain) {
            return RunPlain(request, AppEngine::ParseFunctionFormula(text, request.GetXName()), x);
        }
        return RunOpen(request, AppEngine::ParseParametrizedFunction(text, request.GetXName()), x);
    case kSurfaceKind:
        return RunOpen(request,
                       AppEngine::ParseParametrizedBinaryFunction(text, request.GetXName(),
                                                                  request.GetYName()),
                       x, y);
    default:
        if (request.plain) {
            return RunPlain(request, AppEngine::ParseConstantFormula(text));
        }
        return RunOpen(request, AppEngine::ParseParametrizedConstant(text));
    }
}

} // namespace

COutcome RunFormula(CArguments& arguments) {
    CFormulaRequest request;
    while (arguments.Next()) {
        if (arguments.Get() == "--help" || arguments.Get() == "-h") {
            std::fputs(kFormulaHelp, stdout);
            return {};
        }
        if (COutcome outcome = TakeWord(arguments, request); !outcome) {
            return outcome;
        }
    }
    if (COutcome outcome = CheckRequest(request); !outcome) {
        return outcome;
    }
    return RunRequest(request);
}

} // namespace Workbench
