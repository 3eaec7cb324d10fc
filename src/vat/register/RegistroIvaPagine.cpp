// Heads and ends of the register's pages, totals by code, the page of the ventilation.
#include "core/values/FormatoImporto.h"
#include "vat/register/RegistroIvaStampa.h"
#include "vat/register/RegistroIvaTesto.h"

namespace fenalto::vat {
namespace {

using testo_registro::kLarghezza;
using testo_registro::kRientro;

constexpr std::size_t kDestra = 28;
constexpr std::size_t kCodice = 6;
constexpr const char* kTotale = "                          TOTALE";
constexpr const char* kRigaQuota = "$$$$ $$$$ ##.###.###,###  ###,#####";
constexpr const char* kRigaAcquisti = "importo acquisti ##.###.###,###";

std::string AnnoPagina(int anno, int pagina) {
  return std::to_string(anno) + "/" + std::to_string(pagina);
}

/// Rate without decimals it doesn't have: "22", "4,5".
std::string Aliquota(Importo perc) {
  return ScriviImporto(perc, 0);
}

}  // namespace

// --- Heads ---------------------------------------------------------------------------------------

void TabulatoRegistroIva::Testata() {
  grafico_ ? TestataModello() : TestataTestoRegistro();
  const bool nulla =
      progressivo_.imponibile.Zero() && progressivo_.iva.Zero() && progressivo_.ivaInd.Zero();
  if (!conRiporto_ || nulla) return;
  if (grafico_) {
    ProgressiviModello("riporto", progressivo_, stampa_.YCorrente());
    return stampa_.AvanzaRiga();
  }
  stampa_.Campo(1, "riporto");
  CampiImporti(progressivo_, 2);
  stampa_.Riga(rigaTotale_, {}, true);
}

void TabulatoRegistroIva::TestataTestoRegistro() {
  const int pagina = dati_.primaPagina + stampa_.NumeroPagina() - 1;
  stampa_.Campo(1, ditta_.ragSoc1_2);
  stampa_.Campo(2, "Anno/pag. " + AnnoPagina(dati_.periodo.anno, pagina));
  const std::string due =
      reports::Ripeti("$", kLarghezza - kDestra - 1) + " " + reports::Ripeti("$", kDestra);
  stampa_.Riga(due, {}, true);
  std::string codici;
  if (!ditta_.piva.empty()) codici = "Partita IVA " + ditta_.piva + "   ";
  if (!ditta_.codFisc.empty()) codici += "Codice fiscale " + ditta_.codFisc;
  for (const std::string& testo : {ditta_.indirizzoLocalita, codici}) {
    if (testo.empty()) continue;
    stampa_.Campo(1, testo);
    stampa_.Riga(reports::Ripeti("$", kLarghezza));
  }
  stampa_.Campo(1, "REGISTRO IVA UNICO  " + dati_.periodo.testo + " " +
                       std::to_string(dati_.periodo.anno) +
                       (sezione_.empty() ? "" : "  -  " + sezione_));
  stampa_.Campo(2, dati_.definitiva ? "" : "stampa di prova");
  stampa_.Riga(due, {}, true);
  stampa_.Riga(reports::Ripeti("=", kLarghezza));
  if (colonne_.empty()) return;
  stampa_.Riga(colonne_);
  stampa_.Riga(reports::Ripeti("-", kLarghezza));
}

void TabulatoRegistroIva::TestataModello() {
  const int pagina = dati_.primaPagina + stampa_.NumeroPagina() - 1;
  reports::CampiTestata(stampa_, ambiente_, ditta_, pagina);
  stampa_.CampoModello("AnnoPag", "Anno/pag. " + AnnoPagina(dati_.periodo.anno, pagina));
  stampa_.CampoModello("TITOLO", "REGISTRO IVA UNICO");
  stampa_.CampoModello("PERIODO", dati_.periodo.testo + " " + std::to_string(dati_.periodo.anno));
  stampa_.CampoModello("DescrPagina", sezione_);
  if (!dati_.definitiva) stampa_.CampoModello("PROVA", "stampa di prova");
}

// --- Room and amounts carried forward ------------------------------------------------------------

/// Room for that many lines, and among the rows for the amounts carried forward behind them.
void TabulatoRegistroIva::Spazio(int righe) {
  const int minime = grafico_ || !conRiporto_ ? righe : righe + 1;
  if (stampa_.RigheLibere() < minime) FinePagina();
}

void TabulatoRegistroIva::FinePagina() {
  if (grafico_) {
    // The last line of the body is kept for the mark.
    const double y = stampa_.AltezzaPagina() - stampa_.MargineBasso();
    stampa_.CampoModello("R_DESCRIZIONE", "segue su pagina successiva", y);
    if (conRiporto_) ProgressiviModello("a riportare", progressivo_, y);
  } else if (conRiporto_) {
    stampa_.Campo(1, "a riportare");
    CampiImporti(progressivo_, 2);
    stampa_.Riga(rigaTotale_, {}, true);
  }
  stampa_.NuovaPagina();
}

void TabulatoRegistroIva::Progressivi(const std::string& testo, const ImportiRiga& importi) {
  Spazio(2);
  if (grafico_) {
    stampa_.Filetto();
    ProgressiviModello(testo, importi, stampa_.YCorrente());
    return stampa_.AvanzaRiga();
  }
  stampa_.Riga(reports::Ripeti("-", kLarghezza));
  stampa_.Campo(1, testo);
  CampiImporti(importi, 2);
  stampa_.Riga(rigaTotale_, {}, true);
}

void TabulatoRegistroIva::ProgressiviModello(const std::string& testo, const ImportiRiga& importi,
                                             double y) {
  stampa_.CampoModello("R_SCRITTATOT", testo, y);
  CampiImportiModello({"R_TOTIMPONIBILE", "R_TOTIVA", "R_TOTIVAIND", "R_TOTTOT"}, importi, y);
}

void TabulatoRegistroIva::CampiImporti(const ImportiRiga& importi, std::size_t primo) {
  stampa_.Campo(primo, importi.imponibile);
  stampa_.Campo(primo + 1, importi.iva);
  // Most rows have none, and a column of zeros would hide those that have.
  if (!importi.ivaInd.Zero()) stampa_.Campo(primo + 2, importi.ivaInd);
  stampa_.Campo(primo + 3, importi.Totale());
}

void TabulatoRegistroIva::CampiImportiModello(const std::array<const char*, 4>& nomi,
                                              const ImportiRiga& importi, double y) {
  stampa_.CampoModello(nomi[0], PerModello(importi.imponibile), y);
  stampa_.CampoModello(nomi[1], PerModello(importi.iva), y);
  if (!importi.ivaInd.Zero()) stampa_.CampoModello(nomi[2], PerModello(importi.ivaInd), y);
  stampa_.CampoModello(nomi[3], PerModello(importi.Totale()), y);
}

Valore TabulatoRegistroIva::PerModello(Importo importo) const {
  if (ambiente_.Euro()) return importo;
  return ScriviImportoFisso(importo, 0);
}

// --- Lines of text -------------------------------------------------------------------------------

/// A further line of a registration.
void TabulatoRegistroIva::Seguito(const std::string& testo) {
  Spazio(1);
  if (grafico_) {
    stampa_.CampoModello("R_SEGUITO", testo, stampa_.YCorrente());
    return stampa_.AvanzaRiga();
  }
  stampa_.Campo(1, testo);
  stampa_.Riga(reports::Ripeti(" ", kRientro) + reports::Ripeti("$", kLarghezza - kRientro));
}

void TabulatoRegistroIva::Titoletto(const std::string& testo) {
  if (grafico_) {
    stampa_.CampoModello("R_TITOLO", testo, stampa_.YCorrente());
    return stampa_.AvanzaRiga();
  }
  stampa_.Campo(1, testo);
  stampa_.Riga(reports::Ripeti("$", kLarghezza), {}, true);
}

void TabulatoRegistroIva::Scrittura(const std::string& testo) {
  Spazio(1);
  if (grafico_) {
    stampa_.CampoModello("R_SCRITTA", testo, stampa_.YCorrente());
    return stampa_.AvanzaRiga();
  }
  stampa_.Campo(1, testo);
  stampa_.Riga(reports::Ripeti("$", kLarghezza));
}

// --- Totals --------------------------------------------------------------------------------------

void TabulatoRegistroIva::Totali(const TotaleRegistro& totale) {
  // The title with its first code and the total.
  Spazio(5);
  Scrittura("");
  Titoletto("Totali iva registro " + totale.intervallo.riva + " " + totale.intervallo.descrizione);
  TotaliCodici("TOTALI per codice IVA", totale.codici);
  if (!totale.differiti.empty()) {
    TotaliCodici("TOTALI per cod.IVA esigibilità differita", totale.differiti);
  }
}

void TabulatoRegistroIva::TotaliCodici(const std::string& titolo,
                                       const std::vector<TotaleCodice>& codici) {
  Spazio(3);
  Titoletto(titolo);
  ImportiRiga somma;
  for (const TotaleCodice& codice : codici) {
    RigaTotale(codice);
    somma += {codice.imponibile, codice.iva, codice.ivaInd};
  }
  Progressivi(kTotale, somma);
}

void TabulatoRegistroIva::RigaTotale(const TotaleCodice& codice) {
  Spazio(1);
  const ImportiRiga importi{codice.imponibile, codice.iva, codice.ivaInd};
  if (grafico_) {
    const double y = stampa_.YCorrente();
    stampa_.CampoModello("R_DESCRIZIONE", "codice " + codice.codIva, y);
    stampa_.CampoModello("R_DESCRIVA", codice.descrizione, y);
    CampiImportiModello({"R_IMPONIBILE", "R_IVA", "R_IVAIND", "R_TOT"}, importi, y);
    return stampa_.AvanzaRiga();
  }
  std::string codiceLargo = codice.codIva;
  if (codiceLargo.size() < kCodice) codiceLargo.resize(kCodice, ' ');
  stampa_.Campo(1, codiceLargo + " " + codice.descrizione);
  CampiImporti(importi, 2);
  stampa_.Riga(rigaTotale_);
}

// --- Ventilation ---------------------------------------------------------------------------------

void TabulatoRegistroIva::RegistroAcquisti(const std::string& riva, std::int64_t aaNProt) {
  if (riva.empty()) return;
  const std::string descrizione =
      NzStr(ambiente_.Cerca("tessarc", "RegistriIva", {{"Cod", riva}}, "Descrizione"));
  Scrittura("in base agli acquisti annotati sul registro " + riva + " " + descrizione);
  Scrittura("fino al n. prot. " + std::to_string(aaNProt));
}

void TabulatoRegistroIva::PaginaVentilazione(const TotaleRegistro& totale) {
  stampa_.NuovaPagina();
  Scrittura("VENTILAZIONE DEI CORRISPETTIVI");
  RegistroAcquisti(opzioni_.ventilazione.riva, opzioni_.ventilazione.aaNProt);
  RegistroAcquisti(opzioni_.ventilazione.riva1, opzioni_.ventilazione.aaNProt1);
  stampa_.Campo(1, totale.acquistiVentilazione);
  Scrittura(stampa_.Formato(kRigaAcquisti));
  Scrittura("Calcolo coefficienti di ripartizione");
  Scrittura("     %IVA       importo   % ripart.");
  for (const QuotaVentilazione& quota : totale.quote) {
    stampa_.Campo(1, quota.codIva);
    stampa_.Campo(2, Aliquota(quota.perc));
    stampa_.Campo(3, quota.acquisti);
    stampa_.Campo(4, quota.quota);
    Scrittura(stampa_.Formato(kRigaQuota));
  }
}

}  // namespace fenalto::vat
