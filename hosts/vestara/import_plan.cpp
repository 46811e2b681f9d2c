#include "hosts/vestara/import_plan.h"

#include <algorithm>

namespace vestara::host {

ImportPlan plan_import(const HeldDraws& held, const std::vector<int32_t>& marked, const std::vector<DrawRow>& rows,
                       MissingManual missing) {
  ImportPlan plan;
  plan.manual = compare_manual(marked, held.rows, rows);
  plan.rows = missing == MissingManual::keep ? with_missing(rows, held.rows, plan.manual) : rows;
  plan.change = compare_held(held, plan.rows);
  for (const int32_t day : marked) {
    const bool is_kept = std::any_of(plan.manual.begin(), plan.manual.end(), [&](const ManualDraw& draw) {
      return draw.day == day && fate_of(draw, missing) == "kept";
    });
    if (!is_kept) plan.old_marks.push_back(day);
  }
  return plan;
}

}  // namespace vestara::host
