#include "bench/MisureChiusure.h"

#include <cstdio>
#include <stdexcept>
#include <string>

#include "bench/DialoghiMuti.h"
#include "bench/GeneraDitta.h"
#include "bench/Nuda.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "ledger/closing/Chiusure.h"
#include "ledger/closing/OperazioniAnno.h"

namespace fenalto::banco {
namespace {

constexpr const char* kDittaChiusura = "AnnoMolteParti";
constexpr int kPartiChiuse = 20'000;
constexpr int kAnnoChiuso = 2024;
constexpr int kGiriChiusura = 5;
constexpr const char* kContoChiusura = "980.002";
constexpr const char* kCausaleChiusura = "062";

/// Says yes to what the closing asks.
class DialoghiSi : public DialoghiMuti {
 public:
  Risposta Domanda(const std::string&, Bottoni, Risposta, const std::string&, Icona) override {
    return Risposta::Si;
  }
};

std::string Codice(int numero) {
  std::string cifre = std::to_string(numero);
  return std::string(5 - cifre.size(), '0') + cifre;
}

/// One sale to each customer.
void GeneraAnno(const OpzioniAmbiente& opzioni) {
  FaiDitta(opzioni, kDittaChiusura, kAnnoChiuso, 1, [](Ambiente& ambiente) {
    Archivio& tessarc = ambiente.ArchivioDi("tessarc");
    ambiente.ScriviImpostazione({}, "config", "C_Chiusura", kContoChiusura);
    ambiente.ScriviImpostazione({}, "config", "Cau_Chiusura", kCausaleChiusura);
    Sequenza sorte(20'000);
    Transazione transazione(ambiente.Basi());
    for (int i = 1; i <= kPartiChiuse; ++i) {
      const std::string cod = Codice(i);
      tessarc.Inserisci("Clienti",
                        {{"Cod", cod}, {"ragsoc1", "Cliente " + cod}, {"Conto", "120.001"}});
      tessarc.Inserisci("ContiClientiFornitori",
                        {{"Cod", cod}, {"CFP", "C"}, {"Descrizione", "Cliente " + cod}});
      const Importo importo = Importo::DaUnita(1 + sorte.Fino(5'000));
      ledger::ScriviRegistrazione(
          tessarc, i,
          {kAnnoChiuso, Data::DaGma(1, 1 + i % 12, kAnnoChiuso).value(), "C", cod, "P", "700.010"},
          {{100, "001", "vendita", "C", cod, importo, {}, "P", "700.010"},
           {200, "001", "vendita", "P", "700.010", {}, importo, "C", cod}});
    }
    transazione.Conferma();
  });
}

/// The rows of a closing bound to prepared statements, in one transaction.
class ChiusuraNuda {
 public:
  explicit ChiusuraNuda(Nuda& nuda)
      : nuda_(nuda),
        saldi_(nuda.Prepara("SELECT m.Conto, SUM(m.ImpoDare)-SUM(m.ImpoAvere) FROM Movimenti m "
                            "JOIN Clienti c ON c.Cod=m.Conto WHERE m.Anno=2024 AND m.CFP='C' GROUP "
                            "BY m.Conto ORDER BY m.Conto")),
        massimo_(nuda.Prepara("SELECT MAX(NumDoc) FROM Articoli WHERE Anno=2024")),
        testa_(nuda.Prepara(
            "INSERT INTO Articoli (Anno, NumDoc, Dt, CFP, Conto, CfpA, ContoA, "
            "CREATOINAUTOMATICO) VALUES (2024, ?1, 45657, 'P', '980.002', 'C', ?2, 91)")),
        riga_(nuda.Prepara("INSERT INTO Movimenti (Anno, NumDoc, Posi, Causale, CFP, Conto, "
                           "ImpoDare, ImpoAvere, CFPControp, ContoControp, TIPORIGA, _Dt) VALUES "
                           "(2024, ?1, ?2, '062', ?3, ?4, ?5, ?6, ?7, ?8, 0, 45657)")) {}

  std::int64_t Chiudi() {
    nuda_.Esegui("BEGIN IMMEDIATE");
    sqlite3_step(massimo_);
    std::int64_t numero = sqlite3_column_int64(massimo_, 0);
    sqlite3_reset(massimo_);
    std::int64_t scritte = 0;
    while (sqlite3_step(saldi_) == SQLITE_ROW) {
      const std::string conto(static_cast<const char*>(sqlite3_column_blob(saldi_, 0)),
                              static_cast<std::size_t>(sqlite3_column_bytes(saldi_, 0)));
      const std::int64_t saldo = sqlite3_column_int64(saldi_, 1);
      sqlite3_bind_int64(testa_, 1, ++numero);
      Lega(testa_, 2, conto.c_str());
      Fai(testa_);
      Riga(numero, 100, "C", conto.c_str(), 0, saldo, "P", kContoChiusura);
      Riga(numero, 200, "P", kContoChiusura, saldo, 0, "C", conto.c_str());
      ++scritte;
    }
    sqlite3_reset(saldi_);
    nuda_.Esegui("COMMIT");
    return scritte;
  }
  void Disfa() {
    nuda_.Esegui("DELETE FROM Movimenti WHERE Anno=2024 AND Causale='062'");
    nuda_.Esegui("DELETE FROM Articoli WHERE Anno=2024 AND CREATOINAUTOMATICO=91");
  }

 private:
  static void Fai(sqlite3_stmt* istruzione) {
    if (sqlite3_step(istruzione) != SQLITE_DONE) throw std::runtime_error("scrittura nuda");
    sqlite3_reset(istruzione);
  }
  void Riga(std::int64_t numero, std::int64_t posi, const char* cfp, const char* conto,
            std::int64_t dare, std::int64_t avere, const char* cfpControp,
            const char* contoControp) {
    sqlite3_bind_int64(riga_, 1, numero);
    sqlite3_bind_int64(riga_, 2, posi);
    Lega(riga_, 3, cfp);
    Lega(riga_, 4, conto);
    sqlite3_bind_int64(riga_, 5, dare);
    sqlite3_bind_int64(riga_, 6, avere);
    Lega(riga_, 7, cfpControp);
    Lega(riga_, 8, contoControp);
    Fai(riga_);
  }

  Nuda& nuda_;
  sqlite3_stmt* saldi_;
  sqlite3_stmt* massimo_;
  sqlite3_stmt* testa_;
  sqlite3_stmt* riga_;
};

Rapporto MisuraChiusura(const OpzioniAmbiente& opzioni) {
  GeneraAnno(opzioni);
  const auto copia = opzioni.cartellaProgramma / "chiusura-nuda.db";
  std::filesystem::remove(copia);
  Nuda(opzioni.cartellaProgramma / kDittaChiusura / "Cont32.mdb", engine::sqlite::RegistraMotore)
      .Esegui(("VACUUM INTO '" + copia.string() + "'").c_str());
  DialoghiSi dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  if (auto esito = ambiente.ApriDitta(kDittaChiusura); !esito) {
    throw std::runtime_error(esito.Errore().messaggio);
  }
  Nuda nuda(copia, engine::sqlite::RegistraMotore);
  ChiusuraNuda chiusuraNuda(nuda);
  std::vector<double> nostri;
  std::vector<double> nudi;
  for (int giro = 0; giro < kGiriChiusura; ++giro) {
    std::int64_t scritte = 0;
    nudi.push_back(Secondi([&] { scritte = chiusuraNuda.Chiudi(); }));
    chiusuraNuda.Disfa();
    bool fatta = false;
    nostri.push_back(Secondi([&] { fatta = ledger::Chiusure(ambiente).ConfermaChiusura(); }));
    const auto operazioni = ledger::LeggiOperazioni(ambiente, kAnnoChiuso);
    if (!fatta || scritte != kPartiChiuse || operazioni.size() != 1 ||
        operazioni[0].rimaste != kPartiChiuse) {
      throw std::runtime_error("la chiusura misurata ha scritto altre righe");
    }
    if (!ledger::AnnullaOperazione(ambiente, operazioni[0].id)) {
      throw std::runtime_error("la chiusura misurata non si è annullata");
    }
  }
  std::printf("# chiusura-anno: %.0f ms a %.0f\n", Mediana(nostri) * 1e3, Mediana(nudi) * 1e3);
  return {"chiusura-anno", Mediana(nostri) / Mediana(nudi), 2};
}

}  // namespace

std::vector<Rapporto> MisureChiusure(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  if (Chiesto(nomi, "chiusura-anno")) rapporti.push_back(MisuraChiusura(opzioni));
  return rapporti;
}

}  // namespace fenalto::banco
