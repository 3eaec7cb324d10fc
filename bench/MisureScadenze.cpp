#include "bench/MisureScadenze.h"

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/DialoghiMuti.h"
#include "bench/GeneraScadenze.h"
#include "bench/Nuda.h"
#include "core/reports/Uscita.h"
#include "core/sql/Criterio.h"
#include "core/store/engine/sqlite/FunzioniSqlite.h"
#include "duedates/payments/RegistraPagamento.h"
#include "duedates/riba/FileDistinta.h"
#include "duedates/riba/StampaDistinta.h"
#include "duedates/schedules/RicercaScadenze.h"
#include "print/UscitaPdf.h"

namespace fenalto::banco {
namespace {

constexpr int kGiri = 7;
constexpr int kPagateInsieme = 200;
constexpr int kAnno = kPrimoAnno + kAnni - 1;

/// The company, open.
struct Banco {
  explicit Banco(const OpzioniAmbiente& opzioni) : ambiente(opzioni, dialoghi, orologio, caso) {
    dialoghi.uscita = SceltaUscita{Destinazione::Pdf, {}};
    if (auto esito = ambiente.ApriDitta(kScadenzeMolte); !esito) {
      throw std::runtime_error(esito.Errore().messaggio);
    }
  }
  DialoghiMuti dialoghi;
  OrologioDiSistema orologio;
  CasoDiSistema caso;
  Ambiente ambiente;
};

void Pretendi(bool vero, const char* cosa) {
  if (!vero) throw std::runtime_error(cosa);
}

// --- Selection -----------------------------------------------------------------------------------

Rapporto MisuraSelezione(const OpzioniAmbiente& opzioni) {
  Banco banco(opzioni);
  const auto ditta = opzioni.cartellaProgramma / kScadenzeMolte;
  // On the company's own files and indexes, so that both sides read the same pages in order.
  Nuda nuda(ditta / "Scad32.mdb", engine::sqlite::RegistraMotore);
  nuda.Esegui(("ATTACH '" + (ditta / "Cont32.mdb").string() + "' AS t").c_str());
  auto* righe = nuda.Prepara(
      "SELECT s.Conto, c.Descrizione, s.Dt, s.anticipo, s.ImportoE, s.ImportoPagatoE, "
      "substr(s.Descrizione,1,35), s.NProt, s.NFat, s.DtFat, s.Tipo, s.Stato, s.Numero FROM "
      "Scadenze s INNER JOIN t.ContiClientiFornitori c ON s.Conto=c.Cod AND s.CFP=c.CFP WHERE "
      "s.CFP='C' AND s.Stato<'30' ORDER BY s.Dt, s.Numero");
  duedates::RicercaScadenze ricerca;
  ricerca.cfp = "C";
  std::int64_t trovate = 0;
  Importo aperto;
  std::vector<double> tempi;
  Rapporto rapporto = Misura(
      "scadenze-ricerca", 1.5,
      [&] {
        trovate = 0;
        tempi.push_back(Secondi([&] {
          duedates::CercaScadenze(banco.ambiente, ricerca, [&](const duedates::RigaScadenza& riga) {
            aperto += riga.Residuo();
            ++trovate;
            return true;
          });
        }));
      },
      [&] { Leggi(righe); }, 15);
  Pretendi(trovate == kAperteClienti, "scadenze aperte trovate in altro numero");
  std::printf("# scadenze-ricerca: %.1f ms, %lld righe\n", Mediana(tempi) * 1e3,
              static_cast<long long>(trovate));
  return rapporto;
}

// --- Payment -------------------------------------------------------------------------------------

/// Copies of both files, with the indexes by which the books are read: a payment of two hundred
/// parties touches them in two hundred places, whoever writes it.
void Copia(const std::filesystem::path& da, const std::filesystem::path& a) {
  std::filesystem::remove(a);
  Nuda(da, engine::sqlite::RegistraMotore).Esegui(("VACUUM INTO '" + a.string() + "'").c_str());
}

/// The rows of a payment bound to prepared statements, in one transaction over both files.
class PagamentoNudo {
 public:
  explicit PagamentoNudo(Nuda& nuda)
      : nuda_(nuda),
        massimo_(nuda.Prepara("SELECT MAX(NumDoc) FROM Articoli WHERE Anno=2024")),
        aggiorna_(nuda.Prepara("UPDATE s.Scadenze SET Stato='30', DtPag=45657, ImportoPagato=?1, "
                               "ImportoPagatoE=?2 WHERE Numero=?3")),
        scriviTesta_(nuda.Prepara(
            "INSERT INTO Articoli (Anno, NumDoc, Dt, CFP, Conto, CfpA, ContoA, "
            "CREATOINAUTOMATICO) VALUES (2024, ?1, 45657, '', 'DIVERSI', 'P', '100.010', 21)")),
        scriviRiga_(nuda.Prepara(
            "INSERT INTO Movimenti (Anno, NumDoc, Posi, Causale, Descrizione, CFP, Conto, "
            "ImpoDare, ImpoAvere, CFPControp, ContoControp, TIPORIGA, _Dt) VALUES (2024, ?1, ?2, "
            "'002', 'pagamento FT. 12345', ?3, ?4, ?5, ?6, ?7, ?8, 0, 45657)")) {}

