#include "automation/error.h"

#include <algorithm>
#include <array>
#include <utility>

namespace automation {
namespace {

struct Entry {
  int32_t number;
  std::string_view text;
};

// Sorted by number.
constexpr std::array<Entry, 28> table{{
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {28, "Out of stack space"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {61, "Disk full"},
    {70, "Permission denied"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {94, "Invalid use of Null"},
    {429, "Component can't create object"},
    {438, "Object doesn't support this property or method"},
    {445, "Object doesn't support this action"},
    {448, "Named argument not found"},
    {449, "Argument not optional"},
    {450, "Wrong number of arguments or invalid property assignment"},
    {451, "Property let procedure not defined and property get procedure did not return an object"},
    {457, "This key is already associated with an element of this collection"},
    {458, "Variable uses a type not supported by this system"},
    {3021, "No current record"},
    {3251, "The operation is not supported by this object"},
    {3265, "Item not found in this collection"},
    {3704, "Operation is not allowed when the object is closed"},
}};

}  // namespace

RunTimeError::RunTimeError(int32_t number, std::string description, std::string source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

RunTimeError::RunTimeError(int32_t number) : RunTimeError(number, std::string(standard_description(number))) {}

std::string_view standard_description(int32_t number) {
  const auto* entry = std::lower_bound(table.begin(), table.end(), number,
                                       [](const Entry& row, int32_t wanted) { return row.number < wanted; });
  if (entry != table.end() && entry->number == number) return entry->text;
  return "Application-defined or object-defined error";
}

RunTimeError failure(FailureKind kind, std::string text) {
  RunTimeError error(unspecified_failure, std::move(text));
  error.kind_ = kind;
  return error;
}

RunTimeError invalid_call() { return RunTimeError(5); }
RunTimeError overflow() { return RunTimeError(6); }
RunTimeError out_of_memory() { return RunTimeError(7); }
RunTimeError subscript_out_of_range() { return RunTimeError(9); }
RunTimeError division_by_zero() { return RunTimeError(11); }
RunTimeError type_mismatch() { return RunTimeError(13); }
RunTimeError out_of_stack_space() { return RunTimeError(28); }
RunTimeError bad_file_name() { return RunTimeError(52); }
RunTimeError permission_denied() { return RunTimeError(70); }
RunTimeError path_file_access() { return RunTimeError(75); }
RunTimeError path_not_found() { return RunTimeError(76); }
RunTimeError object_not_set() { return RunTimeError(91); }
RunTimeError invalid_use_of_null() { return RunTimeError(94); }
RunTimeError cannot_create_object() { return RunTimeError(429); }
RunTimeError no_such_member() { return RunTimeError(438); }
RunTimeError named_argument_not_found() { return RunTimeError(448); }
RunTimeError argument_not_optional() { return RunTimeError(449); }
RunTimeError wrong_argument_count() { return RunTimeError(450); }
RunTimeError duplicate_key() { return RunTimeError(457); }
RunTimeError no_current_record() { return RunTimeError(3021); }
RunTimeError item_not_found() { return RunTimeError(3265); }

}  // namespace automation
