// Generated companies to measure on, kept in the build folder between runs.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::banco {

inline constexpr int kPrimoAnno = 2022;
inline constexpr int kAnni = 3;
inline constexpr int kConti = 300;
inline constexpr int kClienti = 3'000;
inline constexpr int kFornitori = 2'000;

/// Makes a company with those years unless it is there, and fills it, opened on its last year.
void FaiDitta(const OpzioniAmbiente& opzioni, const std::string& nome, int primoAnno, int anni,
              const std::function<void(Ambiente&)>& riempi);

/// Makes the company unless it is there: `registrazioni` of two and three rows in turn, spread over
/// kAnni years, on kConti accounts and kClienti + kFornitori parties. Deterministic.
void GeneraDitta(const OpzioniAmbiente& opzioni, const std::string& nome, int registrazioni);

/// The same tables plain, with their keys alone, in a database of the engine's own.
void GeneraNuda(const std::filesystem::path& tessarc, const std::filesystem::path& nuda);

/// Sequence of pseudo-random numbers, the same at every run.
class Sequenza {
 public:
  explicit Sequenza(std::uint64_t seme) : stato_(seme) {}
  int Fino(int massimo) {
    stato_ = stato_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((stato_ >> 33) % static_cast<std::uint64_t>(massimo));
  }

 private:
  std::uint64_t stato_;
};

}  // namespace fenalto::banco
