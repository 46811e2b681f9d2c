#include <dorvane/connector.h>
#include <vestara/archive/lotto.h>

#include <cstdio>

// What the README shows: a connector, an object, a question.
int main() {
  const auto connector = automation::make<dorvane::DbConnector>();
  if (!connector->Open("sqlite::memory:") || !connector->CreateSchema()) {
    std::puts(connector->LastError().c_str());
    return 1;
  }
  connector->ExecuteSql(
      "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)"
      "VALUES(17,'2005-02-09','VE',53,1,2,3,4)");

  vestara::cLotto lotto;
  lotto.ActiveConnection(connector);
  const auto draws = lotto.LoadLottoEstr("53", 1, "VE");
  const bool right = draws && draws->record_count() == 1 && lotto.Ambate() == 1 && lotto.ContaEstrazioniStorico() == 1;
  std::puts(right ? "host: ok" : "host: wrong answer");
  return right ? 0 : 1;
}
