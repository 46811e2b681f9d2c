#pragma once  // installed

#include <cstdint>
#include <memory>
#include <string>

#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "records/recordset.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"

namespace vestara {

class ArchiveDraws;
class LoadedDraws;

/// The plain figures of an archive, each as a static record set. Give it an archive, then ask. Members raise their
/// errors: 5 for a word that cannot be read, with a sentence that says what would be right; 91 for a question without
/// an archive; those of the archive. The words are those of study/words.h, the columns those of
/// study/study_answers.cpp.
///
/// The draws are read once into memory, and again when the archive changed (the embedded database tells) or after
/// Refresh. A selection without draws answers no rows.
///
/// An object belongs to one thread at a time, together with its connector and their record sets. Between two calls they
/// may go to another thread. Objects with different connectors are independent of each other.
class VESTARA_API Study final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "Study";

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  /// Opens the archive that a connector's URL names. Raises the connector's reason; an archive that was open stays
  /// then.
  void Open(const std::string& Url);
  automation::Ref<DbConnector> ActiveConnection() const;
  void ActiveConnection(automation::Ref<DbConnector> connector);
  /// The next question reads the draws anew.
  void Refresh();

  using Answer = automation::Ref<records::RecordSet>;
  /// Every drawing, oldest first.
  Answer Draws(const std::string& Wheels = {}, const automation::Variant& Since = automation::Missing{},
               const automation::Variant& Until = automation::Missing{});
  /// The drawings that hold at least `Hits` of the numbers, newest first.
  Answer Search(const std::string& Numbers, int32_t Hits = 1, const std::string& Wheels = {},
                const automation::Variant& Since = automation::Missing{},
                const automation::Variant& Until = automation::Missing{});
  /// Each number on each wheel.
  Answer Numbers(const std::string& Wheels = {}, const automation::Variant& Since = automation::Missing{},
                 const automation::Variant& Until = automation::Missing{}, bool Together = false);
  /// The first `Top` groups of 2 to 5 numbers by delay, times, record or z.
  Answer Groups(int32_t Size, const std::string& Wheels = {}, const automation::Variant& Since = automation::Missing{},
                const automation::Variant& Until = automation::Missing{}, bool Together = false,
                const std::string& By = "delay", int32_t Top = 100);
  /// Each set on each wheel; it occurs with at least `Hits` of its numbers.
  Answer Sets(const std::string& Sets, int32_t Hits = 1, const std::string& Wheels = {},
              const automation::Variant& Since = automation::Missing{},
              const automation::Variant& Until = automation::Missing{}, bool Together = false);
  /// From one drawing with at least `Hits` of the numbers (left out: all, or five of more) to the next, newest first.
  Answer Gaps(const std::string& Numbers, const automation::Variant& Hits = automation::Missing{},
              const std::string& Wheels = {}, const automation::Variant& Since = automation::Missing{},
              const automation::Variant& Until = automation::Missing{}, bool Together = false);
  /// Whether the draws of each wheel look like those of a fair urn.
  Answer Fairness(const std::string& Wheels = {}, const automation::Variant& Since = automation::Missing{},
                  const automation::Variant& Until = automation::Missing{});
  /// The chances of each bet on so many numbers. Needs no archive.
  Answer Odds(int32_t Count, const automation::Variant& Wheels = automation::Missing{});

 private:
  /// The draws of this moment. Error 91 without an archive.
  std::shared_ptr<const LoadedDraws> draws();

  std::shared_ptr<ArchiveDraws> archive_;
};

}  // namespace vestara
