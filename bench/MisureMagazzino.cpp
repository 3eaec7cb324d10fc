#include "bench/MisureMagazzino.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "bench/DialoghiMuti.h"
#include "bench/GeneraDitta.h"
#include "bench/GeneraMagazzino.h"
#include "bench/Nuda.h"
#include "bench/Programma.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "print/UscitaPdf.h"
#include "warehouse/stock/StampaMagazzino.h"

namespace fenalto::banco {
namespace {

constexpr int kAnnoMag = kPrimoAnno + kAnni - 1;
constexpr int kSingoli = 2'000;

/// What open rows ask for less what was served, of one product or grouped.
std::string Aperte(const char* tabella, const char* chiave, const char* altro, const char* aperta) {
  const std::string t = tabella;
  return "Sum(" + t + ".Quantita-ifnull((SELECT Sum(r.Quantita) FROM FattureCli_r r WHERE r." +
         chiave + "<>0 AND r." + chiave + "=" + t + ".NumDoc AND r.Posi" + chiave + "=" + t +
         ".Posi AND " + altro + "),0)) FROM " + t + " WHERE " + aperta;
}
const std::string kOrdiniCliNudi =
    Aperte("OrdiniCli_r", "Ordine", "r.CFP='C'", "OrdineSaldato=0 AND TipoDoc='O'");
const std::string kOrdiniForNudi =
    Aperte("OrdiniFor_r", "Ordine", "r.CFP='F'", "OrdineSaldato=0 AND TipoDoc='O'");
const std::string kCommesseNude = Aperte("Commesse_r", "Commessa", "r.CS='S'", "Ut=0");
const std::string kGruppo = " GROUP BY CodiceRiga ORDER BY CodiceRiga";

/// The five sums of a product, each prepared once.
class SommeNude {
 public:
  explicit SommeNude(Nuda& nuda) {
    const std::string mossi =
        "SELECT Sum(Quantita) FROM FattureCli_r WHERE CodiceRiga=?1 AND Anno=" +
        std::to_string(kAnnoMag);
    for (const std::string& testo : {mossi + " AND CS='C'", mossi + " AND CS='S'",
                                     "SELECT " + kOrdiniCliNudi + " AND CodiceRiga=?1",
                                     "SELECT " + kCommesseNude + " AND CodiceRiga=?1",
                                     "SELECT " + kOrdiniForNudi + " AND CodiceRiga=?1"}) {
      somme_.push_back(nuda.Prepara(testo.c_str()));
    }
  }
  std::int64_t Di(const std::string& prodotto) {
    std::int64_t somma = 0;
    for (auto* istruzione : somme_) {
      Lega(istruzione, 1, prodotto.c_str());
      somma += Leggi(istruzione);
    }
    return somma;
  }

 private:
  std::vector<sqlite3_stmt*> somme_;
};

Rapporto MisuraEsistenza(Ambiente& ambiente, Nuda& nuda) {
  SommeNude nude(nuda);
  Sequenza sorte(7);
  std::vector<std::string> codici;
  for (int i = 0; i < kSingoli; ++i)
    codici.push_back(CodiceProdotto(sorte.Fino(kProdottiMagazzino)));
  std::int64_t letto = 0;
  Rapporto rapporto = Misura(
      "esistenza-prodotto", 1.3,
      [&] {
        for (const auto& cod : codici) {
          letto += warehouse::CalcoloEsistenza(ambiente, cod).esistenza.Decimillesimi();
        }
      },
      [&] {
        for (const auto& cod : codici) letto += nude.Di(cod);
      });
  if (letto == 0) throw std::runtime_error("nessuna esistenza");
  return rapporto;
}

/// The best grouped queries that give what the report shows: products, sums, mean and last cost.
std::vector<sqlite3_stmt*> Raggruppate(Nuda& nuda) {
  const std::string anno = std::to_string(kAnnoMag);
  const std::string netto = "(Prezzo-Prezzo*Sc1/1000000)";
  const std::string carichi =
      " FROM FattureCli_r WHERE Anno=" + anno +
      " AND CS='C' AND TipoDoc NOT IN (SELECT Cod FROM TipiFattureCli WHERE NoCosti=1)";
  std::vector<sqlite3_stmt*> tutte;
  for (const std::string& testo :
       {std::string("SELECT Cod, Descrizione, um, Barcode, PosMag, CategoriaMag, CategoriaMag2, "
                    "GruppoMag, GruppoMag2, Scorta, QMinRiordino, CostoDigitato, Prezzo, Sc, "
                    "Prezzo2, Sc2, Prezzo3, Sc3, PrezzoIva, Ricarico, DtAggPrezzi, "
                    "PrezzoCampagna, ScCampagna, ValidDal, ValidAl, CodIva, FuoriUso FROM "
                    "CodiciRiga ORDER BY Cod"),
        "SELECT CodiceRiga, Sum(CASE WHEN CS='C' THEN Quantita ELSE 0 END), Sum(CASE WHEN CS='S' "
        "THEN Quantita ELSE 0 END) FROM FattureCli_r WHERE Anno=" +
            anno + kGruppo,
        "SELECT CodiceRiga, " + kOrdiniCliNudi + kGruppo,
        "SELECT CodiceRiga, " + kCommesseNude + kGruppo,
        "SELECT CodiceRiga, " + kOrdiniForNudi + kGruppo,
        "SELECT CodiceRiga, Sum(Quantita), Sum(Quantita*" + netto +
            "), max(Dt*100000000+NumDoc), TipoDoc, NumDoc, Dt" + carichi + kGruppo,
        "SELECT CodiceRiga, max(Dt*100000000+NumDoc), " + netto + carichi + " AND " + netto +
            "<>0" + kGruppo}) {
    tutte.push_back(nuda.Prepara(testo.c_str()));
  }
  return tutte;
}

warehouse::SceltaMagazzino Tutto() {
  warehouse::SceltaMagazzino scelta;
  scelta.colonne = {"codice", "descrizione", "um", "esistenza", "costoUltimo", "valoreUltimo"};
  return scelta;
}

Rapporto MisuraSituazione(Ambiente& ambiente, Nuda& nuda) {
  const auto nude = Raggruppate(nuda);
  std::int64_t prodotti = 0;
  Importo valore;
  Rapporto rapporto = Misura(
      "situazione-magazzino", 1.5,
      [&] {
        warehouse::ScorriMagazzino(
            ambiente, Tutto(), false, [] { return true; },
            [&](const warehouse::RigaMagazzino& riga) {
              ++prodotti;
              valore += riga.valoreUltimo;
              return true;
            });
      },
      [&] {
        for (auto* istruzione : nude) prodotti += Leggi(istruzione) == 0 ? 1 : 0;
      });
  if (prodotti < kProdottiMagazzino || valore.Zero()) throw std::runtime_error("nessun prodotto");
  return rapporto;
}

class FabbricaPdf : public reports::FabbricaUscite {
 public:
  explicit FabbricaPdf(std::filesystem::path file) : file_(std::move(file)) {}
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita&, const std::string&) override {
    return std::make_unique<print::UscitaPdf>(file_);
  }

