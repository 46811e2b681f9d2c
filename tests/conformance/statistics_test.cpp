#include <gtest/gtest.h>

#include "tests/conformance/back_end.h"
#include "tests/support/gap_reader.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/archive/lotto.h"

namespace conformance {
namespace {

using automation::Missing;
using automation::Variant;
using testing_support::Archive;
using testing_support::day;

class SearchStatisticsTest : public BackEnd {
 protected:
  SearchStatisticsTest() {
    lotto_.ActiveConnection(connector_);
    lotto_.StatisticsIsActive(true);
  }

  testing_support::LogCapture log_;
  vestara::cLotto lotto_;
};

INSTANTIATE_TEST_SUITE_P(Engines, SearchStatisticsTest, engines(), engine_name);

TEST_P(SearchStatisticsTest, OfASearchInARandomArchive) {
  testing_support::Random random(7);
  const Archive archive = testing_support::random_archive(
      random, {.dates = 200, .highest_number = 20, .zero_row = 10, .second_contest = 20});
  ASSERT_TRUE(execute(testing_support::insert_statement(archive))) << connector_->LastError();
  const automation::Date from = day(2000, 3, 1), to = day(2001, 2, 28);
  const auto rows = lotto_.LoadLottoEstr("3,7,11", 2, "BA,NA", from, to, false, false, true);
  ASSERT_TRUE(rows);
  const auto statistics = lotto_.Statistiche();
  ASSERT_TRUE(statistics);
  EXPECT_EQ(statistics->EstrContaTutteLeEstrazioniSortiteNelleDate(), rows->record_count());
  EXPECT_EQ(statistics->EstrContaSortiteTrovate(), lotto_.ContaSortiteTrovate());
  EXPECT_EQ(statistics->EstrContaTutteLeEstrazioniNelleDate(), lotto_.ContaEstrazioniStorico(from, to));
  EXPECT_GT(statistics->EstrContaSortiteTrovate(), 10);
  EXPECT_EQ(statistics->EstrContaCombinazioniTrovate(),
            lotto_.Ambate() + lotto_.Ambi() + lotto_.Terni() + lotto_.Quaterne() + lotto_.Cinquine());
  EXPECT_EQ(statistics->EstrRuoteGiocateQta(), 2);
  EXPECT_GT(statistics->EstrCalcolaPercEffettiva(), 0);
  EXPECT_GT(statistics->CalcolaNumEstrDaPerc(), 1);

  vestara::cDistanze own;
  own.ActiveConnection(connector_);
  own.LoadDistanze("3,7,11", 2, "BA,NA", from, to);
  EXPECT_GT(own.ItemCount(), 10);
  EXPECT_EQ(testing_support::items_of(*statistics->Distanze()), testing_support::items_of(own));
  EXPECT_EQ(testing_support::figures_of(*statistics->Distanze()), testing_support::figures_of(own));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_P(SearchStatisticsTest, OfAnEmptyArchive) {
  EXPECT_TRUE(lotto_.LoadLottoEstr("5", 1));
  const auto statistics = lotto_.Statistiche();
  ASSERT_TRUE(statistics);
  EXPECT_EQ(statistics->EstrContaTutteLeEstrazioniNelleDate(), 0);
  EXPECT_EQ(statistics->EstrCalcolaPercEffettiva(), 0);
  EXPECT_EQ(statistics->CalcolaNumEstrDaPerc(true), -1);
  EXPECT_EQ(statistics->Distanze()->ItemCount(), 0);
  EXPECT_TRUE(lotto_.LoadLottoEstr("5", 1, "", Missing{}, Missing{}, true));
  EXPECT_FALSE(lotto_.Statistiche());
}

}  // namespace
}  // namespace conformance
