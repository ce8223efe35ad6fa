#include "linux/redirect.h"

bool mayRedirect(const WebServer& from, const WebServer& to) {
  return from.host == to.host &&
         (to.scheme == "https" || (to.scheme == "http" && from.scheme == "http"));
}
