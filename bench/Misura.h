// Ratios of two pieces of work done in one run.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace fenalto::banco {

/// A measured ratio and the limit it must keep.
struct Rapporto {
  std::string nome;
  double valore = 0;
  double limite = 0;
};

/// Names of the ratios asked for; empty for all.
using Nomi = std::vector<std::string>;
bool Chiesto(const Nomi& nomi, const std::string& nome);

/// Median seconds of `volte` runs of each, taken in turn so that both see the same machine.
Rapporto Misura(const std::string& nome, double limite, const std::function<void()>& nostro,
                const std::function<void()>& nudo, int volte = 5);

/// Seconds that a piece of work takes.
double Secondi(const std::function<void()>& lavoro);
double Mediana(std::vector<double> valori);

/// Seconds that a program takes from its start to its end; throws when it fails.
double SecondiDiProcesso(const std::vector<std::string>& comando);
/// Greatest resident memory of a program, in megabytes; throws when it fails.
double MegabyteDiProcesso(const std::vector<std::string>& comando);
/// Greatest resident memory of this program so far, in megabytes. What MegabyteDiProcesso tells
/// counts the memory that the caller held when the program began; this doesn't.
double MegabytePropri();

}  // namespace fenalto::banco
