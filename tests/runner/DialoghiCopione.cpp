#include "runner/DialoghiCopione.h"

#include <algorithm>
#include <utility>

namespace fenalto::copione {
namespace {

constexpr int kDomandeDopoGuasto = 1'000;
constexpr std::string_view kSecondaIstanza = "Il programma è già aperto!";

/// Line breaks of every kind as \n.
std::string ConRighe(const std::string& testo) {
  std::string pulito;
  for (std::size_t i = 0; i < testo.size(); ++i) {
    if (testo[i] != '\r') {
      pulito += testo[i];
    } else if (i + 1 >= testo.size() || testo[i + 1] != '\n') {
      pulito += '\n';
    }
  }
  return pulito;
}

bool HaBottone(Bottoni bottoni, Risposta risposta) {
  switch (bottoni) {
    case Bottoni::SiNo:
      return risposta == Risposta::Si || risposta == Risposta::No;
    case Bottoni::OkAnnulla:
      return risposta == Risposta::Ok || risposta == Risposta::Annulla;
    case Bottoni::SiNoAnnulla:
      return risposta != Risposta::Ok;
  }
  return false;
}

std::string NomeDi(const RispostaAttesa& attesa) {
  if (attesa.valore) return "testo";
  switch (attesa.risposta) {
    case Risposta::Si:
      return "si";
    case Risposta::No:
      return "no";
    case Risposta::Ok:
      return "ok";
    case Risposta::Annulla:
      return "annulla";
  }
  return "";
}

}  // namespace

/// Progress that nobody looks at; counts as work under way while it lives.
class DialoghiCopione::LavoroContato : public Avanzamento {
 public:
  explicit LavoroContato(int& lavori) : lavori_(lavori) { ++lavori_; }
  ~LavoroContato() override { --lavori_; }
  LavoroContato(const LavoroContato&) = delete;
  LavoroContato& operator=(const LavoroContato&) = delete;
  bool Avanza(std::int64_t) override { return true; }

