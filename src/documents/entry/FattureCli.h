// The use case behind every commercial document and every movement of stock: invoices, delivery
// notes, loads, transfers, opening stock. What a document is and does is asked of its type at every
// step.
//
// Rows live here until the confirmation, which is one transaction under the numbering locks: head,
// rows with what they copy of it, marks on orders and jobs, supplier prices, numbers of lots, the
// unload of components. Whatever fails leaves nothing behind, and what was typed is still here.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/records/DescrizioneForma.h"
#include "core/records/DocumentoAperto.h"
#include "core/session/Allegati.h"
#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"
#include "documents/entry/IdentitaDocumento.h"
#include "documents/entry/RigaDocumento.h"
#include "documents/parties/DestinazioniCliente.h"
#include "documents/types/TipoDocumento.h"
#include "warehouse/stock/Costi.h"
#include "warehouse/stock/Esistenza.h"

namespace fenalto::documents {

/// Totals of the open document: zero where its kind has none.
struct TotaliVivi {
  Importo totImponibile;
  Importo totIva;
  Importo totFat;
  Importo totQuantita;
  Importo totRighe;  ///< sum of the rows' amounts, for every kind
};

/// Beside the open row: stock, and what it earns.
struct AccantoRiga {
  warehouse::Esistenza esistenza;  ///< of the head's warehouse, all when it has none
  warehouse::Costi costi;
  std::optional<Importo> margine;      ///< amount less cost; nothing below level 50
  std::optional<Importo> marginePerc;  ///< of the amount
};

class FattureCli {
 public:
  using Stato = records::Stato;

  explicit FattureCli(Ambiente& ambiente);
  ~FattureCli();
  /// Why no document can be entered at all ("è necessario impostare almeno un tipo di documento
  /// ..."); empty when one can.
  [[nodiscard]] static std::string Impedimento(Ambiente& ambiente);

  [[nodiscard]] Stato StatoCorrente() const;
  [[nodiscard]] bool Nuova() const;
  [[nodiscard]] bool SolaLettura() const;
  [[nodiscard]] std::string MotivoSolaLettura() const;
  [[nodiscard]] bool Modificata() const;

  // --- Type -------------------------------------------------------------------------------------

  /// The types offered, by code; the default one first proposed by Tipo().
  [[nodiscard]] const std::vector<TipoDocumento>& Tipi() const;
  /// Of the open document, else the one chosen for the next.
  [[nodiscard]] const TipoDocumento& Tipo() const;
  /// Chooses among Tipi() for the next document; false when there is none of that code.
  bool ScegliTipo(const std::string& codice);
  /// The information box of the type, line by line: what it moves, accounts, which other types
  /// share its register.
  [[nodiscard]] std::vector<std::string> InformazioniTipo() const;
  /// What the document will probably be numbered.
  [[nodiscard]] std::int64_t ProbabileNumDoc();

  // --- Head -------------------------------------------------------------------------------------

