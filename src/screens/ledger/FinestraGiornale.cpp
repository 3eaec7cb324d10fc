#include "screens/ledger/FinestraGiornale.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "ledger/journal/Giornale.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/OpzioniGrafiche.h"

namespace fenalto::screens {

struct FinestraGiornale::Interno {
  Interno(FinestraGiornale& finestraUsata, Finestre& gestoreUsato);
  void Proponi();
  QGroupBox* CreaPeriodo();
  QGroupBox* CreaOrdine();
  QGroupBox* CreaPagine();
  QCheckBox* Casella(const char* nome, const QString& testo);
  CampoNumero* Numero(const char* nome);
  [[nodiscard]] ledger::SceltaGiornale Scelta() const;
  void Stampa();

  FinestraGiornale& finestra;
  Finestre& gestore;
  ledger::Giornale giornale;
  Scheda scheda;
  Legatura* legatura;
  OpzioniGrafiche* opzioni = nullptr;
  QRadioButton* perArticolo;
  QRadioButton* perFat;
};

FinestraGiornale::Interno::Interno(FinestraGiornale& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      giornale(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      legatura(new Legatura([this]() -> Scheda& { return scheda; },
                            gestoreUsato.Sessione().Dialogo(), &finestraUsata)),
      perArticolo(new QRadioButton(tr("data + n.articolo"))),
      perFat(new QRadioButton(tr("data+tipo movimento (fatt.acquisti,vendita,mov.non iva)"))) {
  perArticolo->setObjectName(QStringLiteral("PerArticolo"));
  perFat->setObjectName(QStringLiteral("PerFat"));
  Proponi();
  opzioni = new OpzioniGrafiche(finestra.Nome(), gestore.Sessione(), scheda, *legatura);
  connect(perArticolo, &QRadioButton::toggled, &finestra, [this](bool attivo) {
    gestore.Sessione().ScriviImpostazione({}, "config", "PerArticolo", attivo ? "True" : "False");
  });
  auto* stampa = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  connect(stampa, &QPushButton::clicked, &finestra, [this] { Stampa(); });
  AssegnaMnemoniche({stampa});
  auto* sotto = opzioni->Riga();
  sotto->addWidget(stampa);
  auto* griglia = new QGridLayout(&finestra);
  griglia->addWidget(CreaPeriodo(), 0, 0);
  griglia->addWidget(CreaOrdine(), 1, 0);
  griglia->addWidget(CreaPagine(), 2, 0);
  griglia->addLayout(sotto, 3, 0);
  griglia->setColumnStretch(1, 1);
  griglia->setRowStretch(4, 1);
  finestra.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  legatura->Mostra();
}

void FinestraGiornale::Interno::Proponi() {
  const ledger::SceltaGiornale proposta = giornale.Proposta();
  const std::pair<const char*, Valore> campi[] = {
      {"DaDt", proposta.daDt},
      {"AaDt", proposta.aaDt},
      {"Intesto", proposta.intesto},
      {"DaPag", proposta.daPag},
      {"DaArticolo", proposta.daArticolo},
      {"StampaNArticolo", proposta.stampaNArticolo},
      {"StampaCompatta", proposta.stampaCompatta},
  };
  for (const auto& [nome, valore] : campi) {
    scheda.Aggiungi(nome, valore.Tipo());
    scheda.Scrivi(nome, valore);
  }
  (proposta.perArticolo ? perArticolo : perFat)->setChecked(true);
}

QCheckBox* FinestraGiornale::Interno::Casella(const char* nome, const QString& testo) {
  auto* casella = new QCheckBox(testo);
  casella->setObjectName(QString::fromLatin1(nome));
  legatura->Lega(casella);
  return casella;
}

CampoNumero* FinestraGiornale::Interno::Numero(const char* nome) {
  auto* campo = new CampoNumero(QString::fromLatin1(nome));
  constexpr int kCifre = 8;
  LargoCaratteri(campo, kCifre);
  legatura->Lega(campo);
  return campo;
}

QGroupBox* FinestraGiornale::Interno::CreaPeriodo() {
  auto* riquadro = new QGroupBox(tr("Registrazioni del %1").arg(gestore.Sessione().Anno()));
  auto* riga = new QHBoxLayout(riquadro);
  auto& sessione = gestore.Sessione();
  const auto annoEOggi = [&sessione] { return std::pair(sessione.Anno(), sessione.Ora().Oggi()); };
  const auto data = [&](const char* nome, const QString& testo) {
    auto* campo = new CampoData(QString::fromLatin1(nome), annoEOggi);
    constexpr int kCifre = 11;
    LargoCaratteri(campo, kCifre);
    legatura->Lega(campo);
    riga->addWidget(Didascalia(testo, campo));
    riga->addWidget(campo);
  };
  data("DaDt", tr("dal"));
  data("AaDt", tr("al"));
  auto* articolo = Numero("DaArticolo");
  riga->addSpacing(16);
  riga->addWidget(Didascalia(tr("dall'articolo n."), articolo));
  riga->addWidget(articolo);
  riga->addStretch(1);
  return riquadro;
}

QGroupBox* FinestraGiornale::Interno::CreaOrdine() {
  auto* riquadro = new QGroupBox(tr("Ordine"));
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(perArticolo);
  colonna->addWidget(perFat);
  return riquadro;
}

QGroupBox* FinestraGiornale::Interno::CreaPagine() {
  auto* riquadro = new QGroupBox(tr("Pagine"));
  auto* griglia = new QGridLayout(riquadro);
  auto* pagina = Numero("DaPag");
  griglia->addWidget(Casella("Intesto", tr("Intesto e numero le pagine")), 0, 0);
  griglia->addWidget(Didascalia(tr("dalla pagina n."), pagina), 0, 1);
  griglia->addWidget(pagina, 0, 2);
  griglia->addWidget(Casella("StampaNArticolo", tr("Stampo il numero di articolo")), 1, 0);
  griglia->addWidget(Casella("StampaCompatta", tr("Stampa compatta")), 1, 1, 1, 2);
  griglia->setColumnStretch(3, 1);
  return riquadro;
}

ledger::SceltaGiornale FinestraGiornale::Interno::Scelta() const {
  ledger::SceltaGiornale scelta;
  scelta.daDt = scheda.Leggi("DaDt").Data();
  scelta.aaDt = scheda.Leggi("AaDt").Data();
  scelta.perArticolo = perArticolo->isChecked();
  scelta.intesto = scheda.Leggi("Intesto").Booleano();
  scelta.daPag = static_cast<int>(scheda.Leggi("DaPag").Intero());
  scelta.daArticolo = scheda.Leggi("DaArticolo").Intero();
  scelta.stampaNArticolo = scheda.Leggi("StampaNArticolo").Booleano();
  scelta.stampaCompatta = scheda.Leggi("StampaCompatta").Booleano();
  scelta.stGrafico = opzioni->StGrafico();
  scelta.xTar = opzioni->XTar();
  return scelta;
}

void FinestraGiornale::Interno::Stampa() {
  if (legatura->Raccogli()) giornale.Stampa(Scelta());
}

FinestraGiornale::FinestraGiornale(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("StGiornale"), tr("Stampa Libro Giornale"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
}

FinestraGiornale::~FinestraGiornale() {
  hide();  // nothing is read from its fields any more
}

}  // namespace fenalto::screens
