#include "screens/duedates/bank/FinestraEstrattoBanca.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "duedates/bank/AbbinamentoBanca.h"
#include "duedates/payments/ImpostazioniPagamento.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

constexpr int kColonnaStato = 4;
constexpr std::size_t kIndiceLinea = 6;  ///< after the columns shown
/// Lines between looks at the user's wish to stop.
constexpr std::size_t kPasso = 200;
constexpr std::size_t kScartateDette = 20;

std::string Fatture(const duedates::PropostaBanca& proposta) {
  constexpr std::size_t kNominate = 6;
  std::string testo;
  for (std::size_t i = 0; i < proposta.scadenze.size() && i < kNominate; ++i) {
    const duedates::Scadenza& s = proposta.scadenze[i];
    testo += (i == 0 ? "" : "; ");
    testo += s.nFat.empty() ? s.descrizione : "ft. " + s.nFat;
    testo += " scad. " + s.dt.Testo();
  }
  if (proposta.scadenze.size() > kNominate) testo += "; ...";
  return testo;
}

}  // namespace

struct FinestraEstrattoBanca::Interno {
  Interno(FinestraEstrattoBanca& finestraUsata, Finestre& gestoreUsato);
  QLayout* CreaFile();
  QLayout* CreaColonne();
  QLayout* CreaImpostazioni();
  QWidget* CreaGriglie();
  QLayout* CreaPiede();
  void Collega();
  void Sfoglia();
  void Apri();
  void MostraColonne();
  void CambiaColonna(std::size_t campo, int scelta);
  /// Reads the lines by the columns chosen, then the proposals of all.
  void Leggi();
  void Proponi();
  void MostraLinee();
  [[nodiscard]] std::vector<Valore> Celle(std::size_t linea) const;
  void MostraProposte();
  void MostraRiepilogo();
  void Accetta();
  void VaiAllaProssima(int riga);
  void VediScadenza();
  [[nodiscard]] const duedates::LineaEstratto* LineaCorrente() const;
  [[nodiscard]] duedates::OpzioniAbbinamento Opzioni(const std::string& cfp) const;
  [[nodiscard]] Ambiente& Sessione() const { return gestore.Sessione(); }

  FinestraEstrattoBanca& finestra;
  Finestre& gestore;
  duedates::EstrattoBanca estratto;
  duedates::AbbinamentoBanca abbinamento;
  QString fileAperto;
  std::vector<duedates::PropostaBanca>
      migliori;  ///< the surest one a line; without due dates for none
  std::vector<duedates::PropostaBanca> proposte;  ///< of the current line

  CampoTesto* file;
  QPushButton* sfoglia;
  std::vector<QComboBox*> colonne;  ///< one a field of CampiEstratto
  CampoCodice* contropartita;
  QCheckBox* soloAperte;
  Griglia* linee = nullptr;
  Griglia* possibili = nullptr;
  QLabel* riepilogo;
  QPushButton* scartate;
  QPushButton* salta;
  QPushButton* accetta;
};

