#include "screens/documents/parties/FinestraInterrCliFor.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QSet>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

#include "core/values/FormatoImporto.h"
#include "documents/parties/InterrogazioneParte.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/documents/parties/ModelloParte.h"
#include "screens/documents/parties/PannelloFoglia.h"
#include "screens/duedates/SceltaParte.h"

namespace fenalto::screens {
namespace {

/// The head of a party, a line each of what is filled.
QString Testo(const documents::TestaParte& testa) {
  QStringList righe;
  for (const std::string& riga : {testa.nome, testa.indirizzo, testa.fiscali, testa.contatti}) {
    if (!riga.empty()) righe << Qs(riga);
  }
  QStringList condizioni;
  if (!testa.pagamento.empty()) {
    condizioni << FinestraInterrCliFor::tr("pagamento %1").arg(Qs(testa.pagamento));
  }
  if (!testa.fido.Zero()) {
    condizioni << FinestraInterrCliFor::tr("fido %1").arg(Qs(ScriviImporto(testa.fido, 2)));
  }
  if (!condizioni.isEmpty()) righe << condizioni.join(QStringLiteral("   "));
  return righe.join(QLatin1Char('\n'));
}

}  // namespace

struct FinestraInterrCliFor::Interno {
  Interno(FinestraInterrCliFor& finestraUsata, Finestre& gestoreUsato);
  void CreaAlbero();
  void Collega();
  void Carica();
  /// Reads again, with the same branches open.
  void Rileggi();
  void MostraCorrente();
  /// Enter or a double click: the record itself, the next page of a branch.
  void Apri(const QModelIndex& indice);
  /// The registration behind what is shown.
  void VediRegistrazione();

