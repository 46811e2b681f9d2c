#include "vestara/draws/archive_draws.h"

#include <algorithm>
#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "vestara/draws/loaded_draws.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/draws/wheel_set.h"
#include "vestara/foundation/draw_columns.h"
#include "vestara/foundation/query.h"

namespace vestara {
namespace {

using automation::RunTimeError;
using automation::Variant;

constexpr std::string_view every_draw_statement =
    "SELECT dtEstr,ruota,concorsoNumero,estr1,estr2,estr3,estr4,estr5 FROM storico";

/// Five numbers as the archive has them; 0 for Null.
using StoredNumbers = std::array<int32_t, drawn_count>;

bool none_drawn(const StoredNumbers& numbers) {
  return std::all_of(numbers.begin(), numbers.end(), [](int32_t number) { return number == 0; });
}

/// Nothing when they are not five different numbers from 1 to 90.
std::optional<DrawnNumbers> drawn_numbers(const StoredNumbers& numbers) {
  DrawnNumbers drawn{};
  NumberMask mask;
  for (size_t i = 0; i < drawn.size(); ++i) {
    if (numbers[i] < 1 || numbers[i] > number_count) return std::nullopt;
    drawn[i] = static_cast<uint8_t>(numbers[i]);
    mask.add(numbers[i]);
  }
  return mask.count() == drawn_count ? std::optional(drawn) : std::nullopt;
}

class ArchiveReader {
 public:
  explicit ArchiveReader(RecordSet& rows)
      : rows_(rows),
        date_(rows.column("dtEstr")),
        wheel_(rows.column("ruota")),
        contest_(rows.column("concorsoNumero")),
        numbers_(number_columns(rows)) {}

  /// Adds the draw of the current row.
  void add_to(LoadedDraws::ByWheel& draws) {
    StoredNumbers stored{};
    for (size_t i = 0; i < stored.size(); ++i) stored[i] = whole_or_zero(numbers_[i]);
    if (none_drawn(stored)) return;
    const std::optional<DrawnNumbers> drawn = drawn_numbers(stored);
    if (!drawn) throw misfit("numbers", "five different numbers from 1 to 90, or none where the wheel was not drawn");
    const int32_t wheel = rows_.is_null(wheel_) ? 0 : wheel_of_code(rows_.text(wheel_));
    if (wheel == 0) throw misfit("wheel", automation::concatenated({"one of ", wheel_choices()}));
    const std::optional<automation::Date> date = automation::date_in(rows_.value(date_));
    if (!date) throw misfit("date", "a date");
    const auto contest = rows_.is_null(contest_) ? std::nullopt : std::optional(rows_.whole_number(contest_));
    draws[static_cast<size_t>(wheel - 1)].push_back({date->day(), contest, *drawn});
  }

 private:
  int32_t whole_or_zero(Column column) { return rows_.is_null(column) ? 0 : rows_.whole_number(column); }

  std::string shown(Column column) {
    const Variant value = rows_.value(column);
    if (const auto* date = value.get_if<automation::Date>()) return automation::iso_day(*date);
    return value.is_null() ? "Null" : automation::to_text(value);
  }

  RunTimeError misfit(std::string_view what, std::string_view wanted) {
    std::string numbers;
    for (const Column column : numbers_) numbers.append(numbers.empty() ? "" : ",").append(shown(column));
    return automation::failure(
        automation::FailureKind::database,
        automation::concatenated({"the archive's draw of ", shown(date_), " on wheel ", shown(wheel_),
                                  " with the numbers ", numbers, " is none: its ", what, " should be ", wanted}));
  }

  RecordSet& rows_;
  Column date_;
  Column wheel_;
  Column contest_;
  NumberColumns numbers_;
};

/// Draws as an engine hands them over. What a record set would read in another way is not taken.
class StoredDrawReader {
 public:
  explicit StoredDrawReader(LoadedDraws::ByWheel& draws) : draws_(draws) {}

  bool take(const StoredDraw& stored) {
    if (none_drawn(stored.numbers)) return true;
    const std::optional<DrawnNumbers> drawn = drawn_numbers(stored.numbers);
    const int32_t wheel = wheel_of_code(stored.wheel);
    if (!drawn || wheel == 0 || !read_day(stored.date)) return false;
    draws_[static_cast<size_t>(wheel - 1)].push_back({day_, stored.contest, *drawn});
    return true;
  }

 private:
  /// Most dates are the one before: the wheels of a date stand together.
  bool read_day(std::string_view text) {
    if (text == date_) return true;
    const std::optional<automation::Date> date = automation::parse_iso(text);
    if (!date || date->has_time()) return false;
    date_ = text;
    day_ = date->day();
    return true;
  }

  LoadedDraws::ByWheel& draws_;
  std::string date_ = "none";
  int32_t day_ = 0;
};

RunTimeError cannot_read(DbConnector& connector) {
  const std::string reason = reason_of(connector);
  return automation::failure(
      automation::FailureKind::database,
      "the draws cannot be read: " + (reason.empty() ? std::string("the connector refused to") : reason));
}

}  // namespace

std::string reason_of(DbConnector& connector) {
  const automation::Ref<automation::Object> host = connector.host_object();
  if (!host || !host->id_of("LastError")) return {};
  return automation::to_text(host->call("LastError", automation::InvokeKind::get, {}));
}

std::shared_ptr<const LoadedDraws> load_draws(const automation::Ref<DbConnector>& connector) {
  LoadedDraws::ByWheel draws;
  StoredDrawReader stored(draws);
  if (required(connector).hand_over_draws([&](const StoredDraw& draw) { return stored.take(draw); }))
    return std::make_shared<const LoadedDraws>(std::move(draws));
  draws = {};
  const bool was_read = walk_rows(*connector, every_draw_statement, [&](RecordSet& rows) {
    ArchiveReader reader(rows);
    for (; !rows.at_end(); rows.move_next()) reader.add_to(draws);
  });
  if (!was_read) throw cannot_read(*connector);
  return std::make_shared<const LoadedDraws>(std::move(draws));
}

std::shared_ptr<const LoadedDraws> ArchiveDraws::current() {
  // Asked before reading: a change in the meantime is seen the next time.
  const std::optional<ChangeMark> mark = required(connector_).change_mark();
  const bool is_current = draws_ && (!mark || mark == mark_);
  if (is_current) return draws_;
  draws_ = load_draws(connector_);
  mark_ = mark;
  return draws_;
}

}  // namespace vestara
