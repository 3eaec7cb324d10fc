#include "core/store/Presenza.h"

#include <utility>

#include "core/store/Apertura.h"
#include "core/store/NucleoBasi.h"

namespace fenalto {
namespace {

/// Two sessions at one station are told by what they are, since the station's name tells nothing.
std::string Chi(const Detentore& altro, const std::string& stazione) {
  if (altro.stazione != stazione) return altro.Descrizione();
  std::string testo = "da un'altra sessione del programma su questa stazione";
  std::string dettagli = altro.utente.empty() ? "" : "utente " + altro.utente;
  if (!altro.dalle.empty()) dettagli += (dettagli.empty() ? "dalle " : ", dalle ") + altro.dalle;
  return dettagli.empty() ? testo : testo + " (" + dettagli + ")";
}

}  // namespace

Presenza::Presenza(std::string ditta, std::string stazione, std::unique_ptr<PostoPresenza> posto)
    : ditta_(std::move(ditta)), stazione_(std::move(stazione)), posto_(std::move(posto)) {}

Esito<std::shared_ptr<Presenza>> Presenza::Prendi(const PercorsiArchivi& percorsi,
                                                  const std::string& ditta,
                                                  const std::string& stazione) {
  using Tenuta = std::shared_ptr<Presenza>;
  const engine::Motore& motore = MotoreDi(percorsi);
  const engine::Base base = BasiDi(percorsi).front();
  if (!motore.Esiste(base)) return Tenuta();
  auto posto = motore.ApriBlocchi(base, stazione, "")->Presenza();
  if (!posto) {
    return Errore{"la ditta «" + ditta + "» è tenuta " + Chi(posto.Errore(), stazione) +
                  " per un lavoro che la vuole chiusa ovunque: riprovare quando è finito"};
  }
  return Tenuta(new Presenza(ditta, stazione, std::move(posto).Valore()));
}

Esito<bool> Presenza::Sola() {
  const auto altro = posto_->Esclusiva();
  if (!altro) return true;
  return Errore{"la ditta «" + ditta_ + "» è aperta " + Chi(*altro, stazione_) +
                ": chiuderla lì e riprovare"};
}

}  // namespace fenalto
