#include "screens/ledger/RiquadroRiga.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/ledger/FontiForma.h"

namespace fenalto::screens {
namespace {

using records::CampoForma;
using Genere = records::GenereCampo;

constexpr const char* kControp = "FrameControp";

/// A class of account: typed or picked.
CampoForma Classe(const char* nome, const char* riquadro) {
  return {.nome = nome,
          .didascalia = "C/F/P",
          .genere = Genere::Combinata,
          .scelte = {{"P"}, {"C"}, {"F"}},
          .riquadro = riquadro,
          .suggerimento = "P conto, C cliente, F fornitore"};
}

/// A code that shares the room of its pair of the grid, or of its line.
CampoForma Codice(const char* nome, const char* didascalia, records::FonteCampo fonte,
                  const char* riquadro = "") {
  constexpr int kCaratteri = 13;
  return {.nome = nome,
          .didascalia = didascalia,
          .caratteri = kCaratteri,
          .genere = Genere::Codice,
          .fonte = std::move(fonte),
          .riquadro = riquadro,
          .accanto = *riquadro != 0,
          .colonna = 1,
          .peso = 3};
}

CampoForma DiImporto(const char* nome, const char* didascalia, int colonna) {
  return {.nome = nome,
          .didascalia = didascalia,
          .caratteri = 14,
          .decimali = records::kDecimaliMoneta,
          .colonna = colonna};
}

records::DescrizioneForma FormaRiga() {
  CampoForma causale = Codice("Causale", "Causale", DaCausali());
  // One proposed by the program counts too when it is just passed through.
  causale.anchePassando = true;
  return {.campi = {{.nome = "Posi", .didascalia = "Posizione", .caratteri = 7},
                    std::move(causale),
                    {.nome = "Descrizione",
                     .didascalia = "Descrizione",
                     .colonna = 2,
                     .colonne = 2,
                     .peso = 2},
                    Classe("CFP", ""),
                    Codice("Conto", "Conto", DaConti()),
                    DiImporto("ImpoDare", "Dare", 2),
                    DiImporto("ImpoAvere", "Avere", 3),
                    Classe("CFPControp", kControp),
                    Codice("ContoControp", "Conto", DaContropartite(), kControp),
                    {.nome = "DiversiControp",
                     .didascalia = "+diversi",
                     .riquadro = kControp,
                     .accanto = true},
                    {.nome = "Categoria",
                     .didascalia = "Categoria",
                     .caratteri = 7,
                     .genere = Genere::Codice,
                     .fonte = DaCategorie(),
                     .colonna = 2,
                     .colonne = 2,
                     .peso = 2},
                    {.nome = "Commessa", .didascalia = "Commessa", .mostrati = 14, .colonna = 2}},
          .riquadri = {{.nome = kControp, .titolo = "Contropartita", .colonne = 2, .righe = 2}},
          .stretta = true};
}

}  // namespace

RiquadroRiga::RiquadroRiga(ledger::Primanota& primanota, Finestre& finestre, QWidget* genitore)
    : RiquadroSul(primanota, finestre, genitore),
      visSaldo_(Pulsante(QStringLiteral("VisSaldo"), tr("visualizza saldo"))) {
  auto& colonna = Compila(FormaRiga());
  auto* piede = new QHBoxLayout;
  piede->addWidget(quale_);
  piede->addWidget(CreaSaldo());
  piede->addStretch(1);
  for (auto* pulsante : {visSaldo_, conferma_, elimina_, annulla_}) piede->addWidget(pulsante);
  colonna.addLayout(piede);
  OrdinaFuochi(campi_->Ordine() + QList<QWidget*>{conferma_, elimina_, annulla_, visSaldo_});
  connect(visSaldo_, &QPushButton::clicked, this, &RiquadroRiga::VisSaldo);
}

QFrame* RiquadroRiga::CreaSaldo() {
  saldo_ = new QFrame;
  saldo_->setObjectName(QStringLiteral("FrameSaldo"));
  auto* riga = new QHBoxLayout(saldo_);
  riga->setContentsMargins(0, 0, 0, 0);
  const struct {
    const char* nome;
    QString testo;
  } valori[] = {{"SaldoIniz", tr("s.do iniz.")},
                {"SaldoDare", tr("dare")},
                {"SaldoAvere", tr("avere")},
                {"Saldo", tr("saldo")}};
  for (std::size_t i = 0; i < std::size(valori); ++i) {
    auto* valore = new QLabel;
    valore->setObjectName(QString::fromLatin1(valori[i].nome));
    valore->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    valore->setTextInteractionFlags(Qt::TextSelectableByMouse);
    valoriSaldo_[i] = valore;
    auto* didascalia = new QLabel(valori[i].testo);
    riga->addWidget(didascalia);
    riga->addWidget(valore);
  }
  saldo_->hide();
  return saldo_;
}

QList<QAbstractButton*> RiquadroRiga::Pulsanti() const {
  return RiquadroDiRiga::Pulsanti() << visSaldo_;
}

records::StatoCampo RiquadroRiga::Stato(const std::string& nome) const {
  const auto& riga = caso_.Riga();
  if (nome == "Conto") return {.fonte = DaConti(riga.Testo("CFP"))};
  if (nome == "ContoControp") return {.fonte = DaContropartite(riga.Testo("CFPControp"))};
  if (nome != kControp) return {};
  const bool automatiche = caso_.ContropAutomatiche();
  return {.attivo = !automatiche,
          .suggerimento = automatiche ? "la calcola il programma: togliere \"contropartite "
                                        "automatiche\" per scriverla a mano"
                                      : ""};
}

void RiquadroRiga::RigaLasciata(const std::string& campo) {
  RiquadroSul::RigaLasciata(campo);
  if (campo == "Conto" || campo == "CFP") saldo_->hide();
}

void RiquadroRiga::Entra() {
  saldo_->hide();
  RiquadroSul::Entra();
}

bool RiquadroRiga::ConfermaRiga(std::string& campo) {
  if (caso_.ConfermaRiga()) return true;
  Mostra();
  for (const char* codice : {"Causale", "Conto"}) {
    if (campo.empty() && !campi_->Codice(codice).Esiste()) campo = codice;
  }
  return false;
}

void RiquadroRiga::VisSaldo() {
  if (!legatura_->Raccogli()) return;
  const auto saldo = caso_.VisSaldo();
  saldo_->setVisible(saldo.has_value());
  if (!saldo) {
    campi_->Controllo("Conto").setFocus();
    return;
  }
  constexpr int kPicture = 15;
  const bool euro = finestre_.Sessione().Euro();
  const Importo valori[] = {saldo->saldoIniziale, saldo->totaleDare, saldo->totaleAvere,
                            saldo->Finale()};
  for (std::size_t i = 0; i < std::size(valori); ++i) {
    valoriSaldo_[i]->setText(
        QString::fromStdString(PictureImporto(valori[i], kPicture, euro)).trimmed());
  }
}

}  // namespace fenalto::screens
