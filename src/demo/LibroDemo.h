// The double-entry registrations of the company `Demo`, and its VAT documents between them in order
// of date.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "demo/DialoghiMuti.h"
#include "demo/FattureDemo.h"
#include "demo/Generatore.h"
#include "demo/PagamentiDemo.h"
#include "ledger/registrations/Primanota.h"

namespace fenalto::demo {

/// Debit above zero, credit below.
struct RigaDemo {
  std::string cfp;
  std::string conto;
  Importo importo;
  std::string descrizione;
};

/// Writes the registrations and keeps the balances that the next ones need.
class LibroDemo {
 public:
  LibroDemo(Ambiente& ambiente, DialoghiMuti& dialoghi, Data oggi)
      : ambiente_(ambiente),
        dialoghi_(dialoghi),
        oggi_(oggi),
        primanota_(ambiente),
        documenti_(ambiente, dialoghi, oggi),
        pagamenti_(ambiente, dialoghi) {}

  void PrimoAnno(int anno);
  void SecondoAnno(int anno);

 private:
  void Registra(Data data, std::string_view causale, const std::vector<RigaDemo>& righe,
                std::string_view modello = "");
  /// The VAT documents up to `data`, then the payments of what has fallen due, which all count in
  /// the balances.
  void Documenti(Data data);
  void Scegli(int anno);
  void Anno(int anno);
  void Mese(int anno, int mese);
  void PagaPersonale(Data data);
  void VersaF24(const std::string& mese, Data data);
  void Stipendi(const std::string& mese, Data data, std::string_view modello);
  void Corrispettivi(const std::string& mese, Data data);
  /// Two customers pay, or two suppliers are paid, what is open.
  void PartiteAperte(const std::string& cfp, Data data);
  void VersaContanti(Data data);
  void Liquidazione(const std::string& trimestre, Data data);
  void Trimestre(const std::string& testo, const std::array<Data, 3>& giorni);
  void FineAnno(int anno);

  [[nodiscard]] Importo Saldo(const std::string& cfp, std::string_view conto) const {
    const auto trovato = saldi_.find({cfp, std::string(conto)});
    return trovato == saldi_.end() ? Importo() : trovato->second;
  }
  /// A day of a month that isn't a Sunday.
  static Data Giorno(int giorno, int mese, int anno) {
    const Data data = Data::DaGma(giorno, mese, anno).value();
    return data.GiornoSettimana() == 7 ? data.PiuGiorni(-1) : data;
  }

  Ambiente& ambiente_;
  DialoghiMuti& dialoghi_;
  Data oggi_;
  ledger::Primanota primanota_;
  FattureDemo documenti_;
  PagamentiDemo pagamenti_;
  Generatore generatore_{20'240'315};
  std::map<std::pair<std::string, std::string>, Importo> saldi_;
  /// Of parties, what documents and payments made: due dates follow it, so nobody pays it here.
  std::map<std::pair<std::string, std::string>, Importo> daScadenze_;
  int primoAnno_ = 0;
  int note_ = 0;
};

}  // namespace fenalto::demo
