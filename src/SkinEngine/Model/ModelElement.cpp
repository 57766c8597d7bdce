#include "SkinEngine/Model/ModelElement.h"

#include "SkinEngine/Formula/ParseFormula.h"
#include "SkinEngine/Model/ElementTable.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace Vorin::AppEngine {

const char* CModelElement::GetName() const { return kind.name; }

std::string CModelElement::GetSubId(const char* word) const {
    return *GetId() ? std::string(GetId()) + "." + word : std::string();
}

bool CModelElement::IsTrue(const char* name) const {
    return std::strcmp(GetText(name), "true") == 0;
}

bool CModelElement::IsNotFalse(const char* name) const {
    return std::strcmp(GetText(name), "false") != 0;
}

bool CModelElement::ReadNumber(const char* text, double& value) {
    const char* end = text + std::strlen(text);
    double number = 0.0;
    const std::from_chars_result read =
        std::from_chars(*text == '+' ? text + 1 : text, end, number);
    if (read.ec != std::errc() || read.ptr != end) {
        const std::unique_ptr<Math::IConstant> formula = ParseConstantFormula(text);
        number = formula ? formula->Evaluate() : std::numeric_limits<double>::quiet_NaN();
    }
    if (std::isfinite(number)) {
        value = number;
        return true;
    }
    const int line = factory.GetLog().GetPlace().GetLine();
    Fail("Line " + std::to_string(line) + ":'" + text + "' is an invalid formula.");
    SetFailed();
    return false;
}

bool CModelElement::GetDouble(const char* name, double& value) {
    return Has(name) && ReadNumber(Get(name), value);
}

bool CModelElement::GetInteger(const char* name, int& value) {
    if (!Has(name)) {
        return false;
    }
    double number = 0.0; // also what an empty text counts as
    if (*Get(name) && !ReadNumber(Get(name), number)) {
        return false;
    }
    // Whatever lies beyond an int counts as its nearer end.
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    value = static_cast<int>(std::fmin(std::fmax(number, kLeast), kMost));
    return true;
}

bool CModelElement::AddToLists() {
    if (IsTrue("persistent")) {
        factory.AddPersistentObjects(GetId());
    }
    if (IsTrue("exposed")) {
        factory.AddExposedObjects(GetId());
    }
    return true;
}

} // namespace Vorin::AppEngine
