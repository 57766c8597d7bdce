#pragma once

#include "containers/CharString.h"
#include "serialization/NumberText.h"

namespace Vorin::Serialization {

/// The name of one item of a list: its word and its number, "item0".
inline Containers::CCharString ItemName(const char* word, int index) {
    Containers::CCharString name(word);
    name.Append(NumberText::Write(index).Get());
    return name;
}

} // namespace Vorin::Serialization
