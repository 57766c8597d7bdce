#include "serialization/IniFile.h"

#include "serialization/IniText.h"

#include <algorithm>

#define SI_IMPLEMENTATION
#define SI_NO_CONVERSION
#include <SimpleIni.h>

namespace Vorin::Serialization {

namespace {

using CSimpleIni = CSimpleIniTempl<char, SI_NoCase<char>, SI_ConvertA<char>>;

class CWriter final : public CSimpleIni::OutputWriter {
public:
    explicit CWriter(std::string& writtenText) : text(writtenText) {}
    void Write(const char* part) override { text += part; }

private:
    std::string& text;
};

// The locale has a say in tolower.
unsigned char Folded(char c) {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

bool BeginsWith(std::string_view text, std::string_view beginning) {
    return text.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), text.begin(),
                      [](char a, char b) { return Folded(a) == Folded(b); });
}

} // namespace

struct CIniFile::CLibrary {
    CLibrary() { ini.SetSpaces(false); }
    CSimpleIni ini;
};

bool CIniFile::CLess::operator()(std::string_view a, std::string_view b) const {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return Folded(x) < Folded(y); });
}

CIniFile::CIniFile() : library(std::make_unique<CLibrary>()) {}
CIniFile::~CIniFile() = default;

void CIniFile::Clear() {
    library = std::make_unique<CLibrary>();
    sections.clear();
}

bool CIniFile::Parse(const char* text, std::size_t length) {
    Clear();
    if (!IsAcceptableIni(text, length)) {
        return false;
    }
    if (library->ini.LoadData(text, length) < 0) {
        Clear();
        return false;
    }
    CSimpleIni::TNamesDepend names;
    library->ini.GetAllSections(names);
    for (const CSimpleIni::Entry& name : names) {
        sections.insert(name.pItem);
    }
    return true;
}

bool CIniFile::Print(std::string& text) const {
    std::string printed;
    CWriter writer(printed);
    if (library->ini.Save(writer) < 0 || !IsAcceptableIni(printed.data(), printed.size())) {
        return false;
    }
    text.swap(printed);
    return true;
}

const char* CIniFile::GetValue(const char* section, const char* key) const {
    return library->ini.GetValue(section, key, nullptr);
}

bool CIniFile::HasSection(const char* section) const {
    return library->ini.GetSection(section) != nullptr;
}

bool CIniFile::SetValue(const char* section, const char* key, const char* value) {
    if (library->ini.SetValue(section, key, value) < 0) {
        return false;
    }
    sections.insert(section);
    return true;
}

bool CIniFile::AddSection(const char* section) { return SetValue(section, nullptr, nullptr); }

void CIniFile::RemoveValue(const char* section, const char* key) {
    // A named section without keys is an empty object; the one without a name would only be lines.
    library->ini.Delete(section, key, !*section);
}

void CIniFile::RemoveSection(const char* section) {
    if (!*section) {
        Clear();
        return;
    }
    library->ini.Delete(section, nullptr);
    sections.erase(section);
    const std::string below = std::string(section) + "/";
    auto at = sections.lower_bound(below);
    while (at != sections.end() && BeginsWith(*at, below)) {
        library->ini.Delete(at->c_str(), nullptr);
        at = sections.erase(at);
    }
}

} // namespace Vorin::Serialization
