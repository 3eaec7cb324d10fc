#include "screens/vat/entry/ElencoFatture.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/EsportaGriglia.h"

namespace fenalto::screens {
namespace {

constexpr int kPagina = 100;
constexpr std::size_t kColonnaArticolo = 1;

}  // namespace

ElencoFatture::ElencoFatture(Ambiente& ambiente, QWidget* genitore)
    : ElencoCercato(QStringLiteral("CercaFatture"), tr("numero, data, cliente o fornitore"),
                    new Griglia(QStringLiteral("ElencoFatture"), QStringLiteral("Fatture"),
                                {{tr("Protocollo"), Tipo::Intero, 75},
                                 {tr("Articolo"), Tipo::Intero, 65},
                                 {tr("Data"), Tipo::Data, 80},
                                 {tr("Codice"), Tipo::Testo, 70},
                                 {tr("Cliente/fornitore"), Tipo::Testo, 160},
                                 {tr("N. fattura"), Tipo::Testo, 80},
                                 {tr("Data fattura"), Tipo::Data, 85},
                                 {tr("Totale"), Tipo::Importo, 90}}),
                    kColonnaArticolo, genitore),
      ambiente_(ambiente),
      lettore_(ambiente),
      esporta_(Pulsante(QStringLiteral("XlsEsp"), tr("Esporta..."))) {
  Righe().Modello().Decimali(ambiente.Euro() ? 2 : 0);
  Cerca().setToolTip(
      tr("protocollo, articolo, numero della fattura, data, oppure codice o parte del nome"));
  Sopra().addWidget(esporta_);
  // Once the keys already typed have been taken.
  connect(&Cerca(), &QLineEdit::textChanged, this, [this] { Ripresa().start(0); });
  connect(&Ripresa(), &QTimer::timeout, this, &ElencoFatture::Ricarica);
  connect(Righe().horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int sezione) {
    LeggiTutte();
    auto* testata = Righe().horizontalHeader();
    testata->setSortIndicatorShown(true);
    Righe().Modello().sort(sezione, testata->sortIndicatorOrder());
  });
  connect(esporta_, &QPushButton::clicked, this,
          [this] { EsportaGriglia(Righe(), ambiente_, titolo_); });
}

void ElencoFatture::Mostra(const std::string& riva, const std::string& classe,
                           const std::string& titolo) {
  if (riva != riva_) Cerca().clear();
  riva_ = riva;
  classe_ = classe;
  titolo_ = titolo;
  Ricarica();
}

void ElencoFatture::Ricarica() {
  Ripresa().stop();
  lettore_.Dimentica();
  const std::string condizione = lettore_.Interpreta(Cerca().text().toStdString(), classe_);
  Righe().horizontalHeader()->setSortIndicatorShown(false);
  Righe().Modello().Pagine([this, condizione](int da) {
    if (da == 0) fino_ = vat::LettoreFatture::kDallInizio;
    std::vector<std::vector<Valore>> righe;
    for (const auto& letta : lettore_.Pagina(riva_, condizione, fino_, kPagina)) {
      righe.push_back({letta.nProt, letta.numDoc, letta.data, letta.conto, letta.descrConto,
                       letta.nFat, letta.dtFat, letta.totale});
      fino_ = letta.numDoc - 1;
    }
    return righe;
  });
  DiTrovate();
}

void ElencoFatture::LeggiTutte() {
  auto& modello = Righe().Modello();
  if (!modello.APagine()) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  while (modello.canFetchMore({})) modello.fetchMore({});
  std::vector<std::vector<Valore>> righe;
  for (int i = 0; i < modello.rowCount(); ++i) righe.push_back(modello.Riga(i));
  modello.Righe(std::move(righe));
  QApplication::restoreOverrideCursor();
}

void ElencoFatture::DiTrovate() {
  const bool vuoto = Righe().Modello().rowCount() == 0;
  esporta_->setEnabled(!vuoto);
  Stato().setText(vuoto && !riva_.empty() ? tr("nessuna registrazione") : QString());
}

QString ElencoFatture::Descrizione(std::int64_t numero) {
  const auto letta = lettore_.Una(numero);
  if (!letta) return {};
  const int decimali = ambiente_.Euro() ? 2 : 0;
  return tr("registro %1 prot. %2   %3   %4   %5  %6")
      .arg(QString::fromStdString(letta->riva))
      .arg(letta->nProt)
      .arg(QString::fromStdString(letta->data.Testo()),
           QString::fromStdString(ScriviImporto(letta->totale, decimali)),
           QString::fromStdString(letta->conto), QString::fromStdString(letta->descrConto));
}

}  // namespace fenalto::screens
