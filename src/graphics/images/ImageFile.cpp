#include "graphics/images/ImageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <new>

namespace Vorin::Graphics {

namespace {

class CImageFileDescriptor {
public:
    // Not blocking: to open a pipe would wait for somebody who writes to it.
    explicit CImageFileDescriptor(const char* path)
        : number(::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~CImageFileDescriptor() {
        if (number >= 0) {
            ::close(number);
        }
    }
    CImageFileDescriptor(const CImageFileDescriptor&) = delete;
    CImageFileDescriptor& operator=(const CImageFileDescriptor&) = delete;

    const int number;
};

struct CImageFileContent {
    std::unique_ptr<std::uint8_t[]> bytes; // not cleared: it is all read over
    std::size_t size = 0;
};

/// Reads at most `capacity` bytes; false on an error.
bool ReadUpTo(int descriptor, std::uint8_t* bytes, std::size_t capacity, std::size_t& size) {
    size = 0;
    while (size < capacity) {
        const ssize_t count = ::read(descriptor, bytes + size, capacity - size);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return false;
        }
        if (count == 0) {
            break;
        }
        size += static_cast<std::size_t>(count);
    }
    return true;
}

/// Empty when all is well, else what is wrong.
std::string ReadImageFile(const char* path, CImageFileContent& content) {
    const CImageFileDescriptor file(path);
    struct stat state {};
    if (file.number < 0 || ::fstat(file.number, &state) != 0) {
        return std::string("cannot be read: ") + std::strerror(errno);
    }
    if (!S_ISREG(state.st_mode)) {
        return S_ISDIR(state.st_mode) ? "is a folder, not an image file"
                                      : "is not a regular file; images are read from files on disk";
    }
    if (state.st_size == 0) {
        return "is an empty file, not an image";
    }
    if (state.st_size > static_cast<off_t>(kMaxImageFileBytes)) {
        return "is larger than 32 MB; use a smaller image";
    }
    const auto capacity = static_cast<std::size_t>(state.st_size);
    content.bytes.reset(new (std::nothrow) std::uint8_t[capacity]);
    if (!content.bytes) {
        return "cannot be read: there is no memory for it";
    }
    if (!ReadUpTo(file.number, content.bytes.get(), capacity, content.size)) {
        return std::string("cannot be read: ") + std::strerror(errno);
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
