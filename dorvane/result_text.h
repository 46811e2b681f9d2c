#pragma once

#include <string_view>

#include "records/column_store.h"

// Servers send values as text. Null never comes here.

namespace dorvane {

void append_whole(records::ColumnStore& column, std::string_view text);
void append_real(records::ColumnStore& column, std::string_view text);
/// An exact number: whole where it has no fraction.
void append_decimal(records::ColumnStore& column, std::string_view text);
/// "YYYY-MM-DD HH:MM:SS", a date alone at midnight.
void append_timestamp(records::ColumnStore& column, std::string_view text);

}  // namespace dorvane
