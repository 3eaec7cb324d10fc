#include "screens/vat/register/FinestraRegistriIva.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/values/Testo.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/look/Misure.h"
#include "screens/vat/register/DatiRegistroIva.h"

namespace fenalto::screens {
namespace {

records::DescrizioneForma FormaRegistri() {
  using records::DiCodice;
  using records::Digitato;
  return {.campi = {DiCodice("MeseTrimestre", "Periodo", {}, kCifreCodiceIva).Peso(1),
                    DiCodice("Riva", "Registro iva", "registri", kCifreCodiceIva).Peso(1),
                    Digitato("DaNProt", "Dal n. protocollo"), Digitato("AaNprot", "al").Accanto(),
                    Digitato("StIndirizzo", "Stampo indirizzo e partita iva").AlMargine(),
                    Digitato("SoloTotali", "Solo i totali, senza le registrazioni").AlMargine()}};
}

}  // namespace

struct FinestraRegistriIva::Interno {
  Interno(FinestraRegistriIva& finestraUsata, Finestre& gestoreUsato);
  void Lasciato(const QString& campo);
  /// Takes the period typed, with the ranges that it proposes.
  void ScegliPeriodo();
  /// The register's range; null while there is no period or no such register.
  vat::IntervalloRegistro* Intervallo();
  void MostraIntervallo();
  void Stampa();

  FinestraRegistriIva& finestra;
  DatiRegistroIva dati;
  OpzioniGrafiche opzioni;
  QPushButton* stampa;
};

FinestraRegistriIva::Interno::Interno(FinestraRegistriIva& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      dati(gestoreUsato, nullptr),
      opzioni(finestraUsata.Nome(), gestoreUsato.Sessione(), dati.scheda, dati.legatura, true),
      stampa(Pulsante(QStringLiteral("Stampa"), FinestraRegistriIva::tr("Stampa"))) {
  dati.scheda.Aggiungi("Riva", Tipo::Testo);
  for (const char* nome : {"DaNProt", "AaNprot"}) dati.scheda.Aggiungi(nome, Tipo::Intero);
  auto* colonna = new QVBoxLayout(&finestra);
  dati.DaiPeriodi(CampiForma(dati.Sessione(), FormaRegistri(), {&dati.legatura}, *colonna));
  auto* sotto = opzioni.Riga();
  sotto->addWidget(stampa);
  colonna->addLayout(sotto);
  colonna->addStretch(1);
  AssegnaMnemoniche({stampa});
  constexpr int kLarghezzaMinima = 560;
  colonna->addStrut(Cresciuta(kLarghezzaMinima));
  finestra.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  dati.MostraOpzioni();
  MostraIntervallo();
  connect(&dati, &DatiRegistroIva::Cambiato, &finestra,
          [this](const QString& campo) { Lasciato(campo); });
  connect(stampa, &QPushButton::clicked, &finestra, [this] { Stampa(); });
}

void FinestraRegistriIva::Interno::Lasciato(const QString& campo) {
  if (campo == QLatin1String("MeseTrimestre")) {
    ScegliPeriodo();
  } else if (campo == QLatin1String("Riva")) {
    MostraIntervallo();
  } else if (auto* intervallo = Intervallo()) {
    intervallo->daNProt = dati.scheda.Leggi("DaNProt").Intero();
    intervallo->aaNProt = dati.scheda.Leggi("AaNprot").Intero();
  }
}

void FinestraRegistriIva::Interno::ScegliPeriodo() {
  dati.confermato = dati.registro.ScegliPeriodo(dati.scheda.Testo("MeseTrimestre"));
  if (dati.confermato) dati.MostraOpzioni();
  MostraIntervallo();
}

vat::IntervalloRegistro* FinestraRegistriIva::Interno::Intervallo() {
  if (!dati.confermato) return nullptr;
  auto& intervalli = dati.registro.Intervalli();
  const auto trovato = std::find_if(intervalli.begin(), intervalli.end(),
                                    [this](const vat::IntervalloRegistro& uno) {
                                      return UgualeTesto(uno.riva, dati.scheda.Testo("Riva"));
                                    });
  return trovato == intervalli.end() ? nullptr : &*trovato;
}

void FinestraRegistriIva::Interno::MostraIntervallo() {
  const auto* intervallo = Intervallo();
  const bool numeri = intervallo != nullptr && !intervallo->daIncassi;
  dati.scheda.Scrivi("DaNProt", numeri ? intervallo->daNProt : 0);
  dati.scheda.Scrivi("AaNprot", numeri ? intervallo->aaNProt : 0);
  for (const char* nome : {"DaNProt", "AaNprot"}) {
    finestra.findChild<QWidget*>(QString::fromLatin1(nome))->setEnabled(numeri);
  }
  stampa->setEnabled(intervallo != nullptr);
  dati.legatura.Mostra();
}

void FinestraRegistriIva::Interno::Stampa() {
  if (!dati.legatura.Raccogli()) return;
  const auto* intervallo = Intervallo();
  if (intervallo == nullptr) return;
  dati.registro.Opzioni().xTar = opzioni.XTar();
  dati.registro.StampaSingolo(dati.finestre.Uscite(), intervallo->riva);
}

FinestraRegistriIva::FinestraRegistriIva(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("StRegistriIva"), tr("Stampa Registri Iva"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
}

FinestraRegistriIva::~FinestraRegistriIva() {
  hide();  // nothing is read from its fields any more
}

}  // namespace fenalto::screens
