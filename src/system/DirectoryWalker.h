#pragma once

#include "containers/CharString.h"
#include "containers/Iterator.h"

#include <dirent.h>

namespace Vorin::System {

/// Walks the names of a directory's entries, in the order the file system gives them. One thread.
///
/// "." and ".." are among them. A directory that cannot be opened has no entries.
class CDirectoryWalker : public virtual Containers::IConstValueIterator<const char*> {
public:
    explicit CDirectoryWalker(const char* directoryPath);
    CDirectoryWalker(const CDirectoryWalker&) = delete;
    CDirectoryWalker& operator=(const CDirectoryWalker&) = delete;
    ~CDirectoryWalker() override;

    /// Opens the path anew, so that entries made since then are seen.
    void Reset() override;
    void Next() override;
    bool IsAtEnd() const override { return !entry; }

    /// The entry's name, without the path. Valid until the walker moves; null at the end.
    const char* GetValue() const override { return entry ? entry->d_name : nullptr; }

private:
    void Close();

    Containers::CCharString path;
    DIR* directory = nullptr; // open unless at the end
    const dirent* entry = nullptr;
};

} // namespace Vorin::System
