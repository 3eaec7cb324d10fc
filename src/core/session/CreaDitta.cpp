#include "core/session/CreaDitta.h"

#include <algorithm>
#include <array>
#include <exception>
#include <set>
#include <stdexcept>
#include <system_error>

#include "core/session/CambioDitta.h"
#include "core/session/Csv.h"
#include "core/session/FileTesto.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

/// The keys that a new company starts from; the empty ones are for whoever looks into the file.
std::string ImpostazioniIniziali(const std::string& nome) {
  constexpr std::array kPagamenti = {"CausalePagScad1",
                                     "ContropartitaPagScad1",
                                     "ContoArrotondamentiPagScad1",
                                     "CausalePagScad2",
                                     "ContropartitaPagScad2",
                                     "ContoArrotondamentiPagScad2",
                                     "RegistrazioneContabilePagScad2",
                                     "CausalePagScad3",
                                     "ContropartitaPagScad3",
                                     "RegistrazioneContabilePagScad3",
                                     "CausalePagScad4",
                                     "ContropartitaPagScad4",
                                     "RegistrazioneContabilePagScad4"};
  std::string testo = "[Archivi]\nTessarc=" + std::string(kFileTessarc) +
                      "\nScadenzario=" + kFileScadenzario + "\n\n[config]\nragsoc1 =" + nome +
                      "\nRegAutoIntraCee=Si\nRegAutoBolleDoganali=Si\nCodficaCliFor=1\n"
                      "DirectoryImm=Immagini\nDirectoryDoc=Documenti\n";
  for (const char* chiave : kPagamenti) {
    for (const char* suffisso : {"C", "F"}) testo.append(chiave).append(suffisso).append("=\n");
  }
  for (const char* chiave : {"ContoIvaErario", "ContoInteressiErario", "RegistrazioneContabileGiro",
                             "RegistrazioneContabileErario"}) {
    testo.append(chiave).append("=\n");
  }
  return testo;
}

/// What stops the creation, thrown out of the transaction.
class Impossibile : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

TabellaCsv LeggiModello(const fs::path& file) {
  const auto testo = LeggiFileTesto(file);
  if (!testo) throw Impossibile(testo.Errore().messaggio);
  auto csv = LeggiCsv(testo.Valore());
  if (!csv) throw Impossibile("«" + file.string() + "», " + csv.Errore().messaggio);
  return std::move(csv).Valore();
}

/// The first settings with the model's codes, in the place of an empty key or below.
std::string ConCodiciDelModello(std::string testo, const fs::path& cartellaDati) {
  for (const auto& riga : LeggiModello(cartellaDati / "modello" / "impostazioni.csv").righe) {
    const std::string vuota = "\n" + riga.campi.at(0) + "=\n";
    const std::string scritta = "\n" + riga.campi.at(0) + "=" + riga.campi.at(1) + "\n";
    const std::size_t dove = testo.find(vuota);
    if (dove == std::string::npos) {
      testo += scritta.substr(1);
    } else {
      testo.replace(dove, vuota.size(), scritta);
    }
  }
  return testo;
}

void CaricaTabella(Archivio& archivio, const fs::path& file) {
  const auto guasto = [&file](const std::string& motivo) {
    return Impossibile("«" + file.string() + "», " + motivo);
  };
  const TabellaCsv csv = LeggiModello(file);
  const sql::TabellaCatalogo* tabella = archivio.Catalogo().Tabella(file.stem().string());
  if (tabella == nullptr) throw guasto("non c'è nessuna tabella di questo nome");
  std::vector<Coppia> campi;
  std::vector<Tipo> tipi;
  for (const std::string& nome : csv.nomi) {
    const sql::ColonnaCatalogo* colonna = tabella->Colonna(nome);
    if (colonna == nullptr) throw guasto("riga 1: la tabella non ha il campo «" + nome + "»");
    campi.emplace_back(nome, Valore());
    tipi.push_back(colonna->tipo);
  }
  const bool aCodice = tabella->chiave.size() == 1 && UgualeTesto(tabella->chiave[0], "Cod") &&
                       !campi.empty() && UgualeTesto(campi[0].first, "Cod");
  std::set<std::string> delloSchema;
  if (aCodice) {
    for (Rs rs = archivio.Recordset("SELECT Cod FROM " + tabella->nome); !rs.Eof(); rs.MoveNext()) {
      delloSchema.insert(rs.Fields(0).Testo());
    }
  }
  for (const auto& riga : csv.righe) {
    for (std::size_t i = 0; i < campi.size(); ++i) {
      try {
        campi[i].second = Valore(riga.campi[i]).Come(tipi[i]);
      } catch (const std::logic_error&) {
        throw guasto("riga " + std::to_string(riga.linea) + ": «" + riga.campi[i] +
                     "» non va bene per il campo " + campi[i].first);
      }
    }
    // A code that the schema brings along is the model's to fill in; one that the file repeats is
    // refused by the key.
    if (aCodice && delloSchema.erase(campi[0].second.Testo()) != 0) {
      archivio.Esegui("DELETE * FROM " + tabella->nome + " WHERE " +
                      sql::Criterio("Cod", "=", campi[0].second));
    }
    archivio.Inserisci(tabella->nome, campi);
  }
}

