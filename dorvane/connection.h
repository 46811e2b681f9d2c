#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/ref.h"
#include "dorvane/home_process.h"
#include "dorvane/url.h"
#include "records/static_recordset.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/schema.h"

namespace dorvane {

/// One open connection to one engine. Every call raises RunTimeError with the engine's reason when it fails. A
/// failed statement leaves the archive as it was before it.
class Connection {
 public:
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  /// Rolls an open transaction back. Record sets that were handed out are completed first and stay usable.
  virtual ~Connection() = default;

  /// False in a process that was forked from the one that opened it: there, `leave` is all that may be called.
  bool is_here() const { return home_.is_here(); }

  /// One reading statement.
  virtual automation::Ref<records::StaticRecordSet> query(std::string_view statement) = 0;
  /// One writing statement.
  virtual void execute(std::string_view statement) = 0;
  /// Rows as values: all of them or none.
  virtual void insert(const vestara::NewRows& rows) = 0;
  /// 0 for an empty table.
  virtual int32_t max_id(std::string_view table, std::string_view column) = 0;

  /// Rolls back what an earlier transaction left open. After a failure nothing runs until the next transaction call.
  virtual void begin() = 0;
  /// True while the open transaction has changed something, or could have.
  virtual bool has_changes() const = 0;
  virtual void commit() = 0;
  virtual void rollback() = 0;

  /// Creates the tables, indexes and wheels that are missing.
  virtual void create_schema() = 0;
  /// The tables, columns, indexes and wheels that are missing.
  virtual std::vector<vestara::SchemaGap> check_schema() = 0;
  /// One line for everything that the engine itself finds wrong in the archive's file or its tables; none where it has
  /// no way to look.
  virtual std::vector<std::string> check_file() { return {}; }

  /// The change mark of this moment; nothing where the engine cannot tell it without a statement. Marks of two
  /// connections differ.
  virtual std::optional<vestara::ChangeMark> change_mark() { return std::nullopt; }
  /// As the connector's.
  virtual bool hand_over_draws(const vestara::TakeDraw&) { return false; }

  /// False once the engine is out of reach: nothing runs any more.
  virtual bool is_alive() const = 0;

  /// Called in a process that was forked from the one that opened the connection, before the object is given up there.
  /// Lets go of what the two processes share and tells the engine nothing. The object must not be used or destroyed
  /// after.
  virtual void leave() noexcept = 0;

 private:
  HomeProcess home_;
};

/// Opens the engine that the URL names; the archive itself is not changed. Raises RunTimeError when it cannot.
std::unique_ptr<Connection> open_connection(const Url& url);

/// Makes an engine known: each has one object of this type, a constant in the connection.cpp of its folder, and the
/// scheme of a URL finds it. What an engine's connection must do is said at `Connection`; one with a server fills in
/// `ServerConnection` (server_connection.h).
class Engine {
 public:
  using Open = std::unique_ptr<Connection> (*)(const Url& url);
  /// `example` is a URL that shows the form, for messages. All three live as long as the program. `open` gets a URL of
  /// this scheme and raises RunTimeError when it cannot open the archive.
  Engine(std::string_view scheme, std::string_view example, Open open);
};

}  // namespace dorvane
