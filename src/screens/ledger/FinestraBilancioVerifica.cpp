#include "screens/ledger/FinestraBilancioVerifica.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/ledger/GraficoConfronto.h"

namespace fenalto::screens {
namespace {

using ledger::SceltaBilancio;
using records::Campo;
using records::DiCodice;
using records::Digitato;

constexpr int kConfronto = 2;  // the page with the chart

constexpr int kRipresaGrafico = 200;  // ms

constexpr records::CampoRiga<SceltaBilancio> kBilancio[] = {
    Campo<&SceltaBilancio::daDt>("DaDt"),
    Campo<&SceltaBilancio::aaDt>("AaDt"),
    Campo<&SceltaBilancio::daMastro>("DaMastro"),
    Campo<&SceltaBilancio::aaMastro>("AaMastro"),
    Campo<&SceltaBilancio::anno>("Anno"),
    Campo<&SceltaBilancio::noAnno>("NoAnno"),
    Campo<&SceltaBilancio::soloMastri>("SoloMastri"),
    Campo<&SceltaBilancio::stampoCliFor>("StampoCliFor"),
    Campo<&SceltaBilancio::escludoSaldo0>("EscludoSaldo0"),
    Campo<&SceltaBilancio::escludoNonMovimentati>("EscludoNonMovimentati"),
    Campo<&SceltaBilancio::escludoCausale>("EscludoCausale"),
    Campo<&SceltaBilancio::intestaz>("Intestaz"),
    Campo<&SceltaBilancio::daDtAP>("DaDtAP"),
    Campo<&SceltaBilancio::aaDtAP>("AaDtAP"),
    Campo<&SceltaBilancio::annoPrec>("AnnoPrec")};

records::DescrizioneForma FormaBilancio() {
  constexpr int kCifreAnno = 5;
  constexpr int kCifreMastro = 7;
  constexpr const char* kScelta = "FrameScelta";
  constexpr const char* kOpzioni = "FrameOpzioni";
  constexpr const char* kPeriodoB = "FramePeriodoB";
  const auto codice = [](const char* nome, const char* testo, const char* fonte) {
    return DiCodice(nome, testo, fonte, kCifreMastro).In(kScelta).Peso(1);
  };
  const auto opzione = [](const char* nome, const char* testo) {
    return Digitato(nome, testo).In(kOpzioni).AlMargine();
  };
  return {
      .campi = {Digitato("DaDt", "dal").In(kScelta), Digitato("AaDt", "al").In(kScelta).Accanto(),
                Digitato("Anno", "anno", kCifreAnno).In(kScelta).Accanto(),
                Digitato("NoAnno", "tutti gli anni").In(kScelta).Accanto(),
                codice("DaMastro", "da mastro", "mastri"),
                codice("AaMastro", "a mastro", "mastri").Accanto(),
                codice("EscludoCausale", "escludo causale", "causali"),
                Digitato("Intestaz", "intestazione").In(kScelta).Accanto().Peso(1),
                opzione("SoloMastri", "solo mastri"),
                opzione("EscludoSaldo0", "escludo i conti con saldo a zero").Colonna(1),
                opzione("StampoCliFor", "stampo clienti e fornitori"),
                opzione("EscludoNonMovimentati", "escludo i conti non movimentati").Colonna(1),
                Digitato("DaDtAP", "dal").In(kPeriodoB),
                Digitato("AaDtAP", "al").In(kPeriodoB).Accanto(),
                Digitato("AnnoPrec", "anno", kCifreAnno).In(kPeriodoB).Accanto(),
                Digitato("Check1", "imposto il medesimo periodo dell'anno precedente")
                    .In(kPeriodoB)
                    .Accanto()},
      .riquadri = {{.nome = kScelta, .titolo = "Periodo e conti", .largo = true},
                   {.nome = kOpzioni, .titolo = "Opzioni", .accanto = true},
                   {.nome = kPeriodoB, .titolo = "Periodo B", .pagina = "Confronto"}},
      .stretta = true};
}

QString Periodo(const QString& lettera, Data da, Data a) {
  return FinestraBilancioVerifica::tr("%1: dal %2 al %3")
      .arg(lettera, QString::fromStdString(da.Testo()), QString::fromStdString(a.Testo()));
}

}  // namespace

FinestraBilancioVerifica::FinestraBilancioVerifica(Finestre& finestre)
    : FinestraRapporto(QStringLiteral("STBilancioVerifica"),
                       tr("Bilancio di Verifica - Situaz.patrimoniale,costi,ricavi,utile,perdita"),
                       finestre),
      bilancio_(finestre.Sessione(), finestre.Uscite()),
      schede_(new QTabWidget),
      grafico_(new GraficoConfronto),
      attesaGrafico_(new QTimer(this)) {
  Proponi(kBilancio, bilancio_.Proposta());
  Record().Aggiungi("Check1", Tipo::Booleano);
  Record().Scrivi("Check1", true);
  CreaPagine();
  auto* scelta = new QVBoxLayout;
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(scelta);
  RifiutiDi(bilancio_);
  Compila(FormaBilancio(), [this, scelta](const std::string& pagina) -> QVBoxLayout& {
    return pagina.empty() ? *scelta : *periodoB_;
  });
  colonna->addLayout(CreaOpzioni().Riga());
  colonna->addWidget(schede_, 1);
  Mostra();
  attesaGrafico_->setSingleShot(true);
  connect(attesaGrafico_, &QTimer::timeout, this, &FinestraBilancioVerifica::MostraGrafico);
  connect(schede_, &QTabWidget::currentChanged, this, &FinestraBilancioVerifica::ChiediGrafico);
}

void FinestraBilancioVerifica::CreaPagine() {
  using ledger::BilancioVerifica;
  PreparaSchede(*schede_, QStringLiteral("SSTab1"));
  QList<QAbstractButton*> pulsanti;
  auto* verifica =
      CreaPagina({tr("Bilancio di verifica"),
                  tr("Di ogni mastro e conto il saldo iniziale, il dare, l'avere e il saldo."),
                  &BilancioVerifica::StampaVerifica, "XlsEspBV", &BilancioVerifica::FoglioVerifica},
                 pulsanti);
  auto* prospetti = CreaPagina(
      {tr("Patrimoniale e costi/ricavi"),
       tr("Situazione costi e ricavi con l'utile o la perdita di esercizio, e situazione "
          "patrimoniale con l'eccedenza; le rettifiche di bilancio sono segnate con *."),
       &BilancioVerifica::StampaProspetti},
      pulsanti);
  auto* confronto = CreaPagina(
      {tr("Confronto costi e ricavi"),
       tr("I costi e i ricavi del periodo scelto sopra (A) accanto a quelli di un altro periodo "
          "(B)."),
       &BilancioVerifica::StampaConfronto, "XlsEspCR", &BilancioVerifica::FoglioConfronto},
      pulsanti);
  for (auto* pagina : {verifica, prospetti}) pagina->addStretch(1);
  periodoB_ = new QVBoxLayout;
  confronto->insertLayout(0, periodoB_);
  confronto->addWidget(grafico_, 1);
  MisuraDellaPagina(*schede_);
  AssegnaMnemoniche(pulsanti);
}

QVBoxLayout* FinestraBilancioVerifica::CreaPagina(const Pagina& pagina,
                                                  QList<QAbstractButton*>& pulsanti) {
  auto* testo = new QLabel(pagina.spiegazione);
  testo->setWordWrap(true);
  auto* riga = new QHBoxLayout;
  riga->addWidget(testo, 1);
  const auto pulsante = [&](const char* nome, const QString& scritta, auto azione) {
    auto* nuovo = Pulsante(QString::fromLatin1(nome), scritta);
    connect(nuovo, &QPushButton::clicked, this, azione);
    riga->addWidget(nuovo);
    pulsanti << nuovo;
  };
  pulsante("Stampa", tr("Stampa"), [this, stampa = pagina.stampa] { StampaPagina(stampa); });
  if (pagina.foglio != nullptr) {
    const bool confronto = pagina.foglio == &ledger::BilancioVerifica::FoglioConfronto;
    pulsante(pagina.esporta, tr("Esporto in Excel"),
             [this, foglio = pagina.foglio, confronto] { EsportaPagina(foglio, confronto); });
  }
  auto* contenuto = new QWidget;
  auto* colonna = new QVBoxLayout(contenuto);
  colonna->addLayout(riga);
  schede_->addTab(contenuto, pagina.titolo);
  return colonna;
}

records::StatoCampo FinestraBilancioVerifica::Stato(const std::string& campo) {
  if (campo != "Anno" && campo != "AnnoPrec") return {};
  return {.attivo = !Record().Leggi("NoAnno").Booleano()};
}

void FinestraBilancioVerifica::Cambiato(const std::string& campo) {
  if (campo == "DaDt" || campo == "AaDt" || campo == "Anno" || campo == "Check1") {
    ImpostaPeriodoB();
  } else if (campo == "DaDtAP" || campo == "AaDtAP" || campo == "AnnoPrec") {
    // Typed by hand, it no longer follows period A.
    Record().Scrivi("Check1", false);
    Mostra();
  }
  ChiediGrafico();
}

void FinestraBilancioVerifica::ImpostaPeriodoB() {
  if (!Record().Leggi("Check1").Booleano()) return;
  records::MostraCampi<SceltaBilancio>(Record(), kBilancio,
                                       ledger::BilancioVerifica::PeriodoPrecedente(Digitata()));
  Mostra();
}

SceltaBilancio FinestraBilancioVerifica::Digitata() const {
  return Scelta(kBilancio);
}

void FinestraBilancioVerifica::StampaPagina(Stampante stampa) {
  Raccolto([&] { (bilancio_.*stampa)(Digitata()); });
}

void FinestraBilancioVerifica::EsportaPagina(Compositore foglio, bool confronto) {
  Raccolto([&] {
    const SceltaBilancio scelta = Digitata();
    if (!bilancio_.Pronto(scelta, confronto)) return;
    const auto uscita = Dialogo().ScegliUscita(
        confronto ? "confronto costi e ricavi" : "bilancio di verifica", true);
    if (!uscita) return;
    const reports::Foglio composto = (bilancio_.*foglio)(scelta);
    if (composto.colonne.empty()) return;  // stopped by the user
    ScriviFoglio(composto, *uscita, Dialogo());
  });
}

void FinestraBilancioVerifica::ChiediGrafico() {
  if (schede_->currentIndex() == kConfronto) attesaGrafico_->start(0);
}

void FinestraBilancioVerifica::MostraGrafico() {
  // The timer may fire while a long reading lets events through: the chart comes after it.
  if (Leggendo()) return attesaGrafico_->start(kRipresaGrafico);
  const SceltaBilancio scelta = Digitata();
  if (const auto rifiuto = bilancio_.Controlla(scelta, true)) {
    return grafico_->MostraTesto(QString::fromStdString(rifiuto->messaggio));
  }
  std::vector<ledger::MeseConfronto> mesi;
  InLettura([&] { mesi = bilancio_.MesiConfronto(scelta); });
  if (mesi.empty()) {
    return grafico_->MostraTesto(tr("Lettura interrotta: F5 per vedere il grafico"));
  }
  grafico_->Mostra(mesi, Periodo(QStringLiteral("A"), scelta.daDt, scelta.aaDt),
                   Periodo(QStringLiteral("B"), scelta.daDtAP, scelta.aaDtAP),
                   Sessione().Euro() ? 2 : 0);
}

void FinestraBilancioVerifica::Aggiorna() {
  ChiediGrafico();
}

}  // namespace fenalto::screens
