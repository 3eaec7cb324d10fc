// The search over functions, accounts, parties and records: an index read once in memory, with case
// and accents folded when it is made, so that a letter typed costs one pass over plain text.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Rinvio.h"

namespace fenalto::overview {

/// What an entry is; where hits are equally good, these come in this order.
enum class GenereVoce : std::uint8_t { Recente, Funzione, Conto, Cliente, Fornitore, Prodotto };
inline constexpr std::size_t kGeneri = 6;
/// The kind in a word, for the user: "funzione", "conto".
const char* NomeGenere(GenereVoce genere);

struct Voce {
  GenereVoce genere = GenereVoce::Funzione;
  std::string nome;
  std::string codice;    ///< of the record; empty for a function
  std::string percorso;  ///< where it stands, shown beside the name
  std::string sinonimi;  ///< other words that find it, parted by ';'
  Rinvio rinvio;
  Rinvio archivio = {};  ///< where the record is changed, when `rinvio` only shows it
};

/// How well an entry answers, the best first.
enum class Grado : std::uint8_t {
  Uguale,         ///< the name, the code or another word for it is what was typed
  Inizia,         ///< the name or the code begins so
  IniziaAltro,    ///< another word for it begins so
  ParoleNome,     ///< each word typed begins one of the name
  DentroNome,     ///< each word stands inside the name or the code
  ParoleAltre,    ///< each word begins one of the name or of the others
  DentroAltre,    ///< each word stands inside them
  ConIlPercorso,  ///< some word only stands in the path
};

struct Colpo {
  const Voce* voce = nullptr;  ///< of the index, until it changes
  Grado grado = Grado::Uguale;
};

class IndiceVoci {
 public:
  /// Functions and records on one side, the company's accounts and parties on the other: the ones
  /// follow the session, the others are read again when the box opens.
  enum class Parte : std::uint8_t { Sessione, Ditta };
  void Imposta(Parte parte, std::vector<Voce> voci);

  /// Hits by kind, the kind of the best hit first, at most `perGenere` of each (three times as many
  /// functions). Nothing typed finds records and functions, in their order.
  [[nodiscard]] std::vector<Colpo> Cerca(std::string_view testo, std::size_t perGenere) const;

 private:
  struct Piegata {
    Voce voce;
    /// Name, code, other words and path, folded, each ended by a line feed.
    std::string testo;
    std::uint32_t fineNome = 0;
    std::uint32_t fineCodice = 0;
    std::uint32_t fineSinonimi = 0;
  };
  static Piegata Piega(Voce voce);
  /// False when a word is nowhere.
  static bool Valuta(const Piegata& voce, std::string_view testo,
                     const std::vector<std::string_view>& parole, Grado& grado);

  std::array<std::vector<Piegata>, 2> parti_;
};

}  // namespace fenalto::overview
