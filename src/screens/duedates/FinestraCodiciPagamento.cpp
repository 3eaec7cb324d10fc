#include "screens/duedates/FinestraCodiciPagamento.h"

#include <QTabWidget>

#include "duedates/codes/CodiciPagamento.h"
#include "screens/common/fields/Legatura.h"
#include "screens/duedates/PannelloProva.h"
#include "screens/duedates/RiquadroRata.h"

namespace fenalto::screens {

FinestraCodiciPagamento::FinestraCodiciPagamento(Finestre& finestre)
    : FinestraCodiciPagamento(std::make_shared<duedates::RateCodice>(finestre.Sessione()),
                              finestre) {}

FinestraCodiciPagamento::FinestraCodiciPagamento(std::shared_ptr<duedates::RateCodice> rate,
                                                 Finestre& finestre)
    : FinestraArchivio(duedates::DescrizioneCodiciPagamento(rate), finestre),
      rate_(std::move(rate)),
      righe_(new RiquadroRata(
          *rate_, [this]() -> Scheda& { return Archivio().Record(); }, finestre)),
      prova_(new PannelloProva(finestre.Sessione(),
                               [this]() -> std::optional<duedates::CodicePagamento> {
                                 if (!Legami().Raccogli() || !righe_->ConfermaAperta())
                                   return std::nullopt;
                                 return rate_->Codice(Archivio().Record());
                               })) {
  SchedeRecord().addTab(righe_, tr("Rate"));
  SchedeRecord().addTab(prova_, tr("Prova"));
}

FinestraCodiciPagamento::~FinestraCodiciPagamento() {
  // A field that is destroyed with the focus would read itself into a row that is gone.
  hide();
  delete righe_;
  delete prova_;
}

void FinestraCodiciPagamento::MostraRecord() {
  FinestraArchivio::MostraRecord();
  righe_->SolaLettura(Archivio().SolaLettura());
  righe_->Mostra();
  const std::string titolo = Archivio().Titolo();
  if (titolo != mostrato_) prova_->Svuota();
  mostrato_ = titolo;
}

bool FinestraCodiciPagamento::RaccogliAltro() {
  if (righe_->ConfermaAperta()) return true;
  SchedeRecord().setCurrentWidget(righe_);
  return false;
}

bool FinestraCodiciPagamento::AltroModificato() const {
  return rate_->Modificate() || righe_->Modificata();
}

void FinestraCodiciPagamento::Abbandona() {
  // The base does nothing when no record is open; rows belong to one.
  FinestraArchivio::Abbandona();
  rate_->Leggi("");
  mostrato_.clear();
  righe_->Mostra();
  prova_->Svuota();
}

bool FinestraCodiciPagamento::Indietro() {
  return righe_->Annulla() || FinestraArchivio::Indietro();
}

}  // namespace fenalto::screens
