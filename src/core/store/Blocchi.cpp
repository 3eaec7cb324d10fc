#include "core/store/Blocchi.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <thread>
#include <utility>

#include "core/store/ErroreArchivio.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

// The lock file: a head, the ticket counters of the tables, then the slots. Lock bytes lie far
// beyond any content, so that the file stays small.
constexpr std::array<char, 8> kFirma = {'F', 'E', 'N', 'B', 'L', 'K', '0', '1'};
constexpr std::int64_t kCode = 64;  // tables with a queue of their own
constexpr std::int64_t kPosti = 4'096;
constexpr std::int64_t kFinestra = 64;  // slots that a key may stand in
constexpr std::int64_t kInizioPosti = 1'024;
constexpr std::int64_t kByteIndice = std::int64_t{1} << 39;
constexpr std::int64_t kBytePosti = std::int64_t{1} << 40;
constexpr std::int64_t kByteCode = std::int64_t{1} << 50;  // queue i begins i * 2^42 further
constexpr std::int64_t kPassoCode = std::int64_t{1} << 42;
constexpr auto kAttesaIndice = std::chrono::seconds(5);

struct Posto {
  char occupato = 0;
  char chiave[127] = {};
  char stazione[48] = {};
  char utente[40] = {};
  std::int64_t processo = 0;
  char dalle[24] = {};
  char riserva[8] = {};
};
static_assert(sizeof(Posto) == 256);

std::int64_t OffsetPosto(std::int64_t posto) {
  return kInizioPosti + posto * static_cast<std::int64_t>(sizeof(Posto));
}

bool Blocca(int descrittore, std::int64_t byte, short genere) {
  struct flock richiesta{};
  richiesta.l_type = genere;
  richiesta.l_whence = SEEK_SET;
  richiesta.l_start = byte;
  richiesta.l_len = 1;
  int esito;
  do {
    esito = fcntl(descrittore, F_OFD_SETLK, &richiesta);
  } while (esito < 0 && errno == EINTR);
  return esito == 0;
}

/// Whether another descriptor holds a byte of [da, da + quanti).
bool TenutoDaAltri(int descrittore, std::int64_t da, std::int64_t quanti) {
  if (quanti <= 0) return false;
  struct flock richiesta{};
  richiesta.l_type = F_WRLCK;
  richiesta.l_whence = SEEK_SET;
  richiesta.l_start = da;
  richiesta.l_len = quanti;
  return fcntl(descrittore, F_OFD_GETLK, &richiesta) == 0 && richiesta.l_type != F_UNLCK;
}

template <std::size_t N>
void Copia(char (&dove)[N], const std::string& testo) {
  const std::size_t quanti = std::min(testo.size(), N - 1);
  std::memcpy(dove, testo.data(), quanti);
  dove[quanti] = '\0';
}

template <std::size_t N>
std::string Testo(const char (&dove)[N]) {
  return std::string(dove, strnlen(dove, N));
}

std::uint64_t Impronta(std::string_view testo, std::uint64_t base) {
  std::uint64_t valore = base;
  for (const char c : testo) {
    valore ^= static_cast<unsigned char>(c);
    valore *= 1'099'511'628'211ULL;
  }
  return valore ^ (valore >> 29);
}

