#include "screens/ledger/FinestraBilancioVerifica.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <algorithm>

#include "core/reports/Foglio.h"
#include "ledger/statements/BilancioVerifica.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/windows/InCorso.h"
#include "screens/ledger/GraficoConfronto.h"

namespace fenalto::screens {
namespace {

enum Pagina { kVerifica = 0, kProspetti = 1, kConfronto = 2 };

constexpr int kCifreData = 11;
constexpr int kCifreAnno = 6;
constexpr int kCifreCodice = 8;

constexpr int kRipresaGrafico = 200;  // ms

using Stampante = bool (ledger::BilancioVerifica::*)(const ledger::SceltaBilancio&);
using Compositore = reports::Foglio (ledger::BilancioVerifica::*)(const ledger::SceltaBilancio&);

QString Periodo(const QString& lettera, Data da, Data a) {
  return FinestraBilancioVerifica::tr("%1: dal %2 al %3")
      .arg(lettera, QString::fromStdString(da.Testo()), QString::fromStdString(a.Testo()));
}

}  // namespace

struct FinestraBilancioVerifica::Interno {
  Interno(FinestraBilancioVerifica& finestraUsata, Finestre& gestoreUsato);
  void Proponi();
  QGroupBox* CreaScelta();
  QGroupBox* CreaOpzioni();
  QWidget* CreaPagina(const QString& spiegazione, Stampante stampa, const char* esporta,
                      Compositore foglio);
  QGroupBox* CreaPeriodoB();
  QCheckBox* Casella(const char* nome, const QString& testo);
  CampoData* CreaData(const char* nome);
  CampoNumero* CreaAnno(const char* nome);
  CampoCodice* CreaCodice(const char* nome, const char* fonte);
  void Lasciato(const QString& campo, bool cambiato);
  /// Takes period B from A.
  void ImpostaPeriodoB();
  void AccendiAnni();
  [[nodiscard]] ledger::SceltaBilancio Scelta() const;
  void Stampa(Stampante stampa);
  void Esporta(Compositore foglio, bool confronto);
  void ChiediGrafico();
  void MostraGrafico();

