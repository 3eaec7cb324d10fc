#include "screens/documents/recent/FinestraProdottiRecenti.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QSplitter>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/ElencoCercato.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {
namespace {

using documents::kIdentitaRecente;

/// Captions for people; the keys are the names that the query gives (`suffisso` "_" where the last
/// row's values stand for all).
std::vector<ColonnaGriglia> ColonneRecenti(Ambiente& ambiente, const QString& suffisso) {
  const int decQ = warehouse::DecimaliQuantita(ambiente);
  const int decP = warehouse::DecimaliPrezzo(ambiente);
  const auto tr = [](const char* testo) { return FinestraProdottiRecenti::tr(testo); };
  const auto chiave = [&](const char* nome) { return QString::fromLatin1(nome) + suffisso; };
  return {{tr("Data"), Tipo::Data, 95},
          {tr("N.documento"), Tipo::Intero, 95, 2, QStringLiteral("NDoc")},
          {tr("Prodotto"), Tipo::Testo, 120, 2, QStringLiteral("CodiceRiga")},
          {tr("Descrizione"), Tipo::Testo, 330, 2, chiave("Descrizione")},
          {tr("U.m."), Tipo::Testo, 55, 2, chiave("um")},
          {tr("Quantità"), Tipo::Importo, 90, decQ, chiave("Quantita")},
          {tr("Prezzo"), Tipo::Importo, 95, decP, chiave("Prezzo")},
          {tr("Sc. 1"), Tipo::Importo, 60, 2, chiave("Sc1")},
          {tr("Sc. 2"), Tipo::Importo, 60, 2, chiave("Sc2")},
          {tr("Sc. 3"), Tipo::Importo, 60, 2, chiave("Sc3")}};
}

QString ContaRecenti(const FormaElenco::Letti& letti) {
  if (letti.righe == 0) return {};
  if (letti.righe == 1) return FinestraProdottiRecenti::tr("1 prodotto");
  return (letti.troppi ? FinestraProdottiRecenti::tr("i primi %1: restringere la ricerca")
                       : FinestraProdottiRecenti::tr("%1 prodotti"))
      .arg(letti.righe);
}

}  // namespace

FinestraProdottiRecenti::FinestraProdottiRecenti(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("ProdottiMovCliFor"),
                       tr("Elenco e selezione dei più recenti prodotti fatturati o movimentati"),
                       finestre),
      prodotti_(finestre.Sessione()),
      delProdotto_(finestre.Sessione()),
      parte_(new EtichettaElisa),
      tutti_(Casella("TuttiITipi", tr("di tutti i tipi documento"))),
      elenco_(
          new ElencoCercato({.finestra = objectName(),
                             .griglia = QStringLiteral("GrigliaProdotti"),
                             .cerca = QStringLiteral("CercaProdotti"),
                             .stato = QStringLiteral("StatoProdotti"),
                             .segnaposto = tr("parole della descrizione, codice"),
                             .colonne = ColonneRecenti(finestre.Sessione(), QStringLiteral("_")),
                             .testo = ContaRecenti,
                             .chiave = kIdentitaRecente},
                            prodotti_)),
      righe_(new screens::Griglia(QStringLiteral("GrigliaRighe"), objectName(),
                                  ColonneRecenti(finestre.Sessione(), QString()))) {
  Disponi();
  Collega();
}

FinestraProdottiRecenti::~FinestraProdottiRecenti() {
  hide();
  righe_->Modello().Basta();
  delete elenco_;
}

void FinestraProdottiRecenti::Disponi() {
  parte_->setObjectName(QStringLiteral("Parte"));
  InGrassetto(*parte_);
  elenco_->Aggiungi(tutti_);
  elenco_->Griglia().QuandoVuota(tr("nessun prodotto su documenti di questo tipo"));
  elenco_->Griglia().setAccessibleName(tr("Prodotti, dall'ultimo movimentato"));
  righe_->QuandoVuota(tr("le righe del prodotto scelto sopra"));
  righe_->setAccessibleName(tr("Tutte le righe del prodotto"));
  auto* divisore = new QSplitter(Qt::Vertical);
  divisore->addWidget(elenco_);
  divisore->addWidget(righe_);
  divisore->setStretchFactor(0, 3);
  divisore->setStretchFactor(1, 2);
  divisore->setChildrenCollapsible(false);
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(parte_);
  colonna->addWidget(divisore, 1);
}

