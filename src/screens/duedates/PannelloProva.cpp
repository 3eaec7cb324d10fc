#include "screens/duedates/PannelloProva.h"

#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {
namespace {

constexpr int kCaratteriData = 11;
constexpr int kCaratteriImporto = 15;
const Importo kImportoIniziale = Importo::DaUnita(1'000);

std::vector<ColonnaGriglia> ColonneProva(bool euro) {
  return {{QStringLiteral("Scadenza"), Tipo::Data, 90},
          {QStringLiteral("Importo"), Tipo::Importo, 110, euro ? 2 : 0},
          {QStringLiteral("Tipo"), Tipo::Testo, 50},
          {QStringLiteral("Nota"), Tipo::Testo, 380}};
}

QDate Qd(Data data) {
  return QDate(data.Anno(), data.Mese(), data.Giorno());
}

}  // namespace

PannelloProva::PannelloProva(Ambiente& ambiente,
                             std::function<std::optional<duedates::CodicePagamento>()> codice,
                             QWidget* genitore)
    : QWidget(genitore),
      ambiente_(ambiente),
      codice_(std::move(codice)),
      data_(new CampoData(QStringLiteral("DtProva"),
                          [this] { return std::pair{ambiente_.Anno(), ambiente_.Ora().Oggi()}; })),
      importo_(new CampoImporto(QStringLiteral("ImportoProva"), nullptr, ambiente.Euro() ? 2 : 0)),
      avvisi_(new QLabel),
      griglia_(new Griglia(QStringLiteral("GrigliaProva"), QStringLiteral("CodiciPagamento"),
                           ColonneProva(ambiente.Euro()))),
      calendario_(new QCalendarWidget) {
  for (const auto giorno : {Qt::Saturday, Qt::Sunday}) {
    QTextCharFormat festivo;
    festivo.setForeground(Colore(Segno::Scaduto, palette()));
    calendario_->setWeekdayTextFormat(giorno, festivo);
  }
  LargoCaratteri(data_, kCaratteriData);
  LargoCaratteri(importo_, kCaratteriImporto);
  data_->Mostra(ambiente_.Ora().Oggi());
  importo_->Mostra(kImportoIniziale);
  avvisi_->setObjectName(QStringLiteral("AvvisiProva"));
  avvisi_->setTextFormat(Qt::PlainText);
  avvisi_->setWordWrap(true);
  calendario_->setObjectName(QStringLiteral("CalendarioProva"));
  calendario_->setSelectionMode(QCalendarWidget::NoSelection);
  calendario_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendario_->setLocale(QLocale(QLocale::Italian, QLocale::Italy));
  calendario_->setFirstDayOfWeek(Qt::Monday);
  calendario_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* prova = Pulsante(QStringLiteral("Prova"), tr("Prova"));
  prova->setToolTip(tr("le scadenze che il codice dà, così com'è adesso sullo schermo"));
  connect(prova, &QPushButton::clicked, this, &PannelloProva::Prova);

  auto* riga = new QHBoxLayout;
  for (QWidget* controllo :
       std::initializer_list<QWidget*>{Didascalia(tr("Data fattura"), data_), data_,
                                       Didascalia(tr("Importo"), importo_), importo_, prova})
    riga->addWidget(controllo);
  riga->addStretch(1);
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(riga);
  colonna->addWidget(avvisi_);
  colonna->addWidget(griglia_, 1);
  colonna->addWidget(calendario_);
  Svuota();
}

void PannelloProva::Svuota() {
  griglia_->Modello().Righe({});
  avvisi_->clear();
  avvisi_->hide();
  MostraCalendario({});
}

void PannelloProva::Prova() {
  Svuota();
  QStringList avvisi;
  const auto giorno = data_->Letto();
  const auto importo = importo_->Letto();
  if (!giorno || !importo) {
    avvisi << QString::fromStdString((giorno ? importo : giorno).Errore().messaggio);
  } else if (giorno.Valore().Data().Nulla()) {
    avvisi << tr("scrivere la data della fattura");
  } else if (const auto codice = codice_()) {
    data_->Mostra(giorno.Valore());
    importo_->Mostra(importo.Valore());
    const duedates::EsitoProva esito = duedates::ProvaCodice(
        ambiente_, *codice, giorno.Valore().Data(), importo.Valore().Importo());
    for (const auto& avviso : esito.avvisi) avvisi << QString::fromStdString(avviso);
    std::vector<std::vector<Valore>> righe;
    for (const auto& riga : esito.righe)
      righe.push_back({riga.data, riga.importo, riga.tipo, riga.nota});
    griglia_->Modello().Righe(std::move(righe));
    MostraCalendario(esito.righe);
  }
  avvisi_->setText(avvisi.join(QLatin1Char('\n')));
  avvisi_->setVisible(!avvisi.isEmpty());
}

void PannelloProva::MostraCalendario(const std::vector<duedates::RigaProva>& righe) {
  calendario_->setDateTextFormat({}, {});
  QTextCharFormat formato;
  formato.setFontWeight(QFont::Bold);
  formato.setBackground(palette().highlight());
  formato.setForeground(palette().highlightedText());
  for (const auto& riga : righe) calendario_->setDateTextFormat(Qd(riga.data), formato);
  if (!righe.empty())
    calendario_->setCurrentPage(righe.front().data.Anno(), righe.front().data.Mese());
}

}  // namespace fenalto::screens
