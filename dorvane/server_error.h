#pragma once

#include <string>
#include <string_view>

#include "automation/error.h"

namespace dorvane {

using automation::Refusal;

/// A server's error with the platform's number, what would help and what the server was asked.
class ServerError : public automation::RunTimeError {
 public:
  /// The text is `engine`, `reason`, the beginning of the statement.
  ServerError(Refusal refusal, std::string_view engine, std::string_view reason, std::string_view statement);

  Refusal refusal() const { return context()->refusal; }
};

/// The error of a session that is not encrypted although tls=require or verify asks for it.
automation::RunTimeError not_encrypted(std::string_view engine, std::string_view tls);

}  // namespace dorvane
