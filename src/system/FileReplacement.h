#pragma once

#include <cstddef>

namespace Vorin::System {

/// Writes files as a whole or not at all: whatever happens on the way, what stands at the path is
/// the old file or the new one. The results are error numbers as in `errno`, 0 for success. Several
/// threads and processes may write to one path: the last one stays. [any]
///
/// A link stays, and the file behind it is replaced. A file that is replaced keeps its rights, and
/// its owner gets to read and write it; a new one has those of any new file. What may be read but
/// not written is protected and stays. Only a regular file is replaced: no folder, no device.
struct FileReplacement {
    static int Write(const char* path, const char* bytes, std::size_t size);

    /// What Write would meet, as far as that shows without bytes. Leaves nothing behind.
    static int Check(const char* path);
};

} // namespace Vorin::System