  void Conferma(const std::vector<duedates::RigaPagamento>& righe) {
    nuda_.Esegui("BEGIN IMMEDIATE");
    sqlite3_step(massimo_);
    const std::int64_t numero = sqlite3_column_int64(massimo_, 0) + 1;
    sqlite3_reset(massimo_);
    sqlite3_bind_int64(scriviTesta_, 1, numero);
    Fai(scriviTesta_);
    std::int64_t posi = 0;
    std::int64_t totale = 0;
    for (const duedates::RigaPagamento& riga : righe) {
      const std::int64_t importo = riga.importoPagato.Decimillesimi();
      totale += importo;
      sqlite3_bind_int64(aggiorna_, 1, importo * 1936);
      sqlite3_bind_int64(aggiorna_, 2, importo);
      sqlite3_bind_int64(aggiorna_, 3, riga.vista.numero);
      Fai(aggiorna_);
      Riga(numero, posi += 100, "C", riga.vista.conto.c_str(), 0, importo);
    }
    Riga(numero, posi + 100, "P", "100.010", totale, 0);
    nuda_.Esegui("COMMIT");
  }

 private:
  static void Fai(sqlite3_stmt* istruzione) {
    if (sqlite3_step(istruzione) != SQLITE_DONE) throw std::runtime_error("scrittura nuda");
    sqlite3_reset(istruzione);
  }
  void Riga(std::int64_t numero, std::int64_t posi, const char* cfp, const char* conto,
            std::int64_t dare, std::int64_t avere) {
    const bool parte = *cfp != 'P';
    sqlite3_bind_int64(scriviRiga_, 1, numero);
    sqlite3_bind_int64(scriviRiga_, 2, posi);
    Lega(scriviRiga_, 3, cfp);
    Lega(scriviRiga_, 4, conto);
    sqlite3_bind_int64(scriviRiga_, 5, dare);
    sqlite3_bind_int64(scriviRiga_, 6, avere);
    Lega(scriviRiga_, 7, parte ? "P" : "C");
    Lega(scriviRiga_, 8, parte ? "100.010" : "DIVERSI");
    Fai(scriviRiga_);
  }

