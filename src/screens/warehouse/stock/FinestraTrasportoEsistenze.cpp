#include "screens/warehouse/stock/FinestraTrasportoEsistenze.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {
namespace {

using documents::SceltaTrasporto;
using documents::VoceTrasporto;
using records::Campo;
using records::Digitato;

constexpr const char* kValore = "Valore";

constexpr records::CampoRiga<SceltaTrasporto> kTrasporto[] = {
    Campo<&SceltaTrasporto::valore>(kValore), Campo<&SceltaTrasporto::dtDoc>("DtDoc")};

records::DescrizioneForma FormaTrasportoEsistenze(int anno) {
  constexpr const char* kSuo = "FrameTrasporto";
  return {.campi = {Digitato(kValore)
                        .Di(records::GenereCampo::Opzioni)
                        .In(kSuo)
                        .AlMargine()
                        .Scelte({{"0", "al costo ultimo", "AlCostoUltimo"},
                                 {"1", "al costo medio", "AlCostoMedio"},
                                 {"2", "al costo digitato", "AlCostoDigitato"}}),
                    Digitato("DtDoc", "data dei documenti").In(kSuo)},
          .riquadri = {{.nome = kSuo,
                        .titolo = "Esistenze alla fine del " + std::to_string(anno) +
                                  ", riportate al " + std::to_string(anno + 1),
                        .largo = true}}};
}

}  // namespace

FinestraTrasportoEsistenze::FinestraTrasportoEsistenze(Finestre& finestre)
    : FinestraRapporto(QStringLiteral("TrasportoEsistenze"), tr("Trasporto Esistenze Magazzino"),
                       finestre),
      trasporto_(finestre.Sessione()) {
  Proponi(kTrasporto, trasporto_.Proposta());
  RifiutiDi(trasporto_);
  auto* colonna = new QVBoxLayout(this);
  auto* campi = new QVBoxLayout;
  colonna->addLayout(campi);
  Compila(FormaTrasportoEsistenze(Sessione().Anno()),
          [campi](const std::string&) -> QVBoxLayout& { return *campi; });
  CreaPiano(*colonna);
  Mostra();
  MostraPiano();
}

void FinestraTrasportoEsistenze::CreaPiano(QVBoxLayout& colonna) {
  const int decQ = warehouse::DecimaliQuantita(Sessione());
  const int decP = warehouse::DecimaliPrezzo(Sessione());
  piano_ = new Griglia(QStringLiteral("GrigliaPiano"), Nome(),
                       {{tr("Magazzino"), Tipo::Testo, 90, 2, QStringLiteral("Mag")},
                        {tr("Prodotto"), Tipo::Testo, 130, 2, QStringLiteral("CodiceRiga")},
                        {tr("Descrizione"), Tipo::Testo, 260, 2, QStringLiteral("Descrizione")},
                        {tr("U.M."), Tipo::Testo, 60, 2, QStringLiteral("um")},
                        {tr("Esistenza"), Tipo::Importo, 110, decQ, QStringLiteral("Quantita")},
                        {tr("Costo"), Tipo::Importo, 110, decP, QStringLiteral("Prezzo")},
                        {tr("Valore"), Tipo::Importo, 120, 2, QStringLiteral("Importo")},
                        {tr("Nota"), Tipo::Testo, 170}});
  piano_->Elastica(2);
  piano_->QuandoVuota(tr("premere «Lettura esistenze»: quel che si riporta si vede qui"));
  totale_ = new QLabel;
  totale_->setObjectName(QStringLiteral("TotalePiano"));
  InGrassetto(*totale_);
  auto* leggi = Pulsante(QStringLiteral("LetturaEsistenze"), tr("Lettura esistenze"), tr("F5"));
  auto* conferma = Pulsante(QStringLiteral("Conferma"), tr("Conferma trasporto"), tr("Ctrl+Invio"));
  connect(leggi, &QPushButton::clicked, this, &FinestraTrasportoEsistenze::Leggi);
  connect(conferma, &QPushButton::clicked, this, &FinestraTrasportoEsistenze::Conferma);
  auto* piede = new QHBoxLayout;
  piede->addWidget(totale_, 1);
  piede->addWidget(leggi);
  piede->addWidget(conferma);
  colonna.addWidget(piano_, 1);
  colonna.addLayout(piede);
  AssegnaMnemoniche({leggi, conferma});
}

void FinestraTrasportoEsistenze::MostraPiano() {
  std::vector<std::vector<Valore>> righe;
  Importo somma;
  for (const VoceTrasporto& voce : trasporto_.Piano()) {
    const std::string descrizione = voce.descrizione.substr(0, voce.descrizione.find('\n'));
    const char* nota = voce.quantita.Negativo() ? "negativa"
                       : voce.quantita.Zero()   ? "solo il costo"
                       : voce.SenzaValore()     ? "senza il costo scelto"
                                                : "";
    righe.push_back({voce.mag, voce.prodotto, descrizione, voce.um, voce.quantita, voce.prezzo,
                     voce.Valore(), nota});
    somma += voce.Valore();
  }
  totale_->setText(
      trasporto_.Letto()
          ? tr("%1 righe, valore %2").arg(righe.size()).arg(Qs(ScriviImportoFisso(somma, 2)))
          : QString());
  piano_->Modello().Righe(std::move(righe));
}

/// What was read is at the value chosen then.
void FinestraTrasportoEsistenze::Cambiato(const std::string& campo) {
  if (campo != kValore || !trasporto_.Letto()) return;
  trasporto_.Dimentica();
  MostraPiano();
}

void FinestraTrasportoEsistenze::Leggi() {
  Raccolto([this] {
    trasporto_.Leggi(Scelta(kTrasporto));
    MostraPiano();
  });
}

void FinestraTrasportoEsistenze::Conferma() {
  Raccolto([this] {
    trasporto_.Conferma(Scelta(kTrasporto));
    MostraPiano();
  });
}

void FinestraTrasportoEsistenze::Aggiorna() {
  Leggi();
}

}  // namespace fenalto::screens
