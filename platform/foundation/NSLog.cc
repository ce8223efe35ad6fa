#include "platform/foundation/NSLog.h"

#include <string>

#include "platform/services.h"

void NSLog(std::string_view line) {
  services().log->write(std::string(line));
}
