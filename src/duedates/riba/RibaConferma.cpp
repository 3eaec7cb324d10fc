// Confirming a batch: the checks and questions, the print, the file, the one transaction.
#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>

#include "core/archives/CodiciNoti.h"
#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/riba/FileDistinta.h"
#include "duedates/riba/Riba.h"
#include "duedates/riba/SegnalazioniRiba.h"
#include "duedates/riba/StampaDistinta.h"
#include "ledger/registrations/ControlliData.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::duedates {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDiversi = "DIVERSI";

constexpr const char* kNessunaScelta =
    "NON E'STATA SELEZIONATA ALCUNA RIBA\n"
    "nella griglia 'Selezione Riba' vengono visualizzati gli estremi delle fatture che sono state "
    "emesse con condizioni di pagamento di tipo riba\n"
    "per selezionarle:\n"
    "     -cliccare su una riga\n"
    "     -premere tasto barra spaziatrice per selezionare una fattura\n"
    "     ripetere l'operazione per tutte le fatture che interessano";

constexpr const char* kDefinitiva =
    "DISTINTA DEFINITIVA ?\n"
    "le scadenze selezionate verranno passate in stato=30\n"
    "per ripetere una distinta erroneamente confermata in definitiva è necessario:\n"
    "-dal menu>scadenzario>archivio scadenze\n"
    "-impostare 'anche scadenze pagate'\n"
    "-aprire ogni scadenza della distinta e modificare lo stato da 30 a 01\n"
    "-se necessario eliminare anche la registrazione contabile";

/// "24/02/26"
std::string DataCorta(Data data) {
  const std::string intera = data.Testo();
  constexpr std::size_t kGiornoMese = 6;
  return intera.empty() ? intera : intera.substr(0, kGiornoMese) + intera.substr(kGiornoMese + 2);
}

bool Cartella(const fs::path& percorso) {
  std::error_code errore;
  return !percorso.empty() && fs::is_directory(percorso, errore);
}

CreditoreRiba LeggiCreditore(Ambiente& ambiente) {
  // The blank after ragsoc1 belongs to the key.
  return {ambiente.Config("ragsoc1 "), ambiente.Config("ragsoc2"), ambiente.Config("indirizzo"),
          ambiente.Config("localita"), ambiente.Config("piva")};
}

/// The customer and its account at the bank; empty when it is gone.
DebitoreRiba LeggiDebitore(Ambiente& ambiente, const std::string& conto, std::string& iban) {
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset("SELECT * FROM Clienti WHERE " +
                                                   sql::Criterio("Cod", "=", conto));
  if (rs.Eof()) return {};
  const auto testo = [&rs](const char* campo) { return rs.Fields(campo).Testo(); };
  iban = testo("CININT") + testo("CIN") + testo("ABI") + testo("CAB") + testo("ContoBanca");
  return {testo("ragsoc1"),  testo("ragsoc2"), testo("indirizzo"), testo("cap"),
          testo("localita"), testo("prov"),    testo("piva"),      testo("ABI"),
          testo("CAB"),      testo("banca"),   testo("agenzia")};
}

ledger::RigaRegistrazione RigaCliente(const Scadenza& s, const ImpostazioniRiba& impostazioni) {
  ledger::RigaRegistrazione riga;
  riga.causale = impostazioni.causale;
  riga.descrizione =
      "ft." + s.nFat + " " + DataCorta(s.dtFat) + " sc." + DataCorta(s.dt) + " " + s.descrizione;
  riga.cfp = s.cfp;
  riga.conto = s.conto;
  riga.cfpControp = "P";
  riga.contoControp = impostazioni.contropartita;
  return riga;
}

/// Credit above zero; a negative amount goes over to the other side, so that none in the books is.
void InAvere(ledger::RigaRegistrazione& riga, Importo importo) {
  (importo.Negativo() ? riga.dare : riga.avere) = importo.Assoluto();
}

}  // namespace

bool Riba::DatiCompleti() {
  if (!banca_) return Avviso("inserire banca", "Banca");
  if (!Cartella(impostazioni_.directory) || !Cartella(fs::path(NomeFile()).parent_path())) {
    return Avviso("cartella non valida", "DirectoryRiba");
  }
  if (scelte_.empty()) return Avviso(kNessunaScelta, "GrigliaRiba");
  if (data_.Nulla()) return Avviso("manca la data della distinta", "DataDistinta");
  return true;
}

