#include "hosts/cli/options/command_parts.h"

namespace vestara::host {

CLI::Option* argument(CLI::App& app, const std::string& name, std::string& place, const std::string& help) {
  return app.add_option(name, place, help)->type_name("");
}

CLI::Option* arguments(CLI::App& app, const std::string& name, std::vector<std::string>& place,
                       const std::string& help) {
  return app.add_option(name, place, help)->type_name("");
}

void add_numbers(CLI::App& app, std::vector<std::string>& place) {
  arguments(app, "NUMBERS", place, "1 to 90: 53, or 5,12,33, or 5 12 33")->required();
}

CLI::Option* value_option(CLI::App& app, const std::string& name, std::string& place, const std::string& shape,
                          const std::string& help) {
  return app.add_option(name, place, help)->type_name(shape)->take_last();
}

void add_range(CLI::App& app, std::string& from, std::string& to) {
  value_option(app, "--from", from, "DATE", "first date, YYYY-MM-DD or D/M/YYYY");
  value_option(app, "--to", to, "DATE", "last date");
}

void add_hits_and_wheels(CLI::App& app, std::string& hits, std::string& wheels) {
  value_option(app, "--hits", hits, "HITS",
               "numbers on one wheel at least: 1 to 5, or ambata (default), ambo, terno, quaterna, cinquina");
  value_option(app, "--wheels", wheels, "WHEELS", "BA,NA or all (default), or cities: the ten without RN");
}

void add_yes(CLI::App& app, Consent& place, const std::string& help) {
  app.add_flag_callback(
      "--yes", [&place] { place = Consent::given; }, help);
}

}  // namespace vestara::host
