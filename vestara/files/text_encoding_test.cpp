#include "vestara/files/text_encoding.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

TEST(TextEncoding, Utf16BecomesUtf8) {
  struct Row {
    const char* name;
    std::string_view bytes;
    const char* text;  ///< null for what is no UTF-16
  };
  using namespace std::string_view_literals;
  for (const Row& row :
       {Row{"low first",
            "\xFF\xFE"
            "d\0a\0"sv,
            "da"},
        Row{"high first", "\xFE\xFF\0d\0a"sv, "da"}, Row{"a mark alone", "\xFF\xFE"sv, ""},
        Row{"low first, evident", "d\0a\0t\0a\0"sv, "data"}, Row{"high first, evident", "\0d\0a\0t\0a"sv, "data"},
        Row{"too short", "d\0a\0t\0"sv, nullptr}, Row{"plain", "data,ruota"sv, nullptr},
        Row{"a zero", "da\0ta,ruo"sv, nullptr}, Row{"two and three bytes", "\xFF\xFE\xB0\0\xAC\x20"sv, "°€"},
        Row{"a pair", "\xFF\xFE\x34\xD8\x1E\xDD"sv, "𝄞"},
        Row{"half a pair",
            "\xFF\xFE\x34\xD8"
            "d\0"sv,
            "\xEF\xBF\xBD"
            "d"},
        Row{"the other half", "\xFF\xFE\x1E\xDD"sv, "\xEF\xBF\xBD"},
        Row{"cut off",
            "\xFF\xFE"
            "d\0a"sv,
            "d\xEF\xBF\xBD"}}) {
    const auto text = from_utf16(row.bytes);
    EXPECT_EQ(text.has_value(), row.text != nullptr) << row.name;
    EXPECT_EQ(text.value_or(""), row.text ? row.text : "") << row.name;
  }
}

}  // namespace
}  // namespace vestara
