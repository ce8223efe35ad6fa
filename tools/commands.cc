#include "tools/commands.h"

#include "tools/call/CallCommand.h"
#include "tools/call/LinesCommand.h"
#include "tools/drive/DriveCommand.h"
#include "tools/gif/GifCommand.h"

Commands makeCommands() {
  Commands commands;
  commands.push_back(std::make_unique<CallCommand>());
  commands.push_back(std::make_unique<LinesCommand>());
  commands.push_back(std::make_unique<DriveCommand>());
  commands.push_back(std::make_unique<GifCommand>());
  return commands;
}
