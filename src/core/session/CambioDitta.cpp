#include "core/session/CambioDitta.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "core/session/Cestino.h"
#include "core/session/FileTesto.h"
#include "core/session/NotaLavoro.h"
#include "core/store/engine/Disco.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

constexpr const char* kCrea = "crea";
constexpr const char* kRinomina = "rinomina";
constexpr const char* kElimina = "elimina";
/// The settings of a company that is whole but not yet in its place.
constexpr const char* kImpostazioniPronte = ".impostazioni";
constexpr const char* kArchivi = "Archivi";

std::function<void()> suPasso;

/// Before each change on the disk.
void PassoSulDisco() {
  if (suPasso) suPasso();
}

/// What keeps a change from being made.
class Impedito : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

[[noreturn]] void Impedisci(const fs::path& file, const std::error_code& errore) {
  throw Impedito("«" + file.string() + "»: " + MotivoDiSistema(errore.value()));
}

void Accerta(const Esito<bool>& fatto) {
  if (!fatto) throw Impedito(fatto.Errore().messaggio);
}

/// Renames, which on one disk is done or isn't, and waits until it can't be lost.
void Sposta(const fs::path& da, const fs::path& a) {
  PassoSulDisco();
  std::error_code errore;
  fs::rename(da, a, errore);
  if (errore) Impedisci(da, errore);
  engine::Sincronizza(a.parent_path());
  if (da.parent_path() != a.parent_path()) engine::Sincronizza(da.parent_path());
}

void ScriviTesto(const fs::path& file, const std::string& testo) {
  PassoSulDisco();
  Accerta(ScriviFileTesto(file, testo));
}

void Togli(const fs::path& file) {
  PassoSulDisco();
  std::error_code errore;
  fs::remove(file, errore);
  if (errore) Impedisci(file, errore);
  engine::Sincronizza(file.parent_path());
}

void CreaCartella(const fs::path& cartella) {
  PassoSulDisco();
  std::error_code errore;
  fs::create_directories(cartella, errore);
  if (errore) Impedisci(cartella, errore);
}

bool CePercorso(const fs::path& percorso) {
  std::error_code errore;
  return fs::exists(percorso, errore);
}

fs::path Cantiere(const Ditte& ditte, const std::string& nome) {
  return ditte.CartellaPerRegola("." + nome + ".nuova");
}

bool Contiene(const fs::path& cartella, const fs::path& percorso) {
  return std::mismatch(cartella.begin(), cartella.end(), percorso.begin(), percorso.end()).first ==
         cartella.end();
}

/// The company whose databases lie in that folder; empty when it is nobody's but `tranne`'s.
std::string DiChi(const Ditte& ditte, const fs::path& cartella, const std::string& tranne) {
  for (const DittaTrovata& trovata : ditte.Trovate()) {
    if (UgualeTesto(trovata.nome, tranne)) continue;
    const auto percorsi = ditte.Percorsi(trovata.nome);
    if (!percorsi) continue;
    for (const fs::path& file : {percorsi.Valore().tessarc, percorsi.Valore().scadenzario}) {
      if (Contiene(cartella, file)) return trovata.nome;
    }
  }
  return {};
}

/// Whether the folder holds the program's own, or another company's.
std::string NonSua(const Ditte& ditte, const fs::path& cartella, const std::string& nome) {
  if (Contiene(cartella, ditte.Cartella())) return "è la cartella del programma";
  const std::string altra = DiChi(ditte, cartella, nome);
  return altra.empty() ? "" : "è anche della ditta «" + altra + "»";
}

/// The default company where it was `prima`; another one, or none, when `dopo` is empty.
void CambiaPredefinita(const Ditte& ditte, const std::string& dopo) {
  PassoSulDisco();
  Accerta(ditte.ImpostaPredefinita(dopo));
}

// --- Creation ---------------------------------------------------------------------------------

/// From the moment that the company is whole beside its place.
void PosaCantiere(const Ditte& ditte, const NotaLavoro& nota) {
  const std::string nome = nota.Voce("ditta");
  const PostoDitta posto = PostoPer(ditte, nome);
  const fs::path cantiere = Cantiere(ditte, nome);
  const fs::path voce = nota.Voce("voce");
  if (CePercorso(cantiere)) {
    if (CePercorso(posto.cartella)) {
      CreaCartella(voce.parent_path());
      Sposta(posto.cartella, voce);
    }
    Sposta(cantiere, posto.cartella);
  }
  const fs::path pronte = posto.cartella / kImpostazioniPronte;
  if (!CePercorso(posto.impostazioni)) {
    const auto testo = LeggiFileTesto(pronte);
    if (!testo) throw Impedito(testo.Errore().messaggio);
    ScriviTesto(posto.impostazioni, testo.Valore());
  }
  if (nota.Voce("predefinita") == "1") CambiaPredefinita(ditte, nome);
  Togli(pronte);
}

