#include "admin/companies/NomeDitta.h"

#include <system_error>

#include "core/session/CambioDitta.h"
#include "core/session/Cestino.h"
#include "core/session/PresenzaDitta.h"
#include "core/values/Testo.h"

namespace fenalto::admin {

namespace fs = std::filesystem;

namespace {

constexpr const char* kImpossibile = "impossibile rinominare ditta:";

bool Rifiuta(Ambiente& ambiente, const std::string& messaggio) {
  ambiente.Dialogo().Messaggio(messaggio, Icona::Avviso);
  return false;
}

/// Both databases lie in the folder that will be moved; otherwise which one doesn't.
std::string ArchivioMancante(const PercorsiArchivi& percorsi) {
  const fs::path cartella = percorsi.tessarc.parent_path();
  for (const fs::path& file : {percorsi.tessarc, percorsi.scadenzario}) {
    std::error_code ignorato;
    if (fs::exists(cartella / file.filename(), ignorato)) continue;
    std::string testo = kImpossibile;
    testo.append("\nil file ").append(file.filename().string());
    return testo.append("\nnon si trova nella cartella ").append(cartella.string());
  }
  return {};
}

bool NomeAccettato(Ambiente& ambiente, const std::string& nuovo) {
  if (auto buono = VerificaNomeDitta(nuovo); !buono) {
    return Rifiuta(ambiente, buono.Errore().messaggio);
  }
  if (nuovo == ambiente.Ditta()) return Rifiuta(ambiente, "la ditta si chiama già " + nuovo);
  const fs::path file = Ditte(ambiente.CartellaProgramma()).FileImpostazioni(nuovo);
  std::error_code ignorato;
  // The same name in other letters is the company itself.
  if (!UgualeTesto(nuovo, ambiente.Ditta()) && fs::exists(file, ignorato)) {
    return Rifiuta(ambiente, "la ditta " + nuovo + " esiste già\n(file di inizializzazione " +
                                 file.string() + ")");
  }
  return true;
}

}  // namespace

bool ModificaNome(Ambiente& ambiente, const std::string& digitato) {
  std::string nuovo(Rifila(digitato));
  if (!nuovo.empty() && !NomeAccettato(ambiente, nuovo)) return false;
  Dialoghi& dialogo = ambiente.Dialogo();
  const std::string vecchio = ambiente.Ditta();
  dialogo.Messaggio(
      "ATTENZIONE: verificare che non sia aperta un'altra sessione del programma e/o che le altre "
      "postazioni non stiano utilizzando Fenalto",
      Icona::Avviso);
  if (!dialogo.Conferma("Vuoi modificare il nome della ditta?\n(verrà modificato anche il percorso "
                        "degli archivi: " +
                        ambiente.CartellaDitta().string() + ")")) {
    return false;
  }
  const auto conferma = dialogo.Chiedi("Imposta quì il vecchio nome e premi OK");
  if (!conferma) return false;
  if (!UgualeTesto(Rifila(*conferma), vecchio)) {
    return Rifiuta(ambiente, "il nome digitato non è quello della ditta: il nome resta " + vecchio);
  }
  if (nuovo.empty()) {
    const auto chiesto = dialogo.Chiedi("Imposta quì il nuovo nome e premi OK", vecchio);
    if (!chiesto) return false;
    nuovo = Rifila(*chiesto);
    if (!NomeAccettato(ambiente, nuovo)) return false;
  }
  if (const std::string manca = ArchivioMancante(ambiente.Basi().Percorsi()); !manca.empty()) {
    return Rifiuta(ambiente, manca);
  }
  auto presa = PrendiDitta(ambiente);
  if (!presa) {
    std::string testo = kImpossibile;
    return Rifiuta(ambiente, testo.append("\n").append(presa.Errore().messaggio));
  }
  presa.Valore().Chiudi();
  const Ditte ditte(ambiente.CartellaProgramma());
  const auto fatto = RinominaFileDitta(ditte, vecchio, nuovo);
  const auto aperta = presa.Valore().Riapri(fatto ? nuovo : vecchio);
  if (!fatto) {
    std::string testo = kImpossibile;
    testo.append(" errore ").append(std::to_string(fatto.Errore().numero)).append("\n");
    dialogo.Messaggio(testo.append(fatto.Errore().motivo), Icona::Errore);
  } else {
    dialogo.Annuncia("nome ditta MODIFICATO");
  }
  if (!aperta) dialogo.Messaggio(aperta.Errore().messaggio, Icona::Errore);
  return fatto.Riuscito();
}

bool EliminaDitta(Ambiente& ambiente) {
  Dialoghi& dialogo = ambiente.Dialogo();
  const std::string nome = ambiente.Ditta();
  if (!dialogo.Conferma("CONFERMA ELIMINAZIONE DITTA " + nome +
                        "\nATTENZIONE: GLI ARCHIVI (quindi registrazioni contabili, fatture, "
                        "conti, clienti, fornitori, ecc) VERRANNO ELIMINATI")) {
    return false;
  }
  const auto conferma =
      dialogo.Chiedi("SE SEI SICURO DI ELIMINARE LA DITTA IMPOSTANE QUI IL NOME E PREMI OK");
  if (!conferma) return false;
  if (!UgualeTesto(Rifila(*conferma), nome)) {
    return Rifiuta(ambiente, "il nome digitato non è quello della ditta: non si elimina niente");
  }
  auto presa = PrendiDitta(ambiente);
  if (!presa) {
    return Rifiuta(ambiente, "errore su eliminazione file :\n" + presa.Errore().messaggio);
  }
  presa.Valore().Chiudi();
  const auto voce = CestinaDitta(Ditte(ambiente.CartellaProgramma()), nome, Adesso(ambiente.Ora()));
  if (!voce) {
    const auto aperta = presa.Valore().Riapri();
    dialogo.Messaggio("errore su eliminazione file :\n" + voce.Errore().messaggio +
                          (aperta ? "" : "\n" + aperta.Errore().messaggio),
                      Icona::Errore);
    return false;
  }
  presa.Valore().Abbandona();
  dialogo.Messaggio(
      "ELIMINAZIONE DITTA " + nome + " EFFETTUATA\n ora il programma verra chiuso\nPer " +
      std::to_string(kGiorniCestino) + " giorni la ditta resta in " + voce.Valore().string());
  return true;
}

void SvuotaIlCestino(Ambiente& ambiente) {
  const Ditte ditte(ambiente.CartellaProgramma());
  const auto voci = VociCestino(ditte);
  Dialoghi& dialogo = ambiente.Dialogo();
  if (voci.empty()) {
    dialogo.Annuncia("il cestino è vuoto");
    return;
  }
  std::string domanda = "Eliminare per sempre ciò che è nel cestino?";
  for (const VoceCestino& voce : voci) {
    domanda += "\n" + voce.nome + ", dal " + voce.quando.Testo();
  }
  if (!dialogo.Conferma(domanda)) return;
  const int tolte = SvuotaCestino(ditte, ambiente.Ora().Oggi(), 0);
  if (tolte == static_cast<int>(voci.size())) {
    dialogo.Annuncia("cestino svuotato");
  } else {
    dialogo.Messaggio("nel cestino resta qualcosa che non si può eliminare: " +
                          voci.front().cartella.parent_path().string(),
                      Icona::Avviso);
  }
}

}  // namespace fenalto::admin
