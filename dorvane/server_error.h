#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/error.h"

namespace dorvane {

/// What a server's refusal means for what comes next.
enum class Refusal : uint8_t {
  statement,   ///< this statement only
  permission,  ///< the user may not do this, or the server or the connection takes no changes
  missing,     ///< a table or column is not there
  busy,        ///< another program's change was not over in time, or met this one head-on
  too_long,    ///< the statement took longer than it may
  full,        ///< no room left on the server
  connection,  ///< the server is out of reach
  no_session,  ///< the connection did not come about
};

/// A server's error with the platform's number and what to do about it.
class ServerError : public automation::RunTimeError {
 public:
  /// `engine` and `reason` in front, the beginning of the statement behind.
  ServerError(Refusal refusal, std::string_view engine, std::string_view reason, std::string_view statement);

  Refusal refusal() const { return refusal_; }

 private:
  Refusal refusal_;
};

/// The error of a session that came about in clear text although tls=require or verify asks for more.
automation::RunTimeError not_encrypted(std::string_view engine, std::string_view tls);

}  // namespace dorvane
