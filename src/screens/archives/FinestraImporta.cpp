#include "screens/archives/FinestraImporta.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "core/archives/Importazione.h"
#include "ledger/accounts/GeneriImporta.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "vat/codes/ImportaCodiciIva.h"
#include "warehouse/products/ImportaProdotti.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kEsempi = 3;
constexpr std::size_t kRigheAnteprima = 50;
constexpr int kColonnaCampo = 2;

std::vector<archives::GenereImporta> TuttiIGeneri() {
  auto generi = ledger::GeneriImportaContabili();
  generi.push_back(vat::GenereImportaCodiciIva());
  generi.push_back(warehouse::GenereImportaProdotti());
  return generi;
}

/// A list that the wheel doesn't change: it stands in a grid that is scrolled.
class SceltaCampo : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* evento) override { evento->ignore(); }
};

QWidget* ConTitolo(const QString& titolo, QWidget* contenuto) {
  auto* riquadro = new QWidget;
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->setContentsMargins(0, 0, 0, 0);
  Affianca(*colonna, titolo, contenuto, 1);
  return riquadro;
}

}  // namespace

struct FinestraImporta::Interno {
  Interno(FinestraImporta& finestraUsata, Finestre& gestoreUsato);
  void Crea();
  QLayout* CreaTesta();
  QLayout* CreaPiede();
  QWidget* CreaGriglie();
  void Collega();
  void Apri();
  void CambiaGenere();
  void Sfoglia();
  void MostraColonne();
  void MostraAbbinamenti();
  void MostraAnteprima();
  void Abbina(std::size_t colonna, int scelta);
  void Controlla();
  void Importa();
  void MostraEsito(const archives::EsitoImporta& esitoDelControllo);
  void Vuota();
  [[nodiscard]] archives::OpzioniImporta Opzioni() const;
  [[nodiscard]] Dialoghi& Dialogo() const { return gestore.Sessione().Dialogo(); }

  FinestraImporta& finestra;
  Finestre& gestore;
  std::vector<archives::GenereImporta> generi = TuttiIGeneri();
  std::unique_ptr<archives::Importazione> importazione;
  QString fileAperto;

  QComboBox* genere = nullptr;
  CampoTesto* file = nullptr;
  QPushButton* sfoglia = nullptr;
  Griglia* colonne = nullptr;
  std::vector<SceltaCampo*> scelte;  ///< one a column of the file
  QWidget* postoAnteprima = nullptr;
  Griglia* anteprima = nullptr;
  Griglia* errori = nullptr;
  QCheckBox* escludi = nullptr;
  QCheckBox* aggiorna = nullptr;
  QLabel* esito = nullptr;
  QPushButton* controlla = nullptr;
  QPushButton* importa = nullptr;
  QPushButton* esporta = nullptr;
};

FinestraImporta::Interno::Interno(FinestraImporta& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata), gestore(gestoreUsato) {
  Crea();
  Collega();
  AssegnaMnemoniche({sfoglia, controlla, importa, esporta});
  CambiaGenere();
}

void FinestraImporta::Interno::Crea() {
  auto* colonna = new QVBoxLayout(&finestra);
  const int margine = Misura(Passo::Vicino);
  colonna->setContentsMargins(margine, margine, margine, margine);
  colonna->addLayout(CreaTesta());
  colonna->addWidget(CreaGriglie(), 1);
  colonna->addLayout(CreaPiede());
}

QLayout* FinestraImporta::Interno::CreaTesta() {
  constexpr int kPercorsoMassimo = 4'096;
  genere = new QComboBox;
  genere->setObjectName(QStringLiteral("Genere"));
  for (const auto& uno : generi) genere->addItem(Qs(uno.nome));
  file = new CampoTesto(QStringLiteral("File"), nullptr, kPercorsoMassimo);
  file->setPlaceholderText(tr("file .csv salvato dal foglio elettronico o da un altro programma"));
  sfoglia = Pulsante(QStringLiteral("Sfoglia"), tr("Sfoglia..."));
  auto* riga = new QHBoxLayout;
  Affianca(*riga, tr("Archivio"), genere);
  riga->addSpacing(Misura(Passo::Gruppo));
  Affianca(*riga, tr("File"), file, 1);
  riga->addWidget(sfoglia);
  return riga;
}

