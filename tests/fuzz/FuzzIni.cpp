// A settings file and a table as text: any bytes. What is set must be read back, what stands beside
// it must stay, and a table that is taken must be one.
#include <string>
#include <string_view>

#include "Pretendi.h"
#include "core/session/Csv.h"
#include "core/session/FileIni.h"

namespace {

void ProvaIni(std::string_view testo) {
  using fenalto::FileIni;
  FileIni file = FileIni::DaTesto(testo);
  const std::string altra = file.Valore("config", "altra");
  const std::string prima = file.Valore("Archivi", "Tessarc");
  file.Imposta("config", "ragsoc1 ", "Società Prova");
  Pretendi(file.Valore("CONFIG", "RAGSOC1 ") == "Società Prova");
  Pretendi(file.Valore("config", "altra") == altra);
  Pretendi(file.Valore("Archivi", "Tessarc") == prima);
  const std::string scritto = file.Testo();
  file.Imposta("config", "ragsoc1 ", "Società Prova");
  Pretendi(file.Testo() == scritto);
  Pretendi(FileIni::DaTesto(scritto).Testo() == scritto);
  // A value of any bytes stays on its line.
  file.Imposta("config", "altra", testo);
  Pretendi(file.Valore("config", "ragsoc1 ") == "Società Prova");
  Pretendi(file.Valore("Archivi", "Tessarc") == prima);
}

void ProvaCsv(std::string_view testo) {
  const auto letto = fenalto::LeggiCsv(testo);
  if (!letto) {
    Pretendi(!letto.Errore().messaggio.empty());
    return;
  }
  for (const auto& riga : letto.Valore().righe)
    Pretendi(riga.campi.size() == letto.Valore().nomi.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  const std::string_view testo = Testo(dati, quanti);
  ProvaIni(testo);
  ProvaCsv(testo);
  return 0;
}
