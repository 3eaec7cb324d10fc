// A company with a few registrations and attachments, and copies of it.
#pragma once

#include <fstream>

#include "core/session/CopieDitta.h"
#include "ledger/Stampati.h"

namespace fenalto::prova {

class DittaConCopie : public DittaDaStampare {
 protected:
  DittaConCopie() {
    Articolo(2024, 1, G(10, 3, 2024), {{"P", "100.010", I("50")}, {"P", "700.010", I("-50")}});
    Metti(Tessarc(), "FattureCli", "TipoDoc", "FT", "Anno", 2024, "NumDoc", 7, "Dt", G(9, 3, 2024));
    std::filesystem::create_directories(ambiente.CartellaImmagini() / "sotto");
    ScriviFile(ambiente.CartellaDocumenti() / "contratto.pdf", "contratto");
    ScriviFile(ambiente.CartellaImmagini() / "sotto" / "logo.png", "logo");
  }
  /// A copy, verified and listed.
  CopiaDitta Copia(const std::string& motivo = "prova") {
    const auto fatta = CopiaPrimaDi(ambiente, motivo);
    if (!fatta) throw std::runtime_error(fatta.Errore().messaggio);
    return LeggiCopia(ambiente, fatta.Valore()).Valore();
  }
  void UnAltroArticolo(std::int64_t numero) {
    Articolo(2024, numero, G(12, 3, 2024), {{"P", "100.010", I("9")}, {"P", "700.010", I("-9")}});
  }
  [[nodiscard]] std::string Tutto() const { return Contenuto() + Contenuto("scadenzario"); }
  /// One byte of a file is another one.
  static void Rovina(const std::filesystem::path& file) {
    std::fstream aperto(file, std::ios::in | std::ios::out | std::ios::binary);
    aperto.seekg(40'000);
    const char byte = static_cast<char>(aperto.peek() ^ 1);
    aperto.seekp(40'000);
    aperto.put(byte);
  }
};

}  // namespace fenalto::prova
