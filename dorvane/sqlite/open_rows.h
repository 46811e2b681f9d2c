#pragma once

#include <vector>

namespace records {
class StaticRecordSet;
}

namespace dorvane::sqlite {

/// The record sets of a connection that have rows left to fetch. A set is listed as long as a ticket for it lasts,
/// which its source holds. The list outlives the tickets: the connection completes its sets before it ends.
class OpenRows {
 public:
  class Ticket {
   public:
    Ticket(OpenRows& open, records::StaticRecordSet& set);
    Ticket(const Ticket&) = delete;
    Ticket& operator=(const Ticket&) = delete;
    ~Ticket();

   private:
    OpenRows& open_;
    records::StaticRecordSet& set_;
  };

  /// Fetches what is left of every set, so that none of them reads from the connection any more.
  void complete() noexcept;
  bool empty() const { return sets_.empty(); }

 private:
  std::vector<records::StaticRecordSet*> sets_;
};

}  // namespace dorvane::sqlite
