// Bound tree to SQL, with its parameters; what an engine writes its own way comes from its dialect.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/sql/Albero.h"

namespace fenalto::sql {

class Emettitore {
 public:
  explicit Emettitore(const Dialetto& dialetto) : dialetto_(dialetto) {}
  /// Writes a whole bound statement; a refusal travels as Rifiuto.
  void Emetti(const Albero& albero);

  std::string sql;
  std::vector<ParametroSql> parametri;

 private:
  // Emettitore.cpp: statements and queries.
  void EmettiInserimento(const Albero& albero);
  void EmettiQuery(const Query& query, bool derivata);
  void EmettiRamo(const Selezione& s, const Query& query, bool derivata);
  void EmettiVoci(const Selezione& s, const Query& query, bool derivata);
  void EmettiDove(const Selezione& s);
  void EmettiOrdine(const Query& query);
  void EmettiTermine(const Espr& e);
  void EmettiDa(const Da& da);

  // EmettitoreEspressioni.cpp.
  /// As a value, and as what decides whether a row is meant.
  void EmettiEspr(const Espr& e);
  void EmettiCondizione(const Espr& e);
  void EmettiNuda(const Espr& e);
  /// With the collation of text when the expression doesn't bring it.
  void EmettiTesto(const Espr& e);
  void EmettiLetterale(const Espr& e) { EmettiLegato(e, e.legame); }
  void EmettiLegato(const Espr& letterale, Legame legame);
  void EmettiCome(const Espr& e);
  void EmettiIncorporato(const Espr& letterale, Legame legame);
  void EmettiCalcolo(const Espr& e);
  void EmettiFunzione(const Espr& e);
  void EmettiTermini(const Espr& e);
  void EmettiUnione(const Espr& e, std::string_view tra);
  void EmettiCatena(const Espr& e, std::size_t da, std::size_t a);
  void EmettiConfronto(const Espr& e);
  void EmettiIn(const Espr& e);
  void EmettiAggregato(const Espr& e);
  void EmettiElenco(const std::vector<EsprPtr>& espr, std::size_t da, std::string_view tra = ",");
  void Scrivi(std::string_view testo);

  const Dialetto& dialetto_;

  std::unordered_map<std::size_t, std::size_t> numeri_;  ///< literal and binding: parameter
};

}  // namespace fenalto::sql
