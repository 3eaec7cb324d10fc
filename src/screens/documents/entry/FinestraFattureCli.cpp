#include "screens/documents/entry/FinestraFattureCli.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTabWidget>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/documents/entry/PaginaDocumento.h"
#include "screens/documents/entry/PaginaSceltaDocumento.h"

namespace fenalto::screens {
namespace {

QString TitoloFinestra() {
  return QObject::tr("Emissione Fatture ddt e registrazione movimenti magazzino");
}

struct OpzioneDocumenti {
  const char* chiave;
  const char* testo;
  const char* aiuto;
};
constexpr OpzioneDocumenti kOpzioni[] = {
    {"EsistenzaNegativa", "avvisa se va sotto zero",
     "avvisa quando una riga di scarico porta l'esistenza sotto zero"},
    {"StampoDataOra", "stampa data e ora", "sui ddt si stampano data e ora del trasporto"},
    {"ScadenzePagamento", "scrive le scadenze",
     "sulle fatture le scadenze del pagamento si scrivono alla conferma"}};

}  // namespace

FinestraFattureCli* FinestraFattureCli::Crea(Finestre& finestre) {
  const std::string impedimento = documents::FattureCli::Impedimento(finestre.Sessione());
  if (!impedimento.empty()) {
    finestre.Sessione().Dialogo().Messaggio(impedimento, Icona::Avviso);
    return nullptr;
  }
  return new FinestraFattureCli(finestre);
}

FinestraFattureCli::FinestraFattureCli(Finestre& finestre)
    : FinestraDuePagine(QStringLiteral("FattureCli"), TitoloFinestra(), finestre),
      documento_(finestre.Sessione()),
      scelta_(new PaginaSceltaDocumento(documento_, finestre)),
      pagina_(new PaginaDocumento(documento_, finestre)) {
  Disponi(scelta_, tr("Scelta"), pagina_);
  TitoloRecord(tr("Documento"));
  findChild<QTabWidget*>(QStringLiteral("SSTab1"))->setCornerWidget(CreaOpzioni());
  Collega();
  MostraTitolo();
  scelta_->FocoTipo();
}

FinestraFattureCli::~FinestraFattureCli() {
  TogliPagine();
}

QWidget* FinestraFattureCli::CreaOpzioni() {
  auto* insieme = new QWidget;
  auto* riga = new QHBoxLayout(insieme);
  riga->setContentsMargins(0, 0, 0, 0);
  for (const OpzioneDocumenti& opzione : kOpzioni) {
    auto* casella = Casella(opzione.chiave, QString::fromUtf8(opzione.testo));
    casella->setToolTip(QString::fromUtf8(opzione.aiuto));
    casella->setChecked(documento_.Opzione(opzione.chiave));
    connect(casella, &QCheckBox::clicked, this,
            [this, chiave = opzione.chiave](bool attiva) { documento_.Opzione(chiave, attiva); });
    riga->addWidget(casella);
  }
  return insieme;
}

void FinestraFattureCli::Collega() {
  connect(scelta_, &PaginaSceltaDocumento::ApriChiesto, this,
          [this](const QString& tipoDoc, qint64 numero) {
            ApriDocumento({tipoDoc.toStdString(), Sessione().Anno(), numero});
          });
  connect(scelta_, &PaginaSceltaDocumento::NuovoChiesto, this, &FinestraFattureCli::Nuovo);
  connect(scelta_, &PaginaSceltaDocumento::SdoppiaChiesto, this,
          [this](const QString& tipoDoc, int anno, qint64 numero) {
            Sdoppia({tipoDoc.toStdString(), anno, numero});
          });
  connect(scelta_, &PaginaSceltaDocumento::TipoCambiato, this, &FinestraFattureCli::MostraTitolo);
}

// --- The record ---------------------------------------------------------------------------------

void FinestraFattureCli::MostraTitolo() {
  const auto& tipo = documento_.Tipo();
  const QString titolo = Aperta() ? Qs(documento_.Titolo()) : Qs(tipo.cod + " " + tipo.descrizione);
  setWindowTitle(TitoloFinestra() + QStringLiteral(" - ") + titolo);
  TitoloRecord(Aperta() ? titolo : tr("Documento"));
}

void FinestraFattureCli::MostraDocumento() {
  MostraTitolo();
  EntraInRegistrazione();
}

void FinestraFattureCli::Apri(std::int64_t numero) {
  ApriDocumento({documento_.Tipo().cod, Sessione().Anno(), numero});
}

void FinestraFattureCli::ApriDocumento(const documents::IdentitaDocumento& quale) {
  if (!Lascia()) return;
  if (!documento_.Apri(quale)) return scelta_->FocoSelettore();
  scelta_->Seleziona(quale.numDoc);
  scelta_->Mostra();
  MostraDocumento();
}

void FinestraFattureCli::ApriRecord(const Rinvio& rinvio) {
  if (rinvio.Numero() == 0) return;
  const int anno = rinvio.anno == 0 ? Sessione().Anno() : rinvio.anno;
  if (anno != Sessione().Anno()) {
    Dialogo().Messaggio("selezionare l'anno " + std::to_string(anno), Icona::Avviso);
    return;
  }
  ApriDocumento(
      {rinvio.classe.empty() ? documento_.Tipo().cod : rinvio.classe, anno, rinvio.Numero()});
}

bool FinestraFattureCli::Riprendi() {
  if (!documento_.Riprendi()) return false;
  scelta_->Mostra();
  MostraDocumento();
  return true;
}

void FinestraFattureCli::Nuovo() {
  if (Lascia() && documento_.Nuovo()) MostraDocumento();
}

void FinestraFattureCli::Sdoppia(const documents::IdentitaDocumento& origine) {
  if (Lascia() && documento_.Sdoppia(origine)) MostraDocumento();
}

void FinestraFattureCli::DopoRegistrazione(std::int64_t numero) {
  scelta_->Seleziona(numero);
  scelta_->Mostra();
  scelta_->FocoNuovo();
}

void FinestraFattureCli::ChiudiRecord() {
  documento_.Abbandona();
  MostraTitolo();
}

void FinestraFattureCli::FocoScelta() {
  scelta_->FocoNuovo();
}

void FinestraFattureCli::AggiornaScelta() {
  scelta_->Mostra();
}

bool FinestraFattureCli::IndietroDaScelta() {
  return scelta_->SvuotaRicerca();
}

bool FinestraFattureCli::Indietro() {
  return (Aperta() && pagina_->LasciaIncollate()) || FinestraDuePagine::Indietro();
}

// --- Keys ---------------------------------------------------------------------------------------

bool FinestraFattureCli::SulDocumento() const {
  return Aperta() && pagina_->isVisible();
}

bool FinestraFattureCli::PremiConferma() {
  if (!SulDocumento()) return FinestraDuePagine::PremiConferma();
  pagina_->ConfermaTutto();
  return true;
}

bool FinestraFattureCli::Invio(QWidget& campo) {
  if (SulDocumento()) return pagina_->InvioInRiga(campo) || FinestraDuePagine::Invio(campo);
  return scelta_->Invio(campo) || FinestraDuePagine::Invio(campo);
}

bool FinestraFattureCli::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::KeyPress && SulDocumento() &&
      static_cast<QKeyEvent*>(evento)->matches(QKeySequence::Paste) &&
      pagina_->SiIncollanoRighe(oggetto)) {
    pagina_->IncollaRighe();
    return true;
  }
  return FinestraDuePagine::eventFilter(oggetto, evento);
}

void FinestraFattureCli::keyPressEvent(QKeyEvent* evento) {
  if (SulDocumento() && evento->key() == Qt::Key_F6) {
    pagina_->ProdottiRecenti();
    return;
  }
  FinestraDuePagine::keyPressEvent(evento);
}

}  // namespace fenalto::screens
