#include "bench/GeneraMagazzino.h"

#include <cstdio>

#include "bench/GeneraDitta.h"

namespace fenalto::banco {
namespace {

constexpr int kRigheMag = 1'000'000;

/// Documents of twenty rows over three years, two warehouses; orders and jobs partly served.
class GeneratoreMagazzino {
 public:
  GeneratoreMagazzino(Ambiente& ambiente, int prodotti, int righe)
      : archivio_(ambiente.ArchivioDi("tessarc")), prodotti_(prodotti), righe_(righe) {}

  void Genera() {
    for (int i = 0; i < prodotti_; ++i) {
      archivio_.Inserisci("CodiciRiga",
                          {{"Cod", CodiceProdotto(i)},
                           {"Descrizione", "prodotto di prova numero " + std::to_string(i)},
                           {"um", "NR"},
                           {"CostoDigitato", Importo::DaDecimillesimi(100LL * sorte_.Fino(9'999))},
                           {"Prezzo", Importo::DaDecimillesimi(150LL * sorte_.Fino(9'999))},
                           {"Scorta", Importo::DaUnita(sorte_.Fino(20))}});
    }
    for (int i = 0; i < righe_; ++i) Riga(i);
    for (int i = 0; i < righe_ / 200; ++i) Aperte(i);
  }

 private:
  /// Twenty rows are a document of one year: loads and unloads by turns.
  void Riga(int i) {
    constexpr int kPerDocumento = 20;
    const int numero = i / kPerDocumento + 1;
    const int perAnno = righe_ / kAnni / kPerDocumento * kPerDocumento + kPerDocumento;
    const int anno = kPrimoAnno + i / perAnno;
    const Data dt = Data::DaGma(1, 1, anno)
                        ->PiuGiorni(static_cast<std::int32_t>(i % perAnno / kPerDocumento *
                                                              kPerDocumento * 364LL / perAnno));
    const bool carico = numero * 45 % 100 < 45;
    const bool servita = i % 250 == 0;
    if (i % kPerDocumento == 0) {
      archivio_.Inserisci("FattureCli", {{"TipoDoc", carico ? "10" : "01"},
                                         {"Anno", anno},
                                         {"NumDoc", numero},
                                         {"Dt", dt},
                                         {"CFP", carico ? "F" : "C"},
                                         {"CliFor", "0001"},
                                         {"CausaleMag", carico ? "CA" : "SV"},
                                         {"CS", carico ? "C" : "S"}});
    }
    archivio_.Inserisci("FattureCli_r",
                        {{"TipoDoc", carico ? "10" : "01"},
                         {"Anno", anno},
                         {"NumDoc", numero},
                         {"Posi", i % kPerDocumento * 100 + 100},
                         {"CodiceRiga", CodiceProdotto(sorte_.Fino(prodotti_))},
                         {"Descrizione", "prodotto di prova, come lo dice il documento"},
                         {"Quantita", Importo::DaUnita(1 + sorte_.Fino(carico ? 40 : 30))},
                         {"Prezzo", Importo::DaDecimillesimi(100LL * (1 + sorte_.Fino(9'999)))},
                         {"Sc1", Importo::DaUnita(sorte_.Fino(3) * 10)},
                         {"Dt", dt},
                         {"CS", carico ? "C" : "S"},
                         {"CFP", carico ? "F" : "C"},
                         {"CliFor", "0001"},
                         {"CausaleMag", carico ? "CA" : "SV"},
                         {"Mag", sorte_.Fino(2) == 0 ? "01" : "02"},
                         {"Ordine", servita ? 1 + i / 250 : 0},
                         {"PosiOrdine", servita ? 100 : 0}});
  }
  void Aperte(int i) {
    for (const char* tabella : {"OrdiniCli_r", "OrdiniFor_r"}) {
      archivio_.Inserisci(tabella, {{"TipoDoc", "O"},
                                    {"NumDoc", i + 1},
                                    {"Posi", 100},
                                    {"CodiceRiga", CodiceProdotto(sorte_.Fino(prodotti_))},
                                    {"Quantita", Importo::DaUnita(1 + sorte_.Fino(50))},
                                    {"OrdineSaldato", i % 3 == 0}});
    }
    archivio_.Inserisci("Commesse_r", {{"NumDoc", i + 1},
                                       {"Posi", 100},
                                       {"CodiceRiga", CodiceProdotto(sorte_.Fino(prodotti_))},
                                       {"Quantita", Importo::DaUnita(1 + sorte_.Fino(9))},
                                       {"Ut", i % 2 == 0}});
  }

  Archivio& archivio_;
  int prodotti_;
  int righe_;
  Sequenza sorte_{16};
};

}  // namespace

std::string CodiceProdotto(int numero) {
  char testo[16];
  std::snprintf(testo, sizeof testo, "A%06d", numero);
  return testo;
}

void GeneraMagazzino(const OpzioniAmbiente& opzioni, const char* ditta, int parte) {
  FaiDitta(opzioni, ditta, kPrimoAnno, kAnni, [parte](Ambiente& ambiente) {
    Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
    GeneratoreMagazzino(ambiente, kProdottiMagazzino / parte, kRigheMag / parte).Genera();
    transazione.Conferma();
  });
}

}  // namespace fenalto::banco
