#pragma once

#include <string>

namespace Vorin::Serialization {

/// Where a key is to stand in a text medium.
enum EKeyForm {
    kXmlNameKey, // as the name of an element or attribute
    kXmlTextKey, // as the value of an attribute
    kIniKey      // as a key or as a part of a section's name
};

/// A key as a text medium holds it: the key itself wherever the medium allows it. Every byte that
/// does not fit there is replaced by "_x<two hexadecimal digits>_", and so is an underscore that
/// would read as such; the empty key becomes "_x00_" where an empty one cannot stand. Different
/// keys stay different, and every key makes a well-formed document.
///
/// In an INI file "=", "]", "/", control characters, blanks at the ends and a leading "[", ";" or
/// "#" do not fit.
///
/// The key handed in outlives this object.
class CKeyText {
public:
    CKeyText(const char* key, EKeyForm form);
    CKeyText(const CKeyText&) = delete;
    CKeyText& operator=(const CKeyText&) = delete;

    const char* Get() const { return text; }

private:
    const char* text;
    std::string storage;
};

} // namespace Vorin::Serialization
