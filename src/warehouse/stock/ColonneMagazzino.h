// The columns that the warehouse report may show, of which the user picks some.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/reports/DescrizioneRapporto.h"
#include "warehouse/stock/SituazioneMagazzino.h"

namespace fenalto::warehouse {

/// A column to be ticked.
struct ColonnaMagazzino {
  const char* nome;     ///< by which it is remembered and its box is called
  const char* scritta;  ///< for people
};
std::span<const ColonnaMagazzino> ColonneMagazzino();

/// The columns ticked the last time, else those proposed. Kept in the company's settings.
std::vector<std::string> ColonneRicordate(Ambiente& ambiente);
void RicordaColonne(Ambiente& ambiente, const std::vector<std::string>& colonne);

/// A line of the report: a product, or one of its further suppliers below it.
struct LineaMagazzino {
  const RigaMagazzino* riga = nullptr;
  std::string costoFornitore;
  bool seguito = false;  ///< a further supplier: the product's own cells are empty
};

class TabellaMagazzino {
 public:
  /// `colonne` are shown, on paper and on the sheet.
  TabellaMagazzino(Ambiente& ambiente, const std::vector<std::string>& colonne);
  [[nodiscard]] const reports::Tabella<LineaMagazzino>& Tabella() const { return tabella_; }
  [[nodiscard]] bool Mostra(const std::string& colonna) const;
  /// All figures shown are zero.
  [[nodiscard]] bool TuttiZero(const std::vector<Valore>& celle) const;
  [[nodiscard]] int DecimaliPrezzo() const { return decP_; }

 private:
  reports::Tabella<LineaMagazzino> Fai() const;

  std::vector<std::string> colonne_;
  int decQ_;
  int decP_;
  reports::Tabella<LineaMagazzino> tabella_;
};

}  // namespace fenalto::warehouse