FinestraEstrattoBanca::Interno::Interno(FinestraEstrattoBanca& finestraUsata,
                                        Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      estratto(gestoreUsato.Sessione()),
      abbinamento(gestoreUsato.Sessione()),
      file(new CampoTesto(QStringLiteral("File"), nullptr, 4096)),
      sfoglia(Pulsante(QStringLiteral("Sfoglia"), tr("Sfoglia..."))),
      contropartita(new CampoCodice(QStringLiteral("Contropartita"),
                                    archives::FonteContropartite(gestoreUsato.Sessione(), "P"))),
      soloAperte(new QCheckBox(tr("solo i movimenti da abbinare"))),
      riepilogo(new QLabel),
      scartate(Pulsante(QStringLiteral("Scartate"), tr("Righe non lette"))),
      salta(Pulsante(QStringLiteral("Salta"), tr("Passa al prossimo"))),
      accetta(Pulsante(QStringLiteral("Accetta"), tr("Accetta la proposta"), tr("Ctrl+Invio"))) {
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(CreaFile());
  colonna->addLayout(CreaColonne());
  colonna->addLayout(CreaImpostazioni());
  colonna->addWidget(CreaGriglie(), 1);
  colonna->addLayout(CreaPiede());
  AssegnaMnemoniche({sfoglia, scartate, salta, accetta});
  Collega();
  MostraColonne();
  MostraProposte();
  MostraRiepilogo();
}

QLayout* FinestraEstrattoBanca::Interno::CreaFile() {
  file->setPlaceholderText(tr("estratto conto in formato .csv, come lo dà la banca"));
  auto* riga = new QHBoxLayout;
  Affianca(*riga, tr("File"), file, 1);
  riga->addWidget(sfoglia);
  return riga;
}

QLayout* FinestraEstrattoBanca::Interno::CreaColonne() {
  constexpr int kCaratteri = 7;
  auto* riga = new QHBoxLayout;
  for (const archives::CampoImporta& campo : duedates::CampiEstratto()) {
    auto* scelta = new QComboBox;
    scelta->setObjectName(QStringLiteral("Colonna") + Qs(campo.nome));
    scelta->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    scelta->setMinimumContentsLength(kCaratteri);
    Affianca(*riga, Qs(campo.didascalia), scelta, 1);
    colonne.push_back(scelta);
  }
  return riga;
}

QLayout* FinestraEstrattoBanca::Interno::CreaImpostazioni() {
  constexpr int kCifre = 12;
  const auto impostate =
      duedates::LeggiImpostazioni(Sessione(), duedates::FinestraPagamento::Scadenzario, "C");
  contropartita->Mostra(Valore(impostate.contropartita));
  contropartita->Risolvi();
  soloAperte->setObjectName(QStringLiteral("SoloDaAbbinare"));
  auto* riga = new QHBoxLayout;
  riga->addWidget(Didascalia(tr("Conto della banca"), contropartita));
  riga->addWidget(ConDescrizione(contropartita, kCifre), 1);
  auto* nota = new EtichettaElisa;
  nota->setText(
      tr("causali e conto arrotondamenti: quelli di «Registrazione Pagamenti» per clienti e "
         "fornitori"));
  nota->setObjectName(QStringLiteral("NotaImpostazioni"));
  riga->addWidget(nota, 1);
  riga->addSpacing(Misura(Passo::Gruppo));
  riga->addWidget(soloAperte);
  return riga;
}

QWidget* FinestraEstrattoBanca::Interno::CreaGriglie() {
  constexpr int kParteLinee = 3;
  constexpr int kParteProposte = 2;
  linee = new Griglia(QStringLiteral("GrigliaLinee"), finestra.Nome(),
                      {{tr("Riga"), Tipo::Intero, 55},
                       {tr("Data"), Tipo::Data, 90},
                       {tr("Importo"), Tipo::Importo, 110},
                       {tr("Descrizione"), Tipo::Testo, 430},
                       {tr("Stato"), Tipo::Testo, 120},
                       {tr("Proposta"), Tipo::Testo, 300}});
  linee->QuandoVuota(
      QObject::tr("nessuna riga: scegliere con Sfoglia il file dell'estratto conto"));
  possibili = new Griglia(QStringLiteral("GrigliaProposte"), finestra.Nome(),
                          {{tr("Codice"), Tipo::Testo, 80},
                           {tr("Cliente/fornitore"), Tipo::Testo, 230},
                           {tr("Scadenze"), Tipo::Testo, 340},
                           {tr("Da saldare"), Tipo::Importo, 110},
                           {tr("Arrotondamento"), Tipo::Importo, 110},
                           {tr("Perché"), Tipo::Testo, 280}});
  possibili->QuandoVuota(QObject::tr("nessuna proposta per la riga scelta"));
  auto* sotto = new QWidget;
  auto* colonna = new QVBoxLayout(sotto);
  colonna->setContentsMargins(0, 0, 0, 0);
  Affianca(*colonna, tr("Che cosa può saldare il movimento scelto"), possibili, 1);
  auto* tutto = new QSplitter(Qt::Vertical);
  tutto->setChildrenCollapsible(false);
  tutto->addWidget(linee);
  tutto->addWidget(sotto);
  tutto->setStretchFactor(0, kParteLinee);
  tutto->setStretchFactor(1, kParteProposte);
  return tutto;
}

QLayout* FinestraEstrattoBanca::Interno::CreaPiede() {
  riepilogo->setObjectName(QStringLiteral("Riepilogo"));
  auto* riga = new QHBoxLayout;
  riga->addWidget(riepilogo, 1);
  for (auto* pulsante : {scartate, salta, accetta}) riga->addWidget(pulsante);
  return riga;
}

void FinestraEstrattoBanca::Interno::Collega() {
  auto* f = &finestra;
  connect(file, &QLineEdit::editingFinished, f, [this] {
    if (file->text().trimmed() != fileAperto) Apri();
  });
  connect(sfoglia, &QPushButton::clicked, f, [this] { Sfoglia(); });
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    connect(colonne[i], &QComboBox::currentIndexChanged, f,
            [this, i](int scelta) { CambiaColonna(i, scelta); });
  }
  connect(soloAperte, &QCheckBox::toggled, f, [this] { MostraLinee(); });
  connect(linee->selectionModel(), &QItemSelectionModel::currentRowChanged, f,
          [this] { MostraProposte(); });
  connect(possibili, &Griglia::RigaDoppioClic, f, [this] { VediScadenza(); });
  connect(scartate, &QPushButton::clicked, f, [this] {
    std::string testo = "Righe dell'estratto conto che non si sono potute leggere:";
    const auto& tutte = estratto.Scartate();
    for (std::size_t i = 0; i < std::min(tutte.size(), kScartateDette); ++i) {
      testo += "\nriga " + std::to_string(tutte[i].linea) + ": " + tutte[i].motivo;
    }
    if (tutte.size() > kScartateDette) {
      testo += "\n... e altre " + std::to_string(tutte.size() - kScartateDette);
    }
    Sessione().Dialogo().Messaggio(testo);
  });
  connect(salta, &QPushButton::clicked, f, [this] { VaiAllaProssima(linee->RigaCorrente()); });
  connect(accetta, &QPushButton::clicked, f, [this] { Accetta(); });
}

