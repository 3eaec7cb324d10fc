#include "screens/documents/parties/FinestraElencoParti.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "documents/parties/ElencoParti.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/GruppoScelta.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/windows/InCorso.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreCodice = 12;
constexpr int kLarghezzaMinima = 560;
constexpr const char* kDettagliato = "D";

bool Clienti(const std::string& cfp) {
  return cfp == "C";
}

}  // namespace

struct FinestraElencoParti::Interno {
  Interno(FinestraElencoParti& finestraUsata, std::string cfpUsata, Finestre& gestoreUsato);
  QGroupBox* CreaScelta();
  QGroupBox* CreaForma();
  CampoCodice* Codice(const char* nome, std::shared_ptr<archives::FonteCodici> fonte);
  [[nodiscard]] documents::SceltaElencoParti Scelta() const;
  void Stampa();
  void Esporta();

  FinestraElencoParti& finestra;
  Finestre& gestore;
  std::string cfp;
  documents::ElencoParti elenco;
  Scheda scheda;
  Legatura* legatura;
  OpzioniGrafiche* opzioni = nullptr;
  bool leggendo = false;  ///< a report or a sheet is being made
};

FinestraElencoParti::Interno::Interno(FinestraElencoParti& finestraUsata, std::string cfpUsata,
                                      Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      cfp(std::move(cfpUsata)),
      elenco(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      legatura(new Legatura([this]() -> Scheda& { return scheda; },
                            gestoreUsato.Sessione().Dialogo(), &finestraUsata)) {
  auto* scelta = CreaScelta();
  auto* forma = CreaForma();
  opzioni = new OpzioniGrafiche(finestra.Nome(), gestore.Sessione(), scheda, *legatura);
  auto* bottone = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  auto* foglio = Pulsante(QStringLiteral("XlsEsp"), tr("Esporta in foglio"));
  connect(bottone, &QPushButton::clicked, &finestra, [this] { Stampa(); });
  connect(foglio, &QPushButton::clicked, &finestra, [this] { Esporta(); });
  AssegnaMnemoniche({bottone, foglio});
  auto* sotto = opzioni->Riga();
  sotto->addWidget(foglio);
  sotto->addWidget(bottone);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addWidget(scelta);
  colonna->addWidget(forma);
  colonna->addLayout(sotto);
  colonna->addStretch(1);
  finestra.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  legatura->Mostra();
}

CampoCodice* FinestraElencoParti::Interno::Codice(const char* nome,
                                                  std::shared_ptr<archives::FonteCodici> fonte) {
  auto* campo = new CampoCodice(QString::fromLatin1(nome), std::move(fonte));
  scheda.Aggiungi(nome, Tipo::Testo);
  legatura->Lega(campo);
  return campo;
}

QGroupBox* FinestraElencoParti::Interno::CreaScelta() {
  auto& sessione = gestore.Sessione();
  auto* riquadro = new QGroupBox(Clienti(cfp) ? tr("Clienti") : tr("Fornitori"));
  riquadro->setMinimumWidth(kLarghezzaMinima);
  auto* griglia = new QGridLayout(riquadro);
  const auto riga = [griglia](const QString& testo, CampoCodice* campo, const QString& vuoto) {
    campo->setPlaceholderText(vuoto);
    const int n = griglia->rowCount();
    griglia->addWidget(Didascalia(testo, campo), n, 0);
    griglia->addWidget(ConDescrizione(campo, kCifreCodice), n, 1);
  };
  riga(tr("dal codice"), Codice("DaCod", archives::FonteConti(sessione, cfp)), tr("dal primo"));
  riga(tr("al codice"), Codice("ACod", archives::FonteConti(sessione, cfp)), tr("all'ultimo"));
  riga(tr("categoria"), Codice("Categoria", archives::Fonte(sessione, "categorie")), tr("tutte"));
  if (Clienti(cfp)) {
    riga(tr("agente"), Codice("Agente", archives::Fonte(sessione, "agenti")), tr("tutti"));
  }
  griglia->setColumnStretch(1, 1);
  return riquadro;
}

QGroupBox* FinestraElencoParti::Interno::CreaForma() {
  auto* riquadro = new QGroupBox(tr("Elenco"));
  auto* colonna = new QVBoxLayout(riquadro);
  auto* forma = new GruppoScelta(
      QStringLiteral("Forma"),
      {{QStringLiteral("S"), tr("sintetico: codice, nome, località, telefono, partita IVA"),
        QStringLiteral("Sintetico")},
       {QString::fromLatin1(kDettagliato),
        tr("dettagliato: tutta l'anagrafica e il saldo contabile"),
        QStringLiteral("Dettagliato")}});
  scheda.Aggiungi("Forma", Tipo::Testo);
  scheda.Scrivi("Forma", "S");
  legatura->Lega(forma);
  auto* perNome = new QCheckBox(tr("in ordine di nome"));
  perNome->setObjectName(QStringLiteral("PerNome"));
  scheda.Aggiungi("PerNome", Tipo::Booleano);
  legatura->Lega(perNome);
  colonna->addWidget(forma);
  colonna->addWidget(perNome);
  return riquadro;
}

documents::SceltaElencoParti FinestraElencoParti::Interno::Scelta() const {
  documents::SceltaElencoParti scelta;
  scelta.parti.cfp = cfp;
  scelta.parti.daCod = scheda.Testo("DaCod");
  scelta.parti.aCod = scheda.Testo("ACod");
  scelta.parti.categoria = scheda.Testo("Categoria");
  if (Clienti(cfp)) scelta.parti.agente = scheda.Testo("Agente");
  scelta.parti.perNome = scheda.Leggi("PerNome").Booleano();
  scelta.parti.dettagliato = scheda.Testo("Forma") == kDettagliato;
  scelta.stGrafico = opzioni->StGrafico();
  scelta.xTar = opzioni->XTar();
  return scelta;
}

void FinestraElencoParti::Interno::Stampa() {
  if (leggendo || !legatura->Raccogli()) return;
  const InCorso lettura(leggendo);
  elenco.Stampa(Scelta());
}

void FinestraElencoParti::Interno::Esporta() {
  if (leggendo || !legatura->Raccogli()) return;
  const InCorso lettura(leggendo);
  const reports::Foglio composto = elenco.FoglioParti(Scelta());
  if (composto.colonne.empty()) return;  // nobody found, or stopped by the user
  auto& dialoghi = gestore.Sessione().Dialogo();
  const auto uscita =
      dialoghi.ScegliUscita(Clienti(cfp) ? "elenco clienti" : "elenco fornitori", true);
  if (uscita) ScriviFoglio(composto, *uscita, dialoghi);
}

FinestraElencoParti::FinestraElencoParti(const std::string& cfp, Finestre& finestre)
    : FinestraFunzione(Clienti(cfp) ? QStringLiteral("STClienti") : QStringLiteral("STFornitori"),
                       Clienti(cfp) ? tr("Stampa anagrafica e contabile clienti")
                                    : tr("Stampa anagrafica e contabile fornitori"),
                       finestre) {
  interno_ = std::make_unique<Interno>(*this, cfp, finestre);
}

FinestraElencoParti::~FinestraElencoParti() {
  hide();  // nothing is read from its fields any more
}

}  // namespace fenalto::screens
