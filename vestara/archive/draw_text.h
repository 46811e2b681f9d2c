#pragma once

#include <string>

#include "automation/variant.h"
#include "vestara/archive/draw_record.h"

namespace vestara {

/// Removes the rows of one date.
std::string draw_delete_statement(const automation::Variant& date);
/// All columns of the rows of one date.
std::string draw_select_statement(const automation::Variant& date);
/// The row of one wheel of a draw. A wheel with fewer than five numbers gives a text that databases refuse.
std::string draw_insert_statement(const cEstrazione& draw, int32_t wheel);

}  // namespace vestara
