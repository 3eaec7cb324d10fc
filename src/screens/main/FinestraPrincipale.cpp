#include "screens/main/FinestraPrincipale.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <algorithm>

#include "overview/IndiceVoci.h"
#include "print/FabbricaUsciteQt.h"
#include "print/FinestraAnteprima.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/windows/Attesa.h"
#include "screens/help/FinestraGuida.h"
#include "screens/main/AreaLavoro.h"
#include "screens/main/Sfondo.h"
#include "vat/entry/FattureSospese.h"

namespace fenalto::screens {
namespace {

/// Milliseconds from the last step through the years until the background comes back: whoever steps
/// through several doesn't wait for the page of each.
constexpr int kDopoGliAnni = 400;

}  // namespace

FinestraPrincipale::FinestraPrincipale(Ambiente& ambiente, Costruttori costruttori)
    : ambiente_(ambiente),
      costruttori_(std::move(costruttori)),
      area_(new AreaLavoro(this)),
      uscite_(new print::FabbricaUsciteQt(ambiente.Dialogo(), this)),
      indice_(std::make_shared<overview::IndiceVoci>()) {
  setObjectName(QStringLiteral("Principale"));
  setWindowTitle(QStringLiteral("Fenalto"));
  setCentralWidget(area_);
  statusBar()->setObjectName(QStringLiteral("StatusBar1"));
  stato_ = new QLabel(this);
  stato_->setObjectName(QStringLiteral("Stato"));
  statusBar()->addWidget(stato_, 1);
  // The version of the archives that a year's row of `Anni` is stamped with.
  auto* aggiornamento = new QLabel(QStringLiteral("000"), this);
  aggiornamento->setObjectName(QStringLiteral("Aggiornamento"));
  aggiornamento->hide();
  CreaBarra();
  CreaMenu();
  connect(uscite_, &print::FabbricaUsciteQt::RinvioScelto, this, [this](const Rinvio& rinvio) {
    raise();
    activateWindow();
    Segui(rinvio);
  });
  restoreGeometry(QSettings().value(QStringLiteral("finestre/Principale")).toByteArray());
  StaiNelloSchermo();
}

void FinestraPrincipale::StaiNelloSchermo() {
  constexpr QSize kPrima(1280, 720);
  const QSize misura = testAttribute(Qt::WA_Resized) ? size() : kPrima;
  const QRect schermo = screen()->availableGeometry();
  resize(misura.boundedTo(schermo.size()));
  // A place that was remembered on a screen that is smaller now, or gone.
  if (!testAttribute(Qt::WA_Moved)) return;
  const QPoint fine = schermo.bottomRight() - QPoint(width() - 1, height() - 1);
  move(std::clamp(x(), schermo.left(), std::max(schermo.left(), fine.x())),
       std::clamp(y(), schermo.top(), std::max(schermo.top(), fine.y())));
}

FinestraPrincipale::~FinestraPrincipale() {
  ChiudiTutto();
}

// --- Session ----------------------------------------------------------------------------------

void FinestraPrincipale::MostraSessione() {
  SessioneCambiata();
  MostraSfondo();
}

void FinestraPrincipale::SessioneCambiata() {
  ChiudiAnteprime();
  cambiandoAnno_ = true;
  anni_->clear();
  int corrente = 0;
  for (const int anno : ambiente_.Anni()) {
    if (anno == ambiente_.Anno()) corrente = anni_->count();
    anni_->addItem(QString::number(anno));
  }
  anni_->setCurrentIndex(corrente);
  scorrimento_->setRange(0, std::max(0, anni_->count() - 1));
  scorrimento_->setValue(corrente);
  cambiandoAnno_ = false;
  AggiornaStato();
  MostraVociDellaDitta();
  MostraVideoCorsi();
}

void FinestraPrincipale::MostraVociDellaDitta() {
  const bool aperta = ambiente_.DittaAperta();
  const bool sospese = aperta && vat::FattureSospese::Usate(ambiente_);
  const bool ritenute =
      aperta &&
      Qs(ambiente_.Config("RITENUTAACCONTO")).compare(QLatin1String("SI"), Qt::CaseInsensitive) ==
          0;
  for (const auto& [voce, azione] : azioni_) {
    const QLatin1String nome(voce->nome);
    if (nome == QLatin1String("ApreFattureSospIva")) azione->setVisible(sospese);
    if (nome == QLatin1String("ApreRitenuteAcconto")) azione->setVisible(ritenute);
  }
}

void FinestraPrincipale::AggiornaStato() {
  const bool aperta = ambiente_.DittaAperta();
  valuta_->setText(!aperta            ? QString()
                   : ambiente_.Euro() ? QStringLiteral("EURO")
                                      : QStringLiteral("LIRE"));
  ditta_->setText(aperta ? Qs(ambiente_.Ditta()) : QString());
  setWindowTitle(aperta ? QStringLiteral("Fenalto - %1").arg(Qs(ambiente_.Ditta()))
                        : QStringLiteral("Fenalto"));
  QString testo = tr("Ctrl+K cerca una funzione");
  if (aperta) {
    testo = tr("Ditta %1, anno %2").arg(Qs(ambiente_.Ditta())).arg(ambiente_.Anno());
    if (const auto& utente = ambiente_.UtenteCorrente(); !utente.cod.empty()) {
      testo += tr(", utente %1").arg(Qs(utente.cod));
    }
    testo += tr("   ·   Ctrl+K cerca una funzione");
  }
  stato_->setText(testo);
}

void FinestraPrincipale::CambiaAnno(int indice) {
  if (cambiandoAnno_) return;
  cambiandoAnno_ = true;
  ScaricaSfondo();
  if (anni_->count() == 0) {
    cambiandoAnno_ = false;
    return;
  }
  const int attuale = anni_->findText(QString::number(ambiente_.Anno()));
  if (!FinestreAperte().isEmpty()) {
    ambiente_.Dialogo().Messaggio("per cambiare anno chiudere prima tutte le finestre",
                                  Icona::Avviso);
    scorrimento_->setValue(attuale);
    anni_->setCurrentIndex(attuale);
    cambiandoAnno_ = false;
    return;
  }
  {
    const Attesa attesa;
    anni_->setCurrentIndex(indice);
    scorrimento_->setValue(indice);
    if (auto esito = ambiente_.ScegliAnno(anni_->currentText().toInt()); !esito) {
      ambiente_.Dialogo().Messaggio(esito.Errore().messaggio, Icona::Errore);
      anni_->setCurrentIndex(attuale);
      scorrimento_->setValue(attuale);
    }
    AggiornaStato();
  }
  cambiandoAnno_ = false;
  RichiamaSfondo();
}

bool FinestraPrincipale::PassaAnno(int anno) {
  const int indice = anni_->findText(QString::number(anno));
  if (indice < 0) return false;
  scorrimento_->setValue(indice);
  return ambiente_.Anno() == anno;
}

void FinestraPrincipale::SelezioneArchivi() {
  ScaricaSfondo();
  if (!FinestreAperte().isEmpty()) {
    ambiente_.Dialogo().Messaggio("Chiudere prima tutte le finestre", Icona::Avviso);
    return;
  }
  if (ambiente_.SelezioneArchivi()) {
    MostraSessione();
  } else {
    RichiamaSfondo();
  }
}

// --- Background -------------------------------------------------------------------------------

void FinestraPrincipale::MostraSfondo() {
  ++richiami_;
  if (sfondo_ != nullptr) return sfondo_->Torna();
  sfondo_ = new Sfondo(*this, area_->viewport());
  sfondo_->MostraVideoCorsi(!IndirizzoVideoCorsi().empty());
  connect(sfondo_, &Sfondo::GuidaRapida, this, &FinestraPrincipale::GuidaRapida);
  connect(sfondo_, &Sfondo::ManualeContabilita, this, &FinestraPrincipale::ManualeContabilita);
  connect(sfondo_, &Sfondo::VideoCorsi, this, &FinestraPrincipale::VideoCorsi);
  connect(sfondo_, &Sfondo::Aiuto, this, [this](const QString& capitolo) { ApriGuida(capitolo); });
  sfondo_->show();
  sfondo_->lower();
  sfondo_->Torna();
}

void FinestraPrincipale::RichiamaSfondo() {
  const int quale = ++richiami_;
  QTimer::singleShot(sfondo_ == nullptr ? kDopoGliAnni : 0, this, [this, quale] {
    if (quale == richiami_ && ambiente_.DittaAperta() && FinestreAperte().isEmpty()) MostraSfondo();
  });
}

void FinestraPrincipale::ScaricaSfondo() {
  delete sfondo_;
  sfondo_ = nullptr;
}

QWidget* FinestraPrincipale::SfondoAperto() const {
  return sfondo_;
}

// --- Function windows -------------------------------------------------------------------------

QList<FinestraFunzione*> FinestraPrincipale::FinestreAperte() const {
  return area_->Aperte();
}

FinestraFunzione* FinestraPrincipale::Aperta(const QString& finestra) const {
  for (auto* aperta : FinestreAperte()) {
    if (aperta->Nome().compare(finestra, Qt::CaseInsensitive) == 0) return aperta;
  }
  return nullptr;
}

bool FinestraPrincipale::FunzioneDisponibile(const QString& finestra) const {
  const auto* voce = VoceDi(finestra);
  return voce != nullptr &&
         TrovaCostruttore(QString::fromUtf8(voce->finestra), voce->scheda) != nullptr;
}

const FinestraPrincipale::Costruttore* FinestraPrincipale::TrovaCostruttore(const QString& finestra,
                                                                            int scheda) const {
  auto trovato = costruttori_.find(finestra);
  if (trovato == costruttori_.end()) {
    trovato = costruttori_.find(QStringLiteral("%1:%2").arg(finestra).arg(scheda));
  }
  return trovato == costruttori_.end() ? nullptr : &trovato->second;
}

void FinestraPrincipale::PortaAvanti(FinestraFunzione& finestra) {
  area_->PortaAvanti(finestra);
}

FinestraFunzione* FinestraPrincipale::Carica(const QString& nome, int livello, int scheda) {
  const Costruttore* costruttore = TrovaCostruttore(nome, scheda);
  if (costruttore == nullptr) return nullptr;
  if (!ambiente_.HaDiritto(livello)) {
    ambiente_.Dialogo().Messaggio("l'utente non ha il diritto di usare questa funzione",
                                  Icona::Avviso);
    return nullptr;
  }
  const Attesa attesa;
  ambiente_.RiguardaImpostazioni();
  auto* finestra = (*costruttore)(*this);
  if (finestra == nullptr) return nullptr;
  area_->Metti(*finestra);
  return finestra;
}

FinestraFunzione* FinestraPrincipale::ApriFunzione(const QString& nome, int scheda) {
  const auto* voce = VoceDi(nome, scheda);
  if (voce == nullptr) return nullptr;
  if (const auto azione = azioni_.find(voce); azione != azioni_.end()) {
    if (!azione->second->isEnabled() || !azione->second->isVisible()) return nullptr;
  }
  const QString finestra = QString::fromUtf8(voce->finestra);
  const int pagina = scheda >= 0 ? scheda : voce->scheda;
  if (auto* aperta = Aperta(finestra)) {
    PortaAvanti(*aperta);
    aperta->ApriScheda(pagina);
    return aperta;
  }
  auto* nuova = Carica(finestra, voce->livello, voce->scheda);
  if (nuova == nullptr) return nullptr;
  if (voce->esclusiva != Esclusiva::No && FinestreAperte().size() > 1) {
    ambiente_.Dialogo().Messaggio(TestoEsclusiva(voce->esclusiva).toStdString(), Icona::Avviso);
    Scarica(*nuova);
    return nullptr;
  }
  nuova->ApriScheda(pagina);
  return nuova;
}

void FinestraPrincipale::Scarica(FinestraFunzione& finestra) {
  finestra.Abbandona();
  area_->Togli(finestra);
}

void FinestraPrincipale::ChiudiTutto() {
  for (auto* finestra : FinestreAperte()) Scarica(*finestra);
}

bool FinestraPrincipale::ControlloUscita(FinestraFunzione& finestra) {
  if (!finestra.InModifica()) return false;
  PortaAvanti(finestra);
  return !ambiente_.Dialogo().Conferma(
      finestra.windowTitle().toStdString() +
      "\nCi sono modifiche non confermate.\nSi vuole uscire senza confermarle ?");
}

void FinestraPrincipale::ChiudiFinestra(FinestraFunzione& finestra) {
  area_->Ricorda(finestra);
  // A register may have been made or erased in it.
  MostraVociDellaDitta();
  RichiamaSfondo();
}

// --- Reports ----------------------------------------------------------------------------------

reports::FabbricaUscite& FinestraPrincipale::Uscite() {
  return *uscite_;
}

void FinestraPrincipale::ChiudiAnteprime() {
  for (auto* anteprima : findChildren<print::FinestraAnteprima*>()) anteprima->close();
}

// --- Closing ----------------------------------------------------------------------------------

void FinestraPrincipale::closeEvent(QCloseEvent* evento) {
  ScaricaSfondo();
  if (!FinestreAperte().isEmpty()) {
    ambiente_.Dialogo().Messaggio("Chiudere prima tutte le finestre", Icona::Avviso);
    evento->ignore();
    RichiamaSfondo();
    return;
  }
  QSettings memoria;
  memoria.remove(QStringLiteral("opz"));
  memoria.setValue(QStringLiteral("finestre/Principale"), saveGeometry());
  ChiudiAnteprime();
  guida_.reset();
  evento->accept();
  emit Chiusa();
}

}  // namespace fenalto::screens
