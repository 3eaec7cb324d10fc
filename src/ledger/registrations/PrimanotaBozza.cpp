// The draft of a registration that isn't confirmed, and how it is gone on with.
#include <charconv>

#include "ledger/registrations/PrimanotaInterno.h"

namespace fenalto::ledger {
namespace {

constexpr std::string_view kAutomatiche = "contropAutomatiche";
constexpr std::string_view kOrigine = "origine";

}  // namespace

void Primanota::Interno::IniziaBozza() {
  bozza.Nota(kAutomatiche, contropAutomatiche);
  bozza.Nota(kOrigine, static_cast<int>(origine));
  bozza.Inizia(anno, documento.Nuovo() ? std::string() : std::to_string(numeroRecord), testa,
               righe);
}

void Primanota::Interno::Segna() {
  bozza.Nota(kAutomatiche, contropAutomatiche);
  bozza.Nota(kOrigine, static_cast<int>(origine));
  bozza.Segna(testa, righe);
}

bool Primanota::Riprendi() {
  Interno& io = *interno_;
  const auto lasciata = io.bozza.Offri({"una registrazione non confermata", "la"});
  if (!lasciata) return false;
  if (lasciata->record.empty()) {
    Nuovo();
  } else {
    const std::string registrazione = "la registrazione n. " + lasciata->record;
    std::int64_t numero = 0;
    std::from_chars(lasciata->record.data(), lasciata->record.data() + lasciata->record.size(),
                    numero);
    if (!Apri(numero)) {
      return io.bozza.NonRipresa(registrazione +
                                 " non c'è più: la correzione non si può riprendere");
    }
    const bool occupata = SolaLettura();
    if (occupata || !io.bozza.Concorda(*lasciata)) {
      Abbandona();
      return io.bozza.NonRipresa(
          occupata ? registrazione + " è in uso: la correzione si riprende riaprendo la funzione"
                   : registrazione + " è cambiata dopo: la correzione non si può riprendere",
          occupata);
    }
  }
  io.bozza.RiempiTesta(*lasciata, io.testa);
  io.contropAutomatiche = lasciata->Nota(kAutomatiche) == Valore(true).Neutro();
  io.origine = static_cast<Origine>(Valore(lasciata->Nota(kOrigine)).Intero());
  std::vector<RigaPrimanota> nuove = io.bozza.RigheDi(*lasciata, io.righe);
  for (RigaPrimanota& una : nuove) io.Descrivi(una);
  try {
    io.totali = SommaRighe(nuove);
  } catch (const FuoriCampo& e) {
    Abbandona();
    return io.bozza.NonRipresa(std::string("totali della registrazione: ") + e.what());
  }
  if (!lasciata->righe.empty()) io.righe.Sostituisci(std::move(nuove));
  io.bozza.RiempiRiga(*lasciata, io.righe);
  if (io.righe.InRiga()) io.VediRiga();
  return io.bozza.Ripresa(io.testa, io.righe);
}

}  // namespace fenalto::ledger
