#include <algorithm>

#include "core/sql/Emettitore.h"

namespace fenalto::sql {

namespace {

/// A column of a table, declared with the collation of text.
bool HaCollazione(const Espr& e) {
  if (e.genere == GenereEspr::Rinvio) return HaCollazione(*e.rinvio);
  return e.genere == GenereEspr::Campo && e.fonte->tabella != nullptr;
}

/// Written as a condition of the engine, not as a value.
bool ECondizione(const Espr& e) {
  switch (e.genere) {
    case GenereEspr::Rinvio:
      return ECondizione(*e.rinvio);
    case GenereEspr::E:
    case GenereEspr::O:
    case GenereEspr::Non:
    case GenereEspr::Confronto:
    case GenereEspr::Tra:
    case GenereEspr::Come:
    case GenereEspr::In:
    case GenereEspr::InQuery:
    case GenereEspr::Esiste:
    case GenereEspr::ENullo:
      return true;
    default:
      return false;
  }
}

bool ConTesti(const Espr& e) {
  return std::any_of(e.figli.begin(), e.figli.end(),
                     [](const EsprPtr& f) { return f->tipo == Tipo::Testo; });
}

std::string_view Simbolo(char operatore) {
  switch (operatore) {
    case 'n':
      return "<>";
    case 'l':
      return "<=";
    case 'g':
      return ">=";
    case '<':
      return "<";
    case '>':
      return ">";
    default:
      return "=";
  }
}

}  // namespace

void Emettitore::EmettiTesto(const Espr& e) {
  EmettiEspr(e);
  if (e.tipo == Tipo::Testo && !HaCollazione(e)) Scrivi(dialetto_.Collazione());
}

void Emettitore::EmettiEspr(const Espr& e) {
  if (!ECondizione(e)) return EmettiNuda(e);
  const Dialetto::Scrittura valore = dialetto_.ValoreLogico();
  Scrivi(valore.prima);
  EmettiNuda(e);
  Scrivi(valore.dopo);
}

void Emettitore::EmettiCondizione(const Espr& e) {
  if (ECondizione(e)) return EmettiNuda(e);
  const Dialetto::Scrittura condizione = dialetto_.Condizione();
  Scrivi(condizione.prima);
  EmettiNuda(e);
  Scrivi(condizione.dopo);
}

void Emettitore::EmettiNuda(const Espr& e) {
  switch (e.genere) {
    case GenereEspr::Campo: {
      const std::string& colonna = e.fonte->colonne[e.colonna].sql;
      Scrivi("t" + std::to_string(e.fonte->numero) + ".");
      return Scrivi(e.fonte->tabella != nullptr ? dialetto_.Nome(colonna) : colonna);
    }
    case GenereEspr::Letterale:
      return EmettiLetterale(e);
    case GenereEspr::Nullo:
      return Scrivi("NULL");
    case GenereEspr::Calcolo:
      return EmettiCalcolo(e);
    case GenereEspr::Rinvio:
      return EmettiNuda(*e.rinvio);
    case GenereEspr::E:
    case GenereEspr::O:
      return EmettiCatena(e, 0, e.figli.size());
    case GenereEspr::Non:
      Scrivi("(NOT ");
      EmettiCondizione(*e.figli[0]);
      return Scrivi(")");
    case GenereEspr::Confronto:
    case GenereEspr::Tra:
      return EmettiConfronto(e);
    case GenereEspr::Come:
      return EmettiCome(e);
    case GenereEspr::In:
    case GenereEspr::InQuery:
      return EmettiIn(e);
    case GenereEspr::Esiste:
    case GenereEspr::SottoQuery:
      Scrivi(e.genere == GenereEspr::Esiste ? "EXISTS (" : "(");
      EmettiQuery(*e.query, false);
      return Scrivi(")");
    case GenereEspr::ENullo:
      Scrivi("(");
      EmettiEspr(*e.figli[0]);
      return Scrivi(e.negato ? " IS NOT NULL)" : " IS NULL)");
    case GenereEspr::Se:
      Scrivi("CASE WHEN ");
      EmettiCondizione(*e.figli[0]);
      Scrivi(" THEN ");
      EmettiEspr(*e.figli[1]);
      Scrivi(" ELSE ");
      EmettiEspr(*e.figli[2]);
      return Scrivi(" END");
    case GenereEspr::Aggregato:
      return EmettiAggregato(e);
    case GenereEspr::Stella:
    case GenereEspr::Chiamata:
    case GenereEspr::Aritmetica:
      // The binder leaves none of them.
      Rifiuta(e.posizione, "espressione non riconosciuta");
  }
}

/// A column like a pattern that begins with plain characters lies in a range, which an index finds.
void Emettitore::EmettiCome(const Espr& e) {
  const Espr& testo = *e.figli[0];
  const Espr& modello = *e.figli[1];
  const bool intervallo = !e.negato && modello.genere == GenereEspr::Letterale &&
                          modello.prefisso && testo.genere == GenereEspr::Campo &&
                          HaCollazione(testo);
  Scrivi(e.negato ? "(NOT " : "(");
  if (intervallo) {
    EmettiEspr(testo);
    Scrivi(">=");
    EmettiLegato(modello, Legame::InizioLike);
    Scrivi(" AND ");
    EmettiEspr(testo);
    Scrivi("<");
    EmettiLegato(modello, Legame::FineLike);
    Scrivi(" AND ");
  }
  Scrivi("fen_somiglia(");
  EmettiElenco(e.figli, 0);
  Scrivi("))");
}

void Emettitore::EmettiElenco(const std::vector<EsprPtr>& espr, std::size_t da,
                              std::string_view tra) {
  for (std::size_t i = da; i < espr.size(); ++i) {
    if (i > da) Scrivi(tra);
    EmettiEspr(*espr[i]);
  }
}

void Emettitore::EmettiLegato(const Espr& e, Legame legame) {
  if (e.indice < 0) return EmettiIncorporato(e, legame);
  constexpr std::size_t kLegami = 16;
  const auto letterale = static_cast<std::size_t>(e.indice);
  const auto [posto, nuovo] = numeri_.try_emplace(
      letterale * kLegami + static_cast<std::size_t>(legame), parametri.size() + 1);
  if (nuovo) {
    if (parametri.size() >= dialetto_.ParametriMassimi())
      Rifiuta(e.posizione, "troppi valori nel testo");
    parametri.push_back({letterale, legame});
  }
  std::string parametro;
  dialetto_.Parametro(parametro, posto->second);
  Scrivi(parametro);
}

void Emettitore::EmettiIncorporato(const Espr& e, Legame legame) {
  const Esito<Valore, ErroreSql> valore = ValoreLegato(*e.letterale, legame);
  if (!valore) Rifiuta(e.posizione, valore.Errore().motivo);
  const Valore& v = valore.Valore();
  switch (v.Tipo()) {
    case Tipo::Nullo:
      return Scrivi("NULL");
    case Tipo::Importo:
      return Scrivi(std::to_string(v.Importo().Decimillesimi()));
    case Tipo::Reale:
      return Scrivi(dialetto_.Reale(v.Neutro()));
    case Tipo::Testo:
      if (v.RifTesto().find('\0') != std::string::npos) {
        Rifiuta(e.posizione, "carattere nullo nel testo");
      }
      return Scrivi(dialetto_.Testo(v.RifTesto()));
    default:
      return Scrivi(std::to_string(v.Intero()));
  }
}

/// Operands of & one beside the other: Null counts as nothing, a joined text is never Null.
void Emettitore::EmettiUnione(const Espr& e, std::string_view tra) {
  for (std::size_t i = 0; i < 2; ++i) {
    const Espr& figlio = *e.figli[i];
    if (i > 0) Scrivi(tra);
    if (figlio.genere == GenereEspr::Calcolo && figlio.funzione == Fn::Unisci) {
      EmettiUnione(figlio, tra);
    } else if (figlio.genere == GenereEspr::Letterale) {
      EmettiEspr(figlio);
    } else {
      const Dialetto::Scrittura seNullo = dialetto_.Operatore(Fn::SeNullo).value();
      Scrivi(seNullo.prima);
      EmettiEspr(figlio);
      Scrivi(seNullo.tra);
      Scrivi(dialetto_.Testo(""));
      Scrivi(seNullo.dopo);
    }
  }
}

namespace {

bool ESomma(const Espr& e) {
  return e.genere == GenereEspr::Calcolo && (e.funzione == Fn::Piu || e.funzione == Fn::Meno);
}

}  // namespace

/// The terms of a chain of sums and differences, one beside the other.
void Emettitore::EmettiTermini(const Espr& e) {
  const Espr& sinistra = *e.figli[0];
  if (ESomma(sinistra)) {
    EmettiTermini(sinistra);
  } else {
    EmettiEspr(sinistra);
  }
  Scrivi(e.funzione == Fn::Meno ? ",fen_neg(" : ",");
  EmettiEspr(*e.figli[1]);
  if (e.funzione == Fn::Meno) Scrivi(")");
}

void Emettitore::EmettiCalcolo(const Espr& e) {
  if (ESomma(e) && ESomma(*e.figli[0])) {
    Scrivi("fen_piu(");
    EmettiTermini(e);
    return Scrivi(")");
  }
  if (e.funzione == Fn::Identita) return EmettiEspr(*e.figli[0]);
  const auto operatore = dialetto_.Operatore(e.funzione);
  if (!operatore) return EmettiFunzione(e);
  Scrivi(operatore->prima);
  if (e.funzione == Fn::Unisci) {
    EmettiUnione(e, operatore->tra);
  } else {
    EmettiElenco(e.figli, 0, operatore->tra);
  }
  Scrivi(operatore->dopo);
}

void Emettitore::EmettiFunzione(const Espr& e) {
  Scrivi(Descrizione(e.funzione).nome);
  Scrivi("(");
  EmettiElenco(e.figli, 0);
  Scrivi(")");
}

/// By halves: the engine bounds the depth of an expression, not the length of a chain.
void Emettitore::EmettiCatena(const Espr& e, std::size_t da, std::size_t a) {
  if (a - da == 1) return EmettiCondizione(*e.figli[da]);
  const std::size_t meta = da + (a - da) / 2;
  Scrivi("(");
  EmettiCatena(e, da, meta);
  Scrivi(e.genere == GenereEspr::E ? " AND " : " OR ");
  EmettiCatena(e, meta, a);
  Scrivi(")");
}

void Emettitore::EmettiConfronto(const Espr& e) {
  const bool collazione = ConTesti(e) && !HaCollazione(*e.figli[0]) &&
                          (e.genere == GenereEspr::Tra || !HaCollazione(*e.figli[1]));
  Scrivi("(");
  EmettiEspr(*e.figli[0]);
  if (collazione) Scrivi(dialetto_.Collazione());
  if (e.genere == GenereEspr::Confronto) {
    Scrivi(Simbolo(e.operatore));
    EmettiEspr(*e.figli[1]);
  } else {
    Scrivi(e.negato ? " NOT BETWEEN " : " BETWEEN ");
    EmettiEspr(*e.figli[1]);
    Scrivi(" AND ");
    EmettiEspr(*e.figli[2]);
  }
  Scrivi(")");
}

void Emettitore::EmettiIn(const Espr& e) {
  Scrivi("(");
  if (ConTesti(e)) {
    EmettiTesto(*e.figli[0]);
  } else {
    EmettiEspr(*e.figli[0]);
  }
  Scrivi(e.negato ? " NOT IN (" : " IN (");
  if (e.genere == GenereEspr::InQuery) {
    EmettiQuery(*e.query, false);
  } else {
    EmettiElenco(e.figli, 1);
  }
  Scrivi("))");
}

void Emettitore::EmettiAggregato(const Espr& e) {
  const Espr& x = *e.figli[0];
  if (x.genere == GenereEspr::Stella) return Scrivi("count(*)");
  const Dialetto::Scrittura aggregato = dialetto_.Aggregato(e.aggregazione, x.tipo);
  Scrivi(aggregato.prima);
  EmettiTesto(x);
  Scrivi(aggregato.dopo);
}

}  // namespace fenalto::sql