QWidget* FinestraImporta::Interno::CreaGriglie() {
  constexpr int kMeta = 600;  // of the splitter, which shares its width in this proportion
  const QString nome = QStringLiteral("Importa");
  colonne = new Griglia(QStringLiteral("GrigliaColonne"), nome,
                        {{tr("Colonna del file"), Tipo::Testo, 150},
                         {tr("Primi valori"), Tipo::Testo, 190},
                         {tr("Campo"), Tipo::Testo, 190}});
  colonne->QuandoVuota(QObject::tr("scegliere il file: qui si abbinano le sue colonne"));
  colonne->setFocusPolicy(Qt::ClickFocus);
  colonne->horizontalHeader()->setSectionsClickable(false);
  errori = new Griglia(QStringLiteral("GrigliaErrori"), nome,
                       {{tr("Riga"), Tipo::Intero, 60},
                        {tr("Colonna"), Tipo::Testo, 160},
                        {tr("Valore"), Tipo::Testo, 200},
                        {tr("Motivo"), Tipo::Testo, 420}});
  errori->QuandoVuota(
      QObject::tr("nessun errore: Controlla legge il file e dice qui che cosa non va"));
  postoAnteprima = new QWidget;
  auto* disposizione = new QVBoxLayout(postoAnteprima);
  disposizione->setContentsMargins(0, 0, 0, 0);
  disposizione->addWidget(new QLabel(tr("Come saranno scritte le prime righe")));
  disposizione->addStretch(0);
  auto* sopra = new QSplitter(Qt::Horizontal);
  sopra->addWidget(ConTitolo(tr("Dove va ogni colonna"), colonne));
  sopra->addWidget(postoAnteprima);
  sopra->setChildrenCollapsible(false);
  sopra->setSizes({kMeta, kMeta});
  auto* tutto = new QSplitter(Qt::Vertical);
  tutto->addWidget(sopra);
  tutto->addWidget(ConTitolo(tr("Righe sbagliate"), errori));
  tutto->setStretchFactor(0, 3);
  tutto->setStretchFactor(1, 2);
  return tutto;
}

QLayout* FinestraImporta::Interno::CreaPiede() {
  escludi = new QCheckBox(tr("Lascia fuori le righe sbagliate"));
  escludi->setObjectName(QStringLiteral("EscludiErrate"));
  aggiorna = new QCheckBox(tr("Aggiorna i codici che esistono già"));
  aggiorna->setObjectName(QStringLiteral("AggiornaEsistenti"));
  esito = new QLabel;
  esito->setObjectName(QStringLiteral("Esito"));
  esito->setTextFormat(Qt::PlainText);
  controlla = Pulsante(QStringLiteral("Controlla"), tr("Controlla"));
  importa = Pulsante(QStringLiteral("Importa"), tr("Importa"));
  esporta = Pulsante(QStringLiteral("XlsEsp"), tr("Esporta gli errori"));
  auto* scelteFatte = new QHBoxLayout;
  scelteFatte->addWidget(aggiorna);
  scelteFatte->addSpacing(Misura(Passo::Gruppo));
  scelteFatte->addWidget(escludi);
  scelteFatte->addStretch(1);
  auto* pulsanti = new QHBoxLayout;
  pulsanti->addWidget(esito, 1);
  for (auto* pulsante : {esporta, controlla, importa}) pulsanti->addWidget(pulsante);
  auto* piede = new QVBoxLayout;
  piede->addLayout(scelteFatte);
  piede->addLayout(pulsanti);
  return piede;
}

void FinestraImporta::Interno::Collega() {
  auto* f = &finestra;
  connect(genere, &QComboBox::currentIndexChanged, f, [this] { CambiaGenere(); });
  connect(file, &QLineEdit::editingFinished, f, [this] {
    if (file->text().trimmed() != fileAperto) Apri();
  });
  connect(sfoglia, &QPushButton::clicked, f, [this] { Sfoglia(); });
  connect(controlla, &QPushButton::clicked, f, [this] { Controlla(); });
  connect(importa, &QPushButton::clicked, f, [this] { Importa(); });
  connect(esporta, &QPushButton::clicked, f, [this] { finestra.Esporta(*errori); });
}

archives::OpzioniImporta FinestraImporta::Interno::Opzioni() const {
  return {aggiorna->isChecked(), escludi->isChecked()};
}

void FinestraImporta::Interno::CambiaGenere() {
  const auto scelto = static_cast<std::size_t>(std::max(0, genere->currentIndex()));
  importazione = std::make_unique<archives::Importazione>(gestore.Sessione(), generi[scelto]);
  Vuota();
  if (!file->text().trimmed().isEmpty()) Apri();
}

