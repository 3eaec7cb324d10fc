#include "screens/vat/register/PaginaElenchiIva.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
namespace {}  // namespace

PaginaElenchiIva::PaginaElenchiIva(DatiRegistroIva& dati, const QString& finestra,
                                   QWidget* genitore)
    : QWidget(genitore), dati_(dati) {
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(CreaChiusure(finestra), 1);
  colonna->addWidget(CreaSospese());
}

QGroupBox* PaginaElenchiIva::CreaChiusure(const QString& finestra) {
  auto* riquadro =
      new QGroupBox(tr("Liquidazioni iva memorizzate del %1").arg(dati_.Sessione().Anno()));
  griglia_ =
      new Griglia(QStringLiteral("GrigliaChiusure"), finestra,
                  {{tr("Descrizione"), Tipo::Testo, 420, 2, QStringLiteral("descrizione")},
                   {tr("Importo"), Tipo::Importo, 130, dati_.Decimali(), QStringLiteral("importo")},
                   {tr("Periodo"), Tipo::Testo, 80, 2, QStringLiteral("periodo")},
                   {tr("Numero"), Tipo::Intero, 60, 2, QStringLiteral("n")},
                   {tr("Anno"), Tipo::Intero, 80, 2, QStringLiteral("anno")}});
  griglia_->Elastica(0);
  auto* mostra = Pulsante(QStringLiteral("Command3"), tr("Elenco liquidazioni"));
  auto* stampa = Pulsante(QStringLiteral("StampaElencoChiusure"), tr("Stampa elenco"));
  auto* elimina = Pulsante(QStringLiteral("Command2"),
                           tr("Elimina tutte le liquidazioni iva stampate in definitiva"));
  auto* riga = new QHBoxLayout;
  riga->addWidget(mostra);
  riga->addWidget(stampa);
  riga->addStretch(1);
  riga->addWidget(elimina);
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(griglia_, 1);
  colonna->addLayout(riga);
  pulsanti_ << mostra << stampa << elimina;
  connect(mostra, &QPushButton::clicked, this, &PaginaElenchiIva::MostraChiusure);
  connect(stampa, &QPushButton::clicked, this,
          [this] { dati_.registro.StampaElencoChiusure(dati_.finestre.Uscite()); });
  connect(elimina, &QPushButton::clicked, this, [this] {
    if (!dati_.registro.EliminaLiquidazioni()) return;
    MostraChiusure();
    emit LiquidazioniEliminate();
  });
  return riquadro;
}

QGroupBox* PaginaElenchiIva::CreaSospese() {
  auto* riquadro = new QGroupBox(tr("Elenco fatture ad esigibilità iva differita, di ogni anno"));
  auto& scheda = dati_.scheda;
  scheda.Aggiungi("RivaFattSosp", Tipo::Testo);
  for (const char* nome : {"DaDtFattSosp", "AaDtFattSosp"}) scheda.Aggiungi(nome, Tipo::Data);
  const int anno = dati_.Sessione().Anno();
  scheda.Scrivi("DaDtFattSosp", Data::DaGma(1, 1, anno).value());
  scheda.Scrivi("AaDtFattSosp", Data::DaGma(31, 12, anno).value());
  auto* registro = dati_.Codice("RivaFattSosp", archives::Fonte(dati_.Sessione(), "registri"));
  auto* da = dati_.DataDi("DaDtFattSosp");
  auto* fino = dati_.DataDi("AaDtFattSosp");
  auto* stampa = Pulsante(QStringLiteral("CommElencoFattSospIva"), tr("Stampa elenco fatture"));
  pulsanti_ << stampa;
  connect(stampa, &QPushButton::clicked, this, &PaginaElenchiIva::StampaSospese);
  auto* sopra = new QHBoxLayout;
  sopra->addWidget(Didascalia(tr("Registro"), registro));
  sopra->addWidget(ConDescrizione(registro, kCaratteriCodice), 1);
  sopra->addWidget(Didascalia(tr("dal"), da));
  sopra->addWidget(da);
  sopra->addWidget(Didascalia(tr("al"), fino));
  sopra->addWidget(fino);
  auto* sotto = new QHBoxLayout;
  const std::pair<const char*, QString> scelte[] = {{"OptTutte", tr("tutte le fatture")},
                                                    {"OptDaPagare", tr("solo fatture non pagate")},
                                                    {"OptPagate", tr("solo fatture pagate")}};
  for (const auto& [nome, testo] : scelte) {
    auto* scelta = new QRadioButton(testo);
    scelta->setObjectName(QString::fromLatin1(nome));
    scelta->setChecked(sotto->count() == 0);
    sotto->addWidget(scelta);
  }
  sotto->addStretch(1);
  sotto->addWidget(stampa);
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addLayout(sopra);
  colonna->addLayout(sotto);
  return riquadro;
}

void PaginaElenchiIva::MostraChiusure() {
  std::vector<std::vector<Valore>> righe;
  const int anno = dati_.Sessione().Anno();
  for (const auto& periodo : vat::PeriodiIva(dati_.Sessione(), anno)) {
    std::int64_t numero = 0;
    for (const auto& riga : vat::LiquidazioneMemorizzata(dati_.Sessione(), anno, periodo.cod)) {
      righe.push_back({Valore(riga.descrizione), Valore(riga.importo), Valore(periodo.cod),
                       Valore(++numero), Valore(anno)});
    }
  }
  griglia_->Modello().Righe(std::move(righe));
}

void PaginaElenchiIva::StampaSospese() {
  if (!dati_.legatura.Raccogli()) return;
  const auto segnata = [this](const char* nome) {
    return findChild<QRadioButton*>(QString::fromLatin1(nome))->isChecked();
  };
  vat::RegistroIvaUnico::ElencoSospese richiesta;
  richiesta.riva = dati_.scheda.Testo("RivaFattSosp");
  richiesta.da = dati_.scheda.Leggi("DaDtFattSosp").Data();
  richiesta.a = dati_.scheda.Leggi("AaDtFattSosp").Data();
  richiesta.soloDaPagare = segnata("OptDaPagare");
  richiesta.soloPagate = segnata("OptPagate");
  dati_.registro.StampaElencoSospese(dati_.finestre.Uscite(), richiesta);
}

}  // namespace fenalto::screens