/// A code of the registration that its archive doesn't have.
std::optional<Rifiuto> Riba::CodiceIgnoto() const {
  if (!impostazioni_.registrazione) return std::nullopt;
  auto ignoto =
      archives::CodiceIgnoto(ambiente_, {"Causale", "Causale", "causali"}, impostazioni_.causale);
  if (ignoto) return ignoto;
  return archives::CodiceIgnoto(ambiente_, {"Contropartita", "Contropartita", "conti"},
                                impostazioni_.contropartita);
}

bool Riba::DatiContabili() {
  if (!impostazioni_.registrazione) return true;
  if (impostazioni_.causale.empty() || impostazioni_.contropartita.empty()) {
    return Avviso("Mancano dati per registrazione contabile",
                  impostazioni_.causale.empty() ? "Causale" : "Contropartita");
  }
  if (!ambiente_.Euro()) {
    return Avviso("lo scadenzario non funziona in lire: selezionare un anno in euro");
  }
  campoRifiutato_ = "DataDistinta";
  if (ledger::ControlloAnno(ambiente_, data_, true)) return false;
  campoRifiutato_.clear();
  ledger::ControlloDataGiornale(ambiente_, data_);
  return true;
}

DatiDistinta Riba::Prepara() {
  DatiDistinta dati;
  dati.numero = Numero();
  dati.banca = *banca_;
  dati.nomeFile = NomeFile();
  dati.vista = Ordinate();
  dati.distinta.data = data_;
  dati.distinta.banca = banca_->conto;
  dati.distinta.creditore = LeggiCreditore(ambiente_);
  dati.distinta.segno = Segno();
  for (const Scadenza& s : dati.vista) {
    std::string iban;
    dati.distinta.ricevute.push_back(
        {s.dt, s.importoE, s.descrizione, LeggiDebitore(ambiente_, s.conto, iban)});
    dati.iban.push_back(iban);
  }
  dati.file = ComponiFileRiba(dati.distinta);
  dati.segnalazioni =
      SegnalazioniRiba(ambiente_, dati.distinta, dati.vista, impostazioni_.registrazione);
  dati.noteFile = SegnalazioniFile(dati.distinta, dati.file);
  return dati;
}

bool Riba::Chiede(const DatiDistinta& dati) {
  const std::string domanda = kDefinitiva + AvvertenzeRiba(dati.segnalazioni, dati.noteFile);
  return ambiente_.Dialogo().Conferma(domanda) && DatiContabili();
}

std::int64_t Riba::Registra(const DatiDistinta& dati) {
  ledger::TestaRegistrazione testa;
  testa.anno = ambiente_.Anno();
  testa.dt = data_;
  testa.cfp = "P";
  testa.conto = impostazioni_.contropartita;
  testa.cfpA = "C";
  testa.contoA = kDiversi;
  testa.origine = ledger::Origine::DistintaRiba;
  std::vector<ledger::RigaRegistrazione> righe;
  bool unCliente = true;
  for (const Scadenza& s : dati.vista) {
    ledger::RigaRegistrazione riga = RigaCliente(s, impostazioni_);
    riga.posi = static_cast<std::int64_t>(righe.size()) + 1;
    InAvere(riga, s.importoE);
    unCliente = unCliente && s.conto == dati.vista.front().conto;
    righe.push_back(std::move(riga));
  }
  ledger::RigaRegistrazione totale;
  totale.posi = static_cast<std::int64_t>(righe.size()) + 1;
  totale.causale = impostazioni_.causale;
  totale.descrizione = Descrizione();
  totale.cfp = "P";
  totale.conto = impostazioni_.contropartita;
  InAvere(totale, -dati.Totale());
  totale.cfpControp = "C";
  totale.contoControp = unCliente ? dati.vista.front().conto : kDiversi;
  righe.push_back(std::move(totale));
  return ledger::ScriviRegistrazione(ambiente_, testa, righe);
}

