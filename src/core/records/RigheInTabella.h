// Rows between memory and their table, in the caller's transaction.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/records/CampoRiga.h"
#include "core/store/Archivio.h"
#include "core/values/Testo.h"

namespace fenalto::records {

/// A row's fields with their values: for a write, and for whoever keeps it elsewhere.
template <class R>
std::vector<Coppia> Valori(const R& riga, std::span<const CampoRiga<R>> campi) {
  std::vector<Coppia> valori;
  valori.reserve(campi.size());
  for (const CampoRiga<R>& campo : campi) valori.emplace_back(campo.nome, campo.leggi(riga));
  return valori;
}

/// The row under a result's cursor, which has all of `campi`; throws ErroreArchivio otherwise.
template <class R>
R LeggiRiga(const Rs& rs, std::span<const CampoRiga<R>> campi) {
  R riga;
  for (const CampoRiga<R>& campo : campi) campo.scrivi(riga, rs.Fields(campo.nome));
  return riga;
}

/// Values of the table's columns that are neither in `campi`, nor in `chiave`, nor its counter:
/// what the form doesn't show and a row that is written again has to keep.
template <class R>
std::vector<Coppia> AltreColonne(const Rs& rs, const sql::TabellaCatalogo& tabella,
                                 std::span<const CampoRiga<R>> campi,
                                 std::initializer_list<std::string_view> chiave) {
  std::vector<Coppia> altre;
  for (const sql::ColonnaCatalogo& colonna : tabella.colonne) {
    const auto uguale = [&](std::string_view nome) { return UgualeTesto(nome, colonna.nome); };
    if (colonna.nascosta || colonna.contatore || std::ranges::any_of(chiave, uguale) ||
        std::ranges::any_of(campi, uguale, &CampoRiga<R>::nome)) {
      continue;
    }
    altre.emplace_back(colonna.nome, rs.Fields(colonna.nome));
  }
  return altre;
}

/// "a=1 and b='x'": what meets all pairs; there must be one at least.
std::string Condizione(const std::vector<Coppia>& chiave);

/// Deletes the rows that meet all pairs; there must be one at least.
void EliminaRighe(Archivio& archivio, std::string_view tabella, const std::vector<Coppia>& chiave);

/// Writes fields into the rows that meet all pairs, and says how many there were.
std::int64_t AggiornaRighe(Archivio& archivio, std::string_view tabella,
                           const std::vector<Coppia>& campi, const std::vector<Coppia>& chiave);

/// Adds rows under the columns of `chiave`, in their order. The head is to be written before: rows
/// take what mirrors it as they are written.
template <class R>
void ScriviRighe(Archivio& archivio, std::string_view tabella, const std::vector<R>& righe,
                 std::span<const CampoRiga<R>> campi, const std::vector<Coppia>& chiave) {
  for (const R& riga : righe) {
    std::vector<Coppia> valori = Valori(riga, campi);
    if constexpr (requires { riga.altre; }) {
      valori.insert(valori.end(), riga.altre.begin(), riga.altre.end());
    }
    valori.insert(valori.end(), chiave.begin(), chiave.end());
    archivio.Inserisci(tabella, valori);
  }
}

}  // namespace fenalto::records
