#include "runner/Sorveglianza.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <thread>

namespace fenalto::copione {
namespace {

constexpr std::chrono::milliseconds kSguardo(10);
/// What a command may be over its time before its process is ended: the copione itself stops a
/// command that merely takes long, and tells more about it.
constexpr std::int64_t kTolleranza = 5'000;

template <std::size_t N>
void Copia(const std::string& testo, char (&dove)[N]) {
  const auto lunghezza = std::min(testo.size(), N - 1);
  std::copy_n(testo.data(), lunghezza, dove);
  dove[lunghezza] = '\0';
}

void Riferisci(const Segnalibro& segno, const std::string& motivo) {
  std::printf("%s: %s: %s\n", segno.luogo, segno.comando, motivo.c_str());
  std::fflush(stdout);
}

int Sorveglia(pid_t figlio, const Segnalibro& segno) {
  int stato = 0;
  while (waitpid(figlio, &stato, WNOHANG) == 0) {
    const auto scadenza = segno.scadenza.load();
    if (scadenza != 0 && AdessoMs() > scadenza + kTolleranza) {
      kill(figlio, SIGKILL);
      waitpid(figlio, &stato, 0);
      Riferisci(segno, "the program hangs");
      return 1;
    }
    std::this_thread::sleep_for(kSguardo);
  }
  if (WIFSIGNALED(stato)) {
    Riferisci(segno, "the program crashed with signal " + std::to_string(WTERMSIG(stato)));
    return 1;
  }
  const int esito = WEXITSTATUS(stato);
  if (esito > 1) Riferisci(segno, "the program ended with status " + std::to_string(esito));
  return esito == 0 ? 0 : 1;
}

}  // namespace

void Segnalibro::Comincia(const std::string& dove, const std::string& quale, std::int64_t fine) {
  scadenza.store(0);
  Copia(dove, luogo);
  Copia(quale, comando);
  scadenza.store(fine);
}

std::int64_t AdessoMs() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

int LanciaSorvegliato(const std::function<int(Segnalibro&)>& lavoro) {
  void* comune =
      mmap(nullptr, sizeof(Segnalibro), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (comune == MAP_FAILED) return 1;
  auto* segno = new (comune) Segnalibro;
  std::fflush(stdout);
  const pid_t figlio = fork();
  if (figlio == 0) {
    const int esito = lavoro(*segno);
    std::fflush(stdout);
    std::exit(esito);
  }
  const int esito = figlio < 0 ? 1 : Sorveglia(figlio, *segno);
  munmap(comune, sizeof(Segnalibro));
  return esito;
}

}  // namespace fenalto::copione
