#include <string>
#include <vector>

#include "automation/c_abi/convert.h"
#include "automation/c_abi/failure.h"
#include "automation/error.h"
#include "automation/member.h"
#include "automation/objects/call_depth.h"

namespace automation::c_abi {
namespace {

/// An object whose members are the host's callbacks.
class HostObject final : public Object {
 public:
  HostObject(const au_host_class& table, void* host) : table_(table), host_(host) {}
  ~HostObject() override {
    if (table_.destroy) table_.destroy(host_);
  }

  /// A host's class has no rows: it is asked every time.
  const ClassDescription& description() const override {
    static constexpr ClassDescription nothing{.library = "", .name = "Object", .interface_name = "", .help = ""};
    return nothing;
  }

  std::optional<int32_t> id_of(std::string_view member) const override {
    int32_t id = 0;
    forget_failure();
    if (table_.get_id(host_, member.data(), member.size(), &id) != AU_OK) return std::nullopt;
    return id;
  }

  Variant invoke(int32_t id, InvokeKind kind, std::span<Variant> arguments,
                 std::span<const std::string_view> names) override {
    const CallDepth inside(Caller::library);
    Values values(arguments, 1);
    std::vector<std::string> texts(names.begin(), names.end());
    std::vector<const char*> pointers;
    pointers.reserve(texts.size());
    for (const std::string& text : texts) pointers.push_back(text.c_str());
    forget_failure();
    const au_status status =
        table_.invoke(host_, id, static_cast<au_invoke_kind>(kind), values.data(), arguments.size(), pointers.data(),
                      pointers.size(), &values.at(arguments.size()));
    if (status != AU_OK) throw kept_failure();
    for (size_t i = 0; i < arguments.size(); ++i) arguments[i] = from_value(values.at(i));
    return from_value(values.at(arguments.size()));
  }

  void* host_of(const au_host_class* table) const { return table == &table_ ? host_ : nullptr; }

 private:
  const au_host_class& table_;
  void* host_;
};

}  // namespace
}  // namespace automation::c_abi

using namespace automation::c_abi;

au_status au_create_host_object(const au_host_class* table, void* host, au_object** object) {
  return guarded([&] {
    required(object) = nullptr;
    if (required(table).version >> 16 != AU_ABI_VERSION >> 16)
      throw Misuse{AU_BAD_VERSION, "the table of callbacks was made for another version"};
    required(table->get_id);
    required(table->invoke);
    *object = hand_out(automation::make<HostObject>(*table, host));
  });
}

void* au_host_of(const au_host_class* table, au_object* object) {
  void* host = nullptr;
  guarded([&] {
    const auto* own = dynamic_cast<const HostObject*>(&object_of(object));
    if (own) host = own->host_of(table);
  });
  return host;
}