void FinestraEstrattoBanca::Interno::Sfoglia() {
  const auto scelto = Sessione().Dialogo().ScegliFile("Estratto conto della banca", ModoFile::Apri,
                                                      "Tabelle (*.csv *.txt)");
  if (!scelto) return;
  file->setText(Qs(scelto->string()));
  Apri();
}

void FinestraEstrattoBanca::Interno::Apri() {
  fileAperto = file->text().trimmed();
  if (fileAperto.isEmpty()) return;
  const auto aperto = estratto.Apri(fileAperto.toStdString());
  if (!aperto) {
    Sessione().Dialogo().Messaggio(aperto.Errore().messaggio, Icona::Avviso);
    return;
  }
  MostraColonne();
  Leggi();
}

void FinestraEstrattoBanca::Interno::MostraColonne() {
  const auto& campi = duedates::CampiEstratto();
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    const QSignalBlocker muta(colonne[i]);
    colonne[i]->clear();
    colonne[i]->addItem(tr("(nessuna)"));
    colonne[i]->setEnabled(estratto.Aperto());
    if (!estratto.Aperto()) continue;
    for (const auto& nome : estratto.Tabella().nomi) colonne[i]->addItem(Qs(nome));
    const auto dove = estratto.Abbinamenti().Colonna(campi[i].nome);
    colonne[i]->setCurrentIndex(dove ? static_cast<int>(*dove) + 1 : 0);
  }
}

void FinestraEstrattoBanca::Interno::CambiaColonna(std::size_t campo, int scelta) {
  auto& abbinamenti = estratto.Abbinamenti();
  const std::string& nome = duedates::CampiEstratto()[campo].nome;
  if (scelta > 0) {
    abbinamenti.Abbina(static_cast<std::size_t>(scelta - 1), nome);
  } else if (const auto dove = abbinamenti.Colonna(nome)) {
    abbinamenti.Abbina(*dove, "");
  }
  MostraColonne();
  Leggi();
}

