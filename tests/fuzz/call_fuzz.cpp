#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "automation/c_abi/automation.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "tests/support/fuzz_values.h"
#include "tests/support/patience.h"
#include "tests/support/random.h"
#include "tests/support/temporary_folder.h"
#include "vestara/foundation/error_log.h"

// Random calls of every member of every class through the C interface: any argument mix, names, Missing, Null, arrays,
// objects, huge texts. Whatever happens must come back as a status; the sanitizers watch the rest.
//   call_fuzz [CALLS] [SEED]

namespace {

using testing_support::fuzz_draws;
using testing_support::fuzz_numbers;
using testing_support::fuzz_reals;
using testing_support::fuzz_texts;
using testing_support::Patience;
using testing_support::Random;

au_kind kind_for(automation::ValueType type) {
  switch (type) {
    case automation::ValueType::boolean:
      return AU_BOOLEAN;
    case automation::ValueType::integer:
    case automation::ValueType::long_integer:
      return AU_LONG;
    case automation::ValueType::single:
    case automation::ValueType::double_precision:
      return AU_DOUBLE;
    case automation::ValueType::object:
      return AU_OBJECT;
    case automation::ValueType::array:
      return AU_ARRAY;
    default:
      return AU_TEXT;
  }
}

au_invoke_kind kind_for(automation::MemberKind kind) {
  if (kind == automation::MemberKind::put) return AU_PUT;
  if (kind == automation::MemberKind::putref) return AU_PUTREF;
  return kind == automation::MemberKind::get ? AU_GET : AU_METHOD;
}

class Fuzzer {
 public:
  explicit Fuzzer(uint64_t seed) : random_(seed) { renew(); }
  ~Fuzzer() { drop_all(); }
  Fuzzer(const Fuzzer&) = delete;
  Fuzzer& operator=(const Fuzzer&) = delete;

  void call() {
    if (random_.one_in(2000)) renew();
    const Target target = random_.pick(targets_);
    const automation::Member& row = target.rows[random_.below(target.rows.size())];
    if (random_.one_in(2))
      call_as_meant(target.object, row);
    else
      call_anyhow(target.object, random_.one_in(20) ? random_.pick(odd_ids_) : row.id);
  }

  long answered() const { return answered_; }

 private:
  struct Target {
    au_object* object;
    std::span<const automation::Member> rows;
  };

  /// The arguments that the member takes, the last ones left out at times, and mostly of its types.
  void call_as_meant(au_object* object, const automation::Member& row) {
    const auto parameters = row.parameters();
    std::vector<au_value> arguments(random_.one_in(4) ? random_.below(parameters.size() + 1) : parameters.size());
    for (size_t i = 0; i < arguments.size(); ++i)
      fill(arguments[i], random_.one_in(8) ? random_kind_of_value() : kind_for(parameters[i].type));
    invoke(object, row.id, kind_for(row.kind), arguments, {});
  }

  void call_anyhow(au_object* object, int32_t id) {
    // Mostly few arguments: that is where members take them.
    std::vector<au_value> arguments(random_.one_in(3) ? random_.below(10) : random_.below(3));
    for (au_value& value : arguments) fill(value, random_kind_of_value());
    std::vector<const char*> names(random_.one_in(4) ? random_.below(arguments.size() + 2) : 0);
    for (const char*& name : names) name = random_.one_in(20) ? nullptr : random_.pick(names_).c_str();
    invoke(object, id, random_kind(), arguments, names);
  }

  void invoke(au_object* object, int32_t id, au_invoke_kind kind, std::vector<au_value>& arguments,
              const std::vector<const char*>& names) {
    au_value result{};
    patience_.renew();
    const au_status status =
        au_invoke(object, id, kind, arguments.data(), arguments.size(), names.data(), names.size(), &result);
    if (status == AU_OK) ++answered_;
    for (au_value& value : arguments) keep(value);
    keep(result);
  }

  au_invoke_kind random_kind() { return static_cast<au_invoke_kind>(random_.below(random_.one_in(50) ? 9 : 4)); }

  /// New objects now and then; the old ones are let go, cycles first.
  void renew() {
    drop_all();
    for (const auto& entry : automation::loaded_classes()) {
      au_object* object = nullptr;
      if (au_create_object(entry.description->identifier().c_str(), &object) == AU_OK) add(object);
    }
    // Half of the objects have an archive; the others are given connectors by chance.
    au_value archive{};
    archive.kind = AU_OBJECT;
    archive.as.object = open_archive();
    for (const Target& target : targets_)
      if (random_.one_in(2)) au_call(target.object, "ActiveConnection", AU_PUTREF, &archive, 1, nullptr);
  }

