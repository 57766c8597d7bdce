#include "serialization/TextFile.h"

#include "serialization/Limits.h"
#include "system/FileReplacement.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

namespace Vorin::Serialization {

namespace {

struct CCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using CFile = std::unique_ptr<std::FILE, CCloser>;

} // namespace

bool ReadTextFile(const char* path, std::string& content) {
    std::error_code error;
    if (!path || !std::filesystem::is_regular_file(path, error)) {
        return false;
    }
    const CFile file(std::fopen(path, "rb"));
    if (!file) {
        return false;
    }
    // What is there counts, not what the file's size says: it may be growing.
    std::string read;
    char block[65536];
    std::size_t size = 0;
    while ((size = std::fread(block, 1, sizeof(block), file.get())) > 0) {
        read.append(block, size);
        if (read.size() > std::size_t{kMaximumDocumentBytes}) {
            return false;
        }
    }
    if (std::ferror(file.get())) {
        return false;
    }
    content.swap(read);
    return true;
}

bool WriteTextFile(const char* path, const std::string& content) {
    return System::FileReplacement::Write(path, content.data(), content.size()) == 0;
}

} // namespace Vorin::Serialization
