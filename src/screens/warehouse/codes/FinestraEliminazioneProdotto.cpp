#include "screens/warehouse/codes/FinestraEliminazioneProdotto.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/values/Testo.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::screens {
namespace {

constexpr int kLarghezzaCodice = 24;

std::vector<ColonnaGriglia> ColonneUsi() {
  const auto tr = [](const char* testo) { return FinestraEliminazioneProdotto::tr(testo); };
  return {{tr("Dove"), Tipo::Testo, 420, 2, QStringLiteral("uso")},
          {tr("Anno"), Tipo::Testo, 70, 2, QStringLiteral("ANNO")},
          {tr("Data"), Tipo::Data, 100, 2, QStringLiteral("DT")},
          {tr("Tipo"), Tipo::Testo, 70, 2, QStringLiteral("TIPODOC")},
          {tr("Numero"), Tipo::Testo, 90, 2, QStringLiteral("NUMDOC"), true}};
}

Valore NonZero(std::int64_t numero) {
  return numero == 0 ? Valore("") : Valore(std::to_string(numero));
}

}  // namespace

FinestraEliminazioneProdotto::FinestraEliminazioneProdotto(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("EliminazioneProdotto"),
                       tr("Eliminazione/Modifica codici  prodotti di magazzino e codici per righe "
                          "ddt/fatture"),
                       finestre),
      prodotto_(finestre.Sessione(), &finestre.Uscite()),
      selettore_(
          new CampoCodice(QStringLiteral("Rt1"), archives::Fonte(finestre.Sessione(), "prodotti"))),
      apri_(Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio"))),
      stampa_(Pulsante(QStringLiteral("Stampa"), tr("Stampa elenco"))),
      elimina_(Pulsante(QStringLiteral("Elimina"), tr("Conferma eliminazione"), tr("Ctrl+Canc"))),
      rinomina_(
          Pulsante(QStringLiteral("Conferma"), tr("Conferma modifica codice"), tr("Ctrl+Invio"))),
      nuovo_(new CampoTesto(QStringLiteral("NuovoCodice"), nullptr,
                            warehouse::kCaratteriCodiceProdotto)),
      altro_(new EtichettaElisa),
      titolo_(new EtichettaElisa),
      griglia_(new screens::Griglia(QStringLiteral("GrigliaUsi"), objectName(), ColonneUsi())) {
  Disponi();
  Collega();
  Apri();
}

FinestraEliminazioneProdotto::~FinestraEliminazioneProdotto() {
  griglia_->Modello().Basta();
}

void FinestraEliminazioneProdotto::Disponi() {
  titolo_->setObjectName(QStringLiteral("TitoloUsi"));
  altro_->setObjectName(QStringLiteral("AltroProdotto"));
  griglia_->setAccessibleName(tr("Dove il codice è usato"));
  griglia_->setToolTip(tr("doppio clic o Invio: apre il documento"));
  auto* sopra = new QHBoxLayout;
  sopra->addWidget(Didascalia(tr("Prodotto"), selettore_));
  sopra->addWidget(ConDescrizione(selettore_, kLarghezzaCodice), 1);
  sopra->addWidget(apri_);
  auto* titolo = new QHBoxLayout;
  titolo->addWidget(titolo_, 1);
  titolo->addWidget(stampa_);
  auto* riquadroElimina = new QGroupBox(tr("Eliminazione"));
  auto* rigaElimina = new QHBoxLayout(riquadroElimina);
  rigaElimina->addWidget(elimina_);
  auto* riquadroNuovo = new QGroupBox(tr("Modifica del codice"));
  auto* rigaNuovo = new QHBoxLayout(riquadroNuovo);
  Affianca(*rigaNuovo, tr("nuovo codice"), nuovo_);
  LargoCaratteri(nuovo_, kLarghezzaCodice);
  rigaNuovo->addWidget(altro_, 1);
  rigaNuovo->addWidget(rinomina_);
  auto* sotto = new QHBoxLayout;
  sotto->addWidget(riquadroNuovo, 1);
  sotto->addWidget(riquadroElimina);
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(sopra);
  colonna->addLayout(titolo);
  colonna->addWidget(griglia_, 1);
  colonna->addLayout(sotto);
  AssegnaMnemoniche({apri_, stampa_, rinomina_, elimina_});
  OrdinaFuochi({selettore_, apri_, griglia_, stampa_, nuovo_, rinomina_, elimina_});
}

void FinestraEliminazioneProdotto::Collega() {
  connect(apri_, &QPushButton::clicked, this, [this] { Apri(); });
  connect(selettore_, &CampoCodice::Scelto, this, [this] { Apri(); });
  connect(stampa_, &QPushButton::clicked, this, [this] { prodotto_.StampaUsi(); });
  connect(elimina_, &QPushButton::clicked, this, [this] { Elimina(); });
  connect(rinomina_, &QPushButton::clicked, this, [this] { Rinomina(); });
  connect(nuovo_, &QLineEdit::textChanged, this, [this] { MostraNuovo(); });
  const auto segui = [this](int riga) {
    const auto posto = static_cast<std::size_t>(riga);
    // The window may be closed by what is opened.
    if (posto < rinvii_.size() && !rinvii_[posto].Vuoto()) Segui(Rinvio(rinvii_[posto]));
  };
  connect(griglia_, &Griglia::RigaDoppioClic, this, segui);
  connect(griglia_, &Griglia::RigaInvio, this, segui);
}

void FinestraEliminazioneProdotto::Apri() {
  const std::string codice = selettore_->Codice();
  if (!prodotto_.Apri(codice) && !codice.empty()) {
    Dialogo().Messaggio("il prodotto " + codice + " non esiste", Icona::Avviso);
  }
  nuovo_->clear();
  MostraUsi();
  if (prodotto_.Aperto()) {
    griglia_->setFocus();
  } else {
    selettore_->setFocus();
  }
}

void FinestraEliminazioneProdotto::MostraUsi() {
  usi_.emplace(prodotto_.Usi());
  rinvii_.clear();
  const bool aperto = prodotto_.Aperto();
  griglia_->QuandoVuota(!aperto ? tr("scegliere un prodotto")
                                : tr("il prodotto non è usato in alcun documento"));
  griglia_->Modello().Pagine([this](int /*da*/) {
    constexpr std::size_t kPagina = 200;
    std::vector<std::vector<Valore>> righe;
    if (!prodotto_.Aperto()) return righe;
    for (auto& uso : usi_->Avanti(kPagina)) {
      rinvii_.push_back(uso.rinvio);
      righe.push_back({uso.uso, NonZero(uso.anno), uso.dt, uso.tipo, NonZero(uso.numero)});
    }
    return righe;
  });
  const bool usato = griglia_->Modello().rowCount() > 0;
  titolo_->setText(usato ? Qs(prodotto_.Titolo()) : QString());
  stampa_->setEnabled(usato);
  elimina_->setEnabled(aperto);
  rinomina_->setEnabled(aperto);
  nuovo_->setEnabled(aperto);
  MostraNuovo();
}

void FinestraEliminazioneProdotto::MostraNuovo() {
  const std::string codice(Rifila(nuovo_->text().toStdString()));
  const bool altro = !codice.empty() && !UgualeTesto(codice, prodotto_.Codice());
  const auto descrizione = altro ? archives::Fonte(Sessione(), "prodotti")->Descrizione(codice)
                                 : std::optional<std::string>();
  altro_->setText(descrizione
                      ? tr("esiste già, i due prodotti si uniscono: %1").arg(Qs(*descrizione))
                      : QString());
}

void FinestraEliminazioneProdotto::Elimina() {
  if (prodotto_.Elimina()) Fatto({});
}

void FinestraEliminazioneProdotto::Rinomina() {
  std::string campo;
  if (prodotto_.Rinomina(nuovo_->text().toStdString(), &campo)) {
    Fatto(prodotto_.Codice());
  } else {
    nuovo_->setFocus();
    nuovo_->selectAll();
  }
}

void FinestraEliminazioneProdotto::Fatto(const std::string& fatto) {
  const bool archivio =
      dallArchivio_ && Gestore().FunzioneDisponibile(QStringLiteral("CodiciRiga"));
  if (archivio) {
    Finestre& gestore = Gestore();
    // The code may be the one that is open, and is closed here.
    const Rinvio rinvio = AllArchivio("CODICIRIGA", fatto);
    prodotto_.Apri({});
    ChiudiDaTastiera();
    gestore.Segui(rinvio);
    return;
  }
  selettore_->setText(Qs(fatto));
  prodotto_.Apri(fatto);
  selettore_->Risolvi();
  nuovo_->clear();
  MostraUsi();
  selettore_->setFocus();
}

void FinestraEliminazioneProdotto::ApriRecord(const Rinvio& rinvio) {
  dallArchivio_ = true;
  selettore_->setText(Qs(rinvio.codice));
  selettore_->Risolvi();
  Apri();
}

void FinestraEliminazioneProdotto::Aggiorna() {
  const std::string codice = prodotto_.Codice();
  if (!codice.empty() && !prodotto_.Apri(codice)) selettore_->clear();
  MostraUsi();
}

bool FinestraEliminazioneProdotto::Indietro() {
  if (nuovo_->text().isEmpty()) return false;
  nuovo_->clear();
  return true;
}

}  // namespace fenalto::screens
