#pragma once

namespace dorvane {

/// The process in which an object was made. A fork copies the memory of a connection, but neither its locks nor its
/// right to speak to the server: the copy must not be used.
class HomeProcess {
 public:
  HomeProcess() : generation_(generation()) {}
  /// False in a process that was forked from the one in which this object was made. Costs the reading of a number.
  bool is_here() const { return generation_ == generation(); }

  /// How many forks lie between the first process of the program and this one; 0 where processes do not fork.
  static unsigned generation();

 private:
  unsigned generation_;
};

}  // namespace dorvane
