#pragma once

#include "SkinEngine/Document/SkinLimits.h"
#include "containers/NamedAttributes.h"

#include <string>
#include <string_view>

namespace Vorin::AppEngine {

/// Replaces `$name$` in a value by what `find`, from a text to a C string or null, knows under that
/// name. What it puts in is not looked at again. A `$` that closes an unknown name may open the
/// next one. False, and `result` is not to be used, when nothing was replaced.
///
/// A result that grows beyond `SkinLimits::kTextBytes` is left unfinished; it is longer than that,
/// so that whoever checks the values of an element finds it.
template <class Find>
bool SubstituteVariables(std::string_view value, std::string& result, Find find) {
    bool isAnyFound = false;
    std::size_t copied = 0;
    std::size_t opening = value.find('$');
    while (opening != std::string_view::npos) {
        const std::size_t closing = value.find('$', opening + 1);
        if (closing == std::string_view::npos) {
            break;
        }
        const char* replacement = find(value.substr(opening + 1, closing - opening - 1));
        if (replacement) {
            if (!isAnyFound) {
                result.clear();
                isAnyFound = true;
            }
            // A text between two references may itself be a name: then nothing stands before it.
            if (opening > copied) {
                result += value.substr(copied, opening - copied);
            }
            result += replacement;
            copied = closing + 1;
            if (result.size() > static_cast<std::size_t>(SkinLimits::kTextBytes)) {
                return true;
            }
        }
        opening = closing;
    }
    if (isAnyFound) {
        result += value.substr(copied);
    }
    return isAnyFound;
}

} // namespace Vorin::AppEngine
