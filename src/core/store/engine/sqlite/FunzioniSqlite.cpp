#include "core/store/engine/sqlite/FunzioniSqlite.h"

#include <sqlite3.h>

#include <array>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/sql/Funzioni.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"
#include "core/values/Testo.h"

namespace fenalto::engine::sqlite {

namespace {

using sql::Cella;
using sql::Deposito;
using sql::Fn;

constexpr int kPura = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
constexpr int kArgomentiMassimi = 3;

int ConfrontaTesti(void*, int la, const void* a, int lb, const void* b) {
  return ConfrontaTesto({static_cast<const char*>(a), static_cast<std::size_t>(la)},
                        {static_cast<const char*>(b), static_cast<std::size_t>(lb)});
}

Cella CellaDi(sqlite3_value* valore) {
  switch (sqlite3_value_type(valore)) {
    case SQLITE_INTEGER:
      return Cella::DiIntero(sqlite3_value_int64(valore));
    case SQLITE_FLOAT:
      return Cella::DiReale(sqlite3_value_double(valore));
    case SQLITE_NULL:
      return {};
    default: {
      const auto* testo = reinterpret_cast<const char*>(sqlite3_value_text(valore));
      if (testo == nullptr) throw std::bad_alloc();
      return Cella::DiTesto({testo, static_cast<std::size_t>(sqlite3_value_bytes(valore))});
    }
  }
}

void Rispondi(sqlite3_context* contesto, const Cella& cella) {
  switch (cella.genere) {
    case Cella::Genere::Nullo:
      sqlite3_result_null(contesto);
      break;
    case Cella::Genere::Intero:
      sqlite3_result_int64(contesto, cella.intero);
      break;
    case Cella::Genere::Reale:
      sqlite3_result_double(contesto, cella.reale);
      break;
    case Cella::Genere::Testo:
      sqlite3_result_text64(contesto, cella.testo.data() == nullptr ? "" : cella.testo.data(),
                            cella.testo.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
      break;
  }
}

/// No exception may cross the engine's C code.
template <typename F>
void Protetta(sqlite3_context* contesto, F lavoro) noexcept {
  try {
    lavoro();
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(contesto);
  } catch (const std::exception& errore) {
    sqlite3_result_error(contesto, errore.what(), -1);
  }
}

template <Fn funzione>
void Chiama(sqlite3_context* contesto, int n, sqlite3_value** valori) {
  Protetta(contesto, [&] {
    std::array<Cella, kArgomentiMassimi> pochi;
    std::vector<Cella> molti(n > kArgomentiMassimi ? static_cast<std::size_t>(n) : 0);
    Cella* argomenti = molti.empty() ? pochi.data() : molti.data();
    for (int i = 0; i < n; ++i) argomenti[i] = CellaDi(valori[i]);
    Deposito deposito;
    Rispondi(contesto, sql::Calcola(funzione, {argomenti, static_cast<std::size_t>(n)}, deposito));
  });
}

// Aggregates. Their memory comes zeroed from the engine and is freed by it.

/// The sum stands in two halves: the engine aligns its memory to 8 bytes, not to 16.
struct Media {
  std::uint64_t bassa;
  std::int64_t alta;
  std::int64_t conta;

  [[nodiscard]] Intero128 Somma() const { return (Intero128{alta} << 64) | bassa; }
  void Somma(Intero128 somma) {
    bassa = static_cast<std::uint64_t>(somma);
    alta = static_cast<std::int64_t>(somma >> 64);
  }
};

void MediaPasso(sqlite3_context* contesto, int, sqlite3_value** valori) {
  if (sqlite3_value_type(valori[0]) == SQLITE_NULL) return;
  auto* media = static_cast<Media*>(sqlite3_aggregate_context(contesto, sizeof(Media)));
  if (media == nullptr) return sqlite3_result_error_nomem(contesto);
  media->Somma(media->Somma() + sqlite3_value_int64(valori[0]));
  ++media->conta;
}

void MediaFine(sqlite3_context* contesto) {
  const auto* media = static_cast<const Media*>(sqlite3_aggregate_context(contesto, 0));
  if (media == nullptr || media->conta == 0) return sqlite3_result_null(contesto);
  sqlite3_result_int64(contesto, sql::MediaImporti(media->Somma(), media->conta));
}

struct Estremo {
  sqlite3_value* valore;
};

template <bool ultimo>
void EstremoPasso(sqlite3_context* contesto, int, sqlite3_value** valori) {
  auto* estremo = static_cast<Estremo*>(sqlite3_aggregate_context(contesto, sizeof(Estremo)));
  if (estremo == nullptr) return sqlite3_result_error_nomem(contesto);
  if (estremo->valore != nullptr) {
    if (!ultimo) return;
    sqlite3_value_free(estremo->valore);
  }
  estremo->valore = sqlite3_value_dup(valori[0]);
  if (estremo->valore == nullptr) sqlite3_result_error_nomem(contesto);
}

void EstremoFine(sqlite3_context* contesto) {
  auto* estremo = static_cast<Estremo*>(sqlite3_aggregate_context(contesto, 0));
  if (estremo == nullptr || estremo->valore == nullptr) return sqlite3_result_null(contesto);
  sqlite3_result_value(contesto, estremo->valore);
  sqlite3_value_free(estremo->valore);
  estremo->valore = nullptr;
}

void Controlla(int esito, const char* cosa) {
  if (esito != SQLITE_OK) {
    throw std::runtime_error(std::string("il motore non accetta ") + cosa + ": " +
                             sqlite3_errstr(esito));
  }
}

/// Searches go over whole tables at each key: a call of them does nothing but search.
template <bool (*trovata)(std::string_view, std::string_view)>
void Cerca(sqlite3_context* contesto, int, sqlite3_value** valori) {
  Protetta(contesto, [&] {
    const Cella dove = CellaDi(valori[0]);
    const Cella cosa = CellaDi(valori[1]);
    if (dove.Nullo() || cosa.Nullo()) return sqlite3_result_null(contesto);
    sqlite3_result_int(contesto, trovata(dove.testo, cosa.testo) ? 1 : 0);
  });
}

template <Fn funzione>
constexpr auto Chiamata() {
  if constexpr (funzione == Fn::InRicerca) return Cerca<fenalto::InRicerca>;
  if constexpr (funzione == Fn::IniziaRicerca) return Cerca<fenalto::IniziaRicerca>;
  return Chiama<funzione>;
}

template <Fn funzione>
void Registra(sqlite3* connessione) {
  const sql::FunzioneMotore& f = sql::Descrizione(funzione);
  if (f.nome == nullptr) return;
  for (int n = f.argomentiMinimi; n <= f.argomentiMassimi; ++n) {
    Controlla(sqlite3_create_function_v2(connessione, f.nome, n, kPura, nullptr,
                                         Chiamata<funzione>(), nullptr, nullptr, nullptr),
              f.nome);
  }
}

template <std::size_t... I>
void RegistraTutte(sqlite3* connessione, std::index_sequence<I...>) {
  (Registra<static_cast<Fn>(I)>(connessione), ...);
}

void RegistraAggregato(sqlite3* connessione, const char* nome,
                       void (*passo)(sqlite3_context*, int, sqlite3_value**),
                       void (*fine)(sqlite3_context*)) {
  Controlla(sqlite3_create_function_v2(connessione, nome, 1, SQLITE_UTF8 | SQLITE_INNOCUOUS,
                                       nullptr, nullptr, passo, fine, nullptr),
            nome);
}

}  // namespace

void RegistraMotore(sqlite3* connessione) {
  Controlla(sqlite3_create_collation_v2(connessione, kCollazione, SQLITE_UTF8, nullptr,
                                        ConfrontaTesti, nullptr),
            kCollazione);
  RegistraTutte(connessione, std::make_index_sequence<static_cast<std::size_t>(Fn::Numero_)>{});
  RegistraAggregato(connessione, "fen_media", MediaPasso, MediaFine);
  RegistraAggregato(connessione, "fen_primo", EstremoPasso<false>, EstremoFine);
  RegistraAggregato(connessione, "fen_ultimo", EstremoPasso<true>, EstremoFine);
}

}  // namespace fenalto::engine::sqlite
