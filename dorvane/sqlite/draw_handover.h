#pragma once

#include "vestara/foundation/connector.h"

struct sqlite3;

namespace dorvane::sqlite {

/// Takes the draws that the engine walks, as long as it lives and stands at its place.
class DrawHandover {
 public:
  DrawHandover(DrawHandover*& place, const vestara::TakeDraw& take) : place_(place), take_(take) { place = this; }
  ~DrawHandover() { place_ = nullptr; }
  DrawHandover(const DrawHandover&) = delete;
  DrawHandover& operator=(const DrawHandover&) = delete;

  /// False when the draw is refused, also for want of memory; the walk is over then.
  bool take(const vestara::StoredDraw& draw) noexcept;
  void refuse() { is_complete_ = false; }
  bool is_complete() const { return is_complete_; }

 private:
  DrawHandover*& place_;
  const vestara::TakeDraw& take_;
  bool is_complete_ = true;
};

/// Hands every row to the handover at its place while the engine walks them: stepping from row to row and asking for
/// each value would cost more than the values.
inline constexpr const char* handover_statement =
    "SELECT vestara_hand_over(dtEstr,ruota,concorsoNumero,estr1,estr2,estr3,estr4,estr5) FROM storico";

/// Makes the function of that statement known to the engine. `place` must outlive the database. Statements of hosts
/// may not call it: it is there before the functions are counted that they may not.
void install_draw_handover(sqlite3* database, DrawHandover*& place);

}  // namespace dorvane::sqlite