void FinestraEstrattoBanca::Interno::Leggi() {
  const auto letto = estratto.Leggi();
  if (!letto) Sessione().Dialogo().Messaggio(letto.Errore().messaggio, Icona::Avviso);
  Proponi();
  MostraLinee();
  VaiAllaProssima(-1);
}

void FinestraEstrattoBanca::Interno::Proponi() {
  migliori.assign(estratto.Linee().size(), {});
  if (migliori.empty() || !abbinamento.Prepara()) return;
  const auto avanzamento = Sessione().Dialogo().Avvia("Ricerca delle scadenze dei movimenti",
                                                      static_cast<std::int64_t>(migliori.size()));
  for (std::size_t i = 0; i < migliori.size(); ++i) {
    if (i % kPasso == 0 && !avanzamento->Avanza(static_cast<std::int64_t>(i))) return;
    const duedates::LineaEstratto& linea = estratto.Linee()[i];
    if (abbinamento.GiaAbbinata(linea)) continue;
    auto trovate = abbinamento.Proponi(linea);
    if (!trovate.empty()) migliori[i] = std::move(trovate.front());
  }
}

std::vector<Valore> FinestraEstrattoBanca::Interno::Celle(std::size_t indice) const {
  const duedates::LineaEstratto& linea = estratto.Linee()[indice];
  const duedates::PropostaBanca& prima = migliori[indice];
  const bool gia = abbinamento.GiaAbbinata(linea);
  const std::string stato = gia                      ? "già registrato"
                            : prima.scadenze.empty() ? "nessuna proposta"
                                                     : "da abbinare";
  const std::string proposta =
      gia || prima.scadenze.empty() ? "" : prima.conto + " " + prima.nome + ": " + Fatture(prima);
  return {static_cast<std::int64_t>(linea.linea),
          linea.data,
          linea.importo,
          linea.descrizione,
          stato,
          proposta,
          static_cast<std::int64_t>(indice)};
}

void FinestraEstrattoBanca::Interno::MostraLinee() {
  std::vector<std::vector<Valore>> righe;
  for (std::size_t i = 0; i < estratto.Linee().size(); ++i) {
    const bool aperta = !abbinamento.GiaAbbinata(estratto.Linee()[i]);
    if (aperta || !soloAperte->isChecked()) righe.push_back(Celle(i));
  }
  linee->Modello().Righe(std::move(righe));
  MostraProposte();
  MostraRiepilogo();
}

const duedates::LineaEstratto* FinestraEstrattoBanca::Interno::LineaCorrente() const {
  const int riga = linee->RigaCorrente();
  if (riga < 0 || riga >= linee->Modello().rowCount()) return nullptr;
  const auto indice = static_cast<std::size_t>(linee->Modello().Riga(riga)[kIndiceLinea].Intero());
  return &estratto.Linee()[indice];
}

void FinestraEstrattoBanca::Interno::MostraProposte() {
  proposte.clear();
  const duedates::LineaEstratto* linea = LineaCorrente();
  if (linea != nullptr && !abbinamento.GiaAbbinata(*linea)) proposte = abbinamento.Proponi(*linea);
  std::vector<std::vector<Valore>> righe;
  righe.reserve(proposte.size());
  for (const duedates::PropostaBanca& p : proposte) {
    righe.push_back({p.conto, p.nome, Fatture(p), p.Residuo(), p.arrotondamento, p.motivo});
  }
  possibili->Modello().Righe(std::move(righe));
  if (!proposte.empty()) possibili->VaiARiga(0);
  accetta->setEnabled(!proposte.empty());
  salta->setEnabled(linea != nullptr);
}

