#include "bench/Misura.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <stdexcept>

namespace fenalto::banco {
namespace {

/// Runs a program to its end; its resource use.
rusage Esegui(const std::vector<std::string>& comando) {
  const pid_t figlio = fork();
  if (figlio < 0) throw std::runtime_error("fork non riuscita");
  if (figlio == 0) {
    std::vector<char*> argomenti;
    argomenti.reserve(comando.size() + 1);
    for (const auto& parola : comando) argomenti.push_back(const_cast<char*>(parola.c_str()));
    argomenti.push_back(nullptr);
    execv(argomenti[0], argomenti.data());
    _exit(127);
  }
  int stato = 0;
  rusage uso{};
  if (wait4(figlio, &stato, 0, &uso) != figlio || stato != 0) {
    throw std::runtime_error("non riuscito: " + comando.front());
  }
  return uso;
}

}  // namespace

bool Chiesto(const Nomi& nomi, const std::string& nome) {
  return nomi.empty() || std::find(nomi.begin(), nomi.end(), nome) != nomi.end();
}

double Secondi(const std::function<void()>& lavoro) {
  const auto inizio = std::chrono::steady_clock::now();
  lavoro();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
}

double Mediana(std::vector<double> valori) {
  std::sort(valori.begin(), valori.end());
  return valori[valori.size() / 2];
}

Rapporto Misura(const std::string& nome, double limite, const std::function<void()>& nostro,
                const std::function<void()>& nudo, int volte) {
  std::vector<double> nostri;
  std::vector<double> nudi;
  for (int i = 0; i < volte; ++i) {
    nudi.push_back(Secondi(nudo));
    nostri.push_back(Secondi(nostro));
  }
  return {nome, Mediana(nostri) / Mediana(nudi), limite};
}

double SecondiDiProcesso(const std::vector<std::string>& comando) {
  return Secondi([&] { Esegui(comando); });
}

double MegabyteDiProcesso(const std::vector<std::string>& comando) {
  return static_cast<double>(Esegui(comando).ru_maxrss) / 1024.0;
}

double MegabytePropri() {
  std::ifstream stato("/proc/self/status");
  for (std::string parola; stato >> parola;) {
    double kilobyte = 0;
    if (parola == "VmHWM:" && stato >> kilobyte) return kilobyte / 1024.0;
  }
  throw std::runtime_error("/proc/self/status non dice la memoria usata");
}

}  // namespace fenalto::banco
