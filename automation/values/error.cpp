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
constexpr std::array<Entry, 33> table{{
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {10, "This array is fixed or temporarily locked"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {18, "User interrupt occurred"},
    {28, "Out of stack space"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {61, "Disk full"},
    {67, "Too many files"},
    {70, "Permission denied"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {94, "Invalid use of Null"},
    {429, "Component can't create object"},
    {430, "Class does not support Automation or does not support expected interface"},
    {438, "Object doesn't support this property or method"},
    {445, "Object doesn't support this action"},
    {446, "Object doesn't support named arguments"},
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

RunTimeError told(int32_t number, std::string sentence) {
  return sentence.empty() ? RunTimeError(number) : RunTimeError(number, std::move(sentence));
}

}  // namespace

RunTimeError::RunTimeError(int32_t number, std::string description, std::string source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

RunTimeError::RunTimeError(int32_t number) : RunTimeError(number, std::string(standard_description(number))) {}

RunTimeError RunTimeError::continued(std::string_view text) const {
  RunTimeError error = *this;
  error.description_ += text;
  return error;
}

RunTimeError RunTimeError::with_context(ErrorContext context) const {
  RunTimeError error = *this;
  error.kind_ = FailureKind::database;
  error.context_ = std::make_shared<const ErrorContext>(std::move(context));
  return error;
}

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

RunTimeError invalid_call(std::string sentence) { return told(5, std::move(sentence)); }
RunTimeError overflow() { return RunTimeError(6); }
RunTimeError out_of_memory(std::string sentence) { return told(7, std::move(sentence)); }
RunTimeError subscript_out_of_range() { return RunTimeError(9); }
RunTimeError array_is_locked() { return RunTimeError(10); }
RunTimeError division_by_zero() { return RunTimeError(11); }
RunTimeError type_mismatch() { return RunTimeError(13); }
RunTimeError user_interrupt() { return RunTimeError(18); }
RunTimeError out_of_stack_space() { return RunTimeError(28); }
RunTimeError disk_full(std::string sentence) { return told(61, std::move(sentence)); }
RunTimeError too_many_files(std::string sentence) { return told(67, std::move(sentence)); }
RunTimeError permission_denied(std::string sentence) { return told(70, std::move(sentence)); }
RunTimeError path_file_access(std::string sentence) { return told(75, std::move(sentence)); }
RunTimeError path_not_found(std::string sentence) { return told(76, std::move(sentence)); }
RunTimeError object_not_set() { return RunTimeError(91); }
RunTimeError invalid_use_of_null() { return RunTimeError(94); }
RunTimeError cannot_create_object() { return RunTimeError(429); }
RunTimeError no_automation() { return RunTimeError(430); }
RunTimeError no_such_member() { return RunTimeError(438); }
RunTimeError no_such_action() { return RunTimeError(445); }
RunTimeError no_named_arguments() { return RunTimeError(446); }
RunTimeError named_argument_not_found() { return RunTimeError(448); }
RunTimeError argument_not_optional() { return RunTimeError(449); }
RunTimeError wrong_argument_count() { return RunTimeError(450); }
RunTimeError no_object_returned() { return RunTimeError(451); }
RunTimeError duplicate_key() { return RunTimeError(457); }
RunTimeError unsupported_type() { return RunTimeError(458); }
RunTimeError no_current_record() { return RunTimeError(3021); }
RunTimeError item_not_found() { return RunTimeError(3265); }
RunTimeError object_is_closed() { return RunTimeError(3704); }

}  // namespace automation
