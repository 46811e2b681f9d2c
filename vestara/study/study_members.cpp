#include "automation/member.h"
#include "vestara/foundation/late_bound.h"
#include "vestara/study/study.h"

namespace vestara {
namespace study_members {

using automation::by_value;
using automation::optional;
using automation::Parameter;
using automation::parameter;
using automation::Ref;
using row = automation::Rows<Study>;

constexpr Parameter numbers = by_value(parameter("Numbers"));
constexpr Parameter hits = by_value(optional("Hits", 1));
constexpr Parameter wheels = by_value(optional("Wheels", ""));
constexpr Parameter since = by_value(optional("Since"));
constexpr Parameter until = by_value(optional("Until"));
constexpr Parameter together = by_value(optional("Together", false));

constexpr auto rows = automation::member_rows(
    row::method<&Study::Open>(1, "Open", "Opens the archive that a URL names, as DbConnector does.",
                              by_value(parameter("Url"))),
    row::property<Ref<DbConnector>, &Study::ActiveConnection, &Study::ActiveConnection>(
        2, "ActiveConnection", "The connector to the archive."),
    row::method<&Study::Refresh>(3, "Refresh", "The next question reads the draws anew."),
    row::method<&Study::Draws>(
        4, "Draws",
        "The drawings, oldest first: date contest wheel n1 n2 n3 n4 n5. A row whose five numbers "
        "are 0 or Null is none; any other row that is none is an error that names it.",
        wheels, since, until),
    row::method<&Study::Search>(5, "Search",
                                "The drawings with at least Hits of the numbers, newest first: date contest wheel hits "
                                "numbers drawn. Hits is 1 to the count of numbers, 5 at most.",
                                numbers, hits, wheels, since, until),
    row::method<&Study::Numbers>(6, "Numbers",
                                 "Each number on each wheel: wheel number draws times expected z delay last record "
                                 "record_from record_to.",
                                 wheels, since, until, together),
    row::method<&Study::Groups>(7, "Groups",
                                "The first Top groups of Size numbers by delay, times, record or z: rank wheel numbers "
                                "draws times expected z delay last record record_from record_to.",
                                by_value(parameter("Size")), wheels, since, until, together,
                                by_value(optional("By", "delay")), by_value(optional("Top", 100))),
    row::method<&Study::Sets>(8, "Sets",
                              "Each set of a list or a family, with at least Hits of its numbers: wheel set numbers "
                              "draws times expected z delay last record record_from record_to.",
                              by_value(parameter("Sets")), hits, wheels, since, until, together),
    row::method<&Study::Gaps>(
        9, "Gaps",
        "From one drawing with at least Hits of the numbers to the next, newest first: wheel from "
        "to draws days. Hits left out is all of them, or 5 of more.",
        numbers, by_value(optional("Hits")), wheels, since, until, together),
    row::method<&Study::Fairness>(
        10, "Fairness",
        "Eight tests of each wheel's draws: wheel test statistic degrees p p_holm. A wheel with "
        "too few draws for a test, or with none, has the row with Nulls.",
        wheels, since, until),
    row::method<&Study::Odds>(
        11, "Odds",
        "Each bet on so many numbers: bet chance one_in median_draws. Wheels is a number of them, 1 "
        "when it is left out, or wheels as elsewhere: \"\" is all eleven.",
        by_value(parameter("Count")), by_value(optional("Wheels"))));

}  // namespace study_members

const automation::ClassDescription& Study::surface() {
  static constexpr automation::ClassDescription surface{
      .library = "Vestara",
      .name = contract_name,
      .interface_name = "_Study",
      .help =
          "The plain figures of an archive, counted as one would by hand, each as a record set. Wheels are codes "
          "(BA,NA), cities or tutte, all or nothing for the eleven. Since and Until are included; left out, Empty or "
          "Null they are no bound.",
      .members = study_members::rows};
  return surface;
}

}  // namespace vestara
