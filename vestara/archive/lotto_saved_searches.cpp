#include <string>

#include "automation/coercion.h"
#include "vestara/archive/lotto.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/trap.h"
#include "vestara/keeping/saved_search_text.h"
#include "vestara/keeping/saved_searches.h"

// Searches that the host keeps under a number.

namespace vestara {

using automation::InOut;
using automation::Ref;
using automation::Variant;

Ref<RecordSet> cLotto::GetRicerchePersonalizzate(int32_t idRicerca, const Variant&, const Variant&) {
  return trapped("cLotto.GetRicerchePersonalizzate()", Ref<RecordSet>(), [&] {
    Ref<RecordSet> rows;
    const bool opened = connector().OpenRecordset(rows, saved_search_list_statement(idRicerca));
    return opened ? rows : Ref<RecordSet>();
  });
}

bool cLotto::DeleteRicerchePersonalizzate(int32_t lIdRicerca) {
  return quietly(false, [&] { return connector().ExecuteSql(saved_search_delete_statement(lIdRicerca)); });
}

bool cLotto::SaveRicerchePersonalizzate(int32_t lIdRicerca, InOut<std::string> sDescRicerca, InOut<std::string> sNumeri,
                                        int16_t iCombinazione, InOut<std::string> sRuote, const Variant& dtSave,
                                        const Variant& dtDa, const Variant& dtA) {
  return trapped("cLotto.SaveRicerchePersonalizzate()", false, [&] {
    SAPEX(*sDescRicerca);
    SAPEX(*sNumeri);
    SAPEX(*sRuote);
    SavedSearch search{.id = lIdRicerca,
                       .description = *sDescRicerca,
                       .numbers = *sNumeri,
                       .combination = iCombinazione,
                       .wheels = *sRuote,
                       .saved = automation::date_in(dtSave),
                       .from = automation::date_in(dtDa),
                       .to = automation::date_in(dtA)};
    return store_escaped(connector(), search);
  });
}

}  // namespace vestara
