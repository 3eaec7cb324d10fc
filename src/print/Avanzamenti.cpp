#include "print/Avanzamenti.h"

namespace fenalto::print {

AvanzaPagine AvanzaCon(Dialoghi& dialoghi) {
  struct Stato {
    std::unique_ptr<Avanzamento> lavoro;
    int totale = -1;
  };
  return [&dialoghi, stato = std::make_shared<Stato>()](int fatte, int totale) {
    if (totale != stato->totale) {
      stato->totale = totale;
      stato->lavoro.reset();
      stato->lavoro = dialoghi.Avvia(
          totale > 0 ? "Scrittura delle pagine" : "Composizione delle pagine", totale);
    }
    return stato->lavoro->Avanza(fatte);
  };
}

}  // namespace fenalto::print
