#include "screens/ledger/RiquadroRiga.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>

#include "core/archives/FonteCodici.h"
#include "core/reports/DecimaliStampe.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;
using records::DiMoneta;

constexpr const char* kControp = "FrameControp";

/// A class of account: typed or picked.
records::CampoForma Classe(const char* nome) {
  return Digitato(nome, "C/F/P")
      .Di(records::GenereCampo::Combinata)
      .Scelte({{"P"}, {"C"}, {"F"}})
      .Aiuto("P conto, C cliente, F fornitore");
}

records::DescrizioneForma FormaRiga() {
  constexpr int kCodice = 13;
  constexpr int kImporto = 14;
  return {
      .campi =
          {Digitato("Posi", "Posizione", 7),
           // A causal proposed by the program counts too when it is just passed through.
           DiCodice("Causale", "Causale", "causali", kCodice).Colonna(1).Peso(3).AnchePassando(),
           Digitato("Descrizione", "Descrizione").Colonna(2).Colonne(2).Peso(2), Classe("CFP"),
           DiCodice("Conto", "Conto", archives::NomeFonteContiOvunque("P"), kCodice)
               .Colonna(1)
               .Peso(3),
           DiMoneta("ImpoDare", "Dare", kImporto).Colonna(2),
           DiMoneta("ImpoAvere", "Avere", kImporto).Colonna(3), Classe("CFPControp").In(kControp),
           DiCodice("ContoControp", "Conto", "contropartite", kCodice)
               .In(kControp)
               .Accanto()
               .Peso(1),
           Digitato("DiversiControp", "+diversi").In(kControp).Accanto(),
           DiCodice("Categoria", "Categoria", "categorie", 7).Colonna(2).Colonne(2).Peso(2),
           Digitato("Commessa", "Commessa").Mostra(14).Colonna(2)},
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
  auto& conto = campi_->Codice("Conto");
  connect(&conto, &CampoCodice::AltraClasse, this, &RiquadroRiga::PrendiClasse);
  conto.Preferita([this] { return caso_.ClasseDiCausale(); });
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
  if (nome == "Conto") return {.fonte = archives::NomeFonteContiOvunque(riga.Testo("CFP"))};
  if (nome == "ContoControp")
    return {.fonte = archives::NomeFonteContropartite(riga.Testo("CFPControp"))};
  if (nome != kControp) return {};
  const bool automatiche = caso_.ContropAutomatiche();
  return {.attivo = !automatiche,
          .suggerimento = automatiche ? "la calcola il programma: togliere \"contropartite "
                                        "automatiche\" per scriverla a mano"
                                      : ""};
}

void RiquadroRiga::PrendiClasse(const QString& classe) {
  caso_.Riga().Scrivi("CFP", Valore(classe.toStdString()));
  RigaLasciata("CFP");
  dynamic_cast<QComboBox&>(campi_->Controllo("CFP")).setCurrentText(classe);
  campi_->Codice("Conto").Fonte(
      archives::Fonte(finestre_.Sessione(), Stato("Conto").fonte.value()));
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
  return caso_.ConfermaRiga(&campo);
}

void RiquadroRiga::VisSaldo() {
  if (!legatura_->Raccogli()) return;
  const auto saldo = caso_.VisSaldo();
  saldo_->setVisible(saldo.has_value());
  if (!saldo) {
    campi_->Controllo("Conto").setFocus();
    return;
  }
  constexpr const char* kSagoma = "ççççççççççççççç";
  const bool euro = finestre_.Sessione().Euro();
  const reports::DecimaliStampe decimali(finestre_.Sessione());
  const Importo valori[] = {saldo->saldoIniziale, saldo->totaleDare, saldo->totaleAvere,
                            saldo->Finale()};
  for (std::size_t i = 0; i < std::size(valori); ++i) {
    valoriSaldo_[i]->setText(
        QString::fromStdString(decimali.SulPannello(kSagoma, valori[i], euro)).trimmed());
  }
}

}  // namespace fenalto::screens
