#include "admin/companies/CreazioneDitta.h"

#include <algorithm>
#include <system_error>

#include "admin/companies/CopiaDati.h"
#include "core/session/CambioDitta.h"
#include "core/session/CreaDitta.h"
#include "core/values/Testo.h"

namespace fenalto::admin {

namespace fs = std::filesystem;

namespace {

using archives::SceltaDati;

constexpr const char* kDemo = "Demo";
constexpr const char* kSoloNome = "digitare un semplice nome ditta senza simboli .,/";

constexpr OpzioneCopia kOpzioni[] = {{"TieniConti", SceltaDati::Conti, true},
                                     {"TieniClienti", SceltaDati::Clienti, false},
                                     {"TieniFornitori", SceltaDati::Fornitori, false},
                                     {"TieniCespiti", SceltaDati::Cespiti, false},
                                     {"TieniProdotti", SceltaDati::Prodotti, false},
                                     {"TieniDistinte", SceltaDati::Distinte, false},
                                     {"TieniOrdiniCli", SceltaDati::OrdiniClienti, false},
                                     {"TieniOrdiniFor", SceltaDati::OrdiniFornitori, false},
                                     {"TieniCommesse", SceltaDati::Commesse, false}};

/// Whether the company has a table of that kind.
bool HaDati(Ambiente& ambiente, SceltaDati scelta) {
  const auto tavola = archives::TavolaTabelle();
  return std::any_of(tavola.begin(), tavola.end(), [&](const archives::TabellaDitta& tabella) {
    return tabella.scelta == scelta &&
           ambiente.ArchivioDi(tabella.chiave).Catalogo().Tabella(tabella.tabella) != nullptr;
  });
}

}  // namespace

CreazioneDitta::CreazioneDitta(Ambiente& ambiente) : ambiente_(ambiente) {
  dati_.Aggiungi("Ditta", Tipo::Testo);
  dati_.Aggiungi("Anno", Tipo::Intero);
  dati_.Aggiungi("IvaTrimestrale", Tipo::Booleano);
  dati_.Aggiungi("CopiaDitta", Tipo::Booleano);
  for (const OpzioneCopia& opzione : kOpzioni) {
    if (!HaDati(ambiente, opzione.scelta)) continue;
    opzioni_.push_back(opzione);
    dati_.Aggiungi(opzione.campo, Tipo::Booleano);
  }
  Proponi();
}

void CreazioneDitta::Proponi() {
  dati_.Svuota();
  dati_.Scrivi("Anno", ambiente_.Ora().Oggi().Anno());
  // A firm doesn't start from somebody's demonstration.
  dati_.Scrivi("CopiaDitta", !UgualeTesto(ambiente_.Ditta(), kDemo));
  for (const OpzioneCopia& opzione : opzioni_) dati_.Scrivi(opzione.campo, opzione.proposta);
  dati_.Consolida();
  campoRifiutato_.clear();
}

std::string CreazioneDitta::NomeDigitato(const std::string& testo) {
  if (std::all_of(testo.begin(), testo.end(), SempliceInNomeDitta)) return testo;
  ambiente_.Dialogo().Messaggio(kSoloNome, Icona::Avviso);
  std::string semplice;
  std::copy_if(testo.begin(), testo.end(), std::back_inserter(semplice), SempliceInNomeDitta);
  return semplice;
}

bool CreazioneDitta::Rifiuta(std::string_view campo, const std::string& messaggio) {
  campoRifiutato_ = campo;
  ambiente_.Dialogo().Messaggio(messaggio, Icona::Avviso);
  return false;
}

bool CreazioneDitta::ControllaDati() {
  constexpr int kPrimo = 1900;
  constexpr int kUltimo = 2999;
  const std::string nome(Rifila(dati_.Testo("Ditta")));
  dati_.Scrivi("Ditta", nome);
  const std::int64_t anno = dati_.Leggi("Anno").Intero();
  if (nome.empty() || anno == 0 || UgualeTesto(nome, ambiente_.Ditta())) {
    return Rifiuta(anno == 0 && !nome.empty() ? "Anno" : "Ditta",
                   "mancano dati oppure la ditta esiste già");
  }
  const Ditte ditte(ambiente_.CartellaProgramma());
  const PostoDitta posto = PostoPer(ditte, nome);
  std::error_code ignorato;
  if (fs::exists(posto.impostazioni, ignorato)) {
    return Rifiuta("Ditta", "la ditta " + nome + " esiste già\n(file di inizializzazione " +
                                posto.impostazioni.string() + ")");
  }
  if (auto buono = VerificaNomeDitta(nome); !buono) {
    return Rifiuta("Ditta", buono.Errore().messaggio);
  }
  if (anno < kPrimo || anno > kUltimo) {
    return Rifiuta("Anno", "l'anno " + std::to_string(anno) + " non è un anno contabile");
  }
  return true;
}

bool CreazioneDitta::ChiediSostituzione(const std::string& nome) {
  const PostoDitta posto = PostoPer(Ditte(ambiente_.CartellaProgramma()), nome);
  std::error_code ignorato;
  if (!fs::exists(posto.cartella, ignorato)) return true;
  Dialoghi& dialogo = ambiente_.Dialogo();
  dialogo.Messaggio("DIRECTORY GIA' ESISTENTE\n" + posto.cartella.string() +
                        "\nciò che contiene andrà nella cartella Cestino, accanto alle ditte",
                    Icona::Avviso);
  for (const char* file : {kFileTessarc, kFileScadenzario}) {
    if (!fs::exists(posto.cartella / file, ignorato)) continue;
    if (!dialogo.Conferma("FILE " + (posto.cartella / file).string() +
                          " ESISTE GIA' - SOSTITUISCO ? ")) {
      return false;
    }
  }
  return true;
}

std::set<SceltaDati> CreazioneDitta::Tenute() const {
  std::set<SceltaDati> tenute;
  for (const OpzioneCopia& opzione : opzioni_) {
    if (dati_.Leggi(opzione.campo).Booleano()) tenute.insert(opzione.scelta);
  }
  return tenute;
}

bool CreazioneDitta::Conferma() {
  campoRifiutato_.clear();
  if (!ControllaDati()) return false;
  const std::string nome = dati_.Testo("Ditta");
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (!dialogo.Conferma("CONFERMA CREAZIONE NUOVA DITTA " + nome)) return false;
  if (!ChiediSostituzione(nome)) return false;

  const int numero = static_cast<int>(dati_.Leggi("Anno").Intero());
  const AnnoDitta anno{numero, numero >= kPrimoInEuro, dati_.Leggi("IvaTrimestrale").Booleano()};
  const OpzioniAmbiente& opzioni = ambiente_.Opzioni();
  const bool copia = dati_.Leggi("CopiaDitta").Booleano();
  const auto creata =
      CreaDitta(opzioni,
                {.nome = nome,
                 .predefinita = true,
                 .partenza = copia ? Partenza::Iniziali : Partenza::DelModello,
                 .adesso = Adesso(ambiente_.Ora())},
                [&](const PercorsiArchivi& percorsi) {
                  RiempiDitta(opzioni, percorsi, [&](BasiDati& basi) {
                    if (copia) {
                      CopiaDati(ambiente_.Basi(), basi, Tenute(), opzioni.cartellaDati);
                    } else {
                      CaricaModello(basi, opzioni.cartellaDati);
                    }
                    ScriviAnno(basi, anno);
                  });
                });
  if (!creata) {
    dialogo.Messaggio(creata.Errore().messaggio, Icona::Errore);
    return false;
  }
  std::string detto = "Creata nuova ditta " + nome +
                      "\nOra il programma verrà chiuso. Riavviandolo si potranno iniziare le "
                      "registrazioni sulla nuova ditta.\nPer la COPIA DI SICUREZZA duplicare "
                      "periodicamente la cartella " +
                      creata.Valore().cartella.string();
  if (creata.Valore().cestinata) {
    detto += "\nLa cartella che c'era è ora " + creata.Valore().cestinata->string();
  }
  dialogo.Messaggio(detto);
  dati_.Consolida();
  return true;
}

}  // namespace fenalto::admin
