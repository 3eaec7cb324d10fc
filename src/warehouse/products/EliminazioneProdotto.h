// Erasing the code of a product, or giving it another one: the only ways in which a product that is
// in use goes or changes its name. Each is one transaction over all that names the code, as the
// references' table has it (core/archives/Riferimenti.h).
//
// Given the code of another product it is a merge: what named the one names the other. Where both
// stood (a supplier, a price list, a bill of materials) what the other has stays.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/archives/Riferimenti.h"
#include "core/reports/Uscita.h"
#include "core/session/Ambiente.h"
#include "warehouse/products/UsiProdotto.h"

namespace fenalto::warehouse {

/// Under which the attachments of products are filed.
inline constexpr const char* kAllegatiProdotti = "Prodotti";

/// Why a product can't be erased at all (it has a bill of materials); nothing when it can.
std::optional<std::string> ImpedimentoEliminazione(Ambiente& ambiente, const std::string& codice);

/// Erases a product wherever it stands, in one transaction: the rows of documents, orders and jobs
/// and the customers lose its code and keep the rest; its rows on price lists, in bills and its
/// suppliers go; the product's own record and its attachments too. Asks and tells nothing; the
/// archive of products calls it for an unused product as well, so that nothing is left behind.
/// False when `passo` stopped it. Throws what the writing throws; either way nothing was written
/// then.
bool EliminaOvunque(Ambiente& ambiente, const std::string& codice,
                    const archives::PassoRiferimenti& passo = {});

/// Gives a product another code wherever it stands, in one transaction; onto the code of another
/// product it merges the two. The same terms as EliminaOvunque.
bool RinominaOvunque(Ambiente& ambiente, const std::string& codice, const std::string& nuovo,
                     const archives::PassoRiferimenti& passo = {});

/// What a merge finds twice, and gives up: "fornitore 0001 Rossi", "listino L1", "distinta base di
/// P3". At most `massimo` of them, and how many there are in all.
struct DoppiUnione {
  std::vector<std::string> primi;
  std::int64_t quanti = 0;
};
DoppiUnione TrovaDoppi(Ambiente& ambiente, const std::string& codice, const std::string& nuovo,
                       std::size_t massimo);

/// The code of a product through which one of the two would come to be a component of itself, when
/// they were merged; empty when none.
std::string AnelloUnione(Ambiente& ambiente, const std::string& codice, const std::string& nuovo);

/// What the window does with one product: shows and prints the uses, erases, renames. The archive
/// gives its record up before it opens the window, and finds the product gone (or under its new
/// code) when Fatto() says "OK".
class EliminazioneProdotto {
 public:
  explicit EliminazioneProdotto(Ambiente& ambiente, reports::FabbricaUscite* uscite = nullptr)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// Takes a product; false when there is none of that code.
  bool Apri(const std::string& codice);
  [[nodiscard]] bool Aperto() const { return !codice_.empty(); }
  [[nodiscard]] const std::string& Codice() const { return codice_; }
  [[nodiscard]] const std::string& Descrizione() const { return descrizione_; }
  /// "il prodotto X1è presente nei seguenti documenti"
  [[nodiscard]] std::string Titolo() const;
  [[nodiscard]] UsiProdotto Usi() const { return {ambiente_, codice_}; }
  /// Prints the uses under the title; false when there are none (told) or it was cancelled.
  bool StampaUsi();
  /// "Conferma eliminazione": asks, refuses a product with a bill, erases.
  bool Elimina();
  /// "Conferma modifica codice": checks, tells what a merge gives up, asks, changes. `campo` is the
  /// field to go to after a refusal.
  bool Rinomina(const std::string& digitato, std::string* campo = nullptr);
  /// "OK" once it was erased or renamed, else empty.
  [[nodiscard]] const std::string& Fatto() const { return fatto_; }

 private:
  /// The product's record held while it is written; false (told) when somebody has it in edit.
  bool Prendi(const std::string& codice, Rs& record);
  bool Accettato(const std::string& nuovo, bool unione, const std::string& descrizioneAltro);
  /// Does the work with its progress, and tells what fails.
  bool Esegui(const std::string& testo, const std::vector<std::string>& daTenere,
              const std::function<bool(const archives::PassoRiferimenti&)>& lavoro);

  Ambiente& ambiente_;
  reports::FabbricaUscite* uscite_;
  std::string codice_;
  std::string descrizione_;
  std::string um_;
  std::string fatto_;
};

}  // namespace fenalto::warehouse
