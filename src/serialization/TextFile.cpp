#include "serialization/TextFile.h"

#include "serialization/Limits.h"
#include "system/FileReplacement.h"
#include "system/RegularFile.h"

#include <cstddef>

namespace Vorin::Serialization {

bool ReadTextFile(const char* path, std::string& content) {
    System::CRegularFile file(path);
    // What is there counts, not what the file's size says: it may be growing.
    std::string read;
    char block[65536];
    std::size_t size = 0;
    do {
        if (!file.Read(block, sizeof(block), size)) {
            return false;
        }
        read.append(block, size);
        if (read.size() > std::size_t{kMaximumDocumentBytes}) {
            return false;
        }
    } while (size > 0);
    content.swap(read);
    return true;
}

bool WriteTextFile(const char* path, const std::string& content) {
    return System::FileReplacement::Write(path, content.data(), content.size()) == 0;
}

} // namespace Vorin::Serialization
