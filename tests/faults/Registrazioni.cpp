#include "faults/Registrazioni.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>
#include <stdexcept>

#include "core/store/engine/sqlite/ConnessioneSqlite.h"

namespace fenalto::prova {
namespace {

constexpr int kAnno = 2024;

int Righe(int numero, int versione) {
  return 2 + (numero * 7 + versione * 3) % 9;
}
int Scadenze(int numero, int versione) {
  return 1 + (numero + versione) % 3;
}
/// Total of a registration, different for each version of each.
std::int64_t Totale(int numero, int versione) {
  return numero * 1'000 + versione;
}
/// Long enough for a registration to touch several pages.
std::string Descrizione(int versione) {
  return "v" + std::to_string(versione) + std::string(200, 'x');
}
std::string DelNumero(const char* colonna, int numero) {
  return " WHERE Anno = " + std::to_string(kAnno) + " AND " + colonna + " = " +
         std::to_string(numero);
}

/// Number of rows, sums and texts that a registration has in one table.
struct Somme {
  int righe = 0;
  Importo dare;
  Importo avere;
  std::set<std::string> descrizioni;
};

std::map<int, Somme> LeggiSomme(Archivio& archivio, const std::string& sql) {
  std::map<int, Somme> somme;
  for (Rs rs = archivio.Recordset(sql); !rs.Eof(); rs.MoveNext()) {
    Somme& s = somme[static_cast<int>(rs.Fields(0).Intero())];
    ++s.righe;
    s.dare += rs.Fields(1).Importo();
    s.avere += rs.Fields(2).Importo();
    s.descrizioni.insert(rs.Fields(3).Testo());
  }
  return somme;
}

bool Intere(const Somme& s, int righe, std::int64_t totale, int versione) {
  return s.righe == righe && s.dare == Importo::DaUnita(totale) && s.avere == s.dare &&
         s.descrizioni == std::set<std::string>{Descrizione(versione)};
}

constexpr const char* kCodiceRigaSola = "9000";

void RegistraRigaSola(Archivio& tessarc, int versione) {
  const std::string testo = "v" + std::to_string(versione);
  if (versione == 1) {
    tessarc.Inserisci("Causali", {{"Cod", kCodiceRigaSola}, {"Descrizione", testo}});
  } else {
    tessarc.Esegui("UPDATE Causali SET Descrizione = '" + testo + "' WHERE Cod = '" +
                   kCodiceRigaSola + "'");
  }
}

}  // namespace

CartellaDiProva::CartellaDiProva() {
  std::string modello = (std::filesystem::temp_directory_path() / "fenalto-guasti-XXXXXX").string();
  if (mkdtemp(modello.data()) == nullptr) throw std::runtime_error("no temporary folder");
  percorso_ = modello;
}

CartellaDiProva::~CartellaDiProva() {
  std::error_code ignorato;
  std::filesystem::remove_all(percorso_, ignorato);
}

PercorsiArchivi CreaDitta(const std::filesystem::path& cartella) {
  const PercorsiArchivi percorsi{cartella / "Cont32.mdb", cartella / "Scad32.mdb"};
  const auto creata = BasiDati::Crea(percorsi, OpzioniDiProva());
  if (!creata) ADD_FAILURE() << creata.Errore().messaggio;
  return percorsi;
}

OpzioniApertura OpzioniDiProva(const std::string& stazione) {
  OpzioniApertura opzioni;
  opzioni.cartellaSchema = std::filesystem::path(FENALTO_DATA) / "schema";
  opzioni.stazione = stazione;
  opzioni.utente = "MARIA";
  return opzioni;
}

void Registra(BasiDati& basi, int numero, int versione) {
  Archivio& tessarc = basi.Tessarc();
  if (numero == kRigaSola) {
    RegistraRigaSola(tessarc, versione);
    return;
  }
  Archivio& scadenzario = basi.Scadenzario();
  const std::string descrizione = Descrizione(versione);
  Transazione transazione(basi);
  if (versione == 1) {
    tessarc.Inserisci("Articoli",
                      {{"Anno", kAnno}, {"NumDoc", numero}, {"DescrArtDupl", descrizione}});
  } else {
    tessarc.Esegui("DELETE FROM Movimenti" + DelNumero("NumDoc", numero));
    scadenzario.Esegui("DELETE FROM Scadenze" + DelNumero("Articolo", numero));
    tessarc.Esegui("UPDATE Articoli SET DescrArtDupl = '" + descrizione + "'" +
                   DelNumero("NumDoc", numero));
  }
  const int righe = Righe(numero, versione);
  const std::int64_t totale = Totale(numero, versione);
  for (int posi = 1; posi <= righe; ++posi) {
    // The last row balances the others, the first of which bears nearly all.
    std::int64_t dare = posi == 1 ? totale - (righe - 2) : 1;
    if (posi == righe) dare = 0;
    tessarc.Inserisci("Movimenti", {{"Anno", kAnno},
                                    {"NumDoc", numero},
                                    {"Posi", posi},
                                    {"Conto", "10." + std::to_string(posi)},
                                    {"Descrizione", descrizione},
                                    {"ImpoDare", Importo::DaUnita(dare)},
                                    {"ImpoAvere", Importo::DaUnita(posi == righe ? totale : 0)}});
  }
  for (int i = 0; i < Scadenze(numero, versione); ++i) {
    scadenzario.Inserisci("Scadenze", {{"Numero", numero * 10 + i},
                                       {"Anno", kAnno},
                                       {"Articolo", numero},
                                       {"Descrizione", descrizione},
                                       {"Importo", Importo::DaUnita(totale)}});
  }
  transazione.Conferma();
}

std::optional<int> RegistraProssimo(BasiDati& basi, std::chrono::milliseconds attesa) {
  const auto numerazione = basi.Blocchi().Tabella("ARTICOLI", attesa);
  if (!numerazione) return std::nullopt;
  const Valore ultimo = basi.Tessarc().Singolo("SELECT Max(NumDoc) FROM Articoli");
  const int numero = static_cast<int>(Nz(ultimo).Intero()) + 1;
  Registra(basi, numero, 1);
  return numero;
}

Registrate Leggi(BasiDati& basi, std::string& guasti) {
  Registrate registrate;
  Rs teste = basi.Tessarc().Recordset("SELECT NumDoc, DescrArtDupl FROM Articoli");
  for (; !teste.Eof(); teste.MoveNext()) {
    const int versione = std::atoi(teste.Fields(1).Testo().c_str() + 1);
    registrate[static_cast<int>(teste.Fields(0).Intero())] = versione;
  }
  auto movimenti =
      LeggiSomme(basi.Tessarc(), "SELECT NumDoc, ImpoDare, ImpoAvere, Descrizione FROM Movimenti");
  auto scadenze = LeggiSomme(basi.Scadenzario(),
                             "SELECT Articolo, Importo, Importo, Descrizione FROM Scadenze");
  const auto guasta = [&](int numero, const std::string& che) {
    guasti += "registration " + std::to_string(numero) + ": " + che + "\n";
  };
  for (const auto& [numero, versione] : registrate) {
    const std::int64_t totale = Totale(numero, versione);
    const int quante = Scadenze(numero, versione);
    if (!Intere(movimenti[numero], Righe(numero, versione), totale, versione)) {
      guasta(numero, "rows of tessarc aren't those of version " + std::to_string(versione));
    }
    if (!Intere(scadenze[numero], quante, totale * quante, versione)) {
      guasta(numero, "due dates aren't those of version " + std::to_string(versione));
    }
  }
  for (const auto* somme : {&movimenti, &scadenze}) {
    for (const auto& [numero, s] : *somme) {
      if (!registrate.contains(numero)) guasta(numero, "rows without a head");
    }
  }
  const Valore sola = basi.Tessarc().Singolo("SELECT Descrizione FROM Causali WHERE Cod = '" +
                                             std::string(kCodiceRigaSola) + "'");
  if (!sola.Nullo()) registrate[kRigaSola] = std::atoi(sola.Testo().c_str() + 1);
  return registrate;
}

void ControllaFile(const PercorsiArchivi& percorsi, const std::string& vfs, std::string& guasti) {
  for (const auto& file : {percorsi.tessarc, percorsi.scadenzario}) {
    sqlite3* connessione = engine::sqlite::ApriConnessione(file, vfs, false);
    const auto raccogli = [](void* dove, int, char** valori, char**) {
      if (std::string_view(valori[0]) != "ok") {
        *static_cast<std::string*>(dove) += std::string(valori[0]) + "\n";
      }
      return 0;
    };
    const int rc = sqlite3_exec(connessione, "PRAGMA integrity_check", raccogli, &guasti, nullptr);
    if (rc != SQLITE_OK) guasti += file.string() + ": " + sqlite3_errmsg(connessione) + "\n";
    sqlite3_close(connessione);
  }
}

long Seme() {
  const char* scelto = std::getenv("FENALTO_SEME");
  const long seme =
      scelto != nullptr ? std::atol(scelto) : static_cast<long>(std::random_device{}() % 1'000'000);
  std::printf("seed %ld (FENALTO_SEME repeats it)\n", seme);
  return seme;
}

bool Lungo() {
  const char* lungo = std::getenv("FENALTO_LUNGO");
  return lungo != nullptr && std::string_view(lungo) == "1";
}

}  // namespace fenalto::prova
