#pragma once  // installed

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "automation/ref.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"

namespace vestara {

class LoadedDraws;

/// Reads all draws by one statement. A row whose five numbers are 0 or Null says that the wheel was not drawn; it is
/// left out. Any other row that is no draw raises an error that names it: an unknown wheel, no date, numbers that are
/// not five different ones from 1 to 90. A refused statement raises the connector's own reason. Error 91 without a
/// connector.
VESTARA_API std::shared_ptr<const LoadedDraws> load_draws(const automation::Ref<DbConnector>& connector);

/// Why the connector's last call failed, where it has a LastError; "" otherwise.
std::string reason_of(DbConnector& connector);

/// The draws behind a connector, kept in memory. They are read when they are first asked for, and again after
/// `refresh` or when the connector's change mark says that the archive changed.
class ArchiveDraws {
 public:
  explicit ArchiveDraws(automation::Ref<DbConnector> connector) : connector_(std::move(connector)) {}

  const automation::Ref<DbConnector>& connector() const { return connector_; }
  /// The draws as they are now. Raises the errors of `load_draws`; what was read before stays then.
  VESTARA_API std::shared_ptr<const LoadedDraws> current();
  /// The next `current` reads the draws again.
  void refresh() { draws_ = nullptr; }

 private:
  automation::Ref<DbConnector> connector_;
  std::shared_ptr<const LoadedDraws> draws_;
  std::optional<ChangeMark> mark_;  ///< of the archive that they were read from
};

}  // namespace vestara
