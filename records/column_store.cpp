#include "records/column_store.h"

#include <cstring>
#include <limits>

#include "automation/coercion.h"
#include "automation/error.h"

namespace records {

using automation::Date;
using automation::Variant;

namespace {

constexpr size_t longest_short_text = 7;

/// Bytes and length of a short text in one word; never 0. Byte by byte: a word that was written in parts is read
/// back slowly.
uint64_t short_key(std::string_view text) {
  uint64_t key = text.size() + 1;
  for (const char byte : text) key = key << 8U | static_cast<unsigned char>(byte);
  return key;
}

size_t slot_of(uint64_t key, size_t slots) { return static_cast<size_t>((key * 0x9E3779B97F4A7C15ULL) >> 32) % slots; }

}  // namespace

uint32_t TextStore::add(std::string_view text) {
  if (text.size() > longest_short_text) return append(text);
  uint32_t code = 0;
  if (find_short(text, code)) return code;
  return append(text);
}

std::string_view TextStore::text(uint32_t code) const {
  const uint32_t begin = code == 0 ? 0 : ends_[code - 1];
  return std::string_view(bytes_).substr(begin, ends_[code] - begin);
}

uint32_t TextStore::append(std::string_view text) {
  if (bytes_.size() + text.size() > std::numeric_limits<uint32_t>::max()) throw automation::out_of_memory();
  bytes_ += text;
  ends_.push_back(static_cast<uint32_t>(bytes_.size()));
  return static_cast<uint32_t>(ends_.size() - 1);
}

/// Finds the text, or gives it a slot with the code that `append` is about to return.
bool TextStore::find_short(std::string_view text, uint32_t& code) {
  if (slots_.empty()) slots_.resize(slot_count);
  const uint64_t key = short_key(text);
  for (size_t at = slot_of(key, slot_count);; at = (at + 1) % slot_count) {
    Slot& slot = slots_[at];
    if (slot.key == key) {
      code = slot.code;
      return true;
    }
    if (slot.key != 0) continue;
    // A quarter stays free so that searches end soon; further texts are simply stored again.
    if (used_slots_ < slot_count * 3 / 4) {
      slot = {key, static_cast<uint32_t>(ends_.size())};
      ++used_slots_;
    }
    return false;
  }
}

void ColumnStore::start(Form form) {
  form_ = form;
  switch (form) {
    case Form::real:
      real_.resize(rows_);
      break;
    case Form::mixed:
      mixed_.resize(rows_, Variant(automation::Null{}));
      break;
    default:
      whole_.resize(rows_);
      break;
  }
}

void ColumnStore::append_null() {
  nulls_.resize(rows_ / 64 + 1);
  nulls_[rows_ / 64] |= uint64_t{1} << (rows_ % 64);
  switch (form_) {
    case Form::nothing:
      break;
    case Form::real:
      real_.push_back(0);
      break;
    case Form::mixed:
      mixed_.emplace_back(automation::Null{});
      break;
    default:
      whole_.push_back(0);
      break;
  }
  ++rows_;
}

void ColumnStore::append_other_whole(int64_t value) {
  if (form_ == Form::nothing) start(Form::whole);
  const bool fits = value >= std::numeric_limits<int32_t>::min() && value <= std::numeric_limits<int32_t>::max();
  if (form_ == Form::whole && fits) {
    whole_.push_back(static_cast<int32_t>(value));
    ++rows_;
  } else if (form_ == Form::whole || form_ == Form::real) {
    append_real(static_cast<double>(value));
  } else {
    append_mixed(fits ? Variant(static_cast<int32_t>(value)) : Variant(static_cast<double>(value)));
  }
}

void ColumnStore::append_real(double value) {
  if (form_ == Form::nothing) start(Form::real);
  if (form_ == Form::whole) widen_to_real();
  if (form_ != Form::real) return append_mixed(Variant(value));
  real_.push_back(value);
  ++rows_;
}

void ColumnStore::append_text(std::string_view value) {
  if (reading_ == TextReading::iso_dates) {
    // The rows of one draw follow each other: most dates are the one before.
    if (form_ == Form::day && value.size() == last_date_text_.size() &&
        std::memcmp(value.data(), last_date_text_.data(), value.size()) == 0) {
      whole_.push_back(last_day_);
      ++rows_;
      return;
    }
    if (const auto date = automation::parse_iso(value)) {
      append_date(*date);
      if (form_ == Form::day && value.size() == last_date_text_.size()) {
        std::memcpy(last_date_text_.data(), value.data(), value.size());
        last_day_ = date->day();
      }
      return;
    }
  }
  if (form_ == Form::nothing) start(Form::text);
  if (form_ != Form::text) return append_mixed(Variant(value));
  whole_.push_back(static_cast<int32_t>(texts_.add(value)));
  ++rows_;
}

void ColumnStore::append_date(Date date) {
  if (form_ == Form::nothing && !date.has_time()) start(Form::day);
  if (form_ != Form::day || date.has_time()) return append_mixed(Variant(date));
  whole_.push_back(date.day());
  ++rows_;
}

void ColumnStore::widen_to_real() {
  real_.assign(whole_.begin(), whole_.end());
  whole_ = {};
  form_ = Form::real;
}

void ColumnStore::append_mixed(Variant value) {
  if (form_ != Form::mixed) {
    std::vector<Variant> values;
    values.reserve(rows_ + 1);
    for (size_t row = 0; row < rows_; ++row) values.push_back(this->value(row));
    whole_ = {};
    real_ = {};
    texts_ = {};
    mixed_ = std::move(values);
    form_ = Form::mixed;
  }
  mixed_.push_back(std::move(value));
  ++rows_;
}

Variant ColumnStore::value(size_t row) const {
  if (is_null(row)) return automation::Null{};
  switch (form_) {
    case Form::nothing:
      return automation::Null{};
    case Form::whole:
      return whole_[row];
    case Form::real:
      return real_[row];
    case Form::day:
      return Date::from_day(whole_[row]);
    case Form::text:
      return texts_.text(static_cast<uint32_t>(whole_[row]));
    case Form::mixed:
      return mixed_[row];
  }
  return {};
}

int32_t ColumnStore::whole_number(size_t row) const {
  if (form_ == Form::whole && !is_null(row)) return whole_[row];
  return automation::round_to_long(automation::leading_double(text(row)));
}

std::string_view ColumnStore::text(size_t row) const {
  if (form_ == Form::text && !is_null(row)) return texts_.text(static_cast<uint32_t>(whole_[row]));
  scratch_ = automation::to_text(value(row));
  return scratch_;
}

}  // namespace records
