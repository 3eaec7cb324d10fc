// Bound tree to SQL of the engine, with its parameters.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/sql/Albero.h"

namespace fenalto::sql {

class Emettitore {
 public:
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
  void EmettiEspr(const Espr& e);
  /// With the collation of text when the expression doesn't bring it.
  void EmettiTesto(const Espr& e);
  void EmettiLetterale(const Espr& e) { EmettiLegato(e, e.legame); }
  void EmettiLegato(const Espr& letterale, Legame legame);
  void EmettiCome(const Espr& e);
  void EmettiIncorporato(const Espr& letterale, Legame legame);
  void EmettiCalcolo(const Espr& e);
  void EmettiFunzione(const Espr& e);
  void EmettiTermini(const Espr& e);
  void EmettiUnione(const Espr& e);
  void EmettiInfisso(const Espr& e, std::string_view operatore);
  void EmettiCatena(const Espr& e, std::size_t da, std::size_t a);
  void EmettiConfronto(const Espr& e);
  void EmettiIn(const Espr& e);
  void EmettiAggregato(const Espr& e);
  void EmettiElenco(const std::vector<EsprPtr>& espr, std::size_t da);
  void Scrivi(std::string_view testo);

  std::unordered_map<std::size_t, std::size_t> numeri_;  ///< literal and binding: parameter
};

}  // namespace fenalto::sql
