#include "hosts/cli/programming/surface_text.h"

#include <gtest/gtest.h>

#include <array>

namespace vestara::host {
namespace {

using automation::by_value;
using automation::InOut;
using automation::optional;
using automation::parameter;
using automation::Ref;
using automation::Variant;

/// A class with every kind of member and parameter.
class Everything final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "Everything";
  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  int16_t Size() const { return 0; }
  void Size(int16_t) {}
  void Other(Ref<Everything>) {}
  Variant Item(const Variant&) { return {}; }
  void Nothing() {}
  Ref<Everything> Find(std::string, bool, const Variant&, InOut<int32_t>) { return {}; }
  automation::Array Sort(InOut<double>, int32_t, std::string) { return {}; }
};

using row = automation::Rows<Everything>;
constexpr auto members = automation::member_rows(
    row::read_only<&Everything::Item>(0, "Item", "One of them.", parameter("index")),
    row::assigned_property<int16_t, &Everything::Size, &Everything::Size>(1, "Size", "How many."),
    row::putref<Ref<Everything>, &Everything::Other>(2, "Other", ""),
    row::method<&Everything::Nothing>(100, "Nothing", "Does nothing."),
    row::method<&Everything::Find>(101, "Find", "Finds.", parameter("what"), optional("all", true),
                                   by_value(optional("dtDa")), optional("found", 0)),
    row::method<&Everything::Sort>(102, "Sort", "", parameter("value"), by_value(parameter("n")), optional("by", "a")));
constexpr std::array events{automation::Event{.id = 1, .name = "Done", .help = "It is done."}};

const automation::ClassDescription& Everything::surface() {
  static constexpr automation::ClassDescription surface{.library = "Test",
                                                        .name = contract_name,
                                                        .interface_name = "_Everything",
                                                        .event_interface = "__Everything",
                                                        .help = "All kinds.",
                                                        .members = members,
                                                        .events = events};
  return surface;
}

TEST(SurfaceText, EveryKindOfMember) {
  automation::RegisteredClass known{&Everything::surface(), [] { return Ref<automation::Object>(); }};
  const std::string text =
      "class       Test.Everything  ' All kinds.\n"
      "interface   _Everything\n"
      "0   get     Item(index As Variant) As Variant  ' One of them.\n"
      "1   put     Size(value As Integer)  ' How many.\n"
      "1   get     Size As Integer  ' How many.\n"
      "2   putref  Other(value As Everything)\n"
      "100 method  Nothing()  ' Does nothing.\n"
      "101 method  Find(what As String, [all As Boolean = True], [ByVal dtDa As Variant], [out found As Long = 0]) As "
      "Everything  ' Finds.\n"
      "102 method  Sort(out value As Double, ByVal n As Long, [by As String = \"a\"]) As Array\n"
      "events      __Everything\n"
      "1   event   Done()  ' It is done.\n";
  EXPECT_EQ(surface_text(known), text);
  known.create = nullptr;
  EXPECT_TRUE(surface_text(known).starts_with("class       Test.Everything, only handed out  ' All kinds.\n"));
}

}  // namespace
}  // namespace vestara::host
