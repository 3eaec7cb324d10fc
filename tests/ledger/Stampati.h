// Reports printed into memory or text files.
#pragma once

#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/reports/Sagoma.h"
#include "core/reports/Uscita.h"
#include "ledger/DittaDiProva.h"

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
      for (const reports::Elemento& elemento : pagina.elementi) {
        if (const auto* riga = std::get_if<reports::RigaFissa>(&elemento)) {
          tutte.back().push_back(riga->testo);
        }
      }
    }
    return tutte;
  }
  /// All lines, without blanks at their end.
  [[nodiscard]] std::string Testo() const {
    std::string testo;
    for (const auto& pagina : Righe()) {
      for (const std::string& riga : pagina) {
        testo += riga.substr(0, riga.find_last_not_of(' ') + 1) + "\n";
      }
    }
    return testo;
  }
  /// Texts of the graphic form, in the order in which they were put.
  [[nodiscard]] std::vector<std::string> Scritte() const {
    std::vector<std::string> scritte;
    for (const reports::Pagina& pagina : pagine) {
      for (const reports::Elemento& elemento : pagina.elementi) {
        if (const auto* scritta = std::get_if<reports::Scritta>(&elemento))
          scritte.push_back(scritta->testo);
      }
    }
    return scritte;
  }

  std::vector<reports::Pagina> pagine;
  int fini = 0;
};

/// A company whose books are written row by row, without the checks of a registration.
class DittaDaStampare : public DittaDiProva {
 protected:
  struct Riga {
    const char* cfp;
    const char* conto;
    Importo saldo;  ///< debit above zero
    const char* causale = "001";
    std::string descrizione = "prova";
  };
  void Articolo(int anno, std::int64_t numero, Data dt, const std::vector<Riga>& righe,
                const std::string& riva = "", int nProt = 0) {
    std::optional<Transazione> transazione;
    if (!ambiente.Basi().InTransazione()) transazione.emplace(ambiente.Basi());
    int posi = 0;
    for (const Riga& r : righe) {
      Tessarc().Inserisci("Movimenti", {{"Anno", anno},
                                        {"NumDoc", numero},
                                        {"Posi", posi += 100},
                                        {"Causale", r.causale},
                                        {"Descrizione", r.descrizione},
                                        {"CFP", r.cfp},
                                        {"Conto", r.conto},
                                        {"ImpoDare", r.saldo.Negativo() ? Importo() : r.saldo},
                                        {"ImpoAvere", r.saldo.Negativo() ? -r.saldo : Importo()}});
    }
    Tessarc().Inserisci(
        "Articoli",
        {{"Anno", anno}, {"NumDoc", numero}, {"Dt", dt}, {"Riva", riva}, {"NProt", nProt}});
    if (transazione) transazione->Conferma();
  }
  void Verso(Destinazione destinazione) {
    SceltaUscita scelta;
    scelta.destinazione = destinazione;
    dialoghi.ScegliaUscita(scelta);
  }

  FabbricaDiProva uscite;
};

}  // namespace fenalto::prova
