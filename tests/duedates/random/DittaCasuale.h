// A company whose due dates are moved at random by the use cases themselves, and a plain model
// beside it: what each party's ledger must exceed its open due dates by. Only what told a warning,
// or was asked to write no registration, changes that.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "duedates/payments/PagamentiScadenzario.h"
#include "duedates/random/Mossa.h"
#include "duedates/riba/Riba.h"
#include "duedates/schedules/Scadenza.h"
#include "ledger/Stampati.h"
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {

/// Class and code.
using Parte = std::pair<std::string, std::string>;
/// What is owed, by whoever owes it: for both classes above zero as an invoice makes it.
using Dovuti = std::map<Parte, Importo>;

inline Parte ParteDi(const Mossa& mossa) {
  return {mossa.quale % 2 == 0 ? "C" : "F", mossa.quale / 2 % 2 == 0 ? "0001" : "0002"};
}

/// What is left to pay of it, nothing once it is closed.
inline Importo Aperto(const duedates::Scadenza& s) {
  return s.Aperta() ? s.Residuo() : Importo();
}

class DittaCasuale : public FatturaDiProva {
 protected:
  DittaCasuale();

  /// Books and due dates empty again, the model too.
  void Ricomincia();
  /// Makes the move and looks at everything that must hold after any.
  void Fai(const Mossa& mossa);
  /// Ledger less open due dates, as the model expects it: parties without a difference are left
  /// out.
  [[nodiscard]] Dovuti Attese() const;
  /// What was done since Ricomincia, for who reads a failure.
  [[nodiscard]] const std::string& Racconto() const { return racconto_; }

 private:
  static constexpr const char* kBanca = "B1";

  struct Emessa {
    Parte parte;
    std::string pagamento;
    Importo totale;
  };

  void NuovaFattura(const Mossa& mossa);
  void CambiaFattura(const Mossa& mossa);
  void EliminaFattura(const Mossa& mossa);
  void Paga(const Mossa& mossa, duedates::PagamentiScadenzario::Modo modo);
  void SceglieEDigita(duedates::PagamentiScadenzario& pagamento, const duedates::Scadenza& scadenza,
                      int come, bool registra);
  void NuovoAnticipo(const Mossa& mossa);
  void Presenta(const Mossa& mossa);
  void Rileggi(const std::string& file, const std::vector<duedates::Scadenza>& presentate);
  void Raggruppa(const Mossa& mossa);
  void NuovoInsoluto(const Mossa& mossa);
  void CambiaInsoluto(const Mossa& mossa);
  void EliminaPagamento(const Mossa& mossa);
  void Deduci(const Mossa& mossa);
  void Ripristina(const Mossa& mossa);
  void ScadenzaAMano(const Mossa& mossa);
  void EliminaScadenza(const Mossa& mossa);

  /// The move changes the difference of a party; `avviso` is a piece of what it must have told,
  /// empty where the user himself asked for no registration.
  void Scosta(const Parte& parte, Importo quanto, const std::string& avviso = "");
  void Controlla();
  void ControllaRegistrazioni();
  void ControllaScadenze();
  /// Balances and open due dates, read row by row.
  Dovuti DelLibro();
  Dovuti DelloScadenzario();

  std::vector<duedates::Scadenza> Leggi(const std::string& condizione);
  std::optional<duedates::Scadenza> UnaDelle(const std::string& condizione, const Mossa& mossa);
  Emessa* Una(const Mossa& mossa, std::int64_t& numDoc);
  /// No due date of the registration has been paid or touched.
  [[nodiscard]] std::string DelDocumento(std::int64_t numDoc) const;
  bool Intatta(std::int64_t numDoc);
  /// Whether the registration of its payment is still there.
  bool HaSeguito(std::int64_t numDoc);
  /// Answers what is asked before a document is corrected or erased: it goes on alone.
  void Prosegue(std::int64_t numDoc);
  Importo SommaScadenze(std::int64_t numDoc);
  void Nota(const std::string& testo) { racconto_ += "\n  " + testo; }

  Dovuti attese_;
  std::map<std::int64_t, Emessa> emesse_;  ///< by number of registration
  std::string racconto_;
  int nFat_ = 0;
  FabbricaDiProva uscite_;
};

}  // namespace fenalto::prova