void FinestraImporta::Interno::Sfoglia() {
  const auto scelto =
      Dialogo().ScegliFile("File da importare", ModoFile::Apri,
                           "File di testo con separatori (*.csv *.txt *.tsv);;Tutti i file (*)");
  if (!scelto) return;
  file->setText(Qs(scelto->string()));
  Apri();
}

void FinestraImporta::Interno::Apri() {
  fileAperto = file->text().trimmed();
  Vuota();
  if (fileAperto.isEmpty()) return;
  const auto letto = importazione->Apri(fileAperto.toStdString());
  if (!letto) {
    Dialogo().Messaggio(letto.Errore().messaggio, Icona::Avviso);
    return;
  }
  MostraColonne();
  esito->setText(tr("%1 righe nel file").arg(importazione->Tabella().righe.size()));
  controlla->setEnabled(true);
  importa->setEnabled(true);
}

/// Nothing is open, or no longer what the grids show.
void FinestraImporta::Interno::Vuota() {
  scelte.clear();
  colonne->Modello().Righe({});
  errori->Modello().Righe({});
  delete std::exchange(anteprima, nullptr);
  esito->clear();
  for (auto* pulsante : {controlla, importa, esporta}) pulsante->setEnabled(false);
}

void FinestraImporta::Interno::MostraColonne() {
  const TabellaCsv& tabella = importazione->Tabella();
  std::vector<std::vector<Valore>> righe;
  for (std::size_t i = 0; i < tabella.nomi.size(); ++i) {
    std::string esempi;
    for (std::size_t r = 0; r < std::min(kEsempi, tabella.righe.size()); ++r) {
      const std::string& valore = tabella.righe[r].campi[i];
      if (!valore.empty()) esempi += (esempi.empty() ? "" : " | ") + valore;
    }
    righe.push_back({tabella.nomi[i], esempi, ""});
  }
  colonne->Modello().Righe(std::move(righe));
  scelte.clear();
  for (std::size_t i = 0; i < tabella.nomi.size(); ++i) {
    auto* scelta = new SceltaCampo;
    scelta->setObjectName(QStringLiteral("Campo%1").arg(i + 1));
    scelta->setAccessibleName(tr("Campo di %1").arg(Qs(tabella.nomi[i])));
    scelta->addItem(tr("(non si importa)"));
    for (const auto& campo : importazione->Campi()) scelta->addItem(Qs(campo.didascalia));
    scelte.push_back(scelta);
    colonne->setIndexWidget(colonne->model()->index(static_cast<int>(i), kColonnaCampo), scelta);
    connect(scelta, &QComboBox::currentIndexChanged, &finestra,
            [this, i](int indice) { Abbina(i, indice); });
  }
  MostraAbbinamenti();
}

void FinestraImporta::Interno::Abbina(std::size_t colonna, int scelta) {
  const std::string campo =
      scelta > 0 ? importazione->Campi()[static_cast<std::size_t>(scelta - 1)].nome : "";
  importazione->Abbinamenti().Abbina(colonna, campo);
  errori->Modello().Righe({});
  esporta->setEnabled(false);
  esito->clear();
  MostraAbbinamenti();
}

void FinestraImporta::Interno::MostraAbbinamenti() {
  for (std::size_t i = 0; i < scelte.size(); ++i) {
    const QSignalBlocker zitta(scelte[i]);
    const auto campo = importazione->Abbinamenti().Campo(i);
    scelte[i]->setCurrentIndex(campo ? static_cast<int>(*campo) + 1 : 0);
  }
  MostraAnteprima();
}

/// The grid is made anew: its columns are the mapped fields.
void FinestraImporta::Interno::MostraAnteprima() {
  constexpr int kLarghezza = 130;
  delete std::exchange(anteprima, nullptr);
  std::vector<ColonnaGriglia> titoli;
  for (const auto& campo : importazione->CampiAbbinati()) {
    titoli.push_back({Qs(campo.didascalia), Tipo::Testo, kLarghezza});
  }
  std::vector<std::vector<Valore>> righe;
  for (auto& testi : importazione->Anteprima(kRigheAnteprima)) {
    righe.emplace_back(testi.begin(), testi.end());
  }
  anteprima =
      new Griglia(QStringLiteral("GrigliaAnteprima"), QStringLiteral("Importa"), std::move(titoli));
  anteprima->Modello().Righe(std::move(righe));
  qobject_cast<QVBoxLayout*>(postoAnteprima->layout())->insertWidget(1, anteprima, 1);
}

