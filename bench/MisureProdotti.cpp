#include "bench/MisureProdotti.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "bench/DialoghiMuti.h"
#include "bench/GeneraDitta.h"
#include "bench/Nuda.h"
#include "core/archives/FonteCodici.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "core/values/Testo.h"
#include "documents/recent/ProdottiRecenti.h"

namespace fenalto::banco {
namespace {

constexpr const char* kDitta = "CercaProdotti";
constexpr int kAnno = 2024;
constexpr int kProdotti = 50'000;
constexpr int kRighe = 100'000;
constexpr int kVoci = 60;
constexpr std::array kCose = {"Vite",    "Bullone", "Dado",   "Rondella", "Tassello",
                              "Mensola", "Staffa",  "Perché", "Cerniera", "Guarnizione"};
constexpr std::array kForme = {"a testa svasata zincata", "esagonale inox A2", "nera brunita M10",
                               "in ottone nichelato"};
/// As they are typed, letter by letter; the last ones find nothing.
constexpr std::array kDigitate = {"v",         "vi",     "vite",    "vite sva",
                                  "inox dado", "800123", "xz00042", "ottone 77",
                                  "f12345",    "zq",     "vite zq"};

std::int64_t tenuto = 0;  // keeps the compiler from dropping the searches

std::string DescrizioneDi(int n) {
  return std::string(kCose[static_cast<std::size_t>(n) % kCose.size()]) + " " +
         kForme[static_cast<std::size_t>(n / 7) % kForme.size()] + " " +
         std::to_string(n * 31 % 997) + "x" + std::to_string(n % 89) + " confezione da " +
         std::to_string(n % 13 * 50);
}

std::string CodiceDi(int n) {
  const std::string cifre = std::to_string(n);
  return "XZ" + std::string(5 - std::min<std::size_t>(5, cifre.size()), '0') + cifre;
}

void GeneraProdotti(const OpzioniAmbiente& opzioni) {
  FaiDitta(opzioni, kDitta, kAnno, 1, [](Ambiente& ambiente) {
    Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
    Archivio& tessarc = ambiente.ArchivioDi("tessarc");
    for (int n = 0; n < kProdotti; ++n) {
      tessarc.Inserisci("CodiciRiga", {{"Cod", CodiceDi(n)},
                                       {"Descrizione", DescrizioneDi(n)},
                                       {"Descrizione1", std::string(120, 'd')},
                                       {"Barcode", "8001" + std::to_string(1'000'000 + n)},
                                       {"Prezzo", Importo::DaUnita(n % 300)},
                                       {"FuoriUso", n % 20 == 0}});
      tessarc.Inserisci("prodottiFor_r", {{"Cod", CodiceDi(n)},
                                          {"Posi", 1},
                                          {"Fornitore", "0001"},
                                          {"codprfor", "F" + std::to_string(90'000 - n)}});
    }
    for (int n = 0; n < kRighe; ++n) {
      const int prodotto = n * 17 % 3'000;
      tessarc.Inserisci("FattureCli_r",
                        {{"TipoDoc", "XT"},
                         {"Anno", kAnno - 2 + n % 3},
                         {"NumDoc", 1 + n / 30},
                         {"Posi", 100 * (1 + n % 30) + n % 3},
                         {"CodiceRiga", CodiceDi(prodotto)},
                         {"Descrizione", DescrizioneDi(prodotto)},
                         {"Dt", Data::DaGma(1 + n % 28, 1 + n % 12, kAnno - 2 + n % 3).value()},
                         {"CFP", "C"},
                         {"CliFor", "0001"},
                         {"Quantita", Importo::DaUnita(1 + n % 9)},
                         {"Prezzo", Importo::DaUnita(n % 300)}});
    }
    transazione.Conferma();
  });
}

/// What the field looks through: code, description, barcode, supplier's code.
std::vector<std::string> TestiNudi() {
  std::vector<std::string> nudi;
  for (int n = 0; n < kProdotti; ++n) {
    nudi.push_back(PerRicerca(CodiceDi(n) + "\n" + DescrizioneDi(n) + "\n8001" +
                              std::to_string(1'000'000 + n) + "\nF" + std::to_string(90'000 - n)));
  }
  return nudi;
}

Rapporto MisuraRicerca(Ambiente& ambiente) {
  const auto fonte = archives::Fonte(ambiente, "prodotti");
  const auto nudi = TestiNudi();
  double peggiore = 0;
  std::vector<double> tempi;
  for (const char* digitata : kDigitate) {
    std::vector<double> suoi;
    for (int giro = 0; giro < 5; ++giro) {
      suoi.push_back(Secondi(
          [&] { tenuto += static_cast<std::int64_t>(fonte->Cerca(digitata, kVoci).size()); }));
    }
    tempi.push_back(Mediana(suoi));
    peggiore = std::max(peggiore, tempi.back());
    std::printf("# cerca-prodotti «%s»: %.1f ms\n", digitata, tempi.back() * 1e3);
  }
  std::printf("# cerca-prodotti: al peggio %.1f ms a lettera\n", peggiore * 1e3);
  constexpr double kLimite = 20;
  return Misura(
      "cerca-prodotti", kLimite,
      [&] {
        for (const char* digitata : kDigitate) {
          tenuto += static_cast<std::int64_t>(fonte->Cerca(digitata, kVoci).size());
        }
      },
      [&] {
        for (const char* digitata : kDigitate) {
          for (const auto& nudo : nudi) tenuto += nudo.find(digitata) != std::string::npos ? 1 : 0;
        }
      });
}

Rapporto MisuraRecenti(Ambiente& ambiente) {
  Nuda nuda(ambiente.PercorsoDb("tessarc"), engine::sqlite::RegistraMotore);
  auto* nudo = nuda.Prepara(
      "SELECT Dt, NumDoc, CodiceRiga, Descrizione, um, Quantita, Prezzo, Sc1, Sc2, Sc3, Num, Anno "
      "FROM FattureCli_r WHERE CFP='C' AND CliFor='0001' AND TipoDoc='XT' ORDER BY Dt DESC, "
      "NumDoc DESC, Anno DESC, Num DESC LIMIT 1000");
  documents::ProdottiRecenti recenti(ambiente);
  recenti.Di({"XT", "C", "0001"});
  constexpr double kLimite = 3;
  return Misura(
      "prodotti-recenti", kLimite,
      [&] {
        recenti.Comincia({});
        tenuto += static_cast<std::int64_t>(recenti.Avanti().size());
      },
      [&] { tenuto += Leggi(nudo); }, 9);
}

}  // namespace

std::vector<Rapporto> MisureProdotti(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool ricerca = Chiesto(nomi, "cerca-prodotti");
  const bool recenti = Chiesto(nomi, "prodotti-recenti");
  if (!ricerca && !recenti) return rapporti;
  GeneraProdotti(opzioni);
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(kDitta); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  if (ricerca) rapporti.push_back(MisuraRicerca(ambiente));
  if (recenti) rapporti.push_back(MisuraRecenti(ambiente));
  return rapporti;
}

}  // namespace fenalto::banco