void FinestraProdottiRecenti::Collega() {
  connect(tutti_, &QCheckBox::toggled, this, [this] { Leggi(); });
  connect(elenco_, &ElencoCercato::Scelto, this,
          [this](const QString& chiave) { Scegli(chiave.toLongLong()); });
  connect(elenco_->Griglia().selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this] { LeggiRighe(); });
  connect(elenco_, &ElencoCercato::Letto, this, [this] { LeggiRighe(); });
  const auto scegli = [this](int riga) {
    Scegli(righe_->Modello().Riga(riga).at(kIdentitaRecente).Intero());
  };
  connect(righe_, &Griglia::RigaDoppioClic, this, scegli);
  connect(righe_, &Griglia::RigaInvio, this, scegli);
}

bool FinestraProdottiRecenti::Apri(FinestraFunzione& richiedente, Finestre& finestre,
                                   const documents::SceltaRecenti& scelta, Consegna consegna) {
  const QPointer<FinestraFunzione> vivo(&richiedente);
  auto* aperta = qobject_cast<FinestraProdottiRecenti*>(
      finestre.Segui({.funzione = "ProdottiMovCliFor",
                      .codice = scelta.cliFor,
                      .classe = scelta.cfp + " " + scelta.tipoDoc}));
  if (aperta == nullptr || !vivo) return false;
  aperta->richiedente_ = vivo;
  aperta->consegna_ = std::move(consegna);
  return true;
}

void FinestraProdottiRecenti::ApriRecord(const Rinvio& rinvio) {
  constexpr std::size_t kTipo = 2;
  scelta_ = {rinvio.classe.size() > kTipo ? rinvio.classe.substr(kTipo) : std::string(),
             rinvio.classe.substr(0, 1), rinvio.codice};
  consegna_ = nullptr;
  richiedente_ = nullptr;
  const std::string tabella = scelta_.cfp == "F" ? "Fornitori" : "Clienti";
  const std::string nome =
      NzStr(Sessione().Cerca("tessarc", tabella, {{"Cod", scelta_.cliFor}}, "ragsoc1"));
  parte_->setText(Qs(scelta_.cliFor + " " + nome));
  tutti_->setVisible(!scelta_.tipoDoc.empty());
  elenco_->Svuota();
  Leggi();
  elenco_->Cerca().setFocus();
}

void FinestraProdottiRecenti::Leggi() {
  documents::SceltaRecenti scelta = scelta_;
  if (tutti_->isChecked()) scelta.tipoDoc.clear();
  prodotti_.Di(scelta);
  elenco_->Ricarica();
  LeggiRighe();
}

void FinestraProdottiRecenti::LeggiRighe() {
  documents::SceltaRecenti scelta = scelta_;
  if (tutti_->isChecked()) scelta.tipoDoc.clear();
  constexpr std::size_t kProdotto = 2;
  const auto& griglia = elenco_->Griglia();
  const int riga = griglia.RigaCorrente();
  std::string prodotto;
  if (riga >= 0) prodotto = elenco_->Griglia().Modello().Riga(riga).at(kProdotto).Testo();
  delProdotto_.Di(scelta, prodotto);
  delProdotto_.Comincia({});
  righe_->Modello().Pagine([this](int /*da*/) { return delProdotto_.Avanti(); });
}

void FinestraProdottiRecenti::Scegli(std::int64_t identita) {
  if (!consegna_ || !richiedente_) {
    return Dialogo().Messaggio("il documento che ha aperto questo elenco è stato chiuso");
  }
  if (Dialogo().Domanda("Inserisco prodotto, descrizione, prezzo e sconti sul documento",
                        Bottoni::SiNo, Risposta::Si) != Risposta::Si) {
    return;
  }
  const auto valori = documents::ValoriDaRiga(Sessione(), identita);
  if (!valori) return Dialogo().Messaggio("la riga del documento non c'è più", Icona::Avviso);
  QMetaObject::invokeMethod(
      richiedente_.data(),
      [&gestore = Gestore(), documento = richiedente_, consegna = consegna_, valori = *valori] {
        if (!documento) return;
        gestore.PortaAvanti(*documento);
        consegna(valori);
      },
      Qt::QueuedConnection);
  ChiudiDaTastiera();
}

void FinestraProdottiRecenti::Aggiorna() {
  Leggi();
}

bool FinestraProdottiRecenti::Indietro() {
  return elenco_->SvuotaRicerca();
}

bool FinestraProdottiRecenti::Invio(QWidget& campo) {
  return elenco_->InvioInRicerca(&campo);
}

}  // namespace fenalto::screens
