#include "screens/documents/entry/PaginaDocumento.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include "documents/entry/PercorsoRiga.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/rows/PannelloAllegati.h"
#include "screens/documents/entry/FormaDocumento.h"
#include "screens/documents/entry/PannelloIncolla.h"
#include "screens/documents/entry/RiquadroRigaDocumento.h"
#include "screens/documents/entry/TotaliDocumento.h"
#include "screens/documents/recent/FinestraProdottiRecenti.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {
namespace {

enum Foglio { kIntestazione = 0, kAltriDati = 1, kAllegati = 2 };
enum Colonna { kColQuantita = 4, kColPrezzo = 5, kColSconto = 6, kColImporto = 9, kColConto = 11 };
constexpr int kSconti = 3;

/// A place of delivery on a line.
QString Testo(const documents::DestinazioneMerce& destinazione) {
  QStringList testi;
  for (std::size_t i : {0U, 1U, 2U, 4U}) {
    const QString testo = Qs(destinazione.testi[i]).simplified();
    if (!testo.isEmpty()) testi << testo;
  }
  return testi.join(QStringLiteral(" - "));
}

}  // namespace

PaginaDocumento::PaginaDocumento(documents::FattureCli& documento, Finestre& finestre,
                                 QWidget* genitore)
    : PaginaSul(documento, finestre, genitore),
      schede_(new QTabWidget),
      destinazione_(new QComboBox),
      rigaDocumento_(new RiquadroRigaDocumento(documento, finestre)),
      incolla_(new PannelloIncolla(finestre)),
      pila_(new QStackedWidget),
      foglioAllegati_(new QWidget),
      allegati_(new PannelloAllegati(AllegatiDi(documento), finestre)),
      totali_(new TotaliDocumento(documento, finestre.Sessione().Euro() ? 2 : 0,
                                  warehouse::DecimaliQuantita(finestre.Sessione()))),
      incollaRighe_(Pulsante(QStringLiteral("IncollaRighe"), tr("Incolla righe"), tr("Ctrl+V"))),
      prodottiRecenti_(
          Pulsante(QStringLiteral("ProdottiRecenti"), tr("Prodotti recenti"), tr("F6"))),
      letturaVeloce_(Casella("LetturaVeloce", tr("lettura veloce"))) {
  PreparaSchede(*schede_, QStringLiteral("SSTab2"));
  constexpr int kRigheMinime = 3;
  Usa(CreaGriglia(), kRigheMinime, rigaDocumento_);
  auto& colonne = righe_->Modello();
  colonne.Decimali(kColQuantita, warehouse::DecimaliQuantita(finestre_.Sessione()));
  colonne.Decimali(kColPrezzo, warehouse::DecimaliPrezzo(finestre_.Sessione()));
  for (int i = 0; i < kSconti; ++i) colonne.Decimali(kColSconto + i, 0);
  schede_->addTab(CreaIntestazione(), tr("intestazione"));
  schede_->addTab(CreaAltriDati(), tr("Altri Dati"));
  schede_->addTab(foglioAllegati_, tr("Allegati"));
  schede_->setCornerWidget(CreaComandi());
  MisuraDellaPagina(*schede_);
  legatura_->Rinuncia(annulla_);
  solaLettura_->setWordWrap(true);
  auto* colonna = new QVBoxLayout(this);
  colonna->setSpacing(Misura(Passo::Filo));
  colonna->addWidget(solaLettura_);
  colonna->addWidget(schede_, 1);
  colonna->addLayout(CreaPiede());
  OrdineTab();
  Collega();
  AssegnaMnemoniche(
      QList<QAbstractButton*>{conferma_, nuovaRiga_, incollaRighe_, prodottiRecenti_, elimina_} +
      riga_->Pulsanti() + QList<QAbstractButton*>{annulla_} + incolla_->Pulsanti() +
      allegati_->Pulsanti());
}

// --- Controls -----------------------------------------------------------------------------------

