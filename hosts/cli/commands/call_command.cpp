#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "automation/error.h"
#include "automation/text.h"
#include "automation/text/shown_text.h"
#include "dorvane/connector.h"
#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
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

struct CallOptions {
  std::string class_name;
  std::string member;
  std::vector<std::string> arguments;
  bool get = false;
  bool put = false;
  bool putref = false;
  std::string on;  ///< path from the object to the one whose member is called; empty for the object itself
  std::vector<std::string> settings;  ///< NAME=VALUE, in order
  std::vector<std::string> reads;     ///< paths from the object
  std::string limit;                  ///< rows of a record set, at most; empty for all
};

void add_call(CLI::App& app, CallOptions& options) {
  argument(app, "CLASS", options.class_name, "as in Vestara.cLotto or cLotto")->required();
  argument(app, "MEMBER", options.member, "a method or property")->required();
  arguments(app, "ARGUMENTS", options.arguments, "values, named ones last");
  app.add_flag("--get", options.get, "read a property; calling does the same");
  app.add_flag("--put", options.put, "assign the last argument");
  app.add_flag("--putref", options.putref, "assign an object");
  value_option(app, "--on", options.on, "PATH", "call the member of what this gives, as in \"Fields.Item(0)\"");
  const auto repeatable = [&](const char* name, std::vector<std::string>& place, const char* shape, const char* help) {
    app.add_option(name, place, help)->type_name(shape)->allow_extra_args(false);
  };
  repeatable("--set", options.settings, "NAME=VALUE", "assign a property before the call; may be repeated");
  repeatable("--read", options.reads, "NAME", "read a property after the call; may be repeated");
  value_option(app, "--limit", options.limit, "N", "N rows of a record set at most");
}

/// The call that the options mean.
struct Call {
  const CallOptions& given;
  InvokeKind kind = InvokeKind::method;
  std::vector<std::pair<std::string, std::string>> settings;  ///< property and value, in order
  size_t most_rows = std::numeric_limits<size_t>::max();
};

InvokeKind kind_of(const CallOptions& options) {
  if (options.get + options.put + options.putref > 1)
    throw Failure(FailureKind::argument, "--get, --put and --putref exclude each other; give one of them");
  if (options.put) return InvokeKind::put;
  if (options.putref) return InvokeKind::putref;
  return options.get ? InvokeKind::get : InvokeKind::method;
}

Call call_of(const CallOptions& options) {
  Call call{options, kind_of(options), {}};
  for (const std::string& setting : options.settings) {
    const auto sign = setting.find('=');
    if (sign == std::string::npos || sign == 0)
      throw Failure(FailureKind::argument, "--set " + shown(setting) + " assigns nothing; write NAME=VALUE");
    call.settings.emplace_back(setting.substr(0, sign), setting.substr(sign + 1));
  }
  if (!options.limit.empty()) call.most_rows = count_value("--limit", options.limit);
  return call;
}

const Member& known_row(const Object& object, const std::string& member, InvokeKind kind) {
  if (const Member* row = row_for(object.description(), member, kind)) return *row;
  std::vector<std::string> names;
  for (const Member& row : object.description().members)
    if (names.empty() || names.back() != row.name) names.emplace_back(row.name);
  const std::string near = near_names(member, names);
  const std::string identifier = object.description().identifier();
  throw Failure(FailureKind::argument, "member " + shown(member) + " is unknown to " + identifier +
                                           (near.empty() ? "" : "; near are " + near) + "; vestara describe " +
                                           identifier + " lists all");
}

/// Members on a path are found when it is followed; a plain name is looked up before anything happens.
void check_reads(const Object& object, const Call& call) {
  for (const std::string& read : call.given.reads)
    if (const auto path = parse_member_path(read); path.size() == 1)
      known_row(object, path.front().name, InvokeKind::get);
}

bool is_connector(const Object& object) { return dynamic_cast<const dorvane::DbConnector*>(&object) != nullptr; }

/// The archive for objects that want one; nothing when there is none and none was named.
std::optional<ArchiveSession> archive_for(const Object& object, const Context& context) {
  const std::string& database = context.settings.database;
  if (!is_connector(object) && !row_for(object.description(), "ActiveConnection", InvokeKind::putref))
    return std::nullopt;
  if (!database.empty() || ArchiveSession::may_exist(database)) return context.open_archive();
  context.remark("warning: the archive " + automation::shown_text(file_of(context.url()).value_or("")) +
                 " is missing, the object goes without; vestara import FILE makes one");
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

Json call_member(Object& object, const Call& call) {
  const Member& row = known_row(object, call.given.member, call.kind);
  CallArguments arguments = call_arguments(row, call.given.arguments);
  const std::vector<Variant> before = arguments.values;
  const Variant result = object.call(call.given.member, call.kind, arguments.values, arguments.name_views());
  Json answer;
  answer["result"] = json_of(result, call.most_rows);
  for (size_t i = 0; i < before.size(); ++i)
    if (!(arguments.values[i] == before[i]))
      answer["written_back"][parameter_at(row, arguments, i)] = json_of(arguments.values[i], call.most_rows);
  return answer;
}

Json outcome_of(Object& object, const Call& call) {
  for (const auto& [member, value] : call.settings) assign(object, member, literal(value));
  Json answer =
      call.given.on.empty() ? call_member(object, call) : call_member(*object_at(object, call.given.on), call);
  for (const std::string& read : call.given.reads)
    answer["properties"][read] = json_of(follow(object, read), call.most_rows);
  return answer;
}

Json error_json(const automation::RunTimeError& error, const std::string& otherwise) {
  return {{"error",
           {{"number", error.number()},
            {"description", error.description()},
            {"source", error.source().empty() ? otherwise : error.source()}}}};
}

void write(std::ostream& out, const Json& answer) { out << json_text(answer) << "\n"; }

ExitCode run_call(const CallOptions& options, const Context& context) {
  const Call call = call_of(options);
  Ref<Object> object = object_of_class(options.class_name);
  for (const auto& [member, value] : call.settings) known_row(*object, member, InvokeKind::put);
  if (call.given.on.empty()) known_row(*object, call.given.member, call.kind);
  check_reads(*object, call);
  const auto session = archive_for(*object, context);
  try {
    if (session) object = connected(object, *session);
    write(context.out, outcome_of(*object, call));
  } catch (const Failure&) {
    throw;
  } catch (const automation::RunTimeError& error) {
    write(context.out, error_json(error, object->description().identifier()));
    return ExitCode::raised;
  }
  // The library answers with empty values what its connector refused.
  if (!session || session->connector()->LastError().empty()) return ExitCode::ok;
  context.remark("the database refused a statement: " + automation::shown_text(session->connector()->LastError()));
  return ExitCode::database;
}

}  // namespace

extern const Command call_command{
    "call", Group::programming, "Call a member by name and print what it gives as JSON",
    "vestara call Vestara.cLotto LoadLottoEstr 5,12,33 2 bSortASC=true --read Ambi --limit 3\n\n"
    "Arguments: 12, 1.5, true, null, empty, missing, nothing, 2005-02-09, 'text', NAME=VALUE;\n"
    "anything else is a text, also in quotes, which a text that begins with - or [ needs.",
    bound<add_call, run_call>};

}  // namespace vestara::host
