#include "screens/duedates/RiquadroRata.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/codes/DescrizioneCodice.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
namespace {

constexpr int kCifre = 6;
constexpr int kCifrePercentuale = 10;
constexpr int kCaratteriDescrizioneRata = 40;

std::vector<ColonnaGriglia> ColonneRate() {
  return {{QStringLiteral("Rata"), Tipo::Testo, 50},
          {QStringLiteral("PercImporto"), Tipo::Importo, 90, 0},
          {QStringLiteral("Scadenza"), Tipo::Testo, 300},
          {QStringLiteral("Tipo"), Tipo::Testo, 50},
          {QStringLiteral("Descrizione"), Tipo::Testo, 200}};
}

}  // namespace

RiquadroRata::RiquadroRata(duedates::RateCodice& rate, std::function<Scheda&()> codice,
                           Finestre& finestre, QWidget* genitore)
    : RigheDelRecord({.memoria = QStringLiteral("CodiciPagamento"),
                      .riga = tr("Rata"),
                      .nuova = tr("Nuova rata"),
                      .aperta = "la nuova rata non è stata confermata: confermarla o abbandonarla",
                      .primoCampo = QStringLiteral("PercImporto")},
                     ColonneRate(), finestre, genitore),
      rate_(rate),
      codice_(std::move(codice)) {
  CreaCampi();
  Disponi();
  connect(legatura_, &Legatura::Lasciato, this, [this](const QString& campo, bool cambiato) {
    if (!cambiato || !rate_.InRiga()) return;
    rate_.Lasciato(campo.toStdString());
    legatura_->Mostra();
  });
}

void RiquadroRata::CreaCampi() {
  auto* modulo = new QFormLayout(riquadro_);
  const auto numero = [](const char* nome) {
    auto* campo = new CampoNumero(QString::fromLatin1(nome));
    LargoCaratteri(campo, kCifre);
    return campo;
  };
  auto* rata = new CampoTesto(QStringLiteral("Rata"), nullptr, 2);
  LargoCaratteri(rata, kCifre);
  auto* percento = new CampoImporto(QStringLiteral("PercImporto"), nullptr, 0);
  LargoCaratteri(percento, kCifrePercentuale);
  auto* mesi = numero("DopoMesi");
  auto* giorni = numero("DopoGiorni");
  auto* fineMese = Casella("FineMese", tr("fine mese"));
  auto* dataFattura = Casella("DataFattura", tr("data fattura"));
  auto* giornoFisso = Casella("GiornoFisso", tr("giorno fisso del mese dopo:"));
  auto* fisso = numero("GGFisso");
  auto* tipo = new CampoCodice(QStringLiteral("Tipo"),
                               archives::Fonte(finestre_.Sessione(), "tipiPagamento"));
  LargoCaratteri(tipo, kCifre);
  tipo->setToolTip(
      tr("per le riba su fatture tipo=03, negli altri casi il tipo è solo "
         "un'indicazione"));
  auto* descrizione = new CampoTesto(QStringLiteral("Descrizione"));
  LargoCaratteri(descrizione, kCaratteriDescrizioneRata);
  modulo->addRow(Didascalia(tr("Rata"), rata),
                 InFila({rata, Didascalia(tr("Percentuale"), percento), percento}));
  modulo->addRow(Didascalia(tr("Dopo mesi"), mesi),
                 InFila({mesi, Didascalia(tr("e giorni"), giorni), giorni}));
  modulo->addRow(tr("Scadenza"), InFila({fineMese, dataFattura, giornoFisso, fisso}));
  modulo->addRow(Didascalia(tr("Tipo"), tipo), InFila({tipo, tipo->Etichetta()}));
  modulo->addRow(Didascalia(tr("Descrizione"), descrizione), InFila({descrizione}));
  modulo->addRow(InFila({conferma_, elimina_, annulla_}));
  for (QWidget* campo :
       std::initializer_list<QWidget*>{rata, percento, mesi, giorni, fineMese, dataFattura,
                                       giornoFisso, fisso, tipo, descrizione})
    legatura_->Lega(campo);
}

void RiquadroRata::Disponi() {
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(griglia_, 1);
  colonna->addWidget(InFila({nuova_}));
  colonna->addWidget(riquadro_);
}

std::vector<std::vector<Valore>> RiquadroRata::Elenco() const {
  const duedates::CodicePagamento codice = rate_.Codice(codice_());
  std::vector<std::vector<Valore>> righe;
  for (const duedates::RataPagamento& rata : codice.rate)
    righe.push_back({rata.rata, rata.percImporto, duedates::TestoRata(rata, codice), rata.tipo,
                     rata.descrizione});
  return righe;
}

bool RiquadroRata::ConfermaRiga(QString& campo) {
  Rifiuto rifiuto;
  if (rate_.ConfermaRiga(&rifiuto)) return true;
  campo = QString::fromStdString(rifiuto.campo);
  return false;
}

}  // namespace fenalto::screens
