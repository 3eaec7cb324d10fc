// What the parts of RegistrazioneIva share: the register chosen, the open registration, its open
// row.
#pragma once

#include <map>
#include <set>

#include "core/records/Bozza.h"
#include "core/records/DocumentoAperto.h"
#include "core/records/Righe.h"
#include "core/store/BasiDati.h"
#include "duedates/schedules/CreaScadenze.h"
#include "vat/codes/CodiciIva.h"
#include "vat/codes/TipiRegistro.h"
#include "vat/entry/RegistrazioneIva.h"
#include "vat/postings/RegistrazioniAutomatiche.h"
#include "vat/postings/SeguitoFattura.h"

namespace fenalto::vat {

/// Keys of the station's options.
inline constexpr std::string_view kVerificaTotale = "TotaleXVerifica";
inline constexpr std::string_view kVerificaFornitore = "VerifFatForn";

struct RegistrazioneIva::Interno {
  explicit Interno(Ambiente& ambienteUsato);

  // --- State ------------------------------------------------------------------------------------

  void ChiudiRecord() noexcept;
  void Avviso(const std::string& testo) const { documento.Avviso(testo); }
  /// Stops what can't be done to the registration as a whole, telling why where there is one.
  bool Ferma();
  [[nodiscard]] bool Aperta() const { return documento.Aperto(); }
  [[nodiscard]] bool Tipo(std::initializer_list<std::string_view> tipi) const;
  [[nodiscard]] std::string T(std::string_view campo) const { return testa.Testo(campo); }
  [[nodiscard]] bool B(std::string_view campo) const { return testa.Leggi(campo).Booleano(); }
  [[nodiscard]] Importo I(std::string_view campo) const { return testa.Leggi(campo).Importo(); }
  [[nodiscard]] Data D(std::string_view campo) const { return testa.Leggi(campo).Data(); }
  /// A field of the party's record in `Clienti` or `Fornitori`; empty on an account or when
  /// unknown.
  [[nodiscard]] Valore DellaParte(std::string_view campo) const;
  [[nodiscard]] bool AutomaticoIntra() const;
  [[nodiscard]] bool OpzioneStazione(std::string_view chiave) const;
  void ScriviOpzione(std::string_view chiave, bool attiva);

  // --- Register and opening
  // -----------------------------------------------------------------------

  /// What is to be known before registering on a register of that type.
  void AvvisaTipo();
  bool LeggiRegistro(const std::string& riva);
  Rs TrovaTestata(std::int64_t numDoc) const;
  void PreparaNuova();
  void PreparaOpzioni();
  /// The code that marks receipts to be ventilated is made the first time it is needed.
  void AssicuraCodiceVentilazione();
  void CaricaTesta(const Rs& record);
  /// What the giros of the open registration have moved from its party.
  void LeggiGirate();

  // --- Draft
  // --------------------------------------------------------------------------------------

  void NotaBozza();
  void IniziaBozza();
  /// Keeps what was typed, so that a killed program doesn't lose it.
  void Segna();
  /// Opens the record of a draft; why that can't be, empty when it is open.
  std::string ApriPerBozza(RegistrazioneIva& caso, const records::BozzaLasciata& lasciata,
                           bool& resta);
  void RiprendiStato(const records::BozzaLasciata& lasciata);

  // --- Head -------------------------------------------------------------------------------------

  [[nodiscard]] std::string DescrizioneProposta() const;
  /// The description follows number and date: in silence while nobody touched it.
  void AggiornaDescrizione(std::string_view domanda);
  void ImponiDescrizione(const std::string& testo);
  void CambiaDescrizioni(const std::string& prima, const std::string& adesso);
  void ParteScelta();
  /// On sales the invoice's day is proposed with that of the registration until another is typed.
  void ProponiDataFattura();
  void NumeroLasciato();
  void DataLasciata();
  /// Refuses a date in a period that is settled; says so.
  bool AvvisaPeriodoChiuso();
  /// A date before that of the last registration of the register: said once a date.
  void AvvisaDataInferiore();
  void AvvisaDataFattura();

  // --- Rows -------------------------------------------------------------------------------------

  void CalcolaTotali() { totali = Complete(RigheCompilate()); }
  /// The double entry of such rows; none while it can't be made. Throws FuoriCampo.
  [[nodiscard]] RigheComplete Complete(const std::vector<RigaIva>& compilate) const;
  void CalcolaIvaRiga();
  [[nodiscard]] std::pair<Importo, Importo> IvaPrevista(Importo imponibile,
                                                        const std::string& codIva) const;
  [[nodiscard]] std::pair<Importo, Importo> DividiIva(Importo iva, const std::string& codIva) const;
  std::optional<Rifiuto> ControllaRiga();
  [[nodiscard]] DocumentoIva Documento(std::int64_t numDoc) const;
  [[nodiscard]] std::vector<RigaIva> RigheCompilate() const;
  /// Taxable rows of the party's last registration here, while they can be proposed.
  [[nodiscard]] std::vector<RigaIva> RigheDellUltima() const;

  // --- Checks
  // -------------------------------------------------------------------------------------

