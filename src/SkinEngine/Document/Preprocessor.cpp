// The elements that the parser handles itself; see SkinParser.h.
#include "SkinEngine/Document/SkinParser.h"

#include "SkinEngine/Document/FilePaths.h"
#include "SkinEngine/Document/SkinLimits.h"
#include "SkinEngine/Document/VariableSubstitution.h"
#include "SkinEngine/Formula/ParseFormula.h"
#include "serialization/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace Vorin::AppEngine {

using Containers::CNamedAttributes;
using Containers::IConstNamedAttributes;

namespace {

using CStart = Core::TArgReturnCommand<CSkinParser, bool, const IConstNamedAttributes&>;
using CEnd = Core::TReturnCommand<CSkinParser, bool>;

bool IsTrue(const char* value) { return value && std::strcmp(value, "true") == 0; }

const char* TextOf(const char* value) { return value ? value : ""; }

/// A whole number as an integer, so that it can stand in a name; anything else with all its digits.
std::string GetFormulaText(double value) {
    if (std::isnan(value)) {
        return "nan"; // its sign is the machine's
    }
    if (!std::isfinite(value) || std::trunc(value) != value) {
        return Serialization::NumberText::Write(value).Get();
    }
    char text[std::numeric_limits<double>::max_exponent10 + 3]; // a sign, all digits, the zero
    std::snprintf(text, sizeof(text), "%.0f", value == 0.0 ? 0.0 : value);
    return text;
}

int ClampToInt(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::trunc(value), kLeast, kMost));
}

} // namespace

void CSkinParser::RegisterPreprocessor() {
    RegisterStartHandler("INCLUDE", new CStart(this, &CSkinParser::OnIncludeStart));
    RegisterStartHandler("INCLUDE_ONCE", new CStart(this, &CSkinParser::OnIncludeOnceStart));
    RegisterStartHandler("DEFINE", new CStart(this, &CSkinParser::OnDefineStart));
    RegisterEndHandler("DEFINE", new CEnd(this, &CSkinParser::OnDefineEnd));
    RegisterStartHandler("UNDEFINE", new CStart(this, &CSkinParser::OnUndefineStart));
    RegisterEndHandler("UNDEFINE", new CEnd(this, &CSkinParser::OnUndefineEnd));
    RegisterStartHandler("TEMPLATE", new CStart(this, &CSkinParser::OnTemplateStart));
    RegisterEndHandler("TEMPLATE", new CEnd(this, &CSkinParser::OnTemplateEnd));
    RegisterStartHandler("VARIABLE", new CStart(this, &CSkinParser::OnVariableStart));
    RegisterStartHandler("LOCAL_VARIABLE", new CStart(this, &CSkinParser::OnLocalVariableStart));
    RegisterStartHandler("REPEAT", new CStart(this, &CSkinParser::OnRepeatStart));
    RegisterEndHandler("REPEAT", new CEnd(this, &CSkinParser::OnRepeatEnd));
    RegisterStartHandler("SCRIPT", new CStart(this, &CSkinParser::OnScriptStart));
}

// -- Files ---------------------------------------------------------------------------------------

bool CSkinParser::OnIncludeStart(const IConstNamedAttributes& attributes) {
    return ParseFile(ResolveFilePath(attributes, "file", rootFilePath.c_str()).value_or(""));
}

bool CSkinParser::OnIncludeOnceStart(const IConstNamedAttributes& attributes) {
    const std::string path = ResolveFilePath(attributes, "file", rootFilePath.c_str()).value_or("");
    return !includedOnce.insert(path).second || ParseFile(path);
}

bool CSkinParser::OnScriptStart(const IConstNamedAttributes& attributes) {
    const char* source = attributes.GetValue("src");
    if (!source) {
        LogMessage(Core::kErrorMessage, "SCRIPT: missing mandatory src attribute.");
        return false;
    }
    if (!scriptEngine) {
        LogMessage(Core::kWarningMessage, "SCRIPT: current engine does not supports scripts.");
        return true;
    }
    return scriptEngine->Run((rootFilePath + source).c_str(), log);
}

// -- Definitions and templates -------------------------------------------------------------------

bool CSkinParser::OnDefineStart(const IConstNamedAttributes& /*attributes*/) {
    inDefine = true;
    return true;
}

bool CSkinParser::OnDefineEnd() {
    inDefine = false;
    return true;
}

bool CSkinParser::OnUndefineStart(const IConstNamedAttributes& /*attributes*/) {
    inUndefine = true;
    return true;
}

bool CSkinParser::OnUndefineEnd() {
    inUndefine = false;
    return true;
}

bool CSkinParser::OnTemplateStart(const IConstNamedAttributes& attributes) {
    inTemplate = true;
    templates.SetElementPlace(place);
    return templates.OnTemplateStart(attributes);
}

bool CSkinParser::OnTemplateEnd() {
    const bool result = templates.OnTemplateEnd();
    inTemplate = false;
    return result;
}

// -- Variables -----------------------------------------------------------------------------------

