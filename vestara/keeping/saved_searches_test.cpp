#include "vestara/keeping/saved_searches.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/connectors.h"
#include "tests/support/values.h"
#include "vestara/keeping/saved_search_text.h"

namespace vestara {
namespace {

using automation::make;
using testing_support::day;
using testing_support::error_of;
using testing_support::is_refused;
using Calls = std::vector<std::string>;

class SavedSearches : public testing::Test {
 protected:
  SavedSearches() { scripted_->max_ids["tRicerche.idRicerca"] = 41; }

  automation::Ref<testing_support::ScriptedConnector> scripted_ = make<testing_support::ScriptedConnector>();
  automation::Ref<testing_support::RecordingConnector> recorder_ = make<testing_support::RecordingConnector>(scripted_);
  SavedSearch search_{
      .description = "L'ambo", .numbers = "5,12", .combination = 2, .wheels = "BA", .from = day(2026, 1, 2)};
};

TEST_F(SavedSearches, ANewOneGetsTheNextNumber) {
  EXPECT_EQ(save_search(*recorder_, search_), 42);
  EXPECT_EQ(recorder_->take(),
            (Calls{"GetMaxId tRicerche idRicerca",
                   "ExecuteSql INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) "
                   "VALUES (42,'L''ambo','5,12',2,'BA',NULL,'2026-01-02',NULL)"}));
}

TEST_F(SavedSearches, OneWithANumberIsReplaced) {
  search_.id = 7;
  EXPECT_EQ(save_search(*recorder_, search_), 7);
  EXPECT_EQ(recorder_->take(),
            Calls{"ExecuteSql UPDATE tRicerche SET descRicerca='L''ambo',numeri='5,12',combinazione=2,ruote='BA',"
                  "dtSave=NULL,dtDa='2026-01-02',dtA=NULL WHERE idRicerca=7"});
}

TEST_F(SavedSearches, Failures) {
  scripted_->max_ids["tRicerche.idRicerca"] = std::numeric_limits<int32_t>::max();
  EXPECT_EQ(error_of([&] { save_search(*scripted_, search_); }), 6);
  search_.id = 7;
  search_.description.clear();
  scripted_->refused = {saved_search_update_statement(search_), saved_search_delete_statement(7)};
  EXPECT_TRUE(is_refused([&] { save_search(*scripted_, search_); }));
  EXPECT_TRUE(is_refused([&] { delete_search(*scripted_, 7); }));
  EXPECT_EQ(error_of([&] { delete_search(*scripted_, 8); }), 0);
}

}  // namespace
}  // namespace vestara