  /// The checks of a confirmation, in their order.
  std::optional<Rifiuto> Controlla();
  std::optional<Rifiuto> ControllaData();
  std::optional<Rifiuto> ControllaRegistro();
  std::optional<Rifiuto> ControllaParte();
  std::optional<Rifiuto> ControllaRighe();
  std::optional<Rifiuto> ControllaIncasso();
  std::optional<Rifiuto> ControllaPeriodoIncasso();
  std::optional<Rifiuto> ControllaContoParte();
  std::optional<Rifiuto> ControllaIntra();
  std::optional<Rifiuto> ControllaBollaDoganale();
  std::optional<Rifiuto> ControllaRitenute();
  std::optional<Rifiuto> ControllaContiFornitori();
  std::optional<Rifiuto> ControllaProtocolloForzato();
  std::optional<Rifiuto> ControllaDoppioFornitore();
  std::optional<Rifiuto> ControllaTotale();
  std::optional<Rifiuto> ControllaVariazione();
  std::optional<Rifiuto> CodiceIgnotoDellaRiga(const RigaIva& riga);
  std::optional<Rifiuto> ControllaMancaData();
  /// Everything that the registration names is in its archive; looked at again under the lock.
  std::optional<Rifiuto> ControllaCodici();
  std::optional<Rifiuto> ControllaRiepilogativo();
  std::optional<Rifiuto> ControllaCodiciTesta();
  /// What the codes of the head have in their own records for what is written with it.
  std::optional<Rifiuto> ControllaCodiciSeguito();
  /// Account and causal of a payment code that is registered at once.
  std::optional<Rifiuto> ControllaPagamentoSubito(const char* campo);
  /// What the second half of a reverse charge is written with.
  std::optional<Rifiuto> ControllaRegistroIntra();
  /// Those that the register has as the registration is opened: a register that was brought in
  /// without any is registered on all the same.
  void LeggiCausali();
  std::optional<Rifiuto> ControllaCodiciRegistro();
  std::optional<Rifiuto> ControllaCodiciRighe();
  [[nodiscard]] bool EsisteConto(const std::string& conto) const;
  std::optional<Rifiuto> ControllaEstremi();
  std::optional<Rifiuto> ControllaStessaFattura();
  /// Another registration of the same document on a register of a year.
  std::optional<std::int64_t> StessaFattura(int annoCercato, const std::string& riva);
  [[nodiscard]] std::string EstremiFattura() const;
  /// What its due dates follow from, as text.
  [[nodiscard]] std::string BaseScadenze() const;

  // --- Confirmation -----------------------------------------------------------------------------

  struct Scritta {
    std::int64_t numDoc = 0;
    std::int64_t nProt = 0;
    LogContabile log;
    std::string descrConto;   ///< of the party: once written nothing is read that could fail
    bool conCespite = false;  ///< a new purchase on an account of depreciable goods
  };
  [[nodiscard]] std::int64_t NProtForzato() const;
  bool NumeroOccupato();
  bool ProtocolloOccupato();
  /// Asks what becomes of what was written with the stored registration, and takes it in edit;
  /// false when the user gives up, or when a part of it is in edit elsewhere. With
  /// `scadenzeToccate` due dates that can't follow are told.
  bool ChiediSeguito(std::string_view cheFare, bool scadenzeToccate);
  /// Due dates of the registration, and of what was written with it, that aren't free any more, as
  /// the question tells them.
  std::string ScadenzeCheRestano(const std::vector<RegistrazioneSeguita>& trovate);
  /// What is left of a total to be paid to the party.
  [[nodiscard]] Importo DaPagare() const;
  /// In a transaction over both databases; throws.
  Scritta Scrivi();
  void ScriviTesta(Scritta& scritta);
  /// Due dates that are kept bear the numbers of their registration.
  void RinumeraScadenze(const Scritta& scritta);
  void ScriviSeguito(Scritta& scritta);
  void ScriviScadenze(Scritta& scritta, Importo daPagare);
  void ScriviAutomatiche(Scritta& scritta);
  [[nodiscard]] int OrigineNuova() const;
  void Annuncia(const Scritta& scritta);
  [[nodiscard]] bool DiCespite() const;
  void Ricorda();

  Ambiente& ambiente;
  Archivio& tessarc;
  records::DocumentoAperto documento;
  Scheda& testa = documento.Testa();
  records::Righe<RigaIva> righe;
  Scheda& riga = righe.Riga();
  RegistroScelto registro;
  std::vector<std::string> causaliRegistro;
  const TipoRegistro* tipo = nullptr;

  int anno = 0;
  std::int64_t numeroRecord = 0;
  std::int64_t nProtRecord = 0;
  std::int64_t idRecord = 0;
  std::int64_t numeroConfermato = 0;
  bool cespiteChiesto = false;
  std::string pagamentoRecord;
  duedates::ParteScadenze parteRecord;  ///< whose due dates the stored registration has
  Importo ritenuteRecord;  ///< moved by the withholding giros of the stored registration
  std::optional<Importo> doganaRecord;  ///< moved by its customs giro, when it has one
  std::string pagamentoProposto;        ///< that of the party, as last put in
  Data dtIncassoRecord;
  std::string descrizioneProposta;  ///< the last one put in by the program
  Data dtFatProposta;               ///< likewise
  std::string scadenzeRecord;       ///< what the due dates of the stored document followed from
  std::string fatturaRecord;        ///< number, day and party of the stored invoice, as text
  bool doppioAmmesso = false;       ///< this confirmation has already asked about it
  Data dataAvvisata;
  std::map<std::string, Valore, std::less<>> ultimi;     ///< of the last registration confirmed
  std::map<std::string, Valore, std::less<>> ricordati;  ///< kept for the next entry

  std::vector<RegistrazioneSeguita> seguito;  ///< to be corrected or erased together
  std::vector<Esito<Blocco, Detentore>> bloccati;

  records::Bozza<RigaIva> bozza;
  std::set<std::int64_t> proposte;  ///< `Posi` of rows proposed and not touched
  RigheComplete totali;
};

}  // namespace fenalto::vat