  /// Begins a document of the chosen type; false with its message when that can't be.
  bool Nuovo();
  /// A document that was not confirmed and that a stopped program left behind: begins it again
  /// after its question. False when there is none, or it is given up.
  bool Riprendi();
  /// Opens a stored one of the selected year, with its warnings.
  bool Apri(const std::string& tipoDoc, std::int64_t numDoc);
  bool Apri(const IdentitaDocumento& documento);
  /// Begins a copy of another document, as the chosen type; its rows after the question.
  bool Sdoppia(const IdentitaDocumento& origine);
  /// "Nuovo documento ...", "Documento di trasporto D.D.T. n. 12 del 15/03/2024".
  [[nodiscard]] std::string Titolo() const;
  /// Bound fields: the columns of `FattureCli` that the Part names, `NumDoc` empty for an automatic
  /// number; and `MagDest`, the warehouse that a transfer goes to.
  [[nodiscard]] Scheda& Testa();
  void TestaLasciata(std::string_view campo);
  /// How a field, a frame (`RiquadroRitenuta`, `RiquadroPagamento`, `RiquadroTotali`,
  /// `RiquadroTrasporto`, `RiquadroDestinazione`, `RiquadroCarico`) or a command is shown for the
  /// open document.
  [[nodiscard]] records::StatoCampo StatoTesta(const std::string& nome) const;
  /// "sul cliente è impostato il cod.esenz.IVA ..."; empty without.
  [[nodiscard]] std::string NotaEsenzione() const;
  [[nodiscard]] TotaliVivi Totali() const;
  /// Of the whole document, amount and percent of what it comes to; nothing below level 50, nor on
  /// the suppliers' side.
  [[nodiscard]] std::optional<Importo> Margine() const;
  [[nodiscard]] std::optional<Importo> MarginePerc() const;
  /// Places of delivery of the party, to be chosen by `Destinazione`.
  [[nodiscard]] std::vector<DestinazioneMerce> Destinazioni() const;
  /// Name and address of the party, line by line; none when it isn't known.
  [[nodiscard]] std::vector<std::string> DatiParte() const;

  // --- Attachments ------------------------------------------------------------------------------

  [[nodiscard]] const std::vector<Allegato>& Allegati() const;
  Esito<bool> AggiungiAllegato(const std::filesystem::path& file);
  Esito<bool> TogliAllegato(std::size_t indice);

  // --- Rows -------------------------------------------------------------------------------------

  [[nodiscard]] const std::vector<RigaDocumento>& Righe() const;
  bool PNuovaRiga();
  bool ApriRiga(std::size_t indice);
  [[nodiscard]] bool RigaNuova() const;
  /// Bound fields: `Posi`, `CodiceRiga`, `CodPrCli`, `Descrizione`, `um`, `Quantita`, `Prezzo`,
  /// `Sc1`, `Sc2`, `Sc3`, `Importo`, `Conto`, `CodIva`, `Costo`, `Prov`, `QuantitaA`, `PrezzoA`,
  /// `Lottox`, `DtScad`, `Campo1`, `Campo2`.
  [[nodiscard]] Scheda& Riga();
  void RigaLasciata(std::string_view campo);
  [[nodiscard]] records::StatoCampo StatoRiga(const std::string& nome) const;
  /// "nuova riga", where the row's price comes from, what is said on opening it.
  [[nodiscard]] std::string NotaRiga() const;
  /// Nothing without a product in the open row.
  [[nodiscard]] std::optional<AccantoRiga> Accanto() const;
  bool ConfermaRiga(std::string* campo = nullptr);
  bool EliminaRiga();
  void AnnullaRiga();
  /// The one way in for sources of rows: a new row with what they give and the proposals for the
  /// rest, open to be looked at.
  bool RigaDa(const ValoriRiga& valori);
  /// The same for many, confirmed at once; the first refused stops, and then none is added: the
  /// refusal tells which.
  std::optional<Errore> RigheDa(const std::vector<ValoriRiga>& righe);
  /// A code from a scanner, ended by Enter: the product, quantity 1. With `veloce` the row is
  /// confirmed, or 1 is added to the row that has it. False (told) when there is no such product.
  bool Letto(const std::string& codice, bool veloce);

  // --- Options, kept in the settings ------------------------------------------------------------

  /// EsistenzaNegativa, StampoDataOra, ScadenzePagamento.
  [[nodiscard]] bool Opzione(std::string_view chiave) const;
  void Opzione(std::string_view chiave, bool valore);

  // --- Confirmation -----------------------------------------------------------------------------

  bool Conferma(std::string* campo = nullptr);
  [[nodiscard]] IdentitaDocumento Confermato() const;
  /// What the last confirmation or deletion did, a line a document; whoever sells a hundred times a
  /// day needs no notice for it.
  [[nodiscard]] const std::vector<std::string>& Fatto() const;
  bool Elimina();
  void Abbandona();

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::documents
