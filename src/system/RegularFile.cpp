#include "system/RegularFile.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vorin::System {

CRegularFile::CRegularFile(const char* path) {
    // Not blocking: to open a pipe would wait for somebody who writes to it.
    descriptor = ::open(path ? path : "", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat state {};
    if (descriptor < 0 || ::fstat(descriptor, &state) != 0) {
        error = errno;
        return;
    }
    kind = S_ISREG(state.st_mode)   ? EKind::kRegular
           : S_ISDIR(state.st_mode) ? EKind::kFolder
                                    : EKind::kOther;
    size = state.st_size;
}

CRegularFile::~CRegularFile() {
    if (descriptor >= 0) {
        ::close(descriptor);
    }
}

bool CRegularFile::Read(void* bytes, std::size_t capacity, std::size_t& count) {
    count = 0;
    if (kind != EKind::kRegular) {
        return false;
    }
    while (count < capacity) {
        const ssize_t read =
            ::read(descriptor, static_cast<char*>(bytes) + count, capacity - count);
        if (read < 0 && errno == EINTR) {
            continue;
        }
        if (read < 0) {
            error = errno;
            return false;
        }
        if (read == 0) {
            break;
        }
        count += static_cast<std::size_t>(read);
    }
    return true;
}

bool CRegularFile::ReadAll(std::string& content, std::size_t limit) {
    content.clear();
    char block[65536];
    std::size_t count = 0;
    do {
        if (!Read(block, sizeof(block), count)) {
            return false;
        }
        content.append(block, count);
        if (content.size() > limit) {
            return false;
        }
    } while (count > 0);
    return true;
}

std::string CRegularFile::GetProblem() const {
    return std::string("cannot be read: ") + std::strerror(error);
}

} // namespace Vorin::System
