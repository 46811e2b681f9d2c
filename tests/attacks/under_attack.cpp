#include "tests/attacks/under_attack.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>

#include "automation/coercion.h"

namespace attacks {

using automation::Ref;

namespace {

const char* const tables[]{"SELECT * FROM storico ORDER BY id", "SELECT * FROM tRicerche ORDER BY idRicerca",
                           "SELECT * FROM tSistemi ORDER BY idSis", "SELECT * FROM tSistemaDetail ORDER BY id",
                           "SELECT * FROM ruote ORDER BY enumeratore"};

/// What else there is, for the watcher to see.
std::vector<const char*> objects(Engine engine) {
  switch (engine) {
    case Engine::sqlite:
      return {"SELECT type,name,sql FROM sqlite_master ORDER BY name"};
    case Engine::postgresql:
      return {"SELECT relname,relkind FROM pg_class WHERE relkind IN('r','S','v','i') ORDER BY relname",
              "SELECT count(*) FROM pg_largeobject_metadata",
              "SELECT proname FROM pg_proc WHERE oid>16383",
              "SELECT count(*) FROM storico_id_seq WHERE last_value<1000000000",
              "SELECT count(*) FROM pg_locks WHERE locktype='advisory'",
              "SELECT count(*) FROM pg_stat_activity WHERE state LIKE 'idle in%'"};
    case Engine::mariadb:
      return {"SELECT table_name,table_type FROM information_schema.tables WHERE table_schema=database() ORDER BY 1",
              "SELECT count(*) FROM information_schema.innodb_trx"};
  }
  return {};
}

/// What the session under attack is set to.
const char* settings(Engine engine) {
  switch (engine) {
    case Engine::sqlite:
      return "SELECT 1";
    case Engine::postgresql:
      return "SELECT name,setting FROM pg_settings ORDER BY name";
    case Engine::mariadb:
      return "SELECT variable_name,session_value FROM information_schema.system_variables WHERE variable_name NOT IN("
             "'TIMESTAMP','RAND_SEED1','RAND_SEED2','ERROR_COUNT','WARNING_COUNT','LAST_INSERT_ID','IDENTITY','INSERT_"
             "ID') ORDER BY 1";
  }
  return "";
}

}  // namespace

void UnderAttack::SetUp() {
  BackEnd::SetUp();
  if (url_.empty() || testing::Test::IsSkipped()) return;
  std::filesystem::permissions(open_folder_.path(), std::filesystem::perms::all);
  watcher_ = another();
  for (const char* statement :
       {"INSERT INTO "
        "storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES(1,'2005-02-09','VE',1,2,3,"
        "4,5),(1,'2005-02-09','BA',5,12,33,4,90),(2,'2005-02-12','RN',5,6,7,8,9)",
        "INSERT INTO tRicerche(idRicerca,descRicerca)VALUES(1,'a search')",
        "INSERT INTO tSistemi(idSis,titolo,sisTipo)VALUES(1,'a title','U')",
        "INSERT INTO tSistemaDetail(id,idSis,combinazione)VALUES(1,1,'1,2')"})
    ASSERT_TRUE(execute(statement)) << connector_->LastError();
}

std::string UnderAttack::rows_of(dorvane::DbConnector& connector, const std::string& statement) const {
  Ref<vestara::RecordSet> set;
  EXPECT_TRUE(connector.OpenRecordset(set, statement)) << statement << ": " << connector.LastError();
  std::string text;
  for (; set && !set->at_end(); set->move_next())
    for (int32_t i = 0; i < set->column_count(); ++i)
      text += (set->is_null({i}) ? std::string("Null") : automation::to_text(set->value({i}))) + "|";
  return text + "\n";
}

std::string UnderAttack::everything() {
  std::string text;
  for (const char* table : tables) text += rows_of(*watcher_, table);
  for (const char* statement : objects(GetParam())) text += rows_of(*watcher_, statement);
  text += rows_of(*connector_, settings(GetParam()));
  for (const auto& entry : std::filesystem::directory_iterator(open_folder_.path())) text += entry.path().string();
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
    if (const auto name = entry.path().filename().string(); !name.starts_with("archive.sqlite")) text += name;
  EXPECT_TRUE(watcher_->ExecuteSql("UPDATE ruote SET enumeratoreBit=1 WHERE enumeratore=1")) << watcher_->LastError();
  EXPECT_NE(connector_->ConnectionState(), 0);
  return text;
}

std::string UnderAttack::changes_since(const std::string& before) {
  const std::string now = everything();
  const auto [was, is] = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
  constexpr size_t shown = 120;
  const auto from = static_cast<size_t>(std::max(was - before.begin() - 40, std::ptrdiff_t{0}));
  return now == before ? "" : before.substr(from, shown) + " became " + now.substr(from, shown);
}

std::string UnderAttack::aimed(std::string text) const {
  const auto replace = [&](const char* mark, const std::string& path) {
    for (size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at)) text.replace(at, 2, path);
  };
  replace("%F", open_folder_.path_to("written"));
  replace("%R", "/etc/passwd");
  return text;
}

}  // namespace attacks