void FinestraEstrattoBanca::Interno::MostraRiepilogo() {
  scartate->setEnabled(!estratto.Scartate().empty());
  if (!estratto.Aperto()) {
    riepilogo->setText(tr("Scegliere il file dell'estratto conto"));
    return;
  }
  std::size_t gia = 0;
  std::size_t daAbbinare = 0;
  for (std::size_t i = 0; i < migliori.size(); ++i) {
    if (abbinamento.GiaAbbinata(estratto.Linee()[i])) {
      ++gia;
    } else if (!migliori[i].scadenze.empty()) {
      ++daAbbinare;
    }
  }
  riepilogo->setText(tr("%1 movimenti: %2 già registrati, %3 con una proposta, %4 senza;  %5 righe "
                        "non lette")
                         .arg(migliori.size())
                         .arg(gia)
                         .arg(daAbbinare)
                         .arg(migliori.size() - gia - daAbbinare)
                         .arg(estratto.Scartate().size()));
}

duedates::OpzioniAbbinamento FinestraEstrattoBanca::Interno::Opzioni(const std::string& cfp) const {
  const auto impostate =
      duedates::LeggiImpostazioni(Sessione(), duedates::FinestraPagamento::Scadenzario, cfp);
  return {impostate.causale, contropartita->Codice(), impostate.contoArrotondamenti};
}

void FinestraEstrattoBanca::Interno::Accetta() {
  const duedates::LineaEstratto* linea = LineaCorrente();
  const int scelta = possibili->RigaCorrente();
  if (linea == nullptr || scelta < 0 || scelta >= static_cast<int>(proposte.size())) return;
  contropartita->Risolvi();
  if (!contropartita->text().isEmpty() && !contropartita->Esiste()) {
    Sessione().Dialogo().Messaggio(
        "il conto " + contropartita->text().toStdString() + " non esiste", Icona::Avviso);
    contropartita->setFocus(Qt::OtherFocusReason);
    return;
  }
  const duedates::PropostaBanca proposta = proposte[static_cast<std::size_t>(scelta)];
  if (!abbinamento.Accetta(*linea, proposta, Opzioni(proposta.cfp))) return;
  // Other lines may have had the same due dates proposed.
  for (std::size_t i = 0; i < migliori.size(); ++i) {
    if (migliori[i].conto != proposta.conto || migliori[i].cfp != proposta.cfp) continue;
    auto trovate = abbinamento.Proponi(estratto.Linee()[i]);
    migliori[i] = trovate.empty() ? duedates::PropostaBanca() : std::move(trovate.front());
  }
  const int riga = linee->RigaCorrente();
  MostraLinee();
  VaiAllaProssima(soloAperte->isChecked() ? riga - 1 : riga);
}

void FinestraEstrattoBanca::Interno::VaiAllaProssima(int riga) {
  const int righe = linee->Modello().rowCount();
  for (int passo = 1; passo <= righe; ++passo) {
    const int quale = (riga + passo) % righe;
    if (linee->Modello().Riga(quale)[kColonnaStato].Testo() == "da abbinare") {
      linee->VaiARiga(quale);
      linee->setFocus();
      return;
    }
  }
  if (righe > 0) linee->VaiARiga(std::clamp(riga, 0, righe - 1));
}

void FinestraEstrattoBanca::Interno::VediScadenza() {
  const int scelta = possibili->RigaCorrente();
  if (scelta < 0 || scelta >= static_cast<int>(proposte.size())) return;
  const auto numero = proposte[static_cast<std::size_t>(scelta)].scadenze.front().numero;
  gestore.Segui(AlNumero("Scadenze", numero));
}

FinestraEstrattoBanca::FinestraEstrattoBanca(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("AbbinaEstratto"), tr("Abbinamento estratto conto bancario"),
                       finestre),
      interno_(std::make_unique<Interno>(*this, finestre)) {}

FinestraEstrattoBanca::~FinestraEstrattoBanca() = default;

void FinestraEstrattoBanca::Aggiorna() {
  if (!interno_->estratto.Aperto()) return;
  interno_->Proponi();
  interno_->MostraLinee();
}

bool FinestraEstrattoBanca::PremiConferma() {
  return Premi({"Accetta"});
}

}  // namespace fenalto::screens
