// Reader of page models: from the text to a ModelloStampa, or the line that is wrong.
#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/reports/ModelloStampa.h"
#include "core/reports/RigaModello.h"

namespace fenalto::reports {

class LettoreModello {
 public:
  /// `nome` is how messages call the model. With a folder, images are looked for there and must
  /// exist.
  LettoreModello(std::string nome, std::optional<std::filesystem::path> cartella)
      : nome_(std::move(nome)), cartella_(std::move(cartella)) {}
  Esito<ModelloStampa> Leggi(std::string_view testo);

 private:
  using Parole = std::vector<ParolaModello>;
  enum class Zona { Nessuna, Pagina, Testata, Corpo, Piede };
  /// Something placed on the page, to be checked when the page is known.
  struct Posto {
    int linea = 0;
    Zona zona = Zona::Nessuna;
    std::string cosa;
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    bool disegno = false;   ///< lines, boxes and images may stand across zones
    bool nelCorpo = false;  ///< a body field, whose y counts from its line
  };

  bool Sbaglia(std::string perche);
  bool Sbaglia(int linea, std::string perche);
  bool Interpreta(const Parole& parole);
  bool ApriZona(const std::string& nome);
  bool LeggiFormato(const Parole& parole);
  bool LeggiMargine(const Parole& parole);
  bool LeggiCarattere(const Parole& parole);
  bool LeggiMisuraCorpo(const std::string& quale, const Parole& parole);
  bool LeggiCampo(const Parole& parole);
  bool LeggiScritta(const Parole& parole);
  bool LeggiLinea(const Parole& parole);
  bool LeggiRiquadro(const Parole& parole);
  bool LeggiImmagine(const Parole& parole);
  std::optional<AttributiModello> Attributi(const Parole& parole, std::size_t n,
                                            std::string_view ammessi,
                                            std::initializer_list<std::string_view> necessari);
  bool Misura(const Parole& parole, int& dove);
  bool ControllaNome(const std::string& nome);
  bool Controlla();
  bool ControllaCorpo();
  bool ControllaPosto(const Posto& posto);

  std::string nome_;
  std::optional<std::filesystem::path> cartella_;
  ModelloStampa modello_;
  Carattere carattere_;
  Zona zona_ = Zona::Nessuna;
  int linea_ = 0;
  int lineaCorpo_ = 0;
  std::array<bool, 3> corpo_{};         ///< which of inizio, fine, riga were given
  std::map<std::string, int> lineaDi_;  ///< of the fields, by folded name
  std::vector<Posto> posti_;
  std::string errore_;
};

}  // namespace fenalto::reports
