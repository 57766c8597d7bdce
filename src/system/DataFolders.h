#pragma once

#include "containers/CharString.h"

namespace Vorin::System {

/// Where a module (the plug-in's library) finds the data that were installed with it, and where
/// those of its user belong. [any]
///
/// Both folders are named for the module: its file name without the extension, and " data". Paths
/// are absolute and without a slash at their end; an empty one means that there is no such place.
/// The environment counts as it is at the call.
struct DataFolders {
    /// The file of the module that holds `address`, behind all links.
    static Containers::CCharString GetModuleFile(const void* address);

    static Containers::CCharString GetFolderName(const char* moduleFile);

    /// The first of these that there is, or else the first: the folder beside the module; below the
    /// vendor's name, in "../share" from the module's folder, and in each of the system's data
    /// folders (XDG_DATA_DIRS, or /usr/local/share and /usr/share).
    static Containers::CCharString GetShippedFolder(const char* moduleFile, const char* vendor);

    /// Below the vendor's name, in the user's data folder: XDG_DATA_HOME, or ".local/share" in the
    /// home. It need not be there.
    static Containers::CCharString GetUserFolder(const char* moduleFile, const char* vendor);

    /// Makes the folder at an absolute path, with its parents. True also when it was there.
    static bool Create(const char* path);

    /// `name` in `folder`; empty when either is.
    static Containers::CCharString Join(const char* folder, const char* name);
};

} // namespace Vorin::System
