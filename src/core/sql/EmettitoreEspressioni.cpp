#include <algorithm>

#include "core/sql/Emettitore.h"
#include "core/sql/Motore.h"

namespace fenalto::sql {

namespace {

/// A column of a table, declared with the collation of text.
bool HaCollazione(const Espr& e) {
  if (e.genere == GenereEspr::Rinvio) return HaCollazione(*e.rinvio);
  return e.genere == GenereEspr::Campo && e.fonte->tabella != nullptr;
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
  if (e.tipo == Tipo::Testo && !HaCollazione(e)) {
    Scrivi(" COLLATE ");
    Scrivi(kCollazione);
  }
}

void Emettitore::EmettiEspr(const Espr& e) {
  switch (e.genere) {
    case GenereEspr::Campo:
      Scrivi("t" + std::to_string(e.fonte->numero) + "." + e.fonte->colonne[e.colonna].sql);
      return;
    case GenereEspr::Letterale:
      return EmettiLetterale(e);
    case GenereEspr::Nullo:
      return Scrivi("NULL");
    case GenereEspr::Calcolo:
      return EmettiCalcolo(e);
    case GenereEspr::Rinvio:
      return EmettiEspr(*e.rinvio);
    case GenereEspr::E:
    case GenereEspr::O:
      return EmettiCatena(e, 0, e.figli.size());
    case GenereEspr::Non:
      Scrivi("(NOT ");
      EmettiEspr(*e.figli[0]);
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
      EmettiEspr(*e.figli[0]);
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

void Emettitore::EmettiElenco(const std::vector<EsprPtr>& espr, std::size_t da) {
  for (std::size_t i = da; i < espr.size(); ++i) {
    if (i > da) Scrivi(",");
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
    constexpr std::size_t kParametriMassimi = 32'000;
    if (parametri.size() >= kParametriMassimi) Rifiuta(e.posizione, "troppi valori nel testo");
    parametri.push_back({letterale, legame});
  }
  Scrivi("?" + std::to_string(posto->second));
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
    case Tipo::Reale: {
      // A whole real needs its point, or the engine divides as with whole numbers.
      const std::string testo = v.Neutro();
      Scrivi(testo);
      return Scrivi(testo.find('.') == std::string::npos ? ".0" : "");
    }
    case Tipo::Testo: {
      if (v.RifTesto().find('\0') != std::string::npos) {
        Rifiuta(e.posizione, "carattere nullo nel testo");
      }
      std::string testo = "'";
      for (char c : v.RifTesto()) {
        if (c == '\'') testo += '\'';
        testo += c;
      }
      return Scrivi(testo += '\'');
    }
    default:
      return Scrivi(std::to_string(v.Intero()));
  }
}

void Emettitore::EmettiInfisso(const Espr& e, std::string_view operatore) {
  Scrivi("(");
  EmettiEspr(*e.figli[0]);
  Scrivi(operatore);
  if (e.figli.size() > 1) EmettiEspr(*e.figli[1]);
  Scrivi(")");
}

/// Operands of & one beside the other: Null counts as nothing, a joined text is never Null.
void Emettitore::EmettiUnione(const Espr& e) {
  for (std::size_t i = 0; i < 2; ++i) {
    const Espr& figlio = *e.figli[i];
    if (i > 0) Scrivi("||");
    if (figlio.genere == GenereEspr::Calcolo && figlio.funzione == Fn::Unisci) {
      EmettiUnione(figlio);
    } else if (figlio.genere == GenereEspr::Letterale) {
      EmettiEspr(figlio);
    } else {
      Scrivi("ifnull(");
      EmettiEspr(figlio);
      Scrivi(",'')");
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
  switch (e.funzione) {
    case Fn::RealeDaImporto:
      return EmettiInfisso(e, "/10000.0");
    case Fn::Diecimila:
      return EmettiInfisso(e, "*10000");
    case Fn::NonZero:
      return EmettiInfisso(e, "<>0");
    case Fn::SommaTesti:
      return EmettiInfisso(e, "||");
    case Fn::TestoIntero:
      Scrivi("CAST(");
      EmettiEspr(*e.figli[0]);
      return Scrivi(" AS TEXT)");
    case Fn::Unisci:
      Scrivi("(");
      EmettiUnione(e);
      return Scrivi(")");
    case Fn::SeNullo:
      Scrivi("ifnull(");
      EmettiElenco(e.figli, 0);
      return Scrivi(")");
    case Fn::Identita:
      return EmettiEspr(*e.figli[0]);
    default:
      return EmettiFunzione(e);
  }
}

void Emettitore::EmettiFunzione(const Espr& e) {
  Scrivi(Descrizione(e.funzione).nome);
  Scrivi("(");
  EmettiElenco(e.figli, 0);
  Scrivi(")");
}

/// By halves: the engine bounds the depth of an expression, not the length of a chain.
void Emettitore::EmettiCatena(const Espr& e, std::size_t da, std::size_t a) {
  if (a - da == 1) return EmettiEspr(*e.figli[da]);
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
  if (collazione) {
    Scrivi(" COLLATE ");
    Scrivi(kCollazione);
  }
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
  switch (e.aggregazione) {
    case Aggregazione::Conta:
      if (x.genere == GenereEspr::Stella) return Scrivi("count(*)");
      Scrivi("count(");
      break;
    case Aggregazione::Somma:
      Scrivi("sum(");
      break;
    case Aggregazione::Media:
      Scrivi(x.tipo == Tipo::Importo ? "fen_media(" : "avg(");
      break;
    case Aggregazione::Minimo:
      Scrivi("min(");
      break;
    case Aggregazione::Massimo:
      Scrivi("max(");
      break;
    case Aggregazione::Primo:
      Scrivi("fen_primo(");
      break;
    case Aggregazione::Ultimo:
      Scrivi("fen_ultimo(");
      break;
  }
  EmettiTesto(x);
  Scrivi(")");
}

}  // namespace fenalto::sql
