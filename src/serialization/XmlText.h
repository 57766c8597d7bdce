#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Vorin::Serialization {

/// Whether an XML document can hold that character, be it by number.
bool IsXmlCharacter(std::uint32_t codePoint);

/// Whether a name may begin with, or go on with, that character.
bool IsXmlNameStart(std::uint32_t codePoint);
bool IsXmlNameCharacter(std::uint32_t codePoint);

/// `text` itself, or, when XML cannot carry it, `storage` with U+FFFD in the place of each control
/// character (all but tab, line feed and carriage return), of U+FFFE and U+FFFF, and of each byte
/// that is no UTF-8.
const char* CleanXmlText(const char* text, std::string& storage);

/// Appends the text as it stands in a document, so that it reads back exactly: the markup
/// characters by name, and by number the white space that a reader would change.
void AppendXmlAttribute(std::string& target, const char* text);
void AppendXmlContent(std::string& target, const char* text);

/// Whether a document of strangers may be parsed: UTF-8 throughout, with or without its mark,
/// within the limits of Limits.h, one root, no declarations of a document type. What passes may
/// still be refused by the parser; what the parser would see otherwise than this does not pass.
bool IsAcceptableXml(const char* text, std::size_t length);

} // namespace Vorin::Serialization
