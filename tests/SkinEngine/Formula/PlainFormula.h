#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>

namespace Vorin::AppEngine::Testing {

/// What the names of a formula are for one evaluation. A name that a function gives nothing for
/// makes the formula invalid.
struct CPlainNames {
    std::function<std::optional<double>(const std::string&)> bare;
    std::function<std::optional<double>(const std::string&, double)> call1;
    std::function<std::optional<double>(const std::string&, double, double)> call2;
};

/// Another evaluator of formulas, as plain as can be: it reads and computes in one go, without a
/// tree. Nothing for an invalid formula. It knows no limits.
std::optional<double> EvaluatePlainly(const std::string& text, const CPlainNames& names);

} // namespace Vorin::AppEngine::Testing
