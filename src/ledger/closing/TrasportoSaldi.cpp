#include "ledger/closing/TrasportoSaldi.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <system_error>

#include "core/records/Conferma.h"
#include "core/session/Ditte.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/SaldoConto.h"
#include "ledger/closing/Chiusure.h"
#include "ledger/closing/RegistrazioniEliminate.h"

namespace fenalto::ledger {

namespace {

namespace fs = std::filesystem;

constexpr const char* kNomeDb = "NuovoNomeDbCont2Saldi";
constexpr const char* kAnnoSaldi = "NuovoAnnoSaldi";
constexpr const char* kArchivioScadenze = "Scad32.mdb";
constexpr std::chrono::seconds kAttesaAltrui{10};
constexpr std::int64_t kOgniApertura = 50;

std::string NonRiuscito() {
  return "trasporto dei saldi non riuscito: ";
}

bool StessoFile(const fs::path& a, const fs::path& b) {
  std::error_code errore;
  return a == b || fs::equivalent(a, b, errore);
}

void CreaCausale(Archivio& tessarc, std::string_view cod, const char* descrizione) {
  const std::string sua = sql::Criterio("Cod", "=", cod);
  if (!tessarc.Singolo("select 1 from Causali where " + sua).Nullo()) return;
  tessarc.Inserisci("Causali", {{"Cod", cod}, {"Descrizione", descrizione}, {"Ripete", true}});
}

std::string DiApertura(int anno, std::string_view causale) {
  return sql::Criterio("Causale", "=", causale) + " and " + sql::Criterio("Anno", "=", anno);
}

}  // namespace

TrasportoSaldi::TrasportoSaldi(Ambiente& ambiente) : ambiente_(ambiente) {
  dati_.Aggiungi("DtSaldi", Tipo::Data);
  dati_.Aggiungi("Contropartita", Tipo::Testo);
  dati_.Aggiungi(kAnnoSaldi, Tipo::Intero);
  dati_.Aggiungi("TrasportoDefinitivo", Tipo::Booleano);
  dati_.Aggiungi(kNomeDb, Tipo::Testo);
  dati_.Scrivi("DtSaldi", Data::DaGma(1, 1, ambiente.Anno() + 1).value());
  dati_.Scrivi("Contropartita", ambiente.Config("ContropartitaApertura"));
  dati_.Scrivi(kAnnoSaldi, ambiente.Anno() + 1);
  dati_.Scrivi(kNomeDb, ambiente.PercorsoDb("tessarc").string());
}

int TrasportoSaldi::AnnoNuovo() const {
  return static_cast<int>(dati_.Leggi(kAnnoSaldi).Intero());
}

std::string TrasportoSaldi::Causale() const {
  return std::string(Definitivo() ? kCausaleApertura : kCausaleAperturaProvvisoria);
}

void TrasportoSaldi::CampoLasciato(const std::string& campo) {
  if (campo == "Contropartita") {
    ambiente_.ScriviImpostazione({}, "config", "ContropartitaApertura",
                                 dati_.Testo("Contropartita"));
  } else if (campo == kAnnoSaldi) {
    const Data dt = dati_.Leggi("DtSaldi").Data();
    const auto spostata = Data::DaGma(dt.Giorno(), dt.Mese(), AnnoNuovo());
    if (!dt.Nulla() && spostata) dati_.Scrivi("DtSaldi", *spostata);
  }
}

void TrasportoSaldi::LetturaSaldi() {
  lista_ = VociDaMuovere(ambiente_.ArchivioDi("tessarc"), ambiente_.Anno()).DeiMastriPatrimoniali();
}

void TrasportoSaldi::TogliSaldo(std::size_t riga) {
  if (riga < lista_.size()) lista_.erase(lista_.begin() + static_cast<std::ptrdiff_t>(riga));
}

std::vector<fs::path> TrasportoSaldi::ArchiviTrovati() const {
  std::vector<fs::path> trovati;
  const Ditte ditte(ambiente_.CartellaProgramma());
  for (const DittaTrovata& ditta : ambiente_.DitteTrovate()) {
    if (const auto percorsi = ditte.Percorsi(ditta.nome)) {
      trovati.push_back(percorsi.Valore().tessarc);
    }
  }
  return trovati;
}

bool TrasportoSaldi::Rifiuta(const std::string& testo, const std::string& campo) {
  campoRifiutato_ = campo;
  ambiente_.Dialogo().Messaggio(testo, Icona::Avviso);
  return false;
}

bool TrasportoSaldi::ChiediConferma() {
  std::string testo =
      Definitivo() ? "E'stato impostato 'trasporto DEFINITIVO saldi' (causale APE) "
                   : "(è stato impostato 'trasporto NON DEFINITIVO saldi' (causale APEX) : le "
                     "registrazioni non verranno prese in considerazione";
  testo += "\nCONFERMA TRASPORTO SALDI APERTURA \nDA " + ambiente_.PercorsoDb("tessarc").string() +
           " anno " + std::to_string(ambiente_.Anno()) + "\nSU " + dati_.Testo(kNomeDb) + " anno " +
           std::to_string(AnnoNuovo());
  return ambiente_.Dialogo().Conferma(testo);
}

bool TrasportoSaldi::ApriDestinazione(Destinazione& destinazione) {
  const fs::path file = dati_.Testo(kNomeDb);
  if (StessoFile(file, ambiente_.PercorsoDb("tessarc"))) {
    destinazione.basi = &ambiente_.Basi();
    return true;
  }
  PercorsiArchivi percorsi{file, file.parent_path() / kArchivioScadenze};
  const Ditte ditte(ambiente_.CartellaProgramma());
  for (const DittaTrovata& ditta : ambiente_.DitteTrovate()) {
    const auto suoi = ditte.Percorsi(ditta.nome);
    if (suoi && StessoFile(suoi.Valore().tessarc, file)) percorsi = suoi.Valore();
  }
  auto aperta = ambiente_.ApriAltre(percorsi);
  if (!aperta) {
    return Rifiuta("errore su apertura database nuovo esercizio:" + aperta.Errore().messaggio,
                   kNomeDb);
  }
  destinazione.aperta = std::move(aperta).Valore();
  destinazione.basi = destinazione.aperta.get();
  return true;
}

bool TrasportoSaldi::AnnoAdatto(const Destinazione& destinazione) {
  const std::string anno = std::to_string(AnnoNuovo());
  const Valore euro = destinazione.Tessarc().Singolo("select Euro from Anni where " +
                                                     sql::Criterio("Anno", "=", AnnoNuovo()));
  if (euro.Nullo()) {
    return Rifiuta("L'esercizio anno " + anno + " sull'archivio " + dati_.Testo(kNomeDb) +
                       " non è stato creato",
                   kAnnoSaldi);
  }
  if (ambiente_.Euro() && !euro.Booleano()) {
    return Rifiuta("Non si possono trasportare saldi da una contabilità in EURO ad una in LIRE",
                   kAnnoSaldi);
  }
  return true;
}

bool TrasportoSaldi::DatiAdatti(const Destinazione& destinazione) {
  const bool propria = destinazione.basi == &ambiente_.Basi();
  if (propria && AnnoNuovo() == ambiente_.Anno()) {
    return Rifiuta("l'anno che riceve i saldi è lo stesso da cui si leggono", kAnnoSaldi);
  }
  const std::string conto = dati_.Testo("Contropartita");
  if (destinazione.Tessarc()
          .Singolo("select Cod from Conti where " + sql::Criterio("Cod", "=", conto))
          .Nullo()) {
    return Rifiuta("il conto " + conto + " non esiste nel piano dei conti", "Contropartita");
  }
  const Data dt = dati_.Leggi("DtSaldi").Data();
  if (dt.Anno() != AnnoNuovo()) {
    return Rifiuta("la data " + dt.Testo() + " non è dell'anno " + std::to_string(AnnoNuovo()) +
                       ", che è quello che riceve i saldi",
                   "DtSaldi");
  }
  // Provisional openings are never on the journal.
  return !propria || !Definitivo() || DentroGiornaleStampato(ambiente_, AnnoNuovo(), dt);
}

bool TrasportoSaldi::Controlla(Destinazione& destinazione) {
  campoRifiutato_.clear();
  if (dati_.Leggi("DtSaldi").Data().Nulla() || dati_.Testo("Contropartita").empty()) {
    return Rifiuta("manca contropartita o data",
                   dati_.Testo("Contropartita").empty() ? "Contropartita" : "DtSaldi");
  }
  if (lista_.empty()) return Rifiuta("i saldi sono tutti a zero", "pLetturaSaldi");
  if (dati_.Testo(kNomeDb).empty()) return Rifiuta("manca nome db", kNomeDb);
  if (!ChiediConferma() || !ApriDestinazione(destinazione)) return false;
  Archivio& tessarc = destinazione.Tessarc();
  const auto cisono = [&](std::string_view causale) {
    return !tessarc
                .Singolo("select top 1 1 from Movimenti where " + DiApertura(AnnoNuovo(), causale))
                .Nullo();
  };
  if (Definitivo() && cisono(kCausaleApertura) &&
      !ambiente_.Dialogo().Conferma("sull'anno " + std::to_string(AnnoNuovo()) +
                                    " ci sono già registrazioni di apertura definitive\n"
                                    "Proseguo ugualmente")) {
    return false;
  }
  if (!AnnoAdatto(destinazione) || !DatiAdatti(destinazione)) return false;
  if (cisono(kCausaleAperturaProvvisoria)) {
    ambiente_.Dialogo().Messaggio(
        "Le registrazioni della precedente apertura provvisoria (causale=APEX) verranno eliminate");
  } else {
    ambiente_.Dialogo().Annuncia("non ci sono articoli con causale APEX");
  }
  return true;
}

std::int64_t TrasportoSaldi::TogliProvvisorie(Archivio& tessarc) {
  RegistrazioniEliminate provvisorie(ambiente_, tessarc);
  const std::string sono = DiApertura(AnnoNuovo(), kCausaleAperturaProvvisoria);
  const std::int64_t quante = provvisorie.Elimina(
      AnnoNuovo(), "NumDoc in (select Movimenti.NumDoc from Movimenti where " + sono + ")");
  tessarc.Esegui("delete * from Movimenti where " + sono);  // rows without their head
  tessarc.Esegui("delete * from OperazioniAnno where " +
                 sql::Criterio("Operazione", "=", static_cast<int>(Origine::Apertura)) + " and " +
                 sql::Criterio("AnnoScritto", "=", AnnoNuovo()) + " and Definitivo=False");
  return quante;
}

std::vector<VoceSaldo> TrasportoSaldi::DaScrivere(Archivio& tessarc) {
  std::set<SaldiEsercizio::Chiave> noti;
  for (Rs rs = tessarc.Recordset("select CFP, Cod from contiCLIENTIfornitori"); !rs.Eof();
       rs.MoveNext()) {
    noti.insert(SaldiEsercizio::ChiaveDi(rs.Fields(std::size_t{0}).Testo(), rs.Fields(1).Testo()));
  }
  // What was booked on a summary account itself: the chart has it, that list doesn't.
  for (Rs rs = tessarc.Recordset("select CFP, Cod from Conti"); !rs.Eof(); rs.MoveNext()) {
    const std::string cod = rs.Fields(1).Testo();
    noti.insert(SaldiEsercizio::ChiaveDi(rs.Fields(std::size_t{0}).Testo(), cod));
    noti.insert(SaldiEsercizio::ChiaveDi("P", cod));
  }
  mancanti_.clear();
  std::vector<VoceSaldo> voci;
  for (const VoceSaldo& voce : lista_) {
    const bool contropartita =
        UgualeTesto(voce.cfp, "P") && UgualeTesto(voce.conto, dati_.Testo("Contropartita"));
    if (contropartita || voce.saldo.Zero()) continue;
    if (noti.contains(SaldiEsercizio::ChiaveDi(voce.cfp, voce.conto))) {
      voci.push_back(voce);
    } else {
      mancanti_.push_back(voce.conto);
    }
  }
  return voci;
}

std::string TrasportoSaldi::Scrivi(const Destinazione& destinazione) {
  Archivio& tessarc = destinazione.Tessarc();
  CreaCausale(tessarc, kCausaleApertura, "Riporto Saldi Apertura");
  CreaCausale(tessarc, kCausaleAperturaProvvisoria, "Saldi Apertura Provvisori");
  CorsaChiusura corsa;
  corsa.origine = Origine::Apertura;
  corsa.annoChiuso = ambiente_.Anno();
  corsa.annoScritto = AnnoNuovo();
  corsa.dt = dati_.Leggi("DtSaldi").Data();
  corsa.causale = Causale();
  corsa.contropartita = dati_.Testo("Contropartita");
  corsa.definitiva = Definitivo();
  corsa.sostituite = TogliProvvisorie(tessarc);
  const std::vector<VoceSaldo> voci = DaScrivere(tessarc);
  const auto avanzamento =
      ambiente_.Dialogo().Avvia("Trasporto saldi apertura", static_cast<std::int64_t>(voci.size()));
  fatta_ = ScriviCorsa(ambiente_, tessarc, corsa, voci, [&](std::int64_t n) {
    return n % kOgniApertura != 0 || avanzamento->Avanza(n);
  });
  return fatta_ ? "" : "operazione interrotta.";
}

bool TrasportoSaldi::EseguiSu(const Destinazione& destinazione) {
  const auto scrivi = [&] { return Scrivi(destinazione); };
  if (destinazione.basi == &ambiente_.Basi()) {
    return records::Esegui(ambiente_, {.nonRiuscita = NonRiuscito(),
                                       .numerazioni = {"ARTICOLI"},
                                       .ambito = Transazione::Ambito::Tessarc,
                                       .scrivi = scrivi});
  }
  // The other company's numbers, and its own transaction.
  return records::Tenta(ambiente_, {NonRiuscito(), records::kNullaScritto}, [&] {
    const auto blocco = destinazione.basi->Blocchi().Tabella("ARTICOLI", kAttesaAltrui);
    if (!blocco) {
      return Rifiuta("la numerazione di ARTICOLI è occupata " + blocco.Errore().Descrizione() +
                         ": attendere che finisca la registrazione e riprovare",
                     kNomeDb);
    }
    Transazione transazione(*destinazione.basi, Transazione::Ambito::Tessarc);
    if (const std::string rifiuto = scrivi(); !rifiuto.empty()) {
      return Rifiuta(rifiuto + std::string(records::kNullaScritto), "");
    }
    transazione.Conferma();
    return true;
  });
}

void TrasportoSaldi::Racconta() {
  for (const std::string& conto : mancanti_) {
    ambiente_.Dialogo().Messaggio("Attenzione : non esiste il conto " + conto, Icona::Avviso);
  }
  std::string testo = "Create registrazioni apertura anno " + std::to_string(AnnoNuovo());
  if (fatta_->quante == 0) {
    testo += " - nessuna";
  } else {
    testo += " da n.articolo " + std::to_string(fatta_->daNumDoc) + " a n." +
             std::to_string(fatta_->aNumDoc);
  }
  ambiente_.Dialogo().Messaggio(testo);
}

bool TrasportoSaldi::ConfermaSaldi() {
  Destinazione destinazione;
  const bool fatto =
      records::Tenta(ambiente_, {NonRiuscito()}, [&] { return Controlla(destinazione); }) &&
      EseguiSu(destinazione);
  if (fatto) Racconta();
  return fatto;
}

}  // namespace fenalto::ledger
