#include "SkinEngine/Document/SkinFile.h"

#include "SkinEngine/Document/SkinLimits.h"

#include "serialization/Utf8.h"
#include "system/RegularFile.h"

#include <algorithm>

#include <strings.h>

namespace Vorin::AppEngine {

namespace {

/// Whether an XML text says or shows that it is not in UTF-8.
bool HasOtherEncoding(std::string_view text) {
    if (text.starts_with("\xff\xfe") || text.starts_with("\xfe\xff") ||
        text.substr(0, 4).find('\0') != std::string_view::npos) {
        return true;
    }
    const std::string_view declaration = text.substr(0, text.find("?>"));
    if (!declaration.starts_with("<?xml")) {
        return false;
    }
    const std::size_t encoding = declaration.find("encoding");
    if (encoding == std::string_view::npos) {
        return false;
    }
    const std::string_view value = declaration.substr(
        std::min(declaration.find_first_of("'\"", encoding), declaration.size()));
    return value.size() < 7 || ::strncasecmp(value.data() + 1, "utf-8", 5) != 0;
}

} // namespace

bool ReadSkinFile(const std::string& path, std::string& content, std::string& problem) {
    using EKind = System::CRegularFile::EKind;
    System::CRegularFile file(path.c_str());
    if (file.GetKind() == EKind::kNone) {
        problem = file.GetProblem();
        return false;
    }
    if (file.GetKind() != EKind::kRegular) {
        problem = file.GetKind() == EKind::kFolder ? "is a folder, not a file; name a file in it"
                                                   : "is not a regular file; name a file on a disk";
        return false;
    }
    if (file.ReadAll(content, SkinLimits::kFileBytes)) {
        return true;
    }
    problem = file.GetError() != 0
                  ? file.GetProblem()
                  : "is larger than " + std::to_string(SkinLimits::kFileBytes / 1024 / 1024) +
                        " MB; split it into several files";
    return false;
}

int FindInvalidByte(std::string_view text, const char*& problem) {
    if (HasOtherEncoding(text)) {
        return 0;
    }
    int line = 1;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end;) {
        line += *at == '\n' ? 1 : 0;
        if (*at == '\0') {
            problem = "a NUL byte, which no XML has; the file is damaged";
            return line;
        }
        if (Serialization::NextCodePoint(at, end) == Serialization::kNoCodePoint) {
            problem = "invalid UTF-8; save the file as UTF-8, or declare its encoding";
            return line;
        }
    }
    return 0;
}

} // namespace Vorin::AppEngine