  FinestraBilancioVerifica& finestra;
  Finestre& gestore;
  ledger::BilancioVerifica bilancio;
  Scheda scheda;
  Legatura* legatura;
  OpzioniGrafiche* opzioni = nullptr;
  QTabWidget* schede;
  GraficoConfronto* grafico;
  QTimer* attesaGrafico;
  QList<QAbstractButton*> pulsanti;
  bool leggendo = false;  ///< a report, a sheet or the chart is being made
};

FinestraBilancioVerifica::Interno::Interno(FinestraBilancioVerifica& finestraUsata,
                                           Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      bilancio(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      legatura(new Legatura([this]() -> Scheda& { return scheda; },
                            gestoreUsato.Sessione().Dialogo(), &finestraUsata)),
      schede(new QTabWidget),
      grafico(new GraficoConfronto),
      attesaGrafico(new QTimer(&finestraUsata)) {
  Proponi();
  opzioni = new OpzioniGrafiche(finestra.Nome(), gestore.Sessione(), scheda, *legatura);
  schede->setObjectName(QStringLiteral("SSTab1"));
  auto* griglia = new QGridLayout(&finestra);
  griglia->addWidget(CreaScelta(), 0, 0);
  griglia->addWidget(CreaOpzioni(), 0, 1);
  griglia->addWidget(schede, 1, 0, 1, 2);
  griglia->setColumnStretch(0, 1);
  griglia->setRowStretch(1, 1);
  schede->addTab(
      CreaPagina(tr("Di ogni mastro e conto il saldo iniziale, il dare, l'avere e il saldo."),
                 &ledger::BilancioVerifica::StampaVerifica, "XlsEspBV",
                 &ledger::BilancioVerifica::FoglioVerifica),
      tr("Bilancio di verifica"));
  schede->addTab(CreaPagina(tr("Situazione costi e ricavi con l'utile o la perdita di esercizio, e "
                               "situazione patrimoniale con l'eccedenza; le rettifiche di "
                               "bilancio sono segnate con *."),
                            &ledger::BilancioVerifica::StampaProspetti, nullptr, nullptr),
                 tr("Patrimoniale e costi/ricavi"));
  auto* confronto =
      CreaPagina(tr("I costi e i ricavi del periodo scelto sopra (A) accanto a quelli "
                    "di un altro periodo (B)."),
                 &ledger::BilancioVerifica::StampaConfronto, "XlsEspCR",
                 &ledger::BilancioVerifica::FoglioConfronto);
  auto* colonna = qobject_cast<QVBoxLayout*>(confronto->layout());
  colonna->insertWidget(0, CreaPeriodoB());
  colonna->addWidget(grafico, 1);
  schede->addTab(confronto, tr("Confronto costi e ricavi"));
  for (int pagina : {kVerifica, kProspetti}) {
    qobject_cast<QVBoxLayout*>(schede->widget(pagina)->layout())->addStretch(1);
  }
  AssegnaMnemoniche(pulsanti);
  legatura->Mostra();
  AccendiAnni();
  connect(legatura, &Legatura::Lasciato, &finestra,
          [this](const QString& campo, bool cambiato) { Lasciato(campo, cambiato); });
  attesaGrafico->setSingleShot(true);
  connect(attesaGrafico, &QTimer::timeout, &finestra, [this] { MostraGrafico(); });
  connect(schede, &QTabWidget::currentChanged, &finestra, [this] { ChiediGrafico(); });
}

void FinestraBilancioVerifica::Interno::Proponi() {
  const ledger::SceltaBilancio proposta = bilancio.Proposta();
  const std::pair<const char*, Valore> campi[] = {
      {"DaDt", proposta.daDt},
      {"AaDt", proposta.aaDt},
      {"DaMastro", proposta.daMastro},
      {"AaMastro", proposta.aaMastro},
      {"Anno", proposta.anno},
      {"NoAnno", proposta.noAnno},
      {"SoloMastri", proposta.soloMastri},
      {"StampoCliFor", proposta.stampoCliFor},
      {"EscludoSaldo0", proposta.escludoSaldo0},
      {"EscludoNonMovimentati", proposta.escludoNonMovimentati},
      {"EscludoCausale", proposta.escludoCausale},
      {"Intestaz", proposta.intestaz},
      {"DaDtAP", proposta.daDtAP},
      {"AaDtAP", proposta.aaDtAP},
      {"AnnoPrec", proposta.annoPrec},
      {"Check1", true},
  };
  for (const auto& [nome, valore] : campi) {
    scheda.Aggiungi(nome, valore.Tipo());
    scheda.Scrivi(nome, valore);
  }
}

QCheckBox* FinestraBilancioVerifica::Interno::Casella(const char* nome, const QString& testo) {
  auto* casella = new QCheckBox(testo);
  casella->setObjectName(QString::fromLatin1(nome));
  legatura->Lega(casella);
  return casella;
}

CampoData* FinestraBilancioVerifica::Interno::CreaData(const char* nome) {
  auto& sessione = gestore.Sessione();
  auto* campo = new CampoData(QString::fromLatin1(nome), [&sessione] {
    return std::pair(sessione.Anno(), sessione.Ora().Oggi());
  });
  LargoCaratteri(campo, kCifreData);
  legatura->Lega(campo);
  return campo;
}

CampoNumero* FinestraBilancioVerifica::Interno::CreaAnno(const char* nome) {
  auto* campo = new CampoNumero(QString::fromLatin1(nome));
  LargoCaratteri(campo, kCifreAnno);
  legatura->Lega(campo);
  return campo;
}

CampoCodice* FinestraBilancioVerifica::Interno::CreaCodice(const char* nome, const char* fonte) {
  auto* campo =
      new CampoCodice(QString::fromLatin1(nome), archives::Fonte(gestore.Sessione(), fonte));
  campo->Etichetta()->setObjectName(QString::fromLatin1(nome) + QStringLiteral("Descrizione"));
  LargoCaratteri(campo, kCifreCodice);
  legatura->Lega(campo);
  return campo;
}

QGroupBox* FinestraBilancioVerifica::Interno::CreaScelta() {
  auto* riquadro = new QGroupBox(tr("Periodo e conti"));
  auto* griglia = new QGridLayout(riquadro);
  const auto riga = [griglia](int n, const QString& testo, QWidget* campo, QWidget* accanto) {
    griglia->addWidget(Didascalia(testo, campo), n, 0);
    griglia->addWidget(campo, n, 1);
    griglia->addWidget(accanto, n, 2);
  };
  auto* periodo = new QHBoxLayout;
  auto* fine = CreaData("AaDt");
  auto* anno = CreaAnno("Anno");
  auto* inizio = CreaData("DaDt");
  griglia->addWidget(Didascalia(tr("dal"), inizio), 0, 0);
  griglia->addWidget(inizio, 0, 1);
  periodo->addWidget(Didascalia(tr("al"), fine));
  periodo->addWidget(fine);
  periodo->addSpacing(12);
  periodo->addWidget(Didascalia(tr("anno"), anno));
  periodo->addWidget(anno);
  periodo->addWidget(Casella("NoAnno", tr("tutti gli anni")));
  periodo->addStretch(1);
  griglia->addLayout(periodo, 0, 2);
  auto* daMastro = CreaCodice("DaMastro", "mastri");
  auto* aaMastro = CreaCodice("AaMastro", "mastri");
  auto* causale = CreaCodice("EscludoCausale", "causali");
  riga(1, tr("da mastro"), daMastro, daMastro->Etichetta());
  riga(2, tr("a mastro"), aaMastro, aaMastro->Etichetta());
  riga(3, tr("escludo causale"), causale, causale->Etichetta());
  auto* intestazione = new CampoTesto(QStringLiteral("Intestaz"));
  legatura->Lega(intestazione);
  griglia->addWidget(Didascalia(tr("intestazione"), intestazione), 4, 0);
  griglia->addWidget(intestazione, 4, 1, 1, 2);
  griglia->setColumnStretch(2, 1);
  return riquadro;
}

QGroupBox* FinestraBilancioVerifica::Interno::CreaOpzioni() {
  auto* riquadro = new QGroupBox(tr("Opzioni"));
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(Casella("SoloMastri", tr("solo mastri")));
  colonna->addWidget(Casella("StampoCliFor", tr("stampo clienti e fornitori")));
  colonna->addWidget(Casella("EscludoSaldo0", tr("escludo i conti con saldo a zero")));
  colonna->addWidget(Casella("EscludoNonMovimentati", tr("escludo i conti non movimentati")));
  colonna->addLayout(opzioni->Riga());
  return riquadro;
}

QWidget* FinestraBilancioVerifica::Interno::CreaPagina(const QString& spiegazione, Stampante stampa,
                                                       const char* esporta, Compositore foglio) {
  auto* pagina = new QWidget;
  auto* colonna = new QVBoxLayout(pagina);
  auto* riga = new QHBoxLayout;
  auto* testo = new QLabel(spiegazione);
  testo->setWordWrap(true);
  riga->addWidget(testo, 1);
  auto* pulsante = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  connect(pulsante, &QPushButton::clicked, &finestra, [this, stampa] { Stampa(stampa); });
  riga->addWidget(pulsante);
  pulsanti << pulsante;
  if (esporta != nullptr) {
    auto* excel = Pulsante(QString::fromLatin1(esporta), tr("Esporto in Excel"));
    const bool confronto = foglio == &ledger::BilancioVerifica::FoglioConfronto;
    connect(excel, &QPushButton::clicked, &finestra,
            [this, foglio, confronto] { Esporta(foglio, confronto); });
    riga->addWidget(excel);
    pulsanti << excel;
  }
  colonna->addLayout(riga);
  return pagina;
}

QGroupBox* FinestraBilancioVerifica::Interno::CreaPeriodoB() {
  auto* riquadro = new QGroupBox(tr("Periodo B"));
  auto* riga = new QHBoxLayout(riquadro);
  auto* inizio = CreaData("DaDtAP");
  auto* fine = CreaData("AaDtAP");
  auto* anno = CreaAnno("AnnoPrec");
  riga->addWidget(Didascalia(tr("dal"), inizio));
  riga->addWidget(inizio);
  riga->addWidget(Didascalia(tr("al"), fine));
  riga->addWidget(fine);
  riga->addSpacing(12);
  riga->addWidget(Didascalia(tr("anno"), anno));
  riga->addWidget(anno);
  riga->addSpacing(12);
  riga->addWidget(Casella("Check1", tr("imposto il medesimo periodo dell'anno precedente")));
  riga->addStretch(1);
  return riquadro;
}

void FinestraBilancioVerifica::Interno::Lasciato(const QString& campo, bool cambiato) {
  if (!cambiato) return;
  const auto uno = [&campo](std::initializer_list<const char*> nomi) {
    return std::any_of(nomi.begin(), nomi.end(),
                       [&campo](const char* nome) { return campo == QLatin1String(nome); });
  };
  if (uno({"DaDt", "AaDt", "Anno", "Check1"})) {
    ImpostaPeriodoB();
  } else if (uno({"DaDtAP", "AaDtAP", "AnnoPrec"})) {
    // Typed by hand, it no longer follows period A.
    scheda.Scrivi("Check1", false);
    legatura->Mostra();
  } else if (campo == QLatin1String("NoAnno")) {
    AccendiAnni();
  }
  ChiediGrafico();
}

void FinestraBilancioVerifica::Interno::ImpostaPeriodoB() {
  if (!scheda.Leggi("Check1").Booleano()) return;
  const ledger::SceltaBilancio scelta = ledger::BilancioVerifica::PeriodoPrecedente(Scelta());
  scheda.Scrivi("DaDtAP", scelta.daDtAP);
  scheda.Scrivi("AaDtAP", scelta.aaDtAP);
  scheda.Scrivi("AnnoPrec", scelta.annoPrec);
  legatura->Mostra();
}

void FinestraBilancioVerifica::Interno::AccendiAnni() {
  for (const char* nome : {"Anno", "AnnoPrec"}) {
    if (auto* anno = finestra.findChild<QWidget*>(QString::fromLatin1(nome))) {
      anno->setEnabled(!scheda.Leggi("NoAnno").Booleano());
    }
  }
}

ledger::SceltaBilancio FinestraBilancioVerifica::Interno::Scelta() const {
  ledger::SceltaBilancio scelta;
  scelta.anno = static_cast<int>(scheda.Leggi("Anno").Intero());
  scelta.noAnno = scheda.Leggi("NoAnno").Booleano();
  scelta.daDt = scheda.Leggi("DaDt").Data();
  scelta.aaDt = scheda.Leggi("AaDt").Data();
  scelta.daMastro = scheda.Testo("DaMastro");
  scelta.aaMastro = scheda.Testo("AaMastro");
  scelta.soloMastri = scheda.Leggi("SoloMastri").Booleano();
  scelta.stampoCliFor = scheda.Leggi("StampoCliFor").Booleano();
  scelta.escludoSaldo0 = scheda.Leggi("EscludoSaldo0").Booleano();
  scelta.escludoNonMovimentati = scheda.Leggi("EscludoNonMovimentati").Booleano();
  scelta.escludoCausale = scheda.Testo("EscludoCausale");
  scelta.intestaz = scheda.Testo("Intestaz");
  scelta.annoPrec = static_cast<int>(scheda.Leggi("AnnoPrec").Intero());
  scelta.daDtAP = scheda.Leggi("DaDtAP").Data();
  scelta.aaDtAP = scheda.Leggi("AaDtAP").Data();
  scelta.stGrafico = opzioni->StGrafico();
  scelta.xTar = opzioni->XTar();
  return scelta;
}

void FinestraBilancioVerifica::Interno::Stampa(Stampante stampa) {
  if (!legatura->Raccogli()) return;
  const InCorso lettura(leggendo);
  (bilancio.*stampa)(Scelta());
}

void FinestraBilancioVerifica::Interno::Esporta(Compositore foglio, bool confronto) {
  if (!legatura->Raccogli()) return;
  auto& dialoghi = gestore.Sessione().Dialogo();
  const ledger::SceltaBilancio scelta = Scelta();
  if (const std::string errore = ledger::BilancioVerifica::Controlla(scelta, confronto);
      !errore.empty()) {
    dialoghi.Messaggio(errore, Icona::Avviso);
    return;
  }
  const auto uscita =
      dialoghi.ScegliUscita(confronto ? "confronto costi e ricavi" : "bilancio di verifica", true);
  if (!uscita) return;
  const InCorso lettura(leggendo);
  const reports::Foglio composto = (bilancio.*foglio)(scelta);
  if (composto.colonne.empty()) return;  // stopped by the user
  ScriviFoglio(composto, *uscita, dialoghi);
}

void FinestraBilancioVerifica::Interno::ChiediGrafico() {
  if (schede->currentIndex() == kConfronto) attesaGrafico->start(0);
}

void FinestraBilancioVerifica::Interno::MostraGrafico() {
  // The timer may fire while a long reading lets events through: the chart comes after it.
  if (leggendo) return attesaGrafico->start(kRipresaGrafico);
  const ledger::SceltaBilancio scelta = Scelta();
  if (const std::string errore = ledger::BilancioVerifica::Controlla(scelta, true);
      !errore.empty()) {
    return grafico->MostraTesto(QString::fromStdString(errore));
  }
  const InCorso lettura(leggendo);
  const auto mesi = bilancio.MesiConfronto(scelta);
  if (mesi.empty()) {
    return grafico->MostraTesto(tr("Lettura interrotta: F5 per vedere il grafico"));
  }
  grafico->Mostra(mesi, Periodo(QStringLiteral("A"), scelta.daDt, scelta.aaDt),
                  Periodo(QStringLiteral("B"), scelta.daDtAP, scelta.aaDtAP),
                  gestore.Sessione().Euro() ? 2 : 0);
}

FinestraBilancioVerifica::FinestraBilancioVerifica(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("STBilancioVerifica"),
                       tr("Bilancio di Verifica - Situaz.patrimoniale,costi,ricavi,utile,perdita"),
                       finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
}

FinestraBilancioVerifica::~FinestraBilancioVerifica() {
  hide();  // nothing is read from its fields any more
}

void FinestraBilancioVerifica::Aggiorna() {
  interno_->ChiediGrafico();
}

}  // namespace fenalto::screens
