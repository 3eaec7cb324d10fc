#include "core/sql/Tipi.h"

#include <algorithm>
#include <array>

namespace fenalto::sql {

namespace {

using G = Letterale::Genere;

bool ELetteraleDi(const Espr& e, G genere) {
  return e.genere == GenereEspr::Letterale && e.letterale->genere == genere;
}

[[noreturn]] void NonDiventa(const Espr& e, Tipo tipo) {
  std::string motivo(NomeTipo(e.tipo));
  motivo.append(" non può diventare ").append(NomeTipo(tipo));
  if (tipo == Tipo::Data) motivo += ": scrivere la data come #mm/gg/aaaa#";
  Rifiuta(e.posizione, std::move(motivo));
}

void Avvolgi(EsprPtr& espr, Fn funzione, Tipo tipo) {
  espr = NuovoCalcolo(funzione, tipo, std::move(espr));
}

void Lega(Espr& e, Legame legame, Tipo tipo) {
  e.legame = legame;
  e.tipo = tipo;
}

/// Number literal, or text literal that must read as a number.
void ConvertiNumeroLetterale(EsprPtr& e, Tipo tipo) {
  const bool testo = ELetteraleDi(*e, G::Testo);
  const bool intero = !testo && !e->puro && !e->decimale && !e->reale;
  switch (tipo) {
    case Tipo::Importo:
      return Lega(*e, Legame::Importo, tipo);
    case Tipo::Reale:
      return Lega(*e, Legame::Reale, tipo);
    case Tipo::Booleano:
      if (testo) NonDiventa(*e, tipo);
      return Lega(*e, Legame::Booleano, tipo);
    case Tipo::Data:
      if (testo) NonDiventa(*e, tipo);
      [[fallthrough]];
    case Tipo::Intero:
      Lega(*e, Legame::Intero, tipo);
      if (!intero) Avvolgi(e, Fn::ArrotondaReale, tipo);
      return;
    case Tipo::Testo:
      return Lega(*e, Legame::Testo, tipo);
    case Tipo::Nullo:
      return;
  }
}

void ConvertiLetterale(EsprPtr& e, Tipo tipo) {
  switch (e->letterale->genere) {
    case G::Numero:
    case G::Testo:
      return ConvertiNumeroLetterale(e, tipo);
    case G::Booleano:
      if (tipo == Tipo::Testo) return Lega(*e, Legame::Testo, tipo);
      if (tipo == Tipo::Intero) return Lega(*e, Legame::Booleano, tipo);
      NonDiventa(*e, tipo);
    case G::Data:
      if (tipo == Tipo::Testo) return Avvolgi(e, Fn::TestoData, tipo);
      if (tipo == Tipo::Intero) return Lega(*e, Legame::Data, tipo);
      NonDiventa(*e, tipo);
    case G::Nullo:
      return;
  }
}

void ConvertiDaIntero(EsprPtr& e, Tipo tipo) {
  switch (tipo) {
    case Tipo::Importo:
      return Avvolgi(e, Fn::Scala, tipo);
    case Tipo::Booleano:
      return Avvolgi(e, Fn::NonZero, tipo);
    case Tipo::Testo:
      return Avvolgi(e, Fn::TestoIntero, tipo);
    case Tipo::Data:
    case Tipo::Reale:
      // Days as they are; the engine compares and stores whole numbers as reals.
      return Avvolgi(e, Fn::Identita, tipo);
    default:
      NonDiventa(*e, tipo);
  }
}

void ConvertiDaImporto(EsprPtr& e, Tipo tipo) {
  switch (tipo) {
    case Tipo::Intero:
    case Tipo::Data:
      return Avvolgi(e, Fn::ArrotondaImporto, tipo);
    case Tipo::Reale:
      return Avvolgi(e, Fn::RealeDaImporto, tipo);
    case Tipo::Booleano:
      return Avvolgi(e, Fn::NonZero, tipo);
    case Tipo::Testo:
      return Avvolgi(e, Fn::TestoImporto, tipo);
    default:
      NonDiventa(*e, tipo);
  }
}

void ConvertiDaReale(EsprPtr& e, Tipo tipo) {
  switch (tipo) {
    case Tipo::Intero:
    case Tipo::Data:
      return Avvolgi(e, Fn::ArrotondaReale, tipo);
    case Tipo::Importo:
      return Avvolgi(e, Fn::ImportoDaReale, tipo);
    case Tipo::Booleano:
      return Avvolgi(e, Fn::NonZero, tipo);
    case Tipo::Testo:
      return Avvolgi(e, Fn::TestoReale, tipo);
    default:
      NonDiventa(*e, tipo);
  }
}

void ConvertiDaTesto(EsprPtr& e, Tipo tipo) {
  switch (tipo) {
    case Tipo::Intero:
      return Avvolgi(e, Fn::InteroDaTesto, tipo);
    case Tipo::Importo:
      return Avvolgi(e, Fn::ImportoDaTesto, tipo);
    case Tipo::Reale:
      return Avvolgi(e, Fn::RealeDaTesto, tipo);
    default:
      NonDiventa(*e, tipo);
  }
}

}  // namespace

std::string_view NomeTipo(Tipo tipo) {
  static constexpr std::array<std::string_view, 7> kNomi{
      "Null",     "un sì/no", "un numero intero", "un importo", "un numero con la virgola",
      "una data", "un testo"};
  return kNomi[static_cast<std::size_t>(tipo)];
}

bool ENumero(Tipo tipo) {
  return tipo == Tipo::Intero || tipo == Tipo::Importo || tipo == Tipo::Reale;
}

bool EAdattabile(const Espr& e) {
  return ELetteraleDi(e, G::Testo) || (ELetteraleDi(e, G::Numero) && !e.reale);
}

EsprPtr NuovoCalcolo(Fn funzione, Tipo tipo, EsprPtr primo, EsprPtr secondo) {
  EsprPtr e = NuovaEspr(GenereEspr::Calcolo, primo->posizione);
  e->funzione = funzione;
  e->tipo = tipo;
  e->haAggregati = primo->haAggregati || (secondo && secondo->haAggregati);
  Aggiungi(*e, std::move(primo));
  if (secondo) Aggiungi(*e, std::move(secondo));
  return e;
}

void TipoNaturale(Espr& e) {
  switch (e.letterale->genere) {
    case G::Testo:
      return Lega(e, Legame::Testo, Tipo::Testo);
    case G::Data:
      return Lega(e, Legame::Data, Tipo::Data);
    case G::Booleano:
      return Lega(e, Legame::Booleano, Tipo::Booleano);
    case G::Nullo:
      return Lega(e, Legame::Nullo, Tipo::Nullo);
    case G::Numero:
      if (e.reale) return Lega(e, Legame::Reale, Tipo::Reale);
      if (e.decimale || e.puro) return Lega(e, Legame::Importo, Tipo::Importo);
      return Lega(e, Legame::Intero, Tipo::Intero);
  }
}

void Converti(EsprPtr& e, Tipo tipo) {
  if (tipo == Tipo::Nullo || e->genere == GenereEspr::Nullo || e->tipo == Tipo::Nullo) return;
  if (e->tipo == tipo) return;
  if (e->genere == GenereEspr::Letterale) return ConvertiLetterale(e, tipo);
  switch (e->tipo) {
    case Tipo::Intero:
      return ConvertiDaIntero(e, tipo);
    case Tipo::Importo:
      return ConvertiDaImporto(e, tipo);
    case Tipo::Reale:
      return ConvertiDaReale(e, tipo);
    case Tipo::Testo:
      return ConvertiDaTesto(e, tipo);
    case Tipo::Data:
      if (tipo == Tipo::Testo) return Avvolgi(e, Fn::TestoData, tipo);
      if (tipo == Tipo::Intero) return Avvolgi(e, Fn::Identita, tipo);
      break;
    case Tipo::Booleano:
      if (tipo == Tipo::Testo) return Avvolgi(e, Fn::TestoBooleano, tipo);
      if (tipo == Tipo::Intero) return Avvolgi(e, Fn::Identita, tipo);
      break;
    case Tipo::Nullo:
      return;
  }
  NonDiventa(*e, tipo);
}

Tipo Unifica(Tipo a, Tipo b, std::size_t posizione) {
  if (a == b || b == Tipo::Nullo) return a;
  if (a == Tipo::Nullo) return b;
  if (a == Tipo::Testo || b == Tipo::Testo) return Tipo::Testo;
  // Money stays money.
  if (ENumero(a) && ENumero(b)) {
    return a == Tipo::Importo || b == Tipo::Importo ? Tipo::Importo : Tipo::Reale;
  }
  if ((a == Tipo::Data && b == Tipo::Intero) || (a == Tipo::Intero && b == Tipo::Data)) {
    return Tipo::Data;
  }
  std::string motivo(NomeTipo(a));
  Rifiuta(posizione, motivo.append(" e ").append(NomeTipo(b)).append(" non stanno insieme"));
}

namespace {

[[noreturn]] void NonConfrontabili(Tipo a, Tipo b, std::size_t posizione) {
  std::string motivo = "non si confronta ";
  motivo.append(NomeTipo(a)).append(" con ").append(NomeTipo(b));
  if (a == Tipo::Data || b == Tipo::Data) {
    motivo += ": scrivere la data come #mm/gg/aaaa#";
  } else if (a == Tipo::Testo || b == Tipo::Testo) {
    motivo += ": il testo va tra apici, il numero senza";
  }
  Rifiuta(posizione, std::move(motivo));
}

/// Type in which two values of a comparison meet; Nullo on either side yields to the other.
Tipo Incontro(Tipo a, Tipo b, std::size_t posizione) {
  if (a == b || b == Tipo::Nullo) return a;
  if (a == Tipo::Nullo) return b;
  if (ENumero(a) && ENumero(b)) {
    return a == Tipo::Reale || b == Tipo::Reale ? Tipo::Reale : Tipo::Importo;
  }
  const auto coppia = [&](Tipo x, Tipo y) { return (a == x && b == y) || (a == y && b == x); };
  if (coppia(Tipo::Data, Tipo::Intero)) return Tipo::Data;
  if (a == Tipo::Booleano && ENumero(b)) return Tipo::Booleano;
  if (b == Tipo::Booleano && ENumero(a)) return Tipo::Booleano;
  NonConfrontabili(a, b, posizione);
}

void AccordaLetterale(Espr& e, Tipo tipo, std::size_t posizione) {
  if (e.tipo == tipo && !e.puro) return;
  const bool testo = ELetteraleDi(e, G::Testo);
  if (tipo == Tipo::Testo ? !testo : testo && !ENumero(tipo)) {
    NonConfrontabili(tipo, e.tipo, posizione);
  }
  switch (tipo) {
    case Tipo::Intero:
    case Tipo::Data:
      return Lega(e, Legame::Intero, tipo);
    case Tipo::Importo:
      return Lega(e, Legame::Importo, tipo);
    case Tipo::Reale:
      return Lega(e, Legame::Reale, tipo);
    case Tipo::Booleano:
      return Lega(e, Legame::Booleano, tipo);
    default:
      return;
  }
}

void AccordaValore(EsprPtr& e, Tipo tipo) {
  if (e->tipo == tipo || e->tipo == Tipo::Nullo) return;
  if (tipo == Tipo::Importo && e->tipo == Tipo::Intero) return Avvolgi(e, Fn::Diecimila, tipo);
  if (tipo == Tipo::Booleano) return Avvolgi(e, Fn::NonZero, tipo);
  if (tipo == Tipo::Reale && e->tipo == Tipo::Importo) return Avvolgi(e, Fn::RealeDaImporto, tipo);
  // Whole numbers beside reals or dates are compared as they are.
}

}  // namespace

void Accorda(std::span<EsprPtr* const> valori, std::size_t posizione) {
  Tipo tipo = Tipo::Nullo;
  for (const EsprPtr* v : valori) {
    if (!EAdattabile(**v)) tipo = Incontro(tipo, (*v)->tipo, posizione);
  }
  if (tipo == Tipo::Nullo) {
    // Literals among themselves: texts beside numbers must read as numbers.
    bool testo = true;
    for (const EsprPtr* v : valori) {
      if (EAdattabile(**v) && !ELetteraleDi(**v, G::Testo)) testo = false;
    }
    tipo = testo ? Tipo::Testo : Tipo::Importo;
  }
  for (EsprPtr* v : valori) {
    if (EAdattabile(**v)) {
      AccordaLetterale(**v, tipo, posizione);
    } else {
      AccordaValore(*v, tipo);
    }
  }
}

bool ECifre(const Espr& e) {
  if (e.genere == GenereEspr::Rinvio) return ECifre(*e.rinvio);
  return e.genere == GenereEspr::Campo && e.fonte != nullptr && e.fonte->colonne[e.colonna].cifre;
}

void DiventaCifre(Espr& e) {
  if (!ELetteraleDi(e, G::Numero)) return;
  Lega(e, Legame::Cifre, Tipo::Testo);
  e.puro = false;
}

void AccordaCifre(std::span<EsprPtr* const> valori, bool uguaglianza) {
  const auto numero = [](const EsprPtr* v) { return ENumero((*v)->tipo); };
  if (std::ranges::none_of(valori, numero) ||
      std::ranges::none_of(valori, [](const EsprPtr* v) { return ECifre(**v); })) {
    return;
  }
  const bool letterali = std::ranges::all_of(
      valori, [&](const EsprPtr* v) { return !numero(v) || ELetteraleDi(**v, G::Numero); });
  for (EsprPtr* v : valori) {
    if (uguaglianza && letterali) {
      DiventaCifre(**v);
    } else if (ECifre(**v)) {
      Avvolgi(*v, Fn::Val, Tipo::Reale);
    }
  }
}

namespace {

void PretendiOperando(EsprPtr& e) {
  if (ELetteraleDi(*e, G::Testo)) return Converti(e, Tipo::Importo);
  if (ENumero(e->tipo) || e->tipo == Tipo::Nullo) return;
  std::string motivo(NomeTipo(e->tipo));
  motivo += " non entra in un calcolo";
  if (e->tipo == Tipo::Testo) motivo += ": per unire testi usare &, per il numero scritto Val";
  if (e->tipo == Tipo::Booleano) motivo += ": usare IIf";
  Rifiuta(e->posizione, std::move(motivo));
}

void Sostituisci(EsprPtr& e, Fn funzione, Tipo tipo) {
  EsprPtr a = std::move(e->figli[0]);
  EsprPtr b = e->figli.size() > 1 ? std::move(e->figli[1]) : nullptr;
  const std::size_t posizione = e->posizione;
  e = NuovoCalcolo(funzione, tipo, std::move(a), std::move(b));
  e->posizione = posizione;
}

/// Days: date and number, or the distance of two dates. False when no date is involved.
bool LegaDate(EsprPtr& e) {
  EsprPtr& a = e->figli[0];
  EsprPtr& b = e->figli[1];
  const bool dataA = a->tipo == Tipo::Data;
  const bool dataB = b->tipo == Tipo::Data;
  if (!dataA && !dataB) return false;
  if (e->operatore == '-' && dataA && dataB) {
    Sostituisci(e, Fn::Meno, Tipo::Intero);
    return true;
  }
  if ((e->operatore == '+' && dataA != dataB) || (e->operatore == '-' && dataA && !dataB)) {
    EsprPtr& numero = dataA ? b : a;
    PretendiOperando(numero);
    Converti(numero, Tipo::Intero);
    Sostituisci(e, e->operatore == '+' ? Fn::DataPiu : Fn::DataMeno, Tipo::Data);
    return true;
  }
  Rifiuta(e->posizione, "con una data si può solo aggiungere o togliere giorni");
}

void LegaSomma(EsprPtr& e, Tipo a, Tipo b) {
  const bool piu = e->operatore == '+';
  if (a == Tipo::Importo || b == Tipo::Importo) {
    Converti(e->figli[0], Tipo::Importo);
    Converti(e->figli[1], Tipo::Importo);
    return Sostituisci(e, piu ? Fn::Piu : Fn::Meno, Tipo::Importo);
  }
  if (a == Tipo::Reale || b == Tipo::Reale) {
    return Sostituisci(e, piu ? Fn::RealePiu : Fn::RealeMeno, Tipo::Reale);
  }
  Sostituisci(e, piu ? Fn::Piu : Fn::Meno, Tipo::Intero);
}

void LegaProdotto(EsprPtr& e, Tipo a, Tipo b) {
  if (a == Tipo::Importo && b == Tipo::Importo) return Sostituisci(e, Fn::Per, Tipo::Importo);
  if (a == Tipo::Importo || b == Tipo::Importo) {
    const Tipo altro = a == Tipo::Importo ? b : a;
    if (a != Tipo::Importo) std::swap(e->figli[0], e->figli[1]);
    // An amount by a whole number needs no rounding.
    return Sostituisci(e, altro == Tipo::Intero ? Fn::Molt : Fn::PerReale, Tipo::Importo);
  }
  if (a == Tipo::Reale || b == Tipo::Reale) return Sostituisci(e, Fn::RealePer, Tipo::Reale);
  Sostituisci(e, Fn::Molt, Tipo::Intero);
}

void LegaQuoziente(EsprPtr& e, Tipo a, Tipo b) {
  if (a == Tipo::Importo && b == Tipo::Reale) {
    return Sostituisci(e, Fn::DivisoReale, Tipo::Importo);
  }
  if (a == Tipo::Reale && b == Tipo::Importo) {
    Converti(e->figli[1], Tipo::Reale);
    return Sostituisci(e, Fn::Quoto, Tipo::Reale);
  }
  if (a == Tipo::Importo || b == Tipo::Importo) {
    Converti(e->figli[0], Tipo::Importo);
    Converti(e->figli[1], Tipo::Importo);
    return Sostituisci(e, Fn::Diviso, Tipo::Importo);
  }
  Sostituisci(e, Fn::Quoto, Tipo::Reale);
}

void LegaMeno(EsprPtr& e) {
  EsprPtr& a = e->figli[0];
  PretendiOperando(a);
  const Tipo tipo = a->tipo;
  Sostituisci(e, tipo == Tipo::Reale ? Fn::RealeNegato : Fn::Negato, tipo);
}

}  // namespace

void LegaAritmetica(EsprPtr& e) {
  if (e->figli.size() == 1) return LegaMeno(e);
  EsprPtr& a = e->figli[0];
  EsprPtr& b = e->figli[1];
  if (e->operatore == '&') {
    Converti(a, Tipo::Testo);
    Converti(b, Tipo::Testo);
    return Sostituisci(e, Fn::Unisci, Tipo::Testo);
  }
  const auto testo = [](Tipo t) { return t == Tipo::Testo || t == Tipo::Nullo; };
  if (e->operatore == '+' && testo(a->tipo) && testo(b->tipo)) {
    return Sostituisci(e, Fn::SommaTesti, Tipo::Testo);
  }
  if (LegaDate(e)) return;
  PretendiOperando(a);
  PretendiOperando(b);
  // Null counts as what it meets: the result is Null of that type.
  const Tipo ta = a->tipo == Tipo::Nullo ? b->tipo : a->tipo;
  const Tipo tb = b->tipo == Tipo::Nullo ? a->tipo : b->tipo;
  switch (e->operatore) {
    case '+':
    case '-':
      return LegaSomma(e, ta, tb);
    case '*':
      return LegaProdotto(e, ta, tb);
    case '/':
      return LegaQuoziente(e, ta, tb);
    default:
      Converti(a, Tipo::Intero);
      Converti(b, Tipo::Intero);
      return Sostituisci(e, e->operatore == 'm' ? Fn::Modulo : Fn::DivisoIntero, Tipo::Intero);
  }
}

}  // namespace fenalto::sql
