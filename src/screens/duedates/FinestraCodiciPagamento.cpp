#include "screens/duedates/FinestraCodiciPagamento.h"

#include <QTabWidget>

#include "duedates/codes/CodiciPagamento.h"
#include "screens/common/fields/Legatura.h"
#include "screens/duedates/PannelloProva.h"
#include "screens/duedates/RigheRate.h"

namespace fenalto::screens {

FinestraCodiciPagamento::FinestraCodiciPagamento(Finestre& finestre)
    : FinestraCodiciPagamento(std::make_shared<duedates::RateCodice>(finestre.Sessione()),
                              finestre) {}

FinestraCodiciPagamento::FinestraCodiciPagamento(std::shared_ptr<duedates::RateCodice> rate,
                                                 Finestre& finestre)
    : FinestraArchivioConRighe(duedates::DescrizioneCodiciPagamento(rate), finestre),
      rate_(std::move(rate)) {
  auto* righe = Crea(RigheRate(*rate_, [this]() -> Scheda& { return Archivio().Record(); }));
  prova_ = new PannelloProva(finestre.Sessione(),
                             [this, righe]() -> std::optional<duedates::CodicePagamento> {
                               if (!Legami().Raccogli() || !righe->ConfermaAperta()) {
                                 return std::nullopt;
                               }
                               return rate_->Codice(Archivio().Record());
                             });
  SchedeRecord().addTab(righe, tr("Rate"));
  SchedeRecord().addTab(prova_, tr("Prova"));
}

FinestraCodiciPagamento::~FinestraCodiciPagamento() {
  hide();
  delete prova_;
  TogliRighe();
}

void FinestraCodiciPagamento::MostraRecord() {
  FinestraArchivioConRighe::MostraRecord();
  const std::string titolo = Archivio().Titolo();
  if (titolo != mostrato_) prova_->Svuota();
  mostrato_ = titolo;
}

void FinestraCodiciPagamento::Abbandona() {
  FinestraArchivioConRighe::Abbandona();
  mostrato_.clear();
  prova_->Svuota();
}

}  // namespace fenalto::screens
