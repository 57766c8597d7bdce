#include "system/DirectoryWalker.h"

namespace Vorin::System {

CDirectoryWalker::CDirectoryWalker(const char* directoryPath) : path(directoryPath) {
    CDirectoryWalker::Reset();
}

CDirectoryWalker::~CDirectoryWalker() { Close(); }

void CDirectoryWalker::Reset() {
    Close();
    directory = opendir(path.Get());
    CDirectoryWalker::Next();
}

void CDirectoryWalker::Next() {
    if (!directory) {
        return;
    }
    // Safe beside other threads: the buffer that readdir returns belongs to this one stream.
    entry = readdir(directory);
    if (!entry) {
        Close();
    }
}

void CDirectoryWalker::Close() {
    if (directory) {
        closedir(directory);
    }
    directory = nullptr;
    entry = nullptr;
}

} // namespace Vorin::System
