#include <gtest/gtest.h>

#include <cstdlib>

#include "automation/system/file.h"
#include "tests/attacks/attack_texts.h"
#include "tests/attacks/under_attack.h"
#include "tests/support/log_capture.h"
#include "vestara/archive/lotto.h"
#include "vestara/systems/systems.h"

namespace attacks {
namespace {

using automation::Ref;
using testing_support::Random;
using vestara::RecordSet;

constexpr long looked_at_together = 500;

class RandomAttacksTest : public UnderAttack {
 protected:
  RandomAttacksTest() {
    lotto_.ActiveConnection(connector_);
    systems_.ActiveConnection(connector_);
  }

  /// Half of them on SQLite, a quarter on each server.
  long texts() const {
    const std::string wanted = automation::environment_variable("VESTARA_ATTACKS");
    const long all = wanted.empty() ? 100000 : std::atol(wanted.c_str());
    return GetParam() == Engine::sqlite ? all / 2 : all / 4;
  }

  static void walk(const Ref<RecordSet>& rows) {
    for (int i = 0; rows && i < 200 && !rows->at_end(); ++i) rows->move_next();
  }
  void open(const std::string& statement) {
    Ref<RecordSet> rows;
    if (connector_->OpenRecordset(rows, statement)) walk(rows);
    connector_->CloseRecordset(rows);
  }
  /// Stores the text the way a host does and looks whether it is what came to be stored.
  void store(const std::string& text) {
    connector_->BeginTrans();
    std::string description = text;
    std::string numbers = "1";
    std::string wheels = text;
    if (lotto_.SaveRicerchePersonalizzate(0, description, numbers, 1, wheels)) {
      const auto rows = lotto_.GetRicerchePersonalizzate(2);
      const bool found = rows && rows->record_count() == 1;
      EXPECT_TRUE(found && rows->text(rows->column("descRicerca")) == text) << text;
    }
    connector_->RollbackTrans();
  }
  void import(const std::string& text) {
    connector_->BeginTrans();
    connector_->ExecuteSql("INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES(" +
                           text + ",'2020-01-04','BA',1,2,3,4,5)");
    connector_->RollbackTrans();
  }

  void attack(const std::string& text, size_t place) {
    switch (place) {
      case 0:
        return walk(lotto_.LoadLottoEstr(text, 1));
      case 1:
        return walk(lotto_.LoadLottoEstr("5", 1, text));
      case 2:
        return walk(lotto_.LoadLottoEstr("5", 1, "", text, text));
      case 3:
        return walk(systems_.GetSistemiLista(0, text, text, text));
      case 4:
        return open("SELECT " + text);
      case 5:
        return open(text);
      case 6:
        return open("SELECT dtEstr FROM storico WHERE estr1 IN(" + text + ")");
      case 7:
        return open("SELECT dtEstr,ruota FROM storico WHERE ruota='" + text + "' ORDER BY dtEstr");
      case 8:
        return import(text);
      default:
        return store(text);
    }
  }

  testing_support::LogCapture log_;
  vestara::cLotto lotto_;
  vestara::cSistemi systems_;
};

INSTANTIATE_TEST_SUITE_P(Engines, RandomAttacksTest, conformance::engines(), conformance::engine_name);

TEST_P(RandomAttacksTest, ChangeNothing) {
  const std::string seed = automation::environment_variable("VESTARA_ATTACKS_SEED");
  Random random(seed.empty() ? 16 : static_cast<uint64_t>(std::atoll(seed.c_str())));
  const std::string before = everything();
  std::vector<std::string> together;
  const long count = texts();
  for (long i = 1; i <= count; ++i) {
    const std::string text = aimed(attack_text(random));
    const size_t place = random.below(11) % 10;
    attack(text, place);
    together.push_back(std::to_string(place) + ": " + text);
    if (i % looked_at_together != 0 && i != count) continue;
    ASSERT_EQ(changes_since(before), "") << "after " << i << " texts, one of the last:\n"
                                         << testing::PrintToString(together);
    ASSERT_FALSE(HasFailure());
    together.clear();
  }
}

}  // namespace
}  // namespace attacks
