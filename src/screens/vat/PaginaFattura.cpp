#include "screens/vat/PaginaFattura.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/Campi.h"
#include "screens/common/Disposizione.h"
#include "screens/common/Griglia.h"
#include "screens/common/Legatura.h"
#include "screens/vat/PannelloContabile.h"
#include "screens/vat/PannelloOpzioni.h"
#include "screens/vat/RiquadroRigaIva.h"
#include "screens/vat/TestaFattura.h"

namespace fenalto {
namespace {

bool SenzaImporti(const RigaIva& riga) {
  return riga.imponibile.Zero() && riga.iva.Zero() && riga.ivaInd.Zero();
}

}  // namespace

PaginaFattura::PaginaFattura(Fatture& fatture, Finestre& finestre, QWidget* genitore)
    : QWidget(genitore), fatture_(fatture), finestre_(finestre) {
  legatura_ = new Legatura([this]() -> Scheda& { return fatture_.Testa(); },
                           finestre_.Sessione().Dialogo(), this);
  testa_ = new TestaFattura(fatture_, finestre_, *legatura_);
  opzioni_ = new PannelloOpzioni(fatture_, finestre_, *legatura_);
  contabile_ = new PannelloContabile(fatture_, finestre_, *legatura_);
  riga_ = new RiquadroRigaIva(fatture_, finestre_);
  solaLettura_ = new QLabel;
  solaLettura_->setObjectName(QStringLiteral("AvvisoSolaLettura"));
  solaLettura_->setTextFormat(Qt::PlainText);
  solaLettura_->setWordWrap(true);
  QFont grassetto = solaLettura_->font();
  grassetto.setBold(true);
  solaLettura_->setFont(grassetto);
  proposta_ = new QLabel;
  proposta_->setObjectName(QStringLiteral("RigheProponibili"));
  proponi_ = Pulsante(QStringLiteral("ProponiRighe"), tr("Proponi le righe"), tr("F6"));
  nuovaRiga_ = Pulsante(QStringLiteral("PNuovaRiga"), tr("Nuova riga"), tr("Ins"));
  conferma_ = Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"));
  elimina_ = Pulsante(QStringLiteral("Elimina"), tr("Elimina"), tr("Ctrl+Canc"));
  annulla_ = Pulsante(QStringLiteral("Annulla"), tr("Annulla"), tr("Esc"));
  legatura_->Rinuncia(annulla_);
  CreaGriglia();
  auto* destra = new QVBoxLayout;
  destra->addWidget(opzioni_);
  destra->addWidget(contabile_, 1);
  auto* corpo = new QHBoxLayout;
  constexpr int kSinistra = 5;
  constexpr int kDestra = 3;
  corpo->addLayout(DisponiSinistra(), kSinistra);
  corpo->addLayout(destra, kDestra);
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(solaLettura_);
  colonna->addLayout(corpo, 1);
  colonna->addLayout(DisponiPiede());
  OrdineTab();
  Collega();
  AssegnaMnemoniche(QList<QAbstractButton*>{conferma_, nuovaRiga_, proponi_, elimina_} +
                    riga_->Pulsanti() + QList<QAbstractButton*>{annulla_});
}

void PaginaFattura::CreaGriglia() {
  righe_ = new Griglia(QStringLiteral("GrigliaRighe"), QStringLiteral("Fatture"),
                       {{tr("Posi"), Tipo::Intero, 40},
                        {tr("Conto"), Tipo::Testo, 75},
                        {tr("Descr. conto"), Tipo::Testo, 125},
                        {tr("Cod. iva"), Tipo::Testo, 55},
                        {tr("Imponibile"), Tipo::Importo, 90},
                        {tr("Iva"), Tipo::Importo, 72},
                        {tr("Iva indetr."), Tipo::Importo, 72},
                        {tr("Descrizione"), Tipo::Testo, 110},
                        {tr("Categoria"), Tipo::Testo, 65},
                        {tr("Commessa"), Tipo::Testo, 65}});
  righe_->Modello().Decimali(finestre_.Sessione().Euro() ? 2 : 0);
  righe_->setToolTip(tr("clic o Invio su una riga la apre"));
  constexpr int kRigheMinime = 3;
  righe_->setMinimumHeight(righe_->fontMetrics().height() * (kRigheMinime + 2));
}

QVBoxLayout* PaginaFattura::DisponiSinistra() {
  auto* colonna = new QVBoxLayout;
  colonna->addWidget(testa_);
  colonna->addLayout(DisponiComandiRighe());
  colonna->addWidget(righe_, 1);
  colonna->addWidget(riga_);
  return colonna;
}

QHBoxLayout* PaginaFattura::DisponiComandiRighe() {
  auto* riga = new QHBoxLayout;
  riga->addWidget(nuovaRiga_);
  riga->addStretch(1);
  riga->addWidget(proposta_);
  riga->addWidget(proponi_);
  return riga;
}

QHBoxLayout* PaginaFattura::DisponiPiede() {
  auto* riga = new QHBoxLayout;
  auto* aiuto = new QLabel(tr("Ctrl+D in un campo ripete quello della registrazione precedente"));
  aiuto->setForegroundRole(QPalette::PlaceholderText);
  riga->addWidget(aiuto);
  riga->addStretch(1);
  for (auto* pulsante : {conferma_, elimina_, annulla_}) riga->addWidget(pulsante);
  return riga;
}

void PaginaFattura::OrdineTab() {
  QList<QWidget*> ordine = testa_->Ordine();
  ordine << contabile_->TotaleDigitato() << opzioni_->Controlli() << nuovaRiga_ << proponi_
         << righe_;
  ordine << conferma_ << elimina_ << annulla_ << testa_->Rari();
  for (int i = 1; i < ordine.size(); ++i) setTabOrder(ordine[i - 1], ordine[i]);
}

void PaginaFattura::Collega() {
  connect(legatura_, &Legatura::Lasciato, this, &PaginaFattura::CampoLasciato);
  connect(righe_, &Griglia::RigaScelta, this, &PaginaFattura::ApriRiga);
  // The first click has opened the row, the second has taken the focus to the grid.
  connect(righe_, &Griglia::RigaDoppioClic, this, [this](int indice) {
    ApriRiga(indice);
    if (riga_->isVisible()) riga_->PrendiFoco();
  });
  connect(riga_, &RiquadroRigaIva::Confermata, this, &PaginaFattura::DopoRiga);
  connect(riga_, &RiquadroRigaIva::Eliminata, this, &PaginaFattura::DopoRiga);
  connect(riga_, &RiquadroRigaIva::Annullata, this, [this] {
    percorre_ = false;
    DopoRiga(0);
  });
  connect(proponi_, &QPushButton::clicked, this, &PaginaFattura::ProponiRighe);
  connect(nuovaRiga_, &QPushButton::clicked, this, &PaginaFattura::NuovaRiga);
  connect(conferma_, &QPushButton::clicked, this, &PaginaFattura::Conferma);
  connect(elimina_, &QPushButton::clicked, this, &PaginaFattura::Elimina);
  connect(annulla_, &QPushButton::clicked, this, &PaginaFattura::AbbandonoChiesto);
}

void PaginaFattura::CampoLasciato(const QString& campo, bool cambiato, Qt::FocusReason motivo) {
  if (fatture_.StatoCorrente() < Fatture::Stato::Aperta) return;
  // The date is checked each time that it is typed, and once when the user passes through it.
  const bool diData = campo == QLatin1String("Dt");
  const Data valore = diData ? fatture_.Testa().Leggi("Dt").Data() : Data();
  const bool passata = diData && valore != dataVista_ &&
                       (motivo == Qt::TabFocusReason || motivo == Qt::BacktabFocusReason);
  if (!cambiato && !passata) return;
  if (diData) dataVista_ = valore;
  fatture_.TestaLasciata(campo.toStdString());
  Mostra();
}

bool PaginaFattura::Raccogli() {
  return legatura_->Raccogli() && riga_->Raccogli();
}

bool PaginaFattura::Pendente() const {
  return legatura_->Pendente() || riga_->Pendente();
}

bool PaginaFattura::Ripeti(QWidget* campo) {
  if (!testa_->isAncestorOf(campo) || !campo->isEnabled()) return false;
  const std::string nome = campo->objectName().toStdString();
  const auto precedente = fatture_.Precedente(nome);
  if (!fatture_.Testa().Ha(nome)) return false;
  if (!precedente || fatture_.SolaLettura()) return true;
  fatture_.Testa().Scrivi(nome, *precedente);
  fatture_.TestaLasciata(nome);
  Mostra();
  return true;
}

// --- What is shown ----------------------------------------------------------------------------

void PaginaFattura::Mostra() {
  const bool scrivibile = !fatture_.SolaLettura();
  const bool rigaAperta = fatture_.StatoCorrente() == Fatture::Stato::RigaAperta;
  nuovaRiga_->setEnabled(scrivibile && !rigaAperta);
  conferma_->setEnabled(scrivibile);
  elimina_->setEnabled(scrivibile && !fatture_.Nuova());
  contabile_->TotaleDigitato()->setEnabled(scrivibile);
  solaLettura_->setVisible(!scrivibile);
  solaLettura_->setText(QString::fromStdString(fatture_.MotivoSolaLettura()) +
                        tr(": si può consultare, non cambiare."));
  testa_->Mostra();
  opzioni_->Mostra();
  legatura_->Mostra();
  MostraRighe();
  MostraProposta();
  contabile_->Mostra();
  if (rigaAperta) riga_->Mostra();
  riga_->setVisible(rigaAperta);
}

std::string PaginaFattura::DescrittoConto(const std::string& conto) {
  return NzStr(finestre_.Sessione().Cerca("tessarc", "Conti", {{"Cod", conto}}, "Descrizione"));
}

void PaginaFattura::MostraRighe() {
  std::vector<std::vector<Valore>> righe;
  for (const auto& riga : fatture_.Righe()) {
    righe.push_back({riga.posi, riga.conto, DescrittoConto(riga.conto), riga.codIva,
                     riga.imponibile, riga.iva, riga.ivaInd, riga.descrizione, riga.categoria,
                     riga.commessa});
  }
  const int corrente = righe_->RigaCorrente();
  const auto posi = corrente >= 0 ? righe_->Modello().Riga(corrente).front().Intero() : 0;
  righe_->Modello().Righe(std::move(righe));
  VaiAPosizione(posi);
}

void PaginaFattura::MostraProposta() {
  const auto quante = fatture_.SolaLettura() ? 0 : fatture_.RigheProponibili();
  proposta_->setVisible(quante > 0);
  proponi_->setVisible(quante > 0);
  proposta_->setText(quante == 1 ? tr("l'ultima registrazione ha 1 riga")
                                 : tr("l'ultima registrazione ha %1 righe").arg(quante));
}

void PaginaFattura::VaiAPosizione(std::int64_t posi) {
  for (int i = 0; i < righe_->Modello().rowCount(); ++i) {
    if (righe_->Modello().Riga(i).front().Intero() == posi) righe_->VaiARiga(i);
  }
}

void PaginaFattura::Entra() {
  dataVista_ = Data();
  percorre_ = false;
  contabile_->Dimentica();
  Mostra();
  if (fatture_.Nuova()) {
    testa_->FocoData();
  } else {
    righe_->setFocus();
    righe_->VaiARiga(0);
  }
}

// --- Rows -------------------------------------------------------------------------------------

void PaginaFattura::ApriRiga(int indice) {
  if (!legatura_->Raccogli()) return;
  const auto posi = righe_->Modello().Riga(indice).front().Intero();
  if (fatture_.StatoCorrente() == Fatture::Stato::RigaAperta) {
    if (fatture_.Riga().Leggi("Posi").Intero() == posi && !fatture_.RigaNuova()) return;
    if (riga_->Pendente() || fatture_.Riga().Modificata()) {
      finestre_.Sessione().Dialogo().Messaggio("confermare o annullare prima la riga",
                                               Icona::Avviso);
      return;
    }
    fatture_.AnnullaRiga();
  }
  const auto& righe = fatture_.Righe();
  for (std::size_t i = 0; i < righe.size(); ++i) {
    if (righe[i].posi != posi) continue;
    if (!fatture_.ApriRiga(i)) return;
    Mostra();
    riga_->Entra();
    VaiAPosizione(posi);
    return;
  }
}

void PaginaFattura::NuovaRiga() {
  if (!Raccogli() || !fatture_.PNuovaRiga()) return;
  Mostra();
  riga_->Entra();
}

bool PaginaFattura::ApriProposta(qint64 dopo) {
  const auto& righe = fatture_.Righe();
  for (std::size_t i = 0; i < righe.size(); ++i) {
    if (righe[i].posi <= dopo || !SenzaImporti(righe[i]) || !fatture_.ApriRiga(i)) continue;
    Mostra();
    riga_->Entra();
    VaiAPosizione(righe[i].posi);
    return true;
  }
  return false;
}

void PaginaFattura::ProponiRighe() {
  if (!Raccogli() || fatture_.RigheProponibili() == 0) return;
  fatture_.ProponiRighe();
  percorre_ = true;
  if (!ApriProposta(0)) DopoRiga(0);
}

void PaginaFattura::DopoRiga(qint64 posi) {
  if (percorre_ && ApriProposta(posi)) return;
  const bool percorse = std::exchange(percorre_, false);
  Mostra();
  VaiAPosizione(posi);
  if (percorse) {
    FocoInVista(conferma_);
  } else if (nuovaRiga_->isEnabled()) {
    FocoInVista(nuovaRiga_);
  } else {
    righe_->setFocus();
  }
}

bool PaginaFattura::AnnullaRiga() {
  if (fatture_.StatoCorrente() != Fatture::Stato::RigaAperta) return false;
  fatture_.AnnullaRiga();
  percorre_ = false;
  DopoRiga(0);
  return true;
}

// --- Registration -----------------------------------------------------------------------------

void PaginaFattura::VaiA(const std::string& campo) {
  if (campo.empty()) return;
  auto* controllo = findChild<QWidget*>(QString::fromStdString(campo));
  if (controllo == nullptr || !controllo->isVisible() || !controllo->isEnabled()) return;
  if (controllo == nuovaRiga_) {
    FocoInVista(controllo);
  } else {
    controllo->setFocus(Qt::OtherFocusReason);
  }
}

void PaginaFattura::Conferma() {
  if (!Raccogli()) return;
  std::string campo;
  if (fatture_.Conferma(&campo)) {
    emit Confermata(fatture_.NumeroConfermato());
    return;
  }
  Mostra();
  VaiA(campo);
}

void PaginaFattura::Elimina() {
  if (!Raccogli()) return;
  if (fatture_.Elimina()) {
    emit Eliminata();
  } else {
    Mostra();
  }
}

}  // namespace fenalto
