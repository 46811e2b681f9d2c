#pragma once

#include <string>
#include <string_view>

#include "automation/error.h"

namespace dorvane {

using automation::Refusal;

/// A server's error with the platform's number, what to do about it and its context.
class ServerError : public automation::RunTimeError {
 public:
  /// `engine` and `reason` in front, the beginning of the statement behind.
  ServerError(Refusal refusal, std::string_view engine, std::string_view reason, std::string_view statement);

  Refusal refusal() const { return context()->refusal; }
};

/// The error of a session that came about in clear text although tls=require or verify asks for more.
automation::RunTimeError not_encrypted(std::string_view engine, std::string_view tls);

}  // namespace dorvane
