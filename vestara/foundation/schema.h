#pragma once  // installed

#include <cstdint>

// The tables that the statements of this library name. Identifiers are matched without regard to case.
//
//   storico         id, dtEstr, ruota, estr1 … estr5, concorsoNumero: one row per draw date and wheel; a number is
//                   0 or Null where none was drawn; `id` is given by the database
//   tRicerche       idRicerca, descRicerca, numeri, combinazione, ruote, dtSave, dtDa, dtA: saved searches
//   tSistemi        idSis, titolo, descrizione, numeri, qtaNumeri, nGiocate, kColonne, garanzia, sisTipo
//   tSistemaDetail  id, idSis, combinazione: the combinations of a saved system
//   ruote           enumeratore, enumeratoreBit, ruotaAlias: the wheels

namespace vestara {

/// How the back end takes rows: the host sets it as DbType of cLotto, only the history import looks at it.
enum class DatabaseType : int16_t {
  one_row_per_insert = 1,
  many_rows_per_insert = 2,
};

}  // namespace vestara
