#pragma once

#include "SkinEngine/Formula/ParseFormula.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Vorin::AppEngine::Testing {

/// The value of a plain formula; nothing for an invalid one.
inline std::optional<double> Value(const std::string& text) {
    const auto formula = ParseConstantFormula(text.c_str());
    return formula ? std::optional(formula->Evaluate()) : std::nullopt;
}

/// Whether each of the five forms takes the formula, in the order of the header: "11111" for all.
inline std::string ValidForms(const std::string& text) {
    std::string forms;
    for (const bool isValid : {ParseConstantFormula(text.c_str()) != nullptr,
                               ParseFunctionFormula(text.c_str()) != nullptr,
                               ParseParametrizedConstant(text.c_str()) != nullptr,
                               ParseParametrizedFunction(text.c_str()) != nullptr,
                               ParseParametrizedBinaryFunction(text.c_str()) != nullptr}) {
        forms += isValid ? '1' : '0';
    }
    return forms;
}
constexpr const char* kInAllForms = "11111";
constexpr const char* kInOpenForms = "00111";
constexpr const char* kInNoForm = "00000";

/// The names that a cursor gives, sorted; deletes the cursor.
template <class Iterator>
std::vector<std::string> Sorted(Iterator* iterator) {
    const std::unique_ptr<Iterator> owned(iterator);
    std::vector<std::string> names;
    for (; !iterator->IsAtEnd(); iterator->Next()) {
        names.emplace_back(iterator->GetValue());
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// `part`, so many times.
inline std::string Repeat(const std::string& part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += part;
    }
    return text;
}

} // namespace Vorin::AppEngine::Testing
