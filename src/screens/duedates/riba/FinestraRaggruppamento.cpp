#include "screens/duedates/riba/FinestraRaggruppamento.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

#include "core/values/FormatoImporto.h"
#include "duedates/riba/RaggruppamentoRiba.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/InCorso.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreCodice = 12;
constexpr int kColonnaRiferimentiFatture = 6;

}  // namespace

struct FinestraRaggruppamento::Interno {
  Interno(FinestraRaggruppamento& finestraUsata, Finestre& gestoreUsato);
  void CreaGriglia();
  QHBoxLayout* CreaScelta();
  QHBoxLayout* CreaPulsanti();
  void Collega();
  /// The choice as typed; nothing, and told why, when a day can't be read or the period is empty.
  [[nodiscard]] std::optional<duedates::SceltaRaggruppamento> Scelta(bool avvisa);
  void Carica();
  void MostraTotali();
  void Stampa();
  void Conferma();

  FinestraRaggruppamento& finestra;
  Finestre& gestore;
  duedates::RaggruppamentoRiba raggruppamento;
  std::vector<duedates::GruppoRiba> gruppi;
  CampoData* da;
  CampoData* a;
  CampoCodice* cliente;
  Griglia* griglia = nullptr;
  QLabel* totali = new QLabel;
  QCheckBox* definitivo;
  QPushButton* stampa;
  QPushButton* conferma;
  QPushButton* esporta;
  bool leggendo = false;
};