 private:
  std::filesystem::path file_;
};

double MegabyteSituazione(const OpzioniAmbiente& opzioni, const char* ditta) {
  const auto file = opzioni.cartellaProgramma / (std::string(ditta) + ".pdf");
  SecondiDiProcesso({"/proc/self/exe", "--situazione-magazzino", ditta, file.string()});
  double megabyte = 0;
  std::ifstream(file.string() + ".megabyte") >> megabyte;
  return megabyte;
}

}  // namespace

std::vector<Rapporto> MisureMagazzino(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool esistenza = Chiesto(nomi, "esistenza-prodotto");
  const bool situazione = Chiesto(nomi, "situazione-magazzino");
  const bool memoria = Chiesto(nomi, "situazione-memoria");
  const bool documenti = Chiesto(nomi, "documenti-apertura");
  const bool prodotti = Chiesto(nomi, "prodotti-apertura");
  if (!esistenza && !situazione && !memoria && !documenti && !prodotti) return rapporti;
  GeneraMagazzino(opzioni, kDittaMagazzino);
  if (esistenza || situazione) {
    DialoghiMuti dialoghi;
    OrologioDiSistema orologio;
    CasoDiSistema caso;
    Ambiente ambiente(opzioni, dialoghi, orologio, caso);
    if (auto esito = ambiente.ApriDitta(kDittaMagazzino); !esito) {
      throw std::runtime_error(esito.Errore().messaggio);
    }
    Nuda nuda(opzioni.cartellaProgramma / kDittaMagazzino / "Cont32.mdb",
              engine::sqlite::RegistraMotore);
    if (esistenza) rapporti.push_back(MisuraEsistenza(ambiente, nuda));
    if (situazione) rapporti.push_back(MisuraSituazione(ambiente, nuda));
  }
  if (documenti || prodotti) {
    constexpr int kCentesima = 100;
    GeneraMagazzino(opzioni, kDittaMagazzinoCentesima, kCentesima);
  }
  if (documenti) {
    rapporti.push_back(MisuraApertura("documenti-apertura", opzioni, QStringLiteral("FattureCli"),
                                      kDittaMagazzino, kDittaMagazzinoCentesima));
  }
  if (prodotti) {
    rapporti.push_back(MisuraApertura("prodotti-apertura", opzioni, QStringLiteral("CodiciRiga"),
                                      kDittaMagazzino, kDittaMagazzinoCentesima));
  }
  if (memoria) {
    constexpr int kDecima = 10;
    GeneraMagazzino(opzioni, kDittaMagazzinoDecima, kDecima);
    const double poca = MegabyteSituazione(opzioni, kDittaMagazzinoDecima);
    const double tanta = MegabyteSituazione(opzioni, kDittaMagazzino);
    std::printf("# situazione-memoria: %.0f MB, %.0f MB\n", tanta, poca);
    rapporti.push_back({"situazione-memoria", tanta / poca, 1.3});
  }
  return rapporti;
}

void StampaSituazione(const OpzioniAmbiente& opzioni, const std::string& ditta,
                      const std::filesystem::path& file) {
  DialoghiMuti dialoghi;
  dialoghi.uscita = SceltaUscita{Destinazione::Pdf, file};
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(ditta); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  FabbricaPdf uscite(file);
  warehouse::SceltaMagazzino scelta = Tutto();
  scelta.stGrafico = true;
  if (!warehouse::StampaMagazzino(ambiente, uscite).Stampa(scelta)) {
    throw std::runtime_error("situazione non stampata");
  }
  std::ofstream(file.string() + ".megabyte") << MegabytePropri() << '\n';
}

}  // namespace fenalto::banco