  FinestraInterrCliFor& finestra;
  Finestre& gestore;
  std::unique_ptr<documents::InterrogazioneParte> interrogazione;
  SceltaParte* parte;
  QPushButton* aggiorna;
  QPushButton* registrazione;
  QLabel* testa = new QLabel;
  QTreeView* albero = new QTreeView;
  ModelloParte* modello;
  PannelloFoglia* pannello;
};

FinestraInterrCliFor::Interno::Interno(FinestraInterrCliFor& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      parte(new SceltaParte(gestoreUsato)),
      aggiorna(Pulsante(QStringLiteral("Aggiorna"), tr("Aggiorna"), tr("F5"))),
      registrazione(Pulsante(QStringLiteral("Registrazione"), tr("Vedi registrazione"))),
      modello(new ModelloParte(&finestraUsata)),
      pannello(new PannelloFoglia(finestraUsata.Nome())) {
  constexpr int kLargoAlbero = 430;
  constexpr int kLargoPannello = 710;
  testa->setObjectName(QStringLiteral("Testa"));
  testa->setTextFormat(Qt::PlainText);
  testa->setTextInteractionFlags(Qt::TextSelectableByMouse);
  testa->setWordWrap(true);
  CreaAlbero();
  auto* sopra = new QHBoxLayout;
  sopra->addWidget(Didascalia(tr("Cliente/fornitore"), &parte->Campo()));
  sopra->addWidget(parte, 1);
  sopra->addWidget(registrazione);
  sopra->addWidget(aggiorna);
  auto* sinistra = new QWidget;
  auto* sinistraColonna = new QVBoxLayout(sinistra);
  sinistraColonna->setContentsMargins(0, 0, 0, 0);
  sinistraColonna->addWidget(testa);
  sinistraColonna->addWidget(albero, 1);
  auto* divisore = new QSplitter(Qt::Horizontal);
  divisore->addWidget(sinistra);
  divisore->addWidget(pannello);
  divisore->setSizes({kLargoAlbero, kLargoPannello});
  divisore->setChildrenCollapsible(false);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(sopra);
  colonna->addWidget(divisore, 1);
  AssegnaMnemoniche({aggiorna, registrazione});
  Collega();
  Carica();
}

void FinestraInterrCliFor::Interno::CreaAlbero() {
  albero->setObjectName(QStringLiteral("Albero"));
  albero->setModel(modello);
  albero->setUniformRowHeights(true);
  albero->setEditTriggers(QAbstractItemView::NoEditTriggers);
  albero->setAccessibleName(tr("Tutto quello che si sa della parte"));
  albero->setToolTip(tr("doppio clic o Invio: la scadenza, la registrazione, il documento"));
}

void FinestraInterrCliFor::Interno::Collega() {
  auto* f = &finestra;
  connect(parte, &SceltaParte::ParteCambiata, f, [this] { Carica(); });
  connect(aggiorna, &QPushButton::clicked, f, [this] { Rileggi(); });
  connect(registrazione, &QPushButton::clicked, f, [this] { VediRegistrazione(); });
  connect(albero->selectionModel(), &QItemSelectionModel::currentChanged, f,
          [this] { MostraCorrente(); });
  connect(albero, &QTreeView::doubleClicked, f,
          [this](const QModelIndex& indice) { Apri(indice); });
}

void FinestraInterrCliFor::Interno::Carica() {
  constexpr int kLargoImporto = 100;
  modello->Mostra(nullptr);
  interrogazione.reset();
  testa->clear();
  const std::string codice = parte->Codice();
  if (!codice.empty() && parte->Esiste()) {
    interrogazione =
        std::make_unique<documents::InterrogazioneParte>(gestore.Sessione(), parte->Cfp(), codice);
    testa->setText(Testo(interrogazione->Testa()));
    modello->Mostra(interrogazione.get());
  }
  testa->setHidden(testa->text().isEmpty());
  // A caption without an amount beside it has the room of both.
  for (int riga = 0; riga < modello->rowCount(); ++riga) {
    const bool sola = modello->index(riga, 1).data().toString().isEmpty();
    albero->setFirstColumnSpanned(riga, {}, sola);
  }
  albero->header()->setStretchLastSection(false);
  albero->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  albero->header()->setSectionResizeMode(1, QHeaderView::Interactive);
  albero->header()->resizeSection(1, Cresciuta(kLargoImporto));
  MostraCorrente();
}

void FinestraInterrCliFor::Interno::Rileggi() {
  QSet<QString> aperti;
  for (int riga = 0; riga < modello->rowCount(); ++riga) {
    const QModelIndex ramo = modello->index(riga, 0);
    if (albero->isExpanded(ramo)) aperti.insert(modello->Nome(ramo));
  }
  Carica();
  for (int riga = 0; riga < modello->rowCount(); ++riga) {
    const QModelIndex ramo = modello->index(riga, 0);
    if (aperti.contains(modello->Nome(ramo))) albero->expand(ramo);
  }
}

void FinestraInterrCliFor::Interno::MostraCorrente() {
  const documents::FogliaParte* foglia = modello->Foglia(albero->currentIndex());
  registrazione->setEnabled(foglia != nullptr &&
                            !interrogazione->RinvioRegistrazione(*foglia).Vuoto());
  if (!interrogazione) {
    pannello->Svuota(tr("scegliere un cliente o un fornitore"));
  } else if (foglia != nullptr) {
    pannello->Mostra(*interrogazione, *foglia);
  } else {
    pannello->Svuota(tr("scegliere una scadenza, un movimento o un documento"));
  }
}

void FinestraInterrCliFor::Interno::Apri(const QModelIndex& indice) {
  const QModelIndex prima = indice.siblingAtColumn(0);
  if (modello->EAltri(prima)) {
    const int riga = prima.row();
    const QModelIndex ramo = prima.parent();
    modello->CaricaAltri(prima);
    albero->setCurrentIndex(modello->index(riga, 0, ramo));
    return;
  }
  const documents::FogliaParte* foglia = modello->Foglia(prima);
  if (foglia == nullptr || foglia->rinvio.Vuoto()) return;
  // Copied first: the main window may close this one.
  gestore.Segui(Rinvio(foglia->rinvio));
}

void FinestraInterrCliFor::Interno::VediRegistrazione() {
  const documents::FogliaParte* foglia = modello->Foglia(albero->currentIndex());
  if (foglia == nullptr) return;
  const Rinvio rinvio = interrogazione->RinvioRegistrazione(*foglia);
  if (!rinvio.Vuoto()) gestore.Segui(rinvio);
}

FinestraInterrCliFor::FinestraInterrCliFor(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("InterrCliFor"), tr("Interrogazione clienti e fornitori"),
                       finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->parte->Campo().setFocus();
}

FinestraInterrCliFor::~FinestraInterrCliFor() {
  hide();  // nothing is read from its fields any more
}

void FinestraInterrCliFor::ApriRecord(const Rinvio& rinvio) {
  if (rinvio.classe.empty()) return;
  interno_->parte->Imposta(rinvio.classe, rinvio.codice);
  interno_->Rileggi();
  interno_->albero->setFocus();
}

void FinestraInterrCliFor::Aggiorna() {
  interno_->Rileggi();
}

bool FinestraInterrCliFor::eventFilter(QObject* oggetto, QEvent* evento) {
  if (interno_ != nullptr && oggetto == interno_->albero && evento->type() == QEvent::KeyPress) {
    const int tasto = static_cast<QKeyEvent*>(evento)->key();
    const QModelIndex corrente = interno_->albero->currentIndex();
    if ((tasto == Qt::Key_Return || tasto == Qt::Key_Enter) && corrente.isValid()) {
      if (corrente.parent().isValid()) {
        interno_->Apri(corrente);
      } else {
        interno_->albero->setExpanded(corrente, !interno_->albero->isExpanded(corrente));
      }
      return true;
    }
  }
  return FinestraFunzione::eventFilter(oggetto, evento);
}

}  // namespace fenalto::screens
