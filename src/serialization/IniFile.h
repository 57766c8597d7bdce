#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace Vorin::Serialization {

/// The content of an INI file: sections of keys with values, all as they stand in the file. Names
/// of sections and keys are the same in upper and lower case (of ASCII).
///
/// The section of the empty name holds the keys before the first header. A value that is set again
/// leaves its old text in memory until the content goes as a whole.
class CIniFile {
public:
    CIniFile();
    ~CIniFile();
    CIniFile(const CIniFile&) = delete;
    CIniFile& operator=(const CIniFile&) = delete;

    /// Replaces the content; text that is not acceptable leaves none.
    bool Parse(const char* text, std::size_t length);

    /// `[section]`, `key=value`, a line each, ended by "\n". False for what would not be parsed.
    bool Print(std::string& text) const;

    void Clear();

    /// Null when there is no such key. Valid until the next change.
    const char* GetValue(const char* section, const char* key) const;
    bool HasSection(const char* section) const;

    bool SetValue(const char* section, const char* key, const char* value);
    bool AddSection(const char* section);
    void RemoveValue(const char* section, const char* key);

    /// Removes the section and those below it, whose names begin with its name and "/". The empty
    /// name removes all.
    void RemoveSection(const char* section);

private:
    struct CLess {
        bool operator()(std::string_view a, std::string_view b) const;
    };
    struct CLibrary;

    std::unique_ptr<CLibrary> library;
    std::set<std::string, CLess> sections; // in order, which the library keeps for itself
};

} // namespace Vorin::Serialization
