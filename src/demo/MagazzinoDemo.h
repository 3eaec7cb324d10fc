// The goods of the company `Demo`: products, and two years of loads, deliveries, returns and
// transfers between its two warehouses.
//
// Stock never goes below zero, but for three products that were delivered on the last day before
// their load was written: the document says so.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "demo/DialoghiMuti.h"
#include "demo/Generatore.h"
#include "documents/entry/ScriviDocumento.h"

namespace fenalto::demo {

class MagazzinoDemo {
 public:
  MagazzinoDemo(Ambiente& ambiente, DialoghiMuti& dialoghi, Data oggi)
      : ambiente_(ambiente), dialoghi_(dialoghi), oggi_(oggi) {}

  /// Categories, products, their suppliers; the party of movements within the firm.
  void Prodotti();
  /// The documents of both years up to today; the selected year may be any.
  void Documenti(int primo, int secondo);

 private:
  static constexpr int kMagazzini = 2;

  struct Articolo {
    std::string cod;
    std::string descrizione;
    std::string um;
    std::size_t fornitore = 0;
    int scorta = 0;
    Importo listino;
    Importo costo;      ///< of the last load
    Importo costoBase;  ///< at the beginning
    std::array<int, kMagazzini> giacenza = {};
  };
  struct Consegnato {
    std::size_t articolo = 0;
    std::size_t cliente = 0;
  };

  void Anno(int anno, bool primo);
  void Giorno(Data giorno, int anno, int mese);
  void EsistenzaIniziale(int anno, bool primo);
  void Carico(Data giorno, std::size_t fornitore);
  void Consegna(Data giorno, bool daFatturare);
  void ResoDaCliente(Data giorno);
  void ResoAFornitore(Data giorno);
  void Trasferimento(Data giorno);
  void Rettifiche(Data giorno);
  void ConsegnePrimaDelCarico();

  [[nodiscard]] documents::DocumentoDaScrivere Nuovo(const char* tipo, Data giorno,
                                                     const std::string& parte, int magazzino);
  /// A row that moves the stock; `prezzo` is on the supplier's side a cost.
  void Riga(documents::DocumentoDaScrivere& documento, Articolo& articolo, int quantita,
            Importo prezzo);
  std::int64_t Scrivi(documents::DocumentoDaScrivere documento);
  [[nodiscard]] const documents::TipoDocumento& Tipo(const std::string& codice);

  Ambiente& ambiente_;
  DialoghiMuti& dialoghi_;
  Data oggi_;
  Generatore generatore_{19'780'402};
  std::vector<documents::TipoDocumento> tipi_;
  std::vector<Articolo> articoli_;
  std::vector<Consegnato> consegnati_;
  int carichi_ = 0;
};

}  // namespace fenalto::demo
