#include "screens/duedates/RiquadroScadenza.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/archives/FonteCodici.h"
#include "duedates/schedules/ArchivioScadenze.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/duedates/CampiScadenza.h"

namespace fenalto::screens {
namespace {

using records::CampoForma;
using records::DiCodice;
using records::Digitato;
using Genere = records::GenereCampo;

constexpr int kParte = 11;
constexpr int kImporto = 13;
constexpr int kNumero = 7;
constexpr const char* kScadenza = "FrameScadenza";
constexpr const char* kFattura = "FrameFattura";
constexpr const char* kRiba = "FrameRiba";

CampoForma DiFattura(const char* nome, const char* didascalia, int colonna, int caratteri = 0) {
  return Digitato(nome, didascalia, caratteri).In(kFattura).Colonna(colonna);
}

records::DescrizioneForma FormaScadenza() {
  return {.campi = {Digitato("CFP", "Cliente/fornitore")
                        .Di(Genere::Elenco)
                        .Scelte({{.valore = "C"}, {.valore = "F"}})
                        .Aiuto("C cliente, F fornitore")
                        .In(kScadenza),
                    DiCodice("Conto", "", "clienti", kParte).In(kScadenza).Accanto().Peso(1),
                    Digitato("Dt", "Data scadenza").In(kScadenza),
                    DiCodice("Tipo", "Tipo", "tipiPagamento", 5)
                        .In(kScadenza)
                        .Accanto()
                        .Aiuto("03 ricevuta bancaria; negli altri casi è solo un'indicazione")
                        .Peso(1),
                    Digitato("Stato", "Stato", 2)
                        .Mostra(3)
                        .Aiuto(kStati)
                        .Nota(kStati)
                        .In(kScadenza)
                        .Accanto(),
                    Digitato("ImportoE", "Importo", kImporto).In(kScadenza),
                    Digitato("ImportoPagatoE", "Pagato", kImporto).In(kScadenza).Accanto(),
                    Digitato("DtPag", "il").In(kScadenza).Accanto(),
                    Digitato("anticipo", "anticipo su fattura da emettere o ricevere")
                        .In(kScadenza)
                        .Accanto(),
                    Digitato("Descrizione", "Descrizione", 64).In(kScadenza).Peso(1),
                    DiCodice("Pagamento", "Pagamento", "pagamenti", kParte).In(kScadenza).Peso(1),
                    DiFattura("NFat", "Fattura n.", 0, kLunghezzaFattura).Mostra(kCifreFattura),
                    DiFattura("DtFat", "del", 1),
                    DiFattura("Riva", "Registro iva", 0, 6).Mostra(kNumero),
                    DiFattura("NProt", "Protocollo", 1, kNumero),
                    DiFattura("Articolo", "Registrazione n.", 0, kNumero),
                    DiFattura("Anno", "anno", 1, kNumero),
                    DiFattura("Programma", "Scritta da", 0)
                        .Di(Genere::Etichetta)
                        .Aiuto("chi ha scritto la scadenza"),
                    DiCodice("BancaPresentaz", "Banca", "banche", 5).In(kRiba).Peso(1),
                    Digitato("Ndistinta", "Distinta n.", kNumero).In(kRiba),
                    Digitato("DtPres", "Presentata il").In(kRiba)},
          .riquadri = {{.nome = kScadenza, .titolo = "Scadenza", .largo = true},
                       {.nome = kFattura, .titolo = "Fattura e registrazione"},
                       {.nome = kRiba, .titolo = "Dati riba", .accanto = true}}};
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
    if (nome == "Conto") suo.fonte = archives::NomeFonteConti(caso_.Record().Testo("CFP"));
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