FinestraRaggruppamento::Interno::Interno(FinestraRaggruppamento& finestraUsata,
                                         Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      raggruppamento(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      da(CampoGiornoLibero("DaData", gestoreUsato.Sessione(),
                           Data::DaGma(1, 1, gestoreUsato.Sessione().Anno()).value())),
      a(CampoGiornoLibero("AData", gestoreUsato.Sessione(),
                          Data::DaGma(31, 12, gestoreUsato.Sessione().Anno()).value())),
      cliente(new CampoCodice(QStringLiteral("CliFor"),
                              archives::FonteConti(gestoreUsato.Sessione(), "C"))),
      definitivo(new QCheckBox(tr("Stampa definitiva: raggruppa le scadenze"))),
      stampa(Pulsante(QStringLiteral("Stampa"), tr("Stampa di prova"))),
      conferma(Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"))),
      esporta(Pulsante(QStringLiteral("XlsEsp"), tr("Esporto in Excel"))) {
  CreaGriglia();
  definitivo->setObjectName(QStringLiteral("Definitivo"));
  cliente->setPlaceholderText(tr("tutti"));
  cliente->Etichetta()->setObjectName(QStringLiteral("CliForDescrizione"));
  totali->setObjectName(QStringLiteral("Totali"));
  totali->setAlignment(Qt::AlignRight);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(CreaScelta());
  colonna->addWidget(griglia, 1);
  colonna->addWidget(totali);
  colonna->addLayout(CreaPulsanti());
  AssegnaMnemoniche({stampa, conferma, esporta});
  Collega();
}

void FinestraRaggruppamento::Interno::CreaGriglia() {
  griglia = new Griglia(QStringLiteral("GrigliaGruppi"), finestra.Nome(),
                        {{tr("Cliente"), Tipo::Testo, 80},
                         {tr("Ragione sociale"), Tipo::Testo, 280, 2, QStringLiteral("RagSoc1")},
                         {tr("Scadenza"), Tipo::Data, 95, 2, QStringLiteral("DataScad")},
                         {tr("Ricevute"), Tipo::Intero, 60, 2, QStringLiteral("n_riba")},
                         {tr("Importo"), Tipo::Importo, 120},
                         {tr("Pagamento"), Tipo::Testo, 60, 2, QStringLiteral("Pag")},
                         {tr("Riferimenti"), Tipo::Testo, 420}});
  griglia->Elastica(kColonnaRiferimentiFatture);
  griglia->QuandoVuota(QObject::tr("nessuna ricevuta da raggruppare fino alla data scelta"));
}

QHBoxLayout* FinestraRaggruppamento::Interno::CreaScelta() {
  auto* riga = new QHBoxLayout;
  Affianca(*riga, tr("Scadenze dal"), da);
  Affianca(*riga, tr("al"), a);
  riga->addSpacing(Misura(Passo::Stacco));
  riga->addWidget(Didascalia(tr("Cliente"), cliente));
  riga->addWidget(ConDescrizione(cliente, kCifreCodice), 1);
  return riga;
}

QHBoxLayout* FinestraRaggruppamento::Interno::CreaPulsanti() {
  auto* riga = new QHBoxLayout;
  riga->addWidget(definitivo);
  riga->addWidget(conferma);
  riga->addStretch(1);
  riga->addWidget(stampa);
  riga->addWidget(esporta);
  return riga;
}

void FinestraRaggruppamento::Interno::Collega() {
  auto* f = &finestra;
  const auto carica = [this] { Carica(); };
  for (QLineEdit* campo : std::initializer_list<QLineEdit*>{da, a}) {
    connect(campo, &QLineEdit::editingFinished, f, carica);
  }
  const auto cambiato = [this] {
    cliente->Risolvi();
    Carica();
  };
  connect(cliente, &CampoCodice::Scelto, f, cambiato);
  connect(cliente, &QLineEdit::editingFinished, f, cambiato);
  connect(stampa, &QPushButton::clicked, f, [this] { Stampa(); });
  connect(conferma, &QPushButton::clicked, f, [this] { Conferma(); });
  connect(esporta, &QPushButton::clicked, f, [this] { finestra.Esporta(*griglia); });
}

std::optional<duedates::SceltaRaggruppamento> FinestraRaggruppamento::Interno::Scelta(bool avvisa) {
  const auto rifiuta = [&](const std::string& testo, QWidget* campo) {
    if (avvisa) {
      gestore.Sessione().Dialogo().Messaggio(testo, Icona::Avviso);
      campo->setFocus();
    }
    return std::nullopt;
  };
  duedates::SceltaRaggruppamento scelta;
  for (const auto& [campo, giorno] : {std::pair(da, &scelta.da), std::pair(a, &scelta.a)}) {
    const auto letto = campo->Letto();
    if (!letto) return rifiuta(letto.Errore().messaggio, campo);
    *giorno = letto.Valore().Data();
    if (giorno->Nulla())
      return rifiuta("manca la data: impostare le date di scadenza da cui e a cui", campo);
  }
  if (scelta.a < scelta.da) {
    return rifiuta("la data finale viene prima di quella iniziale", a);
  }
  const auto letto = cliente->Letto();
  if (!letto) return rifiuta(letto.Errore().messaggio, cliente);
  scelta.conto = letto.Valore().Testo();
  if (!scelta.conto.empty() && !cliente->Esiste()) {
    return rifiuta("il cliente " + scelta.conto + " non esiste", cliente);
  }
  return scelta;
}

void FinestraRaggruppamento::Interno::Carica() {
  if (leggendo) return;
  const InCorso inCorso(leggendo);
  gruppi.clear();
  if (const auto scelta = Scelta(false)) {
    if (auto letti = raggruppamento.Elenco(*scelta)) gruppi = std::move(*letti);
  }
  std::vector<std::vector<Valore>> righe;
  righe.reserve(gruppi.size());
  for (const duedates::GruppoRiba& g : gruppi) {
    righe.push_back({g.conto, g.ragsoc, g.dt, static_cast<std::int64_t>(g.scadenze.size()),
                     g.Totale(), g.pagamento, duedates::RiferimentiFatture(g.scadenze)});
  }
  griglia->Modello().Righe(std::move(righe));
  MostraTotali();
  esporta->setEnabled(!gruppi.empty());
}

void FinestraRaggruppamento::Interno::MostraTotali() {
  Importo importo;
  qsizetype scadenze = 0;
  for (const duedates::GruppoRiba& g : gruppi) {
    importo += g.Totale();
    scadenze += static_cast<qsizetype>(g.scadenze.size());
  }
  const auto daFare =
      std::count_if(gruppi.begin(), gruppi.end(), [](const auto& g) { return g.DaRaggruppare(); });
  totali->setText(tr("%1 scadenze in %2 gruppi, %3 da raggruppare    importo %4")
                      .arg(scadenze)
                      .arg(gruppi.size())
                      .arg(daFare)
                      .arg(Qs(ScriviImporto(importo, 2))));
}

void FinestraRaggruppamento::Interno::Stampa() {
  if (const auto scelta = Scelta(true)) raggruppamento.StampaProva(*scelta, gruppi);
}

void FinestraRaggruppamento::Interno::Conferma() {
  const auto scelta = Scelta(true);
  if (!scelta) return;
  if (!definitivo->isChecked()) {
    raggruppamento.StampaProva(*scelta, gruppi);
    return;
  }
  // The next confirmation is a test again unless it is asked for.
  if (raggruppamento.Definitivo(*scelta, gruppi)) definitivo->setChecked(false);
  Carica();
}

FinestraRaggruppamento::FinestraRaggruppamento(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("RiBaRaggruppamento"), tr("Raggruppamento Ri.Ba."),
                       finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->Carica();
}

FinestraRaggruppamento::~FinestraRaggruppamento() {
  hide();
}

void FinestraRaggruppamento::Aggiorna() {
  interno_->Carica();
}

}  // namespace fenalto::screens
