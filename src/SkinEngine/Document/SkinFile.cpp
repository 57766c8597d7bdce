#include "SkinEngine/Document/SkinFile.h"

#include "SkinEngine/Document/SkinLimits.h"

#include "serialization/Utf8.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vorin::AppEngine {

namespace {

class CDescriptor {
public:
    // Not blocking: to open a pipe would wait for somebody who writes to it.
    explicit CDescriptor(const std::string& path)
        : number(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~CDescriptor() {
        if (number >= 0) {
            ::close(number);
        }
    }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;

    const int number;
};

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

std::string CannotBeRead() { return std::string("cannot be read: ") + std::strerror(errno); }

} // namespace

bool ReadSkinFile(const std::string& path, std::string& content, std::string& problem) {
    const CDescriptor file(path);
    struct stat state {};
    if (file.number < 0 || ::fstat(file.number, &state) != 0) {
        problem = CannotBeRead();
        return false;
    }
    if (!S_ISREG(state.st_mode)) {
        problem = S_ISDIR(state.st_mode) ? "is a folder, not a file; name a file in it"
                                         : "is not a regular file; name a file on a disk";
        return false;
    }
    // What is there counts, not what the file's size says: it may be growing.
    content.clear();
    char block[65536];
    for (;;) {
        const ssize_t size = ::read(file.number, block, sizeof(block));
        if (size < 0 && errno == EINTR) {
            continue;
        }
        if (size < 0) {
            problem = CannotBeRead();
            return false;
        }
        if (size == 0) {
            return true;
        }
        content.append(block, static_cast<std::size_t>(size));
        if (content.size() > static_cast<std::size_t>(SkinLimits::kFileBytes)) {
            problem = "is larger than " + std::to_string(SkinLimits::kFileBytes / 1024 / 1024) +
                      " MB; split it into several files";
            return false;
        }
    }
}

int FindInvalidUtf8(std::string_view text) {
    if (HasOtherEncoding(text)) {
        return 0;
    }
    int line = 1;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end;) {
        line += *at == '\n' ? 1 : 0;
        if (Serialization::NextCodePoint(at, end) == Serialization::kNoCodePoint) {
            return line;
        }
    }
    return 0;
}

} // namespace Vorin::AppEngine
