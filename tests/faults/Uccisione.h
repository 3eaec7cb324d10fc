// A process that works without end and is killed in the middle of it.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

namespace fenalto::prova {

/// Starts a process that runs `lavoro`, which never returns and writes each number that it has
/// confirmed to the pipe it is given; kills it `dopo` it told the first. The last number told, -1
/// when the process stopped of itself. No database may be open here.
inline int UccidiAlLavoro(std::chrono::microseconds dopo, const std::function<void(int)>& lavoro) {
  std::array<int, 2> tubo{};
  if (pipe(tubo.data()) != 0) return -1;
  const pid_t figlio = fork();
  if (figlio == 0) {
    close(tubo[0]);
    lavoro(tubo[1]);
    _exit(1);
  }
  close(tubo[1]);
  int annunciato = 0;
  // The first number tells that it has opened: counted from there, the time falls on its work.
  if (read(tubo[0], &annunciato, sizeof annunciato) != sizeof annunciato) annunciato = -1;
  std::this_thread::sleep_for(dopo);
  kill(figlio, SIGKILL);
  int stato = 0;
  waitpid(figlio, &stato, 0);
  if (!WIFSIGNALED(stato)) annunciato = -1;
  for (int letto = 0; read(tubo[0], &letto, sizeof letto) == sizeof letto;) annunciato = letto;
  close(tubo[0]);
  return annunciato;
}

}  // namespace fenalto::prova