/// Under the numbering lock. Why nothing was written, or empty and `numDoc` told.
std::string Riba::Scrivi(const DatiDistinta& dati, std::int64_t& numDoc) {
  Archivio& scadenzario = ambiente_.ArchivioDi("scadenzario");
  // Another station may have erased a code since the first look.
  if (auto ignoto = CodiceIgnoto()) return ignoto->messaggio;
  const auto banca = LeggiBanca(ambiente_, dati.banca.cod);
  if (!banca) return "la banca " + dati.banca.cod + " è stata eliminata da un'altra postazione";
  if (banca->nUltDistinta != dati.banca.nUltDistinta) {
    return "il numero " + std::to_string(dati.numero) + " è già di un'altra distinta della banca " +
           banca->nome + ", confermata da un'altra postazione: la prossima è la n. " +
           std::to_string(banca->nUltDistinta + 1) +
           "\nConfermare ancora: la distinta viene ristampata con il suo numero.";
  }
  if (*banca != dati.banca) {
    return "la banca " + banca->nome +
           " è stata modificata da un'altra postazione: confermare ancora, la distinta viene "
           "ristampata";
  }
  for (const Scadenza& s : dati.vista) {
    if (auto cambiata = ScadenzaCambiata(ambiente_, s)) return *cambiata;
    AggiornaScadenza(ambiente_, s.numero,
                     {{"Stato", kStatoPagata},
                      {"BancaPresentaz", banca->cod},
                      {"Ndistinta", dati.numero},
                      {"DtPres", data_}});
  }
  scadenzario.Esegui("update Banche set " + sql::Criterio("NUltDistinta", "=", dati.numero) +
                     " where " + sql::Criterio("Cod", "=", banca->cod));
  if (impostazioni_.registrazione) numDoc = Registra(dati);
  return {};
}

/// Everything before the writing; false when it was stopped, and told why.
bool Riba::Pronta(DatiDistinta& dati, StampaDistinta& stampa) {
  // The number on the print is to be the bank's next now.
  RileggiBanca();
  if (!DatiCompleti()) return false;
  dati = Prepara();
  if (const std::string no = ImpedimentiRiba(dati.distinta, dati.file); !no.empty()) {
    return Avviso(no);
  }
  // Before anything is on paper.
  if (const auto ignoto = CodiceIgnoto()) return Avviso(ignoto->messaggio, ignoto->campo);
  return stampa.Prova() && Chiede(dati);
}

/// The batch stands: what fails here only isn't told or printed.
void Riba::Racconta(const DatiDistinta& dati, StampaDistinta& stampa, std::int64_t numDoc) {
  scritto_ = "distinta n. " + std::to_string(dati.numero) + ": " +
             std::to_string(dati.vista.size()) + " RiBa memorizzate su file " + dati.nomeFile;
  if (numDoc != 0) {
    scritto_ += ", creato articolo " + std::to_string(numDoc);
    ambiente_.Dialogo().Annuncia("creato articolo " + std::to_string(numDoc));
  }
  if (const std::string note = MessaggioFile(dati.noteFile); !note.empty()) Avviso(note);
  try {
    stampa.Definitiva(numDoc);
    RileggiBanca();
    Rileggi();
  } catch (const std::exception& errore) {
    Avviso("la distinta è confermata (" + scritto_ +
           "), ma la stampa finale non è riuscita: " + errore.what());
  }
}

bool Riba::Conferma(reports::FabbricaUscite& uscite) {
  DatiDistinta dati;
  StampaDistinta stampa(ambiente_, uscite, dati, forma_);
  std::int64_t numDoc = 0;
  std::optional<FileDistinta> file;
  bool rifiutata = false;
  const auto scrivi = [&] {
    std::string rifiuto = Scrivi(dati, numDoc);
    if (rifiuto.empty()) {
      // The file last, so that it stands alone on the disk for the shortest time.
      const auto scritto = file.emplace(dati.nomeFile).Scrivi(dati.file);
      if (!scritto) rifiuto = scritto.Errore().messaggio;
    }
    rifiutata = !rifiuto.empty();
    return rifiuto;
  };
  const std::string nonRiuscita = "conferma della distinta non riuscita: ";
  const bool confermata = records::Esegui(ambiente_, {.nonRiuscita = nonRiuscita,
                                                      .numerazioni = {"ARTICOLI"},
                                                      .prima = [&] { return Pronta(dati, stampa); },
                                                      .scrivi = scrivi,
                                                      .annulla = [&] { file.reset(); }});
  if (rifiutata) {
    return records::Tenta(ambiente_, {nonRiuscita}, [&] {
      RileggiBanca();
      Rileggi();
      return false;
    });
  }
  if (!confermata) return false;
  dati.conservato = file->Precedente().string();
  file->Tieni();
  scelte_.clear();
  Racconta(dati, stampa, numDoc);
  return true;
}

}  // namespace fenalto::duedates
