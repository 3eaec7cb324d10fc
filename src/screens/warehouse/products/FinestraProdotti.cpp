#include "screens/warehouse/products/FinestraProdotti.h"

#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/warehouse/products/PaginaCodifica.h"
#include "screens/warehouse/products/PaginaListini.h"
#include "screens/warehouse/products/PaginaSituazione.h"
#include "screens/warehouse/products/RigheFornitori.h"
#include "screens/warehouse/products/RiquadroFile.h"
#include "warehouse/stock/Costi.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {
namespace {

warehouse::DalMagazzino DelMagazzino(Ambiente& ambiente) {
  return {.costoUltimo =
              [&ambiente](const std::string& prodotto) {
                return warehouse::CalcoloCosti(ambiente, prodotto).ultimo;
              },
          .costoDaDistinta =
              [&ambiente](const std::string& prodotto, bool medio) {
                return warehouse::CostoDaDistinta(ambiente, prodotto, medio);
              },
          .decimaliPrezzo = warehouse::DecimaliPrezzo(ambiente),
          .decimaliQuantita = warehouse::DecimaliQuantita(ambiente)};
}

}  // namespace

FinestraProdotti::FinestraProdotti(Finestre& finestre)
    : FinestraProdotti(std::make_shared<warehouse::ParteProdotto>(
                           finestre.Sessione(), DelMagazzino(finestre.Sessione())),
                       finestre) {}

FinestraProdotti::FinestraProdotti(std::shared_ptr<warehouse::ParteProdotto> parte,
                                   Finestre& finestre)
    : FinestraArchivioConRighe(warehouse::ArchivioProdotti(parte), finestre),
      parte_(std::move(parte)),
      listini_(new PaginaListini(Archivio(), finestre, parte_->magazzino.decimaliPrezzo)),
      file_(new RiquadroFile(Archivio(), *parte_, finestre)),
      situazione_(new PaginaSituazione(finestre)) {
  auto* righe = Crea(RigheFornitori(*parte_, Archivio().Contesto(),
                                    {.raccogli = [this] { return Legami().Raccogli(); },
                                     .mostra = [this] { MostraSenzaRighe(); }}));
  Pagina(warehouse::kPaginaFornitori).addWidget(righe);
  Pagina(warehouse::kPaginaFile).addWidget(file_);
  PaginaRecord().addWidget(file_->ImmagineAssociata());
  SchedeRecord().addTab(listini_, tr("Listini"));
  SchedeRecord().addTab(situazione_, tr("Situazione"));
  MisuraDellaPagina(SchedeRecord());
  SchedeScelta().addTab(new PaginaCodifica(finestre), tr("Codifica"));
  Archivio().Contesto().apri = [this](const Rinvio& rinvio) { Vai(rinvio); };
  connect(findChild<QPushButton*>(QStringLiteral("Command1")), &QPushButton::clicked, this,
          &FinestraProdotti::AggiornaCosto);
  connect(file_, &RiquadroFile::Scelto, this, [this] { MostraRecord(); });
  DistribuisciLettere(*this);
  MostraAltro();
}

FinestraProdotti::~FinestraProdotti() {
  TogliRighe();
}

void FinestraProdotti::MostraRecord() {
  FinestraArchivioConRighe::MostraRecord();
  MostraAltro();
}

void FinestraProdotti::MostraAltro() {
  const bool aperto = Archivio().Aperto();
  listini_->Mostra();
  file_->Mostra();
  situazione_->Mostra(aperto ? Archivio().Contesto().codicePrima : std::string());
}

void FinestraProdotti::Abbandona() {
  FinestraArchivioConRighe::Abbandona();
  MostraAltro();
}

bool FinestraProdotti::Indietro() {
  return listini_->Annulla() || FinestraArchivioConRighe::Indietro();
}

void FinestraProdotti::Aggiorna() {
  if (!situazione_->Aggiorna()) FinestraArchivioConRighe::Aggiorna();
}

bool FinestraProdotti::RaccogliAltro() {
  if (!FinestraArchivioConRighe::RaccogliAltro()) return false;
  if (!listini_->Digitata()) return true;
  Dialogo().Messaggio(
      "il prezzo sul listino non è stato confermato: premere 'Conferma prezzo' o 'Abbandona'",
      Icona::Avviso);
  SchedeRecord().setCurrentWidget(listini_);
  return false;
}

bool FinestraProdotti::AltroModificato() const {
  return FinestraArchivioConRighe::AltroModificato() || listini_->Digitata();
}

void FinestraProdotti::AggiornaCosto() {
  if (!Legami().Raccogli()) return;
  warehouse::AggiornaCostoDaDistinta(Archivio().Contesto(), *parte_);
  MostraSenzaRighe();
}

void FinestraProdotti::Vai(const Rinvio& rinvio) {
  if (rinvio.funzione != warehouse::kEliminazione) {
    Gestore().Segui(rinvio);
    return;
  }
  // Once what asks for it has ended: the record is closed under it.
  QMetaObject::invokeMethod(
      this,
      [this, rinvio] {
        if (Gestore().ControlloUscita(*this)) return;
        Abbandona();
        auto* finestra = Gestore().Segui(rinvio);
        if (finestra == nullptr || finestra == this) return;
        connect(finestra, &QObject::destroyed, this,
                [this] { FinestraArchivioConRighe::Aggiorna(); });
      },
      Qt::QueuedConnection);
}

}  // namespace fenalto::screens
