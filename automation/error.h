#pragma once  // installed

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "automation/export.h"

namespace automation {

/// What a failure is about, for a host that answers by it, with an exit code for example.
enum class FailureKind : uint8_t {
  unspecified,    ///< whoever raised it did not say
  argument,       ///< what was asked for makes no sense
  nothing_found,  ///< there is nothing of what was asked for
  database,       ///< the database cannot be opened, read or changed, or holds what it should not
  file,           ///< a file cannot be found, read or written, or holds what it should not
  interrupted,    ///< the user stopped it
};

/// Why a database refused, as far as a caller can do something about it.
enum class Refusal : uint8_t {
  statement,   ///< this statement only
  permission,  ///< the user may not do this, or the database or the connection takes no changes
  missing,     ///< a table or column is not there
  busy,        ///< another program's change took too long, or each waited for the other (a deadlock)
  too_long,    ///< the statement took longer than it may
  full,        ///< no room left
  connection,  ///< the database is out of reach
  no_session,  ///< the connection could not be made
};

/// What a database was asked when it refused.
struct ErrorContext {
  std::string engine;     ///< as URLs name it
  std::string statement;  ///< whole, as the engine got it; "" where none was being run
  Refusal refusal = Refusal::statement;
};

/// The platform's run-time error: a number with its text. A member traps it or hands it to the host.
class AUTOMATION_API RunTimeError : public std::exception {
 public:
  /// `source` names the class that raised the error; empty when nobody said.
  RunTimeError(int32_t number, std::string description, std::string source = {});
  /// An error of the platform's table with its standard text.
  explicit RunTimeError(int32_t number);

  int32_t number() const { return number_; }
  const std::string& description() const { return description_; }
  const std::string& source() const { return source_; }
  FailureKind kind() const { return kind_; }
  /// Null for an error that no engine raised. It lives as long as the error or any copy of it.
  const ErrorContext* context() const { return context_.get(); }
  const char* what() const noexcept override { return description_.c_str(); }

  /// The same error with more text after its own.
  RunTimeError continued(std::string_view text) const;
  /// The same error as one of kind database, with what the engine was asked.
  RunTimeError with_context(ErrorContext context) const;

 private:
  int32_t number_;
  std::string description_;
  std::string source_;
  FailureKind kind_ = FailureKind::unspecified;
  std::shared_ptr<const ErrorContext> context_;

  friend AUTOMATION_API RunTimeError failure(FailureKind kind, std::string text);
};

/// The platform's text for a number; "Application-defined or object-defined error" when the table has none.
AUTOMATION_API std::string_view standard_description(int32_t number);

/// An error of the outside world (a database, a sink) that came without a number of its own.
inline constexpr int32_t unspecified_failure = -2147467259;

/// A failure that the platform has no number for: an `unspecified_failure` with its kind. The text says what was
/// wrong, where, and what would be right.
AUTOMATION_API RunTimeError failure(FailureKind kind, std::string text);

// Each of these makes the error of one number, with the platform's text. Some take a sentence that says more, which
// takes the place of that text.

AUTOMATION_API RunTimeError invalid_call(std::string sentence = {});       // 5
AUTOMATION_API RunTimeError overflow();                                    // 6
AUTOMATION_API RunTimeError out_of_memory(std::string sentence = {});      // 7
AUTOMATION_API RunTimeError subscript_out_of_range();                      // 9
AUTOMATION_API RunTimeError array_is_locked();                             // 10
AUTOMATION_API RunTimeError division_by_zero();                            // 11
AUTOMATION_API RunTimeError type_mismatch();                               // 13
AUTOMATION_API RunTimeError user_interrupt();                              // 18
AUTOMATION_API RunTimeError out_of_stack_space();                          // 28
AUTOMATION_API RunTimeError disk_full(std::string sentence = {});          // 61
AUTOMATION_API RunTimeError too_many_files(std::string sentence = {});     // 67
AUTOMATION_API RunTimeError permission_denied(std::string sentence = {});  // 70
AUTOMATION_API RunTimeError path_file_access(std::string sentence = {});   // 75
AUTOMATION_API RunTimeError path_not_found(std::string sentence = {});     // 76
AUTOMATION_API RunTimeError object_not_set();                              // 91
AUTOMATION_API RunTimeError invalid_use_of_null();                         // 94
AUTOMATION_API RunTimeError cannot_create_object();                        // 429
AUTOMATION_API RunTimeError no_automation();                               // 430
AUTOMATION_API RunTimeError no_such_member();                              // 438
AUTOMATION_API RunTimeError no_such_action();                              // 445
AUTOMATION_API RunTimeError no_named_arguments();                          // 446
AUTOMATION_API RunTimeError named_argument_not_found();                    // 448
AUTOMATION_API RunTimeError argument_not_optional();                       // 449
AUTOMATION_API RunTimeError wrong_argument_count();                        // 450
AUTOMATION_API RunTimeError no_object_returned();                          // 451
AUTOMATION_API RunTimeError duplicate_key();                               // 457
AUTOMATION_API RunTimeError unsupported_type();                            // 458
AUTOMATION_API RunTimeError no_current_record();                           // 3021
AUTOMATION_API RunTimeError item_not_found();                              // 3265
AUTOMATION_API RunTimeError object_is_closed();                            // 3704

}  // namespace automation
