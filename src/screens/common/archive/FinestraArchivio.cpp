#include "screens/common/archive/FinestraArchivio.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <algorithm>

#include "screens/common/archive/ArchivioInFinestra.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
// --- What the user does -------------------------------------------------------------------------

bool FinestraArchivio::Interno::LasciaPrecedente() {
  if (!archivio.Aperto()) return true;
  if (gestore.ControlloUscita(finestra)) return false;
  finestra.Abbandona();
  return true;
}

void FinestraArchivio::Interno::Scegli(const QString& codice) {
  // A code that isn't there leaves the open record as it is.
  if (archivio.Aperto() && !pagina->Esiste(codice)) return;
  if (!LasciaPrecedente()) return;
  pagina->Indica(codice);
  Apri(codice);
}

void FinestraArchivio::Interno::Apri(const QString& codice) {
  if (codice.isEmpty() || !archivio.Apri(codice.toStdString())) {
    pagina->MostraCodice(codice);
    if (archivio.Aperto()) return;
    scelta->findChild<CampoCodice*>(QStringLiteral("Rt1"))->setFocus(Qt::OtherFocusReason);
    return;
  }
  MostraAperto();
}

void FinestraArchivio::Interno::Comincia() {
  if (archivio.SoloEsistenti() || !LasciaPrecedente()) return;
  if (archivio.Inizia()) MostraAperto();
}

void FinestraArchivio::Interno::Sdoppia() {
  if (legami->Raccogli() && archivio.Duplica()) MostraAperto();
}

void FinestraArchivio::Interno::SdoppiaDaScelta() {
  const QString codice = pagina->Codice();
  if (codice.isEmpty() || !pagina->Esiste(codice)) {
    finestra.Dialogo().Messaggio("indicare il codice da cui sdoppiare", Icona::Avviso);
    pagina->Pronta();
    return;
  }
  Apri(codice);
  if (archivio.Aperto() && archivio.Duplica()) MostraAperto();
}

void FinestraArchivio::Interno::Vicino(bool dopo) {
  const std::string attuale = archivio.Contesto().codicePrima;
  auto& elenco = pagina->Elenco();
  const auto filtro = pagina->Filtro();
  const std::string codice =
      dopo ? elenco.Successivo(filtro, attuale) : elenco.Precedente(filtro, attuale);
  if (codice.empty()) {
    Avvisa(dopo ? tr("È l'ultimo codice dell'elenco.") : tr("È il primo codice dell'elenco."));
    return;
  }
  if (!(archivio.Descrizione().confermaPassando ? ConfermaAperto() : LasciaPrecedente())) return;
  pagina->Indica(Qs(codice));
  Apri(Qs(codice));
}

bool FinestraArchivio::Interno::ConfermaAperto() {
  if (!finestra.InModifica()) return true;
  Conferma();
  return !archivio.Aperto();
}

void FinestraArchivio::Interno::Conferma() {
  if (!legami->Raccogli() || !finestra.RaccogliAltro()) return;
  Rifiuto rifiuto;
  const bool scritto = archivio.Conferma(&rifiuto);
  if (scritto) daRendere = Qs(archivio.UltimoConfermato());
  if (scritto || !archivio.Aperto()) {
    TornaAllaScelta();
    if (scritto) pagina->Indica(daRendere);
    return;
  }
  finestra.MostraRecord();
  DaiFoco(Qs(rifiuto.campo));
}

void FinestraArchivio::Interno::Elimina() {
  if (archivio.Elimina() || !archivio.Aperto()) TornaAllaScelta();
}

void FinestraArchivio::Interno::Stampa() {
  const auto& descrizione = archivio.Descrizione();
  if (descrizione.stampa) {
    descrizione.stampa(archivio.Contesto());
    return;
  }
  archives::StampaElencoArchivio(gestore.Sessione(), gestore.Uscite(), descrizione,
                                 pagina->Filtro());
}

void FinestraArchivio::Interno::Esegui(const archives::PulsanteArchivio& pulsante) {
  if (pulsante.conRecord && !legami->Raccogli()) return;
  const auto righe = pulsante.azione(archivio.Contesto());
  if (archivio.Aperto()) finestra.MostraRecord();
  MostraRighe(righe);
}

void FinestraArchivio::Interno::CampoLasciato(const QString& campo, bool cambiato) {
  if (!cambiato || !archivio.Aperto() || archivio.SolaLettura()) return;
  archivio.Contesto().foco.clear();
  archivio.Lasciato(campo.toStdString());
  if (archivio.Aperto()) finestra.MostraRecord();
  const QString foco = Qs(archivio.Contesto().foco);
  // The focus is on its way to another control: it comes back once it is there.
  if (!foco.isEmpty()) {
    QMetaObject::invokeMethod(&finestra, [this, foco] { DaiFoco(foco); }, Qt::QueuedConnection);
  }
}

