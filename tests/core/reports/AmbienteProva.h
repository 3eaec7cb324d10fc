// What a report needs around it: a session without a company, and outputs chosen beforehand.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "core/reports/Stampa.h"
#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"

namespace fenalto::reports {

/// Gives the output prepared, once.
class FabbricaProva : public FabbricaUscite {
 public:
  std::unique_ptr<Uscita> prossima;
  std::unique_ptr<Uscita> Crea(const SceltaUscita& /*scelta*/,
                               const std::string& /*rapporto*/) override {
    return std::move(prossima);
  }
};

/// Keeps the pages where the test still sees them after the print has ended.
class UscitaSpia : public Uscita {
 public:
  struct Visto {
    std::vector<Pagina> pagine;
    std::string titolo;
    int fini = 0;
    int annulli = 0;
    /// Pages taken before the output fails.
    std::size_t massimo = std::numeric_limits<std::size_t>::max();
  };
  UscitaSpia(bool soloTesto, Visto& visto) : soloTesto_(soloTesto), visto_(visto) {}
  [[nodiscard]] bool SoloTesto() const override { return soloTesto_; }
  void Titolo(const std::string& titolo) override { visto_.titolo = titolo; }
  bool Aggiungi(Pagina pagina) override {
    if (visto_.pagine.size() >= visto_.massimo) return false;
    visto_.pagine.push_back(std::move(pagina));
    return true;
  }
  Esito<bool> Fine() override {
    ++visto_.fini;
    if (visto_.pagine.size() >= visto_.massimo) return Errore{"la stampante è spenta"};
    return true;
  }
  void Annulla() override { ++visto_.annulli; }

 private:
  bool soloTesto_;
  Visto& visto_;
};

struct AmbienteProva {
  CartellaProva cartella;
  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  Ambiente ambiente{OpzioniProva(cartella.Percorso()), dialoghi, orologio, caso};
  FabbricaProva fabbrica;
  UscitaSpia::Visto visto;
  Stampa stampa{ambiente, fabbrica};

  void Inizia(bool soloTesto) { stampa.Inizio(std::make_unique<UscitaSpia>(soloTesto, visto)); }
};

/// The text lines of a page.
inline std::vector<std::string> Righe(const Pagina& pagina) {
  std::vector<std::string> righe;
  for (const Elemento& elemento : pagina.elementi)
    if (const auto* riga = std::get_if<RigaFissa>(&elemento)) righe.push_back(riga->testo);
  return righe;
}

}  // namespace fenalto::reports
