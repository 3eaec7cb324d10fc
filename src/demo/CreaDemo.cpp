#include "demo/CreaDemo.h"

#include "core/session/CreaDitta.h"
#include "demo/AnagraficheDemo.h"
#include "demo/CespitiDemo.h"
#include "demo/LibroDemo.h"
#include "demo/MagazzinoDemo.h"

namespace fenalto::demo {

namespace {

constexpr const char* kDitta = "Demo";

}  // namespace

Esito<bool> CreaDemoSeVuota(const OpzioniAmbiente& opzioni, Orologio& orologio) {
  DialoghiMuti dialoghi;
  CasoDiSistema caso;
  OpzioniAmbiente senzaCopie = opzioni;
  senzaCopie.copie = false;
  Ambiente ambiente(senzaCopie, dialoghi, orologio, caso);
  if (!ambiente.DitteTrovate().empty()) return false;
  // The only company may have been in the making.
  ambiente.RiprendiLavori();
  if (!ambiente.DitteTrovate().empty()) return false;

  const int corrente = orologio.Oggi().Anno();
  if (auto creata = CreaDittaDaModello(opzioni, kDitta, {{corrente - 1, true}, {corrente, true}},
                                       true, Partenza::DelModello);
      !creata) {
    return creata;
  }
  if (auto aperta = ambiente.ApriDitta(kDitta, corrente); !aperta) return aperta;
  try {
    ScriviImpostazioniDemo(ambiente);
    LibroDemo libro(ambiente, dialoghi, orologio.Oggi());
    // One for all: the first start waits for the disk once, not at every record.
    Transazione transazione(ambiente.Basi());
    ScriviAnagraficheDemo(ambiente, dialoghi);
    MagazzinoDemo magazzino(ambiente, dialoghi, orologio.Oggi());
    magazzino.Prodotti();
    libro.PrimoAnno(corrente - 1);
    libro.SecondoAnno(corrente);
    ScriviCespitiDemo(ambiente, dialoghi, corrente);
    magazzino.Documenti(corrente - 1, corrente);
    transazione.Conferma();
  } catch (const ErroreArchivio& e) {
    return Errore{std::string("la ditta Demo è stata creata, ma senza registrazioni: ") + e.what()};
  }
  ambiente.ChiudiDitta();
  return true;
}

}  // namespace fenalto::demo
