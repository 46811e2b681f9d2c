#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

#include "automation/registry.h"
#include "automation/yield.h"
#include "dorvane/connector.h"
#include "tests/support/log_capture.h"
#include "vestara/archive/lotto.h"
#include "vestara/distances/number_distances.h"
#include "vestara/foundation/error_log.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/analytic_table.h"
#include "vestara/frequency/frequency.h"
#include "vestara/systems/systems.h"

// Threads that share nothing but the process: each has its own connector and its own objects.

namespace vestara {
namespace {

using automation::make;
using automation::Ref;
using testing_support::LogCapture;
using testing_support::LogEntry;

constexpr int thread_count = 4;

/// Objects a thread; VESTARA_THREAD_OBJECTS sets another number.
int object_count() {
  const char* const wanted = std::getenv("VESTARA_THREAD_OBJECTS");
  return wanted ? std::atoi(wanted) : 1500;
}

void on_four_threads(const std::function<void(int)>& body) {
  std::barrier together(thread_count);
  std::vector<std::thread> threads;
  for (int number = 0; number < thread_count; ++number)
    threads.emplace_back([&, number] {
      together.arrive_and_wait();
      body(number);
    });
  for (std::thread& thread : threads) thread.join();
}

/// An archive of two draws on every wheel; the newest holds 1 to 5 on BA.
Ref<dorvane::DbConnector> archive() {
  auto connector = make<dorvane::DbConnector>();
  if (!connector->Open("sqlite::memory:") || !connector->CreateSchema()) return {};
  const char* const aliases[] = {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"};
  std::string rows;
  for (int draw = 0; draw < 2; ++draw)
    for (int wheel = 0; wheel < 11; ++wheel) {
      rows += std::string(rows.empty() ? "" : ",") + "(" + std::to_string(draw + 1) + ",'2005-02-0" +
              std::to_string(draw + 5) + "','" + aliases[wheel] + "'";
      for (int number = 1; number <= 5; ++number) rows += "," + std::to_string(wheel * 5 + (draw ? 0 : 20) + number);
      rows += ")";
    }
  const std::string columns = "concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5";
  return connector->ExecuteSql("INSERT INTO storico (" + columns + ")VALUES" + rows) ? connector : nullptr;
}

/// One object of a class in turn, made, given the connector, loaded, looked at.
bool works(int turn, const Ref<dorvane::DbConnector>& connector) {
  switch (turn % 5) {
    case 0: {
      const auto frequency = make<cFrequenza>();
      frequency->ActiveConnection(connector);
      frequency->LoadRitardi();
      return frequency->GetRitNum(3, "BA") == 0 && frequency->GetRitNum(21, "BA") == 1;
    }
    case 1: {
      const auto lotto = make<cLotto>();
      lotto->ActiveConnection(connector);
      return lotto->LoadLottoEstr("1,2", 2, "BA") && lotto->Ambi() == 1;
    }
    case 2: {
      const auto distances = make<cDistanze2>();
      distances->ActiveConnection(connector);
      return distances->LoadDistanze1("BA,RN");
    }
    case 3: {
      const auto table = make<cTabAnalytics>();
      table->ActiveConnection(connector);
      table->LoadTabelloneAnalitico();
      return true;
    }
    default:
      return static_cast<bool>(automation::create_object("Vestara.cSistemi")) && !automation::loaded_classes().empty();
  }
}

TEST(FourThreads, EachWithItsOwnConnectorAndObjects) {
  const LogCapture log;
  std::atomic<int> failures{0};
  std::atomic<int> yields{0};
  on_four_threads([&](int number) {
    const auto connector = archive();
    if (!connector) return static_cast<void>(++failures);
    for (int turn = 0; turn < object_count(); ++turn) {
      if (!works(turn + number, connector)) ++failures;
      // One thread puts the hook in and out while the others' loops run.
      if (number == 0) automation::set_yield_hook(turn % 2 == 0 ? [&yields] { ++yields; } : std::function<void()>());
    }
  });
  automation::set_yield_hook({});
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(log.bytes(), "");
}

TEST(FourThreads, EntriesOfTheLogStandOneBehindTheOther) {
  const LogCapture log;
  constexpr int entries = 300;
  on_four_threads([&](int number) {
    for (int i = 0; i < entries; ++i) {
      std::string label = "thread" + std::to_string(number) + "()";
      WriteErrLog(label, automation::RunTimeError(number, std::string(static_cast<size_t>(i), 'x')));
      if (number == 0) set_log_folder(log.folder());
    }
  });
  std::vector<int> of_thread(thread_count);
  for (const LogEntry& entry : log.entries()) {
    ASSERT_EQ(entry.label, "thread" + std::to_string(entry.number) + "()");
    ASSERT_EQ(entry.description,
              std::string(static_cast<size_t>(of_thread.at(static_cast<size_t>(entry.number))++), 'x'));
  }
  for (const int count : of_thread) EXPECT_EQ(count, entries);
}

TEST(FourThreads, WheelTablesAreReplacedWhole) {
  const auto tables_of = [](int16_t first) {
    WheelTables tables;
    tables.RuoteEnumByAlias.emplace();
    for (int16_t wheel = 1; wheel <= 12; ++wheel) {
      const std::string alias = std::to_string(first) + "-" + std::to_string(wheel);
      tables.RuoteAliasByEnum.at(static_cast<size_t>(wheel)) = alias;
      tables.RuoteEnumByAlias->add(alias, wheel);
    }
    return tables;
  };
  const LogCapture log;
  std::atomic<int> mixed{0};
  replace_wheel_tables(tables_of(0));
  on_four_threads([&](int number) {
    for (int turn = 0; turn < object_count(); ++turn) {
      replace_wheel_tables(tables_of(static_cast<int16_t>(number)));
      const auto tables = wheel_tables();
      const std::string group = tables->alias_of(1).substr(0, 2);
      for (int16_t wheel = 1; wheel <= 12; ++wheel)
        if (!tables->alias_of(wheel).starts_with(group) || tables->wheel_of(tables->alias_of(wheel)) != wheel) ++mixed;
    }
  });
  replace_wheel_tables({});
  EXPECT_EQ(mixed, 0);
}

}  // namespace
}  // namespace vestara
