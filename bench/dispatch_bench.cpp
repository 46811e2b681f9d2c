#include <array>
#include <cstdio>
#include <functional>

#include "automation/c_abi/automation.h"
#include "bench/archive.h"
#include "bench/harness.h"
#include "vestara/archive/lotto.h"

// dispatch: what a late-bound call costs over the direct C++ call of the same member, by id and by name, in C++ and
// through the C interface; and a million field values read through the late-bound record set.

namespace {

using automation::InvokeKind;
using automation::Variant;

constexpr int calls = 1000000;

double nanoseconds(const std::function<void()>& loop) {
  loop();
  std::vector<double> times;
  for (int i = 0; i < 7; ++i) times.push_back(bench::milliseconds(loop));
  return bench::median(times) * 1e6 / calls;
}

void report(const char* name, double direct, double late_bound) {
  std::printf("dispatch, %-40s direct %6.1f ns   late-bound %6.1f ns   extra %6.1f ns   goal 300 %s\n", name, direct,
              late_bound, late_bound - direct, late_bound - direct <= 300 ? "" : "  MISSED");
}

}  // namespace

int main() {
  vestara::cLotto lotto;
  automation::Object& object = lotto;
  volatile int64_t sum = 0;

  const double direct_get = nanoseconds([&] {
    for (int i = 0; i < calls; ++i) sum = sum + lotto.DbType();
  });
  const double direct_put = nanoseconds([&] {
    for (int i = 0; i < calls; ++i) lotto.DbType(static_cast<int16_t>(i & 1));
  });
  const int32_t id = *object.id_of("DbType");
  report("property get by id", direct_get, nanoseconds([&] {
           for (int i = 0; i < calls; ++i) sum = sum + *object.invoke(id, InvokeKind::get, {}).get_if<int16_t>();
         }));
  report("property put by id", direct_put, nanoseconds([&] {
           for (int i = 0; i < calls; ++i) {
             Variant value(static_cast<int32_t>(i & 1));
             object.invoke(id, InvokeKind::put, {&value, 1});
           }
         }));
  report("property get by name", direct_get, nanoseconds([&] {
           for (int i = 0; i < calls; ++i) sum = sum + *object.call("dbtype", InvokeKind::get, {}).get_if<int16_t>();
         }));

  auto* handle = reinterpret_cast<au_object*>(&object);
  report("property get by id, C interface", direct_get, nanoseconds([&] {
           au_value result{};
           for (int i = 0; i < calls; ++i) {
             au_invoke(handle, id, AU_GET, nullptr, 0, nullptr, 0, &result);
             sum = sum + result.as.number;
           }
         }));

  const bench::ArchiveFile file("dispatch");
  const auto connector = bench::open_connector(file.path());
  if (!connector->CreateSchema()) bench::stop(connector->LastError());
  for (const std::string& text : bench::insert_texts(bench::archive_tuples()))
    if (!connector->ExecuteSql(text)) bench::stop(connector->LastError());
  automation::Ref<vestara::RecordSet> rows;
  if (!connector->OpenRecordset(rows, "SELECT id,estr1 FROM storico")) bench::stop(connector->LastError());
  rows->record_count();
  const vestara::Column column = rows->column("estr1");
  const double direct_read = nanoseconds([&] {
    for (int i = 0; i < calls; ++i) sum = sum + *rows->value(column).get_if<int32_t>();
  });
  report("Fields(name).Value of a record set", direct_read, nanoseconds([&] {
           for (int i = 0; i < calls; ++i) {
             Variant name("estr1");
             const Variant field = rows->call("Fields", InvokeKind::get, {&name, 1});
             sum = sum + *(*field.get_if<automation::Ref<automation::Object>>())->default_value().get_if<int32_t>();
           }
         }));
  return 0;
}