void FinestraArchivio::Interno::Lascia() {
  if (!gestore.ControlloUscita(finestra)) TornaAllaScelta();
}

// --- What it shows ------------------------------------------------------------------------------

void FinestraArchivio::Interno::MostraAperto() {
  lato->setEnabled(true);
  schede->setCurrentIndex(0);
  MostraRighe({});
  Avvisa(archivio.SolaLettura()
             ? tr("In modifica da un'altra stazione: si può guardare e non cambiare.")
             : QString());
  finestra.MostraRecord();
  MostraTitolo();
  // Last: what is disabled gives the focus away.
  DaiFoco(archivio.Nuovo() || archivio.Descrizione().codiceComposto
              ? QString()
              : Qs(archivio.Descrizione().campoDescrizione));
}

void FinestraArchivio::Interno::MostraStato() {
  const bool aperto = archivio.Aperto();
  const bool fermo = archivio.SolaLettura();
  campi->Applica([this](const std::string& nome) { return archivio.Stato(nome); }, fermo);
  const bool esistente = aperto && !archivio.Nuovo();
  conferma->setEnabled(aperto && !fermo);
  elimina->setEnabled(esistente && !fermo);
  const bool soloEsistenti = archivio.SoloEsistenti();
  elimina->setVisible(!soloEsistenti);
  sdoppia->setVisible(!soloEsistenti);
  pagina->MostraNuovo(!soloEsistenti);
  for (auto* pulsante : {sdoppia, precedente, successivo}) pulsante->setEnabled(esistente);
  // One of the two that do the same.
  if (sdoppiaDa != nullptr) sdoppiaDa->setEnabled(!aperto);
  for (auto* pulsante : disponibili) {
    pulsante->setEnabled(archivio.Stato(pulsante->objectName().toStdString()).attivo);
  }
}

void FinestraArchivio::Interno::MostraTitolo() {
  const QString base = Qs(archivio.Descrizione().titolo);
  const QString aperto = Qs(archivio.Titolo());
  finestra.setWindowTitle(aperto.isEmpty() ? base : base + QStringLiteral(" - ") + aperto);
  // An ampersand in a code is no letter to press.
  schede->setTabText(0, aperto.isEmpty()
                            ? tr("nessun codice aperto")
                            : QString(aperto).replace(QLatin1Char('&'), QStringLiteral("&&")));
}

void FinestraArchivio::Interno::MostraRighe(const std::vector<std::string>& righe) {
  QStringList testo;
  for (const auto& riga : righe) testo << Qs(riga);
  riquadro->setPlainText(testo.join(QLatin1Char('\n')));
  // A few lines don't take the record's place; one more keeps the last clear of the scroll bar.
  constexpr int kMinime = 4;
  const int linee = std::max(kMinime, static_cast<int>(testo.size())) + 2;
  riquadro->setMaximumHeight(linee * riquadro->fontMetrics().lineSpacing());
  riquadro->setVisible(!righe.empty());
}

void FinestraArchivio::Interno::Avvisa(const QString& testo) {
  avviso->setText(testo);
  avviso->setVisible(!testo.isEmpty());
}

void FinestraArchivio::Interno::DaiFoco(const QString& campo) {
  // A derived window may have the field on a page of its own.
  for (auto* controllo :
       campo.isEmpty() ? QList<QWidget*>() : schede->findChildren<QWidget*>(campo)) {
    for (int i = 0; i < schede->count(); ++i) {
      if (schede->widget(i)->isAncestorOf(controllo)) schede->setCurrentIndex(i);
    }
    if (!controllo->isVisible() || !controllo->isEnabled()) continue;
    controllo->setFocus(Qt::OtherFocusReason);
    return;
  }
  if (!campi->DaiFoco(campo)) annulla->setFocus(Qt::OtherFocusReason);
}

void FinestraArchivio::Interno::Spegni() {
  // Shown empty before it is disabled: a control that loses the focus reads what it holds.
  legami->Mostra();
  MostraStato();
  MostraTitolo();
  Avvisa({});
  MostraRighe({});
  lato->setEnabled(false);
}

void FinestraArchivio::Interno::TornaAllaScelta() {
  finestra.Abbandona();
  pagina->Ricarica();
  pagina->Pronta();
}

