#pragma once  // for hosts

#include <cstdint>
#include <string>

#include "vestara/draws/draw_row.h"
#include "vestara/files/draw_format.h"
#include "vestara/foundation/export.h"

namespace vestara {

enum class ContestColumn : bool { absent, present };

/// Writes draws as text in one of the three forms. `contest` concerns CSV only: update files always have the
/// number, the operator's never.
class VESTARA_API DrawFileWriter {
 public:
  explicit DrawFileWriter(DrawFormat format, ContestColumn contest = ContestColumn::absent)
      : format_(format), contest_(contest) {}

  /// What stands before the first row.
  void begin(std::string& text) const;
  void add(std::string& text, const DrawRow& row);

 private:
  void set_date(int32_t day);
  void add_csv(std::string& text, const DrawRow& row) const;
  void add_tsv(std::string& text, const DrawRow& row) const;
  void add_update(std::string& text, const DrawRow& row);

  DrawFormat format_;
  ContestColumn contest_;
  bool is_first_ = true;
  int32_t day_ = 0;
  std::string date_;  ///< of `day_`, as the form writes it
};

}  // namespace vestara
