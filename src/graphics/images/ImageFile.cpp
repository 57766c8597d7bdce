#include "graphics/images/ImageFile.h"

#include <cstdint>
#include <cstring>
#include <new>

#include "system/RegularFile.h"

namespace Vorin::Graphics {

namespace {

struct CImageFileContent {
    std::unique_ptr<std::uint8_t[]> bytes; // not cleared: it is all read over
    std::size_t size = 0;
};

/// Empty when all is well, else what is wrong.
std::string ReadImageFile(const char* path, CImageFileContent& content) {
    using EKind = System::CRegularFile::EKind;
    System::CRegularFile file(path);
    if (file.GetKind() == EKind::kNone) {
        return file.GetProblem();
    }
    if (file.GetKind() != EKind::kRegular) {
        return file.GetKind() == EKind::kFolder
                   ? "is a folder, not an image file"
                   : "is not a regular file; images are read from files on disk";
    }
    if (file.GetSize() == 0) {
        return "is an empty file, not an image";
    }
    if (file.GetSize() > std::int64_t{kMaxImageFileBytes}) {
        return "is larger than 32 MB; use a smaller image";
    }
    const auto capacity = static_cast<std::size_t>(file.GetSize());
    content.bytes.reset(new (std::nothrow) std::uint8_t[capacity]);
    if (!content.bytes) {
        return "cannot be read: there is no memory for it";
    }
    if (!file.Read(content.bytes.get(), capacity, content.size)) {
        return file.GetProblem();
    }
    return {};
}

bool IsNamedPng(const char* path) {
    static constexpr char kEnding[] = ".png";
    const std::size_t length = std::strlen(path);
    const std::size_t endingLength = sizeof(kEnding) - 1;
    if (length < endingLength) {
        return false;
    }
    for (std::size_t i = 0; i < endingLength; ++i) {
        const char letter = path[length - endingLength + i];
        const char lower =
            letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        if (lower != kEnding[i]) {
            return false;
        }
    }
    return true;
}

} // namespace

CLoadedImage LoadImageFile(const char* path) {
    CImageFileContent content;
    std::string problem = ReadImageFile(path, content);
    if (!problem.empty()) {
        return {nullptr, false, std::move(problem)};
    }
    return IsNamedPng(path) ? DecodePng(content.bytes.get(), content.size)
                            : DecodeForeignImage(content.bytes.get(), content.size);
}

} // namespace Vorin::Graphics
