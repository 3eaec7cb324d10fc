// What the parts of FattureCli share: the open document, its open row, what its type and party say.
#pragma once

#include <array>
#include <map>
#include <set>
#include <utility>

#include "core/archives/CodiciNoti.h"
#include "core/records/Bozza.h"
#include "core/records/Righe.h"
#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "documents/entry/FattureCli.h"
#include "documents/entry/RigheDocumento.h"
#include "documents/entry/ScriviDocumento.h"
#include "documents/totals/TotaliDocumento.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::documents {

/// Level below which invoices aren't issued and margins aren't seen.
inline constexpr int kLivelloFatture = 50;
inline constexpr const char* kMagDest = "MagDest";
/// Places between the positions of two rows.
inline constexpr std::int64_t kPassoPosi = 100;
/// The greatest discount, percent.
inline constexpr Importo kTutto = Importo::DaDecimillesimi(100 * Importo::kScala);
inline constexpr const char* kAvvisoComponenti =
    "Attenzione: si tratta di un movimento automatico di scarico componenti correlato ad un carico "
    "a lotti: eliminandolo si perdono informazioni relative alla rintracciabilità";

/// Columns that name a code, with the source of their field (core/archives/FonteCodici.h).
struct CodiceTesta {
  const char* campo;
  const char* didascalia;
  const char* fonte;
};
inline constexpr std::array<CodiceTesta, 9> kCodiciTesta = {
    {{"Mag", "Magazzino", "magazzini"},
     {"Pagamento", "Pagamento", "pagamenti"},
     {"Agente", "Agente", "agenti"},
     {"CodiceCausaleTrasporto", "Causale trasporto", "causaliTrasporto"},
     {"CodiceVettore", "Vettore", "vettori"},
     {"Porto", "Porto", "porti"},
     {"CodAspetto", "Aspetto dei beni", "aspetti"},
     {"RaCod", "Ritenuta", "ritenute"},
     {"RaCod2", "Ritenuta 2", "ritenute"}}};

/// Name of a row's code among those without a record.
std::string CodicePerduto(const std::string& campo, const std::string& codice);

/// A document that was written with another one.
struct Legato {
  IdentitaDocumento identita;
  OrigineDocumento origine = OrigineDocumento::Digitato;
  Data dt;
  std::string mag;
  /// "21 n. 3 del 15/03/2024"
  [[nodiscard]] std::string Nome() const;
};

struct FattureCli::Interno {
  explicit Interno(Ambiente& ambienteUsato);

  // --- State ------------------------------------------------------------------------------------

  void Avviso(const std::string& testo) const { documento.Avviso(testo); }
  void ChiudiRecord() noexcept;
  /// Stops what can't be done to the document as a whole, telling why where there is one.
  bool Ferma();
  [[nodiscard]] std::string T(std::string_view campo) const { return testa.Testo(campo); }
  [[nodiscard]] bool B(std::string_view campo) const { return testa.Leggi(campo).Booleano(); }
  [[nodiscard]] Importo I(std::string_view campo) const { return testa.Leggi(campo).Importo(); }
  [[nodiscard]] Data D(std::string_view campo) const { return testa.Leggi(campo).Data(); }
  [[nodiscard]] std::int64_t N(std::string_view campo) const { return testa.Leggi(campo).Intero(); }
  [[nodiscard]] IdentitaDocumento Identita() const { return {tipo.cod, anno, numeroRecord}; }
  [[nodiscard]] bool Livello() const { return ambiente.HaDiritto(kLivelloFatture); }
  [[nodiscard]] bool DiClienti() const { return T("CFP") == "C"; }
  [[nodiscard]] bool DiFornitori() const { return T("CFP") == "F"; }
  [[nodiscard]] bool Carico() const { return T("CS") == "C"; }
  [[nodiscard]] bool Scarico() const { return T("CS") == "S"; }
  /// As the open document has it, else as the next one will.
  [[nodiscard]] std::string Senso() const { return documento.Aperto() ? T("CS") : tipo.cs; }
  [[nodiscard]] bool EsistenzaIniziale() const { return UgualeTesto(tipo.cod, kEsistenzaIniziale); }
  /// FATTURA, FATTACC, and BOLLA to be invoiced: what has totals, payment, withholdings.
  [[nodiscard]] bool DaFatturare() const;
  /// "Magazzino da caricare", "Magazzino da scaricare".
  [[nodiscard]] std::string EtichettaMagazzino() const;
  /// "Documento di trasporto D.D.T. n. 12 del 15/03/2024".
  [[nodiscard]] std::string NomeDocumento(std::int64_t numero) const;

  // --- Opening ----------------------------------------------------------------------------------

