#include "datamodel/ValueParsing.h"

#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace Vorin::DataModel::Objects {

bool ParseReal(const char* text, double& value) {
    if (!text) {
        return false;
    }
    char* end = nullptr;
    const double number = std::strtod(text, &end);
    if (end == text) {
        return false;
    }
    value = number;
    return true;
}

bool ParseInteger(const char* text, double& value) {
    if (!text) {
        return false;
    }
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    if (end == text) {
        return false;
    }
    value = static_cast<double>(number);
    return true;
}

namespace {

bool ParseTwoState(const char* text, double& value) {
    if (ParseInteger(text, value)) {
        return true;
    }
    for (const char* word : {"true", "yes", "false", "no"}) {
        if (text && std::strcmp(text, word) == 0) {
            value = 1.0;
            return true;
        }
    }
    return false;
}

} // namespace

bool ParseByType(EParamType type, const char* text, double& value) {
    switch (type) {
    case kParamBoolean:
    case kParamSwitch:
        return ParseTwoState(text, value);
    case kParamInteger:
        return ParseInteger(text, value);
    case kParamReal:
        break;
    }
    return ParseReal(text, value);
}

} // namespace Vorin::DataModel::Objects
