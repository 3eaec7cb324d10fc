// The registration of VAT documents typed by hand: purchase and sales invoices, credit notes,
// receipts, reverse charge, customs bills, withholdings.
//
// Invariants of what is stored: the rows balance; the party's row is the document's total; the VAT
// row is the sum of the VAT of the taxable rows. A confirmation asks and checks first, then takes
// the numbering lock and writes everything that follows from the document in one transaction over
// both databases; what is to be told is told after. Whatever fails in the middle leaves nothing
// behind, and what was typed is still here.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"
#include "vat/postings/RigheIva.h"

namespace fenalto::vat {

/// The register chosen, as the form needs it.
struct RegistroScelto {
  std::string cod;
  std::string tipo;
  std::string descrizione;
  std::string conto;
  std::string contoCassa;
  std::string contoRicavi;
  std::string codIva;
  bool mensile = false;
};

class RegistrazioneIva {
 public:
  enum class Stato { SenzaRegistro, ConRegistro, Aperta, RigaAperta };

  explicit RegistrazioneIva(Ambiente& ambiente);
  /// Why no VAT document can be registered in the company at all; empty when it can.
  [[nodiscard]] static std::string Impedimento(Ambiente& ambiente);
  ~RegistrazioneIva();

  [[nodiscard]] Stato StatoCorrente() const;
  [[nodiscard]] bool Nuova() const;
  /// In edit elsewhere, or printed in definitive: can be looked at and not changed.
  [[nodiscard]] bool SolaLettura() const;
  /// Why, empty when it can be changed.
  [[nodiscard]] std::string MotivoSolaLettura() const;
  [[nodiscard]] bool Modificata() const;

  // --- Register ---------------------------------------------------------------------------------

  /// Chooses the register on which to work, with its messages; false when it can't be worked on.
  bool ScegliRegistro(const std::string& riva);
  [[nodiscard]] const RegistroScelto& Registro() const;
  /// Title of a new registration on the register.
  [[nodiscard]] std::string TitoloNuova() const;
  /// Class of the party: "C", "F", "P"; its label ("Cliente"), and the source of its code field.
  [[nodiscard]] std::string ClasseParte() const;
  [[nodiscard]] std::string EtichettaParte() const;
  /// "Riprotocollo automatico ..." of the register's type; empty where there is none.
  [[nodiscard]] std::string TestoRiprotocollo() const;
  /// What is shown as the next article and protocol number.
  [[nodiscard]] std::int64_t ProbabileNumDoc();
  [[nodiscard]] std::int64_t ProbabileNProt();

  // --- Head -------------------------------------------------------------------------------------

  /// Begins a new registration on the register; false with its message when that can't be.
  bool Nuovo();
  /// A registration that a stopped program left unconfirmed: open again as it was typed, on its
  /// register, after its question. False when there is none, or it can't be gone on with (told).
  bool Riprendi();
  /// Opens a stored one of the selected year by its article number, with its warnings; chooses its
  /// register. False when there is none (nothing else happens).
  bool Apri(std::int64_t numDoc);
  /// Bound fields: `Riva`, `NProt`, `NumDoc`, `Dt`, `Contox`, `CFPx`, `Descrizionex`, `DtFat`,
  /// `NFat`, `Pagamento`, `Ep`, `DtIncasso`, `NVarAnPrec`, `TotaleXVerifica`, `BollaDog`, `RitAcc`;
  /// reverse charge `RivaIntra`, `FornitoreIntra`, `CausaleIntra`, `ContoCostiIntra`,
  /// `PagamentoIntra`, `NoIntraCosto_a_Forn`; customs `FornitoreBollaDog`, `CausaleBollaDog`,
  /// `PagamentoBollaDog`; withholdings `CausaleRitAcc1`, `ContoRitAcc1`, `ImportoRitAcc1` and 2.
  [[nodiscard]] Scheda& Testa();
  /// A field of the head was left with a new value: proposals, questions and warnings that follow.
  void TestaLasciata(std::string_view campo);
  /// Which option frames the register's type and the settings show.
  [[nodiscard]] bool MostraIntra() const;
  [[nodiscard]] bool MostraBollaDoganale() const;
  [[nodiscard]] bool MostraRitenute() const;
  [[nodiscard]] bool MostraDtIncasso() const;
  /// The info line of the payment code.
  [[nodiscard]] std::string NotaPagamento() const;
  /// Value of a field in the last registration confirmed here, for repeating it.
  [[nodiscard]] std::optional<Valore> Precedente(std::string_view campo) const;

  // --- Rows -------------------------------------------------------------------------------------

  /// The taxable rows, in order of `Posi`.
  [[nodiscard]] const std::vector<RigaIva>& Righe() const;
  [[nodiscard]] Importo TotImponibile() const;
  [[nodiscard]] Importo TotIva() const;
  [[nodiscard]] Importo TotIvaInd() const;
  [[nodiscard]] Importo TotFat() const;
  /// TotaleXVerifica - TotFat while a control total is typed and the option is on.
  [[nodiscard]] std::optional<Importo> DifferenzaVerifica() const;
  /// The double entry that a confirmation would write for the document itself, live.
  [[nodiscard]] std::vector<RigaIva> RigheContabili() const;

  bool PNuovaRiga();
  bool ApriRiga(std::size_t indice);
  [[nodiscard]] bool RigaNuova() const;
  /// Bound fields: `Posi`, `Conto`, `CodIva`, `Descrizione`, `Categoria`, `Commessa`, `Imponibile`,
  /// `Iva`, `IvaInd`, and `Totale`, the gross amount.
  [[nodiscard]] Scheda& Riga();
  void RigaLasciata(std::string_view campo);
  /// The button for gross amounts: taxable and VAT out of `Totale`.
  void PulisciImporti();
  /// `campo` receives the control to go to when a check stopped it.
  bool ConfermaRiga(std::string* campo = nullptr);
  bool EliminaRiga();
  void AnnullaRiga();
  /// Rows of the party's last registration on this register, amounts empty; taken by ProponiRighe.
  [[nodiscard]] std::size_t RigheProponibili() const;
  void ProponiRighe();

  // --- Confirmation -----------------------------------------------------------------------------

  /// All checks in their order, numbers, writing, what follows, announcement. `campo` receives the
  /// control to go to when a check stopped it.
  bool Conferma(std::string* campo = nullptr);
  [[nodiscard]] std::int64_t NumeroConfermato() const;
  /// The user wants to enter the asset that the last confirmed purchase was about.
  [[nodiscard]] bool CespiteChiesto() const;
  /// Deletes the open registration after its question.
  bool Elimina();
  void Abbandona();

  /// Gives the protocols of a range anew in order of date; with its checks, question and message.
  bool Riprotocolla(std::int64_t daNProt, std::int64_t aNProt);

  /// The station's options, as texts "Si" or "No" of `Ini.ini`.
  [[nodiscard]] bool VerificaTotale() const;
  void VerificaTotale(bool attiva);
  [[nodiscard]] bool VerificaFatForn() const;
  void VerificaFatForn(bool attiva);

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::vat
