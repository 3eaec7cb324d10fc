#include "bench/MisureRegistro.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "bench/DialoghiMuti.h"
#include "bench/GeneraParti.h"
#include "bench/Nuda.h"
#include "core/reports/Uscita.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "vat/register/RegistroIvaUnico.h"

namespace fenalto::banco {
namespace {

constexpr const char* kAnno = "Z";  // all registrations of the year in one period

/// A text file, whatever was chosen.
class FabbricaTesto : public reports::FabbricaUscite {
 public:
  explicit FabbricaTesto(std::filesystem::path file) : file_(std::move(file)) {}
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita&, const std::string&) override {
    return std::make_unique<reports::UscitaTesto>(file_);
  }

 private:
  std::filesystem::path file_;
};

/// A company that is open, and what its run needs.
struct Banco {
  Banco(const OpzioniAmbiente& opzioni, const std::string& ditta)
      : ambiente(opzioni, dialoghi, orologio, caso) {
    dialoghi.uscita = SceltaUscita{Destinazione::Testo, {}};
    if (auto esito = ambiente.ApriDitta(ditta); !esito) {
      throw std::runtime_error(esito.Errore().messaggio);
    }
  }
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente;
};

/// From the request to the last page: proposals, checks, totals, settlement, print.
void StampaRegistro(Ambiente& ambiente, const std::filesystem::path& file) {
  FabbricaTesto fabbrica(file);
  vat::RegistroIvaUnico registro(ambiente);
  if (!registro.ScegliPeriodo(kAnno) || !registro.Stampa(fabbrica)) {
    throw std::runtime_error("registro iva non stampato");
  }
}

/// Lines of the register's text that tell a row of an invoice. They have the code's description
/// behind the document, where heads and totals have none.
std::int64_t RigheStampate(const std::filesystem::path& file) {
  constexpr std::size_t kDocumento = 60;
  std::ifstream testo(file);
  std::int64_t righe = 0;
  for (std::string riga; std::getline(testo, riga);) {
    if (riga.find("IVA ", kDocumento) != std::string::npos) ++righe;
  }
  return righe;
}

Rapporto MisuraRegistro(const OpzioniAmbiente& opzioni) {
  Banco banco(opzioni, kFattureMolte);
  const auto file = opzioni.cartellaProgramma / "registro.txt";
  // On the company's own file and indexes, so that both sides read the same pages in order.
  Nuda nuda(opzioni.cartellaProgramma / kFattureMolte / "Cont32.mdb",
            engine::sqlite::RegistraMotore);
  auto* righe = nuda.Prepara(
      "SELECT Articoli.NProt, Articoli.NumDoc, Articoli.Anno, Articoli.Dt, Articoli.CFP, "
      "Articoli.Conto, Articoli.DtFat, Articoli.NFat, Articoli.Ep, Articoli.DtIncasso, "
      "Movimenti.CodIva, Movimenti.Imponibile, Movimenti.Iva, Movimenti.IvaInd FROM Articoli INNER "
      "JOIN Movimenti ON Articoli.Anno=Movimenti.Anno AND Articoli.NumDoc=Movimenti.NumDoc WHERE "
      "Articoli.Riva<>'' AND Articoli.NProt<>0 AND Articoli.Anno=2024 AND Articoli.Riva='3' AND "
      "Articoli.NProt>=1 AND Articoli.NProt<=100000 AND Movimenti.TIPORIGA=3 ORDER BY "
      "Articoli.NProt, Movimenti.Posi");
  std::vector<double> tempi;
  Rapporto rapporto = Misura(
      "registro-iva", 3,
      [&] { tempi.push_back(Secondi([&] { StampaRegistro(banco.ambiente, file); })); },
      [&] { Leggi(righe); });
  const std::int64_t stampate = RigheStampate(file);
  std::filesystem::remove(file);
  if (stampate != static_cast<std::int64_t>(kQuanteFatture) * kRigheImponibile) {
    throw std::runtime_error("il registro iva ha " + std::to_string(stampate) + " righe");
  }
  std::printf("# registro-iva: %.0f ms, %lld righe\n", Mediana(tempi) * 1e3,
              static_cast<long long>(stampate));
  return rapporto;
}

double MegabyteRegistro(const OpzioniAmbiente& opzioni, const std::string& ditta) {
  const auto file = opzioni.cartellaProgramma / ("registro-" + ditta + ".txt");
  SecondiDiProcesso({"/proc/self/exe", "--registro-iva", ditta, file.string()});
  double megabyte = 0;
  std::ifstream detto(file.string() + ".megabyte");
  if (!(detto >> megabyte)) throw std::runtime_error("memoria del registro iva");
  std::filesystem::remove(file);
  std::filesystem::remove(file.string() + ".megabyte");
  return megabyte;
}

}  // namespace

std::vector<Rapporto> MisureRegistro(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool tempo = Chiesto(nomi, "registro-iva");
  const bool memoria = Chiesto(nomi, "registro-iva-memoria");
  if (!tempo && !memoria) return rapporti;
  GeneraFatture(opzioni, kFattureMolte, kQuanteFatture);
  if (tempo) rapporti.push_back(MisuraRegistro(opzioni));
  if (memoria) {
    GeneraFatture(opzioni, kFattureDecima, kQuanteFatture / 10);
    const double poca = MegabyteRegistro(opzioni, kFattureDecima);
    const double tanta = MegabyteRegistro(opzioni, kFattureMolte);
    std::printf("# registro-iva-memoria: %.0f MB, %.0f MB\n", tanta, poca);
    rapporti.push_back({"registro-iva-memoria", tanta / poca, 1.3});
  }
  return rapporti;
}

void StampaRegistri(const OpzioniAmbiente& opzioni, const std::string& ditta,
                    const std::filesystem::path& file) {
  Banco banco(opzioni, ditta);
  StampaRegistro(banco.ambiente, file);
  std::ofstream(file.string() + ".megabyte") << MegabytePropri() << '\n';
}

}  // namespace fenalto::banco