  void LeggiTuttiITipi();
  /// Takes the chosen type as it is now; false (told) when it is gone.
  bool RileggiTipo(const std::string& codice);
  /// Why a document of the chosen type can't be started.
  std::optional<std::string> NonIniziabile();
  void TestaDalTipo();
  /// Told of types tied to an unload of components.
  void AvvisaComponenti() const;
  bool IniziaNuovo(const std::string& titoloNuovo);
  Rs TrovaTesta(const IdentitaDocumento& cercato) const;
  void CaricaTesta(const Rs& record);
  /// Codes in the rows that have no record any more: they may stay as they are.
  void LeggiCodiciPerduti();
  void AvvisaContabilita() const;

  // --- Head -------------------------------------------------------------------------------------

  /// Reads the record of the party; an empty result when there is none.
  void LeggiParte();
  [[nodiscard]] bool HaParte() const { return parte.Aperto() && !parte.Eof(); }
  /// A field of the party's record; Null without it.
  [[nodiscard]] Valore DellaParte(std::string_view campo) const;
  void ParteScelta();
  void DestinazionePredefinita();
  void ParteCliente();
  void ParteTrasporto();
  void ParteFattura();
  void DestinazioneScelta();
  void VettoreScelto();
  /// Puts the text of a code of an archive into another field of the head.
  void Descrivi(const char* campoCodice, const char* tabella, const char* campoTesto,
                const char* colonna = "Descrizione");
  void AvvisaData();

  // --- Rows -------------------------------------------------------------------------------------

  /// What a proposal has to tell or ask; sources of many rows tell it once, and ask nothing.
  struct Proposta {
    std::vector<std::string> avvisi;
    bool haDistinta = false;
  };
  [[nodiscard]] RigaDocumento RigaVuota(std::int64_t posi);
  /// What follows from the product of a row.
  void Proponi(RigaDocumento& una, Proposta& proposta);
  void ProponiDaProdotto(RigaDocumento& una, const warehouse::Prodotto& prodotto);
  void ProponiPrezzoCarico(RigaDocumento& una, const warehouse::Prodotto& prodotto,
                           Proposta& proposta);
  void ProdottoLasciato();
  /// The last cost of a product, else the one typed.
  [[nodiscard]] Importo CostoDi(const warehouse::Prodotto& prodotto);
  void ChiediDistinta(RigaDocumento& una);
  void CalcolaImportoRiga(std::string_view campo);
  void MostraRiga(const RigaDocumento& una);
  [[nodiscard]] RigaDocumento RigaDaValori(const ValoriRiga& valori, std::int64_t posi,
                                           Proposta& proposta);
  void Sovrascrivi(RigaDocumento& una, const ValoriRiga& valori) const;
  /// The checks of a row, in their order: warnings and questions, then what refuses it.
  std::optional<Rifiuto> ControllaLotto(RigaDocumento& una);
  std::optional<Rifiuto> ControllaRiga(const RigaDocumento& una);
  std::optional<Rifiuto> ControllaCodiciRiga(const RigaDocumento& una);
  std::optional<Rifiuto> CompletaRiga(RigaDocumento& una);
  /// Takes the rows as they would be; the open one is closed. Throws FuoriCampo, and then nothing
  /// has changed.
  void Accetta(std::vector<RigaDocumento> nuove);
  /// Such a code stands in its archive; each is looked up once a piece of work.
  bool Esiste(const char* fonte, const std::string& codice);
  const warehouse::Costi& CostiDi(const std::string& prodotto);
  /// What was read of archives for a piece of work is read anew.
  void Dimentica();
  void ApriNuova(const RigaDocumento& proposta);
  /// Nothing but a code was typed into the open row, which gives way to another one.
  bool CediRiga();
  /// What of the product would be left of the stock after the rows given are unloaded.
  [[nodiscard]] Importo EsistenzaDopo(const std::string& prodotto, Importo digitata,
                                      const RigaDocumento* sostituita);
  void AvvisaEsistenza(const RigaDocumento& una);
  void CalcolaMargine(const RigaDocumento& una, AccantoRiga& visto);
  void AvvisaEsistenze(const std::vector<RigaDocumento>& aggiunte);
  /// Stock of a product as it would be without this document.
  [[nodiscard]] Importo EsistenzaSenza(const std::string& prodotto);
  /// Totals of such rows; throws FuoriCampo.
  struct Somme {
    TotaliVivi vivi;
    Importo costi;
    Importo netto;  ///< without VAT: what margins are measured on
  };
  [[nodiscard]] Somme Somma(const std::vector<RigaDocumento>& date);
  void CalcolaTotali() { somme = Somma(righe.Tutte()); }
  struct Aliquota {
    Importo perc;
    Importo percInd;
  };
  [[nodiscard]] Aliquota AliquotaDi(const std::string& codIva);

  // --- Confirmation -----------------------------------------------------------------------------

