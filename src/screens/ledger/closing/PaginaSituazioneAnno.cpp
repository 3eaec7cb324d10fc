#include "screens/ledger/closing/PaginaSituazioneAnno.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/Attesa.h"

namespace fenalto::screens {
namespace {

const QString kFinestraAnno = QStringLiteral("ChiusureAperture");
constexpr int kAltezzaPassi = 190;
/// After the columns shown: the row's place in what was read.
constexpr std::size_t kPostoPasso = 8;
constexpr std::size_t kPostoOperazione = 8;

/// A number of a registration; nothing where there is none.
Valore Numero(std::int64_t numero) {
  return numero == 0 ? Valore() : Valore(numero);
}

QString Presenti(const ledger::OperazioneAnno& o) {
  if (o.operazione == ledger::kOperazioneNuovoAnno) return {};
  if (o.rimaste == 0) return QObject::tr("eliminate a mano");
  if (o.rimaste < o.quante) return QObject::tr("%1 eliminate a mano").arg(o.quante - o.rimaste);
  return o.Toccata() ? QObject::tr("modificate a mano") : QString();
}

}  // namespace

PaginaSituazioneAnno::PaginaSituazioneAnno(Finestre& finestre)
    : finestre_(finestre), prossimo_(new QLabel), diChe_(new QLabel) {
  CreaGriglie();
  CreaPulsanti();
  prossimo_->setObjectName(QStringLiteral("Prossimo"));
  InGrassetto(*prossimo_);
  diChe_->setObjectName(QStringLiteral("DiChe"));
  auto* pulsanti = new QHBoxLayout;
  pulsanti->addWidget(new QLabel(tr("Operazioni eseguite")));
  pulsanti->addStretch(1);
  pulsanti->addWidget(vedi_);
  pulsanti->addWidget(annulla_);
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(prossimo_);
  colonna->addWidget(passi_);
  colonna->addLayout(pulsanti);
  colonna->addWidget(operazioni_, 1);
  colonna->addWidget(diChe_);
  colonna->addWidget(registrazioni_, 1);
  Collega();
}

void PaginaSituazioneAnno::CreaGriglie() {
  passi_ = new Griglia(QStringLiteral("GrigliaSituazione"), kFinestraAnno,
                       {{tr("Operazione"), Tipo::Testo, 190},
                        {tr("Stato"), Tipo::Testo, 110},
                        {tr("Quando"), Tipo::Testo, 130},
                        {tr("Utente"), Tipo::Testo, 70},
                        {tr("Da n."), Tipo::Intero, 60, 2, QStringLiteral("DaNumDoc")},
                        {tr("A n."), Tipo::Intero, 60, 2, QStringLiteral("ANumDoc")},
                        {tr("Registrazioni"), Tipo::Intero, 85, 2, QStringLiteral("Quante")},
                        {tr("Resta"), Tipo::Testo, 250}});
  passi_->setSortingEnabled(false);
  passi_->Elastica(7);
  passi_->setMaximumHeight(Cresciuta(kAltezzaPassi));
  passi_->setToolTip(tr("doppio clic o Invio: le registrazioni"));
  operazioni_ = new Griglia(QStringLiteral("GrigliaOperazioni"), kFinestraAnno,
                            {{tr("Operazione"), Tipo::Testo, 190},
                             {tr("Data"), Tipo::Data, 90, 2, QStringLiteral("Dt")},
                             {tr("Eseguita il"), Tipo::Testo, 130, 2, QStringLiteral("Quando")},
                             {tr("Utente"), Tipo::Testo, 70},
                             {tr("Da n."), Tipo::Intero, 60, 2, QStringLiteral("DaNumDoc")},
                             {tr("A n."), Tipo::Intero, 60, 2, QStringLiteral("ANumDoc")},
                             {tr("Totale"), Tipo::Importo, 120},
                             {tr("Note"), Tipo::Testo, 180}});
  operazioni_->setSortingEnabled(false);
  operazioni_->Elastica(7);
  operazioni_->QuandoVuota(tr("nessuna operazione di questo anno è stata ancora eseguita"));
  operazioni_->setToolTip(tr("doppio clic o Invio: le registrazioni"));
  registrazioni_ = new Griglia(QStringLiteral("GrigliaRegistrazioni"), kFinestraAnno,
                               {{tr("Articolo"), Tipo::Intero, 70, 2, QStringLiteral("NumDoc")},
                                {tr("Data"), Tipo::Data, 90, 2, QStringLiteral("Dt")},
                                {tr("C/F/P"), Tipo::Testo, 50, 2, QStringLiteral("CFP")},
                                {tr("Conto"), Tipo::Testo, 100},
                                {tr("Descrizione"), Tipo::Testo, 260},
                                {tr("Dare"), Tipo::Importo, 120, 2, QStringLiteral("ImpoDare")},
                                {tr("Avere"), Tipo::Importo, 120, 2, QStringLiteral("ImpoAvere")}});
  registrazioni_->Elastica(4);
  registrazioni_->QuandoVuota(
      tr("scegliere una riga qui sopra e premere Invio: le sue registrazioni si vedono qui"));
  registrazioni_->setToolTip(tr("doppio clic o Invio: la registrazione"));
}

void PaginaSituazioneAnno::CreaPulsanti() {
  vedi_ = Pulsante(QStringLiteral("VediRegistrazioni"), tr("Registrazioni"), tr("Invio"));
  annulla_ = Pulsante(QStringLiteral("AnnullaOperazione"), tr("Annulla operazione"));
  AssegnaMnemoniche({vedi_, annulla_});
}

void PaginaSituazioneAnno::Collega() {
  const auto passo = [this](int riga) { VediPasso(riga); };
  connect(passi_, &Griglia::RigaDoppioClic, this, passo);
  connect(passi_, &Griglia::RigaInvio, this, passo);
  const auto operazione = [this](int riga) { VediOperazione(riga); };
  connect(operazioni_, &Griglia::RigaDoppioClic, this, operazione);
  connect(operazioni_, &Griglia::RigaInvio, this, operazione);
  const auto registrazione = [this](int riga) {
    const std::int64_t numero = registrazioni_->Modello().Riga(riga)[0].Intero();
    finestre_.Segui(AllaRegistrazione(annoVisto_, numero));
  };
  connect(registrazioni_, &Griglia::RigaDoppioClic, this, registrazione);
  connect(registrazioni_, &Griglia::RigaInvio, this, registrazione);
  connect(vedi_, &QPushButton::clicked, this,
          [this] { VediOperazione(operazioni_->RigaCorrente()); });
  connect(annulla_, &QPushButton::clicked, this, [this] { Annulla(); });
}

void PaginaSituazioneAnno::Leggi() {
  const Attesa attesa;
  situazione_ = ledger::LeggiSituazioneAnno(finestre_.Sessione());
  prossimo_->setText(Qs(situazione_.prossimo));
  MostraPassi();
  MostraOperazioni();
  VediRegistrazioni({}, 0, QString());
}

void PaginaSituazioneAnno::MostraPassi() {
  std::vector<std::vector<Valore>> righe;
  for (const ledger::PassoAnno& p : situazione_.passi) {
    righe.push_back({p.nome, p.stato, p.quando, p.utente, Numero(p.daNumDoc), Numero(p.aNumDoc),
                     Numero(p.quante), p.resta, static_cast<std::int64_t>(righe.size())});
  }
  passi_->Modello().Righe(std::move(righe));
}

void PaginaSituazioneAnno::MostraOperazioni() {
  std::vector<std::vector<Valore>> righe;
  for (const ledger::OperazioneAnno& o : situazione_.operazioni) {
    righe.push_back({o.Nome(), o.dt, o.giorno.Testo() + " " + o.ora, o.utente, Numero(o.daNumDoc),
                     Numero(o.aNumDoc), o.totale.Zero() ? Valore() : Valore(o.totale),
                     Presenti(o).toStdString(), static_cast<std::int64_t>(righe.size())});
  }
  const bool vuota = righe.empty();
  operazioni_->Modello().Righe(std::move(righe));
  if (!vuota) operazioni_->VaiARiga(0);
  annulla_->setEnabled(!vuota);
  vedi_->setEnabled(!vuota);
}

void PaginaSituazioneAnno::VediPasso(int riga) {
  if (riga < 0) return;
  const auto& passo = situazione_.passi.at(
      static_cast<std::size_t>(passi_->Modello().Riga(riga)[kPostoPasso].Intero()));
  VediRegistrazioni(ledger::RegistrazioniDelPasso(finestre_.Sessione(), passo), passo.annoScritto,
                    Qs(passo.nome));
}

const ledger::OperazioneAnno* PaginaSituazioneAnno::Operazione(int riga) const {
  if (riga < 0) return nullptr;
  return &situazione_.operazioni.at(
      static_cast<std::size_t>(operazioni_->Modello().Riga(riga)[kPostoOperazione].Intero()));
}

void PaginaSituazioneAnno::VediOperazione(int riga) {
  const auto* operazione = Operazione(riga);
  if (operazione == nullptr) return;
  VediRegistrazioni(ledger::RegistrazioniDellOperazione(finestre_.Sessione(), *operazione),
                    operazione->annoScritto, Qs(operazione->Nome()));
}

void PaginaSituazioneAnno::VediRegistrazioni(
    const std::vector<ledger::RegistrazioneAnno>& registrazioni, int anno, const QString& titolo) {
  annoVisto_ = anno;
  diChe_->setText(titolo.isEmpty() ? tr("Registrazioni")
                                   : tr("Registrazioni dell'anno %1: %2").arg(anno).arg(titolo));
  std::vector<std::vector<Valore>> righe;
  righe.reserve(registrazioni.size());
  for (const ledger::RegistrazioneAnno& r : registrazioni) {
    righe.push_back({r.numDoc, r.dt, r.cfp, r.conto, r.descrizione, r.dare, r.avere});
  }
  const bool vuota = righe.empty();
  registrazioni_->Modello().Righe(std::move(righe));
  if (vuota) return;
  registrazioni_->VaiARiga(0);
  registrazioni_->setFocus();
}

void PaginaSituazioneAnno::Annulla() {
  const auto* operazione = Operazione(operazioni_->RigaCorrente());
  if (operazione == nullptr) return;
  const bool anno = operazione->operazione == ledger::kOperazioneNuovoAnno;
  if (!ledger::AnnullaOperazione(finestre_.Sessione(), operazione->id)) return;
  if (anno && finestre_.Sessione().RileggiAnni()) finestre_.SessioneCambiata();
  emit Annullata();
}

}  // namespace fenalto::screens
