// Sample pages for tests of the outputs, and tools that read back what was written.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "core/reports/Pagina.h"

namespace fenalto::prova {

inline constexpr reports::FormatoPagina kA4{21'000, 29'700, 500};
inline constexpr reports::FormatoPagina kA4Orizzontale{29'700, 21'000, 500};

/// A page of `righe` fixed lines of that many columns: a number at the left and one at the right
/// end.
inline reports::Pagina PaginaFissa(const reports::FormatoPagina& formato, int numero, int righe,
                                   std::size_t colonne) {
  reports::Pagina pagina{formato, numero, {}};
  for (int i = 0; i < righe; ++i) {
    const std::string sinistra = "p" + std::to_string(numero) + " r" + std::to_string(i);
    const std::string destra = std::to_string(1000 + i) + ",00";
    std::string testo = sinistra;
    testo.append(colonne - sinistra.size() - destra.size(), i % 2 == 0 ? ' ' : '.');
    testo += destra;
    pagina.elementi.emplace_back(
        reports::RigaFissa{formato.margine, formato.margine + i * 350, 17, false, testo, {}});
  }
  return pagina;
}

/// Output of a command of the system; the test fails when it fails.
inline std::string Comando(const std::string& comando) {
  std::string uscita;
  FILE* tubo = ::popen(comando.c_str(), "r");
  if (tubo == nullptr) {
    ADD_FAILURE() << comando;
    return uscita;
  }
  char pezzo[4096];
  for (std::size_t n = 0; (n = std::fread(pezzo, 1, sizeof pezzo, tubo)) > 0;)
    uscita.append(pezzo, n);
  EXPECT_EQ(::pclose(tubo), 0) << comando;
  return uscita;
}

inline std::string TestoPdf(const std::filesystem::path& file) {
  // At 17 characters an inch.
  return Comando("pdftotext -layout -fixed 4.2353 '" + file.string() + "' -");
}
inline std::string DatiPdf(const std::filesystem::path& file) {
  return Comando("pdfinfo -f 1 -l 100 '" + file.string() + "'");
}

}  // namespace fenalto::prova
