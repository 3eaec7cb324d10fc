#include "screens/duedates/riba/FinestraRiba.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "core/session/Scheda.h"
#include "core/values/FormatoImporto.h"
#include "duedates/riba/Riba.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"
#include "screens/duedates/CampiScadenza.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreBanca = 6;
constexpr int kCifreCausale = 5;
constexpr int kCifreConto = 10;
constexpr std::size_t kColonnaNumero = 1;
constexpr int kColonnaRiferimenti = 6;

/// Rows that the space bar, Enter and a double click take into the batch or out of it.
class GrigliaRiba : public Griglia {
 public:
  GrigliaRiba(const QString& finestra, std::function<void(int riga)> cambia)
      : Griglia(
            QStringLiteral("GrigliaRiba"), finestra,
            {{tr("Scelta"), Tipo::Booleano, 50},
             {QStringLiteral("Numero"), Tipo::Intero, 65},
             {QStringLiteral("Cliente"), Tipo::Testo, 75},
             {QStringLiteral("Ragione sociale"), Tipo::Testo, 230, 2, QStringLiteral("RagSoc1")},
             {QStringLiteral("Scadenza"), Tipo::Data, 90, 2, QStringLiteral("DataScad")},
             {QStringLiteral("Importo"), Tipo::Importo, 100},
             {QStringLiteral("Riferimenti"), Tipo::Testo, 210, 2,
              QStringLiteral("Descrizione-Riferimenti")},
             {QStringLiteral("ABI"), Tipo::Testo, 60, 2, QStringLiteral("ABI__")},
             {QStringLiteral("CAB"), Tipo::Testo, 60, 2, QStringLiteral("CAB__")},
             {QStringLiteral("N. fattura"), Tipo::Testo, 70, 2, QStringLiteral("NFatt"), true},
             {QStringLiteral("Data fattura"), Tipo::Data, 90, 2, QStringLiteral("Data Fatt")},
             {QStringLiteral("Pagamento"), Tipo::Testo, 55, 2, QStringLiteral("pag")}}),
        cambia_(std::move(cambia)) {
    Elastica(kColonnaRiferimenti);
    Segna([](const std::vector<Valore>& riga) { return riga.front().Booleano(); });
    connect(this, &Griglia::RigaDoppioClic, this, cambia_);
    connect(this, &Griglia::RigaInvio, this, cambia_);
  }

 protected:
  void keyPressEvent(QKeyEvent* evento) override {
    if (evento->key() == Qt::Key_Space && evento->modifiers() == Qt::NoModifier) {
      cambia_(RigaCorrente());
    } else {
      Griglia::keyPressEvent(evento);
    }
  }

 private:
  std::function<void(int)> cambia_;
};

std::vector<Valore> Celle(const duedates::RigaRiba& r, bool scelta) {
  return {scelta,        r.numero, r.cliente, r.ragSoc1, r.dataScad, r.importo,
          r.descrizione, r.abi,    r.cab,     r.nFat,    r.dtFat,    r.pagamento};
}

QLabel* Mostrato(const char* nome) {
  auto* etichetta = new QLabel;
  etichetta->setObjectName(QString::fromLatin1(nome));
  return etichetta;
}

QLabel* InEvidenza(QLabel* etichetta) {
  InGrassetto(*etichetta);
  return etichetta;
}

}  // namespace

struct FinestraRiba::Interno {
  Interno(FinestraRiba& finestraUsata, Finestre& gestoreUsato);
  QLayout* CreaDistinta();
  QWidget* CreaRegistrazione();
  QWidget* CreaSelezione();
  QLayout* CreaPiede();
  void Collega();

  void Lasciato(const QString& campo, bool cambiato);
  void ImpostazioniLasciate();
  void Cambia(int riga);
  void ScegliTutte();
  void Sfoglia();
  void Rileggi();
  void Conferma();
  void Mostra();
  void MostraRighe();
  void MostraScelte();

  FinestraRiba& finestra;
  Finestre& gestore;
  duedates::Riba caso;
  Scheda campi;
  Legatura* legatura;
  OpzioniGrafiche* opzioni;
  GrigliaRiba* griglia;
  QLabel* numero = InEvidenza(Mostrato("NumeroDistinta"));
  QLabel* descrizione = InEvidenza(Mostrato("Descrizione"));
  QLabel* avvisoFile = Mostrato("AvvisoFile");
  QLabel* scelte = Mostrato("NumeroScelte");
  QLabel* totale = InEvidenza(Mostrato("Totale"));
  QLabel* esito = Mostrato("Esito");
  QPushButton* sfoglia;
  QPushButton* aggiorna;
  QPushButton* tutte;
  QPushButton* nessuna;
  QPushButton* esporta;
  QPushButton* conferma;
};

