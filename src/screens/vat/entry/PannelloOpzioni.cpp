#include "screens/vat/entry/PannelloOpzioni.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {
namespace {

constexpr int kCaratteriOpzione = 9;

QGroupBox* Riquadro(const char* nome, const QString& titolo) {
  auto* riquadro = new QGroupBox(titolo);
  riquadro->setObjectName(QString::fromLatin1(nome));
  return riquadro;
}

QGridLayout* Stretta(QGroupBox* riquadro) {
  auto* griglia = new QGridLayout(riquadro);
  griglia->setHorizontalSpacing(8);
  griglia->setVerticalSpacing(3);
  return griglia;
}

}  // namespace

PannelloOpzioni::PannelloOpzioni(vat::RegistrazioneIva& fatture, Finestre& finestre,
                                 Legatura& legatura, QWidget* genitore)
    : QWidget(genitore), fatture_(fatture), finestre_(finestre), legatura_(legatura) {
  CreaCampi();
  intra_ = CreaIntra();
  bolla_ = CreaBolla();
  ritenute_ = CreaRitenute();
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  for (auto* riquadro : {intra_, bolla_, ritenute_}) colonna->addWidget(riquadro);
  for (auto* controllo : Controlli()) legatura_.Lega(controllo);
}

CampoCodice* PannelloOpzioni::Codice(const char* nome, const char* fonte) {
  auto* campo =
      new CampoCodice(QString::fromLatin1(nome), archives::Fonte(finestre_.Sessione(), fonte));
  LargoCaratteri(campo, kCaratteriOpzione);
  return campo;
}

void PannelloOpzioni::CreaCampi() {
  auto& sessione = finestre_.Sessione();
  const int decimali = sessione.Euro() ? 2 : 0;
  rivaIntra_ = Codice("RivaIntra", "registriTipo05");
  senzaGiro_ = Casella("NoIntraCosto_a_Forn", tr("senza giro costo a fornitore"));
  causaleIntra_ = Codice("CausaleIntra", "causali");
  fornitoreIntra_ = Codice("FornitoreIntra", "fornitori");
  contoCosti_ = Codice("ContoCostiIntra", "conti");
  pagamentoIntra_ = Codice("PagamentoIntra", "pagamenti");
  conBolla_ = Casella("BollaDog", tr("registra il giro della bolla doganale"));
  fornitoreBolla_ = Codice("FornitoreBollaDog", "fornitori");
  causaleBolla_ = Codice("CausaleBollaDog", "causali");
  pagamentoBolla_ = Codice("PagamentoBollaDog", "pagamenti");
  conRitenute_ = Casella("RitAcc", tr("registra la ritenuta d'acconto"));
  constexpr int kCifreImporto = 12;
  for (int i = 0; i < 2; ++i) {
    const auto nome = [i](const char* inizio) {
      return std::string(inizio) + (i == 0 ? "1" : "2");
    };
    auto& ritenuta = ritenuta_[i];
    ritenuta.causale = Codice(nome("CausaleRitAcc").c_str(), "causali");
    ritenuta.conto = Codice(nome("ContoRitAcc").c_str(), "conti");
    ritenuta.importo =
        new CampoImporto(QString::fromStdString(nome("ImportoRitAcc")), nullptr, decimali);
    LargoCaratteri(ritenuta.importo, kCifreImporto);
  }
}

QGroupBox* PannelloOpzioni::CreaIntra() {
  auto* riquadro = Riquadro("FrameIntra", tr("Reverse charge: registrazione sugli acquisti"));
  auto* griglia = Stretta(riquadro);
  griglia->addWidget(Didascalia(tr("Registro"), rivaIntra_), 0, 0);
  griglia->addWidget(ConDescrizione(rivaIntra_, kCaratteriOpzione), 0, 1);
  griglia->addWidget(senzaGiro_, 0, 2, 1, 2);
  griglia->addWidget(Didascalia(tr("Fornitore"), fornitoreIntra_), 1, 0);
  griglia->addWidget(ConDescrizione(fornitoreIntra_, kCaratteriOpzione), 1, 1);
  griglia->addWidget(Didascalia(tr("Conto costi"), contoCosti_), 1, 2);
  griglia->addWidget(ConDescrizione(contoCosti_, kCaratteriOpzione), 1, 3);
  griglia->addWidget(Didascalia(tr("Causale"), causaleIntra_), 2, 0);
  griglia->addWidget(ConDescrizione(causaleIntra_, kCaratteriOpzione), 2, 1);
  griglia->addWidget(Didascalia(tr("Pagamento"), pagamentoIntra_), 2, 2);
  griglia->addWidget(ConDescrizione(pagamentoIntra_, kCaratteriOpzione), 2, 3);
  griglia->setColumnStretch(1, 1);
  griglia->setColumnStretch(3, 1);
  return riquadro;
}

