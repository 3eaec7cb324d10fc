#include "screens/common/rows/FinestraSceltaERecord.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

enum Pagina { kScelta = 0, kRecord = 1 };

}  // namespace

FinestraSceltaERecord::FinestraSceltaERecord(const QString& nome, const QString& titolo,
                                             Finestre& finestre)
    : FinestraFunzione(nome, titolo, finestre), schede_(new QTabWidget(this)) {
  PreparaSchede(*schede_, QStringLiteral("SSTab1"));
  auto* colonna = new QVBoxLayout(this);
  const int margine = Misura(Passo::Filo);
  colonna->setContentsMargins(margine, margine, margine, margine);
  colonna->addWidget(schede_);
}

void FinestraSceltaERecord::Disponi(QWidget* scelta, const QString& titoloScelta, QWidget* record) {
  schede_->addTab(scelta, titoloScelta);
  schede_->addTab(record, QString());
  schede_->setTabEnabled(kRecord, false);
  MisuraDellaPagina(*schede_);
  connect(schede_, &QTabWidget::currentChanged, this, &FinestraSceltaERecord::SchedaCambiata);
}

void FinestraSceltaERecord::AggiungiPagina(QWidget* pagina, const QString& titolo) {
  schede_->addTab(pagina, titolo);
}

void FinestraSceltaERecord::GiraA(QWidget* pagina) {
  Gira(schede_->indexOf(pagina));
}

void FinestraSceltaERecord::TogliPagine() {
  hide();
  girando_ = true;
  delete schede_;
  schede_ = nullptr;
}

void FinestraSceltaERecord::TitoloRecord(const QString& titolo) {
  // An ampersand in a record's name is no letter to press.
  schede_->setTabText(kRecord, QString(titolo).replace(QLatin1Char('&'), QStringLiteral("&&")));
}

void FinestraSceltaERecord::Gira(int indice) {
  girando_ = true;
  schede_->setCurrentIndex(indice);
  girando_ = false;
}

void FinestraSceltaERecord::SchedaCambiata(int indice) {
  if (girando_ || indice != kScelta || !Aperta()) return;
  // The record stays in sight while its question is answered.
  Gira(kRecord);
  Lascia();
}

void FinestraSceltaERecord::GiraAlRecord() {
  schede_->setTabEnabled(kRecord, true);
  Gira(kRecord);
}

bool FinestraSceltaERecord::Lascia() {
  if (!Aperta()) return true;
  if (Gestore().ControlloUscita(*this)) return false;
  Abbandona();
  FocoScelta();
  return true;
}

void FinestraSceltaERecord::Abbandona() {
  Gira(kScelta);
  schede_->setTabEnabled(kRecord, false);
  ChiudiRecord();
}

bool FinestraSceltaERecord::Indietro() {
  if (!Aperta()) return IndietroDaScelta();
  Lascia();
  return true;
}

}  // namespace fenalto::screens
