#pragma once

#include <initializer_list>
#include <string>

#include "linux/FileDescriptor.h"

/// Folders that are the user's alone (mode 0700). Any thread.

/// Makes the folder, with its parents, where it is not there; a folder that is there stays as it
/// is, and links to folders are followed. The path is absolute. False when it could not be made.
bool makePrivateFolders(const std::string& path);

/// Opens the folder that lies below `base` by these names, one in the other, and makes what is
/// missing. Only `base` may be, or lie behind, a symbolic link. Each of the folders has to be the
/// user's own, and the last one is the user's alone afterwards. Closed where that cannot be had.
FileDescriptor openPrivateFolder(const std::string& base, std::initializer_list<std::string> names);
