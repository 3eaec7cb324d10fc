// The daily backup, on a thread of its own.

#include <exception>
#include <utility>

#include "core/session/AmbienteInterno.h"
#include "core/session/CopieDitta.h"

namespace fenalto {

namespace {

/// The failure's text; empty when it went well.
std::string Copia(const PercorsiArchivi& percorsi, const std::filesystem::path& cartella, Data oggi,
                  const std::string& ditta, const std::string& ora) {
  try {
    const auto esito = EseguiCopia(percorsi, cartella, oggi);
    if (!esito) return esito.Errore().messaggio;
    DescriviCopia(esito.Valore(), ArchiviDellaCopia(esito.Valore(), percorsi), ditta, "giornaliera",
                  oggi, ora);
    return {};
  } catch (const std::exception& errore) {
    return errore.what();
  }
}

}  // namespace

void Ambiente::AvviaCopia() {
  Interno& in = *interno_;
  if (!in.opzioni.copie || !in.sessione) return;
  {
    const std::lock_guard guardia(in.bloccoCopia);
    if (in.copiaInCorso) return;
  }
  const Data oggi = in.orologio.Oggi();
  std::string tentativo = in.sessione->ditta + "|" + oggi.Iso();
  if (tentativo == in.copiaTentata) return;
  in.copiaTentata = std::move(tentativo);
  in.AttendiCopia();
  const auto cartella = CartellaDitta() / "Copie";
  if (!CopiaDovuta(cartella, oggi)) return;
  in.copiaInCorso = true;
  in.copia = std::thread([&in, cartella, oggi, ora = in.orologio.Ora(), ditta = in.sessione->ditta,
                          percorsi = in.sessione->basi->Percorsi()] {
    const std::string guasto = Copia(percorsi, cartella, oggi, ditta, ora);
    const std::lock_guard guardia(in.bloccoCopia);
    in.copiaInCorso = false;
    in.guastoCopia = guasto.empty() ? ""
                                    : "la copia di sicurezza della ditta «" + ditta +
                                          "» non è riuscita: " + guasto;
  });
}

std::string Ambiente::EsitoCopia() {
  const std::lock_guard guardia(interno_->bloccoCopia);
  return std::exchange(interno_->guastoCopia, {});
}

StatoCopie Ambiente::Copie() const {
  StatoCopie stato;
  {
    const std::lock_guard guardia(interno_->bloccoCopia);
    stato.inCorso = interno_->copiaInCorso;
  }
  const auto copie = CopieEsistenti(CartellaDitta() / "Copie");
  if (copie.empty()) return stato;
  stato.ultima = Data::DaIso(copie.front().filename().string()).value_or(Data());
  stato.giorni = interno_->orologio.Oggi().Giorni() - stato.ultima.Giorni();
  return stato;
}

void Ambiente::AttendiCopia() {
  interno_->AttendiCopia();
}

void Ambiente::Interno::AttendiCopia() {
  if (copia.joinable()) copia.join();
}

}  // namespace fenalto
