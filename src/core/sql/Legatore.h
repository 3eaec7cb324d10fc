// Binder: resolves names against the catalogue, expands stored queries, gives every expression its
// type and puts in the conversions. Works in place on the tree.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Albero.h"

namespace fenalto::sql {

class Legatore {
 public:
  explicit Legatore(const Catalogo& catalogo) : catalogo_(catalogo) {}

  /// Binds a whole statement; a refusal travels as Rifiuto.
  void Lega(Albero& albero);
  /// Binds a condition on the columns of some sources.
  void LegaCondizione(EsprPtr& espr, const std::vector<Fonte*>& fonti);

  /// Tables read or written, by catalogue name, each once.
  [[nodiscard]] const std::vector<std::string>& Tabelle() const { return tabelle_; }
  /// Every bound SELECT with the query it belongs to, for the elimination of joins.
  struct RamoLegato {
    Selezione* selezione;
    Query* query;
  };
  [[nodiscard]] const std::vector<RamoLegato>& Rami() const { return rami_; }

 private:
  /// Where names are looked up.
  struct Ambito {
    std::vector<Fonte*> fonti;
    const Ambito* esterno = nullptr;
    const Selezione* selezione = nullptr;
    std::size_t vociLegate = 0;  ///< items whose alias can already be named
    bool aggregati = false;      ///< aggregates may stand here
  };

  // Legatore.cpp: queries and sources.
  void LegaQuery(Query& query, const Ambito* esterno);
  void LegaRamo(Selezione& s, Ambito& ambito);
  void LegaClausole(Selezione& s, Ambito& ambito);
  std::vector<Fonte*> LegaDa(Da& da, Selezione& s, const Ambito* esterno);
  Fonte* LegaFonte(Da& da, Selezione& s);
  void ApriVista(const VistaCatalogo& vista, Fonte& fonte, std::size_t posizione);
  void ApriTabella(const TabellaCatalogo& tabella, Fonte& fonte);
  static void ApriQuery(Query& query, Fonte& fonte);
  void SpandiStelle(Selezione& s, Ambito& ambito);
  static void NominaVoci(Selezione& s);
  void LegaUnione(Query& query);
  void LegaOrdine(Query& query, Ambito& ambito);
  static bool OrdineDiUscita(const Query& query, VoceOrdine& voce);
  static void ColonneDi(Query& query);
  void AggiungiTabella(const std::string& nome);

  // LegatoreAzioni.cpp: INSERT, UPDATE, DELETE.
  void LegaAzione(Albero& albero);
  void LegaInserimento(Albero& albero, const TabellaCatalogo& tabella);
  void ScegliColonne(Albero& albero, const TabellaCatalogo& tabella, std::size_t quante);
  const ColonnaCatalogo& ColonnaScrivibile(Albero::Assegnazione& assegnazione,
                                           const TabellaCatalogo& tabella);
  static void Assegna(EsprPtr& espr, const ColonnaCatalogo& colonna);

  // LegatoreEspressioni.cpp.
  void LegaEspr(EsprPtr& espr, const Ambito& ambito);
  void LegaFigli(Espr& espr, const Ambito& ambito);
  void LegaBooleano(EsprPtr& espr, const Ambito& ambito, const char* dove);
  void LegaCampo(EsprPtr& espr, const Ambito& ambito);
  static bool Trova(Espr& espr, const Ambito& ambito);
  static bool TrovaAlias(Espr& espr, const Ambito& ambito);
  void LegaConfronti(EsprPtr& espr, const Ambito& ambito);
  void LegaSottoQuery(Espr& espr, const Ambito& ambito);

  // LegatoreFunzioni.cpp.
  void LegaChiamata(EsprPtr& espr, const Ambito& ambito);
  bool LegaAggregato(EsprPtr& espr, const Ambito& ambito);
  void LegaSe(EsprPtr& espr, const Ambito& ambito);
  static bool LegaParticolare(EsprPtr& espr);

  const Catalogo& catalogo_;
  std::vector<std::string> tabelle_;
  std::vector<RamoLegato> rami_;
  std::deque<Albero> viste_;
  std::deque<std::string> testiViste_;
  std::vector<std::string_view> aperte_;  ///< stored queries being expanded, outermost first
  int espansioni_ = 0;
  int fonti_ = 0;
  std::size_t posizioneVista_ = 0;
};

/// Same expression, whatever its position.
bool UgualiEspr(const Espr& a, const Espr& b);
/// Refuses columns that neither are grouped by nor stand in an aggregate.
void VerificaGruppi(const Espr& espr, const Selezione& selezione);
/// Names joined by commas, for a message.
std::string Elenco(const std::vector<std::string>& nomi);

}  // namespace fenalto::sql
