#include "screens/warehouse/products/PaginaMovimenti.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/archives/FonteCodici.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "warehouse/stock/Decimali.h"
#include "warehouse/stock/StampaMovimenti.h"

namespace fenalto::screens {
namespace {

constexpr int kPaginaMovimenti = 200;
constexpr int kColonnaEsistenza = 8;
constexpr std::size_t kDescrizione = 1;
constexpr std::size_t kTipo = 4;
constexpr std::size_t kNumero = 5;
constexpr std::size_t kAnno = 11;

std::vector<ColonnaGriglia> ColonneMovimenti(Ambiente& ambiente) {
  const auto chiave = [](const char* nome) { return QString::fromLatin1(nome); };
  const int quantita = warehouse::DecimaliQuantita(ambiente);
  return {{QObject::tr("N."), Tipo::Intero, 40, 2, chiave("num")},
          {QObject::tr("Movimento"), Tipo::Testo, 215, 2, chiave("descrizione_movimento")},
          {QObject::tr("Mag."), Tipo::Testo, 45, 2, chiave("mag")},
          {QObject::tr("Data"), Tipo::Data, 80, 2, chiave("data")},
          {QObject::tr("Tipo"), Tipo::Testo, 45, 2, chiave("tipo")},
          {QObject::tr("N. doc."), Tipo::Intero, 60, 2, chiave("Ndoc")},
          {QObject::tr("Carichi"), Tipo::Importo, 80, quantita, chiave("carichi")},
          {QObject::tr("Scarichi"), Tipo::Importo, 80, quantita, chiave("scarichi")},
          {QObject::tr("Esistenza"), Tipo::Importo, 85, quantita, chiave("esistenza|somma")},
          {QObject::tr("Prezzo"), Tipo::Importo, 85, warehouse::DecimaliPrezzo(ambiente),
           chiave("prezzo")},
          {QObject::tr("Descrizione sul documento"), Tipo::Testo, 180, 2,
           chiave("descrizione_sul_documento")},
          {QObject::tr("Anno"), Tipo::Intero, 50, 2, chiave("anno")}};
}

std::vector<Valore> CelleMovimento(const warehouse::RigaMovimento& riga) {
  const auto cifra = [&](Importo importo) {
    return riga.ConCifre() ? Valore(importo) : Valore(Importo());
  };
  return {riga.num,
          riga.descrizione,
          riga.mag,
          riga.dt,
          riga.tipoDoc,
          riga.numDoc,
          cifra(riga.carichi),
          cifra(riga.scarichi),
          cifra(riga.esistenza),
          cifra(riga.prezzo),
          riga.descrizione2,
          riga.anno};
}

CampoCodice* FiltroCodice(Ambiente& ambiente, const char* nome, const char* fonte) {
  constexpr int kLargo = 6;
  auto* campo = new CampoCodice(QString::fromLatin1(nome), archives::Fonte(ambiente, fonte));
  LargoCaratteri(campo, kLargo);
  return campo;
}

}  // namespace

PaginaMovimenti::PaginaMovimenti(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore),
      finestre_(finestre),
      daDt_(CampoGiornoLibero("DaDt", finestre.Sessione())),
      aaDt_(CampoGiornoLibero("AaDt", finestre.Sessione())),
      soloMag_(FiltroCodice(finestre.Sessione(), "SoloMag", "magazzini")),
      tipoDoc_(FiltroCodice(finestre.Sessione(), "TipoDoc", "tipiDocumento")),
      prezzi_(Casella("AnchePrezzi", tr("anche prezzi"))),
      aggiorna_(Pulsante(QStringLiteral("PRefreshMovimenti"), tr("Aggiorna"), tr("F5"))),
      stampa_(Pulsante(QStringLiteral("StampaMovimenti"), tr("Stampa movimenti"))),
      griglia_(new Griglia(QStringLiteral("GridTmpMovMag"), QStringLiteral("CodiciRiga"),
                           ColonneMovimenti(finestre.Sessione()))) {
  Disponi();
  connect(aggiorna_, &QPushButton::clicked, this, [this] { Leggi(prodotto_, false); });
  connect(stampa_, &QPushButton::clicked, this, &PaginaMovimenti::Stampa);
  connect(griglia_, &Griglia::RigaDoppioClic, this, &PaginaMovimenti::ApriDocumento);
  connect(griglia_, &Griglia::RigaInvio, this, &PaginaMovimenti::ApriDocumento);
  // The text of a movement has a line for each thing that it is about.
  connect(&griglia_->Modello(), &QAbstractItemModel::rowsInserted, this,
          [this](const QModelIndex&, int prima, int ultima) {
            for (int i = prima; i <= ultima; ++i) AdattaRiga(i);
          });
}

PaginaMovimenti::~PaginaMovimenti() {
  // The grid still lays its rows out as it goes: it asks for no more.
  griglia_->Modello().Basta();
}

void PaginaMovimenti::Disponi() {
  griglia_->QuandoVuota(tr("nessun movimento di magazzino nell'anno"));
  griglia_->setToolTip(tr("doppio clic o Invio: il documento che ha generato il movimento"));
  auto* fila = new QHBoxLayout;
  Affianca(*fila, tr("Da data"), daDt_);
  Affianca(*fila, tr("a data"), aaDt_);
  Affianca(*fila, tr("solo magazzino"), soloMag_);
  Affianca(*fila, tr("solo tipo"), tipoDoc_);
  fila->addStretch(1);
  auto* sotto = new QHBoxLayout;
  sotto->addWidget(prezzi_);
  sotto->addStretch(1);
  sotto->addWidget(stampa_);
  sotto->addWidget(aggiorna_);
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(fila);
  colonna->addWidget(griglia_, 1);
  colonna->addLayout(sotto);
}

warehouse::FiltroMovimenti PaginaMovimenti::Filtro(bool daSola) const {
  const auto giorno = [](const CampoData& campo) {
    const auto letto = campo.Letto();
    return letto ? letto.Valore().Data() : Data();
  };
  return {.prodotto = prodotto_,
          .daDt = giorno(*daDt_),
          .aaDt = giorno(*aaDt_),
          .mag = soloMag_->Codice(),
          .tipoDoc = tipoDoc_->Codice(),
          .anchePrezzi = prezzi_->isChecked(),
          .veloce = daSola};
}

void PaginaMovimenti::Leggi(const std::string& prodotto, bool daSola) {
  prodotto_ = prodotto;
  if (prodotto.empty()) {
    griglia_->Modello().Righe({});
    return;
  }
  const auto filtro = Filtro(daSola);
  const QString figura = Qs(warehouse::VistaMovimenti::TitoloEsistenza(filtro));
  griglia_->Modello().Titolo(kColonnaEsistenza, figura.left(1).toUpper() + figura.mid(1));
  auto vista = std::make_shared<warehouse::VistaMovimenti>(finestre_.Sessione(), filtro);
  griglia_->Modello().Pagine([vista](int) {
    std::vector<std::vector<Valore>> righe;
    while (righe.size() < kPaginaMovimenti) {
      const auto riga = vista->Prossima();
      if (!riga) break;
      righe.push_back(CelleMovimento(*riga));
    }
    return righe;
  });
  for (int i = 0; i < griglia_->Modello().rowCount(); ++i) AdattaRiga(i);
}

void PaginaMovimenti::AdattaRiga(int indice) {
  const std::string testo = griglia_->Modello().Riga(indice)[kDescrizione].Testo();
  const auto linee = 1 + static_cast<int>(std::ranges::count(testo, '\n'));
  if (linee == 1) return;
  griglia_->setRowHeight(indice,
                         griglia_->fontMetrics().lineSpacing() * linee + 2 * Misura(Passo::Filo));
}

void PaginaMovimenti::Stampa() {
  if (prodotto_.empty()) return;
  warehouse::StampaMovimenti stampa(finestre_.Sessione(), finestre_.Uscite());
  stampa.Stampa({.filtro = Filtro(false), .stGrafico = true});
}

void PaginaMovimenti::ApriDocumento(int indice) {
  if (indice < 0) return;
  const auto& riga = griglia_->Modello().Riga(indice);
  const std::string tipo = riga[kTipo].Testo();
  if (tipo.empty()) return;  // a sum
  const std::string numero = riga[kNumero].Testo();
  const int anno = static_cast<int>(riga[kAnno].Intero());
  if (!finestre_.Sessione().Dialogo().Conferma(
          "Apro la registrazione che ha generato il movimento:\n" + tipo + " n. " + numero + " / " +
          std::to_string(anno))) {
    return;
  }
  finestre_.Segui({.funzione = "FattureCli", .codice = numero, .anno = anno, .classe = tipo});
}

}  // namespace fenalto::screens
