#include "bench/MisureMagazzino.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "bench/DialoghiMuti.h"
#include "bench/GeneraDitta.h"
#include "bench/Nuda.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "print/UscitaPdf.h"
#include "warehouse/stock/StampaMagazzino.h"

namespace fenalto::banco {

std::string CodiceProdotto(int numero) {
  char testo[16];
  std::snprintf(testo, sizeof testo, "A%06d", numero);
  return testo;
}

namespace {

constexpr const char* kGrandeMag = kDittaMagazzino;
constexpr const char* kDecimaMag = "MagazzinoDecimo";
constexpr int kProdotti = kProdottiMagazzino;
constexpr int kRigheMag = 1'000'000;
constexpr int kAnnoMag = kPrimoAnno + kAnni - 1;
constexpr int kSingoli = 2'000;

/// Documents of twenty rows over three years, two warehouses; orders and jobs partly served.
class GeneratoreMagazzino {
 public:
  GeneratoreMagazzino(Ambiente& ambiente, int prodotti, int righe)
      : archivio_(ambiente.ArchivioDi("tessarc")), prodotti_(prodotti), righe_(righe) {}

  void Genera() {
    for (int i = 0; i < prodotti_; ++i) {
      archivio_.Inserisci("CodiciRiga",
                          {{"Cod", CodiceProdotto(i)},
                           {"Descrizione", "prodotto di prova numero " + std::to_string(i)},
                           {"um", "NR"},
                           {"CostoDigitato", Importo::DaDecimillesimi(100LL * sorte_.Fino(9'999))},
                           {"Prezzo", Importo::DaDecimillesimi(150LL * sorte_.Fino(9'999))},
                           {"Scorta", Importo::DaUnita(sorte_.Fino(20))}});
    }
    for (int i = 0; i < righe_; ++i) Riga(i);
    for (int i = 0; i < righe_ / 200; ++i) Aperte(i);
  }

 private:
  void Riga(int i) {
    constexpr int kPerDocumento = 20;
    const int perAnno = righe_ / kAnni + 1;
    const bool carico = sorte_.Fino(100) < 45;
    const bool servita = i % 250 == 0;
    archivio_.Inserisci(
        "FattureCli_r",
        {{"TipoDoc", carico ? "XC" : "XS"},
         {"Anno", kPrimoAnno + i / perAnno},
         {"NumDoc", i / kPerDocumento + 1},
         {"Posi", i % kPerDocumento * 100 + 100},
         {"CodiceRiga", CodiceProdotto(sorte_.Fino(prodotti_))},
         {"Descrizione", "prodotto di prova, come lo dice il documento"},
         {"Quantita", Importo::DaUnita(1 + sorte_.Fino(carico ? 40 : 30))},
         {"Prezzo", Importo::DaDecimillesimi(100LL * (1 + sorte_.Fino(9'999)))},
         {"Sc1", Importo::DaUnita(sorte_.Fino(3) * 10)},
         {"Dt",
          Data::DaGma(1, 1, kPrimoAnno + i / perAnno)->PiuGiorni(i % perAnno * 364LL / perAnno)},
         {"CS", carico ? "C" : "S"},
         {"CFP", carico ? "F" : "C"},
         {"CausaleMag", carico ? "XC" : "XS"},
         {"Mag", sorte_.Fino(2) == 0 ? "01" : "02"},
         {"Ordine", servita ? 1 + i / 250 : 0},
         {"PosiOrdine", servita ? 100 : 0}});
  }
  void Aperte(int i) {
    for (const char* tabella : {"OrdiniCli_r", "OrdiniFor_r"}) {
      archivio_.Inserisci(tabella, {{"TipoDoc", "O"},
                                    {"NumDoc", i + 1},
                                    {"Posi", 100},
                                    {"CodiceRiga", CodiceProdotto(sorte_.Fino(prodotti_))},
                                    {"Quantita", Importo::DaUnita(1 + sorte_.Fino(50))},
                                    {"OrdineSaldato", i % 3 == 0}});
    }
    archivio_.Inserisci("Commesse_r", {{"NumDoc", i + 1},
                                       {"Posi", 100},
                                       {"CodiceRiga", CodiceProdotto(sorte_.Fino(prodotti_))},
                                       {"Quantita", Importo::DaUnita(1 + sorte_.Fino(9))},
                                       {"Ut", i % 2 == 0}});
  }

  Archivio& archivio_;
  int prodotti_;
  int righe_;
  Sequenza sorte_{16};
};

void GeneraMagazzino(const OpzioniAmbiente& opzioni, const char* ditta, int parte) {
  FaiDitta(opzioni, ditta, kPrimoAnno, kAnni, [parte](Ambiente& ambiente) {
    Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
    GeneratoreMagazzino(ambiente, kProdotti / parte, kRigheMag / parte).Genera();
    transazione.Conferma();
  });
}

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
  for (int i = 0; i < kSingoli; ++i) codici.push_back(CodiceProdotto(sorte.Fino(kProdotti)));
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
  if (prodotti < kProdotti || valore.Zero()) throw std::runtime_error("nessun prodotto");
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

void GeneraMagazzino(const OpzioniAmbiente& opzioni) {
  GeneraMagazzino(opzioni, kGrandeMag, 1);
}

std::vector<Rapporto> MisureMagazzino(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool esistenza = Chiesto(nomi, "esistenza-prodotto");
  const bool situazione = Chiesto(nomi, "situazione-magazzino");
  const bool memoria = Chiesto(nomi, "situazione-memoria");
  if (!esistenza && !situazione && !memoria) return rapporti;
  GeneraMagazzino(opzioni, kGrandeMag, 1);
  if (esistenza || situazione) {
    DialoghiMuti dialoghi;
    OrologioDiSistema orologio;
    CasoDiSistema caso;
    Ambiente ambiente(opzioni, dialoghi, orologio, caso);
    if (auto esito = ambiente.ApriDitta(kGrandeMag); !esito) {
      throw std::runtime_error(esito.Errore().messaggio);
    }
    Nuda nuda(opzioni.cartellaProgramma / kGrandeMag / "Cont32.mdb",
              engine::sqlite::RegistraMotore);
    if (esistenza) rapporti.push_back(MisuraEsistenza(ambiente, nuda));
    if (situazione) rapporti.push_back(MisuraSituazione(ambiente, nuda));
  }
  if (memoria) {
    constexpr int kDecima = 10;
    GeneraMagazzino(opzioni, kDecimaMag, kDecima);
    const double poca = MegabyteSituazione(opzioni, kDecimaMag);
    const double tanta = MegabyteSituazione(opzioni, kGrandeMag);
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