/// The bin goes again where nothing else is in it.
void TogliCestinoVuoto(const fs::path& voce) {
  std::error_code ignorato;
  fs::remove(voce.parent_path(), ignorato);
}

/// What a failure has left of it, so that the folder beside is all there is again.
void DisfaPosa(const Ditte& ditte, const NotaLavoro& nota) {
  const std::string nome = nota.Voce("ditta");
  const PostoDitta posto = PostoPer(ditte, nome);
  const fs::path voce = nota.Voce("voce");
  std::error_code errore;
  if (CePercorso(posto.cartella / kImpostazioniPronte)) {
    fs::remove(posto.impostazioni, errore);
    if (errore) Impedisci(posto.impostazioni, errore);
    if (UgualeTesto(ditte.Predefinita(), nome) || ditte.Predefinita().empty()) {
      Accerta(ditte.ImpostaPredefinita(nota.Voce("primaPredefinita")));
    }
    fs::rename(posto.cartella, Cantiere(ditte, nome), errore);
    if (errore) Impedisci(posto.cartella, errore);
  }
  if (CePercorso(voce)) fs::rename(voce, posto.cartella, errore);
  if (errore) Impedisci(voce, errore);
  TogliCestinoVuoto(voce);
}

std::string RiprendiCreazione(const Ditte& ditte, const NotaLavoro& nota) {
  const std::string nome = nota.Voce("ditta");
  const fs::path cantiere = Cantiere(ditte, nome);
  const PostoDitta posto = PostoPer(ditte, nome);
  const bool intera = CePercorso(cantiere / kImpostazioniPronte);
  if (!intera || CePercorso(posto.impostazioni)) {
    fs::remove_all(cantiere);
    // In its place already, and perhaps without its settings.
    if (!CePercorso(posto.cartella / kImpostazioniPronte)) {
      return CePercorso(posto.impostazioni)
                 ? ""
                 : "la creazione della ditta " + nome + ", interrotta, è stata annullata";
    }
  }
  PosaCantiere(ditte, nota);
  return "la creazione della ditta " + nome + ", interrotta, è stata completata";
}

// --- Renaming ---------------------------------------------------------------------------------

/// What the settings say of places inside a folder, said of where it is now.
void RiscriviPercorsi(const Ditte& ditte, const fs::path& file, const fs::path& da,
                      const fs::path& a) {
  auto ini = FileIni::Leggi(file);
  if (!ini) throw Impedito(ini.Errore().messaggio);
  FileIni nuovo = ini.Valore();
  for (const auto& voce : ini.Valore().Voci()) {
    std::string valore(voce.valore);
    std::replace(valore.begin(), valore.end(), '\\', '/');
    const fs::path scritto(valore);
    const bool archivio = UgualeTesto(voce.sezione, kArchivi);
    // A bare name lies in the folder of the company's name, whatever that is.
    if (!scritto.has_parent_path() || (!archivio && scritto.is_relative())) continue;
    const fs::path intero = (ditte.Cartella() / scritto).lexically_normal();
    const fs::path dentro = intero.lexically_relative(da);
    if (dentro.empty() || *dentro.begin() == "..") continue;
    const fs::path dopo = a / dentro;
    nuovo.Imposta(
        voce.sezione, voce.chiave,
        scritto.is_relative() ? dopo.lexically_relative(ditte.Cartella()).string() : dopo.string());
  }
  if (nuovo.Testo() != ini.Valore().Testo()) ScriviTesto(file, nuovo.Testo());
}

