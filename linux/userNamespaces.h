#pragma once

/// Whether this process may make namespaces without privileges, as sandboxes do. Containers and
/// some configurations of the system forbid it. Tried in a child process; any thread.
bool canMakeUserNamespaces();
