#include "demo/CespitiDemo.h"

#include <array>

#include "assets/Cespiti.h"

namespace fenalto::demo {

namespace {

struct BeneDemo {
  const char* codice;
  const char* descrizione;
  const char* cat;
  const char* ubicazione;
  int anniFa;
  int costo;  ///< whole euro
  const char* riferimento = "";
};

constexpr std::array kBeni = {
    BeneDemo{"FURG-1", "Furgone cassonato", "29", "rimessa", 3, 24'000},
    BeneDemo{"FURG-1A", "Allarme del furgone", "08", "rimessa", 3, 480, "1"},
    BeneDemo{"UFF-1", "Scrivanie e armadi dell'ufficio", "26", "ufficio", 5, 6'200},
    BeneDemo{"PC-1", "Computer e stampante", "27", "ufficio", 2, 2'350},
    BeneDemo{"MAG-1", "Scaffalature del magazzino", "24", "magazzino", 4, 9'800},
    BeneDemo{"MUL-1", "Carrello elevatore", "31", "magazzino", 1, 14'500}};

class ScrittoreCespiti {
 public:
  ScrittoreCespiti(Ambiente& ambiente, const DialoghiMuti& dialoghi)
      : dialoghi_(dialoghi), card_(ambiente) {}

  void Scrivi(const BeneDemo& bene, int corrente) {
    const int dal = corrente - bene.anniFa;
    card_.Nuovo();
    Scheda& testa = card_.Testa();
    testa.Scrivi("Codice", bene.codice);
    testa.Scrivi("Descrizione", bene.descrizione);
    testa.Scrivi("Cat", bene.cat);
    testa.Scrivi("Ubicaz", bene.ubicazione);
    testa.Scrivi("Dal", Data::DaGma(12, 4, dal).value());
    testa.Scrivi("CespCorr", bene.riferimento);
    Riga(assets::kCosto, dal);
    card_.Riga().Scrivi("Importo", Importo::DaUnita(bene.costo));
    card_.Riga().Scrivi("Estremi", "ft. di acquisto del " + std::to_string(dal));
    Pretendi(card_.ConfermaRiga());
    for (int anno = dal; anno < corrente; ++anno) {
      Riga(assets::kQuota, anno);
      card_.RigaLasciata("P");
      Pretendi(card_.ConfermaRiga());
    }
    Pretendi(card_.Conferma());
  }

 private:
  void Riga(std::string_view causale, int anno) {
    Pretendi(card_.PNuovaRiga());
    card_.Riga().Scrivi("Cau", causale);
    card_.Riga().Scrivi("Anno", anno);
  }
  void Pretendi(bool riuscito) const {
    if (!riuscito) throw ErroreArchivio(ErroreArchivio::Causa::Altro, dialoghi_.ultimo);
  }

  const DialoghiMuti& dialoghi_;
  assets::Cespiti card_;
};

}  // namespace

void ScriviCespitiDemo(Ambiente& ambiente, const DialoghiMuti& dialoghi, int corrente) {
  ScrittoreCespiti scrittore(ambiente, dialoghi);
  for (const BeneDemo& bene : kBeni) scrittore.Scrivi(bene, corrente);
}

}  // namespace fenalto::demo
