// Rates of a payment code: how much and when. Pure arithmetic over a code that was read.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/CampoRiga.h"
#include "core/session/Ambiente.h"

namespace fenalto::duedates {

inline constexpr std::size_t kRateMassime = 10;

/// A row of `Pagamento_r`.
struct RataPagamento {
  std::string rata;  ///< "01" to "10"
  Importo percImporto;
  int dopoMesi = 0;
  int dopoGiorni = 0;
  bool fineMese = false;
  bool dataFattura = false;
  bool giornoFisso = false;
  int ggFisso = 0;
  std::string tipo;
  std::string descrizione;
};

/// A window of dates that move to day `ggSpost` of the next month; 0 for none.
struct SpostaData {
  int ggSpost = 0;
  int daMM = 0;
  int daGG = 0;
  int aaMM = 0;
  int aaGG = 0;
};

/// A row of `Pagamento` with its rates.
struct CodicePagamento {
  std::string cod;
  std::string descrizione;
  bool nuovaCodifica = false;
  bool aggiornaScad = false;
  int numeroSc = 0;
  int primaSc = 0;
  int giornoSc = 0;
  int mese = 0;
  std::string tipo;
  std::string conto;
  std::string causale;
  std::string codPagIva;
  std::array<SpostaData, 2> sposta = {};
  std::vector<RataPagamento> rate;
};

/// The code of a record's fields, without its rates.
CodicePagamento CodiceDaCampi(const std::function<Valore(std::string_view)>& campo);

/// The columns of a rate, which are its fields where it is typed.
std::span<const records::CampoRiga<RataPagamento>> CampiRata();

/// The rates of a code in order.
std::vector<RataPagamento> LeggiRate(Ambiente& ambiente, const std::string& cod);

/// Reads a code with its rates in order; nothing when it doesn't exist.
std::optional<CodicePagamento> LeggiCodicePagamento(Ambiente& ambiente, const std::string& cod);

/// Last day of a month when `giorno` is 31, with the program's fixed list of leap years (2008,
/// 2012, 2016, 2020); the day itself otherwise.
int GiorniMese(int giorno, int mese, int anno);

/// Date of one rate of the new form. `spostata` receives the day that a window moved it to.
Data DataRata(const RataPagamento& rata, Data data, const CodicePagamento& codice,
              std::optional<int>* spostata = nullptr);

struct RateCalcolate {
  std::array<Data, kRateMassime> date = {};
  std::array<Importo, kRateMassime> importi = {};
  std::array<std::string, kRateMassime> tipi = {};
  /// What the user is to be told, in order.
  std::vector<std::string> avvisi;
  /// Which form of the code filled the rates ("nuova", "vecchia"); empty when nothing did.
  std::string forma;
};

/// Rates of an amount for a date. `euro` tells the year's currency, `oggi` what empty dates hold.
RateCalcolate CalcolaRate(const CodicePagamento& codice, Data data, Importo importo, bool euro,
                          Data oggi);

}  // namespace fenalto::duedates
