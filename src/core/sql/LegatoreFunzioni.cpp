// Functions of the dialect: arguments, types, aggregates.
#include <array>
#include <vector>

#include "core/sql/Legatore.h"
#include "core/sql/Lessico.h"
#include "core/sql/Tipi.h"

namespace fenalto::sql {

namespace {

/// A function whose arguments and result have fixed types.
struct FunzioneDialetto {
  std::string_view nome;
  Fn funzione;
  Tipo risultato;
  std::array<Tipo, 3> argomenti;
  std::size_t minimi;
  std::size_t massimi;
};

constexpr Tipo kT = Tipo::Testo;
constexpr Tipo kI = Tipo::Intero;
constexpr Tipo kD = Tipo::Data;

constexpr std::array<FunzioneDialetto, 16> kFunzioni{{
    {"mid", Fn::Mid, kT, {kT, kI, kI}, 2, 3},
    {"left", Fn::Left, kT, {kT, kI, kI}, 2, 2},
    {"right", Fn::Right, kT, {kT, kI, kI}, 2, 2},
    {"len", Fn::Len, kI, {kT, kT, kT}, 1, 1},
    {"trim", Fn::Trim, kT, {kT, kT, kT}, 1, 1},
    {"ltrim", Fn::LTrim, kT, {kT, kT, kT}, 1, 1},
    {"rtrim", Fn::RTrim, kT, {kT, kT, kT}, 1, 1},
    {"ucase", Fn::UCase, kT, {kT, kT, kT}, 1, 1},
    {"lcase", Fn::LCase, kT, {kT, kT, kT}, 1, 1},
    {"val", Fn::Val, Tipo::Reale, {kT, kT, kT}, 1, 1},
    {"year", Fn::Anno, kI, {kD, kD, kD}, 1, 1},
    {"month", Fn::Mese, kI, {kD, kD, kD}, 1, 1},
    {"day", Fn::Giorno, kI, {kD, kD, kD}, 1, 1},
    {"inricerca", Fn::InRicerca, Tipo::Booleano, {kT, kT, kT}, 2, 2},
    {"iniziaricerca", Fn::IniziaRicerca, Tipo::Booleano, {kT, kT, kT}, 2, 2},
    {"chr", Fn::Chr, kT, {kI, kI, kI}, 1, 1},
}};

struct NomeAggregato {
  std::string_view nome;
  Aggregazione aggregazione;
};
constexpr std::array<NomeAggregato, 7> kAggregati{{{"sum", Aggregazione::Somma},
                                                   {"avg", Aggregazione::Media},
                                                   {"count", Aggregazione::Conta},
                                                   {"min", Aggregazione::Minimo},
                                                   {"max", Aggregazione::Massimo},
                                                   {"first", Aggregazione::Primo},
                                                   {"last", Aggregazione::Ultimo}}};

void Quanti(const Espr& e, std::size_t minimi, std::size_t massimi) {
  const std::size_t n = e.figli.size();
  if (n >= minimi && n <= massimi) return;
  std::string attesi = std::to_string(minimi);
  if (massimi != minimi) attesi += " o " + std::to_string(massimi);
  Rifiuta(e.posizione, std::string(e.nome) + " vuole " + attesi +
                           (massimi == 1 ? " argomento" : " argomenti") + ", ne ha " +
                           std::to_string(n));
}

void Diventa(Espr& e, Fn funzione, Tipo tipo) {
  e.genere = GenereEspr::Calcolo;
  e.funzione = funzione;
  e.tipo = tipo;
}

void PretendiNumero(const Espr& chiamata, EsprPtr& e) {
  if (ENumero(e->tipo)) return;
  if (e->tipo == Tipo::Nullo || e->genere == GenereEspr::Letterale || e->tipo == Tipo::Testo) {
    return Converti(e, Tipo::Importo);
  }
  Rifiuta(e->posizione,
          std::string(chiamata.nome) + " vuole un numero, non " + std::string(NomeTipo(e->tipo)));
}

void LegaInt(Espr& e) {
  Quanti(e, 1, 1);
  PretendiNumero(e, e.figli[0]);
  const Tipo tipo = e.figli[0]->tipo;
  const Fn funzione = tipo == Tipo::Importo ? Fn::InteroDaImporto
                      : tipo == Tipo::Reale ? Fn::InteroDaReale
                                            : Fn::Identita;
  Diventa(e, funzione, Tipo::Intero);
}

/// Whole numbers stay as they are; Null counts as an amount.
void LegaAbs(Espr& e) {
  Quanti(e, 1, 1);
  PretendiNumero(e, e.figli[0]);
  Diventa(e, Fn::Assoluto, e.figli[0]->tipo);
}

void LegaStr(Espr& e) {
  Quanti(e, 1, 1);
  PretendiNumero(e, e.figli[0]);
  Converti(e.figli[0], Tipo::Testo);
  Diventa(e, Fn::Str, Tipo::Testo);
}

void LegaNz(Espr& e) {
  Quanti(e, 1, 2);
  static const Letterale kVuoto{Letterale::Genere::Testo, ""};
  static const Letterale kZero{Letterale::Genere::Numero, "0"};
  if (e.figli.size() == 1) {
    EsprPtr vuoto = NuovaEspr(GenereEspr::Letterale, e.posizione);
    vuoto->letterale = e.figli[0]->tipo == Tipo::Testo ? &kVuoto : &kZero;
    TipoNaturale(*vuoto);
    if (e.figli[0]->tipo != Tipo::Nullo) Converti(vuoto, e.figli[0]->tipo);
    Aggiungi(e, std::move(vuoto));
  }
  const Tipo tipo = Unifica(e.figli[0]->tipo, e.figli[1]->tipo, e.posizione);
  for (EsprPtr& figlio : e.figli) Converti(figlio, tipo);
  Diventa(e, Fn::SeNullo, tipo);
}

void LegaInStr(Espr& e) {
  Quanti(e, 2, 3);
  std::size_t i = 0;
  if (e.figli.size() == 3) Converti(e.figli[i++], Tipo::Intero);
  for (; i < e.figli.size(); ++i) Converti(e.figli[i], Tipo::Testo);
  Diventa(e, Fn::InStr, Tipo::Intero);
}

void LegaIsNull(Espr& e) {
  Quanti(e, 1, 1);
  e.genere = GenereEspr::ENullo;
  e.tipo = Tipo::Booleano;
}

}  // namespace

void Legatore::LegaChiamata(EsprPtr& espr, const Ambito& ambito) {
  if (ParolaUguale(espr->nome, "iif")) return LegaSe(espr, ambito);
  if (LegaAggregato(espr, ambito)) return;
  LegaFigli(*espr, ambito);
  if (LegaParticolare(espr)) return;
  for (const FunzioneDialetto& f : kFunzioni) {
    if (!ParolaUguale(espr->nome, f.nome)) continue;
    Quanti(*espr, f.minimi, f.massimi);
    for (std::size_t i = 0; i < espr->figli.size(); ++i) {
      Converti(espr->figli[i], f.argomenti[i]);
    }
    return Diventa(*espr, f.funzione, f.risultato);
  }
  Rifiuta(espr->posizione, "funzione che il linguaggio non ha: " + std::string(espr->nome));
}

bool Legatore::LegaParticolare(EsprPtr& espr) {
  struct Particolare {
    std::string_view nome;
    void (*lega)(Espr&);
  };
  static constexpr std::array<Particolare, 6> kParticolari{{{"int", LegaInt},
                                                            {"abs", LegaAbs},
                                                            {"str", LegaStr},
                                                            {"nz", LegaNz},
                                                            {"instr", LegaInStr},
                                                            {"isnull", LegaIsNull}}};
  for (const Particolare& p : kParticolari) {
    if (!ParolaUguale(espr->nome, p.nome)) continue;
    p.lega(*espr);
    return true;
  }
  return false;
}

void Legatore::LegaSe(EsprPtr& espr, const Ambito& ambito) {
  Espr& e = *espr;
  Quanti(e, 3, 3);
  LegaBooleano(e.figli[0], ambito, "IIf");
  LegaEspr(e.figli[1], ambito);
  LegaEspr(e.figli[2], ambito);
  const Tipo tipo = Unifica(e.figli[1]->tipo, e.figli[2]->tipo, e.posizione);
  Converti(e.figli[1], tipo);
  Converti(e.figli[2], tipo);
  e.genere = GenereEspr::Se;
  e.tipo = tipo;
  for (const EsprPtr& figlio : e.figli) e.haAggregati = e.haAggregati || figlio->haAggregati;
}

bool Legatore::LegaAggregato(EsprPtr& espr, const Ambito& ambito) {
  Espr& e = *espr;
  const NomeAggregato* trovato = nullptr;
  for (const NomeAggregato& a : kAggregati) {
    if (ParolaUguale(e.nome, a.nome)) trovato = &a;
  }
  if (trovato == nullptr) return false;
  if (!ambito.aggregati) {
    Rifiuta(e.posizione, "qui non può stare l'aggregato " + std::string(e.nome) +
                             ": le condizioni sui totali vanno in HAVING");
  }
  Quanti(e, 1, 1);
  e.genere = GenereEspr::Aggregato;
  e.aggregazione = trovato->aggregazione;
  e.haAggregati = true;
  EsprPtr& x = e.figli[0];
  if (x->genere == GenereEspr::Stella) {
    if (e.aggregazione != Aggregazione::Conta) Rifiuta(e.posizione, "* sta solo in Count(*)");
    e.tipo = Tipo::Intero;
    return true;
  }
  Ambito dentro = ambito;
  dentro.aggregati = false;
  LegaEspr(x, dentro);
  switch (e.aggregazione) {
    case Aggregazione::Conta:
      e.tipo = Tipo::Intero;
      break;
    case Aggregazione::Somma:
    case Aggregazione::Media:
      if (x->tipo != Tipo::Nullo && !ENumero(x->tipo)) {
        Rifiuta(x->posizione,
                std::string(e.nome) + " vuole un numero, non " + std::string(NomeTipo(x->tipo)));
      }
      e.tipo = x->tipo;
      if (e.aggregazione == Aggregazione::Media && x->tipo == Tipo::Intero) e.tipo = Tipo::Reale;
      break;
    default:
      e.tipo = x->tipo;
      break;
  }
  return true;
}

}  // namespace fenalto::sql
