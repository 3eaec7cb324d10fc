#include "bench/MisureCespiti.h"

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

#include "assets/AmmortamentoAutomatico.h"
#include "assets/RegistroCespiti.h"
#include "bench/DialoghiMuti.h"
#include "bench/GeneraDitta.h"
#include "bench/Nuda.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"

namespace fenalto::banco {
namespace {

constexpr const char* kDitta = "Cespiti";
constexpr int kQuanti = 10'000;
constexpr int kAnno = 2024;
constexpr int kPrimo = kAnno - 6;
constexpr int kGiri = 9;

/// Whoever runs it says yes.
class DialoghiSi : public DialoghiMuti {
 public:
  DialoghiSi() { uscita = SceltaUscita{Destinazione::Testo, {}}; }
  Risposta Domanda(const std::string&, Bottoni, Risposta, const std::string&, Icona) override {
    return Risposta::Si;
  }
};

class InMemoria : public reports::FabbricaUscite {
 public:
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita&, const std::string&) override {
    return std::make_unique<reports::UscitaMemoria>(true);
  }
};

/// Assets of six years in use, in the thirty categories of the model, with their cost and the
/// quotas of all years but the last.
void Genera(const OpzioniAmbiente& opzioni) {
  FaiDitta(opzioni, kDitta, kAnno, 1, [](Ambiente& ambiente) {
    Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
    Archivio& tessarc = ambiente.ArchivioDi("tessarc");
    constexpr int kCategorie = 30;
    for (int n = 1; n <= kQuanti; ++n) {
      const int cat = 1 + n % kCategorie;
      const std::string codice = (cat < 10 ? "0" : "") + std::to_string(cat);
      tessarc.Inserisci("Cespiti", {{"NCesp", n},
                                    {"Codice", "INV" + std::to_string(n)},
                                    {"Descrizione", "bene ammortizzabile n. " + std::to_string(n)},
                                    {"Cat", codice},
                                    {"Dal", Data::DaGma(1 + n % 28, 1 + n % 12, kPrimo).value()}});
      const auto riga = [&](int posi, int anno, const char* cau, const Importo& importo) {
        tessarc.Inserisci("MovCesp_r", {{"NCesp", n},
                                        {"Posi", posi},
                                        {"Anno", anno},
                                        {"Cau", cau},
                                        {"Estremi", "ft. " + std::to_string(n)},
                                        {"Importo", importo},
                                        {"Cat", codice}});
      };
      riga(1, kPrimo, "100", Importo::DaUnita(1'000 + n));
      for (int anno = kPrimo; anno < kAnno; ++anno) {
        riga(2 + anno - kPrimo, anno, "400", Importo::DaUnita(5));
      }
    }
    transazione.Conferma();
  });
}

constexpr const char* kRighe =
    "SELECT c.NCesp, c.Codice, c.Descrizione, c.Cat, c.sn, c.Ubicaz, c.Usato, c.Dal, c.Note, "
    "c.CespCorr, c.AmmCompl, c.Dismesso, m.Posi, m.Anno, m.Cau, m.Estremi, m.Note, m.P, m.Importo, "
    "m.StornoFondoDismParz FROM Cespiti c LEFT JOIN MovCesp_r m ON c.NCesp=m.NCesp WHERE "
    "c.Cat>='01' AND c.Cat<='30' AND c.AmmCompl=0 AND c.Dismesso=0 ORDER BY c.Cat, c.NCesp, "
    "m.Anno, m.Cau, m.Posi";

/// The rows of the assets read, and a quota of each written, in one transaction.
void Nudo(Nuda& nuda, sqlite3_stmt* leggi, sqlite3_stmt* scrivi) {
  nuda.Esegui("BEGIN IMMEDIATE");
  Leggi(leggi);
  for (int n = 1; n <= kQuanti; ++n) {
    sqlite3_bind_int64(scrivi, 1, n);
    sqlite3_bind_int64(scrivi, 2, 1'000'000LL + n);
    if (sqlite3_step(scrivi) != SQLITE_DONE) throw std::runtime_error("scrittura nuda");
    sqlite3_reset(scrivi);
  }
  nuda.Esegui("COMMIT");
}

Rapporto MisuraAmmortamento(Ambiente& ambiente, const std::filesystem::path& tessarc,
                            const std::filesystem::path& copia) {
  std::filesystem::remove(copia);
  Nuda(tessarc, engine::sqlite::RegistraMotore)
      .Esegui(("VACUUM INTO '" + copia.string() + "'").c_str());
  Nuda nuda(copia, engine::sqlite::RegistraMotore);
  auto* leggi = nuda.Prepara(kRighe);
  auto* scrivi = nuda.Prepara(
      "INSERT INTO MovCesp_r (NCesp, Posi, Anno, Cau, Estremi, Note, P, Importo, Cat) VALUES (?1, "
      "8, 2024, '400', '20%', ' ordinario', 200000, ?2, '01')");
  InMemoria uscite;
  assets::AmmortamentoAutomatico automatico(ambiente, uscite);
  const assets::SceltaAmmortamento scelta{kAnno, {"01", "30"}};
  std::vector<double> nostri;
  std::vector<double> nudi;
  const std::string delle = " WHERE Anno=" + std::to_string(kAnno);
  for (int giro = 0; giro < kGiri; ++giro) {
    nudi.push_back(Secondi([&] { Nudo(nuda, leggi, scrivi); }));
    nostri.push_back(Secondi([&] {
      if (!automatico.Registra(scelta, {})) throw std::runtime_error("calcolo non riuscito");
    }));
    nuda.Esegui(("DELETE FROM MovCesp_r" + delle).c_str());
    if (ambiente.ArchivioDi("tessarc").Esegui("DELETE * FROM MovCesp_r" + delle) != kQuanti) {
      throw std::runtime_error("il calcolo ha scritto altre righe");
    }
  }
  std::printf("# cespiti-ammortamento: %.0f ms a %.0f\n", Mediana(nostri) * 1e3,
              Mediana(nudi) * 1e3);
  return {"cespiti-ammortamento", Mediana(nostri) / Mediana(nudi), 2};
}

Rapporto MisuraRegistro(Ambiente& ambiente, const std::filesystem::path& tessarc) {
  Nuda nuda(tessarc, engine::sqlite::RegistraMotore);
  auto* leggi = nuda.Prepara(kRighe);
  InMemoria uscite;
  assets::RegistroCespiti registro(ambiente, uscite);
  assets::SceltaRegistro scelta;
  scelta.finoAllAnno = kAnno;
  scelta.categorie = {"01", "30"};
  return Misura(
      "cespiti-registro", 3,
      [&] {
        if (!registro.Stampa(scelta)) throw std::runtime_error("registro non riuscito");
      },
      [&] { Leggi(leggi); }, kGiri);
}

}  // namespace

std::vector<Rapporto> MisureCespiti(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool ammortamento = Chiesto(nomi, "cespiti-ammortamento");
  const bool registro = Chiesto(nomi, "cespiti-registro");
  if (!ammortamento && !registro) return rapporti;
  Genera(opzioni);
  DialoghiSi dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(kDitta); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  const auto tessarc = opzioni.cartellaProgramma / kDitta / "Cont32.mdb";
  if (ammortamento) {
    rapporti.push_back(
        MisuraAmmortamento(ambiente, tessarc, opzioni.cartellaProgramma / "cespiti-nudi.db"));
  }
  if (registro) rapporti.push_back(MisuraRegistro(ambiente, tessarc));
  return rapporti;
}

}  // namespace fenalto::banco
