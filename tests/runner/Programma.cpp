#include "runner/Programma.h"

#include <QTimer>
#include <algorithm>
#include <filesystem>

#include "core/values/Testo.h"
#include "runner/Eventi.h"
#include "runner/Fallimento.h"

namespace fenalto::copione {
namespace {

/// Longest wait of a window before it does what was asked (a search while typing).
constexpr int kRimandato = 1'000;  // ms

/// A window waits a moment before it goes on: that is work under way, too.
bool HaLavoroRimandato(const QWidget& principale) {
  const auto attese = principale.findChildren<QTimer*>();
  return std::any_of(attese.begin(), attese.end(), [](const QTimer* attesa) {
    return attesa->isActive() && attesa->isSingleShot() && attesa->interval() <= kRimandato;
  });
}

}  // namespace

Programma::Programma(OpzioniAmbiente opzioni, std::string ditta, int anno)
    : opzioni_(std::move(opzioni)), ditta_(std::move(ditta)), anno_(anno) {}

Programma::~Programma() {
  Ferma();
}

void Programma::Ricorda() {
  if (!app_ || !app_->Sessione().DittaAperta()) return;
  ditta_ = app_->Sessione().Ditta();
  anno_ = app_->Sessione().Anno();
}

void Programma::Crea() {
  app_ = std::make_unique<screens::Applicazione>(opzioni_, dialoghi, orologio, caso);
  ++avvii_;
}

void Programma::Mostra() {
  // A screen that doesn't exist has no size to fit: the window is as large as the caller wants it.
  const QStringList lati =
      qEnvironmentVariable("FENALTO_FINESTRA", QStringLiteral("1280x720")).split(QLatin1Char('x'));
  app_->Principale().resize(lati.value(0).toInt(), lati.value(1).toInt());
  app_->Mostra();
  Attiva(app_->Principale());
}

void Programma::AccertaDitta() {
  const auto& sessione = app_->Sessione();
  const auto ditte = sessione.DitteTrovate();
  const bool trovata = std::any_of(ditte.begin(), ditte.end(),
                                   [&](const DittaTrovata& d) { return d.nome == ditta_; });
  if (!trovata) {
    if (ditte.empty()) throw Fallimento("there is no company " + ditta_);
    ditta_ = ditte.front().nome;
    anno_ = 0;
    return;
  }
  const auto anni = sessione.AnniDi(ditta_);
  if (!anni) return;  // opening it tells why
  const auto& lista = anni.Valore();
  if (avvii_ > 1 && std::find(lista.begin(), lista.end(), anno_) == lista.end()) anno_ = 0;
}

void Programma::Avvia() {
  if (app_) return;
  Crea();
  AccertaDitta();
  if (auto esito = app_->AvviaSu(ditta_, anno_); !esito) {
    Ferma();
    throw Fallimento("the company " + ditta_ + " does not open: " + esito.Errore().messaggio);
  }
  if (app_->Sessione().ServeAccesso()) {
    if (!accesso_) {
      Ferma();
      return;
    }
    auto accesso = app_->Sessione().Accedi(accesso_->utente, accesso_->password);
    if (!accesso) {
      Ferma();
      accesso_.reset();
      throw Fallimento("the log-in is refused: " + accesso.Errore().messaggio);
    }
    app_->Principale().MostraSessione();
  }
  Mostra();
}

void Programma::Ferma() {
  if (!app_) return;
  Ricorda();
  app_->Principale().ChiudiTutto();
  SmaltisciEventi();
  app_.reset();
  SmaltisciEventi();
}

void Programma::Riavvia() {
  Ferma();
  Avvia();
}

void Programma::Interrompi() {
  // An end of one's own gives up what is open; what was kept of it is put back, as a kill leaves
  // it.
  const auto bozze = App().Sessione().CartellaDitta() / "Bozze";
  const auto accanto = bozze.parent_path() / ".Bozze";
  std::error_code errore;
  std::filesystem::copy(bozze, accanto, std::filesystem::copy_options::recursive, errore);
  Ferma();
  std::filesystem::remove_all(bozze, errore);
  std::filesystem::rename(accanto, bozze, errore);
  Avvia();
}

void Programma::Accedi(const std::string& utente, const std::string& password) {
  Ferma();
  Crea();
  AccertaDitta();
  if (auto esito = app_->AvviaSu(ditta_, anno_, utente, password); !esito) {
    Ferma();
    throw Fallimento(esito.Errore().messaggio);
  }
  accesso_ = Dialoghi::Credenziali{utente, password};
  Mostra();
}

void Programma::ApriDitta(const std::string& ditta, int anno) {
  if (!app_) {
    Crea();
  } else {
    app_->Principale().ChiudiTutto();
    SmaltisciEventi();
  }
  std::string nome = ditta;
  for (const auto& trovata : app_->Sessione().DitteTrovate()) {
    if (UgualeTesto(trovata.nome, ditta)) nome = trovata.nome;
  }
  if (app_->Sessione().DittaAperta()) {
    dialoghi.Prepara(SceltaDitta{nome, anno}, accesso_);
    app_->Principale().SelezioneArchivi();
    dialoghi.Prepara(std::nullopt, std::nullopt);
    const auto& sessione = app_->Sessione();
    const bool aperta = sessione.DittaAperta() && sessione.Ditta() == nome &&
                        (anno == 0 || sessione.Anno() == anno);
    if (aperta) return;
  }
  // A company that asks for a log-in waits for `utente`; any other refusal is a failure.
  const std::string guasto = dialoghi.PrendiGuasto();
  Ferma();
  const auto primaDitta = std::exchange(ditta_, nome);
  const auto primoAnno = std::exchange(anno_, anno);
  accesso_.reset();
  Crea();
  auto esito = app_->AvviaSu(ditta_, anno_);
  const bool attende = esito && app_->Sessione().ServeAccesso();
  if (esito && !attende && guasto.empty()) {
    Mostra();
    return;
  }
  if (attende) {
    Ferma();
    return;
  }
  app_.reset();
  ditta_ = primaDitta;
  anno_ = primoAnno;
  throw Fallimento(!guasto.empty() ? guasto
                   : !esito        ? esito.Errore().messaggio
                                   : "the company " + nome + " did not open");
}

bool Programma::HaChiestoFine() const {
  return app_ && (app_->FineChiesta() || app_->Principale().isHidden());
}

void Programma::Termina() {
  if (!app_) throw Fallimento(std::string("the program does not run"));
  if (!HaChiestoFine()) throw Fallimento(std::string("the program has not asked to end"));
  Ferma();
}

screens::Applicazione& Programma::App() {
  if (!app_) Avvia();
  if (!app_) {
    throw Fallimento("the company " + ditta_ + " has users: `utente NAME PASSWORD` must log in");
  }
  if (HaChiestoFine()) {
    throw Fallimento(std::string("the program has asked to end: `termina` checks that"));
  }
  return *app_;
}

bool Programma::Occupato() {
  if (dialoghi.Lavori() > 0) return true;
  if (app_ && HaLavoroRimandato(app_->Principale())) return true;
  return app_ && app_->Sessione().DittaAperta() && app_->Sessione().Basi().InTransazione();
}

}  // namespace fenalto::copione
