#pragma once

#include <string>

#include <sys/types.h>

/// A file with code that a user may run, or why not.
struct TrustedFile {
  std::string path;   ///< Without symbolic links on its way; empty where there is a fault.
  std::string fault;  ///< A clause; empty where there is none.
};

/// The file behind a path. It and its folder (where the path is a symbolic link, the link's folder
/// as well) have to belong to root or to the user, and nobody else may write them. Any thread.
TrustedFile trustedFile(const std::string& path, uid_t user);
