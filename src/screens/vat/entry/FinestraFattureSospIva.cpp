#include "screens/vat/entry/FinestraFattureSospIva.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "vat/entry/FattureSospese.h"
#include "vat/register/RegistroIvaUnico.h"

namespace fenalto::screens {
namespace {

constexpr int kColonnaNProt = 1;
constexpr int kColonnaIncasso = 8;
constexpr int kColonnaAnno = 9;  ///< after those shown
constexpr int kColonnaNumDoc = 10;

}  // namespace

struct FinestraFattureSospIva::Interno {
  Interno(FinestraFattureSospIva& finestraUsata, Finestre& gestoreUsato);
  void CreaGriglia();
  QHBoxLayout* CreaFiltri();
  QHBoxLayout* CreaPulsanti();
  void Collega();
  [[nodiscard]] vat::FiltroSospese Filtro() const;
  void Carica();
  void MostraTotali(const std::vector<vat::FatturaSospesa>& elenco);
  /// The invoice of the current row; nothing, and told so, when no row is chosen.
  [[nodiscard]] std::optional<vat::ArticoloOrigine> Scelta();
  void Cambiata(const vat::ArticoloOrigine& fattura);
  void Imposta();
  void Annulla();
  void Stampa();

  FinestraFattureSospIva& finestra;
  Finestre& gestore;
  vat::FattureSospese sospese;
  QComboBox* riva = new QComboBox;
  QComboBox* stato = new QComboBox;
  CampoTesto* parte = new CampoTesto(QStringLiteral("Parte"));
  CampoData* da;
  CampoData* a;
  CampoData* incasso;
  Griglia* griglia = nullptr;
  QLabel* totali = new QLabel;
  QPushButton* imposta;
  QPushButton* annulla;
  QPushButton* vedi;
  QPushButton* stampa;
  QPushButton* esporta;
};

FinestraFattureSospIva::Interno::Interno(FinestraFattureSospIva& finestraUsata,
                                         Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      sospese(gestoreUsato.Sessione()),
      da(CampoGiornoLibero("DaDt", gestoreUsato.Sessione())),
      a(CampoGiornoLibero("AaDt", gestoreUsato.Sessione())),
      incasso(CampoGiornoLibero("DtIncasso", gestoreUsato.Sessione())),
      imposta(Pulsante(QStringLiteral("Imposta"), tr("Imposta"), tr("Ctrl+Invio"))),
      annulla(Pulsante(QStringLiteral("AnnullaData"), tr("Annulla data"))),
      vedi(Pulsante(QStringLiteral("Vedi"), tr("Vedi registrazione"), tr("doppio clic"))),
      stampa(Pulsante(QStringLiteral("Stampa"), tr("Stampa"))),
      esporta(Pulsante(QStringLiteral("XlsEsp"), tr("Esporto in Excel"))) {
  CreaGriglia();
  totali->setObjectName(QStringLiteral("Totali"));
  totali->setAlignment(Qt::AlignRight);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(CreaFiltri());
  colonna->addWidget(griglia, 1);
  colonna->addWidget(totali);
  colonna->addLayout(CreaPulsanti());
  AssegnaMnemoniche({imposta, annulla, vedi, stampa, esporta});
  Collega();
}

void FinestraFattureSospIva::Interno::CreaGriglia() {
  griglia = new Griglia(QStringLiteral("GrigliaFatture"), finestra.Nome(),
                        {{tr("Registro"), Tipo::Testo, 65},
                         {tr("Protocollo"), Tipo::Intero, 80},
                         {tr("Data"), Tipo::Data, 90},
                         {tr("Fattura"), Tipo::Testo, 90},
                         {tr("Codice"), Tipo::Testo, 70},
                         {tr("Cliente/fornitore"), Tipo::Testo, 300},
                         {tr("Imponibile"), Tipo::Importo, 120},
                         {tr("IVA"), Tipo::Importo, 110},
                         {tr("Incasso"), Tipo::Data, 90}});
  griglia->QuandoVuota(QObject::tr("nessuna fattura in sospensione nel periodo scelto"));
}

QHBoxLayout* FinestraFattureSospIva::Interno::CreaFiltri() {
  riva->setObjectName(QStringLiteral("RivaFattSosp"));
  riva->addItem(tr("tutti i registri"), QString());
  for (const auto& [cod, descrizione] : sospese.Registri()) {
    riva->addItem(QStringLiteral("%1 %2").arg(Qs(cod), Qs(descrizione)), Qs(cod));
  }
  stato->setObjectName(QStringLiteral("Stato"));
  stato->addItems({tr("tutte"), tr("solo non pagate"), tr("solo pagate")});
  stato->setCurrentIndex(static_cast<int>(vat::StatoSospese::Aperte));
  parte->setPlaceholderText(tr("codice o parte del nome"));
  auto* riga = new QHBoxLayout;
  Affianca(*riga, tr("Registro"), riva);
  Affianca(*riga, tr("Fatture"), stato);
  Affianca(*riga, tr("Cliente/fornitore"), parte, 1);
  Affianca(*riga, tr("dal"), da);
  Affianca(*riga, tr("al"), a);
  return riga;
}

QHBoxLayout* FinestraFattureSospIva::Interno::CreaPulsanti() {
  auto* riga = new QHBoxLayout;
  Affianca(*riga, tr("Data incasso/pagamento"), incasso);
  riga->addWidget(imposta);
  riga->addWidget(annulla);
  riga->addStretch(1);
  for (auto* pulsante : {vedi, stampa, esporta}) riga->addWidget(pulsante);
  return riga;
}

void FinestraFattureSospIva::Interno::Collega() {
  auto* f = &finestra;
  const auto carica = [this] { Carica(); };
  connect(riva, &QComboBox::currentIndexChanged, f, carica);
  connect(stato, &QComboBox::currentIndexChanged, f, carica);
  for (QLineEdit* campo : std::initializer_list<QLineEdit*>{parte, da, a}) {
    connect(campo, &QLineEdit::editingFinished, f, carica);
  }
  connect(griglia, &Griglia::RigaScelta, f, [this](int indice) {
    // An open invoice leaves the day that was typed for the one before.
    const Valore& data = griglia->Modello().Riga(indice)[kColonnaIncasso];
    if (!data.Data().Nulla()) incasso->Mostra(data);
  });
  const auto guarda = [this] {
    const auto scelta = Scelta();
    if (scelta) gestore.Segui(AllaRegistrazione(scelta->anno, scelta->numDoc));
  };
  connect(griglia, &Griglia::RigaDoppioClic, f, guarda);
  connect(griglia, &Griglia::RigaInvio, f, guarda);
  connect(vedi, &QPushButton::clicked, f, guarda);
  connect(imposta, &QPushButton::clicked, f, [this] { Imposta(); });
  connect(annulla, &QPushButton::clicked, f, [this] { Annulla(); });
  connect(stampa, &QPushButton::clicked, f, [this] { Stampa(); });
  connect(esporta, &QPushButton::clicked, f, [this] { finestra.Esporta(*griglia); });
}

vat::FiltroSospese FinestraFattureSospIva::Interno::Filtro() const {
  // A day that can't be read is shown as wrong by its field, and filters nothing.
  const auto giorno = [](const CampoData* campo) {
    const auto letto = campo->Letto();
    return letto ? letto.Valore().Data() : Data();
  };
  vat::FiltroSospese filtro;
  filtro.riva = riva->currentData().toString().toStdString();
  filtro.parte = parte->text().toStdString();
  filtro.da = giorno(da);
  filtro.a = giorno(a);
  filtro.stato = static_cast<vat::StatoSospese>(std::max(0, stato->currentIndex()));
  return filtro;
}

void FinestraFattureSospIva::Interno::Carica() {
  const auto elenco = sospese.Elenco(Filtro());
  std::vector<std::vector<Valore>> righe;
  righe.reserve(elenco.size());
  for (const vat::FatturaSospesa& f : elenco) {
    righe.push_back({f.riva, f.nProt, f.dt, f.nFat, f.conto, f.nome, f.imponibile, f.iva,
                     f.dtIncasso, f.anno, f.numDoc});
  }
  griglia->Modello().Righe(std::move(righe));
  MostraTotali(elenco);
  for (QAbstractButton* pulsante : {imposta, annulla, vedi, esporta}) {
    pulsante->setEnabled(!elenco.empty());
  }
}

void FinestraFattureSospIva::Interno::MostraTotali(const std::vector<vat::FatturaSospesa>& elenco) {
  Importo imponibile;
  Importo iva;
  for (const vat::FatturaSospesa& f : elenco) {
    imponibile += f.imponibile;
    iva += f.iva;
  }
  totali->setText(tr("%1 fatture    imponibile %2    IVA %3")
                      .arg(elenco.size())
                      .arg(Qs(ScriviImporto(imponibile, 2)), Qs(ScriviImporto(iva, 2))));
}

std::optional<vat::ArticoloOrigine> FinestraFattureSospIva::Interno::Scelta() {
  const int indice = griglia->RigaCorrente();
  if (indice < 0) {
    gestore.Sessione().Dialogo().Messaggio("scegliere una fattura dell'elenco", Icona::Avviso);
    return std::nullopt;
  }
  const auto& riga = griglia->Modello().Riga(indice);
  return vat::ArticoloOrigine{static_cast<int>(riga[kColonnaAnno].Intero()),
                              riga[kColonnaNumDoc].Intero()};
}

void FinestraFattureSospIva::Interno::Cambiata(const vat::ArticoloOrigine& fattura) {
  const int prima = griglia->RigaCorrente();
  Carica();
  const int righe = griglia->Modello().rowCount();
  if (righe == 0) return;
  // The invoice where it is now; when the filter leaves it out, the one that took its place.
  int posto = std::min(prima, righe - 1);
  for (int i = 0; i < righe; ++i) {
    const auto& riga = griglia->Modello().Riga(i);
    if (riga[kColonnaAnno].Intero() == fattura.anno &&
        riga[kColonnaNumDoc].Intero() == fattura.numDoc) {
      posto = i;
    }
  }
  griglia->VaiARiga(posto);
}

void FinestraFattureSospIva::Interno::Imposta() {
  const auto scelta = Scelta();
  if (!scelta) return;
  const auto letto = incasso->Letto();
  if (!letto) {
    gestore.Sessione().Dialogo().Messaggio(letto.Errore().messaggio, Icona::Avviso);
    return incasso->setFocus();
  }
  if (sospese.Imposta(*scelta, letto.Valore().Data())) Cambiata(*scelta);
}

void FinestraFattureSospIva::Interno::Annulla() {
  const auto scelta = Scelta();
  if (!scelta) return;
  const auto& riga = griglia->Modello().Riga(griglia->RigaCorrente());
  const Data data = riga[kColonnaIncasso].Data();
  if (data.Nulla()) return;
  if (!gestore.Sessione().Dialogo().Conferma("Annullo la data di incasso " + data.Testo() +
                                             " della fattura con protocollo " +
                                             riga[kColonnaNProt].Testo() + " ?")) {
    return;
  }
  if (sospese.Annulla(*scelta)) Cambiata(*scelta);
}

void FinestraFattureSospIva::Interno::Stampa() {
  const vat::FiltroSospese filtro = Filtro();
  if (filtro.riva.empty()) {
    gestore.Sessione().Dialogo().Messaggio("scegliere il registro da stampare", Icona::Avviso);
    return riva->setFocus();
  }
  vat::RegistroIvaUnico::ElencoSospese richiesta;
  richiesta.riva = filtro.riva;
  richiesta.da = filtro.da;
  richiesta.a = filtro.a;
  richiesta.soloDaPagare = filtro.stato == vat::StatoSospese::Aperte;
  richiesta.soloPagate = filtro.stato == vat::StatoSospese::Incassate;
  vat::RegistroIvaUnico(gestore.Sessione()).StampaElencoSospese(gestore.Uscite(), richiesta);
}

FinestraFattureSospIva::FinestraFattureSospIva(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("FattureSospIva"), tr("Fatture in sospensione iva pagate"),
                       finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->Carica();
}

FinestraFattureSospIva::~FinestraFattureSospIva() {
  hide();
}

void FinestraFattureSospIva::Aggiorna() {
  interno_->Carica();
}

}  // namespace fenalto::screens