Griglia* PaginaDocumento::CreaGriglia() {
  return new Griglia(QStringLiteral("GrigliaRighe"), QStringLiteral("FattureCli"),
                     {{tr("Posizione"), Tipo::Intero, 45, 2, QStringLiteral("Posi")},
                      {tr("Prodotto"), Tipo::Testo, 100, 2, QStringLiteral("CodiceRiga")},
                      {tr("Descrizione"), Tipo::Testo, 220},
                      {tr("U.M."), Tipo::Testo, 35, 2, QStringLiteral("um")},
                      {tr("Quantità"), Tipo::Importo, 70, 2, QStringLiteral("Quantita")},
                      {tr("Prezzo"), Tipo::Importo, 75},
                      {tr("Sc. 1"), Tipo::Importo, 40, 0, QStringLiteral("Sc1")},
                      {tr("Sc. 2"), Tipo::Importo, 40, 0, QStringLiteral("Sc2")},
                      {tr("Sc. 3"), Tipo::Importo, 40, 0, QStringLiteral("Sc3")},
                      {tr("Importo"), Tipo::Importo, 90},
                      {tr("IVA"), Tipo::Testo, 45, 2, QStringLiteral("CodIva")},
                      {tr("Conto"), Tipo::Testo, 75}});
}

QWidget* PaginaDocumento::CreaIntestazione() {
  auto* foglio = new QWidget;
  auto* colonna = new QVBoxLayout(foglio);
  auto* testa = new QVBoxLayout;
  testa_ = Compila(FormaTestaDocumento(), *testa);
  destinazione_->setObjectName(QStringLiteral("Destinazione"));
  destinazione_->setAccessibleName(tr("Destinazione"));
  destinazione_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  testa_->Linea("NotaDestinazione").insertWidget(0, destinazione_, 1);
  auto* righe = new QWidget;
  auto* sotto = new QVBoxLayout(righe);
  sotto->setContentsMargins(0, 0, 0, 0);
  sotto->setSpacing(0);
  sotto->addWidget(righe_, 1);
  sotto->addWidget(totali_->CreaPiede(*righe_, kColQuantita, kColImporto));
  sotto->addSpacing(Misura(Passo::Filo));
  sotto->addWidget(riga_);
  pila_->addWidget(righe);
  pila_->addWidget(incolla_);
  colonna->addLayout(testa);
  colonna->addWidget(pila_, 1);
  return foglio;
}

QWidget* PaginaDocumento::CreaAltriDati() {
  auto* foglio = new QWidget;
  auto* colonna = new QVBoxLayout(foglio);
  auto* campi = new QVBoxLayout;
  auto* ritenute = new QVBoxLayout;
  altri_ = new CampiForma(finestre_.Sessione(), FormaAltriDati(), {legatura_},
                          [=](const std::string& pagina) -> QVBoxLayout& {
                            return pagina == kFoglioRitenute ? *ritenute : *campi;
                          });
  altri_->setParent(this);
  colonna->addLayout(campi);
  colonna->addStretch(1);
  auto* sotto = new QVBoxLayout(foglioAllegati_);
  sotto->addLayout(ritenute);
  sotto->addWidget(allegati_);
  sotto->addStretch(1);
  return foglio;
}

QWidget* PaginaDocumento::CreaComandi() {
  auto* comandi = new QWidget;
  auto* riga = new QHBoxLayout(comandi);
  riga->setContentsMargins(0, 0, 0, 0);
  letturaVeloce_->setToolTip(
      tr("con il lettore di codici a barre: ogni codice è subito una riga, o un pezzo in più sulla "
         "riga che lo ha"));
  letturaVeloce_->setChecked(finestre_.Sessione().Config("LetturaVeloce") == "1");
  riga->addWidget(letturaVeloce_);
  for (auto* pulsante : {prodottiRecenti_, incollaRighe_, nuovaRiga_}) riga->addWidget(pulsante);
  return comandi;
}

QHBoxLayout* PaginaDocumento::CreaPiede() {
  auto* riga = new QHBoxLayout;
  riga->addWidget(totali_);
  riga->addStretch(1);
  for (auto* pulsante : {conferma_, elimina_, annulla_}) riga->addWidget(pulsante);
  return riga;
}

void PaginaDocumento::Collega() {
  connect(destinazione_, &QComboBox::activated, this, &PaginaDocumento::ScegliDestinazione);
  connect(incollaRighe_, &QPushButton::clicked, this, &PaginaDocumento::IncollaRighe);
  connect(prodottiRecenti_, &QPushButton::clicked, this, &PaginaDocumento::ProdottiRecenti);
  connect(letturaVeloce_, &QCheckBox::clicked, this, &PaginaDocumento::LetturaVeloce);
  connect(incolla_, &PannelloIncolla::Accettate, this, &PaginaDocumento::Inserisci);
  connect(incolla_, &PannelloIncolla::Rinunciato, this, &PaginaDocumento::LasciaIncollate);
}

