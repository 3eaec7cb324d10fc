// A due date as functions work on it: what it was when the user saw it, whether another station has
// changed it since, how it is named to the user.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::duedates {

/// Decimals of an amount where a due date is told.
inline constexpr int kDecimaliScadenza = 2;

// `Stato` of a due date, whoever wrote it: "00" postings, "01" typed or restored.
inline constexpr const char* kStatoScritta = "00";
inline constexpr const char* kStatoAperta = "01";
inline constexpr const char* kStatoParziale = "10";
/// Below this a receipt may still be presented to the bank.
inline constexpr const char* kStatoPresentabile = "20";
/// Open is everything below.
inline constexpr const char* kStatoPagata = "30";

/// `Tipo` of a bank receipt.
inline constexpr const char* kTipoRiba = "03";

/// `Programma` of a due date closed, and not paid, because another took the place of several.
inline constexpr const char* kProgrammaRaggruppata = "Raggruppata";

/// States compare as texts, so each is two digits.
bool StatoValido(const std::string& stato);
/// What is told of another one.
inline constexpr const char* kStatoDiDueCifre =
    "lo stato è di due cifre: 00 e 01 aperta, 10 pagata in parte, 30 pagata";

/// Condition of the dialect that open due dates meet: "SCADENZE.STATO<'30'".
std::string CondizioneAperta();

/// The fields that say what a due date is worth and whose it is.
struct Scadenza {
  std::int64_t numero = 0;
  std::string cfp;
  std::string conto;
  Data dt;
  std::string tipo;
  std::string stato;
  int anno = 0;
  std::int64_t articolo = 0;
  std::string riva;
  std::int64_t nProt = 0;
  std::string nFat;  ///< the invoice's whole number, "2024/123"; empty without
  Data dtFat;
  Importo importoE;
  Importo importoPagatoE;
  std::string descrizione;
  std::string pagamento;
  bool anticipo = false;

  [[nodiscard]] Importo Residuo() const { return importoE - importoPagatoE; }
  /// Below state "30".
  [[nodiscard]] bool Aperta() const;
  bool operator==(const Scadenza&) const = default;
};

/// From a row of `Scadenze` with all its columns.
Scadenza ScadenzaDi(const Rs& riga);
/// As it stands now; nothing when there is none of that number.
std::optional<Scadenza> LeggiScadenza(Ambiente& ambiente, std::int64_t numero);
/// The greatest number plus 1; to be asked under the numbering lock, or in the transaction that
/// writes the row.
std::int64_t ProssimoNumeroScadenza(Ambiente& ambiente);

/// "scadenza n. 12 del 31/03/2024 di ROSSI SRL, ft. 5 del 31/01/2024, euro 100,00"
std::string NomeScadenza(Ambiente& ambiente, const Scadenza& scadenza);

/// Characters of the column of an invoice's number.
inline constexpr std::size_t kCaratteriFattura = 8;
/// The number as far as that column goes: one that is longer ends in "…", and is told beside it.
std::string FatturaIncolonnata(const std::string& numero);

/// What is told when the due date isn't any more what it was at its selection: paid, changed (and
/// in what) or erased meanwhile, by name. Nothing when it still is. To be asked inside the
/// transaction that writes.
std::optional<std::string> ScadenzaCambiata(Ambiente& ambiente, const Scadenza& vista);
/// Writes columns of the due date, in the caller's transaction; nothing when there are none.
void AggiornaScadenza(Ambiente& ambiente, std::int64_t numero, const std::vector<Coppia>& campi);

/// Whether the registration that the due date names is its party's. A number is given again once
/// the last registration is erased: it may be another's now. True also when the registration is
/// gone, or names no party.
bool RegistrazioneSua(Ambiente& ambiente, const Scadenza& scadenza);

/// Why an amount can't be paid or owed as it is: parts of a cent, or of a lira in a year of lire;
/// empty when it can.
std::string RifiutoDecimali(const Ambiente& ambiente, Importo importo);
/// Whether one is below zero and the other above.
bool SegniContrari(Importo uno, Importo altro);

/// The party's name; empty when it isn't in the list of accounts.
std::string NomeParte(Ambiente& ambiente, const std::string& cfp, const std::string& conto);
/// The summary account (`Conto`) of a customer ("C") or supplier ("F"); empty when it has none, or
/// there is no such party.
std::string ContoRiepilogativo(Ambiente& ambiente, const std::string& cfp,
                               const std::string& conto);

/// The due date's amounts in lire, which are kept beside those in euro.
std::vector<Coppia> CampiImporto(Importo importoE);
std::vector<Coppia> CampiPagato(Importo importoPagatoE);

}  // namespace fenalto::duedates
