#include "screens/vat/register/PaginaElenchiIva.h"

#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
namespace {

// Which deferred invoices are listed.
constexpr const char* kQuali = "QualiFattSosp";
constexpr const char* kDaPagare = "D";
constexpr const char* kPagate = "P";

records::DescrizioneForma FormaSospese() {
  using records::Digitato;
  using records::GenereCampo;
  return {
      .campi = {records::DiCodice("RivaFattSosp", "Registro", "registri", kCifreCodiceIva).Peso(1),
                Digitato("DaDtFattSosp", "dal").Accanto(), Digitato("AaDtFattSosp", "al").Accanto(),
                Digitato(kQuali)
                    .Di(GenereCampo::Opzioni)
                    .AlMargine()
                    .Scelte({{"", "tutte le fatture", "OptTutte"},
                             {kDaPagare, "solo fatture non pagate", "OptDaPagare"},
                             {kPagate, "solo fatture pagate", "OptPagate"}}),
                Mostrato("CommElencoFattSospIva", GenereCampo::Pulsante, "Stampa elenco fatture")
                    .Accanto()}};
}

}  // namespace

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
  griglia_->QuandoVuota(
      QObject::tr("nessuna liquidazione: la memorizza la stampa definitiva del registro"));
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
    if (dati_.registro.EliminaLiquidazioni()) MostraChiusure();
  });
  return riquadro;
}

QGroupBox* PaginaElenchiIva::CreaSospese() {
  auto* riquadro = new QGroupBox(tr("Elenco fatture ad esigibilità iva differita, di ogni anno"));
  auto& scheda = dati_.scheda;
  for (const char* nome : {"RivaFattSosp", kQuali}) scheda.Aggiungi(nome, Tipo::Testo);
  for (const char* nome : {"DaDtFattSosp", "AaDtFattSosp"}) scheda.Aggiungi(nome, Tipo::Data);
  const int anno = dati_.Sessione().Anno();
  scheda.Scrivi("DaDtFattSosp", Data::DaGma(1, 1, anno).value());
  scheda.Scrivi("AaDtFattSosp", Data::DaGma(31, 12, anno).value());
  auto* colonna = new QVBoxLayout(riquadro);
  const CampiForma forma(dati_.Sessione(), FormaSospese(), {&dati_.legatura}, *colonna);
  auto& stampa = forma.Pulsante("CommElencoFattSospIva");
  pulsanti_ << &stampa;
  connect(&stampa, &QAbstractButton::clicked, this, &PaginaElenchiIva::StampaSospese);
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
  vat::RegistroIvaUnico::ElencoSospese richiesta;
  richiesta.riva = dati_.scheda.Testo("RivaFattSosp");
  richiesta.da = dati_.scheda.Leggi("DaDtFattSosp").Data();
  richiesta.a = dati_.scheda.Leggi("AaDtFattSosp").Data();
  richiesta.soloDaPagare = dati_.scheda.Testo(kQuali) == kDaPagare;
  richiesta.soloPagate = dati_.scheda.Testo(kQuali) == kPagate;
  dati_.registro.StampaElencoSospese(dati_.finestre.Uscite(), richiesta);
}

}  // namespace fenalto::screens