// --- The window ---------------------------------------------------------------------------------

FinestraArchivio::FinestraArchivio(archives::DescrizioneArchivio descrizione, Finestre& finestre)
    : FinestraFunzione(Qs(descrizione.finestra), Qs(descrizione.titolo), finestre),
      interno_(std::make_unique<Interno>(*this, finestre, std::move(descrizione))) {
  interno_->Disponi();
  interno_->Collega();
  interno_->Spegni();
  interno_->OrdinaFoco();
  interno_->pagina->Pronta();
}

FinestraArchivio::~FinestraArchivio() {
  // Controls that are destroyed with the focus would read themselves into a record that is gone.
  hide();
  delete interno_->divisione;
}

archives::ArchivioCodici& FinestraArchivio::Archivio() {
  return interno_->archivio;
}

QTabWidget& FinestraArchivio::SchedeScelta() {
  return *interno_->scelta;
}

QTabWidget& FinestraArchivio::SchedeRecord() {
  return *interno_->schede;
}

QVBoxLayout& FinestraArchivio::PaginaRecord() {
  return *interno_->paginaRecord;
}

QVBoxLayout& FinestraArchivio::Pagina(const std::string& nome) {
  return *interno_->altrePagine.at(nome);
}

Legatura& FinestraArchivio::Legami() {
  return *interno_->legami;
}

void FinestraArchivio::MostraRecord() {
  interno_->legami->Mostra();
  interno_->MostraStato();
}

bool FinestraArchivio::InModifica() const {
  const auto& io = *interno_;
  return io.archivio.Aperto() && !io.archivio.SolaLettura() &&
         (io.archivio.Modificato() || io.legami->Pendente() || AltroModificato());
}

void FinestraArchivio::Abbandona() {
  if (!interno_->archivio.Aperto() && !interno_->lato->isEnabled()) return;
  interno_->archivio.Abbandona();
  interno_->Spegni();
}

void FinestraArchivio::ApriScheda(int scheda) {
  if (scheda >= 0 && scheda < interno_->scelta->count()) interno_->scelta->setCurrentIndex(scheda);
}

void FinestraArchivio::ApriRecord(const Rinvio& rinvio) {
  if (!interno_->LasciaPrecedente()) return;
  const QString codice = QString::fromStdString(rinvio.codice);
  interno_->pagina->MostraCodice(codice);
  interno_->Apri(codice);
}

bool FinestraArchivio::Indietro() {
  if (!interno_->lato->isEnabled()) return interno_->pagina->SvuotaRicerca();
  interno_->Lascia();
  return true;
}

bool FinestraArchivio::Invio(QWidget& campo) {
  const auto& campi = *interno_->campi;
  const auto ordine = campi.Ordine(0) + campi.Ordine(1) + campi.Ordine(2);
  if (!ordine.contains(&campo)) return false;
  if (auto* dopo = DopoInvio(ordine, campo)) {
    dopo->setFocus(Qt::TabFocusReason);
  } else {
    DopoUltimoCampo();
  }
  return true;
}

void FinestraArchivio::DopoUltimoCampo() {
  if (interno_->conferma->isEnabled()) FocoInVista(interno_->conferma);
}

bool FinestraArchivio::PremiConferma() {
  if (!PerUnCampo() || interno_->archivio.Aperto()) return FinestraFunzione::PremiConferma();
  const QString indicato = interno_->pagina->Indicato();
  if (indicato.isEmpty()) return true;
  interno_->daRendere = indicato;
  ChiudiDaTastiera();
  return true;
}

std::string FinestraArchivio::CodiceDaRendere() const {
  return interno_->daRendere.toStdString();
}

void FinestraArchivio::RichiestaDa(const QString& campo) {
  interno_->pagina->MostraRichiesta(
      tr("Ctrl+Invio su un codice dell'elenco lo porta in \"%1\"; Esc ci torna").arg(campo));
}

void FinestraArchivio::Aggiorna() {
  interno_->pagina->Ricarica();
  interno_->campi->Rileggi();
}

bool FinestraArchivio::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::KeyPress) {
    const auto* tasto = static_cast<QKeyEvent*>(evento);
    const bool invio = tasto->key() == Qt::Key_Return || tasto->key() == Qt::Key_Enter;
    if (invio && !(tasto->modifiers() & ~Qt::KeypadModifier) &&
        interno_->pagina->InvioInRicerca(oggetto)) {
      return true;
    }
  }
  return FinestraFunzione::eventFilter(oggetto, evento);
}

}  // namespace fenalto::screens
