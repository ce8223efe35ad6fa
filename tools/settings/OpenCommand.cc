#include "tools/settings/OpenCommand.h"

#include <chrono>
#include <filesystem>
#include <system_error>

#include <CLI/CLI.hpp>

#include "changes/nearestWord.h"
#include "linux/desktopProgram.h"
#include "linux/findProgram.h"
#include "tools/settings/settingsPages.h"

namespace {

constexpr const char* kWindow = "quietdial-settings";
constexpr auto kTimeToFail = std::chrono::seconds(2);

// The window beside this program, else wherever programs are. Empty for none.
std::string windowProgram() {
  std::error_code error;
  const auto beside =
      std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / kWindow;
  return std::filesystem::exists(beside, error) ? beside.string()
                                                : findProgram(kWindow).value_or("");
}

std::string faultOf(const std::vector<SettingsPage>& pages, const std::vector<SettingsPage>& found,
                    const std::string& name) {
  std::vector<std::string> titles;
  std::string list;
  for (const auto& page : found.empty() ? pages : found) {
    titles.push_back(page.title);
    list += (list.empty() ? "" : ", ") + page.title;
  }
  if (!found.empty()) {
    return "several pages are called \"" + name + "\": " + list + ".";
  }
  const auto meant = nearestWord(name, titles);
  return "there is no page \"" + name +
         (meant.empty() ? "\"; there are: " + list + "." : "\"; did you mean \"" + meant + "\"?");
}

}  // namespace

std::vector<Example> OpenCommand::examples() const {
  return {{"quietdial open", "the first page"},
          {"quietdial open prefix", "a page by its title, or by a word of it"}};
}

void OpenCommand::describeArguments(CLI::App& app) {
  app.add_option("PAGE", page_, "The title of the page, or a word of it");
}

int OpenCommand::run(Streams streams) {
  std::vector<std::string> command{windowProgram()};
  if (!page_.empty()) {
    const auto pages = settingsPages(paths());
    const auto found = pagesNamed(pages, page_);
    if (found.size() != 1) {
      return fail(streams, faultOf(pages, found, page_), kNotUnderstood);
    }
    command.insert(command.end(), {"--pane", found.front().pane});
  }
  if (command.front().empty()) {
    return fail(streams, std::string(kWindow) + " is not installed.");
  }
  if (!root().empty()) {
    command.insert(command.end(), {"--root", paths().root()});
  }
  return launchDesktopProgram(command, kTimeToFail)
             ? 0
             : fail(streams, std::string(kWindow) + " could not be opened.");
}