/// The steps of a renaming, each of which may have been made already. `fino` counts them.
void FaiRinomina(const Ditte& ditte, const NotaLavoro& nota, int& passo) {
  const fs::path cartellaDa = nota.Voce("cartellaDa");
  const fs::path cartellaA = nota.Voce("cartellaA");
  const fs::path iniDa = nota.Voce("iniDa");
  const fs::path iniA = nota.Voce("iniA");
  passo = 3;
  if (cartellaDa != cartellaA && CePercorso(cartellaDa)) Sposta(cartellaDa, cartellaA);
  passo = 4;
  if (CePercorso(iniDa)) Sposta(iniDa, iniA);
  passo = 5;
  RiscriviPercorsi(ditte, iniA, cartellaDa, cartellaA);
  if (nota.Voce("predefinita") == "1") CambiaPredefinita(ditte, nota.Voce("a"));
}

/// Takes back what of it was made.
void DisfaRinomina(const Ditte& ditte, const NotaLavoro& nota) {
  const fs::path cartellaDa = nota.Voce("cartellaDa");
  const fs::path cartellaA = nota.Voce("cartellaA");
  std::error_code errore;
  if (CePercorso(nota.Voce("iniA")) && !CePercorso(nota.Voce("iniDa"))) {
    fs::rename(nota.Voce("iniA"), nota.Voce("iniDa"), errore);
    if (errore) Impedisci(nota.Voce("iniA"), errore);
  }
  if (cartellaDa != cartellaA && !CePercorso(cartellaDa)) {
    fs::rename(cartellaA, cartellaDa, errore);
    if (errore) Impedisci(cartellaA, errore);
  }
  RiscriviPercorsi(ditte, nota.Voce("iniDa"), cartellaA, cartellaDa);
}

std::string RiprendiRinomina(const Ditte& ditte, const NotaLavoro& nota) {
  const bool iniziata = !CePercorso(nota.Voce("cartellaDa")) || !CePercorso(nota.Voce("iniDa"));
  if (!iniziata) return "";
  int passo = 0;
  FaiRinomina(ditte, nota, passo);
  return "il cambio di nome della ditta " + nota.Voce("ditta") + " in " + nota.Voce("a") +
         ", interrotto, è stato completato";
}

// --- Deletion ---------------------------------------------------------------------------------

void FaiCestina(const Ditte& ditte, const NotaLavoro& nota) {
  const fs::path cartella = nota.Voce("cartellaDa");
  const fs::path voce = nota.Voce("voce");
  const fs::path ini = nota.Voce("iniDa");
  if (CePercorso(ini)) Togli(ini);
  if (CePercorso(cartella)) Sposta(cartella, voce / cartella.filename());
  if (nota.Voce("predefinita") != "1") return;
  const auto altre = ditte.Trovate();
  CambiaPredefinita(ditte, altre.empty() ? "" : altre.front().nome);
}

std::string RiprendiCestina(const Ditte& ditte, const NotaLavoro& nota) {
  const fs::path voce = nota.Voce("voce");
  if (CePercorso(nota.Voce("iniDa"))) {
    // Nothing but a copy of the settings has gone there.
    fs::remove_all(voce);
    TogliCestinoVuoto(voce);
    return "";
  }
  FaiCestina(ditte, nota);
  return "l'eliminazione della ditta " + nota.Voce("ditta") + ", interrotta, è stata completata";
}

std::string SiNo(bool si) {
  return si ? "1" : "0";
}

}  // namespace

PostoDitta PostoPer(const Ditte& ditte, const std::string& nome) {
  return {ditte.CartellaPerRegola(nome), ditte.FileImpostazioni(nome)};
}

// --- A company being made -----------------------------------------------------------------------

struct CantiereDitta::Interno {
  Interno(const Ditte& d, std::string n, NotaLavoro lavoro)
      : ditte(d), nome(std::move(n)), nota(std::move(lavoro)) {}
  Interno(const Interno&) = delete;
  Interno& operator=(const Interno&) = delete;
  ~Interno() {
    if (lasciato) return;
    std::error_code ignorato;
    fs::remove_all(Cantiere(ditte, nome), ignorato);
    nota.Chiudi();
  }

  Ditte ditte;
  std::string nome;
  NotaLavoro nota;
  bool lasciato = false;  ///< to its place, or to the next start
};

CantiereDitta::CantiereDitta(std::unique_ptr<Interno> interno) : interno_(std::move(interno)) {}
CantiereDitta::CantiereDitta(CantiereDitta&& altro) noexcept = default;
CantiereDitta::~CantiereDitta() = default;

