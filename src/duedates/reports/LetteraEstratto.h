// The pages of the statements of account.
#pragma once

#include <string>
#include <vector>

#include "core/reports/Cornice.h"
#include "duedates/reports/EstrattoConto.h"

namespace fenalto::duedates {

class LetteraEstratto {
 public:
  LetteraEstratto(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                  const SceltaEstrattoConto& scelta);

  /// False when the user gave up, cancelled, or the output failed.
  bool Esegui(std::int64_t quante);

 private:
  enum class Sezione { Nessuna, Scadute, AScadere, Presentate, Pagate };
  struct Destinatario {
    std::string nome;
    std::string nome2;
    std::string indirizzo;
    std::string localita;
    std::string piva;
  };

  bool Scadenza(const ScadenzaStampata& s);
  void ApriParte(const ScadenzaStampata& s);
  void ChiudiParte();
  /// Those presented to the bank, or those paid.
  void Chiuse(Sezione sezione, const std::string& titolo);
  void Apri(Sezione sezione, const std::string& titolo);
  void ChiudiSezione();
  void Riga(const ScadenzaStampata& s);
  void RigaModello(const ScadenzaStampata& s);
  void Totale(const std::string& scritta, Importo importo, bool evidente);
  void Titoletto(const std::string& testo);
  void Capoverso(const std::string& testo);
  void Vuota();
  void Chiusura();
  void Testata();
  void TestataLettera();
  void TestataModello();
  [[nodiscard]] bool Cliente() const;
  [[nodiscard]] Destinatario LeggiDestinatario(const ScadenzaStampata& s) const;

  Ambiente& ambiente_;
  const SceltaEstrattoConto& scelta_;
  reports::Stampa stampa_;
  reports::DatiDitta ditta_;
  bool grafico_ = false;

  // The party at hand; its letter begins with the first open due date.
  std::string conto_;
  ScadenzaStampata prima_;
  Destinatario destinatario_;
  bool aperta_ = false;
  int paginaLettera_ = 0;
  Sezione sezione_ = Sezione::Nessuna;
  Importo parziale_;
  Importo scaduto_;
  Importo aScadere_;
  /// Closed ones come below, so they wait: a party has few since a day.
  std::vector<ScadenzaStampata> chiuse_;
};

}  // namespace fenalto::duedates
