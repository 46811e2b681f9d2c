#include "hosts/cli/programming/call_arguments.h"

#include <gtest/gtest.h>

#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "tests/support/values.h"
#include "vestara/archive/lotto.h"

namespace vestara::host {
namespace {

using automation::InvokeKind;

/// "Long 5; dtDa: Null".
std::string shown_arguments(const CallArguments& arguments) {
  std::string text;
  const size_t positional = arguments.values.size() - arguments.names.size();
  for (size_t i = 0; i < arguments.values.size(); ++i) {
    text += i == 0 ? "" : "; ";
    if (i >= positional) text += arguments.names[i - positional] + ": ";
    text += testing_support::describe(arguments.values[i]);
  }
  return text;
}

TEST(CallArguments, PositionalAndNamed) {
  const cLotto lotto;
  struct Row {
    const char* member;
    const char* words;  ///< between blanks
    const char* outcome;
  };
  for (const Row& row :
       {Row{"GetMaxDateStorico", "", ""},
        {"ContaEstrazioniStorico", "2005-01-01 null 3", "Date 38353; Null; Long 3"},
        {"ContaEstrazioniStorico", "RUOTA=3", "Ruota: Long 3"},
        {"ContaEstrazioniStorico", "missing Ruota:=3", "Missing; Ruota: Long 3"},
        {"ContaEstrazioniStorico", "wheel=3", "text wheel=3"},
        {"ContaEstrazioniStorico", "wheel:=3", "wheel: Long 3"},
        {"ContaEstrazioniStorico", "=3", "text =3"},
        {"ContaEstrazioniStorico", "dtDa='a=b'", "dtDa: text a=b"},
        {"ContaEstrazioniStorico", "Ruota=3 5", "usage: argument \"5\" stands behind a named one; named ones go last"},
        {"LoadLottoEstr", "5,12 2", "text 5,12; Long 2; bTutteLeEstrazioni: False"},
        {"LoadLottoEstr", "'' 0 '' null null missing", "text ; Long 0; text ; Null; Null; False"},
        {"LoadLottoEstr", "'' 0 '' null null true", "text ; Long 0; text ; Null; Null; True"},
        {"LoadLottoEstr", "btutteleestrazioni=true", "bTutteLeEstrazioni: True"}}) {
    std::vector<std::string> words;
    for (const std::string_view word : automation::split(row.words, ' ')) words.emplace_back(word);
    const automation::Member* member = row_for(lotto.description(), row.member, InvokeKind::method);
    ASSERT_TRUE(member) << row.member;
    std::string outcome;
    try {
      outcome = shown_arguments(call_arguments(*member, words));
    } catch (const Failure& failure) {
      outcome = std::string("usage: ") + failure.what();
    }
    EXPECT_EQ(outcome, row.outcome) << row.words;
  }
}

TEST(CallArguments, TheRowOfACall) {
  const cLotto lotto;
  const auto kind_of = [&](std::string_view member, InvokeKind kind) {
    const automation::Member* row = row_for(lotto.description(), member, kind);
    return row ? std::string(automation::MemberKind::get == row->kind ? "get" : "other") : "none";
  };
  EXPECT_EQ(kind_of("dbtype", InvokeKind::method), "get");
  EXPECT_EQ(kind_of("DbType", InvokeKind::put), "other");
  EXPECT_EQ(kind_of("Ambate", InvokeKind::put), "get");
  EXPECT_EQ(kind_of("nonsense", InvokeKind::method), "none");
}

TEST(CallArguments, TheParameterOfAPlace) {
  const cLotto lotto;
  const automation::Member* row = row_for(lotto.description(), "LoadLottoEstr", InvokeKind::method);
  ASSERT_TRUE(row);
  const CallArguments arguments = call_arguments(*row, {"5", "2"});
  EXPECT_EQ(parameter_at(*row, arguments, 0), "sNum");
  EXPECT_EQ(parameter_at(*row, arguments, 1), "combinazioneTipo");
  EXPECT_EQ(parameter_at(*row, arguments, 2), "bTutteLeEstrazioni");
}

}  // namespace
}  // namespace vestara::host
