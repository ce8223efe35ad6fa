#include "settings/tour/TourOptions.h"

#include "settings/start/arguments.h"

std::optional<int> TourOptions::parse(int count, const char* const* values) {
  CLI::App app(
      "Writes a PNG file of every pane and sheet, in every look, and an index.html over them. "
      "Needs "
      "no display. Without --root the panes see an empty device.",
      "quietdial-tour");
  start.isPicture = true;
  start.addTo(app);
  bundles.addTo(app);
  addText(app, "FOLDER", folder, "Where the files go")->type_name("")->required();
  const auto status = parseArguments(app, count, values);
  return status ? status : turnRootAway(start.allowRoot);
}
