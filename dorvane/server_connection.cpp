#include "dorvane/server_connection.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "automation/error.h"
#include "dorvane/insert_values.h"
#include "dorvane/result_names.h"
#include "dorvane/server_error.h"
#include "dorvane/statement.h"
#include "dorvane/tie_order.h"

namespace dorvane {

using automation::Ref;
using automation::RunTimeError;

namespace {

/// Whoever changes draws holds this row first: savers come one after the other on every engine, readers never wait.
constexpr std::string_view write_lock = "SELECT enumeratore FROM ruote WHERE enumeratore=1 FOR UPDATE";

}  // namespace

void ServerConnection::require_usable() const {
  transaction_.require_not_lost();
  if (!is_alive())
    throw automation::failure(automation::FailureKind::database,
                              "the connection to the server is lost; open the archive again");
}

void ServerConnection::require_writable() const {
  if (access_ == Access::read_only)
    throw automation::permission_denied("the archive was opened to be read only (mode=ro)");
}

template <class Body>
auto ServerConnection::noticing_loss(Body&& body) {
  return transaction_.around(body, [this] { return transaction_is_whole(); });
}

void ServerConnection::quietly_roll_back() noexcept {
  try {
    if (is_alive()) run("ROLLBACK");
  } catch (const RunTimeError&) {
    return;  // with the connection the server rolls back by itself
  }
}

/// A change with a transaction of its own where none is open.
template <class Body>
void ServerConnection::atomically(Body&& body) {
  if (transaction_.is_open()) return noticing_loss(body);
  start();
  try {
    body();
    keep();
  } catch (...) {
    quietly_roll_back();
    throw;
  }
}

Ref<records::StaticRecordSet> ServerConnection::query(std::string_view statement) {
  require_usable();
  guard_.require_reading(statement);
  ServerRows answer = noticing_loss([&] { return rows_in_order(statement); });
  spell_names(statement, syntax(), answer.headers);
  return automation::make<records::StaticRecordSet>(std::move(answer.headers), std::move(answer.source));
}

/// What the engine refuses with an order for ties runs as given.
ServerRows ServerConnection::rows_in_order(std::string_view statement) {
  if (const std::string term = tie_term(statement, syntax()); !term.empty()) {
    try {
      return reading_rows(dialect_.translate_reading(std::string(statement) + term), OnRefusal::keep_transaction);
    } catch (const ServerError& error) {
      if (error.refusal() != Refusal::statement && error.refusal() != Refusal::missing) throw;
    }
  }
  return reading_rows(dialect_.translate_reading(statement), OnRefusal::lose_transaction);
}

void ServerConnection::execute(std::string_view statement) {
  require_usable();
  require_writable();
  guard_.require_change(statement);
  const bool changes = changes_tables(statement, syntax());
  if (transaction_.is_open() && changes && !tables_are_transactional())
    throw automation::invalid_call(
        "tables cannot be changed inside a transaction: this engine would keep what was done so far");
  if (changes && transaction_.is_none()) return define(dialect_.translate(statement));
  const bool empties = empties_the_archive(statement, syntax());
  int64_t rows = 0;
  atomically([&] {
    rows = run(dialect_.translate(statement));
    if (empties) on_emptied();
  });
  if (rows != 0 || changes) transaction_.changed();
  emptied_ = emptied_ || empties;
  if (transaction_.is_none()) finish_emptied();
}

/// Names are translated, values are not: what is set up for a session makes a backslash in a literal mean itself.
void ServerConnection::insert(const vestara::NewRows& rows) {
  require_usable();
  require_writable();
  std::string head = dialect_.translate(insert_head(rows));
  if (rows.values.empty()) return;
  const std::string statement = insert_text(std::move(head), rows.values, rows.columns.size());
  atomically([&] { run(statement); });
  transaction_.changed();
}

void ServerConnection::define(std::string_view statement) {
  atomically([&] { run(statement); });
}

/// What comes after a change that is kept already: its failure is none of the change.
void ServerConnection::finish_emptied() noexcept {
  if (!std::exchange(emptied_, false)) return;
  try {
    after_emptied_was_kept();
  } catch (const RunTimeError&) {
    return;  // keys go on where they were
  }
}

int32_t ServerConnection::max_id(std::string_view table, std::string_view column) {
  require_usable();
  const std::string statement = dialect_.translate_reading(largest_value(table, column));
  return noticing_loss([&] { return first_number(reading_rows(statement, OnRefusal::lose_transaction)); });
}

void ServerConnection::prefer(std::string_view setting) {
  try {
    run(setting);
  } catch (const ServerError&) {
    if (!is_alive()) throw;
  }
}

int32_t ServerConnection::single_number(std::string_view statement) { return first_number(rows(statement)); }

int32_t ServerConnection::first_number(ServerRows answer) {
  const auto set = automation::make<records::StaticRecordSet>(std::move(answer.headers), std::move(answer.source));
  return set->at_end() || set->is_null({0}) ? 0 : set->whole_number({0});
}

std::vector<std::string> ServerConnection::column_of(std::string_view statement) {
  ServerRows answer = rows(statement);
  const auto set = automation::make<records::StaticRecordSet>(std::move(answer.headers), std::move(answer.source));
  std::vector<std::string> texts;
  for (; !set->at_end(); set->move_next())
    if (!set->is_null({0})) texts.emplace_back(set->text({0}));
  return texts;
}

void ServerConnection::begin() {
  if (!transaction_.is_none()) rollback();
  try {
    require_usable();
    require_writable();
    start();
    take_write_lock();
    transaction_.opened();
  } catch (const RunTimeError& error) {
    quietly_roll_back();
    transaction_.lost(error.description());
    throw;
  }
}

void ServerConnection::take_write_lock() {
  try {
    rows(write_lock);
  } catch (const ServerError& error) {
    // An archive without wheels, or a user who may change draws but not wheels: there is no row to lock.
    if (error.refusal() != Refusal::missing && error.refusal() != Refusal::permission) throw;
    quietly_roll_back();
    start();
  }
}

void ServerConnection::commit() {
  transaction_.require_begun();
  try {
    require_usable();
    if (emptied_) before_emptied_is_kept();
    keep();
    transaction_.ended();
  } catch (...) {
    rollback();
    throw;
  }
  finish_emptied();
}

void ServerConnection::rollback() {
  if (transaction_.is_none()) return;
  transaction_.ended();
  emptied_ = false;
  quietly_roll_back();
}

SchemaFacts ServerConnection::schema_facts() {
  SchemaFacts facts;
  const auto add = [&](auto& names, std::string_view statement) {
    for (std::string& name : column_of(statement)) names.insert(std::move(name));
  };
  add(facts.columns, dialect_.column_facts);
  add(facts.indexes, dialect_.index_facts);
  if (facts.columns.contains("ruote.ruotaalias")) add(facts.wheels, "SELECT ruotaAlias FROM ruote");
  return facts;
}

std::vector<vestara::SchemaGap> ServerConnection::check_schema() {
  require_usable();
  return noticing_loss([&] { return missing_from(schema_facts()); });
}

std::vector<std::string> ServerConnection::check_file() {
  require_usable();
  if (transaction_.is_open() && !tables_are_transactional())
    throw automation::invalid_call(
        "tables cannot be checked inside a transaction: this engine would keep what was done so far");
  std::vector<std::string> findings;
  const SchemaFacts facts = noticing_loss([&] { return schema_facts(); });
  for (const vestara::ArchiveTable& table : vestara::archive_tables())
    if (facts.has_table(table.name)) std::ranges::move(damage_of(table.name), std::back_inserter(findings));
  return findings;
}

void ServerConnection::create_missing() {
  const SchemaFacts facts = schema_facts();
  const auto create = [&](const std::string& statement) {
    if (transaction_.is_open())
      run(statement);
    else
      define(statement);
  };
  for (const vestara::ArchiveTable& table : vestara::archive_tables())
    if (!facts.has_table(table.name)) create(dialect_.table_statement(table));
  for (const vestara::ArchiveIndex& index : vestara::archive_indexes())
    if (!facts.has_index(index.name)) create(dialect_.index_statement(index));
}

std::string ServerConnection::wheels_insertion() const { return dialect_.translate(wheels_statement()); }

void ServerConnection::repair_keys() {
  for (const std::string& repair : key_repairs()) atomically([&] { run(repair); });
}

void ServerConnection::make_schema() {
  take_schema_lock();
  create_missing();
  atomically([&] { run(wheels_insertion()); });
  repair_keys();
}

void ServerConnection::create_schema() {
  require_usable();
  const bool outermost = transaction_.is_none();
  if (!outermost && !tables_are_transactional())
    throw automation::invalid_call(
        "tables cannot be made inside a transaction: this engine would keep what was done so far");
  require_writable();
  // A complete archive is looked at only: readers may call this as well.
  if (check_schema().empty()) return repair_keys();
  if (outermost && tables_are_transactional()) {
    start();
    transaction_.opened();
  }
  try {
    noticing_loss([&] { make_schema(); });
    transaction_.changed();
    if (outermost && transaction_.is_open()) commit();
  } catch (...) {
    if (outermost) rollback();
    throw;
  }
}

}  // namespace dorvane
