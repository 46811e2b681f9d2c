#pragma once

#include <string>
#include <vector>

#include "tests/conformance/back_end.h"

namespace attacks {

using conformance::Engine;

/// A small archive under attack through `connector_`, and a second connection that watches it. Attacks that write
/// files name one in a folder that everybody may write to.
class UnderAttack : public conformance::BackEnd {
 protected:
  void SetUp() override;

  /// Everything that no text may change: the rows of every table, the database's own objects, the settings of the
  /// session under attack, the files in the open folder; and the watcher can write, so that no lock was left.
  std::string everything();

  /// Where that is different by now; "" when it is not.
  std::string changes_since(const std::string& before);

  /// "%F" becomes a file that may be written, "%R" one that may be read.
  std::string aimed(std::string text) const;

 private:
  std::string rows_of(dorvane::DbConnector& connector, const std::string& statement) const;

  testing_support::TemporaryFolder open_folder_;
  automation::Ref<dorvane::DbConnector> watcher_;
};

}  // namespace attacks
