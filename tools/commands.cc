#include "tools/commands.h"

#include "tools/call/CallCommand.h"
#include "tools/call/LinesCommand.h"
#include "tools/drive/DriveCommand.h"
#include "tools/gif/GifCommand.h"
#include "tools/settings/ApplyCommand.h"
#include "tools/settings/ExportCommand.h"
#include "tools/settings/GetCommand.h"
#include "tools/settings/ImportCommand.h"
#include "tools/settings/ListCommand.h"
#include "tools/settings/OpenCommand.h"
#include "tools/settings/PrefixCommand.h"
#include "tools/settings/ResetCommand.h"
#include "tools/settings/SetCommand.h"
#include "tools/settings/StatusCommand.h"
#include "tools/settings/WatchCommand.h"

Commands makeCommands() {
  Commands commands;
  commands.push_back(std::make_unique<StatusCommand>());
  commands.push_back(std::make_unique<GetCommand>());
  commands.push_back(std::make_unique<ListCommand>());
  commands.push_back(std::make_unique<SetCommand>());
  commands.push_back(std::make_unique<PrefixCommand>());
  commands.push_back(std::make_unique<ResetCommand>());
  commands.push_back(std::make_unique<ExportCommand>());
  commands.push_back(std::make_unique<ImportCommand>());
  commands.push_back(std::make_unique<WatchCommand>());
  commands.push_back(std::make_unique<ApplyCommand>());
  commands.push_back(std::make_unique<OpenCommand>());
  commands.push_back(std::make_unique<CallCommand>());
  commands.push_back(std::make_unique<LinesCommand>());
  commands.push_back(std::make_unique<DriveCommand>());
  commands.push_back(std::make_unique<GifCommand>());
  return commands;
}
