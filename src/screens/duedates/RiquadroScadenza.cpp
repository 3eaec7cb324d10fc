#include "screens/duedates/RiquadroScadenza.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/schedules/ArchivioScadenze.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/duedates/CampiScadenza.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreCodice = 6;
constexpr int kCifreParte = 12;
constexpr int kCaratteriDescrizione = 64;
constexpr int kCifreStato = 4;

CampoNumero* Numero(const char* nome) {
  auto* campo = new CampoNumero(QString::fromLatin1(nome));
  LargoCaratteri(campo, kCifreNumero);
  return campo;
}

CampoImporto* InEuro(const char* nome) {
  auto* campo = new CampoImporto(QString::fromLatin1(nome));
  LargoCaratteri(campo, kCifreImporto);
  return campo;
}

/// A caption and its field, side by side.
void Accanto(QHBoxLayout& fila, const QString& testo, QWidget* campo, QWidget* disposto) {
  fila.addWidget(Didascalia(testo, campo));
  fila.addWidget(disposto);
}

}  // namespace

RiquadroScadenza::RiquadroScadenza(duedates::ArchivioScadenze& caso, Finestre& finestre,
                                   bool parteData, QWidget* genitore)
    : QWidget(genitore),
      caso_(caso),
      finestre_(finestre),
      parteData_(parteData),
      legatura_(new Legatura([this]() -> Scheda& { return caso_.Record(); },
                             finestre.Sessione().Dialogo(), this)),
      classe_(new QComboBox),
      conto_(
          new CampoCodice(QStringLiteral("Conto"), archives::FonteConti(finestre.Sessione(), "C"))),
      conferma_(Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"))),
      elimina_(Pulsante(QStringLiteral("Elimina"), tr("Elimina"), tr("Ctrl+Canc"))),
      ripristina_(Pulsante(QStringLiteral("CmdRipristina"), tr("Ripristina come non pagata"))),
      vedi_(Pulsante(QStringLiteral("VedereRegCont"), tr("Vedere la fattura"))),
      annulla_(Pulsante(QStringLiteral("Annulla"), tr("Abbandona"), tr("Esc"))) {
  classe_->setObjectName(QStringLiteral("CFP"));
  classe_->addItems({QStringLiteral("C"), QStringLiteral("F")});
  classe_->setToolTip(tr("C cliente, F fornitore"));
  auto* colonna = new QVBoxLayout(this);
  dati_ = new QWidget;
  auto* campi = new QVBoxLayout(dati_);
  campi->setContentsMargins(0, 0, 0, 0);
  campi->addWidget(CreaDati());
  auto* fila = new QHBoxLayout;
  fila->addWidget(CreaFattura(), 1);
  fila->addWidget(CreaRiba(), 1);
  campi->addLayout(fila);
  colonna->addWidget(dati_);
  colonna->addWidget(CreaPiede());
  colonna->addStretch(1);
  legatura_->Rinuncia(annulla_);
  AssegnaMnemoniche({conferma_, elimina_, ripristina_, vedi_, annulla_});
  Collega();
}

QWidget* RiquadroScadenza::Lega(QWidget* campo) {
  legatura_->Lega(campo);
  return campo;
}

QWidget* RiquadroScadenza::CreaDati() {
  auto* riquadro = new QGroupBox(tr("Scadenza"));
  auto* griglia = new QGridLayout(riquadro);
  int linea = 0;
  const auto fila = [&](QWidget* primo, const QString& testo) {
    griglia->addWidget(Didascalia(testo, primo), linea, 0);
    auto* insieme = new QHBoxLayout;
    griglia->addLayout(insieme, linea++, 1);
    return insieme;
  };
  auto* parte = fila(conto_, tr("Cliente/fornitore"));
  parte->addWidget(Lega(classe_));
  parte->addWidget(ConDescrizione(conto_, kCifreParte), 1);
  Lega(conto_);

  auto* giorno = CampoGiorno("Dt", finestre_.Sessione());
  auto* tipo = CampoTipo("Tipo", finestre_);
  tipo->setToolTip(tr("03 ricevuta bancaria; negli altri casi è solo un'indicazione"));
  auto* stato = new CampoTesto(QStringLiteral("Stato"), nullptr, 2);
  LargoCaratteri(stato, kCifreStato);
  stato->setToolTip(tr("00 e 01 aperta, 10 pagata in parte, 30 pagata"));
  auto* prima = fila(giorno, tr("Data scadenza"));
  prima->addWidget(Lega(giorno));
  auto* conDescrizione = ConDescrizione(tipo, kCifreCodice);
  constexpr int kCaratteriTipo = 26;
  LargoCaratteri(conDescrizione, kCaratteriTipo);
  Accanto(*prima, tr("Tipo"), tipo, conDescrizione);
  Accanto(*prima, tr("Stato"), Lega(stato), stato);
  Lega(tipo);
  auto* leggenda = new QLabel(tr("00 e 01 aperta, 10 pagata in parte, 30 pagata"));
  leggenda->setForegroundRole(QPalette::PlaceholderText);
  prima->addWidget(leggenda);
  prima->addStretch(1);

  auto* importo = InEuro("ImportoE");
  auto* pagato = InEuro("ImportoPagatoE");
  auto* giornoPagato = CampoGiorno("DtPag", finestre_.Sessione());
  auto* anticipo = new QCheckBox(tr("anticipo su fattura da emettere o ricevere"));
  anticipo->setObjectName(QStringLiteral("anticipo"));
  auto* seconda = fila(importo, tr("Importo"));
  seconda->addWidget(Lega(importo));
  Accanto(*seconda, tr("Pagato"), Lega(pagato), pagato);
  Accanto(*seconda, tr("il"), Lega(giornoPagato), giornoPagato);
  seconda->addWidget(Lega(anticipo));
  seconda->addStretch(1);

  auto* descrizione = new CampoTesto(QStringLiteral("Descrizione"), nullptr, kCaratteriDescrizione);
  LargoCaratteri(descrizione, kCaratteriDescrizione);
  auto* terza = fila(descrizione, tr("Descrizione"));
  terza->addWidget(Lega(descrizione));
  terza->addStretch(1);
  auto* pagamento = CampoPagamento("Pagamento", finestre_);
  auto* quarta = fila(pagamento, tr("Pagamento"));
  quarta->addWidget(ConDescrizione(pagamento, kCifreParte), 1);
  Lega(pagamento);
  griglia->setColumnStretch(1, 1);
  return riquadro;
}

QWidget* RiquadroScadenza::CreaFattura() {
  auto* riquadro = new QGroupBox(tr("Fattura e registrazione"));
  auto* griglia = new QGridLayout(riquadro);
  const auto metti = [&](QWidget* campo, const QString& testo, int riga, int colonna) {
    griglia->addWidget(Didascalia(testo, campo), riga, colonna);
    griglia->addWidget(Lega(campo), riga, colonna + 1);
  };
  auto* riva = new CampoTesto(QStringLiteral("Riva"), nullptr, kCifreCodice);
  LargoCaratteri(riva, kCifreNumero);
  auto* programma = new QLabel;
  programma->setObjectName(QStringLiteral("Programma"));
  programma->setToolTip(tr("chi ha scritto la scadenza"));
  int riga = 0;
  metti(Numero("NFat"), tr("Fattura n."), riga, 0);
  metti(CampoGiorno("DtFat", finestre_.Sessione()), tr("del"), riga, 2);
  ++riga;
  metti(riva, tr("Registro iva"), riga, 0);
  metti(Numero("NProt"), tr("Protocollo"), riga, 2);
  ++riga;
  metti(Numero("Articolo"), tr("Registrazione n."), riga, 0);
  metti(Numero("Anno"), tr("anno"), riga, 2);
  ++riga;
  metti(programma, tr("Scritta da"), riga, 0);
  griglia->setColumnStretch(4, 1);
  return riquadro;
}

QWidget* RiquadroScadenza::CreaRiba() {
  auto* riquadro = new QGroupBox(tr("Dati riba"));
  auto* griglia = new QGridLayout(riquadro);
  auto* banca = CampoBanca("BancaPresentaz", finestre_);
  griglia->addWidget(Didascalia(tr("Banca"), banca), 0, 0);
  griglia->addWidget(ConDescrizione(banca, kCifreCodice), 0, 1);
  Lega(banca);
  auto* distinta = Numero("Ndistinta");
  griglia->addWidget(Didascalia(tr("Distinta n."), distinta), 1, 0);
  griglia->addWidget(Lega(distinta), 1, 1, Qt::AlignLeft);
  auto* presentata = CampoGiorno("DtPres", finestre_.Sessione());
  griglia->addWidget(Didascalia(tr("Presentata il"), presentata), 2, 0);
  griglia->addWidget(Lega(presentata), 2, 1, Qt::AlignLeft);
  griglia->setColumnStretch(1, 1);
  griglia->setRowStretch(3, 1);
  return riquadro;
}

QWidget* RiquadroScadenza::CreaPiede() {
  auto* piede = new QWidget;
  auto* fila = new QHBoxLayout(piede);
  fila->setContentsMargins(0, 0, 0, 0);
  fila->addWidget(vedi_);
  fila->addWidget(ripristina_);
  fila->addStretch(1);
  for (auto* pulsante : {conferma_, elimina_, annulla_}) fila->addWidget(pulsante);
  return piede;
}

void RiquadroScadenza::Collega() {
  connect(legatura_, &Legatura::Lasciato, this, [this](const QString& campo, bool cambiato) {
    if (cambiato && campo == QStringLiteral("CFP")) ClasseScelta();
  });
  connect(conferma_, &QPushButton::clicked, this, &RiquadroScadenza::Conferma);
  connect(elimina_, &QPushButton::clicked, this, [this] {
    if (caso_.Elimina()) emit Conclusa();
  });
  connect(ripristina_, &QPushButton::clicked, this, [this] {
    if (!legatura_->Raccogli() || !caso_.Ripristina()) return;
    Mostra();
    emit Ripristinata();
  });
  connect(vedi_, &QPushButton::clicked, this, &RiquadroScadenza::RegistrazioneChiesta);
  connect(annulla_, &QPushButton::clicked, this, &RiquadroScadenza::AbbandonoChiesto);
}

/// The code's search follows the class.
void RiquadroScadenza::ClasseScelta() {
  const std::string classe = caso_.Record().Testo("CFP");
  if (classeMostrata_ == QString::fromStdString(classe)) return;
  classeMostrata_ = QString::fromStdString(classe);
  conto_->Fonte(archives::FonteConti(finestre_.Sessione(), classe));
  conto_->Risolvi();
}

void RiquadroScadenza::Mostra() {
  ClasseScelta();
  legatura_->Mostra();
  const bool scrivibile = caso_.Aperta() && !caso_.SolaLettura();
  dati_->setEnabled(scrivibile);
  vedi_->setEnabled(caso_.Aperta());
  classe_->setEnabled(!parteData_);
  conto_->setEnabled(!parteData_);
  conferma_->setEnabled(scrivibile);
  elimina_->setEnabled(scrivibile && !caso_.Nuova());
  ripristina_->setEnabled(caso_.Ripristinabile());
}

void RiquadroScadenza::DaiFoco(const std::string& campo) {
  const char* primo = caso_.Nuova() && !parteData_ ? "Conto" : "Dt";
  auto* controllo = findChild<QWidget*>(campo.empty() ? QString::fromLatin1(primo)
                                                      : QString::fromStdString(campo));
  if (controllo == nullptr || !controllo->isEnabled()) controllo = annulla_;
  controllo->setFocus(Qt::OtherFocusReason);
}

bool RiquadroScadenza::Raccogli() {
  return legatura_->Raccogli();
}

bool RiquadroScadenza::Pendente() const {
  return legatura_->Pendente();
}

void RiquadroScadenza::Conferma() {
  if (!legatura_->Raccogli()) return;
  std::string campo;
  if (caso_.Conferma(&campo)) {
    emit Conclusa();
    return;
  }
  Mostra();
  if (!campo.empty()) DaiFoco(campo);
}

}  // namespace fenalto::screens