void FinestraImporta::Interno::MostraEsito(const archives::EsitoImporta& trovato) {
  std::vector<std::vector<Valore>> righe;
  righe.reserve(trovato.errori.size());
  for (const auto& errore : trovato.errori) {
    righe.push_back(
        {static_cast<std::int64_t>(errore.linea), errore.colonna, errore.valore, errore.motivo});
  }
  errori->Modello().Righe(std::move(righe));
  esporta->setEnabled(!trovato.errori.empty());
  QString testo = tr("%1 righe: %2 nuove, %3 da aggiornare, %4 esistono già, %5 sbagliate")
                      .arg(trovato.lette)
                      .arg(trovato.nuove)
                      .arg(trovato.aggiornate)
                      .arg(trovato.saltate)
                      .arg(trovato.errate);
  if (trovato.errori.size() == archives::Importazione::kMassimoErrori) {
    testo += tr(" (mostrati i primi %1 errori)").arg(archives::Importazione::kMassimoErrori);
  }
  esito->setText(trovato.annullata ? tr("interrotto: non è stato scritto nulla") : testo);
}

void FinestraImporta::Interno::Controlla() {
  MostraEsito(importazione->Controlla(Opzioni()));
}

void FinestraImporta::Interno::Importa() {
  const archives::OpzioniImporta opzioni = Opzioni();
  const archives::EsitoImporta prima = importazione->Controlla(opzioni);
  MostraEsito(prima);
  if (prima.annullata) return;
  const auto racconto = [](const archives::EsitoImporta& e, const char* nuove,
                           const char* aggiornate) {
    return std::to_string(e.nuove) + nuove + std::to_string(e.aggiornate) + aggiornate +
           std::to_string(e.saltate + e.errate) + " lasciate fuori" +
           (e.seguiti == 0 ? std::string()
                           : ", " + std::to_string(e.seguiti) + " righe di seguito");
  };
  if (!prima.errori.empty() && (!opzioni.escludiErrate || prima.lette == 0)) {
    Dialogo().Messaggio(
        "ci sono righe sbagliate: non è stato scritto nulla.\n"
        "Correggere il file, o lasciare fuori le righe sbagliate",
        Icona::Avviso);
    return;
  }
  if (prima.nuove + prima.aggiornate + prima.seguiti == 0) {
    Dialogo().Messaggio("nel file non c'è nulla da importare: " + std::to_string(prima.saltate) +
                        " codici esistono già, " + std::to_string(prima.errate) +
                        " righe sono sbagliate");
    return;
  }
  const std::string titolo = importazione->Genere().titolo;
  if (!Dialogo().Conferma("Importare " + titolo + " ?\n" +
                          racconto(prima, " righe nuove, ", " da aggiornare, "))) {
    return;
  }
  const auto fatto = importazione->Importa(opzioni);
  if (!fatto) {
    Dialogo().Messaggio(fatto.Errore().messaggio, Icona::Errore);
    return;
  }
  MostraEsito(fatto.Valore());
  if (!fatto.Valore().scritta) {
    Dialogo().Messaggio("importazione interrotta: non è stato scritto nulla", Icona::Avviso);
    return;
  }
  const std::string riassunto = racconto(fatto.Valore(), " importate, ", " aggiornate, ");
  esito->setText(Qs(riassunto));
  Dialogo().Annuncia("importazione di " + titolo + " eseguita: " + riassunto);
}

FinestraImporta::FinestraImporta(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("Importa"), tr("Importazione archivi"), finestre),
      interno_(std::make_unique<Interno>(*this, finestre)) {
  interno_->file->setFocus();
}

FinestraImporta::~FinestraImporta() = default;

void FinestraImporta::ApriScheda(int scheda) {
  if (scheda >= 0 && scheda < interno_->genere->count()) interno_->genere->setCurrentIndex(scheda);
}

void FinestraImporta::ApriRecord(const Rinvio& rinvio) {
  ApriScheda(
      interno_->genere->findText(QString::fromStdString(rinvio.codice), Qt::MatchFixedString));
}

void FinestraImporta::Aggiorna() {
  interno_->Apri();
}

}  // namespace fenalto::screens
