#include "screens/duedates/FinestraScadenze.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/FunzioniCorrelate.h"
#include "screens/duedates/CampiScadenza.h"
#include "screens/duedates/GrigliaScadenze.h"
#include "screens/duedates/SceltaParte.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreStatoRic = 4;

}  // namespace

FinestraScadenze::FinestraScadenze(Finestre& finestre)
    : FinestraConScadenza(QStringLiteral("Scadenze"), tr("Archivio Scadenze"),
                          duedates::ArchivioScadenze::Uso::Archivio, finestre),
      filtri_(new Legatura([this]() -> Scheda& { return ricerca_; }, Dialogo(), this)),
      parte_(new SceltaParte(finestre, tr("tutti"), nullptr, SceltaParte::Classe::Facoltativa)),
      anchePagate_(new QCheckBox(tr("anche scadenze pagate"))),
      cerca_(Pulsante(QStringLiteral("CercaScadenze"), tr("Cerca scadenze"))),
      griglia_(new GrigliaScadenze(Nome())),
      trovate_(new QLabel(tr("doppio clic o Invio su una riga apre la scadenza"))),
      selettore_(new CampoNumero(QStringLiteral("Rt1"))),
      apri_(Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio"))),
      nuovo_(Pulsante(QStringLiteral("Nuovo"), tr("Nuova scadenza"), tr("Ins"))) {
  for (const char* campo : {"AnnoRic", "NProtRic", "ArticoloRic"}) {
    ricerca_.Aggiungi(campo, Tipo::Intero);
  }
  for (const char* campo : {"StatoRic", "RivaRic", "NFatRic"})
    ricerca_.Aggiungi(campo, Tipo::Testo);
  ricerca_.Aggiungi("AnchePagate", Tipo::Booleano);
  trovate_->setObjectName(QStringLiteral("Trovate"));
  auto* pagina = new QWidget;
  auto* colonna = new QVBoxLayout(pagina);
  colonna->addWidget(CreaRicerca());
  colonna->addWidget(griglia_, 1);
  colonna->addWidget(CreaPiede());
  filtri_->Mostra();
  connect(cerca_, &QPushButton::clicked, this, [this] {
    if (filtri_->Raccogli()) Cerca();
  });
  connect(griglia_, &GrigliaScadenze::Scelta, this,
          [this](qint64 numero) { ApriRecord(AlNumero("", numero)); });
  connect(nuovo_, &QPushButton::clicked, this, [this] { NuovaScadenza(); });
  connect(apri_, &QPushButton::clicked, this, &FinestraScadenze::Apri);
  Disponi(pagina, tr("Ricerca"));
  parte_->Campo().setFocus();
}

FinestraScadenze::~FinestraScadenze() {
  TogliPagine();
}

QWidget* FinestraScadenze::CreaRicerca() {
  auto* riquadro = new QGroupBox(tr("Ricerca: quello che resta vuoto non restringe"));
  auto* griglia = new QGridLayout(riquadro);
  auto* prima = new QHBoxLayout;
  prima->addWidget(Didascalia(tr("Cliente/fornitore"), &parte_->Campo()));
  prima->addWidget(parte_, 1);
  griglia->addLayout(prima, 0, 0);
  auto* seconda = new QHBoxLayout;
  griglia->addLayout(seconda, 1, 0);
  const auto aggiungi = [&](QHBoxLayout& fila, QWidget* campo, int cifre, const QString& testo) {
    LargoCaratteri(campo, cifre);
    filtri_->Lega(campo);
    fila.addWidget(Didascalia(testo, campo));
    fila.addWidget(campo);
  };
  const auto numero = [](const char* nome) { return new CampoNumero(QString::fromLatin1(nome)); };
  aggiungi(*seconda, new CampoTesto(QStringLiteral("StatoRic"), nullptr, 2), kCifreStatoRic,
           tr("Stato"));
  aggiungi(*seconda, new CampoTesto(QStringLiteral("NFatRic"), nullptr, kLunghezzaFattura),
           kCifreFattura, tr("Fattura n."));
  aggiungi(*seconda, new CampoTesto(QStringLiteral("RivaRic")), kCifreNumero, tr("Registro iva"));
  aggiungi(*seconda, numero("NProtRic"), kCifreNumero, tr("Protocollo"));
  aggiungi(*seconda, numero("ArticoloRic"), kCifreNumero, tr("Registrazione n."));
  aggiungi(*seconda, numero("AnnoRic"), kCifreNumero, tr("anno"));
  anchePagate_->setObjectName(QStringLiteral("AnchePagate"));
  filtri_->Lega(anchePagate_);
  prima->addWidget(anchePagate_);
  seconda->addStretch(1);
  seconda->addWidget(cerca_);
  return riquadro;
}

QWidget* FinestraScadenze::CreaPiede() {
  auto* piede = new QWidget;
  auto* fila = new QHBoxLayout(piede);
  fila->setContentsMargins(0, 0, 0, 0);
  LargoCaratteri(selettore_, kCifreNumero);
  QList<QAbstractButton*> pulsanti{cerca_, apri_, nuovo_};
  constexpr FunzioneCorrelata kTestSaldi{"TestSaldi", "Controllo con i saldi contabili",
                                         "TestSaldi"};
  auto* saldi = PulsanteFunzione(Gestore(), kTestSaldi, pulsanti);
  fila->addWidget(trovate_, 1);
  fila->addWidget(saldi);
  fila->addSpacing(Misura(Passo::Gruppo));
  Affianca(*fila, tr("Scadenza n."), selettore_);
  fila->addWidget(apri_);
  fila->addWidget(nuovo_);
  AssegnaMnemoniche(pulsanti);
  return piede;
}

void FinestraScadenze::Cerca() {
  const auto intero = [this](const char* campo) { return ricerca_.Leggi(campo).Intero(); };
  duedates::RicercaScadenze ricerca;
  ricerca.cfp = parte_->Cfp();
  ricerca.conto = parte_->Codice();
  ricerca.stato = ricerca_.Testo("StatoRic");
  ricerca.anno = static_cast<int>(intero("AnnoRic"));
  ricerca.nFat = ricerca_.Testo("NFatRic");
  ricerca.nProt = intero("NProtRic");
  ricerca.articolo = intero("ArticoloRic");
  ricerca.riva = ricerca_.Testo("RivaRic");
  ricerca.anchePagate = ricerca_.Leggi("AnchePagate").Booleano();
  const auto totale = griglia_->Cerca(Sessione(), ricerca);
  cercato_ = true;
  // What is to come in and what is to go out don't add up.
  QString testo = totale.righe == 1 ? tr("1 scadenza") : tr("%1 scadenze").arg(totale.righe);
  const auto euro = [](Importo importo) { return Qs(ScriviImporto(importo, 2)); };
  if (totale.clienti) testo += tr(", da incassare euro %1").arg(euro(totale.daIncassare));
  if (totale.fornitori) testo += tr(", da pagare euro %1").arg(euro(totale.daPagare));
  if (totale.interrotta) testo += tr(" (ricerca interrotta)");
  trovate_->setText(testo);
}

void FinestraScadenze::RileggiScelta() {
  if (!cercato_) return;
  const int riga = griglia_->RigaCorrente();
  Cerca();
  const int righe = griglia_->Modello().rowCount();
  if (riga >= 0 && righe > 0) griglia_->VaiARiga(std::min(riga, righe - 1));
}

void FinestraScadenze::FocoScelta() {
  if (griglia_->Modello().rowCount() > 0) {
    griglia_->setFocus();
  } else {
    FocoInVista(nuovo_);
  }
}

void FinestraScadenze::Apri() {
  ApriRecord({.codice = selettore_->text().trimmed().toStdString()});
}

void FinestraScadenze::ApriRecord(const Rinvio& rinvio) {
  if (!rinvio.classe.empty()) {
    if (Caso().Aperta()) return;
    parte_->Imposta(rinvio.classe, rinvio.codice);
    Cerca();
    FocoScelta();
    return;
  }
  const QString codice = QString::fromStdString(rinvio.codice);
  bool numero = false;
  const qint64 quale = codice.toLongLong(&numero);
  if (numero && ApriScadenza(quale)) {
    selettore_->setText(codice);
    return;
  }
  if (Caso().Aperta()) return;
  trovate_->setText(codice.isEmpty() ? tr("scrivere il numero della scadenza")
                                     : tr("non c'è una scadenza n. %1").arg(codice));
  selettore_->setFocus();
}

}  // namespace fenalto::screens