/// The key as it stands in a slot: whole when it fits, else its beginning and two digests.
std::string ChiaveDi(char genere, std::string_view tabella, std::string_view chiave) {
  std::string intera(1, genere);
  intera += SenzaMaiuscole(tabella);
  intera += '\n';
  intera += SenzaMaiuscole(chiave);
  constexpr std::size_t kMassimo = sizeof(Posto::chiave) - 1;
  if (intera.size() <= kMassimo) return intera;
  char impronte[40];
  std::snprintf(impronte, sizeof impronte, "~%016llx%016llx",
                static_cast<unsigned long long>(Impronta(intera, 14'695'981'039'346'656'037ULL)),
                static_cast<unsigned long long>(Impronta(intera, 88'172'645'463'325'252ULL)));
  return intera.substr(0, kMassimo - 33) + impronte;
}

std::string AdessoLocale() {
  const std::time_t ora = std::time(nullptr);
  std::tm locale{};
  localtime_r(&ora, &locale);
  char testo[24];
  std::strftime(testo, sizeof testo, "%d/%m/%Y %H:%M", &locale);
  return testo;
}

Detentore DetentoreDi(const Posto& posto) {
  return {Testo(posto.stazione), Testo(posto.utente), posto.processo, Testo(posto.dalle)};
}

using Finestra = std::array<Posto, kFinestra>;

}  // namespace

std::string Detentore::Descrizione() const {
  std::string testo = "dalla stazione " + (stazione.empty() ? std::string("?") : stazione);
  std::string dettagli;
  if (!utente.empty()) dettagli = "utente " + utente;
  if (!dalle.empty()) dettagli += (dettagli.empty() ? "dalle " : ", dalle ") + dalle;
  return dettagli.empty() ? testo : testo + " (" + dettagli + ")";
}

// --- Blocco
// ---------------------------------------------------------------------------------------

Blocco::Blocco(Blocco&& altro) noexcept
    : descrittore_(std::exchange(altro.descrittore_, -1)), posto_(altro.posto_) {}

Blocco& Blocco::operator=(Blocco&& altro) noexcept {
  if (this != &altro) {
    Rilascia();
    descrittore_ = std::exchange(altro.descrittore_, -1);
    posto_ = altro.posto_;
  }
  return *this;
}

Blocco::~Blocco() {
  Rilascia();
}

void Blocco::Rilascia() noexcept {
  if (descrittore_ < 0) return;
  const char libero = 0;
  // A slot left marked is found free all the same, since its byte isn't held any more.
  (void)!pwrite(descrittore_, &libero, 1, OffsetPosto(posto_));
  close(descrittore_);
  descrittore_ = -1;
}

// --- Blocchi
// --------------------------------------------------------------------------------------

struct Blocchi::Interno {
  std::filesystem::path file;
  std::string stazione;
  std::string utente;

  /// A descriptor of its own for one lock.
  [[nodiscard]] int Apri() const {
    const int descrittore = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descrittore < 0) {
      const bool sola = errno == EACCES || errno == EROFS || errno == EPERM;
      throw ErroreArchivio(sola ? ErroreArchivio::Causa::SolaLettura : ErroreArchivio::Causa::Altro,
                           "non si può scrivere il file dei blocchi " + file.string() + ": " +
                               std::strerror(errno) + ". Controllare i permessi della cartella.");
    }
    return descrittore;
  }

  /// Takes the lock over the slot table; false when it can't be had in time.
  [[nodiscard]] static bool PrendiIndice(int descrittore) {
    const auto limite = std::chrono::steady_clock::now() + kAttesaIndice;
    while (!Blocca(descrittore, kByteIndice, F_WRLCK)) {
      if (std::chrono::steady_clock::now() > limite) return false;
      std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return true;
  }

  /// Makes the file anew when it isn't one of ours. The slot table must be locked.
  static void Verifica(int descrittore) {
    std::array<char, 8> firma{};
    struct stat stato{};
    const bool buona =
        fstat(descrittore, &stato) == 0 && stato.st_size >= OffsetPosto(kPosti) &&
        pread(descrittore, firma.data(), firma.size(), 0) == static_cast<ssize_t>(firma.size()) &&
        firma == kFirma;
    if (buona) return;
    if (ftruncate(descrittore, 0) != 0 || ftruncate(descrittore, OffsetPosto(kPosti)) != 0 ||
        pwrite(descrittore, kFirma.data(), kFirma.size(), 0) !=
            static_cast<ssize_t>(kFirma.size())) {
      throw ErroreArchivio(
          ErroreArchivio::Causa::Altro,
          std::string("il file dei blocchi non si può preparare: ") + std::strerror(errno));
    }
  }

  static std::int64_t PrimoPosto(const std::string& chiave) {
    return static_cast<std::int64_t>(Impronta(chiave, 14'695'981'039'346'656'037ULL) %
                                     static_cast<std::uint64_t>(kPosti - kFinestra + 1));
  }

  static void Leggi(int descrittore, std::int64_t primo, Finestra& finestra) {
    const auto letti = pread(descrittore, finestra.data(), sizeof finestra, OffsetPosto(primo));
    if (letti != static_cast<ssize_t>(sizeof finestra)) finestra = {};
  }

  /// Index in the window of the slot in which another holds this key.
  static std::optional<std::size_t> Altrui(int descrittore, std::int64_t primo,
                                           const Finestra& finestra, const std::string& chiave) {
    for (std::size_t i = 0; i < finestra.size(); ++i) {
      if (finestra[i].occupato != 0 && Testo(finestra[i].chiave) == chiave &&
          TenutoDaAltri(descrittore, kBytePosti + primo + static_cast<std::int64_t>(i), 1)) {
        return i;
      }
    }
    return std::nullopt;
  }

  /// Takes a free slot of the window for the key; the slot table must be locked.
  [[nodiscard]] std::int64_t Occupa(int descrittore, std::int64_t primo, const Finestra& finestra,
                                    const std::string& chiave) const {
    for (const bool anchePersi : {false, true}) {
      for (std::size_t i = 0; i < finestra.size(); ++i) {
        // A marked slot whose byte is free was left by a process that died.
        if (finestra[i].occupato != 0 && !anchePersi) continue;
        const std::int64_t posto = primo + static_cast<std::int64_t>(i);
        if (!Blocca(descrittore, kBytePosti + posto, F_WRLCK)) continue;
        Posto nuovo;
        nuovo.occupato = 1;
        Copia(nuovo.chiave, chiave);
        Copia(nuovo.stazione, stazione);
        Copia(nuovo.utente, utente);
        nuovo.processo = getpid();
        Copia(nuovo.dalle, AdessoLocale());
        if (pwrite(descrittore, &nuovo, sizeof nuovo, OffsetPosto(posto)) ==
            static_cast<ssize_t>(sizeof nuovo)) {
          return posto;
        }
        throw ErroreArchivio(ErroreArchivio::Causa::DiscoPieno,
                             "non si può scrivere il file dei blocchi " + file.string());
      }
    }
    throw ErroreArchivio(ErroreArchivio::Causa::Occupato,
                         "troppi blocchi contemporanei in " + file.string());
  }
};

Blocchi::Blocchi(std::filesystem::path file, std::string stazione, std::string utente)
    : interno_(std::make_unique<Interno>()) {
  interno_->file = std::move(file);
  interno_->stazione = std::move(stazione);
  interno_->utente = std::move(utente);
  const int descrittore = interno_->Apri();
  try {
    if (!Interno::PrendiIndice(descrittore)) {
      throw ErroreArchivio(ErroreArchivio::Causa::Occupato,
                           "il file dei blocchi " + interno_->file.string() + " è occupato");
    }
    Interno::Verifica(descrittore);
  } catch (...) {
    close(descrittore);
    throw;
  }
  close(descrittore);
}

Blocchi::~Blocchi() = default;

void Blocchi::Utente(std::string utente) {
  interno_->utente = std::move(utente);
}

namespace {

/// Closes a descriptor, and with it all its locks, unless it was given on.
class Custode {
 public:
  explicit Custode(int descrittore) : descrittore_(descrittore) {}
  ~Custode() {
    if (descrittore_ >= 0) close(descrittore_);
  }
  Custode(const Custode&) = delete;
  Custode& operator=(const Custode&) = delete;
  [[nodiscard]] int Get() const { return descrittore_; }
  int Cedi() { return std::exchange(descrittore_, -1); }

 private:
  int descrittore_;
};

}  // namespace

Esito<Blocco, Detentore> Blocchi::Record(std::string_view tabella, std::string_view chiave) {
  const std::string nome = ChiaveDi('R', tabella, chiave);
  const std::int64_t primo = Interno::PrimoPosto(nome);
  Custode custode(interno_->Apri());
  if (!Interno::PrendiIndice(custode.Get())) return Detentore{"?", "", 0, ""};
  Interno::Verifica(custode.Get());
  Finestra finestra;
  Interno::Leggi(custode.Get(), primo, finestra);
  if (const auto altrui = Interno::Altrui(custode.Get(), primo, finestra, nome)) {
    return DetentoreDi(finestra[*altrui]);
  }
  Blocco blocco;
  blocco.posto_ = interno_->Occupa(custode.Get(), primo, finestra, nome);
  Blocca(custode.Get(), kByteIndice, F_UNLCK);
  blocco.descrittore_ = custode.Cedi();
  return blocco;
}

Esito<Blocco, Detentore> Blocchi::Tabella(std::string_view tabella,
                                          std::chrono::milliseconds attesa) {
  const std::string nome = ChiaveDi('T', tabella, "");
  const std::int64_t primo = Interno::PrimoPosto(nome);
  const std::int64_t coda = primo % kCode;
  const std::int64_t inizioCoda = kByteCode + coda * kPassoCode;
  const std::int64_t contatore = 16 + coda * 8;  // offset of the queue's ticket counter
  const auto limite = std::chrono::steady_clock::now() + attesa;
  Custode custode(interno_->Apri());
  const int descrittore = custode.Get();
  std::int64_t biglietto = 0;  // 0 until one is taken
  auto pausa = std::chrono::microseconds(200);
  Detentore chi{"?", "", 0, ""};
  while (true) {
    // Whoever holds a smaller ticket and lives comes first.
    const bool tocca = biglietto == 0 || !TenutoDaAltri(descrittore, inizioCoda + 1, biglietto - 1);
    if (tocca && Interno::PrendiIndice(descrittore)) {
      Interno::Verifica(descrittore);
      std::int64_t ultimo = 0;
      (void)!pread(descrittore, &ultimo, sizeof ultimo, contatore);
      if (ultimo < 0 || ultimo >= kPassoCode - 1) ultimo = 0;
      Finestra finestra;
      Interno::Leggi(descrittore, primo, finestra);
      const auto altrui = Interno::Altrui(descrittore, primo, finestra, nome);
      const bool inCoda = biglietto == 0 && TenutoDaAltri(descrittore, inizioCoda + 1, ultimo);
      if (!altrui && !inCoda) {
        Blocco blocco;
        blocco.posto_ = interno_->Occupa(descrittore, primo, finestra, nome);
        if (biglietto != 0) Blocca(descrittore, inizioCoda + biglietto, F_UNLCK);
        Blocca(descrittore, kByteIndice, F_UNLCK);
        blocco.descrittore_ = custode.Cedi();
        return blocco;
      }
      if (altrui) chi = DetentoreDi(finestra[*altrui]);
      if (biglietto == 0 && attesa.count() > 0) {
        biglietto = ultimo + 1;
        (void)!pwrite(descrittore, &biglietto, sizeof biglietto, contatore);
        Blocca(descrittore, inizioCoda + biglietto, F_WRLCK);
      }
      Blocca(descrittore, kByteIndice, F_UNLCK);
    }
    if (std::chrono::steady_clock::now() >= limite) return chi;
    std::this_thread::sleep_for(pausa);
    pausa = std::min(pausa * 2, std::chrono::microseconds(2'000));
  }
}

std::optional<Detentore> Blocchi::ChiTiene(std::string_view tabella,
                                           std::string_view chiave) const {
  const std::string nome = ChiaveDi('R', tabella, chiave);
  const std::int64_t primo = Interno::PrimoPosto(nome);
  const Custode custode(interno_->Apri());
  Finestra finestra;
  Interno::Leggi(custode.Get(), primo, finestra);
  const auto altrui = Interno::Altrui(custode.Get(), primo, finestra, nome);
  if (!altrui) return std::nullopt;
  return DetentoreDi(finestra[*altrui]);
}

// --- Folders
// --------------------------------------------------------------------------------------

bool BlocchiAffidabili(const std::filesystem::path& cartella) {
  const auto file = cartella / (".prova-blocchi-" + std::to_string(getpid()));
  const int descrittore = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (descrittore < 0) return false;
  bool affidabili = Blocca(descrittore, 0, F_WRLCK);
  if (affidabili) {
    const char* percorso = file.c_str();
    const pid_t figlio = fork();
    if (figlio == 0) {
      // Only system calls here: the parent may have threads.
      const int altro = open(percorso, O_RDWR | O_CLOEXEC);
      const bool entra = altro >= 0 && Blocca(altro, 0, F_WRLCK);
      _exit(altro >= 0 && !entra ? 0 : 1);
    }
    int stato = 1;
    affidabili = figlio > 0 && waitpid(figlio, &stato, 0) == figlio && stato == 0;
  }
  close(descrittore);
  unlink(file.c_str());
  return affidabili;
}

bool CartellaDiRete(const std::filesystem::path& cartella) {
  struct statfs stato{};
  if (statfs(cartella.c_str(), &stato) != 0) return false;
  constexpr std::array<std::uint64_t, 6> kDiRete = {
      0x6969,      // NFS
      0xFF534D42,  // CIFS
      0xFE534D42,  // SMB2
      0x517B,      // SMB
      0x5346414F,  // AFS
      0x65735546,  // FUSE, which hides what lies below
  };
  const auto genere = static_cast<std::uint64_t>(stato.f_type) & 0xFFFFFFFFU;
  return std::find(kDiRete.begin(), kDiRete.end(), genere) != kDiRete.end();
}

}  // namespace fenalto