void PaginaDocumento::OrdineTab() {
  QList<QWidget*> ordine = testa_->Ordine(1).mid(0, 2) + testa_->Ordine();
  ordine.insert(ordine.indexOf(&testa_->Controllo("CliFor")) + 1, destinazione_);
  ordine << testa_->Ordine(1).mid(2) << righe_ << altri_->Ordine() << letturaVeloce_
         << prodottiRecenti_ << incollaRighe_ << nuovaRiga_ << conferma_ << elimina_ << annulla_;
  OrdinaFuochi(ordine);
}

QList<QList<QWidget*>> PaginaDocumento::OrdineTesta() const {
  QList<QWidget*> prima{&testa_->Controllo("CliFor")};
  if (destinazione_->count() > 1) prima << destinazione_;
  // A warehouse that the type proposes is rarely another one.
  if (Testa().Testo("Mag").empty()) prima << &testa_->Controllo("Mag");
  for (const char* nome : {"MagDest", "NumDocCarico", "DtDocCarico"}) {
    prima << &testa_->Controllo(nome);
  }
  const QList<QWidget*> rari = testa_->Ordine(1);
  return {prima, rari.mid(0, 2) + prima,
          QList<QWidget*>{&testa_->Controllo("Mag")} + prima.mid(prima.size() - 3), rari.mid(2),
          altri_->Ordine()};
}

// --- What is shown ------------------------------------------------------------------------------

void PaginaDocumento::Mostra() {
  const bool scrivibile = !caso_.SolaLettura();
  for (QWidget* uno : std::initializer_list<QWidget*>{nuovaRiga_, conferma_, incollaRighe_,
                                                      prodottiRecenti_, letturaVeloce_}) {
    uno->setEnabled(scrivibile);
  }
  prodottiRecenti_->setVisible(finestre_.FunzioneDisponibile(QStringLiteral("ProdottiMovCliFor")));
  elimina_->setEnabled(scrivibile && !caso_.Nuova());
  solaLettura_->setVisible(!scrivibile);
  solaLettura_->setText(Qs(caso_.MotivoSolaLettura()) + tr(": si può consultare, non cambiare."));
  const auto& tipo = caso_.Tipo();
  schede_->setTabText(kAltriDati,
                      tipo.Bolla() || tipo.FattAcc() ? tr("Dati DDT") : tr("Altri Dati"));
  schede_->setTabText(kAllegati, caso_.StatoTesta("RiquadroRitenuta").visibile
                                     ? tr("Ritenute e allegati")
                                     : tr("Allegati"));
  MostraCampi(scrivibile);
  legatura_->Mostra();
  MostraDestinazioni();
  MostraElencoRighe();
  totali_->Mostra();
  allegati_->Mostra();
  MostraRiquadro();
}

void PaginaDocumento::MostraCampi(bool scrivibile) {
  const auto stato = [this](const std::string& nome) { return StatoTestaDocumento(caso_, nome); };
  testa_->Applica(stato, !scrivibile);
  altri_->Applica(stato, !scrivibile);
}

void PaginaDocumento::MostraDestinazioni() {
  const auto destinazioni = caso_.Destinazioni();
  const auto scelta = Testa().Leggi("Destinazione").Intero();
  destinazione_->clear();
  destinazione_->addItem(tr("quella scritta sul documento"), qlonglong{0});
  for (const auto& una : destinazioni) {
    destinazione_->addItem(Testo(una), static_cast<qlonglong>(una.posi));
    if (una.posi == scelta) destinazione_->setCurrentIndex(destinazione_->count() - 1);
  }
  destinazione_->setVisible(!destinazioni.empty());
  destinazione_->setEnabled(!caso_.SolaLettura() && caso_.StatoTesta("Destinazione").attivo);
}

void PaginaDocumento::ScegliDestinazione(int indice) {
  Testa().Scrivi("Destinazione",
                 Valore(static_cast<std::int64_t>(destinazione_->itemData(indice).toLongLong())));
  caso_.TestaLasciata("Destinazione");
  Mostra();
}

void PaginaDocumento::MostraElencoRighe() {
  std::vector<std::vector<Valore>> righe;
  righe.reserve(caso_.Righe().size());
  for (const auto& riga : caso_.Righe()) {
    righe.push_back({riga.posi, riga.codiceRiga,
                     Qs(riga.descrizione).section(QLatin1Char('\n'), 0, 0).toStdString(), riga.um,
                     riga.quantita, riga.prezzo, riga.sc1, riga.sc2, riga.sc3, riga.importo,
                     riga.codIva, riga.conto});
  }
  MostraRighe(std::move(righe));
  const bool contata = caso_.StatoRiga("Conto").visibile;
  righe_->setColumnHidden(kColConto, !contata);
}