 private:
  int& lavori_;
};

void DialoghiCopione::Prepara(std::optional<SceltaDitta> scelta,
                              std::optional<Credenziali> accesso) {
  sceltaDitta_ = std::move(scelta);
  accesso_ = std::move(accesso);
}

void DialoghiCopione::Mostra(const std::string& testo) {
  ultimo_ = ConRighe(testo);
  daVerificare_.push_back(ultimo_);
  ++mostrati_;
}

void DialoghiCopione::Guasta(const std::string& motivo) {
  if (guasto_.empty()) guasto_ = motivo;
  // A loop that asks until it gets an answer would never end.
  if (++dopoGuasto_ <= kDomandeDopoGuasto) return;
  dopoGuasto_ = 0;
  if (senzaFine) senzaFine(guasto_);
}

std::string DialoghiCopione::PrendiGuasto() {
  dopoGuasto_ = 0;
  return std::exchange(guasto_, {});
}

std::optional<std::string> DialoghiCopione::PrendiPiuVecchio() {
  if (daVerificare_.empty()) return std::nullopt;
  std::string testo = std::move(daVerificare_.front());
  daVerificare_.pop_front();
  return testo;
}

std::vector<DialoghiCopione::Avanzo> DialoghiCopione::Avanzi() const {
  std::vector<Avanzo> avanzi;
  for (const auto& r : risposte_) {
    avanzi.push_back({r.luogo, "rispondi", "the answer `" + NomeDi(r) + "` was never used"});
  }
  for (const auto& u : uscite_) {
    avanzi.push_back({u.luogo, "stampa", "the choice of output was never used"});
  }
  for (const auto& f : file_) {
    avanzi.push_back({f.luogo, "file", "the choice of file was never used"});
  }
  return avanzi;
}

std::optional<RispostaAttesa> DialoghiCopione::Prossima(const std::string& genere,
                                                        const std::string& testo) {
  if (!guasto_.empty()) {
    Guasta("");
    return std::nullopt;
  }
  if (risposte_.empty()) {
    Guasta(genere + " with no answer queued: \"" + ConRighe(testo) + "\"");
    return std::nullopt;
  }
  RispostaAttesa attesa = std::move(risposte_.front());
  risposte_.pop_front();
  if (ConRighe(testo).find(attesa.contiene) == std::string::npos) {
    Guasta(genere + " \"" + ConRighe(testo) + "\" does not contain \"" + attesa.contiene +
           "\" of the answer queued at " + attesa.luogo);
    return std::nullopt;
  }
  return attesa;
}

void DialoghiCopione::Messaggio(const std::string& testo, Icona) {
  Mostra(testo);
}

Risposta DialoghiCopione::Domanda(const std::string& testo, Bottoni bottoni, Risposta predefinita,
                                  const std::string& titolo, Icona) {
  if (testo.starts_with(kSecondaIstanza)) return Risposta::Si;
  const std::string intero = titolo.empty() ? testo : titolo + "\n" + testo;
  Mostra(intero);
  const auto attesa = Prossima("a question", intero);
  if (!attesa) return bottoni == Bottoni::SiNo ? predefinita : Risposta::Annulla;
  if (!attesa->valore && HaBottone(bottoni, attesa->risposta)) return attesa->risposta;
  Guasta("the question \"" + ultimo_ + "\" has no answer `" + NomeDi(*attesa) + "`, queued at " +
         attesa->luogo);
  return bottoni == Bottoni::SiNo ? predefinita : Risposta::Annulla;
}

std::optional<std::string> DialoghiCopione::Chiedi(const std::string& testo, const std::string&) {
  Mostra(testo);
  const auto attesa = Prossima("an input box", testo);
  if (!attesa) return std::nullopt;
  if (attesa->valore) return attesa->valore;
  if (attesa->risposta != Risposta::Annulla) {
    Guasta("the input box \"" + ultimo_ + "\" takes `rispondi testo`, not `" + NomeDi(*attesa) +
           "`, queued at " + attesa->luogo);
  }
  return std::nullopt;
}

std::optional<SceltaUscita> DialoghiCopione::ScegliUscita(const std::string& rapporto,
                                                          bool esporta) {
  ++mostrati_;
  if (uscite_.empty()) {
    const char* genere = esporta ? "an export dialog" : "an output dialog";
    Guasta(genere + (" with no choice queued: \"" + rapporto + "\""));
    return std::nullopt;
  }
  const auto uscita = std::move(uscite_.front());
  uscite_.pop_front();
  return uscita.scelta;
}

std::optional<std::filesystem::path> DialoghiCopione::ScegliFile(const std::string& titolo,
                                                                 ModoFile, const std::string&) {
  ++mostrati_;
  if (file_.empty()) {
    Guasta("a file dialog with no choice queued: \"" + titolo + "\"");
    return std::nullopt;
  }
  const auto scelto = std::move(file_.front());
  file_.pop_front();
  if (scelto.file.empty()) return std::nullopt;
  return scelto.file;
}

std::optional<SceltaDitta> DialoghiCopione::ScegliDitta(
    const std::vector<DittaTrovata>& ditte,
    const std::function<std::vector<int>(const std::string&, std::string&)>& anniDi) {
  auto scelta = std::exchange(sceltaDitta_, std::nullopt);
  if (!scelta) {
    ++mostrati_;
    if (!risposte_.empty() && !risposte_.front().valore &&
        risposte_.front().risposta == Risposta::Annulla) {
      risposte_.pop_front();
    } else {
      Guasta("the choice of a company came up: `ditta` opens one, `rispondi annulla` gives up");
    }
    return std::nullopt;
  }
  const bool trovata = std::any_of(ditte.begin(), ditte.end(), [&](const DittaTrovata& ditta) {
    return ditta.nome == scelta->ditta;
  });
  if (!trovata) {
    Guasta("there is no company " + scelta->ditta);
    return std::nullopt;
  }
  std::string errore;
  const auto anni = anniDi(scelta->ditta, errore);
  if (!errore.empty() || anni.empty()) {
    Guasta(errore.empty() ? "the company " + scelta->ditta + " has no year" : errore);
    return std::nullopt;
  }
  if (scelta->anno == 0) scelta->anno = *std::max_element(anni.begin(), anni.end());
  if (std::find(anni.begin(), anni.end(), scelta->anno) == anni.end()) {
    Guasta("the company " + scelta->ditta + " has no year " + std::to_string(scelta->anno));
    return std::nullopt;
  }
  return scelta;
}

std::optional<Dialoghi::Credenziali> DialoghiCopione::ChiediAccesso(const std::string& avviso) {
  // Once only: a refused log-in would be asked for again and again.
  if (accesso_) return std::exchange(accesso_, std::nullopt);
  Guasta("a log-in is asked for: `utente NAME PASSWORD` gives one" +
         (avviso.empty() ? std::string() : ": \"" + ConRighe(avviso) + "\""));
  return std::nullopt;
}

std::unique_ptr<Avanzamento> DialoghiCopione::Avvia(const std::string&, std::int64_t) {
  return std::make_unique<LavoroContato>(lavori_);
}

bool DialoghiCopione::ApriEsterno(const std::string&) {
  return true;
}

}  // namespace fenalto::copione
