#include "vestara/files/system_reason.h"

#include <cerrno>
#include <cstring>

namespace vestara {
namespace {

std::string_view remedy_of_shortage(int code) {
  switch (code) {
    case EMFILE:
      return "this process may open more when ulimit -n is raised";
    case ENFILE:
      return "other programs have too many files open";
    case ENOMEM:
      return "other programs have to end first";
    default:
      return {};
  }
}

}  // namespace

std::string system_reason(int code, std::string_view remedy) {
  const std::string_view own = remedy_of_shortage(code);
  return std::string(std::strerror(code)) + "; " + std::string(own.empty() ? remedy : own);
}

}  // namespace vestara
