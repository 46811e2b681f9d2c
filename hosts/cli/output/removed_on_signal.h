#pragma once

#include <csignal>
#include <cstddef>
#include <string>

namespace vestara::host {

/// As long as one lives, SIGINT, SIGTERM and SIGHUP remove a file before they end the process. Signals that are ignored
/// or that somebody else handles stay as they are. Four at a time at most; further ones, and paths longer than the
/// system takes, are not watched.
class RemovedOnSignal {
 public:
  explicit RemovedOnSignal(const std::string& path);
  RemovedOnSignal(const RemovedOnSignal&) = delete;
  RemovedOnSignal& operator=(const RemovedOnSignal&) = delete;
  ~RemovedOnSignal();

 private:
  size_t place_;
};

/// While one lives, these signals wait.
class SignalsHeldBack {
 public:
  SignalsHeldBack();
  SignalsHeldBack(const SignalsHeldBack&) = delete;
  SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;
  ~SignalsHeldBack();

 private:
  sigset_t before_{};
};

}  // namespace vestara::host
