#include "core/session/Utenti.h"

#include <sodium.h>

#include <array>
#include <atomic>
#include <stdexcept>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

constexpr int kTutto = 99;
constexpr std::size_t kMassimoCodice = 20;
constexpr std::size_t kMassimaPassword = 1024;

std::atomic<bool> economico{false};

void PreparaLibreria() {
  static const int esito = sodium_init();
  if (esito < 0) throw std::runtime_error("la libreria di cifratura non parte");
}

std::string DelCodice(const std::string& cod) {
  return " where " + sql::Criterio("Cod", "=", cod);
}

std::int64_t Quanti(Archivio& archivio, const std::string& condizione) {
  return Nz(archivio.Singolo("select count(*) from Ut" + condizione)).Intero();
}

std::int64_t AltriConTutto(Archivio& archivio, const std::string& cod) {
  return Quanti(archivio, " where " + sql::Criterio("Livello", "=", kTutto) + " and " +
                              sql::Criterio("Cod", "<>", cod));
}

/// What the fields alone can be refused for.
Esito<bool> VerificaCampi(const Utente& utente, const std::string& password, bool nuovo) {
  if (utente.cod.empty() || Rifila(utente.cod) != utente.cod) {
    return Errore{"il codice utente manca o ha spazi ai lati"};
  }
  if (LunghezzaTesto(utente.cod) > kMassimoCodice) {
    return Errore{"il codice utente è troppo lungo: al massimo " + std::to_string(kMassimoCodice) +
                  " caratteri"};
  }
  if (utente.livello != kTutto && utente.livello != 50 && utente.livello != 30) {
    return Errore{
        "il livello deve essere 99 (tutte le funzioni), 50 (tutte meno la contabilità) o "
        "30 (solo movimenti di magazzino e ordini a fornitori)"};
  }
  if (nuovo && password.empty()) return Errore{"la password di un nuovo utente è obbligatoria"};
  if (password.size() > kMassimaPassword) return Errore{"la password è troppo lunga"};
  return true;
}

}  // namespace

std::vector<Utente> Utenti::Elenco() const {
  std::vector<Utente> utenti;
  Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
      "select Cod, Descrizione, Livello from Ut order by Cod");
  for (; !rs.Eof(); rs.MoveNext()) {
    utenti.push_back({rs.Fields("Cod").Testo(), rs.Fields("Descrizione").Testo(),
                      static_cast<int>(rs.Fields("Livello").Intero())});
  }
  return utenti;
}

Esito<bool> Utenti::Salva(const std::string& codiceAttuale, const Utente& utente,
                          const std::string& password) {
  const bool nuovo = codiceAttuale.empty();
  if (auto buoni = VerificaCampi(utente, password, nuovo); !buoni) return buoni;
  // Hashing takes its time: done before the transaction holds the others up.
  const std::string hash = password.empty() ? "" : Hash(password);
  Transazione transazione(ambiente_.Basi());
  Archivio& archivio = ambiente_.ArchivioDi("tessarc");
  if (!nuovo && Quanti(archivio, DelCodice(codiceAttuale)) == 0) {
    return Errore{"l'utente " + codiceAttuale + " non c'è più: rileggere l'elenco"};
  }
  if ((nuovo || !UgualeTesto(codiceAttuale, utente.cod)) &&
      Quanti(archivio, DelCodice(utente.cod)) > 0) {
    return Errore{"l'utente " + utente.cod + " esiste già"};
  }
  if (utente.livello != kTutto && AltriConTutto(archivio, codiceAttuale) == 0) {
    return Errore{nuovo ? "il primo utente deve avere il livello 99"
                        : "l'ultimo utente di livello 99 deve tenerlo: dare prima il livello 99 a "
                          "un altro utente"};
  }
  if (nuovo) {
    archivio.Inserisci("Ut", {{"Cod", utente.cod},
                              {"Descrizione", utente.descrizione},
                              {"Livello", utente.livello},
                              {"Password", hash}});
  } else {
    std::string sql = "update Ut set " + sql::Criterio("Cod", "=", utente.cod) + "," +
                      sql::Criterio("Descrizione", "=", utente.descrizione) + "," +
                      sql::Criterio("Livello", "=", utente.livello);
    if (!hash.empty()) sql += "," + sql::Criterio("Password", "=", hash);
    archivio.Esegui(sql + DelCodice(codiceAttuale));
  }
  transazione.Conferma();
  return true;
}

Esito<bool> Utenti::Elimina(const std::string& cod) {
  Transazione transazione(ambiente_.Basi());
  Archivio& archivio = ambiente_.ArchivioDi("tessarc");
  if (Quanti(archivio, DelCodice(cod)) == 0) {
    return Errore{"l'utente " + cod + " non c'è più: rileggere l'elenco"};
  }
  if (AltriConTutto(archivio, cod) == 0 && Quanti(archivio, "") > 1) {
    return Errore{
        "l'ultimo utente di livello 99 si può eliminare solo per ultimo: dare prima il "
        "livello 99 a un altro utente"};
  }
  archivio.Esegui("delete * from Ut" + DelCodice(cod));
  transazione.Conferma();
  return true;
}

Esito<bool> Utenti::CambiaPassword(const std::string& vecchia, const std::string& nuova,
                                   const std::string& ripetuta) {
  if (nuova.empty() || nuova != ripetuta) return Errore{"reinserire password"};
  if (nuova.size() > kMassimaPassword) return Errore{"la password è troppo lunga"};
  const std::string cod = ambiente_.UtenteCorrente().cod;
  if (cod.empty()) {
    return Errore{
        "nessun utente è entrato con una password: gli utenti si aggiungono in "
        "«Impostazione utenti e diritti»"};
  }
  // Hashing takes its time: done before the transaction holds the others up.
  const std::string hash = Hash(nuova);
  Transazione transazione(ambiente_.Basi(), Transazione::Ambito::Tessarc);
  Archivio& archivio = ambiente_.ArchivioDi("tessarc");
  const Valore attuale = archivio.Singolo("select Password from Ut" + DelCodice(cod));
  if (attuale.Nullo() || !Verifica(attuale.Testo(), vecchia)) {
    return Errore{"vecchia password errata"};
  }
  archivio.Esegui("update Ut set " + sql::Criterio("Password", "=", hash) + DelCodice(cod));
  transazione.Conferma();
  return true;
}

std::string Utenti::Hash(const std::string& password) {
  PreparaLibreria();
  std::array<char, crypto_pwhash_STRBYTES> hash{};
  const bool minimo = economico;
  const int esito =
      crypto_pwhash_str(hash.data(), password.data(), password.size(),
                        minimo ? crypto_pwhash_OPSLIMIT_MIN : crypto_pwhash_OPSLIMIT_INTERACTIVE,
                        minimo ? crypto_pwhash_MEMLIMIT_MIN : crypto_pwhash_MEMLIMIT_INTERACTIVE);
  if (esito != 0) throw std::bad_alloc();
  return hash.data();
}

bool Utenti::Verifica(const std::string& hash, const std::string& password) {
  PreparaLibreria();
  if (hash.size() >= crypto_pwhash_STRBYTES) return false;
  // The library reads a buffer of that size, whatever the hash's length.
  std::array<char, crypto_pwhash_STRBYTES> intero{};
  hash.copy(intero.data(), hash.size());
  return crypto_pwhash_str_verify(intero.data(), password.data(), password.size()) == 0;
}

const std::string& Utenti::HashDiNessuno() {
  static const std::string hash = Hash("nessuno");
  return hash;
}

void Utenti::HashEconomico(bool attivo) {
  economico = attivo;
}

}  // namespace fenalto
