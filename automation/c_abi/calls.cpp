#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "automation/c_abi/convert.h"
#include "automation/c_abi/failure.h"
#include "automation/error.h"
#include "automation/event_source.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "automation/text.h"

namespace automation::c_abi {
namespace {

InvokeKind invoke_kind(au_invoke_kind kind) {
  switch (kind) {
    case AU_METHOD:
      return InvokeKind::method;
    case AU_GET:
      return InvokeKind::get;
    case AU_PUT:
      return InvokeKind::put;
    case AU_PUTREF:
      return InvokeKind::putref;
  }
  throw Misuse{AU_BAD_ARGUMENT, "an unknown kind of call"};
}

/// The host's arguments as variants, for one call; few enough to need no memory of their own as a rule.
class Frame {
 public:
  Frame(au_value* values, size_t count) : values_(values), count_(count) {
    if (!values && count != 0) throw Misuse{AU_BAD_ARGUMENT, "the arguments are null"};
    if (count > few_.size()) many_.resize(count);
    for (size_t i = 0; i < count; ++i) arguments()[i] = from_value(values[i]);
  }

  std::span<Variant> arguments() { return {many_.empty() ? few_.data() : many_.data(), count_}; }

  /// Replaces the host's values that the member changed; the others are not touched.
  void give_back() {
    for (size_t i = 0; i < count_; ++i)
      if (!holds(values_[i], arguments()[i])) to_value(arguments()[i], values_[i]);
  }

 private:
  au_value* values_;
  size_t count_;
  std::array<Variant, most_parameters> few_;
  std::vector<Variant> many_;
};

std::vector<std::string_view> names_of(const char* const* names, size_t count) {
  std::vector<std::string_view> result;
  if (count == 0) return result;
  required(names);
  for (size_t i = 0; i < count; ++i) result.emplace_back(&required(names[i]));
  return result;
}

void invoke(Object& object, int32_t id, au_invoke_kind kind, au_value* values, size_t count,
            std::span<const std::string_view> names, au_value* result) {
  Frame frame(values, count);
  // The member may let the last reference go that the host's other code holds.
  const Ref<Object> alive(&object);
  Variant answer;
  try {
    answer = object.invoke(id, invoke_kind(kind), frame.arguments(), names);
  } catch (...) {
    frame.give_back();
    throw;
  }
  frame.give_back();
  if (result) to_value(answer, *result);
}

int32_t id_of(const Object& object, const char* member) {
  const auto id = object.id_of(&required(member));
  if (!id) throw no_such_member().continued(concatenated({": '", member, "'"}));
  return *id;
}

EventSource& events_of(au_object* object) {
  EventSource* const source = object_of(object).event_source();
  if (!source) throw no_such_action();
  return *source;
}

void deliver(au_event_sink sink, void* host, const Event& event, std::span<const Variant> arguments) {
  const Values values(arguments);
  sink(host, event.id, std::string(event.name).c_str(), values.data(), arguments.size());
}

}  // namespace
}  // namespace automation::c_abi

using namespace automation::c_abi;

uint32_t au_abi_version(void) { return AU_ABI_VERSION; }

au_status au_create_object(const char* identifier, au_object** object) {
  return guarded([&] {
    required(object) = nullptr;
    *object = hand_out(automation::create_object(&required(identifier)));
  });
}

au_status au_retain(au_object* object) {
  return guarded([&] { share(object); });
}

au_status au_release(au_object* object) {
  return guarded([&] { take_back(object); });
}

au_status au_get_id(au_object* object, const char* member, int32_t* id) {
  return guarded([&] { required(id) = id_of(object_of(object), member); });
}

au_status au_invoke(au_object* object, int32_t id, au_invoke_kind kind, au_value* arguments, size_t count,
                    const char* const* names, size_t name_count, au_value* result) {
  return guarded([&] {
    if (result) au_clear(result);
    if (name_count > count) throw automation::wrong_argument_count();
    const auto named = names_of(names, name_count);
    invoke(object_of(object), id, kind, arguments, count, named, result);
  });
}

au_status au_get(au_object* object, int32_t id, au_value* result) {
  return au_invoke(object, id, AU_GET, nullptr, 0, nullptr, 0, result);
}

au_status au_call(au_object* object, const char* member, au_invoke_kind kind, au_value* arguments, size_t count,
                  au_value* result) {
  return guarded([&] {
    if (result) au_clear(result);
    auto& target = object_of(object);
    invoke(target, id_of(target, member), kind, arguments, count, {}, result);
  });
}

au_status au_advise(au_object* object, au_event_sink sink, void* host, int32_t* cookie) {
  return guarded([&] {
    required(sink);
    required(cookie) = events_of(object).connect(
        [sink, host](const automation::Event& event, std::span<const automation::Variant> arguments) {
          deliver(sink, host, event, arguments);
        });
  });
}

au_status au_unadvise(au_object* object, int32_t cookie) {
  return guarded([&] {
    if (!events_of(object).disconnect(cookie)) throw automation::invalid_call();
  });
}
