#include "screens/vat/register/PaginaPeriodoIva.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "vat/settlement/ConfrontoLiquidazioni.h"

namespace fenalto::screens {
namespace {

enum Colonna { kRegistro, kDescrizione, kTipo, kDaProt, kAProt };

constexpr const char* kDaNProt = "DaNProt";
constexpr const char* kAaNprot = "AaNprot";

std::string NomeRiga(const char* inizio, std::size_t riga) {
  return inizio + std::to_string(riga);
}

records::DescrizioneForma FormaPeriodo() {
  return {.campi = {
              records::DiCodice("MeseTrimestre", "Periodo", {}, kCifreCodiceIva).Peso(1),
              Mostrato("Command1", records::GenereCampo::Pulsante, "Conferma Periodo").Accanto()}};
}

records::DescrizioneForma FormaStampa() {
  constexpr const char* kStampa = "FrameStampa";
  constexpr const char* kVentilazione = "FrameVentilazione";
  constexpr const char* kGiri = "FrameGiri";
  const auto casella = [](const char* nome, const char* testo, const char* riquadro) {
    return records::Digitato(nome, testo).In(riquadro).AlMargine();
  };
  const auto codice = [](const char* nome, const char* testo, const char* fonte,
                         const char* riquadro) {
    return records::DiCodice(nome, testo, fonte, kCifreCodiceIva).In(riquadro).Peso(1);
  };
  const auto fino = [](const char* nome) {
    return records::Digitato(nome, "fino al n. prot.").In(kVentilazione).Colonna(1);
  };
  return {
      .campi =
          {casella("StIndirizzo", "Stampo indirizzo e partita iva", kStampa),
           casella("SaltoCartaTotaliIva", "I totali di ogni registro su una pagina nuova", kStampa),
           casella("SoloTotali", "Solo i totali, senza le registrazioni", kStampa),
           casella("SoloChiusura", "Stampo in prova solo la pagina della liquidazione periodica",
                   kStampa),
           codice("RivaVentil", "Registro", "registri", kVentilazione), fino("VentilAaNprot"),
           codice("RivaVentil1", "e registro", "registri", kVentilazione), fino("VentilAaNprot1"),
           casella("RegistrazioneContabileErario", "Registro il giro dell'iva all'erario", kGiri),
           casella("RegistrazioneContabileGiro", "Registro lo scorporo dell'iva dei corrispettivi",
                   kGiri),
           casella("ChiusIva", "Conservo le righe della liquidazione per ristamparla", kGiri),
           codice("CausaleErario", "Causale", "causali", kGiri),
           codice("ContoIvaErario", "Conto erario c/iva", "conti", kGiri),
           codice("ContoInteressiErario", "Conto interessi", "conti", kGiri),
           codice("ContoProRata", "Conto pro-rata", "conti", kGiri),
           records::Digitato("DtReg", "Data registrazioni").In(kGiri)},
      .riquadri = {{.nome = kStampa, .titolo = "Stampa", .largo = true},
                   {.nome = kVentilazione,
                    .titolo = "Ventilazione: acquisti destinati alla rivendita",
                    .largo = true},
                   {.nome = kGiri, .titolo = "Con la stampa definitiva", .largo = true}},
      .stretta = true};
}

}  // namespace

PaginaPeriodoIva::PaginaPeriodoIva(DatiRegistroIva& dati, const QString& finestra,
                                   QWidget* genitore)
    : QWidget(genitore), dati_(dati) {
  auto* griglia = new QGridLayout(this);
  const int lato = Misura(Passo::Vicino);
  griglia->setContentsMargins(lato, Misura(Passo::Filo), lato, 0);
  griglia->addWidget(CreaPeriodo(finestra), 0, 0);
  auto* destra = new QVBoxLayout;
  destra->setSpacing(Misura(Passo::Filo));
  const CampiForma stampa(dati_.Sessione(), FormaStampa(), {&dati_.legatura}, *destra);
  destra->addStretch(1);
  griglia->addLayout(destra, 0, 1);
  griglia->setColumnStretch(0, 1);
  dati_.scheda.Scrivi("MeseTrimestre", Valore(vat::PeriodoDaLiquidare(dati_.Sessione())));
  connect(&dati_, &DatiRegistroIva::Cambiato, this, &PaginaPeriodoIva::CampoCambiato);
}

void PaginaPeriodoIva::CampoCambiato(const QString& campo) {
  if (campo == QLatin1String("MeseTrimestre")) {
    if (dati_.scheda.Testo("MeseTrimestre") != dati_.registro.Periodo().cod) Sconferma();
  } else if (campo == QLatin1String("RivaVentil") || campo == QLatin1String("RivaVentil1")) {
    if (!dati_.confermato) return;
    dati_.registro.ProponiVentilazione(campo == QLatin1String("RivaVentil1"));
    dati_.MostraOpzioni();
  }
}

QWidget* PaginaPeriodoIva::CreaPeriodo(const QString& finestra) {
  auto* riquadro = new QWidget;
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->setContentsMargins(0, 0, 0, 0);
  const CampiForma forma(dati_.Sessione(), FormaPeriodo(), {&dati_.legatura}, *colonna);
  periodo_ = &dati_.DaiPeriodi(forma);
  conferma_ = &forma.Pulsante("Command1");
  connect(conferma_, &QAbstractButton::clicked, this, &PaginaPeriodoIva::ConfermaPeriodo);
  constexpr int kLargoNumero = 90;
  constexpr int kLargoTesto = 260;
  griglia_ =
      new Griglia(QStringLiteral("GrigliaRegistri"), finestra,
                  {{tr("Registro"), Tipo::Testo, kLargoNumero},
                   {tr("Descrizione"), Tipo::Testo, kLargoTesto},
                   {tr("Tipo"), Tipo::Testo, kLargoNumero / 2},
                   {tr("Da protocollo"), Tipo::Intero, kLargoNumero, 2, QStringLiteral("Da prot.")},
                   {tr("A protocollo"), Tipo::Intero, kLargoNumero, 2, QStringLiteral("A prot.")}});
  griglia_->Elastica(kDescrizione);
  // The editors have a frame.
  griglia_->verticalHeader()->setDefaultSectionSize(periodo_->sizeHint().height());
  // The registers stay in the order in which they are printed.
  griglia_->horizontalHeader()->setSectionsClickable(false);
  griglia_->setFocusPolicy(Qt::ClickFocus);
  stato_ = new QLabel;
  stato_->setObjectName(QStringLiteral("StatoPeriodo"));
  stato_->setWordWrap(true);
  colonna->addWidget(stato_);
  colonna->addWidget(griglia_, 1);
  MostraRegistri();
  return riquadro;
}

void PaginaPeriodoIva::FocoPeriodo() {
  periodo_->setFocus();
}

void PaginaPeriodoIva::Sconferma() {
  if (!dati_.confermato) return;
  dati_.confermato = false;
  MostraRegistri();
  emit PeriodoCambiato();
}

void PaginaPeriodoIva::ConfermaPeriodo() {
  if (!dati_.legatura.Raccogli()) return;
  dati_.confermato = dati_.registro.ScegliPeriodo(dati_.scheda.Testo("MeseTrimestre"));
  if (dati_.confermato) dati_.MostraOpzioni();
  MostraRegistri();
  emit PeriodoCambiato();
  // On to the first range, or back to what wasn't found.
  auto* seguente = dati_.confermato ? conferma_->nextInFocusChain() : periodo_;
  seguente->setFocus(Qt::TabFocusReason);
}

std::vector<std::vector<Valore>> PaginaPeriodoIva::Righe() const {
  std::vector<std::vector<Valore>> righe;
  for (const auto& intervallo : dati_.registro.Intervalli()) {
    const bool numeri = !intervallo.daIncassi;
    righe.push_back({Valore(intervallo.riva), Valore(intervallo.descrizione),
                     Valore(intervallo.tipo), numeri ? Valore(intervallo.daNProt) : Valore(),
                     numeri ? Valore(intervallo.aaNProt) : Valore()});
  }
  return righe;
}

void PaginaPeriodoIva::MostraRegistri() {
  legaturaRighe_ = std::make_unique<Legatura>([this]() -> Scheda& { return righe_; },
                                              dati_.Sessione().Dialogo(), nullptr);
  connect(legaturaRighe_.get(), &Legatura::Lasciato, this,
          [this](const QString& campo, bool cambiato) {
            if (cambiato) RigaLasciata(campo);
          });
  righe_ = Scheda();
  const bool confermato = dati_.confermato;
  // The reset of the rows takes the editors of the period before with it.
  griglia_->Modello().Righe(confermato ? Righe() : std::vector<std::vector<Valore>>());
  stato_->setText(confermato ? tr("%1 %2: i protocolli da stampare, registro per registro")
                                   .arg(QString::fromStdString(dati_.registro.Periodo().testo))
                                   .arg(dati_.Sessione().Anno())
                             : tr("Scegliere il periodo e confermarlo"));
  if (confermato) CreaIntervalli();
}

void PaginaPeriodoIva::CreaIntervalli() {
  const auto& intervalli = dati_.registro.Intervalli();
  QWidget* prima = conferma_;
  for (std::size_t riga = 0; riga < intervalli.size(); ++riga) {
    if (intervalli[riga].daIncassi) continue;
    const std::pair<const char*, Colonna> estremi[] = {{kDaNProt, kDaProt}, {kAaNprot, kAProt}};
    for (const auto& [inizio, colonna] : estremi) {
      const std::string nome = NomeRiga(inizio, riga);
      auto* campo = new CampoNumero(QString::fromStdString(nome));
      campo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      campo->setAccessibleName(QStringLiteral("%1 %2").arg(
          QString::fromStdString(intervalli[riga].descrizione),
          colonna == kDaProt ? tr("da protocollo") : tr("a protocollo")));
      righe_.Aggiungi(nome, Tipo::Intero);
      righe_.Scrivi(nome, colonna == kDaProt ? intervalli[riga].daNProt : intervalli[riga].aaNProt);
      griglia_->setIndexWidget(griglia_->Modello().index(static_cast<int>(riga), colonna), campo);
      legaturaRighe_->Lega(campo);
      setTabOrder(prima, campo);
      prima = campo;
    }
  }
  legaturaRighe_->Mostra();
}

void PaginaPeriodoIva::RigaLasciata(const QString& campo) {
  const std::string nome = campo.toStdString();
  auto& intervalli = dati_.registro.Intervalli();
  for (std::size_t riga = 0; riga < intervalli.size(); ++riga) {
    const bool inizio = nome == NomeRiga(kDaNProt, riga);
    if (!inizio && nome != NomeRiga(kAaNprot, riga)) continue;
    const std::int64_t numero = righe_.Leggi(nome).Intero();
    (inizio ? intervalli[riga].daNProt : intervalli[riga].aaNProt) = numero;
    griglia_->Modello().Cella(static_cast<int>(riga), inizio ? kDaProt : kAProt, Valore(numero));
  }
  emit IntervalliCambiati();
}

bool PaginaPeriodoIva::Raccogli() {
  return dati_.legatura.Raccogli() && legaturaRighe_->Raccogli();
}

}  // namespace fenalto::screens
