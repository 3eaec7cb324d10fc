#include "core/sql/Funzioni.h"

#include <array>
#include <cmath>
#include <limits>

#include "core/sql/FunzioniTesto.h"
#include "core/values/Importo.h"
#include "core/values/Testo.h"
#include "core/values/Valore.h"

namespace fenalto::sql {

namespace {

using Argomenti = std::span<const Cella>;

constexpr const char* kFuori = "il risultato è fuori dal campo ammesso";
constexpr const char* kPerZero = "divisione per zero";

Importo ImportoDi(const Cella& c) {
  return Importo::DaDecimillesimi(c.intero);
}
Cella DaImporto(Importo i) {
  return Cella::DiIntero(i.Decimillesimi());
}

template <bool (*Operazione)(std::int64_t, std::int64_t, std::int64_t*)>
Cella Controllata(Argomenti a, Deposito&) {
  std::int64_t r = 0;
  if (Operazione(a[0].intero, a[1].intero, &r)) throw ErroreCalcolo(kFuori);
  return Cella::DiIntero(r);
}
bool Somma(std::int64_t a, std::int64_t b, std::int64_t* r) {
  return __builtin_add_overflow(a, b, r);
}
bool Sottrae(std::int64_t a, std::int64_t b, std::int64_t* r) {
  return __builtin_sub_overflow(a, b, r);
}
bool Moltiplica(std::int64_t a, std::int64_t b, std::int64_t* r) {
  return __builtin_mul_overflow(a, b, r);
}

/// Any number of terms: a long sum must not become calls nested deeper than the engine reads.
Cella Piu(Argomenti a, Deposito&) {
  std::int64_t r = 0;
  for (const Cella& c : a) {
    if (__builtin_add_overflow(r, c.intero, &r)) throw ErroreCalcolo(kFuori);
  }
  return Cella::DiIntero(r);
}

Cella Negato(Argomenti a, Deposito& d) {
  const std::array<Cella, 2> argomenti{Cella::DiIntero(0), a[0]};
  return Controllata<Sottrae>(argomenti, d);
}

Cella Per(Argomenti a, Deposito&) {
  return DaImporto(ImportoDi(a[0]).Per(ImportoDi(a[1])));
}

Cella Diviso(Argomenti a, Deposito&) {
  if (a[1].intero == 0) throw ErroreCalcolo(kPerZero);
  return DaImporto(ImportoDi(a[0]).Diviso(ImportoDi(a[1])));
}

std::int64_t Vicino(long double v) {
  constexpr long double kLimite = 9223372036854775808.0L;
  if (std::isnan(v) || v >= kLimite || v < -kLimite) throw ErroreCalcolo(kFuori);
  const long double r = std::nearbyintl(v);
  if (r >= kLimite) throw ErroreCalcolo(kFuori);
  return static_cast<std::int64_t>(r);
}

Cella PerReale(Argomenti a, Deposito&) {
  return Cella::DiIntero(
      Vicino(static_cast<long double>(a[0].intero) * static_cast<long double>(a[1].Numero())));
}

Cella DivisoReale(Argomenti a, Deposito&) {
  const long double divisore = a[1].Numero();
  if (divisore == 0) throw ErroreCalcolo(kPerZero);
  return Cella::DiIntero(Vicino(static_cast<long double>(a[0].intero) / divisore));
}

Cella DivisoIntero(Argomenti a, Deposito&) {
  if (a[1].intero == 0) throw ErroreCalcolo(kPerZero);
  if (a[1].intero == -1) {
    if (a[0].intero == std::numeric_limits<std::int64_t>::min()) throw ErroreCalcolo(kFuori);
    return Cella::DiIntero(-a[0].intero);
  }
  return Cella::DiIntero(a[0].intero / a[1].intero);
}

Cella Modulo(Argomenti a, Deposito&) {
  if (a[1].intero == 0) throw ErroreCalcolo(kPerZero);
  return Cella::DiIntero(a[1].intero == -1 ? 0 : a[0].intero % a[1].intero);
}

/// A real that isn't a number or isn't finite would reach the rows as Null or as nonsense.
Cella DaReale(double r) {
  if (!std::isfinite(r)) throw ErroreCalcolo(kFuori);
  return Cella::DiReale(r);
}

Cella Quoto(Argomenti a, Deposito&) {
  const double divisore = a[1].Numero();
  if (divisore == 0) throw ErroreCalcolo(kPerZero);
  return DaReale(a[0].Numero() / divisore);
}
Cella RealePiu(Argomenti a, Deposito&) {
  return DaReale(a[0].Numero() + a[1].Numero());
}
Cella RealeMeno(Argomenti a, Deposito&) {
  return DaReale(a[0].Numero() - a[1].Numero());
}
Cella RealePer(Argomenti a, Deposito&) {
  return DaReale(a[0].Numero() * a[1].Numero());
}
Cella RealeNegato(Argomenti a, Deposito&) {
  return DaReale(-a[0].Numero());
}

Cella ControllaData(const Cella& c) {
  // Days of 01/01/0001 and 31/12/9999 from 30/12/1899.
  constexpr std::int64_t kPrimo = -693'593;
  constexpr std::int64_t kUltimo = 2'958'465;
  if (c.intero < kPrimo || c.intero > kUltimo) {
    throw ErroreCalcolo("data fuori dagli anni da 1 a 9999");
  }
  return c;
}
Cella DataPiu(Argomenti a, Deposito& d) {
  return ControllaData(Controllata<Somma>(a, d));
}
Cella DataMeno(Argomenti a, Deposito& d) {
  return ControllaData(Controllata<Sottrae>(a, d));
}

Cella Assoluto(Argomenti a, Deposito& d) {
  if (a[0].genere == Cella::Genere::Reale) return Cella::DiReale(std::abs(a[0].reale));
  return a[0].intero < 0 ? Negato(a, d) : a[0];
}

Cella InteroDaImporto(Argomenti a, Deposito&) {
  return Cella::DiIntero(ImportoDi(a[0]).ParteIntera());
}
Cella InteroDaReale(Argomenti a, Deposito&) {
  if (a[0].genere == Cella::Genere::Intero) return a[0];
  return Cella::DiIntero(InteroVicino(std::floor(a[0].reale)));
}
Cella Scala(Argomenti a, Deposito&) {
  return DaImporto(Importo::DaUnita(a[0].intero));
}
Cella ArrotondaImporto(Argomenti a, Deposito&) {
  return Cella::DiIntero(Valore(ImportoDi(a[0])).Intero());
}
Cella ArrotondaReale(Argomenti a, Deposito&) {
  return a[0].genere == Cella::Genere::Intero ? a[0] : Cella::DiIntero(InteroVicino(a[0].reale));
}
Cella ImportoDaReale(Argomenti a, Deposito& d) {
  if (a[0].genere == Cella::Genere::Intero) return Scala(a, d);
  return DaImporto(Valore(a[0].reale).Importo());
}

/// A text that must be a number; an empty one is none.
Valore NumeroNelTesto(const Cella& c) {
  const std::string_view rifilato = Rifila(c.testo);
  if (rifilato.empty()) throw ErroreCalcolo("un testo vuoto non è un numero");
  return Valore(rifilato);
}
Cella ImportoDaTesto(Argomenti a, Deposito&) {
  return DaImporto(NumeroNelTesto(a[0]).Importo());
}
Cella InteroDaTesto(Argomenti a, Deposito&) {
  return Cella::DiIntero(NumeroNelTesto(a[0]).Intero());
}
Cella RealeDaTesto(Argomenti a, Deposito&) {
  return Cella::DiReale(NumeroNelTesto(a[0]).Reale());
}
Cella TestoImporto(Argomenti a, Deposito& d) {
  return Cella::DiTesto(d.Tieni(ImportoDi(a[0]).Testo()));
}
Cella TestoReale(Argomenti a, Deposito& d) {
  return Cella::DiTesto(d.Tieni(Valore(a[0].Numero()).Neutro()));
}
Cella TestoBooleano(Argomenti a, Deposito&) {
  return Cella::DiTesto(a[0].intero != 0 ? "True" : "False");
}
Cella SomigliaModello(Argomenti a, Deposito&) {
  return Cella::DiIntero(Somiglia(a[0].testo, a[1].testo) ? 1 : 0);
}

Cella RealeDaImporto(Argomenti a, Deposito&) {
  return Cella::DiReale(static_cast<double>(a[0].intero) / static_cast<double>(Importo::kScala));
}
/// As the engine does it: past 64 bits the product goes on as a real, which still compares right.
Cella Diecimila(Argomenti a, Deposito&) {
  std::int64_t r = 0;
  if (!__builtin_mul_overflow(a[0].intero, Importo::kScala, &r)) return Cella::DiIntero(r);
  return Cella::DiReale(static_cast<double>(a[0].intero) * static_cast<double>(Importo::kScala));
}
Cella NonZero(Argomenti a, Deposito&) {
  return Cella::DiIntero(a[0].Numero() != 0 ? 1 : 0);
}
Cella TestoIntero(Argomenti a, Deposito& d) {
  return Cella::DiTesto(d.Tieni(std::to_string(a[0].intero)));
}
Cella Unisci(Argomenti a, Deposito& d) {
  return Cella::DiTesto(d.Tieni(std::string(a[0].testo).append(a[1].testo)));
}
Cella SeNullo(Argomenti a, Deposito&) {
  return a[0].Nullo() ? a[1] : a[0];
}

Cella Identita(Argomenti a, Deposito&) {
  return a[0];
}

namespace f = funzioni;

/// In the order of Fn.
constexpr std::array<FunzioneMotore, static_cast<std::size_t>(Fn::Numero_)> kFunzioniMotore{{
    {"fen_piu", kQuanti, kQuanti, true, Piu},
    {"fen_meno", 2, 2, true, Controllata<Sottrae>},
    {"fen_molt", 2, 2, true, Controllata<Moltiplica>},
    {"fen_neg", 1, 1, true, Negato},
    {"fen_per", 2, 2, true, Per},
    {"fen_div", 2, 2, true, Diviso},
    {"fen_per_reale", 2, 2, true, PerReale},
    {"fen_div_reale", 2, 2, true, DivisoReale},
    {"fen_div_intero", 2, 2, true, DivisoIntero},
    {"fen_modulo", 2, 2, true, Modulo},
    {"fen_quoto", 2, 2, true, Quoto},
    {"fen_data_piu", 2, 2, true, DataPiu},
    {"fen_data_meno", 2, 2, true, DataMeno},
    {"fen_abs", 1, 1, true, Assoluto},
    {"fen_int_importo", 1, 1, true, InteroDaImporto},
    {"fen_int_reale", 1, 1, true, InteroDaReale},
    {"fen_scala", 1, 1, true, Scala},
    {"fen_arrotonda_importo", 1, 1, true, ArrotondaImporto},
    {"fen_arrotonda_reale", 1, 1, true, ArrotondaReale},
    {"fen_importo_da_reale", 1, 1, true, ImportoDaReale},
    {"fen_importo_da_testo", 1, 1, true, ImportoDaTesto},
    {"fen_intero_da_testo", 1, 1, true, InteroDaTesto},
    {"fen_reale_da_testo", 1, 1, true, RealeDaTesto},
    {"fen_testo_importo", 1, 1, true, TestoImporto},
    {"fen_testo_reale", 1, 1, true, TestoReale},
    {"fen_testo_data", 1, 1, true, f::TestoData},
    {"fen_testo_sino", 1, 1, true, TestoBooleano},
    {"fen_mid", 2, 3, true, f::Mid},
    {"fen_left", 2, 2, true, f::Left},
    {"fen_right", 2, 2, true, f::Right},
    {"fen_len", 1, 1, true, f::Len},
    {"fen_trim", 1, 1, true, f::Trim},
    {"fen_ltrim", 1, 1, true, f::LTrim},
    {"fen_rtrim", 1, 1, true, f::RTrim},
    {"fen_ucase", 1, 1, true, f::UCase},
    {"fen_lcase", 1, 1, true, f::LCase},
    {"fen_str", 1, 1, true, f::Str},
    {"fen_val", 1, 1, true, f::Val},
    {"fen_anno", 1, 1, true, f::Anno},
    {"fen_mese", 1, 1, true, f::Mese},
    {"fen_giorno", 1, 1, true, f::Giorno},
    {"fen_chr", 1, 1, true, f::Chr},
    {"fen_instr", 2, 3, true, f::InStr},
    {"fen_in_ricerca", 2, 2, true, f::InRicerca},
    {"fen_inizia_ricerca", 2, 2, true, f::IniziaRicerca},
    {"fen_somiglia", 2, 2, true, SomigliaModello},
    {"fen_reale_piu", 2, 2, true, RealePiu},
    {"fen_reale_meno", 2, 2, true, RealeMeno},
    {"fen_reale_per", 2, 2, true, RealePer},
    {"fen_reale_neg", 1, 1, true, RealeNegato},
    {nullptr, 1, 1, true, RealeDaImporto},
    {nullptr, 1, 1, true, Diecimila},
    {nullptr, 1, 1, true, NonZero},
    {nullptr, 1, 1, true, TestoIntero},
    {nullptr, 2, 2, false, Unisci},
    {nullptr, 2, 2, true, Unisci},
    {nullptr, 2, 2, false, SeNullo},
    {nullptr, 1, 1, true, Identita},
}};

}  // namespace

const FunzioneMotore& Descrizione(Fn funzione) {
  return kFunzioniMotore[static_cast<std::size_t>(funzione)];
}

Cella Calcola(Fn funzione, std::span<const Cella> argomenti, Deposito& deposito) {
  const FunzioneMotore& f = Descrizione(funzione);
  if (f.nulloPropaga) {
    for (const Cella& c : argomenti) {
      if (c.Nullo()) return {};
    }
  }
  try {
    return f.calcola(argomenti, deposito);
  } catch (const FuoriCampo&) {
    throw ErroreCalcolo(kFuori);
  } catch (const std::logic_error& errore) {  // conversions that make no sense, days out of range
    throw ErroreCalcolo(errore.what());
  }
}

int ConfrontaCelle(const Cella& a, const Cella& b) noexcept {
  if (a.genere == Cella::Genere::Testo && b.genere == Cella::Genere::Testo) {
    return ConfrontaTesto(a.testo, b.testo);
  }
  if (a.genere == Cella::Genere::Intero && b.genere == Cella::Genere::Intero) {
    return a.intero < b.intero ? -1 : a.intero > b.intero ? 1 : 0;
  }
  // 64 bits of mantissa hold every whole number exactly.
  const auto numero = [](const Cella& c) {
    return c.genere == Cella::Genere::Reale ? static_cast<long double>(c.reale)
                                            : static_cast<long double>(c.intero);
  };
  const long double x = numero(a);
  const long double y = numero(b);
  return x < y ? -1 : x > y ? 1 : 0;
}

std::int64_t InteroVicino(double valore) {
  return Vicino(static_cast<long double>(valore));
}

std::int64_t MediaImporti(Intero128 somma, std::int64_t conta) {
  return static_cast<std::int64_t>(QuozienteVicino(somma, conta));
}

}  // namespace fenalto::sql