bool CSkinParser::OnVariableStart(const IConstNamedAttributes& attributes) {
    const std::string id = TextOf(attributes.GetValue("id"));
    if (id.empty()) {
        LogMessage(Core::kErrorMessage, "mandatory id for VARIABLE attribute empty or missing");
        return false;
    }
    if (variables.contains(id) && !IsTrue(attributes.GetValue("override"))) {
        LogMessage(Core::kWarningMessage,
                   id + " variable already in use. New definition will overwrite previous one.");
    }
    const char* formula = attributes.GetValue("formula");
    if (!formula) {
        variables[id] = TextOf(attributes.GetValue("value"));
        return true;
    }
    double value = 0.0;
    if (!EvaluateFormula(formula, value)) {
        return FailFormula(id + ":'" + formula + "' is an invalid formula.");
    }
    variables[id] = GetFormulaText(value);
    return true;
}

bool CSkinParser::OnLocalVariableStart(const IConstNamedAttributes& attributes) {
    const std::string id = TextOf(attributes.GetValue("id"));
    const bool isNew = !id.empty() && !variables.contains(id);
    const bool result = OnVariableStart(attributes);
    if (isNew) {
        localVariables.push_back({depth - 1, id});
    }
    return result;
}

void CSkinParser::DropLocalVariables() {
    while (!localVariables.empty() && localVariables.back().depth > depth) {
        variables.erase(localVariables.back().name);
        localVariables.pop_back();
    }
}

void CSkinParser::Substitute(CNamedAttributes& attributes) {
    if (variables.empty()) {
        return;
    }
    const auto find = [this](std::string_view name) -> const char* {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : found->second.c_str();
    };
    std::string result;
    attributes.ForEachValue([&](Containers::CCharString& value) {
        if (!SubstituteVariables(value.Get(), result, find)) {
            return;
        }
        if (Within(budget.TakeValue(result.size()))) {
            value = result.c_str();
        }
    });
}

bool CSkinParser::FailFormula(const std::string& text) {
    if (!stopped) { // else it was never looked at
        LogMessage(Core::kErrorMessage, text);
    }
    return false;
}

bool CSkinParser::EvaluateFormula(const char* formula, double& value) {
    const auto length = static_cast<int>(std::strlen(formula)); // at most kTextBytes
    if (!Within(budget.TakeElements(SkinLimits::kFormulaCost + length / 2))) {
        return false;
    }
    const std::unique_ptr<Math::IConstant> constant(ParseConstantFormula(formula));
    if (!constant) {
        return false;
    }
    value = constant->Evaluate();
    return true;
}

// -- Repeats -------------------------------------------------------------------------------------

bool CSkinParser::ReadInteger(const IConstNamedAttributes& attributes, const char* name,
                              int& value) {
    const char* text = TextOf(attributes.GetValue(name));
    char* end = nullptr;
    const long read = std::strtol(text, &end, 10);
    if (*end == '\0') {
        value = ClampToInt(static_cast<double>(read));
        return true;
    }
    double result = 0.0;
    if (!EvaluateFormula(text, result)) {
        value = 0;
        return FailFormula("Line " + std::to_string(GetReaderLine()) + ":'" + text +
                           "' is an invalid formula.");
    }
    value = ClampToInt(result);
    return true;
}

bool CSkinParser::OnRepeatStart(const IConstNamedAttributes& attributes) {
    const bool isCountRead = ReadInteger(attributes, "count", repeatCount);
    const bool isStartRead = ReadInteger(attributes, "start", repeatStart);
    const char* indexList = attributes.GetValue("index_list");
    repeatIndexList = TextOf(indexList);
    if (indexList && attributes.GetValue("count")) {
        LogMessage(Core::kWarningMessage, "REPEAT: index_list attribute overrides count attribute");
    }
    repeating = true;
    CNamedAttributes repeatAttributes;
    repeatAttributes.SetValue("id", "RepeatTemplate");
    repeat.SetElementPlace(place);
    static_cast<void>(repeat.OnTemplateStart(repeatAttributes));
    const char* indexName = attributes.GetValue("index_name");
    repeatIndexName = indexName ? indexName : "index";
    return isCountRead && isStartRead;
}

bool CSkinParser::OnRepeatEnd() {
    static_cast<void>(repeat.OnTemplateEnd());
    repeating = false;
    const std::unique_ptr<IParsedTemplate> body(repeat.GetTemplates().Detach("RepeatTemplate"));
    // What is replayed may repeat in its turn, so the fields are free from here on.
    const int count = std::exchange(repeatCount, 0);
    const int start = std::exchange(repeatStart, 0);
    const std::string list = std::exchange(repeatIndexList, {});
    const std::string indexName = std::exchange(repeatIndexName, {});
    repeat.Clear();
    if (!body) {
        return true;
    }
    if (!list.empty()) {
        for (std::size_t begin = 0; begin <= list.size() && !stopped;) {
            const std::size_t end = std::min(list.find(';', begin), list.size());
            ReplayOnce(*body, indexName, list.substr(begin, end - begin));
            begin = end + 1;
        }
        return true;
    }
    for (int i = 0; i < count && !stopped; ++i) {
        ReplayOnce(*body, indexName, std::to_string(std::int64_t{start} + i));
    }
    return true;
}

void CSkinParser::ReplayOnce(IParsedTemplate& body, const std::string& indexName,
                             const std::string& index) {
    // Also when the body is empty: ten million times nothing takes its time too.
    if (!Within(budget.TakeElements(1))) {
        return;
    }
    CNamedAttributes parameters;
    parameters.SetValue(indexName.c_str(), index.c_str());
    ++depth;
    const std::unique_ptr<IParsedTemplateInstance> instance(body.Instantiate(parameters, this));
    --depth;
    DropLocalVariables();
}

} // namespace Vorin::AppEngine
