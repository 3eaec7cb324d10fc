#include "runner/Banco.h"

#include <QApplication>
#include <QSettings>
#include <array>

#include "runner/Eventi.h"

namespace fenalto::copione {
namespace {

/// The toolkit, up for all tests and down before the process ends.
class AmbienteQt : public ::testing::Environment {
 public:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    applicazione_ = std::make_unique<QApplication>(argc_, argv_.data());
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override { applicazione_.reset(); }

 private:
  std::string nome_ = "banco";
  std::array<char*, 2> argv_{nome_.data(), nullptr};
  int argc_ = 1;
  std::unique_ptr<QApplication> applicazione_;
};

const auto* const kAmbienteQt = ::testing::AddGlobalTestEnvironment(new AmbienteQt);

}  // namespace

void Banco::SetUp() {
  ASSERT_NE(kAmbienteQt, nullptr);
  cartella = std::make_unique<CartellaProvvisoria>();
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     Qs((cartella->Percorso() / "impostazioni").string()));
  OpzioniAmbiente opzioni;
  opzioni.cartellaProgramma = cartella->Percorso() / "programma";
  opzioni.cartellaDati = FENALTO_DATA;
  opzioni.stazione = "banco";
  opzioni.copie = false;
  const auto riempita = Riempi(opzioni);
  ASSERT_TRUE(riempita) << riempita.Errore().messaggio;
  programma = std::make_unique<Programma>(opzioni, "Prova", 2024);
  programma->Avvia();
  scena = std::make_unique<Scena>(*programma);
  contesto = std::make_unique<Contesto>(Contesto{*programma, *scena, cartella->Percorso(), {}, 0});
  finestra = new QWidget;
  finestra->setObjectName(QStringLiteral("Prova"));
  finestra->resize(600, 500);
}

void Banco::TearDown() {
  delete finestra;
  contesto.reset();
  scena.reset();
  programma.reset();
}

void Banco::Mostra() {
  finestra->show();
  Attiva(*finestra);
  SmaltisciEventi();
  scena->PortaAvanti(*finestra);
}

std::string Banco::Corri(const std::string& testo) {
  const auto comandi = LeggiTesto(testo, "banco");
  if (!comandi) return "illeggibile: " + comandi.Errore().testo;
  for (const auto& comando : comandi.Valore()) {
    contesto->scadenza = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    contesto->dialoghiPrima = programma->dialoghi.Mostrati();
    try {
      VoceDiComando(comando.nome)->esegui(*contesto, comando);
      contesto->Attendi();
      scena->Aggiorna();
    } catch (const std::exception& errore) {
      return std::to_string(comando.riga) + ": " + errore.what();
    }
  }
  return "";
}

}  // namespace fenalto::copione