void CaricaCartella(Archivio& archivio, const fs::path& cartella) {
  std::vector<fs::path> file;
  for (const auto& voce : fs::directory_iterator(cartella)) {
    if (voce.path().extension() == ".csv") file.push_back(voce.path());
  }
  std::sort(file.begin(), file.end());
  for (const fs::path& uno : file) CaricaTabella(archivio, uno);
}

Esito<bool> VerificaAnni(const std::vector<AnnoDitta>& anni) {
  constexpr int kPrimo = 1900;
  constexpr int kUltimo = 2999;
  if (anni.empty()) return Errore{"indicare l'anno contabile della nuova ditta"};
  for (auto anno = anni.begin(); anno != anni.end(); ++anno) {
    if (anno->anno < kPrimo || anno->anno > kUltimo) {
      return Errore{"l'anno " + std::to_string(anno->anno) + " non è un anno contabile"};
    }
    if (std::any_of(anni.begin(), anno,
                    [&](const AnnoDitta& altro) { return altro.anno == anno->anno; })) {
      return Errore{"l'anno " + std::to_string(anno->anno) + " è ripetuto"};
    }
  }
  return true;
}

}  // namespace

void RiempiDitta(const OpzioniAmbiente& opzioni, const PercorsiArchivi& percorsi,
                 const std::function<void(BasiDati&)>& riempi) {
  OpzioniApertura apertura;
  apertura.cartellaSchema = opzioni.cartellaDati / "schema";
  apertura.stazione = opzioni.stazione;
  apertura.vfs = opzioni.vfs;
  if (auto creati = BasiDati::Crea(percorsi, apertura); !creati) {
    throw Impossibile(creati.Errore().messaggio);
  }
  auto aperte = BasiDati::Apri(percorsi, apertura);
  if (!aperte) throw Impossibile(aperte.Errore().messaggio);
  BasiDati& basi = *aperte.Valore();
  Transazione transazione(basi);
  riempi(basi);
  transazione.Conferma();
}

void CaricaModello(BasiDati& basi, const fs::path& cartellaDati) {
  const fs::path modello = cartellaDati / "modello";
  CaricaCartella(basi.Tessarc(), modello / "tessarc");
  CaricaCartella(basi.Scadenzario(), modello / "scadenzario");
}

void ScriviAnno(BasiDati& basi, const AnnoDitta& anno) {
  basi.Tessarc().Inserisci(
      "Anni", {{"Anno", anno.anno}, {"Euro", anno.euro}, {"IvaTrimestrale", anno.ivaTrimestrale}});
}

Esito<DittaCreata> CreaDitta(const OpzioniAmbiente& opzioni, const NuovaDitta& nuova,
                             const std::function<void(const PercorsiArchivi&)>& riempi) {
  const Ditte ditte(fs::absolute(opzioni.cartellaProgramma).lexically_normal());
  auto cantiere = CantiereDitta::Apri(ditte, nuova.nome, nuova.predefinita, nuova.adesso);
  if (!cantiere) return cantiere.Errore();
  std::string impostazioni = ImpostazioniIniziali(nuova.nome);
  try {
    riempi(cantiere.Valore().Archivi());
    if (nuova.partenza == Partenza::DelModello) {
      impostazioni = ConCodiciDelModello(std::move(impostazioni), opzioni.cartellaDati);
    }
  } catch (const std::exception& errore) {
    return Errore{std::string("errore su copia file ditta su nuova :\n") + errore.what()};
  }
  auto posata = cantiere.Valore().Posa(impostazioni);
  if (!posata) return posata.Errore();
  return DittaCreata{PostoPer(ditte, nuova.nome).cartella, posata.Valore()};
}

Esito<bool> CreaDittaDaModello(const OpzioniAmbiente& opzioni, const std::string& nome,
                               const std::vector<AnnoDitta>& anni, bool predefinita,
                               Partenza partenza) {
  if (auto buono = VerificaNomeDitta(nome); !buono) return buono;
  if (auto buoni = VerificaAnni(anni); !buoni) return buoni;
  const Ditte ditte(fs::absolute(opzioni.cartellaProgramma).lexically_normal());
  const PostoDitta posto = PostoPer(ditte, nome);
  std::error_code ignorato;
  if (fs::exists(posto.impostazioni, ignorato)) {
    return Errore{"la ditta " + nome + " esiste già (file di inizializzazione " +
                  posto.impostazioni.string() + ")"};
  }
  if (fs::exists(posto.cartella, ignorato)) {
    return Errore{"la cartella «" + posto.cartella.string() +
                  "» esiste già: scegliere un altro nome o spostarla"};
  }
  const auto creata =
      CreaDitta(opzioni, {.nome = nome, .predefinita = predefinita, .partenza = partenza},
                [&](const PercorsiArchivi& percorsi) {
                  RiempiDitta(opzioni, percorsi, [&](BasiDati& basi) {
                    CaricaModello(basi, opzioni.cartellaDati);
                    for (const AnnoDitta& anno : anni) ScriviAnno(basi, anno);
                  });
                });
  if (!creata) {
    return Errore{"la ditta " + nome + " non è stata creata: " + creata.Errore().messaggio};
  }
  return true;
}

}  // namespace fenalto
