#include "screens/vat/register/PaginaPeriodoIva.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"
#include "vat/settlement/ConfrontoLiquidazioni.h"

namespace fenalto::screens {
namespace {

enum Colonna { kRegistro, kDescrizione, kTipo, kDaProt, kAProt };

constexpr const char* kDaNProt = "DaNProt";
constexpr const char* kAaNprot = "AaNprot";

std::string NomeRiga(const char* inizio, std::size_t riga) {
  return inizio + std::to_string(riga);
}

}  // namespace

PaginaPeriodoIva::PaginaPeriodoIva(DatiRegistroIva& dati, const QString& finestra,
                                   QWidget* genitore)
    : QWidget(genitore), dati_(dati) {
  auto* griglia = new QGridLayout(this);
  griglia->addWidget(CreaPeriodo(finestra), 0, 0);
  auto* destra = new QVBoxLayout;
  destra->addWidget(CreaStampa());
  destra->addWidget(CreaVentilazione());
  destra->addWidget(CreaGiri());
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
    dati_.registro.ProponiVentilazione();
    dati_.MostraOpzioni();
  }
}

QWidget* PaginaPeriodoIva::CreaPeriodo(const QString& finestra) {
  auto* riquadro = new QWidget;
  periodo_ = dati_.Codice("MeseTrimestre", FontePeriodi(dati_.registro.Periodi()));
  periodo_->Etichetta()->setObjectName(QStringLiteral("ScrittaPeriodo"));
  conferma_ = Pulsante(QStringLiteral("Command1"), tr("Conferma Periodo"));
  connect(conferma_, &QPushButton::clicked, this, &PaginaPeriodoIva::ConfermaPeriodo);
  auto* riga = new QHBoxLayout;
  riga->addWidget(Didascalia(tr("Periodo"), periodo_));
  riga->addWidget(ConDescrizione(periodo_, kCaratteriCodice), 1);
  riga->addWidget(conferma_);
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
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addLayout(riga);
  colonna->addWidget(stato_);
  colonna->addWidget(griglia_, 1);
  MostraRegistri();
  return riquadro;
}

QGroupBox* PaginaPeriodoIva::CreaStampa() {
  auto* riquadro = new QGroupBox(tr("Stampa"));
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(dati_.Casella("StIndirizzo", tr("Stampo indirizzo e partita iva")));
  colonna->addWidget(
      dati_.Casella("SaltoCartaTotaliIva", tr("I totali di ogni registro su una pagina nuova")));
  colonna->addWidget(dati_.Casella("SoloTotali", tr("Solo i totali, senza le registrazioni")));
  colonna->addWidget(dati_.Casella(
      "SoloChiusura", tr("Stampo in prova solo la pagina della liquidazione periodica")));
  return riquadro;
}

QGroupBox* PaginaPeriodoIva::CreaVentilazione() {
  auto* riquadro = new QGroupBox(tr("Ventilazione: acquisti destinati alla rivendita"));
  auto* griglia = new QGridLayout(riquadro);
  const std::pair<const char*, const char*> registri[] = {{"RivaVentil", "VentilAaNprot"},
                                                          {"RivaVentil1", "VentilAaNprot1"}};
  int riga = 0;
  for (const auto& [nome, fino] : registri) {
    auto* registro = dati_.Codice(nome, archives::Fonte(dati_.Sessione(), "registri"));
    auto* numero = dati_.Numero(fino);
    griglia->addWidget(Didascalia(riga == 0 ? tr("Registro") : tr("e registro"), registro), riga,
                       0);
    griglia->addWidget(ConDescrizione(registro, kCaratteriCodice), riga, 1);
    griglia->addWidget(Didascalia(tr("fino al n. prot."), numero), riga, 2);
    griglia->addWidget(numero, riga, 3);
    ++riga;
  }
  griglia->setColumnStretch(1, 1);
  return riquadro;
}

QGroupBox* PaginaPeriodoIva::CreaGiri() {
  auto& sessione = dati_.Sessione();
  auto* riquadro = new QGroupBox(tr("Con la stampa definitiva"));
  auto* griglia = new QGridLayout(riquadro);
  griglia->addWidget(
      dati_.Casella("RegistrazioneContabileErario", tr("Registro il giro dell'iva all'erario")), 0,
      0, 1, 4);
  griglia->addWidget(dati_.Casella("RegistrazioneContabileGiro",
                                   tr("Registro lo scorporo dell'iva dei corrispettivi")),
                     1, 0, 1, 4);
  griglia->addWidget(
      dati_.Casella("ChiusIva", tr("Conservo le righe della liquidazione per ristamparla")), 2, 0,
      1, 4);
  auto* giorno = dati_.DataDi("DtReg");
  auto* causale = dati_.Codice("CausaleErario", archives::Fonte(sessione, "causali"));
  auto* erario = dati_.Codice("ContoIvaErario", archives::FonteConti(sessione, "P"));
  auto* interessi = dati_.Codice("ContoInteressiErario", archives::FonteConti(sessione, "P"));
  const std::pair<QString, CampoCodice*> codici[] = {{tr("Causale"), causale},
                                                     {tr("Conto erario c/iva"), erario},
                                                     {tr("Conto interessi"), interessi}};
  int riga = 3;
  for (const auto& [testo, campo] : codici) {
    griglia->addWidget(Didascalia(testo, campo), riga, 0);
    griglia->addWidget(ConDescrizione(campo, kCaratteriCodice), riga, 1, 1, 3);
    ++riga;
  }
  griglia->addWidget(Didascalia(tr("Data registrazioni"), giorno), riga, 0);
  griglia->addWidget(giorno, riga, 1);
  griglia->setColumnStretch(1, 1);
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
