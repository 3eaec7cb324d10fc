#include "core/sql/Parser.h"

namespace fenalto::sql {

EsprPtr Parser::LeggiEspr() {
  const Livello livello(*this);
  return LeggiCatena(GenereEspr::O);
}

// AND and OR hold any number of terms: a long chain must not become a deep tree.
EsprPtr Parser::LeggiCatena(GenereEspr genere) {
  const bool e = genere == GenereEspr::E;
  EsprPtr primo = e ? LeggiNon() : LeggiCatena(GenereEspr::E);
  const std::string_view parola = e ? "and" : "or";
  if (!E(parola)) {
    if (!e && (E("xor") || E("eqv") || E("imp"))) {
      sql::Rifiuta(Qui().posizione, "operatore che il linguaggio non ha");
    }
    return primo;
  }
  EsprPtr catena = NuovaEspr(genere, Qui().posizione);
  Aggiungi(*catena, std::move(primo));
  while (Prendi(parola)) Aggiungi(*catena, e ? LeggiNon() : LeggiCatena(GenereEspr::E));
  return catena;
}

EsprPtr Parser::LeggiNon() {
  if (!E("not")) return LeggiConfronto();
  const Livello livello(*this);
  EsprPtr non = NuovaEspr(GenereEspr::Non, Qui().posizione);
  Avanza();
  Aggiungi(*non, LeggiNon());
  return non;
}

EsprPtr Parser::LeggiConfronto() {
  EsprPtr espr = LeggiAritmetica(0);
  for (;;) {
    const bool simbolo = E('=') || E('n') || E('<') || E('l') || E('>') || E('g');
    if (simbolo) {
      EsprPtr confronto = NuovaEspr(GenereEspr::Confronto, Qui().posizione);
      confronto->operatore = Qui().simbolo;
      Avanza();
      if (E("all") || E("any") || E("some")) {
        sql::Rifiuta(Qui().posizione, "ALL, ANY e SOME non ci sono nel linguaggio");
      }
      Aggiungi(*confronto, std::move(espr));
      Aggiungi(*confronto, LeggiAritmetica(0));
      espr = std::move(confronto);
    } else if (E("like") || E("between") || E("in") || E("is") ||
               (E("not") &&
                (EParola(Dopo(), "like") || EParola(Dopo(), "between") || EParola(Dopo(), "in")))) {
      espr = LeggiCoda(std::move(espr));
    } else {
      return espr;
    }
  }
}

EsprPtr Parser::LeggiCoda(EsprPtr sinistra) {
  const std::size_t posizione = Qui().posizione;
  if (E("is")) return LeggiNulloONo(std::move(sinistra), posizione);
  const bool negato = Prendi("not");
  EsprPtr espr;
  if (Prendi("like")) {
    espr = NuovaEspr(GenereEspr::Come, posizione);
    Aggiungi(*espr, std::move(sinistra));
    Aggiungi(*espr, LeggiAritmetica(0));
  } else if (Prendi("between")) {
    espr = NuovaEspr(GenereEspr::Tra, posizione);
    Aggiungi(*espr, std::move(sinistra));
    Aggiungi(*espr, LeggiAritmetica(0));
    Pretendi("and");
    Aggiungi(*espr, LeggiAritmetica(0));
  } else {
    espr = LeggiIn(std::move(sinistra), posizione);
  }
  espr->negato = negato;
  return espr;
}

EsprPtr Parser::LeggiIn(EsprPtr sinistra, std::size_t posizione) {
  Pretendi("in");
  Pretendi('(');
  if (E("select")) {
    EsprPtr espr = NuovaEspr(GenereEspr::InQuery, posizione);
    Aggiungi(*espr, std::move(sinistra));
    espr->query = LeggiQuery();
    Pretendi(')');
    return espr;
  }
  EsprPtr espr = NuovaEspr(GenereEspr::In, posizione);
  Aggiungi(*espr, std::move(sinistra));
  do {
    Aggiungi(*espr, LeggiAritmetica(0));
  } while (Prendi(','));
  Pretendi(')');
  return espr;
}

EsprPtr Parser::LeggiNulloONo(EsprPtr sinistra, std::size_t posizione) {
  Pretendi("is");
  EsprPtr espr = NuovaEspr(GenereEspr::ENullo, posizione);
  espr->negato = Prendi("not");
  Pretendi("null");
  Aggiungi(*espr, std::move(sinistra));
  return espr;
}

namespace {

/// From the weakest: & ; + - ; Mod ; \ ; * /
constexpr int kLivelli = 5;

}  // namespace

char Parser::OperatoreAritmetico(int livello) const {
  switch (livello) {
    case 0:
      return E('&') ? '&' : '\0';
    case 1:
      return E('+') ? '+' : E('-') ? '-' : '\0';
    case 2:
      return E("mod") ? 'm' : '\0';
    case 3:
      return E('\\') ? '\\' : '\0';
    default:
      return E('*') ? '*' : E('/') ? '/' : '\0';
  }
}

EsprPtr Parser::LeggiAritmetica(int livello) {
  if (livello == kLivelli) return LeggiUnario();
  EsprPtr espr = LeggiAritmetica(livello + 1);
  while (const char operatore = OperatoreAritmetico(livello)) {
    EsprPtr nodo = NuovaEspr(GenereEspr::Aritmetica, Qui().posizione);
    nodo->operatore = operatore;
    Avanza();
    Aggiungi(*nodo, std::move(espr));
    Aggiungi(*nodo, LeggiAritmetica(livello + 1));
    espr = std::move(nodo);
  }
  if (E('^')) {
    sql::Rifiuta(Qui().posizione, "la potenza ^ non c'è nel linguaggio");
  }
  return espr;
}

EsprPtr Parser::LeggiUnario() {
  if (!E('-') && !E('+')) return LeggiPrimario();
  const Livello livello(*this);
  const std::size_t posizione = Qui().posizione;
  const bool meno = Prendi('-');
  if (!meno) Avanza();
  EsprPtr dentro = LeggiUnario();
  if (!meno) return dentro;
  EsprPtr espr = NuovaEspr(GenereEspr::Aritmetica, posizione);
  espr->operatore = '-';
  Aggiungi(*espr, std::move(dentro));
  return espr;
}

EsprPtr Parser::LeggiPrimario() {
  switch (Qui().genere) {
    case GenereSegno::Testo:
    case GenereSegno::Numero:
    case GenereSegno::Data:
    case GenereSegno::Booleano:
      return LeggiLetterale();
    case GenereSegno::Simbolo:
      if (E('(')) return LeggiParentesi();
      break;
    case GenereSegno::Parola:
      if (E("null")) {
        EsprPtr nullo = NuovaEspr(GenereEspr::Nullo, Qui().posizione);
        Avanza();
        return nullo;
      }
      if (E("exists")) {
        EsprPtr esiste = NuovaEspr(GenereEspr::Esiste, Qui().posizione);
        Avanza();
        Pretendi('(');
        esiste->query = LeggiQuery();
        Pretendi(')');
        return esiste;
      }
      return LeggiNomeOChiamata();
    case GenereSegno::Quadre:
      return LeggiNomeOChiamata();
    case GenereSegno::Fine:
      break;
  }
  Inatteso("un valore");
}

EsprPtr Parser::LeggiParentesi() {
  const std::size_t posizione = Qui().posizione;
  Pretendi('(');
  EsprPtr espr;
  if (E("select")) {
    espr = NuovaEspr(GenereEspr::SottoQuery, posizione);
    espr->query = LeggiQuery();
  } else {
    espr = LeggiEspr();
  }
  if (!E(')')) {
    if (Qui().genere == GenereSegno::Fine) sql::Rifiuta(posizione, "parentesi non chiusa");
    Inatteso("\")\"");
  }
  Avanza();
  return espr;
}

EsprPtr Parser::LeggiNomeOChiamata() {
  const Segno segno = Qui();
  // LEFT and RIGHT are functions too.
  const bool chiamata = segno.genere == GenereSegno::Parola && Dopo().simbolo == '(' &&
                        Dopo().genere == GenereSegno::Simbolo &&
                        (ENome() || E("left") || E("right"));
  if (chiamata) {
    Avanza();
    return LeggiChiamata(segno);
  }
  EsprPtr espr = NuovaEspr(GenereEspr::Campo, segno.posizione);
  espr->nome = PretendiNome("un valore");
  if (Prendi('.')) {
    espr->qualifica = espr->nome;
    if (Qui().genere != GenereSegno::Parola && Qui().genere != GenereSegno::Quadre) {
      Inatteso("il nome di un campo");
    }
    espr->nome = NomeDi(Qui());
    Avanza();
  }
  return espr;
}

EsprPtr Parser::LeggiChiamata(const Segno& nome) {
  const Livello livello(*this);
  EsprPtr espr = NuovaEspr(GenereEspr::Chiamata, nome.posizione);
  espr->nome = nome.grezzo;
  Pretendi('(');
  if (Prendi(')')) return espr;
  if (E('*')) {
    Aggiungi(*espr, NuovaEspr(GenereEspr::Stella, Qui().posizione));
    Avanza();
    Pretendi(')');
    return espr;
  }
  if (E("distinct")) {
    sql::Rifiuta(Qui().posizione, "DISTINCT dentro una funzione non c'è nel linguaggio");
  }
  do {
    Aggiungi(*espr, LeggiEspr());
  } while (Prendi(','));
  Pretendi(')');
  return espr;
}

EsprPtr Parser::LeggiLetterale() {
  const Segno& segno = Qui();
  EsprPtr espr = NuovaEspr(GenereEspr::Letterale, segno.posizione);
  albero_->letterali.push_back(LetteraleDi(segno));
  espr->letterale = &albero_->letterali.back();
  espr->indice = incorpora_ ? -1 : indici_[i_];
  espr->puro = segno.puro;
  espr->decimale = segno.decimale;
  espr->reale = segno.reale;
  espr->prefisso = segno.prefisso;
  Avanza();
  return espr;
}

}  // namespace fenalto::sql
