#include "screens/duedates/RiquadroScadenza.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/schedules/ArchivioScadenze.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/duedates/CampiScadenza.h"
#include "screens/ledger/FontiForma.h"

namespace fenalto::screens {
namespace {

using records::CampoForma;
using Genere = records::GenereCampo;

constexpr const char* kFattura = "FrameFattura";
constexpr const char* kRiba = "FrameRiba";

void AggiungiScadenza(std::vector<CampoForma>& campi) {
  constexpr const char* kRiquadro = "FrameScadenza";
  constexpr int kParte = 11;
  constexpr int kImporto = 13;
  const std::vector<CampoForma> suoi = {
      {.nome = "CFP",
       .didascalia = "Cliente/fornitore",
       .genere = Genere::Elenco,
       .scelte = {{.valore = "C"}, {.valore = "F"}},
       .suggerimento = "C cliente, F fornitore"},
      {.nome = "Conto",
       .caratteri = kParte,
       .genere = Genere::Codice,
       .fonte = DaConti("C"),
       .accanto = true,
       .peso = 1},
      {.nome = "Dt", .didascalia = "Data scadenza"},
      {.nome = "Tipo",
       .didascalia = "Tipo",
       .caratteri = 5,
       .genere = Genere::Codice,
       .fonte = DaTipiPagamento(),
       .accanto = true,
       .suggerimento = "03 ricevuta bancaria; negli altri casi è solo un'indicazione",
       .peso = 1},
      {.nome = "Stato",
       .didascalia = "Stato",
       .caratteri = 2,
       .nota = kStati,
       .accanto = true,
       .mostrati = 3,
       .suggerimento = kStati},
      {.nome = "ImportoE", .didascalia = "Importo", .caratteri = kImporto},
      {.nome = "ImportoPagatoE", .didascalia = "Pagato", .caratteri = kImporto, .accanto = true},
      {.nome = "DtPag", .didascalia = "il", .accanto = true},
      {.nome = "anticipo",
       .didascalia = "anticipo su fattura da emettere o ricevere",
       .accanto = true},
      {.nome = "Descrizione", .didascalia = "Descrizione", .caratteri = 64, .peso = 1},
      {.nome = "Pagamento",
       .didascalia = "Pagamento",
       .caratteri = kParte,
       .genere = Genere::Codice,
       .fonte = DaPagamenti(),
       .peso = 1}};
  for (CampoForma campo : suoi) {
    campo.riquadro = kRiquadro;
    campi.push_back(std::move(campo));
  }
}

CampoForma DiFattura(const char* nome, const char* didascalia, int colonna, int caratteri = 0) {
  return {.nome = nome,
          .didascalia = didascalia,
          .caratteri = caratteri,
          .riquadro = kFattura,
          .colonna = colonna};
}

records::DescrizioneForma FormaScadenza() {
  constexpr int kNumero = 7;
  records::DescrizioneForma forma;
  AggiungiScadenza(forma.campi);
  forma.riquadri = {{.nome = "FrameScadenza", .titolo = "Scadenza", .largo = true},
                    {.nome = kFattura, .titolo = "Fattura e registrazione"},
                    {.nome = kRiba, .titolo = "Dati riba"}};
  CampoForma programma = DiFattura("Programma", "Scritta da", 0);
  programma.genere = Genere::Etichetta;
  programma.suggerimento = "chi ha scritto la scadenza";
  const std::vector<CampoForma> altri = {
      DiFattura("NFat", "Fattura n.", 0, kNumero),
      DiFattura("DtFat", "del", 1),
      DiFattura("Riva", "Registro iva", 0, 6),
      DiFattura("NProt", "Protocollo", 1, kNumero),
      DiFattura("Articolo", "Registrazione n.", 0, kNumero),
      DiFattura("Anno", "anno", 1, kNumero),
      programma,
      {.nome = "BancaPresentaz",
       .didascalia = "Banca",
       .caratteri = 5,
       .genere = Genere::Codice,
       .fonte = DaBanche(),
       .riquadro = kRiba,
       .peso = 1},
      {.nome = "Ndistinta", .didascalia = "Distinta n.", .caratteri = kNumero, .riquadro = kRiba},
      {.nome = "DtPres", .didascalia = "Presentata il", .riquadro = kRiba}};
  forma.campi.insert(forma.campi.end(), altri.begin(), altri.end());
  return forma;
}

}  // namespace

RiquadroScadenza::RiquadroScadenza(duedates::ArchivioScadenze& caso, Finestre& finestre,
                                   bool parteData, QWidget* genitore)
    : QWidget(genitore),
      caso_(caso),
      finestre_(finestre),
      parteData_(parteData),
      legatura_(new Legatura([this]() -> Scheda& { return caso_.Record(); },
                             finestre.Sessione().Dialogo(), this)),
      conferma_(Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"))),
      elimina_(Pulsante(QStringLiteral("Elimina"), tr("Elimina"), tr("Ctrl+Canc"))),
      ripristina_(Pulsante(QStringLiteral("CmdRipristina"), tr("Ripristina come non pagata"))),
      vedi_(Pulsante(QStringLiteral("VedereRegCont"), tr("Vedere la fattura"))),
      annulla_(Pulsante(QStringLiteral("Annulla"), tr("Abbandona"), tr("Esc"))) {
  auto* colonna = new QVBoxLayout(this);
  auto* campi = new QVBoxLayout;
  campi_ = new CampiForma(finestre.Sessione(), FormaScadenza(), {legatura_}, *campi);
  campi_->setParent(this);
  colonna->addLayout(campi);
  colonna->addWidget(CreaPiede());
  colonna->addStretch(1);
  legatura_->Rinuncia(annulla_);
  AssegnaMnemoniche({conferma_, elimina_, ripristina_, vedi_, annulla_});
  Collega();
}

QWidget* RiquadroScadenza::CreaPiede() {
  auto* piede = new QWidget;
  auto* fila = new QHBoxLayout(piede);
  fila->setContentsMargins(0, 0, 0, 0);
  fila->addWidget(vedi_);
  fila->addWidget(ripristina_);
  fila->addStretch(1);
  for (auto* pulsante : {conferma_, elimina_, annulla_}) fila->addWidget(pulsante);
  return piede;
}

void RiquadroScadenza::Collega() {
  connect(campi_, &CampiForma::EventoLibero, this,
          [this](const QString& tabella, const QString& codice) {
            finestre_.ApreFormDaEvLibero(tabella, codice);
          });
  connect(legatura_, &Legatura::Lasciato, this, [this](const QString& campo, bool cambiato) {
    if (cambiato && campo == QStringLiteral("CFP")) MostraStato();
  });
  connect(conferma_, &QPushButton::clicked, this, &RiquadroScadenza::Conferma);
  connect(elimina_, &QPushButton::clicked, this, [this] {
    if (caso_.Elimina()) emit Conclusa();
  });
  connect(ripristina_, &QPushButton::clicked, this, [this] {
    if (!legatura_->Raccogli() || !caso_.Ripristina()) return;
    Mostra();
    emit Ripristinata();
  });
  connect(vedi_, &QPushButton::clicked, this, &RiquadroScadenza::RegistrazioneChiesta);
  connect(annulla_, &QPushButton::clicked, this, &RiquadroScadenza::AbbandonoChiesto);
}

void RiquadroScadenza::MostraStato() {
  const auto stato = [this](const std::string& nome) {
    records::StatoCampo suo;
    if (nome != "CFP" && nome != "Conto") return suo;
    suo.attivo = !parteData_;
    // The code's search follows the class.
    if (nome == "Conto") suo.fonte = DaConti(caso_.Record().Testo("CFP"));
    return suo;
  };
  campi_->Applica(stato, !caso_.Aperta() || caso_.SolaLettura());
}

void RiquadroScadenza::Mostra() {
  MostraStato();
  legatura_->Mostra();
  const bool scrivibile = caso_.Aperta() && !caso_.SolaLettura();
  vedi_->setEnabled(caso_.Aperta());
  conferma_->setEnabled(scrivibile);
  elimina_->setEnabled(scrivibile && !caso_.Nuova());
  ripristina_->setEnabled(caso_.Ripristinabile());
}

void RiquadroScadenza::DaiFoco(const std::string& campo) {
  const char* primo = caso_.Nuova() && !parteData_ ? "Conto" : "Dt";
  auto* controllo = findChild<QWidget*>(campo.empty() ? QString::fromLatin1(primo)
                                                      : QString::fromStdString(campo));
  if (controllo == nullptr || !controllo->isEnabled()) controllo = annulla_;
  controllo->setFocus(Qt::OtherFocusReason);
}

bool RiquadroScadenza::Raccogli() {
  return legatura_->Raccogli();
}

bool RiquadroScadenza::Pendente() const {
  return legatura_->Pendente();
}

void RiquadroScadenza::Conferma() {
  if (!legatura_->Raccogli()) return;
  std::string campo;
  if (caso_.Conferma(&campo)) {
    emit Conclusa();
    return;
  }
  Mostra();
  if (!campo.empty()) DaiFoco(campo);
}

}  // namespace fenalto::screens
