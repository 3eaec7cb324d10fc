#include "screens/vat/entry/FinestraFatture.h"

#include <QKeyEvent>

#include "screens/vat/entry/PaginaFattura.h"
#include "screens/vat/entry/PaginaRegistro.h"

namespace fenalto::screens {
namespace {

QString Titolo() {
  return QObject::tr("Inserimento Fatture e registrazioni IVA in contabilità");
}

}  // namespace

FinestraFatture* FinestraFatture::Crea(Finestre& finestre) {
  const std::string impedimento = vat::RegistrazioneIva::Impedimento(finestre.Sessione());
  if (impedimento.empty()) return new FinestraFatture(finestre);
  finestre.Sessione().Dialogo().Messaggio(impedimento, Icona::Avviso);
  return nullptr;
}

FinestraFatture::FinestraFatture(Finestre& finestre)
    : FinestraDuePagine(QStringLiteral("Fatture"), Titolo(), finestre),
      fatture_(finestre.Sessione()),
      scelta_(new PaginaRegistro(fatture_, finestre)),
      registrazione_(new PaginaFattura(fatture_, finestre)) {
  Disponi(scelta_, tr("Registro"), registrazione_);
  Collega();
  scelta_->FocoRegistro();
}

FinestraFatture::~FinestraFatture() {
  TogliPagine();
}

void FinestraFatture::Collega() {
  connect(scelta_, &PaginaRegistro::ApriChiesto, this, &FinestraFatture::Apri);
  connect(scelta_, &PaginaRegistro::NuovoChiesto, this, &FinestraFatture::Nuovo);
  connect(scelta_, &PaginaRegistro::RegistroCambiato, this, &FinestraFatture::MostraTitolo);
}

void FinestraFatture::DopoRegistrazione(std::int64_t numero) {
  scelta_->Seleziona(numero);
  scelta_->Mostra();
  scelta_->FocoNuovo();
  if (numero != 0 && fatture_.CespiteChiesto()) {
    Gestore().Segui(AlNuovoCespite(Sessione().Anno(), numero));
  }
}

void FinestraFatture::MostraTitolo() {
  QString titolo;
  if (!Aperta() || fatture_.Nuova()) {
    titolo = QString::fromStdString(fatture_.TitoloNuova());
  } else {
    const auto& testa = fatture_.Testa();
    titolo = tr("Registro iva %1 - prot. %2 - articolo %3")
                 .arg(QString::fromStdString(testa.Testo("Riva")),
                      QString::fromStdString(testa.Testo("NProt")))
                 .arg(testa.Leggi("NumDoc").Intero());
  }
  setWindowTitle(titolo.isEmpty() ? Titolo() : Titolo() + QStringLiteral(" - ") + titolo);
  TitoloRegistrazione(Aperta() ? titolo : QString());
}

void FinestraFatture::MostraRegistrazione() {
  MostraTitolo();
  EntraInRegistrazione();
}

void FinestraFatture::Apri(std::int64_t numero) {
  if (!Lascia()) return;
  if (fatture_.Apri(numero)) {
    scelta_->Seleziona(numero);
    scelta_->Mostra();
    MostraRegistrazione();
  } else {
    scelta_->FocoSelettore();
  }
}

bool FinestraFatture::Riprendi() {
  const bool ripresa = fatture_.Riprendi();
  if (!fatture_.Registro().cod.empty()) scelta_->Mostra();
  if (ripresa) MostraRegistrazione();
  return ripresa;
}

void FinestraFatture::Nuovo() {
  if (!Lascia()) return;
  if (fatture_.Nuovo()) {
    MostraRegistrazione();
  } else if (fatture_.Registro().cod.empty()) {
    scelta_->FocoRegistro();
  }
}

void FinestraFatture::ChiudiRecord() {
  fatture_.Abbandona();
  MostraTitolo();
}

void FinestraFatture::FocoScelta() {
  scelta_->FocoNuovo();
}

void FinestraFatture::AggiornaScelta() {
  scelta_->Mostra();
}

bool FinestraFatture::eventFilter(QObject* oggetto, QEvent* evento) {
  // Before a line edit takes Ctrl+D as "delete".
  auto* controllo = qobject_cast<QWidget*>(oggetto);
  const bool tasto =
      evento->type() == QEvent::KeyPress || evento->type() == QEvent::ShortcutOverride;
  if (tasto && controllo != nullptr && isAncestorOf(controllo) && Aperta()) {
    const auto* premuto = static_cast<QKeyEvent*>(evento);
    if (premuto->key() == Qt::Key_D && premuto->modifiers() == Qt::ControlModifier) {
      if (evento->type() == QEvent::ShortcutOverride) {
        evento->accept();
        return true;
      }
      if (registrazione_->Ripeti(controllo)) return true;
    }
  }
  return FinestraFunzione::eventFilter(oggetto, evento);
}

void FinestraFatture::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_F6 && Aperta()) {
    registrazione_->ProponiRighe();
    return;
  }
  FinestraFunzione::keyPressEvent(evento);
}

}  // namespace fenalto::screens
