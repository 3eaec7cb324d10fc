// Syntax tree of a statement. The parser fills it with names; the binder adds types, sources and
// conversions in place; emitter and evaluator only read it.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Catalogo.h"
#include "core/sql/Dialetto.h"
#include "core/sql/Funzioni.h"
#include "core/sql/Traduttore.h"

namespace fenalto::sql {

/// Nesting of parentheses, operators and subqueries beyond which a text is refused.
inline constexpr int kProfonditaMassima = 200;

struct Espr;
struct Query;
struct Fonte;
using EsprPtr = std::unique_ptr<Espr>;

enum class GenereEspr : std::uint8_t {
  Campo,
  Letterale,
  Nullo,
  Chiamata,    ///< function by name, before binding
  Aritmetica,  ///< + - * / \ Mod & or a unary minus, before binding
  Calcolo,     ///< function of the engine, after binding
  E,
  O,
  Non,
  Confronto,
  Come,     ///< LIKE
  Tra,      ///< BETWEEN
  In,       ///< IN (list): first the value, then the list
  InQuery,  ///< IN (SELECT ...)
  Esiste,
  ENullo,  ///< IS NULL
  Se,      ///< IIf
  Aggregato,
  SottoQuery,
  Rinvio,  ///< column of the SELECT list named by its alias
  Stella   ///< the * of Count(*)
};

/// Expression. `operatore` holds the symbol of Aritmetica and Confronto as Segno::simbolo does, 'm'
/// for Mod.
struct Espr {
  GenereEspr genere;
  char operatore = 0;
  bool negato = false;
  Tipo tipo = Tipo::Nullo;
  std::size_t posizione = 0;
  int profondita = 1;
  std::vector<EsprPtr> figli;
  std::unique_ptr<Query> query;

  // Names, as written (views on the text, which outlives the tree).
  std::string_view qualifica;
  std::string_view nome;

  // Letterale: the literal, and its index in the text, or -1 when it is written into the SQL.
  const Letterale* letterale = nullptr;
  int indice = -1;
  bool puro = false;
  bool decimale = false;
  bool reale = false;
  bool prefisso = false;
  Legame legame = Legame::Testo;

  // After binding.
  Fonte* fonte = nullptr;
  std::size_t colonna = 0;
  Fn funzione = Fn::Piu;
  Aggregazione aggregazione = Aggregazione::Conta;
  const Espr* rinvio = nullptr;
  std::size_t peso = 1;  ///< of a Rinvio: parts of what it stands for
  bool haAggregati = false;

  Espr(GenereEspr g, std::size_t p) : genere(g), posizione(p) {}
};

/// Column that a source offers.
struct ColonnaFonte {
  std::string nome;
  Tipo tipo = Tipo::Testo;
  std::string sql;      ///< name for the engine, not yet quoted
  std::string tabella;  ///< where it comes from as it stands; empty for an expression
  std::string colonna;
  bool nascosta = false;
  bool cifre = false;  ///< ColonnaCatalogo::cifre
};

/// One table, view or subquery of a FROM.
struct Fonte {
  std::string nome;  ///< how the text calls it
  int numero = 0;    ///< t1, t2, ... for the engine
  std::size_t posizione = 0;
  const TabellaCatalogo* tabella = nullptr;
  Query* query = nullptr;  ///< of a view or subquery
  std::vector<ColonnaFonte> colonne;
  /// Every Campo bound to this source.
  std::vector<Espr*> riferimenti;
  /// The table whose rows are those of the source, and identify them; empty when there is none.
  std::string tabellaRiga;
};

enum class TipoGiunzione : std::uint8_t { Virgola, Interna, Sinistra };

/// Tree of a FROM.
struct Da {
  enum class Genere : std::uint8_t { Tabella, SottoQuery, Giunzione } genere = Genere::Tabella;
  std::size_t posizione = 0;
  std::string_view nome;
  std::string_view alias;
  std::unique_ptr<Query> query;
  TipoGiunzione giunzione = TipoGiunzione::Interna;
  std::unique_ptr<Da> sinistra;
  std::unique_ptr<Da> destra;
  EsprPtr condizione;
  Fonte* fonte = nullptr;
  int profondita = 1;
};

/// One item of a SELECT list; `*` has no expression until the binder spreads it.
struct Voce {
  EsprPtr espr;
  std::string_view alias;
  std::string_view tabellaStella;
  std::size_t posizione = 0;
  std::string nome;  ///< of the output column
};

struct VoceOrdine {
  EsprPtr espr;
  bool discendente = false;
  int colonna = -1;  ///< output column it names, from 0
};

/// One SELECT without its ORDER BY.
struct Selezione {
  bool distinta = false;
  std::optional<std::int64_t> primi;
  std::vector<Voce> voci;
  std::unique_ptr<Da> da;
  EsprPtr dove;
  std::vector<EsprPtr> gruppi;
  EsprPtr avendo;
  std::size_t posizione = 0;
  // After binding.
  std::vector<std::unique_ptr<Fonte>> fonti;
  std::vector<EsprPtr> aggiunte;  ///< conditions that take the place of a dropped join
  bool aggregata = false;
};

/// SELECTs joined by UNION, in their order.
struct Query {
  std::vector<std::unique_ptr<Selezione>> rami;
  std::vector<bool> unioneTutti;  ///< between branch i and i+1: UNION ALL
  std::vector<VoceOrdine> ordine;
  std::size_t posizione = 0;
  // After binding.
  std::vector<ColonnaFonte> colonne;
  /// The one source whose rows are those of the query, when there is one.
  Fonte* base = nullptr;
  bool emettiRiga = false;
};

/// A whole statement.
struct Albero {
  Istruzione::Genere genere = Istruzione::Genere::Selezione;
  std::unique_ptr<Query> query;  ///< of SELECT and INSERT ... SELECT
  std::string_view tabella;
  std::string_view alias;
  std::size_t posizioneTabella = 0;
  struct Assegnazione {
    std::string_view nome;
    std::size_t posizione = 0;
    EsprPtr espr;
    std::string_view colonna;  ///< as the catalogue names it
  };
  /// UPDATE: what is set; INSERT: columns, with the values of VALUES.
  std::vector<Assegnazione> assegnazioni;
  std::vector<EsprPtr> valori;
  EsprPtr dove;
  std::unique_ptr<Fonte> fonte;
  /// Literals of the text.
  std::deque<Letterale> letterali;
};

/// Travels from where a text is refused to the functions that hand the refusal back as a value:
/// never past Traduci and Predicato::Leggi.
struct Rifiuto {
  ErroreSql errore;
};

[[noreturn]] void Rifiuta(std::size_t posizione, std::string motivo);

EsprPtr NuovaEspr(GenereEspr genere, std::size_t posizione);
/// Appends a child; refuses a tree too deep.
void Aggiungi(Espr& padre, EsprPtr figlio);

}  // namespace fenalto::sql