  std::optional<Rifiuto> Controlla();
  std::optional<Rifiuto> ControllaMagazzini();
  std::optional<Rifiuto> ControllaNumero();
  std::optional<Rifiuto> ControllaAggiunti();
  std::optional<Rifiuto> ControllaCodici();
  std::optional<Rifiuto> ControllaCodiciDelleRighe();
  std::optional<Rifiuto> ControllaTipo();
  /// The number typed on a new document is another one's.
  std::optional<Rifiuto> NumeroOccupato();
  bool ChiediSpeseIncasso();
  void RigeneraScadPag();
  void AvvisaCommesse() const;

  struct Scritta {
    std::int64_t numDoc = 0;
    std::int64_t id = 0;
    std::vector<std::string> avvisi;
    std::vector<std::string> annunci;
    std::vector<RigaDocumento> righe;  ///< as they were written
  };
  void ScriviTutto(Scritta& scritta);
  void ScriviTesta(Scritta& scritta);
  void ScriviRighe(Scritta& scritta);
  [[nodiscard]] std::vector<Coppia> Copiate() const;
  void SegnaOrdini(Scritta& scritta);
  void SegnaCommesse(Scritta& scritta);
  void AggiornaPrezziFornitore();
  [[nodiscard]] std::string DescrizioneAllegati(std::int64_t numero) const;
  void Annuncia(const Scritta& scritta);
  [[nodiscard]] bool EliminazioneAmmessa();

  // --- Documents tied to this one ---------------------------------------------------------------

  void LeggiLegati();
  void AvvisaLegati() const;
  /// The document that the open one was made with.
  [[nodiscard]] IdentitaDocumento Origine() const;
  /// The open document is the load that a transfer wrote.
  [[nodiscard]] bool LatoCarico() const;
  std::optional<Rifiuto> ControllaLegati();
  /// Asks what becomes of them, and takes in edit those that change; false when the user gives up
  /// or one of them is in edit elsewhere.
  bool ChiediLegati();
  bool ChiediEliminazioneLegati();
  bool BloccaLegati(const std::vector<Legato>& quali);
  [[nodiscard]] bool Cambiato() const;
  [[nodiscard]] bool ConDistinta();
  /// Components that went into that lot, those that are erased with the load aside.
  [[nodiscard]] bool ConComponenti(std::int64_t nl1);
  [[nodiscard]] Importo CostoComponente(const warehouse::Prodotto& componente);
  [[nodiscard]] std::vector<RigaDocumento> RigheComponenti(
      const std::vector<RigaDocumento>& caricate);
  void ScriviComponenti(Scritta& scritta);
  /// The rows of the other side as they are to be: what it has of its own stays.
  [[nodiscard]] std::vector<RigaDocumento> RigheGemelle(const std::vector<RigaDocumento>& mie);
  void ScriviGemello(Scritta& scritta);
  void CancellaLegati();

  // --- Copies and drafts ------------------------------------------------------------------------

  void CopiaTesta(const Rs& origine);
  /// Keeps what was typed against a killed program.
  void Segna() noexcept;

  Ambiente& ambiente;
  Archivio& tessarc;
  records::DocumentoAperto documento;
  Scheda& testa = documento.Testa();
  records::Righe<RigaDocumento> righe{CampiRigaForma()};
  Scheda& riga = righe.Riga();
  fenalto::Allegati allegati;
  records::Bozza<RigaDocumento> bozza{ambiente, "FattureCli", CampiRigaTabella()};

  std::vector<TipoDocumento> tipi;
  TipoDocumento tipo;  ///< of the open document, else the one chosen for the next
  int anno = 0;
  std::int64_t numeroRecord = 0;
  std::int64_t idRecord = 0;
  IdentitaDocumento confermato;
  std::vector<std::string> fatto;
  std::string titoloNuovo;
  Rs parte;
  Data dataAvvisata;
  bool speseChieste = false;
  std::vector<Coppia> copiateRecord;  ///< what the stored rows repeat of the stored head
  std::map<std::string, Importo, std::less<>> quantitaRecord;  ///< of stored rows, by product
  std::string magRecord;
  std::string csRecord;
  std::set<std::string, std::less<>> perduti;  ///< codes of stored rows without a record

  std::vector<Legato> componenti;  ///< unloads of the components of this load
  std::optional<Legato> gemello;   ///< the other side of this transfer
  bool rifaComponenti = false;
  bool eliminaComponenti = false;
  std::vector<Esito<Blocco, Detentore>> bloccati;

  std::string provenienza;  ///< of the open row's values
  std::string codiceVisto;  ///< product of the open row that was last proposed for
  Importo prezzoVisto;      ///< last price and quantity copied to the purchase side
  Importo quantitaVista;

  Somme somme;
  RegolaImporto regola;
  std::map<std::string, Aliquota, std::less<>> aliquote;       ///< by VAT code
  std::map<std::string, warehouse::Costi, std::less<>> costi;  ///< by product
  std::set<std::string, std::less<>> noti;                     ///< codes that exist
  /// Stock and costs last shown, of a product and a warehouse.
  std::optional<std::pair<std::string, AccantoRiga>> accanto;
};

}  // namespace fenalto::documents
