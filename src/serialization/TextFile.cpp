#include "serialization/TextFile.h"

#include "serialization/Limits.h"
#include "system/FileReplacement.h"
#include "system/RegularFile.h"

namespace Vorin::Serialization {

bool ReadTextFile(const char* path, std::string& content) {
    std::string read;
    if (!System::CRegularFile(path).ReadAll(read, kMaximumDocumentBytes)) {
        return false;
    }
    content.swap(read);
    return true;
}

bool WriteTextFile(const char* path, const std::string& content) {
    return System::FileReplacement::Write(path, content.data(), content.size()) == 0;
}

} // namespace Vorin::Serialization
