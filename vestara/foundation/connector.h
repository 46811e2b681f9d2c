#pragma once  // installed

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/error.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "records/recordset.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/schema.h"

namespace vestara {

// What a connector hands out, under the library's own name.
using records::Column;
using records::RecordSet;

/// What ConnectionState says of an open connection.
inline constexpr int32_t connection_open = 1;

/// Where the changes of an archive stand. As long as a connector gives equal marks, the archive's rows are the same.
struct ChangeMark {
  uint64_t own = 0;     ///< changes of this connector
  uint64_t others = 0;  ///< changes of everybody else
  bool operator==(const ChangeMark&) const = default;
};

/// A value on its way into a row.
struct RowValue {
  enum class Kind : uint8_t { null, whole, text };

  static RowValue of(int64_t number) { return {Kind::whole, number, {}}; }
  /// The text itself, without doubled quotes. It must outlive the call that gets the value.
  static RowValue of(std::string_view text) { return {Kind::text, 0, text}; }

  Kind kind = Kind::null;
  int64_t number = 0;
  std::string_view text;
};

/// Rows for one table. The views must outlive the call that gets them.
struct NewRows {
  std::string_view table;
  std::span<const std::string_view> columns;
  std::span<const RowValue> values;  ///< row after row, each as long as `columns`

  size_t rows() const { return columns.empty() ? 0 : values.size() / columns.size(); }
};

/// Takes rows as values, without a statement's text. Not every connector can: a host's own gets the text.
class VESTARA_API RowInserter {
 public:
  RowInserter(const RowInserter&) = delete;
  RowInserter& operator=(const RowInserter&) = delete;
  virtual ~RowInserter() = default;

  /// Adds all rows or none; a thousand a call are plenty. False when the database refused one, with the connector's
  /// reason. Names are plain words; texts hold no NUL.
  virtual bool InsertRows(const NewRows& rows) = 0;

 protected:
  RowInserter() = default;
};

/// A row of the draws as an engine holds it. The views last as long as the call that gets them.
struct StoredDraw {
  std::string_view date;
  std::string_view wheel;
  std::optional<int32_t> contest;    ///< nothing for Null
  std::array<int32_t, 5> numbers{};  ///< in the order they were drawn, 0 for Null
};
/// False ends the walk.
using TakeDraw = std::function<bool(const StoredDraw& draw)>;

/// The operations that the library needs of a database. One statement a call, complete text, no parameters.
/// Results carry the failures: False, or nothing. The connector may say why (LastError). Only the transaction calls,
/// which have no result, raise an error when the database refuses them.
class VESTARA_API DbConnector : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "DbConnector";

  /// `connection_open` when statements can run.
  virtual int32_t ConnectionState() = 0;
  /// Runs a reading statement. On True `rows` stands on its first row.
  virtual bool OpenRecordset(automation::Ref<RecordSet>& rows, std::string_view statement) = 0;
  /// Closes the record set and empties the reference.
  virtual void CloseRecordset(automation::Ref<RecordSet>& rows) = 0;
  /// Runs an INSERT, UPDATE or DELETE.
  virtual bool ExecuteSql(std::string_view statement) = 0;
  /// The largest value of a column; 0 for an empty table.
  virtual int32_t GetMaxId(std::string_view table, std::string_view column) = 0;
  /// A record set, or nothing.
  virtual automation::Ref<RecordSet> GetRecordset(std::string_view statement) = 0;
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;

  /// Itself, where it takes rows as values.
  virtual RowInserter* row_inserter() { return nullptr; }
  /// The mark of this moment; nothing when the connector cannot tell, or no archive is open. No member of hosts.
  virtual std::optional<ChangeMark> change_mark() { return std::nullopt; }
  /// Hands every draw over while the engine walks them, in any order; nothing is kept in between. True when all were
  /// taken. Otherwise a record set of the same rows tells everything, and why it cannot: the connector has no such way,
  /// a value has another type than its column, `take` refused, the engine failed. No member of hosts.
  virtual bool hand_over_draws(const TakeDraw&) { return false; }
};

/// A connector that can also open, make and check an archive. The one that comes with the library can; one that a host
/// brings need not.
class VESTARA_API ArchiveConnector : public DbConnector {
 public:
  /// Opens an archive by URL and changes nothing in it. One that was open is closed first.
  virtual bool Open(const std::string& url) = 0;
  virtual void Close() = 0;
  /// Why the last failing call failed, in one line; "" when none failed since Open.
  virtual std::string LastError() const = 0;
  /// The same as an error, with its number, its kind and what the engine was asked; null when none failed since Open.
  virtual std::shared_ptr<const automation::RunTimeError> LastFailure() const = 0;
  /// Creates the tables, indexes and wheels that are missing; what is there stays as it is.
  virtual bool CreateSchema() = 0;
  /// Everything that is missing, none for a complete archive; nothing when the archive cannot be checked.
  virtual std::optional<std::vector<SchemaGap>> SchemaGaps() = 0;
  /// A line for everything that the engine itself finds wrong in the archive's file or tables; none for sound ones.
  virtual std::vector<std::string> CheckFile() = 0;
};

}  // namespace vestara
