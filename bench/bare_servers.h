#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/archive.h"

// The servers' own clients, used as plainly as they can be.

namespace bench {

class BareClient {
 public:
  BareClient() = default;
  BareClient(const BareClient&) = delete;
  BareClient& operator=(const BareClient&) = delete;
  virtual ~BareClient() = default;

  /// A statement without rows.
  virtual void run(const std::string& statement) = 0;
  /// A reading statement of the library, as the connector sends it: all rows fetched and every value looked at.
  virtual void read(const std::string& statement) = 0;
  /// Fills `storico` by the engine's own bulk path.
  virtual void bulk_load(const std::vector<std::string>& tuples) = 0;
  /// What the engine wants to know about the draws before it plans.
  virtual void analyze() = 0;
};

std::unique_ptr<BareClient> bare_postgresql(const std::string& url);
std::unique_ptr<BareClient> bare_mariadb(const std::string& url);

/// "(1,'1871-01-07','FI',…)" as a line of values between commas.
std::string csv_line(const std::string& tuple);

}  // namespace bench
