// Where the code of a product is used: what is shown and printed before the code is erased or
// changed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

/// One document, order, list, ... that names the product. Year, day and number are those of what
/// has them.
struct UsoProdotto {
  std::string uso;  ///< "DDT da fatturare", "ORDINE CLIENTE", "Listino L1 ingrosso"
  int anno = 0;
  Data dt = {};
  std::string tipo = {};
  std::int64_t numero = 0;
  Rinvio rinvio = {};  ///< empty for a heading
};

/// The uses of a code, read a page at a time: documents, customers' orders, suppliers' orders,
/// price lists, jobs, customers (collection expenses), bills that it goes into, its own bill.
class UsiProdotto {
 public:
  UsiProdotto(Ambiente& ambiente, std::string codice)
      : ambiente_(ambiente), codice_(std::move(codice)) {}

  /// The next uses; none when all were read.
  std::vector<UsoProdotto> Avanti(std::size_t massimo);
  [[nodiscard]] bool Finiti() const { return passo_ >= kPassi; }

 private:
  static constexpr std::size_t kPassi = 8;
  /// The next uses of one kind; fewer than asked for when it has no more.
  std::vector<UsoProdotto> Leggi(std::size_t massimo);
  UsoProdotto Voce(const Rs& riga);
  /// Description of a document's type; its code when there is none.
  const std::string& DescrizioneTipo(const std::string& tipo);

  Ambiente& ambiente_;
  std::string codice_;
  std::size_t passo_ = 0;
  std::vector<Valore> dopo_;  ///< keys of the last row read of this kind
  std::map<std::string, std::string> tipi_;
};

}  // namespace fenalto::warehouse
