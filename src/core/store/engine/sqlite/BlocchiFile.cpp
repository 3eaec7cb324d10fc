#include "core/store/engine/sqlite/BlocchiFile.h"

#include <fcntl.h>
#include <sys/stat.h>
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

namespace fenalto::engine::sqlite {
namespace {

// The lock file holds a head, the ticket counters and the slots; the locks themselves are on bytes
// far beyond its end, which the file needn't have. Where a lock's byte is follows from its key
// alone: whatever stands in the file, exclusion holds. The slots only tell who holds.
constexpr std::array<char, 8> kFirma = {'F', 'E', 'N', 'B', 'L', 'K', '0', '2'};
constexpr std::int64_t kCode = 4'096;  // queues, each with a ticket counter
constexpr std::int64_t kInizioContatori = 64;
constexpr std::int64_t kPosti = 4'096;
constexpr std::int64_t kFinestra = 64;  // slots that a key may stand in
constexpr std::int64_t kInizioPosti = 65'536;
constexpr std::int64_t kBytePosti = std::int64_t{1} << 40;
constexpr std::int64_t kByteCode = std::int64_t{1} << 55;  // queue i begins i * 2^42 further
constexpr std::int64_t kPassoCode = std::int64_t{1} << 42;
constexpr std::int64_t kByteChiavi = std::int64_t{1} << 60;
constexpr auto kPausaMassima = std::chrono::microseconds(2'000);

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

std::uint64_t Impronta(std::string_view testo, std::uint64_t base = 14'695'981'039'346'656'037ULL) {
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
                static_cast<unsigned long long>(Impronta(intera)),
                static_cast<unsigned long long>(Impronta(intera, 88'172'645'463'325'252ULL)));
  return intera.substr(0, kMassimo - 33) + impronte;
}

/// The byte that the holder of a key locks: among 2^60 of them two keys don't meet.
std::int64_t ByteDi(const std::string& chiave) {
  // Mixed once more, since the digest's low bits hardly depend on the key's first letters.
  std::uint64_t valore = Impronta(chiave);
  valore = (valore ^ (valore >> 32)) * 0x9E3779B97F4A7C15ULL;
  valore ^= valore >> 31;
  return kByteChiavi + static_cast<std::int64_t>(valore % (std::uint64_t{1} << 60));
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

// --- Blocchi ----------------------------------------------------------------------------------

namespace {

/// One lock with a descriptor of its own.
class TenutaFile final : public Blocco::Tenuta {
 public:
  TenutaFile(int descrittore, std::int64_t posto) : descrittore_(descrittore), posto_(posto) {}
  TenutaFile(const TenutaFile&) = delete;
  TenutaFile& operator=(const TenutaFile&) = delete;
  ~TenutaFile() override {
    const char libero = 0;
    // A slot left marked does no harm: its byte isn't held any more.
    if (posto_ >= 0) (void)!pwrite(descrittore_, &libero, 1, OffsetPosto(posto_));
    // Not left to the closing: a process being started may hold a copy of the descriptor for a
    // while.
    struct flock tutto{};
    tutto.l_type = F_UNLCK;
    tutto.l_whence = SEEK_SET;
    (void)fcntl(descrittore_, F_OFD_SETLK, &tutto);
    close(descrittore_);
  }

 private:
  int descrittore_;
  std::int64_t posto_;
};

}  // namespace

struct BlocchiFile::Interno {
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

  /// Makes the file anew when it isn't one of ours. Locks held meanwhile go on holding.
  void Verifica(int descrittore) const {
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
          errno == ENOSPC ? ErroreArchivio::Causa::DiscoPieno : ErroreArchivio::Causa::Altro,
          "il file dei blocchi " + file.string() + " non si può preparare: " +
              std::strerror(errno) + ". Controllare lo spazio e i permessi della cartella.");
    }
  }

  static std::int64_t PrimoPosto(const std::string& chiave) {
    return static_cast<std::int64_t>(Impronta(chiave) %
                                     static_cast<std::uint64_t>(kPosti - kFinestra + 1));
  }

  /// Who holds a key that another descriptor holds; without a name when no slot tells.
  static Detentore Chi(int descrittore, const std::string& chiave) {
    const std::int64_t primo = PrimoPosto(chiave);
    Finestra finestra{};
    (void)!pread(descrittore, finestra.data(), sizeof finestra, OffsetPosto(primo));
    for (std::size_t i = 0; i < finestra.size(); ++i) {
      if (finestra[i].occupato != 0 && Testo(finestra[i].chiave) == chiave &&
          TenutoDaAltri(descrittore, kBytePosti + primo + static_cast<std::int64_t>(i), 1)) {
        return DetentoreDi(finestra[i]);
      }
    }
    return {"?", "", 0, ""};
  }

  /// Writes the holder of a key just taken into a free slot and returns it; -1 when there is none
  /// or it can't be written: the lock holds without it, it just has no name for others.
  [[nodiscard]] std::int64_t Iscrivi(int descrittore, const std::string& chiave) const {
    const std::int64_t primo = PrimoPosto(chiave);
    for (std::int64_t posto = primo; posto < primo + kFinestra; ++posto) {
      if (!Blocca(descrittore, kBytePosti + posto, F_WRLCK)) continue;
      Posto nuovo;
      nuovo.occupato = 1;
      Copia(nuovo.chiave, chiave);
      Copia(nuovo.stazione, stazione);
      Copia(nuovo.utente, utente);
      nuovo.processo = getpid();
      Copia(nuovo.dalle, AdessoLocale());
      const bool scritto = pwrite(descrittore, &nuovo, sizeof nuovo, OffsetPosto(posto)) ==
                           static_cast<ssize_t>(sizeof nuovo);
      return scritto ? posto : -1;
    }
    return -1;
  }

  /// Joins the queue that begins at byte `coda`: the ticket taken, greater than all before it; 0
  /// when the moment was bad and it must be tried again.
  static std::int64_t Biglietto(int descrittore, std::int64_t coda, std::int64_t contatore) {
    std::int64_t ultimo = 0;
    const auto leggi = [&] {
      std::int64_t letto = 0;
      (void)!pread(descrittore, &letto, sizeof letto, contatore);
      return letto < 0 || letto >= kPassoCode - 2 ? 0 : letto;
    };
    ultimo = leggi();
    const std::int64_t mio = ultimo + 1;
    if (!Blocca(descrittore, coda + mio, F_WRLCK)) {
      // Taken by one that hasn't counted it yet, or by one from before the counter was spoilt.
      return 0;
    }
    if (leggi() != ultimo) {
      Blocca(descrittore, coda + mio, F_UNLCK);
      return 0;
    }
    // Only the holder of this byte moves the counter on from `ultimo`.
    (void)!pwrite(descrittore, &mio, sizeof mio, contatore);
    return mio;
  }
};

BlocchiFile::BlocchiFile(std::filesystem::path file, std::string stazione, std::string utente)
    : interno_(std::make_unique<Interno>()) {
  interno_->file = std::move(file);
  interno_->stazione = std::move(stazione);
  interno_->utente = std::move(utente);
  const int descrittore = interno_->Apri();
  try {
    interno_->Verifica(descrittore);
  } catch (...) {
    close(descrittore);
    throw;
  }
  close(descrittore);
}

BlocchiFile::~BlocchiFile() = default;

void BlocchiFile::Utente(std::string utente) {
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
  /// The lock, from now on in the hands of its holder, who stands in slot `posto`.
  Blocco Cedi(std::int64_t posto) {
    Blocco blocco(std::make_unique<TenutaFile>(descrittore_, posto));
    descrittore_ = -1;
    return blocco;
  }

 private:
  int descrittore_;
};

}  // namespace

Esito<Blocco, Detentore> BlocchiFile::Record(std::string_view tabella, std::string_view chiave) {
  const std::string nome = ChiaveDi('R', tabella, chiave);
  Custode custode(interno_->Apri());
  if (!Blocca(custode.Get(), ByteDi(nome), F_WRLCK)) return Interno::Chi(custode.Get(), nome);
  return custode.Cedi(interno_->Iscrivi(custode.Get(), nome));
}

Esito<Blocco, Detentore> BlocchiFile::Tabella(std::string_view tabella,
                                              std::chrono::milliseconds attesa) {
  const std::string nome = ChiaveDi('T', tabella, "");
  const std::int64_t byte = ByteDi(nome);
  const auto indice = static_cast<std::int64_t>(Impronta(nome) % std::uint64_t{kCode});
  const std::int64_t coda = kByteCode + indice * kPassoCode;
  const std::int64_t contatore = kInizioContatori + indice * 8;
  const auto limite = std::chrono::steady_clock::now() + attesa;
  Custode custode(interno_->Apri());
  const int descrittore = custode.Get();
  std::int64_t biglietto = 0;  // 0 until one is taken
  auto pausa = std::chrono::microseconds(200);
  while (true) {
    // Nobody passes those who wait already; of them, the smallest ticket that lives comes first.
    const bool tocca = biglietto == 0 ? !TenutoDaAltri(descrittore, coda + 1, kPassoCode - 2)
                                      : !TenutoDaAltri(descrittore, coda + 1, biglietto - 1);
    if (tocca && Blocca(descrittore, byte, F_WRLCK)) {
      const std::int64_t posto = interno_->Iscrivi(descrittore, nome);
      if (biglietto != 0) Blocca(descrittore, coda + biglietto, F_UNLCK);
      return custode.Cedi(posto);
    }
    if (std::chrono::steady_clock::now() >= limite) return Interno::Chi(descrittore, nome);
    if (biglietto == 0) biglietto = Interno::Biglietto(descrittore, coda, contatore);
    std::this_thread::sleep_for(pausa);
    pausa = std::min(pausa * 2, kPausaMassima);
  }
}

std::optional<Detentore> BlocchiFile::ChiTiene(std::string_view tabella,
                                               std::string_view chiave) const {
  const std::string nome = ChiaveDi('R', tabella, chiave);
  const Custode custode(interno_->Apri());
  if (!TenutoDaAltri(custode.Get(), ByteDi(nome), 1)) return std::nullopt;
  return Interno::Chi(custode.Get(), nome);
}

// --- Presence ---------------------------------------------------------------------------------

namespace {

/// The shared lock of the company's own byte, on a descriptor of its own; alone it is the same lock
/// made exclusive in one step, so that nobody comes in between.
template <typename Interno>
class PostoFile final : public PostoPresenza {
 public:
  PostoFile(int descrittore, Interno interno, std::string nome)
      : custode_(descrittore), interno_(std::move(interno)), nome_(std::move(nome)) {}
  ~PostoFile() override {
    Cancella();
    // Not left to the closing, as with any lock.
    Blocca(custode_.Get(), ByteDi(nome_), F_UNLCK);
  }
  PostoFile(const PostoFile&) = delete;
  PostoFile& operator=(const PostoFile&) = delete;

  [[nodiscard]] bool Entra() { return Blocca(custode_.Get(), ByteDi(nome_), F_RDLCK); }
  void Iscrivi() {
    Cancella();
    posto_ = interno_.Iscrivi(custode_.Get(), nome_);
  }
  void Utente(const std::string& utente) override {
    interno_.utente = utente;
    Iscrivi();
  }
  std::optional<Detentore> Esclusiva() override {
    if (Blocca(custode_.Get(), ByteDi(nome_), F_WRLCK)) return std::nullopt;
    return Interno::Chi(custode_.Get(), nome_);
  }
  void Condividi() override { Blocca(custode_.Get(), ByteDi(nome_), F_RDLCK); }

 private:
  void Cancella() {
    const char libero = 0;
    if (posto_ < 0) return;
    (void)!pwrite(custode_.Get(), &libero, 1, OffsetPosto(posto_));
    Blocca(custode_.Get(), kBytePosti + posto_, F_UNLCK);
    posto_ = -1;
  }
  Custode custode_;
  Interno interno_;
  std::string nome_;
  std::int64_t posto_ = -1;
};

}  // namespace

Esito<std::unique_ptr<PostoPresenza>, Detentore> BlocchiFile::Presenza() {
  const std::string nome = ChiaveDi('P', "", "");
  auto posto = std::make_unique<PostoFile<Interno>>(interno_->Apri(), *interno_, nome);
  if (!posto->Entra()) {
    const Custode custode(interno_->Apri());
    return Interno::Chi(custode.Get(), nome);
  }
  posto->Iscrivi();
  return Esito<std::unique_ptr<PostoPresenza>, Detentore>(std::move(posto));
}

// --- Folders ----------------------------------------------------------------------------------

bool BlocchiAffidabili(const std::filesystem::path& cartella) {
  const auto file = cartella / (kProvaBlocchi + std::to_string(getpid()));
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

}  // namespace fenalto::engine::sqlite