FinestraRiba::Interno::Interno(FinestraRiba& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      caso(gestoreUsato.Sessione()),
      legatura(new Legatura([this]() -> Scheda& { return campi; },
                            gestoreUsato.Sessione().Dialogo(), &finestraUsata)),
      opzioni(new OpzioniGrafiche(finestraUsata.Nome(), gestoreUsato.Sessione(), campi, *legatura)),
      griglia(new GrigliaRiba(finestraUsata.Nome(), [this](int riga) { Cambia(riga); })),
      sfoglia(Pulsante(QStringLiteral("Sfoglia"), tr("Sfoglia..."))),
      aggiorna(Pulsante(QStringLiteral("Aggiorna"), tr("Aggiorna"), tr("F5"))),
      tutte(Pulsante(QStringLiteral("SelezionaTutte"), tr("Seleziona tutte"))),
      nessuna(Pulsante(QStringLiteral("SelezionaNessuna"), tr("Togli la selezione"))),
      esporta(Pulsante(QStringLiteral("XlsEsp"), tr("Esporto in Excel"))),
      conferma(Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"))) {
  for (const char* testo : {"Banca", "NomeFile", "DirectoryRiba", "Causale", "Contropartita"}) {
    campi.Aggiungi(testo, Tipo::Testo);
  }
  campi.Aggiungi("DataDistinta", Tipo::Data);
  for (const char* casella : {"RegistrazioneContabileRiba", "StampaTracciato"}) {
    campi.Aggiungi(casella, Tipo::Booleano);
  }
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(CreaDistinta());
  colonna->addWidget(CreaRegistrazione());
  colonna->addWidget(CreaSelezione(), 1);
  colonna->addLayout(CreaPiede());
  AssegnaMnemoniche({conferma, sfoglia, aggiorna, tutte, nessuna, esporta});
  Collega();
  MostraRighe();
  griglia->VaiARiga(0);
  Mostra();
}

QLayout* FinestraRiba::Interno::CreaDistinta() {
  auto* insieme = new QGridLayout;
  auto* banca = CampoBanca("Banca", gestore);
  auto* data = CampoGiorno("DataDistinta", gestore.Sessione());
  auto* cartella = new CampoTesto(QStringLiteral("DirectoryRiba"));
  auto* file = new CampoTesto(QStringLiteral("NomeFile"));
  cartella->setToolTip(tr("cartella dei file per la banca"));
  file->setToolTip(tr("si può cambiare per questa distinta; vuoto torna al nome solito"));
  for (QWidget* campo : std::initializer_list<QWidget*>{banca, data, cartella, file}) {
    legatura->Lega(campo);
  }
  auto* prima = new QHBoxLayout;
  prima->addWidget(ConDescrizione(banca, kCifreBanca), 1);
  Affianca(*prima, tr("Data distinta"), data);
  prima->addWidget(new QLabel(tr("Distinta n.")));
  prima->addWidget(numero);
  prima->addSpacing(Misura(Passo::Stacco));
  prima->addWidget(descrizione, 1);
  auto* seconda = new QHBoxLayout;
  seconda->addWidget(cartella, 1);
  seconda->addWidget(sfoglia);
  Affianca(*seconda, tr("File"), file, 1);
  avvisoFile->setWordWrap(true);
  insieme->addWidget(Didascalia(tr("Banca"), banca), 0, 0);
  insieme->addLayout(prima, 0, 1);
  insieme->addWidget(Didascalia(tr("Cartella"), cartella), 1, 0);
  insieme->addLayout(seconda, 1, 1);
  insieme->addWidget(avvisoFile, 2, 1);
  insieme->setColumnStretch(1, 1);
  return insieme;
}

QWidget* FinestraRiba::Interno::CreaRegistrazione() {
  auto* riquadro = new QGroupBox(tr("Registrazione contabile"));
  auto* fila = new QHBoxLayout(riquadro);
  auto* crea = new QCheckBox(tr("Creo registrazione contabile"));
  crea->setObjectName(QStringLiteral("RegistrazioneContabileRiba"));
  legatura->Lega(crea);
  fila->addWidget(crea);
  const auto aggiungi = [&](CampoCodice* campo, const QString& testo, int cifre) {
    legatura->Lega(campo);
    fila->addSpacing(Misura(Passo::Stacco));
    fila->addWidget(Didascalia(testo, campo));
    fila->addWidget(ConDescrizione(campo, cifre), 1);
  };
  aggiungi(CampoCausale("Causale", gestore), tr("Causale"), kCifreCausale);
  aggiungi(CampoConto("Contropartita", gestore), tr("Contropartita"), kCifreConto);
  return riquadro;
}

QWidget* FinestraRiba::Interno::CreaSelezione() {
  auto* riquadro = new QGroupBox(tr("Selezione Riba"));
  auto* colonna = new QVBoxLayout(riquadro);
  auto* fila = new QHBoxLayout;
  for (auto* pulsante : {tutte, nessuna, aggiorna, esporta}) fila->addWidget(pulsante);
  fila->addSpacing(Misura(Passo::Stacco));
  auto* tasti = new EtichettaElisa;
  tasti->setText(tr("barra spaziatrice o doppio clic: sceglie la riga, o la toglie"));
  fila->addWidget(tasti, 1);
  fila->addWidget(scelte);
  fila->addSpacing(Misura(Passo::Stacco));
  fila->addWidget(new QLabel(tr("Totale")));
  fila->addWidget(totale);
  totale->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  LargoCaratteri(totale, kCifreImporto);
  colonna->addWidget(griglia, 1);
  colonna->addLayout(fila);
  return riquadro;
}

QLayout* FinestraRiba::Interno::CreaPiede() {
  auto* fila = new QHBoxLayout;
  auto* tracciato = new QCheckBox(tr("anche il tracciato"));
  tracciato->setObjectName(QStringLiteral("StampaTracciato"));
  tracciato->setToolTip(tr("in fondo alla distinta, le righe del file per la banca"));
  legatura->Lega(tracciato);
  fila->addLayout(opzioni->Riga());
  fila->addWidget(tracciato);
  fila->addSpacing(Misura(Passo::Stacco));
  esito->setTextInteractionFlags(Qt::TextSelectableByMouse);
  fila->addWidget(esito, 1);
  fila->addWidget(conferma);
  return fila;
}

void FinestraRiba::Interno::Collega() {
  auto* f = &finestra;
  connect(legatura, &Legatura::Lasciato, f,
          [this](const QString& campo, bool cambiato) { Lasciato(campo, cambiato); });
  connect(sfoglia, &QPushButton::clicked, f, [this] { Sfoglia(); });
  connect(aggiorna, &QPushButton::clicked, f, [this] { Rileggi(); });
  connect(tutte, &QPushButton::clicked, f, [this] { ScegliTutte(); });
  connect(nessuna, &QPushButton::clicked, f, [this] {
    caso.ScegliNessuna();
    MostraRighe();
    Mostra();
  });
  connect(esporta, &QPushButton::clicked, f, [this] { finestra.Esporta(*griglia); });
  connect(conferma, &QPushButton::clicked, f, [this] { Conferma(); });
}

void FinestraRiba::Interno::Lasciato(const QString& campo, bool cambiato) {
  if (!cambiato) return;
  if (campo == QLatin1String("Banca")) {
    caso.ImpostaBanca(campi.Testo("Banca"));
  } else if (campo == QLatin1String("DataDistinta")) {
    caso.ImpostaData(campi.Leggi("DataDistinta").Data());
  } else if (campo == QLatin1String("NomeFile")) {
    caso.ImpostaNomeFile(campi.Testo("NomeFile"));
  } else {
    ImpostazioniLasciate();
    if (campo == QLatin1String("Causale")) caso.AvvisaCausale();
  }
  Mostra();
}

void FinestraRiba::Interno::ImpostazioniLasciate() {
  caso.Imposta({campi.Testo("DirectoryRiba"), campi.Testo("Causale"), campi.Testo("Contropartita"),
                campi.Leggi("RegistrazioneContabileRiba").Booleano()});
}

void FinestraRiba::Interno::Cambia(int riga) {
  if (riga < 0 || riga >= griglia->Modello().rowCount()) return;
  const std::int64_t quale = griglia->Modello().Riga(riga)[kColonnaNumero].Intero();
  caso.Cambia(quale);
  const auto trovata = std::ranges::find(caso.Righe(), quale, &duedates::RigaRiba::numero);
  if (trovata == caso.Righe().end()) return;
  int colonna = 0;
  for (Valore& valore : Celle(*trovata, caso.Scelta(quale))) {
    griglia->Modello().Cella(riga, colonna++, std::move(valore));
  }
  MostraScelte();
}

void FinestraRiba::Interno::ScegliTutte() {
  std::vector<std::int64_t> numeri;
  for (int riga = 0; riga < griglia->Modello().rowCount(); ++riga) {
    numeri.push_back(griglia->Modello().Riga(riga)[kColonnaNumero].Intero());
  }
  caso.Scegli(numeri);
  MostraRighe();
  Mostra();
  FocoInVista(conferma);
}

void FinestraRiba::Interno::Sfoglia() {
  const auto scelta = gestore.Sessione().Dialogo().ScegliFile("Cartella dei file per la banca",
                                                              ModoFile::Cartella, "");
  if (!scelta) return;
  campi.Scrivi("DirectoryRiba", Valore(scelta->string()));
  ImpostazioniLasciate();
  Mostra();
}

void FinestraRiba::Interno::Rileggi() {
  if (!legatura->Raccogli()) return;
  caso.Rileggi();
  MostraRighe();
  Mostra();
}

void FinestraRiba::Interno::Conferma() {
  if (!legatura->Raccogli()) return;
  caso.ImpostaForma(
      {opzioni->StGrafico(), opzioni->XTar(), campi.Leggi("StampaTracciato").Booleano()});
  const bool confermata = caso.Conferma(gestore.Uscite());
  MostraRighe();
  Mostra();
  if (confermata || caso.CampoRifiutato().empty()) return;
  if (auto* campo = finestra.findChild<QWidget*>(Qs(caso.CampoRifiutato()))) {
    campo->setFocus(Qt::OtherFocusReason);
  }
}

void FinestraRiba::Interno::Mostra() {
  campi.Scrivi("Banca", Valore(caso.Banca() ? caso.Banca()->cod : campi.Testo("Banca")));
  campi.Scrivi("DataDistinta", caso.DataDistinta());
  campi.Scrivi("NomeFile", Valore(caso.NomeFile()));
  campi.Scrivi("DirectoryRiba", Valore(caso.Impostazioni().directory));
  campi.Scrivi("Causale", Valore(caso.Impostazioni().causale));
  campi.Scrivi("Contropartita", Valore(caso.Impostazioni().contropartita));
  campi.Scrivi("RegistrazioneContabileRiba", Valore(caso.Impostazioni().registrazione));
  legatura->Mostra();
  numero->setText(caso.Banca() ? QString::number(caso.Numero()) : QString());
  descrizione->setText(Qs(caso.Descrizione()));
  const std::string conservato = caso.FileConservato();
  avvisoFile->setText(Qs(caso.TestoSegno()) +
                      (conservato.empty()
                           ? QString()
                           : tr("; il file c'è già, sarà conservato come %1").arg(Qs(conservato))));
  MostraScelte();
  esito->setText(Qs(caso.Scritto()));
}

void FinestraRiba::Interno::MostraRighe() {
  std::vector<std::vector<Valore>> righe;
  righe.reserve(caso.Righe().size());
  for (const duedates::RigaRiba& r : caso.Righe()) righe.push_back(Celle(r, caso.Scelta(r.numero)));
  const int corrente = std::max(griglia->RigaCorrente(), 0);
  const int quante = static_cast<int>(righe.size());
  griglia->Modello().Righe(std::move(righe));
  griglia->VaiARiga(std::min(corrente, quante - 1));
}

void FinestraRiba::Interno::MostraScelte() {
  scelte->setText(tr("%1 scelte di %2").arg(caso.QuanteScelte()).arg(caso.Righe().size()));
  totale->setText(Qs(ScriviImporto(caso.Totale(), 2)));
}

FinestraRiba::FinestraRiba(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("RiBa"), tr("Creazione disposizioni di incasso Ri.Ba."),
                       finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
}

FinestraRiba::~FinestraRiba() {
  hide();
}

void FinestraRiba::Aggiorna() {
  interno_->Rileggi();
}

}  // namespace fenalto::screens