  /// The one object that opens a database, with an archive in memory.
  au_object* open_archive() {
    au_object* connector = nullptr;
    for (const Target& target : targets_) {
      au_value url{};
      au_set_text(&url, "sqlite::memory:", 15);
      if (au_call(target.object, "Open", AU_METHOD, &url, 1, nullptr) == AU_OK) {
        connector = target.object;
        au_call(connector, "CreateSchema", AU_METHOD, nullptr, 0, nullptr);
        au_value draws{};
        au_set_text(&draws, fuzz_draws.data(), fuzz_draws.size());
        au_call(connector, "ExecuteSql", AU_METHOD, &draws, 1, nullptr);
        au_clear(&draws);
      }
      au_clear(&url);
    }
    return connector;
  }

  void add(au_object* object) {
    const auto& description = reinterpret_cast<automation::Object*>(object)->description();
    for (const automation::Member& row : description.members)
      for (const automation::Parameter& parameter : row.parameters()) names_.emplace_back(parameter.name);
    targets_.push_back({object, description.members});
  }

  void drop_all() {
    au_value nothing{};
    nothing.kind = AU_OBJECT;
    for (const Target& target : targets_) au_call(target.object, "ActiveConnection", AU_PUTREF, &nothing, 1, nullptr);
    for (const Target& target : targets_) au_release(target.object);
    targets_.clear();
    names_.assign(1, "nonsense");
  }

  /// Objects that come back join the targets, up to a few.
  void keep(au_value& value) {
    if (value.kind == AU_OBJECT && value.owned != 0 && value.as.object && targets_.size() < 30 &&
        au_retain(value.as.object) == AU_OK)
      add(value.as.object);
    au_clear(&value);
  }

  int32_t random_kind_of_value() {
    return static_cast<int32_t>(random_.one_in(200) ? random_.below(40) : random_.below(12));
  }

  void fill(au_value& value, int32_t kind) {
    value.kind = kind;
    switch (value.kind) {
      case AU_TEXT:
        fill_text(value);
        break;
      case AU_OBJECT:
        value.as.object = random_.one_in(4) ? nullptr : random_.pick(targets_).object;
        break;
      case AU_ARRAY:
        fill_array(value);
        break;
      case AU_SINGLE:
      case AU_DOUBLE:
      case AU_DATE:
        value.as.real = random_.pick(fuzz_reals);
        break;
      default:
        value.as.number = random_.pick(fuzz_numbers);
        break;
    }
  }

  void fill_text(au_value& value) {
    value.kind = AU_EMPTY;
    std::string text = random_.pick(fuzz_texts);
    if (random_.one_in(10)) text = random_.text(200);
    if (random_.one_in(500)) text.assign(random_.below(300000), ',');
    au_set_text(&value, text.data(), text.size());
  }

  void fill_array(au_value& value) {
    value.kind = AU_EMPTY;
    const au_bound bounds[2] = {{-1, static_cast<int32_t>(random_.below(5))}, {1, 2}};
    au_make_array(&value, static_cast<au_kind>(random_.below(12)), bounds, random_.below(3));
    au_value element{};
    element.kind = AU_LONG;
    element.as.number = random_.pick(fuzz_numbers);
    au_array_put(&value, random_.below(4), &element);
  }

  Random random_;
  Patience patience_;
  long answered_ = 0;
  std::vector<Target> targets_;
  const std::vector<int32_t> odd_ids_{-1, 0, 99};
  std::vector<std::string> names_;
};

}  // namespace

int main(int argc, char** argv) {
  const long calls = argc > 1 ? std::atol(argv[1]) : 20000;
  const uint64_t seed = argc > 2 ? static_cast<uint64_t>(std::atoll(argv[2])) : 1;
  const testing_support::TemporaryFolder folder;
  std::filesystem::current_path(folder.path());
  vestara::set_log_folder("nowhere");
  long answered = 0;
  {
    Fuzzer fuzzer(seed);
    for (long i = 0; i < calls; ++i) fuzzer.call();
    answered = fuzzer.answered();
  }
  if (answered < calls / 5) return 1;  // a fuzzer whose calls are all refused tests nothing
  std::filesystem::current_path("/");
  std::printf("%ld calls, seed %llu: every one came back, %ld with an answer\n", calls,
              static_cast<unsigned long long>(seed), answered);
  return 0;
}
