#include "settings/program/Options.h"

#include "settings/start/arguments.h"

std::optional<int> Options::parse(int count, const char* const* values) {
  CLI::App app("The Settings application, with QuietDial's panes.", "quietdial-settings");
  start.addTo(app);
  start.addLookTo(app);
  bundles.addTo(app);
  addText(app, "--pane", pane, "Open the pane of this class at once")->type_name("CLASS");
  addText(app, "--gif", gif, "Play this animated picture")->type_name("FILE");
  addText(app, "--screenshot", screenshot,
          "Write what is shown as a PNG file and end. Needs no display")
      ->type_name("FILE");
  app.add_flag("--try-out", isTrial,
               "Where nothing here can place calls, let the dialler show what it would dial");
  const auto* effects = addChoice<bool>(
      app, "--effects", hasEffects, {{"real", true}, {"none", false}},
      "real (default): a change restarts the dialler's processes and other processes are told of "
      "it; none: it is only stored, as always for pictures");
  app.final_callback([this, effects] {
    start.isPicture = !screenshot.empty();
    if (start.isPicture && effects->count() > 0 && hasEffects) {
      throw CLI::ValidationError("--effects", "Pictures have no effects");
    }
    hasEffects = hasEffects && !start.isPicture;
  });
  const auto status = parseArguments(app, count, values);
  return status ? status : turnRootAway(start.allowRoot);
}
