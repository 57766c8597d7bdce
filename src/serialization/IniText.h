#pragma once

#include <cstddef>
#include <string>

namespace Vorin::Serialization {

/// `text` itself, or, when it would not come back as it is, `storage` with the text in quotes: one
/// with blanks at its ends, with control characters (line ends among them) or a leading quote. In
/// quotes "\\", "\"", "\n", "\r", "\t" and "\x<two hexadecimal digits>" stand for characters.
const char* EncodeIniValue(const char* text, std::string& storage);

/// The other way. What is no whole text in quotes is taken as it stands.
std::string DecodeIniValue(const char* text);

/// Whether a file of strangers may be parsed: within the limits of Limits.h (a line counts as a
/// text, and a line that is not blank as an element), without zero bytes.
bool IsAcceptableIni(const char* text, std::size_t length);

} // namespace Vorin::Serialization
