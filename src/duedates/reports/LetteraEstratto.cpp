#include "duedates/reports/LetteraEstratto.h"

#include <algorithm>
#include <filesystem>

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/reports/VisitaScadenze.h"
#include "ledger/journal/GiornaleInterno.h"

namespace fenalto::duedates {
namespace {

/// Due dates between two signs of life.

constexpr const char* kRiga =
    "$$$$$$$$$$ ######## $$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ ######, "
    "###.###.###,## ###.###.###,## ###.###.###,##";
constexpr const char* kColonne =
    "scadenza    fattura del        descrizione                         ritardo "
    "       importo         pagato        residuo";
constexpr std::size_t kLarghezza = 119;
constexpr std::size_t kLargoImporto = 15;
/// From here on the address stands, as the window of an envelope wants it.
constexpr std::size_t kRientro = 64;
/// Characters of a line of the letter.
constexpr std::size_t kLargoTesto = 110;
constexpr std::size_t kLargoModello = 120;
/// The balance, the closing sentences and the signature stay together.
constexpr int kRigheChiusura = 11;

/// The firm's own model where the settings say so (`ECModulo`, with or without its ending).
std::string ModelloLettera(Ambiente& ambiente) {
  const std::string modulo(Rifila(ambiente.Config("ECModulo")));
  if (modulo.empty() || !ImpostazioneAttiva(ambiente, "ECTracciatoPersonal")) return "TiEC";
  const std::filesystem::path file = std::filesystem::path(modulo).filename();
  return UgualeTesto(file.extension().string(), ".mod") ? file.stem().string() : file.string();
}

std::string Accosta(const std::string& a, const std::string& b) {
  return std::string(Rifila(a + " " + b));
}

}  // namespace

LetteraEstratto::LetteraEstratto(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                                 const SceltaEstrattoConto& scelta)
    : ambiente_(ambiente),
      scelta_(scelta),
      stampa_(ambiente, uscite),
      ditta_(reports::LeggiDatiDitta(ambiente)) {}

bool LetteraEstratto::Cliente() const {
  return UgualeTesto(scelta_.scadenze.cfp, "C");
}

bool LetteraEstratto::Esegui(std::int64_t quante) {
  const reports::Cornice cornice{
      "estratto conto",          "Estratto conto al " + scelta_.alla.Testo(),
      ModelloLettera(ambiente_), kLarghezza,
      scelta_.stGrafico,         scelta_.xTar};
  const reports::ModoStampa modo = reports::ApriStampa(stampa_, ambiente_, cornice);
  if (modo == reports::ModoStampa::Fermata) return false;
  grafico_ = modo == reports::ModoStampa::Grafico;
  stampa_.Intestazione([this] { Testata(); });
  const auto avanzamento = ambiente_.Dialogo().Avvia("Estratto conto", quante);
  std::int64_t fatte = 0;
  const bool tutte = ScorriScadenze(
      ambiente_, scelta_.scadenze, OrdineScadenze::PerConto, [&](const ScadenzaStampata& s) {
        if (++fatte % kOgniParti == 0 && !avanzamento->Avanza(fatte)) {
          return false;
        }
        return Scadenza(s);
      });
  if (!tutte) return false;
  ChiudiParte();
  return stampa_.Fine();
}

bool LetteraEstratto::Scadenza(const ScadenzaStampata& s) {
  if (!UgualeTesto(conto_, s.conto)) {
    ChiudiParte();
    conto_ = s.conto;
  }
  if (!s.Aperta()) {
    chiuse_.push_back(s);
    return !stampa_.Interrotta();
  }
  if (!aperta_) ApriParte(s);
  // In date order, so what is overdue comes first.
  const bool scaduta = s.dt < scelta_.alla;
  scaduta ? Apri(Sezione::Scadute, "Scadute") : Apri(Sezione::AScadere, "A scadere");
  (scaduta ? scaduto_ : aScadere_) += s.Residuo();
  Riga(s);
  return !stampa_.Interrotta();
}

void LetteraEstratto::ApriParte(const ScadenzaStampata& s) {
  stampa_.NuovaPagina();
  prima_ = s;
  destinatario_ = LeggiDestinatario(s);
  aperta_ = true;
  paginaLettera_ = 0;
}

void LetteraEstratto::ChiudiParte() {
  if (aperta_) {
    ChiudiSezione();
    Chiuse(Sezione::Presentate, "Ricevute bancarie presentate");
    Chiuse(Sezione::Pagate, scelta_.scadenze.pagateDal.Nulla()
                                ? "Già pagate"
                                : "Già pagate dal " + scelta_.scadenze.pagateDal.Testo());
    Chiusura();
  }
  aperta_ = false;
  chiuse_.clear();
  scaduto_ = aScadere_ = {};
}

void LetteraEstratto::Chiuse(Sezione sezione, const std::string& titolo) {
  for (const ScadenzaStampata& s : chiuse_) {
    if (s.inDistinta != (sezione == Sezione::Presentate)) continue;
    Apri(sezione, titolo);
    Riga(s);
  }
  ChiudiSezione();
}

void LetteraEstratto::Apri(Sezione sezione, const std::string& titolo) {
  if (sezione_ == sezione) return;
  ChiudiSezione();
  sezione_ = sezione;
  stampa_.Riserva(4);
  Titoletto(titolo);
}

void LetteraEstratto::ChiudiSezione() {
  if (sezione_ == Sezione::Nessuna) return;
  const char* scritta = "totale a scadere";
  if (sezione_ == Sezione::Scadute) scritta = "totale scaduto";
  if (sezione_ == Sezione::Presentate) scritta = "totale presentato";
  if (sezione_ == Sezione::Pagate) scritta = "totale pagato";
  Totale(scritta, parziale_, false);
  if (stampa_.RigheLibere() > 0) Vuota();
  sezione_ = Sezione::Nessuna;
  parziale_ = {};
}

void LetteraEstratto::Riga(const ScadenzaStampata& s) {
  if (sezione_ == Sezione::Pagate) {
    parziale_ += s.pagato;
  } else {
    parziale_ += s.inDistinta ? s.importo : s.Residuo();
  }
  // A page never begins with a total alone.
  stampa_.Riserva(2);
  if (grafico_) return RigaModello(s);
  stampa_.Campo(1, s.dt);
  if (s.nFat != 0) stampa_.Campo(2, s.nFat);
  stampa_.Campo(3, s.dtFat);
  stampa_.Campo(4, s.DescrizioneSegnata());
  if (sezione_ == Sezione::Scadute) stampa_.Campo(5, scelta_.alla.Giorni() - s.dt.Giorni());
  stampa_.Campo(6, s.importo);
  stampa_.Campo(7, s.pagato);
  stampa_.Campo(8, s.Residuo());
  stampa_.Riga(kRiga, s.RinvioARegistrazione());
}

void LetteraEstratto::RigaModello(const ScadenzaStampata& s) {
  const double y = stampa_.YCorrente();
  const Rinvio rinvio = s.RinvioARegistrazione();
  stampa_.CampoModello("R_DTSCAD", s.dt, y, rinvio);
  if (s.nFat != 0) stampa_.CampoModello("R_NFAT", std::to_string(s.nFat), y, rinvio);
  stampa_.CampoModello("R_DTFAT", s.dtFat, y, rinvio);
  stampa_.CampoModello("R_DESCRIZIONE", s.DescrizioneSegnata(), y, rinvio);
  if (sezione_ == Sezione::Scadute) {
    stampa_.CampoModello("R_GIORNI", scelta_.alla.Giorni() - s.dt.Giorni(), y, rinvio);
  }
  stampa_.CampoModello("R_IMPORTO", s.importo, y, rinvio);
  stampa_.CampoModello("R_PAGATO", s.pagato, y, rinvio);
  stampa_.CampoModello("R_RESIDUO", s.Residuo(), y, rinvio);
  stampa_.AvanzaRiga();
}

void LetteraEstratto::Totale(const std::string& scritta, Importo importo, bool evidente) {
  if (grafico_) {
    if (evidente) stampa_.Filetto();
    const double y = stampa_.YCorrente();
    stampa_.CampoModello("R_SCRITTATOT", scritta, y);
    stampa_.CampoModello("R_TOTRESIDUO", importo, y);
    return stampa_.AvanzaRiga();
  }
  if (evidente) stampa_.Riga(reports::Ripeti("=", kLarghezza));
  stampa_.Campo(1, scritta);
  stampa_.Campo(2, importo);
  stampa_.Riga(reports::Ripeti("$", kLarghezza - kLargoImporto) + " ###.###.###,##", {}, true);
}

void LetteraEstratto::Titoletto(const std::string& testo) {
  if (grafico_) {
    stampa_.CampoModello("R_TITOLO", testo, stampa_.YCorrente());
    return stampa_.AvanzaRiga();
  }
  stampa_.Campo(1, testo);
  stampa_.Riga(reports::Ripeti("$", kLarghezza), {}, true);
}

void LetteraEstratto::Capoverso(const std::string& testo) {
  for (const std::string& riga : ledger::InRighe(testo, grafico_ ? kLargoModello : kLargoTesto)) {
    if (grafico_) {
      stampa_.CampoModello("R_SCRITTA", riga, stampa_.YCorrente());
      stampa_.AvanzaRiga();
    } else {
      stampa_.Campo(1, riga);
      stampa_.Riga(reports::Ripeti("$", kLarghezza));
    }
  }
}

void LetteraEstratto::Vuota() {
  grafico_ ? stampa_.AvanzaRiga() : stampa_.Riga("");
}

void LetteraEstratto::Chiusura() {
  stampa_.Riserva(kRigheChiusura);
  const Importo saldo = scaduto_ + aScadere_;
  const bool aNoi = Cliente() != saldo.Negativo();
  Totale(std::string("SALDO AL ") + scelta_.alla.Testo() +
             (aNoi ? " A NOSTRO CREDITO" : " A VOSTRO CREDITO"),
         saldo.Assoluto(), true);
  if (!scaduto_.Zero() && !aScadere_.Zero()) {
    Totale("di cui scaduto", scaduto_, false);
    Totale("di cui a scadere", aScadere_, false);
  }
  Vuota();
  if (!aNoi || !Cliente()) {
    Capoverso(
        "Vi preghiamo di confrontare questo estratto con le Vostre scritture e di segnalarci "
        "cortesemente eventuali differenze.");
  } else if (scaduto_ > Importo()) {
    Capoverso(
        "Vi preghiamo cortesemente di verificare le partite elencate e di provvedere al pagamento "
        "di quelle già scadute. Se nel frattempo lo aveste già disposto, Vi ringraziamo e Vi "
        "preghiamo di non tenere conto di questo invito.");
  } else {
    Capoverso(
        "Vi preghiamo di verificare le partite elencate e di segnalarci cortesemente eventuali "
        "differenze; confidiamo nel pagamento alle scadenze indicate.");
  }
  Capoverso("Restiamo a disposizione per ogni chiarimento e porgiamo distinti saluti.");
  Vuota();
  if (grafico_) {
    stampa_.CampoModello("R_FIRMA", ditta_.ragSoc1_2, stampa_.YCorrente());
    return stampa_.AvanzaRiga();
  }
  stampa_.Campo(1, ditta_.ragSoc1_2);
  stampa_.Riga(reports::Ripeti(" ", kRientro) + reports::Ripeti("$", kLarghezza - kRientro));
}

void LetteraEstratto::Testata() {
  ++paginaLettera_;
  grafico_ ? TestataModello() : TestataLettera();
}

void LetteraEstratto::TestataLettera() {
  const auto riga = [this](const std::string& testo, std::size_t rientro, bool grassetto) {
    if (testo.empty()) return;
    stampa_.Campo(1, testo);
    stampa_.Riga(reports::Ripeti(" ", rientro) + reports::Ripeti("$", kLarghezza - rientro), {},
                 grassetto);
  };
  reports::TestataTesto(stampa_, ambiente_, ditta_, paginaLettera_, kLarghezza);
  if (!ditta_.piva.empty()) riga("Partita IVA " + ditta_.piva, 0, false);
  stampa_.Riga("");
  riga("Spett.le", kRientro, false);
  riga(destinatario_.nome, kRientro, true);
  if (paginaLettera_ == 1) {
    riga(destinatario_.nome2, kRientro, true);
    riga(destinatario_.indirizzo, kRientro, false);
    riga(destinatario_.localita, kRientro, false);
    riga(destinatario_.piva, kRientro, false);
  }
  stampa_.Riga("");
  riga("ESTRATTO CONTO AL " + scelta_.alla.Testo() + "   (codice " + prima_.conto + ")", 0, true);
  if (paginaLettera_ == 1) {
    stampa_.Riga("");
    riga("Riepiloghiamo le partite che ci risultano aperte nei Vostri confronti:", 0, false);
  }
  stampa_.Riga(reports::Ripeti("=", kLarghezza));
  stampa_.Riga(kColonne);
  stampa_.Riga(reports::Ripeti("-", kLarghezza));
}

void LetteraEstratto::TestataModello() {
  reports::CampiTestata(stampa_, ambiente_, ditta_, paginaLettera_);
  stampa_.CampoModello("TITOLO", "ESTRATTO CONTO AL " + scelta_.alla.Testo());
  stampa_.CampoModello("CODICE", "codice " + prima_.conto);
  // The lines of an address leave no hole where one is missing.
  std::vector<std::string> righe;
  for (const std::string* riga : {&destinatario_.nome2, &destinatario_.indirizzo,
                                  &destinatario_.localita, &destinatario_.piva}) {
    if (!riga->empty()) righe.push_back(*riga);
  }
  stampa_.CampoModello("SPETTLE", "Spett.le");
  stampa_.CampoModello("NOME", destinatario_.nome);
  for (std::size_t i = 0; i < righe.size(); ++i) {
    stampa_.CampoModello("INDIRIZZO" + std::to_string(i + 1), righe[i]);
  }
  stampa_.CampoModello(
      "PREMESSA", paginaLettera_ == 1
                      ? "Riepiloghiamo le partite che ci risultano aperte nei Vostri confronti:"
                      : "Segue dalla pagina precedente:");
}

LetteraEstratto::Destinatario LetteraEstratto::LeggiDestinatario(const ScadenzaStampata& s) const {
  Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
      std::string("SELECT ragsoc1, ragsoc2, indirizzo, cap, localita, Prov, piva, CodFisc FROM ") +
      (Cliente() ? "Clienti" : "Fornitori") + " WHERE " + sql::Criterio("Cod", "=", s.conto));
  Destinatario d;
  if (rs.Eof()) {
    d.nome = s.ragsoc.empty() ? s.conto : s.ragsoc;
    return d;
  }
  d.nome = rs.Fields(0).Testo();
  d.nome2 = rs.Fields(1).Testo();
  d.indirizzo = rs.Fields(2).Testo();
  d.localita = Accosta(rs.Fields(3).Testo(), rs.Fields(4).Testo());
  if (const std::string prov = rs.Fields(5).Testo(); !prov.empty()) d.localita += " (" + prov + ")";
  if (const std::string piva = rs.Fields(6).Testo(); !piva.empty()) {
    d.piva = "Partita IVA " + piva;
  } else if (const std::string fiscale = rs.Fields(7).Testo(); !fiscale.empty()) {
    d.piva = "Codice fiscale " + fiscale;
  }
  return d;
}

}  // namespace fenalto::duedates
