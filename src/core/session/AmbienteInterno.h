// What an Ambiente holds.
#pragma once

#include <sys/types.h>

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <thread>

#include "core/session/Ambiente.h"
#include "core/session/Ditte.h"
#include "core/session/IndiceIni.h"
#include "core/session/RecordRecenti.h"
#include "core/store/Presenza.h"

namespace fenalto {

/// A settings file as it was read, and how to tell that it hasn't changed since.
struct IniLetto {
  struct Impronta {
    dev_t dispositivo = 0;
    ino_t nodo = 0;
    off_t byte = -1;
    std::int64_t modificato = 0;  ///< nanoseconds
    bool operator==(const Impronta&) const = default;
  };
  Impronta impronta;
  /// When the file was last looked at; nothing asks for a look at the next read.
  std::optional<std::chrono::steady_clock::time_point> guardato;
  IndiceIni indice;
};

/// An open company. A session to be is prepared whole beside the one that goes on, so that giving
/// up or a failure leaves that one as it was.
struct Sessione {
  std::string ditta;
  std::filesystem::path fileImpostazioni;
  IniLetto impostazioni;
  /// Before the databases, so that it goes after them.
  std::shared_ptr<Presenza> presenza;
  std::unique_ptr<BasiDati> basi;
  std::vector<int> anni;
  int anno = 0;
  bool euro = true;
  bool serveAccesso = false;
  Utente utente;
  std::unique_ptr<RecordRecenti> recenti;
};

struct Ambiente::Interno {
  Interno(OpzioniAmbiente opzioni, Dialoghi& d, Orologio& o, Caso& c);
  Interno(const Interno&) = delete;
  Interno& operator=(const Interno&) = delete;
  ~Interno();

  /// Opens a company without touching the session that is open.
  Esito<std::unique_ptr<Sessione>> Prepara(const std::string& ditta, int anno) const;
  /// How this session opens databases.
  [[nodiscard]] OpzioniApertura Apertura() const;
  /// Years of `basi`, in order.
  static std::vector<int> LeggiAnni(BasiDati& basi);
  static Esito<bool> ScegliAnno(Sessione& sessione, int anno);
  Esito<bool> Accedi(Sessione& sessione, const std::string& cod, const std::string& password);
  /// Asks for user and password until they are right; false when the user gave up.
  bool ChiediAccesso(Sessione& sessione);
  /// Who is logged in stays so when the same company is opened again.
  void TieniUtente(Sessione& nuova) const;
  /// Choice of company and year, log-in, and the session is the chosen one. False leaves it as it
  /// was.
  bool Scegli(const Ambiente& ambiente);
  void Installa(std::unique_ptr<Sessione> nuova);
  void ConsigliaServer();
  /// The open session; throws std::logic_error when there is none.
  [[nodiscard]] Sessione& Aperta() const;
  /// The keys of a settings file (the company's when empty), read again when it changed.
  const IndiceIni& Impostazioni(const std::filesystem::path& file);
  [[nodiscard]] std::filesystem::path PercorsoImpostazioni(const std::filesystem::path& file) const;
  void AttendiCopia();

  OpzioniAmbiente opzioni;
  Ditte ditte;
  Dialoghi& dialoghi;
  Orologio& orologio;
  Caso& caso;
  std::unique_ptr<Sessione> sessione;

  int tentativiErrati = 0;
  std::set<std::filesystem::path> consigliate;  ///< folders for which the server was recommended

  std::map<std::filesystem::path, IniLetto> letti;

  std::thread copia;
  std::mutex bloccoCopia;
  bool copiaInCorso = false;
  std::string guastoCopia;
  std::string copiaTentata;  ///< company and day of the last try, which isn't repeated
};

}  // namespace fenalto
