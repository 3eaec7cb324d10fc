// The lists from which a product is chosen, read a page at a time: all, by supplier, those with a
// bill of materials, those that stand as components.
#pragma once

#include <string>
#include <vector>

#include "core/archives/FonteElenco.h"
#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

enum class QualiProdotti { Tutti, PerFornitore, ConDistinta, Componenti };

/// What narrows the lists beside the text; empty for all. The supplier counts by supplier only, the
/// others where all products are listed.
struct FiltroProdotti {
  std::string cat = {};
  std::string cat2 = {};
  std::string gr = {};
  std::string gr2 = {};
  std::string conto = {};
  std::string fornitore = {};
  bool ancheFuoriUso = false;  ///< otherwise those are found by their whole code or barcode only
};

/// Columns: code, description, then
///   Tutti         unit, barcode, price 1
///   PerFornitore  unit, supplier, name, code there, cost, discounts 1 to 3
///   ConDistinta   unit, barcode
///   Componenti    unit
/// and whether it is out of use ("sì"). A search finds all its words, in any order, in code,
/// description, barcode and the supplier's code.
class ElencoProdotti : public archives::FonteElenco {
 public:
  ElencoProdotti(Ambiente& ambiente, QualiProdotti quali) : ambiente_(ambiente), quali_(quali) {}

  /// From the next Comincia on.
  void Restringi(FiltroProdotti filtro) { filtro_ = std::move(filtro); }
  void Comincia(const archives::FiltroElenco& filtro) override;
  Righe Avanti() override;
  [[nodiscard]] bool Finita() const override { return finita_; }

 private:
  [[nodiscard]] std::string Oltre() const;
  [[nodiscard]] std::string Istruzione() const;

  Ambiente& ambiente_;
  QualiProdotti quali_;
  FiltroProdotti filtro_;
  std::string condizione_;
  std::string ultimo_;           ///< code of the last row read
  std::string ultimoFornitore_;  ///< of the last row read
  bool finita_ = false;
};

}  // namespace fenalto::warehouse
