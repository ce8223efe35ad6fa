#pragma once

/// Marks the names that code outside the bundle may look up in its module. The module's version
/// script lists the same names.
#define QD_EXPORT __attribute__((visibility("default")))