void PaginaDocumento::Entra() {
  schede_->setCurrentIndex(kIntestazione);
  pila_->setCurrentIndex(0);
  PaginaConRighe::Entra();
  if (RigaAperta()) riga_->DaiFoco();
}

void PaginaDocumento::FocoData() {
  testa_->Controllo("CliFor").setFocus();
}

void PaginaDocumento::VaiAlCampo(const std::string& campo) {
  if (auto* controllo = findChild<QWidget*>(Qs(campo)); controllo != nullptr && !campo.empty()) {
    for (int i = 0; i < schede_->count(); ++i) {
      if (schede_->widget(i)->isAncestorOf(controllo)) schede_->setCurrentIndex(i);
    }
  }
  VaiA(campo);
  auto* foco = window()->focusWidget();
  if (foco == nullptr || !foco->isVisible()) FocoInVista(conferma_);
}

// --- Rows ---------------------------------------------------------------------------------------

bool PaginaDocumento::TogliIntatta() {
  if (!RigaAperta()) return true;
  if (!rigaDocumento_->Intatta()) return false;
  caso_.AnnullaRiga();
  MostraRiquadro();
  return true;
}

void PaginaDocumento::ApriRiga(int indice) {
  if (!legatura_->Raccogli()) return;
  const auto posi = righe_->Modello().Riga(indice).front().Intero();
  if (RigaAperta() && !rigaDocumento_->Intatta()) {
    if (caso_.Riga().Leggi("Posi").Intero() == posi && !caso_.RigaNuova()) return;
    if (riga_->Digitata()) {
      finestre_.Sessione().Dialogo().Messaggio("confermare o annullare prima la riga",
                                               Icona::Avviso);
      return;
    }
  }
  if (RigaAperta()) caso_.AnnullaRiga();
  const auto& righe = caso_.Righe();
  for (std::size_t i = 0; i < righe.size(); ++i) {
    if (righe[i].posi != posi) continue;
    if (!caso_.ApriRiga(i)) return Mostra();
    Mostra();
    riga_->Entra();
    VaiAPosizione(posi);
    return;
  }
}

void PaginaDocumento::NuovaRiga() {
  schede_->setCurrentIndex(kIntestazione);
  LasciaIncollate();
  if (!Raccogli()) return;
  if (rigaDocumento_->Intatta()) return riga_->DaiFoco();
  if (RigaAperta()) {
    const bool nuova = caso_.RigaNuova();
    // A new row that is confirmed opens the next by itself.
    if (!riga_->Conferma() || nuova) return;
  }
  ApriNuova();
}

void PaginaDocumento::ApriNuova() {
  if (!caso_.PNuovaRiga()) return;
  Mostra();
  riga_->Entra();
}

void PaginaDocumento::DopoRiga(qint64 posi) {
  const bool nuova = rigaDocumento_->ConfermataNuova();
  PaginaConRighe::DopoRiga(posi);
  if (nuova && nuovaRiga_->isEnabled()) ApriNuova();
}

bool PaginaDocumento::InvioInRiga(QWidget& campo) {
  const std::string nome = campo.objectName().toStdString();
  if (!RigaAperta() || caso_.SolaLettura() || !riga_->isAncestorOf(&campo) ||
      !documents::NelPercorso(nome)) {
    return false;
  }
  if (&campo == &rigaDocumento_->Prodotto() && ProdottoLetto(rigaDocumento_->Prodotto())) {
    return true;
  }
  // What is typed counts before the way on is asked for.
  if (!riga_->Raccogli()) return true;
  const std::string dopo = documents::DopoCampoRiga(caso_, nome);
  if (dopo.empty()) {
    riga_->Conferma();
  } else {
    rigaDocumento_->VaiA(dopo);
  }
  return true;
}

bool PaginaDocumento::ProdottoLetto(CampoCodice& campo) {
  const std::string letto = campo.text().trimmed().toStdString();
  if (letto.empty() || !campo.isModified() || campo.SceltaInElenco() || !caso_.RigaNuova()) {
    return false;
  }
  const bool veloce = letturaVeloce_->isChecked();
  switch (documents::CheCosaELetto(finestre_.Sessione(), letto)) {
    case documents::GenereLetto::Codice:
      if (!veloce) return false;
      break;
    case documents::GenereLetto::Parole:
      return false;
    case documents::GenereLetto::PiuProdotti:
      return true;  // they are listed below the field
    case documents::GenereLetto::Barcode:
    case documents::GenereLetto::Niente:
      break;
  }
  const bool preso = caso_.Letto(letto, veloce);
  Mostra();
  if (preso && !RigaAperta()) {
    righe_->VaiARiga(righe_->Modello().rowCount() - 1);
    ApriNuova();
  } else if (preso) {
    riga_->DaiFoco();
  } else {
    campo.setText(Qs(letto));
    campo.setFocus();
    campo.selectAll();
  }
  return true;
}

