#include <string>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/int16.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/lotto.h"
#include "vestara/foundation/draw_columns.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/trap.h"
#include "vestara/foundation/wheels.h"
#include "vestara/keeping/draw_text.h"

// Single draws of the archive.

namespace vestara {

using automation::Ref;
using automation::Variant;

namespace {

/// The row of one wheel. A wheel with fewer than five numbers gives a text that databases refuse. Error 9 for a wheel
/// outside 1..11.
std::string insert_statement(const cEstrazione& draw, int32_t wheel) {
  return draw_insert_statement(automation::date_in(draw.DataEstrazione()), alias_of(wheel), draw.GetNumeri(wheel),
                               draw.NumeroConcorso());
}

/// A draw record counts its positions from 2.
constexpr int32_t first_position = 2;

void add_row(RecordSet& row, const DrawColumns& columns, Column key_column, cEstrazione& draw) {
  const int32_t wheel = columns.wheel.wheel(row);
  const int32_t key = automation::to_long(row.value(key_column));
  int32_t position = first_position;
  for (const Column number : columns.numbers)
    draw.AddNumero(wheel, position++, automation::to_text(row.value(number)), key);
}

Ref<cEstrazione> read_draw(RecordSet& rows) {
  // Without a row there is no record to set the date on.
  if (rows.at_end()) throw automation::object_not_set();
  auto draw = automation::make<cEstrazione>();
  draw->NumeroConcorso(automation::to_integer(rows.value(rows.column("concorsoNumero"))));
  const DrawColumns columns(rows);
  const Column key = rows.column("id");
  for (; !rows.at_end(); rows.move_next()) add_row(rows, columns, key, *draw);
  return draw;
}

}  // namespace

Variant cLotto::GetDataEstrazioneDaConta(int32_t nEstrazioniPrec, const Variant& daDataNow) {
  return trapped("cLotto.GetDataEstrazioneDaConta()", Variant(), [&]() -> Variant {
    // A missing date stays missing: the listing then has no upper bound, on purpose.
    Ref<RecordSet> rows = LoadLottoEstr("", 0, "", GetMinDateStorico(), daDataNow);
    if (!rows) return {};
    const Ref<DbConnector> held(&connector());
    std::string date;
    try {
      rows->move(automation::checked_long(int64_t{nEstrazioniPrec} - 1));
      date = automation::to_text(rows->value(rows->column("dtEstr")));
    } catch (...) {
      held->CloseRecordset(rows);
      throw;
    }
    held->CloseRecordset(rows);
    return automation::to_date(date);
  });
}

bool cLotto::DelEstrazione(const Variant& dt) {
  return trapped("cLotto.DelEstrazione()", false,
                 [&] { return connector().ExecuteSql(draw_delete_statement(automation::date_in(dt))); });
}

bool cLotto::SalvaEstrazione(const Ref<cEstrazione>& c_estr) {
  return trapped("cLotto.SalvaEstrazione()", false, [&] {
    if (!c_estr) throw automation::object_not_set();
    connector().BeginTrans();
    // Refused here, the transaction is left as it is, without commit or rollback: on purpose.
    if (!DelEstrazione(c_estr->DataEstrazione())) return false;
    for (int32_t wheel = 1; wheel <= wheel_count; ++wheel) {
      if (connector().ExecuteSql(insert_statement(*c_estr, wheel))) continue;
      connector().RollbackTrans();
      throw refused();
    }
    connector().CommitTrans();
    return true;
  });
}

Ref<cEstrazione> cLotto::GetEstrazioneDaData(const Variant& dtEstr) {
  return trapped("cLotto.GetEstrazioneDaData()", Ref<cEstrazione>(), [&] {
    Ref<RecordSet> rows = open_rows(connector(), draw_select_statement(automation::date_in(dtEstr)));
    if (!rows) return Ref<cEstrazione>();
    Ref<cEstrazione> draw = read_draw(*rows);
    draw->DataEstrazione(dtEstr);
    connector().CloseRecordset(rows);
    return draw;
  });
}

}  // namespace vestara