Esito<CantiereDitta> CantiereDitta::Apri(const Ditte& ditte, const std::string& nome,
                                         bool predefinita, const std::string& adesso) {
  constexpr const char* kErroreCartella = "errore su creaz.nuova directory :";
  const fs::path cantiere = Cantiere(ditte, nome);
  const PostoDitta posto = PostoPer(ditte, nome);
  if (CePercorso(posto.cartella)) {
    if (const std::string motivo = NonSua(ditte, posto.cartella, ""); !motivo.empty()) {
      return Errore{kErroreCartella + std::string("\n«") + posto.cartella.string() + "» " + motivo};
    }
  }
  try {
    fs::create_directories(ditte.Cartella());
    auto nota = NotaLavoro::Inizia(ditte.Cartella(), nome,
                                   {{"lavoro", kCrea},
                                    {"ditta", nome},
                                    {"voce", NuovaVoceCestino(ditte, nome, adesso).string()},
                                    {"primaPredefinita", ditte.Predefinita()},
                                    {"predefinita", SiNo(predefinita)}});
    if (!nota) return Errore{kErroreCartella + ("\n" + nota.Errore().messaggio)};
    auto interno = std::make_unique<Interno>(ditte, nome, std::move(nota).Valore());
    PassoSulDisco();
    fs::remove_all(cantiere);
    fs::create_directories(cantiere.parent_path());
    for (const fs::path& una : {cantiere, cantiere / "Immagini", cantiere / "Documenti"}) {
      PassoSulDisco();
      fs::create_directory(una);
    }
    return CantiereDitta(std::move(interno));
  } catch (const fs::filesystem_error& errore) {
    return Errore{kErroreCartella + std::string("\n«") + errore.path1().string() +
                  "»: " + MotivoDiSistema(errore.code().value())};
  } catch (const std::exception& errore) {
    return Errore{kErroreCartella + ("\n" + std::string(errore.what()))};
  }
}

PercorsiArchivi CantiereDitta::Archivi() const {
  const fs::path cantiere = Cantiere(interno_->ditte, interno_->nome);
  return {cantiere / kFileTessarc, cantiere / kFileScadenzario};
}

Esito<std::optional<fs::path>> CantiereDitta::Posa(const std::string& impostazioni) {
  const Ditte& ditte = interno_->ditte;
  const NotaLavoro& nota = interno_->nota;
  const fs::path cantiere = Cantiere(ditte, interno_->nome);
  const fs::path cestinata = nota.Voce("voce");
  const bool esisteva = CePercorso(PostoPer(ditte, interno_->nome).cartella);
  const auto fallita = [this](const std::exception& errore) {
    return Errore{"la ditta " + interno_->nome + " non è stata creata: " + errore.what()};
  };
  try {
    for (const auto& voce : fs::directory_iterator(cantiere)) engine::Sincronizza(voce.path());
    // From here on the company is whole: a crash is gone on from, not back.
    ScriviTesto(cantiere / kImpostazioniPronte, impostazioni);
    PosaCantiere(ditte, nota);
  } catch (const std::exception& errore) {
    try {
      DisfaPosa(ditte, nota);
    } catch (const std::exception&) {
      interno_->lasciato = true;  // the note stays, and the next start goes on from it
    }
    return fallita(errore);
  }
  interno_->lasciato = true;
  interno_->nota.Chiudi();
  return esisteva ? std::optional<fs::path>(cestinata) : std::nullopt;
}

// --- Renaming and deleting
// ------------------------------------------------------------------------

Esito<bool, PassoFallito> RinominaFileDitta(const Ditte& ditte, const std::string& da,
                                            const std::string& a) {
  const auto percorsi = ditte.Percorsi(da);
  if (!percorsi) return PassoFallito{3, percorsi.Errore().messaggio};
  const fs::path cartella = percorsi.Valore().tessarc.parent_path();
  // A folder that doesn't bear the company's name keeps its own.
  const bool sua =
      UgualeTesto(cartella.filename().string(), da) && NonSua(ditte, cartella, da).empty();
  const fs::path dopo = sua ? cartella.parent_path() / a : cartella;
  // On systems that don't tell case apart the same folder is there under both names.
  std::error_code errore;
  if (dopo != cartella && CePercorso(dopo) && !fs::equivalent(dopo, cartella, errore)) {
    return PassoFallito{3, "la cartella «" + dopo.string() + "» esiste già"};
  }
  const fs::path ini = ditte.FileImpostazioni(da);
  auto nota = NotaLavoro::Inizia(ditte.Cartella(), da,
                                 {{"lavoro", kRinomina},
                                  {"ditta", da},
                                  {"a", a},
                                  {"cartellaDa", cartella.string()},
                                  {"cartellaA", dopo.string()},
                                  {"iniDa", ini.string()},
                                  {"iniA", (ini.parent_path() / (a + ".ini")).string()},
                                  {"predefinita", SiNo(UgualeTesto(ditte.Predefinita(), da))}});
  if (!nota) return PassoFallito{3, nota.Errore().messaggio};
  int passo = 3;
  try {
    FaiRinomina(ditte, nota.Valore(), passo);
  } catch (const std::exception& motivo) {
    const std::string testo = motivo.what();
    try {
      DisfaRinomina(ditte, nota.Valore());
    } catch (const std::exception& resta) {
      // The note stays: the next start goes on from it.
      return PassoFallito{passo, testo + "\n" + resta.what()};
    }
    nota.Valore().Chiudi();
    return PassoFallito{passo, testo};
  }
  nota.Valore().Chiudi();
  return true;
}

