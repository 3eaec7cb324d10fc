// Reports printed into memory.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/reports/Uscita.h"

namespace fenalto::prova {

/// Hands its pages on to the factory that made it, which outlives it.
class UscitaPassante : public reports::Uscita {
 public:
  UscitaPassante(bool soloTesto, std::vector<reports::Pagina>& pagine, int& fini)
      : soloTesto_(soloTesto), pagine_(pagine), fini_(fini) {}
  [[nodiscard]] bool SoloTesto() const override { return soloTesto_; }
  void Titolo(const std::string& /*titolo*/) override {}
  bool Aggiungi(reports::Pagina pagina) override {
    pagine_.push_back(std::move(pagina));
    return true;
  }
  Esito<bool> Fine() override {
    ++fini_;
    return true;
  }
  void Annulla() override { pagine_.clear(); }

 private:
  bool soloTesto_;
  std::vector<reports::Pagina>& pagine_;
  int& fini_;
};

/// Text output takes text only; the others take the graphic form too.
class FabbricaDiProva : public reports::FabbricaUscite {
 public:
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita& scelta,
                                        const std::string& /*rapporto*/) override {
    pagine.clear();
    return std::make_unique<UscitaPassante>(scelta.destinazione == Destinazione::Testo, pagine,
                                            fini);
  }

  /// Lines of text mode, page by page.
  [[nodiscard]] std::vector<std::vector<std::string>> Righe() const {
    std::vector<std::vector<std::string>> tutte;
    for (const reports::Pagina& pagina : pagine) {
      tutte.emplace_back();
      for (const reports::Elemento& elemento : pagina.elementi)
        if (const auto* riga = std::get_if<reports::RigaFissa>(&elemento))
          tutte.back().push_back(riga->testo);
    }
    return tutte;
  }
  /// All lines, without blanks at their end.
  [[nodiscard]] std::string Testo() const {
    std::string testo;
    for (const auto& pagina : Righe())
      for (const std::string& riga : pagina)
        testo += riga.substr(0, riga.find_last_not_of(' ') + 1) + "\n";
    return testo;
  }
  /// Texts of the graphic form, in the order in which they were put.
  [[nodiscard]] std::vector<std::string> Scritte() const {
    std::vector<std::string> scritte;
    for (const reports::Pagina& pagina : pagine) {
      for (const reports::Elemento& elemento : pagina.elementi)
        if (const auto* scritta = std::get_if<reports::Scritta>(&elemento))
          scritte.push_back(scritta->testo);
    }
    return scritte;
  }

  std::vector<reports::Pagina> pagine;
  int fini = 0;
};

}  // namespace fenalto::prova
