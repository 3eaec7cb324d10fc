// Printed form of the journal.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/reports/Cornice.h"
#include "ledger/journal/Giornale.h"

namespace fenalto::ledger {

/// A row of the journal with its head's data.
struct RigaGiornale {
  Data dt;
  std::int64_t numDoc = 0;
  std::int64_t nProt = 0;
  std::string causale;
  std::string descrizione;
  std::string cfp;
  std::string conto;
  Importo dare;
  Importo avere;
  bool prima = false;  ///< opens its registration
};

/// Condition of a choice on the heads ("Articoli.Anno=2024 AND ...").
std::string CondizioneGiornale(const SceltaGiornale& scelta, int anno);

/// Pieces of at most `larghezza` characters, broken at blanks where it can; one at least.
std::vector<std::string> InRighe(const std::string& testo, std::size_t larghezza);

/// Lays the rows out on pages, each of which ends and begins with the amounts carried forward.
class TabulatoGiornale {
 public:
  TabulatoGiornale(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                   const SceltaGiornale& scelta);
  TabulatoGiornale(const TabulatoGiornale&) = delete;
  TabulatoGiornale& operator=(const TabulatoGiornale&) = delete;

  /// False when the user gave up, cancelled, or the output failed.
  bool Esegui();

 private:
  /// Hears which output was chosen.
  class Ascolto : public reports::FabbricaUscite {
   public:
    explicit Ascolto(reports::FabbricaUscite& uscite) : uscite_(uscite) {}
    std::unique_ptr<reports::Uscita> Crea(const SceltaUscita& scelta,
                                          const std::string& rapporto) override {
      anteprima = scelta.destinazione == Destinazione::Anteprima;
      return uscite_.Crea(scelta, rapporto);
    }
    bool anteprima = false;

   private:
    reports::FabbricaUscite& uscite_;
  };

  bool Scorri();
  void Testata();
  void TestataDitta();
  void TestataModello();
  void Riga(const RigaGiornale& riga);
  void RigaTesto(const RigaGiornale& riga, const Rinvio& rinvio);
  void RigaCompatta(const RigaGiornale& riga, const Rinvio& rinvio);
  void RigaModello(const RigaGiornale& riga, const Rinvio& rinvio);
  /// Into the amounts carried forward, as soon as the row's amount is on the page: its text may go
  /// on on the next.
  void Conta(const RigaGiornale& riga);
  void Seguiti(const std::vector<std::string>& pezzi, const Rinvio& rinvio);
  void FinePagina();
  void Progressivi(const std::string& testo);
  void ProgressiviModello(const std::string& testo, double y);
  void Totali();
  [[nodiscard]] std::string Riferimento(const RigaGiornale& riga) const;
  const std::string& Conto(const std::string& cfp, const std::string& conto);
  const std::string& Causale(const std::string& cod);
  [[nodiscard]] Valore PerModello(Importo importo) const;
  [[nodiscard]] bool ConImporti() const { return !dare_.Zero() || !avere_.Zero(); }

  Ambiente& ambiente_;
  const SceltaGiornale& scelta_;
  Ascolto uscite_;
  reports::Stampa stampa_;
  reports::DatiDitta ditta_;
  bool grafico_ = false;
  int pagina_ = 0;
  Importo dare_;
  Importo avere_;
  std::size_t larghezza_;
  std::string rigaDare_;
  std::string rigaAvere_;
  std::string rigaTotali_;
  std::map<std::pair<std::string, std::string>, std::string> conti_;
  std::map<std::string, std::string> causali_;
};

}  // namespace fenalto::ledger