Esito<fs::path> CestinaDitta(const Ditte& ditte, const std::string& nome,
                             const std::string& adesso) {
  const auto percorsi = ditte.Percorsi(nome);
  if (!percorsi) return percorsi.Errore();
  const fs::path cartella = percorsi.Valore().tessarc.parent_path();
  std::string motivo = NonSua(ditte, cartella, nome);
  if (!UgualeTesto(cartella.filename().string(), nome)) {
    motivo = "non ha il nome della ditta, e può contenere altro";
  }
  if (!motivo.empty()) {
    return Errore{"«" + cartella.string() + "» " + motivo + ": va spostata a mano"};
  }
  const fs::path ini = ditte.FileImpostazioni(nome);
  const fs::path voce = NuovaVoceCestino(ditte, nome, adesso);
  auto nota = NotaLavoro::Inizia(ditte.Cartella(), nome,
                                 {{"lavoro", kElimina},
                                  {"ditta", nome},
                                  {"cartellaDa", cartella.string()},
                                  {"iniDa", ini.string()},
                                  {"voce", voce.string()},
                                  {"predefinita", SiNo(UgualeTesto(ditte.Predefinita(), nome))}});
  if (!nota) return nota.Errore();
  std::string impostazioni;
  try {
    const auto testo = LeggiFileTesto(ini);
    if (!testo) throw Impedito(testo.Errore().messaggio);
    impostazioni = testo.Valore();
    CreaCartella(voce);
    ScriviTesto(voce / ini.filename(), impostazioni);
    FaiCestina(ditte, nota.Valore());
  } catch (const std::exception& guasto) {
    std::error_code errore;
    if (!CePercorso(cartella)) fs::rename(voce / cartella.filename(), cartella, errore);
    if (!errore && !CePercorso(ini) && !ScriviFileTesto(ini, impostazioni)) {
      return Errore{guasto.what()};  // the note stays
    }
    if (!errore) fs::remove_all(voce, errore);
    TogliCestinoVuoto(voce);
    if (!errore) nota.Valore().Chiudi();
    return Errore{guasto.what()};
  }
  nota.Valore().Chiudi();
  return voce;
}

std::string Adesso(const Orologio& orologio) {
  std::string ora = orologio.Ora();
  std::replace(ora.begin(), ora.end(), ':', '.');
  return orologio.Oggi().Iso() + " " + ora;
}

std::vector<std::string> RiprendiLavoriDitte(const Ditte& ditte) {
  std::vector<std::string> detti;
  for (NotaLavoro& nota : NotaLavoro::Lasciate(ditte.Cartella())) {
    const std::string lavoro = nota.Voce("lavoro");
    try {
      const std::string detto = lavoro == kCrea       ? RiprendiCreazione(ditte, nota)
                                : lavoro == kRinomina ? RiprendiRinomina(ditte, nota)
                                : lavoro == kElimina  ? RiprendiCestina(ditte, nota)
                                                      : std::string();
      if (!detto.empty()) detti.push_back(detto);
      nota.Chiudi();
    } catch (const std::exception& errore) {
      detti.push_back("un lavoro interrotto sulla ditta " + nota.Voce("ditta") +
                      " non si può finire: " + errore.what());
    }
  }
  return detti;
}

void SuPassoDitta(std::function<void()> azione) {
  suPasso = std::move(azione);
}

}  // namespace fenalto
