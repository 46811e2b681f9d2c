#include <nlohmann/json.hpp>
#include <optional>

#include "automation/error.h"
#include "automation/text.h"
#include "automation/text/shown_text.h"
#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/output/json_text.h"
#include "hosts/cli/programming/call_arguments.h"
#include "hosts/cli/programming/known_classes.h"
#include "hosts/cli/programming/literal.h"
#include "hosts/cli/programming/member_path.h"
#include "hosts/cli/programming/near_names.h"
#include "hosts/cli/programming/variant_json.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

using automation::InvokeKind;
using automation::Member;
using automation::Object;
using automation::Ref;
using automation::Variant;
using Json = nlohmann::ordered_json;

const Member& known_row(const Object& object, const std::string& member, InvokeKind kind) {
  if (const Member* row = row_for(object.description(), member, kind)) return *row;
  std::vector<std::string> names;
  for (const Member& row : object.description().members)
    if (names.empty() || names.back() != row.name) names.emplace_back(row.name);
  const std::string near = near_names(member, names);
  const std::string identifier = object.description().identifier();
  throw Failure(ExitCode::usage, "member " + shown(member) + " is unknown to " + identifier +
                                     (near.empty() ? "" : "; near are " + near) + "; vestara describe " + identifier +
                                     " lists all");
}

/// Members on a path are found when it is followed; a plain name is looked up before anything happens.
void check_reads(const Object& object, const CallOptions& options) {
  for (const std::string& read : options.reads)
    if (const auto path = parse_member_path(read); path.size() == 1)
      known_row(object, path.front().name, InvokeKind::get);
}

bool is_connector(const Object& object) { return dynamic_cast<const dorvane::DbConnector*>(&object) != nullptr; }

/// The archive for objects that want one; nothing when there is none and none was named.
std::optional<ArchiveSession> archive_for(const Object& object, const Context& context) {
  const std::string& database = context.options.database;
  if (!is_connector(object) && !row_for(object.description(), "ActiveConnection", InvokeKind::putref))
    return std::nullopt;
  if (!database.empty() || ArchiveSession::may_exist(database)) return ArchiveSession::for_reading(database);
  context.err << "vestara: warning: the archive " << automation::shown_text(file_of(archive_url(database)).value_or(""))
              << " is missing, the object goes without; vestara import FILE makes one\n";
  return std::nullopt;
}

void assign(Object& object, const std::string& member, Variant value) {
  const InvokeKind kind = value.is_object() ? InvokeKind::putref : InvokeKind::put;
  object.call(member, kind, {&value, 1});
}

/// A connector is the archive's own from then on.
Ref<Object> connected(const Ref<Object>& object, const ArchiveSession& session) {
  if (is_connector(*object)) return session.connector();
  assign(*object, "ActiveConnection", session.connector());
  return object;
}

Ref<Object> object_at(Object& start, const std::string& path) {
  const Variant value = follow(start, path);
  if (const auto* object = value.get_if<Ref<Object>>(); object && *object) return *object;
  throw automation::object_not_set();
}

Json call_member(Object& object, const CallOptions& options) {
  const Member& row = known_row(object, options.member, options.kind);
  CallArguments arguments = call_arguments(row, options.arguments);
  const std::vector<Variant> before = arguments.values;
  const Variant result = object.call(options.member, options.kind, arguments.values, arguments.name_views());
  Json answer;
  answer["result"] = json_of(result, options.most_rows);
  for (size_t i = 0; i < before.size(); ++i)
    if (!(arguments.values[i] == before[i]))
      answer["written_back"][parameter_at(row, arguments, i)] = json_of(arguments.values[i], options.most_rows);
  return answer;
}

Json outcome_of(Object& object, const CallOptions& options) {
  for (const auto& [member, value] : options.settings) assign(object, member, literal(value));
  Json answer =
      options.on.empty() ? call_member(object, options) : call_member(*object_at(object, options.on), options);
  for (const std::string& read : options.reads)
    answer["properties"][read] = json_of(follow(object, read), options.most_rows);
  return answer;
}

Json error_json(const automation::RunTimeError& error, const std::string& otherwise) {
  return {{"error",
           {{"number", error.number()},
            {"description", error.description()},
            {"source", error.source().empty() ? otherwise : error.source()}}}};
}

void write(std::ostream& out, const Json& answer) { out << json_text(answer) << "\n"; }

}  // namespace

ExitCode run_call(const CallOptions& options, const Context& context) {
  Ref<Object> object = object_of_class(options.class_name);
  for (const auto& [member, value] : options.settings) known_row(*object, member, InvokeKind::put);
  if (options.on.empty()) known_row(*object, options.member, options.kind);
  check_reads(*object, options);
  const auto session = archive_for(*object, context);
  try {
    if (session) object = connected(object, *session);
    write(context.out, outcome_of(*object, options));
  } catch (const vestara::Failure&) {
    throw;
  } catch (const automation::RunTimeError& error) {
    write(context.out, error_json(error, object->description().identifier()));
    return ExitCode::raised;
  }
  // The library answers with empty values what its connector refused.
  if (!session || session->connector()->LastError().empty()) return ExitCode::ok;
  context.err << "vestara: the database refused a statement: "
              << automation::shown_text(session->connector()->LastError()) << "\n";
  return ExitCode::database;
}

}  // namespace vestara::host