void PaginaDocumento::LetturaVeloce(bool attiva) {
  finestre_.Sessione().ScriviImpostazione({}, "config", "LetturaVeloce", attiva ? "1" : "0");
  if (RigaAperta()) riga_->DaiFoco();
}

// --- Rows from elsewhere ------------------------------------------------------------------------

bool PaginaDocumento::SiIncollanoRighe(const QObject* dove) const {
  if (dove == righe_) return true;
  if (dove != &rigaDocumento_->Prodotto() || !rigaDocumento_->Intatta()) return false;
  const QString testo = QApplication::clipboard()->text().trimmed();
  return testo.contains(QLatin1Char('\t')) || testo.contains(QLatin1Char('\n'));
}

void PaginaDocumento::IncollaRighe() {
  if (!incollaRighe_->isEnabled() || !Raccogli()) return;
  if (!TogliIntatta()) {
    finestre_.Sessione().Dialogo().Messaggio("confermare o annullare prima la riga", Icona::Avviso);
    return;
  }
  if (!incolla_->Leggi()) return;
  schede_->setCurrentIndex(kIntestazione);
  pila_->setCurrentWidget(incolla_);
  incolla_->Foco();
}

bool PaginaDocumento::LasciaIncollate() {
  if (pila_->currentWidget() != incolla_) return false;
  pila_->setCurrentIndex(0);
  FocoInVista(nuovaRiga_);
  return true;
}

void PaginaDocumento::Inserisci(const std::vector<documents::ValoriRiga>& righe) {
  const auto errore = caso_.RigheDa(righe);
  if (errore) {
    finestre_.Sessione().Dialogo().Messaggio(errore->messaggio, Icona::Avviso);
    return;
  }
  Mostra();
  LasciaIncollate();
  righe_->VaiARiga(righe_->Modello().rowCount() - 1);
}

void PaginaDocumento::ProdottiRecenti() {
  if (!prodottiRecenti_->isEnabled() || prodottiRecenti_->isHidden() || !Raccogli()) return;
  const std::string cliFor = Testa().Testo("CliFor");
  if (cliFor.empty()) {
    finestre_.Sessione().Dialogo().Messaggio("scegliere prima il cliente o il fornitore",
                                             Icona::Avviso);
    return VaiAlCampo("CliFor");
  }
  for (auto* sopra = parentWidget(); sopra != nullptr; sopra = sopra->parentWidget()) {
    auto* finestra = qobject_cast<FinestraFunzione*>(sopra);
    if (finestra == nullptr) continue;
    const auto& tipo = caso_.Tipo();
    FinestraProdottiRecenti::Apri(
        *finestra, finestre_, {tipo.cod, tipo.cfp, cliFor},
        [this](const documents::ValoriRiga& valori) { PrendiRecente(valori); });
    return;
  }
}

void PaginaDocumento::PrendiRecente(const documents::ValoriRiga& valori) {
  TogliIntatta();
  if (!Aperta() || !caso_.RigaDa(valori)) return;
  schede_->setCurrentIndex(kIntestazione);
  Mostra();
  riga_->Entra();
}

// --- The document -------------------------------------------------------------------------------

void PaginaDocumento::ConfermaTutto() {
  if (pila_->currentWidget() == incolla_ && pila_->isVisible()) {
    incolla_->Pulsanti().front()->click();
  } else if (RigaAperta() && !rigaDocumento_->Intatta()) {
    if (!caso_.SolaLettura()) riga_->Conferma();
  } else if (conferma_->isEnabled()) {
    conferma_->click();
  }
}

std::optional<std::int64_t> PaginaDocumento::ConfermaRegistrazione() {
  TogliIntatta();
  std::string campo;
  if (caso_.Conferma(&campo)) return caso_.Confermato().numDoc;
  Mostra();
  VaiAlCampo(campo);
  return std::nullopt;
}

bool PaginaDocumento::EliminaRegistrazione() {
  if (!Raccogli()) return false;
  TogliIntatta();
  if (caso_.Elimina()) return true;
  Mostra();
  return false;
}

}  // namespace fenalto::screens
