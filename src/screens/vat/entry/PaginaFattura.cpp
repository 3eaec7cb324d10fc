#include "screens/vat/entry/PaginaFattura.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/FinestraFunzione.h"
#include "screens/vat/entry/FormaFattura.h"
#include "screens/vat/entry/PannelloContabile.h"
#include "screens/vat/entry/RiquadroRigaIva.h"

namespace fenalto::screens {
namespace {

bool SenzaImporti(const vat::RigaIva& riga) {
  return riga.imponibile.Zero() && riga.iva.Zero() && riga.ivaInd.Zero();
}

}  // namespace

PaginaFattura::PaginaFattura(vat::RegistrazioneIva& fatture, Finestre& finestre, QWidget* genitore)
    : PaginaSul(fatture, finestre, genitore), opzioniInVista_(new QWidget) {
  auto* inOpzioni = new QVBoxLayout(opzioniInVista_);
  inOpzioni->setContentsMargins(0, 0, 0, 0);
  opzioni_ = Compila(FormaOpzioniFattura(), *inOpzioni);
  contabile_ = new PannelloContabile(caso_, finestre_, *legatura_);
  constexpr int kRigheMinime = 3;
  Usa(CreaGriglia(), kRigheMinime, new RiquadroRigaIva(caso_, finestre_));
  solaLettura_->setWordWrap(true);
  proposta_ = new QLabel;
  proposta_->setObjectName(QStringLiteral("RigheProponibili"));
  proponi_ = Pulsante(QStringLiteral("ProponiRighe"), tr("Proponi le righe"), tr("F6"));
  scadenze_ = Pulsante(QStringLiteral("ScadenzeModifica"), tr("Scadenze"));
  scadenze_->setToolTip(tr("le scadenze della registrazione e gli anticipi da dedurre"));
  legatura_->Rinuncia(annulla_);
  auto* destra = new QVBoxLayout;
  destra->addWidget(opzioniInVista_);
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
  connect(proponi_, &QPushButton::clicked, this, &PaginaFattura::ProponiRighe);
  connect(scadenze_, &QPushButton::clicked, this, &PaginaFattura::VediScadenze);
  AssegnaMnemoniche(QList<QAbstractButton*>{conferma_, nuovaRiga_, proponi_, elimina_, scadenze_} +
                    riga_->Pulsanti() + QList<QAbstractButton*>{annulla_});
}

Griglia* PaginaFattura::CreaGriglia() {
  return new Griglia(
      QStringLiteral("GrigliaRighe"), QStringLiteral("Fatture"),
      {{tr("Posizione"), Tipo::Intero, 40, 2, QStringLiteral("Posi")},
       {tr("Conto"), Tipo::Testo, 75},
       {tr("Descrizione conto"), Tipo::Testo, 125, 2, QStringLiteral("Descr. conto|DescrConto")},
       {tr("Codice IVA"), Tipo::Testo, 55, 2, QStringLiteral("Cod. iva|CodIva")},
       {tr("Imponibile"), Tipo::Importo, 90},
       {tr("IVA"), Tipo::Importo, 72, 2, QStringLiteral("Iva")},
       {tr("IVA indetraibile"), Tipo::Importo, 72, 2, QStringLiteral("Iva indetr.|IvaInd")},
       {tr("Descrizione"), Tipo::Testo, 110},
       {tr("Categoria"), Tipo::Testo, 65},
       {tr("Commessa"), Tipo::Testo, 65}});
}

QVBoxLayout* PaginaFattura::DisponiSinistra() {
  auto* colonna = new QVBoxLayout;
  auto* testa = new QVBoxLayout;
  testa_ = Compila(FormaTestaFattura(), *testa);
  colonna->addLayout(testa);
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
  riga->addWidget(scadenze_);
  riga->addSpacing(Misura(Passo::Gruppo));
  for (auto* pulsante : {conferma_, elimina_, annulla_}) riga->addWidget(pulsante);
  return riga;
}

void PaginaFattura::OrdineTab() {
  QList<QWidget*> ordine = testa_->Ordine();
  ordine << contabile_->TotaleDigitato() << opzioni_->Ordine() << nuovaRiga_ << proponi_ << righe_;
  ordine << scadenze_ << conferma_ << elimina_ << annulla_ << testa_->Ordine(1)
         << testa_->Ordine(2);
  OrdinaFuochi(ordine);
}

QList<QList<QWidget*>> PaginaFattura::OrdineTesta() const {
  const QList<QWidget*> controllo{contabile_->TotaleDigitato()};
  return {testa_->Ordine() + controllo + opzioni_->Ordine(), testa_->Ordine(1), testa_->Ordine(2)};
}

bool PaginaFattura::Ripeti(QWidget* campo) {
  const auto dellaTesta = testa_->Ordine() + testa_->Ordine(1) + testa_->Ordine(2);
  if (!dellaTesta.contains(campo) || !campo->isEnabled()) return false;
  const std::string nome = campo->objectName().toStdString();
  const auto precedente = caso_.Precedente(nome);
  if (!caso_.Testa().Ha(nome)) return false;
  if (!precedente || caso_.SolaLettura()) return true;
  caso_.Testa().Scrivi(nome, *precedente);
  caso_.TestaLasciata(nome);
  Mostra();
  return true;
}

// --- What is shown ----------------------------------------------------------------------------

void PaginaFattura::Mostra() {
  const bool scrivibile = !caso_.SolaLettura();
  nuovaRiga_->setEnabled(scrivibile && !RigaAperta());
  conferma_->setEnabled(scrivibile);
  elimina_->setEnabled(scrivibile && !caso_.Nuova());
  scadenze_->setEnabled(!caso_.Nuova() &&
                        finestre_.FunzioneDisponibile(QStringLiteral("ScadenzeModifica")));
  contabile_->TotaleDigitato()->setEnabled(scrivibile);
  solaLettura_->setVisible(!scrivibile);
  solaLettura_->setText(QString::fromStdString(caso_.MotivoSolaLettura()) +
                        tr(": si può consultare, non cambiare."));
  MostraCampi(scrivibile);
  legatura_->Mostra();
  MostraElencoRighe();
  MostraProposta();
  contabile_->Mostra();
  MostraRiquadro();
}

void PaginaFattura::MostraCampi(bool scrivibile) {
  testa_->Applica([this](const std::string& nome) { return StatoTestaFattura(caso_, nome); },
                  !scrivibile);
  opzioni_->Applica([this](const std::string& nome) { return StatoOpzioniFattura(caso_, nome); },
                    !scrivibile);
  opzioniInVista_->setVisible(opzioni_->ConRiquadri());
}

void PaginaFattura::VediScadenze() {
  finestre_.Segui(AlNumero("ScadenzeModifica", caso_.Testa().Leggi("NumDoc").Intero(),
                           finestre_.Sessione().Anno()));
}

std::string PaginaFattura::DescrittoConto(const std::string& conto) {
  return NzStr(finestre_.Sessione().Cerca("tessarc", "Conti", {{"Cod", conto}}, "Descrizione"));
}

void PaginaFattura::MostraElencoRighe() {
  std::vector<std::vector<Valore>> righe;
  for (const auto& riga : caso_.Righe()) {
    righe.push_back({riga.posi, riga.conto, DescrittoConto(riga.conto), riga.codIva,
                     riga.imponibile, riga.iva, riga.ivaInd, riga.descrizione, riga.categoria,
                     riga.commessa});
  }
  MostraRighe(std::move(righe));
}

void PaginaFattura::MostraProposta() {
  const auto quante = caso_.SolaLettura() ? 0 : caso_.RigheProponibili();
  proposta_->setVisible(quante > 0);
  proponi_->setVisible(quante > 0);
  proposta_->setText(quante == 1 ? tr("l'ultima registrazione ha 1 riga")
                                 : tr("l'ultima registrazione ha %1 righe").arg(quante));
}

void PaginaFattura::Entra() {
  percorre_ = false;
  contabile_->Dimentica();
  PaginaConRighe::Entra();
}

void PaginaFattura::FocoData() {
  testa_->Controllo("Dt").setFocus();
}

// --- Rows -------------------------------------------------------------------------------------

void PaginaFattura::ApriRiga(int indice) {
  if (!legatura_->Raccogli()) return;
  const auto posi = righe_->Modello().Riga(indice).front().Intero();
  if (RigaAperta()) {
    if (caso_.Riga().Leggi("Posi").Intero() == posi && !caso_.RigaNuova()) return;
    if (riga_->Pendente() || caso_.Riga().Modificata()) {
      finestre_.Sessione().Dialogo().Messaggio("confermare o annullare prima la riga",
                                               Icona::Avviso);
      return;
    }
    caso_.AnnullaRiga();
  }
  const auto& righe = caso_.Righe();
  for (std::size_t i = 0; i < righe.size(); ++i) {
    if (righe[i].posi != posi) continue;
    if (!caso_.ApriRiga(i)) return;
    Mostra();
    riga_->Entra();
    VaiAPosizione(posi);
    return;
  }
}

void PaginaFattura::NuovaRiga() {
  if (!Raccogli() || !caso_.PNuovaRiga()) return;
  Mostra();
  riga_->Entra();
}

bool PaginaFattura::ApriProposta(qint64 dopo) {
  const auto& righe = caso_.Righe();
  for (std::size_t i = 0; i < righe.size(); ++i) {
    if (righe[i].posi <= dopo || !SenzaImporti(righe[i]) || !caso_.ApriRiga(i)) continue;
    Mostra();
    riga_->Entra();
    VaiAPosizione(righe[i].posi);
    return true;
  }
  return false;
}

void PaginaFattura::ProponiRighe() {
  if (!Raccogli() || caso_.RigheProponibili() == 0) return;
  caso_.ProponiRighe();
  percorre_ = true;
  if (!ApriProposta(0)) DopoRiga(0);
}

void PaginaFattura::DopoRiga(qint64 posi) {
  if (percorre_ && ApriProposta(posi)) return;
  PaginaConRighe::DopoRiga(posi);
  if (std::exchange(percorre_, false)) FocoInVista(conferma_);
}

void PaginaFattura::DopoRinuncia() {
  percorre_ = false;
  PaginaConRighe::DopoRinuncia();
}

// --- Registration -----------------------------------------------------------------------------

std::optional<std::int64_t> PaginaFattura::ConfermaRegistrazione() {
  std::string campo;
  if (caso_.Conferma(&campo)) return caso_.NumeroConfermato();
  Mostra();
  VaiA(campo);
  return std::nullopt;
}

bool PaginaFattura::EliminaRegistrazione() {
  if (!Raccogli()) return false;
  if (caso_.Elimina()) return true;
  Mostra();
  return false;
}

}  // namespace fenalto::screens
