// Heads of the journal's pages, the amounts carried from one to the next, and the end.
#include "ledger/journal/GiornaleInterno.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kTestata =
    "                       LIBRO GIORNALE                  Anno/pag. $$$$/$$$$$$";
constexpr const char* kPeriodo =
    "                                        Giornale contabilità dal $$$$$$$$ al $$$$$$$$";
constexpr const char* kColonne =
    "DATA REG.CONTO  DESCRIZ.CONTO / CAUSALE / DESCRIZ. MOVIMENTO                                  "
    " "
    "                DARE       AVERE ";

}  // namespace

void TabulatoGiornale::Testata() {
  ++pagina_;
  if (grafico_) {
    TestataModello();
  } else {
    if (scelta_.intesto) TestataDitta();
    stampa_.Campo(1, scelta_.daDt);
    stampa_.Campo(2, scelta_.aaDt);
    stampa_.Riga(kPeriodo);
    stampa_.Riga(reports::Ripeti("=", larghezza_));
    stampa_.Riga(kColonne);
    stampa_.Riga(reports::Ripeti("-", larghezza_));
  }
  if (ConImporti()) Progressivi("riporto");
}

void TabulatoGiornale::TestataDitta() {
  stampa_.Campo(1, ambiente_.Anno());
  stampa_.Campo(2, scelta_.daPag + pagina_ - 1);
  stampa_.Riga(kTestata, {}, true);
  const std::string intera = reports::Ripeti("$", larghezza_);
  const auto riga = [&](const std::string& testo) {
    if (testo.empty()) return;
    stampa_.Campo(1, testo);
    stampa_.Riga(intera);
  };
  riga(ditta_.ragSoc1_2);
  riga(ditta_.indirizzoLocalita);
  std::string codici;
  if (!ditta_.piva.empty()) codici = "Partita IVA " + ditta_.piva + "   ";
  if (!ditta_.codFisc.empty()) codici += "Codice fiscale " + ditta_.codFisc;
  riga(codici);
}

void TabulatoGiornale::TestataModello() {
  if (scelta_.intesto) {
    const int pagina = scelta_.daPag + pagina_ - 1;
    reports::CampiTestata(stampa_, ambiente_, ditta_, pagina);
    stampa_.CampoModello("ScrittaAnnoPag", "Anno/Pag.");
    stampa_.CampoModello("AnnoPag",
                         std::to_string(ambiente_.Anno()) + "/" + std::to_string(pagina));
  }
  stampa_.CampoModello("TITOLO", "GIORNALE DI TESSARC'");
  stampa_.CampoModello("TITOLO2", " dal " + scelta_.daDt.Testo() + "  al " + scelta_.aaDt.Testo());
  stampa_.CampoModello("DADT", scelta_.daDt);
  stampa_.CampoModello("AADT", scelta_.aaDt);
}

void TabulatoGiornale::FinePagina() {
  if (grafico_) {
    // The last line of the body is kept for the mark.
    const double y = stampa_.AltezzaPagina() - stampa_.MargineBasso();
    stampa_.CampoModello("R_DESCRIZIONE", "segue su pagina successiva", y);
    if (ConImporti()) ProgressiviModello("a riportare", y);
  } else if (ConImporti()) {
    Progressivi("a riportare");
  }
  stampa_.NuovaPagina();
}

void TabulatoGiornale::Progressivi(const std::string& testo) {
  if (grafico_) {
    ProgressiviModello(testo, stampa_.YCorrente());
    return stampa_.AvanzaRiga();
  }
  stampa_.Campo(1, testo);
  stampa_.Campo(2, dare_);
  stampa_.Campo(3, avere_);
  stampa_.Riga(rigaTotali_, {}, true);
}

void TabulatoGiornale::ProgressiviModello(const std::string& testo, double y) {
  stampa_.CampoModello("R_SCRITTATOT", testo, y);
  stampa_.CampoModello("R_TOTDARE", PerModello(dare_), y);
  stampa_.CampoModello("R_TOTAVERE", PerModello(avere_), y);
}

void TabulatoGiornale::Totali() {
  if (stampa_.RigheLibere() < 2) FinePagina();
  if (grafico_) {
    stampa_.Filetto();
  } else {
    stampa_.Riga(reports::Ripeti("=", larghezza_));
  }
  Progressivi("totali   dal " + scelta_.daDt.Testo() + "  al " + scelta_.aaDt.Testo());
}

}  // namespace fenalto::ledger
