#pragma once

#include "serialization/DataStream.h"

namespace Vorin::Audio::Plugin {

/// Whether an object that holds an int `countKey` and items `<word>0`, `<word>1`, ... is one that
/// can be: the count is none of a negative number or of more than there is. Items beyond the
/// `known` ones are another version's, and have to be there; without a count there are none.
[[nodiscard]] bool IsCountFit(const Serialization::IReadDataStream& stream, const char* countKey,
                              const char* word, int known);

} // namespace Vorin::Audio::Plugin
