#include "core/session/CompattaDitta.h"

#include "core/session/CopieDitta.h"
#include "core/session/PresenzaDitta.h"
#include "core/store/CambioArchivi.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

std::uintmax_t Byte(const PercorsiArchivi& archivi) {
  std::error_code errore;
  return fs::file_size(archivi.tessarc, errore) + fs::file_size(archivi.scadenzario, errore);
}

/// The error, empty when the company stands on compacted databases.
std::string Compatta(const Ambiente& ambiente, PresenzaEsclusiva& presa) {
  const PercorsiArchivi percorsi = presa.Percorsi();
  if (const auto pronti = PreparaCompatti(percorsi); !pronti) return pronti.Errore().messaggio;
  presa.Chiudi();
  const auto cambiati = CambiaArchivi(percorsi);
  auto aperta = presa.Riapri();
  if (!cambiati) return cambiati.Errore().messaggio;
  if (aperta) {
    TogliSostituiti(percorsi);
    return {};
  }
  std::string perche = aperta.Errore().messaggio;
  const auto tornati = TornaAiSostituiti(percorsi);
  if (!tornati) perche += "\n" + tornati.Errore().messaggio;
  if (!ambiente.DittaAperta()) aperta = presa.Riapri();
  return perche;
}

}  // namespace

bool CompattaDitta(Ambiente& ambiente) {
  Dialoghi& dialogo = ambiente.Dialogo();
  const PercorsiArchivi percorsi = ambiente.Basi().Percorsi();
  const std::string file = percorsi.tessarc.string() + "\n" + percorsi.scadenzario.string();
  const std::string ditta = ambiente.Ditta();
  dialogo.Messaggio("è consigliabile effettuare una copia dei seguenti files\n" + file +
                        "\n prima di eseguire il compattamento \n(se il compattamento non venisse "
                        "completato regolarmente i files si potranno recuperare)",
                    Icona::Avviso);
  if (!dialogo.Conferma("CONFERMA COMPATTAMENTO DATABASE DITTA " + ditta)) return false;
  const auto rifiuta = [&](const std::string& perche) {
    dialogo.Messaggio("errore su compattamento file :\n" + file + "\n" + perche +
                          "\nGli archivi sono come prima.",
                      Icona::Errore);
    return false;
  };
  auto presa = PrendiDitta(ambiente);
  if (!presa) {
    dialogo.Messaggio(presa.Errore().messaggio, Icona::Avviso);
    return false;
  }
  const auto lavoro = dialogo.Avvia("Compattamento degli archivi", 2);
  const std::uintmax_t prima = Byte(percorsi);
  const auto copia = CopiaPrimaDi(ambiente, "compattamento");
  if (!copia) return rifiuta(copia.Errore().messaggio);
  if (!lavoro->Avanza(1)) return false;
  if (const std::string errore = Compatta(ambiente, presa.Valore()); !errore.empty()) {
    return rifiuta(errore);
  }
  dialogo.Annuncia("FINE LAVORO DITTA " + ditta + "\narchivi da " + ScriviByte(prima) + " a " +
                   ScriviByte(Byte(percorsi)) + NominaCopia(copia.Valore()));
  return true;
}

}  // namespace fenalto