QGroupBox* PannelloOpzioni::CreaBolla() {
  auto* riquadro = Riquadro("FrameBollaDog", tr("Bolla doganale"));
  auto* griglia = Stretta(riquadro);
  griglia->addWidget(conBolla_, 0, 0, 1, 2);
  griglia->addWidget(Didascalia(tr("Pagamento"), pagamentoBolla_), 0, 2);
  griglia->addWidget(ConDescrizione(pagamentoBolla_, kCaratteriOpzione), 0, 3);
  griglia->addWidget(Didascalia(tr("Fornitore"), fornitoreBolla_), 1, 0);
  griglia->addWidget(ConDescrizione(fornitoreBolla_, kCaratteriOpzione), 1, 1);
  griglia->addWidget(Didascalia(tr("Causale"), causaleBolla_), 1, 2);
  griglia->addWidget(ConDescrizione(causaleBolla_, kCaratteriOpzione), 1, 3);
  griglia->setColumnStretch(1, 1);
  griglia->setColumnStretch(3, 1);
  return riquadro;
}

QGroupBox* PannelloOpzioni::CreaRitenute() {
  auto* riquadro = Riquadro("FrameRitAcc", tr("Ritenuta d'acconto"));
  auto* griglia = Stretta(riquadro);
  griglia->addWidget(conRitenute_, 0, 0, 1, 6);
  for (int i = 0; i < 2; ++i) {
    auto& ritenuta = ritenuta_[i];
    griglia->addWidget(Didascalia(tr("%1. Causale").arg(i + 1), ritenuta.causale), i + 1, 0);
    griglia->addWidget(ConDescrizione(ritenuta.causale, kCaratteriOpzione), i + 1, 1);
    griglia->addWidget(Didascalia(tr("Conto"), ritenuta.conto), i + 1, 2);
    griglia->addWidget(ConDescrizione(ritenuta.conto, kCaratteriOpzione), i + 1, 3);
    griglia->addWidget(Didascalia(tr("Importo"), ritenuta.importo), i + 1, 4);
    griglia->addWidget(ritenuta.importo, i + 1, 5);
  }
  griglia->setColumnStretch(1, 1);
  griglia->setColumnStretch(3, 1);
  return riquadro;
}

QList<QWidget*> PannelloOpzioni::Controlli() const {
  QList<QWidget*> controlli{rivaIntra_,      senzaGiro_,      fornitoreIntra_, contoCosti_,
                            causaleIntra_,   pagamentoIntra_, conBolla_,       pagamentoBolla_,
                            fornitoreBolla_, causaleBolla_,   conRitenute_};
  for (const auto& ritenuta : ritenuta_) {
    controlli << ritenuta.causale << ritenuta.conto << ritenuta.importo;
  }
  return controlli;
}

void PannelloOpzioni::Mostra() {
  const bool scrivibile = !fatture_.SolaLettura();
  const auto& testa = fatture_.Testa();
  // Registered once, with the document: afterwards there is nothing left to tell.
  intra_->setVisible(fatture_.MostraIntra() && fatture_.Nuova());
  bolla_->setVisible(fatture_.MostraBollaDoganale() && fatture_.Nuova());
  ritenute_->setVisible(fatture_.MostraRitenute());
  setVisible(!intra_->isHidden() || !bolla_->isHidden() || !ritenute_->isHidden());
  conBolla_->setEnabled(scrivibile);
  conRitenute_->setEnabled(scrivibile);
  const bool giro = !testa.Leggi("NoIntraCosto_a_Forn").Booleano();
  for (QWidget* campo : {fornitoreIntra_, contoCosti_, causaleIntra_}) campo->setEnabled(giro);
  const bool bolla = scrivibile && testa.Leggi("BollaDog").Booleano();
  for (QWidget* campo : {fornitoreBolla_, causaleBolla_, pagamentoBolla_}) {
    campo->setEnabled(bolla);
  }
  const bool trattiene = scrivibile && testa.Leggi("RitAcc").Booleano();
  for (const auto& ritenuta : ritenuta_) {
    ritenuta.causale->setEnabled(trattiene);
    ritenuta.conto->setEnabled(trattiene);
    ritenuta.importo->setEnabled(trattiene);
  }
}

}  // namespace fenalto::screens
