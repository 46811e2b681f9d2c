#pragma once

#include <chrono>

namespace dorvane::sqlite {

/// How long the engine has worked on one statement, by ticks that it gives while it works. A pause between two rows is
/// the host's time and hardly counts.
class StatementClock {
 public:
  /// How many of the engine's instructions lie between two ticks: about a millisecond.
  static constexpr int instructions = 20000;

  /// 0 milliseconds is no limit.
  explicit StatementClock(int limit) : limit_(limit) {}

  /// A tick. False when the statement has used its time up.
  bool may_go_on();

 private:
  using Clock = std::chrono::steady_clock;

  std::chrono::milliseconds limit_;
  Clock::duration spent_{};
  Clock::time_point last_ = Clock::now();
};

/// Lets a connection's ticks go to a clock as long as it lives.
class RunningClock {
 public:
  RunningClock(StatementClock*& place, StatementClock& clock) : place_(place) { place = &clock; }
  ~RunningClock() { place_ = nullptr; }
  RunningClock(const RunningClock&) = delete;
  RunningClock& operator=(const RunningClock&) = delete;

 private:
  StatementClock*& place_;
};

}  // namespace dorvane::sqlite
