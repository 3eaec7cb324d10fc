#include "print/UscitaDipinta.h"

#include <QPagedPaintDevice>

#include "print/TestoPagina.h"

namespace fenalto::print {
namespace {}  // namespace

bool UscitaDipinta::Ferma() {
  annullata_ = true;
  return false;
}

bool UscitaDipinta::Fallita(const std::string& messaggio) {
  if (!errore_) errore_ = Errore{messaggio};
  return false;
}

bool UscitaDipinta::Dipingi(const reports::Pagina& pagina) {
  if (!aperta_) {
    const auto esito = Apri();
    if (!esito) return Fallita(esito.Errore().messaggio);
    if (!esito.Valore()) return Ferma();
    aperta_ = true;
  }
  ++passate_;
  if (!Richiesta(passate_)) return true;
  if (!tela_) {
    Foglio().setPageLayout(Disposizione(pagina.formato));
    tela_ = std::make_unique<QPainter>();
    if (!tela_->begin(&Foglio())) {
      const std::string guasto = Guasto();
      return Fallita(guasto.empty() ? "La stampante non risponde: controllarla e riprovare."
                                    : guasto);
    }
    tela_->setRenderHint(QPainter::Antialiasing);
  } else {
    Foglio().setPageLayout(Disposizione(pagina.formato));
    if (!Foglio().newPage()) {
      const std::string guasto = Guasto();
      return Fallita(guasto.empty() ? "La stampante ha rifiutato una pagina." : guasto);
    }
  }
  pittore_.Dipingi(*tela_, pagina, Foglio().logicalDpiX() / kPollice, totale_);
  const std::string guasto = Guasto();
  return guasto.empty() || Fallita(guasto);
}

bool UscitaDipinta::Aggiungi(reports::Pagina pagina) {
  if (!Viva()) return false;
  ++arrivate_;
  if (avanza_ && !avanza_(arrivate_, totale_)) return Ferma();
  if (!attese_ && totale_ == 0 && AttendeTotale(pagina)) {
    attese_ = std::make_unique<DepositoPagine>();
  }
  if (!attese_) return Dipingi(pagina);
  const auto tenuta = attese_->Aggiungi(pagina);
  return tenuta || Fallita(tenuta.Errore().messaggio);
}

bool UscitaDipinta::DipingiAttese() {
  if (!attese_) return true;
  totale_ = arrivate_;
  for (int i = 0; i < attese_->Pagine(); ++i) {
    if (avanza_ && !avanza_(passate_ + 1, totale_)) return Ferma();
    if (!Dipingi(attese_->Leggi(i))) return false;
  }
  return true;
}

Esito<bool> UscitaDipinta::Fine() {
  if (Viva()) DipingiAttese();
  // A report of no pages is a blank sheet.
  if (Viva() && arrivate_ == 0) Dipingi(reports::Pagina{});
  if (Viva() && !tela_) {
    Fallita("Le pagine scelte non ci sono: il documento ne ha " + std::to_string(arrivate_) + ".");
  }
  if (!Viva()) {
    Annulla();
    if (errore_) return *errore_;
    return false;
  }
  tela_.reset();
  attese_.reset();
  return Chiudi();
}

void UscitaDipinta::Annulla() {
  Ferma();
  tela_.reset();
  attese_.reset();
  Abbandona();
}

}  // namespace fenalto::print
