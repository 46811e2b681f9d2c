#include "dorvane/result_text.h"

#include <gtest/gtest.h>

#include "automation/coercion.h"

namespace dorvane {
namespace {

using automation::VariantKind;

TEST(ResultText, Cases) {
  struct Row {
    void (*append)(records::ColumnStore&, std::string_view);
    const char* text;
    VariantKind kind;
    const char* value;
  };
  for (const Row& row :
       {Row{append_whole, "-32768", VariantKind::long_integer, "-32768"},
        Row{append_whole, "4294967296", VariantKind::double_precision, "4294967296"},
        Row{append_whole, "18446744073709551616", VariantKind::double_precision, "1.84467440737096E+19"},
        Row{append_real, "0.5", VariantKind::double_precision, "0.5"},
        Row{append_real, "1e3", VariantKind::double_precision, "1000"},
        Row{append_decimal, "12", VariantKind::long_integer, "12"},
        Row{append_decimal, "12.0000", VariantKind::long_integer, "12"},
        Row{append_decimal, "12.0010", VariantKind::double_precision, "12.001"},
        Row{append_timestamp, "2026-11-21 00:00:00", VariantKind::date, "21/11/2026"},
        Row{append_timestamp, "2026-11-21 09:30:01", VariantKind::date, "21/11/2026 09:30:01"}}) {
    records::ColumnStore column(records::TextReading::iso_dates);
    row.append(column, row.text);
    EXPECT_EQ(column.value(0).kind(), row.kind) << row.text;
    EXPECT_EQ(automation::to_text(column.value(0)), row.value) << row.text;
  }
}

}  // namespace
}  // namespace dorvane
