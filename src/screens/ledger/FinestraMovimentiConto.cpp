#include "screens/ledger/FinestraMovimentiConto.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/values/FormatoImporto.h"
#include "ledger/accounts/MovimentiConto.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
namespace {

constexpr int kColonnaArticolo = 1;
constexpr int kColonnaAnno = 8;  ///< after those shown

struct ClasseConto {
  const char* cfp;
  const char* nome;
};
constexpr ClasseConto kClassi[] = {{"P", "conto"}, {"C", "cliente"}, {"F", "fornitore"}};

}  // namespace

struct FinestraMovimentiConto::Interno {
  Interno(FinestraMovimentiConto& finestraUsata, Finestre& gestoreUsato);
  QHBoxLayout* CreaSelettore();
  [[nodiscard]] std::string Cfp() const { return cfp->currentData().toString().toStdString(); }
  void CambiaClasse();
  void Carica();
  void VediRegistrazione(int riga);

  FinestraMovimentiConto& finestra;
  Finestre& gestore;
  QComboBox* cfp;
  CampoCodice* conto;
  Griglia* griglia;
  QLabel* totali;
  int decimali;
};

FinestraMovimentiConto::Interno::Interno(FinestraMovimentiConto& finestraUsata,
                                         Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      cfp(new QComboBox),
      conto(new CampoCodice(QStringLiteral("Rt1"),
                            archives::FonteConti(gestoreUsato.Sessione(), "P"))),
      totali(new QLabel),
      decimali(gestoreUsato.Sessione().Euro() ? 2 : 0) {
  griglia = new Griglia(QStringLiteral("GrigliaMovimenti"), finestra.Nome(),
                        {{tr("Data"), Tipo::Data, 90},
                         {tr("Articolo"), Tipo::Intero, 75},
                         {tr("Causale"), Tipo::Testo, 75},
                         {tr("Descrizione"), Tipo::Testo, 330},
                         {tr("Contropartita"), Tipo::Testo, 160},
                         {tr("Dare"), Tipo::Importo, 120, decimali},
                         {tr("Avere"), Tipo::Importo, 120, decimali},
                         {tr("Saldo"), Tipo::Importo, 130, decimali}});
  griglia->QuandoVuota(QObject::tr("nessun movimento: scegliere un conto e premere Apri"));
  totali->setObjectName(QStringLiteral("Totali"));
  totali->setAlignment(Qt::AlignRight);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(CreaSelettore());
  colonna->addWidget(griglia, 1);
  colonna->addWidget(totali);
  const auto vedi = [this](int riga) { VediRegistrazione(riga); };
  connect(griglia, &Griglia::RigaDoppioClic, &finestra, vedi);
  connect(griglia, &Griglia::RigaInvio, &finestra, vedi);
}

QHBoxLayout* FinestraMovimentiConto::Interno::CreaSelettore() {
  cfp->setObjectName(QStringLiteral("CFP"));
  for (const auto& classe : kClassi) {
    cfp->addItem(QString::fromLatin1(classe.nome), QString::fromLatin1(classe.cfp));
  }
  constexpr int kCifre = 12;
  LargoCaratteri(conto, kCifre);
  conto->Etichetta()->setObjectName(QStringLiteral("Rt1Descrizione"));
  auto* apri = Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio nel codice"));
  auto* esporta = Pulsante(QStringLiteral("XlsEsp"), tr("Esporto in Excel"));
  connect(cfp, &QComboBox::currentIndexChanged, &finestra, [this] { CambiaClasse(); });
  connect(apri, &QPushButton::clicked, &finestra, [this] { Carica(); });
  connect(esporta, &QPushButton::clicked, &finestra, [this] { finestra.Esporta(*griglia); });
  AssegnaMnemoniche({apri, esporta});
  auto* riga = new QHBoxLayout;
  Affianca(*riga, tr("Movimenti del %1 di").arg(gestore.Sessione().Anno()), cfp);
  riga->addWidget(conto);
  riga->addWidget(apri);
  riga->addWidget(conto->Etichetta(), 1);
  riga->addWidget(esporta);
  return riga;
}

void FinestraMovimentiConto::Interno::CambiaClasse() {
  conto->Fonte(archives::FonteConti(gestore.Sessione(), Cfp()));
  conto->Mostra(Valore(std::string()));
  Carica();
}

void FinestraMovimentiConto::Interno::Carica() {
  const std::string codice = conto->Codice();
  std::vector<std::vector<Valore>> righe;
  Importo dare;
  Importo avere;
  if (!codice.empty()) {
    // The year's registrations are meant, and some are dated outside it.
    const auto sempre = Data::DaGma(31, 12, 9999).value();
    for (const auto& m : ledger::MovimentiDiConto(gestore.Sessione(), Cfp(), codice,
                                                  gestore.Sessione().Anno(), {}, sempre)) {
      dare += m.dare;
      avere += m.avere;
      righe.push_back({m.dt, m.articolo, m.causale, m.descrizione, m.controp, m.dare, m.avere,
                       m.saldo, m.anno});
    }
  }
  const auto testo = [this](Importo importo) {
    return QString::fromStdString(ScriviImporto(importo, decimali));
  };
  totali->setText(tr("%1 movimenti    dare %2    avere %3    saldo %4")
                      .arg(righe.size())
                      .arg(testo(dare), testo(avere), testo(dare - avere)));
  const bool vuota = righe.empty();
  griglia->Modello().Righe(std::move(righe));
  finestra.setWindowTitle(
      codice.empty() ? tr("Movimenti del conto")
                     : tr("Movimenti di %1  %2")
                           .arg(QString::fromStdString(codice), conto->Etichetta()->text()));
  if (!vuota) griglia->VaiARiga(0);
}

void FinestraMovimentiConto::Interno::VediRegistrazione(int riga) {
  const auto& valori = griglia->Modello().Riga(riga);
  gestore.Segui(AllaRegistrazione(static_cast<int>(valori[kColonnaAnno].Intero()),
                                  valori[kColonnaArticolo].Intero()));
}

FinestraMovimentiConto::FinestraMovimentiConto(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("MovimentiConto"), tr("Movimenti del conto"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->Carica();
}

FinestraMovimentiConto::~FinestraMovimentiConto() {
  hide();
}

void FinestraMovimentiConto::ApriRecord(const Rinvio& rinvio) {
  const int classe = interno_->cfp->findData(QString::fromStdString(rinvio.classe).toUpper());
  if (classe >= 0) interno_->cfp->setCurrentIndex(classe);
  interno_->conto->Mostra(Valore(rinvio.codice));
  interno_->Carica();
}

void FinestraMovimentiConto::Aggiorna() {
  interno_->Carica();
}

}  // namespace fenalto::screens