  Nuda& nuda_;
  sqlite3_stmt* massimo_;
  sqlite3_stmt* aggiorna_;
  sqlite3_stmt* scriviTesta_;
  sqlite3_stmt* scriviRiga_;
};

/// The next due dates of customers, each to be settled as a whole.
duedates::Pagamento Prepara(Ambiente& ambiente, std::int64_t daNumero) {
  duedates::Pagamento pagamento;
  pagamento.cfp = "C";
  pagamento.dt = Data::DaGma(31, 12, kAnno).value();
  pagamento.causale = "002";
  pagamento.descrizione = "pagamento";
  pagamento.contropartita = "100.010";
  for (int i = 0; i < kPagateInsieme; ++i) {
    duedates::RigaPagamento riga;
    riga.vista = duedates::LeggiScadenza(ambiente, daNumero + i).value();
    riga.importoPagato = riga.vista.Residuo();
    pagamento.righe.push_back(std::move(riga));
  }
  return pagamento;
}

/// Rows and due dates of what was measured, as they were before.
void Disfa(Ambiente& ambiente, const std::vector<duedates::Pagamento>& pagati, std::int64_t prima) {
  const std::string oltre =
      " WHERE Anno=" + std::to_string(kAnno) + " AND " + sql::Criterio("NumDoc", ">", prima);
  Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
  const std::int64_t righe =
      ambiente.ArchivioDi("tessarc").Esegui("DELETE * FROM Movimenti" + oltre);
  ambiente.ArchivioDi("tessarc").Esegui("DELETE * FROM Articoli" + oltre);
  for (const duedates::Pagamento& pagamento : pagati) {
    for (const duedates::RigaPagamento& riga : pagamento.righe) {
      std::string campi = sql::Criterio("Stato", "=", riga.vista.stato) + ",DtPag=#12/30/1899#";
      for (const auto& [campo, valore] : duedates::CampiPagato(riga.vista.importoPagatoE)) {
        campi += "," + campo + "=" + sql::LetteraleSql(valore);
      }
      ambiente.ArchivioDi("scadenzario")
          .Esegui("UPDATE Scadenze SET " + campi + " WHERE " +
                  sql::Criterio("Numero", "=", riga.vista.numero));
    }
  }
  transazione.Conferma();
  Pretendi(righe == static_cast<std::int64_t>(pagati.size()) * (kPagateInsieme + 1),
           "i pagamenti misurati hanno scritto altre righe");
}

Rapporto MisuraPagamento(const OpzioniAmbiente& opzioni) {
  const auto& cartella = opzioni.cartellaProgramma;
  const auto tessarc = cartella / "pagamenti-nudi.db";
  const auto scadenze = cartella / "scadenze-pagate-nude.db";
  Copia(cartella / kScadenzeMolte / "Cont32.mdb", tessarc);
  Copia(cartella / kScadenzeMolte / "Scad32.mdb", scadenze);
  Banco banco(opzioni);
  Nuda nuda(tessarc, engine::sqlite::RegistraMotore);
  nuda.Esegui(("ATTACH '" + scadenze.string() + "' AS s").c_str());
  nuda.Esegui("PRAGMA s.journal_mode=TRUNCATE");
  nuda.Esegui("PRAGMA s.synchronous=FULL");
  PagamentoNudo nudo(nuda);
  Ambiente& ambiente = banco.ambiente;
  const std::int64_t prima =
      ambiente.Max("NumDoc", "Articoli", {{"Anno", kAnno}}, ambiente.ArchivioDi("tessarc"))
          .Intero();
  std::int64_t numero = kQuanteScadenze - kAperteClienti - kAperteFornitori + kRicevute + 1;
  std::vector<duedates::Pagamento> pagati;
  std::vector<double> nostri;
  std::vector<double> nudi;
  for (int giro = 0; giro < 2 * kGiri + 1; ++giro, numero += kPagateInsieme) {
    pagati.push_back(Prepara(ambiente, numero));
    nudi.push_back(Secondi([&] { nudo.Conferma(pagati.back().righe); }));
    nostri.push_back(Secondi([&] {
      Pretendi(duedates::RegistraPagamento(ambiente, pagati.back()).scritto, "pagamento rifiutato");
    }));
  }
  Disfa(ambiente, pagati, prima);
  std::printf("# scadenze-pagamento: %.2f ms a %.2f\n", Mediana(nostri) * 1e3, Mediana(nudi) * 1e3);
  return {"scadenze-pagamento", Mediana(nostri) / Mediana(nudi), 1.7};
}

// --- Batch ---------------------------------------------------------------------------------------

/// A PDF, whatever was chosen.
class FabbricaPdf : public reports::FabbricaUscite {
 public:
  explicit FabbricaPdf(std::filesystem::path file) : file_(std::move(file)) {}
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita&, const std::string&) override {
    return std::make_unique<print::UscitaPdf>(file_);
  }

