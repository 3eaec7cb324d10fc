#include "screens/duedates/payments/FinestraInsoluti.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/payments/InsolutoRiba.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/duedates/CampiScadenza.h"
#include "screens/duedates/SceltaParte.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kMassimoRicevute = 200;
constexpr std::size_t kColonnaNumero = 9;  ///< after the columns shown
constexpr int kAltezzaRicevute = 84;
constexpr int kTutto = 100;
constexpr const char* kEffettuata = "RegContEffettuata";

}  // namespace

FinestraInsoluti::FinestraInsoluti(Finestre& finestre)
    : FinestraScadenzaDigitata(QStringLiteral("InsolutiRiba"), tr("Registrazione insoluti RiBa"),
                               static_cast<int>(duedates::FinestraPagamento::Insoluti),
                               std::make_unique<duedates::InsolutoRiba>(finestre.Sessione()),
                               finestre) {
  Disponi();
  Campi().Codice("BancaPresentaz").Etichetta()->setObjectName(QStringLiteral("Banca"));
}

duedates::InsolutoRiba& FinestraInsoluti::Insoluto() const {
  return static_cast<duedates::InsolutoRiba&>(Caso());
}

void FinestraInsoluti::AltriRiquadri(QVBoxLayout& colonna) {
  // The grid takes the room that is left.
  colonna.addWidget(CreaRicevute(), kTutto);
}

QWidget* FinestraInsoluti::CreaRicevute() {
  auto* riquadro = new QGroupBox(tr("Ricevute presentate: doppio clic su quella insoluta"));
  auto* colonna = new QVBoxLayout(riquadro);
  ricevute_ = new Griglia(QStringLiteral("GrigliaRicevute"), Nome(),
                          {{tr("Scadenza"), Tipo::Data, 90, 2, QStringLiteral("DataScad")},
                           {tr("Importo"), Tipo::Importo, 100, 2, QStringLiteral("ImportoE")},
                           {tr("N. fattura"), Tipo::Testo, 70, 2, QStringLiteral("NFat"), true},
                           {tr("Data fattura"), Tipo::Data, 90, 2, QStringLiteral("DtFat")},
                           {tr("Banca"), Tipo::Testo, 70},
                           {tr("Distinta n."), Tipo::Intero, 80, 2, QStringLiteral("Ndistinta")},
                           {tr("Presentata il"), Tipo::Data, 90, 2, QStringLiteral("DtPres")},
                           {tr("Insoluto n."), Tipo::Intero, 80},
                           {tr("Descrizione"), Tipo::Testo, 220}});
  ricevute_->QuandoVuota(QObject::tr("nessuna ricevuta: cercarla per codice, data o importo"));
  ricevute_->setMinimumHeight(Cresciuta(kAltezzaRicevute));
  colonna->addWidget(ricevute_);
  const auto scegli = [this](int riga) {
    if (riga < 0 || (Insoluto().Aperto() && Gestore().ControlloUscita(*this))) return;
    if (Insoluto().Aperto()) Insoluto().Abbandona();
    Insoluto().Riprendi(ricevute_->Modello().Riga(riga)[kColonnaNumero].Intero());
    Mostra();
  };
  connect(ricevute_, &Griglia::RigaDoppioClic, this, scegli);
  connect(ricevute_, &Griglia::RigaInvio, this, scegli);
  return riquadro;
}

void FinestraInsoluti::AltriCampi(records::DescrizioneForma& forma) {
  constexpr const char* kRiba = "FrameRiba";
  constexpr const char* kPagamento = "FramePagamento";
  const std::vector<records::CampoForma> suoi = {
      records::DiCodice("BancaPresentaz", "Banca", "banche", 4).In(kRiba).Peso(1),
      records::Digitato("Ndistinta", "Distinta n.", kCifreNumero - 1).In(kRiba).Accanto(),
      records::Digitato("DtPres", "del").In(kRiba).Accanto(),
      records::Digitato("ImportoPagatoE", "Importo pagato", kCifreImporto - 1)
          .In(kPagamento)
          .Fermo(),
      records::Mostrato(kEffettuata, records::GenereCampo::Etichetta).In(kPagamento).Accanto()};
  forma.campi.insert(forma.campi.end(), suoi.begin(), suoi.end());
  forma.riquadri.push_back({.nome = kRiba, .titolo = "Dati riba", .pagina = kRiba});
  forma.riquadri.push_back(
      {.nome = kPagamento,
       .titolo = "Estremi pagamento (dalla registrazione pagamenti da scadenzario)",
       .pagina = kRiba,
       .accanto = true});
}

void FinestraInsoluti::AltroPiede(QHBoxLayout& piede) {
  selettore_ = new CampoNumero(QStringLiteral("Rt1"));
  LargoCaratteri(selettore_, kCifreNumero);
  auto* apri = Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio"));
  piede.addWidget(Didascalia(tr("Insoluto già registrato n."), selettore_));
  piede.addWidget(selettore_);
  piede.addWidget(apri);
  connect(apri, &QPushButton::clicked, this, &FinestraInsoluti::Apri);
  connect(selettore_, &QLineEdit::returnPressed, this, &FinestraInsoluti::Apri);
}

void FinestraInsoluti::ParteCambiata() {
  std::vector<std::vector<Valore>> righe;
  if (!Insoluto().Conto().empty()) {
    for (const duedates::RicevutaPresentata& r : Insoluto().Presentate(kMassimoRicevute)) {
      righe.push_back({r.dt, r.importoE, r.nFat, r.dtFat, r.banca, r.nDistinta, r.dtPres,
                       r.insoluto == 0 ? Valore() : Valore(r.insoluto), r.descrizione, r.numero});
    }
  }
  ricevute_->Modello().Righe(std::move(righe));
}

void FinestraInsoluti::Mostra() {
  FinestraScadenzaDigitata::Mostra();
  QString titolo = tr("Registrazione insoluti RiBa");
  if (Insoluto().Aperto()) titolo += tr(" - scadenza n. %1").arg(Insoluto().Numero());
  setWindowTitle(titolo);
  Parte().Bloccata(Insoluto().Aperto(), Insoluto().Aperto());
  const auto stato = [this](const std::string& nome) {
    records::StatoCampo suo;
    if (nome == kEffettuata) {
      suo.testo = Insoluto().RegContEffettuata() ? "registrazione contabile effettuata"
                                                 : "registrazione da effettuare";
    }
    return suo;
  };
  Campi().Applica(stato, false);
}

void FinestraInsoluti::Apri() {
  const auto letto = selettore_->Letto();
  if (!letto || Gestore().ControlloUscita(*this)) return;
  const std::int64_t numero = letto.Valore().Intero();
  if (!Insoluto().Apri(numero)) return;
  const std::string cfp = Insoluto().Cfp();
  const std::string conto = Insoluto().Conto();
  Parte().Imposta(cfp, conto);
  Mostra();
}

void FinestraInsoluti::ApriRecord(const Rinvio& rinvio) {
  selettore_->setText(QString::fromStdString(rinvio.codice));
  Apri();
}

}  // namespace fenalto::screens
