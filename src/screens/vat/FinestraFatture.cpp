#include "screens/vat/FinestraFatture.h"

#include <QKeyEvent>
#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/vat/PaginaFattura.h"
#include "screens/vat/PaginaRegistro.h"

namespace fenalto {
namespace {

enum Pagina { kScelta = 0, kRegistrazione = 1 };

QString Titolo() {
  return QObject::tr("Inserimento Fatture e registrazioni IVA in contabilità");
}

}  // namespace

struct FinestraFatture::Interno {
  Interno(FinestraFatture& finestraUsata, Finestre& gestoreUsato);
  void Collega();
  [[nodiscard]] bool Aperta() const { return fatture.StatoCorrente() >= Fatture::Stato::Aperta; }
  /// Leaves the open record after its question; false when the user stays in it.
  bool Lascia();
  void Apri(std::int64_t numero);
  void Nuovo();
  void MostraRegistrazione();
  void MostraTitolo();
  void TornaAlRegistro(std::int64_t numero);
  void SchedaCambiata(int indice);
  void Gira(int indice);

  FinestraFatture& finestra;
  Finestre& gestore;
  Fatture fatture;
  QTabWidget* schede;
  PaginaRegistro* scelta;
  PaginaFattura* registrazione;
  bool girando = false;
};

FinestraFatture::Interno::Interno(FinestraFatture& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      fatture(gestoreUsato.Sessione()),
      schede(new QTabWidget(&finestraUsata)),
      scelta(new PaginaRegistro(fatture, gestoreUsato)),
      registrazione(new PaginaFattura(fatture, gestoreUsato)) {
  schede->setObjectName(QStringLiteral("SSTab1"));
  schede->setDocumentMode(true);
  schede->addTab(scelta, tr("Registro"));
  schede->addTab(registrazione, tr("Registrazione"));
  schede->setTabEnabled(kRegistrazione, false);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->setContentsMargins(4, 4, 4, 4);
  colonna->addWidget(schede);
  Collega();
}

void FinestraFatture::Interno::Collega() {
  auto* f = &finestra;
  connect(schede, &QTabWidget::currentChanged, f, [this](int indice) { SchedaCambiata(indice); });
  connect(scelta, &PaginaRegistro::ApriChiesto, f, [this](qint64 numero) { Apri(numero); });
  connect(scelta, &PaginaRegistro::NuovoChiesto, f, [this] { Nuovo(); });
  connect(scelta, &PaginaRegistro::RegistroCambiato, f, [this] { MostraTitolo(); });
  connect(registrazione, &PaginaFattura::Confermata, f,
          [this](qint64 numero) { TornaAlRegistro(numero); });
  connect(registrazione, &PaginaFattura::Eliminata, f, [this] { TornaAlRegistro(0); });
  connect(registrazione, &PaginaFattura::AbbandonoChiesto, f, [this] { Lascia(); });
}

void FinestraFatture::Interno::Gira(int indice) {
  girando = true;
  schede->setCurrentIndex(indice);
  girando = false;
}

void FinestraFatture::Interno::SchedaCambiata(int indice) {
  if (girando || indice != kScelta || !Aperta()) return;
  // The record stays in sight while its question is answered.
  Gira(kRegistrazione);
  Lascia();
}

bool FinestraFatture::Interno::Lascia() {
  if (!Aperta()) return true;
  if (gestore.ControlloUscita(finestra)) return false;
  finestra.Abbandona();
  scelta->FocoNuovo();
  return true;
}

void FinestraFatture::Interno::TornaAlRegistro(std::int64_t numero) {
  finestra.Abbandona();
  scelta->Seleziona(numero);
  scelta->Mostra();
  scelta->FocoNuovo();
}

void FinestraFatture::Interno::MostraTitolo() {
  QString titolo;
  if (!Aperta() || fatture.Nuova()) {
    titolo = QString::fromStdString(fatture.TitoloNuova());
  } else {
    const auto& testa = fatture.Testa();
    titolo = tr("Registro iva %1 - prot. %2 - articolo %3")
                 .arg(QString::fromStdString(testa.Testo("Riva")),
                      QString::fromStdString(testa.Testo("NProt")))
                 .arg(testa.Leggi("NumDoc").Intero());
  }
  finestra.setWindowTitle(titolo.isEmpty() ? Titolo() : Titolo() + QStringLiteral(" - ") + titolo);
  // An ampersand in a register's code is no letter to press.
  schede->setTabText(kRegistrazione,
                     Aperta() ? QString(titolo).replace(QLatin1Char('&'), QStringLiteral("&&"))
                              : tr("Registrazione"));
}

void FinestraFatture::Interno::MostraRegistrazione() {
  schede->setTabEnabled(kRegistrazione, true);
  MostraTitolo();
  Gira(kRegistrazione);
  registrazione->Entra();
}

void FinestraFatture::Interno::Apri(std::int64_t numero) {
  if (!Lascia()) return;
  if (fatture.Apri(numero)) {
    scelta->Seleziona(numero);
    scelta->Mostra();
    MostraRegistrazione();
  } else {
    scelta->FocoSelettore();
  }
}

void FinestraFatture::Interno::Nuovo() {
  if (!Lascia()) return;
  if (fatture.Nuovo()) {
    MostraRegistrazione();
  } else if (fatture.Registro().cod.empty()) {
    scelta->FocoRegistro();
  }
}

FinestraFatture* FinestraFatture::Crea(Finestre& finestre) {
  const std::string impedimento = Fatture::Impedimento(finestre.Sessione());
  if (impedimento.empty()) return new FinestraFatture(finestre);
  finestre.Sessione().Dialogo().Messaggio(impedimento, Icona::Avviso);
  return nullptr;
}

FinestraFatture::FinestraFatture(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("Fatture"), Titolo(), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->scelta->FocoRegistro();
}

FinestraFatture::~FinestraFatture() {
  // The pages look at the use case: they go first, out of sight, so that nothing is read from them.
  hide();
  interno_->girando = true;
  delete interno_->schede;
}

bool FinestraFatture::InModifica() const {
  return interno_->Aperta() && !interno_->fatture.SolaLettura() &&
         (interno_->fatture.Modificata() || interno_->registrazione->Pendente());
}

void FinestraFatture::Abbandona() {
  interno_->Gira(kScelta);
  interno_->schede->setTabEnabled(kRegistrazione, false);
  interno_->fatture.Abbandona();
  interno_->MostraTitolo();
}

void FinestraFatture::ApriCodice(const QString& codice) {
  bool numero = false;
  const auto articolo = codice.toLongLong(&numero);
  if (numero) interno_->Apri(articolo);
}

bool FinestraFatture::Indietro() {
  if (interno_->registrazione->AnnullaRiga()) return true;
  if (!interno_->Aperta()) return false;
  interno_->Lascia();
  return true;
}

void FinestraFatture::Aggiorna() {
  interno_->scelta->Mostra();
  if (interno_->Aperta() && interno_->registrazione->isVisible() && !InModifica()) {
    interno_->registrazione->Mostra();
  }
}

bool FinestraFatture::eventFilter(QObject* oggetto, QEvent* evento) {
  // Before a line edit takes Ctrl+D as "delete".
  auto* controllo = qobject_cast<QWidget*>(oggetto);
  const bool tasto =
      evento->type() == QEvent::KeyPress || evento->type() == QEvent::ShortcutOverride;
  if (tasto && controllo != nullptr && interno_ != nullptr && interno_->Aperta() &&
      isAncestorOf(controllo)) {
    const auto* premuto = static_cast<QKeyEvent*>(evento);
    if (premuto->key() == Qt::Key_D && premuto->modifiers() == Qt::ControlModifier) {
      if (evento->type() == QEvent::ShortcutOverride) {
        evento->accept();
        return true;
      }
      if (interno_->registrazione->Ripeti(controllo)) return true;
    }
  }
  return FinestraFunzione::eventFilter(oggetto, evento);
}

void FinestraFatture::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_F6 && interno_->Aperta()) {
    interno_->registrazione->ProponiRighe();
    return;
  }
  FinestraFunzione::keyPressEvent(evento);
}

}  // namespace fenalto