 private:
  std::filesystem::path file_;
};

duedates::DebitoreRiba Debitore(Ambiente& ambiente, const std::string& conto) {
  const Rs rs = ambiente.ArchivioDi("tessarc").Recordset("SELECT * FROM Clienti WHERE " +
                                                         sql::Criterio("Cod", "=", conto));
  const auto testo = [&rs](const char* campo) { return rs.Fields(campo).Testo(); };
  return {testo("ragsoc1"),  testo("ragsoc2"), testo("indirizzo"), testo("cap"),
          testo("localita"), testo("prov"),    testo("piva"),      testo("ABI"),
          testo("CAB"),      testo("banca"),   testo("agenzia")};
}

/// A full batch of the first receipts.
duedates::DatiDistinta Distinta(Ambiente& ambiente, const std::filesystem::path& file) {
  duedates::DatiDistinta dati;
  dati.numero = 1;
  dati.banca = duedates::LeggiBanca(ambiente, kBancaRicevute).value();
  dati.nomeFile = file.string();
  dati.distinta.data = Data::DaGma(31, 12, kAnno).value();
  dati.distinta.banca = dati.banca.conto;
  dati.distinta.creditore = {"Ditta di prova srl", "", "via Milano 1", "23900 Lecco",
                             "01234567890"};
  const std::int64_t prima = kQuanteScadenze - kAperteClienti - kAperteFornitori + 1;
  for (std::size_t i = 0; i < duedates::kMassimoRicevute; ++i) {
    const duedates::Scadenza s =
        duedates::LeggiScadenza(ambiente, prima + static_cast<std::int64_t>(i)).value();
    dati.vista.push_back(s);
    dati.distinta.ricevute.push_back(
        {s.dt, s.importoE, s.descrizione, Debitore(ambiente, s.conto)});
    dati.iban.emplace_back();
  }
  return dati;
}

/// The bank's file composed, checked, written and synced, to the batch printed as a PDF: whoever
/// confirms waits for both.
Rapporto MisuraDistinta(const OpzioniAmbiente& opzioni) {
  Banco banco(opzioni);
  const auto file = opzioni.cartellaProgramma / "distinta.rib";
  const auto stampata = opzioni.cartellaProgramma / "distinta.pdf";
  const duedates::DatiDistinta dati = Distinta(banco.ambiente, file);
  FabbricaPdf fabbrica(stampata);
  std::vector<double> tempi;
  Rapporto rapporto = Misura(
      "riba-file", 0.5,
      [&] {
        std::filesystem::remove(file);
        tempi.push_back(Secondi([&] {
          duedates::FileDistinta distinta(file);
          Pretendi(distinta.Scrivi(duedates::ComponiFileRiba(dati.distinta)).Riuscito(),
                   "file non scritto");
          distinta.Tieni();
        }));
      },
      [&] {
        Pretendi(duedates::StampaDistinta(banco.ambiente, fabbrica, dati, {}).Prova(),
                 "distinta non stampata");
      },
      21);
  std::printf("# riba-file: %.2f ms, %ju byte\n", Mediana(tempi) * 1e3,
              static_cast<std::uintmax_t>(std::filesystem::file_size(file)));
  std::filesystem::remove(file);
  std::filesystem::remove(stampata);
  return rapporto;
}

}  // namespace

std::vector<Rapporto> MisureScadenze(const OpzioniAmbiente& opzioni, const Nomi& nomi) {
  std::vector<Rapporto> rapporti;
  const bool ricerca = Chiesto(nomi, "scadenze-ricerca");
  const bool pagamento = Chiesto(nomi, "scadenze-pagamento");
  const bool distinta = Chiesto(nomi, "riba-file");
  if (!ricerca && !pagamento && !distinta) return rapporti;
  GeneraScadenze(opzioni);
  if (ricerca) rapporti.push_back(MisuraSelezione(opzioni));
  if (pagamento) rapporti.push_back(MisuraPagamento(opzioni));
  if (distinta) rapporti.push_back(MisuraDistinta(opzioni));
  return rapporti;
}

}  // namespace fenalto::banco
